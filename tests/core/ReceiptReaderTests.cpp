#include "TambaCore/Receipts/ReceiptReader.h"
#include "TambaCore/Receipts/Recogniser.h"
#include "TambaCore/Receipts/RupeeSign.h"
#include "tests/support/Print.h"
#include "tests/support/Refusal.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace tamba {
namespace {

using testing::Bill;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::TemporaryFolder;
using Code = ReceiptReader::ReadError::Code;

const Bill tea{{"Chai Point", ""}, {"Date: 14/10/2026", ""}, {"Masala Tea 2", "120.00"}, {"Grand Total", "₹473.00"}};

/// One engine for all tests: making it takes longer than reading a bill.
ReceiptReader& reader() {
    static ReceiptReader shared;
    return shared;
}

std::optional<Code> refusal(const std::filesystem::path& file) {
    return testing::refusal<ReceiptReader::ReadError>([&] { return reader().lines(file); });
}
std::optional<Code> refusal(const std::filesystem::path& file, int page) {
    return testing::refusal<ReceiptReader::ReadError>([&] { return ReceiptReader::picture(file, page, 100); });
}

TEST(ReceiptReader, joinsBoxesIntoPrintedRows) {
    using Box = std::pair<TextBox, std::string>;
    struct {
        const char* rule;
        std::vector<Box> boxes;
        std::vector<std::string> rows;
    } const cases[] = {
        {"nothing", {}, {}},
        {"left to right, two spaces", {{{200, 10, 50, 20}, "118.00"}, {{10, 12, 90, 20}, "Total"}}, {"Total  118.00"}},
        {"from the top", {{{0, 50, 10, 10}, "below"}, {{0, 10, 10, 10}, "above"}}, {"above", "below"}},
        {"0.55 of the height apart is another row", {{{0, 0, 9, 20}, "a"}, {{20, 11, 9, 20}, "b"}}, {"a", "b"}},
        {"just below is the same", {{{20, 0, 9, 20}, "b"}, {{0, 10.9, 9, 20}, "a"}}, {"a  b"}},
        {"the larger height counts", {{{0, 0, 9, 40}, "TOTAL"}, {{20, 33, 9, 10}, "5.00"}}, {"TOTAL  5.00"}},
        {"compared with the row's first box, not its last",
         {{{0, 0, 9, 20}, "a"}, {{20, 8, 9, 20}, "b"}, {{40, 16, 9, 20}, "c"}},
         {"a  b", "c"}},
    };
    for (const auto& c : cases) EXPECT_EQ(ReceiptReader::joinRows(c.boxes), c.rows) << c.rule;
}

TEST(Recogniser, mendsFiguresThatPicturesGiveWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"Total 39. 80", "Total 39.80"},
        {"Total 39 .80", "Total 39.80"},
        {"Total 2,10", "Total 2.10"},
        {"1,23,456.00", "1,23,456.00"},
        {"12,345", "12,345"},
        {"5, 75,000.00", "5,75,000.00"},
        {"86, 499.90", "86,499.90"},
        {"Lot 12, 485 Ring Road", "Lot 12, 485 Ring Road"},
        {"1O5.O0", "105.00"},
        {"NO 15 OLD TOWN", "NO 15 OLD TOWN"},
        {"31. 12. 2026", "31. 12. 2026"},
        {"BERRY’S «120.00»|", "BERRY'S 120.00"},
        {"€S806012727", "CS806012727"},
        {"€ 12.50 £1,300.00", "€ 12.50 £1,300.00"},
        {"£.&.O.E.", "E.&.O.E."},
        {"D.I.¥. STORE", "D.I.Y. STORE"},
        {"X7,015.75", "7,015.75"},
        {"MAX7.50 X7", "MAX7.50 X7"},
    };
    for (const auto& [read, meant] : cases) EXPECT_EQ(Recogniser::repairedDigits(read), meant);
}

TEST(Recogniser, mendsGroupsThatAreNotIndianOnIndianBills) {
    const auto mended = [](std::vector<std::string> texts) {
        Recogniser::Observations observations;
        for (std::string& text : texts) observations.emplace_back(TextBox{}, std::move(text));
        Recogniser::mendGroups(observations);
        texts.clear();
        for (auto& [box, text] : observations) texts.push_back(std::move(text));
        return texts;
    };
    EXPECT_THAT(mended({"Rent 1,23,456.78", "Total 221,237.00", "7,015.75", "2,21,237.00", "521,237"}),
                ElementsAre("Rent 1,23,456.78", "Total ₹21,237.00", "7,015.75", "2,21,237.00", "521,237"));
    EXPECT_THAT(mended({"Total 221,237.00", "7,015.75"}), ElementsAre("Total 221,237.00", "7,015.75"));
}

TEST(RupeeSign, isToldFromTheDigitsThatItIsReadAs) {
    const std::pair<const char*, bool> cases[] = {{"₹", true},  {"2", false}, {"3", false}, {"7", false},
                                                  {"X", false}, {"Z", false}, {"T", false}};
    for (const auto& [sign, isRupee] : cases)
        for (const auto weight : {PDFCanvas::Weight::regular, PDFCanvas::Weight::bold}) {
            PDFCanvas canvas = PDFCanvas::bitmap({30, 30}, 200.0 / 72);
            canvas.text(sign, 8, 6, 20, {.font = PDFCanvas::systemFont(12, weight)});
            const Raster picture = testing::grey(*canvas.image());
            EXPECT_EQ(RupeeSign::isAt(picture, {0, 0, double(picture.width), double(picture.height)}), isRupee) << sign;
        }
    EXPECT_FALSE(RupeeSign::isAt({Raster::Kind::grey, 20, 20, std::vector<std::uint8_t>(400, 255)}, {-5, -5, 90, 90}));
}

TEST(ReceiptReader, readsAPhotograph) {
    const TemporaryFolder folder;
    std::string jpeg = ImageFile::jpeg(testing::scanned(tea), 70);
    testing::write(folder / "bill.jpg", jpeg);
    const auto read = reader().lines(folder / "bill.jpg");
    EXPECT_TRUE(read.recognised);
    EXPECT_THAT(read.lines,
                ElementsAre("Chai Point", "Date: 14/10/2026", "Masala Tea 2  120.00", "Grand Total  ₹473.00"));

    // A card that failed: nothing but noise in the last quarter, and the end is missing.
    for (std::size_t i = jpeg.size() * 3 / 4; i < jpeg.size(); ++i) jpeg[i] = static_cast<char>(i * 37 % 251);
    testing::write(folder / "damaged.jpg", jpeg);
    EXPECT_THAT(reader().lines(folder / "damaged.jpg").lines, Contains("Date: 14/10/2026"));
}

/// A dark quarter in the corner of a white picture, whose stored rows EXIF says to turn.
std::string turnedJPEG(int orientation) {
    Image picture = Image::blank(120, 80);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x) std::fill_n(picture.at(x, y), 3, std::uint8_t{0});
    std::string exif(
        "\xFF\xE1\0\x22"
        "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0?\0\0\0\0\0\0\0",
        36);
    exif[exif.find('?')] = static_cast<char>(orientation);
    return ImageFile::jpeg(picture, 90).insert(2, exif);
}

/// Where the dark quarter lies.
std::string darkCorner(const Raster& picture) {
    const auto dark = [&](int x, int y) { return picture.pixels[4U * unsigned(y * picture.width + x)] < 100; };
    const int right = picture.width - 4, bottom = picture.height - 4;
    std::string corners;
    if (dark(3, 3)) corners += "top left";
    if (dark(right, 3)) corners += "top right";
    if (dark(3, bottom)) corners += "bottom left";
    if (dark(right, bottom)) corners += "bottom right";
    return corners;
}

TEST(ReceiptReader, turnsPicturesUpright) {
    const TemporaryFolder folder;
    struct {
        std::filesystem::path file;
        std::string bytes;
        const char* corner;
        int width;
    } cases[] = {
        {"1.jpg", turnedJPEG(1), "top left", 120},
        {"2.jpg", turnedJPEG(2), "top right", 120},
        {"3.jpg", turnedJPEG(3), "bottom right", 120},
        {"4.jpg", turnedJPEG(4), "bottom left", 120},
        {"5.jpg", turnedJPEG(5), "top left", 80},
        {"6.jpg", turnedJPEG(6), "top right", 80},
        {"7.jpg", turnedJPEG(7), "bottom right", 80},
        {"8.jpg", turnedJPEG(8), "bottom left", 80},
        {"9.jpg", turnedJPEG(9), "top left", 120},  // no such orientation
        {TEST_DATA "/pictures/turned.png", "", "top right", 80},
        {TEST_DATA "/pictures/turned.webp", "", "top right", 80},
        {TEST_DATA "/pictures/turned.tiff", "", "top right", 80},  // its second page is black
        {TEST_DATA "/pictures/turned.heic", "", "top right", 80},
        {TEST_DATA "/pictures/animated.gif", "", "top left", 120},
        {TEST_DATA "/pictures/animated.webp", "", "top left", 120},
    };
    for (auto& c : cases) {
        if (!c.bytes.empty()) testing::write(folder / c.file.string(), c.bytes), c.file = folder / c.file.string();
        const Raster picture = ReceiptReader::picture(c.file, 0, 1000);
        EXPECT_EQ(darkCorner(picture), c.corner) << c.file;
        EXPECT_EQ(picture.width, c.width) << c.file;
        EXPECT_EQ(picture.height, 200 - c.width) << c.file;
        EXPECT_EQ(picture.pixels.size(), 4U * 120 * 80) << c.file;
        const Raster small = ReceiptReader::picture(c.file, 0, 40);
        EXPECT_EQ(small.width, 40) << c.file;
        EXPECT_EQ(darkCorner(small), c.corner) << c.file;
    }
}

TEST(ReceiptReader, refusesWhatIsNeitherPictureNorPDF) {
    const TemporaryFolder folder;
    const std::string png = ImageFile::png(Image::blank(20, 20));
    std::string hugePNG = png;
    hugePNG.replace(16, 8, std::string("\0\1\x86\xA0\0\1\x86\xA0", 8));  // 100,000 by 100,000 pixels
    const std::string bill = testing::pdf({tea});
    const std::pair<const char*, std::string> cases[] = {
        {"empty.jpg", ""},
        {"empty.pdf", ""},
        {"junk.jpg", std::string(5000, '\x9D')},
        {"page.html", "<html><body>Grand Total 118.00</body></html>"},
        {"notes.txt", "Grand Total 118.00, and a good deal of text"},
        {"cut.png", png.substr(0, 40)},
        {"huge.png", hugePNG},
        {"marks.jpg", "\xFF\xD8\xFF\xE0" + std::string(400, '\xFF')},
        {"onlyMark.pdf", "%PDF-1.7\n" + std::string(300, 'x')},
        {"cut.pdf", bill.substr(0, bill.size() / 4)},
    };
    for (const auto& [name, bytes] : cases) {
        testing::write(folder / name, bytes);
        EXPECT_EQ(refusal(folder / name), Code::unreadable) << name;
        EXPECT_EQ(refusal(folder / name, 0), Code::unreadable) << name;
    }
    EXPECT_EQ(refusal(folder / "missing.jpg"), Code::unreadable);
    EXPECT_EQ(refusal(folder.path()), Code::unreadable);
}

TEST(ReceiptReader, findsNoTextOnWhitePaper) {
    const TemporaryFolder folder;
    ImageFile::writePNG(Image::blank(60, 60), folder / "white.png");
    ImageFile::writePNG(Image::blank(3, 2), folder / "speck.png");
    testing::write(folder / "white.pdf", testing::pdf({{}}));
    for (const char* name : {"white.png", "speck.png", "white.pdf"})
        EXPECT_EQ(refusal(folder / name), Code::empty) << name;
    EXPECT_STREQ(ReceiptReader::ReadError(Code::empty).what(), "No text was found on that receipt.");
    EXPECT_STREQ(ReceiptReader::ReadError(Code::unreadable).what(),
                 "Tamba couldn’t open that file as an image or PDF.");
}

TEST(ReceiptReader, readsTheTextOfThreePages) {
    const TemporaryFolder folder;
    std::vector<Bill> pages;
    for (int page = 1; page <= 5; ++page)
        pages.push_back({{"Page " + std::to_string(page), ""}, {"Total", std::to_string(page) + "00.00"}});
    testing::write(folder / "bill.jpg", testing::pdf(pages));  // whatever it is called
    const auto read = reader().lines(folder / "bill.jpg");
    EXPECT_FALSE(read.recognised);
    EXPECT_THAT(read.lines,
                ElementsAre("Page 1", "Total  100.00", "Page 2", "Total  200.00", "Page 3", "Total  300.00"));
    EXPECT_EQ(ReceiptReader::pageCount(folder / "bill.jpg"), 5);
    EXPECT_EQ(ReceiptReader::picture(folder / "bill.jpg", 4, 300).width, 300);
    for (int page : {-1, 5}) EXPECT_EQ(refusal(folder / "bill.jpg", page), Code::unreadable);
}

TEST(ReceiptReader, recognisesAPageThatIsAScan) {
    const TemporaryFolder folder;
    testing::write(folder / "scan.pdf", testing::scannedPDF(tea, "Scanned with a telephone"));
    const auto read = reader().lines(folder / "scan.pdf");
    EXPECT_TRUE(read.recognised);
    EXPECT_THAT(read.lines, Contains("Grand Total  ₹473.00"));

    // A text layer without a figure is kept when recognition finds none either.
    testing::write(folder / "words.pdf", testing::pdf({{{"Thank you", ""}}}));
    EXPECT_THAT(reader().lines(folder / "words.pdf").lines, ElementsAre("Thank you"));
}

TEST(ReceiptReader, rendersPagesOfAnySizeSmallEnough) {
    const TemporaryFolder folder;
    for (const Size size : {Size{200'000, 200'000}, Size{2, 150'000}, Size{150'000, 2}}) {
        PDFCanvas canvas = PDFCanvas::pdf(size, "", "", Instant{});
        canvas.beginPage();
        testing::write(folder / "large.pdf", *canvas.finish());
        const Raster picture = ReceiptReader::picture(folder / "large.pdf", 0, 500);
        EXPECT_LE(picture.width, 500);
        EXPECT_LE(picture.height, 30'000);
        EXPECT_EQ(refusal(folder / "large.pdf"), Code::empty);
    }
}

TEST(ReceiptReader, refusesALockedPDF) {
    const TemporaryFolder folder;
    testing::write(folder / "bill.pdf", testing::pdf({tea}));
    const auto encrypt = [&](const std::string& passwords, const char* name) {
        const std::string command = "qpdf --encrypt " + passwords + " 256 -- '" + (folder / "bill.pdf").string() +
                                    "' '" + (folder / name).string() + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
    };
    encrypt("secret owner", "locked.pdf");
    EXPECT_EQ(refusal(folder / "locked.pdf"), Code::unreadable);
    EXPECT_EQ(refusal(folder / "locked.pdf", 0), Code::unreadable);
    // A password that only guards against changes asks nothing of a reader.
    encrypt("'' owner", "guarded.pdf");
    EXPECT_THAT(reader().lines(folder / "guarded.pdf").lines, Contains("Grand Total  ₹473.00"));
}

TEST(ReceiptReader, stopsWhenCancelled) {
    const TemporaryFolder folder;
    testing::write(folder / "bill.pdf", testing::pdf({tea}));
    const std::atomic<bool> cancel = true;
    EXPECT_THROW(static_cast<void>(reader().lines(folder / "bill.pdf", &cancel)), ReceiptReader::Cancelled);
    const Raster picture = testing::grey(testing::scanned(tea));
    EXPECT_THROW(static_cast<void>(reader().ocr(picture, ReceiptReader::Pass::block, &cancel)),
                 ReceiptReader::Cancelled);
    // And reads the next one all the same.
    EXPECT_THAT(reader().ocr(picture), Contains(HasSubstr("473.00")));
}

}  // namespace
}  // namespace tamba
