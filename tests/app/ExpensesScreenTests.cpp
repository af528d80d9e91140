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

using testing::spent;

Expense inDollars(Expense expense, std::int64_t rateMicros) {
    expense.currency = "USD";
    expense.rateMicros = rateMicros;
    return expense;
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
        Expense chai = spent("Chai Point", 11800, {2026, 11, 3});
        chai.tax = 1800;
        chai.taxSplit = {900, 900, 0, 0};
        chai.claimTax = true;
        chai.categoryID = library.categories[4].id;
        library.expenses.append(chai);
        library.expenses.append(spent("Kagaz", 50000, {2026, 10, 3}));
        library.expenses.append(inDollars(spent("Pixelgrove", 2400, {2026, 3, 31}), 0));
        library.expenses.append(inDollars(spent("Akshar", 1000, {2026, 4, 1}), 80'000'000));
        return library;
    }

    /// The window with these books; the screen and its fields, of which other screens have some of the same names.
    struct Open : OpenWindow {
        ExpensesScreen& screen = *window.findChild<ExpensesScreen*>();

        explicit Open(const Library& library = someBooks()) : OpenWindow(library) {}
        template <class T>
        T& field(const char* name) {
            return control<T>(screen, name);
        }
        [[nodiscard]] const Library& library() const { return model.library(); }
        void select(std::size_t index) { screen.select({library().expenses[index].id}); }
        /// Types into a field and leaves it, as a person does.
        void enter(const char* name, const QString& text) {
            auto& line = field<QLineEdit>(name);
            line.setFocus();
            line.selectAll();
            QTest::keyClicks(&line, text);
            QTest::keyClick(&line, Qt::Key_Return);
        }
    };

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
        QCOMPARE(table.rows[table.rows.size() - 1].hint,
                 std::string("Add the exchange rate to include this in reports."));
    }

    void theMenuLetsAnExpenseRepeatAndConvertsIt() {
        Open open;
        const auto choose = [&](const char* text) {
            QMenu menu;
            open.screen.fillMenu(menu);
            for (QAction* action : menu.findChildren<QAction*>())
                if (action->text() == QLatin1String(text)) return action->trigger();
            QFAIL(text);
        };
        open.select(0);
        choose("Monthly");
        QCOMPARE(open.library().recurring[0].frequency, Frequency::monthly);
        choose("Never");
        QVERIFY(open.library().recurring.empty());
        open.select(3);
        choose("Convert to Rupees");
        QCOMPARE(open.library().expenses[3].amount, std::int64_t(80'000));
    }

    void whatIsBeingTypedIsSavedWhenTheSessionEnds() {
        Open open;
        open.window.showScreen(Screen::expenses);
        open.select(1);
        auto& vendor = open.field<QLineEdit>("vendor");
        vendor.setFocus();
        vendor.selectAll();
        QTest::keyClicks(&vendor, QStringLiteral("Half a na"));
        QVERIFY(saveTyping(open.model));
        QCOMPARE(open.onDisk().expenses[1].vendor, std::string("Half a na"));
    }

    void theListBehindAnotherScreenIsFreshWhenItIsSeen() {
        Open open(Library::make());
        open.window.showScreen(Screen::overview);
        open.model.perform(QStringLiteral("Sample"), [](Library, Day) {
            Library library = someBooks();
            while (isQuick(library)) library.expenses.append(spent("Chai Point", 100, {2026, 5, 1}));
            return library;
        });
        const auto& table = open.field<QTableView>("expenses");
        QCOMPARE(table.model()->rowCount(), 0);
        open.window.showScreen(Screen::expenses);
        QCOMPARE(table.model()->rowCount(), static_cast<int>(open.library().expenses.size()));
    }

    void fieldsBecomeUndoableSteps() {
        Open open;
        open.select(1);
        const auto expense = [&] { return open.library().expenses[1]; };
        open.enter("vendor", QStringLiteral("Kagaz Stationers"));
        QCOMPARE(expense().vendor, std::string("Kagaz Stationers"));
        QCOMPARE(open.model.undoTitle(), QStringLiteral("Change Vendor"));
        open.enter("gstin", QStringLiteral("29aapfu0939f1z"));
        QVERIFY(!open.field<QLineEdit>("gstin").toolTip().isEmpty());
        open.enter("tax", QStringLiteral("INR 90"));
        // A vendor in another state: all of it is IGST.
        QCOMPARE(expense().taxSplit.igst, std::int64_t(9000));
        open.enter("amount", QStringLiteral("Rs.1,855.26"));
        QCOMPARE(expense().amount, std::int64_t(185526));
        open.enter("amount", QStringLiteral("lots"));
        QCOMPARE(expense().amount, std::int64_t(185526));
        QVERIFY(!open.field<QLineEdit>("amount").toolTip().isEmpty());
        open.model.undo();
        QCOMPARE(expense().amount, std::int64_t(50000));
    }

    void aRateIsKeptForTheNextExpenseInThatCurrency() {
        Open open;
        open.select(2);
        open.enter("rate", QStringLiteral("83.25"));
        QCOMPARE(open.library().expenses[2].rateMicros, std::int64_t(83'250'000));
        QCOMPARE(open.library().rate("USD").value_or(0), std::int64_t(83'250'000));
    }

    void deletingSeveralIsOneStepWithAWayBack() {
        Open open;
        const Library before = open.library();
        open.screen.select({before.expenses[0].id, before.expenses[1].id});
        QTest::keyClick(&open.field<QTableView>("expenses"), Qt::Key_Delete);
        QCOMPARE(open.library().expenses.size(), std::size_t(2));
        QCOMPARE(open.model.undoTitle(), QStringLiteral("Delete 2 Expenses"));
        auto& back = control<QPushButton>(open.window, "toastAction");
        QVERIFY(back.isVisible());
        back.click();
        QVERIFY(open.library() == before);
    }

    void severalGetACategoryAndAProjectAtOnce() {
        Library library = someBooks();
        const Client client = Client::make("Saffron Labs"), other = Client::make("Monsoon Tea");
        for (const Client& each : {client, other}) library.clients.append(each);
        const Project project = Project::make("Packaging", client.id);
        library.projects.append(project);
        library.expenses.update(3, [&](Expense& e) { e.clientID = other.id; });
        Open open(library);
        const Library before = open.library();
        open.screen.select({before.expenses[1].id, before.expenses[3].id});
        auto& combo = open.field<QComboBox>("severalCategory");
        combo.setCurrentIndex(2);  // after "No category": the second category
        emit combo.activated(2);
        for (const std::size_t i : {1, 3}) {
            QCOMPARE(open.library().expenses[i].categoryID, std::optional(before.categories[1].id));
            QVERIFY(open.library().expenses[i].claimTax);
        }
        auto& projects = open.field<QComboBox>("severalProject");
        projects.setCurrentText(QStringLiteral("Packaging"));
        emit projects.activated(projects.currentIndex());
        for (const std::size_t i : {1, 3}) QCOMPARE(open.library().expenses[i].projectID, std::optional(project.id));
        QCOMPARE(open.library().expenses[1].clientID, std::optional(client.id));
        QCOMPARE(open.library().expenses[3].clientID, std::optional(other.id));
        QVERIFY(!open.library().expenses[0].projectID);
    }

    void aTripIsDistanceTimesTheRateOfTheDay() {
        Open open(Library::make());
        open.prompts.trip = MileageTrip{{2026, 11, 20}, "To the printer", 12500};
        open.screen.newMileageTrip();
        const Expense& trip = open.library().expenses.front();
        QCOMPARE(trip.amount, std::int64_t(12500));
        QCOMPARE(trip.mileageRateMinor, std::int64_t(1000));
        QCOMPARE(open.library().category(*trip.categoryID)->name, std::string("Mileage"));
    }

    void looksRightTakesTheMarkOff() {
        Library library = someBooks();
        library.expenses.update(0, [](Expense& e) { e.check = "No date was found."; });
        Open open(library);
        open.select(0);
        QCOMPARE(open.field<QLabel>("checkText").text(), QStringLiteral("No date was found."));
        open.field<QPushButton>("looksRight").click();
        QVERIFY(!open.library().expenses[0].check);
        QVERIFY(!open.field<QPushButton>("looksRight").isVisible());
    }

    void aRemovedReceiptMovesAndEndsTheHistory() {
        Open open;
        Files::writeAtomically(open.path() / "bill.txt", "a bill");
        open.model.perform(QStringLiteral("Receipt"), [&](Library library, Day) {
            library.expenses.update(0, [&](Expense& e) {
                const auto kept = open.model.store().importReceipt(open.path() / "bill.txt", e.date, e.vendor);
                e.attachments.push_back(Attachment::make(kept, "bill.txt"));
            });
            return library;
        });
        open.select(0);
        open.field<QToolButton>("removeAttachment").click();
        QVERIFY(open.library().expenses[0].attachments.empty());
        QVERIFY(Files::exists(open.path() / "Removed" / "2026-11-03-chai-point.txt"));
        QVERIFY(open.model.undoTitle().isEmpty());
    }
};

static const TestClass<ExpensesScreenTests> registered;

}  // namespace tamba
#include "ExpensesScreenTests.moc"
