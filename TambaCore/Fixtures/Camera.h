#pragma once

#include "TambaCore/Pages/Images.h"

#include <string_view>

/// What a printed sheet looks like after a camera or a scanner.
namespace tamba::Fixtures {

struct Camera {
    double degrees = 0;  ///< turned by
    double curl = 0;     ///< pixels by which the paper bends sideways in the middle
    double taper = 0;    ///< how much wider the bottom looks than the top, as a fraction
    int margin = 0;      ///< pixels of table around the paper
    int paper = 250;     ///< brightness of blank paper
    int table = 90;      ///< brightness of what it lies on
    double dimming = 0;  ///< how much of the light is lost towards the bottom right
    double fading = 0;   ///< how much of the ink is lost in pale bands across the paper
    int grain = 0;       ///< greatest deviation of a pixel
};

/// The sheet (dark on white) as that camera sees it; the same seed gives the same picture.
[[nodiscard]] Image photographed(const Image& sheet, const Camera& camera, std::string_view seed);

}  // namespace tamba::Fixtures
