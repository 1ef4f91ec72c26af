#pragma once

#include "NSDate.h"

#include <string>

namespace platform {

enum class NSDateFormatterStyle { None = 0, Short = 1, Medium = 2, Long = 3, Full = 4 };

/// Dates as the user's locale and time zone write them.
class NSDateFormatter {
public:
    static std::string localizedStringFromDate(
        const NSDate&, NSDateFormatterStyle dateStyle, NSDateFormatterStyle timeStyle);
};

}
