#include "Instant.h"

#include "platform/qt/Region.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace host {

namespace {

using namespace std::chrono;

constexpr sys_days referenceDay = 2001y / January / 1;
constexpr std::int64_t secondsADay = 86400;
constexpr std::int64_t million = 1000000;

/// Takes pieces off the front of a text; after the first that does not fit, everything fails.
class Reader {
public:
    explicit Reader(std::string_view text)
        : _text(text)
    {
    }

    bool atEnd() const { return _text.empty(); }
    bool failed() const { return _failed; }
    void fail() { _failed = true; }

    bool take(std::string_view oneOf)
    {
        if (_text.empty() || oneOf.find(_text.front()) == std::string_view::npos)
            return false;
        _text.remove_prefix(1);
        return true;
    }

    int digits(std::size_t count, int most)
    {
        int number = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (_text.empty() || _text.front() < '0' || _text.front() > '9') {
                fail();
                return 0;
            }
            number = number * 10 + (_text.front() - '0');
            _text.remove_prefix(1);
        }
        if (number > most)
            fail();
        return number;
    }

    /// The digits after a decimal sign, as the nearest number below 1.
    double fraction()
    {
        const auto end = std::min(_text.find_first_not_of("0123456789"), _text.size());
        if (end == 0)
            fail();
        const auto decimal = "0." + std::string(_text.substr(0, end));
        _text.remove_prefix(end);
        double number = 0;
        std::from_chars(decimal.data(), decimal.data() + decimal.size(), number);
        return number;
    }

private:
    std::string_view _text;
    bool _failed = false;
};

std::int64_t readDay(Reader& reader)
{
    const int yearNumber = reader.digits(4, 9999);
    if (!reader.take("-"))
        reader.fail();
    const int monthNumber = reader.digits(2, 12);
    if (!reader.take("-"))
        reader.fail();
    const int dayNumber = reader.digits(2, 31);
    const year_month_day date { year(yearNumber), month(static_cast<unsigned>(monthNumber)),
        day(static_cast<unsigned>(dayNumber)) };
    if (!date.ok())
        reader.fail();
    return (sys_days(date) - referenceDay).count();
}

/// Whole seconds since midnight and the fraction of one.
struct TimeOfDay {
    std::int64_t seconds = 0;
    double fraction = 0;
};

TimeOfDay readTime(Reader& reader)
{
    TimeOfDay time;
    const int hour = reader.digits(2, 24);
    if (!reader.take(":"))
        reader.fail();
    time.seconds = hour * 3600 + reader.digits(2, 59) * 60;
    if (reader.take(":")) {
        time.seconds += reader.digits(2, 59);
        if (reader.take(".,"))
            time.fraction = reader.fraction();
    }
    if (time.seconds + std::ceil(time.fraction) > secondsADay)
        reader.fail();
    return time;
}

/// Seconds east; nothing when the text ends without an offset.
std::optional<int> readOffset(Reader& reader)
{
    if (reader.atEnd())
        return std::nullopt;
    if (reader.take("Zz"))
        return 0;
    const bool west = reader.take("-");
    if (!west && !reader.take("+"))
        reader.fail();
    int seconds = reader.digits(2, 23) * 3600;
    if (reader.take(":") || !reader.atEnd())
        seconds += reader.digits(2, 59) * 60;
    return west ? -seconds : seconds;
}

/// As the wall time that the instant is at this many seconds east; without the offset itself.
std::string wallTimeText(platform::NSDate date, std::int64_t offset)
{
    // Beyond this no year has four digits, and below it microseconds fit 64 bits.
    constexpr double limit = 1e12;
    const double seconds = date.timeIntervalSinceReferenceDate();
    if (!(std::fabs(seconds) < limit))
        return {};
    const auto whole = static_cast<std::int64_t>(std::floor(seconds));
    const auto microseconds = std::llround((seconds - static_cast<double>(whole)) * million);
    const std::int64_t total = whole + offset + microseconds / million;
    const auto days = std::chrono::days(
        static_cast<int>(total >= 0 ? total / secondsADay : -((secondsADay - 1 - total) / secondsADay)));
    const auto inDay = static_cast<int>(total - std::int64_t { days.count() } * secondsADay);
    const sys_days day = referenceDay + days;
    if (day < sys_days(0y / January / 1) || day > sys_days(9999y / December / 31))
        return {};
    const year_month_day calendar(day);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%06d", static_cast<int>(calendar.year()),
        static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()), inDay / 3600,
        inDay / 60 % 60, inDay % 60, static_cast<int>(microseconds % million));
    std::string result = text;
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.')
        result.pop_back();
    return result;
}

}

std::optional<platform::NSDate> instantFromText(std::string_view text, std::string_view timeZone)
{
    Reader reader(text);
    const auto day = readDay(reader);
    TimeOfDay time;
    std::optional<int> offset;
    if (!reader.atEnd()) {
        if (!reader.take("Tt "))
            reader.fail();
        time = readTime(reader);
        offset = readOffset(reader);
    }
    if (reader.failed() || !reader.atEnd())
        return std::nullopt;
    const auto wallTime = static_cast<double>(day * secondsADay + time.seconds);
    const double east = offset ? *offset : platform::offsetAtWallTime(timeZone, wallTime);
    return platform::NSDate(wallTime - east + time.fraction);
}

std::string textFromInstant(platform::NSDate date)
{
    const auto text = wallTimeText(date, 0);
    return text.empty() ? text : text + "Z";
}

std::string textFromInstant(platform::NSDate date, std::string_view timeZone)
{
    const auto offset = static_cast<std::int64_t>(
        platform::offsetAtInstant(timeZone, date.timeIntervalSinceReferenceDate()));
    auto text = wallTimeText(date, offset);
    if (text.empty())
        return text;
    char suffix[16];
    const auto minutes = static_cast<int>(std::abs(offset) / 60);
    std::snprintf(suffix, sizeof suffix, "%c%02d:%02d", offset < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return text + suffix;
}

}
