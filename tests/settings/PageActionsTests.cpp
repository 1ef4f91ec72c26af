#include "PageActionsTest.h"

namespace vekora {

using namespace platform;

namespace {

class PageActions : public PageActionsTest { };

}

TEST_F(PageActions, ANotificationFollowsAWriteThatFailed)
{
    open();
    std::filesystem::remove_all(preferenceFile().parent_path());
    set("buttonText", "Snooze");
    page->vekoraNow();
    page->clearVekora();
    EXPECT_EQ(
        takeEvents(), (Events { "write", "notification", "write", "notification", "write", "notification" }));
}

TEST_F(PageActions, SuppressingStoresTheEndAndSwitchesOn)
{
    open({ { "buttonColor", "#FF0000" }, { "disableForMinutes", 30 }, { "enabled", false } });
    page->vekoraNow();

    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    // 10:47:00.6; the file holds whole seconds.
    EXPECT_DOUBLE_EQ(end(), 1388918820.6);
    EXPECT_EQ(storedPreferences(),
        (PropertyList { { "buttonColor", "#FF0000" }, { "disableForMinutes", 30 }, { "enabled", true },
            { "disarmedUntil", NSDate::dateWithTimeIntervalSince1970(1388918820) } }));
    EXPECT_EQ(statusName(), "Vekoraed Until: 1/5/14, 10:47:00 AM");
    EXPECT_EQ(*statusSpecifier->propertyForKey("enabled"), PropertyValue(true));
}

TEST_F(PageActions, SuppressingLastsAnHourByDefault)
{
    open();
    page->vekoraNow();
    EXPECT_DOUBLE_EQ(end(), 1388920620.6);
    EXPECT_EQ(statusName(), "Vekoraed Until: 1/5/14, 11:17:00 AM");
}

TEST_F(PageActions, SuppressingForNoTimeEndsWithTheMinuteThatHasBegun)
{
    open({ { "buttonColor", "#FF0000" }, { "disableForMinutes", 0 } });
    page->vekoraNow();
    EXPECT_DOUBLE_EQ(end(), 1388917020.6);
    EXPECT_EQ(statusName(), "Vekoraed Until: 1/5/14, 10:17:00 AM");
}

TEST_F(PageActions, SuppressingTakesALengthThatIsNoNumberAsNone)
{
    for (const PropertyValue& minutes :
        { PropertyValue("soon"), PropertyValue(NSDate(7)), PropertyValue(PropertyList {}),
            PropertyValue(PropertyArray {}), PropertyValue(PropertyData {}) }) {
        open({ { "buttonColor", "#FF0000" }, { "disableForMinutes", minutes } });
        page->vekoraNow();
        EXPECT_DOUBLE_EQ(end(), 1388917020.6);
    }
}

TEST_F(PageActions, SuppressingReplacesAnEndOfAnyKind)
{
    for (const PropertyValue& oldEnd : { PropertyValue("soon"), PropertyValue(NSDate(7)), PropertyValue(3),
             PropertyValue(PropertyList {}) }) {
        open({ { "buttonColor", "#FF0000" }, { "disarmedUntil", oldEnd }, { "enabled", PropertyArray {} } });
        EXPECT_EQ(statusName(), "Alarms Enabled");
        page->vekoraNow();
        EXPECT_DOUBLE_EQ(end(), 1388920620.6);
        EXPECT_EQ(storedPreferences()->at("enabled"), PropertyValue(true));
    }
}

TEST_F(PageActions, SuppressingWorksOnTheLastSnapshot)
{
    open({ { "buttonColor", "#FF0000" }, { "disableForMinutes", 30 } });
    storePreferences({ { "buttonColor", "#00FF00" }, { "disableForMinutes", 120 }, { "new", 1 } });
    page->vekoraNow();
    EXPECT_DOUBLE_EQ(end(), 1388918820.6);
    EXPECT_EQ(storedPreferences()->at("buttonColor"), PropertyValue("#FF0000"));
    EXPECT_FALSE(storedPreferences()->contains("new"));
}

TEST_F(PageActions, SuppressingHandsOverToTheToggle)
{
    install(Toggle::Present);
    open();
    page->vekoraNow();
    EXPECT_EQ(takeEvents(), (Events { "write", "toggle on" }));
}

TEST_F(PageActions, SuppressingWithoutTheTogglesClassTellsNobody)
{
    install(Toggle::WithoutClass);
    open();
    page->vekoraNow();
    EXPECT_EQ(takeEvents(), Events { "write" });
    EXPECT_TRUE(storedPreferences()->contains("disarmedUntil"));
}

TEST_F(PageActions, EndingRemovesTheEndAndNothingElse)
{
    open({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(3600) } });
    page->clearVekora();

    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#FF0000" }, { "enabled", true } }));
    EXPECT_EQ(statusName(), "Alarms Enabled");
    EXPECT_EQ(*statusSpecifier->propertyForKey("enabled"), PropertyValue(true));
}

TEST_F(PageActions, EndingWritesThoughNothingWasSuppressed)
{
    open();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_FALSE(statusSpecifier->isEnabled());
}

TEST_F(PageActions, EndingWorksOnTheLastSnapshot)
{
    open({ { "buttonColor", "#FF0000" } });
    storePreferences({ { "buttonColor", "#00FF00" } });
    page->clearVekora();
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#FF0000" } }));
}

TEST_F(PageActions, EndingHandsOverToTheToggle)
{
    install(Toggle::Present);
    open();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), (Events { "write", "toggle off" }));
}

TEST_F(PageActions, EndingWithoutTheTogglesClassTellsNobody)
{
    install(Toggle::WithoutClass);
    open();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), Events { "write" });
}

TEST_F(PageActions, WithoutASnapshotActionsOnlyTell)
{
    open({ { "buttonColor", "#FF0000" }, { "disarmedUntil", in(3600) } });
    const auto before = storedPreferences();
    statusSpecifier->setName("As it is");
    mainPreferences.reset();
    page->vekoraNow();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), (Events { "notification", "notification" }));

    install(Toggle::Present);
    page->vekoraNow();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), (Events { "toggle on", "toggle off" }));

    EXPECT_EQ(storedPreferences(), before);
    EXPECT_EQ(statusName(), "As it is");
    EXPECT_FALSE(mainPreferences);
}

TEST_F(PageActions, WithoutAStatusRowActionsStoreAndTell)
{
    open();
    statusSpecifier.reset();
    page->vekoraNow();
    page->clearVekora();
    EXPECT_EQ(takeEvents(), (Events { "write", "notification", "write", "notification" }));
    EXPECT_FALSE(storedPreferences()->contains("disarmedUntil"));
}

TEST_F(PageActions, TheWriteComesBeforeTheStatusAndTheStatusBeforeTheNotification)
{
    open();
    std::vector<std::string> seen;
    whenSomethingHappens = [&](const std::string& event) { seen.push_back(event + ": " + statusName()); };
    page->vekoraNow();
    page->clearVekora();
    whenSomethingHappens = nullptr;

    EXPECT_EQ(seen,
        (Events { "write: Alarms Enabled", "notification: Vekoraed Until: 1/5/14, 11:17:00 AM",
            "write: Vekoraed Until: 1/5/14, 11:17:00 AM", "notification: Alarms Enabled" }));
}

TEST_F(PageActions, AppearingReadsTheFileAnewAndTellsNobody)
{
    open({ { "buttonColor", "#FF0000" } });
    storePreferences({ { "enabled", true } });
    page->viewWillAppear(false);
    EXPECT_EQ(mainPreferences->entries(), (PropertyList { { "enabled", true } }));
    EXPECT_EQ(takeEvents(), Events {});
    // Neither rebuilt nor seeded.
    EXPECT_FALSE(statusSpecifier->isEnabled());
    EXPECT_EQ(storedPreferences(), (PropertyList { { "enabled", true } }));
}

TEST_F(PageActions, LosesTheFractionOfTheEndWithTheNextReading)
{
    open();
    page->vekoraNow();
    page->viewWillAppear(true);
    EXPECT_DOUBLE_EQ(end(), 1388920620);
}

}
