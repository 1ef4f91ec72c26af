#include "RowColor.h"

namespace vekora {

using namespace platform;

double darkness(ColorChannels color)
{
    return 1 + (0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue) / -255;
}

RowColors rowColors(const PropertyValue* buttonColor)
{
    if (!buttonColor)
        return { .text = UIColor::blackColor(), .background = UIColor::whiteColor() };
    const auto* text = buttonColor->string();
    const auto color = readColorString(text ? std::string_view(*text) : std::string_view());
    return {
        .text = darkness(color) < 0.5 ? UIColor::blackColor() : UIColor::whiteColor(),
        .background = colorWithChannels(color, 1),
    };
}

}
