#include "ColorString.h"

#include "platform/NSScanner.h"
#include "platform/NSString.h"
#include "platform/Truncation.h"

#include <cmath>

namespace vekora {

using namespace platform;

ColorChannels readColorString(std::string_view text)
{
    constexpr std::uint32_t white = 0xFFFFFF;

    NSScanner scanner(text);
    scanner.setCharactersToBeSkipped("#");
    std::uint32_t value = white;
    if (!scanner.scanHexInt(value) || value > white)
        value = white;

    const auto byteAt = [value](int shift) { return static_cast<std::int32_t>(value >> shift & 0xFF); };
    return { byteAt(16), byteAt(8), byteAt(0) };
}

std::string writtenColorString(ColorChannels channels)
{
    return uppercaseString(stringWithFormat("#%02x%02x%02x", static_cast<unsigned>(channels.red),
        static_cast<unsigned>(channels.green), static_cast<unsigned>(channels.blue)));
}

UIColor colorWithChannels(ColorChannels channels, CGFloat alpha)
{
    return UIColor::colorWithRedGreenBlueAlpha(
        channels.red / 255.0, channels.green / 255.0, channels.blue / 255.0, alpha);
}

double darkness(ColorChannels color)
{
    return 1 - (0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue) / 255;
}

bool needsWhiteText(ColorChannels channels, float opacity)
{
    const float white = (1 - opacity) * 255;
    const auto overWhite = [&](std::int32_t channel) {
        return truncatedInteger(static_cast<float>(channel) * opacity + white);
    };
    return darkness({ overWhite(channels.red), overWhite(channels.green), overWhite(channels.blue) }) >= 0.5;
}

std::int32_t readOutNumber(float sliderValue)
{
    return truncatedInteger(std::round(sliderValue * 100) / 100.0);
}

float sliderValueForComponent(CGFloat component)
{
    return std::round(static_cast<float>(component * 255));
}

}
