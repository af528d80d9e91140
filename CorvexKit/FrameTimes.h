#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// When frames and captions stand in a film. Times are ticks of 1/90,000 second, in which both a frame of 1/30 second
/// and a millisecond are whole numbers.
namespace tamba {

using Ticks = std::int64_t;

namespace FrameTimes {
inline constexpr int framesPerSecond = 30;
inline constexpr Ticks perSecond = 90'000;
inline constexpr Ticks perFrame = perSecond / framesPerSecond;
inline constexpr Ticks perMillisecond = perSecond / 1000;
/// How many frames a wait takes, at least one.
[[nodiscard]] int framesIn(int milliseconds);
}  // namespace FrameTimes

/// A caption with the time it is shown.
struct Cue {
    QString text;
    Ticks from = 0, to = 0;
    bool operator==(const Cue&) const = default;
};

/// Makes cues of captions that replace each other. A cue is known when it ends.
class CueTrack {
public:
    /// Shows a caption from `at` on; empty: none. Returns the cue that ends with it.
    std::optional<Cue> show(const QString& text, Ticks at);

private:
    Cue present_;
};

/// The true times of frames that are taken while somebody works: strictly increasing, the first at zero.
class LiveTimes {
public:
    /// The time in the film of a frame taken at this clock reading.
    [[nodiscard]] Ticks take(std::int64_t nanoseconds);
    /// The longest time between two frames so far.
    [[nodiscard]] Ticks longestGap() const { return longest_; }

private:
    std::optional<std::int64_t> first_;
    Ticks last_ = 0, longest_ = 0;
};

}  // namespace tamba
