#pragma once

#include "CorvexKit/FrameTimes.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <map>

class QTimer;

namespace tamba {

/// Lets the timers of a program run on the clock of a film: while this lives, a QTimer that belongs to a widget, or to
/// one of `owners`, fires when `advance` reaches its time, however long a frame takes to be made. Timers of interval 0
/// go on by themselves; they mean "when there is nothing else to do".
class VirtualTimers : public QObject {
public:
    explicit VirtualTimers(QObjectList owners, QObject* parent = nullptr);

    void advance(Ticks now);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Held {
        QPointer<QTimer> timer;
        Ticks due = 0;
    };
    [[nodiscard]] bool isHeld(const QTimer& timer) const;
    void findNew();

    QObjectList owners_;
    std::map<int, Held> held_;  // by the number that each start of a timer gets
    Ticks now_ = 0;
    QTimer* firing_ = nullptr;
};

}  // namespace tamba
