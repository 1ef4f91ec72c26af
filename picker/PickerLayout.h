#pragma once

#include "platform/Geometry.h"

namespace vekora {

/// Where a picker's views lie, from its size and the height of a line of its labels. From top to bottom: two
/// labels side by side, the field, the caption with its value, and the bar.

platform::CGRect topLeftLabelFrame(platform::CGSize picker, platform::CGFloat labelHeight);
platform::CGRect topRightLabelFrame(platform::CGSize picker, platform::CGFloat labelHeight);

/// Its bottom edge is 80 above the picker's, whatever the height of a line.
platform::CGRect fieldFrame(platform::CGSize picker, platform::CGFloat labelHeight);
platform::CGRect barFrame(platform::CGSize picker, platform::CGRect field, platform::CGFloat labelHeight);

platform::CGRect captionTitleFrame(
    platform::CGSize picker, platform::CGRect bar, platform::CGFloat labelHeight);
platform::CGRect captionValueFrame(
    platform::CGSize picker, platform::CGRect bar, platform::CGFloat labelHeight);
platform::CGRect captionButtonFrame(
    platform::CGSize picker, platform::CGRect bar, platform::CGFloat labelHeight);

/// Of the marker before it is placed.
platform::CGRect barSelectorFrame(platform::CGRect bar);
platform::CGRect crossHairsFrame(platform::CGRect field);

}
