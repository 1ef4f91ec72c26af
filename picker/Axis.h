#pragma once

#include "platform/Geometry.h"

namespace vekora {

/// The three values of a picker's colour, each 0..1. Their order is that of the tables kept by component.
enum class Component { Hue, Saturation, Brightness };

/// Which way a value goes along a side: from 0 at its start (left or top) to 1, or from 1 to 0.
enum class Direction { Rising, Falling };

/// A value that lies along one side of a view.
struct Axis {
    Component component;
    Direction direction;

    /// The value at a position on the side. Beyond its ends this leaves 0..1; a side without length has
    /// its start's value everywhere.
    platform::CGFloat valueAt(
        platform::CGFloat position, platform::CGFloat origin, platform::CGFloat length) const;

    /// Where on the side a value lies; beyond its ends for one outside 0..1.
    platform::CGFloat positionOf(
        platform::CGFloat value, platform::CGFloat origin, platform::CGFloat length) const;
};

}
