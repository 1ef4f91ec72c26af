#include "platform/Truncation.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto undefinedNumber = std::numeric_limits<double>::quiet_NaN();

TEST(TruncatedInteger, CutsTowardZero)
{
    EXPECT_EQ(truncatedInteger(127.996), 127);
    EXPECT_EQ(truncatedInteger(-10.9), -10);
    EXPECT_EQ(truncatedInteger(0), 0);
    EXPECT_EQ(truncatedInteger(-0.5), 0);
}

TEST(TruncatedInteger, PinsWhatDoesNotFit)
{
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(truncatedInteger(infinity), highest);
    EXPECT_EQ(truncatedInteger(-infinity), lowest);
    EXPECT_EQ(truncatedInteger(1e300), highest);
    EXPECT_EQ(truncatedInteger(-1e300), lowest);
    EXPECT_EQ(truncatedInteger(2147483647.0), highest);
    EXPECT_EQ(truncatedInteger(2147483646.5), 2147483646);
    EXPECT_EQ(truncatedInteger(2147483648.0), highest);
    EXPECT_EQ(truncatedInteger(-2147483648.0), lowest);
    EXPECT_EQ(truncatedInteger(undefinedNumber), 0);
}

}
