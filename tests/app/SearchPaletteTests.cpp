#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "TambaCore/Fixtures.h"
#include "tests/app/Support.h"

#include <QLineEdit>
#include <QListView>

namespace tamba {

/// The search over everything, by the keys.
class SearchPaletteTests : public QObject {
    Q_OBJECT

    struct Desk : OpenWindow {
        SearchPalette& palette = *window.findChild<SearchPalette*>();
        QLineEdit& words = *palette.findChild<QLineEdit*>(QStringLiteral("searchWords"));
        QListView& list = *palette.findChild<QListView*>(QStringLiteral("searchHits"));

        Desk() : OpenWindow(Fixtures::library(testDay)) {}
        void search(const std::string& text) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_K, Qt::ControlModifier);
            QVERIFY(palette.isVisible());
            words.setText(toQt(text));
            QTRY_VERIFY(palette.isSettled());
        }
        void press(Qt::Key key) { QTest::keyClick(&words, key); }
        [[nodiscard]] QString current() const { return list.currentIndex().data().toString(); }
        [[nodiscard]] const Library& library() const { return model.library(); }
    };

private slots:
    void aRecordOpensOnItsScreen() {
        Desk desk;
        const auto numbered = [&](const Document& d) { return d.kind == DocKind::invoice && d.number; };
        const Document& invoice =
            *std::find_if(desk.library().documents.begin(), desk.library().documents.end(), numbered);
        desk.search(*invoice.number);
        // Below its title stands what is known of it, and nothing in its place.
        QVERIFY(desk.list.currentIndex().data(RowDelegate::Second).toString().contains(QStringLiteral("₹")));
        QVERIFY(!desk.list.currentIndex().data(RowDelegate::Folded).isValid());
        desk.press(Qt::Key_Return);
        QVERIFY(!desk.palette.isVisible());
        QCOMPARE(desk.window.screen(), Screen::invoices);
        QCOMPARE(desk.window.findChild<InvoicesScreen*>()->selected(), std::optional(invoice.id));

        const Expense& expense = desk.library().expenses[3];
        desk.search(expense.vendor + " " + MoneyFormat::plain(expense.amount, Currency::of(expense.currency)));
        desk.press(Qt::Key_Return);
        QCOMPARE(desk.window.screen(), Screen::expenses);
        const auto selected = desk.window.findChild<ExpensesScreen*>()->selected();
        QCOMPARE(desk.library().expense(selected.at(0))->vendor, expense.vendor);

        const BankTransaction& line = desk.library().transactions[5];
        desk.search(line.text);
        desk.press(Qt::Key_Return);
        QCOMPARE(desk.window.screen(), Screen::bank);
        const auto shown = desk.window.findChild<BankScreen*>()->selected();
        QCOMPARE(find(desk.library().transactions, *shown)->text, line.text);

        const CatalogItem& item = desk.library().items[1];
        emit desk.palette.chosen(Search::Kind::item, item.id);
        SettingsSheet settings(&desk.window, desk.library(), testDay, desk.prompts.settingsContext);
        settings.show();
        QVERIFY(settings.findChild<QLineEdit*>(QStringLiteral("itemName"))->isVisible());
        QCOMPARE(settings.findChild<QLineEdit*>(QStringLiteral("itemName"))->text(), toQt(item.name));
    }

    void theArrowsPassHeadingsAndAllOfAKindCanBeSeen() {
        Desk desk;
        desk.search("a");
        const auto* rows = desk.list.model();
        const QModelIndex first = desk.list.currentIndex();
        QCOMPARE(first.row(), 1);
        for (int i = 0; i < 5; ++i) desk.press(Qt::Key_Down);
        QVERIFY(desk.current().startsWith(QStringLiteral("Show all ")));
        const int before = rows->rowCount();
        desk.press(Qt::Key_Down);  // over the next heading
        QCOMPARE(desk.list.currentIndex().row(), 8);
        desk.press(Qt::Key_Up);
        desk.press(Qt::Key_Return);
        QVERIFY(desk.palette.isVisible());
        QVERIFY(rows->rowCount() > before);
        QCOMPARE(desk.list.currentIndex().row(), 6);
        for (int i = 0; i < 300; ++i) desk.press(Qt::Key_PageUp);
        QCOMPARE(desk.list.currentIndex().row(), 1);
    }

    void whatIsNewIsFound() {
        Desk desk;
        desk.search("zanzibar");
        QVERIFY(!desk.list.isVisible());
        desk.press(Qt::Key_Escape);
        desk.model.perform(QStringLiteral("Client"), [](Library library, Day) {
            library.clients.append(Client::make("Zanzibar Spices"));
            return library;
        });
        desk.search("zanzibar");
        QCOMPARE(desk.current(), QStringLiteral("Zanzibar Spices"));
    }

    void commandsRunAndEscapeGivesTheKeysBack() {
        Desk desk;
        auto* field = desk.window.findChild<QLineEdit*>(QStringLiteral("search"));
        desk.window.showScreen(Screen::expenses);
        field->setFocus();
        desk.search("zanzibar");
        desk.press(Qt::Key_Escape);
        QVERIFY(!desk.palette.isVisible());
        QCOMPARE(QApplication::focusWidget(), field);

        const auto choose = [&](const char* title) {
            while (desk.current() != QLatin1String(title)) {
                const QModelIndex before = desk.list.currentIndex();
                desk.press(Qt::Key_Down);
                QVERIFY(desk.list.currentIndex() != before);
            }
            desk.press(Qt::Key_Return);
        };
        desk.search("credit notes");
        choose("Credit Notes");
        QCOMPARE(desk.window.screen(), Screen::invoices);
        QVERIFY(!desk.palette.isVisible());

        desk.search("report spending");
        choose("Spending");
        QCOMPARE(desk.window.screen(), Screen::reports);
        QCOMPARE(desk.window.findChild<ReportsScreen*>()->choice().kind, ReportKind::spending);
    }

    void theDigitsFollowTheSidebar() {
        Desk desk;
        const Screen sidebar[] = {Screen::overview, Screen::expenses, Screen::invoices,
                                  Screen::clients,  Screen::bank,     Screen::reports};
        for (const Screen screen :
             {Screen::reports, Screen::bank, Screen::clients, Screen::invoices, Screen::expenses, Screen::overview}) {
            const auto place = std::find(std::begin(sidebar), std::end(sidebar), screen) - std::begin(sidebar);
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(Qt::Key_1 + place), Qt::ControlModifier);
            QCOMPARE(desk.window.screen(), screen);
        }
    }
};

static const TestClass<SearchPaletteTests> registered;

}  // namespace tamba

#include "SearchPaletteTests.moc"
