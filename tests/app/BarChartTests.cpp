#include "Tamba/Widgets/BarChart.h"
#include "tests/app/Support.h"

#include <QSignalSpy>

#include <limits>

namespace tamba {

class BarChartTests : public QObject {
    Q_OBJECT

private slots:
    void axesHaveRoundStepsInTheWordsOfTheCurrency() {
        struct Case {
            std::int64_t lowest, highest;
            const char* currency;
            const char* marks;
        };
        constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
        for (const Case& c : {Case{0, 0, "INR", "0 ₹1"}, Case{0, 1, "INR", "0 ₹1"},
                              Case{0, 23'324'850, "INR", "0 ₹50,000 ₹1 lakh ₹1.5 lakh ₹2 lakh ₹2.5 lakh"},
                              Case{-9'000'000, 41'000'000, "INR", "−₹2 lakh 0 ₹2 lakh ₹4 lakh ₹6 lakh"},
                              Case{0, 12'300'000'000, "INR", "0 ₹5 crore ₹10 crore ₹15 crore"},
                              Case{-450, 0, "INR", "−₹5 −₹4 −₹3 −₹2 −₹1 0"},
                              Case{0, 390'000'000, "USD", "0 $1 million $2 million $3 million $4 million"},
                              Case{0, 3'900, "JPY", "0 ¥1,000 ¥2,000 ¥3,000 ¥4,000"}}) {
            const Currency currency = Currency::of(c.currency);
            QStringList texts;
            for (const std::int64_t mark : ChartAxis::over(c.lowest, c.highest, currency).marks)
                texts << toQt(axisText(mark, currency));
            QCOMPARE(texts.join(QLatin1Char(' ')), QString::fromUtf8(c.marks));
        }
        const ChartAxis widest = ChartAxis::over(-most, most, Currency::inr());
        QVERIFY(widest.marks.front() < 0 && widest.marks.back() > 0 && widest.marks.size() <= 6);
    }

    void barsAreChosenByMouseAndKeys() {
        BarChart chart;
        chart.resize(600, 240);
        chart.set({{QStringLiteral("Income"), &Colors::accent}, {QStringLiteral("Spending"), &Colors::faint}},
                  {{QStringLiteral("Apr"), QStringLiteral("April 2026"), {100'000, 0}},
                   {QStringLiteral("May"), QStringLiteral("May 2026"), {-50'000, 20'000}},
                   {QStringLiteral("Jun"), QStringLiteral("June 2026"), {0, 30'000}}},
                  Currency::inr());
        QVERIFY(chart.accessibleDescription().contains(QStringLiteral("May 2026: Income −₹500.00, Spending ₹200.00")));
        QSignalSpy chosen(&chart, &BarChart::chosen);
        const auto last = [&] { return chosen.takeFirst(); };
        QTest::keyClick(&chart, Qt::Key_Right);
        QTest::keyClick(&chart, Qt::Key_Right);
        QTest::keyClick(&chart, Qt::Key_Right);
        QTest::keyClick(&chart, Qt::Key_Return);
        QCOMPARE(last(), (QVariantList{1, 0}));
        QTest::keyClick(&chart, Qt::Key_End);
        QTest::keyClick(&chart, Qt::Key_Right);
        QTest::keyClick(&chart, Qt::Key_Enter);
        QCOMPARE(last(), (QVariantList{2, 1}));
        // A bar of nothing is still chosen, from anywhere in its column.
        QTest::mouseClick(&chart, Qt::LeftButton, {}, {588, 40});
        QCOMPARE(last(), (QVariantList{2, 1}));
        QTest::mouseClick(&chart, Qt::LeftButton, {}, {10, 230});
        QVERIFY(chosen.isEmpty());
        chart.set({}, {}, Currency::inr());
        QTest::keyClick(&chart, Qt::Key_Return);
        QTest::mouseClick(&chart, Qt::LeftButton, {}, {300, 100});
        QVERIFY(chosen.isEmpty());
    }
};

static const TestClass<BarChartTests> registered;

}  // namespace tamba

#include "BarChartTests.moc"
