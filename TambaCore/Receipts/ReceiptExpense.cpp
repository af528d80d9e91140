#include "TambaCore/Receipts/ReceiptExpense.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tamba::ReceiptExpense {
namespace {

constexpr std::size_t longestText = 20'000;  // characters of `ocrText`

struct MethodWords {
    PaymentMethod method;
    Text::Pattern pattern;
};

/// The method named where a payment is stated: "Paid by UPI", "CASH 200.00", "Visa XXXX 1234". A list of all that is
/// accepted, the bank details of an invoice, a "Cash Memo" and a "Memory Card 450.00" state none.
std::optional<PaymentMethod> statedMethod(std::string_view text) {
    static const std::array<MethodWords, 5> methods{{
        {PaymentMethod::upi, Text::Pattern(R"(\b(upi|bhim|g ?pay|google pay|phone ?pe|paytm(?! ?wallet))\b)")},
        {PaymentMethod::card, Text::Pattern(R"(\b(card|visa|master ?card|rupay|amex)\b)")},
        {PaymentMethod::cash,
         Text::Pattern(R"(\bcash\b(?! ?(memo|bill|sales?|back|discount|carry|& carry|on delivery)))")},
        {PaymentMethod::wallet, Text::Pattern(R"(\b(wallet|amazon pay)\b)")},
        {PaymentMethod::bank, Text::Pattern(R"(\b(net ?banking|neft|imps|rtgs|bank transfer)\b)")},
    }};
    static const Text::Pattern said(
        R"(\b(paid|payment|mode|tender\w*|received|settle\w*|via)\b|[*x•]{2,}[ -]?\d{4}\b)");
    static const Text::Pattern amount(R"(\d[.,]\d\d\b|\D$)");  // a figure, or no more than the word
    static const Text::Pattern offered(
        R"(\b(accept\w*|we take|offers?|discount|upi id|ifsc|terms|refund\w*|member\w*|loyalty)\b)");
    for (const std::string& line : Text::splitLines(Text::prefix(text, longestText))) {
        const std::string lower = Text::lower(Text::trim(line));
        std::vector<std::pair<PaymentMethod, std::size_t>> found;  // with its place on the line
        for (const MethodWords& each : methods)
            if (const auto match = each.pattern.first(lower)) found.emplace_back(each.method, match->begin);
        if (found.size() != 1 || offered.matches(lower)) continue;
        const bool alone = found[0].second == 0 && amount.matches(lower) && Text::split(lower, ' ').size() <= 6;
        if (alone || said.matches(lower)) return found[0].first;
    }
    return std::nullopt;
}

/// Minor units of `currency` for an amount read in hundredths, as `ReceiptParser::amounts` gives it.
std::int64_t minor(std::int64_t hundredths, const Currency& currency) {
    return MoneyMath::mulDiv(hundredths, currency.scale(), 100);
}

/// The tax, split as the receipt shows it where that is how the business keeps it, else by the states of both.
Expense withTaxRead(const Library& library, Expense expense, const ReceiptGuess& guess, const Currency& currency) {
    const std::int64_t tax = guess.tax.value_or(0);
    // A misread tax is left out; `doubts` say so.
    if (!ReceiptParser::isLikelyTax(tax, guess.total.value_or(0)))
        return Expenses::withTax(library, std::move(expense), 0);
    expense = Expenses::withTax(library, std::move(expense), minor(tax, currency));
    const TaxSplit& read = guess.taxSplit;
    const TaxSplit split{minor(read.cgst, currency), minor(read.sgst, currency), minor(read.igst, currency), 0};
    if (library.business.isIndia() && split.total() == expense.tax) expense.taxSplit = split;
    return expense;
}

/// A temporary file is named "tamba-<UUID>-<name>"; people know it by its own name.
std::string originalName(const std::filesystem::path& file, const ReceiptScanner::Result& result) {
    static const Text::Pattern prefix("^tamba-[0-9A-Fa-f-]{36}-");
    const std::string name = Text::repairedUTF8(file.filename().string());
    const bool temporary = std::find(result.temporary.begin(), result.temporary.end(), file) != result.temporary.end();
    return temporary ? prefix.replaceAll(name, "") : name;
}

}  // namespace

Expense expense(const Library& library, const ReceiptGuess& guess, Expense blank, Day today) {
    Expense result = std::move(blank);
    const CategoryRule* rule = Expenses::rule(library, guess.vendor);
    result.vendor = rule && !rule->vendor.empty() ? rule->vendor : guess.vendor;
    // A bill may print the customer's number only: a vendor abroad has none, a small shop neither.
    if (guess.gstin != GSTIN::clean(library.business.taxID)) result.vendorTaxID = guess.gstin;
    result.date = guess.date.value_or(today);

    const Currency currency = guess.currency ? Currency::of(*guess.currency) : library.home();
    result.currency = currency.code;
    result.rateMicros = library.rate(currency.code).value_or(0);  // 0: the expense asks for it
    result.amount = minor(guess.total.value_or(0), currency);
    result = withTaxRead(library, std::move(result), guess, currency);

    // By the name as read first: the rule was written for that.
    auto category = Expenses::suggestedCategory(library, guess.vendor);
    if (!category) category = Expenses::suggestedCategory(library, result.vendor);
    result = Expenses::withCategory(library, std::move(result), category);
    if (const auto method = statedMethod(guess.text))
        result.method = *method;
    else if (const Expense* earlier = Expenses::latest(library, result.vendor))
        result.method = earlier->method;

    if (!guess.text.empty()) result.ocrText = Text::prefix(guess.text, longestText);
    std::vector<std::string> sentences;
    for (const Doubt doubt : guess.doubts) sentences.emplace_back(sentence(doubt));
    result.check = sentences.empty() ? std::nullopt : std::optional(Text::join(sentences, " "));
    return result;
}

Filed file(Library library, const LibraryStore& store, const ReceiptScanner::Result& result, Expense blank, Day today) {
    Expense made = expense(library, result.guess, std::move(blank), today);
    std::vector<Attachment> copied;
    try {
        for (const std::filesystem::path& file : result.files)
            copied.push_back({UUID::random(),
                              store.importReceipt(file, made.date, made.vendor),
                              originalName(file, result),
                              made.createdAt,
                              {}});
    } catch (...) {
        for (const Attachment& copy : copied) try {
                store.removeAttachment(copy);
            } catch (const StoreError&) {
                // The copy stays where it is; the first failure is the one to tell.
            }
        throw;
    }
    made.attachments.insert(made.attachments.end(), copied.begin(), copied.end());
    const UUID id = made.id;
    return {Expenses::add(std::move(library), std::move(made)), id};
}

std::optional<UUID> holding(const Library& library, const LibraryStore& store, const std::filesystem::path& file) {
    const auto size = Files::size(file);
    if (!size) return std::nullopt;
    for (const Expense& expense : library.expenses)
        for (const Attachment& attachment : expense.attachments) {
            const auto kept = store.url(attachment);
            if (!kept || Files::size(*kept) != size) continue;
            try {
                if (Files::sameBytes(*kept, file)) return expense.id;
            } catch (const FileError&) {
                // What cannot be read cannot be told to be the same.
            }
        }
    return std::nullopt;
}

}  // namespace tamba::ReceiptExpense
