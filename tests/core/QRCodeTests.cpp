#include "TambaCore/Pages/PDFCanvas.h"
#include "TambaCore/Pages/PDFPages.h"
#include "TambaCore/Pages/QRCode.h"

#include <gtest/gtest.h>

using namespace tamba;

namespace {

const std::string link =
    "upi://pay?pa=haladandink@godavari&pn=Halad%20%26%20Ink%20Studio&am=76700.00&cu=INR&tn=Invoice%20INV/26-27/008";

/// Modules that ISO/IEC 18004 fixes: the three finder patterns.
bool hasFinder(const QRCode::Modules& code, int left, int top) {
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 7; ++x) {
            const int ring = std::max(std::abs(x - 3), std::abs(y - 3));
            if (code.at(left + x, top + y) != (ring != 2)) return false;
        }
    return true;
}

TEST(QRCode, isReadBackWhateverTheScript) {
    for (const std::string& text :
         {link, std::string("परामर्श ₹1,180.00"), std::string("Ünïted Åä"), std::string(2300, 'a')}) {
        const auto image = QRCode::image(text, 3);
        ASSERT_TRUE(image);
        Image framed = Image::blank(image->width + 24, image->height + 24);
        for (int y = 0; y < image->height; ++y) std::copy_n(image->at(0, y), 4 * image->width, framed.at(12, 12 + y));
        EXPECT_EQ(QRCode::read(framed), std::vector{text});
    }
}

TEST(QRCode, isOfLevelMAndOneOfTheStandardsSizes) {
    // Byte capacities at level M: version 6 holds 106, version 7 holds 122; a version has 17 + 4 × version modules.
    const auto size = [](std::size_t bytes) { return QRCode::modules(std::string(bytes, 'a'))->size; };
    EXPECT_EQ(size(106), 41);
    EXPECT_EQ(size(107), 45);
    EXPECT_EQ(size(122), 45);
    EXPECT_EQ(size(123), 49);
    EXPECT_EQ(size(2331), 177);
    EXPECT_FALSE(QRCode::modules(std::string(2332, 'a')));
    EXPECT_FALSE(QRCode::image(std::string(4000, 'a'), 2));
    const auto code = *QRCode::modules(link);
    EXPECT_TRUE(hasFinder(code, 0, 0) && hasFinder(code, code.size - 7, 0) && hasFinder(code, 0, code.size - 7));
    EXPECT_EQ(QRCode::image(link, 2.5)->width, static_cast<int>(std::lround(2.5 * code.size)));
}

TEST(QRCode, keepsItsQuietZoneOnAPageAndStandsBesideAnother) {
    auto canvas = PDFCanvas::pdf({300, 200}, "", "", Instant{});
    canvas.beginPage();
    canvas.fill({0, 0, 300, 200}, Color::gray(0));
    ASSERT_TRUE(QRCode::draw(canvas, link, 20, 20, 80));
    ASSERT_TRUE(QRCode::draw(canvas, "second", 150, 60, 60));
    EXPECT_FALSE(QRCode::draw(canvas, std::string(4000, 'a'), 0, 0, 80));
    const auto pages = PDFPages::images(*canvas.finish(), 1200);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0].height, 800);
    EXPECT_THAT(QRCode::read(pages[0]), testing::UnorderedElementsAre(link, "second"));
    const double module = 80.0 / (QRCode::modules(link)->size + 8);
    const auto light = [&](double x, double y) { return *pages[0].at(int(4 * x), int(4 * y)) > 200; };
    EXPECT_TRUE(light(20 + 3.5 * module, 60)) << "quiet zone";
    EXPECT_FALSE(light(20 + 4.5 * module, 20 + 4.5 * module)) << "the code's corner";
}

TEST(QRCode, findsNothingWhereThereIsNone) {
    EXPECT_TRUE(QRCode::read(Image::blank(300, 300)).empty());
    EXPECT_TRUE(QRCode::read(Image{}).empty());
    EXPECT_FALSE(QRCode::modules(""));
}

TEST(PDFPages, givesEveryPageAtTheWidthAskedForAndNoneForJunk) {
    auto canvas = PDFCanvas::pdf({595.28, 841.89}, "", "", Instant{});
    for (const double grey : {0.0, 0.5}) {
        canvas.beginPage();
        canvas.fill({100, 100, 200, 200}, {grey, 0, 1});
    }
    const std::string pdf = *canvas.finish();
    const auto pages = PDFPages::images(pdf, 500);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[1].width, 500);
    EXPECT_EQ(pages[1].height, 707);
    const std::uint8_t* pixel = pages[1].at(168, 168);
    EXPECT_NEAR(pixel[0], 128, 2);
    EXPECT_EQ(pixel[1], 0);
    EXPECT_EQ(pixel[2], 255);
    for (const std::string& junk : {std::string(), std::string("%PDF-1.5 junk"), pdf.substr(0, 90)})
        EXPECT_TRUE(PDFPages::images(junk, 500).empty());
    EXPECT_TRUE(PDFPages::images(pdf, 0).empty());
}

}  // namespace
