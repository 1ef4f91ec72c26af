#include "ReadingOrder.h"

#include <algorithm>
#include <numeric>

namespace host {

std::vector<std::size_t> readingOrder(std::span<const platform::CGRect> rects, ReadingDirection direction)
{
    std::vector<std::size_t> order(rects.size());
    std::iota(order.begin(), order.end(), std::size_t {});
    std::stable_sort(order.begin(), order.end(),
        [&](std::size_t a, std::size_t b) { return rects[a].minY() < rects[b].minY(); });

    const auto isBefore = [&](std::size_t a, std::size_t b) {
        return direction == ReadingDirection::LeftToRight ? rects[a].minX() < rects[b].minX()
                                                          : rects[a].maxX() > rects[b].maxX();
    };
    for (auto begin = order.begin(); begin != order.end();) {
        const auto bottom = rects[*begin].maxY();
        const auto end = std::find_if(
            begin + 1, order.end(), [&](std::size_t index) { return rects[index].midY() >= bottom; });
        std::stable_sort(begin, end, isBefore);
        begin = end;
    }
    return order;
}

}
