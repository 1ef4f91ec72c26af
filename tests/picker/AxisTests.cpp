#include "picker/Axis.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace vekora;

namespace {

constexpr Axis rising { Component::Hue, Direction::Rising };
constexpr Axis falling { Component::Saturation, Direction::Falling };

TEST(Axis, RisesFromItsStart)
{
    EXPECT_EQ(rising.valueAt(10, 10, 300), 0);
    EXPECT_EQ(rising.valueAt(85, 10, 300), 0.25);
    EXPECT_EQ(rising.valueAt(310, 10, 300), 1);
}

TEST(Axis, FallsFromItsStart)
{
    EXPECT_EQ(falling.valueAt(10, 10, 300), 1);
    EXPECT_EQ(falling.valueAt(85, 10, 300), 0.75);
    EXPECT_EQ(falling.valueAt(310, 10, 300), 0);
}

TEST(Axis, EndsExactlyAtItsEnd)
{
    // Lengths in thirds of a point, as there are at three pixels a point, do not add up exactly.
    for (int thirds = 1; thirds < 3000; ++thirds) {
        const auto origin = 62.0 / 3 + 20;
        const auto length = thirds / 3.0;
        EXPECT_EQ(rising.valueAt(origin + length, origin, length), 1);
        EXPECT_EQ(falling.valueAt(origin + length, origin, length), 0);
    }
}

TEST(Axis, DoesNotClamp)
{
    EXPECT_EQ(rising.valueAt(-290, 10, 300), -1);
    EXPECT_EQ(falling.valueAt(-290, 10, 300), 2);
    EXPECT_EQ(rising.positionOf(2, 10, 300), 610);
    EXPECT_EQ(falling.positionOf(2, 10, 300), -290);
}

TEST(Axis, PlacesAValueWhereItIsRead)
{
    for (const auto value : { 0.0, 0.125, 0.5, 1.0 }) {
        EXPECT_EQ(rising.valueAt(rising.positionOf(value, 20, 256), 20, 256), value);
        EXPECT_EQ(falling.valueAt(falling.positionOf(value, 20, 256), 20, 256), value);
    }
    EXPECT_EQ(rising.positionOf(0.125, 20, 256), 52);
    EXPECT_EQ(falling.positionOf(0.125, 20, 256), 244);
}

TEST(Axis, WithoutLengthHasItsStartsValueEverywhere)
{
    EXPECT_EQ(rising.valueAt(50, 10, 0), 0);
    EXPECT_EQ(falling.valueAt(50, 10, 0), 1);
    EXPECT_EQ(falling.valueAt(10, 10, 0), 1);
}

}
