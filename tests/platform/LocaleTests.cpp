#include "platform/Device.h"
#include "platform/NSCalendar.h"
#include "platform/NSDateFormatter.h"
#include "platform/NSNumberFormatter.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;

namespace {

constexpr double sample = 410641689; // 2014-01-05 19:08:09 UTC.
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

class LocaleTest : public testing::Test {
protected:
    ~LocaleTest() override { Device::current() = _before; }

private:
    Device _before = Device::current();
};

class DateFormat : public LocaleTest { };
class Calendar : public LocaleTest { };
class NumberFormat : public LocaleTest { };
class Clock : public LocaleTest { };

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (auto at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

/// A short date and a medium time. The blanks of some locales are narrow ones in newer data.
std::string shortText(double seconds)
{
    auto text = NSDateFormatter::localizedStringFromDate(
        NSDate(seconds), NSDateFormatterStyle::Short, NSDateFormatterStyle::Medium);
    replaceAll(text, "\xE2\x80\xAF", " ");
    return text;
}

TEST_F(DateFormat, FollowsTheLocale)
{
    struct {
        const char* locale;
        const char* text;
    } const samples[] = {
        { "en_US", "1/5/14, 7:08:09 PM" },
        { "en_GB", "05/01/2014, 19:08:09" },
        { "de_DE", "05.01.14, 19:08:09" },
        { "fr_FR", "05/01/2014 19:08:09" },
        { "es_ES", "5/1/14, 19:08:09" },
        { "it_IT", "05/01/14, 19:08:09" },
        { "pt_BR", "05/01/2014, 19:08:09" },
        { "ru_RU", "05.01.2014, 19:08:09" },
        { "sv_SE", "2014-01-05 19:08:09" },
        { "ja_JP", "2014/01/05 19:08:09" },
        { "zh_CN", "2014/1/5 19:08:09" },
    };
    Device::current().timeZone = "UTC";
    for (const auto& [locale, text] : samples) {
        Device::current().locale = locale;
        EXPECT_EQ(shortText(sample), text) << locale;
    }
}

TEST_F(DateFormat, OfTheNetherlandsIsTheSameButForAComma)
{
    Device::current().timeZone = "UTC";
    Device::current().locale = "nl_NL";
    auto text = shortText(sample);
    replaceAll(text, ",", ""); // Newer data joins date and time by one.
    EXPECT_EQ(text, "05-01-2014 19:08:09");
}

TEST_F(DateFormat, HasTheLocalesDigits)
{
    Device::current().timeZone = "UTC";
    Device::current().locale = "ar_EG";
    EXPECT_NE(shortText(sample).find("\xD9\xA2\xD9\xA0\xD9\xA1\xD9\xA4"), std::string::npos); // 2014
}

TEST_F(DateFormat, FollowsTheTimeZone)
{
    Device::current().locale = "en_GB";
    struct {
        const char* zone;
        const char* text;
    } const samples[] = {
        { "UTC", "05/01/2014, 19:08:09" },
        { "Europe/Berlin", "05/01/2014, 20:08:09" },
        { "America/New_York", "05/01/2014, 14:08:09" },
        { "Asia/Kathmandu", "06/01/2014, 00:53:09" },
        { "Pacific/Chatham", "06/01/2014, 08:53:09" },
        { "No/Such_Place", "05/01/2014, 19:08:09" },
    };
    for (const auto& [zone, text] : samples) {
        Device::current().timeZone = zone;
        EXPECT_EQ(shortText(sample), text) << zone;
    }
    Device::current().timeZone = "Europe/Berlin";
    EXPECT_EQ(shortText(425847600), "30/06/2014, 21:00:00"); // Summer time.
}

TEST_F(DateFormat, DropsTheFraction)
{
    Device::current().locale = "en_GB";
    Device::current().timeZone = "UTC";
    EXPECT_EQ(shortText(sample + 0.999), "05/01/2014, 19:08:09");
    EXPECT_EQ(shortText(-0.5), "31/12/2000, 23:59:59");
    EXPECT_EQ(shortText(-978307200.25), "31/12/1969, 23:59:59");
}

TEST_F(DateFormat, MayBeOfTheDateOrTheTimeAlone)
{
    Device::current().locale = "en_GB";
    Device::current().timeZone = "UTC";
    using enum NSDateFormatterStyle;
    const NSDate date(sample);
    EXPECT_EQ(NSDateFormatter::localizedStringFromDate(date, Short, None), "05/01/2014");
    EXPECT_EQ(NSDateFormatter::localizedStringFromDate(date, None, Short), "19:08");
    EXPECT_EQ(NSDateFormatter::localizedStringFromDate(date, None, None), "");
}

TEST_F(DateFormat, TakesEveryDateAndLocale)
{
    for (const char* locale : { "en_US", "fa_IR", "th_TH", "ja_JP@calendar=japanese", "", "xx_YY", "%%%" }) {
        Device::current().locale = locale;
        for (const double seconds : { -1e300, 1e300, -1e15, 1e15, infinity, -infinity, nan, 0.0 })
            EXPECT_FALSE(shortText(seconds).empty()) << locale << " " << seconds;
    }
}

void expectTime(const char* zone, double seconds, long hour, long minute, long second)
{
    Device::current().timeZone = zone;
    const auto components = NSCalendar::currentCalendar().componentsFromDate(NSDate(seconds));
    EXPECT_EQ(components.hour, hour) << zone << " " << seconds;
    EXPECT_EQ(components.minute, minute) << zone << " " << seconds;
    EXPECT_EQ(components.second, second) << zone << " " << seconds;
}

TEST_F(Calendar, TellsTheTimeInTheDevicesZone)
{
    expectTime("UTC", sample, 19, 8, 9);
    expectTime("Europe/Berlin", sample, 20, 8, 9);
    expectTime("Asia/Kathmandu", sample, 0, 53, 9);
    expectTime("America/St_Johns", sample, 15, 38, 9);
    expectTime("Pacific/Chatham", sample, 8, 53, 9);
    expectTime("Europe/Berlin", 425847600, 21, 0, 0);
}

TEST_F(Calendar, KnowsZonesThatWereHalfAMinuteOff)
{
    // Liberia was 44 minutes and 30 seconds behind until 1972.
    expectTime("Africa/Monrovia", -978307200, 23, 15, 30);
}

TEST_F(Calendar, LeavesTheFractionOut)
{
    expectTime("UTC", sample + 0.6, 19, 8, 9);
    expectTime("UTC", sample + 0.9999999, 19, 8, 9);
    expectTime("UTC", -0.25, 23, 59, 59);
    expectTime("UTC", -978307200.75, 23, 59, 59);
    expectTime("UTC", -1e-12, 23, 59, 59);
}

TEST_F(Calendar, TakesEveryDate)
{
    Device::current().timeZone = "Europe/Berlin";
    for (const double seconds : { -1e300, 1e300, -1e15, 1e15, infinity, -infinity, nan, 0.0, -1e12, 1e12 }) {
        const auto components = NSCalendar::currentCalendar().componentsFromDate(NSDate(seconds));
        EXPECT_TRUE(components.hour >= 0 && components.hour < 24) << seconds;
        EXPECT_TRUE(components.minute >= 0 && components.minute < 60) << seconds;
        EXPECT_TRUE(components.second >= 0 && components.second < 60) << seconds;
    }
}

std::string decimal(const char* locale, long number)
{
    Device::current().locale = locale;
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterStyle::Decimal);
    return formatter.stringFromNumber(number);
}

TEST_F(NumberFormat, HasTheLocalesDigitsAndSeparators)
{
    EXPECT_EQ(decimal("en_US", 0), "0");
    EXPECT_EQ(decimal("en_US", 255), "255");
    EXPECT_EQ(decimal("en_US", -7), "-7");
    EXPECT_EQ(decimal("en_US", 1255), "1,255");
    EXPECT_EQ(decimal("de_DE", 1255), "1.255");
    EXPECT_EQ(decimal("fr_FR", 1255),
        "1\xE2\x80\xAF"
        "255");
    EXPECT_EQ(decimal("es_ES", 1255), "1255");
    EXPECT_EQ(decimal("es_ES", 12550), "12.550");
    EXPECT_EQ(decimal("ar_EG", 128), "\xD9\xA1\xD9\xA2\xD9\xA8");
    EXPECT_EQ(decimal("fa_IR", 128), "\xDB\xB1\xDB\xB2\xDB\xB8");
    EXPECT_EQ(decimal("en_US", std::numeric_limits<long>::min()), "-9,223,372,036,854,775,808");
}

TEST_F(NumberFormat, NeverRoundsAWholeNumber)
{
    Device::current().locale = "en_US";
    for (const int digits : { -1, 0, 2, 999, 5000 }) {
        NSNumberFormatter formatter;
        formatter.setNumberStyle(NSNumberFormatterStyle::Decimal);
        formatter.setMaximumFractionDigits(digits);
        EXPECT_EQ(formatter.stringFromNumber(12345), "12,345");
    }
}

TEST_F(NumberFormat, IsPlainWithoutAStyle)
{
    Device::current().locale = "en_US";
    EXPECT_EQ(NSNumberFormatter().stringFromNumber(12345), "12345");
}

TEST_F(NumberFormat, KeepsTheLocaleItWasMadeWith)
{
    Device::current().locale = "de_DE";
    NSNumberFormatter formatter;
    Device::current().locale = "en_US";
    formatter.setNumberStyle(NSNumberFormatterStyle::Decimal);
    EXPECT_EQ(formatter.stringFromNumber(1255), "1.255");
}

TEST_F(Clock, StandsWhereTheDeviceSays)
{
    Device::current().standingClock = NSDate(12.5);
    EXPECT_EQ(NSDate::date(), NSDate(12.5));
}

TEST_F(Clock, RunsOtherwise)
{
    Device::current().standingClock.reset();
    const auto unixTime = [] {
        const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
        return now.count();
    };
    const double before = unixTime();
    const double date = NSDate::date().timeIntervalSince1970();
    EXPECT_GE(date, before - 1e-3);
    EXPECT_LE(date, unixTime() + 1e-3);
}

TEST(NSDate, CountsFrom2001)
{
    EXPECT_EQ(NSDate::dateWithTimeIntervalSince1970(978307200.25), NSDate(0.25));
    EXPECT_EQ(NSDate(0.25).timeIntervalSince1970(), 978307200.25);
    EXPECT_EQ(NSDate(1.25).dateByAddingTimeInterval(-2), NSDate(-0.75));
}

TEST(NSDate, ComparesWithFractions)
{
    EXPECT_EQ(NSDate(1).compare(NSDate(1.001)), NSComparisonResult::Ascending);
    EXPECT_EQ(NSDate(1).compare(NSDate(1)), NSComparisonResult::Same);
    EXPECT_EQ(NSDate(1).compare(NSDate(0.999)), NSComparisonResult::Descending);
}

}
