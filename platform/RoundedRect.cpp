#include "RoundedRect.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace platform {

namespace {

double effectiveRadius(const RoundedRect& shape)
{
    return std::min({ shape.radius, shape.rect.width / 2.0, shape.rect.height / 2.0 });
}

// Row by row from the outer edge inwards: how much of each pixel a corner covers. The distance of a pixel's
// centre from the arc decides. The few radii that a screen has are kept.
const std::vector<std::uint8_t>& cornerCoverage(double radius, int corner)
{
    static std::map<double, std::vector<std::uint8_t>> kept;
    auto& table = kept[radius];
    if (!table.empty())
        return table;
    table.resize(static_cast<std::size_t>(corner) * corner, std::uint8_t { 255 });
    for (int row = 0; row < corner; ++row) {
        for (int column = 0; column < corner; ++column) {
            const auto dx = radius - (column + 0.5);
            const auto dy = radius - (row + 0.5);
            if (dx > 0 && dy > 0)
                table[static_cast<std::size_t>(row) * corner + column] = static_cast<std::uint8_t>(
                    std::clamp((radius - std::hypot(dx, dy) + 0.5) * 255 + 0.5, 0.0, 255.0));
        }
    }
    return table;
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

PixelRect RoundedRect::solidColumns(int y) const
{
    if (y < rect.y || y >= rect.bottom())
        return { rect.x, y, 0, 1 };
    const auto corner = cornerRows();
    const auto fromEdge = std::min(y - rect.y, rect.bottom() - 1 - y);
    const auto inset = fromEdge < corner ? corner : 0;
    return { rect.x + inset, y, std::max(0, rect.width - 2 * inset), 1 };
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

    const auto corner = cornerRows();
    const auto fromEdge = std::min(y - rect.y, rect.bottom() - 1 - y);
    if (fromEdge >= corner)
        return;
    const auto* const row = cornerCoverage(effectiveRadius(*this), corner).data() + fromEdge * corner;
    for (int step = 0; step < corner; ++step) {
        const auto left = rect.x + step;
        const auto right = rect.right() - 1 - step;
        if (left >= from && left < to)
            at(left) = std::min(at(left), row[step]);
        if (right >= from && right < to)
            at(right) = std::min(at(right), row[step]);
    }
}

}
