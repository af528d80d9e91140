#include "TambaCore/Pages/PDFCanvas.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace tamba {

namespace {

/// Asked for what the face itself lacks. Named, because what the system would choose depends on what else is installed.
constexpr const char* fallbackFamilies =
    ",Noto Sans,Noto Sans Devanagari,Noto Sans Bengali,Noto Sans Gujarati,Noto Sans Gurmukhi,Noto Sans Kannada,"
    "Noto Sans Malayalam,Noto Sans Oriya,Noto Sans Tamil,Noto Sans Telugu,Noto Sans Arabic,"
    "Noto Sans Symbols,Noto Sans Symbols2,sans";

template <auto Free>
struct Deleter {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Deleter<cairo_surface_destroy>>;
using Drawing = std::unique_ptr<cairo_t, Deleter<cairo_destroy>>;
using Layout = std::unique_ptr<PangoLayout, Deleter<g_object_unref>>;
using Description = std::unique_ptr<PangoFontDescription, Deleter<pango_font_description_free>>;

/// Text is laid out without regard to where it is drawn: no hinting, no rounding to pixels, 72 dots to the inch. So a
/// picture breaks its lines where the PDF does, and measuring needs no canvas.
PangoContext* layoutContext() {
    thread_local const std::unique_ptr<PangoContext, Deleter<g_object_unref>> context([] {
        PangoContext* made = pango_font_map_create_context(pango_cairo_font_map_get_default());
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        pango_cairo_context_set_font_options(made, options);
        cairo_font_options_destroy(options);
        pango_cairo_context_set_resolution(made, 72);
        pango_context_set_round_glyph_positions(made, FALSE);
        pango_context_set_language(made, pango_language_from_string("en"));
        return made;
    }());
    return context.get();
}

int units(double points) {
    constexpr double widest = 1'000'000;  // far beyond any page, and within what the text engine can count
    return static_cast<int>(std::lround(std::clamp(points, 0.0, widest) * PANGO_SCALE));
}

double wholePoints(int units) { return std::ceil(static_cast<double>(units) / PANGO_SCALE); }

constexpr int oneLine = -1;

/// `width` in the text engine's units, or `oneLine`.
Layout laidOut(std::string_view text, int width, const PDFCanvas::Style& style) {
    Layout layout(pango_layout_new(layoutContext()));
    pango_layout_set_auto_dir(layout.get(), FALSE);  // a name in Arabic letters keeps to the alignment it was given
    Description description(pango_font_description_from_string(style.font.face.c_str()));
    const char* family = pango_font_description_get_family(description.get());
    pango_font_description_set_family(description.get(),
                                      (std::string(family ? family : "") + fallbackFamilies).c_str());
    pango_font_description_set_absolute_size(description.get(), std::max(0.1, style.font.size) * PANGO_SCALE);
    pango_layout_set_font_description(layout.get(), description.get());

    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_font_features_new("tnum=1"));
    // A hyphen that nobody wrote would change an account number.
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
    if (style.tracking != 0)
        pango_attr_list_insert(attributes,
                               pango_attr_letter_spacing_new(static_cast<int>(style.tracking * PANGO_SCALE)));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_attr_list_unref(attributes);

    std::string clean = Text::repairedUTF8(text);
    // Lines with tabs, or with blanks at their end, do not keep to the width, and the text engine takes a zero for the
    // end.
    std::replace_if(clean.begin(), clean.end(), [](char c) { return c == '\t' || c == '\0'; }, ' ');
    clean.erase(clean.find_last_not_of(' ') + 1);
    if (width == oneLine) {
        std::replace_if(clean.begin(), clean.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    } else {
        pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
        pango_layout_set_width(layout.get(), width);
        pango_layout_set_spacing(layout.get(), static_cast<int>(style.lineSpacing * PANGO_SCALE));
        pango_layout_set_alignment(layout.get(), style.align == Align::right    ? PANGO_ALIGN_RIGHT
                                                 : style.align == Align::center ? PANGO_ALIGN_CENTER
                                                                                : PANGO_ALIGN_LEFT);
    }
    pango_layout_set_text(layout.get(), clean.data(), static_cast<int>(clean.size()));
    return layout;
}

struct Shaped {
    Layout layout;
    PangoRectangle extents{};
};

/// Laying out is by far the dearest part of a page, and every text is asked for at least twice: measured, then drawn.
/// What was not asked for while two thousand others came is forgotten.
class Shapes {
public:
    const Shaped& of(std::string_view text, int width, const PDFCanvas::Style& style) {
        std::string key(text);
        key += '\0';
        key += style.font.face;
        const auto append = [&key](const auto& value) {
            key.append(reinterpret_cast<const char*>(&value), sizeof value);
        };
        append(style.font.size);
        append(style.tracking);
        append(width);
        if (width != oneLine) {
            append(style.lineSpacing);
            append(style.align);
        }
        if (const auto found = recent_.find(key); found != recent_.end()) return found->second;
        if (recent_.size() >= generation) {
            older_ = std::move(recent_);
            recent_.clear();
        }
        if (auto found = older_.extract(key)) return recent_.insert(std::move(found)).position->second;
        Shaped shaped{laidOut(text, width, style), {}};
        pango_layout_get_extents(shaped.layout.get(), nullptr, &shaped.extents);
        return recent_.emplace(std::move(key), std::move(shaped)).first->second;
    }

private:
    static constexpr std::size_t generation = 2000;
    std::unordered_map<std::string, Shaped> recent_, older_;
};

const Shaped& shaped(std::string_view text, int width, const PDFCanvas::Style& style) {
    thread_local Shapes shapes;
    return shapes.of(text, width, style);
}

bool hasLineBreak(std::string_view text) {
    return text.find_first_of("\n\r") != text.npos || Text::contains(text, "\u2028") || Text::contains(text, "\u2029");
}

/// A text in a box. What fits on one line is the same shape in a box of any width.
struct InBox {
    const Shaped& shape;
    double shift = 0;  ///< to where the alignment puts it
};
InBox inBox(std::string_view text, double width, const PDFCanvas::Style& style) {
    if (!hasLineBreak(text)) {
        const Shaped& line = shaped(text, oneLine, style);
        const int rest = units(width) - line.extents.width;
        if (rest >= 0) {
            const double share = style.align == Align::left ? 0 : style.align == Align::right ? 1 : 0.5;
            return {line, share * rest / PANGO_SCALE};
        }
    }
    return {shaped(text, units(width), style), 0};
}

/// The picture as the drawing library keeps pictures: colours multiplied by alpha, in words of the machine's order.
Surface surfaceOf(const Image& image) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, image.width, image.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) fatal("no memory for a picture");
    unsigned char* rows = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < image.height; ++y) {
        auto* words = reinterpret_cast<std::uint32_t*>(rows + std::ptrdiff_t{y} * stride);
        for (int x = 0; x < image.width; ++x) {
            const std::uint8_t* pixel = image.at(x, y);
            const std::uint32_t alpha = pixel[3];
            const auto times = [alpha](std::uint32_t channel) { return (channel * alpha + 127) / 255; };
            words[x] = alpha << 24 | times(pixel[0]) << 16 | times(pixel[1]) << 8 | times(pixel[2]);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

}  // namespace

struct PDFCanvas::Context {
    Size size;
    std::string data;  // the growing file; before the surface, which writes into it to its end
    Surface surface;
    Drawing drawing;
    bool isPDF = true;
    bool pageOpen = false;
    int pages = 0;
    bool recording = false;
    std::vector<TextBox> texts;

    cairo_t* page() const {
        if (!pageOpen) fatal("drawing without an open page");
        return drawing.get();
    }
    void path(const Rect& rect, double radius) const {
        cairo_t* cr = page();
        const double r = std::min({radius, rect.width / 2, rect.height / 2});
        if (r <= 0) return cairo_rectangle(cr, rect.x, rect.y, rect.width, rect.height);
        constexpr double quarter = std::numbers::pi / 2;
        cairo_new_sub_path(cr);
        cairo_arc(cr, rect.x + rect.width - r, rect.y + r, r, -quarter, 0);
        cairo_arc(cr, rect.x + rect.width - r, rect.y + rect.height - r, r, 0, quarter);
        cairo_arc(cr, rect.x + r, rect.y + rect.height - r, r, quarter, 2 * quarter);
        cairo_arc(cr, rect.x + r, rect.y + r, r, 2 * quarter, 3 * quarter);
        cairo_close_path(cr);
    }
    void setColor(const Color& color) const {
        cairo_set_source_rgba(drawing.get(), color.red, color.green, color.blue, color.alpha);
    }
    void check() const {
        if (cairo_status(drawing.get()) != CAIRO_STATUS_SUCCESS ||
            cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
            fatal("a page could not be drawn");
    }
};

Color Color::gray(double white, double alpha) { return {white, white, white, alpha}; }

Color Color::hex(std::string_view digits) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.size() != 6 || error != std::errc{} || end != digits.data() + digits.size()) return {};
    const auto channel = [value](int shift) { return static_cast<double>(value >> shift & 0xFF) / 255; };
    return {channel(16), channel(8), channel(0), 1};
}

Font PDFCanvas::font(std::string_view postScriptName, double size) {
    // Listing, not matching: a match never fails and gives some other face for a name that is not installed.
    const std::unique_ptr<FcPattern, Deleter<FcPatternDestroy>> wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_POSTSCRIPT_NAME,
                       reinterpret_cast<const FcChar8*>(std::string(postScriptName).c_str()));
    const std::unique_ptr<FcObjectSet, Deleter<FcObjectSetDestroy>> fields(
        FcObjectSetBuild(FC_FAMILY, FC_WEIGHT, FC_SLANT, FC_WIDTH, nullptr));
    const std::unique_ptr<FcFontSet, Deleter<FcFontSetDestroy>> found(FcFontList(nullptr, wanted.get(), fields.get()));
    if (!found || found->nfont == 0) return systemFont(size);
    Description description(pango_fc_font_description_from_pattern(found->fonts[0], FALSE));
    const std::unique_ptr<char, Deleter<g_free>> face(pango_font_description_to_string(description.get()));
    return {face.get(), size};
}

Font PDFCanvas::systemFont(double size, Weight weight) {
    return {weight == Weight::bold ? "Inter, Bold" : "Inter,", size};
}

Font PDFCanvas::monospacedFont(double size, Weight weight) {
    const std::string families = "DejaVu Sans Mono,Noto Sans Mono,Liberation Mono,monospace,";
    return {weight == Weight::bold ? families + " Bold" : families, size};
}

PDFCanvas::Style PDFCanvas::Style::aligned(Align to) const {
    Style copy = *this;
    copy.align = to;
    return copy;
}

PDFCanvas::Style PDFCanvas::Style::colored(const Color& to) const {
    Style copy = *this;
    copy.color = to;
    return copy;
}

PDFCanvas::PDFCanvas(std::unique_ptr<Context> context) : context_(std::move(context)) {}
PDFCanvas::~PDFCanvas() = default;
PDFCanvas::PDFCanvas(PDFCanvas&&) noexcept = default;
PDFCanvas& PDFCanvas::operator=(PDFCanvas&&) noexcept = default;

PDFCanvas PDFCanvas::pdf(Size size, std::string_view title, std::string_view author, Instant created) {
    auto context = std::make_unique<Context>();
    context->size = size;
    const auto append = [](void* data, const unsigned char* bytes, unsigned int count) {
        static_cast<std::string*>(data)->append(reinterpret_cast<const char*>(bytes), count);
        return CAIRO_STATUS_SUCCESS;
    };
    context->surface.reset(cairo_pdf_surface_create_for_stream(append, &context->data, size.width, size.height));
    const auto describe = [&](cairo_pdf_metadata_t field, std::string_view value) {
        cairo_pdf_surface_set_metadata(context->surface.get(), field, Text::repairedUTF8(value).c_str());
    };
    describe(CAIRO_PDF_METADATA_TITLE, title);
    describe(CAIRO_PDF_METADATA_AUTHOR, author);
    describe(CAIRO_PDF_METADATA_CREATOR, "Tamba");
    describe(CAIRO_PDF_METADATA_CREATE_DATE, instantText(created));
    describe(CAIRO_PDF_METADATA_MOD_DATE, instantText(created));
    context->drawing.reset(cairo_create(context->surface.get()));
    context->check();
    return PDFCanvas(std::move(context));
}

PDFCanvas PDFCanvas::bitmap(Size size, double scale) {
    const double width = std::ceil(size.width * scale), height = std::ceil(size.height * scale);
    constexpr double most = 32767;  // what the drawing library can count
    if (!(width >= 1 && height >= 1 && width <= most && height <= most)) fatal("a picture of impossible size");
    auto context = std::make_unique<Context>();
    context->size = size;
    context->isPDF = false;
    context->surface.reset(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)));
    context->drawing.reset(cairo_create(context->surface.get()));
    context->setColor(Color::gray(1));
    cairo_paint(context->drawing.get());
    cairo_scale(context->drawing.get(), scale, scale);
    context->pageOpen = true;
    context->pages = 1;
    context->check();
    return PDFCanvas(std::move(context));
}

Size PDFCanvas::size() const { return context_->size; }
bool PDFCanvas::isBitmap() const { return !context_->isPDF; }
bool PDFCanvas::pageOpen() const { return context_->pageOpen; }

double PDFCanvas::measure(std::string_view text, double width, const Style& style) {
    return text.empty() ? 0 : wholePoints(inBox(text, width, style).shape.extents.height);
}

double PDFCanvas::width(std::string_view text, const Style& style) {
    return text.empty() ? 0 : wholePoints(shaped(text, oneLine, style).extents.width);
}

double PDFCanvas::baseline(std::string_view text, double width, const Style& style) {
    if (text.empty()) return 0;
    return static_cast<double>(pango_layout_get_baseline(inBox(text, width, style).shape.layout.get())) / PANGO_SCALE;
}

std::size_t PDFCanvas::fitting(std::string_view text, double width, const Style& style, double height) {
    if (text.empty() || measure(text, width, style) <= height) return text.size();
    PangoLayout* layout = inBox(text, width, style).shape.layout.get();
    const std::unique_ptr<PangoLayoutIter, Deleter<pango_layout_iter_free>> line(pango_layout_get_iter(layout));
    do {
        PangoRectangle box;
        pango_layout_iter_get_line_extents(line.get(), nullptr, &box);
        if (wholePoints(box.y + box.height) > height)
            return std::min(text.size(), static_cast<std::size_t>(pango_layout_line_get_start_index(
                                             pango_layout_iter_get_line_readonly(line.get()))));
    } while (pango_layout_iter_next_line(line.get()));
    return text.size();
}

double PDFCanvas::text(std::string_view text, double x, double y, double width, const Style& style) {
    cairo_t* cr = context_->page();
    if (text.empty()) return 0;
    const InBox placed = inBox(text, width, style);
    context_->setColor(style.color);
    cairo_move_to(cr, x + placed.shift, y);
    pango_cairo_show_layout(cr, placed.shape.layout.get());
    const PangoRectangle& taken = placed.shape.extents;
    const double height = wholePoints(taken.height);
    const auto points = [](int units) { return static_cast<double>(units) / PANGO_SCALE; };
    if (context_->recording)
        context_->texts.push_back(
            {context_->pages,
             std::string(text),
             {x + placed.shift + points(taken.x), y + points(taken.y), points(taken.width), points(taken.height)},
             {x, y, width, height},
             0,
             style});
    return height;
}

void PDFCanvas::rotated(std::string_view text, Point center, double degrees, const Style& style) {
    cairo_t* cr = context_->page();
    if (text.empty()) return;
    const Shaped& shape = shaped(text, oneLine, style);
    const double width = static_cast<double>(shape.extents.width) / PANGO_SCALE;
    const double height = static_cast<double>(shape.extents.height) / PANGO_SCALE;
    cairo_save(cr);
    cairo_translate(cr, center.x, center.y);
    cairo_rotate(cr, -degrees * std::numbers::pi / 180);
    context_->setColor(style.color);
    cairo_move_to(cr, -width / 2, -height / 2);
    pango_cairo_show_layout(cr, shape.layout.get());
    cairo_restore(cr);
    const Rect box{center.x - width / 2, center.y - height / 2, width, height};
    if (context_->recording) context_->texts.push_back({context_->pages, std::string(text), box, box, degrees, style});
}

void PDFCanvas::line(Point from, Point to, const Color& color, double width, const std::vector<double>& dash) {
    cairo_t* cr = context_->page();
    context_->setColor(color);
    cairo_set_line_width(cr, width);
    cairo_set_dash(cr, dash.data(), static_cast<int>(dash.size()), 0);
    cairo_move_to(cr, from.x, from.y);
    cairo_line_to(cr, to.x, to.y);
    cairo_stroke(cr);
    cairo_set_dash(cr, nullptr, 0, 0);
}

void PDFCanvas::fill(const Rect& rect, const Color& color, double radius) {
    context_->path(rect, radius);
    context_->setColor(color);
    cairo_fill(context_->drawing.get());
}

void PDFCanvas::fill(const std::vector<Rect>& rects, const Color& color) {
    for (const Rect& rect : rects) context_->path(rect, 0);
    context_->setColor(color);
    cairo_fill(context_->drawing.get());
}

void PDFCanvas::stroke(const Rect& rect, const Color& color, double width, double radius) {
    context_->path(rect, radius);
    context_->setColor(color);
    cairo_set_line_width(context_->drawing.get(), width);
    cairo_stroke(context_->drawing.get());
}

void PDFCanvas::draw(const Image& image, const Rect& rect) {
    cairo_t* cr = context_->page();
    if (image.width < 1 || image.height < 1 || rect.width <= 0 || rect.height <= 0) return;
    const Surface surface = surfaceOf(image);
    if (context_->isPDF && !image.jpeg.empty()) {
        auto* bytes = new std::string(image.jpeg);
        cairo_surface_set_mime_data(
            surface.get(), CAIRO_MIME_TYPE_JPEG, reinterpret_cast<const unsigned char*>(bytes->data()), bytes->size(),
            [](void* owned) { delete static_cast<std::string*>(owned); }, bytes);
    }
    cairo_save(cr);
    cairo_translate(cr, rect.x, rect.y);
    cairo_scale(cr, rect.width / image.width, rect.height / image.height);
    cairo_set_source_surface(cr, surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_BEST);
    // Without it the edges of an enlarged picture would fade; in a PDF it would re-encode the picture.
    if (!context_->isPDF) cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    cairo_rectangle(cr, 0, 0, image.width, image.height);
    cairo_fill(cr);
    cairo_restore(cr);
}

void PDFCanvas::recordTexts() { context_->recording = true; }
const std::vector<PDFCanvas::TextBox>& PDFCanvas::texts() const { return context_->texts; }

void PDFCanvas::beginPage() {
    if (!context_->isPDF) return;
    if (context_->pageOpen) cairo_show_page(context_->drawing.get());
    context_->pageOpen = true;
    ++context_->pages;
}

std::optional<std::string> PDFCanvas::finish() {
    Context& context = *context_;
    if (context.pageOpen && context.isPDF) cairo_show_page(context.drawing.get());
    context.pageOpen = false;
    context.check();
    if (!context.isPDF) return std::nullopt;
    cairo_surface_finish(context.surface.get());
    if (cairo_surface_status(context.surface.get()) != CAIRO_STATUS_SUCCESS) fatal("a PDF could not be finished");
    return std::move(context.data);
}

std::optional<Image> PDFCanvas::image() const {
    const Context& context = *context_;
    if (context.isPDF) return std::nullopt;
    cairo_surface_flush(context.surface.get());
    Image image = Image::blank(cairo_image_surface_get_width(context.surface.get()),
                               cairo_image_surface_get_height(context.surface.get()));
    const unsigned char* rows = cairo_image_surface_get_data(context.surface.get());
    const int stride = cairo_image_surface_get_stride(context.surface.get());
    for (int y = 0; y < image.height; ++y) {
        const auto* words = reinterpret_cast<const std::uint32_t*>(rows + std::ptrdiff_t{y} * stride);
        for (int x = 0; x < image.width; ++x) {
            std::uint8_t* pixel = image.at(x, y);
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = static_cast<std::uint8_t>(words[x] >> (16 - 8 * channel));
        }
    }
    return image;
}

}  // namespace tamba
