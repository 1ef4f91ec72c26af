#include "VKHueSliderView.h"

#include "GradientDrawing.h"

namespace vekora {

namespace {

const auto registration = platform::registerClass<VKHueSliderView>("VKHueSliderView").initialiser<>();

}

void VKHueSliderView::drawRect(platform::CGRect)
{
    drawLayers(*this, { { risingHues(), Run::LeftToRight } });
}

}
