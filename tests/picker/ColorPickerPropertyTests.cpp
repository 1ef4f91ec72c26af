#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

TYPED_TEST(EveryColorPicker, KeepsItsBlocks)
{
    const auto picker
        = std::make_shared<TypeParam>(CGRect { 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    EXPECT_FALSE(picker->colorsHaveChangedBlock());
    EXPECT_FALSE(picker->saveChangesBlock());
    int calls = 0;
    picker->setColorsHaveChangedBlock([&](const UIColor&) { calls += 1; });
    picker->setSaveChangesBlock([&](const UIColor&) { calls += 10; });
    picker->colorsHaveChangedBlock()(UIColor::redColor());
    picker->saveChangesBlock()(UIColor::redColor());
    EXPECT_EQ(calls, 11);
}

// With its setters a property's view takes over the role: the picker shows and moves the new one.
TYPED_TEST(EveryColorPicker, UsesTheViewsThatAreSet)
{
    auto& picker = *this->picker;
    const auto crossHairs = std::make_shared<UIView>();
    const auto hue = std::make_shared<UILabel>();
    const auto saturation = std::make_shared<UILabel>();
    const auto brightness = std::make_shared<UILabel>();
    picker.setCrossHairs(crossHairs);
    picker.setCurrentHueLabel(hue);
    picker.setCurrentSaturationLabel(saturation);
    picker.setCurrentBrightnessLabel(brightness);
    picker.setColor(UIColor::blueColor());
    using Its = typename TestFixture::Its;
    EXPECT_EQ(crossHairs->center(), Its::crossHairs(this->shown(), Its::field(picker).frame()));
    EXPECT_EQ(hue->text(), Its::hueText("240"));
    EXPECT_EQ(saturation->text(), Its::saturationText("100"));
    EXPECT_EQ(brightness->text(), Its::brightnessText("100"));
}

TEST(VKColorPickerView_B, UsesTheViewsThatAreSet)
{
    const auto picker = std::make_shared<VKColorPickerView_B>(
        CGRect { 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    const auto field = std::make_shared<VKHueSaturationView>();
    const auto bar = std::make_shared<VKBrightnessSliderView>();
    const auto fieldEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto barEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto selector = std::make_shared<UIImageView>();
    picker->setHueSaturationView(field);
    picker->setBrightnessGradientView(bar);
    picker->setTouchEaterHueSaturation(fieldEater);
    picker->setTouchEaterBrightness(barEater);
    picker->setBrightnessSelector(selector);
    picker->setColor(UIColor::blueColor());
    picker->layoutSubviews();
    EXPECT_EQ(field->hue(), picker->currentHue);
    EXPECT_EQ(bar->hue(), picker->currentHue);
    EXPECT_EQ(fieldEater->frame(), field->frame());
    EXPECT_EQ(barEater->frame(), bar->frame());
    EXPECT_EQ(selector->center().y, bar->center().y);
}

TEST(VKColorPickerView_H, UsesTheViewsThatAreSet)
{
    const auto picker = std::make_shared<VKColorPickerView_H>(
        CGRect { 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    const auto field = std::make_shared<VKBrightnessSaturationView>();
    const auto bar = std::make_shared<VKHueSliderView>();
    const auto fieldEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto barEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto selector = std::make_shared<UIImageView>();
    picker->setBrightnessSaturationView(field);
    picker->setHueGradientView(bar);
    picker->setTouchEaterBrightnessSaturation(fieldEater);
    picker->setTouchEaterHueSaturation(barEater);
    picker->setHueSelector(selector);
    picker->setColor(UIColor::blueColor());
    picker->layoutSubviews();
    EXPECT_EQ(field->hue(), picker->currentHue);
    EXPECT_EQ(fieldEater->frame(), field->frame());
    EXPECT_EQ(barEater->frame(), bar->frame());
    EXPECT_EQ(selector->center().y, bar->center().y);
}

TEST(VKColorPickerView_S, UsesTheViewsThatAreSet)
{
    const auto picker = std::make_shared<VKColorPickerView_S>(
        CGRect { 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    const auto field = std::make_shared<VKHueBrightnessView>();
    const auto bar = std::make_shared<VKSaturationSliderView>();
    const auto fieldEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto barEater = UIButton::buttonWithType(UIButtonType::RoundedRect);
    const auto selector = std::make_shared<UIImageView>();
    picker->setHueBrightnessView(field);
    picker->setSaturationGradientView(bar);
    picker->setTouchEaterHueBrightness(fieldEater);
    picker->setTouchEaterSaturation(barEater);
    picker->setSaturationSelector(selector);
    picker->setColor(UIColor::blueColor());
    picker->layoutSubviews();
    EXPECT_EQ(field->hue(), picker->currentHue);
    EXPECT_EQ(bar->hue(), picker->currentHue);
    EXPECT_EQ(fieldEater->frame(), field->frame());
    EXPECT_EQ(barEater->frame(), bar->frame());
    EXPECT_EQ(selector->center().y, bar->center().y);
}

}
