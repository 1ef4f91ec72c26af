#include "UIColor.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace platform {

namespace {

CGFloat clamped(CGFloat component)
{
    return component > 0 ? std::min(component, 1.0) : 0.0; // NaN is not above 0.
}

std::array<CGFloat, 3> rgbFromHSB(CGFloat hue, CGFloat saturation, CGFloat brightness)
{
    const auto sixths = hue * 6;
    const auto sector = std::floor(sixths);
    const auto f = sixths - sector;
    const auto v = brightness;
    const auto p = v * (1 - saturation);
    const auto q = v * (1 - saturation * f);
    const auto t = v * (1 - saturation * (1 - f));
    switch (static_cast<int>(sector)) {
    case 1:
        return { q, v, p };
    case 2:
        return { p, v, t };
    case 3:
        return { p, q, v };
    case 4:
        return { t, p, v };
    case 5:
        return { v, p, q };
    default: // 0, and 6: a full turn is where it began.
        return { v, t, p };
    }
}

}

CGColor::CGColor(CGColorSpaceModel space, std::array<CGFloat, 4> components)
    : _space(space)
    , _components(components)
{
}

std::array<CGFloat, 4> CGColor::rgba() const
{
    if (_space == CGColorSpaceModel::Gray)
        return { _components[0], _components[0], _components[0], _components[1] };
    return _components;
}

std::span<const CGFloat> CGColorGetComponents(const CGColor& color)
{
    return color.components();
}

UIColor UIColor::colorWithRedGreenBlueAlpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
{
    return UIColor(
        CGColor(CGColorSpaceModel::RGB, { clamped(red), clamped(green), clamped(blue), clamped(alpha) }));
}

UIColor UIColor::colorWithHueSaturationBrightnessAlpha(
    CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha)
{
    const auto [red, green, blue] = rgbFromHSB(clamped(hue), clamped(saturation), clamped(brightness));
    return colorWithRedGreenBlueAlpha(red, green, blue, alpha);
}

UIColor UIColor::colorWithWhiteAlpha(CGFloat white, CGFloat alpha)
{
    return UIColor(CGColor(CGColorSpaceModel::Gray, { clamped(white), clamped(alpha), 0, 0 }));
}

UIColor UIColor::blackColor()
{
    return colorWithWhiteAlpha(0, 1);
}
UIColor UIColor::whiteColor()
{
    return colorWithWhiteAlpha(1, 1);
}
UIColor UIColor::clearColor()
{
    return colorWithWhiteAlpha(0, 0);
}
UIColor UIColor::redColor()
{
    return colorWithRedGreenBlueAlpha(1, 0, 0, 1);
}
UIColor UIColor::blueColor()
{
    return colorWithRedGreenBlueAlpha(0, 0, 1, 1);
}

bool UIColor::getHueSaturationBrightnessAlpha(
    CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const
{
    const auto [red, green, blue, opacity] = _color.rgba();
    const auto most = std::max({ red, green, blue });
    const auto range = most - std::min({ red, green, blue });
    CGFloat turn = 0;
    if (range > 0) {
        if (most == red)
            turn = (green - blue) / range;
        else if (most == green)
            turn = 2 + (blue - red) / range;
        else
            turn = 4 + (red - green) / range;
        turn /= 6;
        if (turn < 0)
            turn += 1;
        if (turn >= 1) // A negative hair of a turn rounds up to a whole one.
            turn = 0;
    }
    if (hue)
        *hue = turn;
    if (saturation)
        *saturation = most > 0 ? range / most : 0;
    if (brightness)
        *brightness = most;
    if (alpha)
        *alpha = opacity;
    return true;
}

std::string hexDescription(const CGColor& color)
{
    std::string text = "#";
    for (const auto component : color.rgba()) {
        char digits[3];
        std::snprintf(
            digits, sizeof digits, "%02X", static_cast<unsigned>(std::floor(component * 255 + 0.5)));
        text += digits;
    }
    return text;
}

}
