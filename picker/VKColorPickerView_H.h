#pragma once

#include "ColorPicker.h"

#include "gradients/VKBrightnessSaturationView.h"
#include "gradients/VKHueSliderView.h"

namespace vekora {

/// The picker with brightness and saturation on the field, hue on the bar, whose picture never changes.
class VKColorPickerView_H final
    : public ColorPicker<VKColorPickerView_H, VKBrightnessSaturationView, VKHueSliderView> {
public:
    VKColorPickerView_H(CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged,
        ColorBlock saveChanges);

    static constexpr PickerPlan plan {
        .fieldX = { Component::Saturation, Direction::Rising },
        .fieldY = { Component::Brightness, Direction::Falling },
        .bar = { Component::Hue, Direction::Rising },
        .topLeft = { Component::Brightness, "Brightness:", "Brightness: %d%%" },
        .topRight = { Component::Saturation, ":Saturation", "%d%% :Saturation" },
        .caption = { Component::Hue, "", "%d°" },
        .captionTitle = "Hue:",
    };
    static const Roles roles;

    // Never null; see ColorPickerBase.
    const Ref<VKBrightnessSaturationView>& brightnessSaturationView() const
    {
        return _brightnessSaturationView;
    }
    void setBrightnessSaturationView(Ref<VKBrightnessSaturationView> view)
    {
        _brightnessSaturationView = std::move(view);
    }
    const Ref<UIButton>& touchEaterBrightnessSaturation() const { return _touchEaterBrightnessSaturation; }
    void setTouchEaterBrightnessSaturation(Ref<UIButton> view)
    {
        _touchEaterBrightnessSaturation = std::move(view);
    }
    const Ref<VKHueSliderView>& hueGradientView() const { return _hueGradientView; }
    void setHueGradientView(Ref<VKHueSliderView> view) { _hueGradientView = std::move(view); }

    // The button over the hue bar has the name of another kind's button on purpose.
    const Ref<UIButton>& touchEaterHueSaturation() const { return _touchEaterHueSaturation; }
    void setTouchEaterHueSaturation(Ref<UIButton> view) { _touchEaterHueSaturation = std::move(view); }
    const Ref<UIImageView>& hueSelector() const { return _hueSelector; }
    void setHueSelector(Ref<UIImageView> view) { _hueSelector = std::move(view); }

    // Internal: for the class itself and its tests.
    void _updateBrightnessSaturationWithTouch(CGPoint touch) { takeFromField(touch); }
    void _updateHueWithTouch(CGPoint touch) { takeFromBar(touch); }
    void _updateBrigntessSaturationSelector();
    void _updateHueSelector();
    void _updateHueSelectorPosition() { placeBarSelector(); }

private:
    void showInGradients();

    Ref<VKBrightnessSaturationView> _brightnessSaturationView;
    Ref<UIButton> _touchEaterBrightnessSaturation;
    Ref<VKHueSliderView> _hueGradientView;
    Ref<UIButton> _touchEaterHueSaturation;
    Ref<UIImageView> _hueSelector;
};

extern template class ColorPicker<VKColorPickerView_H, VKBrightnessSaturationView, VKHueSliderView>;

}
