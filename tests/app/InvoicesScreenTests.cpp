#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/DocMath.h"
#include "tests/app/Support.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QTableView>

namespace tamba {
namespace {

Library someBooks() {
    Library library = Library::make();
    library.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
    library.business.lutReference = "AD270326000417X";
    Client monsoon = Client::make("Monsoon Tea");
    monsoon.stateCode = "27";
    Client bluebottle = Client::make("Bluebottle Analytics");
    bluebottle.country = "US";
    bluebottle.currency = "USD";
    library.clients.append(monsoon);
    library.clients.append(bluebottle);
    CatalogItem item = CatalogItem::make("Brand identity");
    item.hsn = "998391";
    item.unit = "project";
    item.priceMinor = 15'000'000;
    item.taxBP = 500;
    library.items.append(item);
    return library;
}

}  // namespace

/// The screen as somebody uses it who never touches the mouse, against what the books hold afterwards.
class InvoicesScreenTests : public QObject {
    Q_OBJECT

    struct Open : OpenBooks {
        TestPrompts prompts;
        DocumentActions actions{model, prompts};
        InvoicesScreen screen{model, prompts, actions};

        Open() {
            model.perform(QStringLiteral("Sample"), [](Library, Day) { return someBooks(); });
            screen.resize(1232, 760);
            screen.show();
            screen.activateWindow();
            if (!QTest::qWaitForWindowActive(&screen)) qFatal("the screen gets no keys");
        }
        const Document& document(std::size_t index = 0) { return model.library().documents[index]; }
        /// Issued to the first client, for ₹1,180.00.
        UUID issued() {
            Document draft =
                Books::newDocument(model.library(), DocKind::invoice, model.library().clients[0].id, testDay);
            draft.lines = {Line::make("Design", 1000, 100'000, 1800)};
            model.perform(QStringLiteral("Issue"), [draft](Library library, Day today) {
                return Books::issue(Books::addDraft(std::move(library), draft), draft.id, today);
            });
            return draft.id;
        }
    };

    static QLineEdit& cell(Open& open, int line, const char* name) {
        return control<QLineEdit>(control<QWidget>(open.screen, qPrintable(QStringLiteral("line%1").arg(line))), name);
    }
    /// Types into whatever has the keys, as they fall.
    static void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        // A list of suggestions gets the keys first.
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : QApplication::focusWidget(), key, modifiers);
    }

    /// Invoices in every state, by the names of their clients.
    static Library booksInEveryState() {
        Library library = someBooks();
        const auto add = [&](const char* client, Day date, std::int64_t price, bool issue, std::int64_t paid) {
            library.clients.append(Client::make(client));
            Document draft = Books::newDocument(library, DocKind::invoice, library.clients.back().id, date);
            draft.lines = {Line::make("Work", 1000, price, 1800)};
            library = Books::addDraft(std::move(library), draft);
            if (issue) library = Books::issue(std::move(library), draft.id, date);
            if (paid > 0)
                library = Books::recordPayment(std::move(library), draft.id,
                                               Payment::make(date, paid, 0, PaymentMethod::upi));
        };
        add("Anand", {2026, 11, 20}, 100'000, true, 0);
        add("Bela", {2026, 10, 1}, 200'000, true, 36'000);
        add("Chitra", {2026, 3, 31}, 300'000, true, 354'000);
        add("Dev", {2026, 11, 21}, 400'000, false, 0);
        return library;
    }

private slots:
    void rowsAreFilteredAndOrdered_data() {
        QTest::addColumn<DocumentFilter>("filter");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, DocumentFilter filter, const char* expected) {
            QTest::newRow(name) << filter << QString::fromLatin1(expected);
        };
        row("latest first", {}, "Dev Anand Bela Chitra ");
        row("by size", {.order = DocumentOrder::total}, "Dev Chitra Bela Anand ");
        row("by client", {.order = DocumentOrder::client, .ascending = true}, "Anand Bela Chitra Dev ");
        row("unpaid", {.statuses = statusChoices(DocKind::invoice).at(2).statuses}, "Anand Bela ");
        row("overdue", {.statuses = {DocStatus::overdue}}, "Bela ");
        row("last year", {.days = daysOf(Span::year, {2026, 3, 1}, 4)}, "Chitra ");
        row("by number", {.search = "26-27/002"}, "Bela ");
        row("by amount", {.search = "3,540.00"}, "Chitra ");
        row("estimates", {.kind = DocKind::estimate}, "");
    }
    void rowsAreFilteredAndOrdered() {
        QFETCH(DocumentFilter, filter);
        QFETCH(QString, expected);
        QString clients;
        for (const DocumentRow& row : documentTable(booksInEveryState(), filter, testDay).rows)
            clients += toQt(row.client) + QLatin1Char(' ');
        QCOMPARE(clients, expected);
    }

    void rowsSayWhatIsOwedAndSumsLeaveDraftsOut() {
        Library library = booksInEveryState();
        const DocumentTable table = documentTable(library, {}, testDay);
        QCOMPARE(table.total, std::string("₹7,080.00"));
        QCOMPARE(table.due, std::string("₹3,180.00"));
        QCOMPARE(table.count, std::string("4 invoices"));
        QCOMPARE(table.rows[2].due, std::string("36 days late"));
        QCOMPARE(table.rows[2].balance, std::string("₹2,000.00 due"));
        QCOMPARE(table.rows[1].due, std::string("Due 5 Dec 2026"));
        QCOMPARE(table.rows[1].balance, std::string());
        library.documents.update(1, [](Document& bela) { bela.state = DocState::accepted; });
        QCOMPARE(documentTable(library, {}, testDay).total, std::string("₹4,720.00"));
    }

    void anInvoiceIsEnteredByKeyboardAlone() {
        Open open;
        open.screen.newDocument();
        type(QStringLiteral("monsoon tea"));
        press(Qt::Key_Return);
        QCOMPARE(open.document().clientID, std::optional(open.model.library().clients[0].id));
        QCOMPARE(open.document().supply, SupplyType::intraState);

        // A saved item brings price, code, unit and tax; the empty place below it takes the next.
        cell(open, 0, "lineName").setFocus();
        type(QStringLiteral("brand"));
        press(Qt::Key_Down);
        press(Qt::Key_Tab);
        QCOMPARE(open.document().lines.size(), std::size_t(1));
        QCOMPARE(open.document().lines[0].priceMinor, std::int64_t(15'000'000));
        QCOMPARE(open.document().lines[0].taxBP, 500);
        press(Qt::Key_Tab);  // past the details
        press(Qt::Key_Tab);  // past the code
        type(QStringLiteral("1.5"));
        for (int i = 0; i < 4; ++i) press(Qt::Key_Tab);  // unit, price, discount, tax
        QCOMPARE(open.document().lines[0].qtyMilli, std::int64_t(1500));
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &cell(open, 1, "lineName"));
        type(QStringLiteral("Illustration"));
        press(Qt::Key_Tab);
        type(QStringLiteral("Six plates"));
        press(Qt::Key_Tab);
        type(QStringLiteral("998391"));
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        type(QStringLiteral("piece"));
        press(Qt::Key_Tab);
        type(QStringLiteral("3*1200"));
        press(Qt::Key_Tab);
        type(QStringLiteral("10"));
        press(Qt::Key_Tab);

        QCOMPARE(open.document().lines.size(), std::size_t(2));
        const Line& line = open.document().lines[1];
        QCOMPARE(line.name, std::string("Illustration"));
        QCOMPARE(line.detail, std::string("Six plates"));
        QCOMPARE(line.hsn, std::string("998391"));
        QCOMPARE(line.unit, std::string("piece"));
        QCOMPARE(line.priceMinor, std::int64_t(360'000));
        QCOMPARE(line.discountBP, 1000);
        QCOMPARE(line.taxBP, 1800);
        // 2,25,000.00 + 5 % and 3,240.00 + 18 %: 2,36,250.00 + 3,823.20, rounded to whole rupees.
        QCOMPARE(control<QLabel>(open.screen, "draftTotal").text(), QStringLiteral("₹2,40,073.00"));
        QCOMPARE(control<QLabel>(open.screen, "willBeNumbered").text(),
                 QStringLiteral("Will be numbered INV/26-27/001"));
    }

    void totalsFollowEveryKeyAndStepsAreUndoneByName() {
        Open open;
        open.screen.newDocument();
        cell(open, 0, "lineName").setFocus();
        type(QStringLiteral("Design"));
        press(Qt::Key_Tab);
        cell(open, 0, "linePrice").setFocus();
        cell(open, 0, "linePrice").selectAll();
        type(QStringLiteral("100"));
        QCOMPARE(control<QLabel>(open.screen, "draftTotal").text(), QStringLiteral("₹118.00"));
        QCOMPARE(open.document().lines[0].priceMinor, std::int64_t(0));
        press(Qt::Key_Return);
        QCOMPARE(open.document().lines[0].priceMinor, std::int64_t(10'000));
        QCOMPARE(open.model.undoTitle(), QStringLiteral("Edit Invoice"));
        open.model.undo();
        QCOMPARE(open.document().lines[0].priceMinor, std::int64_t(0));
        open.model.undo();
        QVERIFY(open.document().lines.empty());
    }

    void linesAreMovedAndRemovedByKeys() {
        Open open;
        open.screen.newDocument();
        cell(open, 0, "lineName").setFocus();
        for (const char* name : {"One", "Two", "Three"}) {
            type(QString::fromLatin1(name));
            press(Qt::Key_Return);
        }
        const auto names = [&] {
            std::string all;
            for (const Line& line : open.document().lines) all += line.name + ' ';
            return toQt(all);
        };
        QCOMPARE(names(), QStringLiteral("One Two Three "));
        press(Qt::Key_Up);
        press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(names(), QStringLiteral("One Three Two "));
        press(Qt::Key_Up);
        bool told = false;
        connect(open.screen.findChild<QWidget*>(QStringLiteral("line3")), &QObject::destroyed, this,
                [&told] { told = true; });
        press(Qt::Key_Delete, Qt::ControlModifier);
        QCOMPARE(names(), QStringLiteral("Three Two "));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(told, "the style keeps a widget that is gone, and falls over it when the looks change");
    }

    void whatIsRefusedIsMarkedAndLeavesTheDraft() {
        Open open;
        open.screen.newDocument();
        cell(open, 0, "lineName").setFocus();
        type(QStringLiteral("Design"));
        press(Qt::Key_Tab);
        const auto refused = [&](const char* name, const char* text) {
            QLineEdit& field = cell(open, 0, name);
            field.setFocus();
            field.selectAll();
            type(QString::fromLatin1(text));
            press(Qt::Key_Tab);
            const bool marked = !field.toolTip().isEmpty() && field.text() == QString::fromLatin1(text);
            field.setFocus();
            press(Qt::Key_Escape);
            return marked && field.toolTip().isEmpty();
        };
        const Library before = open.model.library();
        QVERIFY(refused("linePrice", "lots"));
        QVERIFY(refused("linePrice", "-5"));
        QVERIFY(refused("linePrice", "99999999999999"));
        QVERIFY(refused("lineQuantity", "1/0"));
        QVERIFY(refused("lineDiscount", "101"));
        QVERIFY(refused("lineTax", "x"));
        QVERIFY(open.model.library() == before);
        auto& client = control<QLineEdit>(open.screen, "clientName");
        client.setFocus();
        type(QStringLiteral("nobody"));
        press(Qt::Key_Return);
        QVERIFY(!open.document().clientID);
        QVERIFY(control<QLabel>(open.screen, "clientNote").text().contains(QStringLiteral("No client")));
        QVERIFY(open.prompts.alerts.isEmpty());
    }

    void anExportAsksForItsRateAndKeepsIt() {
        Open open;
        open.screen.newDocument();
        type(QStringLiteral("bottle"));
        press(Qt::Key_Return);
        QCOMPARE(open.document().supply, SupplyType::exportLUT);
        QCOMPARE(control<QComboBox>(open.screen, "placeOfSupply").currentText(), QStringLiteral("Outside India"));
        auto& rate = control<QLineEdit>(open.screen, "documentRate");
        QVERIFY(!rate.toolTip().isEmpty());
        rate.setFocus();
        type(QStringLiteral("86.4"));
        press(Qt::Key_Return);
        QCOMPARE(open.document().rateMicros, std::int64_t(86'400'000));
        QCOMPARE(open.model.library().rate("USD").value_or(0), std::int64_t(86'400'000));
        QVERIFY(rate.toolTip().isEmpty());
    }

    void whatIsBeingTypedSurvivesAnotherSelectionAndClosing() {
        Open open;
        const UUID other = open.issued();
        open.screen.newDocument();
        const UUID draft = *open.screen.selected();
        auto& reference = control<QLineEdit>(open.screen, "reference");
        reference.setFocus();
        type(QStringLiteral("PO 7"));
        QVERIFY(open.screen.isEditing());
        open.screen.select(other);
        QCOMPARE(open.model.library().document(draft)->reference, std::string("PO 7"));
        open.screen.select(draft);
        reference.setFocus();
        type(QStringLiteral("1"));
        open.screen.close();
        QCOMPARE(open.model.library().document(draft)->reference, std::string("PO 71"));
    }

    void whatIsIssuedIsReadAndNotChanged() {
        Open open;
        const UUID id = open.issued();
        open.screen.select(id);
        QVERIFY(!control<QWidget>(open.screen, "documentEditor").isVisible());
        QCOMPARE(control<QLabel>(open.screen, "documentTitle").text(), QStringLiteral("INV/26-27/001"));
        QSignalSpy noticed(&open.screen, &InvoicesScreen::noticed);
        const Library before = open.model.library();
        QTest::keyClick(&control<QTableView>(open.screen, "documents"), Qt::Key_Delete);
        QVERIFY(open.model.library() == before);
        QCOMPARE(noticed.size(), 1);
    }

    void theSmallestWindowHasRoomForNamesAndCopiesWholeRows() {
        OpenWindow open(Fixtures::library(testDay));
        const std::pair<Screen, const char*> lists[] = {
            {Screen::expenses, "expenses"}, {Screen::bank, "bankLines"}, {Screen::invoices, "documents"}};
        for (const auto& [screen, name] : lists) {
            open.window.resize(1440, 880);
            open.window.showScreen(screen);
            auto& table = control<QTableView>(open.window, name);
            table.selectRow(2);
            const QString wide = ListParts::selectedText(table);
            open.window.resize(open.window.minimumSize());
            QTRY_VERIFY2(table.columnWidth(1) >= 190 && table.columnWidth(1) < 300, name);
            QCOMPARE(ListParts::selectedText(table), wide);
        }
        const auto& documents = control<QTableView>(open.window, "documents");
        QVERIFY(documents.isColumnHidden(0));
        const QModelIndex client = documents.model()->index(2, 1);
        QCOMPARE(client.data(RowDelegate::Folded).toString(), client.siblingAtColumn(0).data().toString() +
                                                                  QStringLiteral(" · ") +
                                                                  client.data(RowDelegate::Second).toString());
    }

    void aDraftIsDeletedWithAWayBack() {
        Open open;
        open.screen.newDocument();
        QSignalSpy removed(&open.screen, &InvoicesScreen::removed);
        open.screen.deleteSelected();
        QVERIFY(open.model.library().documents.empty());
        QCOMPARE(removed.size(), 1);
        open.model.undo();
        QCOMPARE(open.model.library().documents.size(), std::size_t(1));
    }
};

static const TestClass<InvoicesScreenTests> registered;

}  // namespace tamba

#include "InvoicesScreenTests.moc"
