#pragma once

#include "platform/Geometry.h"

namespace vekora {

/// What of a picker a touch can change, in the picker's coordinates.
struct TouchAreas {
    platform::CGRect field;
    platform::CGRect bar;
    platform::CGFloat upperLimit = 0; ///< The lower edge of the labels above the field.
    platform::CGFloat lowerLimit = 0; ///< The upper edge of the labels below it.
};

enum class TouchRegion { None, Field, Bar };

struct RoutedTouch {
    TouchRegion region = TouchRegion::None;
    /// In the region or, for a touch beside it, on its edge. For the bar only `x` is clamped.
    platform::CGPoint point;

    bool operator==(const RoutedTouch&) const = default;
};

/// Where a touch counts, by its location alone: in the field or bar, at the bar's edge when it is level with
/// it, at the field's edge when it is between the labels (both limits excluded), else nowhere.
RoutedTouch routeTouch(platform::CGPoint, const TouchAreas&);

}
