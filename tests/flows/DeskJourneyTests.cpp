#include "Tamba/Rows/BankRows.h"
#include "Tamba/Rows/OverviewRows.h"
#include "Tamba/StatementImport.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures/Receipts.h"
#include "tests/flows/Person.h"

#include <QComboBox>

namespace tamba {

namespace R = Fixtures::Receipts;

/// A month’s paper: from the heap on the desk to books in which nothing waits.
class DeskJourneyTests : public QObject {
    Q_OBJECT

    struct Paper {
        R::Bill bill;
        std::string file;
        std::string (*print)(const R::Bill&);
        int paidAfter;  // days
    };

    static R::Bill bill(const std::string& vendor, int day, std::int64_t price, PaymentMethod method) {
        return R::taxed({.vendor = vendor,
                         .address = "12, Linking Road\nPune 411004",
                         .gstin = GSTIN::make("27", "AAPFU0939F", "1"),
                         .number = "B/" + std::to_string(100 + day),
                         .date = Day{2026, 11, day},
                         .items = {{"As ordered", 1, price}},
                         .method = method},
                        1800, SupplyType::intraState);
    }

    static std::vector<Paper> papers() {
        const auto upi = PaymentMethod::upi, card = PaymentMethod::card;
        return {{bill("Chulha & Charcha", 2, 84'000, upi), "IMG_2041.jpg", R::tillBillJPEG, 0},
                {bill("Kagaz Stationers", 3, 126'500, upi), "kagaz.pdf", R::invoicePDF, 1},
                {bill("Naya Print House", 4, 740'000, upi), "scan0004.pdf", R::scannedPDF, 3},
                {bill("Tarang Hosting", 5, 59'900, card), "Your invoice.eml", R::emailWithPDF, 1},
                {bill("Udaan Travels", 6, 1'245'000, card), "Booking.eml", R::htmlEmail, 2},
                {bill("Masala Mail", 7, 31'000, upi), "IMG_2044.jpg", R::tillBillJPEG, 0},
                {bill("Dhaga Tailors", 9, 220'000, upi), "dhaga.pdf", R::invoicePDF, 0},
                {bill("Akshar Books", 10, 96'000, upi), "akshar.pdf", R::invoicePDF, 2},
                {bill("Bijli Mobile", 12, 49'900, card), "Receipt.eml", R::htmlEmail, 1},
                {bill("Rang Paints", 13, 318'000, upi), "scan0005.pdf", R::scannedPDF, 1}};
    }

    static std::string statementOf(const std::vector<Paper>& papers) {
        std::string text = "Date,Narration,Chq./Ref.No.,Value Dt,Withdrawal Amt.,Deposit Amt.,Closing Balance\r\n";
        std::int64_t balance = 50'000'000;
        const auto add = [&](Day day, const std::string& narration, std::int64_t amount) {
            balance -= amount;
            const std::string date = day.formatted("dd/MM/yyyy");
            text += date + ',' + narration + ",000" + std::to_string(balance) + ',' + date + ',' +
                    MoneyFormat::plain(amount, Currency::inr()) + ",," + MoneyFormat::plain(balance, Currency::inr()) +
                    "\r\n";
        };
        for (const Paper& paper : papers) {
            std::string name;
            for (const char c : paper.bill.vendor)
                if (c != '&') name += static_cast<char>(std::toupper(c));
            const bool upi = paper.bill.method == PaymentMethod::upi;
            add(paper.bill.date.addingDays(paper.paidAfter),
                upi ? "UPI-" + name + "-PAY8@YBL-YESB0YBLUPI-6091000000" + paper.bill.date.formatted("dd") +
                          "-PAYMENT FROM PH"
                    : "POS 416021XXXXXX1234 " + name,
                paper.bill.total());
        }
        add({2026, 11, 16}, "SMS CHARGES OCT-NOV", 1770);
        return text;
    }

private slots:
    void tenReceiptsAndAStatement() {
        OpenBooks books;
        books.rename("Kagaz Studio");
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        Window window(books.model, std::move(owned));
        window.resize(1440, 880);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto desk = books.path() / "Desk";
        Files::makeFolders(desk);
        std::vector<std::filesystem::path> files;
        const auto put = [&](const std::string& name, const std::string& bytes) {
            Files::writeAtomically(desk / name, bytes);
            files.push_back(desk / name);
        };
        for (const Paper& paper : papers()) put(paper.file, paper.print(paper.bill));
        put("statement.csv", statementOf(papers()));

        Person person;
        prompts.drive = [&](QDialog& sheet) {
            auto* name = sheet.findChild<QLineEdit*>(QStringLiteral("importAccountName"));
            if (name && name->text().isEmpty()) {
                name->setText(QStringLiteral("HDFC Current"));
                ++person.actions;
            }
            picture(sheet, QStringLiteral("desk-2-statement"));
        };
        ++person.actions;
        QVERIFY(!drop(window, files).isEmpty());
        QTRY_VERIFY(!window.findChild<StatementImport*>()->isBusy());
        QTRY_VERIFY_WITH_TIMEOUT(!window.receipts().isBusy(), 240000);
        const Library& library = books.model.library();
        QCOMPARE(library.expenses.size(), std::size_t(10));
        QCOMPARE(library.transactions.size(), std::size_t(11));
        window.showScreen(Screen::overview);
        picture(window, QStringLiteral("desk-3-read"));

        person.press(Qt::Key_5, Qt::ControlModifier);
        person.press(Qt::Key_F5);
        picture(window, QStringLiteral("desk-4-matched"));
        QTRY_COMPARE(openLines(library), std::size_t(1));
        person.press(Qt::Key_E);
        QCOMPARE(openLines(library), std::size_t(0));
        picture(window, QStringLiteral("desk-5-bank"));

        for (const Paper& paper : papers())
            QVERIFY2(std::any_of(library.expenses.begin(), library.expenses.end(),
                                 [&](const Expense& e) {
                                     return e.vendor == paper.bill.vendor && e.amount == paper.bill.total() && !e.check;
                                 }),
                     paper.file.c_str());
        for (const OverviewItem& item : overview(library, testDay).items)
            QVERIFY2(item.goal.place == OverviewGoal::Place::expenses && item.goal.list != ExpenseList::toCheck,
                     item.title.c_str());
        const int actions = person.actions + prompts.asked;
        QVERIFY2(actions <= 6, qPrintable(QString::number(actions)));
    }
};

static const TestClass<DeskJourneyTests> registered;

}  // namespace tamba

#include "DeskJourneyTests.moc"
