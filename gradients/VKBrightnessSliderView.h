#pragma once

#include "platform/UIView.h"

namespace vekora {

/// The bar of the brightness: the colour at its brightest on the left, black on the right.
class VKBrightnessSliderView final : public platform::UIView {
public:
    /// Repaints.
    void setHueAndSaturation(double hue, double saturation);

    // These store the value and leave the picture as it is until the next repaint.
    double hue() const { return _hue; }
    void setHue(double hue) { _hue = hue; }
    double saturation() const { return _saturation; }
    void setSaturation(double saturation) { _saturation = saturation; }

    void drawRect(platform::CGRect) override;

private:
    double _hue = 0;
    double _saturation = 0;
};

}
