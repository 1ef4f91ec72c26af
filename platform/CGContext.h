#pragma once

#include "UIColor.h"

#include <memory>
#include <span>
#include <vector>

/// The drawing interface, as far as the panes use it: linear gradients in device RGB, clipped to rectangles.
///
/// Colour and alpha are each linear between the stops (straight, not premultiplied, no gamma), sampled at the
/// centre of each device pixel and composited source-over. The layers of one `drawRect` are composited
/// without rounding and rounded once, half up, to 8 bits: the picture is the exact result, whatever the
/// compiler or the processor.
namespace platform {

class CGContext;

enum class CGColorSpace { DeviceRGB };
CGColorSpace CGColorSpaceCreateDeviceRGB();

/// Stops in device RGB (straight red, green, blue, alpha), evenly spaced from the start (0) to the end (1).
struct CGGradient {
    std::vector<std::array<CGFloat, 4>> stops;
};

/// Grey colours become red = green = blue. Without colours the gradient draws nothing; a single one is
/// uniform.
CGGradient CGGradientCreateWithColors(CGColorSpace, std::span<const UIColor>);

/// What to paint beyond the start and the end of a gradient: nothing, or the end's colour.
enum CGGradientDrawingOptions : unsigned {
    kCGGradientDrawsNothingOutside = 0,
    kCGGradientDrawsBeforeStartLocation = 1,
    kCGGradientDrawsAfterEndLocation = 2,
};

/// Null outside `drawRect`. Its origin is the view's top left, its unit the point.
CGContext* UIGraphicsGetCurrentContext();

void CGContextSaveGState(CGContext&);
void CGContextRestoreGState(CGContext&);
/// What is already clipped stays clipped until the state is restored. An empty rectangle clips everything
/// away.
void CGContextClipToRect(CGContext&, CGRect);
/// From `start` to `end` in points; nothing when they are the same point.
void CGContextDrawLinearGradient(CGContext&, const CGGradient&, CGPoint start, CGPoint end, unsigned options);

/// Saves the state, and restores it at the end of the scope.
class CGContextStateGuard {
public:
    explicit CGContextStateGuard(CGContext& context)
        : _context(context)
    {
        CGContextSaveGState(_context);
    }
    ~CGContextStateGuard() { CGContextRestoreGState(_context); }
    CGContextStateGuard(const CGContextStateGuard&) = delete;
    CGContextStateGuard& operator=(const CGContextStateGuard&) = delete;

private:
    CGContext& _context;
};

}
