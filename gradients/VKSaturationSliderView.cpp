#include "VKSaturationSliderView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration
    = platform::registerClass<VKSaturationSliderView>("VKSaturationSliderView").initialiser<>();

}

void VKSaturationSliderView::setHueAndBrightness(double hue, double brightness)
{
    _hue = hue;
    _brightness = brightness;
    setNeedsDisplay();
}

void VKSaturationSliderView::drawRect(platform::CGRect)
{
    const auto colourful = UIColor::colorWithHueSaturationBrightnessAlpha(_hue, 1, _brightness, 1);
    const auto grey = UIColor::colorWithHueSaturationBrightnessAlpha(0, 0, _brightness, 1);
    drawLayers(*this, { { { colourful, grey }, Run::LeftToRight } });
}

}
