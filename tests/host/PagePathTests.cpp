#include "host/PagePath.h"
#include "PhoneFixture.h"

namespace host {

namespace {

class PagePathTest : public PhoneTest {
protected:
    platform::PSListController& firstPage() const
    {
        return dynamic_cast<platform::PSListController&>(*phone->navigation().viewControllers().front());
    }
};

}

TEST_F(PagePathTest, NamesTheRowsThatOpenedThePages)
{
    open(options());
    tapRow("disableForMinutes");
    const auto path = pagePathOf(phone->navigation());
    ASSERT_EQ(path.pages.size(), 2U);
    EXPECT_EQ(path.pages[0].openedBy.className, "");
    EXPECT_EQ(path.pages[1].openedBy.identifier, "disableForMinutes");
    EXPECT_EQ(path.pages[1].openedBy.className, "PSListItemsController");
    EXPECT_EQ(path.pages[1].openedBy.place,
        firstPage().indexPathForSpecifier(firstPage().specifierForID("disableForMinutes")));
}

TEST_F(PagePathTest, LeadsANewPhoneToTheSamePageAndScrollPositions)
{
    open(optionsWithTestBundle());
    tapRow("Long Page");
    const auto onFirst = dynamic_cast<platform::PSListController&>(*phone->navigation().viewControllers()[0])
                             .table()
                             .contentOffset();
    EXPECT_GT(onFirst.y, 0) << "the row lies below the first screen";
    page().table().setContentOffset({ 0, 1234 });
    const auto path = pagePathOf(phone->navigation());

    open(optionsWithTestBundle());
    EXPECT_TRUE(followPagePath(phone->navigation(), path));
    phone->settle();
    ASSERT_EQ(depth(), 2U);
    EXPECT_EQ(page().title(), "Long Page");
    EXPECT_EQ(page().table().contentOffset(), (platform::CGPoint { 0, 1234 }));
    phone->navigation().popViewController();
    phone->settle();
    EXPECT_EQ(page().table().contentOffset(), onFirst);
}

TEST_F(PagePathTest, LeadsToAPageThatHasNoRows)
{
    open(optionsWithTestBundle());
    tapRow("Bare Page");
    const auto path = pagePathOf(phone->navigation());
    open(optionsWithTestBundle());
    EXPECT_TRUE(followPagePath(phone->navigation(), path));
    EXPECT_EQ(phone->navigation().topViewController()->title(), "Bare Page");
}

TEST_F(PagePathTest, EndsWhereARowIsMissing)
{
    open(optionsWithTestBundle());
    tapRow("Long Page");
    auto path = pagePathOf(phone->navigation());
    path.pages[1].openedBy = { "Longer Page", "TestLongerPage", { 1, 0 } };
    open(optionsWithTestBundle());
    EXPECT_FALSE(followPagePath(phone->navigation(), path));
    EXPECT_EQ(depth(), 1U);
    path.pages[1].openedBy = { "Nowhere", "NoSuchPage", { 1, 9 } };
    EXPECT_FALSE(followPagePath(phone->navigation(), path)) << "the row is there, but not its page";
    EXPECT_EQ(depth(), 1U);
}

TEST_F(PagePathTest, KnowsARowByItsNameBeforeItsPlace)
{
    open(optionsWithTestBundle());
    tapRow("Long Page");
    auto path = pagePathOf(phone->navigation());
    path.pages[1].openedBy.place = { 1, 8 }; // Now that of the page without rows.
    open(optionsWithTestBundle());
    EXPECT_TRUE(followPagePath(phone->navigation(), path));
    EXPECT_EQ(page().title(), "Long Page");
}

TEST_F(PagePathTest, KnowsARowByItsPlaceAndClassWhenItsTitleIsAnother)
{
    open(optionsWithTestBundle());
    tapRow("Long Page");
    auto path = pagePathOf(phone->navigation());
    path.pages[1].openedBy.identifier = "Lange Seite";
    open(optionsWithTestBundle());
    EXPECT_TRUE(followPagePath(phone->navigation(), path));
    EXPECT_EQ(page().title(), "Long Page");
}

TEST_F(PagePathTest, ScrollsOnlyAsFarAsThereIsContent)
{
    open(optionsWithTestBundle());
    tapRow("Long Page");
    auto path = pagePathOf(phone->navigation());
    path.pages[1].offsets.front() = { 0, 1e9 };
    path.pages[1].offsets.resize(99, { 0, 1 });
    EXPECT_TRUE(phone->navigation().popViewController());
    EXPECT_TRUE(followPagePath(phone->navigation(), path));
    EXPECT_EQ(page().table().contentOffset().y, page().table().maximumOffset());
    EXPECT_GT(page().table().maximumOffset(), 0);
}

}
