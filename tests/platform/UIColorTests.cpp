#include "platform/UIColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace platform;

namespace {

struct HSB {
    CGFloat hue = -1, saturation = -1, brightness = -1;
};

HSB hsbOf(const UIColor& color)
{
    HSB hsb;
    EXPECT_TRUE(color.getHueSaturationBrightnessAlpha(&hsb.hue, &hsb.saturation, &hsb.brightness, nullptr));
    return hsb;
}

UIColor rgb(CGFloat red, CGFloat green, CGFloat blue)
{
    return UIColor::colorWithRedGreenBlueAlpha(red, green, blue, 1);
}

UIColor hsb(CGFloat hue, CGFloat saturation, CGFloat brightness)
{
    return UIColor::colorWithHueSaturationBrightnessAlpha(hue, saturation, brightness, 1);
}

}

TEST(UIColor, TurnsThePureHuesIntoTheirComponents)
{
    EXPECT_EQ(hsb(0, 1, 1), rgb(1, 0, 0));
    EXPECT_EQ(hsb(0.5, 1, 1), rgb(0, 1, 1));
    EXPECT_EQ(hsb(0.25, 1, 1), rgb(0.5, 1, 0));
    EXPECT_EQ(hsb(0.75, 1, 1), rgb(0.5, 0, 1));
    EXPECT_EQ(hsb(1, 1, 1), rgb(1, 0, 0));
}

TEST(UIColor, KeepsOnlyRedGreenAndBlueOfAGreyOrBlack)
{
    EXPECT_EQ(hsb(0.3, 0, 0.5), hsb(0.9, 0, 0.5));
    EXPECT_EQ(hsb(0.3, 0.2, 0), hsb(0.9, 0.7, 0));
    EXPECT_EQ(hsbOf(hsb(0.3, 0, 0.5)).hue, 0);
    EXPECT_EQ(hsbOf(hsb(0.3, 0.4, 0)).saturation, 0);
}

TEST(UIColor, ReadsHueSaturationAndBrightnessBack)
{
    for (int step = 0; step < 360; ++step) {
        const auto read = hsbOf(hsb(step / 360.0, 0.6, 0.8));
        EXPECT_NEAR(read.hue, step / 360.0, 1e-12) << step;
        EXPECT_NEAR(read.saturation, 0.6, 1e-12);
        EXPECT_EQ(read.brightness, 0.8);
    }
}

TEST(UIColor, ReportsAFullTurnAsNone)
{
    EXPECT_EQ(hsbOf(hsb(1, 1, 1)).hue, 0);
}

TEST(UIColor, ReportsHuesBelowOneOnly)
{
    const auto nearlyRed = rgb(1, 0, std::numeric_limits<double>::denorm_min());
    EXPECT_LT(hsbOf(nearlyRed).hue, 1);
    EXPECT_GE(hsbOf(nearlyRed).hue, 0);
}

TEST(UIColor, BringsComponentsIntoRange)
{
    EXPECT_EQ(rgb(-1, 2, 0.5), rgb(0, 1, 0.5));
    EXPECT_EQ(hsb(2, 1.5, 1), hsb(1, 1, 1));
    const auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(hsb(infinity, -infinity, 1), hsb(1, 0, 1));
    EXPECT_EQ(rgb(std::nan(""), 0, 0), rgb(0, 0, 0));
    EXPECT_EQ(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, -0.5).cgColor().rgba()[3], 0);
    EXPECT_EQ(UIColor::colorWithWhiteAlpha(3, 7), UIColor::colorWithWhiteAlpha(1, 1));
}

TEST(UIColor, IsEqualOnlyWithinASpaceAndExactly)
{
    EXPECT_FALSE(UIColor::whiteColor().isEqual(rgb(1, 1, 1)));
    EXPECT_TRUE(UIColor::redColor().isEqual(rgb(1, 0, 0)));
    EXPECT_FALSE(rgb(0.5, 0, 0).isEqual(rgb(std::nextafter(0.5, 1), 0, 0)));
    EXPECT_FALSE(rgb(1, 0, 0).isEqual(UIColor::colorWithRedGreenBlueAlpha(1, 0, 0, 0.5)));
}

TEST(UIColor, HasTwoComponentsInGreyAndFourInRGB)
{
    EXPECT_EQ(CGColorGetComponents(UIColor::blackColor().cgColor()).size(), 2U);
    EXPECT_EQ(CGColorGetComponents(UIColor::clearColor().cgColor())[1], 0);
    EXPECT_EQ(CGColorGetComponents(hsb(0.5, 1, 1).cgColor()).size(), 4U);
}

TEST(UIColor, ReadsAGreyAsBrightnessAlone)
{
    const auto read = hsbOf(UIColor::colorWithWhiteAlpha(0.25, 1));
    EXPECT_EQ(read.hue, 0);
    EXPECT_EQ(read.saturation, 0);
    EXPECT_EQ(read.brightness, 0.25);
}

TEST(UIColor, DescribesItselfInRoundedBytes)
{
    EXPECT_EQ(hexDescription(UIColor::colorWithRedGreenBlueAlpha(1, 0.5, 0, 0.04).cgColor()), "#FF80000A");
    EXPECT_EQ(hexDescription(UIColor::clearColor().cgColor()), "#00000000");
}
