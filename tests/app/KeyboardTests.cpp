#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/app/Support.h"

#include <QLineEdit>
#include <QTimer>

namespace tamba {

/// An afternoon's work by keys alone, in the window and its dialogs as they are.
class KeyboardTests : public QObject {
    Q_OBJECT

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        // A list of suggestions gets the keys first.
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(popup ? popup : focus ? focus : QApplication::activeWindow(), key, modifiers);
    }
    static void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text)); }
    /// Presses Tab until the control of that name has the keys, as one does who looks where they are.
    static void tabTo(const char* name) {
        for (int i = 0; i < 80; ++i) {
            const QWidget* at = QApplication::focusWidget();
            if (at && at->objectName() == QLatin1String(name)) return;
            press(Qt::Key_Tab);
        }
        qFatal("Tab does not lead to %s", name);
    }

private slots:
    void fromABillToAnIssuedInvoice() {
        OpenBooks books;
        books.model.perform(QStringLiteral("Settings"), [](Library, Day) { return testing::aBook(); });
        Window window(books.model);
        window.resize(1440, 880);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        press(Qt::Key_2, Qt::ControlModifier);
        press(Qt::Key_N, Qt::ControlModifier);
        type("Chai Point");
        tabTo("amount");
        type("2 * 125");
        tabTo("category");
        type("Mea");
        tabTo("notes");
        type("Two pots");
        press(Qt::Key_Tab);
        const Library& library = books.model.library();
        QCOMPARE(library.expenses.size(), std::size_t(1));
        const Expense bill = library.expenses[0];
        QCOMPARE(bill.vendor, std::string("Chai Point"));
        QCOMPARE(bill.amount, std::int64_t(25'000));
        QCOMPARE(library.category(bill.categoryID.value_or(UUID()))->name, std::string("Meals"));
        QTRY_COMPARE(books.model.saving(), AppModel::Saving::saved);
        QCOMPARE(books.onDisk().expenses[0].notes, std::string("Two pots"));

        press(Qt::Key_3, Qt::ControlModifier);
        press(Qt::Key_N, Qt::ControlModifier);
        type("saffron");
        press(Qt::Key_Return);
        tabTo("lineName");
        type("Packaging");
        tabTo("linePrice");
        type("1500");
        press(Qt::Key_Return);
        tabTo("primaryAction");
        // The dialog asks in a loop of its own.
        QString asked;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
            QWidget* sheet = QApplication::activeModalWidget();
            if (!sheet) return;
            answer.stop();
            asked = sheet->windowTitle();
            QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
        });
        answer.start(10);
        press(Qt::Key_Space);
        QCOMPARE(asked, QStringLiteral("Issue This Invoice"));
        // A desktop gives the keys back to the window; here nobody does.
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const Document& invoice = library.documents[0];
        QCOMPARE(invoice.displayNumber(), std::string("INV/26-27/001"));
        QCOMPARE(Books::balance(library, invoice), std::int64_t(177'000));

        press(Qt::Key_K, Qt::ControlModifier);
        type("chai");
        QTRY_VERIFY(window.findChild<SearchPalette*>()->isSettled());
        press(Qt::Key_Return);
        QCOMPARE(window.screen(), Screen::expenses);
        QCOMPARE(window.findChild<ExpensesScreen*>()->selected(), std::vector{bill.id});
    }
};

static const TestClass<KeyboardTests> registered;

}  // namespace tamba

#include "KeyboardTests.moc"
