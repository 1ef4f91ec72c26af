#pragma once

#include "Geometry.h"

namespace platform {

/// The frame of a subview after its superview went from one size to another, by its autoresizing mask
/// (UIViewAutoresizing). Along each axis the difference is shared among the flexible parts in proportion to
/// their lengths, in equal shares when these add up to nothing. Fractions are kept; a length never falls
/// below 0.
CGRect autoresizedFrame(CGRect frame, unsigned mask, CGSize oldSize, CGSize newSize);

}
