#include "Tamba/Screens/ReportView.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Widgets/BarChart.h"
#include "Tamba/Widgets/TableView.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Pictures.h"

#include <QScrollBar>

namespace tamba {

/// The reports, large and small.
class ReportShotsTests : public Shots {
    Q_OBJECT

private slots:
    void reports_data() { palettes(); }
    void reports() {
        setPalette();
        OpenBooks books;
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        Window window(books.model, std::move(owned));
        window.resize(1440, 880);
        window.showScreen(Screen::reports);
        shoot(window, QStringLiteral("reports-empty"));
        books.openSample();
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
                if (*size != 0 || isDark()) continue;
                prompts.printed.clear();
                screen.print();
                if (!prompts.printed.empty())
                    Files::writeAtomically(
                        toPath(picturesFolder() + QLatin1Char('/') + name(kind, "") + QStringLiteral(".pdf")),
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
        QScrollBar& bar = *screen.findChild<ReportView*>()->verticalScrollBar();
        QTRY_VERIFY(bar.maximum() > 0);
        bar.setValue(bar.maximum());
        shoot(window, QStringLiteral("reports-scrolled"));
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
    }

    void charts_data() { palettes(); }
    void charts() {
        setPalette();
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
    }
};

static const TestClass<ReportShotsTests> registered;

}  // namespace tamba

#include "ReportShotsTests.moc"
