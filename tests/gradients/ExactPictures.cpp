#include "ExactPictures.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace exact {

namespace {

using Big = boost::multiprecision::cpp_int;
__extension__ typedef __int128 Wide;

// Binary places after the point, found by doubling until nothing is left of the fraction.
int places(double value)
{
    int count = 0;
    for (auto rest = value; rest != std::floor(rest); rest *= 2)
        ++count;
    return count;
}

// value · 2^places, by doubling.
template <typename Integer> Integer whole(double value, int places)
{
    Integer result = 0;
    for (int i = 0; i < places; ++i) {
        value *= 2;
        result *= 2;
        if (value >= 1) { // The bits come out one after the other, the first ones first.
            result += 1;
            value -= 1;
        }
    }
    return result;
}

// A component of 0..1 over 2^places; 1 does not go through the loop.
template <typename Integer> Integer component(double value, int places)
{
    if (value == 1) {
        Integer one = 1;
        for (int i = 0; i < places; ++i)
            one *= 2;
        return one;
    }
    return whole<Integer>(value, places);
}

int most(std::initializer_list<double> values)
{
    int result = 0;
    for (const auto value : values)
        result = std::max(result, places(value));
    return result;
}

template <typename Integer> std::uint32_t byteOf(const Integer& numerator, const Integer& denominator)
{
    const Integer twice = numerator * 510 + denominator;
    return static_cast<std::uint32_t>(Integer(twice / (denominator * 2)));
}

std::uint32_t pixelOf(const std::uint32_t (&bytes)[3])
{
    return 0xFF000000U | bytes[0] << 16 | bytes[1] << 8 | bytes[2];
}

// A channel of the pure hue (2x + 1) / (2 · width), times width.
int pureHue(int channel, int x, int width)
{
    const auto sixths = 3 * (2 * x + 1); // Six times the hue, times the width.
    const auto distance = [&](int center) { return std::abs(sixths - center * width); };
    const auto value = channel == 0 ? distance(3) - width : 2 * width - distance(channel == 1 ? 2 : 4);
    return std::clamp(value, 0, width);
}

// With brightness b, at saturation s: the wash leaves s · c + (1 - s)² of the hue's c, the veil b of that.
template <typename Integer> Picture hueSaturationOf(double veil, int width, int height)
{
    const auto bits = places(veil);
    const auto one = component<Integer>(1, bits);
    const Integer through = one - component<Integer>(veil, bits);
    Picture picture;
    for (int y = 0; y < height; ++y) {
        const Integer down = 2 * y + 1; // Of twice the height.
        const Integer up = 2 * height - (2 * y + 1);
        for (int x = 0; x < width; ++x) {
            std::uint32_t bytes[3];
            for (int c = 0; c < 3; ++c) {
                const Integer color = down * down * width + up * 2 * height * pureHue(c, x, width);
                bytes[c] = byteOf<Integer>(through * color, one * 4 * height * height * width);
            }
            picture.push_back(pixelOf(bytes));
        }
    }
    return picture;
}

// At brightness b: b · c of the hue's c, and of the veil b itself.
template <typename Integer> Picture hueBrightnessOf(double veil, int width, int height)
{
    const auto bits = places(veil);
    const auto one = component<Integer>(1, bits);
    const auto grey = component<Integer>(veil, bits);
    Picture picture;
    for (int y = 0; y < height; ++y) {
        const Integer up = 2 * height - (2 * y + 1);
        for (int x = 0; x < width; ++x) {
            std::uint32_t bytes[3];
            for (int c = 0; c < 3; ++c) {
                const Integer color = (one - grey) * pureHue(c, x, width) + grey * width;
                bytes[c] = byteOf<Integer>(up * color, one * 2 * height * width);
            }
            picture.push_back(pixelOf(bytes));
        }
    }
    return picture;
}

// Across from one colour to the other, and down from all of that to black, if it does.
template <typename Integer>
Picture twoColors(const std::array<double, 4>& left, const std::array<double, 4>& right, bool darkens,
    int width, int height, int bits)
{
    Integer from[3];
    Integer to[3];
    for (std::size_t c = 0; c < 3; ++c) {
        from[c] = component<Integer>(left[c], bits);
        to[c] = component<Integer>(right[c], bits);
    }
    const auto one = component<Integer>(1, bits);
    Picture picture;
    for (int y = 0; y < height; ++y) {
        const Integer up = darkens ? 2 * height - (2 * y + 1) : 1;
        const Integer upOf = darkens ? 2 * height : 1;
        for (int x = 0; x < width; ++x) {
            std::uint32_t bytes[3];
            for (std::size_t c = 0; c < 3; ++c) {
                const Integer color = from[c] * (2 * width - (2 * x + 1)) + to[c] * (2 * x + 1);
                bytes[c] = byteOf<Integer>(up * color, upOf * one * 2 * width);
            }
            picture.push_back(pixelOf(bytes));
        }
    }
    return picture;
}

Picture twoColors(
    const platform::UIColor& left, const platform::UIColor& right, bool darkens, int width, int height)
{
    const auto from = left.cgColor().rgba();
    const auto to = right.cgColor().rgba();
    const auto bits = most({ from[0], from[1], from[2], to[0], to[1], to[2] });
    return bits > 60 ? twoColors<Big>(from, to, darkens, width, height, bits)
                     : twoColors<Wide>(from, to, darkens, width, height, bits);
}

// What a colour makes of an opacity.
double opacity(double value)
{
    return value > 0 ? std::min(value, 1.0) : 0;
}

}

Picture hueSaturation(double brightness, int width, int height)
{
    const auto veil = opacity(1 - brightness);
    return places(veil) > 60 ? hueSaturationOf<Big>(veil, width, height)
                             : hueSaturationOf<Wide>(veil, width, height);
}

Picture hueBrightness(double saturation, int width, int height)
{
    const auto veil = opacity(1 - saturation);
    return places(veil) > 60 ? hueBrightnessOf<Big>(veil, width, height)
                             : hueBrightnessOf<Wide>(veil, width, height);
}

Picture brightnessSaturation(double hue, int width, int height)
{
    return twoColors(platform::UIColor::colorWithRedGreenBlueAlpha(1, 1, 1, 1),
        platform::UIColor::colorWithHueSaturationBrightnessAlpha(hue, 1, 1, 1), true, width, height);
}

Picture hueBar(int width, int height)
{
    Picture picture;
    for (int i = 0; i < width * height; ++i) {
        std::uint32_t bytes[3];
        for (int c = 0; c < 3; ++c)
            bytes[c] = byteOf<Wide>(pureHue(c, i % width, width), width);
        picture.push_back(pixelOf(bytes));
    }
    return picture;
}

Picture bar(const platform::UIColor& left, const platform::UIColor& right, int width, int height)
{
    return twoColors(left, right, false, width, height);
}

}
