#pragma once

#include "TambaCore/Model/Day.h"
#include "TambaCore/Pages/Images.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Pages and pictures drawn with text, rules, boxes and images. One canvas is one PDF file or one bitmap; everything is
/// in points (1/72 inch) from the top left corner, y grows downwards. A PDF depends only on what is drawn and on the
/// time it is given: the same calls give the same bytes.
///
///     auto canvas = PDFCanvas::pdf({595, 842}, "Invoice INV/26-27/007", "Kulkarni Studio", createdAt);
///     canvas.beginPage();
///     double y = 40;
///     y += canvas.text("Tax invoice", 40, y, 515, {.font = PDFCanvas::systemFont(18, PDFCanvas::Weight::bold)});
///     std::string bytes = *canvas.finish();
///
/// Text that was measured is drawn without being laid out a second time. A word that is wider than its box is broken.
/// Drawing on a PDF before its first page, or after `finish`, is a mistake in the program and stops it.
namespace tamba {

struct Point {
    double x = 0, y = 0;
};

struct Size {
    double width = 0, height = 0;
};

struct Rect {
    double x = 0, y = 0, width = 0, height = 0;
};

/// Channels from 0 to 1.
struct Color {
    double red = 0, green = 0, blue = 0, alpha = 1;

    [[nodiscard]] static Color gray(double white, double alpha = 1);
    /// Six hex digits, "1E4A66"; black when it is anything else.
    [[nodiscard]] static Color hex(std::string_view digits);
    bool operator==(const Color&) const = default;
};

/// A face and its size in points. Scripts that the face lacks are printed in the Noto face of the script.
struct Font {
    std::string face;  ///< families in order of preference, then the style: "Inter,Noto Sans Bold"
    double size = 10;
    bool operator==(const Font&) const = default;
};

enum class Align { left, right, center };

class PDFCanvas {
public:
    enum class Weight { regular, bold };
    /// The face with this PostScript name ("Inter-SemiBold"); the system font when it is not installed.
    [[nodiscard]] static Font font(std::string_view postScriptName, double size);
    /// Inter, else Noto Sans, else what the system calls sans.
    [[nodiscard]] static Font systemFont(double size, Weight weight = Weight::regular);
    /// A typewriter face, as on the paper of a till.
    [[nodiscard]] static Font monospacedFont(double size, Weight weight = Weight::regular);

    /// How text looks. Figures always have equal widths, so that columns of amounts line up.
    struct Style {
        Font font = systemFont(10);
        Color color = {};
        Align align = Align::left;
        double lineSpacing = 0;  ///< extra points between lines
        double tracking = 0;     ///< extra points between letters

        [[nodiscard]] Style aligned(Align to) const;
        [[nodiscard]] Style colored(const Color& to) const;
    };

    /// A document whose pages have this size. `created` is written into it; the clock is never asked.
    [[nodiscard]] static PDFCanvas pdf(Size size, std::string_view title, std::string_view author, Instant created);
    /// A picture of size × scale pixels, white. It has one page, which is open.
    [[nodiscard]] static PDFCanvas bitmap(Size size, double scale);

    ~PDFCanvas();
    PDFCanvas(PDFCanvas&&) noexcept;
    PDFCanvas& operator=(PDFCanvas&&) noexcept;

    [[nodiscard]] Size size() const;
    [[nodiscard]] bool isBitmap() const;
    [[nodiscard]] bool pageOpen() const;

    /// Height in whole points of the text wrapped to `width`; 0 for an empty text.
    [[nodiscard]] static double measure(std::string_view text, double width, const Style& style);
    /// Width in whole points of the text on one line.
    [[nodiscard]] static double width(std::string_view text, const Style& style);
    /// How far below its top the wrapped text's first line stands.
    [[nodiscard]] static double baseline(std::string_view text, double width, const Style& style);
    /// How many bytes of the wrapped text (valid UTF-8) its first lines have that fit in `height` together: where to
    /// cut a text that goes on overleaf.
    [[nodiscard]] static std::size_t fitting(std::string_view text, double width, const Style& style, double height);

    /// Draws wrapped text from (x, y) down and returns the height it took, as `measure` gives it.
    double text(std::string_view text, double x, double y, double width, const Style& style);
    /// One line, centred on a point and turned by `degrees` against the clock.
    void rotated(std::string_view text, Point center, double degrees, const Style& style);
    /// A rule with square ends. `dash`: lengths of strokes and gaps in turn; empty is solid.
    void line(Point from, Point to, const Color& color, double width, const std::vector<double>& dash = {});
    /// `radius` rounds the corners.
    void fill(const Rect& rect, const Color& color, double radius = 0);
    /// As one shape: no seams show where boxes touch.
    void fill(const std::vector<Rect>& rects, const Color& color);
    void stroke(const Rect& rect, const Color& color, double width, double radius = 0);
    void draw(const Image& image, const Rect& rect);

    /// Ends the open page, if any, and begins one. Nothing on a bitmap.
    void beginPage();
    /// The finished document; nothing for a bitmap. Ends the canvas.
    [[nodiscard]] std::optional<std::string> finish();
    /// What a bitmap shows so far; nothing for a PDF.
    [[nodiscard]] std::optional<Image> image() const;

    /// A text as it was drawn.
    struct TextBox {
        int page = 1;
        std::string text;
        Rect box;   ///< what its lines take
        Rect cell;  ///< what it was given: from (x, y), as wide as said, as high as measured
        double degrees = 0;
        Style style;
    };
    /// Keeps every text that is drawn from here on, for tests and measuring.
    void recordTexts();
    [[nodiscard]] const std::vector<TextBox>& texts() const;

private:
    struct Context;
    explicit PDFCanvas(std::unique_ptr<Context> context);
    std::unique_ptr<Context> context_;
};

}  // namespace tamba
