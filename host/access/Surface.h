#pragma once

#include "Element.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace platform {
class UIControl;
}

namespace host {

/// What lies along one side of a surface that picks values.
struct SurfaceAxis {
    std::string_view name; ///< In lower case.
    double units; ///< How many of its unit a whole side is.
    std::string_view unit;
    bool falls; ///< The greatest value lies left, or at the top.
};

/// What is known of the surfaces that a class paints.
struct SurfaceKind {
    std::string_view className; ///< Of the picture below the finger.
    std::string_view name;
    std::array<std::optional<SurfaceAxis>, 2> axes; ///< Across and down.
};

/// Null for a class that is not in the table.
const SurfaceKind* surfaceKindNamed(std::string_view className);

/// A surface on which a finger picks one value or two at once, told by its parts alone: an untitled button
/// that follows drags, and beside it in the same view the handle that marks the place. What lies exactly
/// below the button tells by its class what the values are; those of an unknown class are called "horizontal"
/// (growing to the right) and "vertical" (growing upwards), in percent.
struct Surface {
    platform::UIControl* pad;
    platform::UIView* ground; ///< The picture below the finger; the pad itself where there is none.
    platform::UIView* handle;
    const SurfaceKind* kind;

    const std::optional<SurfaceAxis>& axis(int part) const
    {
        return kind->axes[static_cast<std::size_t>(part)];
    }
    bool isField() const { return kind->axes[0] && kind->axes[1]; }
    /// Where the handle stands on the axis, in its units. Only for an axis that there is.
    ElementValue value(int part) const;
    /// Where, in the pad, a finger gives this value on the one axis and leaves the other.
    platform::CGPoint placeFor(int part, double value) const;
    /// As "hue 210 degrees, saturation 40 percent".
    std::string summary() const;
};

/// Nothing when the control is no such pad.
std::optional<Surface> surfaceOf(platform::UIControl& pad);

}
