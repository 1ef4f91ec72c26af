#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

namespace {

constexpr std::size_t topRightButtonPlace = 10;
constexpr std::size_t topLeftButtonPlace = 11;
constexpr std::size_t captionButtonPlace = 12;

/// What the platform makes of components, and gives back.
Hsb readBack(Hsb hsb)
{
    Hsb result;
    EXPECT_TRUE(
        UIColor::colorWithHueSaturationBrightnessAlpha(hsb.hue, hsb.saturation, hsb.brightness, 1)
            .getHueSaturationBrightnessAlpha(&result.hue, &result.saturation, &result.brightness, nullptr));
    return result;
}

}

TYPED_TEST(EveryColorPicker, OpensTheDialogOfTheReadOutThatIsTapped)
{
    using Its = typename TestFixture::Its;
    const std::pair<std::size_t, long> buttons[] = {
        { topLeftButtonPlace, Its::topLeftTag },
        { topRightButtonPlace, Its::topRightTag },
        { captionButtonPlace, Its::captionTag },
    };
    for (const auto& [place, tag] : buttons) {
        this->tapView(*this->picker->subviews()[place]);
        EXPECT_EQ(this->alert().tag(), tag) << place;
        this->answer("", "Cancel");
        EXPECT_FALSE(shownAlert(this->window));
    }
}

TYPED_TEST(EveryColorPicker, OpensTheDialogByTheLabelUnderTheButton)
{
    using Its = typename TestFixture::Its;
    const std::pair<UILabel*, long> labels[] = {
        { this->picker->currentHueLabel().get(), 3026 },
        { this->picker->currentBrightnessLabel().get(), 3027 },
        { this->picker->currentSaturationLabel().get(), 3028 },
    };
    for (const auto& [label, tag] : labels) {
        const auto frame = label->frame();
        this->tap({ frame.x + 2, frame.midY() });
        EXPECT_EQ(this->alert().tag(), tag);
        this->answer("", "Cancel");
    }
    const auto before = this->shown();
    this->touch({ Its::topLeft(*this->picker).frame().midX(), 15 });
    this->lift({ 140, 200 });
    EXPECT_FALSE(shownAlert(this->window)) << "released outside";
    EXPECT_EQ(this->shown(), before);
}

TYPED_TEST(EveryColorPicker, AsksWithTheCurrentValue)
{
    this->picker->setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0.5, 0.25, 0.45, 1));
    this->picker->askUserForHue();
    EXPECT_EQ(this->alert().message(),
        "Please enter a Hue value between 0\u00B0 and 360\u00B0\n current value is: 180\u00B0");
    this->answer("", "Cancel");
    this->picker->askUserForBrightness();
    EXPECT_EQ(this->alert().message(),
        "Please enter a Brightness value between 0% and 100%\n current value is: 45%");
    this->answer("", "Cancel");
    this->picker->askUserForSaturation();
    EXPECT_EQ(this->alert().message(),
        "Please enter a Saturation value between 0% and 100%\n current value is: 25%");
    EXPECT_EQ(this->alert().title(), std::nullopt);
    EXPECT_EQ(this->alert().alertViewStyle(), UIAlertViewStyle::PlainTextInput);
    EXPECT_EQ(this->alert().textFieldAtIndex(0)->keyboardType(), UIKeyboardType::NumberPad);
    EXPECT_EQ(this->alert().textFieldAtIndex(0)->text(), "");
    this->answer("", "Cancel");
}

TYPED_TEST(EveryColorPicker, AsksByName)
{
    this->picker->performSelector("askUserForSaturation");
    EXPECT_EQ(this->alert().tag(), 3028);
    this->answer("", "Cancel");
}

TYPED_TEST(EveryColorPicker, ShowsCommitsAndSavesWhatIsTyped)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    picker.setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0.25, 0.5, 0.75, 1));
    const auto before = this->shown();
    picker.askUserForBrightness();
    this->answer("50", "OK");

    const auto typed = UIColor::colorWithHueSaturationBrightnessAlpha(before.hue, before.saturation, 0.5, 1);
    EXPECT_EQ(picker.color(), typed);
    EXPECT_EQ(this->changed, std::vector { typed });
    EXPECT_EQ(this->saved, std::vector { typed });
    EXPECT_EQ(this->shown(), readBack({ before.hue, before.saturation, 0.5 }));
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), Its::brightnessText("50"));
    EXPECT_EQ(picker.crossHairs()->center(), Its::crossHairs(this->shown(), Its::field(picker).frame()));
    EXPECT_EQ(Its::barSelector(picker).center().x,
        static_cast<float>(Its::barSelectorX(this->shown(), Its::bar(picker).frame())));
    EXPECT_EQ(picker.crossHairs()->layer().backgroundColor(), typed.cgColor());
}

TYPED_TEST(EveryColorPicker, ChangesNothingOnCancel)
{
    const auto before = this->shown();
    for (const auto ask :
        { &TypeParam::askUserForHue, &TypeParam::askUserForSaturation, &TypeParam::askUserForBrightness }) {
        (*this->picker.*ask)();
        this->answer("50", "Cancel");
        EXPECT_FALSE(shownAlert(this->window));
    }
    EXPECT_EQ(this->shown(), before);
    EXPECT_TRUE(this->changed.empty());
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, TakesAnEmptyFieldAsZero)
{
    this->picker->askUserForSaturation();
    this->answer("", "OK");
    EXPECT_EQ(this->shown(), (Hsb { 0, 0, 1 }));
    EXPECT_EQ(this->changed.size(), 1u);
    EXPECT_EQ(this->saved, this->changed);
}

TYPED_TEST(EveryColorPicker, SavesACurrentValueTypedAgain)
{
    this->picker->askUserForBrightness();
    this->answer("100", "OK");
    EXPECT_TRUE(this->changed.empty());
    EXPECT_EQ(this->saved, std::vector { UIColor::redColor() });
}

TYPED_TEST(EveryColorPicker, TakesAFullTurnAsNone)
{
    using Its = typename TestFixture::Its;
    this->picker->askUserForHue();
    this->answer("360", "OK");
    EXPECT_EQ(this->shown(), (Hsb { 0, 1, 1 }));
    EXPECT_EQ(this->picker->currentHueLabel()->text(), Its::hueText("0"));
    EXPECT_TRUE(this->changed.empty()) << "the same red";
}

TYPED_TEST(EveryColorPicker, ForgetsHueAndSaturationOfBlack)
{
    this->picker->setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0.5, 0.5, 0.5, 1));
    this->picker->askUserForBrightness();
    this->answer("0", "OK");
    EXPECT_EQ(this->shown(), Hsb {});
}

TYPED_TEST(EveryColorPicker, LetsThePlatformClampWhatIsTyped)
{
    struct Typed {
        const char* text;
        double degrees;
        double percent;
    };
    // The values that the colour is made of, after its own clamping.
    const Typed cases[] = {
        { "720", 0, 100 },
        { "150", 150, 100 },
        { "-50", 0, 0 },
        { "12.5", 12.5, 12.5 },
        { "1e99", 0, 100 },
        { "-1e99", 0, 0 },
        { "99999999999999999999", 0, 100 },
        { "inf", 0, 0 },
        { "junk", 0, 0 },
        { " 30x", 30, 30 },
    };
    for (const auto& [text, degrees, percent] : cases) {
        this->show();
        this->picker->askUserForHue();
        this->answer(text, "OK");
        EXPECT_NEAR(this->picker->currentHue * 360, degrees, 1e-6) << text;
        this->show();
        this->picker->askUserForBrightness();
        this->answer(text, "OK");
        EXPECT_NEAR(this->picker->currentBrightness * 100, percent, 1e-6) << text;
        this->show();
        this->picker->askUserForSaturation();
        this->answer(text, "OK");
        EXPECT_NEAR(this->picker->currentSaturation * 100, percent, 1e-6) << text;
    }
}

TYPED_TEST(EveryColorPicker, ReadsTheTypedTextThroughSinglePrecision)
{
    this->picker->setColor(UIColor::whiteColor());
    this->picker->askUserForBrightness();
    this->answer("33.3", "OK");
    EXPECT_EQ(this->shown(), readBack({ 0, 0, static_cast<double>(33.3f) / 100.0 }));
}

TYPED_TEST(EveryColorPicker, OnlySavesForAnAlertOfAnotherTag)
{
    const auto other
        = UIAlertView::make({ .message = "", .cancelButtonTitle = "Cancel", .otherButtonTitles = { "OK" } });
    other->setTag(2626);
    const auto before = this->shown();
    this->picker->alertViewClickedButtonAtIndex(*other, 0);
    EXPECT_TRUE(this->saved.empty());
    this->picker->alertViewClickedButtonAtIndex(*other, 1);
    EXPECT_EQ(this->saved, std::vector { UIColor::redColor() });
    EXPECT_TRUE(this->changed.empty());
    EXPECT_EQ(this->shown(), before);
}

TYPED_TEST(EveryColorPicker, AsksForOneValueAboveAnother)
{
    this->picker->askUserForHue();
    this->picker->askUserForBrightness();
    EXPECT_EQ(this->alert().tag(), 3027);
    this->answer("50", "OK");
    EXPECT_EQ(this->alert().tag(), 3026);
    this->answer("90", "OK");
    EXPECT_FALSE(shownAlert(this->window));
    EXPECT_EQ(this->shown(), readBack({ 0.25, 1, 0.5 }));
    EXPECT_EQ(this->saved.size(), 2u);
}

TYPED_TEST(EveryColorPicker, MayGoWhileItsDialogIsShown)
{
    this->picker->askUserForHue();
    this->picker->askUserForBrightness();
    this->picker->removeFromSuperview();
    this->picker.reset();
    this->answer("50", "OK");
    this->answer("50", "OK");
    EXPECT_FALSE(shownAlert(this->window));
    EXPECT_TRUE(this->changed.empty());
    EXPECT_TRUE(this->saved.empty());
}

}
