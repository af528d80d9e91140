#include "TambaCore/Base/Files.h"
#include "TambaCore/Pages/PDFCanvas.h"
#include "tests/support/ReadBack.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using namespace tamba;
using tamba::testing::readBack;

namespace {

using Style = PDFCanvas::Style;

constexpr Size a4{595, 842};
const Instant aTime = Instant(std::chrono::seconds(1'790'000'000));  // 2026-09-21T14:13:20Z
const Color red = Color::hex("FF0000");

PDFCanvas aDocument() {
    auto canvas = PDFCanvas::pdf(a4, "Invoice ₹ पुणे", "Kulkarni", aTime);
    canvas.beginPage();
    return canvas;
}

std::array<int, 3> colorAt(const Image& image, int x, int y) {
    const std::uint8_t* pixel = image.at(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

/// Smallest box around everything that is not white, in pixels.
struct Ink {
    int left = 1 << 20, top = 1 << 20, right = -1, bottom = -1;
    [[nodiscard]] bool none() const { return right < 0; }
    [[nodiscard]] double centerX() const { return (left + right + 1) / 2.0; }
    [[nodiscard]] double centerY() const { return (top + bottom + 1) / 2.0; }
};
Ink inkOf(const PDFCanvas& canvas) {
    const Image image = *canvas.image();
    Ink ink;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            if (colorAt(image, x, y) != std::array{255, 255, 255}) {
                ink.left = std::min(ink.left, x), ink.right = std::max(ink.right, x);
                ink.top = std::min(ink.top, y), ink.bottom = std::max(ink.bottom, y);
            }
    return ink;
}

TEST(PDFCanvas, measuresInWholePointsAndWrapsAtTheWidth) {
    const std::string sentence = "Brand identity, packaging and a small website for a tea house in Pune";
    for (const double size : {7.3, 10.0, 13.7}) {
        const Style style{.font = PDFCanvas::systemFont(size)};
        const double line = PDFCanvas::measure("Tea", 500, style);
        EXPECT_EQ(line, std::floor(line));
        EXPECT_GE(line, size);
        EXPECT_EQ(PDFCanvas::measure(sentence, 2000, style), line) << "fits on one line";
        const double wrapped = PDFCanvas::measure(sentence, PDFCanvas::width(sentence, style) / 2, style);
        EXPECT_EQ(wrapped, std::floor(wrapped));
        EXPECT_GE(wrapped, 2 * line - 1);
        EXPECT_LE(wrapped, 3 * line);
        const double width = PDFCanvas::width(sentence, style);
        EXPECT_EQ(width, std::floor(width));
    }
}

TEST(PDFCanvas, emptyTextTakesNoRoomAndLeavesNoInk) {
    auto canvas = PDFCanvas::bitmap({50, 50}, 1);
    EXPECT_EQ(PDFCanvas::measure("", 100, {}), 0);
    EXPECT_EQ(PDFCanvas::width("", {}), 0);
    EXPECT_EQ(canvas.text("", 10, 10, 30, {}), 0);
    canvas.rotated("", {25, 25}, 30, {});
    EXPECT_TRUE(inkOf(canvas).none());
}

TEST(PDFCanvas, drawsWhatItMeasures) {
    auto canvas = PDFCanvas::bitmap({200, 100}, 2);
    const Style style{.font = PDFCanvas::systemFont(12)};
    const std::string text = "Hyphen gypsy gjp, twice over and once again";
    const double height = canvas.text(text, 20, 10, 120, style);
    EXPECT_EQ(height, PDFCanvas::measure(text, 120, style));
    const Ink ink = inkOf(canvas);
    EXPECT_GE(ink.left, 2 * 19);
    EXPECT_LE(ink.right, 2 * 141);
    EXPECT_GE(ink.top, 2 * 10);
    EXPECT_LE(ink.bottom, 2 * (10 + height));
}

TEST(PDFCanvas, recordsEachTextWithTheBoxItTookAndTheOneItWasGiven) {
    auto canvas = PDFCanvas::bitmap({400, 100}, 1);
    canvas.text("before", 0, 0, 100, {});
    canvas.recordTexts();
    canvas.text("₹1,180.00", 100, 20, 200, Style{}.aligned(Align::right));
    canvas.rotated("PAID", {200, 70}, 20, {});
    ASSERT_EQ(canvas.texts().size(), 2u);
    const auto& [page, text, box, cell, degrees, style] = canvas.texts()[0];
    EXPECT_EQ(text, "₹1,180.00");
    EXPECT_EQ(page, 1);
    EXPECT_NEAR(box.x + box.width, 300, 0.1);
    EXPECT_GT(box.x, 200);
    EXPECT_EQ(cell.x + cell.width, 300);
    EXPECT_EQ(cell.height, PDFCanvas::measure(text, 200, style));
    EXPECT_EQ(canvas.texts()[1].degrees, 20);
}

TEST(PDFCanvas, aWordWiderThanItsBoxIsBrokenAndGainsNoHyphen) {
    for (const std::string& word :
         {std::string(300, 'm'), std::string("INTERNATIONALISATIONSUNTERNEHMEN/0004512000784455")}) {
        auto canvas = PDFCanvas::pdf(a4, "", "", aTime);
        canvas.beginPage();
        canvas.recordTexts();
        canvas.text(word, 40, 40, 70, {});
        const Rect box = canvas.texts()[0].box;
        EXPECT_LE(box.x + box.width, 110.01);
        std::string text = readBack("/usr/bin/pdftotext", *canvas.finish(), "-");
        std::erase_if(text, [](char c) { return c == '\n' || c == '\f'; });
        EXPECT_EQ(text, word);
    }
}

TEST(PDFCanvas, tabsAndBlanksAtTheEndKeepToTheWidth) {
    for (const char* text : {"identity\t \tidentitytea", "tea identityaidentity "}) {
        auto canvas = PDFCanvas::bitmap(a4, 1);
        canvas.recordTexts();
        canvas.text(text, 40, 40, 95, {});
        const Rect box = canvas.texts()[0].box;
        EXPECT_LE(box.x + box.width, 135.01) << text;
    }
}

TEST(PDFCanvas, losesNothingAfterAZero) {
    auto canvas = PDFCanvas::pdf({200, 100}, "", "", Instant{});
    canvas.beginPage();
    canvas.text(std::string_view("before\0after", 12), 10, 10, 180, {});
    EXPECT_NE(readBack("pdftotext", *canvas.finish(), "-").find("before after"), std::string::npos);
}

TEST(PDFCanvas, cutsATextWhereTheRoomEnds) {
    const Style style{.font = PDFCanvas::systemFont(10)};
    const std::string text = "First paragraph, which goes on for two lines.\nSecond paragraph\nThird: हिन्दी";
    const double whole = PDFCanvas::measure(text, 120, style);
    EXPECT_EQ(PDFCanvas::fitting(text, 120, style, whole), text.size());
    EXPECT_EQ(PDFCanvas::fitting(text, 120, style, 5), 0u);
    for (double height = 0; height < whole; ++height) {
        const std::size_t cut = PDFCanvas::fitting(text, 120, style, height);
        if (cut == 0) continue;
        std::string head = text.substr(0, cut);
        while (head.ends_with('\n')) head.pop_back();
        EXPECT_LE(PDFCanvas::measure(head, 120, style), height) << height;
    }
    EXPECT_EQ(PDFCanvas::fitting(text, 120, style, PDFCanvas::measure("A\nB", 120, style)), text.find('\n') + 1);
}

TEST(PDFCanvas, trackingGoesBetweenLettersAndLineSpacingBetweenLines) {
    const Style plain{.font = PDFCanvas::systemFont(20)};
    Style wide = plain;
    wide.tracking = 2;
    EXPECT_EQ(PDFCanvas::width("A", wide), PDFCanvas::width("A", plain));
    EXPECT_NEAR(PDFCanvas::width("ABC", wide), PDFCanvas::width("ABC", plain) + 4, 1);
    Style loose = plain;
    loose.lineSpacing = 6;
    EXPECT_EQ(PDFCanvas::measure("A", 100, loose), PDFCanvas::measure("A", 100, plain));
    EXPECT_EQ(PDFCanvas::measure("A\nB\nC", 100, loose), PDFCanvas::measure("A\nB\nC", 100, plain) + 12);
}

TEST(PDFCanvas, figuresHaveEqualWidths) {
    const Style style{.font = PDFCanvas::systemFont(40)};
    for (const char digit : std::string("023456789"))
        EXPECT_EQ(PDFCanvas::width(std::string(9, digit), style), PDFCanvas::width("111111111", style)) << digit;
}

TEST(PDFCanvas, alignsWithinItsBox) {
    const auto inkFor = [](Align align) {
        auto canvas = PDFCanvas::bitmap({100, 30}, 1);
        canvas.text("mm", 10, 5, 80, Style{}.aligned(align));
        return inkOf(canvas);
    };
    EXPECT_NEAR(inkFor(Align::left).left, 10, 2);
    EXPECT_NEAR(inkFor(Align::center).centerX(), 50, 2);
    EXPECT_NEAR(inkFor(Align::right).right, 89, 2);
}

TEST(PDFCanvas, turnsTextAboutItsCentre) {
    const auto inkFor = [](double degrees) {
        auto canvas = PDFCanvas::bitmap({120, 120}, 1);
        canvas.rotated("PAID IN FULL", {60, 60}, degrees, {.font = PDFCanvas::systemFont(12)});
        return inkOf(canvas);
    };
    for (const double degrees : {0.0, 30.0, 90.0}) {
        EXPECT_NEAR(inkFor(degrees).centerX(), 60, 3) << degrees;
        EXPECT_NEAR(inkFor(degrees).centerY(), 60, 3) << degrees;
    }
    EXPECT_GT(inkFor(0).right - inkFor(0).left, 60);
    EXPECT_GT(inkFor(90).bottom - inkFor(90).top, 60);
    auto canvas = PDFCanvas::bitmap({120, 120}, 1);
    canvas.rotated("aaaaaaaaaa.", {60, 60}, 45, {});
    EXPECT_NE(colorAt(*canvas.image(), 80, 40)[0] + colorAt(*canvas.image(), 79, 41)[0] +
                  colorAt(*canvas.image(), 78, 42)[0] + colorAt(*canvas.image(), 77, 43)[0],
              4 * 255)
        << "positive degrees raise the end of the line";
}

TEST(PDFCanvas, fillsStrokesAndRulesFromTheTopLeft) {
    const std::array white{255, 255, 255}, full{255, 0, 0};
    auto canvas = PDFCanvas::bitmap({100, 100}, 1);
    canvas.fill({10, 20, 30, 10}, red);
    canvas.fill({60, 20, 30, 30}, red, 15);
    canvas.stroke({10, 60, 20, 20}, red, 2);
    canvas.line({50, 90}, {100, 90}, red, 2, {10, 5});
    const Image image = *canvas.image();
    struct {
        int x, y;
        bool inked;
        const char* what;
    } const cases[] = {
        {10, 20, true, "corner of the box"}, {39, 29, true, "its last pixel"},
        {40, 29, false, "right of it"},      {10, 19, false, "above it"},
        {75, 35, true, "rounded, inside"},   {61, 21, false, "rounded corner"},
        {10, 70, true, "outline"},           {20, 70, false, "inside outline"},
        {55, 89, true, "first stroke"},      {62, 89, false, "gap"},
        {67, 89, true, "second stroke"},     {49, 89, false, "before the rule"},
    };
    for (const auto& c : cases) EXPECT_EQ(colorAt(image, c.x, c.y), c.inked ? full : white) << c.what;
}

TEST(PDFCanvas, scalesAnImageIntoItsBoxWithItsTransparency) {
    Image image = Image::blank(2, 1);
    const std::uint8_t pixels[] = {255, 0, 0, 255, 0, 0, 255, 0};
    image.pixels.assign(std::begin(pixels), std::end(pixels));
    auto canvas = PDFCanvas::bitmap({60, 60}, 1);
    canvas.draw(image, {10, 10, 40, 40});
    const Image drawn = *canvas.image();
    EXPECT_EQ(colorAt(drawn, 12, 30), (std::array{255, 0, 0}));
    EXPECT_EQ(colorAt(drawn, 48, 30), (std::array{255, 255, 255}));
    EXPECT_EQ(colorAt(drawn, 55, 30), (std::array{255, 255, 255}));
}

TEST(PDFCanvas, textIsFoundAgainInTheDocument) {
    auto canvas = aDocument();
    const Style style;
    canvas.text("Total ₹12,34,567.89", 40, 40, 500, style);
    canvas.text("परामर्श सेवाएँ", 40, 80, 500, style);
    canvas.text("வணக்கம்", 40, 120, 500, {.font = PDFCanvas::systemFont(10, PDFCanvas::Weight::bold)});
    canvas.text("broken \xFF byte", 40, 160, 500, style);
    const std::string text = readBack("/usr/bin/pdftotext", *canvas.finish(), "-");
    for (const char* expected : {"Total ₹12,34,567.89", "परामर्श सेवाएँ", "வணக்கம்", "broken \uFFFD byte"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected << " in " << text;
}

TEST(PDFCanvas, eachBeginPageMakesAPageEvenAnEmptyOne) {
    for (const int pages : {1, 2, 5}) {
        auto canvas = PDFCanvas::pdf(a4, "", "", aTime);
        EXPECT_FALSE(canvas.pageOpen());
        for (int page = 0; page < pages; ++page) canvas.beginPage();
        EXPECT_TRUE(canvas.pageOpen());
        canvas.text("last page", 40, 40, 500, {});
        const std::string info = readBack("/usr/bin/pdfinfo", *canvas.finish(), "");
        EXPECT_NE(info.find("Pages:           " + std::to_string(pages) + "\n"), std::string::npos) << info;
    }
}

TEST(PDFCanvas, keepsAPhotographAsTheJPEGItCameAs) {
    Image photo = Image::blank(300, 200);
    std::uint32_t noise = 1;
    for (std::uint8_t& byte : photo.pixels)
        byte = static_cast<std::uint8_t>((noise = noise * 1664525 + 1013904223) >> 24);
    for (std::size_t i = 3; i < photo.pixels.size(); i += 4) photo.pixels[i] = 255;
    photo.jpeg = ImageFile::jpeg(photo, 50);
    auto canvas = aDocument();
    canvas.draw(photo, {0, 0, 300, 200});
    const std::string pdf = *canvas.finish();
    EXPECT_NE(pdf.find(photo.jpeg), std::string::npos);
    EXPECT_NE(readBack("/usr/bin/pdfimages -list", pdf, "").find(" jpeg "), std::string::npos);
}

TEST(PDFCanvas, findsFacesByPostScriptNameAndFallsBackToTheSystemFont) {
    EXPECT_EQ(PDFCanvas::font("No-Such-Face", 9), PDFCanvas::systemFont(9));
    EXPECT_NE(PDFCanvas::font("NotoSans-Bold", 9), PDFCanvas::systemFont(9));
    auto canvas = aDocument();
    canvas.text("Emphasised", 40, 40, 500, {.font = PDFCanvas::font("NotoSans-Bold", 9)});
    EXPECT_NE(readBack("/usr/bin/pdffonts", *canvas.finish(), "").find("NotoSans-Bold"), std::string::npos);
}

TEST(PDFCanvasDeathTest, drawingNeedsAnOpenPage) {
    auto canvas = PDFCanvas::pdf(a4, "", "", aTime);
    EXPECT_DEATH(canvas.text("early", 0, 0, 100, {}), "without an open page");
    EXPECT_DEATH((void)PDFCanvas::bitmap({1e12, 10}, 1), "impossible size");
}

TEST(Color, readsSixHexDigits) {
    const Color color = Color::hex("1E4A66");
    EXPECT_DOUBLE_EQ(color.red, 0x1E / 255.0);
    EXPECT_DOUBLE_EQ(color.green, 0x4A / 255.0);
    EXPECT_DOUBLE_EQ(color.blue, 0x66 / 255.0);
    for (const char* bad : {"", "12345", "1234567", "12345G", "-12345", "#12345"})
        EXPECT_EQ(Color::hex(bad), Color{}) << bad;
}

TEST(ImageFile, writesAndReadsBack) {
    Image image = Image::blank(3, 2);
    const std::uint8_t translucent[] = {10, 20, 30, 128};
    std::copy(std::begin(translucent), std::end(translucent), image.at(1, 1));
    const auto folder = std::filesystem::temp_directory_path();
    const auto png = folder / "tamba-image-test.png", jpeg = folder / "tamba-image-test.jpg";
    ImageFile::writePNG(image, png);
    EXPECT_EQ(ImageFile::load(png), image);
    ImageFile::writeJPEG(Image::blank(30, 20), jpeg, 90);
    EXPECT_EQ(ImageFile::load(jpeg), Image::blank(30, 20));
    Files::remove(png);
    Files::remove(jpeg);
}

TEST(ImageFile, refusesWhatIsNoPictureAndWhereItCannotWrite) {
    for (const char* bytes : {"", "x", "plain text that is long enough to hold a header", "\x89PNG\r\n\x1a\n"})
        EXPECT_FALSE(ImageFile::decode(bytes)) << bytes;
    EXPECT_FALSE(ImageFile::load("/no/such/file.png"));
    const std::string whole = ImageFile::png(Image::blank(50, 50));
    EXPECT_FALSE(ImageFile::decode(std::string_view(whole).substr(0, 40)));
    EXPECT_THROW(ImageFile::writePNG(Image::blank(1, 1), "/no/such/folder/a.png"), FileError);
    EXPECT_THROW(ImageFile::writeJPEG(Image::blank(1, 1), "/no/such/folder/a.jpg", 90), FileError);
}

}  // namespace
