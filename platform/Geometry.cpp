#include "Geometry.h"

#include <algorithm>

namespace platform {

bool CGRectContainsPoint(CGRect rect, CGPoint point)
{
    return !rect.isEmpty() && point.x >= rect.minX() && point.x < rect.maxX() && point.y >= rect.minY()
        && point.y < rect.maxY();
}

CGRect CGRectInset(CGRect rect, CGFloat dx, CGFloat dy)
{
    return { rect.x + dx, rect.y + dy, std::max(0.0, rect.width - 2 * dx),
        std::max(0.0, rect.height - 2 * dy) };
}

CGRect CGRectOffset(CGRect rect, CGFloat dx, CGFloat dy)
{
    return { rect.x + dx, rect.y + dy, rect.width, rect.height };
}

CGRect CGRectIntersection(CGRect a, CGRect b)
{
    const auto left = std::max(a.minX(), b.minX());
    const auto top = std::max(a.minY(), b.minY());
    const auto right = std::min(a.maxX(), b.maxX());
    const auto bottom = std::min(a.maxY(), b.maxY());
    if (!(right > left && bottom > top))
        return {};
    return { left, top, right - left, bottom - top };
}

CGRect CGRectUnion(CGRect a, CGRect b)
{
    if (a.isEmpty())
        return b;
    if (b.isEmpty())
        return a;
    const auto left = std::min(a.minX(), b.minX());
    const auto top = std::min(a.minY(), b.minY());
    return { left, top, std::max(a.maxX(), b.maxX()) - left, std::max(a.maxY(), b.maxY()) - top };
}

}
