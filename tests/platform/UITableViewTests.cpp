#include "platform/Device.h"
#include "platform/UIEvent.h"
#include "platform/UITableView.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace platform;

namespace {

struct Source : UITableViewDataSource {
    struct Section {
        std::string header;
        std::vector<CGFloat> rows;
        std::string footer = {};
    };
    std::vector<Section> sections;
    std::vector<NSIndexPath> selected;
    std::function<void(UITableViewCell&, NSIndexPath)> fill = [](auto&, auto) {};
    std::function<void(UITableView&)> onSelect = [](auto&) {};
    int cellsMade = 0;
    bool givesCells = true;

    long numberOfSectionsInTableView(UITableView&) override { return static_cast<long>(sections.size()); }
    long tableViewNumberOfRowsInSection(UITableView&, long section) override
    {
        return static_cast<long>(at(section).rows.size());
    }
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        if (!givesCells)
            return nullptr;
        ++cellsMade;
        lastTable = &table;
        auto cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::Value1, "");
        fill(*cell, path);
        return cell;
    }
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath path) override
    {
        return at(path.section).rows[static_cast<std::size_t>(path.row)];
    }
    std::string tableViewTitleForHeaderInSection(UITableView&, long section) override
    {
        return at(section).header;
    }
    std::string tableViewTitleForFooterInSection(UITableView&, long section) override
    {
        return at(section).footer;
    }
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        selected.push_back(path);
        onSelect(table);
    }

    Section& at(long section) { return sections[static_cast<std::size_t>(section)]; }
    UITableView* lastTable = nullptr;
};

class TableViewTest : public testing::Test {
protected:
    TableViewTest()
    {
        window->setScale(2);
        window->addSubview(table);
    }
    ~TableViewTest() override { Device::current().rightToLeft = false; }

    void load(std::vector<Source::Section> sections)
    {
        source.sections = std::move(sections);
        table->reloadData();
        window->display();
    }
    void tap(CGPoint point)
    {
        window->touchBegan(point);
        window->touchEnded(point);
    }
    UITableViewCell& cell(long section, long row) { return *table->cellForRowAtIndexPath({ section, row }); }

    /// The first label with this text, or null.
    UILabel* label(const std::string& text, UIView* below = nullptr)
    {
        for (const auto& view : (below ? below : table.get())->subviews()) {
            auto* found = dynamic_cast<UILabel*>(view.get());
            if (found && found->text() == text)
                return found;
            if ((found = label(text, view.get())))
                return found;
        }
        return nullptr;
    }

    Source source;
    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 320, 480 });
    Ref<UITableView> table = std::make_shared<UITableView>(CGRect { 0, 0, 320, 480 }, source);
};

}

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

TEST_F(TableViewTest, WritesHeadersInCapitalsAndFootersBelow)
{
    Device::current().locale = "de_DE";
    load({ { "F\u00FCr alle", { 44 }, "Gilt f\u00FCr alle Ger\u00E4te." } });
    Device::current().locale = "en_US";
    const auto* header = label("F\u00DCR ALLE");
    const auto* footer = label("Gilt f\u00FCr alle Ger\u00E4te.");
    ASSERT_TRUE(header && footer);
    const CGRect row = table->rectForRowAtIndexPath({ 0, 0 });
    EXPECT_EQ(header->frame().x, 15);
    EXPECT_LE(header->frame().maxY(), row.minY());
    EXPECT_GE(header->frame().minY(), 0);
    EXPECT_GE(footer->frame().minY(), row.maxY());
    EXPECT_EQ(header->font().pointSize, 13);
    EXPECT_GE(table->contentSize().height, footer->frame().maxY() + 35);
}

TEST_F(TableViewTest, WrapsLongFooters)
{
    load({ { "", { 44 }, "Short." }, { "", { 44 }, std::string(200, 'x') + " " + std::string(200, 'y') } });
    const auto* shortFooter = label("Short.");
    const auto* longFooter = label(std::string(200, 'x') + " " + std::string(200, 'y'));
    ASSERT_TRUE(shortFooter && longFooter);
    EXPECT_GT(longFooter->frame().height, 4 * shortFooter->frame().height);
    EXPECT_EQ(longFooter->frame().width, 290);
}

TEST_F(TableViewTest, KeepsHeadersWithoutRows)
{
    load({ { "Nothing", {}, "Really." }, { "", { 44 } } });
    EXPECT_TRUE(label("NOTHING") && label("Really."));
    EXPECT_GT(table->rectForRowAtIndexPath({ 1, 0 }).y, label("Really.")->frame().maxY());
}

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

TEST_F(TableViewTest, DividesRowsByHairlines)
{
    load({ { "", { 44, 44 } } });
    const auto& picture = window->picture();
    const auto at = [&](double x, double y) {
        return picture.at(static_cast<int>(x * 2), static_cast<int>(y * 2)) & 0xFFFFFF;
    };
    constexpr unsigned hairline = 0xC8C7CC;
    EXPECT_EQ(at(2, 35 - 0.5), hairline); // Above the group, from edge to edge.
    EXPECT_EQ(at(2, 35), 0xFFFFFFu);
    EXPECT_EQ(at(20, 79 - 0.5), hairline); // Between the rows, from the text on.
    EXPECT_EQ(at(14, 79 - 0.5), 0xFFFFFFu);
    EXPECT_EQ(at(2, 123), hairline); // Below the group.
    EXPECT_EQ(at(20, 123 - 0.5), 0xFFFFFFu); // Not twice.
}

TEST_F(TableViewTest, LaysOutTextValueAndAccessory)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("Value");
        made.setAccessoryType(UITableViewCellAccessory::DisclosureIndicator);
    };
    load({ { "", { 44 } } });
    const auto title = label("Title")->frame();
    const auto value = label("Value")->frame();
    const auto chevron = label("\u203A")->frame();
    EXPECT_EQ(title.x, 15);
    EXPECT_LE(title.maxX(), value.minX());
    EXPECT_LT(value.maxX(), chevron.minX());
    EXPECT_EQ(chevron.maxX(), 305);
    EXPECT_EQ(label("Title")->font().pointSize, 17);
}

TEST_F(TableViewTest, MirrorsRowsRightToLeft)
{
    Device::current().rightToLeft = true;
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("Value");
        made.setAccessoryType(UITableViewCellAccessory::DisclosureIndicator);
    };
    load({ { "Header", { 44 } } });
    EXPECT_EQ(label("Title")->frame().maxX(), 305);
    EXPECT_EQ(label("Title")->textAlignment(), NSTextAlignment::Right);
    EXPECT_EQ(label("Value")->textAlignment(), NSTextAlignment::Left);
    EXPECT_EQ(label("HEADER")->textAlignment(), NSTextAlignment::Right);
    EXPECT_EQ(label("\u203A"), nullptr);
    EXPECT_EQ(label("\u2039")->frame().minX(), 15);
}

TEST_F(TableViewTest, ShortensLongTitlesBeforeValues)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("A title that is far too long for one row of a narrow page");
        made.detailTextLabel().setText("A value");
    };
    load({ { "", { 44 } } });
    const auto& value = *label("A value");
    EXPECT_EQ(value.frame().width, value.sizeThatFits({ 320, 44 }).width);
    EXPECT_LE(cell(0, 0).textLabel().frame().maxX(), value.frame().minX());
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("A value that is far too long for one row of a narrow page");
    };
    table->reloadData();
    window->display();
    const auto& title = *label("Title");
    EXPECT_GE(title.frame().width, title.sizeThatFits({ 320, 44 }).width);
}

TEST_F(TableViewTest, BeginsCellsAsWideAsThePhonesOwn)
{
    EXPECT_EQ(UITableViewCell(UITableViewCellStyle::Default, "").frame(), (CGRect { 0, 0, 320, 44 }));
    UITableViewCell resized(UITableViewCellStyle::Default, "");
    resized.setFrame({ 0, 0, 500, 60 });
    EXPECT_EQ(resized.contentView().frame(), (CGRect { 0, 0, 500, 60 }));
}
