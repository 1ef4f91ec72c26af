#pragma once

#include "colorcell/ColorString.h"

#include "platform/PropertyValue.h"

namespace vekora {

/// How the row of the button's colour is painted.
struct RowColors {
    platform::UIColor text;
    platform::UIColor background;
};

/// The colour that the preference "buttonColor" (null when there is none) holds, and black or white text that
/// can be read on it. White without a colour, and for a value that is no text.
[[nodiscard]] RowColors rowColors(const platform::PropertyValue* buttonColor);

}
