#include "ColorCellLayout.h"

#include <cmath>

namespace vekora {

using namespace platform;

namespace {

constexpr CGFloat margin = 15;
constexpr CGFloat channelPitch = 68;

}

CGRect ColorCellLayout::hexReadOut(CGSize text) const
{
    return { width * 0.5 - text.width * 0.5, 10, text.width, text.height };
}

CGRect ColorCellLayout::sample() const
{
    // Whole points, through single precision, as the sample has always been sized.
    return { margin, 41, static_cast<float>(std::round(width - 34)), 38 };
}

CGRect ColorCellLayout::title(int channel) const
{
    return { margin, topOf(channel), width - 120, 20 };
}

CGRect ColorCellLayout::value(int channel) const
{
    return { width - 75, topOf(channel) - 7, 60, 30 };
}

CGRect ColorCellLayout::slider(int channel) const
{
    return { margin, topOf(channel) + 18, width - 2 * margin, 40 };
}

CGRect ColorCellLayout::picker() const
{
    return { 0, pickerPlace == PickerPlace::Above ? 90.0 : 285.0, width, 380 };
}

CGRect ColorCellLayout::help() const
{
    return { margin, 685, width - 2 * margin, 100 };
}

CGFloat ColorCellLayout::topOf(int channel) const
{
    return (pickerPlace == PickerPlace::Above ? 490 : 90) + channelPitch * channel;
}

}
