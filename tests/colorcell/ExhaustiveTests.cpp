#include "HexTextOracle.h"

#include "colorcell/ColorString.h"
#include "platform/Truncation.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

using namespace vekora;
using namespace vekora::tests;

namespace {

constexpr std::uint32_t colors = 0x1000000;

ColorChannels channelsOf(std::uint32_t color)
{
    const auto byte = [color](int shift) { return static_cast<std::int32_t>(color >> shift & 255); };
    return { byte(16), byte(8), byte(0) };
}

/// Asks about every number below `count`, half of them on a thread of their own. The first one for which the
/// claim does not hold; `count` when there is none.
template <typename Claim> std::uint32_t firstFailure(std::uint32_t count, Claim claim)
{
    const auto firstFailureIn = [&claim](std::uint32_t begin, std::uint32_t end, std::uint32_t none) {
        for (auto i = begin; i < end; ++i) {
            if (!claim(i))
                return i;
        }
        return none;
    };
    std::uint32_t lower = count;
    std::thread other([&] { lower = firstFailureIn(0, count / 2, count); });
    const auto upper = firstFailureIn(count / 2, count, count);
    other.join();
    return std::min(lower, upper);
}

std::array<char, 7> spelt(std::uint32_t color, const char (&digits)[17])
{
    std::array<char, 7> text { '#' };
    for (int i = 0; i < 6; ++i)
        text[6 - i] = digits[color >> 4 * i & 15];
    return text;
}

std::string_view view(const std::array<char, 7>& text)
{
    return { text.data(), text.size() };
}

}

TEST(EveryColor, IsWrittenInUpperCase)
{
    EXPECT_EQ(firstFailure(colors,
                  [](std::uint32_t color) {
                      return writtenColorString(channelsOf(color)) == view(spelt(color, "0123456789ABCDEF"));
                  }),
        colors);
}

TEST(EveryColor, IsReadInUpperAndLowerCase)
{
    EXPECT_EQ(firstFailure(colors,
                  [](std::uint32_t color) {
                      return readColorString(view(spelt(color, "0123456789ABCDEF"))) == channelsOf(color)
                          && readColorString(view(spelt(color, "0123456789abcdef"))) == channelsOf(color);
                  }),
        colors);
}

TEST(EveryColor, GoesFromSlidersToTextAndBack)
{
    EXPECT_EQ(
        firstFailure(colors,
            [](std::uint32_t color) {
                const auto sliders = channelsOf(color);
                const std::array values { static_cast<float>(sliders.red), static_cast<float>(sliders.green),
                    static_cast<float>(sliders.blue) };
                const auto read = readColorString(writtenColorString({ platform::truncatedInteger(values[0]),
                    platform::truncatedInteger(values[1]), platform::truncatedInteger(values[2]) }));
                return static_cast<float>(read.red) == values[0]
                    && static_cast<float>(read.green) == values[1]
                    && static_cast<float>(read.blue) == values[2];
            }),
        colors);
}

TEST(EveryColor, GoesThroughHueSaturationAndBrightnessToTheSliders)
{
    EXPECT_EQ(firstFailure(colors,
                  [](std::uint32_t color) {
                      const auto before = channelsOf(color);
                      platform::CGFloat hue = 0, saturation = 0, brightness = 0;
                      if (!colorWithChannels(before, 1).getHueSaturationBrightnessAlpha(
                              &hue, &saturation, &brightness, nullptr))
                          return false;
                      const auto after = platform::UIColor::colorWithHueSaturationBrightnessAlpha(
                          hue, saturation, brightness, 1);
                      const auto components = platform::CGColorGetComponents(after.cgColor());
                      return sliderValueForComponent(components[0]) == static_cast<float>(before.red)
                          && sliderValueForComponent(components[1]) == static_cast<float>(before.green)
                          && sliderValueForComponent(components[2]) == static_cast<float>(before.blue);
                  }),
        colors);
}

class EveryColorAtOpacity : public testing::TestWithParam<int> { };

TEST_P(EveryColorAtOpacity, HasReadableText)
{
    // In quarters, the composed channel and the luminance (in ten-thousandths) are exact in whole numbers.
    const int quarters = GetParam();
    const auto opacity = static_cast<float>(quarters) / 4;
    EXPECT_EQ(firstFailure(colors,
                  [=](std::uint32_t color) {
                      const auto channels = channelsOf(color);
                      const auto overWhite
                          = [=](int channel) { return (channel * quarters + 255 * (4 - quarters)) / 4; };
                      const int luminance = 2126 * overWhite(channels.red) + 7152 * overWhite(channels.green)
                          + 722 * overWhite(channels.blue);
                      return needsWhiteText(channels, opacity) == (2 * luminance <= 2550000);
                  }),
        colors);
}

INSTANTIATE_TEST_SUITE_P(Opacities, EveryColorAtOpacity, testing::Range(0, 5));

TEST(EveryHexText, OfUpToFourCharactersReadsByTheRule)
{
    const std::vector<std::string> alphabet { "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "a", "b", "c",
        "d", "e", "f", "A", "B", "C", "D", "E", "F", "g", "G", "z", "#", "x", "X", " ", "\xC3\xA9" };
    const auto size = static_cast<std::uint32_t>(alphabet.size());

    const auto textOf = [&](std::uint32_t number) {
        // Texts are numbered by length, then as numbers in the alphabet's base.
        std::string text;
        for (std::uint32_t length = 0, texts = 1; length <= 4; ++length, texts *= size) {
            if (number >= texts) {
                number -= texts;
                continue;
            }
            for (std::uint32_t i = 0; i < length; ++i, number /= size)
                text += alphabet[number % size];
            break;
        }
        return text;
    };
    const auto count = 1 + size * (1 + size * (1 + size * (1 + size)));
    const auto failure = firstFailure(count, [&](std::uint32_t number) {
        const auto text = textOf(number);
        return readColorString(text) == channelsOf(colorOfHexText(text));
    });
    EXPECT_EQ(failure, count) << '"' << textOf(failure) << '"';
}
