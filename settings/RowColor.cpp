#include "RowColor.h"

namespace vekora {

using namespace platform;

RowColors rowColors(const PropertyValue* buttonColor)
{
    if (!buttonColor)
        return { .text = UIColor::blackColor(), .background = UIColor::whiteColor() };
    const auto* text = buttonColor->string();
    const auto color = readColorString(text ? std::string_view(*text) : std::string_view());
    return {
        .text = needsWhiteText(color, 1) ? UIColor::whiteColor() : UIColor::blackColor(),
        .background = colorWithChannels(color, 1),
    };
}

}
