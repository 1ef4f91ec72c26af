#include "SliderSteps.h"

#include "host/driver/ViewSearch.h"
#include "platform/PSTableCell.h"
#include "platform/UISlider.h"

namespace host {

using namespace platform;

namespace {

constexpr double shortRange = 10; ///< Units; below it a whole one is too coarse.
constexpr double stepsOfShortRange = 100;

/// Of a slider that rests on even steps only: how many there are; else 0.
double evenSteps(const UISlider& slider)
{
    auto* const cell = cellAround(const_cast<UISlider*>(&slider));
    if (!cell || cell->control() != &slider || !cell->specifier())
        return 0;
    const auto* const isSegmented = cell->specifier()->propertyForKey("isSegmented");
    const auto* const count = cell->specifier()->propertyForKey("segmentCount");
    return isSegmented && isSegmented->boolValue() && count && count->floatValue() >= 1 ? count->floatValue()
                                                                                        : 0;
}

}

double stepOf(const UISlider& slider)
{
    const double range = static_cast<double>(slider.maximumValue()) - slider.minimumValue();
    if (const double steps = evenSteps(slider); steps > 0)
        return range / steps;
    return range < shortRange ? range / stepsOfShortRange : 1;
}

}
