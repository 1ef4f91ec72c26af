#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

namespace {

struct ShownColor {
    const char* name;
    UIColor color;
    const char* degrees;
    const char* saturation;
    const char* brightness;
};

const std::vector<ShownColor>& shownColors()
{
    static const std::vector<ShownColor> all {
        { "red", UIColor::redColor(), "0", "100", "100" },
        { "blue", UIColor::blueColor(), "240", "100", "100" },
        { "black", UIColor::blackColor(), "0", "0", "0" },
        { "white", UIColor::whiteColor(), "0", "0", "100" },
        { "grey", UIColor::colorWithWhiteAlpha(0.45, 1), "0", "0", "45" },
        { "a grey with a hue", UIColor::colorWithHueSaturationBrightnessAlpha(0.7, 0, 0.5, 1), "0", "0",
            "50" },
        { "nearly a full turn", UIColor::colorWithHueSaturationBrightnessAlpha(0.9999, 1, 1, 1), "360", "100",
            "100" },
        { "a full turn", UIColor::colorWithHueSaturationBrightnessAlpha(1, 1, 1, 1), "0", "100", "100" },
        { "212 degrees", UIColor::colorWithHueSaturationBrightnessAlpha(0.5889, 0.75, 0.45, 1), "212", "75",
            "45" },
        { "half clear", UIColor::colorWithRedGreenBlueAlpha(0, 0.5, 0.5, 0.5), "180", "100", "50" },
    };
    return all;
}

}

TYPED_TEST(EveryColorPicker, ReadsAColourOut)
{
    using Its = typename TestFixture::Its;
    for (const auto& [name, color, degrees, saturation, brightness] : shownColors()) {
        this->picker->setColor(color);
        EXPECT_EQ(this->picker->currentHueLabel()->text(), Its::hueText(degrees)) << name;
        EXPECT_EQ(this->picker->currentSaturationLabel()->text(), Its::saturationText(saturation)) << name;
        EXPECT_EQ(this->picker->currentBrightnessLabel()->text(), Its::brightnessText(brightness)) << name;
    }
}

TYPED_TEST(EveryColorPicker, ReadsTheColourOutThatItIsMadeWith)
{
    using Its = typename TestFixture::Its;
    for (const auto& [name, color, degrees, saturation, brightness] : shownColors()) {
        this->show(color);
        EXPECT_EQ(this->picker->currentHueLabel()->text(), Its::hueText(degrees)) << name;
        EXPECT_EQ(this->picker->currentSaturationLabel()->text(), Its::saturationText(saturation)) << name;
        EXPECT_EQ(this->picker->currentBrightnessLabel()->text(), Its::brightnessText(brightness)) << name;
    }
}

TYPED_TEST(EveryColorPicker, TakesTheComponentsFromTheColour)
{
    const auto color = UIColor::colorWithRedGreenBlueAlpha(0.3, 0.7, 0.9, 0.25);
    Hsb expected;
    ASSERT_TRUE(color.getHueSaturationBrightnessAlpha(
        &expected.hue, &expected.saturation, &expected.brightness, nullptr));
    this->picker->setColor(color);
    EXPECT_EQ(this->shown(), expected);
}

TYPED_TEST(EveryColorPicker, ShowsWithoutCommitting)
{
    this->picker->setColor(UIColor::blueColor());
    this->picker->setColor(UIColor::whiteColor());
    EXPECT_EQ(this->picker->color(), UIColor::redColor());
    EXPECT_TRUE(this->changed.empty());
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, FillsTheCrossHairWithTheColourAsItIs)
{
    for (const auto& color : { UIColor::colorWithRedGreenBlueAlpha(0.1, 0.2, 0.3, 0.4),
             UIColor::colorWithWhiteAlpha(0.5, 0.5), UIColor::blackColor() }) {
        this->picker->setColor(color);
        EXPECT_EQ(this->picker->crossHairs()->layer().backgroundColor(), color.cgColor());
    }
}

TYPED_TEST(EveryColorPicker, LeavesTheComponentsAloneForNoColour)
{
    using Its = typename TestFixture::Its;
    this->picker->setColor(UIColor::blueColor());
    const auto before = this->shown();
    const auto text = this->picker->currentHueLabel()->text();
    this->picker->setColor(std::nullopt);
    EXPECT_EQ(this->shown(), before);
    EXPECT_EQ(this->picker->currentHueLabel()->text(), text);
    EXPECT_EQ(text, Its::hueText("240"));
    EXPECT_EQ(this->picker->crossHairs()->layer().backgroundColor(), std::nullopt);
}

TYPED_TEST(EveryColorPicker, PlacesBothMarkers)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    int roundedMarkers = 0;
    for (const auto& hsb : { Hsb { 0.1, 0.2, 0.3 }, Hsb { 0.7, 0.9, 0.4 }, Hsb { 0.33, 0.05, 0.99 } }) {
        picker.setColor(
            UIColor::colorWithHueSaturationBrightnessAlpha(hsb.hue, hsb.saturation, hsb.brightness, 1));
        const auto field = Its::field(picker).frame();
        const auto bar = Its::bar(picker).frame();
        EXPECT_EQ(picker.crossHairs()->center(), Its::crossHairs(this->shown(), field));
        const auto exact = Its::barSelectorX(this->shown(), bar);
        EXPECT_EQ(Its::barSelector(picker).center(),
            (CGPoint { static_cast<double>(static_cast<float>(exact)), bar.midY() }));
        roundedMarkers += static_cast<double>(static_cast<float>(exact)) != exact;
    }
    EXPECT_GT(roundedMarkers, 0) << "no position that single precision changes";
}

TYPED_TEST(EveryColorPicker, PlacesTheMarkersFromTheComponents)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    picker.currentHue = 0.25;
    picker.currentSaturation = 0.5;
    picker.currentBrightness = 0.125;
    const auto selector = Its::barSelector(picker).center();
    picker._updateCrosshairPosition();
    EXPECT_EQ(picker.crossHairs()->center(), Its::crossHairs(this->shown(), Its::field(picker).frame()));
    EXPECT_EQ(Its::barSelector(picker).center(), selector);
    Its::updateBarSelectorPosition(picker);
    EXPECT_EQ(
        Its::barSelector(picker).center().x, Its::barSelectorX(this->shown(), Its::bar(picker).frame()));
}

TYPED_TEST(EveryColorPicker, RefreshesOneSideAtATime)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const auto field = std::pair(Its::topLeft(picker).text(), Its::topRight(picker).text());
    const auto caption = Its::caption(picker).text();
    picker.currentHue = 0.0014; // 0.504 degrees
    picker.currentSaturation = 0.005;
    picker.currentBrightness = 0.125;

    Its::updateBarSelector(picker);
    EXPECT_NE(Its::caption(picker).text(), caption);
    EXPECT_EQ(std::pair(Its::topLeft(picker).text(), Its::topRight(picker).text()), field);

    Its::updateFieldSelector(picker);
    EXPECT_EQ(picker.currentHueLabel()->text(), Its::hueText("1"));
    EXPECT_EQ(picker.currentSaturationLabel()->text(), Its::saturationText("1"));
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), Its::brightnessText("13"));
}

// What the gradient views have been told.

const auto someColor = UIColor::colorWithHueSaturationBrightnessAlpha(0.25, 0.5, 0.75, 1);

TEST(VKColorPickerView_B, TellsItsGradientsTheColour)
{
    VKColorPickerView_B picker({ 0, 0, 276, 380 }, someColor, nullptr, nullptr);
    EXPECT_EQ(picker.hueSaturationView()->hue(), picker.currentHue);
    EXPECT_EQ(picker.hueSaturationView()->saturation(), picker.currentSaturation);
    EXPECT_EQ(picker.hueSaturationView()->brightness(), picker.currentBrightness);
    EXPECT_EQ(picker.brightnessGradientView()->hue(), picker.currentHue);
    EXPECT_EQ(picker.brightnessGradientView()->saturation(), picker.currentSaturation);
    EXPECT_NE(picker.currentBrightness, 0);
}

TEST(VKColorPickerView_B, TellsTheOtherGradientOfAChange)
{
    VKColorPickerView_B picker({ 0, 0, 276, 380 }, someColor, nullptr, nullptr);
    picker.currentHue = 0.125;
    picker._updateHueSaturationSelector();
    EXPECT_EQ(picker.brightnessGradientView()->hue(), 0.125);
    EXPECT_NE(picker.hueSaturationView()->hue(), 0.125);
    picker._updateBrightnessSelector();
    EXPECT_EQ(picker.hueSaturationView()->hue(), 0.125);
}

TEST(VKColorPickerView_H, TellsItsFieldTheHue)
{
    VKColorPickerView_H picker({ 0, 0, 276, 380 }, someColor, nullptr, nullptr);
    EXPECT_EQ(picker.brightnessSaturationView()->hue(), picker.currentHue);
    picker.currentHue = 0.125;
    picker._updateBrigntessSaturationSelector();
    EXPECT_NE(picker.brightnessSaturationView()->hue(), 0.125);
    picker._updateHueSelector();
    EXPECT_EQ(picker.brightnessSaturationView()->hue(), 0.125);
}

TEST(VKColorPickerView_S, TellsItsGradientsTheColour)
{
    VKColorPickerView_S picker({ 0, 0, 276, 380 }, someColor, nullptr, nullptr);
    EXPECT_EQ(picker.hueBrightnessView()->hue(), picker.currentHue);
    EXPECT_EQ(picker.hueBrightnessView()->saturation(), picker.currentSaturation);
    EXPECT_EQ(picker.hueBrightnessView()->brightness(), picker.currentBrightness);
    EXPECT_EQ(picker.saturationGradientView()->hue(), picker.currentHue);
    EXPECT_EQ(picker.saturationGradientView()->brightness(), picker.currentBrightness);
    EXPECT_NE(picker.currentSaturation, 0);
}

TEST(VKColorPickerView_S, TellsTheOtherGradientOfAChange)
{
    VKColorPickerView_S picker({ 0, 0, 276, 380 }, someColor, nullptr, nullptr);
    picker.currentHue = 0.125;
    picker._updateHueBrigntesSelector();
    EXPECT_EQ(picker.saturationGradientView()->hue(), 0.125);
    EXPECT_NE(picker.hueBrightnessView()->hue(), 0.125);
    picker._updateSaturationSelector();
    EXPECT_EQ(picker.hueBrightnessView()->hue(), 0.125);
}

// The texts of each kind, in full.

TEST(VKColorPickerView_B, NamesItsReadOuts)
{
    VKColorPickerView_B picker({ 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    EXPECT_EQ(picker.currentSaturationLabel()->text(), "Saturation: 100%");
    EXPECT_EQ(picker.currentHueLabel()->text(), "0\u00B0 : Hue");
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), "100%");
}

TEST(VKColorPickerView_H, NamesItsReadOuts)
{
    VKColorPickerView_H picker({ 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), "Brightness: 100%");
    EXPECT_EQ(picker.currentSaturationLabel()->text(), "100% :Saturation");
    EXPECT_EQ(picker.currentHueLabel()->text(), "0\u00B0");
}

TEST(VKColorPickerView_S, NamesItsReadOuts)
{
    VKColorPickerView_S picker({ 0, 0, 276, 380 }, UIColor::redColor(), nullptr, nullptr);
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), "Brightness: 100%");
    EXPECT_EQ(picker.currentHueLabel()->text(), "0\u00B0 : Hue");
    EXPECT_EQ(picker.currentSaturationLabel()->text(), "100%");
}

}
