#include "TambaCore/Receipts/ReceiptParser.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParts.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tamba {

std::string_view sentence(Doubt doubt) {
    switch (doubt) {
        case Doubt::noDate:
            return "No date was found.";
        case Doubt::otherDateOrder:
            return "The date fits only another order of day and month.";
        case Doubt::unlikelyDate:
            return "The date lies in the future or more than ten years back.";
        case Doubt::noTotal:
            return "No total was found.";
        case Doubt::totalWithoutKeyword:
            return "The total is the largest amount; no line was labelled as the total.";
        case Doubt::sumsDoNotClose:
            return "The total does not agree with the subtotal and the tax.";
    }
    fatal("unknown doubt");
}

namespace ReceiptParser {
namespace {

/// Every reading of a misread GSTIN that has a right check character; stops at the second.
void lookAlikes(std::string& code, std::size_t at, int& budget, std::vector<std::string>& valid) {
    if (--budget < 0 || valid.size() > 1) return;
    if (at == code.size()) {
        if (GSTIN::isValid(code)) valid.push_back(code);
        return;
    }
    const char read = code[at];
    const std::string_view choices = read == 'O' ? "O0" : read == 'I' ? "I1J" : read == ']' ? "1J" : "";
    if (choices.empty()) return lookAlikes(code, at + 1, budget, valid);
    for (const char choice : choices) {
        code[at] = choice;
        lookAlikes(code, at + 1, budget, valid);
    }
    code[at] = read;
}

/// Whether subtotal, taxes and charges make up the total, as far as the receipt shows them.
bool sumsClose(const std::vector<std::string>& lines, const Amounts& read) {
    static const Text::Pattern subtotal(R"(\bsub[ -]?total\b|\btaxable (?:value|amount)\b)");
    static const Text::Pattern charge(
        R"(\b(?:charges?|delivery|packing|packaging|shipping|freight|fees?|tips?|cess)\b)");
    static const Text::Pattern less(R"(\b(?:discount|coupon|less|offer|savings?|promo\w*)\b)");
    static const Text::Pattern rounding(R"(\bround(?:ing|ed)?[ -]?(?:off|adj\w*)?\b)");
    if (!read.total) return true;
    const std::int64_t tax = read.tax.value_or(0);
    if (!isLikelyTax(tax, *read.total)) return false;
    // Both halves of GST are charged together, at the same rate (CGST Act 2017, section 9, and those of the states).
    if (std::abs(read.split.cgst - read.split.sgst) > 2) return false;

    std::optional<std::int64_t> net;
    std::int64_t charges = 0, reductions = 0, rounded = 0;
    for (std::size_t i = 0, count = lookedAt(lines); i < count; ++i) {
        const std::string lower = Text::lower(lookedAt(lines[i]));
        const bool isSubtotal = subtotal.matches(lower);
        const bool isRounding = net && rounding.matches(lower);
        const bool isReduction = net && less.matches(lower);
        if (!isSubtotal && !isRounding && !isReduction && !(net && charge.matches(lower))) continue;
        const std::vector<std::int64_t> figures = amounts(lookedAt(lines[i]));
        if (figures.empty()) continue;
        const std::int64_t value = figures.back();
        if (isSubtotal)
            net = net.value_or(value);
        else if (isRounding)
            rounded = std::abs(value);
        else if (isReduction)
            reductions = Checked::add(reductions, std::abs(value));
        else
            charges = Checked::add(charges, value);
    }
    if (!net) return true;
    // The subtotal may hold the tax or the discount already, and rounding goes either way, to a whole unit at most.
    const std::int64_t tolerance = std::min<std::int64_t>(std::max<std::int64_t>(rounded, 5), 100);
    for (const std::int64_t t : {tax, std::int64_t{0}})
        for (const std::int64_t c : {charges, std::int64_t{0}})
            for (const std::int64_t r : {reductions, std::int64_t{0}})
                if (std::abs(*net + t + c - r - *read.total) <= tolerance) return true;
    return false;
}

}  // namespace

ReceiptGuess parse(const std::vector<std::string>& received, DateOrder order, Day today, Source source) {
    std::vector<std::string> lines(received.begin(),
                                   received.begin() + static_cast<std::ptrdiff_t>(lookedAt(received)));
    for (std::string& line : lines) line = Text::repairedUTF8(lookedAt(line));
    ReceiptGuess guess;
    guess.text = Text::join(lines, "\n");
    guess.vendor = vendor(lines, source);
    const ReadDate read = readDate(lines, order, today);
    guess.date = read.day;
    const Amounts figures = amounts(lines);
    guess.total = figures.total;
    guess.tax = figures.tax;
    guess.taxSplit = figures.split;
    guess.gstin = gstin(lines, source);
    guess.currency = currency(guess.text);

    const auto doubt = [&](bool is, Doubt which) {
        if (is) guess.doubts.push_back(which);
    };
    doubt(!read.day, Doubt::noDate);
    doubt(read.otherOrder, Doubt::otherDateOrder);
    doubt(read.day && !isLikely(*read.day, today), Doubt::unlikelyDate);
    doubt(!figures.total, Doubt::noTotal);
    doubt(figures.total && !figures.keyword, Doubt::totalWithoutKeyword);
    doubt(!sumsClose(lines, figures), Doubt::sumsDoNotClose);
    return guess;
}

bool isLikelyTax(std::int64_t tax, std::int64_t total) {
    // The highest rates, GST of 40 % on the price, make it 29 % of what is paid.
    return tax >= 0 && tax <= MoneyMath::mulDiv(std::max<std::int64_t>(total, 0), 30, 100);
}

std::string gstin(const std::vector<std::string>& lines, Source source) {
    static const Text::Pattern literal("[0-9]{2}[A-Z]{5}[0-9]{4}[A-Z][0-9A-Z]Z[0-9A-Z]");
    // The same, where a picture's O, I and ] may stand for 0, 1 and J.
    static const Text::Pattern misread(
        R"((?<![0-9A-Z])[0-9OI\]]{2}[A-Z\]]{5}[0-9OI\]]{4}[A-Z\]][0-9A-Z\]]Z[0-9A-Z\]])");
    std::string printed;
    for (std::size_t i = 0, count = lookedAt(lines); i < count; ++i) {
        const std::string line = Text::upper(lookedAt(lines[i]));
        if (const auto match = literal.first(line)) {
            printed = (*match)[0];
            if (source != Source::recognised || GSTIN::isValid(printed)) return printed;
        }
        if (source == Source::recognised) {
            if (const auto match = misread.first(line)) {
                std::string code((*match)[0]);
                std::vector<std::string> valid;
                int budget = 10'000;
                lookAlikes(code, 0, budget, valid);
                if (valid.size() == 1) return valid.front();
            }
        }
        if (!printed.empty()) break;
    }
    return printed;
}

std::optional<std::string> currency(std::string_view text) {
    struct Mark {
        Text::Pattern pattern;
        std::string_view code;
    };
    // A dollar, euro or pound sign counts beside a figure only: alone it is often a misread letter.
    static const std::array<Mark, 6> marks{{
        {Text::Pattern(R"(₹|(?<!\p{L})(?:INR(?!\p{L})|(?:Rs|RS)(?:\.|(?!\p{L}))))"), "INR"},
        {Text::Pattern(R"((?<!\p{L})(?:USD(?!\p{L})|(?:US)?\$\s?(?=[\d.])))"), "USD"},
        {Text::Pattern(R"((?<!\p{L})EUR(?!\p{L})|€\s?(?=[\d.])|(?<=\d)\s?€)"), "EUR"},
        {Text::Pattern(R"((?<!\p{L})GBP(?!\p{L})|£\s?(?=[\d.]))"), "GBP"},
        {Text::Pattern(R"((?<!\p{L})AED(?!\p{L}))"), "AED"},
        {Text::Pattern(R"((?<!\p{L})(?:SGD(?!\p{L})|S\$\s?(?=[\d.])))"), "SGD"},
    }};
    text = Text::prefixBytes(text, longestText);
    std::optional<std::string> found;
    std::size_t most = 0;
    for (const Mark& mark : marks) {
        const std::size_t times = mark.pattern.all(text).size();
        if (times > most) {
            most = times;
            found = mark.code;
        }
    }
    return found;
}

}  // namespace ReceiptParser
}  // namespace tamba
