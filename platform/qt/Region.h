#pragma once

#include <string>
#include <string_view>

/// What the desktop knows of time zones and languages, for a host that sets up `Device`.
namespace platform {

/// True for a zone of the Olson database ("Europe/Berlin", "UTC").
bool isKnownTimeZone(std::string_view olsonName);

/// The machine's, else "UTC".
std::string systemTimeZone();

/// Seconds east of Greenwich while the zone's clocks show this wall time, given as the seconds since 2001
/// that it would be in UTC. A time that is skipped, and the first of a time that comes twice, count as
/// before the change. 0 for an unknown zone.
double offsetAtWallTime(std::string_view olsonName, double wallTime);

/// The same at an instant, in seconds since 2001.
double offsetAtInstant(std::string_view olsonName, double instant);

/// The locale's name as ICU spells it ("de_DE" for "de-de" and "de_DE.UTF-8"); empty when the language, the
/// script or the country is unknown.
std::string canonicalLocale(std::string_view name);

/// From LC_ALL, else LC_MESSAGES, else LANG; "en_US" when they name none, or "C".
std::string environmentLocale();

}
