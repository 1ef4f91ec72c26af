#include "GradientTesting.h"

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKHueSaturationView.h"
#include "gradients/VKHueSliderView.h"
#include "gradients/VKSaturationSliderView.h"

using namespace gradienttests;
using namespace vekora;
using platform::GradientInstructions;
using platform::pixelLength;
using platform::UIColor;

namespace {

UIColor hsb(double hue, double saturation, double brightness)
{
    return UIColor::colorWithHueSaturationBrightnessAlpha(hue, saturation, brightness, 1);
}

// Every component value, each in another size, at every scale, with every kind of instructions.
template <typename View> class Exactness {
public:
    template <typename SetUp, typename Expected> static void check(SetUp setUp, Expected expected)
    {
        const auto values = componentValues();
        ASSERT_GE(values.size(), 200U);
        View view;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto size = sizeFor(i);
            view.setFrame({ 10, 20, size.width, size.height });
            const auto other = values[(i * 7 + 3) % values.size()];
            setUp(view, values[i], other);
            for (const auto scale : scales()) {
                const auto width = pixelLength(size.width, scale);
                const auto height = pixelLength(size.height, scale);
                const auto picture = expected(values[i], other, width, height);
                for (const auto limit : { GradientInstructions::Portable, GradientInstructions::Avx2,
                         GradientInstructions::Avx512 }) {
                    InstructionLimit limited(limit);
                    ASSERT_TRUE(equal(paint(view, scale), picture, width))
                        << values[i] << " and " << other << " at " << width << " x " << height
                        << " with instructions " << static_cast<int>(limit);
                }
            }
        }
    }
};

}

TEST(HueSaturationView, PaintsEveryPixelExactly)
{
    Exactness<VKHueSaturationView>::check(
        [](auto& view, double value, double other) {
            view.setHueAndSaturationAndBrightness(other, other, value);
        },
        [](double value, double, int width, int height) {
            return exact::hueSaturation(value, width, height);
        });
}

TEST(HueBrightnessView, PaintsEveryPixelExactly)
{
    Exactness<VKHueBrightnessView>::check(
        [](auto& view, double value, double other) {
            view.setHueAndSaturationAndBrightness(other, value, other);
        },
        [](double value, double, int width, int height) {
            return exact::hueBrightness(value, width, height);
        });
}

TEST(BrightnessSaturationView, PaintsEveryPixelExactly)
{
    Exactness<VKBrightnessSaturationView>::check([](auto& view, double value, double) { view.setHue(value); },
        [](double value, double, int width, int height) {
            return exact::brightnessSaturation(value, width, height);
        });
}

TEST(BrightnessSliderView, PaintsEveryPixelExactly)
{
    Exactness<VKBrightnessSliderView>::check(
        [](auto& view, double value, double other) { view.setHueAndSaturation(value, other); },
        [](double value, double other, int width, int height) {
            return exact::bar(hsb(value, other, 1), hsb(0, 0, 0), width, height);
        });
}

TEST(SaturationSliderView, PaintsEveryPixelExactly)
{
    Exactness<VKSaturationSliderView>::check(
        [](auto& view, double value, double other) { view.setHueAndBrightness(value, other); },
        [](double value, double other, int width, int height) {
            return exact::bar(hsb(value, 1, other), hsb(0, 0, other), width, height);
        });
}

TEST(HueSliderView, PaintsEveryPixelExactly)
{
    Exactness<VKHueSliderView>::check([](auto&, double, double) {},
        [](double, double, int width, int height) { return exact::hueBar(width, height); });
}

// Sizes in which whole rows or columns fall on the border between two byte values.
TEST(GradientViews, RoundHalvesUp)
{
    VKBrightnessSliderView bar;
    VKHueBrightnessView field;
    bar.setHueAndSaturation(0, 0);
    for (const int length : { 255, 510, 85, 51, 1020 }) {
        bar.setFrame({ 0, 0, double(length), 2 });
        ASSERT_TRUE(equal(paint(bar, 1), exact::bar(hsb(0, 0, 1), hsb(0, 0, 0), length, 2), length))
            << length;
        for (const double saturation : { 0.0, 0.5, 1e-13, 1.0 }) {
            field.setHueAndSaturationAndBrightness(0, saturation, 0);
            field.setFrame({ 0, 0, 36, double(length) });
            ASSERT_TRUE(equal(paint(field, 1), exact::hueBrightness(saturation, 36, length), 36)) << length;
        }
    }
}

TEST(GradientViews, PaintTheirFullSizeExactly)
{
    VKHueSaturationView hueSaturation;
    VKHueBrightnessView hueBrightness;
    VKBrightnessSaturationView brightnessSaturation;
    hueSaturation.setHueAndSaturationAndBrightness(0, 0, 0.7);
    hueBrightness.setHueAndSaturationAndBrightness(0, 0.3, 0);
    brightnessSaturation.setHue(0.41);
    for (const auto scale : scales()) {
        const auto width = pixelLength(355, scale);
        const auto height = pixelLength(260, scale);
        for (platform::UIView* view :
            { static_cast<platform::UIView*>(&hueSaturation), static_cast<platform::UIView*>(&hueBrightness),
                static_cast<platform::UIView*>(&brightnessSaturation) })
            view->setFrame({ 10, 50, 355, 260 });
        EXPECT_TRUE(equal(paint(hueSaturation, scale), exact::hueSaturation(0.7, width, height), width));
        EXPECT_TRUE(equal(paint(hueBrightness, scale), exact::hueBrightness(0.3, width, height), width));
        EXPECT_TRUE(equal(
            paint(brightnessSaturation, scale), exact::brightnessSaturation(0.41, width, height), width));
    }
}
