#include "host/access/ReadingOrder.h"

#include <gtest/gtest.h>

namespace host {

using platform::CGRect;
using enum ReadingDirection;
using Order = std::vector<std::size_t>;

TEST(ReadingOrder, IsEmptyForNothing)
{
    EXPECT_EQ(readingOrder({}, LeftToRight), Order {});
}

TEST(ReadingOrder, GoesFromTopToBottom)
{
    const CGRect rects[] = { { 0, 50, 10, 10 }, { 0, 0, 10, 10 }, { 0, 25, 10, 10 } };
    EXPECT_EQ(readingOrder(rects, LeftToRight), (Order { 1, 2, 0 }));
}

TEST(ReadingOrder, GoesAlongALineWhoseViewsDoNotBeginAtTheSameHeight)
{
    // A title and, right of it and a little higher, its value; the slider is in the next line.
    const CGRect rects[] = { { 300, 0, 60, 30 }, { 15, 7, 200, 20 }, { 15, 25, 345, 40 } };
    EXPECT_EQ(readingOrder(rects, LeftToRight), (Order { 1, 0, 2 }));
}

TEST(ReadingOrder, TurnsLinesAroundFromRightToLeft)
{
    const CGRect rects[] = { { 0, 0, 50, 20 }, { 100, 0, 50, 20 }, { 0, 30, 50, 20 } };
    EXPECT_EQ(readingOrder(rects, RightToLeft), (Order { 1, 0, 2 }));
}

TEST(ReadingOrder, KeepsTheOrderOfEqualPlaces)
{
    const CGRect rects[] = { { 0, 0, 5, 5 }, { 0, 0, 5, 5 }, { 0, 0, 5, 5 } };
    EXPECT_EQ(readingOrder(rects, LeftToRight), (Order { 0, 1, 2 }));
    EXPECT_EQ(readingOrder(rects, RightToLeft), (Order { 0, 1, 2 }));
}

TEST(ReadingOrder, GivesAViewWithoutHeightALineOfItsOwn)
{
    const CGRect rects[] = { { 50, 10, 20, 0 }, { 0, 10, 20, 20 } };
    EXPECT_EQ(readingOrder(rects, LeftToRight), (Order { 0, 1 }));
}

}
