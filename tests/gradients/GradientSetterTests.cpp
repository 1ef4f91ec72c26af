#include "GradientTesting.h"

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKHueSaturationView.h"
#include "gradients/VKHueSliderView.h"
#include "gradients/VKSaturationSliderView.h"

#include "platform/Journal.h"
#include "platform/UIWindow.h"

#include <functional>
#include <utility>

using namespace gradienttests;
using namespace vekora;
using platform::Journal;
using platform::JournalEntry;
using platform::Ref;
using platform::UIWindow;

namespace {

// A view in a window, and how often it has painted.
template <typename View> class Shown {
public:
    Shown()
    {
        view->setFrame({ 5, 5, 40, 30 });
        _window.addSubview(view);
        _window.display();
        EXPECT_EQ(takePaints(), 1) << "on the first display";
    }
    ~Shown() { Journal::shared().stop(_listener); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    int paintsAfter(const std::function<void()>& change)
    {
        change();
        _window.display();
        return takePaints();
    }

    std::vector<std::uint32_t> picture() const
    {
        const auto& picture = _window.picture();
        return { picture.pixels.get(), picture.pixels.get() + picture.width * picture.height };
    }

    const Ref<View> view = std::make_shared<View>();

private:
    int takePaints() { return std::exchange(_paints, 0); }

    int _paints = 0;
    int _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        _paints += entry.kind == JournalEntry::Kind::Paint && entry.name == view->className();
    });
    UIWindow _window { platform::CGSize { 60, 60 } };
};

}

TEST(HueSaturationView, KeepsWhatItIsGiven)
{
    VKHueSaturationView view;
    view.setHueAndSaturationAndBrightness(0.1, 0.2, 0.3);
    EXPECT_EQ(view.hue(), 0.1);
    EXPECT_EQ(view.saturation(), 0.2);
    EXPECT_EQ(view.brightness(), 0.3);
    view.setHue(-1);
    view.setSaturation(7);
    view.setBrightness(1.5);
    EXPECT_EQ(view.hue(), -1);
    EXPECT_EQ(view.saturation(), 7);
    EXPECT_EQ(view.brightness(), 1.5);
}

TEST(HueBrightnessView, KeepsWhatItIsGiven)
{
    VKHueBrightnessView view;
    view.setHueAndSaturationAndBrightness(0.1, 0.2, 0.3);
    EXPECT_EQ(view.hue(), 0.1);
    EXPECT_EQ(view.saturation(), 0.2);
    EXPECT_EQ(view.brightness(), 0.3);
    view.setHue(-1);
    view.setSaturation(7);
    view.setBrightness(1.5);
    EXPECT_EQ(view.hue(), -1);
    EXPECT_EQ(view.saturation(), 7);
    EXPECT_EQ(view.brightness(), 1.5);
}

TEST(GradientBars, KeepWhatTheyAreGiven)
{
    VKBrightnessSliderView brightness;
    brightness.setHueAndSaturation(0.1, 0.2);
    EXPECT_EQ(brightness.hue(), 0.1);
    EXPECT_EQ(brightness.saturation(), 0.2);
    brightness.setHue(3);
    brightness.setSaturation(-2);
    EXPECT_EQ(brightness.hue(), 3);
    EXPECT_EQ(brightness.saturation(), -2);

    VKSaturationSliderView saturation;
    saturation.setHueAndBrightness(0.1, 0.2);
    EXPECT_EQ(saturation.hue(), 0.1);
    EXPECT_EQ(saturation.brightness(), 0.2);
    saturation.setHue(3);
    saturation.setBrightness(-2);
    EXPECT_EQ(saturation.hue(), 3);
    EXPECT_EQ(saturation.brightness(), -2);

    VKBrightnessSaturationView field;
    EXPECT_EQ(field.hue(), 0);
    field.setHue(0.4);
    EXPECT_EQ(field.hue(), 0.4);
}

TEST(HueSaturationView, RepaintsForItsCombinedSetterOnly)
{
    Shown<VKHueSaturationView> shown;
    auto& view = *shown.view;
    EXPECT_EQ(shown.paintsAfter([&] { view.setHueAndSaturationAndBrightness(0, 0, 1); }), 1);
    const auto picture = shown.picture();
    EXPECT_EQ(shown.paintsAfter([&] {
        view.setHue(0.5);
        view.setSaturation(0.5);
        view.setBrightness(0.5);
    }),
        0);
    EXPECT_EQ(shown.picture(), picture) << "stale until the next repaint";
    EXPECT_EQ(shown.paintsAfter([&] { view.setNeedsDisplay(); }), 1);
    EXPECT_NE(shown.picture(), picture);
    EXPECT_EQ(shown.paintsAfter([&] {
        view.setHueAndSaturationAndBrightness(0, 0, 1);
        view.setHueAndSaturationAndBrightness(0, 0, 0.9);
    }),
        1)
        << "once a pass";
}

TEST(HueBrightnessView, RepaintsForItsCombinedSetterOnly)
{
    Shown<VKHueBrightnessView> shown;
    auto& view = *shown.view;
    EXPECT_EQ(shown.paintsAfter([&] { view.setHueAndSaturationAndBrightness(0, 1, 0); }), 1);
    const auto picture = shown.picture();
    EXPECT_EQ(shown.paintsAfter([&] {
        view.setHue(0.5);
        view.setSaturation(0.5);
        view.setBrightness(0.5);
    }),
        0);
    EXPECT_EQ(shown.picture(), picture);
    EXPECT_EQ(shown.paintsAfter([&] { view.setNeedsDisplay(); }), 1);
    EXPECT_NE(shown.picture(), picture);
}

TEST(BrightnessSaturationView, RepaintsForItsHue)
{
    Shown<VKBrightnessSaturationView> shown;
    const auto picture = shown.picture();
    EXPECT_EQ(shown.paintsAfter([&] { shown.view->setHue(0.5); }), 1);
    EXPECT_NE(shown.picture(), picture);
}

/// `setAll` sets hue and the view's other component together, `setEach` one after the other.
template <typename View>
static void expectRepaintsForItsCombinedSetterOnly(
    void (View::*setAll)(double, double), void (*setEach)(View&))
{
    Shown<View> shown;
    auto& view = *shown.view;
    EXPECT_EQ(shown.paintsAfter([&] { (view.*setAll)(0, 1); }), 1);
    const auto picture = shown.picture();
    EXPECT_EQ(shown.paintsAfter([&] { setEach(view); }), 0);
    EXPECT_EQ(shown.picture(), picture);
    EXPECT_EQ(shown.paintsAfter([&] { (view.*setAll)(0.5, 0.5); }), 1);
    EXPECT_NE(shown.picture(), picture);
}

TEST(BrightnessSliderView, RepaintsForItsCombinedSetterOnly)
{
    expectRepaintsForItsCombinedSetterOnly<VKBrightnessSliderView>(
        &VKBrightnessSliderView::setHueAndSaturation, [](auto& view) {
            view.setHue(0.5);
            view.setSaturation(0.5);
        });
}

TEST(SaturationSliderView, RepaintsForItsCombinedSetterOnly)
{
    expectRepaintsForItsCombinedSetterOnly<VKSaturationSliderView>(
        &VKSaturationSliderView::setHueAndBrightness, [](auto& view) {
            view.setHue(0.5);
            view.setBrightness(0.5);
        });
}

TEST(HueSliderView, PaintsOnceAndThenWhenAsked)
{
    Shown<VKHueSliderView> shown;
    const auto picture = shown.picture();
    EXPECT_EQ(shown.paintsAfter([] {}), 0);
    EXPECT_EQ(shown.paintsAfter([&] { shown.view->setNeedsDisplay(); }), 1);
    EXPECT_EQ(shown.picture(), picture);
}
