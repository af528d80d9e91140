#pragma once

#include <QImage>
#include <QPointF>
#include <QString>

#include <optional>

class QPainter;
class QWidget;

namespace tamba {

/// What a film shows over the window.
struct Marks {
    std::optional<QPointF> pointer;  ///< in the window's coordinates
    bool pressed = false;
    QString keys;     ///< "Ctrl+K", just pressed
    QString carried;  ///< the name of a file that the pointer carries
    QString caption;
};

/// One frame: the window with its dialogs, menus and lists where they lie over it, fitted into `size`, and the marks.
/// Windows with the dynamic property "notFilmed" are left out.
[[nodiscard]] QImage pictureOf(QWidget& window, const QSize& size, const Marks& marks);

}  // namespace tamba
