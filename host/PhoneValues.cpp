#include "PhoneValues.h"

#include "driver/ScriptParser.h"
#include "Instant.h"
#include "platform/qt/Region.h"

#include <algorithm>

namespace host {

namespace {

/// Points in a side of the window; more is taken for a slip of the finger.
constexpr long largestSide = 4096;

bool takeSize(PhoneOptions& options, const std::string& word)
{
    const auto cross = word.find('x');
    long width = 0;
    long height = 0;
    if (cross == std::string::npos || !readCount(word.substr(0, cross), width)
        || !readCount(word.substr(cross + 1), height) || width < 1 || height < 1 || width > largestSide
        || height > largestSide)
        return false;
    options.size = { static_cast<double>(width), static_cast<double>(height) };
    return true;
}

bool takeScale(PhoneOptions& options, const std::string& word)
{
    if (word != "1" && word != "2" && word != "3")
        return false;
    options.scale = word[0] - '0';
    return true;
}

bool takeLocale(PhoneOptions& options, const std::string& word)
{
    const auto name = platform::canonicalLocale(word);
    if (!name.empty())
        options.locale = name;
    return !name.empty();
}

bool takeTimeZone(PhoneOptions& options, const std::string& word)
{
    const auto isKnown = platform::isKnownTimeZone(word);
    if (isKnown)
        options.timeZone = word;
    return isKnown;
}

struct DirectionWord {
    std::string_view word;
    TextDirection direction;
};

constexpr DirectionWord directionWords[] = {
    { "locale", TextDirection::OfTheLocale },
    { "ltr", TextDirection::LeftToRight },
    { "rtl", TextDirection::RightToLeft },
};

bool takeDirection(PhoneOptions& options, const std::string& word)
{
    for (const auto& known : directionWords) {
        if (known.word == word) {
            options.direction = known.direction;
            return true;
        }
    }
    return false;
}

bool takeNow(PhoneOptions& options, const std::string& word)
{
    // Whether it is an instant does not depend on the zone, which may be named later.
    const auto isInstant = instantFromText(word, "UTC").has_value();
    if (isInstant)
        options.now = word;
    return isInstant;
}

constexpr PhoneValue values[] = {
    { "size", "WIDTHxHEIGHT in whole points from 1 to 4096, as 375x667", takeSize },
    { "scale", "1, 2 or 3", takeScale },
    { "locale", "a known locale, as en_US or de_DE", takeLocale },
    { "timezone", "a known time zone, as Europe/Berlin or UTC", takeTimeZone },
    { "direction", "ltr, rtl or locale", takeDirection },
    { "now", "an instant in ISO 8601, as 2014-01-05T10:17:42.6+01:00", takeNow },
};

}

std::span<const PhoneValue> phoneValues()
{
    return values;
}

const PhoneValue* phoneValueNamed(std::string_view name)
{
    const auto* const found = std::find_if(
        std::begin(values), std::end(values), [&](const auto& value) { return value.name == name; });
    return found == std::end(values) ? nullptr : found;
}

std::string takePhoneValue(
    const PhoneValue& value, PhoneOptions& options, const std::string& word, const std::string& name)
{
    if (value.take(options, word))
        return {};
    return name + " takes " + std::string(value.takes) + ", not \"" + word + "\".";
}

std::string_view wordFor(TextDirection direction)
{
    for (const auto& known : directionWords) {
        if (known.direction == direction)
            return known.word;
    }
    return {};
}

}
