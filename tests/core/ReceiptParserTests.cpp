#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptParser.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

using namespace tamba;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;
using ReceiptParser::Source;

namespace {

constexpr Day today{2026, 10, 20};

TEST(ReceiptParser, takesMoneyAndNothingElseForAnAmount) {
    const std::vector<std::pair<const char*, std::vector<std::int64_t>>> cases{
        {"Grand Total ₹ 1,180.00", {118'000}},
        {"Rs.1,855.26", {185'526}},  // the mark's dot is no decimal point
        {"Rs6 rs7", {600}},          // marks are case-sensitive
        {"Total:₹500", {50'000}},
        {"(USD 12.50)", {1'250}},
        {"Z450 R 20", {45'000, 2'000}},  // a rupee sign misread
        {"CGST 9% 90.00", {9'000}},
        {"IGST @ 2.5 % 12.5", {1'250}},
        {"27AAPFU0939F1ZV 100.00", {10'000}},
        {"Mob 9876543210", {}},
        {"Bill No 1234567", {}},
        {"1234567.00", {123'456'700}},
        {"14/10/2026 50 2026-10-14", {5'000}},
        {"1,23,456.50 123,456.50 7", {12'345'650, 12'345'650, 700}},
        {"2 x -50.00", {200, -5'000}},
        {"A5 RM9.00 10,5678", {}},
        {"9,99,99,99,99,99,99,999.00 3", {300}},      // beyond belief
        {"999,999,999,999,999,999,999.00 4", {400}},  // does not fit
    };
    for (const auto& [line, amounts] : cases)
        EXPECT_THAT(ReceiptParser::amounts(line), ElementsAreArray(amounts)) << line;
}

TEST(ReceiptParser, walksToTheTotalAndAddsUpTheTax) {
    struct Case {
        Lines lines;
        std::optional<std::int64_t> total, tax;
        TaxSplit split;
        bool keyword = true;
    };
    const std::vector<Case> cases{
        {{"Subtotal 1,000.00", "CGST 9% 90.00", "SGST 9% 90.00", "Grand Total 1,180.00"},
         118'000,
         18'000,
         {9'000, 9'000, 0, 0}},
        {{"TOTAL", "₹ 2,360.00"}, 236'000, {}, {}},
        {{"Total 500.00", "Amount Paid 480.00"}, 48'000, {}, {}},
        {{"Total GST 180.00", "Total 1,180.00"}, 118'000, 18'000, {}},
        {{"Masala Dosa 80.00", "Coffee 40.00"}, 8'000, {}, {}, false},
        {{"no figure at all"}, {}, {}, {}, false},
        {{}, {}, {}, {}, false},
        {{"Total 10.00 12.00", "Total 11.00"}, 1'200, {}, {}},                // right-most; a tie goes to the larger
        {{"Total 100.00", "Grand Total 90.00"}, 9'000, {}, {}},               // the weight, not the size
        {{"Total Amount Payable 70.00", "Amount Due 80.00"}, 7'000, {}, {}},  // first keyword of the table: 9
        {{"Grand Total", "Rounded 3", "Total 9.00"}, 300, {}, {}},            // borrows the next line whatever it is
        {{"Total", "IGST 18.00"}, 1'800, 1'800, {0, 0, 1'800, 0}},            // which is still walked itself
        {{"Total items 4", "Total savings 900.00", "Taxable value 700.00"}, 90'000, {}, {}, false},
        {{"Total tax 5.00", "Total tax 6.00", "CGST 2.00", "Total 106"}, 10'600, 600, {200, 0, 0, 0}},
        {{"VAT 5.00", "Sales Tax 2.50", "Total 57.50"}, 5'750, 750, {0, 0, 0, 750}},
        {{"VAT 5.00", "UTGST 3.00", "CGST 3.00", "Total 56.00"},
         5'600,
         600,
         {300, 300, 0, 0}},  // other goes beside a split
        {{"Tax invoice 12", "GSTIN 5", "GST incl. 7.00", "Total 90"}, 9'000, {}, {}},
        {{"Total 500.00", "Grand Total -20.00"}, 50'000, {}, {}},    // what was paid is not negative
        {{"Grand Total:-1,180.00", "Item 20.00"}, 118'000, {}, {}},  // a dash behind the label
    };
    for (const Case& c : cases) {
        const auto read = ReceiptParser::amounts(c.lines);
        SCOPED_TRACE(testing::PrintToString(c.lines));
        EXPECT_EQ(read.total, c.total);
        EXPECT_EQ(read.tax, c.tax);
        EXPECT_EQ(read.split, c.split);
        EXPECT_EQ(read.keyword, c.keyword);
    }
}

TEST(ReceiptParser, findsDatesInTextOrder) {
    const Day day{2026, 10, 14};
    struct Case {
        const char* text;
        DateOrder order;
        std::vector<Day> dates;
    };
    const std::vector<Case> cases{
        {"2026-10-14 2026/10/14 2026.10.14", DateOrder::dmy, {day, day, day}},
        {"14/10/2026 14-10-26 14.10.2026", DateOrder::dmy, {day, day, day}},
        {"10/14/2026", DateOrder::mdy, {day}},
        {"26/10/14 14/10/2026", DateOrder::ymd, {day, day}},
        {"10/14/2026", DateOrder::dmy, {}},  // `dates` never tries another order
        {"14 Oct 2026, 14th October 26, 14-OCT-2026, 14Oct2026", DateOrder::dmy, {day, day, day, day}},
        {"October 14, 2026; Oct. 14,2026; OCTOBER 14 , 2026", DateOrder::dmy, {day, day, day}},
        {"1 sept 2026", DateOrder::dmy, {{2026, 9, 1}}},
        {"March 3, 2026 to 04/03/2026", DateOrder::dmy, {{2026, 3, 3}, {2026, 3, 4}}},
        {"30/02/2026 32/01/2026 14/13/2026", DateOrder::dmy, {}},
        {"112/10/2026 14/10/20261", DateOrder::dmy, {}},
        {"", DateOrder::dmy, {}},
    };
    for (const Case& c : cases) EXPECT_THAT(ReceiptParser::dates(c.text, c.order), ElementsAreArray(c.dates)) << c.text;
}

TEST(ReceiptParser, prefersTheReceiptsOwnDate) {
    const Day day{2026, 10, 14};
    const std::vector<std::pair<Lines, std::optional<Day>>> cases{
        {{"12/10/2026", "Date: 14/10/2026"}, day},
        {{"Order Date: 10/10/2026  Invoice Date: 14/10/2026"}, day},
        {{"Start Date 15/10/2026", "Booking Date 14/10/2026"}, day},
        {{"Invoice Date   Due Date", "14/10/2026   18/10/2026"}, day},
        {{"Due Date   Invoice Date", "18/10/2026   14/10/2026"}, day},
        {{"Mfg Dt 01/10/2026", "Exp Dt 19/10/2026", "14/10/2026 10:22"}, day},
        {{"Valid till: 15/10/2026", "Bill Dt.14/10/2026"}, day},
        {{"Date: 14/10/2027", "14/10/2026"}, day},  // not in the future …
        {{"Date: 14/10/2006", "14/10/2026"}, day},  // … nor twelve years old, while there is another
        {{"Date: 14/10/2027"}, Day{2027, 10, 14}},
        {{"Date: 10/14/2026"}, day},  // the other order, when this one gives nothing
        {{"2 Decaf 25", "14/10/2026"}, day},
        {{"Order date 13/10/2026", "14/10/2026"}, Day{2026, 10, 13}},
        {{"nothing"}, std::nullopt},
    };
    for (const auto& [lines, expected] : cases)
        EXPECT_EQ(ReceiptParser::date(lines, DateOrder::dmy, today), expected) << testing::PrintToString(lines);
}

TEST(ReceiptParser, takesTheFirstUsableLineForTheVendor) {
    const std::vector<std::pair<Lines, const char*>> cases{
        {{"TAX INVOICE", "*** Chai Point ***", "MG Road"}, "Chai Point"},
        // Noise counts at the start of a word, where it is common in names as a whole word.
        {{"Hotel Annam"}, "Hotel Annam"},
        {{"Medicines & More"}, "Medicines & More"},
        {{"Border Roads Cafe"}, "Border Roads Cafe"},
        {{"Cinema Paradiso"}, "Cinema Paradiso"},
        {{"Mobile World"}, "Mobile World"},
        {{"Dates & Nuts"}, "Dates & Nuts"},
        {{"Tel: 020 2565", "Mob 98220", "Telephone 1", "Mobile No: 2", "Dated today", "CIN U123", "Orders", "Asha"},
         "Asha"},
        {{"hello@asha.in", "asha.in/www", "Asha Stores"}, "Asha Stores"},
        {{"Subject to Pune Jurisdiction  Mob: 98220", "SHARMA ELECTRICALS  Mob: 98220", "x"}, "SHARMA ELECTRICALS"},
        {{"ASHA DESIGNS        TAX INVOICE", "x"}, "ASHA DESIGNS"},
        {{"Table 4  Bill No 12", "Cash Memo  Asha & Co", "Asha"}, "Asha"},
        // Registration numbers go.
        {{"ASHA CO. (M) BHD (123456-H)"}, "ASHA CO. (M) BHD"},
        {{"Asha's Bakery S/B 234567-U (PQR)"}, "Asha's Bakery S/B"},
        {{"Asha Stores (Reg. No 12/AB-3)"}, "Asha Stores"},
        {{"Asha Stores Co. Reg. No: 234567-D"}, "Asha Stores"},
        {{"Studio Nine 999", "x"}, "Studio Nine 999"},
        {{"Cafe 1947"}, "Cafe 1947"},
        // Legal forms.
        {{"ASHA BOOKS", "CO. (M) SDN BHD", "Address"}, "ASHA BOOKS CO. (M) SDN BHD"},
        {{"Asha Textiles", "PVT LTD"}, "Asha Textiles PVT LTD"},
        {{"Chai Point", "Tea Leaf Foods Pvt Ltd"}, "Chai Point"},
        {{"Meru Petrol Baner 2", "Lot 7", "Meru Fuel Enterprise"}, "Meru Fuel Enterprise"},
        {{"Kothrud Branch", "Bill to: Acme Pvt Ltd"}, "Kothrud Branch"},
        // Lines that are nobody's name.
        {{"Thank you", "Customer Copy", "CASH SALE", "Please visit again", "Asha"}, "Asha"},
        {{"Fwd: Trip", "Hi Asha,", "Your trip on Monday", "From", "Copy Centre"}, "Copy Centre"},
        {{"Your Saturday trip with Zipride", "Payment Summary", "---- Forwarded message ----", "Asha"}, "Asha"},
        {{"Received from Ms. Rao", "the sum of Rupees Eighteen Thousand only", "towards rent of Flat 3B",
          "for the month of May", "Landlord: R. Venkat"},
         "R. Venkat"},
        {{"This is a sentence that goes on for more than ten words", "Asha"}, "Asha"},
        {{"|| Shree Ganeshay Namah ||", "!! Om !!", "Sharma Electricals"}, "Sharma Electricals"},
        {{"3180303", "B-12/4567", "# 12", "Asha"}, "Asha"},
        {{"Sold By :     Billing Address :", "Appliance World Retail Ltd     Asha Rao"}, "Appliance World Retail Ltd"},
        {{"Customer Name: Asha", "Restaurant Name: Anand Bhavan"}, "Anand Bhavan"},
        {{"Restaurant", "Anand Bhavan"}, "Anand Bhavan"},
        {{"चाय की दुकान"}, "चाय की दुकान"},
        {{"--", "12.00", ""}, ""},
        {{}, ""},
    };
    for (const auto& [lines, expected] : cases)
        EXPECT_EQ(ReceiptParser::vendor(lines), expected) << testing::PrintToString(lines);
}

TEST(ReceiptParser, passesOverMisreadLogosOfPicturesOnly) {
    for (const char* logo : {"Aeze9g", "ee ee eee ee", "ae VEO,", "ZIP Or2XoI!12", "HOB (2 DAZ IsG"}) {
        EXPECT_EQ(ReceiptParser::vendor({logo, "Asha Stores"}, Source::recognised), "Asha Stores") << logo;
        EXPECT_NE(ReceiptParser::vendor({logo, "Asha Stores"}, Source::text), "Asha Stores") << logo;
        EXPECT_NE(ReceiptParser::vendor({logo}, Source::recognised), "") << logo;
    }
    for (const char* name : {"KFC", "Cafe coffee day", "D MART", "MR. X.Y. (M) SDN BHD", "Bank of Baroda"})
        EXPECT_EQ(ReceiptParser::vendor({name, "Asha Stores"}, Source::recognised), name);
}

TEST(ReceiptParser, takesFromAMessageWhatReadsAsAName) {
    for (const char* text : {"Booking confirmed: QX7T2K", "Payment received for plan Pro", "The Zipride team", "TOTAL",
                             "Amount paid ₹499.00", "Consumer No: 1029384756", "See you soon!"}) {
        EXPECT_EQ(ReceiptParser::vendor({text, "Asha Stores"}, Source::message), "Asha Stores") << text;
        EXPECT_EQ(ReceiptParser::vendor({text}, Source::message), "") << text;
    }
    for (const char* name : {"Zipride", "Bank of the South", "Rao & Sons (Pune)", "24 Seven", "चाय की दुकान"})
        EXPECT_EQ(ReceiptParser::vendor({"Order confirmed", name, "Asha"}, Source::message), name);
    EXPECT_EQ(ReceiptParser::vendor({"Sold by: Asha Retail LLP"}, Source::message), "Asha Retail LLP");
}

TEST(ReceiptParser, readsTheGSTINAndMendsItOnPicturesOnly) {
    const std::string right = "27AAPFU0939F1ZV";
    EXPECT_EQ(ReceiptParser::gstin({"x", "gstin: 27aapfu0939f1zv", "29AAGCB7383J1Z4"}), right);
    EXPECT_EQ(ReceiptParser::gstin({"GSTIN 27AAPFU0939F1Z"}), "");
    EXPECT_EQ(ReceiptParser::gstin({"27AAPFU0939F1ZX"}, Source::recognised), "27AAPFU0939F1ZX");  // as printed
    EXPECT_EQ(ReceiptParser::gstin({"27AAPFUO939FIZV"}, Source::recognised), right);
    EXPECT_EQ(ReceiptParser::gstin({"27AAPFU0939F]ZV"}, Source::recognised), right);
    EXPECT_EQ(ReceiptParser::gstin({"27AAPFUO939FIZV"}, Source::text), "");
    EXPECT_EQ(ReceiptParser::gstin({"OOIIIIIOOOOIOZO"}, Source::recognised), "");
}

TEST(ReceiptParser, namesTheCurrencyByItsMark) {
    const std::vector<std::pair<const char*, std::optional<std::string>>> cases{
        {"Total ₹ 500", "INR"},
        {"Rs.500", "INR"},
        {"Total INR 500", "INR"},
        {"RS 500", "INR"},
        {"$12.00", "USD"},
        {"USD 12", "USD"},
        {"US$ 12", "USD"},
        {"S$ 12", "SGD"},
        {"12,00 €", "EUR"},
        {"£3", "GBP"},
        {"AED 40.00", "AED"},
        {"SGD40", "SGD"},
        {"RM 40.00", {}},
        {"R 40 Z 40", {}},
        {"EUROPE INRI Mrs. X", {}},
        {"Rs 5 Rs 6 $1", "INR"},
        {"", {}},
    };
    for (const auto& [text, code] : cases) EXPECT_EQ(ReceiptParser::currency(text), code) << text;
}

TEST(ReceiptParser, doubtsWhatDeservesALook) {
    const std::string date = "Date 14/10/2026";
    const std::vector<std::pair<Lines, std::vector<Doubt>>> cases{
        {{"Asha", date, "Sub Total 100.00", "CGST 9.00", "SGST 9.00", "Total 118.00"}, {}},
        {{"Asha", date, "Sub Total 100.00", "CGST 2.50", "SGST 2.50", "Round Off -0.40", "Total 104.60"}, {}},
        {{"Asha", date, "Subtotal 100.00", "Discount 10.00", "Delivery charge 30.00", "Total 120.00"}, {}},
        {{"Asha", date, "Subtotal 118.00", "GST incl. 18.00", "Total 118.00"}, {}},
        {{"Asha", date, "Sub Total 100.00", "CGST 9.00", "SGST 9.00", "Total 2118.00"}, {Doubt::sumsDoNotClose}},
        {{"Asha", date, "CGST 9.00", "SGST 90.00", "Total 700.00"}, {Doubt::sumsDoNotClose}},
        {{"Asha", date, "Tax 99.00", "Total 118.00"}, {Doubt::sumsDoNotClose}},
        {{"Asha", date, "CGST 9.00", "Total 118.00"}, {Doubt::sumsDoNotClose}},
        {{"Asha", "Total 118.00"}, {Doubt::noDate}},
        {{"Asha", "10/14/2026", "Total 118.00"}, {Doubt::otherDateOrder}},
        {{"Asha", "14/10/2031", "Total 118.00"}, {Doubt::unlikelyDate}},
        {{"Asha", date, "118.00"}, {Doubt::totalWithoutKeyword}},
        {{"Asha"}, {Doubt::noDate, Doubt::noTotal}},
    };
    for (const auto& [lines, doubts] : cases)
        EXPECT_THAT(ReceiptParser::parse(lines, DateOrder::dmy, today).doubts, ElementsAreArray(doubts))
            << testing::PrintToString(lines);
}

TEST(ReceiptParser, looksAtABoundedPartOfAHostileText) {
    Lines long_{"Asha", "Total 12.00"};
    for (const char* pattern : {"1", "1,", "a ", "(", "₹", "\xff", "jan", "1/1/", "O"}) {
        std::string line;
        while (line.size() < 1'000'000) line += pattern;
        long_.push_back(line);
    }
    ReceiptGuess guess = ReceiptParser::parse(long_, DateOrder::dmy, today, Source::recognised);
    EXPECT_EQ(guess.total, 1'200);
    EXPECT_LT(guess.text.size(), 100'000u);

    Lines many(100'000, "Total CGST 9,99,99,99,99,999.00");
    guess = ReceiptParser::parse(many, DateOrder::dmy, today);
    EXPECT_EQ(guess.total, 99'999'999'999'900);
    EXPECT_EQ(guess.tax, std::nullopt);  // a sum beyond belief is none
    EXPECT_LT(guess.text.size(), 1'000'000u);
}

// The forty public receipts are not part of the project.
TEST(ReceiptParser, readsTheSharedReceipts) {
    const std::filesystem::path folder = SHARED_RECEIPTS;
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no shared receipts";
    static const Text::Pattern field("\"(company|date|total)\":\\s*\"([^\"]*)\"");
    int totals = 0, dates = 0, vendors = 0;
    for (const std::string& name : Files::names(folder / "key")) {
        std::string company;
        std::optional<Day> day;
        std::optional<std::int64_t> total;
        for (const auto& match : field.all(Files::read(folder / "key" / name))) {
            if (match[1] == "company") company = match[2];
            if (match[1] == "total") total = MoneyFormat::parse(Text::trim(match[2], "RM$ "), Currency::inr());
            if (match[1] == "date") {
                const auto found = ReceiptParser::dates(match[2], DateOrder::dmy);
                ASSERT_EQ(found.size(), 1u) << name;
                day = found.front();
            }
        }
        std::vector<std::pair<TextBox, std::string>> boxes;
        for (const std::string& line :
             Text::splitLines(Files::read(folder / "box" / (name.substr(0, name.size() - 4) + "csv")))) {
            static const Text::Pattern row(R"(^(\d+),(\d+),\d+,\d+,(\d+),(\d+),\d+,\d+,(.*)$)");
            const auto cells = row.first(line);
            if (!cells) continue;
            const auto number = [&](std::size_t group) {
                return static_cast<double>(std::stoi(std::string((*cells)[group])));
            };
            boxes.push_back(
                {{number(1), number(2), number(3) - number(1), number(4) - number(2)}, std::string((*cells)[5])});
        }
        const auto guess = ReceiptParser::parse(ReceiptReader::joinRows(boxes), DateOrder::dmy, day->addingDays(1));
        totals += guess.total == total;
        dates += guess.date == day;
        vendors += Text::upper(guess.vendor) == company;
    }
    EXPECT_GE(totals, 31);
    EXPECT_LE(totals, 35);
    EXPECT_GE(dates, 39);
    EXPECT_GE(vendors, 34);
}

}  // namespace
