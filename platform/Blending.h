#pragma once

#include "CGContextImpl.h"
#include "UIColor.h"

#include <array>
#include <cstdint>

/// Arithmetic on premultiplied 0xAARRGGBB pixels.
namespace platform {

inline bool isOpaque(std::uint32_t pixel)
{
    return pixel >> 24U == 255U;
}

/// Every channel of a pixel times `factor` / 255, to the nearest.
inline std::uint32_t scaledPixel(std::uint32_t pixel, std::uint32_t factor)
{
    auto even = (pixel & 0x00FF00FFU) * factor + 0x00800080U;
    even = (even + (even >> 8U & 0x00FF00FFU)) >> 8U & 0x00FF00FFU;
    auto odd = (pixel >> 8U & 0x00FF00FFU) * factor + 0x00800080U;
    odd = (odd + (odd >> 8U & 0x00FF00FFU)) & 0xFF00FF00U;
    return even | odd;
}

/// Source over destination.
inline std::uint32_t blendedPixel(std::uint32_t source, std::uint32_t destination)
{
    return source + scaledPixel(destination, 255U - (source >> 24U));
}

/// The colour with its alpha times `alpha` (0..1), premultiplied.
inline std::uint32_t pixelOfColor(const CGColor& color, double alpha = 1)
{
    const auto rgba = color.rgba();
    const auto opacity = rgba[3] * alpha;
    const auto channel = [](double value) { return static_cast<std::uint32_t>(value * 255 + 0.5); };
    return channel(opacity) << 24U | channel(rgba[0] * opacity) << 16U | channel(rgba[1] * opacity) << 8U
        | channel(rgba[2] * opacity);
}

}
