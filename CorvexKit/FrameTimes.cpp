#include "CorvexKit/FrameTimes.h"

#include <algorithm>
#include <utility>

namespace tamba {

int FrameTimes::framesIn(int milliseconds) { return std::max(1, (milliseconds * framesPerSecond + 500) / 1000); }

std::optional<Cue> CueTrack::show(const QString& text, Ticks at) {
    if (text == present_.text) return {};
    Cue ended = std::exchange(present_, Cue{text, at, at});
    ended.to = at;
    if (ended.text.isEmpty() || ended.to <= ended.from) return {};
    return ended;
}

Ticks LiveTimes::take(std::int64_t nanoseconds) {
    if (!first_) {
        first_ = nanoseconds;
        return 0;
    }
    // Nine ticks are a tenth of a millisecond.
    const Ticks time = std::max(last_ + 1, (nanoseconds - *first_) * 9 / 100'000);
    longest_ = std::max(longest_, time - last_);
    last_ = time;
    return time;
}

}  // namespace tamba
