#include "ListControllerTest.h"
#include "platform/qt/TextEditor.h"
#include "platform/UISwitch.h"

using namespace platform;
using namespace platform::tests;

using Kind = PSCellType;

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
    page->list().push_back(makeRow(*page, "New", Kind::Group));
    page->list().push_back(makeRow(*page, "Newer", Kind::Button));
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

TEST_F(ListControllerTest, SurvivesASwitchWhoseSetterBuildsTheRowsAnew)
{
    const auto page = showKinds({ Kind::Switch });
    page->onStore = [](ListPage& self) { self.reloadSpecifiers(); };
    tap(*control<UISwitch>(0, 0));
    EXPECT_EQ(page->values.at("Row 0"), PropertyValue(true));
    EXPECT_TRUE(control<UISwitch>(0, 0)->isOn());
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
