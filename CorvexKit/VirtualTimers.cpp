#include "CorvexKit/VirtualTimers.h"

#include <QApplication>
#include <QTimer>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace tamba {

VirtualTimers::VirtualTimers(QObjectList owners, QObject* parent) : QObject(parent), owners_(std::move(owners)) {
    qApp->installEventFilter(this);
    findNew();
}

bool VirtualTimers::isHeld(const QTimer& timer) const {
    if (timer.interval() == 0) return false;
    for (const QObject* owner = timer.parent(); owner; owner = owner->parent())
        if (owner->isWidgetType() || owners_.contains(owner)) return true;
    return false;
}

bool VirtualTimers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Timer) return false;
    auto* timer = qobject_cast<QTimer*>(watched);
    if (!timer || !isHeld(*timer)) return false;
    return std::exchange(firing_, nullptr) != timer;
}

void VirtualTimers::findNew() {
    QList<QTimer*> timers;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (!window->parent()) timers += window->findChildren<QTimer*>();
    for (QObject* owner : owners_) timers += owner->findChildren<QTimer*>();
    std::map<int, Held> present;
    for (QTimer* timer : timers) {
        if (!timer->isActive() || !isHeld(*timer)) continue;
        const auto known = held_.find(timer->timerId());
        const Ticks due = known != held_.end() && known->second.timer == timer
                              ? known->second.due
                              : now_ + timer->interval() * FrameTimes::perMillisecond;
        present[timer->timerId()] = {timer, due};
    }
    held_ = std::move(present);
}

void VirtualTimers::advance(Ticks now) {
    findNew();
    now_ = now;
    std::vector<std::pair<int, Held>> due;
    for (auto& [id, held] : held_)
        if (held.due <= now) {
            due.emplace_back(id, held);
            held.due += held.timer->interval() * FrameTimes::perMillisecond;
        }
    std::sort(due.begin(), due.end(), [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
    for (const auto& [id, held] : due) {
        // One that fired before may have stopped this one.
        if (!held.timer || held.timer->timerId() != id) continue;
        firing_ = held.timer;
        QTimerEvent event(id);
        QCoreApplication::sendEvent(held.timer, &event);
    }
}

}  // namespace tamba
