#include "tests/app/Places.h"

#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/Sheets/BillableSheet.h"
#include "Tamba/Sheets/MileageSheet.h"
#include "Tamba/Sheets/RecurringSheet.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/StartUp.h"
#include "Tamba/Widgets/SearchPalette.h"
#include "Tamba/Widgets/Segments.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures.h"
#include "tests/app/Support.h"

namespace tamba {
namespace {

class Tour {
public:
    explicit Tour(const PlaceVisit& visit) : visit_(visit) {}

    void all() {
        beginnings();
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        screens(window, QStringLiteral("-empty"));
        Fixtures::write(LibraryStore(books.path() / "Studio"), testDay);
        books.model.open(books.path() / "Studio");
        screens(window, {});
        expenses(window, books.model);
        documents(window, books.model);
        reports(window, books.model);
        search(window);
        const Library& library = books.model.library();
        documentSheets(window, library);
        imports(window, library);
        otherSheets(window, books.model);
        Files::makeFolders(books.path() / "Damaged" / "Backups");
        Files::writeAtomically(books.path() / "Damaged" / "tamba.json", "{");
        Files::writeAtomically(books.path() / "Damaged" / "Backups" / "tamba-2026-11-20.json", "{}");
        books.model.open(books.path() / "Damaged");
        show(window, QStringLiteral("damaged"));
    }

private:
    const PlaceVisit& visit_;

    void show(QWidget& place, const QString& name) {
        place.show();
        place.activateWindow();
        if (!QTest::qWaitForWindowActive(&place)) qFatal("%s gets no keys", qPrintable(name));
        for (OverviewScreen* screen : place.findChildren<OverviewScreen*>())
            if (screen->isVisible() && !QTest::qWaitFor([&] { return screen->isSettled(); })) qFatal("no overview");
        QCoreApplication::processEvents();
        visit_(name, place);
        if (place.parentWidget()) place.hide();
    }

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
        show(window, QStringLiteral("welcome-1"));
        welcome.findChild<QLineEdit*>(QStringLiteral("welcomeName"))->setText(QStringLiteral("Kagaz Studio"));
        for (int step = 1; step < 4; ++step) {
            welcome.showStep(step);
            show(window, QStringLiteral("welcome-%1").arg(step + 1));
        }
        model.open(toPath(place.path()) / "Gone", AppModel::Expect::books);
        show(window, QStringLiteral("missing"));
    }

    void screens(Window& window, const QString& suffix) {
        const std::pair<Screen, const char*> names[] = {{Screen::overview, "overview"}, {Screen::expenses, "expenses"},
                                                        {Screen::invoices, "invoices"}, {Screen::bank, "bank"},
                                                        {Screen::reports, "reports"},   {Screen::clients, "clients"}};
        for (const auto& [screen, name] : names) {
            window.showScreen(screen);
            if (screen == Screen::reports &&
                !QTest::qWaitFor([&] { return window.findChild<ReportsScreen*>()->page() != nullptr; }))
                qFatal("no report");
            show(window, QLatin1String(name) + suffix);
        }
        window.findChild<ClientPages*>()->showProjects();
        show(window, QStringLiteral("projects") + suffix);
        window.findChild<ClientPages*>()->showClients();
    }

    void expenses(Window& window, AppModel& model) {
        window.showScreen(Screen::expenses);
        auto& screen = *window.findChild<ExpensesScreen*>();
        const auto choose = [&](const char* name, const std::function<bool(const Expense&)>& wanted) {
            screen.select({first<Expense>(model.library().expenses, wanted).id});
            show(window, QLatin1String(name));
        };
        choose("expense-checked", [](const Expense& e) { return e.check.has_value(); });
        choose("expense-mileage", [](const Expense& e) { return e.kind == ExpenseKind::mileage; });
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
        show(window, QStringLiteral("expenses-several"));
    }

    void documents(Window& window, AppModel& model) {
        window.showScreen(Screen::invoices);
        auto& screen = *window.findChild<InvoicesScreen*>();
        for (const auto& [status, name] : {std::pair(DocStatus::draft, "invoice-draft"),
                                           {DocStatus::overdue, "invoice-overdue"},
                                           {DocStatus::paid, "invoice-paid"}}) {
            screen.select(documentWith(model.library(), status).id);
            show(window, QLatin1String(name));
        }
        screen.showKind(DocKind::estimate);
        show(window, QStringLiteral("estimates"));
        screen.showKind(DocKind::creditNote);
        show(window, QStringLiteral("credit-notes"));
    }

    void reports(Window& window, AppModel& model) {
        window.showScreen(Screen::reports);
        auto& screen = *window.findChild<ReportsScreen*>();
        const auto report = [&](ReportKind kind, const QString& suffix) {
            screen.showReport(kind);
            if (!QTest::qWaitFor([&] { return screen.page() != nullptr; })) qFatal("no report");
            show(window, QStringLiteral("report-") + toQt(title(kind)) + suffix);
        };
        for (const ReportKind kind : reportsFor(model.library().business)) report(kind, {});
        screen.showReport(ReportKind::profit);
        screen.findChild<QPushButton*>(QStringLiteral("basisCash"))->click();
        report(ReportKind::profit, QStringLiteral(" by cash"));
    }

    void search(Window& window) {
        auto& palette = *window.findChild<SearchPalette*>();
        QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        palette.findChild<QLineEdit*>(QStringLiteral("searchWords"))->setText(QStringLiteral("monsoon"));
        if (!QTest::qWaitFor([&] { return palette.isSettled(); })) qFatal("the search does not end");
        visit_(QStringLiteral("search"), palette);
        palette.dismiss();
    }

    void documentSheets(Window& window, const Library& library) {
        const Document& draft = first<Document>(library.documents, [](const Document& d) {
            return d.kind == DocKind::invoice && d.state == DocState::draft && !d.lines.empty() && d.clientID;
        });
        const Document& open = documentWith(library, DocStatus::overdue);
        IssueSheet issue(&window, library, draft, testDay);
        show(issue, QStringLiteral("sheet-issue"));
        PaymentSheet payment(&window, library, open, testDay);
        show(payment, QStringLiteral("sheet-payment"));
        CreditNoteSheet credit(&window, library, Books::creditNoteFor(library, open.id, testDay));
        show(credit, QStringLiteral("sheet-credit"));
        VoidSheet voiding(&window, library, open, testDay);
        show(voiding, QStringLiteral("sheet-void"));
        MailSheet reminder(&window, library, open, Mail::reminder, testDay, true);
        show(reminder, QStringLiteral("sheet-reminder"));
        Library passing = library;
        passing.expenses.update(0, [&](Expense& e) { e.billable = true, e.clientID = draft.clientID; });
        BillableSheet billable(&window, passing, draft);
        show(billable, QStringLiteral("sheet-billable"));
    }

    void imports(Window& window, const Library& library) {
        for (const char* name : {"hdfc.csv", "bad-rows.csv", "sgml.ofx"}) {
            ImportSheet sheet(
                &window, library,
                StatementFile::of(Files::read(std::filesystem::path(TEST_DATA "/statements") / name), name), {});
            if (!QTest::qWaitFor([&] { return !sheet.isReading(); }, 60000)) qFatal("%s is not read", name);
            show(sheet, QStringLiteral("sheet-import-") + QLatin1String(name));
        }
    }

    void otherSheets(Window& window, AppModel& model) {
        const Library& library = model.library();
        MileageSheet mileage(&window, library, testDay);
        show(mileage, QStringLiteral("sheet-mileage"));
        ClientSheet client(&window, library);
        show(client, QStringLiteral("sheet-client"));
        RecurringSheet recurring(&window, library);
        show(recurring, QStringLiteral("sheet-recurring"));
        BankTransaction receipt = BankTransaction::make(testDay, "NEFT CR", 15'000'000);
        Library with = library;
        with.transactions.append(receipt);
        SplitSheet split(&window, with, receipt);
        show(split, QStringLiteral("sheet-split"));
        AccountSheet account(&window, library, library.accounts[0]);
        show(account, QStringLiteral("sheet-account"));
        BackupSheet backups(&window, {model.backups(), [&](const std::string&) { return library; }, library});
        show(backups, QStringLiteral("sheet-backups"));
        Library ours = library, theirs = library;
        ours.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point", e.amount = 12'000; });
        theirs.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point Koramangala", e.amount = 12'500; });
        Merged merged = merge(library, ours, theirs);
        ConflictSheet conflicts(&window, {merged.library, ours, theirs, merged.conflicts});
        show(conflicts, QStringLiteral("sheet-conflicts"));
        for (int page = 0, pages = 1; page < pages; ++page) {
            SettingsSheet settings(&window, library, testDay, {model.folder(), {}, {}});
            pages = settings.pageCount();
            settings.showPage(page);
            const auto& titles = *settings.findChild<QListWidget*>(QStringLiteral("settingsPages"));
            show(settings, QStringLiteral("settings-") + titles.item(page)->text());
        }
    }
};

}  // namespace

void visitPlaces(const PlaceVisit& visit) { Tour(visit).all(); }

}  // namespace tamba
