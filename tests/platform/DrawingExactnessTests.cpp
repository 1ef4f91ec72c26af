#include "ExactDrawing.h"

#include "platform/CGContextImpl.h"
#include "platform/GradientRows.h"

#include <gtest/gtest.h>

#include <random>

using namespace exactdrawing;
using namespace platform;

namespace {

// Recordings by chance, most of them of gradients from edge to edge.
class Chance {
public:
    explicit Chance(unsigned seed)
        : _random(seed)
    {
    }

    int below(int count) { return static_cast<int>(_random() % static_cast<unsigned>(count)); }
    double fraction() { return static_cast<double>(_random() >> 11) * 0x1p-53; }

    double component()
    {
        switch (below(5)) {
        case 0:
            return 0;
        case 1:
            return 1;
        case 2:
            return below(17) / 16.0;
        default:
            return fraction();
        }
    }

    double place(double length)
    {
        switch (below(4)) {
        case 0:
            return 0;
        case 1:
            return length;
        case 2:
            return below(8) * length / 4 - length / 2;
        default:
            return (fraction() * 2 - 0.5) * length;
        }
    }

    Drawn drawn(CGSize size)
    {
        Drawn result;
        const auto isOpaque = below(3) == 0;
        for (int count = below(8) + (below(4) ? 1 : 0); count > 0; --count)
            result.stops.push_back({ component(), component(), component(), isOpaque ? 1 : component() });
        if (const auto kind = below(6); kind == 0) {
            result.start = { place(size.width), place(size.height) };
            result.end = { place(size.width), place(size.height) };
        } else if (kind < 3) {
            result.end = { size.width, 0 };
        } else {
            result.end = { 0, size.height };
        }
        if (below(2))
            std::swap(result.start, result.end);
        result.options = static_cast<unsigned>(below(4));
        for (int count = below(5) - 3; count > 0; --count) {
            const auto x = place(size.width);
            const auto y = place(size.height);
            result.clips.push_back(
                { x, y, place(size.width) - x + size.width / 2, place(size.height) - y + size.height / 2 });
        }
        return result;
    }

private:
    std::mt19937_64 _random;
};

void draw(CGContext& context, const Drawn& drawn)
{
    CGContextStateGuard guard { context };
    for (const auto& clip : drawn.clips)
        CGContextClipToRect(context, clip);
    CGContextDrawLinearGradient(context, { drawn.stops }, drawn.start, drawn.end, drawn.options);
}

void expectExact(const Drawing& drawing, double scale, const std::string& what)
{
    CGContext context(drawing.size, scale);
    ASSERT_EQ(context.width(), drawing.width);
    ASSERT_EQ(context.height(), drawing.height);
    for (const auto& drawn : drawing.gradients)
        draw(context, drawn);
    const auto contents = context.finish();
    Bitmap picture(drawing.width, drawing.height);
    contents->read(picture.rect(), picture.pixels.get(), picture.width);
    for (int y = 0; y < drawing.height; ++y) {
        for (int x = 0; x < drawing.width; ++x) {
            ASSERT_EQ(picture.at(x, y), drawing.pixel(x, y))
                << std::hex << "0x" << picture.at(x, y) << " instead of 0x" << drawing.pixel(x, y) << std::dec
                << " at " << x << ", " << y << " of " << what;
            ASSERT_TRUE(!contents->isOpaque() || picture.at(x, y) >> 24 == 255) << what;
        }
    }
}

struct Raster {
    CGSize size;
    double scale;
    int width;
    int height;
};

constexpr Raster rasters[] { { { 9, 7 }, 1, 9, 7 }, { { 5, 4 }, 2, 10, 8 }, { { 3, 2 }, 3, 9, 6 },
    { { 6.4, 3.3 }, 1, 6, 3 }, { { 71, 2 }, 1, 71, 2 }, { { 1, 1 }, 1, 1, 1 }, { { 4.25, 2.5 }, 2, 9, 5 } };

}

TEST(Drawing, IsExactWhateverIsDrawn)
{
    Chance chance(4711);
    for (int i = 0; i < 160; ++i) {
        const auto& raster = rasters[i % std::size(rasters)];
        Drawing drawing { raster.size, raster.width, raster.height, {} };
        for (int count = 1 + chance.below(4); count > 0; --count)
            drawing.gradients.push_back(chance.drawn(raster.size));
        expectExact(drawing, raster.scale, "recording " + std::to_string(i));
    }
}

// The pictures with a quick way of their own: opaque gradients across, any down on top, stops by chance.
TEST(Drawing, IsExactAcrossAndDown)
{
    Chance chance(815);
    for (int i = 0; i < 120; ++i) {
        const auto& raster = rasters[i % std::size(rasters)];
        Drawing drawing { raster.size, raster.width, raster.height, {} };
        for (int count = 1 + chance.below(3); count > 0; --count) {
            auto drawn = chance.drawn(raster.size);
            drawn.clips.clear();
            if (drawn.stops.empty())
                drawn.stops.push_back({ 0.25, 0.5, 0.75, 1 });
            const auto isFirst = drawing.gradients.empty();
            drawn.start = {};
            drawn.end
                = isFirst && i % 5 ? CGPoint { raster.size.width, 0 } : CGPoint { 0, raster.size.height };
            if (chance.below(2))
                std::swap(drawn.start, drawn.end);
            if (isFirst) {
                for (auto& stop : drawn.stops)
                    stop[3] = 1;
            }
            drawing.gradients.push_back(drawn);
        }
        for (const auto limit :
            { GradientInstructions::Portable, GradientInstructions::Avx2, GradientInstructions::Avx512 }) {
            limitGradientInstructions(limit);
            expectExact(drawing, raster.scale, "picture " + std::to_string(i));
        }
    }
}

TEST(Drawing, IsExactWithNumbersOfAnySize)
{
    constexpr auto tiny = 5e-324;
    constexpr auto nearOne = 1 - 0x1p-53;
    const Stop stops[] { { tiny, nearOne, 1e-300, 1 }, { 0.5, tiny, nearOne, tiny }, { 0, 0, tiny, nearOne },
        { 1, 1, 1, 1e-17 }, { 0.1, 0.2, 0.3, 0.4 } };
    const CGPoint ends[] { { 4, 0 }, { 0, 3 }, { 4, 3 }, { 1e-200, 1e-200 }, { 1e250, 1e250 }, { tiny, 0 },
        { -1e-5, 1e9 }, { 4 - 0x1p-51, 3 } };
    for (std::size_t i = 0; i < std::size(stops); ++i) {
        for (const auto end : ends) {
            for (const unsigned options : { 0U, 3U }) {
                Drawing drawing { { 4, 3 }, 4, 3, {} };
                drawing.gradients.push_back({ { stops[i], stops[(i + 1) % 5] }, { 0, 0 }, end, options, {} });
                drawing.gradients.push_back(
                    { { stops[(i + 2) % 5], stops[(i + 3) % 5] }, { 4, 0 }, { 0, 0 }, 0, {} });
                expectExact(drawing, 1, "end " + std::to_string(end.x) + ", " + std::to_string(end.y));
            }
        }
    }
}

TEST(Drawing, IsExactWithManyStops)
{
    Chance chance(99);
    Drawing drawing { { 40, 3 }, 40, 3, {} };
    for (const auto end : { CGPoint { 40, 0 }, CGPoint { 0, 3 } }) {
        Drawn drawn { {}, {}, end, 0, {} };
        for (int i = 0; i < 150; ++i)
            drawn.stops.push_back({ chance.component(), chance.component(), chance.component(),
                drawing.gradients.empty() ? 1 : chance.component() });
        drawing.gradients.push_back(drawn);
    }
    expectExact(drawing, 1, "many stops");
}
