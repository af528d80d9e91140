#pragma once

#include "Tamba/Colors.h"

#include <QColor>
#include <QIcon>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <string_view>

/// The product's own glyphs (24 px grid), drawn in any colour and sharp at any scale.
namespace tamba::Icons {

/// Draws the glyph `name` ("trash") into the rectangle.
void paint(QPainter& painter, const QRectF& rectangle, const QString& name, const QColor& color);
/// An icon that follows the palette: `icon("trash", &Colors::muted)`.
[[nodiscard]] QIcon icon(const QString& name, QColor Colors::* ink);
/// A category's, in its own colour as it can be read on the present surface.
[[nodiscard]] QIcon categoryIcon(std::string_view symbol, std::string_view colorHex);
[[nodiscard]] QColor colorOf(std::string_view hex);
/// Glyph of a category's symbol ("fork.knife"); an unknown symbol gets the tag.
[[nodiscard]] QString ofCategory(std::string_view symbol);

}  // namespace tamba::Icons
