#include "VKColorPickerView_H.h"

#include "ColorPickerImpl.h"

namespace vekora {

template class ColorPicker<VKColorPickerView_H, VKBrightnessSaturationView, VKHueSliderView>;

namespace {

const auto registration = registerColorPicker<VKColorPickerView_H>("VKColorPickerView_H");

}

const VKColorPickerView_H::Roles VKColorPickerView_H::roles {
    .field = &VKColorPickerView_H::_brightnessSaturationView,
    .fieldTouchEater = &VKColorPickerView_H::_touchEaterBrightnessSaturation,
    .bar = &VKColorPickerView_H::_hueGradientView,
    .barTouchEater = &VKColorPickerView_H::_touchEaterHueSaturation,
    .barSelector = &VKColorPickerView_H::_hueSelector,
    .updateFieldWithTouch = &VKColorPickerView_H::_updateBrightnessSaturationWithTouch,
    .updateBarWithTouch = &VKColorPickerView_H::_updateHueWithTouch,
    .updateFieldSelector = &VKColorPickerView_H::_updateBrigntessSaturationSelector,
    .updateBarSelector = &VKColorPickerView_H::_updateHueSelector,
    .updateBarSelectorPosition = &VKColorPickerView_H::_updateHueSelectorPosition,
    .showInGradients = &VKColorPickerView_H::showInGradients,
};

VKColorPickerView_H::VKColorPickerView_H(
    CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged, ColorBlock saveChanges)
    : ColorPicker(frame, color, std::move(colorsHaveChanged), std::move(saveChanges))
{
    build();
}

void VKColorPickerView_H::_updateHueSelector()
{
    _brightnessSaturationView->setHue(currentHue);
    showReadOut(plan.caption);
}

void VKColorPickerView_H::_updateBrigntessSaturationSelector()
{
    showReadOut(plan.topLeft);
    showReadOut(plan.topRight);
}

void VKColorPickerView_H::showInGradients()
{
    _brightnessSaturationView->setHue(currentHue);
}

}
