#include "ListControllerTest.h"
#include "platform/PSListItemsController.h"

using namespace platform;
using namespace platform::tests;

using Kind = PSCellType;

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
