#include "RecordTest.h"

using namespace platform;

namespace {

using Recordings = RecordTest;

TEST_F(Recordings, ADragScrollsAndItsGlideIsPartOfIt)
{
    recordTestBundle();
    const auto start = page().table().contentOffset().y;
    dragTo({ 150, 600 }, { 150, 430.3 }, 8, 0.1);
    glide(40);
    const auto now = page().table().contentOffset().y;
    ASSERT_GT(now, start + 160);
    EXPECT_EQ(script(), "scroll " + QString::number(now - start).toStdString() + "\n");
    glide(1000);
    EXPECT_EQ(script().find('\n'), script().size() - 1) << script();
    expectSameReplay();
}

TEST_F(Recordings, AFingerThatStopsTheGlideMeansNothingElse)
{
    recordTestBundle();
    dragTo({ 150, 600 }, { 150, 500 }, 4, 0.05);
    glide(3);
    tapAt({ 150, 300 });
    EXPECT_EQ(script().find("scroll "), 0U) << script();
    EXPECT_EQ(script().find('\n'), script().size() - 1) << script();
    expectSameReplay();
}

TEST_F(Recordings, TheWheelScrollsAndBackIsNothing)
{
    recordTestBundle();
    phone->scrollAt({ 100, 300 }, 80);
    phone->settle();
    phone->scrollAt({ 100, 300 }, 40.5);
    phone->settle();
    EXPECT_EQ(script(), "scroll 120.5\n");
    phone->scrollAt({ 100, 300 }, -500);
    phone->settle();
    EXPECT_EQ(script(), "");
    phone->scrollAt({ 100, 300 }, 1e5);
    phone->settle();
    expectSameReplay();
}

TEST_F(Recordings, ALongPageMakesTheSameRowsWhereverItIsScrolled)
{
    recordTestBundle();
    const auto long_ = page().specifierForID("Long Page");
    ASSERT_TRUE(long_);
    page().table().scrollToRowAtIndexPath(*page().indexPathForSpecifier(long_));
    phone->settle();
    tapAt(middleOf("Long Page"));
    for (const double dy : { 900.0, 2500.0, 700.0, -3000.0, 5000.0 }) {
        phone->scrollAt({ 100, 300 }, dy);
        phone->settle();
    }
    dragTo({ 150, 600 }, { 150, 100 }, 10, 0.1);
    glide(200);
    expectSameReplay();
}

TEST_F(Recordings, APageThatIsScrolledOnTheWayTakesNoNames)
{
    record();
    phone->setScreen({ 375, 400 }, 2);
    phone->settle();
    phone->scrollAt({ 100, 200 }, 70);
    // The first row in sight lies half below the bar.
    tapAt({ 100, 66 });
    tapAt({ 334, 130 });
    expectSameReplay();
}

}
