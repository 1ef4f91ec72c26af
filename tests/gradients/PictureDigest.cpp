// Prints a digest of many pictures. Built by several compilers and with several levels of optimisation, and
// run with each kind of instructions, it must print the same each time.

#include "platform/CGContextImpl.h"
#include "platform/GradientRows.h"

#include <cstdio>
#include <random>
#include <string_view>

using namespace platform;

namespace {

class Digest {
public:
    void add(std::uint32_t value)
    {
        for (int shift = 0; shift < 32; shift += 8) { // FNV-1a
            _hash ^= value >> shift & 255U;
            _hash *= 0x100000001B3U;
        }
    }
    std::uint64_t value() const { return _hash; }

private:
    std::uint64_t _hash = 0xCBF29CE484222325U;
};

enum class Edge { Left, Right, Top };

void draw(CGContext& context, CGSize size, const std::vector<UIColor>& colors, Edge from)
{
    const CGPoint left {};
    const CGPoint right { size.width, 0 };
    const auto gradient = CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors);
    CGContextDrawLinearGradient(context, gradient, from == Edge::Right ? right : left,
        from == Edge::Left        ? right
            : from == Edge::Right ? left
                                  : CGPoint { 0, size.height },
        kCGGradientDrawsNothingOutside);
}

UIColor rgb(double red, double green, double blue, double alpha)
{
    return UIColor::colorWithRedGreenBlueAlpha(red, green, blue, alpha);
}

std::vector<UIColor> hues()
{
    return { rgb(1, 0, 0, 1), rgb(1, 0, 1, 1), rgb(0, 0, 1, 1), rgb(0, 1, 1, 1), rgb(0, 1, 0, 1),
        rgb(1, 1, 0, 1), rgb(1, 0, 0, 1) };
}

using Painter = void (*)(CGContext&, CGSize, double value, double other);

constexpr Painter painters[] {
    [](CGContext& context, CGSize size, double value, double) {
        draw(context, size, hues(), Edge::Right);
        draw(context, size, { rgb(0, 0, 0, 0), rgb(1, 1, 1, 1) }, Edge::Top);
        draw(context, size, { rgb(0, 0, 0, 1 - value), rgb(0, 0, 0, 1 - value) }, Edge::Top);
    },
    [](CGContext& context, CGSize size, double value, double) {
        draw(context, size, hues(), Edge::Right);
        draw(context, size, { rgb(0, 0, 0, 0), rgb(0, 0, 0, 1) }, Edge::Top);
        draw(context, size, { rgb(1, 1, 1, 1 - value), rgb(0, 0, 0, 1 - value) }, Edge::Top);
    },
    [](CGContext& context, CGSize size, double value, double) {
        draw(context, size,
            { UIColor::colorWithHueSaturationBrightnessAlpha(value, 1, 1, 1), rgb(1, 1, 1, 1) }, Edge::Right);
        draw(context, size, { rgb(0, 0, 0, 0), rgb(0, 0, 0, 1) }, Edge::Top);
    },
    [](CGContext& context, CGSize size, double value, double other) {
        draw(context, size,
            { UIColor::colorWithHueSaturationBrightnessAlpha(value, other, 1, 1),
                UIColor::colorWithHueSaturationBrightnessAlpha(0, 0, 0, 1) },
            Edge::Left);
    },
    // Not an outer product: the slow way, in every direction, not opaque.
    [](CGContext& context, CGSize size, double value, double other) {
        if (size.width > 64)
            return;
        draw(context, size, { rgb(value, other, 1, other), rgb(0, value, 0.5, value), rgb(1, 0, 0, 0.1) },
            Edge::Top);
        draw(context, size, { rgb(value, other, 1, value), rgb(0, 0, 1, 0) }, Edge::Left);
        CGContextClipToRect(context, { value * 9, other * 5, 30, 20 });
        CGContextDrawLinearGradient(context,
            CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), hues()), { value * 10, 3 },
            { 25, other * 20 }, kCGGradientDrawsAfterEndLocation);
    },
};

void addPictures(Digest& digest, std::mt19937_64& random, CGSize size, double scale, int count)
{
    const auto fraction = [&] { return static_cast<double>(random() >> 11) * 0x1p-53; };
    for (int i = 0; i < count; ++i) {
        const auto value = i == 0 ? 1 : i == 1 ? 0.5 : fraction();
        const auto other = fraction();
        for (const auto painter : painters) {
            CGContext context(size, scale);
            painter(context, size, value, other);
            const auto contents = context.finish();
            if (!contents)
                continue;
            Bitmap picture(contents->width(), contents->height());
            contents->read(picture.rect(), picture.pixels.get(), picture.width);
            for (int p = 0; p < picture.width * picture.height; ++p)
                digest.add(picture.pixels[static_cast<std::size_t>(p)]);
        }
    }
}

}

int main(int argc, char** argv)
{
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    limitGradientInstructions(wanted == "portable" ? GradientInstructions::Portable
            : wanted == "avx2"                     ? GradientInstructions::Avx2
                                                   : GradientInstructions::Avx512);
    Digest digest;
    std::mt19937_64 random(1);
    for (const double scale : { 1.0, 2.0, 3.0 }) {
        addPictures(digest, random, { 31, 17 }, scale, 20);
        addPictures(digest, random, { 85.3, 51.7 }, scale, 6);
    }
    addPictures(digest, random, { 355, 260 }, 3, 2);
    std::printf("%016llx\n", static_cast<unsigned long long>(digest.value()));
}
