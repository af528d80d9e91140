#pragma once

#include "Tamba/Widgets/Overlays.h"
#include "tests/app/Pictures.h"

#include <QDropEvent>
#include <QMimeData>

namespace tamba {

/// Somebody at the keyboard, and how much there was to do: a field filled in with the key that leaves it, a key on its
/// own, or a click is one action.
struct Person {
    int actions = 0;
    void fill(const char* text, Qt::Key leaving) {
        ++actions;
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
        QTest::keyClick(QApplication::focusWidget(), leaving);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        ++actions;
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void click(QWidget& within, const char* button) {
        ++actions;
        within.findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    }
};

/// Files let go over the window; gives what the window said while they hovered.
inline QString drop(Window& window, const std::vector<std::filesystem::path>& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const auto& file : files) urls << QUrl::fromLocalFile(toQt(file));
    data.setUrls(urls);
    const QPoint at = window.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    const auto& overlay = *window.findChild<DropOverlay*>();
    const QString said = overlay.isVisible() ? overlay.accessibleName() : QString();
    picture(window, QStringLiteral("drop-hovering"));
    QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &dropped);
    return dropped.isAccepted() && !overlay.isVisible() ? said : QString();
}

}  // namespace tamba
