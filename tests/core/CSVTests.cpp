#include "TambaCore/Base/CSV.h"
#include "TambaCore/Base/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tamba {
namespace {

using Rows = std::vector<CSV::Row>;

Rows copied(const CSV::Views& views) {
    Rows rows;
    auto field = views.fields.begin();
    for (const std::size_t end : views.ends)
        for (rows.emplace_back(); field != views.fields.begin() + static_cast<std::ptrdiff_t>(end); ++field)
            rows.back().emplace_back(*field);
    return rows;
}

TEST(CSV, readsWhatBanksPrint) {
    const struct {
        const char* text;
        Rows rows;
    } cases[] = {
        {"", {}},
        {"\n\r\n\n", {}},
        {"Date;Narration;Amount\n1;a,b;2\n", {{"Date", "Narration", "Amount"}, {"1", "a,b", "2"}}},
        {"a,b;c\n", {{"a", "b;c"}}},                     // one of each: comma
        {"a\tb\n1,5\t2\n", {{"a", "b"}, {"1,5", "2"}}},  // tab, commas only below
        {"a\tb,c\n", {{"a\tb", "c"}}},                   // tab and a comma
        {"a;b\tc\n", {{"a", "b\tc"}}},
        {"abc", {{"abc"}}},
        {"\nDate;Amount\n", {{"Date;Amount"}}},  // the first line is empty and chooses the comma
        {"\xEF\xBB\xBF"
         "Date,Amount\n",
         {{"Date", "Amount"}}},
        {"a,b\r\nc,d\r\n", {{"a", "b"}, {"c", "d"}}},
        {"a\n\nb\n", {{"a"}, {"b"}}},
        {"a\n,\nb", {{"a"}, {"", ""}, {"b"}}},
        {"a,b\n\"x\r\ny\",z\n", {{"a", "b"}, {"x\r\ny", "z"}}},
        {"a\rb,c\r\r\nd", {{"ab", "c"}, {"d"}}},  // a lone CR disappears and ends nothing
        {"\"a\rb\"", {{"a\rb"}}},
        {"\"say \"\"hi\"\"\",b", {{"say \"hi\"", "b"}}},
        {"x\"a,b\"y,c", {{"xa,by", "c"}}},
        {"=\"5,000.00\",=\"\"", {{"=5,000.00", "="}}},
        {"\"never closed,\nb", {{"never closed,\nb"}}},
        {"a\n\"\"", {{"a"}}},
        {"a\n\"\"\nb", {{"a"}, {"b"}}},
        {"a,\"\"", {{"a", ""}}},
        {"a,", {{"a", ""}}},
        {" a , b ", {{" a ", " b "}}},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(CSV::parse(one.text), one.rows) << one.text;
        EXPECT_EQ(copied(CSV::views(one.text)), one.rows) << one.text;
    }
}

TEST(CSV, countsRowsAsASpreadsheetDoes) {
    EXPECT_EQ(CSV::read("\na\n\n\"b\n\nc\"\nd").numbers, (std::vector<std::size_t>{2, 4, 5}));
    EXPECT_FALSE(CSV::views("a,\"b\"\"\"").isOpen);
    EXPECT_TRUE(CSV::views("a,\"b\"\"").isOpen);
}

TEST(CSV, guardsBeforeItQuotes) {
    const struct {
        const char *field, *written;
    } cases[] = {
        {"", ""},
        {"plain", "plain"},
        {"=1+1", "'=1+1"},
        {"+91 98", "'+91 98"},
        {"@name", "'@name"},
        {"-42", "-42"},
        {"-250.00", "-250.00"},
        {"-.5", "-.5"},
        {"-", "'-"},
        {"-1.2.3", "'-1.2.3"},
        {"-note", "'-note"},
        {"-1,5", "\"'-1,5\""},
        {"=a,b", "\"'=a,b\""},
        {"a \"word\"", "\"a \"\"word\"\"\""},
        {"two\nlines", "\"two\nlines\""},
        {"cr\r", "\"cr\r\""},
    };
    for (const auto& one : cases) EXPECT_EQ(CSV::escape(one.field), one.written);
}

TEST(CSV, writesItsStrictFormAndReadsItBack) {
    CSV table({"Vendor", "Amount"});
    table.add({"Chai \"Point\"", "-12.50"});
    table.add({"Asha, Rao", "₹5", "extra"});
    table.add({});
    EXPECT_EQ(table.text(), "Vendor,Amount\r\n\"Chai \"\"Point\"\"\",-12.50\r\n\"Asha, Rao\",₹5,extra\r\n\r\n");

    const testing::TemporaryFolder folder;
    table.write(folder / "a.csv");
    const std::string bytes = testing::contents(folder / "a.csv");
    EXPECT_EQ(bytes, "\xEF\xBB\xBF" + table.text());
    EXPECT_EQ(CSV::parse(bytes), (Rows{table.header, table.rows[0], table.rows[1]}));
    EXPECT_THROW(table.write(folder / "none" / "a.csv"), FileError);
}

TEST(CSV, sortsByTheFirstFieldAndKeepsTheOrderOfEquals) {
    CSV table({"Day"});
    for (const auto& row : Rows{{"b", "1"}, {"a", "2"}, {}, {"b", "0"}, {"a"}}) table.add(row);
    EXPECT_EQ(table.sortedByFirstColumn().rows, (Rows{{}, {"a", "2"}, {"a"}, {"b", "1"}, {"b", "0"}}));
}

}  // namespace
}  // namespace tamba
