#include "PickerLayout.h"

using namespace platform;

namespace vekora {

namespace {

constexpr CGFloat margin = 10;
constexpr CGFloat barHeight = 40;
constexpr CGFloat captionGap = 4; // Between the caption and the bar.
constexpr CGFloat captionWidth = 100; // On each side of the middle.

CGFloat captionTop(CGRect bar, CGFloat labelHeight)
{
    return bar.minY() - labelHeight - captionGap;
}

}

CGRect topLeftLabelFrame(CGSize picker, CGFloat labelHeight)
{
    return { margin, margin, picker.width * 0.5 - 2 * margin, labelHeight };
}

CGRect topRightLabelFrame(CGSize picker, CGFloat labelHeight)
{
    return { picker.width * 0.5 + margin, margin, picker.width * 0.5 - 2 * margin, labelHeight };
}

CGRect fieldFrame(CGSize picker, CGFloat labelHeight)
{
    return { margin, labelHeight + margin + margin, picker.width - 2 * margin,
        picker.height - 30 - 80 - labelHeight + 10 };
}

CGRect barFrame(CGSize picker, CGRect field, CGFloat labelHeight)
{
    return { margin, field.minY() + captionGap + field.height + margin + labelHeight,
        picker.width - 2 * margin, barHeight };
}

CGRect captionTitleFrame(CGSize picker, CGRect bar, CGFloat labelHeight)
{
    return { picker.width * 0.5 - captionWidth, captionTop(bar, labelHeight), captionWidth, labelHeight };
}

CGRect captionValueFrame(CGSize picker, CGRect bar, CGFloat labelHeight)
{
    return { picker.width * 0.5 + 2, captionTop(bar, labelHeight), captionWidth, labelHeight };
}

CGRect captionButtonFrame(CGSize picker, CGRect bar, CGFloat labelHeight)
{
    const auto left = picker.width * 0.5 - captionWidth;
    return { left, captionTop(bar, labelHeight), picker.width - 2 * left, labelHeight };
}

CGRect barSelectorFrame(CGRect bar)
{
    return { bar.minX() - 8, bar.minY() - 4, 16, 48 };
}

CGRect crossHairsFrame(CGRect field)
{
    return { field.minX(), field.minY(), 20, 20 };
}

}
