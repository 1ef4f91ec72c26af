#pragma once

#include "Geometry.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace platform {

enum class CGColorSpaceModel { Gray, RGB };

/// Components in a colour space, each 0..1, alpha last: two for grey, four for device RGB.
class CGColor {
public:
    CGColor(CGColorSpaceModel, std::array<CGFloat, 4> components);

    CGColorSpaceModel space() const { return _space; }
    std::span<const CGFloat> components() const { return { _components.data(), numberOfComponents() }; }
    std::size_t numberOfComponents() const { return _space == CGColorSpaceModel::Gray ? 2 : 4; }

    /// The colour in device RGB: red, green, blue, alpha.
    std::array<CGFloat, 4> rgba() const;

    /// Same space and exactly the same components.
    bool operator==(const CGColor&) const = default;

private:
    CGColorSpaceModel _space;
    std::array<CGFloat, 4> _components;
};

std::span<const CGFloat> CGColorGetComponents(const CGColor&);

/// A colour as the platform keeps it: double-precision components in grey or device RGB. Components are
/// brought into 0..1 when the colour is made (NaN becomes 0), so a colour made from hue 2 is made from hue 1.
///
/// There is no HSB space: a colour made from hue, saturation and brightness keeps its red, green and blue
/// only. So every hue of a grey, and every hue and saturation of black, are the same colour.
class UIColor {
public:
    static UIColor colorWithRedGreenBlueAlpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
    static UIColor colorWithHueSaturationBrightnessAlpha(
        CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha);
    static UIColor colorWithWhiteAlpha(CGFloat white, CGFloat alpha);

    static UIColor blackColor(); ///< Grey space, as white, grey and clear are.
    static UIColor whiteColor();
    static UIColor clearColor();
    static UIColor redColor();
    static UIColor blueColor();

    /// Writes hue (0..1, below 1; 0 for a grey), saturation and brightness where the pointer is not null.
    /// False, writing nothing, for a colour that has none; both of this layer's spaces have.
    bool getHueSaturationBrightnessAlpha(
        CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const;

    const CGColor& cgColor() const { return _color; }

    /// Same space and exactly the same components: white is not equal to RGB 1, 1, 1.
    bool isEqual(const UIColor& other) const { return _color == other._color; }
    bool operator==(const UIColor&) const = default;

private:
    explicit UIColor(CGColor color)
        : _color(color)
    {
    }

    CGColor _color;
};

/// "#RRGGBBAA", each component rounded half up to 0..255.
std::string hexDescription(const CGColor&);

}
