#include "settings/VekoraListController.h"

#include "SettingsTest.h"

#include "platform/PSTextFieldSpecifier.h"

namespace vekora {

using namespace platform;

namespace {

using Events = std::vector<std::string>;

class PageRows : public SettingsTest {
protected:
    static Ref<VekoraListController> makePage()
    {
        return std::make_shared<VekoraListController>(CGSize { 375, 603 });
    }
    /// Counted from the end: the four rows that the page makes itself are 0 to 3.
    static PSSpecifier& ownRow(VekoraListController& page, std::size_t index)
    {
        const auto& rows = page.specifiers();
        return *rows[rows.size() - 4 + index];
    }
    /// The status row's text and whether it is on, of a page that is made now.
    static std::pair<std::string, bool> status()
    {
        const auto page = makePage();
        auto& row = ownRow(*page, 0);
        return { withPlainBlanks(row.name()), row.isEnabled() };
    }
    NSDate in(double seconds) const { return NSDate::dateWithTimeIntervalSince1970(tenSeventeen + seconds); }
};

const std::pair<std::string, bool> off { "Alarms Enabled", false };
const std::pair<std::string, bool> on { "Alarms Enabled", true };

}

TEST_F(PageRows, TheFirstPageSeedsTheFileAndPostsNothing)
{
    installToggleFiles();
    registerToggleClass();
    const auto page = makePage();

    EXPECT_EQ(takeEvents(), Events { "write" });
    EXPECT_EQ(storedPreferences(),
        (PropertyList { { "buttonColor", "#FF0000" }, { "buttonText", "Vekora" }, { "colorPickerType", 0 },
            { "preferColorPicker", true } }));
    EXPECT_EQ(mainPreferences->entries(), *storedPreferences());
}

TEST_F(PageRows, ASecondPageSeedsNothing)
{
    makePage();
    takeEvents();
    makePage();
    EXPECT_EQ(takeEvents(), Events {});
}

TEST_F(PageRows, AFileWithAColorIsLeftAsItIs)
{
    storePreferences({ { "buttonColor", "#123456" } });
    const auto page = makePage();

    EXPECT_EQ(takeEvents(), Events {});
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#123456" } }));
    EXPECT_EQ(page->readPreferenceValue(&ownRow(*page, 3)), PropertyValue("Vekora"));
}

TEST_F(PageRows, AnUnreadableFileIsSeededAnew)
{
    writePreferenceFile("no list");
    makePage();
    EXPECT_EQ(storedPreferences()->size(), 4U);
}

TEST_F(PageRows, ANewPageReplacesTheSnapshotOfTheLast)
{
    storePreferences({ { "buttonColor", "#111111" }, { "buttonText", "Old" } });
    makePage();
    storePreferences({ { "buttonColor", "#222222" } });
    makePage();
    EXPECT_EQ(mainPreferences->entries(), (PropertyList { { "buttonColor", "#222222" } }));
}

TEST_F(PageRows, MakesNoRowsUntilItIsAsked)
{
    const auto page = makePage();
    EXPECT_EQ(statusSpecifier, nullptr);
    EXPECT_EQ(page->specifierForID("enabled"), nullptr);
}

TEST_F(PageRows, MakesItsRowsOnce)
{
    const auto page = makePage();
    const auto first = page->specifiers();
    setClock(tenSeventeen + 100);
    EXPECT_EQ(page->specifiers(), first);
}

TEST_F(PageRows, OwnRowsFollowTheResourcesInOrder)
{
    const auto page = makePage();
    ASSERT_GT(page->specifiers().size(), 4U);

    const auto expectRow = [&](std::size_t index, const char* name, PSCellType type) {
        EXPECT_EQ(ownRow(*page, index).name(), name);
        EXPECT_EQ(ownRow(*page, index).cellType(), type);
        EXPECT_EQ(ownRow(*page, index).target(), page.get());
    };
    expectRow(0, "Alarms Enabled", PSCellType::StaticText);
    expectRow(1, "Extra Alert View Button Options", PSCellType::Group);
    expectRow(2, "Button Color", PSCellType::Link);
    expectRow(3, "Button Text:", PSCellType::EditText);
}

TEST_F(PageRows, OwnRowsHoldTheseProperties)
{
    const auto page = makePage();
    EXPECT_EQ(ownRow(*page, 0).properties(), (PropertyList { { "enabled", false } }));
    EXPECT_EQ(ownRow(*page, 1).properties(), PropertyList {});
    EXPECT_EQ(ownRow(*page, 2).properties(),
        (PropertyList { { "title", "buttonColor" }, { "label", "buttonColor" } }));
    EXPECT_EQ(ownRow(*page, 3).properties(),
        (PropertyList { { "label", "Button Text:" }, { "key", "buttonText" },
            { "defaults", "net.morvane.vekora" }, { "default", "Vekora" }, { "enabled", true } }));
}

TEST_F(PageRows, TheTextRowHasAPlaceholder)
{
    const auto page = makePage();
    const auto* text = dynamic_cast<PSTextFieldSpecifier*>(&ownRow(*page, 3));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->placeholder(), "Vekora");
}

TEST_F(PageRows, OnlyTheTextRowAsksForAValue)
{
    storePreferences({ { "buttonColor", "#123456" }, { "buttonText", "Snooze" } });
    const auto page = makePage();
    EXPECT_EQ(ownRow(*page, 0).performGetter(), std::nullopt);
    EXPECT_EQ(ownRow(*page, 2).performGetter(), std::nullopt);
    EXPECT_EQ(ownRow(*page, 3).performGetter(), PropertyValue("Snooze"));
}

TEST_F(PageRows, OnlyTheTextRowStoresAValue)
{
    const auto page = makePage();
    takeEvents();
    ownRow(*page, 0).performSetterWithValue("no");
    ownRow(*page, 2).performSetterWithValue("no");
    EXPECT_EQ(takeEvents(), Events {});

    ownRow(*page, 3).performSetterWithValue("Snooze");
    EXPECT_EQ(takeEvents(), (Events { "write", "notification" }));
    EXPECT_EQ(storedPreferences()->at("buttonText"), PropertyValue("Snooze"));
}

TEST_F(PageRows, TheColorRowOpensTheColorPage)
{
    const auto page = makePage();
    const auto* colorPage = NSClassFromString("VekoraColorSelectorController");
    ASSERT_TRUE(colorPage);
    EXPECT_EQ(ownRow(*page, 2).detailControllerClass(), colorPage);
}

TEST_F(PageRows, OnlyTheOptionsLieInTheSecondSection)
{
    const auto page = makePage();
    EXPECT_EQ(page->indexPathForSpecifier(&ownRow(*page, 2)), (NSIndexPath { 1, 0 }));
    EXPECT_EQ(page->indexPathForSpecifier(&ownRow(*page, 3)), (NSIndexPath { 1, 1 }));
    EXPECT_EQ(page->indexPathForSpecifier(&ownRow(*page, 0))->section, 0);
}

TEST_F(PageRows, TheStatusRowIsKeptAndReplacedByTheNextPages)
{
    const auto first = makePage();
    EXPECT_EQ(statusSpecifier.get(), (first->specifiers(), &ownRow(*first, 0)));
    const auto second = makePage();
    EXPECT_EQ(statusSpecifier.get(), &ownRow(*first, 0));
    EXPECT_EQ(statusSpecifier.get(), (second->specifiers(), &ownRow(*second, 0)));
}

TEST_F(PageRows, TheStatusRowOutlivesItsPage)
{
    auto page = makePage();
    page->specifiers();
    page.reset();
    EXPECT_EQ(statusSpecifier->name(), "Alarms Enabled");
}

TEST_F(PageRows, StatusIsGreyedWithoutAFile)
{
    EXPECT_EQ(status(), off);
}

TEST_F(PageRows, StatusFollowsTheFile)
{
    storePreferences({ { "buttonColor", "#FF0000" }, { "enabled", true } });
    EXPECT_EQ(status(), on);

    storePreferences({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(3600) } });
    EXPECT_EQ(status(), (std::pair { std::string("Vekoraed Until: 1/5/14, 11:17:42 AM"), true }));

    storePreferences({ { "buttonColor", "#FF0000" }, { "enabled", true }, { "disarmedUntil", in(10) } });
    EXPECT_EQ(status(), on);

    storePreferences({ { "buttonColor", "#FF0000" }, { "enabled", false }, { "disarmedUntil", in(3600) } });
    EXPECT_EQ(status(), off);

    storePreferences({ { "buttonColor", "#FF0000" }, { "disarmedUntil", in(3600) } });
    EXPECT_EQ(status(), off);
}

TEST_F(PageRows, StatusIsOfTheSnapshotNotOfTheFile)
{
    const auto page = makePage();
    storePreferences({ { "enabled", true } });
    EXPECT_FALSE(ownRow(*page, 0).isEnabled());
}

TEST_F(PageRows, RowsAreMadeWithoutASnapshotToo)
{
    const auto page = makePage();
    mainPreferences.reset();
    EXPECT_EQ(ownRow(*page, 0).name(), "Alarms Enabled");
    EXPECT_FALSE(ownRow(*page, 0).isEnabled());
    EXPECT_EQ(page->readPreferenceValue(&ownRow(*page, 3)), PropertyValue("Vekora"));
}

TEST_F(PageRows, TheIconOptionIsGreyedWithoutItsLibrary)
{
    const auto page = makePage();
    page->specifiers();
    ASSERT_TRUE(page->specifierForID("VKEnableIcon"));
    EXPECT_EQ(*page->specifierForID("VKEnableIcon")->propertyForKey("enabled"), PropertyValue(false));
}

TEST_F(PageRows, TheIconOptionIsLeftAloneWithItsLibrary)
{
    installStatusBarLibrary();
    const auto page = makePage();
    page->specifiers();
    ASSERT_TRUE(page->specifierForID("VKEnableIcon"));
    EXPECT_FALSE(page->specifierForID("VKEnableIcon")->propertyForKey("enabled"));
}

TEST_F(PageRows, AResourceNeedsNoIconOption)
{
    writeTestFile(installation.root() / "Library/PreferenceBundles/Vekora.bundle/Vekora.plist",
        "<plist "
        "version=\"1.0\"><dict><key>items</key><array><dict><key>cell</key><string>PSSwitchCell</string>"
        "<key>key</key><string>enabled</string></dict></array></dict></plist>");
    const auto page = makePage();
    EXPECT_EQ(page->specifiers().size(), 5U);
    EXPECT_EQ(page->indexPathForSpecifier(&ownRow(*page, 2)), (NSIndexPath { 1, 0 }));
}

TEST_F(PageRows, AMissingResourceLeavesThePagesOwnRows)
{
    std::filesystem::remove(installation.root() / "Library/PreferenceBundles/Vekora.bundle/Vekora.plist");
    EXPECT_EQ(makePage()->specifiers().size(), 4U);
}

TEST_F(PageRows, ReadsTheSnapshotThenTheDefault)
{
    storePreferences({ { "buttonColor", "#FF0000" }, { "a", 1 } });
    const auto page = makePage();
    PSSpecifier row("Row", page.get(), "", "", nullptr, PSCellType::Switch);
    EXPECT_EQ(page->readPreferenceValue(&row), std::nullopt);

    row.setPropertyForKey("a", "key");
    EXPECT_EQ(page->readPreferenceValue(&row), PropertyValue(1));

    row.setPropertyForKey("b", "key");
    EXPECT_EQ(page->readPreferenceValue(&row), std::nullopt);
    row.setPropertyForKey(2, "default");
    EXPECT_EQ(page->readPreferenceValue(&row), PropertyValue(2));

    mainPreferences.reset();
    row.setPropertyForKey("a", "key");
    EXPECT_EQ(page->readPreferenceValue(&row), PropertyValue(2));
    EXPECT_EQ(page->readPreferenceValue(nullptr), std::nullopt);
}

TEST_F(PageRows, IsReachedByName)
{
    const auto* pageClass = NSClassFromString("VekoraListController");
    ASSERT_TRUE(pageClass);
    const auto page = pageClass->make<PSListController>(CGSize { 375, 603 });
    ASSERT_TRUE(page);
    for (const char* selector : { "vekoraNow", "clearVekora",
             "viewWillAppear:", "setPreferenceValue:specifier:", "readPreferenceValue:" }) {
        EXPECT_TRUE(page->respondsToSelector(selector)) << selector;
    }
}

}
