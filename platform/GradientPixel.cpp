#include "GradientPixel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr auto epsilon = std::numeric_limits<double>::epsilon();
constexpr auto unknown = std::numeric_limits<double>::infinity();

// Straight components, and how far each may be off. Each number here allows for several times the rounding
// errors of the operations behind it.
struct Sample {
    GradientOperation::Stop colour {};
    double error = 0;
    bool paints = true;
};

Sample between(const GradientOperation& operation, std::size_t stop, double part, double error)
{
    const auto& first = operation.stops[stop];
    const auto& second = operation.stops[stop + 1];
    Sample sample;
    for (std::size_t i = 0; i < 4; ++i)
        sample.colour[i] = first[i] + (second[i] - first[i]) * part;
    sample.error = error + 4 * epsilon;
    return sample;
}

Sample betweenEdges(const GradientOperation& operation, int index, int length)
{
    const auto position = stopPosition(operation, index, length);
    return between(operation, static_cast<std::size_t>(position.stop),
        static_cast<double>(position.numerator) / static_cast<double>(position.denominator), epsilon);
}

Sample free(const GradientOperation& operation, const GradientRecording& recording, int x, int y)
{
    const auto& [start, end] = std::pair(operation.start, operation.end);
    const auto pixelX = (x + 0.5) * recording.size.width / recording.width;
    const auto pixelY = (y + 0.5) * recording.size.height / recording.height;
    const auto alongX = end.x - start.x;
    const auto alongY = end.y - start.y;
    const auto length = alongX * alongX + alongY * alongY;
    const auto t = ((pixelX - start.x) * alongX + (pixelY - start.y) * alongY) / length;
    const auto magnitude
        = ((pixelX + std::abs(start.x)) * std::abs(alongX) + (pixelY + std::abs(start.y)) * std::abs(alongY))
        / length;
    const auto error = 32 * epsilon * (magnitude + 1);
    // Lengths whose squares leave the range of a double, and pixels at either end of the gradient.
    const auto isClear = length > 1e-200 && length < 1e200 && magnitude < 1e200 && std::abs(t) > error
        && std::abs(t - 1) > error;
    if (!isClear)
        return { .error = unknown };

    Sample sample;
    const auto segments = static_cast<double>(operation.stops.size() - 1);
    if (t < 0) {
        sample.colour = operation.stops.front();
        sample.paints = operation.options & kCGGradientDrawsBeforeStartLocation;
    } else if (t > 1) {
        sample.colour = operation.stops.back();
        sample.paints = operation.options & kCGGradientDrawsAfterEndLocation;
    } else {
        // Beside a stop it does not matter which of the two stretches is taken: both reach its colour.
        const auto stop = std::min(std::floor(t * segments), segments - 1);
        sample = between(operation, static_cast<std::size_t>(stop), t * segments - stop,
            segments * (2 * error + 4 * epsilon));
    }
    return sample;
}

Sample sampleOf(const GradientOperation& operation, const GradientRecording& recording, int x, int y)
{
    switch (operation.axis) {
    case GradientOperation::Axis::Across:
        return betweenEdges(operation, x, recording.width);
    case GradientOperation::Axis::Down:
        return betweenEdges(operation, y, recording.height);
    case GradientOperation::Axis::Free:
        break;
    }
    return free(operation, recording, x, y);
}

}

GradientPixel::GradientPixel(const GradientRecording& recording)
    : _recording(recording)
    , _exact(recording)
{
}

std::uint32_t GradientPixel::at(int x, int y) const
{
    double components[4] {};
    double error = epsilon;
    bool isPainted = false;
    const auto below = _recording.base ? _recording.base->at(x, y) : 0U;
    for (int i = 0; i < 4; ++i)
        components[i] = (below >> (i == 3 ? 24 : 16 - 8 * i) & 255U) / 255.0;

    for (const auto& operation : _recording.operations) {
        const auto& clip = operation.clip;
        if (x < clip.x || x >= clip.right() || y < clip.y || y >= clip.bottom())
            continue;
        const auto sample = sampleOf(operation, _recording, x, y);
        if (!sample.paints)
            continue;
        isPainted = true;
        const auto alpha = sample.colour[3];
        for (std::size_t i = 0; i < 4; ++i)
            components[i] = components[i] * (1 - alpha) + (i == 3 ? 1 : sample.colour[i]) * alpha;
        error += 4 * sample.error + 8 * epsilon;
    }
    if (!isPainted)
        return below;

    std::uint32_t result = 0;
    for (int i = 0; i < 4; ++i) {
        const auto value = components[i] * 255 + 0.5;
        const auto byte = std::floor(value);
        const auto margin = 256 * (error + 4 * epsilon);
        if (!(value - byte > margin && byte + 1 - value > margin))
            return _exact.pixel(x, y);
        result |= static_cast<std::uint32_t>(byte) << (i == 3 ? 24 : 16 - 8 * i);
    }
    return result;
}

}
