#include "CorvexKit/FilmEncoder.h"

#include <utility>

namespace tamba {
namespace {

constexpr std::size_t mostWaiting = 12;  // pictures; one of 1440 by 880 takes 5 MB

}  // namespace

FilmEncoder::FilmEncoder(const std::filesystem::path& file, const QSize& size)
    : writer_(file, size), thread_([this] { work(); }) {}

FilmEncoder::~FilmEncoder() {
    {
        const std::lock_guard lock(mutex_);
        givenUp_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
}

void FilmEncoder::rethrow() {
    if (failure_) throw DemoError(*failure_);
}

void FilmEncoder::add(QImage picture, Ticks at) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return parts_.size() < mostWaiting || failure_; });
    rethrow();
    parts_.push_back(Picture{std::move(picture), at});
    changed_.notify_all();
}

bool FilmEncoder::isBehind() {
    const std::lock_guard lock(mutex_);
    return parts_.size() >= mostWaiting && !failure_;
}

void FilmEncoder::add(const Cue& cue) {
    const std::lock_guard lock(mutex_);
    rethrow();
    parts_.push_back(cue);
    changed_.notify_all();
}

void FilmEncoder::end(Ticks at, std::function<void()> done) {
    const std::lock_guard lock(mutex_);
    rethrow();
    end_ = at;
    done_ = std::move(done);
    changed_.notify_all();
}

void FilmEncoder::wait() {
    if (thread_.joinable()) thread_.join();
    rethrow();
}

void FilmEncoder::work() {
    try {
        while (true) {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return givenUp_ || end_ || !parts_.empty(); });
            if (givenUp_) return;
            if (parts_.empty()) break;
            const Part part = std::move(parts_.front());
            parts_.pop_front();
            changed_.notify_all();
            lock.unlock();
            if (const auto* picture = std::get_if<Picture>(&part))
                writer_.add(picture->image, picture->at);
            else
                writer_.add(std::get<Cue>(part));
        }
        writer_.finish(*end_);
    } catch (const DemoError& error) {
        const std::lock_guard lock(mutex_);
        failure_ = error;
        changed_.notify_all();
    }
    std::function<void()> done;
    {
        const std::lock_guard lock(mutex_);
        done = done_;
    }
    if (done) done();
}

}  // namespace tamba
