#include "Tamba/Printing.h"
#include "Tamba/Screens/RecordsPane.h"
#include "Tamba/Screens/ReportView.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/TableView.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Pages/PDFPages.h"
#include "tests/app/Support.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPrinter>
#include <QScrollBar>
#include <QSignalSpy>

namespace tamba {

/// Two invoices of October, the first paid half in November, a credit note on the second, and what was spent.
class ReportsScreenTests : public QObject {
    Q_OBJECT

    static Library sample() {
        Library library = testing::aBook();
        const UUID first = testing::billed(library, 10'000'000, {2026, 10, 5}, 1800);
        const UUID second = testing::billed(library, 5'000'000, {2026, 10, 20}, 1800);
        Document note = Books::creditNoteFor(library, second, {2026, 10, 25});
        note.lines[0].priceMinor = 1'000'000;
        testing::issued(library, note);
        library =
            Books::recordPayment(library, first, Payment::make({2026, 11, 9}, 5'400'000, 500'000, PaymentMethod::bank));
        for (const auto& [vendor, amount, day] : {std::tuple{"Paper Mill", 120'000, Day{2026, 10, 7}},
                                                  std::tuple{"Chai Point", 30'000, Day{2026, 10, 9}}}) {
            Expense expense = testing::spent(vendor, amount, day);
            expense.categoryID = library.categories[amount > 100'000 ? 0 : 1].id;
            library.expenses.append(expense);
        }
        return library;
    }

    struct Open : OpenBooks {
        QTemporaryDir desk;
        TestPrompts prompts;
        ReportFiles files{model, prompts};
        ReportsScreen screen{model, files};

        explicit Open(Library library = sample()) {
            prompts.file = toPath(desk.path());
            model.perform(QStringLiteral("Sample"), [&](Library, Day) { return std::move(library); });
            screen.resize(1232, 760);
            screen.show();
            screen.activateWindow();
            if (!QTest::qWaitForWindowActive(&screen)) qFatal("the screen gets no keys");
        }
        [[nodiscard]] TableView& table(int index = 0) const {
            return *screen.findChild<TableView*>(QStringLiteral("reportTable%1").arg(index));
        }
        [[nodiscard]] QString text(const char* name) const {
            return screen.findChild<QLabel*>(QString::fromLatin1(name))->text();
        }
        [[nodiscard]] QString cell(int row, int column) const {
            return table().model()->index(row, column).data().toString();
        }
        void click(int row, int column) const {
            const QRect at = table().visualRect(table().model()->index(row, column));
            QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, at.center());
        }
        [[nodiscard]] int records() const {
            return screen.findChild<QTableView*>(QStringLiteral("records"))->model()->rowCount();
        }
    };
    static constexpr int october = 6, november = 7, sum = 12;

private slots:
    void aFigureShowsTheRecordsThatMakeIt() {
        Open open;
        struct Case {
            int row, column;
            const char *figure, *count;
            int records;
        };
        for (const Case& c :
             {Case{october, 1, "₹1,40,000.00", "3 documents", 3}, Case{october, 2, "₹1,500.00", "2 expenses", 2},
              Case{sum, 1, "₹1,40,000.00", "3 documents", 3}, Case{sum, 2, "₹1,500.00", "2 expenses", 2}}) {
            open.click(c.row, c.column);
            QCOMPARE(open.cell(c.row, c.column), QString::fromUtf8(c.figure));
            QCOMPARE(open.text("recordsSum"), QString::fromUtf8(c.figure));
            QCOMPARE(open.text("recordsCount"), QString::fromUtf8(c.count));
            QCOMPARE(open.records(), c.records);
        }
        // A profit is no sum of its records.
        open.click(october, 3);
        QCOMPARE(open.text("recordsCount"), QStringLiteral("3 documents · 2 expenses"));
        QVERIFY(open.text("recordsSum").isEmpty());
        // Nothing happened then.
        QTest::keyClick(open.screen.findChild<QTableView*>(QStringLiteral("records")), Qt::Key_Escape);
        open.click(november, 1);
        QVERIFY(open.screen.findChild<RecordsPane*>()->isHidden());
    }

    void titlesStayInSightWhileThePageScrolls() {
        Open open;
        open.screen.resize(1232, 420);
        auto& view = *open.screen.findChild<ReportView*>();
        QScrollBar& bar = *view.verticalScrollBar();
        QTRY_VERIFY(bar.maximum() > 0);
        QHeaderView& titles = *open.table().horizontalHeader();
        const auto top = [&] { return titles.mapTo(view.viewport(), QPoint()).y(); };
        const int resting = titles.y();
        bar.setValue(bar.maximum());
        QCOMPARE(top(), 0);
        QTest::mouseClick(titles.viewport(), Qt::LeftButton, {}, {titles.sectionPosition(1) + 10, 10});
        QCOMPARE(titles.sortIndicatorSection(), 1);
        QCOMPARE(top(), 0);
        bar.setValue(0);
        QCOMPARE(titles.y(), resting);
    }

    void whereThereIsLittleRoomDetailsStandBelow() {
        Table table;
        table.columns = {{"Number"}, {"Client"}, {"GSTIN"}, {"Taxable", Table::Kind::amount}};
        table.columns[2].isDetail = true;
        table.rows = {{{std::string("INV/26-27/021"), std::string("Monsoon Tea Company LLP"),
                        std::string("27ABBFM4410Q1Z2"), Table::Amount{8'500'000, "INR"}},
                       {},
                       {}}};
        TableView view;
        view.show();
        view.setTable(table);
        const auto below = [&] { return view.model()->index(0, 1).data(RowDelegate::Second).toString(); };
        for (const int width : {900, 400, 900}) {
            view.resize(width, 200);
            const bool narrow = width == 400;
            QCOMPARE(view.isColumnHidden(2), narrow);
            QCOMPARE(below(), narrow ? QStringLiteral("27ABBFM4410Q1Z2") : QString());
            QCOMPARE(view.horizontalScrollBar()->maximum(), 0);
        }
        QVERIFY(view.copiedText().find("27ABBFM4410Q1Z2") != std::string::npos);
    }

    void keysReachFiguresBarsAndRecords() {
        Open open;
        QSignalSpy documents(&open.screen, &ReportsScreen::documentChosen);
        QSignalSpy expenses(&open.screen, &ReportsScreen::expenseChosen);
        auto* chart = open.screen.findChild<BarChart*>();
        chart->setFocus();
        for (int key = 0; key < 2 * october + 1; ++key) QTest::keyClick(chart, Qt::Key_Right);
        QTest::keyClick(chart, Qt::Key_Return);
        QCOMPARE(open.text("recordsTitle"), QStringLiteral("October 2026 · Spending"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);  // the latest of them
        QCOMPARE(expenses.takeFirst().at(0).value<UUID>(), open.model.library().expenses[1].id);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&open.table()));
        open.table().setCurrentIndex(open.table().model()->index(october, 1));
        QTest::keyClick(&open.table(), Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(documents.takeFirst().at(0).value<UUID>(), open.model.library().documents[1].id);
    }

    void tablesAreCopiedWholeOrInPart() {
        Open open;
        open.screen.showReport(ReportKind::spending);
        open.screen.findChild<QToolButton*>(QStringLiteral("copyReport"))->click();
        const QString first = toQt(open.model.library().categories[0].name),
                      second = toQt(open.model.library().categories[1].name);
        const QString head = QStringLiteral("Category\tExpenses\tAmount\tShare\n");
        const QString whole =
            head + first + QStringLiteral("\t1\t₹1,200.00\t80%\n") + second + QStringLiteral("\t1\t₹300.00\t20%\n");
        QCOMPARE(QGuiApplication::clipboard()->text(), whole + QStringLiteral("Total\t2\t₹1,500.00\t\n"));
        open.table().selectRow(0);
        open.table().selectionModel()->select(open.table().model()->index(1, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QTest::keyClick(&open.table(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), whole);
        // Sorted by the smallest amount, sums stay last.
        open.table().model()->sort(2, Qt::AscendingOrder);
        QCOMPARE(open.cell(0, 0), second);
        QCOMPARE(open.cell(2, 0), QStringLiteral("Total"));
        open.click(0, 2);
        QCOMPARE(open.text("recordsSum"), QStringLiteral("₹300.00"));
    }

    void exportsAndPaperHoldTheTable() {
        Open open;
        open.screen.showReport(ReportKind::clients);
        open.screen.findChild<QPushButton*>(QStringLiteral("saveReport"))->click();
        QCOMPARE(Files::read(toPath(open.desk.path()) / "Clients 2026-27.csv"),
                 std::string("\xEF\xBB\xBF"
                             "Client,Invoices,Invoiced\r\nSaffron Labs,2,150000.00\r\n"));
        open.screen.showReport(ReportKind::owed);
        open.screen.findChild<QPushButton*>(QStringLiteral("saveReport"))->click();
        open.screen.findChild<QPushButton*>(QStringLiteral("saveReport"))->click();
        for (const char* folder : {"Money owed", "Money owed 2"})
            QCOMPARE(Files::names(toPath(open.desk.path()) / folder).size(), std::size_t(2));
        open.screen.print();
        QVERIFY(open.prompts.printed.starts_with("%PDF"));
        open.prompts.file = toPath(open.desk.path()) / "nowhere";
        open.screen.showReport(ReportKind::clients);
        open.screen.findChild<QPushButton*>(QStringLiteral("saveReport"))->click();
        QCOMPARE(open.prompts.alerts.size(), 1);
    }

    void theYearLeavesAsABundleAJournalAndTables() {
        Open open;
        const auto desk = toPath(open.desk.path());
        QSignalSpy saved(&open.files, &ReportFiles::saved);
        open.screen.showReport(ReportKind::yearEnd);
        const auto press = [&](const char* name) {
            open.screen.findChild<QPushButton*>(QString::fromLatin1(name))->click();
        };
        press("makeBundle");
        open.files.cancel();
        QTRY_VERIFY(!open.files.isBusy());
        QVERIFY(Files::names(desk).empty());
        press("makeBundle");
        QVERIFY(open.files.isBusy());
        QTRY_COMPARE(saved.size(), 1);
        QCOMPARE(Files::names(desk).size(), std::size_t(2));  // the folder and its zip
        press("saveJournal");
        QVERIFY(Files::read(desk / "tamba-2026-11-21.journal").find("Saffron Labs") != std::string::npos);
        press("saveBooks");
        QVERIFY(Files::names(desk / "Books 2026-27").size() > 4);
        QVERIFY2(open.prompts.alerts.isEmpty(), qPrintable(open.prompts.alerts.join(QLatin1Char('\n'))));
    }

    void aReportGoesOntoPaperPageByPage() {
        Open open;
        open.screen.print();
        QPrinter printer;
        const auto paper = open.desk.filePath(QStringLiteral("paper.pdf"));
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(paper);
        QVERIFY(!Printing::draw(printer, "no PDF"));
        QVERIFY(Printing::draw(printer, open.prompts.printed));
        QCOMPARE(PDFPages::images(Files::read(toPath(paper)), 200).size(),
                 PDFPages::images(open.prompts.printed, 200).size());
    }

    void whatGoesToThePrinterIsSeenToRunAndToEnd() {
        OpenWindow open;
        const auto title = QStringLiteral("INV-7");
        const auto& strip = *open.window.findChild<ActivityStrip*>();
        const auto& toast = *open.window.findChild<Toast*>();
        for (const auto end : {Printing::Stage::printed, Printing::Stage::failed}) {
            open.window.showPrinting(title, Printing::Stage::running);
            QCOMPARE(strip.what(), QStringLiteral("Printing “INV-7”"));
            open.window.showPrinting(title, end);
            QVERIFY(strip.isHidden());
        }
        QCOMPARE(control<QLabel>(toast, "toastText").text(), QStringLiteral("“INV-7” is printed"));
        QCOMPARE(open.prompts.alerts, QStringList{QStringLiteral("“INV-7” couldn’t be printed.")});
    }

    void whatIsLeftOutIsOneClickAway() {
        Library library = sample();
        Expense foreign = testing::spent("Kumo", 1'200, {2026, 10, 3});
        foreign.currency = "USD";
        foreign.rateMicros = 0;
        library.expenses.append(foreign);
        Open open(std::move(library));
        QCOMPARE(open.screen.page()->remarks.size(), std::size_t(1));
        QSignalSpy expenses(&open.screen, &ReportsScreen::expenseChosen);
        for (QLabel* label : open.screen.findChildren<QLabel*>())
            if (label->text().contains(QStringLiteral("left out"))) emit label->linkActivated(QStringLiteral("#"));
        QCOMPARE(expenses.takeFirst().at(0).value<UUID>(), foreign.id);
    }

    void reportsFollowTheRegime() {
        Open open;
        struct Case {
            TaxRegime regime;
            bool returns, composition, inputTax, tds;
        };
        for (const Case& c :
             {Case{TaxRegime::gstIndia, true, false, true, true},
              Case{TaxRegime::gstComposition, false, true, false, true},
              Case{TaxRegime::simple, false, false, true, true}, Case{TaxRegime::none, false, false, false, true}}) {
            open.screen.showReport(ReportKind::summary);
            open.model.perform(QStringLiteral("Regime"), [&](Library library, Day) {
                library.business.regime = c.regime;
                return library;
            });
            const auto kinds = reportsFor(open.model.library().business);
            const auto has = [&](ReportKind kind) {
                return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
            };
            QCOMPARE(has(ReportKind::outward) && has(ReportKind::summary), c.returns);
            QCOMPARE(has(ReportKind::composition), c.composition);
            QCOMPARE(has(ReportKind::inputTax), c.inputTax);
            QCOMPARE(has(ReportKind::tds), c.tds);
            QVERIFY(has(open.screen.choice().kind));
        }
    }

    void emptyAndLargeBooksAreShown() {
        Open open{Library::make()};
        for (const ReportKind kind : reportsFor(open.model.library().business)) {
            open.screen.showReport(kind);
            QVERIFY(open.screen.page());
        }
        open.model.perform(QStringLiteral("Many"), [](Library library, Day today) {
            for (int i = 0; i < 2'000; ++i) library.expenses.append(testing::spent("Kumo", 100, today));
            return library;
        });
        open.screen.showReport(ReportKind::mileage);
        open.screen.showReport(ReportKind::spending);  // what was begun for another report is dropped
        QVERIFY(!open.screen.page());
        QTRY_VERIFY(open.screen.page());
        QCOMPARE(open.cell(0, 2), QStringLiteral("₹2,000.00"));
    }
};

static const TestClass<ReportsScreenTests> registered;

}  // namespace tamba

#include "ReportsScreenTests.moc"
