#include "ReadOut.h"

#include "platform/NSString.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace platform;

namespace vekora {

CGFloat unitsOf(Component component)
{
    return component == Component::Hue ? 360.0 : 100.0;
}

std::int32_t wholeUnits(Component component, CGFloat value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const auto rounded = std::round(value * unitsOf(component));
    if (std::isnan(rounded))
        return 0;
    return static_cast<std::int32_t>(
        std::clamp(rounded, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

std::string readOutText(const ReadOut& readOut, CGFloat value)
{
    return stringWithFormat(readOut.format, wholeUnits(readOut.component, value));
}

}
