#pragma once

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>

class QThread;

namespace tamba {

/// One piece of slow work at a time, on a thread of its own. What it found comes back as a function that runs on the
/// thread of the window, where it may touch widgets:
///
///     background_.start([this, file](const std::atomic<bool>& cancel) {
///         auto lines = std::make_shared<Lines>(read(file, &cancel));
///         return [this, lines] { show(*lines); };
///     });
///
/// Work gets values of its own and throws nothing. What is started stops the one before it, whose function is dropped,
/// and begins when that has ended: of many started one after the other only the last is done. The destructor waits for
/// what still runs.
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
    void begin();

    QThread* thread_ = nullptr;
    Work next_;
    std::shared_ptr<std::atomic<bool>> cancel_;  // of what was started last
};

}  // namespace tamba
