#include "Tamba/DocumentDrag.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/OverviewParts.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Fixtures.h"
#include "tests/app/Support.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>

namespace tamba {
namespace {

using testing::aBook;
using testing::spent;

/// Issued to the first client, due 15 days on.
Document invoiceOf(const Library& library, std::string number, Day date, std::int64_t price) {
    Document document = testing::aDraft(library, DocKind::invoice, {Line::make("Design", 1000, price, 0)});
    document.issueDate = date;
    document.dueDate = date.addingDays(15);
    document.state = DocState::issued;
    document.number = std::move(number);
    document.billTo = PartySnapshot::of(library.clients[0]);
    return document;
}

/// Two late invoices and one that is not, an expense with each thing that can be missing.
Library someBooks() {
    Library library = aBook();
    library.documents.append(invoiceOf(library, "INV/26-27/001", {2026, 9, 1}, 10'000'000));
    library.documents.append(invoiceOf(library, "INV/26-27/002", {2026, 11, 1}, 5'000'000));
    library.documents.append(invoiceOf(library, "INV/26-27/003", {2026, 11, 20}, 100'000));
    Document draft = testing::aDraft(library, DocKind::invoice, {});
    library.documents.append(draft);
    Expense paper = spent("Kagaz", 200'000, {2026, 11, 2});
    paper.categoryID = library.categories[0].id;
    paper.attachments.push_back(Attachment::make("Receipts/2026-11/kagaz.pdf", "kagaz.pdf"));
    library.expenses.append(paper);
    Expense cloud = spent("Kumo", 2'000, {2026, 11, 3});
    cloud.currency = "USD", cloud.rateMicros = 0;
    library.expenses.append(cloud);
    library.transactions.append(BankTransaction::make({2026, 11, 4}, "UPI/CHAI", -2'000));
    return library;
}

std::vector<std::string> titlesOf(const Overview& overview) {
    std::vector<std::string> titles;
    for (const OverviewItem& item : overview.items) titles.push_back(item.title);
    return titles;
}

}  // namespace

class OverviewScreenTests : public QObject {
    Q_OBJECT

    struct Open : OpenWindow {
        explicit Open(const Library& library) : OpenWindow(library) { window.showScreen(Screen::overview); }
        template <class T>
        T& find(const char* name) {
            return control<T>(window, name);
        }
        /// The tile of what waits with this title.
        ItemTile& item(const QString& title) {
            for (ItemTile* tile : window.findChildren<ItemTile*>())
                if (tile->isVisible() && tile->accessibleName().startsWith(title)) return *tile;
            qFatal("no item %s", qPrintable(title));
        }
    };

private slots:
    void tellsWhatWaits() {
        const Overview shown = overview(someBooks(), testDay);
        QCOMPARE(shown.figures[0].amount, std::string("₹1,51,000.00"));
        QCOMPARE(shown.figures[0].note, std::string("3 open invoices"));
        QCOMPARE(shown.figures[1].amount, std::string("₹1,50,000.00"));
        QCOMPARE(shown.figures[1].note, std::string("2 invoices are late"));
        QCOMPARE(shown.figures[2].amount, std::string("₹1,51,000.00"));
        QCOMPARE(shown.figures[3].amount, std::string("₹1,49,000.00"));
        const std::vector<std::string> expected{
            "Saffron Labs · INV/26-27/001",   "Saffron Labs · INV/26-27/002",       "1 bank line to match",
            "1 draft invoice not issued yet", "1 expense without an exchange rate", "1 expense without a category",
            "1 expense without a receipt"};
        QCOMPARE(titlesOf(shown), expected);
        QCOMPARE(shown.items[0].detail, std::string("66 days late"));
        QVERIFY(!shown.leftOut.empty());
        QCOMPARE(shown.months.size(), std::size_t(12));
        QCOMPARE(shown.months.front().month.iso(), std::string("2025-12-01"));
        QCOMPARE(shown.months.back().income, std::int64_t(5'100'000));
        QCOMPARE(shown.months.back().spent, std::int64_t(200'000));
        QCOMPARE(shown.dates.front().title, std::string("GSTR-1 for November 2026"));
        QVERIFY(overview(Library::make(), testDay).empty);
    }

    void theQuarterOfTheCompositionSchemeIsAlwaysInSight() {
        Library library = aBook();
        library.business.regime = TaxRegime::gstComposition;
        library.documents.append(invoiceOf(library, "INV/1", {2026, 10, 5}, 100'000));
        for (const auto& [today, title] : {std::pair(Day{2026, 7, 19}, "CMP-08 for July–September 2026"),
                                           {Day{2026, 10, 18}, "CMP-08 for July–September 2026"},
                                           {Day{2026, 10, 19}, "CMP-08 for October–December 2026"}}) {
            std::vector<std::string> titles;
            for (const OverviewDate& date : overview(library, today).dates)
                if (date.title.starts_with("CMP-08")) titles.push_back(date.title);
            QCOMPARE(titles, std::vector<std::string>{title});
        }
    }

    void gathersManyLateInvoices() {
        Library library = aBook();
        for (int i = 1; i <= 8; ++i)
            library.documents.append(
                invoiceOf(library, "INV/" + std::to_string(i), Day{2026, 9, 1}.addingDays(i), 100'000));
        const Overview shown = overview(library, testDay);
        QCOMPARE(shown.items.size(), std::size_t(6));
        QCOMPARE(shown.items.back().title, std::string("3 more invoices overdue"));
        QCOMPARE(shown.items.back().amount, std::string("₹3,000.00"));
    }

    void countsForTheSidebar() {
        const Waiting waits = waiting(someBooks(), testDay);
        QCOMPARE(waits.expenses.incomplete, std::size_t(1));  // lacks both and counts once
        QCOMPARE(waits.invoices, std::size_t(2));
        QCOMPARE(waits.bank, std::size_t(1));
    }

    void leadsToWhatMakesAFigure() {
        Open open(someBooks());
        auto& invoices = *open.window.findChild<InvoicesScreen*>();
        auto& list = open.find<QTableView>("documents");
        const auto back = [&] { open.window.showScreen(Screen::overview); };
        open.find<FigureTile>("figureOverdue").click();
        QCOMPARE(open.window.screen(), Screen::invoices);
        QCOMPARE(list.model()->rowCount(), 2);
        back();
        open.find<FigureTile>("figureOwed").click();
        QCOMPARE(list.model()->rowCount(), 3);
        back();
        open.item(QStringLiteral("Saffron Labs · INV/26-27/002")).click();
        QCOMPARE(invoices.selected(), std::optional(open.model.library().documents[1].id));
        back();
        open.item(QStringLiteral("1 expense without an exchange rate")).click();
        QCOMPARE(open.window.screen(), Screen::expenses);
        QCOMPARE(open.window.findChild<ExpensesScreen*>()->selected(),
                 std::vector<UUID>{open.model.library().expenses[1].id});
        back();
        open.item(QStringLiteral("1 bank line")).click();
        QCOMPARE(open.window.screen(), Screen::bank);
        back();
        open.find<FigureTile>("figureProfit").click();
        QCOMPARE(open.window.screen(), Screen::reports);
    }

    void leadsToTheReportThatADateIsAbout() {
        using Place = OverviewGoal::Place;
        Open open(someBooks());
        auto& overview = *open.window.findChild<OverviewScreen*>();
        auto& reports = *open.window.findChild<ReportsScreen*>();
        const Period october = Period::month({2026, 10, 1}), quarter{{2026, 7, 1}, {2026, 9, 30}},
                     year{{2025, 4, 1}, {2026, 3, 31}};
        const struct {
            OverviewGoal goal;
            ReportKind kind;
        } cases[] = {
            {{.place = Place::deadline, .days = october, .deadline = Deadlines::Kind::gstr1}, ReportKind::outward},
            {{.place = Place::deadline, .days = october, .deadline = Deadlines::Kind::gstr3b}, ReportKind::summary},
            {{.place = Place::deadline, .days = year, .deadline = Deadlines::Kind::advanceTax}, ReportKind::profit},
            {{.place = Place::profitAndLoss, .days = year}, ReportKind::profit},
        };
        for (const auto& [goal, kind] : cases) {
            emit overview.goalChosen(goal);
            QCOMPARE(open.window.screen(), Screen::reports);
            QCOMPARE(reports.choice().kind, kind);
            QCOMPARE(periodOf(reports.choice(), open.model.library()), *goal.days);
        }
        open.model.perform(QStringLiteral("Scheme"), [](Library library, Day) {
            library.business.regime = TaxRegime::gstComposition;
            return library;
        });
        for (const auto& [deadline, days] :
             {std::pair(Deadlines::Kind::cmp08, quarter), std::pair(Deadlines::Kind::gstr4, year)}) {
            emit overview.goalChosen({.place = Place::deadline, .days = days, .deadline = deadline});
            QCOMPARE(reports.choice().kind, ReportKind::composition);
            QCOMPARE(periodOf(reports.choice(), open.model.library()), days);
        }
        open.window.showScreen(Screen::overview);
        open.prompts.changeSettings = [](Library library) {
            library.business.lutReference = "AD270426000001X";
            return SettingsEdit{std::move(library)};
        };
        emit overview.goalChosen({.place = Place::deadline, .deadline = Deadlines::Kind::lut});
        QCOMPARE(open.model.library().business.lutReference, std::string("AD270426000001X"));
        QVERIFY(open.prompts.settingsContext.place == SettingsPlace::tax);
        QCOMPARE(open.window.screen(), Screen::overview);
    }

    void aMonthOfTheChartShowsWhatItIsMadeOf() {
        Open open(someBooks());
        auto& chart = open.find<BarChart>("overviewMonths");
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return}) QTest::keyClick(&chart, key);
        QCOMPARE(open.window.screen(), Screen::reports);
        QCOMPARE(open.find<QLabel>("recordsTitle").text(), QStringLiteral("November 2026"));
        QCOMPARE(open.find<QLabel>("recordsCount").text(), QStringLiteral("2 documents · 1 expense"));
    }

    void followsTheBooks() {
        Open open(someBooks());
        auto& screen = *open.window.findChild<OverviewScreen*>();
        QTRY_VERIFY(screen.isSettled());
        open.model.perform(QStringLiteral("Paid"), [](Library library, Day) {
            library.documents.update(0, [](Document& document) {
                document.payments.push_back(Payment::make({2026, 11, 1}, 10'000'000, 0, PaymentMethod::bank));
            });
            return library;
        });
        QTRY_VERIFY(screen.isSettled());
        QVERIFY(open.find<FigureTile>("figureOverdue").accessibleName().contains(QStringLiteral("₹50,000.00")));
        open.model.undo();
        QTRY_VERIFY(screen.isSettled());
        QVERIFY(open.find<FigureTile>("figureOverdue").accessibleName().contains(QStringLiteral("₹1,50,000.00")));
        // Large books are looked through beside the main thread; of changes meanwhile the last is what is shown.
        for (const char* name : {"First", "Last"})
            open.model.perform(QStringLiteral("Grow"), [name](Library library, Day) {
                for (int i = 0; i < 2'500; ++i) library.expenses.append(spent(name, 100, {2026, 11, 1}));
                return library;
            });
        QVERIFY(!screen.isSettled());
        QTRY_VERIFY(screen.isSettled());
        QVERIFY(open.item(QStringLiteral("5001 expenses without a category")).isVisible());
    }

    void sendsReminders() {
        Library library = someBooks();
        library.clients.update(0, [](Client& client) { client.email = "asha@example.com"; });
        Open open(library);
        QTemporaryDir desk;
        open.prompts.file = toPath(desk.path());  // there is no mail program
        open.item(QStringLiteral("Saffron Labs · INV/26-27/001"))
            .findChild<QPushButton*>(QStringLiteral("sendReminder"))
            ->click();
        QCOMPARE(open.model.library().documents[0].remindersSent, 1);
        QCOMPARE(open.window.screen(), Screen::overview);
    }

    void keepsProjects() {
        Library library = aBook();
        Project brand = Project::make("Rebrand", library.clients[0].id);
        library.projects.append(brand);
        library.documents.append(invoiceOf(library, "INV/1", {2026, 11, 1}, 10'000'000));
        Expense print = spent("Chhapai", 3'000'000, {2026, 11, 2});
        print.projectID = brand.id;
        library.expenses.append(print);
        Open open(library);
        open.window.showScreen(Screen::clients);
        auto& pages = *open.window.findChild<ClientPages*>();
        auto& screen = *open.window.findChild<ProjectsScreen*>();
        pages.showProjects();
        QVERIFY(screen.isVisible());
        const ProjectTable table = projectTable(open.model.library(), {});
        QCOMPARE(table.rows.front().profit, std::string("₹70,000.00"));
        screen.select(brand.id);
        auto& records = open.find<QTableView>("projectRecords");
        QCOMPARE(records.model()->rowCount(), 2);
        // What others refer to is archived.
        screen.deleteSelected();
        QVERIFY(open.model.library().projects[0].archived);
        open.model.undo();
        screen.select(brand.id);
        auto& name = open.find<QLineEdit>("projectName");
        name.setFocus();
        name.setText(QStringLiteral("  New brand "));
        QTest::keyClick(&name, Qt::Key_Return);
        QCOMPARE(open.model.library().projects[0].name, std::string("New brand"));
        name.setText({});
        QTest::keyClick(&name, Qt::Key_Return);
        QCOMPARE(open.model.library().projects[0].name, std::string("New brand"));
        QCOMPARE(name.text(), QStringLiteral("New brand"));
        auto& client = open.find<QComboBox>("projectClient");
        client.setCurrentIndex(0);
        emit client.activated(0);
        QVERIFY(!open.model.library().projects[0].clientID);
    }

    void copiesRowsAsText() {
        Open open(someBooks());
        open.window.showScreen(Screen::expenses);
        auto& table = open.find<QTableView>("expenses");
        table.setFocus();
        table.selectAll();
        QTest::keySequence(&open.window, QKeySequence::Copy);
        const QStringList lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        const QStringList cells = lines.last().split(QLatin1Char('\t'));
        QVERIFY(cells.contains(QStringLiteral("Kagaz")) && cells.contains(QStringLiteral("₹2,000.00")));
    }

    void dragsDocumentsOutAsPDFs() {
        Open open(someBooks());
        std::optional<UUID> which = open.model.library().documents[0].id;
        const DocumentDrag drag(open.model, open.window, [&which] { return which; }, nullptr);
        const auto file = drag.file();
        QVERIFY(file && Files::read(*file).starts_with("%PDF"));
        QVERIFY(file->filename().string().find("001") != std::string::npos);
        which = open.model.library().documents[3].id;
        QVERIFY(!drag.file());
    }
};

static const TestClass<OverviewScreenTests> registered;

}  // namespace tamba

#include "OverviewScreenTests.moc"
