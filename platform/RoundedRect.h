#pragma once

#include "Bitmap.h"

#include <span>

namespace platform {

/// A rectangle of device pixels with round corners, and how much of each pixel it covers.
struct RoundedRect {
    PixelRect rect;
    double radius = 0; ///< Pixels; at most half the shorter side counts.

    /// Rows from the top or the bottom within which a corner may leave a pixel partly covered.
    int cornerRows() const;
    /// Rows that are covered from edge to edge; empty when there are none.
    PixelRect solidBand() const;
    /// The columns of a row that are covered wholly, `width` of them from `x` on; y and height are the row's.
    PixelRect solidColumns(int y) const;
    /// Coverage, 0..255, of the pixels of one row from `x` on.
    void coverageOfRow(int y, int x, std::span<std::uint8_t> coverage) const;
};

}
