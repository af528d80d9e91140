#include "TambaCore/Fixtures/Camera.h"

#include "TambaCore/Fixtures/Dice.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tamba::Fixtures {

namespace {

/// Brightness of a sheet, 0 black to 255 white.
struct Grey {
    int width, height;
    std::vector<float> values;

    /// Between four pixels.
    [[nodiscard]] float between(double x, double y) const {
        const int left = std::clamp(static_cast<int>(x), 0, width - 2),
                  top = std::clamp(static_cast<int>(y), 0, height - 2);
        const auto right = static_cast<float>(x - left), down = static_cast<float>(y - top);
        const float* at =
            &values[static_cast<std::size_t>(top) * static_cast<std::size_t>(width) + static_cast<std::size_t>(left)];
        const float* below = at + width;
        return (at[0] + (at[1] - at[0]) * right) * (1 - down) + (below[0] + (below[1] - below[0]) * right) * down;
    }
};

Grey greyOf(const Image& image) {
    Grey grey{image.width, image.height, {}};
    grey.values.reserve(image.pixels.size() / 4);
    for (std::size_t i = 0; i < image.pixels.size(); i += 4)
        grey.values.push_back(static_cast<float>(image.pixels[i] + 2 * image.pixels[i + 1] + image.pixels[i + 2]) / 4);
    return grey;
}

Grey softened(const Grey& sharp) {
    Grey soft = sharp;
    const auto width = static_cast<std::size_t>(sharp.width);
    const float* from = sharp.values.data();
    for (std::size_t i = width; i + width < sharp.values.size(); ++i)
        soft.values[i] = (4 * from[i] + from[i - 1] + from[i + 1] + from[i - width] + from[i + width]) / 8;
    return soft;
}

}  // namespace

Image photographed(const Image& sheet, const Camera& camera, std::string_view seed) {
    const Grey flat = softened(greyOf(sheet));
    Dice dice(seed);
    const double phase = static_cast<double>(dice.below(628)) / 100;
    const double width = flat.width, height = flat.height;
    Image image = Image::blank(flat.width + 2 * camera.margin, flat.height + 2 * camera.margin);
    const double turn = camera.degrees * std::numbers::pi / 180, cosine = std::cos(turn), sine = std::sin(turn);
    const bool onTable = camera.margin > 0;
    std::vector<double> across;  // the pale bands of a tired print head, from left to right
    for (int column = 0; column < image.width; ++column) across.push_back(0.5 * std::sin(column / 173.0 + phase));

    std::uint8_t* pixel = image.pixels.data();
    for (int row = 0; row < image.height; ++row) {
        const double fromTop = row - image.height / 2.0, middle = height / 2 + fromTop * cosine;
        const double down = std::clamp(middle / height, 0.0, 1.0);
        const double narrowing = 1 + camera.taper * (0.5 - down);
        const double start = width / 2 + fromTop * sine * narrowing + camera.curl * std::sin(down * std::numbers::pi);
        const double band = std::sin(row / 61.0 + phase);
        const double light = 1 - camera.dimming * row / image.height / 2;
        const double lightLost = camera.dimming / image.width / 2;
        std::uint64_t grain = 0;
        for (int column = 0; column < image.width; ++column, pixel += 4) {
            // Where on the sheet this pixel looks, and how far inside its edge that is.
            const double fromLeft = column - image.width / 2.0;
            const double x = start + fromLeft * cosine * narrowing, y = middle - fromLeft * sine;
            const double sideways = x < width - 1 - x ? x : width - 1 - x;
            const double upright = y < height - 1 - y ? y : height - 1 - y;
            const double inside = sideways < upright ? sideways : upright;

            double value = 0, warmth = 0;
            if (inside >= 0) {
                const double pale = 0.5 + band * across[static_cast<std::size_t>(column)];
                const double ink = (255 - flat.between(x, y)) / 255 * (1 - camera.fading * pale);
                value = camera.paper - ink * (camera.paper - 28);
                warmth = onTable ? 4 : 0;
            } else {
                const double shadow = onTable && inside > -14 ? 0.35 + 0.65 * inside / -14 : 1;
                const int streak = (row + (column >> 5) + (row * row >> 9)) & 31;  // lines of the wood
                value = camera.table * shadow * (onTable ? 1 + (streak < 16 ? streak : 31 - streak) * 0.012 : 1);
                warmth = onTable ? 14 : 0;
            }
            value *= light - lightLost * column;
            if ((column & 7) == 0) grain = dice.next();
            value += camera.grain * (static_cast<double>(grain & 255) - 127.5) / 127.5;
            grain >>= 8;
            // Warm light: paper and wood are never quite neutral under a lamp.
            const double channels[] = {value + warmth / 2, value, value - warmth};
            for (int channel = 0; channel < 3; ++channel) {
                const double c = channels[channel];
                pixel[channel] = static_cast<std::uint8_t>(c < 0 ? 0 : c > 254.5 ? 255 : c + 0.5);
            }
        }
    }
    return image;
}

}  // namespace tamba::Fixtures
