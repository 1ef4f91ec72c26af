#pragma once

#include "Element.h"

#include <Qt>

#include <optional>

namespace host {

/// What a key does to a value.
struct Adjustment {
    Element target; ///< What gets the value: the element, or one of its axes.
    double value; ///< In its unit; of segments, which one.
};

/// Arrows move a thumb or handle the way they point; where it only goes across, Up makes the value more and
/// Down less. They go a step, or ten with Shift or Ctrl. PageUp and PageDown are ten steps up and down, Home
/// is the least value and End the greatest: of a field those of the value that lies across, with Ctrl of the
/// other. The ends of a range stop every step. Nothing for other keys, and for elements that have no value.
std::optional<Adjustment> adjustmentFor(const Element&, int key, Qt::KeyboardModifiers);

}
