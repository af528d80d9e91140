#include "TambaCore/Reports/TablePDF.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tamba {
namespace {

Table owed(int rows) {
    Table table;
    table.title = "Unpaid invoices";
    table.subtitle = "On 21 Nov 2026";
    table.columns = {{"Number"}, {"Client"}, {"Due", Table::Kind::day}, {"Balance", Table::Kind::amount}};
    for (int i = 0; i < rows; ++i)
        table.rows.push_back(
            {{"INV/26-27/" + std::to_string(1000 + i), "Deepmala Ceramics and Terracotta Private Limited",
              Day{2026, 10, 1 + i % 28}, Table::Amount{123'456'700 + i, "INR"}},
             {},
             {}});
    table.rows.push_back({{"Total", {}, {}, Table::Amount{99'999'999'900, "INR"}}, {}, {}, true});
    table.notes.emplace_back("1 record is left out.");
    return table;
}

std::vector<PDFCanvas::TextBox> printed(const TablePDF::Report& report) {
    auto canvas = PDFCanvas::pdf(TablePDF::pageSize(report.tables), report.title, "Studio", {});
    canvas.recordTexts();
    Business business;
    business.name = "Kagaz Studio";
    TablePDF::draw(canvas, business, report);
    return canvas.texts();
}

std::size_t count(const std::vector<PDFCanvas::TextBox>& texts, std::string_view wanted) {
    return static_cast<std::size_t>(
        std::count_if(texts.begin(), texts.end(), [&](const auto& text) { return text.text == wanted; }));
}

}  // namespace

TEST(TablePDF, everyRowStandsOnceUnderTitlesThatComeAgainOnEachPage) {
    const auto texts = printed({"Money owed", {owed(120)}, {2026, 11, 21}});
    const int pages = texts.back().page;
    ASSERT_GT(pages, 2);
    for (int i = 0; i < 120; ++i) EXPECT_EQ(count(texts, "INV/26-27/" + std::to_string(1000 + i)), 1U);
    EXPECT_EQ(count(texts, "Balance"), static_cast<std::size_t>(pages));
    EXPECT_EQ(count(texts, "Money owed"), static_cast<std::size_t>(pages));
    EXPECT_EQ(count(texts, "₹99,99,99,999.00"), 1U);
    EXPECT_EQ(count(texts, "1 record is left out."), 1U);
    EXPECT_EQ(count(texts, "Page 2 of " + std::to_string(pages)), 1U);
    EXPECT_EQ(count(texts, "As of 21 Nov 2026"), static_cast<std::size_t>(pages));
}

TEST(TablePDF, figuresAreNeverBrokenNorRunIntoEachOther) {
    Table wide = owed(3);
    for (int i = 0; i < 7; ++i) {
        wide.columns.push_back({"Tax of the month, number " + std::to_string(i), Table::Kind::amount});
        for (Table::Row& row : wide.rows) row.cells.emplace_back(Table::Amount{9'876'543'210, "INR"});
    }
    for (const Table& table : {owed(3), wide}) {
        const Size page = TablePDF::pageSize({table});
        EXPECT_EQ(page.width > page.height, table.columns.size() > 4);
        for (const auto& text : printed({"Money owed", {table}, {2026, 11, 21}})) {
            EXPECT_LE(text.cell.x + text.cell.width, page.width - 40) << text.text;
            if (text.text.starts_with("₹")) {
                EXPECT_LE(text.box.height, 2 * text.style.font.size) << text.text;
                EXPECT_LE(text.box.width, text.cell.width + 0.5) << text.text;
            }
        }
    }
}

TEST(TablePDF, nothingAndVeryLongNamesPrintToo) {
    EXPECT_FALSE(printed({"Report", {}, {2026, 11, 21}}).empty());
    Table odd;
    odd.title = "Odd";
    odd.columns = {{"Name"}, {"Amount", Table::Kind::amount}};
    odd.rows.push_back({{std::string(4000, 'x')}, {}, {}});  // and a cell that is missing
    const std::string once = TablePDF::render({}, {"Odd", {odd, Table{}}, {2026, 11, 21}});
    EXPECT_TRUE(once.starts_with("%PDF"));
    EXPECT_EQ(once, TablePDF::render({}, {"Odd", {odd, Table{}}, {2026, 11, 21}}));
}

}  // namespace tamba
