#include "TableViewTest.h"

#include <cmath>
#include <limits>

using namespace platform;
using namespace platform::tests;

TEST_F(TableViewTest, PlacesRowsOneBelowTheOther)
{
    load({ { "", { 44, 60 } }, { "", { 44 } } });
    EXPECT_EQ(table->rectForRowAtIndexPath({ 0, 0 }), (CGRect { 0, 35, 320, 44 }));
    EXPECT_EQ(table->rectForRowAtIndexPath({ 0, 1 }), (CGRect { 0, 79, 320, 60 }));
    EXPECT_EQ(table->rectForRowAtIndexPath({ 1, 0 }), (CGRect { 0, 174, 320, 44 }));
    EXPECT_EQ(table->contentSize().height, 174 + 44 + 35);
    EXPECT_EQ(cell(1, 0).frame(), (CGRect { 0, 174, 320, 44 }));
}

TEST_F(TableViewTest, HasNoPlaceForWhatIsNotThere)
{
    load({ { "", { 44 } } });
    for (const NSIndexPath path : { NSIndexPath { 0, 1 }, { 1, 0 }, { -1, 0 }, { 0, -1 } }) {
        EXPECT_EQ(table->cellForRowAtIndexPath(path), nullptr);
        EXPECT_EQ(table->rectForRowAtIndexPath(path), CGRect {});
        table->scrollToRowAtIndexPath(path);
        table->reloadRowAtIndexPath(path);
    }
    EXPECT_EQ(table->indexPathForCell(nullptr), std::nullopt);
    EXPECT_EQ(table->indexPathForRowAtPoint({ 10, 10 }), std::nullopt);
    EXPECT_EQ(table->indexPathForRowAtPoint({ 10, 36 }), (NSIndexPath { 0, 0 }));
}

TEST_F(TableViewTest, ReadsSenselessHeightsAsNone)
{
    load({ { "", { -5, std::nan(""), std::numeric_limits<CGFloat>::infinity(), 44 } } });
    EXPECT_EQ(table->rectForRowAtIndexPath({ 0, 3 }).y, 35);
}

TEST_F(TableViewTest, ShowsAnEmptyTable)
{
    load({});
    EXPECT_EQ(table->contentSize().height, 0);
    tap({ 10, 10 });
    EXPECT_TRUE(source.selected.empty());
}

TEST_F(TableViewTest, StandsInForACellThatIsNotGiven)
{
    source.givesCells = false;
    load({ { "", { 44 } } });
    EXPECT_EQ(cell(0, 0).frame(), (CGRect { 0, 35, 320, 44 }));
}

TEST_F(TableViewTest, KeepsHeadersWithoutRows)
{
    load({ { "Nothing", {}, "Really." }, { "", { 44 } } });
    EXPECT_TRUE(label("NOTHING") && label("Really."));
    EXPECT_GT(table->rectForRowAtIndexPath({ 1, 0 }).y, label("Really.")->frame().maxY());
}

TEST_F(TableViewTest, ForgetsASourceThatHasGone)
{
    load({ { "Header", { 44 } } });
    table->setDataSource(nullptr);
    window->display();
    EXPECT_EQ(table->cellForRowAtIndexPath({ 0, 0 }), nullptr);
    EXPECT_EQ(label("HEADER"), nullptr);
    tap({ 100, 50 });
    EXPECT_TRUE(source.selected.empty());
}

TEST_F(TableViewTest, AsksForCellsAnewAndTakesTheOldOnesOut)
{
    source.fill
        = [&](auto& made, NSIndexPath) { made.textLabel().setText(std::to_string(source.cellsMade)); };
    load({ { "", { 44, 44 } } });
    EXPECT_TRUE(label("1") && label("2"));
    table->reloadData();
    window->display();
    EXPECT_EQ(label("1"), nullptr);
    EXPECT_TRUE(label("3") && label("4"));
    table->reloadRowAtIndexPath({ 0, 1 });
    window->display();
    EXPECT_TRUE(label("3") && label("5"));
    EXPECT_EQ(label("4"), nullptr);
}

TEST_F(TableViewTest, KeepsThePlaceScrolledToWhenReloaded)
{
    load({ { "", std::vector<CGFloat>(30, 44) } });
    table->setContentOffset({ 0, 200 });
    table->reloadData();
    window->display();
    EXPECT_EQ(table->contentOffset().y, 200);
    source.sections = { { "", { 44, 44 } } };
    table->reloadData();
    window->display();
    EXPECT_EQ(table->contentOffset().y, 0);
}

TEST_F(TableViewTest, RefusesAReloadFromWithinAQuestion)
{
    source.fill = [&](auto&, NSIndexPath) {
        source.lastTable->reloadData();
        source.lastTable->reloadRowAtIndexPath({ 0, 0 });
    };
    load({ { "", { 44, 44 } } });
    EXPECT_EQ(source.cellsMade, 2);
}

TEST_F(TableViewTest, ScrollsAsFarAsARowNeeds)
{
    load({ { "", std::vector<CGFloat>(30, 44) } });
    table->scrollToRowAtIndexPath({ 0, 20 });
    EXPECT_EQ(table->contentOffset().y, 35 + 21 * 44 - 480);
    table->scrollToRowAtIndexPath({ 0, 19 });
    EXPECT_EQ(table->contentOffset().y, 35 + 21 * 44 - 480);
    table->scrollToRowAtIndexPath({ 0, 2 });
    EXPECT_EQ(table->contentOffset().y, 35 + 2 * 44);
    load({ { "", { 44, 900 } } });
    table->scrollToRowAtIndexPath({ 0, 1 });
    EXPECT_EQ(table->contentOffset().y, 79);
}

TEST_F(TableViewTest, ScrollsFarEnoughToReadWhatReachesOutOfACell)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.contentView().addSubview(std::make_shared<UIView>(CGRect { 0, 600, 100, 320 }));
    };
    load({ { "", { 860 } } });
    EXPECT_GE(table->contentSize().height, 35 + 920);
    EXPECT_FALSE(cell(0, 0).clipsToBounds());
    EXPECT_EQ(cell(0, 0).frame().height, 860);
    // It stays on white, with the group's line below it.
    table->setContentOffset({ 0, 5000 });
    window->display();
    const auto at = [&](double y) {
        return window->picture().at(20, static_cast<int>((y - table->contentOffset().y) * 2)) & 0xFFFFFF;
    };
    EXPECT_EQ(at(35 + 860), 0xFFFFFFu);
    EXPECT_EQ(at(35 + 919), 0xFFFFFFu);
    EXPECT_EQ(at(35 + 920 + 15), 0xC8C7CCu);
}

TEST_F(TableViewTest, FollowsItsWidth)
{
    load({ { "", { 44 }, std::string(40, 'w') + " " + std::string(40, 'w') } });
    const auto before = table->contentSize().height;
    table->setFrame({ 0, 0, 1000, 480 });
    window->display();
    EXPECT_EQ(cell(0, 0).frame().width, 1000);
    EXPECT_LT(table->contentSize().height, before);
}

TEST_F(TableViewTest, MakesTheCellsOfALongPageAsTheyAreNeeded)
{
    load({ { "", std::vector<CGFloat>(5000, 44) } });
    EXPECT_LT(source.cellsMade, 60);
    EXPECT_EQ(table->contentSize().height, 35 + 5000 * 44 + 35);
    table->setContentOffset({ 0, 100000 });
    window->display();
    EXPECT_LT(source.cellsMade, 120);
    tap({ 100, 100 });
    EXPECT_EQ(source.selected, (std::vector<NSIndexPath> { { 0, (100000 + 100 - 35) / 44 } }));
    EXPECT_NE(table->cellForRowAtIndexPath({ 0, 4999 }), nullptr);
}

TEST_F(TableViewTest, MakesEveryCellOfAShortPage)
{
    load({ { "", std::vector<CGFloat>(40, 44) } });
    EXPECT_EQ(source.cellsMade, 40);
}
