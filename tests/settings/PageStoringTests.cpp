#include "PageActionsTest.h"

namespace vekora {

using namespace platform;

namespace {

class PageStoring : public PageActionsTest { };

}

TEST_F(PageStoring, SwitchingOffPostsWithoutAToggle)
{
    open();
    set("enabled", false);
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("enabled"), PropertyValue(false));
}

TEST_F(PageStoring, SwitchingOffWithTheTogglePostsNothing)
{
    install(Toggle::Present);
    open();
    set("enabled", false);
    EXPECT_EQ(takeEvents(), (Events { "write", "toggle off" }));
}

TEST_F(PageStoring, SwitchingOffWithoutTheTogglesClassTellsNobody)
{
    install(Toggle::WithoutClass);
    open();
    set("enabled", false);
    EXPECT_EQ(takeEvents(), Events { "write" });
    EXPECT_EQ(statusName(), "Alarms Enabled");
}

TEST_F(PageStoring, SwitchingOnPostsWhateverToggleThereIs)
{
    install(Toggle::Present);
    open();
    set("enabled", true);
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("enabled"), PropertyValue(true));
}

TEST_F(PageStoring, AnyOtherKeyIsStoredAndPosted)
{
    install(Toggle::Present);
    open();
    set("disableForMinutes", 45);
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    set("whatever", PropertyArray { 1, "two" });
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences(),
        (PropertyList { { "buttonColor", "#FF0000" }, { "disableForMinutes", 45 },
            { "whatever", PropertyArray { 1, "two" } } }));
}

TEST_F(PageStoring, WithoutAStatusRowSwitchingOffIsAnyOtherKey)
{
    install(Toggle::Present);
    open();
    statusSpecifier.reset();
    set("enabled", false);
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
}

TEST_F(PageStoring, SwitchingOffGreysTheStatusAndLeavesTheEndInTheFile)
{
    open({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(3600) } });
    ASSERT_NE(statusName(), "Alarms Enabled");

    set("enabled", false);

    EXPECT_EQ(statusName(), "Alarms Enabled");
    EXPECT_EQ(*statusSpecifier->propertyForKey("enabled"), PropertyValue(false));
    EXPECT_TRUE(storedPreferences()->contains("disarmedUntil"));
}

TEST_F(PageStoring, SwitchingOnLeavesTheStatusTextAsItIs)
{
    open({ { "buttonColor", "#FF0000" }, { "enabled", false }, { "disarmedUntil", in(3600) } });
    set("enabled", true);
    EXPECT_EQ(statusName(), "Alarms Enabled");
    EXPECT_EQ(*statusSpecifier->propertyForKey("enabled"), PropertyValue(true));

    statusSpecifier->setName("As it is");
    set("enabled", true);
    EXPECT_EQ(statusName(), "As it is");
}

TEST_F(PageStoring, ReadsAnyValueOfEnabledAsOnOrOff)
{
    open();
    for (const PropertyValue& value : { PropertyValue(1), PropertyValue("YES"), PropertyValue(0.5) }) {
        set("enabled", value);
        EXPECT_TRUE(statusSpecifier->isEnabled());
    }
    for (const PropertyValue& value : { PropertyValue(0), PropertyValue("no"),
             PropertyValue(PropertyList { { "a", 1 } }), PropertyValue(NSDate(5)) }) {
        set("enabled", true);
        set("enabled", value);
        EXPECT_FALSE(statusSpecifier->isEnabled());
        EXPECT_EQ(storedPreferences()->at("enabled"), value);
    }
}

TEST_F(PageStoring, StoringReadsTheFileAnew)
{
    open({ { "buttonColor", "#FF0000" }, { "gone", 1 } });
    storePreferences({ { "buttonColor", "#00FF00" }, { "new", 2 } });
    set("buttonText", "Snooze");
    const PropertyList expected { { "buttonColor", "#00FF00" }, { "buttonText", "Snooze" }, { "new", 2 } };
    EXPECT_EQ(storedPreferences(), expected);
    EXPECT_EQ(mainPreferences->entries(), expected);
}

TEST_F(PageStoring, StoringDoesNotSeed)
{
    open();
    std::filesystem::remove(preferenceFile());
    set("buttonText", "Snooze");
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonText", "Snooze" } }));
}

TEST_F(PageStoring, StoringWorksWithoutASnapshot)
{
    open();
    mainPreferences.reset();
    set("buttonText", "Snooze");
    EXPECT_EQ(storedPreferences()->at("buttonText"), PropertyValue("Snooze"));
}

TEST_F(PageStoring, StoringNothingTakesTheKeyOut)
{
    open({ { "buttonColor", "#FF0000" }, { "buttonText", "Old" } });
    set("buttonText", std::nullopt);
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#FF0000" } }));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
}

TEST_F(PageStoring, ARowWithoutAKeyStoresNothing)
{
    open();
    PSSpecifier row("Row", page.get(), "", "", nullptr, PSCellType::Switch);
    page->setPreferenceValueSpecifier(true, &row);
    page->setPreferenceValueSpecifier(true, nullptr);
    EXPECT_EQ(takeEvents(), Events {});
}

TEST_F(PageStoring, SwitchingOffGreysTheStatusBeforeTheToggleAndRetitlesItAfter)
{
    install(Toggle::Present);
    open({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(3600) } });
    std::vector<std::string> seen;
    whenSomethingHappens = [&](const std::string& event) {
        seen.push_back(event + (statusSpecifier->isEnabled() ? ", on: " : ", grey: ") + statusName());
    };
    set("enabled", false);
    whenSomethingHappens = nullptr;

    EXPECT_EQ(seen,
        (Events { "write, on: Vekoraed Until: 1/5/14, 11:17:42 AM",
            "toggle off, grey: Vekoraed Until: 1/5/14, 11:17:42 AM" }));
    EXPECT_EQ(statusName(), "Alarms Enabled");
}

TEST_F(PageStoring, TheFileIsWholeWhenTheNotificationIsPosted)
{
    open();
    std::optional<PropertyList> seen;
    whenSomethingHappens = [&](const std::string& event) {
        if (event == "notification")
            seen = storedPreferences();
    };
    set("buttonText", "Snooze");
    whenSomethingHappens = nullptr;
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->at("buttonText"), PropertyValue("Snooze"));
}

}
