#include "GradientTesting.h"

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueSaturationView.h"

using namespace gradienttests;
using namespace vekora;
using platform::GradientInstructions;
using platform::PixelRect;

namespace {

constexpr std::uint32_t untouched = 0x12345678;

// Reads a part into the middle of a larger picture.
void expectPart(const platform::LayerContents& contents, const exact::Picture& whole, PixelRect part)
{
    constexpr int margin = 3;
    const auto stride = part.width + 2 * margin;
    exact::Picture target(
        static_cast<std::size_t>(stride) * static_cast<std::size_t>(part.height + 2), untouched);
    contents.read(part, target.data() + stride + margin, stride);
    for (int y = -1; y <= part.height; ++y) {
        for (int x = -margin; x < part.width + margin; ++x) {
            const auto isInside = y >= 0 && y < part.height && x >= 0 && x < part.width;
            const auto expected = isInside
                ? whole[static_cast<std::size_t>(part.y + y) * static_cast<std::size_t>(contents.width())
                    + static_cast<std::size_t>(part.x + x)]
                : untouched;
            const auto found = target[static_cast<std::size_t>((y + 1) * stride + x + margin)];
            ASSERT_EQ(found, expected) << "at " << x << ", " << y << " of " << part.width << " x "
                                       << part.height << " from " << part.x << ", " << part.y;
        }
    }
}

}

TEST(GradientContents, AreReadInAnyParts)
{
    VKHueSaturationView field;
    field.setFrame({ 0, 0, 211, 40 });
    field.setHueAndSaturationAndBrightness(0, 0, 0.83);
    VKBrightnessSaturationView shade;
    shade.setFrame({ 0, 0, 211, 40 });
    shade.setHue(0.21);
    VKBrightnessSliderView bar;
    bar.setFrame({ 0, 0, 211, 40 });
    bar.setHueAndSaturation(0.6, 0.6);
    std::mt19937 random(7);
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (platform::UIView* view : { static_cast<platform::UIView*>(&field),
             static_cast<platform::UIView*>(&shade), static_cast<platform::UIView*>(&bar) }) {
        const auto contents = contentsOf(*view, 2);
        const auto whole = pixelsOf(*contents);
        for (const auto limit :
            { GradientInstructions::Portable, GradientInstructions::Avx2, GradientInstructions::Avx512 }) {
            InstructionLimit limited(limit);
            for (int i = 0; i < 300; ++i) {
                const auto x = below(contents->width());
                const auto y = below(contents->height());
                const auto width = 1 + below(std::min(contents->width() - x, i % 2 ? 40 : 500));
                expectPart(*contents, whole, { x, y, width, 1 + below(contents->height() - y) });
            }
            expectPart(*contents, whole, { 5, 5, 0, 3 });
        }
    }
}

TEST(GradientContents, AreTheSameWithAnyInstructions)
{
    VKHueSaturationView field;
    field.setFrame({ 0, 0, 355, 260 });
    VKBrightnessSaturationView shade;
    shade.setFrame({ 0, 0, 355, 260 });
    for (const double value : { 1.0, 0.5, 0.37, 1e-6, 0.999999 }) {
        field.setHueAndSaturationAndBrightness(0, 0, value);
        shade.setHue(value);
        for (platform::UIView* view :
            { static_cast<platform::UIView*>(&field), static_cast<platform::UIView*>(&shade) }) {
            const auto contents = contentsOf(*view, 3);
            const auto widest = pixelsOf(*contents);
            InstructionLimit avx2(GradientInstructions::Avx2);
            EXPECT_TRUE(equal(pixelsOf(*contents), widest, contents->width()));
            InstructionLimit portable(GradientInstructions::Portable);
            EXPECT_TRUE(equal(pixelsOf(*contents), widest, contents->width()));
        }
    }
}

TEST(GradientContents, OfTheViewsAreOpaque)
{
    VKHueSaturationView field;
    field.setFrame({ 0, 0, 30, 20 });
    field.setHueAndSaturationAndBrightness(0, 0, 0.5);
    EXPECT_TRUE(contentsOf(field, 2)->isOpaque());
}
