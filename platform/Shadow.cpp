#include "Shadow.h"
#include "RoundedRect.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace platform {

namespace {

constexpr std::size_t masksKept = 64;

std::vector<double> gaussian(double blur, int reach)
{
    std::vector<double> weights(static_cast<std::size_t>(reach) * 2 + 1);
    auto* const middle = weights.data() + reach;
    double total = 0;
    for (int step = -reach; step <= reach; ++step)
        total += middle[step] = std::exp(-step * step / (2 * blur * blur));
    for (auto& weight : weights)
        weight /= total;
    return weights;
}

// One pass along rows of `width`; what lies outside is transparent. The result is turned over its diagonal,
// so that two passes blur both ways.
std::vector<double> blurredAndTransposed(
    const std::vector<double>& source, int width, int height, const std::vector<double>& weights)
{
    const auto reach = static_cast<int>(weights.size() / 2);
    const auto* const middle = weights.data() + reach;
    std::vector<double> result(source.size());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            double sum = 0;
            for (int step = std::max(-reach, -x); step <= std::min(reach, width - 1 - x); ++step)
                sum += source[static_cast<std::size_t>(y) * width + x + step] * middle[step];
            result[static_cast<std::size_t>(x) * height + y] = sum;
        }
    }
    return result;
}

}

std::shared_ptr<const ShadowMask> shadowMask(int width, int height, double cornerRadius, double blur)
{
    using Key = std::tuple<int, int, double, double>;
    static std::map<Key, std::shared_ptr<const ShadowMask>> kept;
    const Key key { width, height, cornerRadius, blur };
    if (const auto found = kept.find(key); found != kept.end())
        return found->second;
    if (kept.size() >= masksKept)
        kept.clear();

    auto mask = std::make_shared<ShadowMask>();
    mask->margin = static_cast<int>(std::ceil(blur * 3));
    mask->width = width + 2 * mask->margin;
    mask->height = height + 2 * mask->margin;
    const RoundedRect shape { { mask->margin, mask->margin, width, height }, cornerRadius };
    std::vector<std::uint8_t> row(static_cast<std::size_t>(mask->width));
    std::vector<double> silhouette;
    silhouette.reserve(row.size() * static_cast<std::size_t>(mask->height));
    for (int y = 0; y < mask->height; ++y) {
        shape.coverageOfRow(y, 0, row);
        silhouette.insert(silhouette.end(), row.begin(), row.end());
    }
    if (blur > 0) {
        const auto weights = gaussian(blur, mask->margin);
        silhouette = blurredAndTransposed(silhouette, mask->width, mask->height, weights);
        silhouette = blurredAndTransposed(silhouette, mask->height, mask->width, weights);
    }
    mask->alpha.resize(silhouette.size());
    std::transform(silhouette.begin(), silhouette.end(), mask->alpha.begin(),
        [](double value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0)); });
    return kept[key] = std::move(mask);
}

}
