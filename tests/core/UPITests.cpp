#include "TambaCore/Documents/UPI.h"
#include "tests/support/Books.h"

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anInvoice;

TEST(UPI, knowsAnID) {
    for (const char* good : {"asha@okbank", " asha.rao-1_x@ybl \n", "12@a1", "a.b@OKHDFC", "--@ab"})
        EXPECT_TRUE(UPI::isValidVPA(good)) << good;
    for (const char* bad : {"", "asha", "a@okbank", "asha@b", "asha@1bank", "asha@ok-bank", "asha@okbank.com",
                            "asha rao@okbank", "आशा@okbank", "asha@@okbank", "asha@okbank\nx@okbank"})
        EXPECT_FALSE(UPI::isValidVPA(bad)) << bad;
    EXPECT_TRUE(UPI::isValidVPA(std::string(256, 'a') + "@" + std::string(65, 'b')));
    EXPECT_FALSE(UPI::isValidVPA(std::string(257, 'a') + "@ok"));
    EXPECT_FALSE(UPI::isValidVPA("ok@" + std::string(66, 'b')));
}

TEST(UPI, linksAreEncodedByteForByte) {
    const struct {
        std::string vpa, payee;
        std::int64_t amount;
        std::string note, link;
    } cases[] = {
        {" asha@okbank ", "Asha Rao", 120'005, "Invoice INV/26-27/007",
         "upi://pay?pa=asha@okbank&pn=Asha%20Rao&am=1200.05&cu=INR&tn=Invoice%20INV/26-27/007"},
        {"a.b-c_d@x1", "Halad & Ink = 100% #1; \"<x>\"", 5, "-._~@:/?,+!$'()*",
         "upi://pay?pa=a.b-c_d@x1&pn=Halad%20%26%20Ink%20%3D%20100%25%20%231%3B%20%22%3Cx%3E%22&am=0.05&cu=INR"
         "&tn=-._~@:/?,+!$'()*"},
        {"a@ok", "[\\]^`{|}\t", 100, "é₹",
         "upi://pay?pa=a@ok&pn=%5B%5C%5D%5E%60%7B%7C%7D%09&am=1.00&cu=INR&tn=%C3%A9%E2%82%B9"},
        {"a@ok", "x\xFF", 1'23'45'678'90, "", "upi://pay?pa=a@ok&pn=x%EF%BF%BD&am=12345678.90&cu=INR&tn="},
    };
    for (const auto& [vpa, payee, amount, note, link] : cases) EXPECT_EQ(UPI::link(vpa, payee, amount, note), link);
}

TEST(UPI, notesAreCutByCharactersBeforeTheyAreEncoded) {
    const auto note = [](const std::string& text) {
        const std::string link = UPI::link("a@ok", "x", 1, text);
        return link.substr(link.find("&tn=") + 4);
    };
    EXPECT_EQ(note(std::string(80, 'n')), std::string(60, 'n'));
    EXPECT_EQ(note(std::string(59, 'n') + "हिन्दी"), std::string(59, 'n') + "%E0%A4%B9%E0%A4%BF");
}

TEST(UPI, paysWhatIsDueOnAnInvoiceInRupees) {
    Library library = aLibrary();
    library.business.upiID = "studio@okbank";
    Document invoice = anInvoice("INV#7/26-27");  // ₹5.90 in all, ₹4.32 of it settled
    EXPECT_EQ(UPI::linkFor(library, invoice),
              "upi://pay?pa=studio@okbank&pn=Studio%20Tamarind&am=1.58&cu=INR&tn=Invoice%20INV-7/26-27");
    invoice.seller = PartySnapshot{"Its name then", "", "", "27", "IN", "", {}};
    EXPECT_NE(UPI::linkFor(library, invoice)->find("&pn=Its%20name%20then&"), std::string::npos);

    const std::pair<const char*, std::function<void(Library&, Document&)>> refusals[] = {
        {"estimate", [](Library&, Document& d) { d.kind = DocKind::estimate; }},
        {"draft", [](Library&, Document& d) { d.state = DocState::draft; }},
        {"void", [](Library&, Document& d) { d.state = DocState::void_; }},
        {"dollars", [](Library&, Document& d) { d.currency = "USD"; }},
        {"paid", [](Library&, Document& d) { d.payments[0].amount += 158; }},
        {"beyond belief", [](Library&, Document& d) { d.lines[0].priceMinor = maximumAmount + 1; }},
        {"switched off", [](Library& l, Document&) { l.business.showUPIQR = false; }},
        {"no ID", [](Library& l, Document&) { l.business.upiID = "studio"; }},
    };
    for (const auto& [why, spoil] : refusals) {
        Library books = library;
        Document document = invoice;
        spoil(books, document);
        EXPECT_EQ(UPI::linkFor(books, document), std::nullopt) << why;
    }
}

}  // namespace
}  // namespace tamba
