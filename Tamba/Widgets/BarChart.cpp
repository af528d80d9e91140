#include "Tamba/Widgets/BarChart.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>

namespace tamba {
namespace {

constexpr int legendHeight = 28, labelHeight = 24;

/// Round at the end that is away from the axis.
QPainterPath barPath(const QRectF& bar, bool down) {
    const qreal radius = std::min({3.0, bar.width() / 2, bar.height()});
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(bar, radius, radius);
    path.addRect(down ? bar.adjusted(0, 0, 0, -radius) : bar.adjusted(0, radius, 0, 0));
    return path.simplified();
}

}  // namespace

BarChart::BarChart(QWidget* parent) : QWidget(parent), axis_(ChartAxis::over(0, 0, currency_)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void BarChart::set(std::vector<Series> series, std::vector<Group> groups, const Currency& currency) {
    series_ = std::move(series);
    groups_ = std::move(groups);
    currency_ = currency;
    std::int64_t lowest = 0, highest = 0;
    QStringList words;
    for (const Group& group : groups_) {
        QStringList figures;
        for (std::size_t i = 0; i < group.values.size(); ++i) {
            lowest = std::min(lowest, group.values[i]);
            highest = std::max(highest, group.values[i]);
            figures << tr("%1 %2").arg(series_[i].name, toQt(MoneyFormat::string(group.values[i], currency_)));
        }
        words << tr("%1: %2").arg(group.title, figures.join(QStringLiteral(", ")));
    }
    axis_ = ChartAxis::over(lowest, highest, currency_);
    axisWidth_ = 0;
    const QFontMetricsF metrics(Style::textFont(11));
    for (const std::int64_t mark : axis_.marks)
        axisWidth_ = std::max(axisWidth_, metrics.horizontalAdvance(toQt(axisText(mark, currency_))) + 10);
    const auto isThere = [this](const std::optional<Bar>& bar) {
        return bar && bar->group < static_cast<int>(groups_.size()) && bar->series < static_cast<int>(series_.size());
    };
    if (!isThere(selected_)) selected_.reset();
    if (!isThere(hovered_)) hovered_.reset();
    setAccessibleDescription(words.join(QStringLiteral("; ")));
    update();
}

QRectF BarChart::plot() const { return QRectF(rect()).adjusted(axisWidth_, legendHeight, -2, -labelHeight); }

double BarChart::yOf(std::int64_t value) const {
    const auto low = static_cast<double>(axis_.marks.front()), high = static_cast<double>(axis_.marks.back());
    const QRectF area = plot();
    return area.bottom() - (static_cast<double>(value) - low) / (high - low) * area.height();
}

std::int64_t BarChart::valueOf(const Bar& bar) const {
    return groups_[static_cast<std::size_t>(bar.group)].values[static_cast<std::size_t>(bar.series)];
}

QRectF BarChart::barRect(const Bar& bar) const {
    const QRectF area = plot();
    const double room = area.width() / static_cast<double>(groups_.size());
    const double count = static_cast<double>(series_.size());
    const double wide = std::clamp((room * 0.68 - 2 * (count - 1)) / count, 2.0, 26.0);
    const double left = area.left() + room * (bar.group + 0.5) - (wide * count + 2 * (count - 1)) / 2;
    const double zero = yOf(0), end = yOf(valueOf(bar));
    // Whatever is not nothing shows.
    const double high = valueOf(bar) == 0 ? 0 : std::max(1.5, std::abs(end - zero));
    return {left + bar.series * (wide + 2), end <= zero ? zero - high : zero, wide, high};
}

std::optional<BarChart::Bar> BarChart::barAt(const QPointF& point) const {
    const QRectF area = plot();
    if (groups_.empty() || series_.empty() || !area.contains(point)) return {};
    const double room = area.width() / static_cast<double>(groups_.size());
    const int group =
        std::clamp(static_cast<int>((point.x() - area.left()) / room), 0, static_cast<int>(groups_.size()) - 1);
    Bar nearest{group, 0};
    for (int i = 1; i < static_cast<int>(series_.size()); ++i)
        if (point.x() >= barRect({group, i}).left() - 1) nearest.series = i;
    return nearest;
}

QString BarChart::tipFor(const Bar& bar) const {
    const Group& group = groups_[static_cast<std::size_t>(bar.group)];
    QStringList lines{group.title};
    for (std::size_t i = 0; i < group.values.size(); ++i)
        lines << tr("%1 %2").arg(series_[i].name, toQt(MoneyFormat::string(group.values[i], currency_)));
    return lines.join(QLatin1Char('\n'));
}

void BarChart::select(std::optional<Bar> bar) {
    if (bar == selected_) return;
    selected_ = bar;
    update();
    if (!selected_) return;
    const Group& group = groups_[static_cast<std::size_t>(selected_->group)];
    const QString text = tr("%1: %2 %3")
                             .arg(group.title, series_[static_cast<std::size_t>(selected_->series)].name,
                                  toQt(MoneyFormat::string(valueOf(*selected_), currency_)));
    QAccessibleValueChangeEvent spoken(this, text);
    QAccessible::updateAccessibility(&spoken);
}

bool BarChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = *static_cast<QHelpEvent*>(event);
    if (const auto bar = barAt(QPointF(help.pos())))
        QToolTip::showText(help.globalPos(), tipFor(*bar), this);
    else
        QToolTip::hideText();
    return true;
}

void BarChart::mouseMoveEvent(QMouseEvent* event) {
    const auto bar = barAt(event->position());
    setCursor(bar ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (bar == hovered_) return;
    hovered_ = bar;
    update();
}

void BarChart::mousePressEvent(QMouseEvent* event) {
    const auto bar = barAt(event->position());
    if (event->button() != Qt::LeftButton || !bar) return QWidget::mousePressEvent(event);
    select(bar);
    emit chosen(bar->group, bar->series);
}

void BarChart::leaveEvent(QEvent*) {
    hovered_.reset();
    update();
}

void BarChart::keyPressEvent(QKeyEvent* event) {
    const int groups = static_cast<int>(groups_.size()), series = static_cast<int>(series_.size());
    if (groups == 0 || series == 0) return QWidget::keyPressEvent(event);
    Bar bar = selected_.value_or(Bar{});
    // Left and right walk over the bars as they stand; Home and End go to the first and last group.
    const int at = bar.group * series + bar.series;
    const auto go = [&](int to) {
        to = std::clamp(to, 0, groups * series - 1);
        select(Bar{to / series, to % series});
    };
    switch (event->key()) {
        case Qt::Key_Left:
            return go(selected_ ? at - 1 : groups * series - 1);
        case Qt::Key_Right:
            return go(selected_ ? at + 1 : 0);
        case Qt::Key_Home:
            return go(bar.series);
        case Qt::Key_End:
            return go((groups - 1) * series + bar.series);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (selected_) emit chosen(bar.group, bar.series);
            return;
        default:
            return QWidget::keyPressEvent(event);
    }
}

void BarChart::focusInEvent(QFocusEvent* event) {
    if (!selected_ && event->reason() != Qt::MouseFocusReason && !groups_.empty() && !series_.empty()) select(Bar{});
    update();
}

void BarChart::focusOutEvent(QFocusEvent*) { update(); }

void BarChart::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLegend(painter, colors);
    paintAxis(painter, colors);
    for (int group = 0; group < static_cast<int>(groups_.size()); ++group) paintGroup(painter, colors, group);
    // Over the bars, so that what is below zero hangs from it.
    painter.setPen(QPen(colors.strongBorder, 1));
    const double zero = std::floor(yOf(0)) + 0.5;
    painter.drawLine(QPointF(plot().left(), zero), QPointF(plot().right(), zero));
}

void BarChart::paintLegend(QPainter& painter, const Colors& colors) const {
    painter.setFont(Style::textFont(11));
    double x = plot().left();
    for (const Series& each : series_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.*each.ink);
        painter.drawRoundedRect(QRectF(x, 5, 10, 10), 3, 3);
        painter.setPen(colors.muted);
        const double wide = painter.fontMetrics().horizontalAdvance(each.name) + 4;
        painter.drawText(QRectF(x + 16, 0, wide, 20), Qt::AlignVCenter, each.name);
        x += 16 + wide + 16;
    }
}

void BarChart::paintAxis(QPainter& painter, const Colors& colors) const {
    const QRectF area = plot();
    painter.setFont(Style::textFont(11));
    for (const std::int64_t mark : axis_.marks) {
        const double y = std::floor(yOf(mark)) + 0.5;
        painter.setPen(QPen(colors.border, 1));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        painter.setPen(colors.muted);
        painter.drawText(QRectF(0, y - 10, axisWidth_ - 8, 20), Qt::AlignRight | Qt::AlignVCenter,
                         toQt(axisText(mark, currency_)));
    }
}

void BarChart::paintGroup(QPainter& painter, const Colors& colors, int group) const {
    const QRectF area = plot();
    const double room = area.width() / static_cast<double>(groups_.size());
    const QRectF column(area.left() + room * group, area.top(), room, area.height());
    if (hovered_ && hovered_->group == group) {
        QColor wash = colors.text;
        wash.setAlphaF(0.05F);
        painter.fillRect(column, wash);
    }
    for (int i = 0; i < static_cast<int>(series_.size()); ++i) {
        const Bar bar{group, i};
        const QRectF box = barRect(bar);
        const QColor ink = colors.*series_[static_cast<std::size_t>(i)].ink;
        painter.setPen(Qt::NoPen);
        painter.setBrush(bar == hovered_ ? mixed(ink, colors.text, 0.18F) : ink);
        if (box.height() > 0) painter.drawPath(barPath(box, valueOf(bar) < 0));
        if (bar != selected_) continue;
        painter.setPen(QPen(hasFocus() ? colors.accent : colors.strongBorder, hasFocus() ? 2 : 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(-2.5, -2.5, 2.5, 2.5), 4, 4);
    }
    painter.setFont(Style::textFont(11));
    painter.setPen(colors.muted);
    // Where labels would touch, every second one stands.
    double widest = 0;
    for (const Group& each : groups_)
        widest = std::max<double>(widest, painter.fontMetrics().horizontalAdvance(each.label) + 4);
    if (widest > room && group % 2 == 1) return;
    painter.drawText(QRectF(column.center().x() - widest, area.bottom() + 4, 2 * widest, labelHeight - 4),
                     Qt::AlignHCenter | Qt::AlignVCenter, groups_[static_cast<std::size_t>(group)].label);
}

}  // namespace tamba
