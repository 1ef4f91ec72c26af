#pragma once

#include "GradientRecording.h"

namespace platform {

/// The last word on a pixel: the drawing rule in whole numbers of any length, so without any error. Slow; the
/// painters ask it only about pixels that lie too near the border between two byte values.
class ExactGradient {
public:
    explicit ExactGradient(const GradientRecording&);

    /// 0xAARRGGBB, premultiplied, each component rounded once, half up.
    std::uint32_t pixel(int x, int y) const;

private:
    const GradientRecording& _recording;
    bool _fitsMachineIntegers;
};

/// True when the centre of a pixel, of `count` over `length` points, lies before the edge. Without any error.
bool centreIsBefore(int pixel, CGFloat edge, CGFloat length, int count);

}
