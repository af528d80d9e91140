#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Documents/UPI.h"
#include "TambaCore/Fixtures/Documents.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Pages/PDFPages.h"
#include "TambaCore/Pages/QRCode.h"
#include "tests/support/ReadBack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace tamba;
using tamba::testing::readBack;

namespace {

using Box = PDFCanvas::TextBox;

const Document& documentOf(const Fixtures::Sample& sample) { return *sample.library.document(sample.document); }

Fixtures::Sample sampleNamed(std::string_view name) {
    for (Fixtures::Sample& sample : Fixtures::documents())
        if (sample.name == name) return std::move(sample);
    throw std::out_of_range(std::string(name));
}

std::vector<Box> textsOf(const Library& library, const Document& document) {
    auto canvas = PDFCanvas::pdf(InvoicePDF::pageSize, "", "", Instant{});
    canvas.recordTexts();
    InvoicePDF::draw(canvas, library, document, std::nullopt);
    return canvas.texts();
}

/// All texts without white space, so that a line break hides nothing.
std::string squeezed(const std::string& text) {
    static const Text::Pattern space(R"([\s\u00A0\f\u00AD\u200B-\u200D]+)");
    return space.replaceAll(text, "");
}
std::string printed(const std::vector<Box>& texts) {
    std::string all;
    for (const Box& box : texts) all += box.text + "\n";
    return squeezed(all);
}

bool overlap(const Rect& a, const Rect& b) {
    constexpr double touch = 0.6;
    return a.x + a.width > b.x + touch && b.x + b.width > a.x + touch && a.y + a.height > b.y + touch &&
           b.y + b.height > a.y + touch;
}

/// Every text inside the margins and its cell, none over another, on pages that are numbered without a gap.
void expectTidy(const std::vector<Box>& texts, const std::string& name) {
    std::map<int, std::vector<const Box*>> pages;
    for (const Box& box : texts) {
        if (box.degrees != 0) continue;
        pages[box.page].push_back(&box);
        EXPECT_GE(box.box.x, 47.9) << name << ": " << box.text;
        EXPECT_LE(box.box.x + box.box.width, 547.4) << name << ": " << box.text;
        EXPECT_GE(box.box.y, 47.9) << name << ": " << box.text;
        const double foot = box.box.y + box.box.height;
        EXPECT_TRUE(foot <= 773 || (box.box.y >= 795 && foot <= 815)) << name << ": " << box.text << " at " << foot;
        EXPECT_GE(box.box.x, box.cell.x - 0.1) << name << ": " << box.text;
        EXPECT_LE(box.box.x + box.box.width, box.cell.x + box.cell.width + 0.1) << name << ": " << box.text;
    }
    for (const auto& [page, boxes] : pages) {
        const std::string number = "Page " + std::to_string(page) + " of " + std::to_string(pages.size());
        EXPECT_TRUE(std::any_of(boxes.begin(), boxes.end(), [&](const Box* box) { return box->text == number; }))
            << name << ": " << number;
        for (std::size_t i = 0; i < boxes.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(overlap(boxes[i]->box, boxes[j]->box))
                    << name << ", page " << page << ": “" << boxes[i]->text << "” over “" << boxes[j]->text << "”";
    }
}

TEST(InvoicePDF, everyDocumentOfTheGalleryIsTidyAndItsTextIsInTheFile) {
    for (const Fixtures::Sample& sample : Fixtures::documents()) {
        const std::vector<Box> texts = textsOf(sample.library, documentOf(sample));
        expectTidy(texts, sample.name);
        const std::string pdf = InvoicePDF::render(sample.library, documentOf(sample), std::nullopt);
        EXPECT_EQ(pdf, InvoicePDF::render(sample.library, documentOf(sample), std::nullopt)) << sample.name;
        const std::string text = squeezed(readBack("/usr/bin/pdftotext -raw", pdf, "-"));
        for (const Box& box : texts)
            EXPECT_NE(text.find(squeezed(box.text)), std::string::npos) << sample.name << ": " << box.text;
    }
}

TEST(InvoicePDF, everyFigureOfTheTotalsIsPrinted) {
    for (const Fixtures::Sample& sample : Fixtures::documents()) {
        const Document& document = documentOf(sample);
        const DocTotals totals = DocMath::totals(document);
        const Currency currency = Currency::of(document.currency);
        const std::string page = printed(textsOf(sample.library, document));
        const auto expectAmount = [&](std::int64_t minor, const std::string& what) {
            const std::string amount = MoneyFormat::string(minor, currency, MoneyFormat::Symbol::hidden);
            EXPECT_NE(page.find(amount), std::string::npos) << sample.name << ": " << what << " " << amount;
        };
        for (const LineTotals& line : totals.lines) expectAmount(line.taxable, "line");
        if (totals.discount != 0) {
            expectAmount(totals.subtotal, "subtotal");
            expectAmount(-totals.discount, "discount");
        }
        expectAmount(totals.taxable, "taxable value");
        if (totals.roundOff != 0) expectAmount(totals.roundOff, "round-off");
        EXPECT_NE(page.find(squeezed(MoneyFormat::string(totals.total, currency))), std::string::npos) << sample.name;
        if (totals.tax.total() == 0) continue;
        const auto expectTax = [&](const TaxSplit& tax, const std::string& what) {
            for (const std::int64_t part : {tax.cgst, tax.sgst, tax.igst, tax.other})
                if (part != 0) expectAmount(part, what);
        };
        for (const RateGroup& group : totals.byRate) {
            expectAmount(group.taxable, "taxable at a rate");
            expectTax(group.tax, "tax at a rate");
        }
        if (document.supply == SupplyType::simple) continue;
        for (const HSNGroup& group : totals.byHSN) {
            expectAmount(group.taxable, "taxable of " + group.hsn);
            expectTax(group.tax, "tax of " + group.hsn);
        }
    }
}

TEST(InvoicePDF, saysWhatTheLawAsksForOnEachKindAndSupply) {
    const std::string composition = "Composition taxable person, not eligible to collect tax on supplies";
    const std::string underLUT = "UNDER BOND OR LETTER OF UNDERTAKING WITHOUT PAYMENT OF INTEGRATED TAX";
    const std::string reference = "LUT reference (ARN): AD270326000417X";
    struct {
        const char *sample, *title;
        std::vector<std::string> says, saysNot;
    } const cases[] = {
        {"intrastate",
         "Tax Invoice",
         {"INV/26-27/001",
          "27BKXPD7312L1ZN",
          "27ABBFM4410Q1Z2",
          "27 · Maharashtra",
          "Reverse chargeNo",
          "CGST 9%",
          "SGST 9%",
          "CGST 2.5%",
          "PO-2214",
          "14 Oct 2026",
          "29 Oct 2026",
          "998391",
          "12.5 day",
          "10%",
          "Rupees Two Lakh Ten Thousand Four Hundred Thirty Three Only",
          "000451200078",
          "GODS0000451",
          "haladandink@godavari",
          "UPI limits may apply",
          "Mrunal Deshpande",
          "Thank you for the tea samples."},
         {composition, "IGST", "UTGST", "SUPPLY", "DRAFT", "PAID", "VOID", "Exchange rate", "SWIFT"}},
        {"interstate-paid",
         "Tax Invoice",
         {"PAID", "29 · Karnataka", "IGST 18%", "TDS deducted−24,700.00", "Received−2,66,760.00", "Balance due₹0.00"},
         {"CGST", "Pay by UPI"}},
        {"export-lut-usd",
         "Tax Invoice",
         {"SUPPLY MEANT FOR EXPORT " + underLUT, reference, "Outside India (96 · Other countries)", "United States",
          "1 USD = ₹86.40", "₹3,62,880.00", "Dollars Four Thousand Two Hundred Only"},
         {"IGST", "SEZ", "Pay by UPI"}},
        {"export-igst-eur",
         "Tax Invoice",
         {"SUPPLY MEANT FOR EXPORT ON PAYMENT OF INTEGRATED TAX", "IGST 18%", "Tax ID DE999000451", "Germany"},
         {"LUT", "UNDERTAKING"}},
        {"sez-lut",
         "Tax Invoice",
         {"SUPPLY TO SEZ UNIT OR SEZ DEVELOPER FOR AUTHORISED OPERATIONS " + underLUT, reference, "27 · Maharashtra"},
         {"EXPORT", "IGST"}},
        {"sez-igst", "Tax Invoice", {"AUTHORISED OPERATIONS ON PAYMENT OF INTEGRATED TAX", "IGST 18%"}, {"LUT"}},
        {"utgst", "Tax Invoice", {"CGST 9%", "UTGST 9%", "04 · Chandigarh"}, {"SGST", "IGST"}},
        {"exempt", "Bill of Supply", {"4901"}, {composition, "GST 0%", "Place of supply", "Reverse charge", "Tax 0%"}},
        {"composition",
         "Bill of Supply",
         {composition, "27BKXPD7312L1ZN"},
         {"Place of supply", "Reverse charge", "CGST"}},
        {"unregistered-jpy", "Invoice", {"¥150,000", "Japan"}, {composition, "GSTIN", "Place of supply"}},
        {"sales-tax-kwd",
         "Invoice",
         {"VAT 5%", "VAT no. 300451200078003", "KD 1,575.788", "SWIFTGODSKWKW", "IBANKW12GODS0000000000004512000780"},
         {"Dollars", "GSTIN", "Place of supply", "PAN"}},
        {"consumer-draft", "Tax Invoice", {"DRAFT", "State: 27 · Maharashtra"}, {"Pay by UPI", "INV/"}},
        {"void", "Tax Invoice", {"VOID"}, {"Pay by UPI", "Bank details"}},
        {"estimate",
         "Estimate",
         {"Valid until", "Prepared for", "EST/26-27/001"},
         {"Invoice", "Due", "Pay by UPI", "Bank"}},
        {"credit-note",
         "Credit Note",
         {"For invoiceINV/26-27/001", "Invoice date24 Sept 2026", "ReasonOne set of proofs was misprinted",
          "Total credit₹524.00"},
         {"Pay by UPI", "Due"}},
    };
    for (const auto& [name, title, says, saysNot] : cases) {
        const Fixtures::Sample sample = sampleNamed(name);
        EXPECT_EQ(InvoicePDF::title(sample.library, documentOf(sample)), title) << name;
        const std::string page = printed(textsOf(sample.library, documentOf(sample)));
        EXPECT_NE(page.find(squeezed(title)), std::string::npos) << name;
        for (const std::string& text : says)
            EXPECT_NE(page.find(squeezed(text)), std::string::npos) << name << " says “" << text << "” in " << page;
        for (const std::string& text : saysNot)
            EXPECT_EQ(page.find(squeezed(text)), std::string::npos) << name << " does not say “" << text << "”";
    }
}

TEST(InvoicePDF, anotherReaderFindsThePaymentLinkInTheCode) {
    const Fixtures::Sample sample = sampleNamed("intrastate");
    const std::string pdf = InvoicePDF::render(sample.library, documentOf(sample), std::nullopt);
    constexpr int widthAt150Dots = 1240;
    const std::vector<Image> pages = PDFPages::images(pdf, widthAt150Dots);
    ASSERT_EQ(pages.size(), 1u);
    const std::string read = readBack("/usr/bin/zbarimg -q --raw", ImageFile::png(pages[0]), "2>/dev/null", "page.png");
    EXPECT_EQ(read, UPI::linkFor(sample.library, documentOf(sample)).value() + "\n");
    EXPECT_NE(read.find("am=210433.00"), std::string::npos) << read;
}

TEST(InvoicePDF, showsNoCodeWhereNothingCanBePaid) {
    const Fixtures::Sample sample = sampleNamed("intrastate");
    Document document = documentOf(sample);
    document.state = DocState::void_;
    const auto pages = PDFPages::images(InvoicePDF::render(sample.library, document, std::nullopt), 1240);
    EXPECT_TRUE(QRCode::read(pages[0]).empty());
}

TEST(InvoicePDF, whatWasPaidAndCreditedComesOffWhatIsDue) {
    Fixtures::Sample sample = sampleNamed("credit-note");
    Document invoice = *sample.library.document(*documentOf(sample).linkedID);
    invoice.payments = {{invoice.id, invoice.issueDate, 15000000, 1500000, PaymentMethod::bank, "", {}, {}}};
    const std::string page = printed(textsOf(sample.library, invoice));
    for (const char* said : {"Total₹2,10,433.00", "Creditnotes−524.00", "Received−1,50,000.00", "TDSdeducted−15,000.00",
                             "Balancedue₹44,909.00"})
        EXPECT_NE(page.find(said), std::string::npos) << said << " in " << page;
    const auto pages = PDFPages::images(InvoicePDF::render(sample.library, invoice, std::nullopt), 1240);
    EXPECT_THAT(QRCode::read(pages[0]), ::testing::ElementsAre(::testing::HasSubstr("am=44909.00")));
    invoice.payments[0].amount = 21000000;
    EXPECT_NE(printed(textsOf(sample.library, invoice)).find("Toberefunded₹15,091.00"), std::string::npos);
}

TEST(InvoicePDF, aDescriptionOfAnyLengthRunsOnOverleafWithoutLosingALine) {
    Fixtures::Sample sample = sampleNamed("intrastate");
    Document document = documentOf(sample);
    for (const int lines : {1, 17, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 90, 180}) {
        document.lines[0].detail.clear();
        document.notes.clear();
        for (int i = 1; i <= lines; ++i) {
            document.lines[0].detail += "<d" + std::to_string(i) + ">\n";
            document.notes += "<n" + std::to_string(i) + "> ";
        }
        const std::vector<Box> texts = textsOf(sample.library, document);
        expectTidy(texts, std::to_string(lines) + " lines");
        const std::string page = printed(texts);
        for (int i = 1; i <= lines; ++i)
            for (const std::string& mark : {"<d" + std::to_string(i) + ">", "<n" + std::to_string(i) + ">"}) {
                const std::size_t at = page.find(mark);
                ASSERT_NE(at, std::string::npos) << lines << ": " << mark;
                EXPECT_EQ(page.find(mark, at + 1), std::string::npos) << lines << ": " << mark;
            }
    }
}

TEST(InvoicePDF, carriesTheSumOfAmountsFromPageToPage) {
    const Fixtures::Sample sample = sampleNamed("two-hundred-lines");
    const std::vector<Box> texts = textsOf(sample.library, documentOf(sample));
    const auto amountBeside = [&](std::size_t i) { return *MoneyFormat::parse(texts[i + 1].text, Currency::inr()); };
    std::int64_t sum = 0;
    int forward = 0, brought = 0;
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
        if (texts[i].text == "Carried forward") {
            ++forward;
            EXPECT_EQ(amountBeside(i), sum) << "page " << texts[i].page;
        } else if (texts[i].text == "Brought forward") {
            ++brought;
            EXPECT_EQ(amountBeside(i), sum) << "page " << texts[i].page;
        } else if (texts[i].text.starts_with("Icon ")) {
            const std::size_t line = std::stoul(texts[i].text.substr(5)) - 1;
            sum += DocMath::line(documentOf(sample).lines[line], documentOf(sample).supply).taxable;
        }
    }
    EXPECT_GT(forward, 4);
    EXPECT_EQ(brought, forward);
}

TEST(InvoicePDF, aLogoIsScaledToPrintAndABrokenOneIsLeftOut) {
    const Fixtures::Sample sample = sampleNamed("intrastate");
    const auto render = [&](const std::optional<Image>& logo) {
        return InvoicePDF::render(sample.library, documentOf(sample), logo);
    };
    const std::string without = render(std::nullopt);
    Image broken = Image::blank(40, 20);
    broken.pixels.resize(100);
    EXPECT_EQ(render(broken), without);
    EXPECT_EQ(render(Image{}), without);

    Image large = Image::blank(5000, 1250);
    for (int y = 0; y < large.height; ++y)
        for (int x = 0; x < large.width; ++x) {
            std::uint8_t* pixel = large.at(x, y);
            pixel[0] = static_cast<std::uint8_t>(x * 31 + y * 17 + (x * y) % 251);
            pixel[1] = pixel[2] = static_cast<std::uint8_t>(x / 20);
        }
    const std::string with = render(large);
    EXPECT_GT(with.size(), without.size());
    EXPECT_LT(with.size(), without.size() + 600'000);
    EXPECT_NE(readBack("/usr/bin/pdfimages -list", with, "").find(" 700 "), std::string::npos)
        << "168 points at 300 dots";
    for (const auto& [width, height] : {std::pair{3000, 2}, {2, 3000}})
        EXPECT_EQ(PDFPages::images(render(Image::blank(width, height)), 600).size(), 1u) << width;
}

TEST(InvoicePDF, figuresBeyondBeliefArePrintedWithoutSums) {
    Fixtures::Sample sample = sampleNamed("intrastate");
    Document document = documentOf(sample);
    document.lines[1].qtyMilli = std::numeric_limits<std::int64_t>::max();
    document.lines[1].priceMinor = std::numeric_limits<std::int64_t>::min();
    const std::vector<Box> texts = textsOf(sample.library, document);
    expectTidy(texts, "beyond belief");
    const std::string page = printed(texts);
    for (const char* said : {"Brandidentityforthetearange", "Illustration", "9223372036854775.807", "toolargetoaddup"})
        EXPECT_NE(page.find(said), std::string::npos) << said;
    for (const char* not_ : {"Total", "Amountinwords", "PaybyUPI"})
        EXPECT_EQ(page.find(not_), std::string::npos) << not_;
}

TEST(InvoicePDF, isDatedByItsDocumentAndNotByTheClock) {
    Fixtures::Sample sample = sampleNamed("intrastate");
    Document document = documentOf(sample);
    const auto created = [&] {
        return readBack("TZ=UTC /usr/bin/pdfinfo -isodates", InvoicePDF::render(sample.library, document, std::nullopt),
                        "");
    };
    document.createdAt = Instant{};
    EXPECT_NE(created().find("CreationDate:    2026-10-14T12:00:00"), std::string::npos) << created();
    document.createdAt = *parseInstant("2026-10-13T08:30:00Z");
    const std::string info = created();
    for (const char* said :
         {"CreationDate:    2026-10-13T08:30:00", "Title:           Tax Invoice INV/26-27/001",
          "Author:          Halad & Ink Studio", "Creator:         Tamba", "595.28 x 841.89 pts (A4)"})
        EXPECT_NE(info.find(said), std::string::npos) << said << " in " << info;
}

TEST(InvoicePDF, aPictureShowsTheFirstPage) {
    const Fixtures::Sample sample = sampleNamed("two-hundred-lines");
    auto canvas = PDFCanvas::bitmap(InvoicePDF::pageSize, 1);
    canvas.recordTexts();
    InvoicePDF::draw(canvas, sample.library, documentOf(sample), std::nullopt);
    const std::string page = printed(canvas.texts());
    EXPECT_NE(page.find("Page1of"), std::string::npos);
    EXPECT_EQ(page.find("Page2of"), std::string::npos);
}

}  // namespace
