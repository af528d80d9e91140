#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/BarChart.h"
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
