#include "TouchRouting.h"

#include <algorithm>

using namespace platform;

namespace vekora {

RoutedTouch routeTouch(CGPoint point, const TouchAreas& areas)
{
    const auto& [field, bar, upperLimit, lowerLimit] = areas;
    if (CGRectContainsPoint(field, point))
        return { TouchRegion::Field, point };
    if (CGRectContainsPoint(bar, point))
        return { TouchRegion::Bar, point };

    // Level with the bar, its bottom edge included.
    if (point.y >= bar.minY() && point.y <= bar.maxY())
        return { TouchRegion::Bar, { std::clamp(point.x, bar.minX(), bar.maxX()), point.y } };

    if (point.y < lowerLimit && point.y > upperLimit)
        return { TouchRegion::Field,
            { std::clamp(point.x, field.minX(), field.maxX()),
                std::clamp(point.y, field.minY(), field.maxY()) } };

    return {};
}

}
