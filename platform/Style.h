#pragma once

#include "UIColor.h"

/// Colours and lengths (points) that the layer's own views share, so that a page looks of one piece.
namespace platform::style {

inline UIColor rgb(unsigned hex, double alpha = 1)
{
    return UIColor::colorWithRedGreenBlueAlpha(
        (hex >> 16 & 255) / 255.0, (hex >> 8 & 255) / 255.0, (hex & 255) / 255.0, alpha);
}

inline UIColor pageBackground()
{
    return rgb(0xEFEFF4);
}
inline UIColor cellBackground()
{
    return UIColor::whiteColor();
}
inline UIColor cellHighlight()
{
    return rgb(0xD1D1D6);
}
inline UIColor barBackground()
{
    return rgb(0xF8F8F8);
}
inline UIColor hairline()
{
    return rgb(0xC8C7CC);
}
inline UIColor secondaryText()
{
    return rgb(0x6D6D72);
} ///< Headers and footers.
inline UIColor valueText()
{
    return rgb(0x8E8E93);
} ///< A row's value.
inline UIColor disabledText()
{
    return rgb(0xAEAEB2);
} ///< A greyed row.
inline UIColor tint()
{
    return rgb(0x007AFF);
} ///< What can be tapped.
inline UIColor switchOn()
{
    return rgb(0x34C759);
}
inline UIColor trackGray()
{
    return rgb(0xE5E5EA);
}
inline UIColor chevron()
{
    return rgb(0xC7C7CC);
}

inline constexpr double margin = 15; ///< From a row's edge to its content.
inline constexpr double sectionGap = 35; ///< Above a group.
inline constexpr double hairlineHeight = 1; ///< Device pixels.
inline constexpr double smallFontSize = 13;

}
