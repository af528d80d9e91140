#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures/Receipts.h"
#include "tests/flows/Person.h"

#include <QTableView>

namespace tamba {

/// Files dropped on the window become expenses, read by the real recognition.
class DropReceiptsTests : public QObject {
    Q_OBJECT

    static Fixtures::Receipts::Bill bill(const std::string& vendor, int day) {
        return Fixtures::Receipts::taxed({.vendor = vendor,
                                          .address = "12, Linking Road\nPune 411004",
                                          .gstin = GSTIN::make("27", "AAPFU0939F", "1"),
                                          .number = "B/" + std::to_string(100 + day),
                                          .date = Day{2026, 11, day},
                                          .items = {{"Masala Chai", 2, 4000}, {"Bun Maska", 1, 6000}}},
                                         500, SupplyType::intraState);
    }

    static void waitUntilRead(Window& window) { QTRY_VERIFY_WITH_TIMEOUT(!window.receipts().isBusy(), 120000); }

    static std::filesystem::path put(const std::filesystem::path& folder, const std::string& name,
                                     const std::string& bytes) {
        Files::makeFolders(folder);
        Files::writeAtomically(folder / name, bytes);
        return folder / name;
    }

private slots:
    void fiveFilesOfDifferentKindsBecomeFiveExpenses() {
        namespace R = Fixtures::Receipts;
        OpenWindow books;
        Window& window = books.window;
        const auto desk = books.path() / "Desk";
        const std::vector<R::Bill> bills{bill("Chulha & Charcha", 3), bill("Kagaz Stationers", 5),
                                         bill("Naya Print House", 8), bill("Tarang Hosting", 11),
                                         bill("Udaan Travels", 14)};
        const std::vector<std::filesystem::path> files{
            put(desk, "IMG_2041.jpg", R::tillBillJPEG(bills[0])), put(desk, "invoice.pdf", R::invoicePDF(bills[1])),
            put(desk, "scan.pdf", R::scannedPDF(bills[2])), put(desk, "with-pdf.eml", R::emailWithPDF(bills[3])),
            put(desk, "plain.eml", R::htmlEmail(bills[4]))};
        window.showScreen(Screen::expenses);
        QCOMPARE(drop(window, files), QStringLiteral("Drop to add 5 receipts"));
        QVERIFY(window.receipts().isBusy());
        QTRY_VERIFY_WITH_TIMEOUT(books.model.library().expenses.size() >= 2, 60000);
        QVERIFY(window.findChild<ActivityStrip*>()->isVisible());
        waitUntilRead(window);

        const Library& library = books.model.library();
        QCOMPARE(library.expenses.size(), std::size_t(5));
        for (std::size_t i = 0; i < 5; ++i) {
            const Expense& expense = library.expenses[i];
            QVERIFY2(expense.date == bills[i].date, bills[i].vendor.c_str());
            QCOMPARE(expense.amount, bills[i].total());
            QCOMPARE(expense.attachments.size(), std::size_t(i == 3 ? 2 : 1));
            for (const Attachment& attachment : expense.attachments) {
                QVERIFY(attachment.path.starts_with("Receipts/2026-11/"));
                QVERIFY(Files::exists(books.path() / attachment.path));
            }
            QVERIFY2(Files::sameBytes(books.path() / expense.attachments[0].path, files[i]), bills[i].vendor.c_str());
            QVERIFY(Files::exists(files[i]));
        }
        QCOMPARE(window.findChild<ExpensesScreen*>()->selected().size(), std::size_t(5));
        window.findChild<ExpensesScreen*>()->select({library.expenses[0].id});
        auto* view = window.findChild<ReceiptView*>();
        QTRY_VERIFY(view->isLoaded());
        QVERIFY(books.model.saveNow());
        QCOMPARE(books.onDisk().expenses.size(), std::size_t(5));
    }

    void aFileThatFailsIsNamedAndTheOthersGoOn() {
        OpenWindow books;
        const TestPrompts& prompts = books.prompts;
        const auto desk = books.path() / "Desk";
        drop(books.window, {put(desk, "notes.jpg", "no picture at all"), put(desk, "empty.pdf", ""),
                            put(desk, "good.pdf", Fixtures::Receipts::invoicePDF(bill("Kagaz Stationers", 5)))});
        waitUntilRead(books.window);
        QCOMPARE(books.model.library().expenses.size(), std::size_t(1));
        QCOMPARE(prompts.alerts.size(), 1);
        for (const char* name : {"notes.jpg: ", "empty.pdf: "})
            QVERIFY(prompts.alerts.front().contains(
                QString::fromLatin1(name) + QStringLiteral("Tamba couldn’t open that file as an image or PDF.")));
    }

    void theSameBytesAreAskedAboutBeforeTheyAreAddedAgain_data() {
        QTest::addColumn<bool>("again");
        QTest::addColumn<int>("expenses");
        QTest::newRow("left out") << false << 1;
        QTest::newRow("added again") << true << 2;
    }
    void theSameBytesAreAskedAboutBeforeTheyAreAddedAgain() {
        QFETCH(bool, again);
        QFETCH(int, expenses);
        OpenWindow books;
        const auto desk = books.path() / "Desk";
        const std::string pdf = Fixtures::Receipts::invoicePDF(bill("Kagaz Stationers", 5));
        books.prompts.again = again;
        drop(books.window, {put(desk, "first.pdf", pdf), put(desk, "same under another name.pdf", pdf)});
        waitUntilRead(books.window);
        QCOMPARE(books.prompts.held, QStringList{QStringLiteral("same under another name.pdf")});
        QCOMPARE(static_cast<int>(books.model.library().expenses.size()), expenses);
    }
};

static const TestClass<DropReceiptsTests> registered;

}  // namespace tamba

#include "DropReceiptsTests.moc"
