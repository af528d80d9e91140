#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Reports/Export.h"
#include "tests/support/Books.h"
#include "tests/support/RandomBooks.h"
#include "tests/support/ReadBack.h"

#include <map>
#include <regex>
#include <tuple>

namespace tamba {
namespace {

constexpr Day today{2026, 11, 21};
const std::vector<FinancialYear> years{{2025, 4}, {2026, 4}, {2027, 4}};

/// What goes through the accounts, by month and first part of their name, in minor units; nothing where that is 0.
using Sums = std::map<std::pair<std::string, std::string>, std::int64_t>;

Sums reported(const Library& library, IncomeBasis basis) {
    Sums sums;
    for (const FinancialYear& year : years)
        for (const MonthRow& row : Reports{library, today}.months(basis, year)) {
            if (row.income != 0) sums[{row.month.monthKey(), "income"}] = -row.income;
            if (row.expenses != 0) sums[{row.month.monthKey(), "expenses"}] = row.expenses;
        }
    return sums;
}

std::int64_t minor(std::string_view decimal) {
    std::string digits(decimal);
    std::erase(digits, '.');
    return std::stoll(digits);
}

/// A journal as read here: its transactions balance, and every account's sum by month.
struct Read {
    Sums byMonth;
    std::map<std::string, std::int64_t> balances;
};
Read read(const std::string& journal) {
    Read result;
    std::string month;
    std::int64_t open = 0;
    for (const std::string& line : Text::splitLines(journal)) {
        static const std::regex posting(R"(    ([^;].*?)  +[A-Z]{3} (-?[0-9.]+))");
        std::smatch match;
        if (line.empty() || (line[0] >= '0' && line[0] <= '9')) {
            EXPECT_EQ(std::exchange(open, 0), 0) << "before " << line << " in " << month;
            month = line.substr(0, 7);
        } else if (std::regex_match(line, match, posting)) {
            const std::string account = match[1];
            const std::int64_t amount = minor(match[2].str());
            EXPECT_NE(amount, 0) << line;
            open += amount;
            result.balances[account] += amount;
            const std::string root = account.substr(0, account.find(':'));
            if (root == "income" || root == "expenses") result.byMonth[{month, root}] += amount;
        }
    }
    EXPECT_EQ(open, 0);
    std::erase_if(result.byMonth, [](const auto& sum) { return sum.second == 0; });
    return result;
}

TEST(Journal, balancesAndAddsUpToTheReports) {
    std::vector<Library> books{Library::make(), testing::aLibrary(), Fixtures::library(today)};
    for (std::uint64_t seed = 1; seed <= 12; ++seed) books.push_back(testing::randomBooks(seed));
    for (std::size_t i = 0; i < books.size(); ++i)
        for (const IncomeBasis basis : allIncomeBases()) {
            const std::string journal = Export::journal(books[i], basis);
            EXPECT_EQ(read(journal).byMonth, reported(books[i], basis)) << "books " << i << " " << word(basis);
            for (const UUID& id : Reports{books[i], today}.leftOut(Period{{2025, 1, 1}, {2028, 1, 1}}).expenses)
                EXPECT_NE(journal.find(";   Expense of " + books[i].expense(id)->date.iso()), journal.npos) << i;
        }
}

TEST(Journal, owesWhatTheReportsSayAndNothingIsLeftDeferredOncePaid) {
    Library library = Fixtures::library(today);
    const auto owed = [](const Library& books, IncomeBasis basis) {
        std::int64_t sum = 0;
        for (const auto& [account, balance] : read(Export::journal(books, basis)).balances)
            if (account.starts_with("assets:receivable:")) sum += balance;
        return sum;
    };
    for (const IncomeBasis basis : allIncomeBases())
        EXPECT_EQ(owed(library, basis), Reports({library, today}).outstanding()) << word(basis);

    // Thirds of a foreign invoice: no payment is a whole number of paise.
    library.documents = {};
    Document invoice = testing::anInvoice();
    invoice.lines = {Line::make("Design", 1000, 100'001, 1800)};
    invoice.currency = "EUR";
    invoice.rateMicros = 90'123'400;
    invoice.payments.clear();
    for (const std::int64_t amount : {39'333, 39'334, 39'334})
        invoice.payments.push_back(Payment::make({2026, 11, 2}, amount, 0, PaymentMethod::bank));
    library.documents.append(invoice);
    ASSERT_EQ(Books::balance(library, invoice), 0);
    auto balances = read(Export::journal(library, IncomeBasis::cash)).balances;
    EXPECT_EQ(balances["assets:receivable:Saffron Labs"], 0);
    EXPECT_EQ(balances["liabilities:deferred income"], 0);
    EXPECT_NE(balances["equity:rounding"], 0) << "three payments, each converted by itself";
}

TEST(Journal, aBankLineSaysWhatAForeignAmountCameTo) {
    Library library = Library::make();
    Document invoice = testing::anInvoice();
    invoice.lines = {Line::make("Design", 1000, 10'000, 0)};
    invoice.currency = "USD";
    invoice.rateMicros = 83'250'000;
    BankTransaction line = BankTransaction::make({2026, 11, 2}, "WIRE", 821'000);
    line.accountID = library.accounts[0].id;
    invoice.payments = {Payment::make({2026, 11, 2}, 10'000, 0, PaymentMethod::bank)};
    invoice.payments[0].bankTxnID = line.id;
    library.transactions.append(line);
    library.documents.append(invoice);
    auto balances = read(Export::journal(library, IncomeBasis::accrual)).balances;
    EXPECT_EQ(balances["assets:bank:" + library.accounts[0].name], 821'000);
    EXPECT_EQ(balances["equity:exchange difference"], 11'500);
    library.accounts.update(0, [](BankAccount& account) { account.currency = "USD"; });
    balances = read(Export::journal(library, IncomeBasis::accrual)).balances;
    EXPECT_EQ(balances["assets:bank:" + library.accounts[0].name], 832'500);
}

TEST(Journal, aBankLineThatPaysSeveralInvoicesCameInOnce) {
    Library library = Library::make();
    BankTransaction line = BankTransaction::make({2026, 11, 2}, "WIRE", 2'042'000);
    line.accountID = library.accounts[0].id;
    library.transactions.append(line);
    for (const auto& [currency, rate, amount] : {std::tuple("INR", 1'000'000, 400'000),
                                                 {"USD", 83'250'000, 10'000},
                                                 {"USD", 83'250'000, 3'333},
                                                 {"USD", 83'250'000, 6'667}}) {
        Document invoice = testing::anInvoice();
        invoice.lines = {Line::make("Design", 1000, amount, 0)};
        invoice.currency = currency;
        invoice.rateMicros = rate;
        invoice.payments = {Payment::make(line.date, amount, 0, PaymentMethod::bank)};
        invoice.payments[0].bankTxnID = line.id;
        library.documents.append(invoice);
    }
    const std::string bank = "assets:bank:" + library.accounts[0].name;
    auto balances = read(Export::journal(library, IncomeBasis::accrual)).balances;
    EXPECT_EQ(balances[bank], 2'042'000);
    EXPECT_EQ(balances["equity:exchange difference"], 23'000);
    // What no invoice takes is not exchange: it waits to be matched.
    library.documents.update(1, [](Document& invoice) { invoice.payments.clear(); });
    balances = read(Export::journal(library, IncomeBasis::accrual)).balances;
    EXPECT_EQ(balances[bank], 400'000 + 832'500);
    EXPECT_EQ(balances["equity:exchange difference"], 0);
}

TEST(Journal, whatCameBackUndoesTheExpense) {
    Library library = Library::make();
    for (const int sign : {1, -1}) {
        Expense expense = testing::anExpense();
        expense.method = PaymentMethod::card;
        expense.amount *= sign;
        expense.tax *= sign;
        if (sign < 0) expense.taxSplit = expense.taxSplit.negated();
        library.expenses.append(expense);
        const auto balances = read(Export::journal(library, IncomeBasis::accrual)).balances;
        EXPECT_EQ(balances.at("liabilities:card"), sign > 0 ? -11800 : 0);
        EXPECT_EQ(balances.at("assets:gst:input:cgst"), sign > 0 ? 900 : 0);
    }
}

/// The first column is a day, the second an account, the third an amount.
Sums sumsOf(const std::string& table) {
    Sums sums;
    static const std::regex row(R"rx((\d{4}-\d\d)[-\d]*"?,.*?"?(income|expenses)"?,"?(?:[A-Z]{3} )?(-?[0-9.]+))rx");
    for (std::sregex_iterator match(table.begin(), table.end(), row), end; match != end; ++match)
        sums[{(*match)[1], (*match)[2]}] += minor((*match)[3].str());
    std::erase_if(sums, [](const auto& sum) { return sum.second == 0; });
    return sums;
}

Library withNamesOfAllKinds() {
    Library library = testing::aLibrary();
    for (const char* name : {"A; B",
                             "A  B",
                             "(Acme) [India]",
                             "Line\nbreak\t\r\nand tab",
                             "3M",
                             "12/24 Cafe",
                             "= 5 + 1",
                             "*!# Star",
                             "Day:date:2026-99-99",
                             "a|b",
                             "\u00a0\u3000wide\u2003\u2003blanks\u00a0",
                             "चाय ₹ & Co.",
                             "\"quoted\" \\ 'one'",
                             "",
                             ";",
                             "@home {5}",
                             "~ monthly",
                             "%Y",
                             ";\u0301x",
                             "2026-01-01 * x",
                             "account",
                             "include /etc/passwd"}) {
        Expense expense = testing::anExpense(name);
        library.categories.append({UUID::random(), name, "", "", false, {}});
        expense.categoryID = library.categories[library.categories.size() - 1].id;
        library.expenses.append(expense);
        Document invoice = testing::anInvoice(name);
        invoice.billTo->name = name;
        invoice.payments[0].reference = name;
        library.documents.append(invoice);
    }
    library.business.name = "Tea; house:\n2026-01-01 x";
    return library;
}

TEST(Journal, isReadByBothProgramsAndAddsUpToTheReportsThere) {
    for (const char* program : {"hledger", "ledger"})
        if (std::system((std::string(program) + " --version >/dev/null 2>&1").c_str()) != 0)
            GTEST_SKIP() << program << " IS NOT INSTALLED: nobody else has read the journal";
    std::vector<Library> books{withNamesOfAllKinds(), Fixtures::library(today), testing::randomBooks(1),
                               testing::randomBooks(2)};
    for (const char* home : {"JPY", "KWD"}) {
        books.push_back(testing::randomBooks(3));
        books.back().business.homeCurrency = home;
    }
    for (std::size_t i = 0; i < books.size(); ++i)
        for (const IncomeBasis basis : allIncomeBases()) {
            const std::string journal = Export::journal(books[i], basis);
            const auto ask = [&journal](const std::string& program, const std::string& arguments) {
                return testing::readBack(program + " -f", journal, arguments, "books.journal");
            };
            const Sums expected = reported(books[i], basis);
            EXPECT_EQ(ask("hledger", "check --strict ordereddates 2>&1"), "") << i;
            EXPECT_EQ(sumsOf(ask("hledger", "register income expenses -M --depth 1 -O csv")), expected) << i;
            const std::string format = "'%(format_date(date,\"%Y-%m\")),%(account),%(scrub(display_amount))\\n'";
            EXPECT_EQ(sumsOf(ask("ledger --pedantic", "register ^income ^expenses -M --depth 1 --format " + format)),
                      expected)
                << i;
            std::vector<std::string> declared;
            for (const std::string& line : Text::splitLines(journal))
                if (line.starts_with("account ")) declared.push_back(line.substr(8));
            EXPECT_EQ(Text::split(ask("hledger", "accounts --used"), '\n').size(), declared.size() + 1) << i;
        }
}

}  // namespace
}  // namespace tamba
