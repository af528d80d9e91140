#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Sheets/Settings/RulesPage.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/app/Support.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

namespace tamba {
namespace {

/// A month of a small studio. The lines, newest first: tea that was had twice for one sum, a receipt that leaves a
/// tenth, one that pays two invoices, a transfer to itself, rent of which the books know nothing, and a fare the books
/// know exactly.
struct Month {
    Library library = testing::aBook();
    UUID partInvoice, firstInvoice, secondInvoice, fare;

    Month() {
        partInvoice = testing::billed(library, 10'000'000, {2026, 11, 1});
        firstInvoice = testing::billed(library, 1'100'000, {2026, 11, 1});
        secondInvoice = testing::billed(library, 2'300'000, {2026, 11, 1});
        expense("Chai Point", {2026, 11, 18}, 25'000);
        expense("Chai Point", {2026, 11, 19}, 25'000);
        fare = expense("Deccan Cabs", {2026, 11, 2}, 64'000);
        line({2026, 11, 2}, "UPI/DR/1/DECCAN CABS/YESB", -64'000);
        line({2026, 11, 3}, "NEFT DR-KARVE ESTATES-RENT", -4'000'000).counterparty = "KARVE ESTATES";
        line({2026, 11, 4}, "TRF TO SAVINGS 0042", -5'000'000);
        line({2026, 11, 9}, "NEFT CR-77-SAFFRON LABS", 3'400'000);
        line({2026, 11, 11}, "NEFT CR-78-SAFFRON LABS", 9'000'000);
        line({2026, 11, 19}, "UPI/DR/2/CHAI POINT", -25'000);
    }
    UUID expense(std::string vendor, Day day, std::int64_t amount) {
        Expense e = testing::spent(std::move(vendor), amount, day);
        e.categoryID = library.categories[0].id;
        library.expenses.append(e);
        return e.id;
    }
    BankTransaction& line(Day day, std::string text, std::int64_t amount) {
        lines.push_back(BankTransaction::make(day, std::move(text), amount));
        lines.back().accountID = library.accounts[0].id;
        return lines.back();
    }
    Library books() {
        for (const BankTransaction& each : lines) library.transactions.append(each);
        return library;
    }
    std::vector<BankTransaction> lines;
};

}  // namespace

/// The screen as somebody uses it who never touches the mouse, against what the books hold afterwards.
class BankScreenTests : public QObject {
    Q_OBJECT

    struct Open : OpenBooks {
        Month month;
        TestPrompts prompts;
        BankScreen screen{model, prompts};

        /// Beside expenses of long ago: many make large books, of which the pane learns in the background.
        explicit Open(int others = 0) {
            for (int i = 0; i < others; ++i) month.expense("Others", {2020, 1, 1}, 100 + i);
            model.perform(QStringLiteral("Sample"), [this](Library, Day) { return month.books(); });
            screen.resize(1232, 760);
            screen.show();
            screen.activateWindow();
            if (!QTest::qWaitForWindowActive(&screen)) qFatal("the screen gets no keys");
        }
        void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
        [[nodiscard]] const BankTransaction& line(std::size_t index) const {
            return model.library().transactions[index];
        }
        [[nodiscard]] std::string selectedText() const {
            const BankTransaction* found = find(model.library().transactions, *screen.selected());
            return found ? found->text : std::string();
        }
        [[nodiscard]] std::int64_t balance(const UUID& invoice) const {
            return Books::balance(model.library(), *model.library().document(invoice));
        }
        /// What a key would choose.
        [[nodiscard]] QString card(int key) const {
            QApplication::processEvents();  // new cards come up with the next round of events
            for (const auto* each : screen.findChildren<QAbstractButton*>(QStringLiteral("choice%1").arg(key)))
                if (each->isVisible()) return each->accessibleName();
            return {};
        }
        [[nodiscard]] QString tab(BankList list) const {
            return screen.findChild<QTabBar*>(QStringLiteral("bankLists"))->tabText(static_cast<int>(list));
        }
    };

private slots:
    void aMonthIsDoneByKeyboardAlone_data() {
        QTest::addColumn<int>("others");
        QTest::newRow("small books") << 0;
        QTest::newRow("large books") << 2'100;
    }
    void aMonthIsDoneByKeyboardAlone() {
        QFETCH(const int, others);
        Open open(others);
        QTRY_VERIFY(open.card(1).contains(QStringLiteral("Chai Point")));
        QCOMPARE(open.selectedText(), std::string("UPI/DR/2/CHAI POINT"));
        open.press(Qt::Key_1);  // the tea of the same day, ahead of yesterday's for the same sum
        QCOMPARE(open.line(5).expenseID, std::optional(open.model.library().expenses[1].id));

        QCOMPARE(open.selectedText(), std::string("NEFT CR-78-SAFFRON LABS"));
        open.press(Qt::Key_1);  // the missing tenth is what clients deduct
        const Document& paid = *open.model.library().document(open.month.partInvoice);
        QCOMPARE(paid.payments.size(), std::size_t(1));
        QCOMPARE(paid.payments[0].amount, std::int64_t(9'000'000));
        QCOMPARE(paid.payments[0].tds, std::int64_t(1'000'000));

        QCOMPARE(open.selectedText(), std::string("NEFT CR-77-SAFFRON LABS"));
        open.prompts.drive = [](QDialog& sheet) {
            const auto click = [&](const char* name) {
                sheet.findChild<QPushButton*>(QString::fromLatin1(name))->click();
            };
            const auto* outcome = sheet.findChild<QLabel*>(QStringLiteral("splitOutcome"));
            click("takeAll0");
            QCOMPARE(outcome->text(), QStringLiteral("₹23,000.00 still to share"));
            sheet.findChild<QLineEdit*>(QStringLiteral("share1"))->setText(QStringLiteral("24000"));
            QCOMPARE(outcome->text(), QStringLiteral("₹1,000.00 more than the line"));
            click("takeAll1");
            QCOMPARE(outcome->text(), QStringLiteral("All of it is shared."));
        };
        open.press(Qt::Key_S);
        QCOMPARE(open.balance(open.month.firstInvoice), std::int64_t(0));
        QCOMPARE(open.balance(open.month.secondInvoice), std::int64_t(0));

        QCOMPARE(open.selectedText(), std::string("TRF TO SAVINGS 0042"));
        open.press(Qt::Key_I);
        QVERIFY(open.line(2).ignored);

        QCOMPARE(open.selectedText(), std::string("NEFT DR-KARVE ESTATES-RENT"));
        open.screen.findChild<QPushButton*>(QStringLiteral("createExpense"))->setFocus();
        open.press(Qt::Key_E);  // wherever the keys go within the screen
        const Expense& rent = open.model.library().expenses.back();
        QCOMPARE(rent.vendor, std::string("KARVE ESTATES"));
        QCOMPARE(rent.amount, std::int64_t(4'000'000));
        QCOMPARE(open.line(1).expenseID, std::optional(rent.id));

        QCOMPARE(open.selectedText(), std::string("UPI/DR/1/DECCAN CABS/YESB"));
        open.press(Qt::Key_1);
        QCOMPARE(open.line(0).expenseID, std::optional(open.month.fare));
        QCOMPARE(openLines(open.model.library()), std::size_t(0));
        QCOMPARE(open.screen.selected(), std::optional<UUID>());
        QVERIFY(open.prompts.alerts.isEmpty());

        // Six decisions, six steps back.
        for (int i = 0; i < 6; ++i) open.model.undo();
        QCOMPARE(openLines(open.model.library()), std::size_t(6));
    }

    void theObviousOnesAreOneStepThatCanBeTakenBack() {
        Open open;
        const Library before = open.model.library();
        QSignalSpy notices(&open.screen, &BankScreen::matched);
        open.screen.matchObvious();
        // The fare is plain; two teas for one sum, a receipt with a tenth missing and the rest are for a person.
        QCOMPARE(notices.value(0).value(0).toString(), QStringLiteral("1 line matched"));
        QCOMPARE(open.line(0).expenseID, std::optional(open.month.fare));
        QCOMPARE(open.tab(BankList::matched), QStringLiteral("Matched  1"));
        // Also what happens while another screen is looked at.
        open.screen.hide();
        open.model.undo();
        QVERIFY(open.model.library() == before);
        open.screen.show();
        QCOMPARE(open.tab(BankList::matched), QStringLiteral("Matched  0"));
    }

    void whatWasMatchedIsTakenBackAndOtherListsMoveOn() {
        Open open;
        open.screen.showList(BankList::all);
        open.screen.select(open.line(0).id);
        open.press(Qt::Key_1);
        // The last line: the next open one is sought from the top.
        QCOMPARE(open.selectedText(), std::string("UPI/DR/2/CHAI POINT"));
        open.press(Qt::Key_Down);
        open.press(Qt::Key_2);  // part payment: the tenth stays due
        QCOMPARE(open.balance(open.month.partInvoice), std::int64_t(1'000'000));
        open.screen.select(open.line(4).id);
        open.press(Qt::Key_U);
        QCOMPARE(open.balance(open.month.partInvoice), std::int64_t(10'000'000));
        QVERIFY(open.line(4).isOpen());
        open.press(Qt::Key_U);  // nothing left to take back
        open.press(Qt::Key_9);  // and no ninth suggestion
        QVERIFY(open.line(4).isOpen());
    }

    void aCorrectedCategoryBecomesARuleByOneKey() {
        Open open;
        open.screen.select(open.line(1).id);
        auto& category = *open.screen.findChild<QComboBox*>(QStringLiteral("lineCategory"));
        QCOMPARE(category.currentIndex(), 0);
        category.setCurrentIndex(3);
        open.press(Qt::Key_E);
        const UUID chosen = open.model.library().categories[2].id;
        QCOMPARE(open.model.library().expenses[3].categoryID, std::optional(chosen));
        // Offered while the next line is looked at already.
        QVERIFY(open.screen.selected() != std::optional(open.line(1).id));
        const auto* offer = open.screen.findChild<QPushButton*>(QStringLiteral("addRule"));
        QVERIFY(offer->isVisible());
        open.press(Qt::Key_R);
        QVERIFY(!offer->isVisible());
        QCOMPARE(open.model.library().rules.size(), std::size_t(1));
        QCOMPARE(open.model.library().rules[0].contains, std::string("KARVE ESTATES"));
        QCOMPARE(open.model.library().rules[0].categoryID, chosen);
    }

    void theCategoryIsChosenByTheKeys() {
        Open open;
        open.screen.select(open.line(0).id);
        auto& category = *open.screen.findChild<QComboBox*>(QStringLiteral("lineCategory"));
        const QWidget* lines = QApplication::focusWidget();
        const int before = category.currentIndex();
        for (const Qt::Key last : {Qt::Key_Escape, Qt::Key_Return}) {
            open.press(Qt::Key_C);
            QTRY_VERIFY(category.view()->isVisible());
            QTest::keyClick(category.view(), Qt::Key_Down);
            QTest::keyClick(category.view(), last);
            QTRY_COMPARE(open.screen.focusWidget(), lines);
            open.screen.activateWindow();
            QTRY_COMPARE(QApplication::focusWidget(), lines);
            QCOMPARE(category.currentIndex(), last == Qt::Key_Return ? before + 1 : before);
        }
        open.press(Qt::Key_E);
        const Library& library = open.model.library();
        QCOMPARE(library.expenses[library.expenses.size() - 1].categoryID,
                 UUID::parse(toStd(category.itemData(before + 1).toString())));
    }

    void aPaymentTypedByHandIsLinkedAndNotRecordedTwice() {
        Open open;
        const Payment typed = Payment::make({2026, 11, 10}, 9'000'000, 1'000'000, PaymentMethod::bank);
        open.model.perform(QStringLiteral("Payment"), [&](Library library, Day) {
            return Books::recordPayment(std::move(library), open.month.partInvoice, typed);
        });
        open.screen.select(open.line(4).id);
        QVERIFY(open.card(1).contains(QStringLiteral("Is the payment of 10 Nov 2026")));
        QVERIFY(open.card(1).contains(QStringLiteral("Recorded by hand, 1 day apart")));
        open.press(Qt::Key_1);
        const auto& payments = open.model.library().document(open.month.partInvoice)->payments;
        QCOMPARE(payments.size(), std::size_t(1));
        QCOMPARE(payments[0].bankTxnID, std::optional(open.line(4).id));
        QCOMPARE(open.line(4).paymentID, std::optional(typed.id));
        open.screen.showList(BankList::matched);
        open.screen.select(open.line(4).id);
        open.press(Qt::Key_U);  // typed by a person, it stays
        QCOMPARE(payments.size(), std::size_t(1));
        QVERIFY(open.line(4).isOpen());
    }

    void whatCameFreeOfAReceiptIsMatchedAgain() {
        Open open;
        open.model.perform(QStringLiteral("Split"), [&](Library now, Day) {
            now = Bank::splitReceipt(std::move(now), open.line(3).id,
                                     {{open.month.firstInvoice, 1'100'000}, {open.month.secondInvoice, 2'300'000}});
            const UUID payment = now.document(open.month.firstInvoice)->payments[0].id;
            return Books::removePayment(std::move(now), open.month.firstInvoice, payment);
        });
        open.screen.showList(BankList::matched);
        open.screen.select(open.line(3).id);
        QCOMPARE(open.screen.findChild<QLabel*>(QStringLiteral("pill"))->text(), QStringLiteral("Partly matched"));
        for (const BankRow& row : bankTable(open.model.library(), {.list = BankList::all}).rows)
            QCOMPARE(row.rest, std::string(row.id == open.line(3).id ? "Partly matched · ₹11,000.00 open" : ""));
        QVERIFY(open.card(1).contains(QStringLiteral("₹11,000.00")));
        open.press(Qt::Key_1);
        QCOMPARE(open.balance(open.month.firstInvoice), std::int64_t(0));
        QCOMPARE(Bank::unassigned(open.model.library(), open.line(3)), std::int64_t(0));
        QVERIFY(open.card(1).isEmpty());
    }

    void aLittleLessFromAbroadIsALossInExchange() {
        Open open;
        UUID invoice;
        open.model.perform(QStringLiteral("Abroad"), [&](Library library, Day) {
            invoice = testing::billed(library, 100'000, {2026, 11, 1});
            library.documents.update(library.documents.size() - 1,
                                     [](Document& d) { d.currency = "USD", d.rateMicros = 83'000'000; });
            BankTransaction money = BankTransaction::make({2026, 11, 20}, "SWIFT SAFFRON LABS", 8'134'000);
            money.accountID = library.accounts[0].id;
            library.transactions.append(money);
            return library;
        });
        QVERIFY(open.prompts.alerts.isEmpty());
        const UUID money = open.line(6).id;
        open.screen.select(money);
        QVERIFY(open.card(1).contains(QStringLiteral("$20.00 lost in exchange")));
        QVERIFY(open.card(2).contains(QStringLiteral("$20.00 stays due")));
        open.press(Qt::Key_1);
        QCOMPARE(open.balance(invoice), std::int64_t(0));
        QCOMPARE(factsOf(open.model.library(), open.line(6)).exchange,
                 std::string("₹1,660.00 less than at the rate of INV/26-27/004: an exchange loss."));
    }

    void aRefusalIsSaidAndTheLineStays() {
        Open open;
        QSignalSpy refused(&open.model, &AppModel::refused);
        open.model.perform(QStringLiteral("Line"), [](Library library, Day) {
            library.transactions.append(BankTransaction::make({2026, 10, 30}, "SAFFRON LABS ADVANCE", 1'100'000));
            return library;
        });
        open.screen.select(open.line(6).id);
        open.press(Qt::Key_1);
        QCOMPARE(refused.count(), 1);  // money that came before the invoice was issued
        QVERIFY(open.line(6).isOpen());
        QCOMPARE(open.screen.selected(), std::optional(open.line(6).id));
    }

    void rowsAreFilteredCountedAndSummed() {
        Open open;
        const Library& library = open.model.library();
        const BankTable all = bankTable(library, {.list = BankList::all});
        QCOMPARE(all.rows[0].amount, std::string("−₹250.00"));
        QCOMPARE(all.in, std::string("₹1,24,000.00"));
        QCOMPARE(all.out, std::string("−₹90,890.00"));
        struct Case {
            BankFilter filter;
            std::size_t rows;
        };
        const Case cases[] = {
            {{.list = BankList::matched}, 0},  {{.days = Period::month({2026, 10, 1})}, 0},
            {{.search = "saffron 90,000"}, 1}, {{.search = "RENT karve"}, 1},
            {{.account = UUID::random()}, 0},
        };
        for (const Case& each : cases) QCOMPARE(bankTable(library, each.filter).rows.size(), each.rows);
        // A receipt that pays several says so, wherever the books keep the links.
        open.model.perform(QStringLiteral("Split"), [&](Library now, Day) {
            return Bank::splitReceipt(std::move(now), open.line(3).id,
                                      {{open.month.firstInvoice, 1'100'000}, {open.month.secondInvoice, 2'300'000}});
        });
        const BankTable matched = bankTable(open.model.library(), {.list = BankList::matched});
        QCOMPARE(matched.rows[0].matched, std::string("2 invoices"));
        QCOMPARE(linksOf(open.model.library(), open.line(3)).size(), std::size_t(2));
    }

    void rulesAreOrderedAndRemovedInTheSettings() {
        Library library = Library::make();
        const auto add = [&](std::string contains) {
            library.rules.append(CategoryRule::make(std::move(contains), library.categories[0].id, ""));
        };
        for (const char* contains : {"amazon", "chai", "uber"}) add(contains);
        RulesPage page(library, nullptr);
        const auto click = [&](const char* name) { page.findChild<QToolButton*>(QString::fromLatin1(name))->click(); };
        click("ruleUp");  // the first stays where it is
        click("ruleDown");
        click("ruleDown");
        page.findChild<QListWidget*>(QStringLiteral("rules"))->setCurrentRow(0);
        click("ruleRemove");
        page.store(library);
        QCOMPARE(library.rules.size(), std::size_t(2));
        QCOMPARE(library.rules[0].contains, std::string("uber"));
        QCOMPARE(library.rules[1].contains, std::string("amazon"));
    }

    void accountsAreAddedAndRenamed() {
        Open open;
        open.prompts.drive = [](QDialog& sheet) {
            QVERIFY(!sheet.findChild<QPushButton*>(QStringLiteral("sheetMain"))->isEnabled());
            sheet.findChild<QLineEdit*>(QStringLiteral("accountName"))->setText(QStringLiteral(" Dollar account "));
            auto& currency = *sheet.findChild<QComboBox*>(QStringLiteral("accountCurrency"));
            currency.setCurrentIndex(currency.findData(QStringLiteral("USD")));
        };
        open.screen.addAccount();
        const Library& library = open.model.library();
        QCOMPARE(library.accounts.size(), std::size_t(2));
        QCOMPARE(library.accounts[1].name, std::string("Dollar account"));
        QCOMPARE(library.accounts[1].currency, std::string("USD"));
        // The new one is chosen; it is the one that is renamed.
        open.prompts.drive = [](QDialog& sheet) {
            sheet.findChild<QLineEdit*>(QStringLiteral("accountName"))->setText(QStringLiteral("Export account"));
        };
        open.screen.renameAccount();
        QCOMPARE(library.accounts[1].name, std::string("Export account"));
        QCOMPARE(library.accounts[1].currency, std::string("USD"));
        QCOMPARE(library.accounts.size(), std::size_t(2));
    }
};

static const TestClass<BankScreenTests> registered;

}  // namespace tamba

#include "BankScreenTests.moc"
