#include "../NSDateFormatter.h"

#include "Icu.h"

#include <unicode/datefmt.h>

namespace platform {

namespace {

icu::DateFormat::EStyle icuStyle(NSDateFormatterStyle style)
{
    switch (style) {
    case NSDateFormatterStyle::Short:
        return icu::DateFormat::kShort;
    case NSDateFormatterStyle::Medium:
        return icu::DateFormat::kMedium;
    case NSDateFormatterStyle::Long:
        return icu::DateFormat::kLong;
    case NSDateFormatterStyle::Full:
        return icu::DateFormat::kFull;
    case NSDateFormatterStyle::None:
        break;
    }
    return icu::DateFormat::kNone;
}

}

std::string NSDateFormatter::localizedStringFromDate(
    const NSDate& date, NSDateFormatterStyle dateStyle, NSDateFormatterStyle timeStyle)
{
    if (dateStyle == NSDateFormatterStyle::None && timeStyle == NSDateFormatterStyle::None)
        return {};
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle), deviceLocale()));
    if (!format)
        return {};
    format->adoptTimeZone(deviceTimeZone().release());
    icu::UnicodeString text;
    return toUtf8(format->format(icuDate(date), text));
}

}
