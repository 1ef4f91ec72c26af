#include "VKHueBrightnessView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration = platform::registerClass<VKHueBrightnessView>("VKHueBrightnessView").initialiser<>();

}

void VKHueBrightnessView::setHueAndSaturationAndBrightness(double hue, double saturation, double brightness)
{
    _hue = hue;
    _saturation = saturation;
    _brightness = brightness;
    setNeedsDisplay();
}

void VKHueBrightnessView::drawRect(platform::CGRect)
{
    const auto lack = 1 - _saturation;
    drawLayers(*this,
        {
            { fallingHues(), Run::RightToLeft },
            { { black(0), black(1) }, Run::TopToBottom },
            { { white(lack), black(lack) }, Run::TopToBottom },
        });
}

}
