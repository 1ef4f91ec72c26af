#include "../NSCalendar.h"

#include "Icu.h"

#include <cmath>

namespace platform {

const NSCalendar& NSCalendar::currentCalendar()
{
    static const NSCalendar calendar;
    return calendar;
}

NSDateComponents NSCalendar::componentsFromDate(const NSDate& date) const
{
    // Hours, minutes and seconds are the same in every calendar; the zone alone decides.
    const double utc = std::floor(icuDate(NSDate(std::floor(date.timeIntervalSinceReferenceDate()))) / 1000);
    std::int32_t standardOffset = 0;
    std::int32_t summerOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    deviceTimeZone()->getOffset(utc * 1000, false, standardOffset, summerOffset, status);
    const auto local = static_cast<std::int64_t>(utc) + (standardOffset + summerOffset) / 1000;

    constexpr long secondsInDay = 24 * 60 * 60;
    const long second = static_cast<long>((local % secondsInDay + secondsInDay) % secondsInDay);
    return { .hour = second / 3600, .minute = second / 60 % 60, .second = second % 60 };
}

}
