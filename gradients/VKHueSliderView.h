#pragma once

#include "platform/UIView.h"

namespace vekora {

/// The bar of the hue: red at both ends, every hue between. Its picture never changes.
class VKHueSliderView final : public platform::UIView {
public:
    void drawRect(platform::CGRect) override;
};

}
