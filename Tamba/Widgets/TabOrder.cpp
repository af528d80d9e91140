#include "Tamba/Widgets/TabOrder.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QTabBar>
#include <QWidget>

#include <algorithm>
#include <tuple>

namespace tamba::TabOrder {
namespace {

void addWidget(QWidget* widget, QList<QWidget*>& stops);

bool isStop(const QWidget& widget) {
    // Of buttons of which one is chosen that one stands for all; arrows lead on to the others.
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        if (const QButtonGroup* group = button->group(); group && group->exclusive() && group->checkedButton())
            return button->isChecked();
    return (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy();
}

/// The items of a layout as they are read.
QList<QLayoutItem*> itemsOf(QLayout& layout) {
    QList<QLayoutItem*> items;
    if (auto* form = qobject_cast<QFormLayout*>(&layout)) {
        for (int row = 0; row < form->rowCount(); ++row)
            for (const auto role : {QFormLayout::SpanningRole, QFormLayout::LabelRole, QFormLayout::FieldRole})
                if (QLayoutItem* item = form->itemAt(row, role); item && !items.contains(item)) items << item;
        return items;
    }
    for (int i = 0; i < layout.count(); ++i) items << layout.itemAt(i);
    if (auto* grid = qobject_cast<QGridLayout*>(&layout))
        std::stable_sort(items.begin(), items.end(), [&](QLayoutItem* a, QLayoutItem* b) {
            const auto place = [&](QLayoutItem* item) {
                int row = 0, column = 0, rows = 0, columns = 0;
                grid->getItemPosition(grid->indexOf(item), &row, &column, &rows, &columns);
                return std::pair(row, column);
            };
            return place(a) < place(b);
        });
    return items;
}

void addLayout(QLayout& layout, QList<QWidget*>& stops, QList<QWidget*>& seen) {
    for (QLayoutItem* item : itemsOf(layout)) {
        if (QLayout* inner = item->layout()) addLayout(*inner, stops, seen);
        if (QWidget* widget = item->widget()) {
            seen << widget;
            addWidget(widget, stops);
        }
    }
}

void addWidget(QWidget* widget, QList<QWidget*>& stops) {
    if (widget->isWindow() || !widget->isVisible() || !widget->isEnabled()) return;
    if (isStop(*widget)) stops << widget;
    // The parts of these are theirs.
    if (qobject_cast<QComboBox*>(widget) || qobject_cast<QAbstractSpinBox*>(widget) ||
        qobject_cast<QLineEdit*>(widget) || qobject_cast<QTabBar*>(widget))
        return;
    QList<QWidget*> seen;
    if (QLayout* layout = widget->layout()) addLayout(*layout, stops, seen);
    QList<QWidget*> others;
    for (QWidget* child : widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!seen.contains(child)) others << child;
    std::stable_sort(others.begin(), others.end(), [](const QWidget* a, const QWidget* b) {
        return std::tuple(a->y(), a->x()) < std::tuple(b->y(), b->x());
    });
    for (QWidget* child : others) addWidget(child, stops);
}

}  // namespace

bool move(QWidget& window, bool next) {
    QList<QWidget*> stops, seen;
    if (QLayout* layout = window.layout()) addLayout(*layout, stops, seen);
    for (QWidget* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!seen.contains(child)) addWidget(child, stops);
    if (stops.isEmpty()) return false;
    qsizetype at = -1;
    for (QWidget* has = window.focusWidget(); has && at < 0; has = has->parentWidget()) at = stops.indexOf(has);
    const qsizetype count = stops.size();
    // A screen that has the keys as a whole begins with its first control.
    if (const QWidget* has = window.focusWidget(); has && at < 0 && next)
        at = std::find_if(stops.begin(), stops.end(), [&](QWidget* stop) { return has->isAncestorOf(stop); }) -
             stops.begin() - 1;
    const qsizetype to = at < 0 ? (next ? 0 : count - 1) : (at + (next ? 1 : count - 1)) % count;
    stops[to]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

}  // namespace tamba::TabOrder
