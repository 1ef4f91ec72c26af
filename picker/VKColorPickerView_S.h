#pragma once

#include "ColorPicker.h"

#include "gradients/VKHueBrightnessView.h"
#include "gradients/VKSaturationSliderView.h"

namespace vekora {

/// The picker with hue and brightness on the field, saturation on the bar.
class VKColorPickerView_S final
    : public ColorPicker<VKColorPickerView_S, VKHueBrightnessView, VKSaturationSliderView> {
public:
    VKColorPickerView_S(CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged,
        ColorBlock saveChanges);

    static constexpr PickerPlan plan {
        .fieldX = { Component::Hue, Direction::Rising },
        .fieldY = { Component::Brightness, Direction::Falling },
        .bar = { Component::Saturation, Direction::Falling },
        .topLeft = { Component::Brightness, ":Hue", "Brightness: %d%%" },
        .topRight = { Component::Hue, "Brightness:", "%d° : Hue" },
        .caption = { Component::Saturation, "", "%d%%" },
        .captionTitle = "Saturation:",
    };
    static const Roles roles;

    // Never null; see ColorPickerBase.
    const Ref<VKHueBrightnessView>& hueBrightnessView() const { return _hueBrightnessView; }
    void setHueBrightnessView(Ref<VKHueBrightnessView> view) { _hueBrightnessView = std::move(view); }
    const Ref<UIButton>& touchEaterHueBrightness() const { return _touchEaterHueBrightness; }
    void setTouchEaterHueBrightness(Ref<UIButton> view) { _touchEaterHueBrightness = std::move(view); }
    const Ref<VKSaturationSliderView>& saturationGradientView() const { return _saturationGradientView; }
    void setSaturationGradientView(Ref<VKSaturationSliderView> view)
    {
        _saturationGradientView = std::move(view);
    }
    const Ref<UIButton>& touchEaterSaturation() const { return _touchEaterSaturation; }
    void setTouchEaterSaturation(Ref<UIButton> view) { _touchEaterSaturation = std::move(view); }
    const Ref<UIImageView>& saturationSelector() const { return _saturationSelector; }
    void setSaturationSelector(Ref<UIImageView> view) { _saturationSelector = std::move(view); }

    // Internal: for the class itself and its tests.
    void _updateHueBrightnessWithTouch(CGPoint touch) { takeFromField(touch); }
    void _updateSaturationWithTouch(CGPoint touch) { takeFromBar(touch); }
    void _updateHueBrigntesSelector();
    void _updateSaturationSelector();
    void _updateSaturationSelectorPosition() { placeBarSelector(); }

private:
    void showInGradients();

    Ref<VKHueBrightnessView> _hueBrightnessView;
    Ref<UIButton> _touchEaterHueBrightness;
    Ref<VKSaturationSliderView> _saturationGradientView;
    Ref<UIButton> _touchEaterSaturation;
    Ref<UIImageView> _saturationSelector;
};

extern template class ColorPicker<VKColorPickerView_S, VKHueBrightnessView, VKSaturationSliderView>;

}
