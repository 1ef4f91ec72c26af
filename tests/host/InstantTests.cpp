#include "host/Instant.h"

#include <gtest/gtest.h>
#include <limits>

using host::instantFromText;
using host::textFromInstant;
using platform::NSDate;

namespace {

/// Seconds since 2001, or NaN for no instant.
double seconds(std::string_view text, std::string_view zone = "UTC")
{
    const auto date = instantFromText(text, zone);
    return date ? date->timeIntervalSinceReferenceDate() : std::numeric_limits<double>::quiet_NaN();
}

// 2014-01-05 is 4752 days after 2001-01-01.
constexpr double january5 = 4752 * 86400.0;
constexpr double quarterPastTen = january5 + 10 * 3600 + 15 * 60;

TEST(Instant, ReadsUtc)
{
    EXPECT_EQ(seconds("2001-01-01T00:00:00Z"), 0);
    EXPECT_EQ(seconds("2014-01-05T10:15:00Z"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05t10:15:00z"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05 10:15:00Z"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05T10:15Z"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05"), january5);
    EXPECT_EQ(seconds("2014-01-05T24:00:00Z"), january5 + 86400);
    EXPECT_EQ(seconds("2000-12-31T23:59:59Z"), -1);
    EXPECT_EQ(seconds("2012-02-29T00:00:00Z"), 4076 * 86400.0);
}

TEST(Instant, KeepsTheFraction)
{
    EXPECT_EQ(seconds("2014-01-05T10:15:42.6Z"), quarterPastTen + 42.6);
    EXPECT_EQ(seconds("2014-01-05T10:15:42,25Z"), quarterPastTen + 42.25);
    EXPECT_EQ(seconds("2014-01-05T10:15:42.000001Z"), quarterPastTen + 42.000001);
}

TEST(Instant, ReadsOffsets)
{
    EXPECT_EQ(seconds("2014-01-05T11:15:00+01:00"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05T11:15:00+0100"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05T11:15:00+01"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05T04:45:00-05:30"), quarterPastTen);
    EXPECT_EQ(seconds("2014-01-05T11:15:00+01:00", "Asia/Tokyo"), quarterPastTen);
}

TEST(Instant, TakesTheZonesWallTimeWithoutAnOffset)
{
    EXPECT_EQ(seconds("2014-01-05T11:15:00", "Europe/Berlin"), quarterPastTen);
    EXPECT_EQ(seconds("2014-07-05T10:00:00", "Europe/Berlin"), seconds("2014-07-05T08:00:00Z"));
    EXPECT_EQ(seconds("2014-01-05", "Asia/Kolkata"), january5 - 5.5 * 3600);
    EXPECT_EQ(seconds("2014-01-05T11:15:42.6", "Europe/Berlin"), quarterPastTen + 42.6);
}

TEST(Instant, TakesTheFirstOfAWallTimeThatComesTwice)
{
    EXPECT_EQ(seconds("2014-10-26T02:30:00", "Europe/Berlin"), seconds("2014-10-26T00:30:00Z"));
}

TEST(Instant, CountsASkippedWallTimeAsBeforeTheChange)
{
    EXPECT_EQ(seconds("2014-03-30T02:30:00", "Europe/Berlin"), seconds("2014-03-30T01:30:00Z"));
}

TEST(Instant, RefusesEverythingElse)
{
    for (const char* text : { "", "now", "2014", "2014-01", "2014-1-5", "2014-13-01", "2014-02-29",
             "2014-00-01", "2014-01-00", "2014-01-05T", "2014-01-05T10", "2014-01-05T25:00:00",
             "2014-01-05T24:00:01", "2014-01-05T24:00:00.5", "2014-01-05T10:60:00", "2014-01-05T10:15:60",
             "2014-01-05T10:15:00.", "2014-01-05T10:15:00.xZ", "2014-01-05T10:15:00Zx",
             "2014-01-05T10:15:00+", "2014-01-05T10:15:00+1", "2014-01-05T10:15:00+24:00",
             "2014-01-05T10:15:00+01:60", "2014-01-05T10:15:00+01:", "2014-01-05T10:15:00 Z",
             "2014-01-05X10:15:00", "20140105T101500Z", "-2014-01-05", " 2014-01-05", "2014-01-05Z" })
        EXPECT_FALSE(instantFromText(text, "UTC")) << text;
}

TEST(Instant, WritesUtcWithItsFractionWhenThereIsOne)
{
    EXPECT_EQ(textFromInstant(NSDate(0)), "2001-01-01T00:00:00Z");
    EXPECT_EQ(textFromInstant(NSDate(quarterPastTen + 42.6)), "2014-01-05T10:15:42.6Z");
    EXPECT_EQ(textFromInstant(NSDate(quarterPastTen + 0.000001)), "2014-01-05T10:15:00.000001Z");
    EXPECT_EQ(textFromInstant(NSDate(-0.25)), "2000-12-31T23:59:59.75Z");
    EXPECT_EQ(textFromInstant(NSDate(-86400)), "2000-12-31T00:00:00Z");
    EXPECT_EQ(textFromInstant(NSDate(-86400.5)), "2000-12-30T23:59:59.5Z");
}

TEST(Instant, CarriesWhatRoundsToAWholeSecond)
{
    EXPECT_EQ(textFromInstant(NSDate(59.9999999)), "2001-01-01T00:01:00Z");
}

TEST(Instant, WritesNothingForWhatNoCalendarHolds)
{
    for (const double value : { 1e300, -1e300, 1e12, -1e12, std::numeric_limits<double>::infinity(),
             std::numeric_limits<double>::quiet_NaN() })
        EXPECT_EQ(textFromInstant(NSDate(value)), "") << value;
    EXPECT_EQ(textFromInstant(*instantFromText("9999-12-31T23:59:59Z", "UTC")), "9999-12-31T23:59:59Z");
    EXPECT_EQ(textFromInstant(*instantFromText("0001-01-01T00:00:00Z", "UTC")), "0001-01-01T00:00:00Z");
}

TEST(Instant, WritesWallTimesWithTheirOffset)
{
    EXPECT_EQ(textFromInstant(NSDate(quarterPastTen), "Europe/Berlin"), "2014-01-05T11:15:00+01:00");
    EXPECT_EQ(
        textFromInstant(NSDate(quarterPastTen + 0.5), "America/New_York"), "2014-01-05T05:15:00.5-05:00");
    EXPECT_EQ(textFromInstant(NSDate(quarterPastTen), "Asia/Kolkata"), "2014-01-05T15:45:00+05:30");
    EXPECT_EQ(textFromInstant(NSDate(quarterPastTen), "UTC"), "2014-01-05T10:15:00+00:00");
}

TEST(Instant, ReadsWhatItWrites)
{
    for (const double value : { 0.0, 410955462.6, -0.25, 1234567890.123456, -5e9 })
        EXPECT_EQ(seconds(textFromInstant(NSDate(value))), value);
}

}
