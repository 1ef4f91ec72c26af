#include "OuterProduct.h"

#include "OuterProductReader.h"

#include <algorithm>

namespace platform {

namespace {

using Axis = GradientOperation::Axis;

// The first pixel whose centre lies at or beyond a stop.
int firstPixelFrom(std::int64_t stop, std::int64_t segments, std::int64_t length)
{
    // 2·pixel + 1 >= 2·length·stop / segments
    const auto twice = (2 * length * stop + segments - 1) / segments;
    return static_cast<int>(std::min(twice / 2, length));
}

std::vector<OuterProduct::Segment> segmentsOf(const GradientOperation& operation, int length)
{
    std::vector<OuterProduct::Segment> result;
    const auto count = static_cast<std::int64_t>(operation.stops.size()) - 1;
    const auto stopAt = [&](std::int64_t index) -> const GradientOperation::Stop& {
        return operation.stops[static_cast<std::size_t>(operation.reversed ? count - index : index)];
    };
    result.reserve(static_cast<std::size_t>(std::min<std::int64_t>(count, length)));
    for (std::int64_t i = 0; i < count; ++i) {
        OuterProduct::Segment segment {};
        segment.first = firstPixelFrom(i, count, length);
        segment.end = firstPixelFrom(i + 1, count, length);
        if (segment.first >= segment.end)
            continue;
        const auto pixels = 2.0 * length;
        const auto part
            = static_cast<double>((2 * std::int64_t(segment.first) + 1) * count - 2 * length * i) / pixels;
        for (std::size_t c = 0; c < 3; ++c) {
            const auto from = stopAt(i)[c];
            const auto change = stopAt(i + 1)[c] - from;
            segment.varies[c] = change != 0;
            segment.values[c] = from + change * part;
            segment.slopes[c] = change * static_cast<double>(count) / static_cast<double>(length);
        }
        result.push_back(segment);
    }
    return result;
}

}

std::optional<OuterProduct> OuterProduct::of(const GradientRecording& recording)
{
    const auto& operations = recording.operations;
    if (recording.base || operations.empty() || !operations.front().hasAlpha(1))
        return std::nullopt;
    const auto hasColumns = operations.front().axis == Axis::Across;
    const auto fits = [&](const GradientOperation& operation) {
        return recording.covers(operation)
            && operation.axis
            == (hasColumns && &operation == &operations.front() ? Axis::Across : Axis::Down);
    };
    if (!std::all_of(operations.begin(), operations.end(), fits))
        return std::nullopt;

    OuterProduct result;
    result._height = recording.height;
    result._halfPixel = 0.5 / recording.height;
    if (hasColumns)
        result._segments = segmentsOf(operations.front(), recording.width);
    else
        result._segments.push_back({ 0, recording.width, {}, {}, {} });
    result._shades.reserve(operations.size());
    result._stretches.reserve(operations.size());
    for (std::size_t i = hasColumns ? 1 : 0; i < operations.size(); ++i)
        result.addShade(operations[i]);
    return result;
}

void OuterProduct::addShade(const GradientOperation& operation)
{
    _shades.push_back(
        { _stretches.size(), static_cast<std::int64_t>(operation.stops.size()) - 1, operation.reversed });
    for (std::size_t i = 0; i + 1 < operation.stops.size(); ++i) {
        const auto& first = operation.stops[i];
        const auto& second = operation.stops[i + 1];
        Stretch stretch {};
        for (std::size_t c = 0; c < 3; ++c) {
            stretch.color[c] = first[c];
            stretch.colorChange[c] = second[c] - first[c];
        }
        stretch.isBlack = first[0] + first[1] + first[2] + second[0] + second[1] + second[2] == 0;
        stretch.alpha = first[3];
        stretch.alphaChange = second[3] - first[3];
        _stretches.push_back(stretch);
    }
}

// Lays a gradient on top over `count` rows from the `first` on, each at its own part of the stretch.
template <int count> void OuterProduct::apply(Stretch stretch, const double* parts, Rows& rows, int first)
{
    double alphas[count];
    double throughs[count];
    for (int i = 0; i < count; ++i) {
        alphas[i] = stretch.alpha + stretch.alphaChange * parts[i];
        throughs[i] = 1 - alphas[i];
        rows.factors[first + i] *= throughs[i];
    }
    for (int c = 0; c < 3; ++c) {
        auto* addends = rows.addends[c] + first;
        for (int i = 0; i < count; ++i)
            addends[i] *= throughs[i];
        if (stretch.isBlack)
            continue;
        for (int i = 0; i < count; ++i)
            addends[i] += (stretch.color[c] + stretch.colorChange[c] * parts[i]) * alphas[i];
    }
}

OuterProduct::Rows OuterProduct::findRows(int y) const
{
    Rows rows {};
    std::fill_n(rows.factors, rowCount, 1.0);
    for (const auto& shade : _shades) {
        // In half pixels, at the centre of each: from the gradient's start on.
        auto position = 2 * (shade.reversed ? _height - 1 - y : y) + 1;
        const auto step = shade.reversed ? -2 : 2;
        if (shade.stretchCount == 1) {
            const auto first = static_cast<double>(position) * _halfPixel;
            const auto each = step * _halfPixel;
            double parts[rowCount];
            for (int i = 0; i < rowCount; ++i)
                parts[i] = first + each * i;
            apply<rowCount>(_stretches[shade.firstStretch], parts, rows, 0);
            continue;
        }
        for (int i = 0; i < rowCount; ++i, position += step) {
            const auto scaled = std::clamp<std::int64_t>(position, 0, 2 * _height - 1) * shade.stretchCount;
            const auto stretch = static_cast<std::size_t>(scaled / (2 * _height));
            const auto part = static_cast<double>(scaled % (2 * _height)) * _halfPixel;
            apply<1>(_stretches[shade.firstStretch + stretch], &part, rows, i);
        }
    }
    return rows;
}

void OuterProduct::read(
    const GradientRecording& recording, PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const
{
    if (!part.isEmpty())
        OuterProductReader(*this, recording, part).read(target, stride);
}

}
