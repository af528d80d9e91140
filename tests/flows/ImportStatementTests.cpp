#include "Tamba/StatementImport.h"
#include "Tamba/Widgets/Overlays.h"
#include "TambaCore/Base/Files.h"
#include "tests/flows/Person.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTableView>

namespace tamba {

/// Statements dropped on the window become bank lines, once.
class ImportStatementTests : public QObject {
    Q_OBJECT

    using Path = std::filesystem::path;

    static Path statement(const char* name) { return Path(TEST_DATA "/statements") / name; }

    static void finish(Window& window) { QTRY_VERIFY(!window.findChild<StatementImport*>()->isBusy()); }

    static void nameAccount(QDialog& sheet) {
        auto* accounts = sheet.findChild<QComboBox*>(QStringLiteral("importAccount"));
        if (accounts->currentIndex() == accounts->count() - 1)
            sheet.findChild<QLineEdit*>(QStringLiteral("importAccountName"))->setText(QStringLiteral("HDFC Current"));
    }
    static QPushButton& importButton(QDialog& sheet) {
        return *sheet.findChild<QPushButton*>(QStringLiteral("sheetMain"));
    }
    static QString text(QDialog& sheet, const char* label) {
        return sheet.findChild<QLabel*>(QString::fromLatin1(label))->text();
    }
    static void choose(QDialog& sheet, int column, ColumnUse use) {
        auto* choice = sheet.findChild<QComboBox*>(QStringLiteral("columnUse%1").arg(column));
        choice->setCurrentIndex(choice->findData(static_cast<int>(use)));
    }
    static std::vector<std::int64_t> amounts(const Library& library) {
        std::vector<std::int64_t> all;
        for (const BankTransaction& line : library.transactions) all.push_back(line.amount);
        return all;
    }

    struct Desk : OpenWindow {
        Desk() { prompts.drive = nameAccount; }
        [[nodiscard]] std::string file() {
            model.saveNow();
            return Files::read(path() / "tamba.json");
        }
    };

private slots:
    void aStatementComesInOnceAndUndoTakesItBack() {
        Desk desk;
        desk.rename("Studio Tamarind");
        const std::string before = desk.file();
        QCOMPARE(drop(desk.window, {statement("hdfc.csv")}), QStringLiteral("Drop to import this statement"));
        finish(desk.window);
        const Library after = desk.model.library();
        QCOMPARE(amounts(after), (std::vector<std::int64_t>{-45000, 15000000, -1234567}));
        for (const BankTransaction& line : after.transactions)
            QVERIFY(line.accountID && find(after.accounts, *line.accountID));
        QCOMPARE(desk.model.undoTitle(), QStringLiteral("Import Statement"));
        QVERIFY(desk.window.findChild<QLabel*>(QStringLiteral("toastText"))
                    ->text()
                    .startsWith(QStringLiteral("3 lines added to ")));

        QStringList seen;
        desk.prompts.drive = [&](QDialog& sheet) {
            nameAccount(sheet);
            seen << text(sheet, "importSummary") << QVariant(importButton(sheet).isEnabled()).toString();
        };
        drop(desk.window, {statement("hdfc.csv")});
        finish(desk.window);
        QCOMPARE(seen, (QStringList{QStringLiteral("3 lines, 3 already in the books"), QStringLiteral("false")}));
        QCOMPARE(desk.model.library(), after);

        desk.model.undo();
        QCOMPARE(desk.file(), before);
    }

    void aTickedLineComesInAlthoughItsEqualIsThere() {
        Desk desk;
        drop(desk.window, {statement("hdfc.csv")});
        finish(desk.window);
        desk.prompts.drive = [](QDialog& sheet) {
            nameAccount(sheet);
            static_cast<ImportSheet&>(sheet).showList(ImportList::held);
            sheet.show();
            auto* lines = sheet.findChild<QTableView*>(QStringLiteral("importLines"));
            const QModelIndex tick = lines->model()->index(2, lines->model()->columnCount() - 1);
            QTest::mouseClick(lines->viewport(), Qt::LeftButton, {}, lines->visualRect(tick).center());
            QCOMPARE(importButton(sheet).text(), QStringLiteral("Import 1 Line"));
        };
        drop(desk.window, {statement("hdfc.csv")});
        finish(desk.window);
        QCOMPARE(amounts(desk.model.library()), (std::vector<std::int64_t>{-45000, 15000000, -1234567, -1234567}));
        desk.model.undo();
        QCOMPARE(desk.model.library().transactions.size(), std::size_t(3));
    }

    void aChangedColumnIsReadAtOnceAndRemembered() {
        Desk desk;
        desk.prompts.drive = [](QDialog& sheet) {
            nameAccount(sheet);
            QVERIFY(text(sheet, "importProof").endsWith(QStringLiteral("= closing ₹2,62,204.33")));
            choose(sheet, 4, ColumnUse::moneyIn);
            QCOMPARE(sheet.findChild<QComboBox*>(QStringLiteral("columnUse5"))->currentText(),
                     QStringLiteral("Not used"));
            choose(sheet, 5, ColumnUse::moneyOut);
            QVERIFY(text(sheet, "importProof").contains(QStringLiteral("but the statement closes with ₹2,62,204.33")));
        };
        drop(desk.window, {statement("hdfc.csv")});
        finish(desk.window);
        const std::vector<std::int64_t> turned{45000, -15000000, 1234567};
        QCOMPARE(amounts(desk.model.library()), turned);
        desk.model.undo();
        desk.prompts.drive = nameAccount;
        drop(desk.window, {statement("hdfc.csv")});
        finish(desk.window);
        QCOMPARE(amounts(desk.model.library()), turned);
    }

    void datesAndSignsAreTurnedByHand() {
        Desk desk;
        desk.prompts.drive = [](QDialog& sheet) {
            nameAccount(sheet);
            QCOMPARE(text(sheet, "importSummary"), QStringLiteral("1 line, 1 row skipped"));
            auto* order = sheet.findChild<QComboBox*>(QStringLiteral("importOrder"));
            order->setCurrentIndex(order->findData(static_cast<int>(DateOrder::mdy)));
            emit order->activated(order->currentIndex());
            QCOMPARE(text(sheet, "importSummary"), QStringLiteral("2 lines"));
            sheet.findChild<QCheckBox*>(QStringLiteral("importPositive"))->toggle();
        };
        drop(desk.window, {statement("charges-positive.csv")});
        finish(desk.window);
        QCOMPARE(amounts(desk.model.library()), (std::vector<std::int64_t>{-22000, -3140}));
        QCOMPARE(desk.model.library().transactions[0].date, (Day{2026, 4, 2}));
    }

    void whatCannotBeReadIsSaidAndTheNextFileGoesOn() {
        Desk desk;
        drop(desk.window, {statement("binary.xls"), statement("hdfc.csv")});
        finish(desk.window);
        QCOMPARE(desk.prompts.alerts.size(), 1);
        QVERIFY(desk.prompts.alerts.front().startsWith(QStringLiteral("That workbook is of an old kind")));
        QCOMPARE(desk.model.library().transactions.size(), std::size_t(3));
    }

    void theOverlaySaysWhatBecomesOfTheFiles() {
        Desk desk;
        desk.prompts.drive = [](QDialog& sheet) { importButton(sheet).setEnabled(false); };
        QCOMPARE(drop(desk.window, {statement("hdfc.csv"), statement("statement.pdf"), "bill.heic"}),
                 QStringLiteral("Drop to add 2 receipts and import 1 statement"));
        finish(desk.window);
        QTRY_VERIFY_WITH_TIMEOUT(!desk.window.receipts().isBusy(), 60000);
    }

    void aLargeFileIsReadAsideAndCanBeCancelled_data() {
        QTest::addColumn<bool>("cancelled");
        QTest::newRow("read") << false;
        QTest::newRow("cancelled") << true;
    }
    void aLargeFileIsReadAsideAndCanBeCancelled() {
        QFETCH(bool, cancelled);
        Desk desk;
        std::string text = "Date,Narration,Amount\n";
        constexpr int lines = 30000;
        for (int i = 0; i < lines; ++i)
            text += "13/04/2026,UPI/DR/" + std::to_string(i) + "/NORTHWIND TRADERS,-12.50\n";
        const Path file = desk.path() / "large.csv";
        Files::writeAtomically(file, text);
        auto& import = *desk.window.findChild<StatementImport*>();
        auto& strip = *desk.window.findChild<ActivityStrip*>();
        bool shown = false;
        connect(&import, &StatementImport::workBegan, this, [&] {
            shown = strip.isVisible();
            if (cancelled) strip.findChild<QPushButton*>(QStringLiteral("stripCancel"))->click();
        });
        desk.prompts.drive = [](QDialog& sheet) {
            nameAccount(sheet);
            // Another use of a column is given up before it is read: all is as it was.
            choose(sheet, 2, ColumnUse::balance);
            QVERIFY(static_cast<ImportSheet&>(sheet).isReading());
            QVERIFY(!importButton(sheet).isEnabled());
            sheet.findChild<QPushButton*>(QStringLiteral("stripCancel"))->click();
            QVERIFY(!static_cast<ImportSheet&>(sheet).isReading());
            QCOMPARE(sheet.findChild<QComboBox*>(QStringLiteral("columnUse2"))->currentText(),
                     QStringLiteral("Amount"));
            QVERIFY(importButton(sheet).isEnabled());
        };
        drop(desk.window, {file});
        QTRY_VERIFY_WITH_TIMEOUT(!import.isBusy() && import.findChildren<QThread*>().isEmpty(), 60000);
        QVERIFY(shown);
        QVERIFY(!strip.isVisible());
        QCOMPARE(static_cast<int>(desk.model.library().transactions.size()), cancelled ? 0 : lines);
    }
};

static const TestClass<ImportStatementTests> registered;

}  // namespace tamba

#include "ImportStatementTests.moc"
