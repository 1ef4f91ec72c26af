#include "VKColorPickerView_S.h"

#include "ColorPickerImpl.h"

namespace vekora {

template class ColorPicker<VKColorPickerView_S, VKHueBrightnessView, VKSaturationSliderView>;

namespace {

const auto registration = registerColorPicker<VKColorPickerView_S>("VKColorPickerView_S");

}

const VKColorPickerView_S::Roles VKColorPickerView_S::roles {
    .field = &VKColorPickerView_S::_hueBrightnessView,
    .fieldTouchEater = &VKColorPickerView_S::_touchEaterHueBrightness,
    .bar = &VKColorPickerView_S::_saturationGradientView,
    .barTouchEater = &VKColorPickerView_S::_touchEaterSaturation,
    .barSelector = &VKColorPickerView_S::_saturationSelector,
    .updateFieldWithTouch = &VKColorPickerView_S::_updateHueBrightnessWithTouch,
    .updateBarWithTouch = &VKColorPickerView_S::_updateSaturationWithTouch,
    .updateFieldSelector = &VKColorPickerView_S::_updateHueBrigntesSelector,
    .updateBarSelector = &VKColorPickerView_S::_updateSaturationSelector,
    .updateBarSelectorPosition = &VKColorPickerView_S::_updateSaturationSelectorPosition,
    .showInGradients = &VKColorPickerView_S::showInGradients,
};

VKColorPickerView_S::VKColorPickerView_S(
    CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged, ColorBlock saveChanges)
    : ColorPicker(frame, color, std::move(colorsHaveChanged), std::move(saveChanges))
{
    build();
}

void VKColorPickerView_S::_updateSaturationSelector()
{
    _hueBrightnessView->setHueAndSaturationAndBrightness(currentHue, currentSaturation, currentBrightness);
    showReadOut(plan.caption);
}

void VKColorPickerView_S::_updateHueBrigntesSelector()
{
    _saturationGradientView->setHueAndBrightness(currentHue, currentBrightness);
    showReadOut(plan.topLeft);
    showReadOut(plan.topRight);
}

void VKColorPickerView_S::showInGradients()
{
    _saturationGradientView->setHueAndBrightness(currentHue, currentBrightness);
    _hueBrightnessView->setHueAndSaturationAndBrightness(currentHue, currentSaturation, currentBrightness);
}

}
