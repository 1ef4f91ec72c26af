#pragma once

#include "UIColor.h"

#include <optional>

namespace platform {

class UIView;

/// How a view's layer looks around its contents. Painted in this order: shadow, background, contents,
/// sublayers, border; changing any of it repaints no contents. Lengths are points.
class CALayer {
public:
    explicit CALayer(UIView& view)
        : _view(view)
    {
    }
    CALayer(const CALayer&) = delete;
    CALayer& operator=(const CALayer&) = delete;

    const std::optional<CGColor>& backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(std::optional<CGColor> color) { set(_backgroundColor, color); }

    /// Drawn inside the bounds, above everything else.
    CGFloat borderWidth() const { return _borderWidth; }
    void setBorderWidth(CGFloat width) { set(_borderWidth, width); }
    const CGColor& borderColor() const { return _borderColor; }
    void setBorderColor(CGColor color) { set(_borderColor, color); }

    /// Rounds background and border; contents and sublayers only with `masksToBounds`.
    CGFloat cornerRadius() const { return _cornerRadius; }
    void setCornerRadius(CGFloat radius) { set(_cornerRadius, radius); }
    bool masksToBounds() const { return _masksToBounds; }
    void setMasksToBounds(bool masks) { set(_masksToBounds, masks); }

    /// Nothing while the opacity (0..1) is 0; cut off by `masksToBounds`.
    float shadowOpacity() const { return _shadowOpacity; }
    void setShadowOpacity(float opacity) { set(_shadowOpacity, opacity); }
    CGFloat shadowRadius() const { return _shadowRadius; }
    void setShadowRadius(CGFloat radius) { set(_shadowRadius, radius); }
    CGSize shadowOffset() const { return _shadowOffset; }
    void setShadowOffset(CGSize offset) { set(_shadowOffset, offset); }
    const CGColor& shadowColor() const { return _shadowColor; }
    void setShadowColor(CGColor color) { set(_shadowColor, color); }

private:
    template <typename T> void set(T& member, const T& value)
    {
        if (member == value)
            return;
        willChange();
        member = value;
        willChange();
    }
    void willChange(); ///< Marks what the layer covers to be composed anew.

    UIView& _view;
    std::optional<CGColor> _backgroundColor;
    CGFloat _borderWidth = 0;
    CGColor _borderColor = UIColor::blackColor().cgColor();
    CGFloat _cornerRadius = 0;
    bool _masksToBounds = false;
    float _shadowOpacity = 0;
    CGFloat _shadowRadius = 3;
    CGSize _shadowOffset { 0, -3 };
    CGColor _shadowColor = UIColor::blackColor().cgColor();
};

}
