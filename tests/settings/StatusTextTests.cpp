#include "settings/StatusText.h"

#include "SettingsTest.h"

namespace vekora {

using namespace platform;

namespace {

class StatusText : public SettingsTest {
protected:
    static NSDate at(double secondsSince1970)
    {
        return NSDate::dateWithTimeIntervalSince1970(secondsSince1970);
    }
    static double endAfter(double now, std::int32_t seconds)
    {
        return suppressionEnd(at(now), seconds).timeIntervalSince1970();
    }
    static std::optional<NSMutableDictionary> preferences(PropertyList entries)
    {
        return NSMutableDictionary(std::move(entries));
    }
    static std::string textAfter(double seconds)
    {
        return withPlainBlanks(
            statusText(preferences({ { "enabled", true }, { "disarmedUntil", at(tenSeventeen + seconds) } }),
                at(tenSeventeen)));
    }
};

const PropertyValue notNumbers[] { NSDate(1), PropertyData { 1 }, PropertyArray { 1 },
    PropertyList { { "a", 1 } }, "soon", "" };

}

TEST_F(StatusText, SuppressesForAnHourWithoutALength)
{
    EXPECT_EQ(suppressionSeconds(nullptr), 3600);
}

TEST_F(StatusText, ReadsTheLengthAsAWholeNumberOfMinutes)
{
    const std::pair<PropertyValue, std::int32_t> cases[] {
        { 30, 1800 },
        { 0, 0 },
        { -5, -300 },
        { 1.9, 60 },
        { -1.9, -60 },
        { true, 60 },
        { "45", 2700 },
        { " 45 minutes", 2700 },
        { 4294967297, 60 },
    };
    for (const auto& [minutes, seconds] : cases)
        EXPECT_EQ(suppressionSeconds(&minutes), seconds);
}

TEST_F(StatusText, ReadsALengthThatIsNoNumberAsNoTime)
{
    for (const auto& minutes : notNumbers)
        EXPECT_EQ(suppressionSeconds(&minutes), 0);
}

TEST_F(StatusText, MultipliesIn32Bits)
{
    const std::pair<PropertyValue, std::int32_t> cases[] {
        { 35791394, 2147483640 },
        { 35791395, -2147483596 },
        { 71582789, 44 },
        { 2147483647, -60 },
        { -2147483648LL, 0 },
    };
    for (const auto& [minutes, seconds] : cases)
        EXPECT_EQ(suppressionSeconds(&minutes), seconds);
}

TEST_F(StatusText, EndsOnTheWholeMinuteAndKeepsTheFraction)
{
    // 10:17:42.6 and half an hour: 10:47:00.6.
    EXPECT_DOUBLE_EQ(endAfter(tenSeventeen, 1800), 1388918820.6);
    EXPECT_DOUBLE_EQ(endAfter(tenSeventeen, 0), 1388917020.6);
    EXPECT_DOUBLE_EQ(endAfter(tenSeventeen, -300), 1388916720.6);
    EXPECT_DOUBLE_EQ(endAfter(1388917020, 60), 1388917080);
    EXPECT_DOUBLE_EQ(endAfter(1388917079.999, 60), 1388917080.999);
}

TEST_F(StatusText, KeepsTheFractionBeforeTheReferenceDateToo)
{
    // 2000-12-31 23:59:59.6.
    EXPECT_DOUBLE_EQ(suppressionEnd(NSDate(-0.4), 0).timeIntervalSinceReferenceDate(), -59.4);
}

TEST_F(StatusText, TakesTheMinuteOfTheUsersCalendar)
{
    // Until 1972 Monrovia was 44 minutes and a half behind: 12:00:10 was 11:15:40 there.
    setPlace("en_US", "Africa/Monrovia");
    EXPECT_DOUBLE_EQ(endAfter(31579210, 0), 31579170);
}

TEST_F(StatusText, IsOffWithoutPreferencesOrKey)
{
    EXPECT_FALSE(isEnabled(std::nullopt));
    EXPECT_FALSE(isEnabled(preferences({})));
}

TEST_F(StatusText, ReadsWhetherItIsOnFromAnyNumber)
{
    for (const PropertyValue& on : { PropertyValue(true), PropertyValue(1), PropertyValue(-1),
             PropertyValue(0.5), PropertyValue("YES"), PropertyValue("1") }) {
        EXPECT_TRUE(isEnabled(preferences({ { "enabled", on } })));
    }
    for (const PropertyValue& off : { PropertyValue(false), PropertyValue(0), PropertyValue(0.0),
             PropertyValue("NO"), PropertyValue("0") }) {
        EXPECT_FALSE(isEnabled(preferences({ { "enabled", off } })));
    }
}

TEST_F(StatusText, IsOffWhenTheValueIsNoNumber)
{
    for (const auto& value : notNumbers)
        EXPECT_FALSE(isEnabled(preferences({ { "enabled", value } })));
}

TEST_F(StatusText, SaysUntilWhenAlarmsAreSuppressed)
{
    EXPECT_EQ(textAfter(1757.4), "Vekoraed Until: 1/5/14, 10:47:00 AM");
}

TEST_F(StatusText, TakesASuppressionThatIsAboutToEndAsOver)
{
    EXPECT_EQ(textAfter(-60), "Alarms Enabled");
    EXPECT_EQ(textAfter(0), "Alarms Enabled");
    EXPECT_EQ(textAfter(10), "Alarms Enabled");
    EXPECT_EQ(textAfter(15), "Alarms Enabled");
    EXPECT_EQ(textAfter(15.5), "Vekoraed Until: 1/5/14, 10:17:58 AM");
}

TEST_F(StatusText, CountsFractionsInTheMargin)
{
    const auto now = NSDate(1000);
    const auto text = [&](double end) {
        return statusText(preferences({ { "enabled", true }, { "disarmedUntil", NSDate(end) } }), now);
    };
    EXPECT_EQ(text(1015), "Alarms Enabled");
    EXPECT_NE(text(1015.001), "Alarms Enabled");
}

TEST_F(StatusText, SaysNothingOfASuppressionWhileTheAddOnIsOff)
{
    const auto until = PropertyValue(at(tenSeventeen + 3600));
    EXPECT_EQ(statusText(preferences({ { "enabled", false }, { "disarmedUntil", until } }), at(tenSeventeen)),
        "Alarms Enabled");
    EXPECT_EQ(statusText(preferences({ { "disarmedUntil", until } }), at(tenSeventeen)), "Alarms Enabled");
    EXPECT_EQ(statusText(std::nullopt, at(tenSeventeen)), "Alarms Enabled");
}

TEST_F(StatusText, TakesAnEndThatIsNoDateAsNone)
{
    for (const PropertyValue& end : { PropertyValue("2030-01-01T00:00:00Z"), PropertyValue(2000000000),
             PropertyValue(true), PropertyValue(1e12), PropertyValue(PropertyArray {}),
             PropertyValue(PropertyList {}), PropertyValue(PropertyData {}) }) {
        EXPECT_EQ(
            statusText(preferences({ { "enabled", true }, { "disarmedUntil", end } }), at(tenSeventeen)),
            "Alarms Enabled");
    }
}

TEST_F(StatusText, WritesTheEndAsTheUsersLocaleAndZoneDo)
{
    struct Case {
        const char* locale;
        const char* zone;
        const char* text;
    };
    const Case cases[] {
        { "en_US", "UTC", "Vekoraed Until: 1/5/14, 7:08:09 PM" },
        { "en_GB", "UTC", "Vekoraed Until: 05/01/2014, 19:08:09" },
        { "de_DE", "UTC", "Vekoraed Until: 05.01.14, 19:08:09" },
        { "sv_SE", "UTC", "Vekoraed Until: 2014-01-05 19:08:09" },
        { "ja_JP", "UTC", "Vekoraed Until: 2014/01/05 19:08:09" },
        { "de_DE", "Europe/Berlin", "Vekoraed Until: 05.01.14, 20:08:09" },
        { "en_US", "America/New_York", "Vekoraed Until: 1/5/14, 2:08:09 PM" },
        { "en_US", "Asia/Tokyo", "Vekoraed Until: 1/6/14, 4:08:09 AM" },
    };
    for (const auto& [locale, zone, text] : cases) {
        setPlace(locale, zone);
        EXPECT_EQ(withPlainBlanks(suppressedUntilText(at(1388948889))), text) << locale << ' ' << zone;
    }
}

}
