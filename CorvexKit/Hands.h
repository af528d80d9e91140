#pragma once

#include <QKeySequence>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <optional>

/// Finds controls as a person names them, and moves, presses and types as a person would, through the same events.
/// Only what could be reached by hand is found: the menu or list that is open, else the dialog, else the window.
namespace tamba::Hands {

struct Target {
    QPointer<QWidget> widget;
    QPoint at;  ///< in the widget
};

/// The menu, list or dialog that takes all input now, else `window`.
[[nodiscard]] QWidget& foremost(QWidget& window);
/// A control by its object name, else by its accessible name, else by its words; scrolled into view.
[[nodiscard]] std::optional<Target> control(QWidget& window, const QString& name);
/// The same for a control that is known already.
[[nodiscard]] Target onto(QWidget& control);
/// An entry of a menu, list, table, menu bar or tab bar by its words, those that are the same before those that only
/// begin with them.
[[nodiscard]] std::optional<Target> entry(QWidget& window, const QString& words);

enum class Mouse { move, press, release };
/// `window`: the one at the bottom.
void mouse(QWidget& window, const QPoint& global, Mouse what, bool held);
/// Presses a key and lets it go, wherever the focus is; a shortcut comes first.
void key(QWidget& window, QKeyCombination keys, const QString& text = {});

enum class Drag { enter, leave, drop };
/// False when the window does not take the file.
bool drag(QWidget& window, const QPoint& at, const QString& file, Drag what);

}  // namespace tamba::Hands
