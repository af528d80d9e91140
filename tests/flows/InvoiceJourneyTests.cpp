#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Receipts/EmailReceipt.h"
#include "TambaCore/Receipts/ReceiptReader.h"
#include "tests/app/Pictures.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>

namespace tamba {

/// One invoice from the client to the last rupee, through the window and its sheets as people see them.
class InvoiceJourneyTests : public QObject {
    Q_OBJECT

    template <class T>
    static T& control(QWidget& within, const char* name) {
        T* found = within.findChild<T*>(QString::fromLatin1(name));
        if (!found) qFatal("no control %s", name);
        return *found;
    }
    static void press(QWidget& within, const char* name) { control<QPushButton>(within, name).click(); }
    static void enter(QLineEdit& field, const QString& text) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    static void set(QDialog& sheet, const char* name, const char* text) {
        control<QLineEdit>(sheet, name).setText(QString::fromUtf8(text));
    }
    /// Chooses from the Invoice menu.
    static void choose(Window& window, const QString& text) {
        auto* menu = window.menuBar()->findChild<QMenu*>(QStringLiteral("documentMenu"));
        emit menu->aboutToShow();
        for (QAction* action : menu->actions())
            if (action->text() == text) return action->trigger();
        qFatal("the menu does not offer %s", qPrintable(text));
    }

private slots:
    void fromTheClientToTheLastRupee() {
        QTemporaryDir folder, desk;
        Day today = testDay;
        AppModel model([&today] { return today; });
        model.open(toPath(folder.path()));
        model.perform(QStringLiteral("Settings"), [](Library library, Day) {
            library.business.name = "Kagaz Studio";
            library.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
            return library;
        });
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        prompts.file = toPath(desk.path());
        Window window(model, std::move(owned));
        window.resize(1440, 880);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        prompts.client = Client::make("Monsoon Tea");
        prompts.client->email = "accounts@monsoon.example";
        prompts.client->stateCode = "27";
        QTest::keyClick(&window, Qt::Key_4, Qt::ControlModifier);
        QCOMPARE(window.screen(), Screen::clients);
        QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(model.library().clients.size(), std::size_t(1));
        press(window, "newInvoiceForClient");
        QCOMPARE(window.screen(), Screen::invoices);

        auto& screen = *window.findChild<InvoicesScreen*>();
        const auto invoice = [&]() -> const Document& { return model.library().documents[0]; };
        const auto status = [&] { return control<QLabel>(screen, "pill").text(); };
        auto& line = control<QWidget>(screen, "line0");
        enter(control<QLineEdit>(line, "lineName"), QStringLiteral("Packaging"));
        enter(control<QLineEdit>(line, "linePrice"), QStringLiteral("2 * 50000"));

        picture(window, QStringLiteral("invoice-1-draft"));
        QString numbered;
        prompts.drive = [&](QDialog& sheet) { numbered = control<QLabel>(sheet, "issueNumber").text(); };
        press(screen, "primaryAction");
        QCOMPARE(numbered, QStringLiteral("INV/26-27/001"));
        QCOMPARE(status(), QStringLiteral("Sent"));
        QVERIFY(model.undoTitle().isEmpty());

        prompts.drive = {};
        choose(window, QStringLiteral("Save PDF…"));
        const auto kept = toPath(folder.path()) / "Invoices" / "INV-26-27-001.pdf";
        QVERIFY(Files::sameBytes(kept, toPath(desk.path()) / "INV-26-27-001.pdf"));
        std::string page;
        for (const std::string& text : ReceiptReader().lines(kept).lines) page += text + '\n';
        for (const char* text : {"Tax Invoice", "INV/26-27/001", "Monsoon Tea", "Packaging", "1,18,000.00"})
            QVERIFY2(page.find(text) != std::string::npos, page.c_str());

        picture(window, QStringLiteral("invoice-2-issued"));
        // Half of it comes, less 10 % of its value without GST.
        QString outcome;
        prompts.drive = [&](QDialog& sheet) {
            set(sheet, "paymentAmount", "54,000");
            press(sheet, "tdsRate1000");
            outcome = control<QLabel>(sheet, "paymentOutcome").text();
            picture(sheet, QStringLiteral("invoice-3-payment"));
        };
        choose(window, QStringLiteral("Record Payment…"));
        QCOMPARE(outcome, QStringLiteral("Leaves ₹59,000.00 open"));
        QCOMPARE(invoice().payments.at(0).tds, std::int64_t(500'000));
        QCOMPARE(status(), QStringLiteral("Part paid"));

        today = testDay.addingDays(30);
        model.lookAtDay();
        QCOMPARE(status(), QStringLiteral("Overdue"));
        QCOMPARE(control<QAbstractButton>(window, "screenInvoices").accessibleDescription(),
                 QStringLiteral("1 overdue"));
        picture(window, QStringLiteral("invoice-4-overdue"));
        prompts.drive = [](QDialog& sheet) { set(sheet, "mailSubject", "About INV/26-27/001"); };
        press(screen, "primaryAction");
        const auto message = EmailReceipt::parse(Files::read(toPath(desk.path()) / "INV-26-27-001.eml"));
        QCOMPARE(message.subject, std::string("About INV/26-27/001"));
        QVERIFY(message.bodyText.find("₹59,000.00") != std::string::npos);
        QCOMPARE(message.attachments.size(), std::size_t(1));
        QCOMPARE(invoice().remindersSent, 1);

        prompts.drive = [&](QDialog& sheet) {
            set(sheet, "creditAmount1", "100001");
            QVERIFY(!control<QPushButton>(sheet, "sheetMain").isEnabled());
            set(sheet, "creditAmount1", "59000 / 1.18");
            outcome = control<QLabel>(sheet, "creditOutcome").text();
        };
        choose(window, QStringLiteral("Credit Note…"));
        QCOMPARE(outcome, QStringLiteral("Nothing of the invoice is left to be paid"));
        QCOMPARE(control<QLabel>(screen, "documentTitle").text(), QStringLiteral("CN/26-27/001"));
        screen.select(invoice().id);
        QCOMPARE(status(), QStringLiteral("Paid"));
        picture(window, QStringLiteral("invoice-5-paid"));
        QVERIFY2(prompts.alerts.isEmpty(), qPrintable(prompts.alerts.join(QLatin1Char('\n'))));
    }
};

static const TestClass<InvoiceJourneyTests> registered;

}  // namespace tamba

#include "InvoiceJourneyTests.moc"
