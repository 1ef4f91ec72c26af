#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace platform {

/// The fraction cut off; what lies beyond 32 bits is pinned to their ends, and NaN is 0. A plain conversion
/// is undefined for these.
inline std::int32_t truncatedInteger(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int32_t>(
        std::clamp(value, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

}
