#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Documents.h"
#include "TambaCore/Fixtures/Receipts.h"
#include "TambaCore/Model/LibraryCheck.h"
#include "TambaCore/Receipts/EmailReceipt.h"
#include "TambaCore/Receipts/ReceiptExpense.h"
#include "TambaCore/Receipts/Receipts.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/TDS.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace tamba;
using Fixtures::Receipts::Bill;
using tamba::testing::TemporaryFolder;

namespace {

constexpr Day today{2026, 11, 21};

std::vector<std::string> problems(const Library& library, const LibraryStore& store) {
    std::vector<std::string> sentences;
    for (const auto& problem : LibraryCheck::check(library, store).problems) sentences.push_back(problem.sentence);
    return sentences;
}

Bill dinner() {
    return Fixtures::Receipts::taxed({.vendor = "Kokum Kitchen",
                                      .address = "Ganeshkhind Road\nPune 411016",
                                      .contact = "Ph: 020 5550 0162",
                                      .gstin = GSTIN::make("27", "ACTPN6085G", "1"),
                                      .number = "5120",
                                      .date = {2026, 10, 14},
                                      .items = {{"Fish curry rice", 2, 38000}, {"Kokum sherbet", 3, 9100}},
                                      .customer = "Halad & Ink Studio\nPune 411004"},
                                     500, SupplyType::intraState);
}

TEST(Fixtures, writesBooksThatAreInOrderWithEveryReceipt) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    Fixtures::write(store, today);
    const std::optional<Library> library = store.load();
    ASSERT_TRUE(library);
    EXPECT_THAT(problems(*library, store), ::testing::IsEmpty());
    EXPECT_TRUE(*library == Fixtures::library(today)) << "the books are the same, made with their files or without";

    int withReceipt = 0, read = 0;
    ReceiptReader reader;
    for (const Expense& expense : library->expenses) {
        if (expense.attachments.empty()) continue;
        ++withReceipt;
        const auto file = store.url(expense.attachments.front());
        ASSERT_TRUE(file);
        if (file->extension() == ".jpg" || expense.attachments.front().originalName.starts_with("Scan")) continue;
        ++read;  // what needs no recognition: PDFs with text, e-mails
        const auto [guess, files, temporary] = ReceiptScanner::scan(reader, *file, DateOrder::dmy, today);
        for (const auto& written : temporary) Files::remove(written);
        SCOPED_TRACE(expense.attachments.front().path);
        const Expense filed = ReceiptExpense::expense(*library, guess, Expense{}, today);
        EXPECT_EQ(filed.vendor, expense.vendor);
        EXPECT_EQ(filed.vendorTaxID, expense.vendorTaxID);
        EXPECT_EQ(filed.date, expense.date);
        EXPECT_EQ(filed.amount, expense.amount);
        EXPECT_EQ(filed.taxSplit, expense.taxSplit);
        EXPECT_EQ(filed.currency, expense.currency);
        EXPECT_THAT(guess.doubts, ::testing::IsEmpty());
    }
    EXPECT_GE(withReceipt, 40);
    EXPECT_GE(read, 20);
}

/// In the middle of a year, on its first and last days, and on a leap day.
constexpr Day someDays[] = {today, {2027, 1, 1}, {2027, 3, 31}, {2027, 4, 1}, {2028, 2, 29}};

/// The sample books of that day, made once.
const Library& sample(Day day) {
    static std::map<Day, Library> made;
    const auto found = made.find(day);
    return found != made.end() ? found->second : made.emplace(day, Fixtures::library(day)).first->second;
}

TEST(Fixtures, coverTwoFinancialYearsUpToWhateverDay) {
    const TemporaryFolder folder;
    for (const Day day : someDays) {
        SCOPED_TRACE(day.iso());
        const Library& library = sample(day);
        const FinancialYear last = library.fy(day).previous();
        EXPECT_TRUE(std::is_sorted(library.expenses.begin(), library.expenses.end(),
                                   [](const Expense& a, const Expense& b) { return a.date < b.date; }));
        EXPECT_EQ(library.fy(library.expenses.front().date), last);
        EXPECT_LE(library.expenses.back().date, day);
        for (const Expense& expense : library.expenses) {
            EXPECT_EQ(expense.tax, expense.taxSplit.total()) << expense.vendor;
            EXPECT_TRUE(expense.vendorTaxID.empty() || GSTIN::isValid(expense.vendorTaxID)) << expense.vendor;
        }
        for (const RecurringExpense& recurring : library.recurring)
            EXPECT_TRUE(recurring.paused || recurring.nextDate > day) << recurring.template_.vendor;
        std::vector<std::string> other;
        for (const auto& problem : LibraryCheck::check(library, LibraryStore(folder.path())).problems)
            if (problem.kind != LibraryCheck::Kind::missingFile) other.push_back(problem.sentence);
        EXPECT_THAT(other, ::testing::IsEmpty());

        const Reports reports{library, day};
        for (const MonthRow& month : reports.months(IncomeBasis::accrual, last)) {
            EXPECT_GT(month.income, 0) << month.month.iso();
            EXPECT_GE(month.expenseIDs.size(), 7U) << month.month.iso();
        }
        EXPECT_GE(reports.byCategory(Period::fy(last)).size(), 11U);
        EXPECT_GE(reports.byClient(Period::fy(last)).size(), 7U);
        EXPECT_GT(reports.income(IncomeBasis::cash, Period::fy(last)), reports.spending(Period::fy(last)));
        EXPECT_GE(TDS::year(library, last.startYear).clients.size(), 3U);
        int projects = 0;
        for (const auto& project : Breakdowns::projects(library, {last.start(), day}))
            projects += project.projectID && project.income > 0 && project.expenses > 0 ? 1 : 0;
        EXPECT_GE(projects, 4);
    }
}

TEST(Fixtures, showEveryStateOfADocument) {
    for (const Day day : someDays) {
        SCOPED_TRACE(day.iso());
        const Library& library = sample(day);
        std::set<std::string> found;
        std::set<SupplyType> supplies;
        std::map<std::string, Day> lastOfPeriod;
        for (const Document& document : library.documents) {
            found.insert(std::string(Books::title(document.kind)) + ": " +
                         std::string(Books::title(Books::status(library, document, day))));
            supplies.insert(document.supply);
            EXPECT_LE(document.issueDate, day);
            if (!document.number) continue;
            Day& last = lastOfPeriod[document.number->substr(0, document.number->rfind('/'))];
            EXPECT_LE(last, document.issueDate) << *document.number << ": numbers follow the dates";
            last = document.issueDate;
        }
        EXPECT_THAT(
            found, ::testing::UnorderedElementsAre("Invoice: Draft", "Invoice: Sent", "Invoice: Part paid",
                                                   "Invoice: Paid", "Invoice: Overdue", "Invoice: Void",
                                                   "Estimate: Sent", "Estimate: Accepted", "Estimate: Declined",
                                                   "Estimate: Converted", "Estimate: Expired", "Credit note: Applied"));
        EXPECT_THAT(supplies, ::testing::IsSupersetOf({SupplyType::intraState, SupplyType::interState,
                                                       SupplyType::exportLUT, SupplyType::sezLUT}));
    }
}

TEST(Fixtures, holdTwoThingsToLookAtBeforeTheReturnsAreSent) {
    for (const Day day : someDays) {
        SCOPED_TRACE(day.iso());
        const Library& library = sample(day);
        std::vector<std::string> look;
        std::size_t withoutGSTIN = 0, wrongState = 0;
        for (Day month = library.fy(day).previous().start(); month <= day; month = month.addingMonths(1)) {
            const auto outward = GSTReturns::gstr1(library, Period::month(month));
            for (const auto& problem : GSTReturns::problems(library, outward)) {
                EXPECT_EQ(problem.severity, GSTReturns::Problem::Severity::look) << problem.sentence;
                look.push_back(problem.sentence);
            }
            const auto summary = GSTReturns::gstr3b(library, outward);
            withoutGSTIN += summary.withoutGSTIN.size();
            wrongState += summary.wrongState.size();
        }
        EXPECT_THAT(look, ::testing::UnorderedElementsAre(::testing::HasSubstr("as the client’s GSTIN"),
                                                          ::testing::HasSubstr("is still a draft")));
        EXPECT_LE(withoutGSTIN, 1U);
        EXPECT_EQ(wrongState, 0U);
    }
}

TEST(Fixtures, bothStatementsRunOnAndFitWhatTheyPay) {
    for (const Day day : someDays) {
        SCOPED_TRACE(day.iso());
        const Library& library = sample(day);
        std::map<UUID, std::int64_t> balances;
        for (const BankTransaction& line : library.transactions) {
            SCOPED_TRACE(line.text);
            EXPECT_LE(line.date, day);
            ASSERT_TRUE(line.accountID && line.balance);
            const auto [before, isFirst] = balances.try_emplace(*line.accountID, *line.balance);
            EXPECT_EQ(*line.balance, isFirst ? *line.balance : before->second + line.amount);
            before->second = *line.balance;
            EXPECT_GT(*line.balance, 0) << "a current account is not overdrawn";
            if (!line.expenseID) continue;
            const Expense* paid = library.expense(*line.expenseID);
            ASSERT_TRUE(paid);
            EXPECT_EQ(paid->amount, -line.amount);
            EXPECT_EQ(paid->currency, Bank::currency(library, line).code);
            const auto name = Matcher::words(paid->vendor), read = Matcher::words(line.counterparty.value_or(""));
            EXPECT_TRUE(std::includes(name.begin(), name.end(), read.begin(), read.end()) && !read.empty())
                << line.counterparty.value_or("no counterparty");
        }
        EXPECT_EQ(balances.size(), 2U);
    }
}

TEST(Fixtures, leaveLinesToMatchAtOnceByHandAndNotAtAll) {
    for (const Day day : someDays) {
        SCOPED_TRACE(day.iso());
        const Library& library = sample(day);
        const auto share = [](const Library& books, auto&& holds) {
            return 100 * std::count_if(books.transactions.begin(), books.transactions.end(), holds) /
                   static_cast<std::ptrdiff_t>(books.transactions.size());
        };
        const auto isOpen = [](const BankTransaction& line) { return line.isOpen(); };
        const auto matched = share(library, [](const BankTransaction& line) { return line.isMatched(); });
        EXPECT_TRUE(matched >= 40 && matched <= 65) << matched;
        const auto open = share(library, isOpen);
        EXPECT_TRUE(open >= 20 && open <= 40) << open;

        const auto [after, obvious] = Bank::autoMatch(library);
        int byHand = 0, unknown = 0, clients = 0;
        for (const BankTransaction& line : after.transactions) {
            if (!line.isOpen()) continue;
            const bool found = !Matcher::suggestions(line, after, Matcher::listDays).empty();
            ++(found ? byHand : unknown);
            if (found && line.amount > 0) ++clients;
        }
        EXPECT_GT(obvious, byHand + unknown) << "most are obvious";
        EXPECT_GE(byHand, 2);
        EXPECT_GE(clients, 1) << "less the tax that the client kept back";
        EXPECT_GE(unknown, 4);
    }
}

TEST(Fixtures, largeBooksAreValidAndOfTheSizeAskedFor) {
    const Library library = Fixtures::large(300, 90, 200, today);
    EXPECT_EQ(library.expenses.size(), 300U);
    EXPECT_EQ(library.documents.size(), 90U);
    EXPECT_EQ(library.transactions.size(), 200U);
    EXPECT_THAT(problems(library, LibraryStore("/no/such/folder")), ::testing::IsEmpty());
}

TEST(FixturesDocuments, areValidBooksWithEveryKindOfDocument) {
    std::set<std::string> names;
    std::set<TaxRegime> regimes;
    std::set<SupplyType> supplies;
    std::set<DocKind> kinds;
    for (const Fixtures::Sample& sample : Fixtures::documents()) {
        SCOPED_TRACE(sample.name);
        EXPECT_TRUE(names.insert(sample.name).second);
        EXPECT_THAT(problems(sample.library, LibraryStore("/no/such/folder")), ::testing::IsEmpty());
        const Document* document = sample.library.document(sample.document);
        ASSERT_TRUE(document);
        EXPECT_TRUE(DocMath::isBelievable(*document));
        EXPECT_TRUE(sample.library.business.taxID.size() < 15 || GSTIN::isValid(sample.library.business.taxID) ||
                    sample.library.business.regime == TaxRegime::simple);
        regimes.insert(sample.library.business.regime);
        supplies.insert(document->supply);
        kinds.insert(document->kind);
        EXPECT_TRUE(document->payments.empty() || Books::balance(sample.library, *document) == 0);
        if (document->kind != DocKind::creditNote) continue;
        const Document* invoice = sample.library.document(*document->linkedID);
        ASSERT_TRUE(invoice);
        EXPECT_GT(Books::balance(sample.library, *invoice), 0);
        EXPECT_EQ(invoice->supply, document->supply);
    }
    EXPECT_EQ(regimes.size(), 4U);
    EXPECT_EQ(supplies.size(), 8U);
    EXPECT_EQ(kinds.size(), 3U);
}

TEST(FixturesReceipts, mailsCarryNamesInAnyScript) {
    Bill bill = dinner();
    bill.vendor = "कोकण उपहारगृह";
    const EmailReceipt::Message message = EmailReceipt::parse(Fixtures::Receipts::emailWithPDF(bill));
    EXPECT_EQ(EmailReceipt::senderName(message.from), bill.vendor);
    EXPECT_EQ(message.date, bill.date);
    ASSERT_EQ(message.attachments.size(), 1U);
    EXPECT_EQ(message.attachments[0].mime, "application/pdf");
    EXPECT_EQ(message.attachments[0].data, Fixtures::Receipts::invoicePDF(bill));
}

}  // namespace
