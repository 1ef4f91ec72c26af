#include "GalleryGradientCell.h"

#include "GalleryColor.h"
#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKHueSaturationView.h"
#include "gradients/VKHueSliderView.h"
#include "gradients/VKSaturationSliderView.h"

#include <functional>

namespace gallery {

using namespace platform;
using namespace vekora;

namespace {

constexpr CGFloat inset = 10; // Points around the picture.
constexpr CGFloat cornerRadius = 6;

const auto registration = registerClass<GalleryGradientCell>("GalleryGradientCell")
                              .initialiser<long, std::string, Ref<PSSpecifier>>();

struct HSB {
    CGFloat hue = 0;
    CGFloat saturation = 0;
    CGFloat brightness = 0;
};

struct Exhibit {
    Ref<UIView> view;
    std::function<void(const HSB&)> show;
};

template <typename View, typename Show> Exhibit exhibit(Show show)
{
    const auto view = std::make_shared<View>();
    return { view, [view = view.get(), show](const HSB& hsb) { show(*view, hsb); } };
}

struct Maker {
    std::string_view name;
    Exhibit (*make)();
};

// Each view with the setter that makes it paint a colour's components.
const Maker makers[] = {
    { "VKHueSaturationView",
        [] {
            return exhibit<VKHueSaturationView>([](auto& view, const HSB& c) {
                view.setHueAndSaturationAndBrightness(c.hue, c.saturation, c.brightness);
            });
        } },
    { "VKBrightnessSaturationView",
        [] {
            return exhibit<VKBrightnessSaturationView>([](auto& view, const HSB& c) { view.setHue(c.hue); });
        } },
    { "VKHueBrightnessView",
        [] {
            return exhibit<VKHueBrightnessView>([](auto& view, const HSB& c) {
                view.setHueAndSaturationAndBrightness(c.hue, c.saturation, c.brightness);
            });
        } },
    { "VKBrightnessSliderView",
        [] {
            return exhibit<VKBrightnessSliderView>(
                [](auto& view, const HSB& c) { view.setHueAndSaturation(c.hue, c.saturation); });
        } },
    { "VKHueSliderView", [] { return exhibit<VKHueSliderView>([](auto&, const HSB&) {}); } },
    { "VKSaturationSliderView",
        [] {
            return exhibit<VKSaturationSliderView>(
                [](auto& view, const HSB& c) { view.setHueAndBrightness(c.hue, c.brightness); });
        } },
};

HSB componentsOf(const UIColor& color)
{
    HSB hsb;
    color.getHueSaturationBrightnessAlpha(&hsb.hue, &hsb.saturation, &hsb.brightness, nullptr);
    return hsb;
}

}

GalleryGradientCell::GalleryGradientCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
{
    setSelectable(false);
    const auto* const property = this->specifier()->propertyForKey("view");
    for (const auto& maker : makers) {
        if (!property || !property->string() || *property->string() != maker.name)
            continue;
        auto [view, show] = maker.make();
        _gradient = view;
        _gradient->layer().setCornerRadius(cornerRadius);
        _gradient->layer().setBorderWidth(1);
        _gradient->layer().setMasksToBounds(true);
        contentView().addSubview(_gradient);
        show(componentsOf(GalleryColor::shared().color()));
        _observer = GalleryColor::shared().observe(
            [show = std::move(show)](const UIColor& color) { show(componentsOf(color)); });
    }
}

GalleryGradientCell::~GalleryGradientCell()
{
    GalleryColor::shared().stop(_observer);
}

void GalleryGradientCell::layoutSubviews()
{
    PSTableCell::layoutSubviews();
    textLabel().setHidden(true);
    if (!_gradient)
        return;
    const auto frame = CGRectInset(contentView().bounds(), inset, inset);
    if (frame.size() == _gradient->frame().size()) {
        _gradient->setFrame(frame);
        return;
    }
    // A field is not painted anew when it is resized, unless it is told to.
    _gradient->setFrame(frame);
    _gradient->setNeedsDisplay();
}

}
