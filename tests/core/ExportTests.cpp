#include "TambaCore/Base/CSV.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Reports/BundleNames.h"
#include "TambaCore/Reports/Export.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/YearEnd.h"
#include "tests/support/Books.h"
#include "tests/support/RandomBooks.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <set>

namespace tamba {
namespace {

using tamba::testing::contents;
using tamba::testing::TemporaryFolder;

constexpr Day today{2027, 5, 10};
constexpr FinancialYear year{2026, 4};

std::string run(const std::string& command) {
    return tamba::testing::readBack("sh -c '" + command + "' -", "", "2>&1");
}

/// Every file below a folder, by its name in it.
std::map<std::string, std::string> filesIn(const Files::Path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) files[entry.path().lexically_relative(folder).generic_string()] = contents(entry);
    return files;
}

/// Books in a folder, with an invoice, a void one, a credit note, two payments and some receipts.
struct Case {
    Case() {
        library = tamba::testing::aBook();
        const UUID first = tamba::testing::billed(library, 10'000'00, {2026, 10, 1}, 1800);
        const UUID second = tamba::testing::billed(library, 5'000'00, {2027, 3, 20}, 1800);
        const UUID last = tamba::testing::billed(library, 700'00, {2026, 11, 1}, 1800);
        library = Books::voidDocument(library, last, "Typed twice");
        pay(first, {2026, 10, 20}, 10'800'00, 1'000'00);
        pay(second, {2027, 4, 2}, 5'900'00, 0);
        addExpense("Chai Point", "Receipts/2026-10/chai.jpg", {2026, 10, 14});
        addExpense("CHAI POINT", "Receipts/2026-10/chai-2.JPG", {2026, 10, 14});
        tamba::testing::write(books / "Receipts/2026-10/chai.jpg", "one");
        tamba::testing::write(books / "Receipts/2026-10/chai-2.JPG", "two");
    }
    void pay(const UUID& id, Day date, std::int64_t amount, std::int64_t tds) {
        library.documents.update(indexOf(library.documents, id), [&](Document& d) {
            d.payments.push_back(Payment::make(date, amount, tds, PaymentMethod::bank));
        });
    }
    void addExpense(std::string vendor, std::string path, Day date) {
        Expense expense = tamba::testing::spent(std::move(vendor), 118'00, date);
        expense.attachments.push_back(Attachment::make(std::move(path), ""));
        library.expenses.append(expense);
    }
    std::optional<Export::YearEnd> write(const Export::Progress& progress = {}) const {
        return Export::yearEnd(library, books.path(), year, today, into.path(), progress);
    }

    Library library;
    TemporaryFolder books, into;
};

std::vector<CSV::Row> rowsOf(const YearEnd::Bundle& bundle, const std::string& name) {
    for (const auto& file : bundle.files)
        if (file.name == name) return CSV::parse(file.bytes({}));
    ADD_FAILURE() << name;
    return {};
}

/// Sum of a column in paise; what has no amount counts 0.
std::int64_t sumOf(const std::vector<CSV::Row>& rows, const std::string& title) {
    std::size_t column = 0;
    while (column < rows.at(0).size() && rows[0][column] != title) ++column;
    EXPECT_LT(column, rows[0].size()) << title;
    std::int64_t sum = 0;
    for (std::size_t i = 1; i < rows.size(); ++i)
        sum += MoneyFormat::parse(rows[i].at(column), Currency::inr()).value_or(0);
    return sum;
}

TEST(Export, aBundleIsWholeAndTheSameOnEveryMachine) {
    const Case one;
    const char* const zone = std::getenv("TZ");
    const std::string before = zone ? zone : "";
    std::map<std::string, std::string> first;
    std::string zip;
    for (const char* place : {"Asia/Kolkata", "America/New_York"}) {
        ::setenv("TZ", place, 1);
        ::tzset();
        const auto written = one.write();
        ASSERT_TRUE(written);
        EXPECT_EQ(written->folder.filename(), "Studio Tamarind 2026-27");
        EXPECT_TRUE(written->missing.empty());
        const auto files = filesIn(written->folder);
        EXPECT_EQ(files.size(), written->files);
        EXPECT_EQ(filesIn(one.into.path()).size(), files.size() + 1) << "the folder, its zip and nothing else";
        const std::string packed = contents(written->zip);
        EXPECT_TRUE(first.empty() || (files == first && packed == zip)) << place;
        first = files;
        zip = packed;
    }
    zone ? ::setenv("TZ", before.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
    EXPECT_EQ(first.at("Receipts/2026-10-14 CHAI POINT.JPG"), "two");
    EXPECT_EQ(first.at("Receipts/2026-10-14 Chai Point-2.jpg"), "one");
    for (const char* page : {"Invoices/INV-26-27-001.pdf", "Invoices/INV-26-27-003.pdf", "Summary.pdf"})
        EXPECT_TRUE(first.at(page).starts_with("%PDF")) << page;

    const std::string folder = one.into.path().string();
    EXPECT_NE(run("cd \"" + folder + "\" && unzip -tq *.zip").find("No errors detected"), std::string::npos);
    EXPECT_EQ(run("cd \"" + folder + "\"/Studio* && sha256sum -c --quiet Manifest.txt"), "");
    // What is unpacked has the names and bytes of the folder.
    run("cd \"" + folder + "\" && mkdir unpacked && unzip -q *.zip -d unpacked");
    EXPECT_EQ(filesIn(one.into / "unpacked/Studio Tamarind 2026-27"), first);
}

TEST(Export, theTablesAddUpToTheReports) {
    const Period period = Period::fy(year);
    for (const std::uint64_t seed : {1, 2, 3}) {
        Library library = tamba::testing::randomBooks(seed);
        library.business.taxID = "27AAPFU0939F1ZV";
        const Reports reports{BookTables::asOf(library, year.end()), year.end()};
        const YearEnd::Bundle bundle = YearEnd::plan(library, year, today, {});
        const std::int64_t income = reports.income(IncomeBasis::accrual, period);
        const auto profit = rowsOf(bundle, "Profit and loss.csv");
        EXPECT_EQ(sumOf(rowsOf(bundle, "Invoices.csv"), "Taxable, INR") -
                      sumOf(rowsOf(bundle, "Credit notes.csv"), "Taxable, INR"),
                  income);
        EXPECT_EQ(sumOf(profit, "Income by invoice date"), income);
        EXPECT_EQ(sumOf(profit, "Income by payment received"), reports.income(IncomeBasis::cash, period));
        EXPECT_EQ(sumOf(profit, "Profit by invoice date"), income - reports.spending(period));
        EXPECT_EQ(sumOf(rowsOf(bundle, "Clients.csv"), "Taxable less credit notes"), income);
        EXPECT_EQ(sumOf(rowsOf(bundle, "Clients.csv"), "Received"),
                  sumOf(rowsOf(bundle, "Payments.csv"), "Received, INR"));
        EXPECT_EQ(sumOf(rowsOf(bundle, "Expenses.csv"), "Cost, INR"), reports.spending(period));
        EXPECT_EQ(sumOf(rowsOf(bundle, "Expenses by category.csv"), "Amount"), reports.spending(period));
        EXPECT_EQ(sumOf(rowsOf(bundle, "Outstanding.csv"), "Balance"),
                  sumOf(rowsOf(bundle, "Outstanding by age.csv"), "Amount"));
    }
}

TEST(Export, paymentsOfNextYearBelongToNextYear) {
    Case one;
    const YearEnd::Bundle bundle = YearEnd::plan(one.library, year, today, {});
    EXPECT_EQ(sumOf(rowsOf(bundle, "Payments.csv"), "Received"), 10'800'00);
    EXPECT_EQ(sumOf(rowsOf(bundle, "Outstanding.csv"), "Balance"), 5'900'00) << "owed on 31 March";
    const auto invoices = rowsOf(bundle, "Invoices.csv");
    ASSERT_EQ(invoices.size(), 4U);
    EXPECT_EQ(invoices[2].back(), "Void");
    EXPECT_EQ(sumOf(invoices, "Total"), 17'700'00) << "a void invoice counts 0";
    EXPECT_EQ(invoices[3].back(), "Sent") << "not due before April";
    EXPECT_EQ(invoices[3][5], "27 · Maharashtra");

    one.library.documents.update(0, [](Document& d) { d.supply = SupplyType::exportLUT; });
    EXPECT_EQ(rowsOf(YearEnd::plan(one.library, year, today, {}), "Invoices.csv")[1][5], "96 · Outside India");
    const auto next = YearEnd::plan(one.library, {2027, 4}, today, {});
    EXPECT_EQ(sumOf(rowsOf(next, "Payments.csv"), "Received"), 5'900'00);
}

TEST(Export, noNameLeavesTheBundleOrMeetsAnother) {
    Case one;
    TemporaryFolder secret;
    tamba::testing::write(secret / "key.txt", "secret");
    const Day day{2026, 12, 1};
    const std::vector<std::string> vendors{"../../etc/passwd",
                                           "..\\..\\boot",
                                           std::string("a\0b", 3),
                                           "CON",
                                           "  ",
                                           "...",
                                           "Ünïcode ₹ हिन्दी",
                                           "straße",
                                           "STRASSE",
                                           "abc\u202Egpj.exe",
                                           "a:b*c?d\"e<f>g|h",
                                           std::string(300, 'x'),
                                           std::string(301, 'X'),
                                           "tail. . "};
    for (std::size_t i = 0; i < vendors.size(); ++i) {
        const std::string path = "Receipts/" + std::to_string(i) + ".pdf";
        tamba::testing::write(one.books / path, std::to_string(i));
        one.addExpense(vendors[i], path, day);
    }
    std::filesystem::create_symlink(secret / "key.txt", one.books / "Receipts/link.txt");
    std::filesystem::create_directories(one.books / "Receipts/folder.pdf");
    const std::vector<std::string> bad{"../secret.txt",       (secret / "key.txt").string(), "Receipts/link.txt",
                                       "Receipts/folder.pdf", "Receipts/gone.pdf",           ""};
    for (const std::string& path : bad) one.addExpense("Bad", path, day);
    one.library.accounts.update(0, [](BankAccount& account) { account.name = "../HDFC/1"; });
    one.library.documents.update(0, [](Document& d) { d.number = "NUL"; });

    const auto written = one.write();
    ASSERT_TRUE(written);
    EXPECT_EQ(written->missing.size(), bad.size());
    const auto files = filesIn(written->folder);
    std::set<std::string> lower;
    std::size_t receipts = 0;
    for (const auto& [name, bytes] : files) {
        EXPECT_TRUE(lower.insert(Text::lower(name)).second) << name;
        EXPECT_EQ(name.find_first_of("\\:*?\"<>|"), std::string::npos) << name;
        EXPECT_EQ(name.find("\u202E"), std::string::npos) << name;
        EXPECT_NE(bytes, "secret");
        if (name.starts_with("Receipts/")) ++receipts;
        for (const std::string& piece : Text::split(name, '/')) {
            EXPECT_LE(piece.size(), 200U);
            EXPECT_FALSE(piece.starts_with('.') || piece.ends_with('.') || piece.ends_with(' ')) << name;
        }
    }
    EXPECT_EQ(receipts, vendors.size() + 2);
    EXPECT_TRUE(files.contains("Receipts/2026-12-01 Ünïcode ₹ हिन्दी.pdf"));
    EXPECT_TRUE(files.contains("Invoices/_NUL.pdf"));
    EXPECT_TRUE(files.contains("Bank - ..-HDFC-1.csv"));
    EXPECT_NE(files.at("Summary.txt").find("is not where the books say: Receipts/gone.pdf"), std::string::npos);
    EXPECT_NE(files.at("Expenses.csv").find("(missing)"), std::string::npos);
    EXPECT_NE(run("cd \"" + one.into.path().string() + "\" && unzip -tq *.zip").find("No errors"), std::string::npos);

    for (const auto& [text, safe] : {std::pair<std::string, std::string>{"com1.txt", "_com1.txt"},
                                     {"lpt", "lpt"},
                                     {" . ", "file"},
                                     {"a/b\n", "a-b-"},
                                     {"\xFFz", "\uFFFDz"},
                                     {"हिन्दी", "हि"}})
        EXPECT_EQ(BundleNames::safe(text, text == "हिन्दी" ? 9 : 100), safe);
}

TEST(Export, stoppingOrFailingLeavesNothingBehind) {
    Case one;
    one.library.documents = {};  // their pages would take most of the time
    one.library.business.regime = TaxRegime::none;
    std::size_t count = 0;
    ASSERT_TRUE(one.write([&](std::size_t, std::size_t all, std::string_view) {
        count = all;
        return true;
    }));
    const auto before = filesIn(one.into.path());
    ASSERT_GT(count, 15U);
    const auto expectAsBefore = [&](const std::string& when) {
        EXPECT_EQ(filesIn(one.into.path()), before) << when;
        EXPECT_EQ(Files::names(one.into.path()).size(), 2U) << when;
    };
    for (std::size_t stop = 0; stop < count; ++stop) {
        EXPECT_FALSE(one.write([stop](std::size_t done, std::size_t, std::string_view) { return done != stop; }));
        expectAsBefore("stopped at " + std::to_string(stop));
    }
    // The disk fills up at each step in turn; what makes room still works.
    for (int step = 0;; ++step) {
        int left = step;
        bool failed = false;
        Files::setObserver([&](const char* operation) {
            if (operation != std::string("remove") && left-- == 0) {
                failed = true;
                throw FileError("No space left on device");
            }
        });
        std::string why;
        try {
            static_cast<void>(one.write());
        } catch (const FileError& error) {
            why = error.what();
        }
        Files::setObserver(nullptr);
        EXPECT_EQ(why, failed ? "No space left on device" : "");
        expectAsBefore("failed at " + std::to_string(step));
        if (!failed) break;
    }
}

TEST(Export, aFileThatSomebodyPutBesideTheBundleIsNotRemoved) {
    const Case one;
    const auto written = one.write();
    tamba::testing::write(written->folder / ".DS_Store", "");
    EXPECT_TRUE(one.write()) << "what desktops leave is nobody’s";
    tamba::testing::write(written->folder / "GST/Notes of my CA.docx", "mine");
    EXPECT_THROW(static_cast<void>(one.write()), FileError);
    EXPECT_EQ(contents(written->folder / "GST/Notes of my CA.docx"), "mine");
    std::filesystem::remove_all(written->folder);
    tamba::testing::write(written->folder, "a file of that name");
    EXPECT_THROW(static_cast<void>(one.write()), FileError);
    EXPECT_THROW(static_cast<void>(Export::yearEnd(one.library, one.books.path(), year, today, one.into / "gone")),
                 FileError);
}

TEST(Export, aYearOfTwoSchemesHasBothReturns) {
    Case one;
    const auto has = [&one](const std::string& name) {
        const auto bundle = YearEnd::plan(one.library, year, today, {});
        return std::any_of(bundle.files.begin(), bundle.files.end(),
                           [&](const YearEnd::File& file) { return file.name == name; });
    };
    const std::string sheet = "GST/GSTR-1 for the offline tool/2027-03/b2b,sez,de.csv", summary = "GST/GSTR-3B.csv",
                      turnover = "GST/Turnover by quarter.csv";
    EXPECT_TRUE(has(sheet) && has(summary) && !has(turnover));
    // In the middle of the year: taxed until October, bills of supply since.
    one.library.business.regime = TaxRegime::gstComposition;
    one.library.documents.update(1, [](Document& d) { d.supply = SupplyType::noTax; });
    EXPECT_TRUE(has("GST/GSTR-1 for the offline tool/2026-10/b2b,sez,de.csv") && !has(sheet) && has(turnover));
    const auto bundle = YearEnd::plan(one.library, year, today, {});
    EXPECT_EQ(sumOf(rowsOf(bundle, summary), "3.1(a) Taxable"), 10'000'00);
    const auto quarters = rowsOf(bundle, turnover);
    ASSERT_EQ(quarters.size(), 5U);
    EXPECT_EQ(quarters[4], (CSV::Row{"2027-01-01", "2027-03-31", "1", "5000.00", "25.00", "25.00", "125.00", "125.00",
                                     "150.00", "150.00"}));
    one.library.documents = {};
    EXPECT_TRUE(!has(summary) && has(turnover));
    one.library.business.regime = TaxRegime::none;
    EXPECT_TRUE(!has(summary) && !has(turnover));
}

TEST(Export, emptyBooksAndOtherYearsHaveABundleToo) {
    TemporaryFolder books, into;
    Library library = Library::make();
    library.business.country = "AE", library.business.homeCurrency = "AED", library.business.fyStartMonth = 1;
    library.business.regime = TaxRegime::simple;
    const auto empty = Export::yearEnd(library, books.path(), {2026, 1}, today, into.path());
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->folder.filename(), "Books 2026");
    for (const auto& [name, bytes] : filesIn(empty->folder))
        EXPECT_TRUE(!name.ends_with(".csv") || !CSV::parse(bytes).empty()) << name << " has its titles";
    EXPECT_EQ(contents(empty->folder / "Summary.txt").find("GSTIN"), std::string::npos);

    Expense expense = tamba::testing::spent("=HYPERLINK(\"http://x\")", 5'00, {2026, 12, 31});
    expense.currency = "AED";
    library.expenses.append(expense);
    const auto one = Export::yearEnd(library, books.path(), {2026, 1}, {2026, 7, 1}, into.path());
    const std::string text = contents(one->folder / "Expenses.csv");
    EXPECT_EQ(CSV::parse(text).at(1).at(1), "'=HYPERLINK(\"http://x\")");
    EXPECT_NE(contents(one->folder / "Summary.txt").find("The year is not over"), std::string::npos);
}

TEST(Export, theSummaryStaysOnePage) {
    Library library = tamba::testing::randomBooks(7);
    library.business.name = std::string(3'000, 'w') + " & Söhne";
    library.business.taxID = "27AAPFU0939F1ZV";
    for (int i = 0; i < 40; ++i) {
        Category category = library.categories[0];
        category.id = UUID::random();
        category.name = "A category with a name that goes on and on " + std::to_string(i);
        library.expenses.update(static_cast<std::size_t>(i), [&](Expense& e) {
            e.date = {2026, 10, 1}, e.categoryID = category.id, e.amount = 999'999'999'999'999,
            e.rateMicros = 1'000'000;
        });
        library.categories.append(category);
    }
    const auto sheet = YearEnd::summary(library, year, today, {}, {});
    EXPECT_GT(sheet.notes.size(), 40U);
    const std::string pdf = SummaryPDF::render(sheet, "", Instant{});
    EXPECT_NE(tamba::testing::readBack("pdfinfo", pdf, "").find("Pages:           1\n"), std::string::npos);
    EXPECT_NE(tamba::testing::readBack("pdftotext", pdf, "-").find("more in Summary.txt"), std::string::npos);
}

/// The rows as LibreOffice reads and writes them again; nothing where it is not installed.
std::optional<std::vector<CSV::Row>> throughLibreOffice(const std::string& bytes) {
    if (std::system("command -v soffice >/dev/null") != 0) return {};
    TemporaryFolder folder;
    tamba::testing::write(folder / "in/table.csv", bytes);
    const std::string filter = "44,34,76,1,,0,false,true,false";  // comma, quotes, UTF-8, texts as they are
    const std::string command = "HOME='" + folder.path().string() + "' soffice --headless --infilter='CSV:" + filter +
                                "' --convert-to 'csv:Text - txt - csv (StarCalc):" + filter + "' --outdir '" +
                                (folder / "out").string() + "' '" + (folder / "in/table.csv").string() +
                                "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return CSV::parse(contents(folder / "out/table.csv"));
}

TEST(Export, spreadsheetsReadWhatIsWritten) {
    const Case one;
    const auto bundle = YearEnd::plan(one.library, year, today, {});
    for (const char* name : {"Expenses.csv", "Clients.csv"}) {
        const auto expected = rowsOf(bundle, name);
        const auto read = throughLibreOffice(std::find_if(bundle.files.begin(), bundle.files.end(), [&](const auto& f) {
                                                 return f.name == name;
                                             })->bytes({}));
        if (!read) GTEST_SKIP() << "not run: LibreOffice is not installed";
        ASSERT_EQ(read->size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(read->at(i)[0], expected[i][0]) << name;
    }
}

}  // namespace
}  // namespace tamba
