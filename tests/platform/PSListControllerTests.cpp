#include "ListControllerTest.h"
#include "platform/Journal.h"
#include "platform/UISwitch.h"

using namespace platform;
using namespace platform::tests;

namespace {

/// One that decides on heights itself.
class TallPage final : public ListPage {
public:
    using ListPage::ListPage;
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath) override { return 860; }
};

/// A cell of a page's own.
class OwnCell final : public PSTableCell {
public:
    OwnCell(long style, std::string identifier, Ref<PSSpecifier> row)
        : PSTableCell(style, std::move(identifier), std::move(row))
    {
        firstFrame = frame();
        ++made;
    }
    void refreshCellContentsWithSpecifier(PSSpecifier& row) override
    {
        PSTableCell::refreshCellContentsWithSpecifier(row);
        ++refreshed;
    }
    static CGRect firstFrame;
    static int made;
    static int refreshed;
};

CGRect OwnCell::firstFrame;
int OwnCell::made = 0;
int OwnCell::refreshed = 0;

const auto tallRegistration = registerClass<TallPage>("TallPage").initialiser<CGSize>();
const auto cellRegistration
    = registerClass<OwnCell>("OwnCell").initialiser<long, std::string, Ref<PSSpecifier>>();

using Kind = PSCellType;

}

TEST_F(ListControllerTest, DividesItsListIntoSections)
{
    using Counts = std::vector<long>;
    EXPECT_EQ(rowCounts(*showKinds({})), Counts {});
    EXPECT_EQ(rowCounts(*showKinds({ Kind::Button, Kind::Button })), (Counts { 2 }));
    EXPECT_EQ(rowCounts(*showKinds({ Kind::Group, Kind::Button })), (Counts { 1 }));
    EXPECT_EQ(
        rowCounts(*showKinds({ Kind::Button, Kind::Group, Kind::Button, Kind::Button })), (Counts { 1, 2 }));
    EXPECT_EQ(
        rowCounts(*showKinds({ Kind::Group, Kind::Group, Kind::Button, Kind::Group })), (Counts { 0, 1, 0 }));
}

TEST_F(ListControllerTest, FindsRowsByPlaceAndPlacesByRow)
{
    const auto page = showKinds({ Kind::Button, Kind::Group, Kind::Button, Kind::Group, Kind::Switch });
    const auto& rows = page->list();
    EXPECT_EQ(page->indexPathForSpecifier(rows[0].get()), (NSIndexPath { 0, 0 }));
    EXPECT_EQ(page->indexPathForSpecifier(rows[1].get()), std::nullopt);
    EXPECT_EQ(page->indexPathForSpecifier(rows[4].get()), (NSIndexPath { 2, 0 }));
    EXPECT_EQ(page->indexPathForSpecifier(nullptr), std::nullopt);
    EXPECT_EQ(page->specifierAtIndexPath({ 1, 0 }), rows[2].get());
    for (const NSIndexPath path : { NSIndexPath { 0, 1 }, { 3, 0 }, { -1, 0 }, { 0, -1 } })
        EXPECT_EQ(page->specifierAtIndexPath(path), nullptr);
    EXPECT_EQ(page->groupOfSection(0), nullptr);
    EXPECT_EQ(page->groupOfSection(2), rows[3].get());
    EXPECT_EQ(page->groupOfSection(3), nullptr);
}

TEST_F(ListControllerTest, PassesOverHolesInTheList)
{
    ListPage::build = [](ListPage& page) {
        return PSListController::Specifiers { nullptr, makeRow(page, "Row", Kind::Button), nullptr };
    };
    const auto page = show<ListPage>();
    EXPECT_EQ(rowCounts(*page), (std::vector<long> { 3 }));
    EXPECT_EQ(page->specifierForID("Row"), page->list()[1].get());
    tap({ 100, 64 + 35 + 20 });
    page->reloadSpecifiers();
}

TEST_F(ListControllerTest, HasNoRowsOfItsOwn)
{
    auto page = show(std::make_shared<PSListController>(CGSize { 375, 600 }));
    EXPECT_TRUE(page->specifiers().empty());
    EXPECT_EQ(page->specifierForID("any"), nullptr);
}

TEST_F(ListControllerTest, BuildsItsRowsBeforeItAppears)
{
    showKinds({ Kind::Button });
    EXPECT_EQ(ListPage::log, "made; specifiers; appear; ");
}

TEST_F(ListControllerTest, MakesCellsOfTheClassThatARowNames)
{
    OwnCell::made = OwnCell::refreshed = 0;
    ListPage::build = [](ListPage& page) {
        auto own = makeRow(page, "Own", Kind::StaticText);
        own->setPropertyForKey("OwnCell", "cellClass");
        auto unknown = makeRow(page, "Unknown", Kind::Switch);
        unknown->setPropertyForKey("NoSuchCell", "cellClass");
        auto noCell = makeRow(page, "No cell", Kind::Switch);
        noCell->setPropertyForKey("ListPage", "cellClass");
        return PSListController::Specifiers { own, unknown, noCell };
    };
    const auto page = show<ListPage>();
    EXPECT_TRUE(dynamic_cast<OwnCell*>(cell(0, 0)));
    EXPECT_TRUE(control<UISwitch>(0, 1));
    EXPECT_TRUE(control<UISwitch>(0, 2));
    page->reload();
    EXPECT_EQ(OwnCell::made, 1);
    EXPECT_EQ(OwnCell::refreshed, 2);
}

TEST_F(ListControllerTest, MakesCellsAsWideAsThePage)
{
    ListPage::build = [](ListPage& page) {
        auto own = makeRow(page, "Own", Kind::StaticText);
        own->setPropertyForKey("OwnCell", "cellClass");
        own->setPropertyForKey(860, "height");
        return PSListController::Specifiers { own };
    };
    show<ListPage>();
    EXPECT_EQ(OwnCell::firstFrame, (CGRect { 0, 0, 375, 44 }));
    EXPECT_EQ(cell(0, 0)->frame(), (CGRect { 0, 35, 375, 860 }));
    PSTableCell alone(0, "", nullptr);
    EXPECT_EQ(alone.frame(), (CGRect { 0, 0, 320, 44 }));
}

TEST_F(ListControllerTest, AsksThePageForHeightsBeforeTheRow)
{
    ListPage::build = [](ListPage& page) {
        auto tall = makeRow(page, "Tall", Kind::StaticText);
        tall->setPropertyForKey(100, "height");
        auto odd = makeRow(page, "Odd", Kind::StaticText);
        odd->setPropertyForKey(-3, "height");
        return PSListController::Specifiers { tall, odd };
    };
    show<ListPage>();
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 0 }).height, 100);
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 1 }).height, 44);
    show<TallPage>();
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 1 }).height, 860);
}

TEST_F(ListControllerTest, SurvivesRowsThatOutliveIt)
{
    auto page = showKinds({ Kind::Switch });
    const auto row = page->list()[0];
    const auto kept = std::static_pointer_cast<PSTableCell>(
        std::static_pointer_cast<UIView>(cell(0, 0)->shared_from_this()));
    const auto keptTable = std::static_pointer_cast<UIView>(page->view().shared_from_this());
    page = nullptr;
    navigation->setRoot(nullptr);
    window->display();
    EXPECT_EQ(row->target(), nullptr);
    kept->refreshCellContentsWithSpecifier(*row);
    window->addSubview(keptTable);
    window->display();
    tap({ 100, 60 });
}

TEST_F(ListControllerTest, StoresByDefaultInTheRowsFileAndPosts)
{
    auto page = show(std::make_shared<PSListController>(CGSize { 375, 600 }));
    auto row = makeRow(*page, "Row", Kind::Switch);
    row->setPropertyForKey("net.test", "defaults");
    row->setPropertyForKey("theKey", "key");
    row->setPropertyForKey("the default", "default");
    row->setPropertyForKey("net.test/changed", "PostNotification");
    writeFile("/var/mobile/Library/Preferences/keep", "");
    std::vector<std::string> posted;
    const int listener = Journal::shared().listen([&](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Notification)
            posted.push_back(entry.name + " " + entry.detail);
    });
    EXPECT_EQ(row->performGetter(), PropertyValue("the default"));
    row->performSetterWithValue(true);
    EXPECT_EQ(row->performGetter(), PropertyValue(true));
    EXPECT_NE(readFile("/var/mobile/Library/Preferences/net.test.plist").find("<key>theKey</key>"),
        std::string::npos);
    EXPECT_EQ(posted, (std::vector<std::string> { "net.test/changed immediately" }));
    row->removePropertyForKey("PostNotification");
    row->performSetterWithValue(false);
    EXPECT_EQ(posted.size(), 1u);
    EXPECT_EQ(row->performGetter(), PropertyValue(false));
    row->removePropertyForKey("defaults");
    EXPECT_EQ(row->performGetter(), PropertyValue("the default"));
    row->removePropertyForKey("default");
    EXPECT_EQ(row->performGetter(), std::nullopt);
    row->performSetterWithValue(true);
    page->setPreferenceValueSpecifier(true, nullptr);
    EXPECT_EQ(page->readPreferenceValue(nullptr), std::nullopt);
    Journal::shared().stop(listener);
}

TEST_F(ListControllerTest, ScrollsUnderAFingerThatBeganOnARow)
{
    const auto page = showKinds(std::vector<Kind>(40, Kind::Button));
    page->onAction = [](auto&, auto*) { FAIL() << "A drag is no tap."; };
    for (const auto& row : page->list())
        row->setButtonAction("act");
    drag({ 100, 400 }, { 100, 190 });
    EXPECT_EQ(table().contentOffset().y, 200);
}

TEST_F(ListControllerTest, LeavesADragThatBeganOnASwitchToIt)
{
    showKinds(std::vector<Kind>(40, Kind::Switch));
    const auto start = middleOf(*control<UISwitch>(0, 5));
    drag(start, { start.x, start.y - 100 });
    EXPECT_EQ(table().contentOffset().y, 0);
}

TEST_F(ListControllerTest, StaysUsableWithThousandsOfRows)
{
    const auto page = showKinds(std::vector<Kind>(5000, Kind::Switch));
    EXPECT_LT(page->cellsAskedFor, 100);
    table().scrollToRowAtIndexPath({ 0, 4999 });
    window->display();
    tap(*control<UISwitch>(0, 4999));
    EXPECT_EQ(page->values.at("Row 4999"), PropertyValue(true));
}
