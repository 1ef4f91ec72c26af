#pragma once

#include "../NSDate.h"

#include <memory>
#include <string>
#include <unicode/locid.h>
#include <unicode/timezone.h>

/// The device's locale, time zone and dates, as ICU has them.
namespace platform {

icu::Locale deviceLocale();

/// Greenwich's for a name that ICU does not know.
std::unique_ptr<icu::TimeZone> deviceTimeZone();

/// Pinned to what ICU can reckon with: some five million years either way. No date at all is its reference
/// date.
UDate icuDate(const NSDate&);

std::string toUtf8(const icu::UnicodeString&);

}
