#include "platform/UIScrollView.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace platform;

namespace {

class ScrollViewTest : public testing::Test {
protected:
    ScrollViewTest()
    {
        window->setScale(2);
        window->addSubview(scroll);
        scroll->setContentSize({ 320, 1000 });
        window->display();
    }

    /// Moves at an even pace of `speed` points a second, then lifts the finger.
    void fling(CGFloat from, CGFloat to, double seconds)
    {
        constexpr int steps = 10;
        window->touchBegan({ 100, from }, 1);
        for (int step = 1; step <= steps; ++step)
            window->touchMoved({ 100, from + (to - from) * step / steps }, 1 + seconds * step / steps);
        window->touchEnded({ 100, to }, 1 + seconds);
    }

    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 320, 400 });
    Ref<UIScrollView> scroll = std::make_shared<UIScrollView>(CGRect { 0, 0, 320, 400 });
};

}

TEST_F(ScrollViewTest, PinsTheOffsetToItsContent)
{
    scroll->setContentOffset({ 0, -20 });
    EXPECT_EQ(scroll->contentOffset().y, 0);
    scroll->setContentOffset({ 50, 5000 });
    EXPECT_EQ(scroll->contentOffset(), (CGPoint { 0, 600 }));
    scroll->setContentOffset({ 0, std::nan("") });
    EXPECT_EQ(scroll->contentOffset().y, 0);
}

TEST_F(ScrollViewTest, DoesNotScrollWhatFits)
{
    scroll->setContentSize({ 320, 300 });
    EXPECT_EQ(scroll->maximumOffset(), 0);
    fling(300, 100, 0.1);
    EXPECT_EQ(scroll->contentOffset().y, 0);
}

TEST_F(ScrollViewTest, FollowsContentThatShrinks)
{
    scroll->setContentOffset({ 0, 600 });
    scroll->setContentSize({ 320, 500 });
    EXPECT_EQ(scroll->contentOffset().y, 100);
}

TEST_F(ScrollViewTest, BringsOffsetsToWholeDevicePixels)
{
    scroll->setContentOffset({ 0, 10.3 });
    EXPECT_EQ(scroll->contentOffset().y, 10.5);
    window->setScale(3);
    scroll->setContentOffset({ 0, 20.3 });
    EXPECT_DOUBLE_EQ(scroll->contentOffset().y, 61 / 3.0);
}

TEST_F(ScrollViewTest, BeginsToPanAfterTenPoints)
{
    window->touchBegan({ 100, 300 });
    window->touchMoved({ 100, 290 });
    EXPECT_FALSE(scroll->isDragging());
    EXPECT_EQ(scroll->contentOffset().y, 0);
    window->touchMoved({ 100, 289 });
    EXPECT_TRUE(scroll->isDragging());
    EXPECT_EQ(scroll->contentOffset().y, 1);
    window->touchMoved({ 100, 190 });
    EXPECT_EQ(scroll->contentOffset().y, 100);
    window->touchEnded({ 100, 180 });
    EXPECT_EQ(scroll->contentOffset().y, 110);
    EXPECT_FALSE(scroll->isDragging());
}

TEST_F(ScrollViewTest, DoesNotPanSideways)
{
    window->touchBegan({ 100, 300 });
    window->touchMoved({ 200, 295 });
    EXPECT_FALSE(scroll->isDragging());
    window->touchEnded({ 200, 295 });
    EXPECT_EQ(scroll->contentOffset().y, 0);
}

TEST_F(ScrollViewTest, ShowsTheContentBelowTheOffset)
{
    auto row = std::make_shared<UIView>(CGRect { 0, 500, 320, 44 });
    scroll->addSubview(row);
    scroll->setContentOffset({ 0, 450 });
    EXPECT_EQ(row->convertPointToView({ 0, 0 }, nullptr).y, 50);
    EXPECT_EQ(window->hitTestWithEvent({ 10, 60 }, nullptr), row.get());
}

TEST_F(ScrollViewTest, GlidesOnAndComesToRest)
{
    fling(350, 250, 0.1);
    const auto released = scroll->contentOffset().y;
    EXPECT_EQ(released, 90);
    ASSERT_TRUE(scroll->isDecelerating());
    // A speed of 1000 points a second that decays by 0.2 % each millisecond carries about half as far.
    CGFloat last = released;
    int steps = 0;
    while (scroll->advance(1 / 60.0)) {
        EXPECT_GE(scroll->contentOffset().y, last);
        last = scroll->contentOffset().y;
        ASSERT_LT(++steps, 1000);
    }
    EXPECT_FALSE(scroll->isDecelerating());
    EXPECT_NEAR(scroll->contentOffset().y, released + 1000 / 2.002, 5);
    EXPECT_FALSE(scroll->advance(1));
}

TEST_F(ScrollViewTest, GlidesTheSameWayWhateverTheFrameRate)
{
    fling(350, 250, 0.1);
    for (int step = 0; step < 60; ++step)
        scroll->advance(1 / 60.0);
    const auto fine = scroll->contentOffset().y;
    scroll->setContentOffset({ 0, 0 });
    fling(350, 250, 0.1);
    for (int step = 0; step < 10; ++step)
        scroll->advance(1 / 10.0);
    EXPECT_NEAR(scroll->contentOffset().y, fine, 0.5);
}

TEST_F(ScrollViewTest, StopsGlidingAtTheEnd)
{
    scroll->setContentOffset({ 0, 500 });
    fling(390, 350, 0.01);
    ASSERT_TRUE(scroll->isDecelerating());
    EXPECT_FALSE(scroll->advance(1));
    EXPECT_EQ(scroll->contentOffset().y, 600);
}

TEST_F(ScrollViewTest, DoesNotGlideWithoutTimes)
{
    window->touchBegan({ 100, 350 });
    window->touchMoved({ 100, 250 });
    window->touchEnded({ 100, 200 });
    EXPECT_FALSE(scroll->isDecelerating());
    EXPECT_EQ(scroll->contentOffset().y, 140);
}

TEST_F(ScrollViewTest, DoesNotGlideAfterTheFingerHasRested)
{
    window->touchBegan({ 100, 350 }, 1);
    window->touchMoved({ 100, 250 }, 1.05);
    window->touchEnded({ 100, 250 }, 2);
    EXPECT_FALSE(scroll->isDecelerating());
}

TEST_F(ScrollViewTest, StopsGlidingAtATouch)
{
    fling(350, 250, 0.1);
    ASSERT_TRUE(scroll->isDecelerating());
    window->touchBegan({ 100, 200 }, 2);
    EXPECT_FALSE(scroll->isDecelerating());
    window->touchEnded({ 100, 200 }, 2.1);
    EXPECT_FALSE(scroll->isDecelerating());
}

TEST_F(ScrollViewTest, StopsGlidingWhenItIsScrolledByTheProgram)
{
    fling(350, 250, 0.1);
    scroll->setContentOffset({ 0, 30 });
    EXPECT_FALSE(scroll->advance(0.1));
    EXPECT_EQ(scroll->contentOffset().y, 30);
}

TEST_F(ScrollViewTest, StopsWhereItIsWhenTheTouchIsCancelled)
{
    window->touchBegan({ 100, 300 });
    window->touchMoved({ 100, 200 });
    window->touchCancelled();
    EXPECT_FALSE(scroll->isDragging());
    EXPECT_EQ(scroll->contentOffset().y, 90);
}
