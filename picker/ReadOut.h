#pragma once

#include "Axis.h"

#include <cstdint>
#include <string>

namespace vekora {

/// A label of a picker that shows one value in whole units.
struct ReadOut {
    Component component;
    const char* placeholder; ///< Until the first colour is shown.
    const char* format; ///< As for printf, with the number of units as its one argument.
};

/// How many units a value of 1 is shown and typed as: 360 degrees of hue, 100 percent of the others.
platform::CGFloat unitsOf(Component);

/// Rounded to the nearest whole number, halves away from zero. What is beyond 32 bits is pinned to their
/// ends; NaN is 0.
std::int32_t wholeUnits(Component, platform::CGFloat value);

std::string readOutText(const ReadOut&, platform::CGFloat value);

}
