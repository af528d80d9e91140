#include "Tamba/Rows/ImportRows.h"
#include "tests/app/Support.h"

namespace tamba {

using BankImport::Role;

class ImportRowsTests : public QObject {
    Q_OBJECT

    static StatementFile file() {
        return StatementFile::of(
            "Date,Narration,Debit,Credit,Balance\n"
            "01/04/2026,Rent,500.00,,500.00\n"
            "02/04/2026,Tea,20.00,,480.00\n"
            "02/04/2026,Tea,20.00,,460.00\n"
            "soon,Tea,20.00,,\n"
            "03/04/2026,Northwind,,100.00,600.00\n",
            "april.csv");
    }
    static StatementReading reading(const StatementFile& file) { return {file.columns, DateOrder::dmy, {}}; }

private slots:
    void statementsAreToldFromReceipts() {
        for (const char* name :
             {"a.csv", "a.TXT", "a.b.ofx", "x.qfx", "x.QIF", "x.xlsx", "x.xls", "x.json", "x.htm", "x.tsv"})
            QVERIFY2(isStatement(name), name);
        for (const char* name : {"a.pdf", "csv", "a.csv.pdf", "a.jpg", "a.eml", "", ".csv"})
            QVERIFY2(!isStatement(name), name);
    }

    void everyRowIsInOneOfTheLists() {
        const StatementFile file = ImportRowsTests::file();
        Library library;
        library.accounts.append(BankAccount::make("Savings", "INR"));
        BankTransaction held = BankTransaction::make({2026, 4, 1}, "Rent", -50000);
        held.accountID = library.accounts[library.accounts.size() - 1].id;
        library.transactions.append(held);
        const auto parsed = tamba::parsed(file, reading(file), Currency::inr());
        ImportTable table = importTable(library, parsed, Currency::inr());
        QCOMPARE(table.summary, std::string("4 lines, 1 already in the books, 1 repeated in this file, 1 row skipped"));
        QCOMPARE(table.added.size(), std::size_t(2));
        QCOMPARE(table.added[0].moneyOut, std::string("₹20.00"));
        QCOMPARE(table.added[1].moneyIn, std::string("₹100.00"));
        QCOMPARE(table.held[0].why, std::string("Savings: 1 Apr 2026 · Rent"));
        QCOMPARE(table.held[1].why, std::string("The same as row 3 of this file"));
        QCOMPARE(table.count(), std::size_t(2));
        table.held[1].anyway = true;
        QCOMPARE(table.count(), std::size_t(3));
        QCOMPARE(table.anyway(), std::set{table.held[1].id});
        QCOMPARE(table.skipped[0].row, std::string("5"));
        QCOMPARE(table.skipped[0].why, std::string("“soon” is not a date."));
        QCOMPARE(table.breaks[0].why, std::string("The balance should be ₹560.00 and is ₹600.00."));
        QCOMPARE(table.breaks[0].text, std::string("Northwind"));
        QCOMPARE(table.proof, std::string("Opening ₹1,000.00 + lines −₹440.00 = ₹560.00, but the statement closes with "
                                          "₹600.00: ₹40.00 apart"));
        QVERIFY(!table.closes);
    }

    void aColumnHasOneUse() {
        BankImport::Columns columns = file().columns;
        QCOMPARE(useOf(columns, 2), ColumnUse::moneyOut);
        columns = withUse(std::move(columns), 3, ColumnUse::moneyOut);
        QCOMPARE(useOf(columns, 2), ColumnUse::unused);
        QCOMPARE(useOf(columns, 3), ColumnUse::moneyOut);
        QVERIFY(!columns[Role::credit]);
        columns = withUse(std::move(columns), 2, ColumnUse::furtherNarration);
        QCOMPARE(useOf(columns, 2), ColumnUse::furtherNarration);
        columns = withUse(std::move(columns), 2, ColumnUse::unused);
        QVERIFY(columns.furtherDescriptions.empty());
    }

    void aReadingIsRememberedWhereItFits() {
        const StatementFile file = ImportRowsTests::file();
        Library library;
        const BankAccount account = BankAccount::make("Savings", "INR");
        library.accounts.append(account);
        StatementReading chosen = reading(file);
        chosen.columns = withUse(withUse(chosen.columns, 2, ColumnUse::amount), 3, ColumnUse::furtherNarration);
        chosen.columns.signs = BankImport::Columns::Signs::turned;
        chosen.order = DateOrder::mdy;
        chosen.account = account.id;
        QVERIFY(recalled(reading(file), remembered(chosen), file, library) == chosen);
        StatementReading without = chosen;
        without.account.reset();
        QVERIFY(recalled(reading(file), remembered(chosen), file, Library()) == without);
        for (const char* text : {"order=dmy date=99", "date", "order=dym", "date=x", "sum=1", "date=-1"})
            QVERIFY2(recalled(reading(file), text, file, library) == reading(file), text);
    }

    void columnsThatNobodyKnowsAreAPersonsToSay() {
        const StatementFile file = StatementFile::of("01/04/2026;Rent;x\n02/04/2026;Tea;y\n", "a.csv");
        QVERIFY(!file.columns[Role::amount]);
        QVERIFY_EXCEPTION_THROWN((void)StatementFile::of("Dear reader\nno table at all", "a.txt"),
                                 BankImport::ImportError);
    }
};

static const TestClass<ImportRowsTests> registered;

}  // namespace tamba

#include "ImportRowsTests.moc"
