#include "StatusText.h"

#include "platform/NSCalendar.h"
#include "platform/NSDateFormatter.h"
#include "platform/NSString.h"

namespace vekora {

using namespace platform;

namespace {

constexpr std::int32_t defaultSeconds = 3600;
constexpr std::uint32_t secondsPerMinute = 60;
/// A suppression that ends within this time is shown as already over, so that nobody relies on it.
constexpr double marginSeconds = 15;

}

std::int32_t suppressionSeconds(const PropertyValue* minutes)
{
    if (!minutes)
        return defaultSeconds;
    // Unsigned, as signed numbers must not overflow.
    return static_cast<std::int32_t>(secondsPerMinute * static_cast<std::uint32_t>(minutes->intValue()));
}

NSDate suppressionEnd(const NSDate& now, std::int32_t seconds)
{
    const auto end = now.dateByAddingTimeInterval(seconds);
    const auto components = NSCalendar::currentCalendar().componentsFromDate(end);
    return end.dateByAddingTimeInterval(-static_cast<double>(components.second));
}

bool isEnabled(const std::optional<NSMutableDictionary>& preferences)
{
    const auto* enabled = preferences ? preferences->objectForKey("enabled") : nullptr;
    return enabled && enabled->boolValue();
}

std::string suppressedUntilText(const NSDate& end)
{
    const auto date = NSDateFormatter::localizedStringFromDate(
        end, NSDateFormatterStyle::Short, NSDateFormatterStyle::Medium);
    return stringWithFormat("Vekoraed Until: %s", date.c_str());
}

std::string statusText(const std::optional<NSMutableDictionary>& preferences, const NSDate& now)
{
    if (!isEnabled(preferences))
        return alarmsEnabledText;
    const auto* value = preferences->objectForKey("disarmedUntil");
    const auto* end = value ? value->date() : nullptr;
    const auto isRunning
        = end && now.dateByAddingTimeInterval(marginSeconds).compare(*end) == NSComparisonResult::Ascending;
    return isRunning ? suppressedUntilText(*end) : alarmsEnabledText;
}

}
