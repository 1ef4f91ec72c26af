#pragma once

#include "platform/UIView.h"

namespace vekora {

/// The field of hue (to the right) and saturation (upwards), under a black veil for what the brightness
/// lacks.
class VKHueSaturationView final : public platform::UIView {
public:
    /// Repaints.
    void setHueAndSaturationAndBrightness(double hue, double saturation, double brightness);

    // These store the value and leave the picture as it is until the next repaint.
    double hue() const { return _hue; }
    void setHue(double hue) { _hue = hue; }
    double saturation() const { return _saturation; }
    void setSaturation(double saturation) { _saturation = saturation; }
    double brightness() const { return _brightness; }
    void setBrightness(double brightness) { _brightness = brightness; }

    void drawRect(platform::CGRect) override;

private:
    double _hue = 0;
    double _saturation = 0;
    double _brightness = 0;
};

}
