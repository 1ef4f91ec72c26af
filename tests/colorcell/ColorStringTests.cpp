#include "colorcell/ColorString.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vekora;

namespace {

constexpr ColorChannels white { 255, 255, 255 };
constexpr ColorChannels black { 0, 0, 0 };
constexpr ColorChannels orange { 255, 136, 0 };
constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto undefinedNumber = std::numeric_limits<double>::quiet_NaN();

ColorChannels grey(std::int32_t value)
{
    return { value, value, value };
}

}

TEST(ColorString, WritesSixUpperCaseDigits)
{
    EXPECT_EQ(writtenColorString(orange), "#FF8800");
    EXPECT_EQ(writtenColorString({ 1, 2, 3 }), "#010203");
    EXPECT_EQ(writtenColorString({ 171, 205, 239 }), "#ABCDEF");
    EXPECT_EQ(writtenColorString(black), "#000000");
    EXPECT_EQ(writtenColorString(white), "#FFFFFF");
}

TEST(ColorString, WritesChannelsBeyondAByteWithAllTheirDigits)
{
    EXPECT_EQ(writtenColorString({ 256, 0, 4096 }), "#100001000");
    EXPECT_EQ(writtenColorString({ -10, 0, 0 }), "#FFFFFFF60000");
}

TEST(ColorString, ReadsDigitsOfEitherCase)
{
    EXPECT_EQ(readColorString("#FF8800"), orange);
    EXPECT_EQ(readColorString("#ff8800"), orange);
    EXPECT_EQ(readColorString("#fF8800"), orange);
}

TEST(ColorString, ReadsWithNoneOrManyLeadingSigns)
{
    EXPECT_EQ(readColorString("FF8800"), orange);
    EXPECT_EQ(readColorString("##FF8800"), orange);
    EXPECT_EQ(readColorString("####FF8800#"), orange);
}

TEST(ColorString, StopsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(readColorString("#FF#8800"), (ColorChannels { 0, 0, 255 }));
    EXPECT_EQ(readColorString("12 34"), (ColorChannels { 0, 0, 0x12 }));
    EXPECT_EQ(readColorString("ABCG"), (ColorChannels { 0, 0x0A, 0xBC }));
    EXPECT_EQ(readColorString("FF\xC3\xA9"), (ColorChannels { 0, 0, 255 }));
}

TEST(ColorString, ReadsShortFormsAsTheNumbersTheyAre)
{
    EXPECT_EQ(readColorString("#FFF"), (ColorChannels { 0, 15, 255 }));
    EXPECT_EQ(readColorString("#FF00"), (ColorChannels { 0, 255, 0 }));
    EXPECT_EQ(readColorString("FF"), (ColorChannels { 0, 0, 255 }));
    EXPECT_EQ(readColorString("0"), black);
}

TEST(ColorString, ReadsTextWithoutDigitsAsWhite)
{
    for (const auto* text :
        { "", "#", "###", "g", "#G00000", "x", "\xC3\xA9", "\xD9\xA1\xD9\xA2", "-1", "+1" })
        EXPECT_EQ(readColorString(text), white) << text;
}

TEST(ColorString, PassesOverNoBlanks)
{
    for (const auto* text : { " #00FF80", " 00FF80", "# 00FF80", "\t00FF80", "\n00FF80",
             "\xC2\xA0"
             "00FF80" })
        EXPECT_EQ(readColorString(text), white) << text;
}

TEST(ColorString, ReadsMoreThanSixSignificantDigitsAsWhite)
{
    EXPECT_EQ(readColorString("#1000000"), white);
    EXPECT_EQ(readColorString("#FFFFFFF"), white);
    EXPECT_EQ(readColorString("#80000000"), white);
    EXPECT_EQ(readColorString("#FFFFFFFF"), white);
}

TEST(ColorString, ReadsWhatOverflowsAsWhite)
{
    EXPECT_EQ(readColorString("#100000000"), white);
    EXPECT_EQ(readColorString("#100FF8800"), white);
    EXPECT_EQ(readColorString("#" + std::string(1000, '1')), white);
}

TEST(ColorString, LeadingZerosCountForNothing)
{
    EXPECT_EQ(readColorString("#00FF8800"), orange);
    EXPECT_EQ(readColorString("#" + std::string(1000, '0') + "FF8800"), orange);
}

TEST(ColorString, TakesTheScannersPrefix)
{
    EXPECT_EQ(readColorString("#0xFF8800"), orange);
    EXPECT_EQ(readColorString("0XFF8800"), orange);
    EXPECT_EQ(readColorString("0x"), black);
    EXPECT_EQ(readColorString("0xg"), black);
    EXPECT_EQ(readColorString("0x#FF8800"), black);
    EXPECT_EQ(readColorString("00xFF"), black);
    EXPECT_EQ(readColorString("x12"), white);
}

TEST(ColorString, EndsAtAZeroByte)
{
    EXPECT_EQ(readColorString(std::string_view("12\0"
                                               "34",
                  5)),
        (ColorChannels { 0, 0, 0x12 }));
}

TEST(ColorString, MakesColorsOfChannels)
{
    const auto rgba = colorWithChannels(orange, 0.25).cgColor().rgba();
    EXPECT_EQ(rgba[0], 1);
    EXPECT_EQ(rgba[1], 136 / 255.0);
    EXPECT_EQ(rgba[2], 0);
    EXPECT_EQ(rgba[3], 0.25);
    EXPECT_EQ(colorWithChannels(white, 1).cgColor().space(), platform::CGColorSpaceModel::RGB);
}

TEST(Contrast, PutsBlackOnLightAndWhiteOnDark)
{
    EXPECT_FALSE(needsWhiteText(white, 1));
    EXPECT_TRUE(needsWhiteText(black, 1));
    EXPECT_FALSE(needsWhiteText(grey(128), 1));
    EXPECT_TRUE(needsWhiteText(grey(127), 1));
    EXPECT_TRUE(needsWhiteText({ 255, 0, 0 }, 1));
    EXPECT_FALSE(needsWhiteText({ 0, 255, 0 }, 1));
    EXPECT_TRUE(needsWhiteText({ 0, 0, 255 }, 1));
}

TEST(Contrast, SeesOnlyWhiteThroughNoOpacity)
{
    for (int value = 0; value <= 255; ++value)
        EXPECT_FALSE(needsWhiteText(grey(value), 0)) << value;
}

TEST(Contrast, CutsTheComposedChannel)
{
    // Half of 1 over half of 255 is 128; half of 0 is 127.5, which counts as 127.
    EXPECT_FALSE(needsWhiteText(grey(1), 0.5F));
    EXPECT_TRUE(needsWhiteText(grey(0), 0.5F));
}

TEST(Contrast, ComposesInSinglePrecision)
{
    // The greatest opacity that leaves 128 of white on black in single precision, and the next one.
    EXPECT_FALSE(needsWhiteText(black, 0.498039186F));
    EXPECT_TRUE(needsWhiteText(black, 0.498039216F));
    // Green 15 comes to 123 in single precision and to 122.9… in double precision, where it would be white.
    EXPECT_FALSE(needsWhiteText({ 0, 15, 180 }, 0.55F));
    EXPECT_FALSE(needsWhiteText({ 0, 32, 15 }, 0.55F));
}

TEST(Contrast, TheMiddleIsWhite)
{
    // Both luminances are exactly half of 255.
    EXPECT_TRUE(needsWhiteText({ 13, 163, 113 }, 1));
    EXPECT_TRUE(needsWhiteText({ 30, 153, 162 }, 1));
    // The nearest ones above and below.
    EXPECT_FALSE(needsWhiteText({ 13, 163, 114 }, 1));
    EXPECT_TRUE(needsWhiteText({ 13, 163, 112 }, 1));
}

TEST(Contrast, TakesAnyOpacityAndChannel)
{
    for (const float opacity : { static_cast<float>(infinity), -static_cast<float>(infinity),
             static_cast<float>(undefinedNumber), 1e38F, -1e38F }) {
        for (const auto value : { 0, 255, std::numeric_limits<std::int32_t>::max() })
            (void)needsWhiteText(grey(value), opacity);
    }
    EXPECT_TRUE(needsWhiteText(grey(-10), 1));
    EXPECT_FALSE(needsWhiteText(grey(1000), 1));
}

TEST(ReadOutNumber, RoundsHundredthsAndCutsTheRest)
{
    EXPECT_EQ(readOutNumber(127.996F), 128);
    EXPECT_EQ(readOutNumber(127.994F), 127);
    EXPECT_EQ(readOutNumber(127.5F), 127);
    EXPECT_EQ(readOutNumber(0.995F), 1); // 99.5 hundredths in single precision: a half, rounded up.
    EXPECT_EQ(readOutNumber(0.994F), 0);
    EXPECT_EQ(readOutNumber(0), 0);
    EXPECT_EQ(readOutNumber(255), 255);
    EXPECT_EQ(readOutNumber(-9.996F), -10);
    EXPECT_EQ(readOutNumber(-9.99F), -9);
}

TEST(ReadOutNumber, KeepsEveryWholeChannel)
{
    for (int value = -1000; value <= 1000; ++value)
        EXPECT_EQ(readOutNumber(static_cast<float>(value)), value);
}

TEST(ReadOutNumber, TakesAnyValue)
{
    EXPECT_EQ(readOutNumber(std::numeric_limits<float>::max()), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(readOutNumber(std::numeric_limits<float>::lowest()), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(readOutNumber(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(SliderValueForComponent, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(sliderValueForComponent(0), 0);
    EXPECT_EQ(sliderValueForComponent(1), 255);
    EXPECT_EQ(sliderValueForComponent(0.5), 128);
    EXPECT_EQ(sliderValueForComponent(127.4 / 255), 127);
    EXPECT_EQ(sliderValueForComponent(-0.5), -128);
}

TEST(SliderValueForComponent, RoundsInSinglePrecision)
{
    // In double precision this lies just below the half, in single precision on it.
    constexpr double component = (127.5 - 1e-9) / 255;
    static_assert(component * 255 < 127.5);
    EXPECT_EQ(sliderValueForComponent(component), 128);
}
