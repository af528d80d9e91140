#include "TambaCore/Receipts/RupeeSign.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tamba::RupeeSign {
namespace {

/// The grey value that parts a box best into dark and light (Otsu).
int threshold(const std::array<std::int64_t, 256>& histogram) {
    std::int64_t count = 0, sum = 0;
    for (int v = 0; v < 256; ++v) {
        count += histogram[std::size_t(v)];
        sum += histogram[std::size_t(v)] * v;
    }
    std::int64_t dark = 0, darkSum = 0;
    double best = -1;
    int result = 127;
    for (int v = 0; v < 255; ++v) {
        dark += histogram[std::size_t(v)];
        darkSum += histogram[std::size_t(v)] * v;
        if (dark == 0 || dark == count) continue;
        const double difference = double(darkSum) / double(dark) - double(sum - darkSum) / double(count - dark);
        const double between = double(dark) * double(count - dark) * difference * difference;
        if (between > best) {
            best = between;
            result = v;
        }
    }
    return result;
}

bool hasTwoUpperBars(const std::vector<double>& longestRuns, double share) {
    const double height = double(longestRuns.size());
    int bars = 0;
    bool inBar = false;
    for (std::size_t y = 0; y < longestRuns.size(); ++y) {
        const bool bar = longestRuns[y] >= share;
        if (bar && double(y) >= 0.85 * height) return false;
        if (bar && !inBar && double(y) < 0.55 * height) ++bars;
        inBar = bar;
    }
    return bars == 2;
}

}  // namespace

bool isAt(const Raster& grey, const TextBox& box) {
    const int left = std::clamp(int(box.x), 0, grey.width), right = std::clamp(int(box.x + box.width), 0, grey.width);
    const int top = std::clamp(int(box.y), 0, grey.height);
    const int bottom = std::clamp(int(box.y + box.height), 0, grey.height);
    const auto pixel = [&](int x, int y) {
        return grey.pixels[std::size_t(y) * std::size_t(grey.width) + std::size_t(x)];
    };
    std::array<std::int64_t, 256> histogram{};
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) ++histogram[pixel(x, y)];
    const int limit = threshold(histogram);

    // The ink itself: the engine's boxes have a margin.
    int inkLeft = right, inkRight = left, inkTop = bottom, inkBottom = top;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            if (pixel(x, y) <= limit) {
                inkLeft = std::min(inkLeft, x);
                inkRight = std::max(inkRight, x + 1);
                inkTop = std::min(inkTop, y);
                inkBottom = std::max(inkBottom, y + 1);
            }
    const int width = inkRight - inkLeft, height = inkBottom - inkTop;
    if (width < 4 || height < 8) return false;

    std::vector<double> longestRuns;  // of dark pixels in each row, as a share of the width
    for (int y = inkTop; y < inkBottom; ++y) {
        int run = 0, longest = 0;
        for (int x = inkLeft; x < inkRight; ++x) {
            run = pixel(x, y) <= limit ? run + 1 : 0;
            longest = std::max(longest, run);
        }
        longestRuns.push_back(double(longest) / width);
    }
    // In heavy print the bars run into each other at the first share, in slanted print they are shorter than the
    // second.
    return hasTwoUpperBars(longestRuns, 0.72) || hasTwoUpperBars(longestRuns, 0.8);
}

}  // namespace tamba::RupeeSign
