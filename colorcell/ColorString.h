#pragma once

#include "platform/UIColor.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Colours as the preference file keeps them, and the arithmetic between sliders, texts and colours.
namespace vekora {

/// Red, green and blue, each 0..255. Sliders with a range of their own may give any number.
struct ColorChannels {
    std::int32_t red = 0;
    std::int32_t green = 0;
    std::int32_t blue = 0;

    bool operator==(const ColorChannels&) const = default;
};

/// "#" and the number in hexadecimal digits, of either case, that follows. White when there is no digit
/// (leading blanks included) or the number is above FFFFFF. Short forms are numbers too: "#FFF" is 000FFF.
ColorChannels readColorString(std::string_view);

/// "#RRGGBB", upper case.
std::string writtenColorString(ColorChannels);

platform::UIColor colorWithChannels(ColorChannels, platform::CGFloat alpha);

/// 0 for white to 1 for black, by how bright the eye takes each channel to be.
[[nodiscard]] double darkness(ColorChannels);

/// Whether text on this colour should be white rather than black, the colour lying over white with an opacity
/// of 0..1. In the middle it should.
bool needsWhiteText(ColorChannels, float opacity);

/// What a slider's read-out shows: the value cut to a whole number after rounding to hundredths, so that
/// 127.996 shows as 128.
std::int32_t readOutNumber(float sliderValue);

/// Where a slider stands for a colour's component of 0..1: on a whole number, halves away from zero.
float sliderValueForComponent(platform::CGFloat component);

}
