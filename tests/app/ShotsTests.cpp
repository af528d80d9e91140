#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Sheets/BackupSheet.h"
#include "Tamba/Sheets/BillableSheet.h"
#include "Tamba/Sheets/ClientSheet.h"
#include "Tamba/Sheets/MileageSheet.h"
#include "Tamba/Sheets/RecurringSheet.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/RecorderBar.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/app/Pictures.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QTableView>

namespace tamba {

/// Every screen, sheet and empty place.
class ShotsTests : public Shots {
    Q_OBJECT

    static const Document& documentWith(const Library& library, DocStatus status, Day today) {
        for (const Document& document : library.documents)
            if (Books::status(library, document, today) == status) return document;
        qFatal("no such document");
    }

    void shootClients(Window& window, const Library& library) {
        window.resize(1440, 880);
        window.showScreen(Screen::clients);
        shoot(window, QStringLiteral("clients"));
        window.findChild<ClientsScreen*>()->select(library.clients[1].id);
        window.findChild<QLineEdit*>(QStringLiteral("clientTaxID"))->setText(QStringLiteral("29AAPFU0939F1Z"));
        window.resize(960, 620);
        shoot(window, QStringLiteral("clients-small"));
        window.resize(1200, 760);
        window.showScreen(Screen::expenses);
    }

    void shootSheets(Window& window, const Library& library) {
        MileageSheet mileage(&window, library, testDay);
        mileage.findChild<QLineEdit*>(QStringLiteral("tripDistance"))->setText(QStringLiteral("42.5"));
        shoot(mileage, QStringLiteral("sheet-mileage"));
        ClientSheet client(&window, library);
        shoot(client, QStringLiteral("sheet-client"));
        RecurringSheet recurring(&window, library);
        shoot(recurring, QStringLiteral("sheet-recurring"));
        const auto one = [&](auto&& wanted) -> const Document& {
            for (const Document& document : library.documents)
                if (wanted(document)) return document;
            qFatal("the sample books lack a document");
        };
        const Document& draft = one([](const Document& d) {
            return d.kind == DocKind::invoice && d.state == DocState::draft && !d.lines.empty() && d.clientID;
        });
        IssueSheet issue(&window, library, draft, testDay);
        shoot(issue, QStringLiteral("sheet-issue"));
        Library bare = library;
        bare.business.taxID.clear();
        IssueSheet refused(&window, bare, draft, testDay.addingDays(-400));
        shoot(refused, QStringLiteral("sheet-issue-refused"));
        const Document& open = one([&](const Document& d) {
            return d.kind == DocKind::invoice && Books::status(library, d, testDay) == DocStatus::overdue;
        });
        PaymentSheet payment(&window, library, open, testDay);
        payment.findChild<QPushButton*>(QStringLiteral("tdsRate1000"))->click();
        shoot(payment, QStringLiteral("sheet-payment"));
        PaymentSheet over(&window, library, open, testDay);
        over.findChild<QLineEdit*>(QStringLiteral("paymentAmount"))->setText(QStringLiteral("99,99,999"));
        shoot(over, QStringLiteral("sheet-payment-refused"));
        CreditNoteSheet credit(&window, library, Books::creditNoteFor(library, open.id, testDay));
        shoot(credit, QStringLiteral("sheet-credit"));
        VoidSheet voiding(&window, library, open, testDay);
        shoot(voiding, QStringLiteral("sheet-void"));
        MailSheet reminder(&window, library, open, Mail::reminder, testDay, true);
        shoot(reminder, QStringLiteral("sheet-reminder"));
        MailSheet sending(&window, library, open, Mail::sending, testDay, false);
        shoot(sending, QStringLiteral("sheet-send"));
        Library passing = library;
        passing.expenses.update(0, [&](Expense& e) { e.billable = true, e.clientID = draft.clientID; });
        passing.expenses.update(1, [&](Expense& e) { e.billable = true, e.clientID.reset(); });
        BillableSheet billable(&window, passing, draft);
        shoot(billable, QStringLiteral("sheet-billable"));
    }

    void shootSearch(Window& window) {
        auto& palette = *window.findChild<SearchPalette*>();
        auto& words = *palette.findChild<QLineEdit*>(QStringLiteral("searchWords"));
        window.showScreen(Screen::expenses);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const auto& [name, text] : {std::pair("search", "monsoon"),
                                         {"search-receipt", "sub total"},
                                         {"search-empty", ""},
                                         {"search-commands", "new"},
                                         {"search-none", "zanzibar"}}) {
            words.setText(QString::fromLatin1(text));
            QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
            QTRY_VERIFY(palette.isVisible() && palette.isSettled());
            shoot(window, QString::fromLatin1(name));
            palette.dismiss();
        }
    }

    void shootImport(Window& window, const Library& library) {
        const auto file = [](const char* name) {
            return StatementFile::of(Files::read(std::filesystem::path(TEST_DATA "/statements") / name), name);
        };
        ImportSheet first(&window, Library(), file("hdfc.csv"), {});
        shoot(first, QStringLiteral("sheet-import-new-account"));
        ImportSheet skipped(&window, library, file("bad-rows.csv"), {});
        skipped.showList(ImportList::skipped);
        shoot(skipped, QStringLiteral("sheet-import-skipped"));
        const StatementFile icici = file("icici.csv");
        const StatementReading reading{icici.columns, DateOrder::dmy, library.accounts[0].id};
        const auto lines = parsed(icici, reading, Currency::inr()).transactions;
        const Library with = Bank::addTransactions(library, {lines[0]}, library.accounts[0].id).library;
        ImportSheet held(&window, with, icici, remembered(reading));
        held.showList(ImportList::held);
        shoot(held, QStringLiteral("sheet-import-held"));
        ImportSheet broken(&window, library, icici, remembered(reading));
        broken.findChild<QComboBox*>(QStringLiteral("columnUse5"))->setCurrentIndex(0);
        broken.showList(ImportList::breaks);
        shoot(broken, QStringLiteral("sheet-import-broken"));
        ImportSheet ofx(&window, library, file("sgml.ofx"), {});
        shoot(ofx, QStringLiteral("sheet-import-ofx"));
    }

    void shootSettings(Window& window, const Library& library, const AppModel& model) {
        SettingsSheet settings(&window, library, testDay, {model.folder(), model.store().logo(library.business), {}});
        settings.findChild<QLineEdit*>(QStringLiteral("pattern2"))->setText(QStringLiteral("ESTIMATE/{YYYY}/{####}"));
        for (int page = 0; page < settings.pageCount(); ++page) {
            settings.showPage(page);
            shoot(settings, QStringLiteral("settings-%1").arg(page + 1));
        }
        settings.showPage(2);
        settings.findChild<QPushButton*>(QStringLiteral("addSeries"))->click();
        shoot(settings, QStringLiteral("settings-unfinished"));
    }

private slots:
    void invoices_data() { palettes(); }
    void invoices() {
        setPalette();
        OpenBooks books;
        TestPrompts prompts;
        DocumentActions actions(books.model, prompts);
        InvoicesScreen screen(books.model, prompts, actions);
        screen.resize(1232, 820);
        shoot(screen, QStringLiteral("invoices-empty"));
        books.openSample();
        const auto show = [&](DocStatus status) {
            screen.select(documentWith(books.model.library(), status, testDay).id);
        };
        show(DocStatus::draft);
        shoot(screen, QStringLiteral("invoices-draft"));
        books.model.perform(QStringLiteral("Duplicate"), [&](Library library, Day today) {
            Document draft = Books::duplicateOf(library, documentWith(library, DocStatus::overdue, today).id, today);
            draft.lines.push_back(Books::lineOf(library, draft, library.items.front()));
            draft.lines.back().discountBP = 1000;
            draft.lines.back().detail = "Two rounds of changes are included.";
            draft.reference = "PO-4471";
            return Books::addDraft(std::move(library), draft);
        });
        screen.select(books.model.library().documents.back().id);
        shoot(screen, QStringLiteral("invoices-lines"));
        screen.resize(752, 580);
        shoot(screen, QStringLiteral("invoices-narrow"));
        auto& search = *screen.findChild<QLineEdit*>(QStringLiteral("documentSearch"));
        search.setText(QStringLiteral("no such client"));
        shoot(screen, QStringLiteral("invoices-none"));
        search.clear();
        screen.resize(1072, 700);
        auto& name = *screen.findChild<QWidget*>(QStringLiteral("line3"))->findChild<QLineEdit*>();
        name.setFocus();
        QTest::keyClicks(&name, QStringLiteral("i"));
        shoot(screen, QStringLiteral("invoices-typing"));
        name.completer()->popup()->hide();
        QTest::keyClick(&name, Qt::Key_Escape);
        screen.resize(1232, 820);
        screen.findChild<QPushButton*>(QStringLiteral("showPreview"))->click();
        shoot(screen, QStringLiteral("invoices-preview"));
        show(DocStatus::overdue);
        shoot(screen, QStringLiteral("invoices-overdue"));
        show(DocStatus::paid);
        shoot(screen, QStringLiteral("invoices-paid"));
        screen.showKind(DocKind::estimate);
        shoot(screen, QStringLiteral("estimates"));
        screen.showKind(DocKind::creditNote);
        shoot(screen, QStringLiteral("credit-notes"));
    }

    void bank_data() { palettes(); }
    void bank() {
        setPalette();
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        window.showScreen(Screen::bank);
        shoot(window, QStringLiteral("bank-empty"));
        books.openSample();
        auto& screen = *window.findChild<BankScreen*>();
        shoot(window, QStringLiteral("bank"));
        const auto choose = [&](auto&& wanted) {
            for (const BankTransaction& line : books.model.library().transactions)
                if (wanted(line)) return screen.select(line.id);
        };
        books.model.perform(QStringLiteral("Receipt"), [](Library library, Day today) {
            const Document& invoice = documentWith(library, DocStatus::overdue, today);
            BankTransaction line = BankTransaction::make(today, "NEFT CR-HDFC0000001-4471", 0);
            line.text += "-" + Text::upper(invoice.billTo->name) + "-" + invoice.displayNumber();
            line.amount = Books::balance(library, invoice) * 9 / 10;
            line.accountID = library.accounts[0].id;
            line.counterparty = invoice.billTo->name;
            line.reference = "N4471";
            library.transactions.append(line);
            return library;
        });
        screen.select(books.model.library().transactions.back().id);
        shoot(window, QStringLiteral("bank-receipt"));
        choose([](const BankTransaction& line) { return line.isOpen() && line.amount == -6000; });
        window.resize(960, 620);
        shoot(window, QStringLiteral("bank-small"));
        window.resize(1440, 880);
        screen.showList(BankList::all);
        choose([](const BankTransaction& line) { return line.expenseID.has_value(); });
        screen.matchObvious();
        shoot(window, QStringLiteral("bank-all"));
        books.model.perform(QStringLiteral("Aside"), [](Library library, Day) {
            for (std::size_t i = 0; i < library.transactions.size(); ++i)
                if (library.transactions[i].isOpen())
                    library.transactions.update(i, [](BankTransaction& line) { line.ignored = true; });
            return library;
        });
        screen.showList(BankList::open);
        shoot(window, QStringLiteral("bank-done"));
        BankTransaction receipt = BankTransaction::make(testDay, "NEFT CR", 15'000'000);
        Library library = books.model.library();
        library.transactions.append(receipt);
        SplitSheet split(&window, library, receipt);
        split.findChild<QPushButton*>(QStringLiteral("takeAll0"))->click();
        shoot(split, QStringLiteral("sheet-split"));
        SettingsSheet settings(&window, library, testDay);
        settings.showPage(8);
        shoot(settings, QStringLiteral("sheet-rules"));
        AccountSheet account(&window, library, library.accounts[0]);
        shoot(account, QStringLiteral("sheet-account"));
    }

    void pictures_data() { palettes(); }

    void pictures() {
        setPalette();

        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        window.showScreen(Screen::expenses);
        shoot(window, QStringLiteral("empty"));
        books.openSample();
        window.showScreen(Screen::expenses);
        auto& screen = *window.findChild<ExpensesScreen*>();
        const Library& library = books.model.library();
        const auto choose = [&](auto&& wanted) {
            for (const Expense& e : library.expenses)
                if (wanted(e)) return screen.select({e.id});
        };
        choose([](const Expense& e) { return !e.attachments.empty() && e.tax > 0; });
        shoot(window, QStringLiteral("expenses"));
        choose([](const Expense& e) { return e.check.has_value(); });
        shoot(window, QStringLiteral("check"));
        choose([](const Expense& e) { return e.kind == ExpenseKind::mileage; });
        shoot(window, QStringLiteral("mileage"));
        choose([](const Expense& e) { return e.currency != "INR"; });
        shoot(window, QStringLiteral("foreign"));
        window.resize(960, 620);
        choose([](const Expense& e) { return !e.attachments.empty() && e.tax > 0; });
        window.findChild<QLineEdit*>(QStringLiteral("gstin"))->setText(QStringLiteral("27abc"));
        shoot(window, QStringLiteral("small"));
        window.resize(1200, 760);
        screen.select({library.expenses[0].id, library.expenses[1].id, library.expenses[2].id});
        window.findChild<ActivityStrip*>()->show(QStringLiteral("Reading IMG_2041.jpg"), 2, 7);
        window.findChild<Toast*>()->show(QStringLiteral("3 expenses deleted"), QStringLiteral("Undo"));
        shoot(window, QStringLiteral("several"));
        window.findChild<ActivityStrip*>()->hide();
        window.findChild<Toast*>()->hide();
        window.findChild<QLineEdit*>(QStringLiteral("search"))->setText(QStringLiteral("no such vendor"));
        shoot(window, QStringLiteral("nothing-found"));
        window.findChild<QLineEdit*>(QStringLiteral("search"))->clear();
        window.findChild<DropOverlay*>()->show(5);
        shoot(window, QStringLiteral("drop"));
        window.findChild<DropOverlay*>()->show(2, 1);
        shoot(window, QStringLiteral("drop-both"));
        window.findChild<DropOverlay*>()->hide();

        shootClients(window, library);
        shootSheets(window, library);
        shootImport(window, library);
        shootSearch(window);
        RecorderBar recorder(&window);
        recorder.setSeconds(72);
        shoot(recorder, QStringLiteral("recorder"));
        shootSettings(window, library, books.model);
        BackupSheet backups(&window, {books.model.backups(), [&](const std::string&) { return library; }, library});
        shoot(backups, QStringLiteral("sheet-backups"));
        Sheet alert(&window, Sheet::Icon::alert, {}, QStringLiteral("No text was found on that receipt."));
        alert.addButtons(QStringLiteral("OK"), {});
        shoot(alert, QStringLiteral("sheet-alert"));

        QDir(toQt(books.path())).mkdir(QStringLiteral("Damaged"));
        QFile file(toQt(books.path() / "Damaged" / "tamba.json"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{");
        file.close();
        Files::makeFolders(books.path() / "Damaged" / "Backups");
        Files::writeAtomically(books.path() / "Damaged" / "Backups" / "tamba-2026-11-20.json", "{}");
        books.model.open(books.path() / "Damaged");
        shoot(window, QStringLiteral("damaged"));
    }
};

static const TestClass<ShotsTests> registered;

}  // namespace tamba

#include "ShotsTests.moc"
