#include "RoundedRect.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

double effectiveRadius(const RoundedRect& shape)
{
    return std::min({ shape.radius, shape.rect.width / 2.0, shape.rect.height / 2.0 });
}

}

int RoundedRect::cornerRows() const
{
    return radius > 0 ? static_cast<int>(std::ceil(effectiveRadius(*this))) : 0;
}

PixelRect RoundedRect::solidBand() const
{
    const auto corner = cornerRows();
    return { rect.x, rect.y + corner, rect.width, std::max(0, rect.height - 2 * corner) };
}

void RoundedRect::coverageOfRow(int y, int x, std::span<std::uint8_t> coverage) const
{
    std::fill(coverage.begin(), coverage.end(), std::uint8_t { 0 });
    if (y < rect.y || y >= rect.bottom())
        return;
    const auto from = std::max(x, rect.x);
    const auto to = std::min(x + static_cast<int>(coverage.size()), rect.right());
    if (from >= to)
        return;
    const auto at
        = [&](int column) -> std::uint8_t& { return coverage[static_cast<std::size_t>(column - x)]; };
    std::fill(&at(from), &at(from) + (to - from), std::uint8_t { 255 });

    const auto r = effectiveRadius(*this);
    const auto corner = cornerRows();
    const auto fromEdge = std::min(y - rect.y, rect.bottom() - 1 - y);
    if (fromEdge >= corner)
        return;
    // The distance of a pixel's centre from the arc decides how much of it is covered.
    const auto dy = r - (fromEdge + 0.5);
    const auto covered = [&](int distanceFromSide) {
        const auto dx = r - (distanceFromSide + 0.5);
        if (dx <= 0 || dy <= 0)
            return 255;
        return static_cast<int>(std::clamp((r - std::hypot(dx, dy) + 0.5) * 255 + 0.5, 0.0, 255.0));
    };
    for (int step = 0; step < corner; ++step) {
        const auto value = static_cast<std::uint8_t>(covered(step));
        const auto left = rect.x + step;
        const auto right = rect.right() - 1 - step;
        if (left >= from && left < to)
            at(left) = std::min(at(left), value);
        if (right >= from && right < to)
            at(right) = std::min(at(right), value);
    }
}

}
