#include "BlendedRows.h"
#include "Blending.h"

#include <algorithm>
#include <cstring>

namespace platform {

namespace {

// Four pixels, and their eight channels of one kind in 16 bits each, which is what a product of two bytes
// needs.
using FourPixels [[gnu::vector_size(16)]] = std::uint32_t;
using EightChannels [[gnu::vector_size(16)]] = std::uint16_t;

FourPixels load(const std::uint32_t* pixels)
{
    FourPixels four;
    std::memcpy(&four, pixels, sizeof four);
    return four;
}

// `blendedPixel` of four.
void blendFour(FourPixels source, std::uint32_t* target)
{
    FourPixels rest = 255U - (source >> 24U);
    rest |= rest << 16U;
    const auto factor = reinterpret_cast<EightChannels>(rest);
    const auto scaled = [factor](EightChannels channels) {
        const EightChannels product = channels * factor + 128;
        return (product + (product >> 8)) >> 8;
    };
    const auto channels = reinterpret_cast<EightChannels>(load(target));
    const EightChannels mixed = scaled(channels & 255) | scaled(channels >> 8) << 8;
    const FourPixels result = reinterpret_cast<FourPixels>(mixed) + source;
    std::memcpy(target, &result, sizeof result);
}

}

void fillPixels(std::uint32_t* target, std::uint32_t color, int count)
{
    if (isOpaque(color)) {
        std::fill_n(target, count, color);
        return;
    }
    const FourPixels four = { color, color, color, color };
    int index = 0;
    for (; index + 4 <= count; index += 4)
        blendFour(four, target + index);
    for (; index < count; ++index)
        target[index] = blendedPixel(color, target[index]);
}

void blendPixels(std::uint32_t* target, const std::uint32_t* source, int count)
{
    int index = 0;
    for (; index + 4 <= count; index += 4) {
        const auto four = load(source + index);
        if (four[0] | four[1] | four[2] | four[3]) // Most of a text is nothing at all.
            blendFour(four, target + index);
    }
    for (; index < count; ++index)
        target[index] = blendedPixel(source[index], target[index]);
}

}
