#pragma once

#include "CorvexKit/DemoError.h"
#include "CorvexKit/FrameTimes.h"

#include <QImage>
#include <QSize>

#include <filesystem>
#include <memory>

namespace tamba {

/// Writes pictures as a film: H.264 in .mp4, VP9 in .webm, each with its captions as a track of subtitles. The film is
/// made in a hidden file beside and gets its name when it is complete; unless `finish` returned, nothing stays behind.
/// Everything throws a `DemoError` whose sentence says what the disk or the encoder said.
class VideoWriter {
public:
    /// `size`: even numbers. Refuses a name with another ending.
    VideoWriter(const std::filesystem::path& file, const QSize& size);
    ~VideoWriter();
    VideoWriter(const VideoWriter&) = delete;
    VideoWriter& operator=(const VideoWriter&) = delete;

    /// A picture of the film's size, shown from `at`, which increases, until the next.
    void add(const QImage& picture, Ticks at);
    void add(const Cue& cue);
    /// The last picture is shown until `end`. An existing film of that name is replaced.
    void finish(Ticks end);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// Whether a film can have this name; the sentence when not.
[[nodiscard]] QString refusedFilmName(const std::filesystem::path& file);

}  // namespace tamba
