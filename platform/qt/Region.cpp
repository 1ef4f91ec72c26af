#include "Region.h"

#include <cstdlib>
#include <memory>
#include <unicode/basictz.h>
#include <unicode/ucal.h>
#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/ures.h>

namespace platform {

namespace {

constexpr double referenceDateMilliseconds = 978307200000.0; // 2001-01-01 after 1970-01-01.

icu::UnicodeString unicode(std::string_view utf8)
{
    return icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
}

std::unique_ptr<icu::BasicTimeZone> zoneNamed(std::string_view olsonName)
{
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(unicode(olsonName)));
    auto* basic = dynamic_cast<icu::BasicTimeZone*>(zone.get());
    if (basic)
        zone.release();
    return std::unique_ptr<icu::BasicTimeZone>(basic);
}

/// Seconds from Greenwich, as `ask` finds them out in milliseconds; 0 for a zone that is not known.
template <typename Ask> double offsetInZone(std::string_view olsonName, Ask ask)
{
    const auto zone = zoneNamed(olsonName);
    int32_t raw = 0;
    int32_t daylight = 0;
    UErrorCode status = U_ZERO_ERROR;
    if (zone)
        ask(*zone, raw, daylight, status);
    return zone && U_SUCCESS(status) ? (raw + daylight) / 1000.0 : 0;
}

bool isCountry(std::string_view code)
{
    for (const char* const* country = uloc_getISOCountries(); *country; ++country) {
        if (code == *country)
            return true;
    }
    return false;
}

bool hasTexts(const std::string& language)
{
    UErrorCode status = U_ZERO_ERROR;
    UResourceBundle* bundle = ures_open(nullptr, language.c_str(), &status);
    ures_close(bundle);
    return status == U_ZERO_ERROR || status == U_USING_FALLBACK_WARNING;
}

using PartReader = int32_t(const char*, char*, int32_t, UErrorCode*);

std::string part(PartReader* reader, const std::string& locale)
{
    char text[ULOC_FULLNAME_CAPACITY] {};
    UErrorCode status = U_ZERO_ERROR;
    reader(locale.c_str(), text, sizeof text, &status);
    return U_SUCCESS(status) && status != U_STRING_NOT_TERMINATED_WARNING ? text : std::string();
}

}

bool isKnownTimeZone(std::string_view olsonName)
{
    const auto name = unicode(olsonName);
    UChar canonical[128];
    UBool isSystem = false;
    UErrorCode status = U_ZERO_ERROR;
    const auto length
        = ucal_getCanonicalTimeZoneID(name.getBuffer(), name.length(), canonical, 128, &isSystem, &status);
    return U_SUCCESS(status) && isSystem && icu::UnicodeString(canonical, length) != u"Etc/Unknown";
}

std::string systemTimeZone()
{
    UChar name[128];
    UErrorCode status = U_ZERO_ERROR;
    const auto length = ucal_getHostTimeZone(name, 128, &status);
    std::string result;
    if (U_SUCCESS(status))
        icu::UnicodeString(name, length).toUTF8String(result);
    return isKnownTimeZone(result) ? result : "UTC";
}

double offsetAtWallTime(std::string_view olsonName, double wallTime)
{
    return offsetInZone(
        olsonName, [&](const auto& zone, int32_t& raw, int32_t& daylight, UErrorCode& status) {
            zone.getOffsetFromLocal(wallTime * 1000 + referenceDateMilliseconds, UCAL_TZ_LOCAL_FORMER,
                UCAL_TZ_LOCAL_FORMER, raw, daylight, status);
        });
}

double offsetAtInstant(std::string_view olsonName, double instant)
{
    return offsetInZone(
        olsonName, [&](const auto& zone, int32_t& raw, int32_t& daylight, UErrorCode& status) {
            zone.getOffset(instant * 1000 + referenceDateMilliseconds, false, raw, daylight, status);
        });
}

std::string canonicalLocale(std::string_view name)
{
    constexpr auto plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-.@=;";
    if (name.empty() || name.size() >= ULOC_FULLNAME_CAPACITY
        || name.find_first_not_of(plain) != std::string_view::npos)
        return {};
    const auto canonical = part(uloc_canonicalize, std::string(name));
    const auto language = part(uloc_getLanguage, canonical);
    const auto script = part(uloc_getScript, canonical);
    const auto country = part(uloc_getCountry, canonical);
    const bool known = !language.empty() && hasTexts(language)
        && (script.empty() || u_getPropertyValueEnum(UCHAR_SCRIPT, script.c_str()) != UCHAR_INVALID_CODE)
        && (country.empty() || isCountry(country)) && part(uloc_getVariant, canonical).empty();
    return known ? canonical : std::string();
}

std::string environmentLocale()
{
    for (const char* variable : { "LC_ALL", "LC_MESSAGES", "LANG" }) {
        const char* value = std::getenv(variable);
        if (!value || !*value)
            continue;
        const std::string_view text = value;
        // What stands after "@" is a matter of the C library ("de_DE@euro"), not of ICU's keywords.
        const auto name = canonicalLocale(text.substr(0, text.find_first_of(".@")));
        return name.empty() ? "en_US" : name;
    }
    return "en_US";
}

}
