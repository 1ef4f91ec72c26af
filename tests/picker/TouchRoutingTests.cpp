#include "picker/TouchRouting.h"

#include <gtest/gtest.h>
#include <ostream>

using namespace platform;
using namespace vekora;

namespace vekora {

void PrintTo(const RoutedTouch& routed, std::ostream* out)
{
    static constexpr const char* regions[] = { "nowhere", "field", "bar" };
    *out << regions[static_cast<int>(routed.region)] << " (" << routed.point.x << ", " << routed.point.y
         << ")";
}

}

namespace {

// Labels end at 30.5, the field is at 40.5 to 300, labels from 310 to 330.5, the bar from 334.5 to 374.5.
constexpr TouchAreas areas {
    .field = { 10, 40.5, 300, 259.5 },
    .bar = { 10, 334.5, 300, 40 },
    .upperLimit = 30.5,
    .lowerLimit = 310,
};

constexpr double hair = 0.0009765625;

struct TouchCase {
    const char* what;
    CGPoint touch;
    RoutedTouch routed;
};

void expectAll(std::initializer_list<TouchCase> cases)
{
    for (const auto& [what, touch, routed] : cases)
        EXPECT_EQ(routeTouch(touch, areas), routed) << what;
}

constexpr RoutedTouch nowhere {};

RoutedTouch field(double x, double y)
{
    return { TouchRegion::Field, { x, y } };
}

RoutedTouch bar(double x, double y)
{
    return { TouchRegion::Bar, { x, y } };
}

TEST(TouchRouting, TakesTheFieldsOwnPointsAsTheyAre)
{
    expectAll({
        { "the middle", { 160, 170 }, field(160, 170) },
        { "the top left corner is inside", { 10, 40.5 }, field(10, 40.5) },
        { "the last point", { 310 - hair, 300 - hair }, field(310 - hair, 300 - hair) },
    });
}

TEST(TouchRouting, TakesTheBarsOwnPointsAsTheyAre)
{
    expectAll({
        { "the middle", { 160, 354 }, bar(160, 354) },
        { "the top left corner is inside", { 10, 334.5 }, bar(10, 334.5) },
        { "the last point", { 310 - hair, 374.5 - hair }, bar(310 - hair, 374.5 - hair) },
    });
}

TEST(TouchRouting, ClampsATouchLevelWithTheBar)
{
    expectAll({
        { "left of it", { 9, 350 }, bar(10, 350) },
        { "far left", { -500, 350 }, bar(10, 350) },
        { "its right edge is outside and clamped to itself", { 310, 350 }, bar(310, 350) },
        { "far right", { 5000, 350 }, bar(310, 350) },
        { "its bottom edge counts", { 160, 374.5 }, bar(160, 374.5) },
        { "its bottom edge counts beside it", { 320, 374.5 }, bar(310, 374.5) },
        { "its top edge counts beside it", { 0, 334.5 }, bar(10, 334.5) },
    });
}

TEST(TouchRouting, LosesATouchBeyondTheBarsLevel)
{
    expectAll({
        { "below", { 160, 374.5 + hair }, nowhere },
        { "above", { 160, 334.5 - hair }, nowhere },
        { "far below", { 160, 5000 }, nowhere },
    });
}

TEST(TouchRouting, ClampsATouchBetweenTheLabelsToTheField)
{
    expectAll({
        { "left", { 0, 170 }, field(10, 170) },
        { "its right edge", { 310, 170 }, field(310, 170) },
        { "right", { 1000, 170 }, field(310, 170) },
        { "its bottom edge", { 160, 300 }, field(160, 300) },
        { "below it", { 160, 305 }, field(160, 300) },
        { "above it", { 160, 35 }, field(160, 40.5) },
        { "beyond its bottom right corner", { 400, 309 }, field(310, 300) },
        { "beyond its top left corner", { -400, 31 }, field(10, 40.5) },
    });
}

TEST(TouchRouting, LosesATouchOnTheLabels)
{
    expectAll({
        { "the upper labels' bottom edge", { 160, 30.5 }, nowhere },
        { "just below it", { 160, 30.5 + hair }, field(160, 40.5) },
        { "on the upper labels", { 160, 20 }, nowhere },
        { "above the picker", { 160, -20 }, nowhere },
        { "the lower label's top edge", { 160, 310 }, nowhere },
        { "just above it", { 160, 310 - hair }, field(160, 300) },
        { "on the lower label", { 160, 320 }, nowhere },
        { "between the lower label and the bar", { 160, 332 }, nowhere },
        { "beside the lower label", { -5, 320 }, nowhere },
    });
}

TEST(TouchRouting, PrefersTheFieldWhereBothCover)
{
    auto overlapping = areas;
    overlapping.bar = { 10, 280, 300, 40 };
    EXPECT_EQ(routeTouch({ 160, 290 }, overlapping), field(160, 290));
    EXPECT_EQ(routeTouch({ 160, 300 }, overlapping), bar(160, 300));
    EXPECT_EQ(routeTouch({ 5, 290 }, overlapping), bar(10, 290)) << "beside both, the bar's level wins";
}

TEST(TouchRouting, NeverLandsInsideAnEmptyField)
{
    auto empty = areas;
    empty.field.height = 0;
    EXPECT_EQ(routeTouch({ 160, 40.5 }, empty), field(160, 40.5)) << "clamped between the labels";
    EXPECT_EQ(routeTouch({ 160, 200 }, empty), field(160, 40.5));
}

// Every rule once more, in order and in plain words, over all quarter points of a picker and around it.
TEST(TouchRouting, FollowsTheRulesAtEveryQuarterPoint)
{
    for (const TouchAreas& at :
        { areas, TouchAreas { { 10, 41, 355, 239 }, { 10, 315, 355, 40 }, 31, 290 } }) {
        const auto left = at.field.x, right = at.field.x + at.field.width;
        const auto top = at.field.y, bottom = at.field.y + at.field.height;
        const auto barTop = at.bar.y, barBottom = at.bar.y + at.bar.height;
        const auto pinned = [](double value, double low, double high) {
            return value < low ? low : value > high ? high : value;
        };
        for (double y = -20; y <= 420; y += 0.25) {
            for (double x = -20; x <= 420; x += 0.25) {
                RoutedTouch expected;
                const bool acrossBoth = x >= left && x < right; // Field and bar begin and end together.
                if (acrossBoth && y >= top && y < bottom)
                    expected = field(x, y);
                else if (acrossBoth && y >= barTop && y < barBottom)
                    expected = bar(x, y);
                else if (!(y < barTop) && !(y > barBottom))
                    expected = bar(pinned(x, left, right), y);
                else if (y < at.lowerLimit && y > at.upperLimit)
                    expected = field(pinned(x, left, right), pinned(y, top, bottom));
                ASSERT_EQ(routeTouch({ x, y }, at), expected) << "at " << x << ", " << y;
            }
        }
    }
}

}
