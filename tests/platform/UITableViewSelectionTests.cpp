#include "TableViewTest.h"

using namespace platform;
using namespace platform::tests;

TEST_F(TableViewTest, SelectsOnReleaseAndShowsTheTouch)
{
    load({ { "", { 44, 44 } } });
    window->touchBegan({ 100, 100 });
    EXPECT_TRUE(cell(0, 1).isHighlighted());
    EXPECT_TRUE(source.selected.empty());
    window->touchMoved({ 106, 108 });
    EXPECT_TRUE(cell(0, 1).isHighlighted());
    window->touchEnded({ 106, 108 });
    EXPECT_FALSE(cell(0, 1).isHighlighted());
    EXPECT_EQ(source.selected, (std::vector<NSIndexPath> { { 0, 1 } }));
}

TEST_F(TableViewTest, SelectsNothingOnceTheFingerHasWandered)
{
    load({ { "", std::vector<CGFloat>(30, 44) } });
    window->touchBegan({ 100, 100 });
    window->touchMoved({ 100, 85 });
    EXPECT_FALSE(cell(0, 1).isHighlighted());
    window->touchMoved({ 100, 100 });
    window->touchEnded({ 100, 100 });
    window->touchBegan({ 100, 100 });
    window->touchEnded({ 130, 100 });
    EXPECT_TRUE(source.selected.empty());
}

TEST_F(TableViewTest, SelectsNothingWhenTheTouchIsCancelled)
{
    load({ { "", { 44 } } });
    window->touchBegan({ 100, 50 });
    window->touchCancelled();
    EXPECT_FALSE(cell(0, 0).isHighlighted());
    EXPECT_TRUE(source.selected.empty());
}

TEST_F(TableViewTest, SelectsNothingWithATouchThatStopsItsGliding)
{
    load({ { "", std::vector<CGFloat>(60, 44) } });
    window->touchBegan({ 100, 400 }, 1);
    window->touchMoved({ 100, 200 }, 1.05);
    window->touchEnded({ 100, 200 }, 1.06);
    ASSERT_TRUE(table->isDecelerating());
    window->touchBegan({ 100, 200 }, 1.2);
    window->touchEnded({ 100, 200 }, 1.3);
    EXPECT_TRUE(source.selected.empty());
    tap({ 100, 200 });
    EXPECT_EQ(source.selected.size(), 1u);
}

TEST_F(TableViewTest, PassesOverRowsThatCannotBeSelected)
{
    source.fill = [](auto& made, NSIndexPath) { made.setSelectable(false); };
    load({ { "", { 44 } } });
    window->touchBegan({ 100, 50 });
    EXPECT_FALSE(cell(0, 0).isHighlighted());
    window->touchEnded({ 100, 50 });
    EXPECT_TRUE(source.selected.empty());
}

TEST_F(TableViewTest, TakesTouchesOnWhateverIsInACell)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.contentView().addSubview(std::make_shared<UIView>(CGRect { 0, 0, 320, 44 }));
    };
    load({ { "", { 44 } } });
    tap({ 30, 57 });
    EXPECT_EQ(source.selected.size(), 1u);
}

TEST_F(TableViewTest, SurvivesASelectionThatTakesItAway)
{
    load({ { "", { 44 } } });
    source.onSelect = [&](auto&) {
        table->removeFromSuperview();
        table = nullptr;
    };
    tap({ 100, 50 });
    EXPECT_EQ(source.selected.size(), 1u);
    window->display();
}

TEST_F(TableViewTest, SurvivesASelectionThatReloadsFewerRows)
{
    load({ { "", { 44, 44 } } });
    source.onSelect = [&](UITableView& sender) {
        source.sections.clear();
        sender.reloadData();
    };
    tap({ 100, 100 });
    window->display();
    EXPECT_EQ(table->contentSize().height, 0);
    tap({ 100, 100 });
    EXPECT_EQ(source.selected.size(), 1u);
}

TEST_F(TableViewTest, DropsTheSelectionWhenItIsReloadedUnderTheFinger)
{
    load({ { "", { 44, 44 } } });
    window->touchBegan({ 100, 100 });
    source.sections = { { "", { 44 } } };
    table->reloadData();
    window->touchEnded({ 100, 100 });
    EXPECT_TRUE(source.selected.empty());
}
