#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <span>
#include <vector>

namespace host {

enum class ReadingDirection { LeftToRight, RightToLeft };

/// The indexes of the rectangles as one reads them: from top to bottom and, of those whose middle lies level
/// with the one that begins a line, along the line. Equal places keep their order.
std::vector<std::size_t> readingOrder(std::span<const platform::CGRect>, ReadingDirection);

}
