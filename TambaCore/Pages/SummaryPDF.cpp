#include "TambaCore/Pages/SummaryPDF.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Pages/InvoiceParts.h"

#include <algorithm>
#include <cstddef>

namespace tamba::SummaryPDF {
namespace {

using InvoiceParts::left;
using InvoiceParts::Look;
using InvoiceParts::right;
using InvoiceParts::width;

constexpr double gap = 28, half = (width - gap) / 2, figure = 108;

/// Short enough that no name can push the rest off the page.
std::string clipped(const std::string& text, std::size_t characters) {
    const std::string one = Text::replaceAll(Text::replaceAll(text, "\n", " "), "\r", " ");
    const std::string_view beginning = Text::prefix(Text::prefixBytes(one, 8 * characters), characters);
    return beginning.size() == one.size() ? one : std::string(Text::trim(beginning)) + "…";
}

/// A column of headings and lines, one row of pieces each, to stand beside another.
struct Cells {
    std::string label, value;
    bool isTitle = false;
};
std::vector<Cells> cellsOf(const std::vector<Section>& sections) {
    std::vector<Cells> cells;
    for (const Section& section : sections) {
        if (!cells.empty()) cells.emplace_back();
        cells.push_back({section.title, "", true});
        for (const auto& [label, value] : section.lines) cells.push_back({clipped(label, 60), clipped(value, 60)});
    }
    return cells;
}

void addCells(Row& row, const Cells& cells, double x, const Look& look) {
    if (cells.isTitle) {
        const auto rule = [color = look.hairline](PDFCanvas& canvas, const Rect& at) {
            canvas.line({at.x, at.y}, {at.x + at.width, at.y}, color, 0.5);
        };
        row.columns.push_back({x,
                               half,
                               {{.text = cells.label, .style = look.strong.colored(look.accent)},
                                {.above = 2, .height = 2, .drawing = rule}}});
        return;
    }
    if (cells.label.empty() && cells.value.empty()) {
        row.columns.push_back({x, half, {{.text = " ", .style = look.small}}});
        return;
    }
    // A name may need the room that a figure leaves.
    const double needed = std::clamp(PDFCanvas::width(cells.value, look.body) + 2, figure, half - 70);
    row.columns.push_back({x, half - needed - 6, {{.text = cells.label, .style = look.quiet}}});
    row.columns.push_back(
        {x + half - needed, needed, {{.text = cells.value, .style = look.body.aligned(Align::right)}}});
}

Flow laidOut(const Sheet& sheet, const Look& look, std::size_t notes) {
    Flow flow({.left = left, .right = right, .firstTop = 48, .top = 48, .bottom = 806});
    const Column title{left,
                       width,
                       {{.text = clipped(sheet.title, 100), .style = look.title},
                        {.text = clipped(sheet.subtitle, 200), .style = look.quiet, .above = 4}}};
    flow.add({.columns = {title}, .below = 14, .rule = look.hairline, .ruleWidth = 0.5});
    flow.space(14);
    const std::vector<Cells> leftCells = cellsOf(sheet.left), rightCells = cellsOf(sheet.right);
    for (std::size_t i = 0; i < std::max(leftCells.size(), rightCells.size()); ++i) {
        Row row{.below = 2};
        if (i < leftCells.size()) addCells(row, leftCells[i], left, look);
        if (i < rightCells.size()) addCells(row, rightCells[i], left + half + gap, look);
        flow.add(std::move(row));
    }
    if (sheet.notes.empty()) return flow;
    flow.space(16);
    Column column{left, width, {{.text = sheet.notesTitle, .style = look.strong.colored(look.accent)}}};
    for (std::size_t i = 0; i < notes; ++i)
        column.pieces.push_back({.text = clipped(sheet.notes[i], 300), .style = look.body, .above = 2});
    if (const std::size_t rest = sheet.notes.size() - notes)
        column.pieces.push_back({.text = std::to_string(rest) + " " + sheet.more, .style = look.quiet, .above = 2});
    flow.add({.columns = {std::move(column)}});
    return flow;
}

}  // namespace

std::string render(const Sheet& sheet, std::string_view author, Instant created) {
    const Look look(sheet.accentHex);
    std::size_t notes = std::min<std::size_t>(sheet.notes.size(), 40);
    while (notes > 0 && laidOut(sheet, look, notes).pageCount() > 1) --notes;
    const Flow flow = laidOut(sheet, look, notes);
    auto canvas = PDFCanvas::pdf(InvoicePDF::pageSize, sheet.title, author, created);
    for (std::size_t page = 0; page < flow.pageCount(); ++page) {
        canvas.beginPage();
        flow.draw(canvas, page);
    }
    return canvas.finish().value();
}

}  // namespace tamba::SummaryPDF
