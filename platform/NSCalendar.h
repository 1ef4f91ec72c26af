#pragma once

#include "NSDate.h"

namespace platform {

struct NSDateComponents {
    long hour = 0;
    long minute = 0;
    long second = 0; ///< Whole seconds of the minute; a date's fraction is in none of the components.
};

/// The user's calendar, in the device's time zone.
class NSCalendar {
public:
    static const NSCalendar& currentCalendar();

    NSDateComponents componentsFromDate(const NSDate&) const;
};

}
