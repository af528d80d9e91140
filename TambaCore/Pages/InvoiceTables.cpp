#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Pages/InvoiceParts.h"
#include "TambaCore/Pages/InvoiceTexts.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace tamba::InvoiceParts {

namespace {

constexpr double columnGap = 13;
constexpr std::size_t mostOnLine = 1000;  // bytes: more than any line holds
constexpr double padding = 6;             // above and below the text of a row

/// One column of a table, its cells from top to bottom.
struct Field {
    std::string title = {};
    Align align = Align::right;
    double least = 0;  ///< width
    double most = 0;   ///< width beyond which its texts wrap
    std::vector<std::string> cells = {};
    double x = 0, width = 0;
};

PDFCanvas::Style sized(PDFCanvas::Style style, double size) {
    style.font.size = size;
    return style;
}

/// Gives each field the width its texts ask for and the first what is left; says how much that is.
double arrange(std::vector<Field>& fields, const Look& look, double size) {
    const PDFCanvas::Style style = sized(look.body, size);
    double x = right;
    for (auto field = fields.rbegin(); field != std::prev(fields.rend()); ++field) {
        double asked = std::max(field->least, PDFCanvas::width(field->title, look.label));
        for (const std::string& cell : field->cells)
            asked = std::max(asked, cell.size() > mostOnLine ? field->most : PDFCanvas::width(cell, style));
        field->width = std::min(asked, field->most);
        field->x = x - field->width;
        x = field->x - columnGap;
    }
    fields[0].x = left;
    return fields[0].width = x - left;
}

Column cell(const Field& field, std::string text, const PDFCanvas::Style& style) {
    Column column{field.x, field.width, {}};
    if (!text.empty()) column.pieces.push_back({.text = std::move(text), .style = style.aligned(field.align)});
    return column;
}

constexpr double counterWidth = 22;

Row headingOf(const std::vector<Field>& fields, const Look& look) {
    Row row{.below = 5, .rule = look.accent, .ruleWidth = 0.8};
    // Repeated on every page, so a title that somebody made very long is cut; the sums have it whole.
    constexpr double highest = 40;
    for (const Field& field : fields) {
        const std::size_t bytes = PDFCanvas::fitting(field.title, field.width, look.label, highest);
        row.columns.push_back(cell(field, field.title.substr(0, bytes), look.label));
    }
    return row;
}

std::string numbered(const Line& line) {
    std::string text = MoneyFormat::quantity(line.qtyMilli);
    if (!Text::trim(line.unit).empty()) text += " " + std::string(Text::trim(line.unit));
    return text;
}

/// Fields of the lines after the item, which comes first.
std::vector<Field> lineFields(const Subject& subject) {
    const auto& [library, document, currency, totals] = subject;
    const auto amount = [&](std::int64_t minor) {
        return MoneyFormat::string(minor, currency, MoneyFormat::Symbol::hidden);
    };
    const bool foreign = document.currency != library.business.homeCurrency;
    const auto taxes = InvoiceTexts::taxes(library, document);
    const std::string taxName = taxes.size() == 1 ? taxes[0].name : "GST";
    Field item{.title = "Item", .align = Align::left},
        hsn{.title = isIndia(library.business.regime) ? "HSN/SAC" : "Code", .align = Align::left, .most = 56},
        quantity{.title = "Qty", .least = 36, .most = 76}, price{.title = "Rate", .least = 44, .most = width},
        discount{.title = "Discount", .most = 48}, tax{.title = taxName, .least = 24, .most = 56},
        sum{.title = foreign ? "Amount (" + currency.code + ")" : "Amount", .least = 64, .most = width};
    bool coded = false, discounted = false;
    for (std::size_t i = 0; i < document.lines.size(); ++i) {
        const Line& line = document.lines[i];
        coded = coded || !line.hsn.empty();
        discounted = discounted || line.discountBP != 0;
        hsn.cells.push_back(line.hsn);
        quantity.cells.push_back(numbered(line));
        price.cells.push_back(amount(line.priceMinor));
        discount.cells.push_back(line.discountBP == 0 ? "" : MoneyFormat::rate(line.discountBP));
        tax.cells.push_back(MoneyFormat::rate(line.taxBP));
        sum.cells.push_back(totals ? amount(totals->lines[i].taxable) : "—");
    }
    std::vector<Field> fields{std::move(item)};
    if (coded) fields.push_back(std::move(hsn));
    fields.push_back(std::move(quantity));
    fields.push_back(std::move(price));
    if (discounted) fields.push_back(std::move(discount));
    if (!taxes.empty()) fields.push_back(std::move(tax));
    fields.push_back(std::move(sum));
    return fields;
}

/// Number, then name and description under each other.
std::vector<Column> itemOf(const Line& line, std::size_t number, double width, const PDFCanvas::Style& strong,
                           const PDFCanvas::Style& quiet) {
    Column counter{left, counterWidth - 4, {{.text = std::to_string(number), .style = quiet}}};
    Column item{left + counterWidth, width - counterWidth, {}};
    const std::string_view name = Text::trim(line.name), detail = Text::trim(line.detail);
    item.pieces.push_back({.text = name.empty() ? "—" : std::string(name), .style = strong});
    if (!detail.empty()) item.pieces.push_back({.text = std::string(detail), .style = quiet, .above = 2});
    return {std::move(counter), std::move(item)};
}

}  // namespace

void addLines(Flow& flow, const Subject& subject, const Look& look) {
    std::vector<Field> fields = lineFields(subject);
    // Amounts are never broken: beside very large ones the whole table is set smaller.
    constexpr double leastItem = 125;
    double size = look.body.font.size;
    for (;; size -= 0.5) {
        // What is carried forward is wider than any amount it is the sum of.
        if (subject.totals)
            fields.back().least = std::max(
                52.0, PDFCanvas::width(
                          MoneyFormat::string(subject.totals->taxable, subject.currency, MoneyFormat::Symbol::hidden),
                          sized(look.body, size)));
        if (arrange(fields, look, size) >= leastItem || size <= 5) break;
    }
    const PDFCanvas::Style body = sized(look.body, size), strong = sized(look.strong, size),
                           quiet = sized(look.quiet, size);
    std::vector<Row> rows;
    for (std::size_t i = 0; i < subject.document.lines.size(); ++i) {
        Row row{.above = padding, .below = padding, .rule = look.hairline, .ruleWidth = 0.5};
        row.columns = itemOf(subject.document.lines[i], i + 1, fields[0].width, strong, quiet);
        for (std::size_t f = 1; f < fields.size(); ++f)
            row.columns.push_back(cell(fields[f], std::move(fields[f].cells[i]), body));
        rows.push_back(std::move(row));
    }
    const auto carried = [&, amounts = fields.back()](Flow::Carry carry, std::size_t count) {
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) sum = Checked::add(sum, subject.totals->lines[i].taxable);
        const Field words{.title = "", .align = Align::right, .x = left, .width = amounts.x - columnGap - left};
        return Row{
            .columns = {cell(words, carry == Flow::Carry::forward ? "Carried forward" : "Brought forward", quiet),
                        cell(amounts, MoneyFormat::string(sum, subject.currency, MoneyFormat::Symbol::hidden), body)},
            .above = padding,
            .below = padding};
    };
    Row heading = headingOf(fields, look);
    heading.columns[0] = {left, counterWidth - 4, {{.text = "#", .style = look.label}}};
    heading.columns.push_back(
        {left + counterWidth, fields[0].width - counterWidth, {{.text = fields[0].title, .style = look.label}}});
    if (subject.totals)
        flow.table(heading, std::move(rows), carried);
    else
        flow.table(heading, std::move(rows));
}

void addHSNSummary(Flow& flow, const Subject& subject, const Look& look) {
    const auto& [library, document, currency, totals] = subject;
    if (!totals || !InvoiceTexts::showsHSNSummary(library, document, *totals)) return;
    const auto taxes = InvoiceTexts::taxes(library, document);
    const auto amount = [&currency = currency](std::int64_t minor) {
        return MoneyFormat::string(minor, currency, MoneyFormat::Symbol::hidden);
    };
    std::vector<Field> fields{{.title = "HSN/SAC", .align = Align::left},
                              {.title = "Qty", .least = 44, .most = 80},
                              {.title = "Rate", .least = 24, .most = 56},
                              {.title = "Taxable value", .least = 64, .most = width}};
    for (const auto& tax : taxes) fields.push_back({.title = tax.name, .least = 44, .most = width});
    for (const HSNGroup& group : totals->byHSN) {
        std::size_t at = 0;
        const auto next = [&](std::string text) { fields[at++].cells.push_back(std::move(text)); };
        next(group.hsn.empty() ? "No code" : group.hsn);
        next(MoneyFormat::quantity(group.qtyMilli) + (group.unit.empty() ? "" : " " + group.unit));
        next(MoneyFormat::rate(group.rateBP));
        next(amount(group.taxable));
        for (const auto& tax : taxes) next(amount(group.tax.*tax.part));
    }
    if (taxes.empty()) fields.erase(fields.begin() + 2);
    constexpr double leastCode = 72;
    double size = look.small.font.size;
    while (arrange(fields, look, size) < leastCode && size > 5) size -= 0.5;
    PDFCanvas::Style style = sized(look.small, size);
    std::vector<Row> rows;
    for (std::size_t i = 0; i < totals->byHSN.size(); ++i) {
        Row row{.above = 3.5, .below = 3.5, .rule = look.hairline, .ruleWidth = 0.5};
        for (Field& field : fields) row.columns.push_back(cell(field, std::move(field.cells[i]), style));
        rows.push_back(std::move(row));
    }
    flow.space(24);
    Row heading = headingOf(fields, look);
    heading.rule = look.muted;
    heading.ruleWidth = 0.5;
    flow.table(heading, std::move(rows));
}

}  // namespace tamba::InvoiceParts
