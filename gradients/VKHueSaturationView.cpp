#include "VKHueSaturationView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration = platform::registerClass<VKHueSaturationView>("VKHueSaturationView").initialiser<>();

}

void VKHueSaturationView::setHueAndSaturationAndBrightness(double hue, double saturation, double brightness)
{
    _hue = hue;
    _saturation = saturation;
    _brightness = brightness;
    setNeedsDisplay();
}

void VKHueSaturationView::drawRect(platform::CGRect)
{
    const auto veil = black(1 - _brightness);
    drawLayers(*this,
        {
            { fallingHues(), Run::RightToLeft },
            { { black(0), white(1) }, Run::TopToBottom },
            { { veil, veil }, Run::TopToBottom },
        });
}

}
