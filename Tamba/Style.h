#pragma once

#include "Tamba/Colors.h"

#include <QFont>

class QApplication;

/// How the application looks: fonts, palette and the rules for its controls.
namespace tamba::Style {

/// Base style and fonts. Once, before the first window.
void install(QApplication& application);
/// Palette and style sheet. Again whenever the accent or the choice of light and dark changes.
void apply(QApplication& application, const Colors& colors);
/// True when the desktop asks for dark windows.
[[nodiscard]] bool desktopIsDark();

/// Inter for titles; its figures have different widths, so amounts stay in the application's own font.
[[nodiscard]] QFont titleFont(int pixels, QFont::Weight weight = QFont::DemiBold);
[[nodiscard]] QFont textFont(int pixels, QFont::Weight weight = QFont::Normal);

}  // namespace tamba::Style
