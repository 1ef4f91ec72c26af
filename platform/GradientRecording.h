#pragma once

#include "Bitmap.h"
#include "CGContext.h"

#include <memory>
#include <vector>

namespace platform {

/// One gradient as it was drawn, on its way to becoming pixels.
struct GradientOperation {
    using Stop = std::array<CGFloat, 4>; ///< Straight red, green, blue, alpha, each 0..1.

    /// Most gradients run from one edge of the view to the opposite one, and are then sampled at whole
    /// fractions of the picture's pixels. The others are free.
    enum class Axis { Across, Down, Free };

    std::vector<Stop> stops; ///< At least two.
    Axis axis = Axis::Free;
    bool reversed = false; ///< From right to left, or from the bottom to the top.
    CGPoint start;
    CGPoint end;
    unsigned options = 0;
    PixelRect clip; ///< The pixels whose centres are not clipped away.

    /// True when every stop has this alpha.
    bool hasAlpha(CGFloat) const;
};

/// What a context has recorded: gradients on top of one another, and below them a bitmap or nothing.
struct GradientRecording {
    CGSize size; ///< Points; stands for the whole of the pixels.
    int width = 0; ///< Pixels.
    int height = 0;
    std::shared_ptr<const Bitmap> base;
    std::vector<GradientOperation> operations;

    PixelRect rect() const { return { 0, 0, width, height }; }
    /// True when the gradient leaves no pixel untouched.
    bool covers(const GradientOperation&) const;

    /// Adds a gradient, or does nothing when it cannot be seen. What it hides is forgotten.
    void add(const CGGradient&, CGPoint start, CGPoint end, unsigned options, PixelRect clip);
    /// The pixels whose centres lie in a rectangle of points.
    PixelRect pixelsInside(CGRect) const;
};

/// Where along a gradient's stops a pixel lies: between `stop` and the next, `numerator / denominator` of the
/// way.
struct StopPosition {
    std::int64_t stop;
    std::int64_t numerator;
    std::int64_t denominator;
};

/// Of pixel `index` of `length` pixels, for gradients from edge to edge. At the centre of the pixel.
inline StopPosition stopPosition(const GradientOperation& operation, int index, int length)
{
    const auto pixel = operation.reversed ? length - 1 - index : index;
    const auto segments = static_cast<std::int64_t>(operation.stops.size()) - 1;
    const auto denominator = 2 * static_cast<std::int64_t>(length);
    const auto scaled = (2 * static_cast<std::int64_t>(pixel) + 1) * segments;
    if (segments == 1)
        return { 0, scaled, denominator };
    return { scaled / denominator, scaled % denominator, denominator };
}

}
