#include "Tamba/Widgets/RowDelegate.h"

#include "Tamba/Icons.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Style.h"

#include <QPainter>
#include <QPainterPath>
#include <QTableView>

namespace tamba {
namespace {

void paintPill(QPainter& painter, const QRectF& cell, const QString& text, const QString& ownGlyph, Tone tone,
               const Colors& colors) {
    painter.setFont(Style::textFont(11, QFont::DemiBold));
    const qreal wide = painter.fontMetrics().horizontalAdvance(text) + 18;
    const QRectF box(cell.left() + 10, cell.center().y() - 10, std::min(wide, cell.width() - 14), 20);
    const auto [ink, tint] = tone == Tone::warning  ? std::pair(colors.warning, colors.warningTint)
                             : tone == Tone::danger ? std::pair(colors.danger, colors.dangerTint)
                             : tone == Tone::good   ? std::pair(colors.success, colors.successTint)
                                                    : std::pair(colors.muted, colors.neutralTint);
    painter.setRenderHint(QPainter::Antialiasing);
    if (cell.width() < 60) {
        const QString glyph = !ownGlyph.isEmpty()     ? ownGlyph
                              : tone == Tone::neutral ? QStringLiteral("category-none")
                              : tone == Tone::good    ? QStringLiteral("done")
                                                      : QStringLiteral("alert");
        return Icons::paint(painter, QRectF(cell.left() + 12, cell.center().y() - 8.5, 17, 17), glyph, ink);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint);
    painter.drawRoundedRect(box, 10, 10);
    painter.setPen(ink);
    painter.drawText(box.adjusted(4, 0, -4, 0), Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(box.width()) - 8));
}

/// The first of the columns that are shown.
bool beginsRow(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const auto* table = qobject_cast<const QTableView*>(option.widget);
    for (int column = 0; column < index.column(); ++column)
        if (!table || !table->isColumnHidden(column)) return false;
    return true;
}

}  // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const Colors colors = Colors::current();
    painter->save();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, selected ? colors.accentTint : colors.surface);
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                      selected ? colors.accentTint : colors.hover);
    // The bar says where the keys go: strong in the list that has them, also in a row that is not chosen.
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool hasKeys = view && view->hasFocus();
    if ((selected || (hasKeys && view->currentIndex().row() == index.row())) && beginsRow(option, index))
        painter->fillRect(QRect(option.rect.left(), option.rect.top(), 3, option.rect.height()),
                          hasKeys ? colors.accent : colors.strongBorder);
    const QRectF cell(option.rect);
    const QString text = index.data(Qt::DisplayRole).toString();
    if (const QVariant tone = index.data(Pill); tone.isValid()) {
        if (!text.isEmpty())
            paintPill(*painter, cell, text, index.data(Glyph).toString(), static_cast<Tone>(tone.toInt()), colors);
        painter->restore();
        return;
    }
    QRectF words = cell.adjusted(12, 0, -12, 0);
    if (const QString glyph = index.data(Glyph).toString(); !glyph.isEmpty()) {
        const auto own = index.data(GlyphColor).value<QColor>();
        const qreal left = text.isEmpty() || cell.width() < 60 ? cell.center().x() - 8.5 : words.left();
        Icons::paint(*painter, QRectF(left, cell.center().y() - 8.5, 17, 17), glyph,
                     own.isValid() ? colors.readable(own) : colors.muted);
        words.setLeft(words.left() + 25);
    }
    if (words.width() < 24) {
        painter->restore();
        return;
    }
    const bool strong = index.data(Strong).toBool();
    painter->setFont(Style::textFont(13, strong ? QFont::DemiBold : QFont::Normal));
    const auto ink = index.data(Qt::ForegroundRole).value<QColor>();
    painter->setPen(ink.isValid() ? ink : colors.text);
    const auto alignment = static_cast<Qt::Alignment>(index.data(Qt::TextAlignmentRole).toInt());
    const QVariant folded = index.data(Folded);
    if (const QVariant second = folded.isValid() ? folded : index.data(Second); !second.toString().isEmpty()) {
        const QRectF below = words.adjusted(0, words.height() / 2 - 1, 0, -7);
        words.adjust(0, 7, 0, -words.height() / 2);
        const QFont above = painter->font();
        const QPen pen = painter->pen();
        const auto tone = static_cast<Tone>(index.data(SecondTone).toInt());
        painter->setFont(Style::textFont(11));
        painter->setPen(tone == Tone::danger ? colors.danger : colors.muted);
        painter->drawText(
            below, static_cast<int>(alignment) | Qt::TextSingleLine,
            painter->fontMetrics().elidedText(second.toString(), Qt::ElideRight, static_cast<int>(below.width())));
        painter->setFont(above);
        painter->setPen(pen);
    }
    painter->drawText(words, static_cast<int>(alignment) | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(words.width())));
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return {QStyledItemDelegate::sizeHint(option, index).width(), rowHeight};
}

}  // namespace tamba
