#include "Tamba/Widgets/WhenSeen.h"

#include "Tamba/Rows/OverviewRows.h"

#include <QEvent>

#include <utility>

namespace tamba {

WhenSeen::WhenSeen(QWidget& screen, const AppModel& model, std::function<void()> refresh)
    : QObject(&screen), screen_(screen), model_(model), refresh_(std::move(refresh)) {
    screen_.installEventFilter(this);
}

void WhenSeen::refresh() {
    waits_ = true;
    if (isQuick(model_.library()) || screen_.isVisibleTo(screen_.window())) catchUp();
}

void WhenSeen::refreshThen(std::function<void()> next) {
    next_ = std::move(next);
    refresh();
}

void WhenSeen::catchUp() {
    if (!std::exchange(waits_, false)) return;
    const auto next = std::exchange(next_, {});
    refresh_();
    if (next) next();
}

bool WhenSeen::eventFilter(QObject* watched, QEvent* event) {
    // The second tells a screen in a window that is not shown itself.
    if (event->type() == QEvent::Show || event->type() == QEvent::ShowToParent) catchUp();
    return QObject::eventFilter(watched, event);
}

}  // namespace tamba
