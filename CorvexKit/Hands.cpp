#include "CorvexKit/Hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QUrl>
#include <QWindow>

// Qt offers this to its test library; without it keys never reach shortcuts.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k, Qt::KeyboardModifiers mods,
                                               const QString& text = QString(), bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace tamba::Hands {
namespace {

enum class Match { same, beginning };

/// Words as they are read: without the mark of a mnemonic and the keys beside a menu entry.
QString read(const QString& text) {
    QString words = text.section(QLatin1Char('\t'), 0, 0);
    return words.replace(QStringLiteral("&&"), QStringLiteral("\x01"))
        .remove(QLatin1Char('&'))
        .replace(QLatin1Char('\x01'), QLatin1Char('&'))
        .trimmed();
}

bool matches(const QString& text, const QString& words, Match how) {
    const QString shown = read(text);
    return how == Match::same ? shown == words : shown.startsWith(words);
}

/// `root` first, then what lies in it and can be seen.
template <class Widget>
QList<Widget*> visible(QWidget& root) {
    QList<Widget*> result;
    if (auto* itself = qobject_cast<Widget*>(&root)) result << itself;
    for (Widget* widget : root.findChildren<Widget*>())
        if (widget->isVisible() && widget->window() == root.window()) result << widget;
    return result;
}

std::optional<Target> actionOf(QWidget& bar, const QString& words, Match how) {
    for (QAction* action : bar.actions()) {
        if (!action->isVisible() || !action->isEnabled() || !matches(action->text(), words, how)) continue;
        QRect box;
        if (auto* menu = qobject_cast<QMenu*>(&bar)) box = menu->actionGeometry(action);
        if (auto* menus = qobject_cast<QMenuBar*>(&bar)) box = menus->actionGeometry(action);
        if (!box.isEmpty()) return Target{&bar, {box.left() + std::min(40, box.width() / 2), box.center().y()}};
    }
    return {};
}

std::optional<Target> rowOf(QAbstractItemView& view, const QString& words, Match how) {
    const auto* model = view.model();
    if (!model) return {};
    const QModelIndex root = view.rootIndex();
    for (int row = 0; row < model->rowCount(root); ++row)
        for (int column = 0; column < model->columnCount(root); ++column) {
            const QModelIndex index = model->index(row, column, root);
            if (!matches(index.data().toString(), words, how) || !(index.flags() & Qt::ItemIsEnabled)) continue;
            view.scrollTo(index);
            const QRect box = view.visualRect(index);
            if (box.isEmpty()) continue;
            return Target{view.viewport(), {box.left() + std::min(60, box.width() / 2), box.center().y()}};
        }
    return {};
}

std::optional<Target> tabOf(QTabBar& bar, const QString& words, Match how) {
    for (int tab = 0; tab < bar.count(); ++tab)
        if (matches(bar.tabText(tab), words, how)) return Target{&bar, bar.tabRect(tab).center()};
    return {};
}

std::optional<Target> entry(QWidget& root, const QString& words, Match how) {
    for (QMenu* menu : visible<QMenu>(root))
        if (const auto found = actionOf(*menu, words, how)) return found;
    for (QMenuBar* bar : visible<QMenuBar>(root))
        if (const auto found = actionOf(*bar, words, how)) return found;
    for (QTabBar* bar : visible<QTabBar>(root))
        if (const auto found = tabOf(*bar, words, how)) return found;
    for (QAbstractItemView* view : visible<QAbstractItemView>(root))
        if (const auto found = rowOf(*view, words, how)) return found;
    return {};
}

}  // namespace

QWidget& foremost(QWidget& window) {
    if (QWidget* popup = QApplication::activePopupWidget()) return *popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return *modal;
    return window;
}

Target onto(QWidget& control) {
    for (QWidget* parent = control.parentWidget(); parent && !parent->isWindow(); parent = parent->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(&control);
    QPoint at = control.visibleRegion().boundingRect().center();
    // These can be clicked on their words only, which begin at the left.
    if (qobject_cast<QCheckBox*>(&control) || qobject_cast<QRadioButton*>(&control)) at.setX(10);
    return {&control, at};
}

std::optional<Target> control(QWidget& window, const QString& name) {
    const auto widgets = visible<QWidget>(foremost(window));
    for (QWidget* widget : widgets)
        if (widget->objectName() == name) return onto(*widget);
    for (QWidget* widget : widgets)
        if (widget->accessibleName() == name) return onto(*widget);
    for (QWidget* widget : widgets)
        if (auto* button = qobject_cast<QAbstractButton*>(widget); button && read(button->text()) == name)
            return onto(*widget);
    return {};
}

std::optional<Target> entry(QWidget& window, const QString& words) {
    QWidget& root = foremost(window);
    const auto same = entry(root, words, Match::same);
    return same ? same : entry(root, words, Match::beginning);
}

void mouse(QWidget& window, const QPoint& global, Mouse what, bool held) {
    // To the window as the platform would, so that hovering, focus and open menus follow.
    QWindow* handle = foremost(window).window()->windowHandle();
    if (!handle) return;
    const QEvent::Type type = what == Mouse::move    ? QEvent::MouseMove
                              : what == Mouse::press ? QEvent::MouseButtonPress
                                                     : QEvent::MouseButtonRelease;
    QMouseEvent event(type, handle->mapFromGlobal(QPointF(global)), QPointF(global),
                      what == Mouse::move ? Qt::NoButton : Qt::LeftButton, held ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &event);
}

void key(QWidget& window, QKeyCombination keys, const QString& text) {
    QWidget& top = foremost(window);
    QWidget* focus = top.windowType() == Qt::Popup ? top.focusWidget() : QApplication::focusWidget();
    QPointer<QWidget> receiver = focus ? focus : &top;
    if (qt_sendShortcutOverrideEvent(receiver, 0, keys.key(), keys.keyboardModifiers(), text)) return;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (!receiver) return;
        QKeyEvent event(type, keys.key(), keys.keyboardModifiers(), text);
        QCoreApplication::sendEvent(receiver, &event);
    }
}

bool drag(QWidget& window, const QPoint& at, const QString& file, Drag what) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    if (what == Drag::leave) {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(&window, &event);
        return true;
    }
    if (what == Drag::enter) {
        QDragEnterEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
    return event.isAccepted();
}

}  // namespace tamba::Hands
