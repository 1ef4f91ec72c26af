#include "PickerFixture.h"

#include "platform/Device.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <type_traits>
#include <unistd.h>

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

namespace {

constexpr unsigned labelMask = 15;
constexpr unsigned gradientMask = 10;

/// The subviews, from the bottom up.
enum Place {
    TopLeft,
    TopRight,
    Field,
    CrossHairs,
    CaptionTitle,
    Caption,
    Bar,
    BarSelector,
    FieldEater,
    BarEater,
    TopRightButton,
    TopLeftButton,
    CaptionButton,
    NumberOfPlaces
};

UIView& at(const UIView& picker, Place place)
{
    return *picker.subviews().at(place);
}

void expectLabel(const UIView& view, const std::string& text, NSTextAlignment alignment)
{
    const auto* label = dynamic_cast<const UILabel*>(&view);
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text(), text);
    EXPECT_EQ(label->textAlignment(), alignment);
    EXPECT_EQ(label->numberOfLines(), 1);
    EXPECT_EQ(label->textColor(), UIColor::blueColor());
    EXPECT_EQ(label->layer().backgroundColor(), UIColor::clearColor().cgColor());
    EXPECT_EQ(label->font(), UIFont {});
    EXPECT_EQ(label->autoresizingMask(), labelMask);
}

void expectValueButton(const UIView& view, const UIView* over)
{
    const auto* button = dynamic_cast<const UIButton*>(&view);
    ASSERT_TRUE(button);
    EXPECT_EQ(button->currentTitle(), "");
    EXPECT_EQ(button->layer().cornerRadius(), 5);
    EXPECT_EQ(
        button->layer().backgroundColor(), UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0.04).cgColor());
    EXPECT_EQ(button->autoresizingMask(), labelMask);
    if (over) {
        EXPECT_EQ(button->frame(), over->frame());
    }
}

void expectTouchEater(const UIView& view, const UIView& over)
{
    const auto* button = dynamic_cast<const UIButton*>(&view);
    ASSERT_TRUE(button);
    EXPECT_EQ(button->frame(), over.frame());
    EXPECT_EQ(button->currentTitle(), "");
    EXPECT_EQ(button->alpha(), 1);
    EXPECT_EQ(button->layer().backgroundColor(), std::nullopt);
    EXPECT_EQ(button->autoresizingMask(), 0u);
}

void expectGradientView(const UIView& view)
{
    EXPECT_EQ(view.layer().borderWidth(), 1);
    EXPECT_EQ(view.layer().cornerRadius(), 6);
    EXPECT_EQ(view.layer().borderColor(), UIColor::blackColor().cgColor());
    EXPECT_TRUE(view.layer().masksToBounds());
    EXPECT_EQ(view.autoresizingMask(), gradientMask);
}

}

TYPED_TEST(EveryColorPicker, IsAClassOfItsOwn)
{
    static_assert(std::is_final_v<TypeParam>);
    static_assert(std::is_base_of_v<UIView, TypeParam>);
    const auto* registered = NSClassFromString(TestFixture::Its::className);
    ASSERT_TRUE(registered);
    EXPECT_EQ(platform::Class::ofObject(*this->picker), registered);
    EXPECT_EQ(this->picker->className(), TestFixture::Its::className);
}

TYPED_TEST(EveryColorPicker, AnswersItsActionsByName)
{
    for (const auto* selector : { "touchesMovedButton:withEvent:", "touchesEndedButton:withEvent:",
             "askUserForHue", "askUserForSaturation", "askUserForBrightness" })
        EXPECT_TRUE(this->picker->respondsToSelector(selector)) << selector;
}

TYPED_TEST(EveryColorPicker, StacksItsViewsByRole)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    ASSERT_EQ(picker.subviews().size(), NumberOfPlaces);
    const std::pair<Place, const UIView*> named[] = {
        { TopLeft, &Its::topLeft(picker) },
        { TopRight, &Its::topRight(picker) },
        { Field, &Its::field(picker) },
        { CrossHairs, picker.crossHairs().get() },
        { Caption, &Its::caption(picker) },
        { Bar, &Its::bar(picker) },
        { BarSelector, &Its::barSelector(picker) },
        { FieldEater, &Its::fieldEater(picker) },
        { BarEater, &Its::barEater(picker) },
    };
    for (const auto& [place, view] : named)
        EXPECT_EQ(&at(picker, place), view) << place;
    EXPECT_EQ(Its::field(picker).className(), Its::fieldClass);
    EXPECT_EQ(Its::bar(picker).className(), Its::barClass);
}

TYPED_TEST(EveryColorPicker, HasTheLookOfItsKind)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    // Red.
    expectLabel(Its::topLeft(picker), Its::topLeft(picker).text(), NSTextAlignment::Left);
    expectLabel(Its::topRight(picker), Its::topRight(picker).text(), NSTextAlignment::Right);
    expectLabel(at(picker, CaptionTitle), Its::captionTitle, NSTextAlignment::Right);
    expectLabel(Its::caption(picker), Its::caption(picker).text(), NSTextAlignment::Left);
    expectGradientView(Its::field(picker));
    expectGradientView(Its::bar(picker));
    expectTouchEater(Its::fieldEater(picker), Its::field(picker));
    expectTouchEater(Its::barEater(picker), Its::bar(picker));
    expectValueButton(at(picker, TopLeftButton), &Its::topLeft(picker));
    expectValueButton(at(picker, TopRightButton), &Its::topRight(picker));
    expectValueButton(at(picker, CaptionButton), nullptr);
}

TYPED_TEST(EveryColorPicker, HasARoundMarkerWithAShadow)
{
    const auto& crossHairs = *this->picker->crossHairs();
    EXPECT_EQ(typeid(crossHairs), typeid(UIView));
    EXPECT_EQ(crossHairs.frame().size(), (CGSize { 20, 20 }));
    EXPECT_EQ(crossHairs.autoresizingMask(), 0u);
    const auto& layer = crossHairs.layer();
    EXPECT_EQ(layer.cornerRadius(), 10);
    EXPECT_EQ(layer.borderColor(), UIColor::colorWithWhiteAlpha(1, 0.5).cgColor());
    EXPECT_EQ(layer.borderWidth(), 1);
    EXPECT_EQ(layer.shadowColor(), UIColor::blackColor().cgColor());
    EXPECT_EQ(layer.shadowOffset(), CGSize {});
    EXPECT_EQ(layer.shadowRadius(), 1);
    EXPECT_EQ(layer.shadowOpacity(), 1);
    EXPECT_FALSE(layer.masksToBounds()) << "which would cut the shadow off";
}

TYPED_TEST(EveryColorPicker, MeasuresALineOfText)
{
    UILabel label({ 10, 10, 118, 40 });
    label.setText("Brightness:");
    label.sizeToFit();
    EXPECT_EQ(this->picker->labelHeight, label.frame().height);
    EXPECT_GT(this->picker->labelHeight, 0);
}

TYPED_TEST(EveryColorPicker, LaysItsViewsOut)
{
    using Its = typename TestFixture::Its;
    for (const auto& [width, height] :
        { CGSize { 320, 380 }, CGSize { 375, 380 }, CGSize { 768.5, 612.25 } }) {
        const auto owned = this->make({ width, height }, UIColor::redColor());
        auto& picker = *owned;
        const auto line = picker.labelHeight;
        EXPECT_EQ(picker.frame(), (CGRect { 16, 24, width, height }));
        const std::pair<Place, CGRect> places[] = {
            { TopLeft, { 10, 10, width / 2 - 20, line } },
            { TopRight, { width / 2 + 10, 10, width / 2 - 20, line } },
            { Field, { 10, line + 20, width - 20, height - 100 - line } },
            { CaptionTitle, { width / 2 - 100, height - 70, 100, line } },
            { Caption, { width / 2 + 2, height - 70, 100, line } },
            { CaptionButton, { width / 2 - 100, height - 70, 200, line } },
            { Bar, { 10, height - 66 + line, width - 20, 40 } },
        };
        for (const auto& [place, expected] : places)
            EXPECT_EQ(at(picker, place).frame(), expected) << "place " << place << ", width " << width;
        EXPECT_EQ(Its::barSelector(picker).frame().size(), (CGSize { 16, 48 }));
        EXPECT_EQ(Its::field(picker).frame().maxY(), height - 80);
    }
}

TYPED_TEST(EveryColorPicker, IsLaidOutFromTheStartAsItIsLater)
{
    const auto picker = this->make({ 320, 380 }, UIColor::redColor());
    std::vector<CGRect> before;
    for (const auto& view : picker->subviews())
        before.push_back(view->frame());
    this->window.addSubview(picker);
    this->window.display();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(picker->subviews()[i]->frame(), before[i]) << i;
}

TYPED_TEST(EveryColorPicker, StartsWithTheColourWithoutCallingABlock)
{
    const auto color = UIColor::colorWithRedGreenBlueAlpha(0.2, 0.4, 0.6, 0.5);
    this->show(color);
    EXPECT_EQ(this->picker->color(), color);
    EXPECT_TRUE(this->changed.empty());
    EXPECT_TRUE(this->saved.empty());
    EXPECT_EQ(this->picker->crossHairs()->layer().backgroundColor(), color.cgColor());
}

TYPED_TEST(EveryColorPicker, StartsFromNothingWithoutAColour)
{
    using Its = typename TestFixture::Its;
    this->show(std::nullopt);
    auto& picker = *this->picker;
    EXPECT_EQ(picker.color(), std::nullopt);
    EXPECT_EQ(this->shown(), Hsb {});
    EXPECT_EQ(picker.currentHueLabel()->text(), Its::hueText("0"));
    EXPECT_EQ(picker.currentSaturationLabel()->text(), Its::saturationText("0"));
    EXPECT_EQ(picker.currentBrightnessLabel()->text(), Its::brightnessText("0"));
    EXPECT_EQ(picker.crossHairs()->center(), Its::crossHairs({}, Its::field(picker).frame()));
    EXPECT_EQ(picker.crossHairs()->layer().backgroundColor(), std::nullopt);
}

TYPED_TEST(EveryColorPicker, ShowsNoMarkerWithoutItsImage)
{
    auto& selector = TestFixture::Its::barSelector(*this->picker);
    EXPECT_FALSE(selector.image());
    EXPECT_EQ(selector.layer().backgroundColor(), UIColor::clearColor().cgColor());
    EXPECT_EQ(selector.autoresizingMask(), 0u);
}

TYPED_TEST(EveryColorPicker, ShowsTheBundlesMarkerImage)
{
    // One grey pixel.
    static constexpr std::array<unsigned char, 67> png { 0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00,
        0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x00,
        0x00, 0x00, 0x00, 0x3A, 0x7E, 0x9B, 0x55, 0x00, 0x00, 0x00, 0x0A, 0x49, 0x44, 0x41, 0x54, 0x78, 0xDA,
        0x63, 0x68, 0x00, 0x00, 0x00, 0x82, 0x00, 0x81, 0xDA, 0x45, 0x08, 0x3B, 0x00, 0x00, 0x00, 0x00, 0x49,
        0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82 };
    namespace fs = std::filesystem;
    const auto root = fs::path(testing::TempDir()) / ("picker-root-" + std::to_string(getpid()));
    const auto folder = root / "Library/PreferenceBundles/Vekora.bundle";
    fs::create_directories(folder);
    std::ofstream(folder / "Selector.png", std::ios::binary)
        .write(reinterpret_cast<const char*>(png.data()), png.size());
    auto& device = Device::current();
    const auto before = std::exchange(device.root, root.string());

    this->show();
    const auto& image = TestFixture::Its::barSelector(*this->picker).image();

    device.root = before;
    fs::remove_all(root);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (CGSize { 1, 1 }));
}

// What stands in a read-out before the first colour is shown; in one kind, on purpose, another label's text.
TEST(PickerPlan, HasAPlaceholderForEachReadOut)
{
    const auto placeholders = [](const PickerPlan& plan) {
        return std::vector<std::string> { plan.topLeft.placeholder, plan.topRight.placeholder,
            plan.caption.placeholder };
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(placeholders(VKColorPickerView_B::plan), (Texts { "Saturation", ":Hue", "" }));
    EXPECT_EQ(placeholders(VKColorPickerView_H::plan), (Texts { "Brightness:", ":Saturation", "" }));
    EXPECT_EQ(placeholders(VKColorPickerView_S::plan), (Texts { ":Hue", "Brightness:", "" }));
}

}
