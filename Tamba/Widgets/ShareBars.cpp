#include "Tamba/Widgets/ShareBars.h"

#include "Tamba/Colors.h"
#include "Tamba/Style.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tamba {

ShareBars::ShareBars(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ShareBars::set(std::vector<Bar> bars) {
    bars_ = std::move(bars);
    hovered_ = selected_ = -1;
    QStringList words;
    for (const Bar& bar : bars_) words << tr("%1: %2").arg(bar.label, bar.figure);
    setAccessibleDescription(words.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

QSize ShareBars::sizeHint() const { return {480, static_cast<int>(bars_.size()) * rowHeight}; }

int ShareBars::barAt(int y) const {
    const int bar = y / rowHeight;
    return y >= 0 && bar < static_cast<int>(bars_.size()) ? bar : -1;
}

void ShareBars::select(int bar) {
    if (bars_.empty()) return;
    selected_ = std::clamp(bar, 0, static_cast<int>(bars_.size()) - 1);
    update();
    const Bar& now = bars_[static_cast<std::size_t>(selected_)];
    QAccessibleValueChangeEvent spoken(this, tr("%1: %2").arg(now.label, now.figure));
    QAccessible::updateAccessibility(&spoken);
}

void ShareBars::mouseMoveEvent(QMouseEvent* event) {
    const int bar = barAt(event->pos().y());
    setCursor(bar < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
    if (bar == hovered_) return;
    hovered_ = bar;
    update();
}

void ShareBars::mousePressEvent(QMouseEvent* event) {
    const int bar = barAt(event->pos().y());
    if (event->button() != Qt::LeftButton || bar < 0) return QWidget::mousePressEvent(event);
    select(bar);
    emit chosen(bar);
}

void ShareBars::leaveEvent(QEvent*) {
    hovered_ = -1;
    update();
}

void ShareBars::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return select(selected_ - 1);
        case Qt::Key_Down:
            return select(selected_ + 1);
        case Qt::Key_Home:
            return select(0);
        case Qt::Key_End:
            return select(static_cast<int>(bars_.size()) - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (selected_ >= 0) emit chosen(selected_);
            return;
        default:
            return QWidget::keyPressEvent(event);
    }
}

void ShareBars::focusInEvent(QFocusEvent* event) {
    if (selected_ < 0 && event->reason() != Qt::MouseFocusReason) select(0);
    update();
}

void ShareBars::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(Style::textFont(13));
    const QFontMetrics metrics(painter.font());
    int labels = 0, figures = 0;
    double longest = 1;
    for (const Bar& bar : bars_) {
        labels = std::max(labels, metrics.horizontalAdvance(bar.label) + 2);
        figures = std::max(figures, metrics.horizontalAdvance(bar.figure));
        longest = std::max(longest, std::abs(static_cast<double>(bar.amount)));
    }
    labels = std::min(labels, width() / 3);
    const double left = labels + 20, room = std::max(20.0, width() - left - figures - 20);
    for (int i = 0; i < static_cast<int>(bars_.size()); ++i) {
        const Bar& bar = bars_[static_cast<std::size_t>(i)];
        const QRectF row(0, i * rowHeight, width(), rowHeight);
        if (i == hovered_ || (i == selected_ && hasFocus())) {
            painter.setPen(i == selected_ && hasFocus() ? QPen(colors.accent, 1) : QPen(Qt::NoPen));
            painter.setBrush(i == hovered_ ? colors.hover : QColor(Qt::transparent));
            painter.drawRoundedRect(row.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        }
        painter.setPen(colors.text);
        painter.drawText(row.adjusted(6, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(bar.label, Qt::ElideRight, labels));
        painter.drawText(row.adjusted(0, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter, bar.figure);
        if (bar.amount == 0) continue;
        const double wide = std::max(2.0, std::abs(static_cast<double>(bar.amount)) / longest * room);
        const QRectF box(left, row.center().y() - 6, wide, 12);
        painter.setPen(bar.amount < 0 ? QPen(bar.color, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(bar.amount < 0 ? QColor(Qt::transparent) : bar.color);
        painter.drawRoundedRect(box, 3, 3);
    }
}

}  // namespace tamba
