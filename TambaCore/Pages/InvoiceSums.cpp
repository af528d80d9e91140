#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Documents/UPI.h"
#include "TambaCore/Pages/InvoiceParts.h"
#include "TambaCore/Pages/InvoiceTexts.h"
#include "TambaCore/Pages/QRCode.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tamba::InvoiceParts {

namespace {

constexpr double half = 232;    // of the width, for each side
constexpr double widest = 300;  // of the sums, where they hold very large amounts
constexpr double gutter = 32;
constexpr double codeSide = 28 / 25.4 * 72;         // 28 mm with its quiet zone: half a millimetre a module
constexpr std::int64_t limitOfUPI = 100'000 * 100;  // from one person to another in a day, in paise (NPCI)

struct Sum {
    std::string label, value;
    enum class Weight { plain, strong, total } weight = Weight::plain;
};

std::vector<Sum> sums(const Subject& subject) {
    const auto& [library, document, currency, found] = subject;
    const DocTotals& totals = *found;
    const auto bare = [&currency = currency](std::int64_t minor) {
        return MoneyFormat::string(minor, currency, MoneyFormat::Symbol::hidden);
    };
    const auto full = [&currency = currency](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    std::vector<Sum> list;
    const auto taxes = InvoiceTexts::taxes(library, document);
    const char* const base = taxes.empty() ? "Net amount" : "Taxable value";
    if (totals.discount != 0) {
        list.push_back({"Subtotal", bare(totals.subtotal)});
        list.push_back({"Discount", bare(Checked::neg(totals.discount))});
        list.push_back({base, bare(totals.taxable)});
    } else {
        list.push_back({taxes.empty() ? "Subtotal" : base, bare(totals.taxable)});
    }
    for (const RateGroup& group : totals.byRate) {
        const std::string on = totals.byRate.size() > 1 ? " on " + bare(group.taxable) : "";
        if (group.rateBP == 0 && !taxes.empty()) list.push_back({"Tax 0%" + on, bare(0)});
        if (group.rateBP == 0) continue;
        for (const InvoiceTexts::Tax& tax : taxes)
            list.push_back({tax.name + " " + InvoiceTexts::rate(tax, group.rateBP) + on, bare(group.tax.*tax.part)});
    }
    if (totals.roundOff != 0) list.push_back({"Round-off", bare(totals.roundOff)});
    list.push_back(
        {document.kind == DocKind::creditNote ? "Total credit" : "Total", full(totals.total), Sum::Weight::total});
    if (document.currency != library.business.homeCurrency && document.rateMicros > 0) {
        const Currency home = library.home();
        list.push_back({"Exchange rate", InvoiceTexts::exchangeRate(library, document)});
        if (const auto value = Books::inHomeCurrency(library, document, totals.total))
            list.push_back({"Total in " + home.code, MoneyFormat::string(*value, home)});
    }
    if (document.kind != DocKind::invoice || !document.isIssued()) return list;
    const auto standing = Books::Standings(library, document.issueDate).of(document);
    if (!standing || (standing->paid == 0 && standing->credited == 0)) return list;
    if (standing->credited != 0) list.push_back({"Credit notes", bare(Checked::neg(standing->credited))});
    const std::int64_t received = Checked::sub(standing->paid, standing->tds);
    if (received != 0) list.push_back({"Received", bare(Checked::neg(received))});
    if (standing->tds != 0) list.push_back({"TDS deducted", bare(Checked::neg(standing->tds))});
    const bool owed = standing->balance >= 0;
    list.push_back({owed ? "Balance due" : "To be refunded",
                    full(owed ? standing->balance : Checked::neg(standing->balance)), Sum::Weight::strong});
    return list;
}

Column sumsColumn(const Subject& subject, const Look& look) {
    const std::vector<Sum> list = sums(subject);
    const auto labelOf = [&look](const Sum& sum) {
        return sum.weight == Sum::Weight::plain ? look.quiet : look.strong;
    };
    const auto valueOf = [&look](const Sum& sum) {
        return (sum.weight == Sum::Weight::plain    ? look.body
                : sum.weight == Sum::Weight::strong ? look.strong
                                                    : look.total)
            .aligned(Align::right);
    };
    double asked = half;
    for (const Sum& sum : list)
        asked =
            std::max(asked, PDFCanvas::width(sum.label, labelOf(sum)) + 16 + PDFCanvas::width(sum.value, valueOf(sum)));
    const double taken = std::min(asked, widest);
    Column column{right - taken, taken, {}};
    for (const Sum& sum : list) {
        const bool total = sum.weight == Sum::Weight::total;
        if (total)
            column.pieces.push_back(
                {.above = 6, .height = 2, .drawing = [rule = look.accent](PDFCanvas& canvas, const Rect& at) {
                     canvas.line({at.x, at.y}, {at.x + at.width, at.y}, rule, 0.8);
                 }});
        column.pieces.push_back({.text = sum.value,
                                 .style = valueOf(sum),
                                 .above = column.pieces.empty() ? 0.0 : 5.0,
                                 .label = sum.label,
                                 .labelStyle = labelOf(sum),
                                 .indent = std::max(taken - PDFCanvas::width(sum.value, valueOf(sum)), taken / 4)});
        if (total) column.pieces.push_back({.height = 4, .drawing = [](PDFCanvas&, const Rect&) {}});
    }
    return column;
}

/// The code, and beside it what it says.
std::optional<Piece> payment(const Subject& subject, const Look& look, double width) {
    const auto link = UPI::linkFor(subject.library, subject.document);
    const auto code = link ? QRCode::modules(*link) : std::nullopt;
    if (!code) return std::nullopt;
    // The quiet zone reaches into the margin, so that the code stands in line with the text.
    const double quiet = 4 * codeSide / (code->size + 8);
    const std::int64_t due = Books::balance(subject.library, subject.document);
    const double beside = codeSide - quiet + 8;
    Column words{0, width - beside, {{.text = "Pay by UPI", .style = look.strong}}};
    words.pieces.push_back(
        {.text = std::string(Text::trim(subject.library.business.upiID)), .style = look.body, .above = 3});
    words.pieces.push_back({.text = MoneyFormat::string(due, subject.currency), .style = look.body, .above = 1});
    if (due > limitOfUPI)
        words.pieces.push_back({.text = "UPI limits may apply above ₹1,00,000.", .style = look.small, .above = 4});
    const double height = std::max(codeSide, words.height());
    return Piece{.above = 14,
                 .height = height,
                 .drawing = [link = *link, words, height, quiet, beside](PDFCanvas& canvas, const Rect& at) {
                     QRCode::draw(canvas, link, at.x - quiet, at.y, codeSide);
                     Column placed = words;
                     placed.x = at.x + beside;
                     placed.draw(canvas, at.y + std::max(4.0, (height - words.height()) / 2));
                 }};
}

}  // namespace

Row closing(const Subject& subject, const Look& look) {
    Row row{.above = 16, .whole = true};
    Column words{left, half, {}};
    if (!subject.totals) {
        words.width = width;
        words.pieces.push_back({.text = "These figures are too large to add up, so no totals are printed. Check the "
                                        "quantity, rate and discount "
                                        "of each line, and the payments.",
                                .style = look.strong});
        row.columns.push_back(std::move(words));
        return row;
    }
    Column figures = sumsColumn(subject, look);
    words.width = std::min(half, figures.x - left - gutter);
    if (std::string text = InvoiceTexts::inWords(subject.totals->total, subject.currency); !text.empty()) {
        words.pieces.push_back({.text = "Amount in words", .style = look.label});
        words.pieces.push_back({.text = std::move(text), .style = look.body, .above = 3});
    }
    if (auto bank = InvoiceTexts::bank(subject.library, subject.document); !bank.empty()) {
        words.pieces.push_back(
            {.text = "Bank details", .style = look.label, .above = words.pieces.empty() ? 0.0 : 14.0});
        double above = 3;
        for (auto& [label, text] : bank)
            words.pieces.push_back({.text = std::move(text),
                                    .style = look.body,
                                    .above = std::exchange(above, 2),
                                    .label = std::move(label),
                                    .labelStyle = look.quiet,
                                    .indent = 68});
    }
    if (auto code = payment(subject, look, words.width)) words.pieces.push_back(std::move(*code));
    row.columns = {std::move(words), std::move(figures)};
    return row;
}

}  // namespace tamba::InvoiceParts
