#pragma once

#include "ExactGradient.h"

namespace platform {

/// Pixels of any recording, one at a time: in double precision with a bound of its error and, where that
/// leaves a byte open, exactly.
class GradientPixel {
public:
    explicit GradientPixel(const GradientRecording&);

    /// 0xAARRGGBB, premultiplied.
    std::uint32_t at(int x, int y) const;

private:
    const GradientRecording& _recording;
    ExactGradient _exact;
};

}
