#include "Icu.h"

#include "../Device.h"

#include <algorithm>
#include <cmath>

namespace platform {

icu::Locale deviceLocale()
{
    return icu::Locale::createCanonical(Device::current().locale.c_str());
}

std::unique_ptr<icu::TimeZone> deviceTimeZone()
{
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(Device::current().timeZone)));
}

UDate icuDate(const NSDate& date)
{
    constexpr double furthest = 1.8e14; // Seconds.
    const double seconds = date.timeIntervalSinceReferenceDate();
    const NSDate pinned(std::isnan(seconds) ? 0 : std::clamp(seconds, -furthest, furthest));
    return pinned.timeIntervalSince1970() * 1000;
}

std::string toUtf8(const icu::UnicodeString& text)
{
    std::string result;
    text.toUTF8String(result);
    return result;
}

}
