#include "CorvexKit/WindowPicture.h"

#include "CorvexKit/CaptionLayout.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace tamba {
namespace {

/// Dialogs over their parents, then menus and lists.
int layerOf(const QWidget& widget) {
    const bool passing = widget.windowType() == Qt::Popup || widget.windowType() == Qt::ToolTip;
    int depth = passing ? 100 : 0;
    for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (parent->isWindow()) ++depth;
    return depth;
}

std::vector<QWidget*> windowsOver(const QWidget& window) {
    std::vector<QWidget*> result;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget != &window && widget->isVisible() && !widget->property("notFilmed").toBool())
            result.push_back(widget);
    std::stable_sort(result.begin(), result.end(),
                     [](const QWidget* a, const QWidget* b) { return layerOf(*a) < layerOf(*b); });
    return result;
}

QPoint placeOf(const QWidget& over, const QWidget& window) {
    // Wayland tells nobody where a dialog stands.
    if (QGuiApplication::platformName() == QLatin1String("wayland") && over.windowType() != Qt::Popup)
        return window.rect().center() - over.rect().center();
    return over.mapToGlobal(QPoint()) - window.mapToGlobal(QPoint());
}

void drawShadow(QPainter& painter, const QRectF& box) {
    painter.setPen(Qt::NoPen);
    for (int spread = 14; spread > 0; spread -= 2) {
        painter.setBrush(QColor(0, 0, 0, 7));
        painter.drawRoundedRect(box.adjusted(-spread, -spread + 4, spread, spread + 4), spread, spread);
    }
    painter.fillRect(box.adjusted(-1, -1, 1, 1), QColor(0, 0, 0, 60));
}

void drawLabel(QPainter& painter, const QRectF& box, const QString& text, const QColor& ground, const QColor& ink) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(box, 7, 7);
    painter.setPen(ink);
    painter.drawText(box, Qt::AlignCenter, text);
}

/// Returns where the caption begins, so that the keys stand above it.
qreal drawCaption(QPainter& painter, const QSize& size, const QFont& font, const QString& caption) {
    const qreal edge = size.height() / 24.0;
    if (caption.isEmpty()) return size.height() - edge;
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const QStringList lines = CaptionLayout::lines(
        caption, size.width() * 4 / 5, [&](const QString& text) { return metrics.horizontalAdvance(text); });
    int width = 0;
    for (const QString& line : lines) width = std::max(width, metrics.horizontalAdvance(line));
    const qreal lineHeight = metrics.height() * 1.15, inset = metrics.height() * 0.55;
    QRectF box(0, 0, width + 3 * inset, lines.size() * lineHeight + inset);
    box.moveCenter(QPointF(size.width() / 2.0, 0));
    box.moveBottom(size.height() - edge);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(18, 22, 28, 225));
    painter.drawRoundedRect(box, 10, 10);
    painter.setPen(Qt::white);
    for (qsizetype i = 0; i < lines.size(); ++i)
        painter.drawText(
            QRectF(box.left(), box.top() + inset / 2 + static_cast<qreal>(i) * lineHeight, box.width(), lineHeight),
            Qt::AlignCenter, lines[i]);
    return box.top();
}

void drawPointer(QPainter& painter, const QPointF& tip, const Marks& marks) {
    painter.save();
    painter.translate(tip);
    if (marks.pressed) {
        painter.setPen(QPen(QColor(255, 255, 255, 200), 5));
        painter.setBrush(QColor(230, 110, 30, 70));
        painter.drawEllipse(QPointF(), 16, 16);
        painter.setPen(QPen(QColor(230, 110, 30), 3));
        painter.drawEllipse(QPointF(), 16, 16);
    }
    QPainterPath arrow;
    arrow.addPolygon(QPolygonF({{0, 0}, {0, 18}, {4.2, 14.2}, {7, 20.6}, {9.8, 19.4}, {7, 13.2}, {12.8, 13.2}}));
    arrow.closeSubpath();
    painter.setPen(QPen(Qt::white, 2.6, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawPath(arrow);
    painter.fillPath(arrow, Qt::black);
    if (!marks.carried.isEmpty()) {
        const QFontMetrics metrics(painter.font());
        const QRectF box(14, 20, metrics.horizontalAdvance(marks.carried) + 22, metrics.height() + 10);
        drawLabel(painter, box, marks.carried, QColor(18, 22, 28, 225), Qt::white);
    }
    painter.restore();
}

}  // namespace

QImage pictureOf(QWidget& window, const QSize& size, const Marks& marks) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(24, 27, 32));
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const qreal scale = std::min(static_cast<qreal>(size.width()) / window.width(),
                                 static_cast<qreal>(size.height()) / window.height());
    const QPointF corner((size.width() - window.width() * scale) / 2, (size.height() - window.height() * scale) / 2);
    painter.save();
    painter.translate(corner);
    painter.scale(scale, scale);
    painter.setClipRect(window.rect());
    painter.drawPixmap(window.rect(), window.grab());
    for (QWidget* over : windowsOver(window)) {
        const QRect box(placeOf(*over, window), over->size());
        drawShadow(painter, box);
        painter.drawPixmap(box, over->grab());
    }
    painter.restore();

    QFont font = QApplication::font();
    font.setPixelSize(std::max(13, size.height() / 38));
    font.setWeight(QFont::DemiBold);
    const qreal above = drawCaption(painter, size, font, marks.caption);
    font.setPixelSize(font.pixelSize() * 4 / 5);
    painter.setFont(font);
    if (!marks.keys.isEmpty()) {
        const QFontMetrics metrics(font);
        QRectF box(0, 0, metrics.horizontalAdvance(marks.keys) + 1.8 * metrics.height(), 1.8 * metrics.height());
        box.moveCenter(QPointF(size.width() / 2.0, 0));
        box.moveBottom(above - metrics.height() / 2.0);
        drawLabel(painter, box, marks.keys, QColor(250, 250, 248, 240), QColor(18, 22, 28));
        painter.setPen(QPen(QColor(18, 22, 28, 120), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box, 7, 7);
    }
    if (marks.pointer) drawPointer(painter, corner + *marks.pointer * scale, marks);
    return picture;
}

}  // namespace tamba
