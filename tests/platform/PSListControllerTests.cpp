#include "platform/Journal.h"
#include "platform/PSListItemsController.h"
#include "platform/qt/TextEditor.h"
#include "platform/UISwitch.h"
#include "SettingsScreen.h"

#include <map>

using namespace platform;

namespace {

/// A page of rows made in code that keeps its values itself and writes down what happens to it.
class ListPage : public PSListController {
public:
    explicit ListPage(CGSize size)
        : PSListController(size)
    {
        log += specifier() ? "made with a row; " : "made; ";
    }

    const Specifiers& specifiers() override
    {
        if (!_specifiers) {
            log += specifier() ? "specifiers for " + specifier()->name() + "; " : "specifiers; ";
            _specifiers = build(*this);
        }
        return *_specifiers;
    }
    void viewWillAppear(bool animated) override
    {
        log += isViewLoaded() ? "appear; " : "appear unloaded; ";
        PSListController::viewWillAppear(animated);
    }
    void setPreferenceValueSpecifier(std::optional<PropertyValue> value, PSSpecifier* row) override
    {
        values.insert_or_assign(row->identifier(), *value);
        ++stores;
        onStore(*this);
    }
    std::optional<PropertyValue> readPreferenceValue(PSSpecifier* row) override
    {
        const auto found = values.find(row->identifier());
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        ++cellsAskedFor;
        auto cell = PSListController::tableViewCellForRowAtIndexPath(table, path);
        if (colored == path) {
            cell->textLabel().setTextColor(UIColor::redColor());
            cell->setBackgroundColor(UIColor::blueColor());
        }
        return cell;
    }
    void act() { onAction(*this, nullptr); }
    void actWith(PSSpecifier* row) { onAction(*this, row); }

    Specifiers& list() { return *_specifiers; }

    static std::string log;
    static std::function<Specifiers(ListPage&)> build;
    std::function<void(ListPage&)> onStore = [](auto&) {};
    std::function<void(ListPage&, PSSpecifier*)> onAction = [](auto&, auto*) {};
    std::map<std::string, PropertyValue> values;
    std::optional<NSIndexPath> colored;
    int stores = 0;
    int cellsAskedFor = 0;
};

std::string ListPage::log;
std::function<PSListController::Specifiers(ListPage&)> ListPage::build;

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

/// A page that is no list.
class PlainPage final : public UIViewController { };

const auto pageRegistration = registerClass<ListPage>("ListPage")
                                  .initialiser<CGSize>()
                                  .method("act", &ListPage::act)
                                  .method("actWith:", &ListPage::actWith);
const auto tallRegistration = registerClass<TallPage>("TallPage").initialiser<CGSize>();
const auto plainRegistration = registerClass<PlainPage>("PlainPage").initialiser<>();
const auto cellRegistration
    = registerClass<OwnCell>("OwnCell").initialiser<long, std::string, Ref<PSSpecifier>>();

Ref<PSSpecifier> make(PSListController& page, const std::string& name, PSCellType type)
{
    return PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        name, &page, "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr, type, nullptr);
}

class ListControllerTest : public SettingsScreen {
protected:
    ListControllerTest()
    {
        ListPage::log.clear();
        ListPage::build = [](auto&) { return PSListController::Specifiers {}; };
        OwnCell::made = OwnCell::refreshed = 0;
    }

    /// A page of these kinds of rows, named by their place.
    Ref<ListPage> showKinds(std::vector<PSCellType> kinds)
    {
        ListPage::build = [kinds](ListPage& page) {
            PSListController::Specifiers rows;
            for (const auto kind : kinds)
                rows.push_back(make(page, "Row " + std::to_string(rows.size()), kind));
            return rows;
        };
        return show<ListPage>();
    }
    UITableView& table() { return top()->table(); }
    std::vector<long> rowCounts(PSListController& page)
    {
        std::vector<long> counts;
        for (long section = 0; section < page.numberOfSectionsInTableView(page.table()); ++section)
            counts.push_back(page.tableViewNumberOfRowsInSection(page.table(), section));
        return counts;
    }
};

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
        return PSListController::Specifiers { nullptr, make(page, "Row", Kind::Button), nullptr };
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

TEST_F(ListControllerTest, OpensTheDetailPageOfALink)
{
    const auto page = showKinds({ Kind::Link });
    page->list()[0]->setDetailControllerClass(NSClassFromString("ListPage"));
    ListPage::log.clear();
    tapRow(0, 0);
    EXPECT_EQ(ListPage::log, "made; specifiers for Row 0; appear; ");
    auto* opened = dynamic_cast<ListPage*>(top());
    ASSERT_NE(opened, page.get());
    EXPECT_EQ(opened->specifier(), page->list()[0]);
    EXPECT_EQ(opened->parentController(), page.get());
    EXPECT_EQ(opened->rootController(), navigation.get());
    EXPECT_EQ(opened->contentSize(), page->view().bounds().size());
    EXPECT_EQ(opened->title(), "Row 0");
    ListPage::log.clear();
    tap(navigation->viewRef()->convertPointToView({ 20, 42 }, nullptr));
    EXPECT_EQ(top(), page.get());
    EXPECT_EQ(ListPage::log, "appear; ");
}

TEST_F(ListControllerTest, FindsTheDetailPageByName)
{
    const auto page = showKinds({ Kind::Link });
    page->list()[0]->setPropertyForKey("PlainPage", "detail");
    tapRow(0, 0);
    EXPECT_EQ(navigation->topViewController()->className(), "PlainPage");
    EXPECT_EQ(navigation->topViewController()->title(), "Row 0");
}

TEST_F(ListControllerTest, StaysWhenThereIsNoDetailPage)
{
    const auto page = showKinds({ Kind::Link, Kind::Link, Kind::LinkList, Kind::Link });
    page->list()[1]->setPropertyForKey("NoSuchPage", "detail");
    page->list()[2]->setPropertyForKey("NoSuchPage", "detail");
    page->list()[3]->setPropertyForKey("PSTableCell", "detail");
    for (long row = 0; row < 4; ++row)
        tapRow(0, row);
    EXPECT_EQ(top(), page.get());
}

TEST_F(ListControllerTest, SendsActionsWithAndWithoutTheRow)
{
    const auto page = showKinds({ Kind::Button, Kind::Button, Kind::Link, Kind::Button });
    std::vector<PSSpecifier*> senders;
    page->onAction = [&](auto&, auto* sender) { senders.push_back(sender); };
    page->list()[0]->setButtonAction("act");
    page->list()[1]->setButtonAction("actWith:");
    page->list()[2]->setButtonAction("act");
    page->list()[3]->setButtonAction("unknown");
    for (long row = 0; row < 4; ++row)
        tapRow(0, row);
    EXPECT_EQ(senders, (std::vector<PSSpecifier*> { nullptr, page->list()[1].get(), nullptr }));
}

TEST_F(ListControllerTest, GreysRowsAndLeavesTheirTapsUnanswered)
{
    const auto page = showKinds({ Kind::Button, Kind::Switch });
    page->onAction = [](auto&, auto*) { FAIL() << "A greyed row acts."; };
    page->list()[0]->setButtonAction("act");
    const auto color = cell(0, 0)->textLabel().textColor();
    for (const auto& row : page->list())
        row->setPropertyForKey(false, "enabled");
    page->reload();
    EXPECT_NE(cell(0, 0)->textLabel().textColor(), color);
    tapRow(0, 0);
    tap(*control<UISwitch>(0, 1));
    EXPECT_EQ(page->stores, 0);
    EXPECT_FALSE(control<UISwitch>(0, 1)->isEnabled());
    for (const auto& row : page->list())
        row->setPropertyForKey(true, "enabled");
    page->reload();
    EXPECT_EQ(cell(0, 0)->textLabel().textColor(), color);
    tap(*control<UISwitch>(0, 1));
    EXPECT_EQ(page->stores, 1);
}

TEST_F(ListControllerTest, ShowsNewNamesAfterAReload)
{
    const auto page = showKinds({ Kind::StaticText });
    auto* before = cell(0, 0);
    page->list()[0]->setName("Renamed");
    page->list()[0]->setPropertyForKey("Not the name", "label");
    EXPECT_EQ(before->textLabel().text(), "Row 0");
    page->reload();
    EXPECT_EQ(cell(0, 0), before);
    EXPECT_EQ(before->textLabel().text(), "Renamed");
    EXPECT_EQ(ListPage::log, "made; specifiers; appear; ");
}

TEST_F(ListControllerTest, AsksForEveryCellAgainOnAReload)
{
    const auto page = showKinds({ Kind::Button, Kind::Button, Kind::Group, Kind::Button });
    page->cellsAskedFor = 0;
    page->reload();
    EXPECT_EQ(page->cellsAskedFor, 3);
}

TEST_F(ListControllerTest, KeepsColoursThatThePageGivesACell)
{
    const auto page = showKinds({ Kind::Link, Kind::Link });
    page->colored = NSIndexPath { 0, 0 };
    page->reload();
    page->reload();
    page->reloadSpecifier(page->list()[0].get());
    EXPECT_EQ(cell(0, 0)->textLabel().textColor(), UIColor::redColor());
    EXPECT_EQ(cell(0, 0)->layer().backgroundColor(), UIColor::blueColor().cgColor());
    EXPECT_EQ(cell(0, 1)->textLabel().textColor(), UIColor::blackColor());
    EXPECT_EQ(cell(0, 1)->layer().backgroundColor(), UIColor::whiteColor().cgColor());
}

TEST_F(ListControllerTest, FollowsAListThatChangesBetweenReloads)
{
    const auto page = showKinds({ Kind::Button, Kind::Button });
    page->list().erase(page->list().begin());
    page->list().push_back(make(*page, "New", Kind::Group));
    page->list().push_back(make(*page, "Newer", Kind::Button));
    page->reload();
    window->display();
    EXPECT_EQ(cell(0, 0)->textLabel().text(), "Row 1");
    EXPECT_EQ(cell(0, 1), nullptr);
    EXPECT_EQ(cell(1, 0)->textLabel().text(), "Newer");
}

TEST_F(ListControllerTest, BuildsItsListAnewOnlyWhenAsked)
{
    const auto page = showKinds({ Kind::Button });
    const auto before = page->list()[0];
    page->reloadSpecifiers();
    EXPECT_NE(page->list()[0], before);
    EXPECT_EQ(cell(0, 0)->specifier(), page->list()[0]);
    EXPECT_EQ(ListPage::log, "made; specifiers; appear; specifiers; ");
}

TEST_F(ListControllerTest, ReloadsOneRow)
{
    const auto page = showKinds({ Kind::StaticText, Kind::StaticText });
    page->list()[0]->setName("A");
    page->list()[1]->setName("B");
    page->reloadSpecifier(page->list()[1].get());
    page->reloadSpecifier(nullptr);
    EXPECT_EQ(cell(0, 0)->textLabel().text(), "Row 0");
    EXPECT_EQ(cell(0, 1)->textLabel().text(), "B");
}

TEST_F(ListControllerTest, LeavesItToThePageWhatItReloadsWhenItComesBack)
{
    const auto page = showKinds({ Kind::TitleValue, Kind::Link });
    page->list()[1]->setDetailControllerClass(NSClassFromString("PlainPage"));
    tapRow(0, 1);
    const int cellsBefore = page->cellsAskedFor;
    navigation->popViewController();
    window->display();
    EXPECT_EQ(page->cellsAskedFor, cellsBefore);
}

TEST_F(ListControllerTest, MakesCellsOfTheClassThatARowNames)
{
    ListPage::build = [](ListPage& page) {
        auto own = make(page, "Own", Kind::StaticText);
        own->setPropertyForKey("OwnCell", "cellClass");
        auto unknown = make(page, "Unknown", Kind::Switch);
        unknown->setPropertyForKey("NoSuchCell", "cellClass");
        auto noCell = make(page, "No cell", Kind::Switch);
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
        auto own = make(page, "Own", Kind::StaticText);
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
        auto tall = make(page, "Tall", Kind::StaticText);
        tall->setPropertyForKey(100, "height");
        auto odd = make(page, "Odd", Kind::StaticText);
        odd->setPropertyForKey(-3, "height");
        return PSListController::Specifiers { tall, odd };
    };
    show<ListPage>();
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 0 }).height, 100);
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 1 }).height, 44);
    show<TallPage>();
    EXPECT_EQ(table().rectForRowAtIndexPath({ 0, 1 }).height, 860);
}

TEST_F(ListControllerTest, LetsTheUserChooseFromAList)
{
    const auto page = showKinds({ Kind::LinkList });
    page->list()[0]->setValuesTitles({ 15, 60 }, { "15 minutes", "1 hour" });
    page->values.insert_or_assign("Row 0", 60.0);
    page->reload();
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "1 hour");
    tapRow(0, 0);
    ASSERT_TRUE(dynamic_cast<PSListItemsController*>(top()));
    EXPECT_EQ(top()->title(), "Row 0");
    EXPECT_EQ(cell(0, 0)->textLabel().text(), "15 minutes");
    EXPECT_EQ(cell(0, 0)->accessoryType(), UITableViewCellAccessory::None);
    EXPECT_EQ(cell(0, 1)->accessoryType(), UITableViewCellAccessory::Checkmark);
    tapRow(0, 0);
    EXPECT_EQ(page->values.at("Row 0"), PropertyValue(15));
    EXPECT_EQ(cell(0, 0)->accessoryType(), UITableViewCellAccessory::Checkmark);
    EXPECT_EQ(cell(0, 1)->accessoryType(), UITableViewCellAccessory::None);
    navigation->popViewController();
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "15 minutes");
}

TEST_F(ListControllerTest, ShowsShortTitlesInTheRow)
{
    const auto page = showKinds({ Kind::LinkList });
    page->list()[0]->setValuesTitles({ 15, 60 }, { "15 minutes", "1 hour" });
    page->list()[0]->setPropertyForKey(PropertyArray { "15 min", 3 }, "shortTitles");
    page->values.insert_or_assign("Row 0", 15);
    page->reload();
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "15 min");
    page->values.insert_or_assign("Row 0", 60);
    page->reload();
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "1 hour");
}

TEST_F(ListControllerTest, SurvivesASetterThatClosesTheListOfChoices)
{
    const auto page = showKinds({ Kind::LinkList });
    page->list()[0]->setValuesTitles({ 15, 60 }, { "15 minutes", "1 hour" });
    page->onStore = [](ListPage& self) {
        self.navigationController()->popViewController();
        self.reloadSpecifiers();
    };
    tapRow(0, 0);
    tapRow(0, 1);
    EXPECT_EQ(top(), page.get());
    EXPECT_EQ(page->values.at("Row 0"), PropertyValue(60));
}

TEST_F(ListControllerTest, SurvivesActionsThatTakeThePageAway)
{
    for (const bool drops : { false, true }) {
        showKinds({ Kind::Button });
        auto opened = std::make_shared<ListPage>(CGSize { 375, 600 });
        opened->specifiers()[0]->setButtonAction("act");
        opened->onAction = [&, drops](ListPage& self, auto*) {
            if (drops)
                self.navigationController()->setRoot(nullptr);
            else
                self.navigationController()->popViewController();
            window->display();
            self.reload();
            self.reloadSpecifiers();
        };
        navigation->pushViewController(opened);
        const std::weak_ptr<ListPage> watched = opened;
        opened = nullptr;
        tapRow(0, 0);
        window->display();
        EXPECT_TRUE(watched.expired());
    }
}

TEST_F(ListControllerTest, SurvivesASwitchWhoseSetterBuildsTheRowsAnew)
{
    const auto page = showKinds({ Kind::Switch });
    page->onStore = [](ListPage& self) { self.reloadSpecifiers(); };
    tap(*control<UISwitch>(0, 0));
    EXPECT_EQ(page->values.at("Row 0"), PropertyValue(true));
    EXPECT_TRUE(control<UISwitch>(0, 0)->isOn());
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

TEST_F(ListControllerTest, StoresAnEditedTextWhenAnotherRowIsTapped)
{
    const auto page = showKinds({ Kind::EditText, Kind::Button });
    page->list()[1]->setButtonAction("act");
    std::string atAction;
    page->onAction = [&](ListPage& self, auto*) { atAction = *self.values.at("Row 0").string(); };
    tapRow(0, 0);
    control<UITextField>(0, 0)->editor().typeText("typed");
    tapRow(0, 1);
    EXPECT_EQ(atAction, "typed");
}

TEST_F(ListControllerTest, StoresAnEditedTextBeforeTheRowsAreBuiltAnew)
{
    const auto page = showKinds({ Kind::EditText });
    tapRow(0, 0);
    control<UITextField>(0, 0)->editor().typeText("typed");
    page->reloadSpecifiers();
    EXPECT_EQ(page->values.at("Row 0"), PropertyValue("typed"));
    EXPECT_EQ(control<UITextField>(0, 0)->text(), "typed");
    EXPECT_EQ(page->stores, 1);
}

TEST_F(ListControllerTest, KeepsTheEditingThroughAReload)
{
    const auto page = showKinds({ Kind::EditText });
    tapRow(0, 0);
    control<UITextField>(0, 0)->editor().typeText("half");
    page->reload();
    window->display();
    EXPECT_TRUE(control<UITextField>(0, 0)->isFirstResponder());
    EXPECT_EQ(control<UITextField>(0, 0)->text(), "half");
    EXPECT_EQ(page->stores, 0);
}

TEST_F(ListControllerTest, StoresByDefaultInTheRowsFileAndPosts)
{
    auto page = show(std::make_shared<PSListController>(CGSize { 375, 600 }));
    auto row = make(*page, "Row", Kind::Switch);
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
