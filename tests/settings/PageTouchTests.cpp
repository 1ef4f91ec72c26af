#include "PageTouchTest.h"

#include "platform/Style.h"
#include "platform/UISwitch.h"
#include "platform/UITextField.h"

namespace vekora {

using namespace platform;

namespace {

using Events = std::vector<std::string>;

class PageTouch : public PageTouchTest {
protected:
    bool isOn(NSIndexPath path) { return dynamic_cast<UISwitch&>(*cell(path).control()).isOn(); }
    UITextField& textField() { return dynamic_cast<UITextField&>(*cell(textRow).control()); }
    /// The status row as it is seen while the notification is posted that follows a tap.
    std::string statusWhenPosted(std::string_view identifier)
    {
        std::string seen;
        whenSomethingHappens = [&](const std::string& event) {
            const auto& label = page->table().cellForRowAtIndexPath(statusRow())->textLabel();
            if (event == "notification")
                seen = withPlainBlanks(label.text())
                    + (hexDescription(label.textColor().cgColor()) == grey() ? ", grey" : ", enabled");
        };
        tap(rowWithID(identifier));
        whenSomethingHappens = nullptr;
        return seen;
    }
    static NSDate in(double seconds) { return NSDate::dateWithTimeIntervalSince1970(tenSeventeen + seconds); }
    static std::string grey() { return hexDescription(style::disabledText().cgColor()); }
};

const std::string black = "#000000FF";
const std::string white = "#FFFFFFFF";

}

TEST_F(PageTouch, OpensWithTheFirstValues)
{
    open();
    EXPECT_EQ(page->title(), "Vekora");
    EXPECT_FALSE(isOn(rowWithID("enabled")));
    EXPECT_EQ(cell(rowWithID("disableForMinutes")).detailTextLabel().text(), "1 Hour");
    EXPECT_EQ(shownText(statusRow()), "Alarms Enabled");
    EXPECT_EQ(shownTextColor(statusRow()), grey());
    EXPECT_EQ(shownText(colorRow), "Button Color");
    EXPECT_EQ(textField().text(), "Vekora");
}

TEST_F(PageTouch, TheSwitchTurnsTheAddOnOnAndOff)
{
    open();
    tap(rowWithID("enabled"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("enabled"), PropertyValue(true));
    EXPECT_EQ(shownTextColor(statusRow()), black);

    tap(rowWithID("enabled"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("enabled"), PropertyValue(false));
    EXPECT_EQ(shownTextColor(statusRow()), grey());
}

TEST_F(PageTouch, TheSwitchDrivesTheToggleOnlyWhenItGoesOff)
{
    installToggleFiles();
    registerToggleClass();
    open();
    tap(rowWithID("enabled"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    tap(rowWithID("enabled"));
    EXPECT_EQ(takeEvents(), (Events { "write", "toggle off" }));
}

TEST_F(PageTouch, SuppressesAlarmsAndEndsIt)
{
    open();
    tap(rowWithID("vekoraNow"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(shownText(statusRow()), "Vekoraed Until: 1/5/14, 11:17:00 AM");
    EXPECT_EQ(shownTextColor(statusRow()), black);
    EXPECT_TRUE(isOn(rowWithID("enabled")));

    tap(rowWithID("clearVekora"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(shownText(statusRow()), "Alarms Enabled");
    EXPECT_EQ(shownTextColor(statusRow()), black);
    EXPECT_TRUE(isOn(rowWithID("enabled")));
}

TEST_F(PageTouch, TheStatusIsShownBeforeTheNotificationIsPosted)
{
    open();
    EXPECT_EQ(statusWhenPosted("vekoraNow"), "Vekoraed Until: 1/5/14, 11:17:00 AM, enabled");
    EXPECT_EQ(statusWhenPosted("clearVekora"), "Alarms Enabled, enabled");
    EXPECT_EQ(statusWhenPosted("enabled"), "Alarms Enabled, grey");
    EXPECT_EQ(statusWhenPosted("enabled"), "Alarms Enabled, enabled");
}

TEST_F(PageTouch, SwitchingOffShowsTheStatusBeforeTheNotificationIsPosted)
{
    open({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(3600) } });
    EXPECT_EQ(shownText(statusRow()), "Vekoraed Until: 1/5/14, 11:17:42 AM");
    EXPECT_EQ(statusWhenPosted("enabled"), "Alarms Enabled, grey");
}

TEST_F(PageTouch, ReadsTheFileAnewWhenItFirstAppears)
{
    storePreferences({ { "buttonColor", "#000080" } });
    page = std::make_shared<VekoraListController>(CGSize { 375, 603 });
    page->view();
    page->table().layoutIfNeeded();
    const auto background = [&] {
        return hexDescription(*page->table().cellForRowAtIndexPath(colorRow)->layer().backgroundColor());
    };
    page->table().scrollToRowAtIndexPath(colorRow);
    page->table().layoutIfNeeded();
    ASSERT_EQ(background(), "#000080FF");

    storePreferences({ { "buttonColor", "#FFFF00" }, { "enabled", true } });
    page->viewWillAppear(false);
    EXPECT_EQ(background(), "#FFFF00FF");
    EXPECT_EQ(
        hexDescription(page->table().cellForRowAtIndexPath(colorRow)->textLabel().textColor().cgColor()),
        black);
    EXPECT_EQ(
        mainPreferences->entries(), (PropertyList { { "buttonColor", "#FFFF00" }, { "enabled", true } }));
    EXPECT_EQ(takeEvents(), Events {});
}

TEST_F(PageTouch, TheStatusSpeaksTheUsersLanguage)
{
    setPlace("de_DE", "Europe/Berlin");
    open();
    tap(rowWithID("vekoraNow"));
    EXPECT_EQ(shownText(statusRow()), "Vekoraed Until: 05.01.14, 12:17:00");
}

TEST_F(PageTouch, TheStatusIsNotRefreshedByTime)
{
    open();
    tap(rowWithID("vekoraNow"));
    setClock(tenSeventeen + 10000);
    page->viewWillAppear(false);
    EXPECT_EQ(shownText(statusRow()), "Vekoraed Until: 1/5/14, 11:17:00 AM");
}

TEST_F(PageTouch, TheStatusRowItselfDoesNothing)
{
    open();
    tap(statusRow());
    EXPECT_EQ(takeEvents(), Events {});
    EXPECT_EQ(navigation->topViewController(), page.get());
}

TEST_F(PageTouch, ALengthIsChosenFromAList)
{
    open();
    tap(rowWithID("disableForMinutes"));
    ASSERT_NE(navigation->topViewController(), page.get());
    tapRow("30 Minutes");
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("disableForMinutes"), PropertyValue(30));

    if (navigation->topViewController() != page.get())
        goBack();
    EXPECT_EQ(navigation->topViewController(), page.get());
    EXPECT_EQ(cell(rowWithID("disableForMinutes")).detailTextLabel().text(), "30 Minutes");
    tap(rowWithID("vekoraNow"));
    EXPECT_EQ(shownText(statusRow()), "Vekoraed Until: 1/5/14, 10:47:00 AM");
}

TEST_F(PageTouch, TheButtonsTextIsStoredOnceWhenItsEditingEnds)
{
    open();
    tap(textRow);
    auto* field = window->firstResponder();
    ASSERT_EQ(field, &textField());
    field->setText("Snooze");
    field->sendActionsForControlEvents(UIControlEventEditingChanged);
    EXPECT_EQ(takeEvents(), Events {});
    field->resignFirstResponder();
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("buttonText"), PropertyValue("Snooze"));
}

TEST_F(PageTouch, AnEmptyTextShowsItsPlaceholder)
{
    open({ { "buttonColor", "#FF0000" }, { "buttonText", "" } });
    EXPECT_EQ(textField().text(), "");
    EXPECT_EQ(textField().placeholder(), "Vekora");
}

TEST_F(PageTouch, TheIconOptionTakesNoTouchWithoutItsLibrary)
{
    open();
    tap(rowWithID("VKEnableIcon"));
    EXPECT_EQ(takeEvents(), Events {});
    EXPECT_EQ(shownTextColor(rowWithID("VKEnableIcon")), grey());
}

TEST_F(PageTouch, TheIconOptionIsStoredUnderItsOwnKey)
{
    installStatusBarLibrary();
    open();
    EXPECT_EQ(shownTextColor(rowWithID("VKEnableIcon")), black);
    tap(rowWithID("VKEnableIcon"));
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#FF0000" }, { "enableIcon", true } }));
}

TEST_F(PageTouch, OnlyTheColorRowIsPainted)
{
    open({ { "buttonColor", "#FF8800" } });
    EXPECT_EQ(shownBackground(colorRow), "#FF8800FF");
    EXPECT_EQ(shownTextColor(colorRow), black);
    EXPECT_EQ(shownBackground(textRow), white);
    EXPECT_EQ(shownBackground(rowWithID("enabled")), white);
}

TEST_F(PageTouch, TheColorRowStaysPaintedWhateverIsReloaded)
{
    open({ { "buttonColor", "#000080" } });
    tap(rowWithID("vekoraNow"));
    tap(rowWithID("enabled"));
    EXPECT_EQ(shownBackground(colorRow), "#000080FF");
    EXPECT_EQ(shownTextColor(colorRow), white);
}

TEST_F(PageTouch, TheColorRowIsPlainWithoutAColor)
{
    open({ { "buttonColor", "#000080" } });
    storePreferences({ { "enabled", true } });
    page->viewWillAppear(false);
    EXPECT_EQ(shownBackground(colorRow), white);
    EXPECT_EQ(shownTextColor(colorRow), black);

    mainPreferences.reset();
    page->reload();
    EXPECT_EQ(shownBackground(colorRow), white);
    EXPECT_EQ(shownTextColor(colorRow), black);
}

TEST_F(PageTouch, ComesBackFromTheColorPageInTheNewColor)
{
    open({ { "buttonColor", "#000080" } });
    tap(colorRow);
    ASSERT_EQ(navigation->topViewController()->className(), "VekoraColorSelectorController");
    EXPECT_EQ(navigation->topViewController()->title(), "buttonColor");

    storePreferences({ { "buttonColor", "#FFFF00" } });
    goBack();

    ASSERT_EQ(navigation->topViewController(), page.get());
    EXPECT_EQ(shownBackground(colorRow), "#FFFF00FF");
    EXPECT_EQ(shownTextColor(colorRow), black);
    EXPECT_EQ(takeEvents(), Events {});
}

TEST_F(PageTouch, StoringReloadsThePageOnlyForTheOnOffSetting)
{
    installStatusBarLibrary();
    open();
    cell(rowWithID("VKEnableIcon"));
    auto& now = *page->specifierForID("vekoraNow");
    now.setName("Renamed");

    tap(rowWithID("VKEnableIcon"));
    EXPECT_EQ(page->table().cellForRowAtIndexPath(rowWithID("vekoraNow"))->textLabel().text(), "Vekora Now");

    tap(rowWithID("enabled"));
    EXPECT_EQ(page->table().cellForRowAtIndexPath(rowWithID("vekoraNow"))->textLabel().text(), "Renamed");
}

TEST_F(PageTouch, WithoutASnapshotActionsReloadNothing)
{
    open();
    mainPreferences.reset();
    auto& now = *page->specifierForID("vekoraNow");
    now.setName("Renamed");
    tap(rowWithID("clearVekora"));
    EXPECT_EQ(takeEvents(), Events { "notification" });
    EXPECT_EQ(page->table().cellForRowAtIndexPath(rowWithID("vekoraNow"))->textLabel().text(), "Vekora Now");
}

TEST_F(PageTouch, ShowsValuesOfEveryWrongKind)
{
    const PropertyValue wrong[] { true, 7, -1, 2.5, "text", "", NSDate(7), PropertyData { 1, 2 },
        PropertyArray { 1, "two" }, PropertyList { { "a", 1 } } };
    const char* const keys[] { "enabled", "disableForMinutes", "disarmedUntil", "buttonColor", "buttonText",
        "preferColorPicker", "colorPickerType", "buttonAlphaLevel", "enableIcon" };
    installStatusBarLibrary();
    for (const auto& value : wrong) {
        PropertyList preferences;
        for (const auto* key : keys)
            preferences.insert_or_assign(key, value);
        open(preferences);
        EXPECT_EQ(storedPreferences(), preferences);
        tap(rowWithID("vekoraNow"));
        tap(rowWithID("clearVekora"));
        tap(rowWithID("enabled"));
        tap(rowWithID("disableForMinutes"));
        goBack();
        tap(textRow);
        window->firstResponder()->resignFirstResponder();
        EXPECT_EQ(navigation->topViewController(), page.get());
        EXPECT_FALSE(storedPreferences()->contains("disarmedUntil"));
    }
}

}
