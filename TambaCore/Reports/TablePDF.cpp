#include "TambaCore/Reports/TablePDF.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Pages/PageFlow.h"

#include <algorithm>
#include <chrono>
#include <numeric>

namespace tamba::TablePDF {
namespace {

constexpr Size upright{595.28, 841.89};
constexpr Size lying{841.89, 595.28};
constexpr double margin = 48, gap = 12;
constexpr double wrapsFrom = 84;  // a column of texts is not made narrower for others
const Color ink = Color::hex("1F1D1A"), quiet = Color::hex("69645B"), hairline = Color::hex("E4E0D9");

using Style = PDFCanvas::Style;

Style body(double size) { return {.font = PDFCanvas::systemFont(size), .color = ink}; }
Style strong(double size) { return {.font = PDFCanvas::systemFont(size, PDFCanvas::Weight::bold), .color = ink}; }
Style pale(double size) { return {.font = PDFCanvas::systemFont(size), .color = quiet}; }

bool isText(const Table::Column& column) { return column.kind == Table::Kind::text; }
bool isAtLeft(const Table::Column& column) {
    return isText(column) || column.kind == Table::Kind::day || column.kind == Table::Kind::month;
}

std::string cellText(const Table& table, const Table::Row& row, std::size_t column) {
    return column < row.cells.size() ? Tables::shown(row.cells[column], table.columns[column].kind) : std::string();
}

/// The longest of its texts, which are those that can be the widest: figures are all of one width.
std::vector<std::string> longestOf(const Table& table, std::size_t column) {
    constexpr std::size_t kept = 24, mostBytes = 200;
    const auto longer = [](const std::string& a, const std::string& b) { return a.size() > b.size(); };
    std::vector<std::string> texts;
    for (const Table::Row& row : table.rows) {
        std::string text = cellText(table, row, column);
        if (texts.size() == kept && text.size() <= texts.back().size()) continue;
        text = std::string(Text::prefixBytes(text, mostBytes));
        texts.insert(std::upper_bound(texts.begin(), texts.end(), text, longer), std::move(text));
        if (texts.size() > kept) texts.pop_back();
    }
    return texts;
}

struct Widths {
    std::vector<double> asked;
    double least = 0;  ///< with all texts wrapped
};

Widths widthsOf(const Table& table, double size) {
    Widths widths;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        double asked = PDFCanvas::width(table.columns[i].title, strong(size - 1));
        // Sums are bold, and wider for it.
        for (const std::string& text : longestOf(table, i))
            asked = std::max(asked, PDFCanvas::width(text, strong(size)));
        widths.asked.push_back(asked);
        widths.least += isText(table.columns[i]) ? std::min(asked, wrapsFrom) : asked;
    }
    widths.least += gap * static_cast<double>(std::max<std::size_t>(table.columns.size(), 1) - 1);
    return widths;
}

/// The largest size at which all columns of all tables fit beside each other; the smallest where none does.
double sizeFor(const std::vector<Table>& tables, double room) {
    for (const double size : {9.0, 8.0, 7.0, 6.0})
        if (std::all_of(tables.begin(), tables.end(),
                        [&](const Table& table) { return widthsOf(table, size).least <= room; }))
            return size;
    return 5;
}

struct Place {
    double x = 0, width = 0;
};

/// Texts share what the figures leave; what is over goes to the widest of them.
std::vector<Place> placesFor(const Table& table, double size, double room) {
    Widths widths = widthsOf(table, size);
    double over = room - gap * static_cast<double>(widths.asked.size() - 1) -
                  std::accumulate(widths.asked.begin(), widths.asked.end(), 0.0);
    // The widest text gives way until all fit.
    while (over < 0) {
        std::size_t widest = table.columns.size();
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (isText(table.columns[i]) && widths.asked[i] > wrapsFrom &&
                (widest == table.columns.size() || widths.asked[i] > widths.asked[widest]))
                widest = i;
        if (widest == table.columns.size()) break;
        const double taken = std::min({-over, widths.asked[widest] - wrapsFrom, 20.0});
        widths.asked[widest] -= taken;
        over += taken;
    }
    std::size_t widest = 0;
    for (std::size_t i = 1; i < table.columns.size(); ++i)
        if (isText(table.columns[i]) && (!isText(table.columns[widest]) || widths.asked[i] > widths.asked[widest]))
            widest = i;
    if (over > 0) widths.asked[widest] += over;
    std::vector<Place> places;
    double x = margin;
    for (const double width : widths.asked) {
        places.push_back({x, width});
        x += width + gap;
    }
    return places;
}

void addTable(Flow& flow, const Table& table, double size, double room) {
    if (table.columns.empty()) return;
    const std::vector<Place> places = placesFor(table, size, room);
    const auto rowOf = [&](auto&& textOf, const Style& style) {
        tamba::Row row{.above = 3, .below = 3, .rule = hairline, .ruleWidth = 0.5, .whole = true};
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            row.columns.push_back(
                {places[i].x,
                 places[i].width,
                 {{.text = textOf(i),
                   .style = style.aligned(isAtLeft(table.columns[i]) ? Align::left : Align::right)}}});
        return row;
    };
    tamba::Row heading = rowOf([&](std::size_t i) { return table.columns[i].title; }, strong(size - 1).colored(quiet));
    heading.rule = quiet;
    heading.ruleWidth = 0.8;
    std::vector<tamba::Row> rows;
    for (const Table::Row& row : table.rows)
        rows.push_back(
            rowOf([&](std::size_t i) { return cellText(table, row, i); }, row.isSum ? strong(size) : body(size)));
    flow.table(heading, std::move(rows));
}

/// Two lines at the head of a page, and no more of a very long name.
void top(PDFCanvas& canvas, const std::string& text, double x, double width, const Style& style) {
    canvas.text(text.substr(0, PDFCanvas::fitting(text, width, style, 28)), x, 44, width, style);
}

}  // namespace

Size pageSize(const std::vector<Table>& tables) {
    const bool fit = std::all_of(tables.begin(), tables.end(), [](const Table& table) {
        return widthsOf(table, 8).least <= upright.width - 2 * margin;
    });
    return fit ? upright : lying;
}

void draw(PDFCanvas& canvas, const Business& business, const Report& report) {
    const Size page = canvas.size();
    const double room = page.width - 2 * margin;
    Flow flow({.left = margin, .right = page.width - margin, .firstTop = 48, .top = 80, .bottom = page.height - 64});
    const auto line = [&](const std::string& text, const Style& style, double above, double below) {
        if (text.empty()) return;
        flow.add({.columns = {{margin, room, {{.text = text, .style = style}}}}, .above = above, .below = below});
    };
    line(business.name, pale(9), 0, 6);
    line(report.title, strong(16), 0, 2);
    const double size = sizeFor(report.tables, room);
    for (const Table& table : report.tables) {
        if (table.title != report.title) line(table.title, strong(11), 20, 2);
        line(table.subtitle, pale(9), 0, 8);
        addTable(flow, table, size, room);
        if (table.rows.empty()) line("Nothing in this time.", pale(9), 0, 4);
        for (const std::string& note : table.notes) line(note, pale(8), 6, 0);
    }
    for (std::size_t i = 0; i < flow.pageCount(); ++i) {
        canvas.beginPage();
        if (i > 0) {
            top(canvas, report.title, margin, room * 0.62, strong(9));
            top(canvas, business.name, margin + room * 0.62, room * 0.38, pale(9).aligned(Align::right));
        }
        flow.draw(canvas, i);
        const double foot = page.height - 40;
        canvas.line({margin, foot - 8}, {page.width - margin, foot - 8}, hairline, 0.5);
        canvas.text("As of " + report.today.formatted("d MMM yyyy"), margin, foot, room / 2, pale(8));
        canvas.text("Page " + std::to_string(i + 1) + " of " + std::to_string(flow.pageCount()), margin + room / 2,
                    foot, room / 2, pale(8).aligned(Align::right));
    }
}

std::string render(const Business& business, const Report& report) {
    const Instant noon = std::chrono::sys_days(std::chrono::days(report.today.number())) + std::chrono::hours(12);
    auto canvas = PDFCanvas::pdf(pageSize(report.tables), report.title, business.name, noon);
    draw(canvas, business, report);
    return canvas.finish().value();
}

}  // namespace tamba::TablePDF
