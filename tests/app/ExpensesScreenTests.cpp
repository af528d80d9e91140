#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/OverviewRows.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/TambaApp.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Expenses.h"
#include "tests/app/Support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTableView>

Q_DECLARE_METATYPE(tamba::ExpenseFilter)

namespace tamba {
namespace {

Expense anExpense(Day date, const std::string& vendor, std::int64_t amount, const std::string& currency = "INR",
                  std::int64_t rateMicros = 1'000'000) {
    Expense e = Expense::make(date);
    e.vendor = vendor;
    e.amount = amount;
    e.currency = currency;
    e.rateMicros = rateMicros;
    return e;
}

std::string vendors(const ExpenseTable& table) {
    std::string all;
    for (const ExpenseRow& row : table.rows) all += row.vendor + ' ';
    return all;
}

}  // namespace

/// The rows, and the screen that shows and changes them, driven by its own controls.
class ExpensesScreenTests : public QObject {
    Q_OBJECT

    static Library someBooks() {
        Library library = Library::make();
        library.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
        Expense chai = anExpense({2026, 11, 3}, "Chai Point", 11800);
        chai.tax = 1800;
        chai.taxSplit = {900, 900, 0, 0};
        chai.claimTax = true;
        chai.categoryID = library.categories[4].id;
        library.expenses.append(chai);
        library.expenses.append(anExpense({2026, 10, 3}, "Kagaz", 50000));
        library.expenses.append(anExpense({2026, 3, 31}, "Pixelgrove", 2400, "USD", 0));
        library.expenses.append(anExpense({2026, 4, 1}, "Akshar", 1000, "USD", 80'000'000));
        return library;
    }

    template <class T>
    static T& control(QWidget& window, const char* name) {
        // Other screens have fields of the same names.
        auto* screen = window.findChild<ExpensesScreen*>();
        T* found = screen ? screen->findChild<T*>(QString::fromLatin1(name)) : nullptr;
        if (!found) found = window.findChild<T*>(QString::fromLatin1(name));
        if (!found) qFatal("no control %s", name);
        return *found;
    }

    /// Types into a field and leaves it, as a person does.
    static void enter(QWidget& window, const char* name, const QString& text) {
        auto& field = control<QLineEdit>(window, name);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

private slots:
    void filtersAndOrders_data() {
        QTest::addColumn<ExpenseFilter>("filter");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, ExpenseFilter filter, const char* expected) {
            QTest::newRow(name) << filter << QString::fromLatin1(expected);
        };
        row("latest first", {}, "Chai Point Kagaz Akshar Pixelgrove ");
        row("earliest first", {.ascending = true}, "Pixelgrove Akshar Kagaz Chai Point ");
        row("the financial year", {.days = daysOf(Span::year, {2026, 11, 21}, 4)}, "Chai Point Kagaz Akshar ");
        row("the year before", {.days = daysOf(Span::year, {2026, 3, 1}, 4)}, "Pixelgrove ");
        row("the quarter", {.days = daysOf(Span::quarter, {2026, 11, 21}, 4)}, "Chai Point Kagaz ");
        row("the month", {.days = daysOf(Span::month, {2026, 11, 21}, 4)}, "Chai Point ");
        row("words in any order and case", {.search = "  point CHAI "}, "Chai Point ");
        row("an amount as typed", {.search = "500.00"}, "Kagaz ");
        row("a category", {.search = "meals"}, "Chai Point ");
        row("without a rate", {.list = ExpenseList::withoutRate}, "Pixelgrove ");
        row("without a category", {.list = ExpenseList::withoutCategory}, "Kagaz Akshar Pixelgrove ");
        row("by size in the home currency", {.order = ExpenseOrder::amount}, "Akshar Kagaz Chai Point Pixelgrove ");
        row("by vendor", {.order = ExpenseOrder::vendor, .ascending = true}, "Akshar Chai Point Kagaz Pixelgrove ");
    }
    void filtersAndOrders() {
        QFETCH(ExpenseFilter, filter);
        QFETCH(QString, expected);
        QCOMPARE(toQt(vendors(expenseTable(someBooks(), filter))), expected);
    }

    void totalsAreInTheHomeCurrencyAndNameWhatIsLeftOut() {
        const ExpenseTable table = expenseTable(someBooks(), {});
        QCOMPARE(table.total, std::string("₹1,418.00"));
        QCOMPARE(table.tax, std::string("₹18.00"));
        QCOMPARE(table.leftOut, std::string("1 left out: no rate"));
        QCOMPARE(table.rows.back().hint, std::string("Add the exchange rate to include this in reports."));
    }

    void theMenuLetsAnExpenseRepeatAndConvertsIt() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        auto& screen = control<ExpensesScreen>(window, "expensesScreen");
        const auto choose = [&](const char* text) {
            QMenu menu;
            screen.fillMenu(menu);
            for (QAction* action : menu.findChildren<QAction*>())
                if (action->text() == QLatin1String(text)) return action->trigger();
            QFAIL(text);
        };
        const Library& library = books.model.library();
        screen.select({library.expenses[0].id});
        choose("Monthly");
        QCOMPARE(library.recurring[0].frequency, Frequency::monthly);
        choose("Never");
        QVERIFY(library.recurring.empty());
        screen.select({library.expenses[3].id});
        choose("Convert to Rupees");
        QCOMPARE(library.expenses[3].amount, std::int64_t(80'000));
    }

    void whatIsBeingTypedIsSavedWhenTheSessionEnds() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.showScreen(Screen::expenses);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        control<ExpensesScreen>(window, "expensesScreen").select({books.model.library().expenses[1].id});
        auto& vendor = control<QLineEdit>(window, "vendor");
        vendor.setFocus();
        vendor.selectAll();
        QTest::keyClicks(&vendor, QStringLiteral("Half a na"));
        QVERIFY(saveTyping(books.model));
        QCOMPARE(books.onDisk().expenses[1].vendor, std::string("Half a na"));
    }

    void theListBehindAnotherScreenIsFreshWhenItIsSeen() {
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        window.showScreen(Screen::overview);
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) {
            Library library = someBooks();
            while (isQuick(library)) library.expenses.append(anExpense({2026, 5, 1}, "Chai Point", 100));
            return library;
        });
        auto& table = control<QTableView>(window, "expenses");
        QCOMPARE(table.model()->rowCount(), 0);
        window.showScreen(Screen::expenses);
        QCOMPARE(table.model()->rowCount(), static_cast<int>(books.model.library().expenses.size()));
    }

    void fieldsBecomeUndoableSteps() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        auto& screen = control<ExpensesScreen>(window, "expensesScreen");
        const UUID id = books.model.library().expenses[1].id;
        screen.select({id});
        const auto expense = [&] { return *books.model.library().expense(id); };
        enter(window, "vendor", QStringLiteral("Kagaz Stationers"));
        QCOMPARE(expense().vendor, std::string("Kagaz Stationers"));
        QCOMPARE(books.model.undoTitle(), QStringLiteral("Change Vendor"));
        enter(window, "gstin", QStringLiteral("29aapfu0939f1z"));
        QVERIFY(!control<QLineEdit>(window, "gstin").toolTip().isEmpty());
        enter(window, "tax", QStringLiteral("INR 90"));
        // A vendor in another state: all of it is IGST.
        QCOMPARE(expense().taxSplit.igst, std::int64_t(9000));
        enter(window, "amount", QStringLiteral("Rs.1,855.26"));
        QCOMPARE(expense().amount, std::int64_t(185526));
        enter(window, "amount", QStringLiteral("lots"));
        QCOMPARE(expense().amount, std::int64_t(185526));
        QVERIFY(!control<QLineEdit>(window, "amount").toolTip().isEmpty());
        books.model.undo();
        QCOMPARE(expense().amount, std::int64_t(50000));
    }

    void aRateIsKeptForTheNextExpenseInThatCurrency() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        control<ExpensesScreen>(window, "expensesScreen").select({books.model.library().expenses[2].id});
        enter(window, "rate", QStringLiteral("83.25"));
        QCOMPARE(books.model.library().expenses[2].rateMicros, std::int64_t(83'250'000));
        QCOMPARE(books.model.library().rate("USD").value_or(0), std::int64_t(83'250'000));
    }

    void deletingSeveralIsOneStepWithAWayBack() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        auto& screen = control<ExpensesScreen>(window, "expensesScreen");
        const Library before = books.model.library();
        screen.select({before.expenses[0].id, before.expenses[1].id});
        QTest::keyClick(&control<QTableView>(window, "expenses"), Qt::Key_Delete);
        QCOMPARE(books.model.library().expenses.size(), std::size_t(2));
        QCOMPARE(books.model.undoTitle(), QStringLiteral("Delete 2 Expenses"));
        QVERIFY(control<QPushButton>(window, "toastAction").isVisible());
        control<QPushButton>(window, "toastAction").click();
        QVERIFY(books.model.library() == before);
    }

    void severalGetACategoryAtOnce() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        const Library before = books.model.library();
        control<ExpensesScreen>(window, "expensesScreen").select({before.expenses[1].id, before.expenses[3].id});
        auto& combo = control<QComboBox>(window, "severalCategory");
        combo.setCurrentIndex(2);  // after "No category": the second category
        emit combo.activated(2);
        for (const std::size_t i : {1, 3}) {
            QCOMPARE(books.model.library().expenses[i].categoryID, std::optional(before.categories[1].id));
            QVERIFY(books.model.library().expenses[i].claimTax);
        }
    }

    void aTripIsDistanceTimesTheRateOfTheDay() {
        OpenBooks books;
        auto owned = std::make_unique<TestPrompts>();
        owned->trip = MileageTrip{{2026, 11, 20}, "To the printer", 12500};
        Window window(books.model, std::move(owned));
        auto& screen = control<ExpensesScreen>(window, "expensesScreen");
        screen.newMileageTrip();
        books.model.perform(QStringLiteral("Change Settings"), [](Library library, Day) {
            library.business.mileageRateMinor = 2000;
            return library;
        });
        const Expense& trip = books.model.library().expenses.front();
        QCOMPARE(trip.amount, std::int64_t(12500));
        QCOMPARE(trip.mileageRateMinor, std::int64_t(1000));
        QCOMPARE(books.model.library().category(*trip.categoryID)->name, std::string("Mileage"));
    }

    void looksRightTakesTheMarkOff() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Sample"), [](Library, Day) {
            Library library = someBooks();
            library.expenses.update(0, [](Expense& e) { e.check = "No date was found."; });
            return library;
        });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        control<ExpensesScreen>(window, "expensesScreen").select({books.model.library().expenses[0].id});
        QCOMPARE(control<QLabel>(window, "checkText").text(), QStringLiteral("No date was found."));
        control<QPushButton>(window, "looksRight").click();
        QVERIFY(!books.model.library().expenses[0].check);
        QVERIFY(!control<QPushButton>(window, "looksRight").isVisible());
    }

    void aRemovedReceiptMovesAndEndsTheHistory() {
        OpenBooks books;
        Files::writeAtomically(books.path() / "bill.txt", "a bill");
        const LibraryStore store = books.model.store();
        books.model.perform(QStringLiteral("Sample"), [&](Library, Day) {
            Library library = someBooks();
            library.expenses.update(0, [&](Expense& e) {
                e.attachments.push_back(
                    Attachment::make(store.importReceipt(books.path() / "bill.txt", e.date, e.vendor), "bill.txt"));
            });
            return library;
        });
        Window window(books.model, std::make_unique<TestPrompts>());
        window.show();
        control<ExpensesScreen>(window, "expensesScreen").select({books.model.library().expenses[0].id});
        control<QToolButton>(window, "removeAttachment").click();
        QVERIFY(books.model.library().expenses[0].attachments.empty());
        QVERIFY(Files::exists(books.path() / "Removed" / "2026-11-03-chai-point.txt"));
        QVERIFY(books.model.undoTitle().isEmpty());
    }
};

static const TestClass<ExpensesScreenTests> registered;

}  // namespace tamba
#include "ExpensesScreenTests.moc"
