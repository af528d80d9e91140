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

constexpr double gap = 28, half = (width - gap) / 2, figure = 84;

/// Short enough that no name can push the rest off the page.
std::string clipped(const std::string& text, std::size_t characters) {
    const std::string one = Text::replaceAll(Text::replaceAll(text, "\n", " "), "\r", " ");
    const std::string_view beginning = Text::prefix(Text::prefixBytes(one, 8 * characters), characters);
    return beginning.size() == one.size() ? one : std::string(Text::trim(beginning)) + "…";
}

/// Sections under each other, each with a rule below its title.
Column columnOf(const std::vector<Section>& sections, double x, const Look& look) {
    const auto rule = [color = look.hairline](PDFCanvas& canvas, const Rect& at) {
        canvas.line({at.x, at.y}, {at.x + at.width, at.y}, color, 0.5);
    };
    Column column{x, half, {}};
    for (const Section& section : sections) {
        column.pieces.push_back({.text = section.title,
                                 .style = look.strong.colored(look.accent),
                                 .above = column.pieces.empty() ? 0.0 : 16.0});
        column.pieces.push_back({.above = 2, .height = 2, .drawing = rule});
        for (const auto& [label, value] : section.lines) {
            const std::string text = clipped(value, 60);
            // A name may need the room that a figure leaves.
            const double needed = std::clamp(PDFCanvas::width(text, look.body) + 2, figure, half - 70);
            column.pieces.push_back({.text = text,
                                     .style = look.body.aligned(Align::right),
                                     .above = 2,
                                     .label = clipped(label, 60),
                                     .labelStyle = look.quiet,
                                     .indent = half - needed});
        }
    }
    return column;
}

Flow laidOut(const Sheet& sheet, const Look& look, std::size_t notes) {
    Flow flow({.left = left, .right = right, .firstTop = 48, .top = 48, .bottom = 806});
    const Column title{left,
                       width,
                       {{.text = clipped(sheet.title, 100), .style = look.title},
                        {.text = clipped(sheet.subtitle, 200), .style = look.quiet, .above = 4}}};
    flow.add({.columns = {title}, .below = 14, .rule = look.hairline, .ruleWidth = 0.5});
    flow.space(14);
    flow.add({.columns = {columnOf(sheet.left, left, look), columnOf(sheet.right, left + half + gap, look)}});
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
