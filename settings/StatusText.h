#pragma once

#include "platform/NSMutableDictionary.h"

#include <cstdint>
#include <optional>
#include <string>

/// When a suppression ends, and how the status row says so.
namespace vekora {

/// The status row's text while no suppression is running.
inline constexpr const char* alarmsEnabledText = "Alarms Enabled";

/// How long a suppression lasts, in seconds, given the preference "disableForMinutes" (null when there is
/// none: one hour). Computed in 32 bits, wrapping around; what does not read as a number is 0 minutes.
[[nodiscard]] std::int32_t suppressionSeconds(const platform::PropertyValue* minutes);

/// So many seconds (which may be negative) from now, brought back to the whole minute of the user's calendar.
/// The fraction of a second of `now` stays.
[[nodiscard]] platform::NSDate suppressionEnd(const platform::NSDate& now, std::int32_t seconds);

/// Whether the add-on is on; off without preferences.
[[nodiscard]] bool isEnabled(const std::optional<platform::NSMutableDictionary>& preferences);

/// "Vekoraed Until: " and the end in the user's short date and medium time.
[[nodiscard]] std::string suppressedUntilText(const platform::NSDate& end);

/// The text that fits the preferences at an instant. A suppression that is about to end is taken as over, as
/// is one whose end is no date.
[[nodiscard]] std::string statusText(
    const std::optional<platform::NSMutableDictionary>& preferences, const platform::NSDate& now);

}
