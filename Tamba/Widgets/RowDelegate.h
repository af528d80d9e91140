#pragma once

#include <QStyledItemDelegate>

namespace tamba {

/// Paints the cells of every table: hairlines, selection over the whole row, glyphs in their category's colour, status
/// as a pill of word and tint.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `Glyph`: name of an icon. `GlyphColor`: QColor, else muted. `Pill`: a `Tone` as int. `Strong`: bold.
    /// With `Pill`, `Glyph` stands for its word where there is no room for that.
    /// `Second`: a quieter text below the first; `SecondTone`: a `Tone` as int for it.
    /// `Folded`: what stands there instead while other columns have no room and are told of in this one.
    /// `Further`: the first that is left for those who build on this one.
    enum Role { Glyph = Qt::UserRole, GlyphColor, Pill, Strong, Second, SecondTone, Folded, Further };
    static constexpr int rowHeight = 36;
    static constexpr int tallRowHeight = 52;  ///< where rows have second texts

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace tamba
