#include "VKBrightnessSaturationView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration
    = platform::registerClass<VKBrightnessSaturationView>("VKBrightnessSaturationView").initialiser<>();

}

void VKBrightnessSaturationView::setHue(double hue)
{
    _hue = hue;
    setNeedsDisplay();
}

void VKBrightnessSaturationView::drawRect(platform::CGRect)
{
    const auto pureHue = UIColor::colorWithHueSaturationBrightnessAlpha(_hue, 1, 1, 1);
    drawLayers(*this,
        {
            { { pureHue, white(1) }, Run::RightToLeft },
            { { black(0), black(1) }, Run::TopToBottom },
        });
}

}
