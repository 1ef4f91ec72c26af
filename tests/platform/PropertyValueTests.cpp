#include "platform/PropertyValue.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;

namespace {

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto nan = std::numeric_limits<double>::quiet_NaN();

TEST(PropertyValue, CutsRealsTowardZeroAndPinsThem)
{
    EXPECT_EQ(PropertyValue(1.9).intValue(), 1);
    EXPECT_EQ(PropertyValue(-1.9).intValue(), -1);
    EXPECT_EQ(PropertyValue(1e300).intValue(), 2147483647);
    EXPECT_EQ(PropertyValue(-infinity).intValue(), -2147483647 - 1);
    EXPECT_EQ(PropertyValue(nan).intValue(), 0);
}

TEST(PropertyValue, KeepsTheLow32BitsOfAWiderInteger)
{
    EXPECT_EQ(PropertyValue(0x1'0000'0005LL).intValue(), 5);
    EXPECT_EQ(PropertyValue(0x8000'0000LL).intValue(), -2147483647 - 1);
    EXPECT_EQ(PropertyValue(std::numeric_limits<long long>::min()).intValue(), 0);
}

TEST(PropertyValue, ReadsBooleansAndStringsAsNumbers)
{
    EXPECT_EQ(PropertyValue(true).intValue(), 1);
    EXPECT_EQ(PropertyValue(true).doubleValue(), 1);
    EXPECT_EQ(PropertyValue(false).floatValue(), 0);
    EXPECT_EQ(PropertyValue("30").intValue(), 30);
    EXPECT_EQ(PropertyValue("1.5x").doubleValue(), 1.5);
    EXPECT_EQ(PropertyValue("1.5x").floatValue(), 1.5F);
    EXPECT_TRUE(PropertyValue("yes").boolValue());
    EXPECT_FALSE(PropertyValue("0").boolValue());
}

TEST(PropertyValue, TakesAnyNumberButZeroAsOn)
{
    EXPECT_TRUE(PropertyValue(-1).boolValue());
    EXPECT_TRUE(PropertyValue(0.5).boolValue());
    EXPECT_TRUE(PropertyValue(0x1'0000'0000LL).boolValue());
    EXPECT_FALSE(PropertyValue(0).boolValue());
    EXPECT_FALSE(PropertyValue(-0.0).boolValue());
}

TEST(PropertyValue, ReadsOtherKindsAsZeroAndOff)
{
    const PropertyValue others[]
        = { NSDate(5), PropertyData { 1, 2 }, PropertyArray { 1 }, PropertyList { { "a", 1 } } };
    for (const auto& value : others) {
        EXPECT_FALSE(value.boolValue());
        EXPECT_EQ(value.intValue(), 0);
        EXPECT_EQ(value.floatValue(), 0);
        EXPECT_EQ(value.doubleValue(), 0);
        EXPECT_FALSE(value.isNumber());
        EXPECT_EQ(value.string(), nullptr);
    }
}

TEST(PropertyValue, NarrowsToSinglePrecisionWithoutOverflow)
{
    EXPECT_EQ(PropertyValue(1e300).floatValue(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(PropertyValue(-1e300).floatValue(), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(PropertyValue(static_cast<double>(std::numeric_limits<float>::max())).floatValue(),
        std::numeric_limits<float>::max());
    EXPECT_TRUE(std::isnan(PropertyValue(nan).floatValue()));
}

TEST(PropertyValue, ComparesNumbersByValueWhateverTheirKind)
{
    EXPECT_TRUE(PropertyValue(1).isEqual(1.0));
    EXPECT_TRUE(PropertyValue(1.0).isEqual(true));
    EXPECT_TRUE(PropertyValue(true).isEqual(1));
    EXPECT_TRUE(PropertyValue(0).isEqual(false));
    EXPECT_TRUE(PropertyValue(nan).isEqual(nan));
    EXPECT_FALSE(PropertyValue(60).isEqual("60"));
    EXPECT_FALSE(PropertyValue(1).isEqual(1.5));
    EXPECT_FALSE(PropertyValue(1).isEqual(nan));
    EXPECT_FALSE(PropertyValue(1) == PropertyValue(true));
}

TEST(PropertyValue, ComparesLargeNumbersExactly)
{
    EXPECT_FALSE(PropertyValue((1LL << 53) + 1).isEqual(0x1p53));
    EXPECT_FALSE(PropertyValue(std::numeric_limits<long long>::max()).isEqual(0x1p63));
    EXPECT_TRUE(PropertyValue(std::numeric_limits<long long>::min()).isEqual(-0x1p63));
}

TEST(PropertyValue, ComparesContainersElementByElement)
{
    const PropertyValue one = PropertyList { { "a", PropertyArray { 1, "x", NSDate(2.5) } } };
    const PropertyValue same = PropertyList { { "a", PropertyArray { 1.0, "x", NSDate(2.5) } } };
    const PropertyValue longer = PropertyList { { "a", PropertyArray { 1, "x", NSDate(2.5), 0 } } };
    const PropertyValue otherKey = PropertyList { { "b", PropertyArray { 1, "x", NSDate(2.5) } } };
    EXPECT_TRUE(one.isEqual(same));
    EXPECT_FALSE(one.isEqual(longer));
    EXPECT_FALSE(one.isEqual(otherKey));
    EXPECT_FALSE(one.isEqual(PropertyArray {}));
    EXPECT_FALSE(one == same);
}

}
