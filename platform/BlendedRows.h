#pragma once

#include <cstdint>

/// Source over destination for rows of premultiplied 0xAARRGGBB pixels, four at a time; each as
/// `blendedPixel` has it.
namespace platform {

/// One colour over a row.
void fillPixels(std::uint32_t* target, std::uint32_t color, int count);

/// A row over another.
void blendPixels(std::uint32_t* target, const std::uint32_t* source, int count);

}
