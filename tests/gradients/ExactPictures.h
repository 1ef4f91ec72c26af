#pragma once

#include "platform/UIColor.h"

#include <cstdint>
#include <vector>

/// The pictures of the six views, worked out from what they stand for rather than from gradients: a formula
/// in whole numbers for each pixel, rounded half up. Rows of opaque 0xAARRGGBB pixels, from the top.
namespace exact {

using Picture = std::vector<std::uint32_t>;

Picture hueSaturation(double brightness, int width, int height);
Picture hueBrightness(double saturation, int width, int height);
Picture brightnessSaturation(double hue, int width, int height);

Picture hueBar(int width, int height);
/// From one colour's components on the left to another's on the right.
Picture bar(const platform::UIColor& left, const platform::UIColor& right, int width, int height);

}
