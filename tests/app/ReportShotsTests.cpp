#include "Tamba/Icons.h"
#include "Tamba/Screens/ReportView.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/TableView.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures.h"
#include "tests/app/Support.h"

namespace tamba {

/// Pictures of the reports in both palettes, to be looked at; only where TAMBA_SHOTS names a folder for them.
class ReportShotsTests : public QObject {
    Q_OBJECT

    QString folder_ = qEnvironmentVariable("TAMBA_SHOTS");
    QString palette_;

    void shoot(QWidget& widget, const QString& name) {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        for (int rounds = 0; rounds < 5; ++rounds) QCoreApplication::processEvents();
        const QString scale = widget.devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
        QVERIFY(widget.grab().save(folder_ + QStringLiteral("/%1-%2%3.png").arg(name, palette_, scale)));
    }

private slots:
    void reports_data() { charts_data(); }
    void reports() {
        QFETCH(bool, dark);
        palette_ = dark ? QStringLiteral("dark") : QStringLiteral("light");
        QDir().mkpath(folder_);
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        Style::apply(application, Colors::make(dark, Icons::colorOf("1E4A66")));
        OpenBooks books;
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        Window window(books.model, std::move(owned));
        window.resize(1440, 880);
        window.showScreen(Screen::reports);
        shoot(window, QStringLiteral("reports-empty"));
        Fixtures::write(LibraryStore(books.path() / "Studio"), testDay);
        books.model.open(books.path() / "Studio");
        auto& screen = *window.findChild<ReportsScreen*>();
        const auto name = [&](ReportKind kind, const char* size) {
            QString word = toQt(title(kind)).toLower();
            return QStringLiteral("reports-%1%2")
                .arg(word.replace(QLatin1Char(' '), QLatin1Char('-')), QLatin1String(size));
        };
        const auto all = [&](const char* size) {
            for (const ReportKind kind : reportsFor(books.model.library().business)) {
                screen.showReport(kind);
                QTRY_VERIFY(screen.page());
                shoot(window, name(kind, size));
                if (*size != 0 || dark) continue;
                prompts.printed.clear();
                screen.print();
                if (!prompts.printed.empty())
                    Files::writeAtomically(toPath(folder_ + QLatin1Char('/') + name(kind, "") + QStringLiteral(".pdf")),
                                           prompts.printed);
            }
        };
        all("");
        screen.showReport(ReportKind::profit);
        QTRY_VERIFY(screen.page());
        const auto october = [&] {
            auto* table = screen.findChild<ReportView*>()->currentTable();
            table->setFocus();
            table->setCurrentIndex(table->model()->index(6, 1));
            QTest::keyClick(table, Qt::Key_Return);
        };
        october();
        shoot(window, QStringLiteral("reports-records"));
        window.resize(960, 620);
        shoot(window, QStringLiteral("reports-records-small"));
        all("-small");
        window.resize(1440, 880);
        books.model.perform(QStringLiteral("Composition"), [](Library library, Day) {
            library.business.regime = TaxRegime::gstComposition;
            return library;
        });
        screen.showReport(ReportKind::composition);
        QTRY_VERIFY(screen.page());
        shoot(window, QStringLiteral("reports-composition"));
        Style::apply(application, Colors::make(false, Icons::colorOf("1E4A66")));
    }

    void charts_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void charts() {
        QFETCH(bool, dark);
        palette_ = dark ? QStringLiteral("dark") : QStringLiteral("light");
        QDir().mkpath(folder_);
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        Style::apply(application, Colors::make(dark, Icons::colorOf("1E4A66")));
        BarChart chart;
        chart.resize(720, 260);
        std::vector<BarChart::Group> groups;
        for (int month = 0; month < 12; ++month) {
            const Day day = Day{2026, 4, 1}.addingMonths(month);
            groups.push_back(
                {toQt(day.formatted("MMM")),
                 toQt(day.formatted("MMMM yyyy")),
                 {month == 5 ? -4'500'000 : 2'150'000 * (month % 4), month > 8 ? 0 : 1'430'000 + month * 99'000}});
        }
        chart.set({{QStringLiteral("Income"), &Colors::accent}, {QStringLiteral("Spending"), &Colors::faint}}, groups,
                  Currency::inr());
        chart.show();
        QTest::keyClick(&chart, Qt::Key_Right);
        shoot(chart, QStringLiteral("chart"));
        chart.resize(300, 180);
        shoot(chart, QStringLiteral("chart-narrow"));
        chart.set({{QStringLiteral("Income"), &Colors::accent}}, {}, Currency::inr());
        shoot(chart, QStringLiteral("chart-empty"));
        Style::apply(application, Colors::make(false, Icons::colorOf("1E4A66")));
    }
};

static const TestClass<ReportShotsTests> registered;

}  // namespace tamba

#include "ReportShotsTests.moc"
