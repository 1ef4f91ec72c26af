#pragma once

#include "platform/NSDate.h"

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// An instant in ISO 8601: a date ("2014-01-05"), or a date, "T" (or a blank) and a time to the minute or the
/// second, the second with any fraction, and then "Z", an offset ("+01:00", "+0100", "+01") or neither: then
/// the wall time of the zone, an Olson name. Nothing for any other text. "24:00" is the end of its day; of a
/// wall time that comes twice the first is meant, and one that is skipped counts as before the change.
std::optional<platform::NSDate> instantFromText(std::string_view, std::string_view timeZone);

/// In UTC, as "2014-01-05T09:17:42.6Z": to the microsecond, without a fraction when there is none. Empty for
/// an instant that no date can be given for (not finite, or beyond the year 9999 or before the year 0).
std::string textFromInstant(platform::NSDate);

/// The same as the zone's wall time with its offset, as "2014-01-05T10:17:42.6+01:00".
std::string textFromInstant(platform::NSDate, std::string_view timeZone);

}
