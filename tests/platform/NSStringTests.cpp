#include "platform/NSString.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;

namespace {

struct TextAndNumber {
    const char* text;
    double number;
};

TEST(NSString, ReadsTheLongestNumberAtTheFront)
{
    const TextAndNumber cases[] = {
        { "0", 0 },
        { "12", 12 },
        { "-12", -12 },
        { "+12", 12 },
        { "1.5", 1.5 },
        { ".5", 0.5 },
        { "5.", 5 },
        { "-.25", -0.25 },
        { "1e3", 1000 },
        { "1E+3", 1000 },
        { "25e-2", 0.25 },
        { "12abc", 12 },
        { "1.2.3", 1.2 },
        { "1,5", 1 },
        { " \t\r\n\v\f42", 42 },
        { "007", 7 },
        { "4 2", 4 },
        { "0.1", 0.1 },
        { "5.e1", 50 },
        { "179.99999999999999", 179.99999999999999 },
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(doubleValue(text), number) << text;
        EXPECT_EQ(floatValue(text), static_cast<float>(number)) << text;
    }
}

TEST(NSString, ReadsNoNumberAsZero)
{
    for (const char* text : { "", " ", "-", "+", "++1", "--1", "+-1", "- 1", ".", "-.", "e5", ".e5", "abc",
             "inf", "-inf", "infinity", "nan", "NaN", "1e", "1e+", "1e-x", "5.e",
             "\xC2\xA0"
             "1",
             "#12" }) {
        EXPECT_EQ(doubleValue(text), 0) << text;
        EXPECT_EQ(floatValue(text), 0) << text;
    }
}

TEST(NSString, ReadsOfHexadecimalOnlyTheLeadingZero)
{
    EXPECT_EQ(doubleValue("0x10"), 0);
    EXPECT_EQ(floatValue("0x1p4"), 0);
}

TEST(NSString, ReadsTooLargeNumbersAsInfinityAndTooSmallOnesAsZero)
{
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    for (const char* text : { "1e400", "9e99999999999999999999", "100000e308" })
        EXPECT_EQ(doubleValue(text), infinity) << text;
    EXPECT_EQ(doubleValue("-1e400"), -infinity);
    for (const char* text : { "1e-400", "1e-99999999999999999999", "0.0001e-330" })
        EXPECT_EQ(doubleValue(text), 0) << text;
    EXPECT_EQ(doubleValue("0e99999999999999999999"), 0);
    EXPECT_EQ(doubleValue(std::string(400, '9')), infinity);
    EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1e400"), 0.1);
    EXPECT_EQ(floatValue("1e39"), std::numeric_limits<float>::infinity());
    EXPECT_EQ(floatValue("-1e39"), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(floatValue("1e-60"), 0);
}

TEST(NSString, RoundsAFloatOnce)
{
    // By way of a double this would round to even, downwards.
    EXPECT_EQ(floatValue("1.00000005960464477540"), std::nextafter(1.0F, 2.0F));
}

TEST(NSString, KeepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(doubleValue("-0")));
    EXPECT_TRUE(std::signbit(floatValue("-1e-400")));
}

TEST(NSString, ReadsIntegersPinnedTo32Bits)
{
    struct {
        const char* text;
        std::int32_t number;
    } const cases[] = { { "", 0 }, { "-", 0 }, { "abc", 0 }, { "++1", 0 }, { "12abc", 12 }, { "1.9", 1 },
        { "-1.9", -1 }, { "  +7", 7 }, { "007", 7 }, { "1e3", 1 }, { "2147483647", 2147483647 },
        { "2147483648", 2147483647 }, { "99999999999999999999999", 2147483647 },
        { "-2147483648", -2147483647 - 1 }, { "-2147483649", -2147483647 - 1 },
        { "-99999999999999999999999", -2147483647 - 1 }, { "0x10", 0 } };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(intValue(text), number) << text;
}

TEST(NSString, ReadsAsOnWhatBeginsLikeYesTrueOrANumber)
{
    for (const char* text : { "Y", "y", "yes", "YES", "T", "t", "true", "1", "9", "007", "-1", "+5", "  yes",
             "\t1", "-001", "12abc", "y\xFF" })
        EXPECT_TRUE(boolValue(text)) << text;
    for (const char* text : { "", "0", "no", "false", "off", "on", "-", "+", "-y", "+T", "--1", "000", "0.1",
             "- 1", "\xD9\xA1", "ja" })
        EXPECT_FALSE(boolValue(text)) << text;
}

TEST(NSString, NumbersDoNotFollowTheLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    // Machines differ in what they have; each of these writes one and a half with a comma.
    for (const char* name : { "de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8" }) {
        if (std::setlocale(LC_ALL, name))
            break;
    }
    EXPECT_EQ(doubleValue("1.5"), 1.5);
    EXPECT_EQ(floatValue("1,5"), 1);
    EXPECT_EQ(stringWithFormat("%.1f", 1.5), "1.5");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(NSString, UppercasesAsciiAlone)
{
    EXPECT_EQ(uppercaseString("#ff80aZ9"), "#FF80AZ9");
    EXPECT_EQ(uppercaseString("stra\xC3\x9F"
                              "e \xC3\xA4"),
        "STRA\xC3\x9F"
        "E \xC3\xA4");
    EXPECT_EQ(uppercaseString(""), "");
}

TEST(NSString, TrimsBothEndsOnly)
{
    EXPECT_EQ(stringByTrimmingCharactersInSet("##F#0##", "#"), "F#0");
    EXPECT_EQ(stringByTrimmingCharactersInSet(" # x", "# "), "x");
    EXPECT_EQ(stringByTrimmingCharactersInSet("###", "#"), "");
    EXPECT_EQ(stringByTrimmingCharactersInSet("", "#"), "");
    EXPECT_EQ(stringByTrimmingCharactersInSet(" #F", "#"), " #F");
}

TEST(NSString, FormatsLikeC)
{
    EXPECT_EQ(stringWithFormat("#%02x%02x%02x", 255, 0, 128), "#ff0080");
    EXPECT_EQ(stringWithFormat("%s", ""), "");
    EXPECT_EQ(stringWithFormat("%d%%", -5), "-5%");
    const std::string longText(10000, 'x');
    EXPECT_EQ(stringWithFormat("<%s>", longText.c_str()), "<" + longText + ">");
}

}
