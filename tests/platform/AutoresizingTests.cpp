#include "platform/Autoresizing.h"
#include "platform/UIView.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

// All along x; the vertical axis follows the same rules, as one test shows.
CGRect resized(unsigned mask, CGFloat x = 20, CGFloat width = 50, CGFloat before = 100, CGFloat after = 200)
{
    return autoresizedFrame({ x, 0, width, 10 }, mask, { before, 100 }, { after, 100 });
}

void expectRect(CGRect actual, CGRect expected)
{
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
    EXPECT_NEAR(actual.width, expected.width, 1e-9);
    EXPECT_NEAR(actual.height, expected.height, 1e-9);
}

}

TEST(Autoresizing, LeavesAViewWithoutAMaskAlone)
{
    expectRect(resized(0), { 20, 0, 50, 10 });
}
TEST(Autoresizing, LeavesAViewWithAFarMarginAlone)
{
    expectRect(resized(4), { 20, 0, 50, 10 });
}
TEST(Autoresizing, MovesByTheDifferenceWithANearMargin)
{
    expectRect(resized(1), { 120, 0, 50, 10 });
}
TEST(Autoresizing, GrowsByTheDifferenceWithALength)
{
    expectRect(resized(2), { 20, 0, 150, 10 });
}

TEST(Autoresizing, SharesBetweenNearMarginAndLength)
{
    expectRect(resized(3), { 20 + 100 * 20.0 / 70, 0, 50 + 100 * 50.0 / 70, 10 });
}

TEST(Autoresizing, SharesBetweenBothMargins)
{
    expectRect(resized(5), { 20 + 100 * 20.0 / 50, 0, 50, 10 });
}
TEST(Autoresizing, SharesBetweenLengthAndFarMargin)
{
    expectRect(resized(6), { 20, 0, 50 + 100 * 50.0 / 80, 10 });
}
TEST(Autoresizing, ScalesWhenAllIsFlexible)
{
    expectRect(resized(7), { 40, 0, 100, 10 });
}

TEST(Autoresizing, GivesEqualSharesWhereTheFlexiblePartsAreNothing)
{
    expectRect(resized(5, 0, 100), { 50, 0, 100, 10 });
    expectRect(resized(7, 0, 0, 0, 90), { 30, 0, 30, 10 });
    expectRect(resized(3, 0, 0, 0, 90), { 45, 0, 45, 10 });
}

TEST(Autoresizing, NeverMakesALengthNegative)
{
    expectRect(resized(2, 20, 50, 100, 10), { 20, 0, 0, 10 });
}

TEST(Autoresizing, TreatsTheVerticalBitsAlike)
{
    expectRect(autoresizedFrame({ 0, 20, 10, 50 }, 8, { 100, 100 }, { 100, 200 }), { 0, 120, 10, 50 });
    expectRect(autoresizedFrame({ 0, 20, 10, 50 }, 16, { 100, 100 }, { 100, 200 }), { 0, 20, 10, 150 });
    expectRect(autoresizedFrame({ 0, 20, 10, 50 }, 32, { 100, 100 }, { 100, 200 }), { 0, 20, 10, 50 });
}

// The four masks that the panes use.
TEST(Autoresizing, ScalesAcrossAndKeepsDownForMaskSeven)
{
    expectRect(autoresizedFrame({ 15, 10, 290, 40 }, 7, { 320, 860 }, { 414, 900 }),
        { 15 * 414 / 320.0, 10, 290 * 414 / 320.0, 40 });
}

TEST(Autoresizing, MovesInProportionForMaskFive)
{
    expectRect(autoresizedFrame({ 245, 10, 60, 30 }, 5, { 320, 860 }, { 414, 860 }),
        { 245 + 94 * 245.0 / 260, 10, 60, 30 });
}

TEST(Autoresizing, AddsTheDifferencesForMaskTen)
{
    expectRect(autoresizedFrame({ 10, 40, 300, 200 }, 10, { 320, 380 }, { 375, 400 }), { 10, 60, 355, 200 });
}

TEST(Autoresizing, ScalesAcrossAndMovesDownForMaskFifteen)
{
    expectRect(autoresizedFrame({ 10, 10, 140, 20 }, 15, { 320, 380 }, { 375, 400 }),
        { 10 * 375 / 320.0, 30, 140 * 375 / 320.0, 20 });
}

TEST(Autoresizing, RunsWhenTheSuperviewIsResizedAndReachesItsSubviews)
{
    const auto outer = std::make_shared<UIView>(CGRect { 0, 0, 100, 100 });
    const auto middle = std::make_shared<UIView>(CGRect { 0, 0, 100, 100 });
    const auto inner = std::make_shared<UIView>(CGRect { 10, 0, 80, 100 });
    middle->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    inner->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    middle->addSubview(inner);
    outer->addSubview(middle);
    outer->setFrame({ 50, 50, 160, 100 });
    EXPECT_EQ(middle->frame(), (CGRect { 0, 0, 160, 100 }));
    EXPECT_EQ(inner->frame(), (CGRect { 10, 0, 140, 100 }));
}

TEST(Autoresizing, DoesNotRunForAMoveNorWhenItIsSwitchedOff)
{
    const auto outer = std::make_shared<UIView>(CGRect { 0, 0, 100, 100 });
    const auto inner = std::make_shared<UIView>(CGRect { 10, 0, 80, 100 });
    inner->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
    outer->addSubview(inner);
    outer->setFrame({ 50, 50, 100, 100 });
    EXPECT_EQ(inner->frame(), (CGRect { 10, 0, 80, 100 }));
    outer->setAutoresizesSubviews(false);
    outer->setFrame({ 50, 50, 200, 100 });
    EXPECT_EQ(inner->frame(), (CGRect { 10, 0, 80, 100 }));
}
