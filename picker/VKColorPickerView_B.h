#pragma once

#include "ColorPicker.h"

#include "gradients/VKBrightnessSliderView.h"
#include "gradients/VKHueSaturationView.h"

namespace vekora {

/// The picker with hue and saturation on the field, brightness on the bar.
class VKColorPickerView_B final
    : public ColorPicker<VKColorPickerView_B, VKHueSaturationView, VKBrightnessSliderView> {
public:
    VKColorPickerView_B(CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged,
        ColorBlock saveChanges);

    static constexpr PickerPlan plan {
        .fieldX = { Component::Hue, Direction::Rising },
        .fieldY = { Component::Saturation, Direction::Falling },
        .bar = { Component::Brightness, Direction::Falling },
        .topLeft = { Component::Saturation, "Saturation", "Saturation: %d%%" },
        .topRight = { Component::Hue, ":Hue", "%d° : Hue" },
        .caption = { Component::Brightness, "", "%d%%" },
        .captionTitle = "Brightness:",
    };
    static const Roles roles;

    // Never null; see ColorPickerBase.
    const Ref<VKHueSaturationView>& hueSaturationView() const { return _hueSaturationView; }
    void setHueSaturationView(Ref<VKHueSaturationView> view) { _hueSaturationView = std::move(view); }
    const Ref<UIButton>& touchEaterHueSaturation() const { return _touchEaterHueSaturation; }
    void setTouchEaterHueSaturation(Ref<UIButton> view) { _touchEaterHueSaturation = std::move(view); }
    const Ref<VKBrightnessSliderView>& brightnessGradientView() const { return _brightnessGradientView; }
    void setBrightnessGradientView(Ref<VKBrightnessSliderView> view)
    {
        _brightnessGradientView = std::move(view);
    }
    const Ref<UIButton>& touchEaterBrightness() const { return _touchEaterBrightness; }
    void setTouchEaterBrightness(Ref<UIButton> view) { _touchEaterBrightness = std::move(view); }
    const Ref<UIImageView>& brightnessSelector() const { return _brightnessSelector; }
    void setBrightnessSelector(Ref<UIImageView> view) { _brightnessSelector = std::move(view); }

    // Internal: for the class itself and its tests.
    void _updateHueSaturationWithTouch(CGPoint touch) { takeFromField(touch); }
    void _updateBrightnessWithTouch(CGPoint touch) { takeFromBar(touch); }
    void _updateHueSaturationSelector();
    void _updateBrightnessSelector();
    void _updateBrightnessSelectorPosition() { placeBarSelector(); }

private:
    void showInGradients();

    Ref<VKHueSaturationView> _hueSaturationView;
    Ref<UIButton> _touchEaterHueSaturation;
    Ref<VKBrightnessSliderView> _brightnessGradientView;
    Ref<UIButton> _touchEaterBrightness;
    Ref<UIImageView> _brightnessSelector;
};

extern template class ColorPicker<VKColorPickerView_B, VKHueSaturationView, VKBrightnessSliderView>;

}
