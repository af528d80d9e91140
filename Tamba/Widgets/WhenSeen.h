#pragma once

#include "Tamba/AppModel.h"

#include <QWidget>

#include <functional>

namespace tamba {

/// Puts off a screen's refreshing until somebody sees it: a change of large books is gone through for the screen that
/// is shown, and not for those behind it. Small books are gone through at once. Owned by the screen.
///
///     seen_ = new WhenSeen(*this, model_, [this] { refresh(); });
///     connect(&model_, &AppModel::changed, seen_, &WhenSeen::refresh);
class WhenSeen : public QObject {
public:
    WhenSeen(QWidget& screen, const AppModel& model, std::function<void()> refresh);

    /// At once on the screen that the window shows, or would show; of large books else when it comes to be seen.
    void refresh();
    /// The same, and then what is to be done on fresh rows.
    void refreshThen(std::function<void()> next);
    /// At once if it waits, for who needs the rows of a hidden screen.
    void catchUp();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& screen_;
    const AppModel& model_;
    std::function<void()> refresh_, next_;
    bool waits_ = false;
};

}  // namespace tamba
