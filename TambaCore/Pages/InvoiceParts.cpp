#include "TambaCore/Pages/InvoiceParts.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Pages/InvoiceTexts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamba::InvoiceParts {

namespace {

constexpr double logoWidth = 168, logoHeight = 48;
constexpr double printResolution = 300.0 / 72;  // pixels a point; finer ones only make the file larger

struct Faces {
    std::string regular, medium, semibold;
};
const Faces& faces() {
    static const Faces found = [] {
        const auto face = [](const char* name, PDFCanvas::Weight otherwise) {
            const Font font = PDFCanvas::font(name, 10);
            return font == PDFCanvas::systemFont(10) ? PDFCanvas::systemFont(10, otherwise).face : font.face;
        };
        return Faces{PDFCanvas::systemFont(10).face, face("Inter-Medium", PDFCanvas::Weight::regular),
                     face("Inter-SemiBold", PDFCanvas::Weight::bold)};
    }();
    return found;
}

/// As strong as it must be to be read as text on white.
Color legible(Color color) {
    const auto lightness = [](const Color& c) { return 0.3 * c.red + 0.59 * c.green + 0.11 * c.blue; };
    constexpr double lightest = 0.5;
    if (const double light = lightness(color); light > lightest)
        for (double* channel : {&color.red, &color.green, &color.blue}) *channel *= lightest / light;
    return color;
}

/// The picture at no more than print resolution, and the size it takes on the page. Nothing for one that is broken.
std::optional<std::pair<Image, Size>> prepared(const std::optional<Image>& logo) {
    if (!logo || logo->width < 1 || logo->height < 1 ||
        logo->pixels.size() != 4 * static_cast<std::size_t>(logo->width) * static_cast<std::size_t>(logo->height))
        return std::nullopt;
    const double scale = std::min(logoWidth / logo->width, logoHeight / logo->height);
    const Size size{logo->width * scale, logo->height * scale};
    const auto pixels = [](double points) { return static_cast<int>(std::ceil(points * printResolution)); };
    return std::pair{logo->scaledDown(pixels(size.width), pixels(size.height)), size};
}

Piece text(std::string text, const PDFCanvas::Style& style, double above = 0) {
    return {.text = std::move(text), .style = style, .above = above};
}

/// Only what is there: an empty text takes no room.
void add(Column& column, std::string content, const PDFCanvas::Style& style, double above = 0) {
    if (!content.empty()) column.pieces.push_back(text(std::move(content), style, above));
}

}  // namespace

Look::Look(const std::string& accentHex)
    : accent(legible(Color::hex(accentHex))),
      ink(Color::hex("1F1E1C")),
      muted(Color::hex("6E6A64")),
      hairline(Color::hex("DDD9D3")) {
    const auto style = [](const std::string& face, double size, const Color& color, double lineSpacing = 0,
                          double tracking = 0) {
        return PDFCanvas::Style{{face, size}, color, Align::left, lineSpacing, tracking};
    };
    const auto& [regular, medium, semibold] = faces();
    body = style(regular, 8.5, ink, 2);
    quiet = style(regular, 8.5, muted, 2);
    strong = style(semibold, 8.5, ink, 2);
    label = style(medium, 7, muted, 1, 0.2);
    small = style(regular, 7.5, muted, 1.5);
    smallStrong = style(semibold, 7.5, ink, 1.5);
    heading = style(semibold, 17, ink);
    title = style(semibold, 21, accent);
    number = style(medium, 10.5, ink);
    total = style(semibold, 13, accent);
}

Subject::Subject(const Library& library, const Document& document)
    : library(library), document(document), currency(Currency::of(document.currency)) {
    if (DocMath::isBelievable(document)) totals = DocMath::totals(document);
}

Row head(const Subject& subject, const Look& look, const std::optional<Image>& logo) {
    constexpr double middle = left + 264;
    Column maker{left, middle - left - 24, {}};
    if (auto picture = prepared(logo)) {
        const Size size = picture->second;
        maker.pieces.push_back(
            {.height = size.height,
             .drawing = [picture = std::move(picture->first), size](PDFCanvas& canvas, const Rect& at) {
                 canvas.draw(picture, {at.x, at.y, size.width, size.height});
             }});
    } else {
        const std::string name = InvoiceTexts::seller(subject.library, subject.document).name;
        PDFCanvas::Style style = look.heading;
        const double twoLines = PDFCanvas::measure("A\nB", maker.width, style);
        const std::string_view beginning = Text::prefixBytes(name, 1000);  // already more than two lines hold
        while (style.font.size > look.strong.font.size && PDFCanvas::measure(beginning, maker.width, style) > twoLines)
            style.font.size -= 1;
        add(maker, name, style);
    }
    Column title{middle, right - middle, {}};
    const auto atRight = [](const PDFCanvas::Style& style) { return style.aligned(Align::right); };
    add(title, InvoiceTexts::title(subject.library, subject.document), atRight(look.title));
    add(title, subject.document.displayNumber(), atRight(look.number), 4);
    add(title, InvoiceTexts::compositionNotice(subject.library, subject.document), atRight(look.small), 6);
    return {.columns = {std::move(maker), std::move(title)}, .below = 22, .rule = look.hairline, .ruleWidth = 0.5};
}

Row parties(const Subject& subject, const Look& look) {
    constexpr double gap = 20, party = 146, beside = left + 2 * (party + gap), labels = 74;
    const auto& [library, document, currency, totals] = subject;
    Column from{left, party, {text("From", look.label)}};
    add(from, InvoiceTexts::seller(library, document).name, look.strong, 4);
    add(from, InvoiceTexts::sellerLines(library, document), look.body, 2);
    Column to{left + party + gap, party, {text(std::string(InvoiceTexts::buyerLabel(document)), look.label)}};
    const PartySnapshot buyer = InvoiceTexts::buyer(library, document);
    add(to, buyer.name.empty() ? "No client yet" : buyer.name, buyer.name.empty() ? look.quiet : look.strong, 4);
    add(to, InvoiceTexts::buyerLines(library, document), look.body, 2);
    Column details{beside, right - beside, {text("Details", look.label)}};
    double above = 4;
    for (auto& [label, value] : InvoiceTexts::details(library, document))
        details.pieces.push_back({.text = std::move(value),
                                  .style = look.body,
                                  .above = std::exchange(above, 2),
                                  .label = std::move(label),
                                  .labelStyle = look.quiet,
                                  .indent = labels});
    return {.columns = {std::move(from), std::move(to), std::move(details)}, .above = 16};
}

Row endorsement(const Subject& subject, const Look& look) {
    const std::string words = InvoiceTexts::endorsement(subject.library, subject.document);
    if (words.empty()) return {};
    const std::size_t line = words.find('\n');
    Column column{left, width, {text(words.substr(0, line), look.smallStrong)}};
    if (line != std::string::npos) add(column, words.substr(line + 1), look.small, 2);
    return {.columns = {std::move(column)}, .above = 20};
}

Row foot(const Subject& subject, const Look& look) {
    constexpr double signatureWidth = 168, room = 40;
    const Business& business = subject.library.business;
    Column words{left, width - signatureWidth - 48, {}};
    for (const auto& [label, content] : {std::pair<const char*, const std::string&>{"Notes", subject.document.notes},
                                         {"Terms", subject.document.terms}}) {
        if (Text::trim(content).empty()) continue;
        add(words, label, look.label, words.pieces.empty() ? 0 : 10);
        add(words, std::string(Text::trim(content)), look.body, 3);
    }
    Column signature{right - signatureWidth, signatureWidth, {}};
    if (!business.signatory.empty() && subject.document.kind != DocKind::estimate) {
        add(signature, "For " + InvoiceTexts::seller(subject.library, subject.document).name, look.body);
        signature.pieces.push_back(
            {.above = room, .height = 1, .drawing = [rule = look.muted](PDFCanvas& canvas, const Rect& at) {
                 canvas.line({at.x, at.y}, {at.x + at.width, at.y}, rule, 0.5);
             }});
        add(signature, business.signatory, look.small, 4);
    }
    return {.columns = {std::move(words), std::move(signature)}, .above = 8};
}

}  // namespace tamba::InvoiceParts
