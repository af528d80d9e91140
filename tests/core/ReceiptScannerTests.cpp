#include "TambaCore/Base/MailText.h"
#include "TambaCore/Receipts/Receipts.h"
#include "tests/support/Print.h"
#include "tests/support/Refusal.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

namespace tamba {
namespace {

using testing::Bill;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr Day today{2026, 10, 20};
const Bill tea{{"Chai Point", ""}, {"Date: 14/10/2026", ""}, {"Grand Total", "₹473.00"}};

struct Attached {
    std::string name, mime, bytes;
};

std::string mail(std::string_view html, const std::vector<Attached>& attachments) {
    std::string text =
        "From: \"Asha Travels\" <bills@asha.example>\r\nSubject: Hello\r\n"
        "Date: Tue, 6 Oct 2026 10:00:00 +0530\r\nContent-Type: multipart/mixed; boundary=XX\r\n\r\n--XX\r\n"
        "Content-Type: text/html; charset=utf-8\r\n\r\n" +
        std::string(html) + "\r\n";
    for (const Attached& part : attachments)
        text += "--XX\r\nContent-Type: " + part.mime + "\r\nContent-Disposition: attachment; filename=\"" + part.name +
                "\"\r\nContent-Transfer-Encoding: base64\r\n\r\n" + MailText::base64(part.bytes);
    return text + "--XX--\r\n";
}

/// Each test has a folder, which is also the system's for temporary files, so that what is left behind is seen.
class ReceiptScannerTest : public ::testing::Test {
protected:
    ReceiptScannerTest() { setenv("TMPDIR", folder_.path().c_str(), 1); }
    ~ReceiptScannerTest() override { unsetenv("TMPDIR"); }

    std::filesystem::path file(std::string_view name, std::string_view bytes) {
        testing::write(folder_ / name, bytes);
        return folder_ / name;
    }
    ReceiptScanner::Result scan(const std::filesystem::path& path, const std::atomic<bool>* cancel = nullptr) {
        static ReceiptReader reader;
        return ReceiptScanner::scan(reader, path, DateOrder::dmy, today, cancel);
    }
    [[nodiscard]] std::size_t filesLeft() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_.path()), {}));
    }

private:
    testing::TemporaryFolder folder_;
};

TEST_F(ReceiptScannerTest, readsAPicture) {
    const auto picture = file("bill.jpg", ImageFile::jpeg(testing::scanned(tea), 80));
    const auto result = scan(picture);
    EXPECT_EQ(result.guess.vendor, "Chai Point");
    EXPECT_EQ(result.guess.date, (Day{2026, 10, 14}));
    EXPECT_EQ(result.guess.total, 47300);
    EXPECT_EQ(result.guess.currency, "INR");
    EXPECT_THAT(result.guess.doubts, IsEmpty());
    EXPECT_THAT(result.files, ElementsAre(picture));
    EXPECT_THAT(result.temporary, IsEmpty());
}

TEST_F(ReceiptScannerTest, dropsAFirstDigitThatWasARupeeSign) {
    const Bill read{{"Chai Point", ""},   {"Date: 14/10/2026", ""}, {"Subtotal", "400.00"},
                    {"CGST 9%", "36.00"}, {"SGST 9%", "36.00"},     {"Grand Total", "2472.00"}};
    EXPECT_EQ(scan(file("bill.png", ImageFile::png(testing::scanned(read)))).guess.total, 47200);
    // A text layer says what it means.
    EXPECT_EQ(scan(file("bill.pdf", testing::pdf({read}))).guess.total, 247200);
}

TEST_F(ReceiptScannerTest, looksAgainAtFadedPaper) {
    // The black edge of the table makes one threshold for the whole picture see nothing but itself.
    Image faded = testing::scanned(tea, Color::gray(0.8));
    for (int y = 0; y < faded.height; ++y)
        for (int x = 0; x < 12; ++x) std::fill_n(faded.at(x, y), 3, std::uint8_t{0});
    const auto result = scan(file("faded.png", ImageFile::png(faded)));
    EXPECT_EQ(result.guess.date, (Day{2026, 10, 14}));
    EXPECT_EQ(result.guess.total, 47300);
}

TEST_F(ReceiptScannerTest, readsThePDFOfAnEmail) {
    const std::string pdf = testing::pdf({{{"Invoice date: 14/10/2026", ""}, {"Invoice total", "₹2,640.00"}}});
    const auto message = file("trip.EML", mail("<p>Grand Total 99.00</p>", {{"bill.pdf", "application/pdf", pdf}}));
    const auto result = scan(message);
    EXPECT_EQ(result.guess.total, 264000);
    EXPECT_EQ(result.guess.date, (Day{2026, 10, 14}));
    EXPECT_EQ(result.guess.vendor, "Asha Travels");
    ASSERT_EQ(result.files.size(), 2U);
    EXPECT_EQ(result.files[0], message);
    EXPECT_EQ(testing::contents(result.files[1]), pdf);
    EXPECT_THAT(result.temporary, ElementsAre(result.files[1]));
}

TEST_F(ReceiptScannerTest, choosesThePDFThatHoldsTheBill) {
    const std::string terms = testing::pdf({{{"Conditions of carriage", ""}}});
    const std::string bill = testing::pdf({tea});
    const auto result = scan(file(
        "trip.eml", mail("Hi", {{"terms.pdf", "application/pdf", terms}, {"bill", "application/octet-stream", bill}})));
    EXPECT_EQ(result.guess.total, 47300);
    EXPECT_EQ(testing::contents(result.files.at(1)), bill);
    EXPECT_EQ(filesLeft(), 2U) << "the message and the bill";
}

TEST_F(ReceiptScannerTest, readsTheTextOfAnEmail) {
    const struct {
        const char* what;
        std::vector<Attached> attachments;
        std::size_t files;
    } cases[] = {
        {"without a PDF", {}, 1},
        {"whose picture is a mere logo", {{"logo.png", "image/png", ImageFile::png(testing::scanned(tea))}}, 1},
        {"whose PDF cannot be read, which belongs to it all the same", {{"b.pdf", "application/pdf", "%PDF-1.7"}}, 2},
    };
    for (const auto& c : cases) {
        const auto result = scan(file("mail.eml", mail("<p>Ride to airport</p><p>Total 450.00</p>", c.attachments)));
        EXPECT_EQ(result.guess.total, 45000) << c.what;
        // The day of the message, where the text names none; the guess still says that it found none.
        EXPECT_EQ(result.guess.date, (Day{2026, 10, 6})) << c.what;
        EXPECT_THAT(result.guess.doubts, Contains(Doubt::noDate)) << c.what;
        EXPECT_EQ(result.files.size(), c.files) << c.what;
    }
}

TEST_F(ReceiptScannerTest, namesTheSenderOfAnEmailThatTellsNoName) {
    const auto result = scan(file("mail.eml", mail("<p>Booking confirmed: QX7</p>TOTAL<p></p><p></p>₹450.00", {})));
    EXPECT_EQ(result.guess.vendor, "Asha Travels");
    EXPECT_EQ(result.guess.total, 45000);
    EXPECT_THAT(result.guess.doubts, Not(Contains(Doubt::totalWithoutKeyword))) << "blank lines part no label";
    // An address is no name; any line is a better one.
    const auto bare = file("bare.eml", "From: a@b.example\nSubject: your bill\n\nbooking confirmed\nTotal 450.00\n");
    EXPECT_EQ(scan(bare).guess.vendor, "your bill");
}

TEST_F(ReceiptScannerTest, readsAPhotoInAnEmailWithoutATotal) {
    const std::string png = ImageFile::png(testing::scanned(tea)) + std::string(20'000, '\0');
    const auto result = scan(file("mail.eml", mail("See below", {{"photo.png", "image/png", png}})));
    EXPECT_EQ(result.guess.total, 47300);
    EXPECT_EQ(testing::contents(result.files.at(1)), png);
}

TEST_F(ReceiptScannerTest, passesRefusalsOn) {
    using Error = ReceiptReader::ReadError;
    const auto pipe = file("folder", "").parent_path() / "pipe.jpg";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<std::filesystem::path, Error::Code> cases[] = {
        {file("empty.eml", ""), Error::Code::unreadable},
        {file("blank.eml", "From: a@b.example\r\n\r\n\r\n"), Error::Code::empty},
        {file("page.html", "<html>Total 5.00</html>"), Error::Code::unreadable},
        {"/nowhere/mail.eml", Error::Code::unreadable},
        {pipe, Error::Code::unreadable},  // nobody writes into it
    };
    for (const auto& [path, code] : cases) EXPECT_EQ(testing::refusal<Error>([&] { return scan(path); }), code) << path;
}

TEST_F(ReceiptScannerTest, leavesNothingBehindWhenCancelled) {
    const std::atomic<bool> cancel = true;
    const auto message = file("mail.eml", mail("Hi", {{"bill.pdf", "application/pdf", testing::pdf({tea})}}));
    EXPECT_THROW(static_cast<void>(scan(message, &cancel)), ReceiptReader::Cancelled);
    EXPECT_EQ(filesLeft(), 1U);
}

}  // namespace
}  // namespace tamba
