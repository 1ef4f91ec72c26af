#include "Axis.h"

using namespace platform;

namespace vekora {

CGFloat Axis::valueAt(CGFloat position, CGFloat origin, CGFloat length) const
{
    auto share = length > 0 ? (position - origin) / length : 0;
    if (length > 0 && position == origin + length)
        share = 1; // The end is the end, whatever the sum and the difference round to.
    return direction == Direction::Rising ? share : 1 - share;
}

CGFloat Axis::positionOf(CGFloat value, CGFloat origin, CGFloat length) const
{
    const auto share = direction == Direction::Rising ? value : 1 - value;
    return share * length + origin;
}

}
