#pragma once

#include "platform/CGContext.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <optional>
#include <vector>

/// The drawing rule word for word, in fractions of any length: one pixel at a time, as slow as it may be.
namespace exactdrawing {

using platform::CGPoint;
using platform::CGRect;
using platform::CGSize;
using Fraction = boost::multiprecision::cpp_rational;
using Stop = std::array<double, 4>;

struct Drawn {
    std::vector<Stop> stops;
    CGPoint start;
    CGPoint end;
    unsigned options = 0;
    std::vector<CGRect> clips;
};

struct Drawing {
    CGSize size;
    int width = 0; ///< Pixels.
    int height = 0;
    std::vector<Drawn> gradients;

    /// 0xAARRGGBB, premultiplied.
    std::uint32_t pixel(int x, int y) const
    {
        const Fraction centerX = Fraction(2 * x + 1) * Fraction(size.width) / (2 * width);
        const Fraction centerY = Fraction(2 * y + 1) * Fraction(size.height) / (2 * height);
        Fraction result[4] {};
        for (const auto& drawn : gradients) {
            const auto stop
                = isClipped(drawn, centerX, centerY) ? std::nullopt : colorAt(drawn, centerX, centerY);
            if (!stop)
                continue;
            const auto& alpha = (*stop)[3];
            for (std::size_t i = 0; i < 4; ++i)
                result[i] = result[i] * (1 - alpha) + (i == 3 ? Fraction(1) : (*stop)[i]) * alpha;
        }
        std::uint32_t pixel = 0;
        for (int i = 0; i < 4; ++i) {
            const Fraction rounded = result[i] * 255 + Fraction(1, 2);
            const boost::multiprecision::cpp_int byte = numerator(rounded) / denominator(rounded);
            pixel |= static_cast<std::uint32_t>(byte) << (i == 3 ? 24 : 16 - 8 * i);
        }
        return pixel;
    }

private:
    static bool isClipped(const Drawn& drawn, const Fraction& x, const Fraction& y)
    {
        for (const auto& clip : drawn.clips) {
            if (clip.isEmpty() || x < Fraction(clip.minX()) || x >= Fraction(clip.maxX())
                || y < Fraction(clip.minY()) || y >= Fraction(clip.maxY()))
                return true;
        }
        return false;
    }

    static std::optional<std::array<Fraction, 4>> colorAt(
        const Drawn& drawn, const Fraction& x, const Fraction& y)
    {
        if (drawn.stops.empty() || drawn.start == drawn.end)
            return std::nullopt;
        const Fraction alongX = Fraction(drawn.end.x) - Fraction(drawn.start.x);
        const Fraction alongY = Fraction(drawn.end.y) - Fraction(drawn.start.y);
        Fraction t = ((x - Fraction(drawn.start.x)) * alongX + (y - Fraction(drawn.start.y)) * alongY)
            / (alongX * alongX + alongY * alongY);
        if ((t < 0 && !(drawn.options & 1)) || (t > 1 && !(drawn.options & 2)))
            return std::nullopt;
        t = t < 0 ? Fraction(0) : t > 1 ? Fraction(1) : t;

        // The first stretch that reaches as far, in a search from the start.
        const auto count = drawn.stops.size();
        std::size_t next = count > 1 ? 1 : 0;
        while (next + 1 < count && Fraction(next, count - 1) < t)
            ++next;
        const auto& from = drawn.stops[next == 0 ? 0 : next - 1];
        const auto& to = drawn.stops[next];
        const Fraction part = next == 0 ? Fraction(0) : Fraction(t * (count - 1) - (next - 1));
        std::array<Fraction, 4> color;
        for (std::size_t i = 0; i < 4; ++i)
            color[i] = Fraction(from[i]) * (1 - part) + Fraction(to[i]) * part;
        return color;
    }
};

}
