#pragma once

#include "platform/UIView.h"

namespace vekora {

/// The bar of the saturation: the colour at its most colourful on the left, the grey of its brightness on the
/// right.
class VKSaturationSliderView final : public platform::UIView {
public:
    /// Repaints.
    void setHueAndBrightness(double hue, double brightness);

    // These store the value and leave the picture as it is until the next repaint.
    double hue() const { return _hue; }
    void setHue(double hue) { _hue = hue; }
    double brightness() const { return _brightness; }
    void setBrightness(double brightness) { _brightness = brightness; }

    void drawRect(platform::CGRect) override;

private:
    double _hue = 0;
    double _brightness = 0;
};

}
