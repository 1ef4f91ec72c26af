#include "ControlTestSupport.h"
#include "platform/Style.h"
#include "platform/UISlider.h"

#include <cmath>
#include <limits>

using namespace platform;

namespace {

constexpr auto infinity = std::numeric_limits<float>::infinity();
constexpr auto notANumber = std::numeric_limits<float>::quiet_NaN();

class UISliderTest : public ControlTest {
protected:
    // The thumb travels 169 points.
    Ref<UISlider> slider = add(std::make_shared<UISlider>(), { 50, 200, 200, 31 });
    UISliderTest() { log->listenTo(*slider); }

    CGPoint thumb() const
    {
        const auto rect = slider->thumbRect();
        return slider->convertPointToView({ rect.midX(), rect.midY() }, nullptr);
    }
};

TEST_F(UISliderTest, RunsFromZeroToOneAndStartsAtZero)
{
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(slider->minimumValue(), 0);
    EXPECT_EQ(slider->maximumValue(), 1);
    EXPECT_TRUE(slider->isContinuous());
}

TEST_F(UISliderTest, PinsItsValueToTheRange)
{
    slider->setMinimumValue(10);
    slider->setMaximumValue(20);
    EXPECT_EQ(slider->value(), 10);
    slider->setValue(300);
    EXPECT_EQ(slider->value(), 20);
    slider->setValue(-1);
    EXPECT_EQ(slider->value(), 10);
    slider->setValue(infinity);
    EXPECT_EQ(slider->value(), 20);
    slider->setValue(notANumber);
    EXPECT_EQ(slider->value(), 10);
}

TEST_F(UISliderTest, MovesTheOtherEndWhenOneEndPassesIt)
{
    slider->setMinimumValue(300);
    EXPECT_EQ(slider->maximumValue(), 300);
    EXPECT_EQ(slider->value(), 300);
    slider->setMaximumValue(255);
    EXPECT_EQ(slider->minimumValue(), 255);
    EXPECT_EQ(slider->maximumValue(), 255);
    EXPECT_EQ(slider->value(), 255);
}

TEST_F(UISliderTest, KeepsAValueOutsideANarrowedRangeAtItsEnd)
{
    slider->setMaximumValue(255);
    slider->setValue(200);
    slider->setMaximumValue(100);
    EXPECT_EQ(slider->value(), 100);
    slider->setMaximumValue(255);
    EXPECT_EQ(slider->value(), 100);
}

TEST_F(UISliderTest, SendsNothingWhenSetByTheProgram)
{
    slider->setValue(0.5F);
    slider->setMinimumValue(0.75F);
    slider->setMaximumValue(0.25F);
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISliderTest, PlacesItsThumbByTheValue)
{
    EXPECT_EQ(slider->thumbRect(), (CGRect { 0, 0, 31, 31 }));
    slider->setValue(1);
    EXPECT_EQ(slider->thumbRect(), (CGRect { 169, 0, 31, 31 }));
    slider->setValue(0.5F);
    EXPECT_EQ(slider->thumbRect().midX(), 100);
    slider->setFrame({ 50, 200, 231, 51 });
    EXPECT_EQ(slider->thumbRect(), (CGRect { 100, 10, 31, 31 }));
}

TEST_F(UISliderTest, HoldsItsValueAgainstAPressAndAReleaseOfTheThumb)
{
    slider->setMaximumValue(255);
    for (float value = 0; value <= 255; value += 0.37F) {
        slider->setValue(value);
        const auto before = slider->value();
        log->actions.clear();
        drag(thumb(), thumb());
        ASSERT_EQ(slider->value(), before);
        ASSERT_EQ(log->count("valueChanged"), 0);
        ASSERT_EQ(log->count("upInside"), 1);
    }
}

TEST_F(UISliderTest, SendsItsUpEventWithoutAnyMovement)
{
    tap(thumb());
    EXPECT_EQ(log->actions, (std::vector<std::string> { "down", "upInside" }));
}

TEST_F(UISliderTest, RefusesATouchBesideItsThumb)
{
    slider->setValue(0.5F);
    for (const auto x : { 51.0, 134.0, 165.5, 249.0 }) {
        window->touchBegan({ x, 215 });
        EXPECT_FALSE(slider->isTracking()) << x;
        window->touchMoved({ x + 20, 215 });
        window->touchEnded({ x + 20, 215 });
    }
    EXPECT_EQ(slider->value(), 0.5F);
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISliderTest, IsGrabbedAnywhereOnItsThumb)
{
    slider->setValue(0.5F); // The thumb covers 134.5 to 165.5.
    for (const auto x : { 134.5, 150.0, 165.0 }) {
        window->touchBegan({ x, 200 });
        EXPECT_TRUE(slider->isTracking()) << x;
        window->touchEnded({ x, 200 });
    }
}

TEST_F(UISliderTest, HandsARefusedTouchToWhatLiesBehind)
{
    struct Ground : UIView {
        int touches = 0;
        void touchesBeganWithEvent(UIEvent&) override { ++touches; }
    };
    const auto ground = add(std::make_shared<Ground>(), { 0, 0, 320, 480 });
    ground->addSubview(slider);
    tap({ 240, 215 });
    EXPECT_EQ(ground->touches, 1);
}

TEST_F(UISliderTest, FollowsTheFingerWithTheGripItBeganWith)
{
    window->touchBegan({ 55, 215 }); // Ten and a half points left of the thumb's middle.
    window->touchMoved({ 55 + 84.5, 215 });
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    EXPECT_DOUBLE_EQ(slider->thumbRect().midX(), 100);
    window->touchMoved({ 55 + 16.9, 215 });
    EXPECT_FLOAT_EQ(slider->value(), 0.1F);
    window->touchEnded({ 55 + 16.9, 215 });
}

TEST_F(UISliderTest, IsPinnedAtItsEndsAndMeetsTheFingerAgain)
{
    window->touchBegan({ 65.5, 215 });
    window->touchMoved({ 310, 215 });
    EXPECT_EQ(slider->value(), 1);
    window->touchMoved({ 65.5 + 84.5, 215 });
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    window->touchMoved({ -100, 215 });
    EXPECT_EQ(slider->value(), 0);
    window->touchEnded({ -100, 215 });
}

TEST_F(UISliderTest, SendsValueChangedForEveryMovementThatChangesTheValue)
{
    window->touchBegan(thumb());
    window->touchMoved({ 80, 215 });
    window->touchMoved({ 80, 230 });
    window->touchMoved({ 90, 230 });
    window->touchEnded({ 90, 230 });
    EXPECT_EQ(log->actions,
        (std::vector<std::string> {
            "down", "valueChanged", "dragInside", "dragInside", "valueChanged", "dragInside", "upInside" }));
}

TEST_F(UISliderTest, SendsUpOutsideWhenReleasedFarAway)
{
    drag(thumb(), { 150, 400 });
    EXPECT_EQ(log->count("upOutside"), 1);
    EXPECT_EQ(log->count("upInside"), 0);
    EXPECT_EQ(log->count("valueChanged"), 1);
}

TEST_F(UISliderTest, SendsOneValueChangedBeforeTheUpEventWhenNotContinuous)
{
    slider->setContinuous(false);
    drag(thumb(), { 150, 215 }, 5);
    EXPECT_EQ(log->count("valueChanged"), 1);
    ASSERT_GE(log->actions.size(), 2U);
    EXPECT_EQ(log->actions[log->actions.size() - 2], "valueChanged");
    EXPECT_EQ(log->actions.back(), "upInside");
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
}

TEST_F(UISliderTest, StandsARangeOfNothing)
{
    slider->setMaximumValue(0);
    EXPECT_EQ(slider->thumbRect(), (CGRect { 0, 0, 31, 31 }));
    drag(thumb(), { 150, 215 }, 5);
    EXPECT_EQ(slider->value(), 0);
    EXPECT_EQ(log->count("valueChanged"), 0);
    EXPECT_EQ(log->count("upInside"), 1);
}

TEST_F(UISliderTest, StandsWidthsWithoutRoomForItsThumb)
{
    slider->setValue(0.25F);
    for (const auto width : { 0.0, 10.0, 31.0 }) {
        slider->setFrame({ 50, 200, width, 31 });
        window->display();
        EXPECT_EQ(slider->thumbRect(), (CGRect { 0, 0, 31, 31 })) << width;
        drag({ 52, 215 }, { 200, 215 }, 3);
        EXPECT_EQ(slider->value(), 0.25F) << width;
    }
}

TEST_F(UISliderTest, StandsEndlessRanges)
{
    slider->setMaximumValue(infinity);
    slider->setMinimumValue(-infinity);
    slider->setMinimumValue(notANumber);
    drag(thumb(), { 150, 215 }, 3);
    EXPECT_FALSE(std::isnan(slider->value()));
    EXPECT_FALSE(std::isnan(slider->thumbRect().x));
    EXPECT_EQ(slider->minimumValue(), -infinity);
}

TEST_F(UISliderTest, RunsLeftToRightInEveryLanguage)
{
    Device::current().rightToLeft = true;
    slider->setValue(0.25F);
    EXPECT_DOUBLE_EQ(slider->thumbRect().midX(), 15.5 + 0.25 * 169);
    drag(thumb(), { thumb().x + 169 * 0.5, 215 });
    EXPECT_FLOAT_EQ(slider->value(), 0.75F);
}

TEST_F(UISliderTest, IgnoresTouchesWhileDisabled)
{
    slider->setEnabled(false);
    drag(thumb(), { 150, 215 });
    EXPECT_EQ(slider->value(), 0);
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISliderTest, ShowsATintedTrackUpToItsWhiteThumbAndAGreyOneBehind)
{
    slider->setValue(0.5F);
    EXPECT_EQ(pixelAt({ 70, 215.25 }), pixelOf(style::tint()));
    EXPECT_EQ(pixelAt({ 150, 215.25 }), 0xFFFFFFFF);
    const auto rest = pixelAt({ 230, 215.25 });
    EXPECT_EQ(rest >> 16 & 255, rest >> 8 & 255);
    EXPECT_EQ(rest >> 8 & 255, rest & 255);
    EXPECT_LT(rest & 255, 230U);
}

}
