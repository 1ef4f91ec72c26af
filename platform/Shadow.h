#pragma once

#include "Bitmap.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// The blurred silhouette of a rounded rectangle, 0..255 a pixel, reaching `margin` pixels beyond it on every
/// side.
struct ShadowMask {
    int width = 0;
    int height = 0;
    int margin = 0;
    std::vector<std::uint8_t> alpha;
};

/// `blur` is the standard deviation in pixels. Shapes that were asked for recently are kept.
std::shared_ptr<const ShadowMask> shadowMask(int width, int height, double cornerRadius, double blur);

}
