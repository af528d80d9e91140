#pragma once

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>

namespace tamba {

/// One piece of slow work at a time, on a thread of its own. What it found comes back as a function that runs on the
/// thread of the window, where it may touch widgets:
///
///     background_.start([this, file](const std::atomic<bool>& cancel) {
///         auto lines = std::make_shared<Lines>(read(file, &cancel));
///         return [this, lines] { show(*lines); };
///     });
///
/// Work gets values of its own and throws nothing. One that begins stops the one before it, whose function is dropped.
/// The destructor waits for what still runs.
class Background : public QObject {
public:
    using Done = std::function<void()>;                                 ///< none: there is nothing to say
    using Work = std::function<Done(const std::atomic<bool>& cancel)>;  ///< ends soon after `cancel` is set

    using QObject::QObject;
    ~Background() override;

    void start(Work work);
    void cancel();
    [[nodiscard]] bool isBusy() const { return cancel_ != nullptr; }

private:
    std::shared_ptr<std::atomic<bool>> cancel_;  // of what runs
};

}  // namespace tamba
