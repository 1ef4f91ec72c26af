#include "NSDate.h"

#include "Device.h"

#include <chrono>

namespace platform {

namespace {

// From 1970-01-01 to 2001-01-01.
constexpr double referenceDateSince1970 = 978'307'200;

}

NSDate NSDate::date()
{
    if (const auto& standing = Device::current().standingClock)
        return *standing;
    const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    return dateWithTimeIntervalSince1970(now.count());
}

NSDate NSDate::dateWithTimeIntervalSince1970(double seconds)
{
    return NSDate(seconds - referenceDateSince1970);
}

double NSDate::timeIntervalSince1970() const
{
    return _seconds + referenceDateSince1970;
}

NSDate NSDate::dateByAddingTimeInterval(double seconds) const
{
    return NSDate(_seconds + seconds);
}

NSComparisonResult NSDate::compare(const NSDate& other) const
{
    if (_seconds < other._seconds)
        return NSComparisonResult::Ascending;
    return _seconds > other._seconds ? NSComparisonResult::Descending : NSComparisonResult::Same;
}

}
