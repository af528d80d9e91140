#pragma once

#include "CorvexKit/VideoWriter.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <variant>

namespace tamba {

/// A film that is written on a thread of its own, so that pictures can be taken meanwhile. Given up when destroyed
/// before `end` was carried out; then no file stays.
class FilmEncoder {
public:
    /// Opens the file at once and throws what a `VideoWriter` throws.
    FilmEncoder(const std::filesystem::path& file, const QSize& size);
    ~FilmEncoder();

    /// Waits while the writing is behind. Throws when it has failed.
    void add(QImage picture, Ticks at);
    /// The next picture would have to wait.
    [[nodiscard]] bool isBehind();
    void add(const Cue& cue);
    /// No more comes. `done` is called on the other thread once the film has its name, or once it has failed.
    void end(Ticks at, std::function<void()> done = {});
    /// Waits for the end; throws when the film could not be made.
    void wait();

private:
    struct Picture {
        QImage image;
        Ticks at;
    };
    using Part = std::variant<Picture, Cue>;
    void work();
    void rethrow();

    VideoWriter writer_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Part> parts_;
    std::optional<Ticks> end_;
    std::function<void()> done_;
    std::optional<DemoError> failure_;
    bool givenUp_ = false;
    std::thread thread_;
};

}  // namespace tamba
