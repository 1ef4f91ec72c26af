#include "host/ValueText.h"

#include "platform/Device.h"

#include <gtest/gtest.h>

#include <limits>

using namespace platform;
using namespace host;

namespace {

std::optional<PropertyValue> read(std::string_view type, std::string_view text)
{
    auto reading = valueFromText(type, text);
    auto* const value = std::get_if<PropertyValue>(&reading);
    return value ? std::optional(*value) : std::nullopt;
}

std::string refusal(std::string_view type, std::string_view text)
{
    auto reading = valueFromText(type, text);
    auto* const sentence = std::get_if<std::string>(&reading);
    return sentence ? *sentence : "(taken)";
}

}

TEST(ValueText, IsReadBackAsTheSameValue)
{
    Device::current().timeZone = "Europe/Berlin";
    const PropertyList inner { { "a\n\tb", "<&>\n\t" }, { "b", PropertyArray {} }, { "", 2.5 } };
    const PropertyValue values[] = {
        true,
        false,
        std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::int64_t>::max(),
        0.1,
        -1e300,
        "",
        "  blanks and \n line ends\t",
        "ünïcode 🎨",
        NSDate(410000000),
        NSDate(-0.25),
        PropertyData {},
        PropertyData { 0, 255, 16 },
        PropertyArray { true, 1, 1.5, "one", NSDate(410000000), PropertyData { 1 }, inner },
        PropertyArray {},
        inner,
        PropertyList {},
    };
    for (const auto& value : values) {
        const auto text = textFromValue(value);
        EXPECT_EQ(read(typeName(value), text), value) << text;
    }
}

TEST(ValueText, HasOneLineForContainers)
{
    EXPECT_EQ(
        textFromValue(PropertyArray { "One", 2 }), "<array><string>One</string><integer>2</integer></array>");
    EXPECT_EQ(textFromValue(PropertyList { { "key", true } }), "<dict><key>key</key><true/></dict>");
}

TEST(ValueText, ShowsDatesAsTheDevicesWallTime)
{
    Device::current().timeZone = "Europe/Berlin";
    EXPECT_EQ(textFromValue(NSDate::dateWithTimeIntervalSince1970(0)), "1970-01-01T01:00:00+01:00");
    EXPECT_EQ(read("date", " 1970-01-01T01:00 "), PropertyValue(NSDate::dateWithTimeIntervalSince1970(0)));
}

TEST(ValueText, IsReadWithSomePatience)
{
    for (const auto* const yes : { "true", " yes", "on ", "1" })
        EXPECT_EQ(read("boolean", yes), PropertyValue(true));
    for (const auto* const no : { "false", "no", "off", "0" })
        EXPECT_EQ(read("boolean", no), PropertyValue(false));
    EXPECT_EQ(read("integer", " +60 "), PropertyValue(60));
    EXPECT_EQ(read("real", " 1e3"), PropertyValue(1000.0));
    EXPECT_EQ(read("data", "0A ff 0"), std::nullopt);
    EXPECT_EQ(read("data", " 0Aff "), PropertyValue(PropertyData { 10, 255 }));
}

TEST(ValueText, IsRefusedWithASentenceThatSaysWhatItShouldBe)
{
    EXPECT_EQ(refusal("boolean", "maybe"), "A boolean is true or false, not \"maybe\".");
    EXPECT_EQ(
        refusal("integer", "60 minutes"), "An integer is a whole number, as 60 or -1, not \"60 minutes\".");
    EXPECT_EQ(refusal("integer", "9223372036854775808"),
        "An integer has 64 bits, which is too few for \"9223372036854775808\".");
    EXPECT_EQ(refusal("real", "inf"), "A real is a number, as 0.5 or 1e3, not \"inf\".");
    EXPECT_EQ(refusal("string", "\x01"), "A string has no control characters but tabs and line ends.");
    EXPECT_EQ(refusal("date", "yesterday"),
        "A date is written in ISO 8601, as 2014-01-05T10:17:42+01:00, not \"yesterday\".");
    EXPECT_EQ(refusal("data", "0g"), "Data is written as pairs of hexadecimal digits, as 0a ff, not \"0g\".");
    EXPECT_EQ(refusal("array", "<dict/>"),
        "The array is written in XML, as <array><string>One</string><integer>2</integer></array>, not "
        "\"<dict/>\".");
    EXPECT_EQ(refusal("dictionary", "{ a = b; }"),
        "The dictionary is written in XML, as <dict><key>one</key><true/></dict>, not \"{ a = b; }\".");
    EXPECT_EQ(refusal("colour", ""), "There is no type \"colour\".");
}

TEST(ValueText, IsRefusedWhenItIsNoMoreThanASign)
{
    for (const auto* const text : { "", "+", "-", "+-1", "--1", "0x10", "1.0", "1e3" })
        EXPECT_FALSE(read("integer", text)) << text;
    for (const auto* const text : { "", ".", "1,5", "0x10" })
        EXPECT_FALSE(read("real", text)) << text;
    for (const auto* const text :
        { "", "<array>", "<array/><array/>", "<plist/>", "<array><string></array>" })
        EXPECT_FALSE(read("array", text)) << text;
}

TEST(ValueText, QuotesNoMoreOfALongTextThanASentenceHolds)
{
    const auto sentence = refusal("real", std::string(39, 'x') + "äöü" + std::string(1000, 'y'));
    EXPECT_EQ(sentence, "A real is a number, as 0.5 or 1e3, not \"" + std::string(39, 'x') + "…\".");
}
