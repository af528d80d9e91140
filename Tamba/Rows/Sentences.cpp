#include "Tamba/Rows/Sentences.h"

#include "Tamba/Rows/RowText.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace tamba::Sentences {
namespace {

using RowText::marked;

/// What stands in the places of a sentence: values as they are, or words that are known here, too.
enum class Values { kept, words };

struct Sentence {
    const char* text;
    Values values = Values::kept;
};

/// The first that fits is taken: what others could swallow stands before them.
constexpr Sentence sentences[] = {
    // Dates to keep
    {marked("Rows", "GSTR-1 for %1"), Values::words},
    {marked("Rows", "GSTR-3B for %1"), Values::words},
    {marked("Rows", "CMP-08 for %1"), Values::words},
    {marked("Rows", "GSTR-4 for %1")},
    {marked("Rows", "Advance tax for %1, up to %2 %")},
    {marked("Rows", "Letter of undertaking for %1")},
    {marked("Rows", "Where quarterly returns were chosen (QRMP), due on the 13th after the quarter.")},
    {marked("Rows", "With this month’s input tax by the books; compare it with GSTR-2B.")},
    {marked("Rows", "At the 6 % of services; restaurants pay 5 %, traders and makers of goods 1 %.")},
    {marked("Rows", "The year’s tax was paid with CMP-08.")},
    {marked("Rows", "Presumptive income: the whole tax at once. None below ₹10,000 after TDS.")},
    {marked("Rows", "Presumptive income: only on 15 March. None below ₹10,000 after TDS.")},
    {marked("Rows", "Form RFD-11, before the year’s first export or supply to an SEZ without tax.")},
    {marked("Rows", "%1 so far"), Values::words},
    {marked("Rows", "Nil return")},
    {marked("Rows", "nothing to pay")},
    {marked("Rows", "1 invoice this year under %1"), Values::words},
    {marked("Rows", "%1 invoices this year under %2"), Values::words},
    {marked("Rows", "a letter without its number in Settings")},

    // What an expense lacks
    {marked("Rows", "No date was found.")},
    {marked("Rows", "The date fits only another order of day and month.")},
    {marked("Rows", "The date lies in the future or more than ten years back.")},
    {marked("Rows", "No total was found.")},
    {marked("Rows", "The total is the largest amount; no line was labelled as the total.")},
    {marked("Rows", "The total does not agree with the subtotal and the tax.")},
    {marked("Rows", "A figure is too large to be right, so the reports leave this expense out.")},
    {marked("Rows", "The exchange rate is too large to be right, so the reports leave this expense out.")},
    {marked("Rows", "Add the exchange rate to include this in reports.")},
    {marked("Rows", "The amount is missing.")},
    {marked("Rows", "The tax is more than the amount.")},
    {marked("Rows", "The parts of the tax don’t add up to the tax.")},
    {marked("Rows", "The category is missing.")},

    // Reasons of suggestions
    {marked("Rows", "same amount")},
    {marked("Rows", "amount within 1%")},
    {marked("Rows", "same day")},
    {marked("Rows", "1 day apart")},
    {marked("Rows", "%1 days apart")},
    {marked("Rows", "mentions %1")},
    {marked("Rows", "pays the balance")},
    {marked("Rows", "part payment")},
    {marked("Rows", "close to the balance (TDS?)")},
    {marked("Rows", "same as invoice total")},
    {marked("Rows", "from %1")},
    {marked("Rows", "%1 more than at the rate of %2: an exchange gain.")},
    {marked("Rows", "%1 less than at the rate of %2: an exchange loss.")},

    // Under and beside reports
    {marked("Rows",
            "Income is the taxable value of invoices issued in each month, less credit notes. Expenses count net of "
            "tax you reclaim.")},
    {marked("Rows", "Income is the taxable share of payments received (TDS included) in each month.")},
    {marked("Rows", "Taxable value of the invoices dated in this time. Credit notes are not taken off.")},
    {marked("Rows", "%1 more than invoiced has come in or was credited. It is not taken off here.")},
    {marked("Rows",
            "Compare with the certificates (Form 16A, from April 2026 Form 131). A client may have booked the tax at "
            "the date of the invoice, in another quarter or year.")},
    {marked("Rows",
            "Income by invoice date. A line that bills an expense counts for the expense’s project, any other for its "
            "client’s project where the client has just one.")},
    {marked("Rows", "Credit counts only where the vendor’s invoice is in GSTR-2B.")},
    {marked("Rows", "%1 of tax on expenses is not claimed.")},
    {marked("Rows", "With the credit of this period alone: what was left of earlier ones is not in the books.")},
    {marked("Rows", "%1 expenses with claimed tax, but no valid GSTIN of the vendor: that is no credit.")},
    {marked("Rows", "%1 expenses with CGST and SGST of another state: that credit is lost.")},
    {marked("Rows", "%1 expenses in foreign currency: a service from abroad is taxed under reverse charge.")},
    {marked("Rows", "%1 documents go out of your state, which the scheme does not allow.")},
    {marked("Rows", "%1 records are left out: without an exchange rate, or with a figure that can’t be right.")},
    {marked("Rows", "On %1")},
    {marked("Rows", "Tax year %1, by the day of payment")},
    {marked("Rows", "Tax year %1")},

    // What the portal would refuse
    {marked("Rows", "%1 is still a draft. Only what is issued counts."), Values::words},
    {marked("Rows", "This return is for businesses under the regular GST regime.")},
    {marked("Rows", "Your business details have no GSTIN.")},
    {marked("Rows", "Your own GSTIN is wrong. %1")},
    {marked("Rows", "The return is in rupees, and the home currency of these books is %1.")},
    {marked("Rows", "%1 has no number."), Values::words},
    {marked("Rows",
            "%1 has a number the portal refuses: at most 16 letters, digits, “-” and “/”, and not only zeros.")},
    {marked("Rows", "%1 has the number of another document; capitals make no difference.")},
    {marked("Rows", "%1 is dated before GST began.")},
    {marked("Rows", "%1 is no supply under GST, so it is not in this return.")},
    {marked("Rows", "%1 is to an SEZ without a valid GSTIN of the buyer, so it is left out.")},
    {marked("Rows", "%1 comes to nothing, so no table holds it.")},
    {marked("Rows", "%1 has no exchange rate, so it is left out.")},
    {marked("Rows", "%1 has a figure that is too large to be right, so it is left out.")},
    {marked("Rows",
            "%1 has “%2” as the client’s GSTIN, which is not valid. It is reported as a sale to a consumer, and the "
            "client gets no credit.")},
    {marked("Rows", "%1 has no place of supply.")},
    {marked("Rows", "%1 charges CGST and SGST, but its place of supply is another state.")},
    {marked("Rows", "%1 charges IGST, but its place of supply is your own state.")},
    {marked("Rows", "%1 has lines at %2, a rate the portal doesn’t know.")},
    {marked("Rows",
            "%1 adds up its tax at %2 line by line, which differs by %3 from the tax on their sum. The portal has "
            "refused such differences.")},
    {marked("Rows", "%1 has lines without an HSN or SAC code.")},
    {marked("Rows",
            "%1 has the HSN or SAC code “%2”, which the portal refuses: %3 to 8 digits, and 4 or 6 for services.")},
    {marked("Rows", "%1 came after %2, when the tax of %3 could last be reduced.")},
    {marked("Rows", "1 number between %1 and %2 belongs to no document of this period.")},
    {marked("Rows", "%1 numbers between %2 and %3 belong to no document of this period.")},

    // How a statement was read
    {marked("Rows", "Every date in this file can be read in one way only.")},
    {marked("Rows", "Dates were read as %1: %2 of them are no days when read as %3."), Values::words},
    {marked("Rows", "Dates were read as %1."), Values::words},
    {marked("Rows", "The dates may be meant as %1: then all are days, run in one direction and lie close together."),
     Values::words},
    {marked("Rows", "day, month, year")},
    {marked("Rows", "month, day, year")},
    {marked("Rows", "year, month, day")},
    {marked("Rows",
            "Day and month may be swapped in some dates: those with days up to the 12th are written in another way "
            "than the later ones, as after a pass through a spreadsheet program of another country.")},
    {marked("Rows", "Nothing in this file says which way the money went: all amounts were read as money in.")},
    {marked("Rows",
            "This looks like a card whose charges are printed as positive amounts: the signs may have to be turned.")},
    {marked("Rows", "Some amounts are negative but marked as money in; the sign was taken, not the mark.")},
    {marked("Rows", "The column “%1” holds amounts too, which were not read.")},
    {marked("Rows", "Two columns could say which way the money went; “%1”, column %2, was taken.")},
    {marked("Rows", "The amounts in this file are in %1, and were read as %2.")},
    {marked("Rows", "This file holds lines of %1 accounts.")},
    {marked("Rows", "Lines marked as money out have no minus in this file; they were read as money in.")},
    {marked("Rows", "Only the first sheet of the workbook was read; other sheets hold transactions too.")},
    {marked("Rows", "A quotation mark in this file has no partner: rows behind it may be missing or misread.")},
    {marked("Rows", "The columns change in row %1 of the file.")},
    {marked("Rows", "A quotation mark in this row is not closed and has drawn other rows into it.")},
    {marked("Rows", "This row has more cells than the others: one of them holds the mark that separates cells.")},
    {marked("Rows", "This row has fewer cells than the others: one of them is missing.")},
    {marked("Rows", "The bank marks this row as %1.")},
    {marked("Rows", "This row is in %1, the others are in %2.")},
    {marked("Rows", "This line is in %1, the others are in %2.")},
    {marked("Rows", "There is no date in this row.")},
    {marked("Rows", "There is no date in this line.")},
    {marked("Rows", "There is no amount in this row.")},
    {marked("Rows", "There is no amount in this line.")},
    {marked("Rows", "Both money out and money in are filled in.")},
    {marked("Rows", "The mark beside the amount contradicts its column.")},
    {marked("Rows", "A minus in this column can mean two things.")},
    {marked("Rows", "The amount stands in another column than those of the other rows.")},
    {marked("Rows", "The amount is zero.")},
    {marked("Rows", "The mark beside the amount contradicts the column that says which way the money went.")},
    {marked("Rows", "The amount is negative, but marked as money in.")},
    {marked("Rows", "Nothing says which way the money went.")},
    {marked("Rows", "This row is a balance or a total, not a transaction.")},
    {marked("Rows", "%1 is not a date.")},
    {marked("Rows", "%1 is no day when read as %2."), Values::words},
    {marked("Rows", "%1 does not say which way the money went.")},
    {marked("Rows", "%1 is not an amount.")},
    {marked("Rows", "%1 can be read as two different amounts.")},
    {marked("Rows", "%1 is too large to be an amount.")},

    // Updates
    {marked("Rows", "Updates are off: this copy was built without a place to get them from.")},
    {marked("Rows", "Looking for updates…")},
    {marked("Rows", "Fetching %1…")},
    {marked("Rows", "%1 is ready. It is installed when you quit.")},
    {marked("Rows", "%1 is available. It comes with the updates of your system.")},
    {marked("Rows", "%1 is available, but not for this kind of computer.")},
    {marked("Rows", "%1 is available.")},
    {marked("Rows", "%1 is the latest version.")},
    {marked("Rows", "%1 is installed; it is there when the program starts again.")},
    {marked("Rows", "%1 didn’t start on this computer, so %2 stays in use until a later version is out.")},
    {marked("Rows", "The server of the updates couldn’t prove who it is, so nothing was fetched.")},
    {marked("Rows", "The server of the updates leads to a place that isn’t safe, so nothing was fetched.")},
    {marked("Rows", "The server of the updates leads round in circles, so nothing was fetched.")},
    {marked("Rows", "The server of the updates doesn’t have what was asked for at the moment.")},
    {marked("Rows", "The server of the updates can’t be reached at the moment.")},
    {marked("Rows", "The server of the updates sent more than a list of updates can be.")},
    {marked("Rows", "The list of updates isn’t signed by the makers of %1, so nothing in it was used.")},
    {marked("Rows", "The list of updates can’t be read.")},
    {marked("Rows", "The list of updates can’t be read: “%1” is missing or makes no sense.")},
    {marked("Rows", "The list of updates is dated after today. Set this computer’s date, then look again.")},
    {marked("Rows", "The list of updates is out of date, and a newer one may be held back. Nothing in it was used.")},
    {marked("Rows", "The list of updates is older than one that was here before, so nothing in it was used.")},
    {marked("Rows", "%1 took too long to fetch; what is here already stays for the next time.")},
    {marked("Rows", "%1 isn’t as long as announced, so it was thrown away.")},
    {marked("Rows", "%1 is longer than announced, so it was thrown away.")},
    {marked("Rows", "%1 isn’t what its makers signed, so it was thrown away.")},
    {marked("Rows", "%1 can’t be kept on the disk: %2.")},
    {marked("Rows", "The disk has no room for %1. %2 stays in use.")},
    {marked("Rows", "The disk has no room for %1.")},
    {marked("Rows", "%1 is being installed from another window already.")},
    {marked("Rows", "%1 can’t be installed: the version in use can’t be found.")},
    {marked("Rows", "%1 has to wait until %2 was started once.")},
    {marked("Rows", "The file of %1 isn’t the one its makers signed, so it wasn’t unpacked.")},
    {marked("Rows", "The file of %1 holds %2, so it wasn’t installed. %3 stays in use.")},
    {marked("Rows", "%1 couldn’t be put in its place: %2. %3 stays in use.")},

    // Films
    {marked("Rows", "The film “%1” could not be made: %2."), Values::words},
    {marked("Rows", "The name of a film ends in .mp4 or .webm.")},
    {marked("Rows", "The film was given up.")},
    {marked("Rows", "this computer has no encoder for it")},
    {marked("Rows", "it has no pictures")},

    // Titles of tables, their columns and fixed rows
    {marked("Rows", "Spending by category")},
    {marked("Rows", "Income by client")},
    {marked("Rows", "Unpaid invoices")},
    {marked("Rows", "Tax deducted at source")},
    {marked("Rows", "Tax deducted at source, by client")},
    {marked("Rows", "Tax on expenses")},
    {marked("Rows", "3.1 Outward supplies")},
    {marked("Rows", "3.2 Inter-state supplies to unregistered persons")},
    {marked("Rows", "4 Input tax credit")},
    {marked("Rows", "6.1 Payment of tax")},
    {marked("Rows", "4A, 6B Registered buyers and SEZ")},
    {marked("Rows", "5 Large invoices to consumers")},
    {marked("Rows", "6A Exports")},
    {marked("Rows", "7 Other consumers")},
    {marked("Rows", "8 Nil-rated or exempt")},
    {marked("Rows", "9B Credit notes to registered buyers")},
    {marked("Rows", "9B Credit notes on exports and large invoices")},
    {marked("Rows", "12 HSN summary, registered buyers")},
    {marked("Rows", "12 HSN summary, other buyers")},
    {marked("Rows", "12 HSN summary")},
    {marked("Rows", "13 Documents issued")},
    {marked("Rows", "Month")},
    {marked("Rows", "Profit")},
    {marked("Rows", "Share")},
    {marked("Rows", "Invoiced")},
    {marked("Rows", "Past due")},
    {marked("Rows", "Due")},
    {marked("Rows", "Days late")},
    {marked("Rows", "Quarter")},
    {marked("Rows", "Apr–Jun")},
    {marked("Rows", "Jul–Sep")},
    {marked("Rows", "Oct–Dec")},
    {marked("Rows", "Jan–Mar")},
    {marked("Rows", "Invoice date")},
    {marked("Rows", "Taxable")},
    {marked("Rows", "Received")},
    {marked("Rows", "Not claimed")},
    {marked("Rows", "Trips")},
    {marked("Rows", "Distance, %1")},
    {marked("Rows", "Recipient")},
    {marked("Rows", "Value")},
    {marked("Rows", "To")},
    {marked("Rows", "From")},
    {marked("Rows", "Nil-rated or exempt")},
    {marked("Rows", "HSN/SAC")},
    {marked("Rows", "Description")},
    {marked("Rows", "Quantity")},
    {marked("Rows", "Documents")},
    {marked("Rows", "Used")},
    {marked("Rows", "Missing")},
    {marked("Rows", "Supplies")},
    {marked("Rows", "Credit")},
    {marked("Rows", "Payable")},
    {marked("Rows", "Paid by credit")},
    {marked("Rows", "Paid in cash")},
    {marked("Rows", "Credit left")},
    {marked("Rows", "Turnover")},
    {marked("Rows", "Year")},
    {marked("Rows", "Not yet due")},
    {marked("Rows", "1–30 days")},
    {marked("Rows", "31–60 days")},
    {marked("Rows", "61–90 days")},
    {marked("Rows", "Over 90 days")},
    {marked("Rows", "No client")},
    {marked("Rows", "No project")},
    {marked("Rows", "Registered persons")},
    {marked("Rows", "Unregistered persons")},
    {marked("Rows", "96 · Outside India")},
    {marked("Rows", "(a) Taxable, other than zero-rated")},
    {marked("Rows", "(b) Zero-rated: exports and SEZ")},
    {marked("Rows", "(c) Nil-rated or exempt")},
    {marked("Rows", "(A)(5) All other credit, by the books")},
    {marked("Rows", "Outward supplies, exempt ones included")},

    // Short ends that would fit much
    {marked("Rows", "An invoice of %1")},
    {marked("Rows", "A credit note of %1")},
    {marked("Rows", "%1 taxable")},
    {marked("Rows", "%1 to pay")},
    {marked("Rows", "%1 turnover")},
    {marked("Rows", "%1 profit")},
    {marked("Rows", "%1 TDS")},
    {marked("Rows", "%1 documents")},
};

/// The months in full, then what else names a month or a day.
constexpr std::size_t fullMonths = 12;
constexpr std::array names{
    marked("Rows", "January"),   marked("Rows", "February"),  marked("Rows", "March"),    marked("Rows", "April"),
    marked("Rows", "May"),       marked("Rows", "June"),      marked("Rows", "July"),     marked("Rows", "August"),
    marked("Rows", "September"), marked("Rows", "October"),   marked("Rows", "November"), marked("Rows", "December"),
    marked("Rows", "Jan"),       marked("Rows", "Feb"),       marked("Rows", "Mar"),      marked("Rows", "Apr"),
    marked("Rows", "Jun"),       marked("Rows", "Jul"),       marked("Rows", "Aug"),      marked("Rows", "Sept"),
    marked("Rows", "Oct"),       marked("Rows", "Nov"),       marked("Rows", "Dec"),      marked("Rows", "Monday"),
    marked("Rows", "Tuesday"),   marked("Rows", "Wednesday"), marked("Rows", "Thursday"), marked("Rows", "Friday"),
    marked("Rows", "Saturday"),  marked("Rows", "Sunday"),    marked("Rows", "Mon"),      marked("Rows", "Tue"),
    marked("Rows", "Wed"),       marked("Rows", "Thu"),       marked("Rows", "Fri"),      marked("Rows", "Sat"),
    marked("Rows", "Sun"),
};

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool isPlace(std::string_view text, std::size_t at) {
    return at + 1 < text.size() && text[at] == '%' && text[at + 1] >= '1' && text[at + 1] <= '9';
}

/// The values at %1, %2 …, which stand in this order in English; nothing where the words differ.
std::optional<std::vector<std::string_view>> valuesIn(std::string_view english, std::string_view pattern) {
    std::vector<std::string_view> values;
    for (;;) {
        std::size_t place = 0;
        while (place < pattern.size() && !isPlace(pattern, place)) ++place;
        if (english.substr(0, place) != pattern.substr(0, place)) return std::nullopt;
        english.remove_prefix(place);
        if (place == pattern.size()) return english.empty() ? std::optional(values) : std::nullopt;
        pattern.remove_prefix(place + 2);
        std::size_t next = 0;
        while (next < pattern.size() && !isPlace(pattern, next)) ++next;
        const std::string_view words = pattern.substr(0, next);
        // What ends the sentence is looked for at its end: a value may hold the same words.
        const bool isLast = next == pattern.size();
        if (isLast && !english.ends_with(words)) return std::nullopt;
        const std::size_t end = isLast ? english.size() - words.size() : english.find(words, 1);
        if (end == std::string_view::npos || end == 0) return std::nullopt;
        values.push_back(english.substr(0, end));
        english.remove_prefix(end);
    }
}

std::optional<std::string> translated(std::string_view english) {
    if (std::string text = RowText::translate("Rows", english); text != english) return text;
    // Several sentences, each known by itself.
    for (std::size_t at = english.find(". "); at != std::string_view::npos; at = english.find(". ", at + 1))
        if (const auto first = translated(english.substr(0, at + 1)))
            if (const auto rest = translated(english.substr(at + 2))) return *first + " " + *rest;
    for (const Sentence& sentence : sentences) {
        const auto values = valuesIn(english, sentence.text);
        if (!values) continue;
        std::array<std::string, 3> texts;
        for (std::size_t i = 0; i < values->size(); ++i)
            texts.at(i) = sentence.values == Values::words ? shown((*values)[i]) : std::string((*values)[i]);
        return RowText::filled(RowText::translate("Rows", sentence.text), {texts[0], texts[1], texts[2]});
    }
    return std::nullopt;
}

/// With the first so many of the names translated where they stand as words.
std::string named(std::string_view text, std::size_t count) {
    std::string result;
    while (!text.empty()) {
        std::size_t end = 0;
        while (end < text.size() && isLetter(text[end])) ++end;
        const std::string_view word = text.substr(0, std::max<std::size_t>(end, 1));
        const auto* last = names.begin() + count;
        result += std::find(names.begin(), last, word) == last ? std::string(word) : RowText::translate("Rows", word);
        text.remove_prefix(word.size());
    }
    return result;
}

}  // namespace

std::string shown(std::string_view english) {
    constexpr std::string_view dot = " · ";
    if (!RowText::isTranslated()) return std::string(english);
    if (std::string text = RowText::translate("Rows", english); text != english) return text;
    if (const std::size_t at = english.find(dot); at != std::string_view::npos)
        return shown(english.substr(0, at)) + std::string(dot) + shown(english.substr(at + dot.size()));
    return translated(english).value_or(named(english, fullMonths));
}

std::string reasons(std::string_view english) {
    constexpr std::string_view comma = ", ";
    if (!RowText::isTranslated()) return std::string(english);
    std::vector<std::string> all;
    while (!english.empty()) {
        const std::size_t end = std::min(english.find(comma), english.size());
        const std::string_view piece = english.substr(0, end);
        if (all.empty() || translated(piece))
            all.emplace_back(piece);
        else
            all.back().append(comma).append(piece);
        english.remove_prefix(std::min(end + comma.size(), english.size()));
    }
    for (std::string& reason : all) reason = translated(reason).value_or(reason);
    return Text::join(all, comma);
}

std::string months(std::string_view formatted) { return named(formatted, names.size()); }

}  // namespace tamba::Sentences
