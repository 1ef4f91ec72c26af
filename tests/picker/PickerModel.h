#pragma once

#include "PickerKinds.h"

#include <cmath>
#include <vector>

namespace vekora::test {

/// What a picker is to do, in plain terms: no views, no tables, only values.
template <typename Picker> class PickerModel {
    using Its = Kind<Picker>;

public:
    Hsb hsb;
    std::optional<UIColor> color;
    CGRect field;
    CGRect bar;
    CGPoint crossHairs;
    CGPoint barSelector;
    std::optional<CGColor> fill;
    std::string hueText;
    std::string saturationText;
    std::string brightnessText;
    std::vector<UIColor> changed;
    std::vector<UIColor> saved;

    void start(CGSize size, double line, const UIColor& first)
    {
        color = first;
        layOut(size, line);
        setColor(first);
    }

    void layOut(CGSize size, double line)
    {
        field = { 10, line + 20, size.width - 20, size.height - 100 - line };
        bar = { 10, size.height - 66 + line, size.width - 20, 40 };
        placeMarkers();
    }

    void setColor(const UIColor& shown)
    {
        EXPECT_TRUE(
            shown.getHueSaturationBrightnessAlpha(&hsb.hue, &hsb.saturation, &hsb.brightness, nullptr));
        readOut();
        placeMarkers();
        fill = shown.cgColor();
    }

    void commit(const UIColor& committed)
    {
        if (color == committed)
            return;
        changed.push_back(committed);
        color = committed;
    }

    /// The labels' edges that bound the field's band are given: they follow the platform's masks.
    void route(CGPoint p, double upperLimit, double lowerLimit)
    {
        const auto right = field.x + field.width, bottom = field.y + field.height;
        const auto barRight = bar.x + bar.width, barBottom = bar.y + bar.height;
        if (p.x >= field.x && p.x < right && p.y >= field.y && p.y < bottom)
            touchField(p);
        else if (p.x >= bar.x && p.x < barRight && p.y >= bar.y && p.y < barBottom)
            touchBar(p.x);
        else if (p.y >= bar.y && p.y <= barBottom)
            touchBar(pinned(p.x, bar.x, barRight));
        else if (p.y < lowerLimit && p.y > upperLimit)
            touchField({ pinned(p.x, field.x, right), pinned(p.y, field.y, bottom) });
    }

    void save() { saved.push_back(*color); }

    /// A dialog's answer: the number that was typed, as single precision.
    void confirm(long tag, float typed)
    {
        if (tag == 3026)
            hsb.hue = typed / 360.0;
        else if (tag == 3027)
            hsb.brightness = typed / 100.0;
        else
            hsb.saturation = typed / 100.0;
        const auto made = opaque();
        setColor(made);
        commit(made);
        save();
    }

    std::string message(long tag) const
    {
        if (tag == 3026)
            return "Please enter a Hue value between 0° and 360°\n current value is: " + whole(hsb.hue * 360)
                + "°";
        const auto name = tag == 3027 ? "Brightness" : "Saturation";
        return std::string("Please enter a ") + name + " value between 0% and 100%\n current value is: "
            + whole((tag == 3027 ? hsb.brightness : hsb.saturation) * 100) + "%";
    }

private:
    static double pinned(double value, double low, double high)
    {
        if (value < low)
            return low;
        return value > high ? high : value;
    }

    static std::string whole(double value) { return std::to_string(std::lround(value)); }

    UIColor opaque() const
    {
        return UIColor::colorWithHueSaturationBrightnessAlpha(hsb.hue, hsb.saturation, hsb.brightness, 1);
    }

    void readOut()
    {
        hueText = Its::hueText(whole(hsb.hue * 360));
        saturationText = Its::saturationText(whole(hsb.saturation * 100));
        brightnessText = Its::brightnessText(whole(hsb.brightness * 100));
    }

    void placeMarkers()
    {
        crossHairs = Its::crossHairs(hsb, field);
        barSelector = { static_cast<float>(Its::barSelectorX(hsb, bar)), bar.y + 20 };
    }

    void touchField(CGPoint p)
    {
        crossHairs = p;
        hsb = Its::fromField(hsb, (p.x - field.x) / field.width, (p.y - field.y) / field.height);
        take();
    }

    void touchBar(double x)
    {
        barSelector = { x, bar.y + 20 };
        hsb = Its::fromBar(hsb, (x - bar.x) / bar.width);
        take();
    }

    void take()
    {
        readOut();
        fill = opaque().cgColor();
        commit(opaque());
    }
};

/// The first thing in which a picker differs from its model; empty when there is none.
template <typename Picker> std::string difference(Picker& picker, const PickerModel<Picker>& model)
{
    using Its = Kind<Picker>;
    const auto say = [](const char* what, const auto& is, const auto& should) {
        return std::string(what) + " is " + testing::PrintToString(is) + ", should be "
            + testing::PrintToString(should);
    };
    if (const Hsb hsb { picker.currentHue, picker.currentSaturation, picker.currentBrightness };
        hsb != model.hsb)
        return say("state", hsb, model.hsb);
    if (picker.color() != model.color)
        return say("color", picker.color(), model.color);
    if (Its::field(picker).frame() != model.field)
        return say("field", Its::field(picker).frame(), model.field);
    if (Its::bar(picker).frame() != model.bar)
        return say("bar", Its::bar(picker).frame(), model.bar);
    if (picker.crossHairs()->center() != model.crossHairs)
        return say("cross-hair", picker.crossHairs()->center(), model.crossHairs);
    if (Its::barSelector(picker).center() != model.barSelector)
        return say("bar marker", Its::barSelector(picker).center(), model.barSelector);
    if (picker.crossHairs()->layer().backgroundColor() != model.fill)
        return say("fill", picker.crossHairs()->layer().backgroundColor(), model.fill);
    if (picker.currentHueLabel()->text() != model.hueText)
        return say("hue", picker.currentHueLabel()->text(), model.hueText);
    if (picker.currentSaturationLabel()->text() != model.saturationText)
        return say("saturation", picker.currentSaturationLabel()->text(), model.saturationText);
    if (picker.currentBrightnessLabel()->text() != model.brightnessText)
        return say("brightness", picker.currentBrightnessLabel()->text(), model.brightnessText);
    return {};
}

}
