#include "VKBrightnessSliderView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration
    = platform::registerClass<VKBrightnessSliderView>("VKBrightnessSliderView").initialiser<>();

}

void VKBrightnessSliderView::setHueAndSaturation(double hue, double saturation)
{
    _hue = hue;
    _saturation = saturation;
    setNeedsDisplay();
}

void VKBrightnessSliderView::drawRect(platform::CGRect)
{
    const auto brightest = UIColor::colorWithHueSaturationBrightnessAlpha(_hue, _saturation, 1, 1);
    const auto darkest = UIColor::colorWithHueSaturationBrightnessAlpha(0, 0, 0, 1);
    drawLayers(*this, { { { brightest, darkest }, Run::LeftToRight } });
}

}
