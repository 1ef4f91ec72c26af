#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

TYPED_TEST(EveryColorPicker, TakesTheComponentsUnderTheFingerInTheField)
{
    using Its = typename TestFixture::Its;
    for (const auto& [across, down] :
        { std::pair(0.0, 0.0), std::pair(0.5, 0.25), std::pair(0.125, 0.875), std::pair(255.0 / 256, 0.5) }) {
        const auto before = this->shown();
        const auto point = this->inField(across, down);
        this->tap(point);
        EXPECT_EQ(this->shown(), Its::fromField(before, across, down));
        EXPECT_EQ(this->picker->crossHairs()->center(), point);
        EXPECT_EQ(this->picker->color(), this->shownColor());
    }
}

TYPED_TEST(EveryColorPicker, TakesTheComponentUnderTheFingerInTheBar)
{
    using Its = typename TestFixture::Its;
    for (const auto across : { 0.0, 0.125, 0.5, 255.0 / 256 }) {
        const auto before = this->shown();
        const auto point = this->inBar(across, 0.25);
        this->tap(point);
        EXPECT_EQ(this->shown(), Its::fromBar(before, across));
        EXPECT_EQ(Its::barSelector(*this->picker).center(),
            (CGPoint { point.x, Its::bar(*this->picker).center().y }));
        EXPECT_EQ(this->picker->color(), this->shownColor());
    }
}

TYPED_TEST(EveryColorPicker, ReadsTheTouchOut)
{
    using Its = typename TestFixture::Its;
    this->picker->currentHue = 0.5;
    this->picker->currentSaturation = 0.125;
    this->picker->currentBrightness = 0.125;
    const auto want = this->shown();
    const auto point = Its::crossHairs(want, Its::field(*this->picker).frame());
    const auto x = Its::barSelectorX(want, Its::bar(*this->picker).frame());
    this->picker->setColor(UIColor::redColor());

    this->tap(point);
    this->tap({ x, this->inBar(0).y });
    EXPECT_EQ(this->shown(), want);
    EXPECT_EQ(this->picker->currentHueLabel()->text(), Its::hueText("180"));
    EXPECT_EQ(this->picker->currentSaturationLabel()->text(), Its::saturationText("13"));
    EXPECT_EQ(this->picker->currentBrightnessLabel()->text(), Its::brightnessText("13"));
}

TYPED_TEST(EveryColorPicker, MovesOnlyTheMarkerUnderTheFinger)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const auto selector = Its::barSelector(picker).center();
    this->tap(this->inField(0.25, 0.75));
    EXPECT_EQ(Its::barSelector(picker).center(), selector);
    const auto crossHairs = picker.crossHairs()->center();
    this->tap(this->inBar(0.25));
    EXPECT_EQ(picker.crossHairs()->center(), crossHairs);
}

TYPED_TEST(EveryColorPicker, FillsTheCrossHairWithThePickedColour)
{
    this->picker->setColor(UIColor::colorWithRedGreenBlueAlpha(1, 0.5, 0, 0.25));
    this->tap(this->inField(0.5, 0.25));
    EXPECT_EQ(this->picker->crossHairs()->layer().backgroundColor(), this->shownColor().cgColor());
    this->tap(this->inBar(0.25));
    EXPECT_EQ(this->picker->crossHairs()->layer().backgroundColor(), this->shownColor().cgColor());
    EXPECT_EQ(this->shownColor().cgColor().components()[3], 1);
}

TYPED_TEST(EveryColorPicker, ChangesNothingUntilATapLifts)
{
    const auto before = this->shown();
    this->touch(this->inField(0.5, 0.25));
    EXPECT_EQ(this->shown(), before);
    EXPECT_TRUE(this->changed.empty());
    this->lift(this->inField(0.5, 0.25));
    EXPECT_NE(this->shown(), before);
    EXPECT_EQ(this->changed, std::vector { this->shownColor() });
    EXPECT_EQ(this->saved, std::vector { this->shownColor() });
}

TYPED_TEST(EveryColorPicker, SavesOnEachTouchUp)
{
    this->tap(this->inField(0.5, 0.25));
    this->tap(this->inField(0.5, 0.25));
    EXPECT_EQ(this->changed.size(), 1u) << "the second tap picks the same colour";
    ASSERT_EQ(this->saved.size(), 2u);
    EXPECT_EQ(this->saved[0], this->saved[1]);
    this->tap(this->inBar(0.5));
    EXPECT_EQ(this->saved.size(), 3u);
}

TYPED_TEST(EveryColorPicker, SavesNothingForACancelledTouch)
{
    this->touch(this->inField(0.5, 0.25));
    this->move(this->inField(0.25, 0.25));
    this->window.touchCancelled();
    EXPECT_EQ(this->changed.size(), 1u);
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, RoutesAMovedLocationAsAnEndedOne)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    for (const auto isMoving : { true, false }) {
        picker.setColor(UIColor::redColor());
        const auto before = this->shown();
        picker.dispatchTouchEventIsMoving(this->inField(0.25, 0.75), isMoving);
        EXPECT_EQ(this->shown(), Its::fromField(before, 0.25, 0.75));
        picker.dispatchTouchEventIsMoving(this->inBar(0.75), isMoving);
        EXPECT_EQ(this->shown(), Its::fromBar(Its::fromField(before, 0.25, 0.75), 0.75));
    }
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, DoesNotClampAPointGivenToItDirectly)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const auto before = this->shown();
    const auto crossHairs = picker.crossHairs()->center();
    Its::updateFieldWithTouch(picker, this->inField(1.5, -0.5));
    EXPECT_EQ(this->shown(), Its::fromField(before, 1.5, -0.5));
    EXPECT_EQ(picker.color(), this->shownColor()) << "the colour clamps";
    EXPECT_EQ(picker.crossHairs()->center(), crossHairs);
    Its::updateBarWithTouch(picker, this->inBar(-0.25));
    EXPECT_EQ(this->shown(), Its::fromBar(Its::fromField(before, 1.5, -0.5), -0.25));
}

TYPED_TEST(EveryColorPicker, SavesForAnEndWithoutATouch)
{
    this->picker->touchesMovedButtonWithEvent(nullptr, nullptr);
    EXPECT_TRUE(this->saved.empty());
    this->picker->touchesEndedButtonWithEvent(nullptr, nullptr);
    EXPECT_EQ(this->saved, std::vector { UIColor::redColor() });
    EXPECT_TRUE(this->changed.empty());
}

TYPED_TEST(EveryColorPicker, LetsTouchesThroughTheMarkersOverTheFieldAndBar)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    this->tap(this->inField(0.5, 0.5));
    this->saved.clear();
    this->tap(picker.crossHairs()->center());
    this->tap(Its::barSelector(picker).center());
    EXPECT_EQ(this->saved.size(), 2u);
}

// A drag along the black edge changes the components but never the colour.
TEST(VKColorPickerView_S, StaysSilentAlongTheBlackEdge)
{
    int changes = 0;
    VKColorPickerView_S picker(
        { 0, 0, 276, 380 }, UIColor::redColor(), [&](const UIColor&) { ++changes; }, nullptr);
    const auto field = picker.hueBrightnessView()->frame();
    for (double x = field.x; x < field.maxX(); x += 16)
        picker.dispatchTouchEventIsMoving({ x, field.maxY() }, true);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(picker.currentHue, 240.0 / 256);
    EXPECT_EQ(picker.currentBrightness, 0);
}

TEST(VKColorPickerView_B, TurnsBlackAtTheBarsRightEdge)
{
    VKColorPickerView_B picker({ 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    const auto bar = picker.brightnessGradientView()->frame();
    picker.dispatchTouchEventIsMoving({ bar.maxX() + 3, bar.y }, true);
    EXPECT_EQ(picker.currentBrightness, 0);
    EXPECT_EQ(picker.hueSaturationView()->brightness(), 0);
    EXPECT_EQ(picker.color(), UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1));
}

}
