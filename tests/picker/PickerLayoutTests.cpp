#include "picker/PickerLayout.h"

#include "PickerPrinting.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace vekora;

namespace {

// A picker 320 wide and 380 high with lines of 20.5.
constexpr CGSize size { 320, 380 };
constexpr CGFloat line = 20.5;
constexpr CGRect field { 10, 40.5, 300, 259.5 };
constexpr CGRect bar { 10, 334.5, 300, 40 };

TEST(PickerLayout, PutsTheUpperLabelsSideBySide)
{
    EXPECT_EQ(topLeftLabelFrame(size, line), (CGRect { 10, 10, 140, 20.5 }));
    EXPECT_EQ(topRightLabelFrame(size, line), (CGRect { 170, 10, 140, 20.5 }));
}

TEST(PickerLayout, PutsFieldAndBarBelowThem)
{
    EXPECT_EQ(fieldFrame(size, line), field);
    EXPECT_EQ(barFrame(size, field, line), bar);
}

TEST(PickerLayout, EndsTheFieldEightyAboveTheBottomWhateverTheLine)
{
    for (const auto height : { 0.0, 17.0, 20.5, 33.0 }) {
        const auto frame = fieldFrame(size, height);
        EXPECT_EQ(frame.maxY(), 300);
        const auto below = barFrame(size, frame, height);
        EXPECT_EQ(below.minY(), 380 - 66 + height);
        EXPECT_EQ(captionTitleFrame(size, below, height).minY(), 310) << "ten below the field";
        EXPECT_EQ(captionTitleFrame(size, below, height).maxY() + 4, below.minY());
    }
}

TEST(PickerLayout, CentresTheCaption)
{
    EXPECT_EQ(captionTitleFrame(size, bar, line), (CGRect { 60, 310, 100, 20.5 }));
    EXPECT_EQ(captionValueFrame(size, bar, line), (CGRect { 162, 310, 100, 20.5 }));
    EXPECT_EQ(captionButtonFrame(size, bar, line), (CGRect { 60, 310, 200, 20.5 }));
    EXPECT_EQ(captionButtonFrame({ 501, 380 }, bar, line), (CGRect { 150.5, 310, 200, 20.5 }));
}

TEST(PickerLayout, CreatesTheMarkersAtTheirViews)
{
    EXPECT_EQ(barSelectorFrame(bar), (CGRect { 2, 330.5, 16, 48 }));
    EXPECT_EQ(crossHairsFrame(field), (CGRect { 10, 40.5, 20, 20 }));
}

}
