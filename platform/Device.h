#pragma once

#include "Geometry.h"
#include "NSDate.h"

#include <optional>
#include <string>

namespace platform {

/// The phone that the layer stands for, as its host sets it up. Panes never look at it; they ask for dates,
/// texts and files through the platform's own classes.
struct Device {
    /// The folder on this machine that stands for "/" on the device. Nothing outside it is read or written.
    std::string root;
    CGSize screenSize { 375, 667 }; ///< Points.
    double scale = 2; ///< Pixels a point: 1, 2 or 3.
    std::string locale = "en_US"; ///< An ICU name.
    std::string timeZone = "UTC"; ///< An Olson name.
    std::optional<NSDate> standingClock; ///< What `NSDate::date` says; the real time without one.
    bool rightToLeft = false; ///< Which way rows run. Follows from the locale unless the host says otherwise.

    static Device& current();
};

}
