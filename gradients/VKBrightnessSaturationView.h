#pragma once

#include "platform/UIView.h"

namespace vekora {

/// The field of saturation (to the right) and brightness (upwards) of one hue.
class VKBrightnessSaturationView final : public platform::UIView {
public:
    double hue() const { return _hue; }
    void setHue(double); ///< Repaints.

    void drawRect(platform::CGRect) override;

private:
    double _hue = 0;
};

}
