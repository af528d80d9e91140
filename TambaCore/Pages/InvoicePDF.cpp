#include "TambaCore/Pages/InvoicePDF.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Pages/InvoiceParts.h"
#include "TambaCore/Pages/InvoiceTexts.h"
#include "TambaCore/Pages/PageFlow.h"

#include <algorithm>
#include <chrono>

namespace tamba::InvoicePDF {

namespace {

using namespace InvoiceParts;

constexpr Flow::Area area{.left = left, .right = right, .firstTop = 48, .top = 92, .bottom = 772};
constexpr double footY = 796;
constexpr double footTextWidth = width - 96;

/// The text, or as much of its first line as leaves room for "…".
std::string oneLine(const std::string& whole, double width, const PDFCanvas::Style& style) {
    constexpr std::size_t most = 1000;  // bytes: more than any line holds
    if (whole.size() > most) return oneLine(std::string(Text::prefixBytes(whole, most)), width, style);
    const std::string& text = whole;
    if (PDFCanvas::width(text, style) <= width && !Text::contains(text, "\n")) return text;
    const double line = PDFCanvas::measure("…", width, style) + 2;
    const std::size_t bytes = PDFCanvas::fitting(text, width - PDFCanvas::width("…", style), style, line);
    return std::string(Text::trim(text.substr(0, bytes))) + "…";
}

std::string nameOf(const Library& library, const Document& document) {
    return title(library, document) + " " + document.displayNumber();
}

/// Pale and under everything else, so that figures stay readable.
void drawStamp(PDFCanvas& canvas, std::string_view word) {
    const Color color = word == "PAID"   ? Color::hex("1E7F4F")
                        : word == "VOID" ? Color::hex("B3261E")
                                         : Color::hex("6E6A64");
    PDFCanvas::Style style{.font = PDFCanvas::systemFont(120, PDFCanvas::Weight::bold), .color = color};
    style.color.alpha = 0.07;
    style.tracking = 8;
    canvas.rotated(word, {pageSize.width / 2, 470}, 32, style);
}

void drawTop(PDFCanvas& canvas, const Library& library, const Document& document, const Look& look) {
    constexpr double middle = left + 320;
    const std::string party = InvoiceTexts::buyer(library, document).name;
    const std::string what = nameOf(library, document) + (party.empty() ? "" : " · " + party);
    canvas.text(oneLine(what, middle - left - 16, look.strong), left, 48, middle - left, look.strong);
    const std::string maker = InvoiceTexts::seller(library, document).name;
    canvas.text(oneLine(maker, right - middle, look.quiet), middle, 48, right - middle,
                look.quiet.aligned(Align::right));
    canvas.line({left, 68}, {right, 68}, look.hairline, 0.5);
}

}  // namespace

std::string title(const Library& library, const Document& document) { return InvoiceTexts::title(library, document); }

void draw(PDFCanvas& canvas, const Library& library, const Document& document, const std::optional<Image>& logo) {
    const Look look(library.business.accentHex);
    const Subject subject(library, document);
    Flow flow(area);
    flow.add(head(subject, look, logo));
    flow.add(parties(subject, look));
    if (Row words = endorsement(subject, look); !words.isEmpty()) flow.add(std::move(words));
    flow.space(26);
    addLines(flow, subject, look);
    flow.add(closing(subject, look));
    addHSNSummary(flow, subject, look);
    flow.space(20);
    if (Row words = foot(subject, look); !words.isEmpty()) flow.add(std::move(words));
    const std::string footer(Text::trim(library.business.footer));
    const bool short_ = oneLine(footer, footTextWidth, look.small) == footer;
    if (!short_) flow.add({.columns = {{left, width, {{.text = footer, .style = look.small}}}}, .above = 20});

    const std::string_view stamp = InvoiceTexts::stamp(library, document);
    const std::size_t pages = canvas.isBitmap() ? 1 : flow.pageCount();
    for (std::size_t page = 0; page < pages; ++page) {
        canvas.beginPage();
        drawStamp(canvas, stamp);
        if (page > 0) drawTop(canvas, library, document, look);
        flow.draw(canvas, page);
        canvas.line({left, footY - 10}, {right, footY - 10}, look.hairline, 0.5);
        if (short_) canvas.text(footer, left, footY, footTextWidth, look.small);
        canvas.text("Page " + std::to_string(page + 1) + " of " + std::to_string(flow.pageCount()),
                    left + footTextWidth, footY, width - footTextWidth, look.small.aligned(Align::right));
    }
}

std::string render(const Library& library, const Document& document, const std::optional<Image>& logo) {
    const Instant noon = std::chrono::sys_days(std::chrono::days(document.issueDate.number())) + std::chrono::hours(12);
    auto canvas = PDFCanvas::pdf(pageSize, nameOf(library, document), InvoiceTexts::seller(library, document).name,
                                 document.createdAt == Instant{} ? noon : document.createdAt);
    draw(canvas, library, document, logo);
    return canvas.finish().value();
}

}  // namespace tamba::InvoicePDF
