#include "tests/app/Places.h"

#include "Tamba/GuideWindow.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ReportView.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/Sheets/AboutSheet.h"
#include "Tamba/Sheets/BillableSheet.h"
#include "Tamba/Sheets/MileageSheet.h"
#include "Tamba/Sheets/RecurringSheet.h"
#include "Tamba/Sheets/Settings/UpdatesPage.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/StartUp.h"
#include "Tamba/Updates.h"
#include "Tamba/Widgets/DocumentPreview.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "Tamba/Widgets/RecorderBar.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "Tamba/Widgets/TableView.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "tests/app/Support.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace tamba {
namespace {

template <class Part>
void await(QWidget& place, bool (*done)(const Part&)) {
    for (const Part* part : place.findChildren<Part*>())
        if (part->isVisible() && !QTest::qWaitFor([&] { return done(*part); }))
            qFatal("%s comes to no end", Part::staticMetaObject.className());
}

void type(QWidget& place, const char* field, const char* text) {
    place.findChild<QLineEdit*>(QLatin1String(field))->setText(QString::fromUtf8(text));
}
void click(QWidget& place, const char* button) { place.findChild<QPushButton*>(QLatin1String(button))->click(); }

class Tour {
public:
    explicit Tour(const PlaceVisit& visit) : visit_(visit) {}

    void all() {
        beginnings();
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        screens(window, books.model, QStringLiteral("-empty"));
        books.openSample();
        screens(window, books.model, {});
        expenses(window, books.model);
        documents(window, books.model);
        reports(window, books.model);
        search(window);
        notices(window);
        const Library& library = books.model.library();
        documentSheets(window, library);
        imports(window, library);
        otherSheets(window, books.model);
        settings(window, books.model);
        bank(window, books.model);
        Files::makeFolders(books.path() / "Damaged" / "Backups");
        Files::writeAtomically(books.path() / "Damaged" / "tamba.json", "{");
        Files::writeAtomically(books.path() / "Damaged" / "Backups" / "tamba-2026-11-20.json", "{}");
        books.model.open(books.path() / "Damaged");
        show(window, "damaged");
    }

private:
    const PlaceVisit& visit_;

    void show(QWidget& place, const QString& name) {
        place.show();
        place.activateWindow();
        if (!QTest::qWaitForWindowActive(&place)) qFatal("%s gets no keys", qPrintable(name));
        settle(place);
        visit_(name, place);
    }
    void show(QWidget& place, const char* name) { show(place, QString::fromUtf8(name)); }

    template <class T>
    static const T& first(const List<T>& records, const std::function<bool(const T&)>& wanted) {
        for (const T& record : records)
            if (wanted(record)) return record;
        qFatal("the sample books lack a record");
    }
    static const Document& documentWith(const Library& library, DocStatus status, DocKind kind = DocKind::invoice) {
        return first<Document>(library.documents, [&](const Document& d) {
            return d.kind == kind && Books::status(library, d, testDay) == status;
        });
    }

    void beginnings() {
        QTemporaryDir place;
        AppModel model([] { return testDay; });
        Window window(model, std::make_unique<TestPrompts>());
        window.resize(1200, 760);
        StartUp startUp(model, window, toPath(place.path()) / "Books");
        startUp.begin();
        auto& welcome = *window.findChild<WelcomeScreen*>();
        show(window, "welcome-1");
        type(welcome, "welcomeName", "Kagaz Studio");
        type(welcome, "welcomeTaxID", "27AAPFU0939F1ZX");
        welcome.showStep(1);
        show(window, "welcome-2");
        type(welcome, "welcomeTaxID", "27AAPFU0939F1ZV");
        for (int step = 2; step < 4; ++step) {
            welcome.showStep(step);
            show(window, QStringLiteral("welcome-%1").arg(step + 1));
        }
        model.open(toPath(place.path()) / "Gone", AppModel::Expect::books);
        show(window, "missing");
    }

    void screens(Window& window, const AppModel& model, const QString& suffix) {
        const std::pair<Screen, const char*> names[] = {{Screen::overview, "overview"}, {Screen::expenses, "expenses"},
                                                        {Screen::invoices, "invoices"}, {Screen::bank, "bank"},
                                                        {Screen::reports, "reports"},   {Screen::clients, "clients"}};
        for (const auto& [screen, name] : names) {
            window.showScreen(screen);
            show(window, QLatin1String(name) + suffix);
        }
        window.findChild<ClientPages*>()->showProjects();
        show(window, QStringLiteral("projects") + suffix);
        window.findChild<ClientPages*>()->showClients();
        if (!suffix.isEmpty()) return;
        window.findChild<ClientsScreen*>()->select(
            first<Client>(model.library().clients, [](const Client& c) { return c.stateCode.has_value(); }).id);
        type(window, "clientTaxID", "29AAPFU0939F1Z");
        show(window, "client-refused");
    }

    void expenses(Window& window, AppModel& model) {
        window.showScreen(Screen::expenses);
        auto& screen = *window.findChild<ExpensesScreen*>();
        const auto choose = [&](const char* name, const std::function<bool(const Expense&)>& wanted) {
            screen.select({first<Expense>(model.library().expenses, wanted).id});
            show(window, name);
        };
        choose("expense-receipt", [](const Expense& e) { return !e.attachments.empty() && e.tax > 0; });
        type(window, "gstin", "27abc");
        show(window, "expense-refused");
        choose("expense-checked", [](const Expense& e) { return e.check.has_value(); });
        choose("expense-mileage", [](const Expense& e) { return e.kind == ExpenseKind::mileage; });
        choose("expense-foreign", [](const Expense& e) { return e.currency != "INR"; });
        model.perform(QStringLiteral("Abroad"), [](Library library, Day) {
            Expense expense = Expense::make(testDay);
            expense.currency = "USD";
            expense.rateMicros = 0;
            expense.amount = 4'200;
            library.expenses.append(expense);
            return library;
        });
        choose("expense-no-rate", [](const Expense& e) { return e.rateMicros == 0; });
        const Library& library = model.library();
        screen.select({library.expenses[0].id, library.expenses[1].id});
        show(window, "expenses-several");
        type(window, "search", "no such vendor");
        show(window, "expenses-none");
        type(window, "search", "");
    }

    void documents(Window& window, AppModel& model) {
        window.showScreen(Screen::invoices);
        auto& screen = *window.findChild<InvoicesScreen*>();
        for (const auto& [status, name] : {std::pair(DocStatus::draft, "invoice-draft"),
                                           {DocStatus::overdue, "invoice-overdue"},
                                           {DocStatus::paid, "invoice-paid"}}) {
            screen.select(documentWith(model.library(), status).id);
            show(window, name);
        }
        model.perform(QStringLiteral("Duplicate"), [](Library library, Day today) {
            Document draft = Books::duplicateOf(library, documentWith(library, DocStatus::overdue).id, today);
            draft.lines.push_back(Books::lineOf(library, draft, library.items.front()));
            draft.lines.back().discountBP = 1000;
            draft.lines.back().detail = "Two rounds of changes are included.";
            draft.reference = "PO-4471";
            return Books::addDraft(std::move(library), draft);
        });
        screen.select(model.library().documents.back().id);
        show(window, "invoice-lines");
        click(screen, "showPreview");
        show(window, "invoice-preview");
        click(screen, "showEditor");
        type(screen, "documentSearch", "no such client");
        show(window, "invoices-none");
        type(screen, "documentSearch", "");
        screen.showKind(DocKind::estimate);
        show(window, "estimates");
        screen.showKind(DocKind::creditNote);
        show(window, "credit-notes");
    }

    void reports(Window& window, AppModel& model) {
        window.showScreen(Screen::reports);
        auto& screen = *window.findChild<ReportsScreen*>();
        const auto report = [&](ReportKind kind, const char* suffix = "") {
            screen.showReport(kind);
            show(window, QStringLiteral("report-") + toQt(title(kind)) + QLatin1String(suffix));
        };
        for (const ReportKind kind : reportsFor(model.library().business)) report(kind);
        screen.showReport(ReportKind::profit);
        settle(window);
        QTableView* table = screen.findChild<ReportView*>()->currentTable();
        table->setFocus();
        table->setCurrentIndex(table->model()->index(6, 1));
        QTest::keyClick(table, Qt::Key_Return);
        show(window, "report-records");
        click(screen, "basisCash");
        report(ReportKind::profit, " by cash");
        const auto setRegime = [&](TaxRegime regime) {
            model.perform(QStringLiteral("Regime"), [&](Library library, Day) {
                library.business.regime = regime;
                return library;
            });
        };
        setRegime(TaxRegime::gstComposition);
        report(ReportKind::composition);
        setRegime(TaxRegime::gstIndia);
    }

    void search(Window& window) {
        window.showScreen(Screen::expenses);
        auto& palette = *window.findChild<SearchPalette*>();
        for (const auto& [name, words] : {std::pair("search", "monsoon"),
                                          {"search-receipt", "sub total"},
                                          {"search-empty", ""},
                                          {"search-commands", "new"},
                                          {"search-none", "zanzibar"}}) {
            QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
            type(palette, "searchWords", words);
            settle(window);
            visit_(QLatin1String(name), palette);
            palette.dismiss();
        }
    }

    void notices(Window& window) {
        auto& strip = *window.findChild<ActivityStrip*>();
        strip.show(QStringLiteral("Reading IMG_2041.jpg"), 2, 7);
        show(window, "strip");
        strip.hide();
        auto& toast = *window.findChild<Toast*>();
        toast.show(QStringLiteral("3 expenses deleted"), QStringLiteral("Undo"));
        show(window, "toast");
        toast.hide();
        auto& overlay = *window.findChild<DropOverlay*>();
        overlay.show(5);
        show(window, "drop");
        overlay.show(2, 1);
        show(window, "drop-both");
        overlay.hide();
        RecorderBar recorder(&window);
        recorder.setSeconds(72);
        show(recorder, "recorder");
        GuideWindow guide(&window);
        guide.open(QStringLiteral("bank.md"));
        show(guide, "guide");
        guide.close();
        AboutSheet about(&window, "/home/asha/Books");
        show(about, "sheet-about");
        Sheet alert(&window, Sheet::Icon::alert, {}, QStringLiteral("No text was found on that receipt."));
        alert.addButtons(QStringLiteral("OK"), {});
        show(alert, "sheet-alert");
    }

    void documentSheets(Window& window, const Library& library) {
        const Document& draft = first<Document>(library.documents, [](const Document& d) {
            return d.kind == DocKind::invoice && d.state == DocState::draft && !d.lines.empty() && d.clientID;
        });
        const Document& open = documentWith(library, DocStatus::overdue);
        IssueSheet issue(&window, library, draft, testDay);
        show(issue, "sheet-issue");
        Library bare = library;
        bare.business.taxID.clear();
        IssueSheet refused(&window, bare, draft, testDay.addingDays(-400));
        show(refused, "sheet-issue-refused");
        PaymentSheet payment(&window, library, open, testDay);
        click(payment, "tdsRate1000");
        show(payment, "sheet-payment");
        type(payment, "paymentAmount", "99,99,999");
        show(payment, "sheet-payment-refused");
        CreditNoteSheet credit(&window, library, Books::creditNoteFor(library, open.id, testDay));
        show(credit, "sheet-credit");
        VoidSheet voiding(&window, library, open, testDay);
        show(voiding, "sheet-void");
        MailSheet reminder(&window, library, open, Mail::reminder, testDay, true);
        show(reminder, "sheet-reminder");
        MailSheet sending(&window, library, open, Mail::sending, testDay, false);
        show(sending, "sheet-send");
        Library passing = library;
        passing.expenses.update(0, [&](Expense& e) { e.billable = true, e.clientID = draft.clientID; });
        passing.expenses.update(1, [&](Expense& e) { e.billable = true, e.clientID.reset(); });
        BillableSheet billable(&window, passing, draft);
        show(billable, "sheet-billable");
    }

    void imports(Window& window, const Library& library) {
        const auto file = [](const char* name) {
            return StatementFile::of(Files::read(std::filesystem::path(TEST_DATA "/statements") / name), name);
        };
        const auto read = [this](ImportSheet& sheet, const char* name, ImportList list) {
            if (!QTest::qWaitFor([&] { return !sheet.isReading(); }, 60000)) qFatal("%s is not read", name);
            sheet.showList(list);
            show(sheet, QStringLiteral("sheet-import-") + QLatin1String(name));
        };
        ImportSheet fresh(&window, Library(), file("hdfc.csv"), {});
        read(fresh, "new-account", ImportList::added);
        ImportSheet skipped(&window, library, file("bad-rows.csv"), {});
        read(skipped, "skipped", ImportList::skipped);
        const StatementFile icici = file("icici.csv");
        const StatementReading reading{icici.columns, DateOrder::dmy, library.accounts[0].id};
        const auto lines = parsed(icici, reading, Currency::inr()).transactions;
        const Library with = Bank::addTransactions(library, {lines[0]}, library.accounts[0].id).library;
        ImportSheet held(&window, with, icici, remembered(reading));
        read(held, "held", ImportList::held);
        ImportSheet broken(&window, library, icici, remembered(reading));
        broken.findChild<QComboBox*>(QStringLiteral("columnUse5"))->setCurrentIndex(0);
        read(broken, "broken", ImportList::breaks);
        ImportSheet ofx(&window, library, file("sgml.ofx"), {});
        read(ofx, "ofx", ImportList::added);
    }

    void otherSheets(Window& window, AppModel& model) {
        const Library& library = model.library();
        MileageSheet mileage(&window, library, testDay);
        type(mileage, "tripDistance", "42.5");
        show(mileage, "sheet-mileage");
        ClientSheet client(&window, library);
        show(client, "sheet-client");
        RecurringSheet recurring(&window, library);
        show(recurring, "sheet-recurring");
        BankTransaction receipt = BankTransaction::make(testDay, "NEFT CR", 15'000'000);
        Library with = library;
        with.transactions.append(receipt);
        SplitSheet split(&window, with, receipt);
        click(split, "takeAll0");
        show(split, "sheet-split");
        AccountSheet account(&window, library, library.accounts[0]);
        show(account, "sheet-account");
        Library less = library;
        less.expenses.erase(0);
        less.business.name = "Before";
        BackupSheet backups(&window, {model.backups(), [&](const std::string&) { return less; }, library});
        if (!QTest::qWaitFor([&] { return !backups.isReading(); })) qFatal("the backup is not read");
        show(backups, "sheet-backups");
        Library ours = library, theirs = library;
        ours.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point", e.amount = 12'000; });
        theirs.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point Koramangala", e.amount = 12'500; });
        ours.business.terms = "Payment within 15 days.";
        theirs.business.terms = "Payment within 7 days. Interest of 1.5 % a month is charged on what is late.";
        ours.clients.update(0, [](Client& c) { c.phone = "98200 12345"; });
        theirs.clients.erase(0);
        Merged merged = merge(library, ours, theirs);
        ConflictSheet conflicts(&window, {merged.library, ours, theirs, merged.conflicts});
        show(conflicts, "sheet-conflicts");
    }

    void settings(Window& window, AppModel& model) {
        const Library& library = model.library();
        UpdateService updates(Updates::configuration());
        SettingsContext context{model.folder(), model.store().logo(library.business), {}};
        context.updates = &updates;
        context.lookForUpdates = true;
        SettingsSheet settings(&window, library, testDay, context);
        const auto& titles = *settings.findChild<QListWidget*>(QStringLiteral("settingsPages"));
        for (int page = 0; page < settings.pageCount(); ++page) {
            settings.showPage(page);
            show(settings, QStringLiteral("settings-") + titles.item(page)->text());
        }
        // What a server would bring about is put there by hand.
        const QString name = QStringLiteral("Tamba 0.2.0"),
                      notes = QStringLiteral(
                          "Statements of two more banks are read.\n\nThe year’s bundle holds a list of the documents "
                          "that were voided.");
        using Stage = UpdateStatus::Stage;
        const std::tuple<const char*, Stage, QString> stages[] = {
            {"offered", Stage::offered, name + QStringLiteral(" is available.")},
            {"downloading", Stage::downloading, QStringLiteral("Fetching Tamba 0.2.0…")},
            {"failed", Stage::failed,
             QStringLiteral(
                 "The list of updates is out of date, and a newer one may be held back. Nothing in it was used.")}};
        for (const auto& [stageName, stage, sentence] : stages) {
            settings.findChild<UpdatesPage*>()->show({stage, sentence, name, notes, 20'000'000, 31'000'000});
            show(settings, QStringLiteral("settings-Updates-") + QLatin1String(stageName));
        }
        settings.showPage(2);
        type(settings, "pattern2", "ESTIMATE/{YYYY}/{####}");
        click(settings, "addSeries");
        show(settings, "settings-Numbering-refused");
    }

    void bank(Window& window, AppModel& model) {
        window.showScreen(Screen::bank);
        auto& screen = *window.findChild<BankScreen*>();
        model.perform(QStringLiteral("Receipt"), [](Library library, Day today) {
            const Document& invoice = documentWith(library, DocStatus::overdue);
            BankTransaction line = BankTransaction::make(today, "NEFT CR-HDFC0000001-4471", 0);
            line.text += "-" + Text::upper(invoice.billTo->name) + "-" + invoice.displayNumber();
            line.amount = Books::balance(library, invoice) * 9 / 10;
            line.accountID = library.accounts[0].id;
            line.counterparty = invoice.billTo->name;
            line.reference = "N4471";
            library.transactions.append(line);
            return library;
        });
        screen.select(model.library().transactions.back().id);
        show(window, "bank-receipt");
        screen.showList(BankList::all);
        screen.select(first<BankTransaction>(model.library().transactions, [](const BankTransaction& line) {
                          return line.expenseID.has_value();
                      }).id);
        screen.matchObvious();
        show(window, "bank-all");
        model.perform(QStringLiteral("Aside"), [](Library library, Day) {
            for (std::size_t i = 0; i < library.transactions.size(); ++i)
                if (library.transactions[i].isOpen())
                    library.transactions.update(i, [](BankTransaction& line) { line.ignored = true; });
            return library;
        });
        screen.showList(BankList::open);
        show(window, "bank-done");
    }
};

}  // namespace

void settle(QWidget& place) {
    await<ReceiptView>(place, [](const ReceiptView& view) { return view.isLoaded(); });
    await<DocumentPreview>(place, [](const DocumentPreview& view) { return view.isSettled(); });
    await<OverviewScreen>(place, [](const OverviewScreen& screen) { return screen.isSettled(); });
    await<ReportsScreen>(place, [](const ReportsScreen& screen) { return screen.page() != nullptr; });
    await<SearchPalette>(place, [](const SearchPalette& palette) { return palette.isSettled(); });
    // The sample page is drawn a moment after the last change.
    if (const auto* welcome = place.findChild<WelcomeScreen*>(); welcome && welcome->isVisible()) QTest::qWait(200);
    QCoreApplication::processEvents();
}

void visitPlaces(const PlaceVisit& visit) { Tour(visit).all(); }

}  // namespace tamba
