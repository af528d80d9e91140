#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Model/Fields.h"
#include "tests/support/Refusal.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <simdjson.h>

#include <atomic>
#include <fstream>
#include <map>

/// Every file of tests/data/statements against expected.json beside it, which was worked out by hand.
namespace tamba {
namespace {

namespace dom = simdjson::dom;

const std::string folder = TEST_DATA "/statements/";

std::string text(dom::element object, const char* key, const char* otherwise = "") {
    std::string_view value;
    return object[key].get(value) ? otherwise : std::string(value);
}

std::optional<std::int64_t> number(dom::element object, const char* key) {
    std::int64_t value = 0;
    return object[key].get(value) ? std::nullopt : std::optional(value);
}

/// What differs between a line and what is expected of it; empty when nothing does.
std::string difference(const BankTransaction& line, dom::element wanted) {
    std::string result;
    const auto compare = [&](const char* key, const std::string& is) {
        std::string_view value;
        if (!wanted[key].get(value) && value != is) result += std::string(key) + " is “" + is + "” ";
    };
    compare("date", line.date.iso());
    compare("text", line.text);
    compare("reference", line.reference);
    if (line.amount != number(wanted, "amount")) result += "amount is " + std::to_string(line.amount);
    if (const auto balance = number(wanted, "balance"); balance && line.balance != balance) result += " other balance";
    return result;
}

TEST(StatementFiles, areReadAsAPersonReadsThem) {
    dom::parser parser;
    const dom::object files = parser.load(folder + "expected.json");
    std::size_t count = 0;
    for (const auto [name, wanted] : files) {
        SCOPED_TRACE(std::string(name));
        ++count;
        const auto order = fromWord<DateOrder>(text(wanted, "order", "dmy")).value();
        const Currency currency = Currency::of(text(wanted, "currency", "INR"));
        BankImport::Parsed parsed;
        try {
            parsed = BankImport::read(folder + std::string(name), order, currency);
        } catch (const BankImport::ImportError& error) {
            EXPECT_EQ(error.what(), text(wanted, "error"));
            continue;
        }
        EXPECT_EQ(text(wanted, "error"), "");
        EXPECT_EQ(parsed.skipped, number(wanted, "skipped"));
        EXPECT_EQ(parsed.skippedRows.size(), static_cast<std::size_t>(parsed.skipped));
        EXPECT_EQ(parsed.format, text(wanted, "format", parsed.format.c_str()));
        EXPECT_EQ(word(parsed.order), text(wanted, "read", std::string(word(order)).c_str()));
        EXPECT_EQ(!parsed.notes.empty(), !wanted["reported"].error());
        const auto breaks = static_cast<std::int64_t>(parsed.balanceBreaks.size());
        EXPECT_EQ(breaks, number(wanted, "breaks").value_or(breaks));
        const dom::array lines = wanted["lines"];
        ASSERT_EQ(parsed.transactions.size(), lines.size());
        std::size_t i = 0;
        for (const dom::element line : lines) {
            EXPECT_EQ(difference(parsed.transactions[i], line), "") << "line " << i;
            EXPECT_EQ(parsed.transactions[i++].source, parsed.format);
        }
    }
    std::size_t inFolder = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        inFolder += entry.path().filename() != "expected.json";
    EXPECT_EQ(count, inFolder);
}

/// A statement whose lines are known, in many shapes: what comes out is the truth, or something is said about it.
struct Cell {
    const char *date, *text, *out, *in, *balance;
};
constexpr Cell truth[] = {
    {"01/02/2026", "NORTHWIND", "", "5,000.00", "6,000.00"}, {"03/02/2026", "RENT", "1,200.00", "", "4,800.00"},
    {"05/02/2026", "TEA", "20.50", "", "4,779.50"},          {"05/02/2026", "ACME", "", "100.00", "4,879.50"},
    {"17/02/2026", "PAPER", "879.50", "", "4,000.00"},
};
const std::vector<std::pair<std::string, std::int64_t>> expected{{"2026-02-01", 500000},
                                                                 {"2026-02-03", -120000},
                                                                 {"2026-02-05", -2050},
                                                                 {"2026-02-05", 10000},
                                                                 {"2026-02-17", -87950}};

using Grid = std::vector<std::vector<std::string>>;

Grid grid() {
    Grid rows{{"Txn Date", "Description", "Debit", "Credit", "Balance"}};
    for (const Cell& c : truth) rows.push_back({c.date, c.text, c.out, c.in, c.balance});
    return rows;
}

std::string written(const Grid& rows) {
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? ",\"" : "\"") + row[i] + "\"";
        text += "\n";
    }
    return text;
}

bool isTruthOrReported(const std::string& text) {
    try {
        const auto parsed = BankImport::csv(text, DateOrder::dmy, Currency::inr());
        if (parsed.skipped > 0 || !parsed.notes.empty() || !parsed.balanceBreaks.empty()) return true;
        std::vector<std::pair<std::string, std::int64_t>> lines;
        for (const auto& line : parsed.transactions) lines.emplace_back(line.date.iso(), line.amount);
        return lines == expected;
    } catch (const BankImport::ImportError&) {
        return true;
    }
}

TEST(StatementFiles, neverTellAnotherStoryWithoutAWord) {
    ASSERT_EQ(BankImport::csv(written(grid()), DateOrder::dmy, Currency::inr()).balanceProof->closes(), true);
    // Every order of the columns.
    std::vector<std::size_t> places{0, 1, 2, 3, 4};
    do {
        Grid rows = grid();
        for (auto& row : rows) {
            const auto old = row;
            for (std::size_t i = 0; i < places.size(); ++i) row[i] = old[places[i]];
        }
        EXPECT_TRUE(isTruthOrReported(written(rows))) << written(rows);
        EXPECT_EQ(BankImport::csv(written(rows), DateOrder::dmy, Currency::inr()).transactions.size(), 5u);
    } while (std::next_permutation(places.begin(), places.end()));
    // Any cell blank, doubled, moved or exchanged with its neighbour; any row twice or gone; a comma too many.
    for (std::size_t r = 0; r < grid().size(); ++r) {
        for (std::size_t c = 0; c < 5; ++c) {
            for (int kind = 0; kind < 5; ++kind) {
                Grid rows = grid();
                std::string& cell = rows[r][c];
                if (kind == 0) cell.clear();
                if (kind == 1) cell += " " + cell;
                if (kind == 2) cell += "\",\"";
                if (kind == 3) std::swap(cell, rows[r][(c + 1) % 5]);
                if (kind == 4) rows[r].erase(rows[r].begin() + static_cast<std::ptrdiff_t>(c));
                // A narration may be anything, and what the first line began with is not known.
                if ((c == 1 && kind < 2) || (r == 1 && c == 2 && kind == 3)) continue;
                EXPECT_TRUE(isTruthOrReported(written(rows))) << written(rows);
            }
        }
        Grid twice = grid(), gone = grid();
        twice.insert(twice.begin() + static_cast<std::ptrdiff_t>(r), twice[r]);
        gone.erase(gone.begin() + static_cast<std::ptrdiff_t>(r));
        EXPECT_TRUE(isTruthOrReported(written(twice))) << written(twice);
        const bool inside = r > 1 && r + 1 < grid().size();
        EXPECT_TRUE(!inside || isTruthOrReported(written(gone))) << written(gone);
    }
    // Month first, and the year in two figures.
    Grid months = grid();
    for (auto& row : months)
        if (row[0][2] == '/') row[0] = row[0].substr(3, 2) + "/" + row[0].substr(0, 2) + row[0].substr(5);
    EXPECT_TRUE(isTruthOrReported(written(months)));
    for (auto& row : months)
        if (row[0][2] == '/') row[0] = row[0].substr(0, 6) + "26";
    EXPECT_TRUE(isTruthOrReported(written(months)));
}

TEST(StatementFiles, areBounded) {
    const auto csv = [](const std::string& text) {
        try {
            return BankImport::csv(text, DateOrder::dmy, Currency::inr()).skipped;
        } catch (const BankImport::ImportError&) {
            return -1;
        }
    };
    const std::string header = "Date,Description,Amount\n", line = "18/03/2026,Tea,-20.00\n";
    EXPECT_EQ(csv(header + line + "\"" + std::string(500'000, 'x')), 0);
    EXPECT_EQ(csv(header + line + "18/03/2026,x," + std::string(500'000, '9')), 1);
    EXPECT_EQ(csv(header + line + "18/03/2026,\"" + std::string(500'000, 'x') + "\",5"), 0);
    EXPECT_EQ(csv(std::string(31'000'000, ',')), -1);
    EXPECT_EQ(csv(header + line + std::string("18/03/2026,a\0b,-1\0.00\n", 22)), 1);
    std::string candidates;
    for (int i = 0; i < 2'000; ++i) candidates += "Date,Debit\n";
    EXPECT_EQ(csv(candidates), -1);

    std::string pages = header, rows = "<OFX>";
    for (int i = 0; i < 200'000; ++i) pages += "Date,Description,Amount\n";
    EXPECT_EQ(csv(pages + line), 0);  // the header once more on every page
    for (int i = 0; i < 1'100'000; ++i) rows += "<STMTTRN>";
    EXPECT_THROW((void)BankImport::ofx(rows, Currency::inr()), BankImport::ImportError);
    rows.clear();
    for (int i = 0; i < 1'100'000; ++i) rows += "T1\n^\n";
    EXPECT_THROW((void)BankImport::qif(rows, DateOrder::dmy, Currency::inr()), BankImport::ImportError);

    std::string deep = "<OFX>";
    for (int i = 0; i < 10'000; ++i) deep += "<STMTTRNRS><A>";
    deep += "<STMTTRN><DTPOSTED>20260801<TRNAMT>-1<NAME>&a;&amp;amp;amp;";
    EXPECT_EQ(BankImport::ofx(deep, Currency::inr()).transactions.at(0).text, "&a;&amp;");
    EXPECT_THROW((void)BankImport::gridoJSON(std::string(100'000, '['), DateOrder::dmy, Currency::inr()),
                 BankImport::ImportError);
}

TEST(StatementFiles, areLeftWhenSomebodyCancels) {
    const std::atomic<bool> cancelled = true;
    std::map<std::string, int> left;  // by kind of file
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        try {
            (void)BankImport::read(entry.path(), DateOrder::dmy, Currency::inr(), &cancelled);
            ADD_FAILURE() << entry.path();
        } catch (const BankImport::Cancelled&) {
            ++left[entry.path().extension()];
        } catch (const BankImport::ImportError&) {
        }
    }
    for (const char* kind : {".csv", ".ofx", ".qif", ".json", ".xlsx", ".xls"}) EXPECT_GT(left[kind], 0) << kind;
    const auto table = BankImport::table(written(grid()), "a.csv");
    const auto columns = BankImport::recognise(*table);
    EXPECT_THROW((void)BankImport::interpret(*table, columns, DateOrder::dmy, Currency::inr(), &cancelled),
                 BankImport::Cancelled);
}

TEST(StatementFiles, thatCannotBeOpenedSayWhy) {
    EXPECT_ANY_THROW((void)BankImport::read(folder + "none.csv", DateOrder::dmy, Currency::inr()));
    const testing::TemporaryFolder empty;
    testing::write(empty / "large.csv", "");
    std::filesystem::resize_file(empty / "large.csv", 70'000'000);
    const auto read = [&] { return BankImport::read(empty / "large.csv", DateOrder::dmy, Currency::inr()); };
    EXPECT_EQ(testing::refusal<BankImport::ImportError>(read), BankImport::ImportError::Code::tooLarge);
}

}  // namespace
}  // namespace tamba
