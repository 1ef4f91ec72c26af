#include "ReadOut.h"

#include "platform/NSString.h"
#include "platform/Truncation.h"

#include <cmath>

using namespace platform;

namespace vekora {

CGFloat unitsOf(Component component)
{
    return component == Component::Hue ? 360.0 : 100.0;
}

std::int32_t wholeUnits(Component component, CGFloat value)
{
    return truncatedInteger(std::round(value * unitsOf(component)));
}

std::string readOutText(const ReadOut& readOut, CGFloat value)
{
    return stringWithFormat(readOut.format, wholeUnits(readOut.component, value));
}

}
