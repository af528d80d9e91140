#pragma once

#include "Tamba/Colors.h"
#include "Tamba/Rows/ChartAxis.h"

#include <QWidget>

#include <cstdint>
#include <optional>
#include <vector>

namespace tamba {

/// Groups of bars over a common axis, such as income and spending of twelve months. A bar can be pointed at, reached
/// with the arrow keys and chosen with a click or Enter.
///
///     chart->set({{tr("Income"), &Colors::accent}, {tr("Spending"), &Colors::faint}}, groups, library.home());
///     connect(chart, &BarChart::chosen, this, [this](int group, int series) { … });
class BarChart : public QWidget {
    Q_OBJECT

public:
    struct Series {
        QString name;
        QColor Colors::* ink;
    };
    struct Group {
        QString label;                     ///< under the bars: "Oct"
        QString title;                     ///< in full: "October 2026"
        std::vector<std::int64_t> values;  ///< one for each series, minor units of the currency
        bool operator==(const Group&) const = default;
    };
    explicit BarChart(QWidget* parent = nullptr);
    /// What is selected stays so where there is still such a bar.
    void set(std::vector<Series> series, std::vector<Group> groups, const Currency& currency);
    [[nodiscard]] QSize sizeHint() const override { return {480, 220}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 140}; }

signals:
    /// Clicked, or Enter on the one selected.
    void chosen(int group, int series);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Bar {
        int group = 0, series = 0;
        bool operator==(const Bar&) const = default;
    };
    [[nodiscard]] QRectF plot() const;
    [[nodiscard]] double yOf(std::int64_t value) const;
    [[nodiscard]] QRectF barRect(const Bar& bar) const;
    [[nodiscard]] std::int64_t valueOf(const Bar& bar) const;
    /// The bar in whose column the point lies, however low the bar is.
    [[nodiscard]] std::optional<Bar> barAt(const QPointF& point) const;
    [[nodiscard]] QString tipFor(const Bar& bar) const;
    void select(std::optional<Bar> bar);
    void paintAxis(QPainter& painter, const Colors& colors) const;
    void paintLegend(QPainter& painter, const Colors& colors) const;
    void paintGroup(QPainter& painter, const Colors& colors, int group) const;

    std::vector<Series> series_;
    std::vector<Group> groups_;
    Currency currency_ = Currency::inr();
    ChartAxis axis_;
    double axisWidth_ = 0;
    std::optional<Bar> hovered_, selected_;
};

}  // namespace tamba
