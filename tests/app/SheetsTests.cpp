#include "Tamba/DocumentActions.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/TambaApp.h"
#include "tests/app/Support.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace tamba {

/// What the sheets say while somebody types, and what they hand back.
class SheetsTests : public QObject {
    Q_OBJECT

    static Library booksWithAnInvoice() {
        Library library = testing::aBook();
        testing::billed(library, 10'000'000, testDay, 1800);
        return library;
    }

private slots:
    void atTheEndOfTheSessionASheetKeepsWhatIsTypedAndDecidesNothing_data() {
        QTest::addColumn<bool>("client");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("clients");
        QTest::newRow("a client") << true << "Chai Point" << 2;
        QTest::newRow("a client without a name") << true << "" << 1;
        QTest::newRow("a payment") << false << "100" << 1;
    }
    void atTheEndOfTheSessionASheetKeepsWhatIsTypedAndDecidesNothing() {
        QFETCH(bool, client);
        QFETCH(QString, typed);
        QFETCH(int, clients);
        OpenBooks books;
        books.model.perform(QStringLiteral("Books"), [](Library, Day) { return booksWithAnInvoice(); });
        Window window(books.model);
        window.show();
        QEventLoop session;
        QTimer person;
        connect(&person, &QTimer::timeout, &window, [&] {
            QWidget* sheet = QApplication::activeModalWidget();
            if (!sheet) return;
            person.stop();
            control<QLineEdit>(*sheet, client ? "clientName" : "paymentAmount").setText(typed);
            closeSheets(books.model, [&] {
                QVERIFY(saveTyping(books.model));
                session.quit();
            });
        });
        person.start(5);
        QTimer::singleShot(0, &window, [&] {
            const UUID invoice = books.model.library().documents[0].id;
            if (client) return window.findChild<ClientsScreen*>()->newClient();
            window.findChild<DocumentActions*>()->run(DocumentActions::Action::recordPayment, invoice);
        });
        session.exec();
        const Library saved = books.onDisk();
        QCOMPARE(static_cast<int>(saved.clients.size()), clients);
        QVERIFY(saved.documents[0].payments.empty());
    }

    void aPaymentSaysWhatItLeavesOrWhyNot_data() {
        QTest::addColumn<QString>("received");
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("tds");
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<bool>("good");
        // ₹1,18,000.00 with ₹18,000.00 of GST in it.
        QTest::newRow("all of it") << "" << "" << "" << "Settles the invoice" << true;
        QTest::newRow("10 % of the value without GST") << "" << "1000" << "10,000.00" << "Settles the invoice" << true;
        QTest::newRow("2 %") << "" << "200" << "2,000.00" << "Settles the invoice" << true;
        QTest::newRow("a part") << "18,000" << "" << "" << "Leaves ₹1,00,000.00 open" << true;
        QTest::newRow("too much") << "1,18,001" << "" << "" << "That’s more than the balance due." << false;
        QTest::newRow("no amount") << "lots" << "" << "" << "Enter an amount such as 1,180.00." << false;
    }
    void aPaymentSaysWhatItLeavesOrWhyNot() {
        QFETCH(QString, received);
        QFETCH(QString, rate);
        QFETCH(QString, tds);
        QFETCH(QString, outcome);
        QFETCH(bool, good);
        const Library library = booksWithAnInvoice();
        PaymentSheet sheet(nullptr, library, library.documents[0], testDay);
        if (!received.isEmpty()) control<QLineEdit>(sheet, "paymentAmount").setText(received);
        if (!rate.isEmpty()) control<QPushButton>(sheet, qPrintable(QStringLiteral("tdsRate") + rate)).click();
        QCOMPARE(control<QLineEdit>(sheet, "paymentTDS").text(), tds);
        QCOMPARE(control<QLabel>(sheet, "paymentOutcome").text(), outcome);
        QCOMPARE(control<QPushButton>(sheet, "sheetMain").isEnabled(), good);
    }

    void aToneThatIsLeftKeepsWhatWasWrittenInIt() {
        const Library library = booksWithAnInvoice();
        MailSheet sheet(nullptr, library, library.documents[0], Mail::reminder, testDay.addingDays(30), true);
        auto& words = control<QPlainTextEdit>(sheet, "mailText");
        auto& tone = control<QComboBox>(sheet, "mailTone");
        words.setPlainText(QStringLiteral("My own words"));
        const auto speak = [&](int index) {
            tone.setCurrentIndex(index);
            emit tone.activated(index);
        };
        speak(1);
        QVERIFY(words.toPlainText().contains(QStringLiteral("INV/26-27/001")));
        speak(0);
        QCOMPARE(sheet.draft().body, std::string("My own words"));
    }

    void escapeAsksBeforeItDropsWhatWasSet() {
        SettingsSheet sheet(nullptr, Library::make(), testDay);
        sheet.show();
        QVERIFY(QTest::qWaitForWindowActive(&sheet));
        int asked = 0;
        const auto escape = [&](const char* answer) {
            QTimer::singleShot(0, &sheet, [&asked, answer] {
                for (auto* question : QApplication::activeModalWidget()->findChildren<QLabel*>())
                    asked += question->text() == QLatin1String("Discard the changes?");
                if (auto* button = QApplication::activeModalWidget()->findChild<QPushButton*>(QLatin1String(answer)))
                    button->click();
            });
            QTest::keyClick(&sheet, Qt::Key_Escape);
        };
        control<QLineEdit>(sheet, "upiID").setText(QStringLiteral("kagaz@bank"));
        escape("sheetOther");
        QVERIFY(sheet.isVisible());
        QCOMPARE(sheet.edit().library.business.upiID, std::string("kagaz@bank"));
        escape("sheetMain");
        QVERIFY(!sheet.isVisible());
        QCOMPARE(asked, 2);

        SettingsSheet unchanged(nullptr, Fixtures::library(testDay), testDay);
        unchanged.show();
        QTest::keyClick(&unchanged, Qt::Key_Escape);
        QVERIFY(!unchanged.isVisible());
    }

    void settingsMarkWhatIsWrongAndKeepWhatCameMeanwhile() {
        OpenWindow books;
        books.prompts.changeSettings = [&](const Library& library) {
            SettingsSheet sheet(nullptr, library, testDay);
            auto& pattern = control<QLineEdit>(sheet, "pattern1");
            pattern.setText(QStringLiteral("INVOICE/{YYYY}/{####}"));
            if (!control<QLabel>(sheet, "preview1")
                     .text()
                     .endsWith(QStringLiteral("INVOICE/2026/0001 · too long for GST (16 max)")))
                qFatal("the pattern is not marked");
            pattern.setText(QStringLiteral("I{YY}-{###}"));
            control<QLineEdit>(sheet, "start1").setText(QStringLiteral("41"));
            control<QLineEdit>(sheet, "upiID").setText(QStringLiteral("kagaz studio"));
            if (control<QLabel>(sheet, "upiNote").text().isEmpty()) qFatal("the UPI ID is not marked");
            control<QLineEdit>(sheet, "upiID").setText(QStringLiteral("kagaz@bank"));
            // Another computer's work comes in while the sheet is open.
            books.rename("From elsewhere");
            return sheet.edit();
        };
        control<QAbstractButton>(books.window, "settings").click();
        const Library& library = books.model.library();
        QCOMPARE(library.business.name, std::string("From elsewhere"));
        QCOMPARE(library.business.upiID, std::string("kagaz@bank"));
        QCOMPARE(library.series[0].pattern, std::string("I{YY}-{###}"));
        QCOMPARE(library.series[0].next.at("2026"), std::int64_t(41));
        QCOMPARE(books.model.undoTitle(), QStringLiteral("Change Settings"));
    }

    void aClientThatOthersReferToIsArchivedInstead() {
        OpenWindow books(booksWithAnInvoice());
        books.window.showScreen(Screen::clients);
        auto& screen = *books.window.findChild<ClientsScreen*>();
        screen.select(books.model.library().clients[0].id);
        auto& number = control<QLineEdit>(screen, "clientTaxID");
        number.setFocus();
        QTest::keyClicks(&number, QStringLiteral("29aapfu0939f1z"));
        QVERIFY(!number.toolTip().isEmpty());
        QTest::keyClick(&number, Qt::Key_Return);
        QCOMPARE(books.model.undoTitle(), QStringLiteral("Change GSTIN"));
        screen.deleteSelected();
        QCOMPARE(books.model.library().clients.size(), std::size_t(1));
        QVERIFY(books.model.library().clients[0].archived);
        QVERIFY(!screen.selected());
        books.model.undo();
        QVERIFY(!books.model.library().clients[0].archived);
    }
};

static const TestClass<SheetsTests> registered;

}  // namespace tamba

#include "SheetsTests.moc"
