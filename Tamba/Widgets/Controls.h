#pragma once

#include "Tamba/Colors.h"

#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QToolButton>

/// Small controls in the product's manner, each with a name for tests and one for screen readers.
namespace tamba::Controls {

/// A text of the style's role: "title", "caption", "field", "section", "problem".
[[nodiscard]] QLabel* label(const QString& text, const char* role, QWidget* parent = nullptr);
enum class Kind { primary, plain, link };
[[nodiscard]] QPushButton* button(const QString& text, const char* name, Kind kind, QWidget* parent = nullptr);
/// A glyph that can be clicked; `tip` is also its accessible name.
[[nodiscard]] QToolButton* iconButton(const QString& icon, const QString& tip, const char* name,
                                      QWidget* parent = nullptr, QColor Colors::* ink = &Colors::muted);
/// Gives a control its object name and its accessible name.
void name(QWidget& widget, const char* name, const QString& accessible);
/// The text with line breaks where it would pass `width`: a form gives labels that wrap by themselves too little
/// height.
[[nodiscard]] QString wrapped(const QString& text, const QLabel& label, int width);
/// Sets a property that the style sheet asks for; the widget is styled again where it is another one.
void restyle(QWidget& widget, const char* property, const QVariant& value);
/// Marks a field whose content is refused, with the sentence as its tool tip.
void markProblem(QWidget& field, const QString& sentence);

}  // namespace tamba::Controls
