#include "GradientTesting.h"

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKHueSaturationView.h"
#include "gradients/VKHueSliderView.h"
#include "gradients/VKSaturationSliderView.h"

using namespace gradienttests;
using namespace vekora;
using platform::Ref;
using platform::UIView;

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t black = 0xFF000000;

struct NamedView {
    std::string name;
    Ref<UIView> view;
};

std::vector<NamedView> everyView()
{
    return {
        { "VKBrightnessSaturationView", std::make_shared<VKBrightnessSaturationView>() },
        { "VKBrightnessSliderView", std::make_shared<VKBrightnessSliderView>() },
        { "VKHueBrightnessView", std::make_shared<VKHueBrightnessView>() },
        { "VKHueSaturationView", std::make_shared<VKHueSaturationView>() },
        { "VKHueSliderView", std::make_shared<VKHueSliderView>() },
        { "VKSaturationSliderView", std::make_shared<VKSaturationSliderView>() },
    };
}

}

TEST(GradientViews, AreMadeByName)
{
    for (const auto& [name, view] : everyView()) {
        EXPECT_EQ(view->className(), name);
        const auto* found = platform::NSClassFromString(name);
        ASSERT_TRUE(found) << name;
        const auto made = found->make<UIView>();
        ASSERT_TRUE(made) << name;
        EXPECT_EQ(made->className(), name);
        EXPECT_EQ(made->frame(), platform::CGRect {}) << name;
    }
}

TEST(GradientViews, PaintNothingWithoutWidthOrHeight)
{
    for (const auto& [name, view] : everyView()) {
        for (const auto size : { platform::CGSize { 0, 20 }, { 20, 0 }, { 0, 0 }, { 0.2, 20 } }) {
            view->setFrame({ 3, 4, size.width, size.height });
            EXPECT_TRUE(paint(*view, 1).empty()) << name;
        }
    }
}

TEST(GradientViews, SurviveAnyLength)
{
    for (const auto& [name, view] : everyView()) {
        view->setFrame({ 0, 0, 1e12, 1e12 });
        const auto contents = contentsOf(*view, 3);
        ASSERT_TRUE(contents) << name;
        std::uint32_t pixel = 0;
        contents->read({ contents->width() - 1, contents->height() - 1, 1, 1 }, &pixel, 1);
        EXPECT_EQ(pixel >> 24, 255U) << name;
    }
}

TEST(GradientViews, DoNothingOutsideOfDrawing)
{
    for (const auto& [name, view] : everyView()) {
        view->setFrame({ 0, 0, 20, 20 });
        view->drawRect({ 0, 0, 20, 20 });
        EXPECT_EQ(platform::UIGraphicsGetCurrentContext(), nullptr) << name;
    }
}

TEST(GradientViews, LeaveTheContextAsItWas)
{
    for (const auto& [name, view] : everyView()) {
        view->setFrame({ 0, 0, 4, 4 });
        platform::CGContext context({ 8, 4 }, 1);
        platform::CurrentContext current(context);
        view->drawRect({});
        // Beyond the view's size the context is not clipped any more.
        const std::vector colors { platform::UIColor::redColor(), platform::UIColor::redColor() };
        const auto gradient
            = platform::CGGradientCreateWithColors(platform::CGColorSpaceCreateDeviceRGB(), colors);
        platform::CGContextDrawLinearGradient(context, gradient, { 0, 0 }, { 8, 0 }, 0);
        EXPECT_EQ(pixelsOf(*context.finish()), exact::Picture(32, red)) << name;
    }
}

TEST(GradientViews, PaintTheirOwnSizeWhateverRectangleIsAskedFor)
{
    VKHueSliderView bar;
    bar.setFrame({ 100, 200, 12, 3 });
    platform::CGContext context({ 12, 3 }, 1);
    {
        platform::CurrentContext current(context);
        bar.drawRect({ 2, 1, 3, 1 });
    }
    EXPECT_TRUE(equal(pixelsOf(*context.finish()), exact::hueBar(12, 3), 12));
}

TEST(HueSaturationView, IsBlackWithoutBrightness)
{
    VKHueSaturationView view;
    view.setFrame({ 0, 0, 20, 10 });
    view.setHueAndSaturationAndBrightness(0.3, 0.6, 0);
    EXPECT_EQ(paint(view, 1), exact::Picture(200, black));
}

TEST(HueSaturationView, IsRedAtBothEnds)
{
    VKHueSaturationView view;
    view.setFrame({ 0, 0, 3000, 4000 });
    view.setHueAndSaturationAndBrightness(0, 0, 1);
    const auto contents = contentsOf(view, 1);
    std::uint32_t pixel = 0;
    for (const int x : { 0, 2999 }) {
        contents->read({ x, 0, 1, 1 }, &pixel, 1);
        EXPECT_EQ(pixel, red) << x;
    }
    contents->read({ 1000, 3999, 1, 1 }, &pixel, 1);
    EXPECT_EQ(pixel, 0xFFFFFFFF) << "white at the bottom";
}

TEST(HueSaturationView, DipsBelowTheMiddleOfTheWash)
{
    VKHueSaturationView view;
    view.setFrame({ 0, 0, 1, 101 });
    view.setHueAndSaturationAndBrightness(0, 0, 1);
    // Straight colours: t · t + (1 - t) · c, which is a quarter below 1 where t is a half.
    const auto middle = paint(view, 1)[50];
    EXPECT_EQ(middle >> 8 & 255, 191U); // The hue in the middle is cyan.
    EXPECT_EQ(middle >> 16 & 255, 64U);
}

TEST(HueSaturationView, PaintsAlikeWhateverHueAndSaturation)
{
    VKHueSaturationView view;
    view.setFrame({ 0, 0, 31, 17 });
    view.setHueAndSaturationAndBrightness(0, 0, 0.6);
    const auto picture = paint(view, 2);
    view.setHueAndSaturationAndBrightness(0.4, 0.9, 0.6);
    EXPECT_EQ(paint(view, 2), picture);
}

TEST(HueBrightnessView, IsARampOfGreysWithoutSaturation)
{
    VKHueBrightnessView view;
    view.setFrame({ 0, 0, 9, 51 });
    view.setHueAndSaturationAndBrightness(0.3, 0, 0.6);
    const auto picture = paint(view, 1);
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const auto grey = 253 - 5 * static_cast<std::uint32_t>(i / 9); // 255 · (1 - (y + 1/2) / 51), half up
        ASSERT_EQ(picture[i], 0xFF000000U + grey * 0x10101U) << i;
    }
}

TEST(HueBrightnessView, PaintsAlikeWhateverHueAndBrightness)
{
    VKHueBrightnessView view;
    view.setFrame({ 0, 0, 31, 17 });
    view.setHueAndSaturationAndBrightness(0, 0.6, 0);
    const auto picture = paint(view, 2);
    view.setHueAndSaturationAndBrightness(0.4, 0.6, 0.9);
    EXPECT_EQ(paint(view, 2), picture);
}

TEST(SaturationSliderView, IsBlackWithoutBrightness)
{
    VKSaturationSliderView view;
    view.setFrame({ 0, 0, 20, 10 });
    view.setHueAndBrightness(0.3, 0);
    EXPECT_EQ(paint(view, 1), exact::Picture(200, black));
}

TEST(BrightnessSliderView, ShowsGreysOfAnyHueWithoutSaturation)
{
    VKBrightnessSliderView view;
    view.setFrame({ 0, 0, 20, 10 });
    view.setHueAndSaturation(0.3, 0);
    const auto picture = paint(view, 1);
    view.setHueAndSaturation(0.8, 0);
    EXPECT_EQ(paint(view, 1), picture);
    for (const auto pixel : picture)
        EXPECT_EQ(pixel & 0xFFFFFF, (pixel & 255) * 0x10101U);
}

TEST(HueSliderView, ShowsTheFieldsSweep)
{
    VKHueSliderView bar;
    bar.setFrame({ 0, 0, 53, 1 });
    VKHueBrightnessView field;
    field.setFrame({ 0, 0, 53, 100000 });
    field.setHueAndSaturationAndBrightness(0, 1, 0);
    exact::Picture top(53);
    contentsOf(field, 1)->read({ 0, 0, 53, 1 }, top.data(), 53);
    const auto picture = paint(bar, 1);
    for (std::size_t i = 0; i < top.size(); ++i) {
        for (const int shift : { 0, 8, 16 }) // The field's first row is a hair darker.
            EXPECT_NEAR(top[i] >> shift & 255, picture[i] >> shift & 255, 1);
    }
    // Red at both ends, with as much green at the left as blue at the right.
    EXPECT_EQ(picture.front(), red | 14U << 8);
    EXPECT_EQ(picture.back(), red | 14U);
}
