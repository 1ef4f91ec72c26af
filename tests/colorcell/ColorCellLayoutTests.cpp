#include "colorcell/ColorCellLayout.h"

#include <gtest/gtest.h>

using namespace vekora;
using platform::CGRect;

namespace {

constexpr ColorCellLayout phone { 375, PickerPlace::Above };
constexpr ColorCellLayout slidersFirst { 375, PickerPlace::Below };

}

TEST(ColorCellLayout, CentresTheHexReadOut)
{
    EXPECT_EQ(phone.hexReadOut({ 86.5, 20.5 }), (CGRect { 375 * 0.5 - 86.5 * 0.5, 10, 86.5, 20.5 }));
    EXPECT_EQ(phone.hexReadOut({ 400, 20 }).x, -12.5);
}

TEST(ColorCellLayout, SizesTheSampleInWholePoints)
{
    EXPECT_EQ(phone.sample(), (CGRect { 15, 41, 341, 38 }));
    EXPECT_EQ((ColorCellLayout { 320.5, PickerPlace::Above }).sample().width, 287);
    EXPECT_EQ((ColorCellLayout { 320.4, PickerPlace::Above }).sample().width, 286);
    EXPECT_EQ((ColorCellLayout { 33.5, PickerPlace::Above }).sample().width, -1);
}

TEST(ColorCellLayout, TakesTheSamplesWidthThroughSinglePrecision)
{
    // 2^24 + 1 is no single-precision number.
    EXPECT_EQ((ColorCellLayout { 16777217 + 34, PickerPlace::Above }).sample().width, 16777216);
}

TEST(ColorCellLayout, PlacesThePickerAboveTheChannels)
{
    EXPECT_EQ(phone.picker(), (CGRect { 0, 90, 375, 380 }));
    EXPECT_EQ(phone.title(0), (CGRect { 15, 490, 255, 20 }));
    EXPECT_EQ(phone.title(1), (CGRect { 15, 558, 255, 20 }));
    EXPECT_EQ(phone.title(2), (CGRect { 15, 626, 255, 20 }));
    EXPECT_EQ(phone.value(0), (CGRect { 300, 483, 60, 30 }));
    EXPECT_EQ(phone.value(1), (CGRect { 300, 551, 60, 30 }));
    EXPECT_EQ(phone.value(2), (CGRect { 300, 619, 60, 30 }));
    EXPECT_EQ(phone.slider(0), (CGRect { 15, 508, 345, 40 }));
    EXPECT_EQ(phone.slider(1), (CGRect { 15, 576, 345, 40 }));
    EXPECT_EQ(phone.slider(2), (CGRect { 15, 644, 345, 40 }));
}

TEST(ColorCellLayout, PlacesThePickerBelowTheChannels)
{
    EXPECT_EQ(slidersFirst.picker(), (CGRect { 0, 285, 375, 380 }));
    EXPECT_EQ(slidersFirst.title(0), (CGRect { 15, 90, 255, 20 }));
    EXPECT_EQ(slidersFirst.title(2), (CGRect { 15, 226, 255, 20 }));
    EXPECT_EQ(slidersFirst.value(0), (CGRect { 300, 83, 60, 30 }));
    EXPECT_EQ(slidersFirst.value(2), (CGRect { 300, 219, 60, 30 }));
    EXPECT_EQ(slidersFirst.slider(0), (CGRect { 15, 108, 345, 40 }));
    EXPECT_EQ(slidersFirst.slider(2), (CGRect { 15, 244, 345, 40 }));
}

TEST(ColorCellLayout, HasRoomForTheHelpBelow)
{
    EXPECT_EQ(phone.help(), (CGRect { 15, 685, 345, 100 }));
    EXPECT_EQ(slidersFirst.help(), phone.help());
}
