#include "VKColorPickerView_B.h"

#include "ColorPickerImpl.h"

namespace vekora {

template class ColorPicker<VKColorPickerView_B, VKHueSaturationView, VKBrightnessSliderView>;

namespace {

const auto registration = registerColorPicker<VKColorPickerView_B>("VKColorPickerView_B");

}

const VKColorPickerView_B::Roles VKColorPickerView_B::roles {
    .field = &VKColorPickerView_B::_hueSaturationView,
    .fieldTouchEater = &VKColorPickerView_B::_touchEaterHueSaturation,
    .bar = &VKColorPickerView_B::_brightnessGradientView,
    .barTouchEater = &VKColorPickerView_B::_touchEaterBrightness,
    .barSelector = &VKColorPickerView_B::_brightnessSelector,
    .updateFieldWithTouch = &VKColorPickerView_B::_updateHueSaturationWithTouch,
    .updateBarWithTouch = &VKColorPickerView_B::_updateBrightnessWithTouch,
    .updateFieldSelector = &VKColorPickerView_B::_updateHueSaturationSelector,
    .updateBarSelector = &VKColorPickerView_B::_updateBrightnessSelector,
    .updateBarSelectorPosition = &VKColorPickerView_B::_updateBrightnessSelectorPosition,
    .showInGradients = &VKColorPickerView_B::showInGradients,
};

VKColorPickerView_B::VKColorPickerView_B(
    CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged, ColorBlock saveChanges)
    : ColorPicker(frame, color, std::move(colorsHaveChanged), std::move(saveChanges))
{
    build();
}

void VKColorPickerView_B::_updateBrightnessSelector()
{
    _hueSaturationView->setHueAndSaturationAndBrightness(currentHue, currentSaturation, currentBrightness);
    showReadOut(plan.caption);
}

void VKColorPickerView_B::_updateHueSaturationSelector()
{
    _brightnessGradientView->setHueAndSaturation(currentHue, currentSaturation);
    showReadOut(plan.topLeft);
    showReadOut(plan.topRight);
}

void VKColorPickerView_B::showInGradients()
{
    _brightnessGradientView->setHueAndSaturation(currentHue, currentSaturation);
    _hueSaturationView->setHueAndSaturationAndBrightness(currentHue, currentSaturation, currentBrightness);
}

}
