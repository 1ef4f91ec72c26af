#include "platform/NSScanner.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

struct Scan {
    bool succeeded;
    std::uint32_t value;
    std::size_t location;

    bool operator==(const Scan&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Scan& scan)
{
    return stream << scan.succeeded << " " << std::hex << scan.value << " at " << std::dec << scan.location;
}

constexpr std::uint32_t untouched = 0xFFFFFE;

Scan scan(std::string_view text, std::string_view skipped = "#")
{
    NSScanner scanner(text);
    scanner.setCharactersToBeSkipped(skipped);
    Scan result { false, untouched, 0 };
    result.succeeded = scanner.scanHexInt(result.value);
    result.location = scanner.scanLocation();
    return result;
}

TEST(NSScanner, ReadsTheLongestRunOfHexadecimalDigits)
{
    EXPECT_EQ(scan("#FF8800"), (Scan { true, 0xFF8800, 7 }));
    EXPECT_EQ(scan("ff8800"), (Scan { true, 0xFF8800, 6 }));
    EXPECT_EQ(scan("#AbCdEf"), (Scan { true, 0xABCDEF, 7 }));
    EXPECT_EQ(scan("#12XY"), (Scan { true, 0x12, 3 }));
    EXPECT_EQ(scan("#0"), (Scan { true, 0, 2 }));
}

TEST(NSScanner, PassesOverTheSkippedCharactersBeforeTheNumberOnly)
{
    EXPECT_EQ(scan("##FF"), (Scan { true, 0xFF, 4 }));
    EXPECT_EQ(scan("#FF#00"), (Scan { true, 0xFF, 3 }));
    EXPECT_EQ(scan("# FF"), (Scan { false, untouched, 0 }));
    EXPECT_EQ(scan(" FF"), (Scan { false, untouched, 0 }));
    EXPECT_EQ(scan("FF", ""), (Scan { true, 0xFF, 2 }));
}

TEST(NSScanner, SkipsWhiteSpaceUntilToldOtherwise)
{
    NSScanner scanner(" \n\t1F 2a");
    std::uint32_t value = 0;
    EXPECT_TRUE(scanner.scanHexInt(value));
    EXPECT_EQ(value, 0x1FU);
    EXPECT_TRUE(scanner.scanHexInt(value));
    EXPECT_EQ(value, 0x2AU);
    EXPECT_FALSE(scanner.scanHexInt(value));
    EXPECT_EQ(value, 0x2AU);
}

TEST(NSScanner, TakesAPrefixBeforeTheDigits)
{
    EXPECT_EQ(scan("#0xFF8800"), (Scan { true, 0xFF8800, 9 }));
    EXPECT_EQ(scan("0X10"), (Scan { true, 0x10, 4 }));
    EXPECT_EQ(scan("0x0x12"), (Scan { true, 0, 3 }));
    EXPECT_EQ(scan("00x12"), (Scan { true, 0, 2 }));
}

TEST(NSScanner, ReadsAPrefixWithoutDigitsAsZeroAndStopsAtTheLetter)
{
    EXPECT_EQ(scan("0x"), (Scan { true, 0, 1 }));
    EXPECT_EQ(scan("#0xG"), (Scan { true, 0, 2 }));
}

TEST(NSScanner, PinsWhatDoesNotFitAndSwallowsAllDigits)
{
    EXPECT_EQ(scan("FFFFFFFF"), (Scan { true, 0xFFFFFFFF, 8 }));
    EXPECT_EQ(scan("100000000"), (Scan { true, 0xFFFFFFFF, 9 }));
    EXPECT_EQ(scan("1000000000000000000000012"), (Scan { true, 0xFFFFFFFF, 25 }));
    EXPECT_EQ(scan("0000000000000012"), (Scan { true, 0x12, 16 }));
}

TEST(NSScanner, FailsWithoutADigitAndTouchesNothing)
{
    for (const char* text : { "", "#", "####", "xyz", "-1", "+1", "x10", "\xC3\xA4" })
        EXPECT_EQ(scan(text), (Scan { false, untouched, 0 })) << text;
}

TEST(NSScanner, KeepsItsOwnCopyOfTheText)
{
    std::string text = "#ABC";
    NSScanner scanner(text);
    text = "#123";
    scanner.setCharactersToBeSkipped("#");
    std::uint32_t value = 0;
    EXPECT_TRUE(scanner.scanHexInt(value));
    EXPECT_EQ(value, 0xABCU);
}

}
