#include "picker/ReadOut.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;
using namespace vekora;

namespace {

TEST(ReadOut, ShowsHueInDegreesAndTheOthersInPercent)
{
    EXPECT_EQ(wholeUnits(Component::Hue, 0.5), 180);
    EXPECT_EQ(wholeUnits(Component::Saturation, 0.5), 50);
    EXPECT_EQ(wholeUnits(Component::Brightness, 0.5), 50);
    EXPECT_EQ(wholeUnits(Component::Hue, 1), 360);
    EXPECT_EQ(wholeUnits(Component::Brightness, 0.45), 45);
    EXPECT_EQ(wholeUnits(Component::Hue, 0.5889), 212);
}

TEST(ReadOut, RoundsToTheNearestWholeNumber)
{
    EXPECT_EQ(wholeUnits(Component::Hue, 0.9999), 360);
    EXPECT_EQ(wholeUnits(Component::Brightness, 0.994), 99);
    EXPECT_EQ(wholeUnits(Component::Brightness, 0.996), 100);
}

TEST(ReadOut, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(wholeUnits(Component::Saturation, 0.005), 1);
    EXPECT_EQ(wholeUnits(Component::Saturation, 0.125), 13);
    EXPECT_EQ(wholeUnits(Component::Saturation, 0.145), 14); // 0.145 * 100 is just below the half.
    EXPECT_EQ(wholeUnits(Component::Hue, 1.0 / 720), 1);
    EXPECT_EQ(wholeUnits(Component::Saturation, -0.125), -13);
}

TEST(ReadOut, PinsWhatNoWholeNumberHolds)
{
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(wholeUnits(Component::Hue, infinity), 2147483647);
    EXPECT_EQ(wholeUnits(Component::Hue, -infinity), -2147483647 - 1);
    EXPECT_EQ(wholeUnits(Component::Hue, 1e300), 2147483647);
    EXPECT_EQ(wholeUnits(Component::Saturation, 21474836.47), 2147483647);
    EXPECT_EQ(wholeUnits(Component::Saturation, 21474836.48), 2147483647);
    EXPECT_EQ(wholeUnits(Component::Saturation, -21474836.48), -2147483647 - 1);
    EXPECT_EQ(wholeUnits(Component::Brightness, std::nan("")), 0);
}

TEST(ReadOut, PutsTheNumberIntoItsFormat)
{
    EXPECT_EQ(readOutText({ Component::Hue, "", "%d° : Hue" }, 0.5), "180° : Hue");
    EXPECT_EQ(readOutText({ Component::Saturation, "", "Saturation: %d%%" }, 0.45), "Saturation: 45%");
    EXPECT_EQ(readOutText({ Component::Brightness, "", "%d%%" }, 0), "0%");
}

}
