#include "GradientRecording.h"

#include "ExactGradient.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr unsigned bothEnds = kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation;

GradientOperation::Stop sanitized(GradientOperation::Stop stop)
{
    for (auto& component : stop)
        component = component > 0 ? std::min(component, 1.0) : 0.0; // NaN is not above 0.
    return stop;
}

bool runsBetween(CGFloat from, CGFloat to, CGFloat length, bool& reversed)
{
    reversed = from == length;
    return reversed ? to == 0 : from == 0 && to == length;
}

// The first of `count` pixels over `length` points whose centre is at or beyond the edge.
int firstPixelFrom(CGFloat edge, CGFloat length, int count)
{
    if (edge <= 0)
        return 0;
    if (edge >= length)
        return count;
    auto pixel = std::clamp(static_cast<int>(edge / length * count), 0, count);
    while (pixel > 0 && !centreIsBefore(pixel - 1, edge, length, count))
        --pixel;
    while (pixel < count && centreIsBefore(pixel, edge, length, count))
        ++pixel;
    return pixel;
}

}

bool GradientOperation::hasAlpha(CGFloat alpha) const
{
    return std::all_of(stops.begin(), stops.end(), [&](const Stop& stop) { return stop[3] == alpha; });
}

bool GradientRecording::covers(const GradientOperation& operation) const
{
    const auto unbounded
        = operation.axis != GradientOperation::Axis::Free || (operation.options & bothEnds) == bothEnds;
    return operation.clip == rect() && unbounded;
}

void GradientRecording::add(
    const CGGradient& gradient, CGPoint start, CGPoint end, unsigned options, PixelRect clip)
{
    const auto isFinite
        = std::isfinite(start.x) && std::isfinite(start.y) && std::isfinite(end.x) && std::isfinite(end.y);
    if (gradient.stops.empty() || !isFinite || start == end || clip.isEmpty())
        return;

    GradientOperation operation;
    operation.start = start;
    operation.end = end;
    operation.options = options;
    operation.clip = clip;
    operation.stops.reserve(std::max<std::size_t>(2, gradient.stops.size()));
    for (const auto& stop : gradient.stops)
        operation.stops.push_back(sanitized(stop));
    if (operation.stops.size() == 1)
        operation.stops.push_back(operation.stops.front());
    if (start.y == end.y && runsBetween(start.x, end.x, size.width, operation.reversed))
        operation.axis = GradientOperation::Axis::Across;
    else if (start.x == end.x && runsBetween(start.y, end.y, size.height, operation.reversed))
        operation.axis = GradientOperation::Axis::Down;

    if (operation.hasAlpha(0))
        return;
    if (operation.hasAlpha(1) && covers(operation)) {
        operations.clear();
        base.reset();
    }
    operations.push_back(std::move(operation));
}

PixelRect GradientRecording::pixelsInside(CGRect points) const
{
    if (points.isEmpty() || width <= 0 || height <= 0 || !(points.maxX() > 0) || !(points.maxY() > 0))
        return {};
    const auto left = firstPixelFrom(points.minX(), size.width, width);
    const auto top = firstPixelFrom(points.minY(), size.height, height);
    return { left, top, std::max(0, firstPixelFrom(points.maxX(), size.width, width) - left),
        std::max(0, firstPixelFrom(points.maxY(), size.height, height) - top) };
}

}
