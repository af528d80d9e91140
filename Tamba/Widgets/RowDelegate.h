#pragma once

#include <QStyledItemDelegate>

namespace tamba {

/// Paints the cells of every table: hairlines, selection over the whole row, glyphs in their category's colour, status
/// as a pill of word and tint.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `Glyph`: name of an icon. `GlyphColor`: QColor, else muted. `Pill`: a `Tone` as int. `Strong`: bold.
    enum Role { Glyph = Qt::UserRole, GlyphColor, Pill, Strong };
    static constexpr int rowHeight = 36;

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace tamba
