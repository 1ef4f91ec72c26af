#include "SettingsTest.h"

namespace vekora {

using namespace platform;

namespace {

using Events = std::vector<std::string>;

class PreferenceStore : public SettingsTest { };

const PropertyList seeds {
    { "buttonColor", "#FF0000" },
    { "buttonText", "Vekora" },
    { "colorPickerType", 0 },
    { "preferColorPicker", true },
};

}

TEST_F(PreferenceStore, NamesTheFileByItsDomain)
{
    EXPECT_EQ(preferencesPath,
        "/private/var/mobile/Library/Preferences/" + std::string(preferencesDomain) + ".plist");
}

TEST_F(PreferenceStore, LoadsWhatTheFileHolds)
{
    const PropertyList all { { "enabled", true }, { "disableForMinutes", 30 }, { "buttonColor", "#00FF00" },
        { "unknown", PropertyArray { 1, "two" } } };
    storePreferences(all);
    EXPECT_EQ(loadPreferences().entries(), all);
}

TEST_F(PreferenceStore, TakesAFileThatCannotBeReadAsEmpty)
{
    EXPECT_TRUE(loadPreferences().entries().empty());

    for (const char* content : { "", " \n", "no list", "<plist version=\"1.0\"><array/></plist>",
             "<plist version=\"1.0\"><dict><key>enabled</key><true/>", "bplist00" }) {
        writePreferenceFile(content);
        EXPECT_TRUE(loadPreferences().entries().empty()) << content;
    }

    std::filesystem::remove(preferenceFile());
    std::filesystem::create_directory(preferenceFile());
    EXPECT_TRUE(loadPreferences().entries().empty());
}

TEST_F(PreferenceStore, WritesWithoutTellingAnybody)
{
    writePreferences(PropertyList { { "buttonText", "Snooze" } });
    EXPECT_EQ(takeEvents(), Events { "write" });
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonText", "Snooze" } }));
}

TEST_F(PreferenceStore, LivesWithAWriteThatFails)
{
    std::filesystem::remove_all(preferenceFile().parent_path());
    writePreferences(PropertyList { { "buttonText", "Snooze" } });
    EXPECT_FALSE(storedPreferences());
}

TEST_F(PreferenceStore, SeedsAnEmptyFile)
{
    auto preferences = loadPreferences();
    seedOnFirstRun(preferences);
    EXPECT_EQ(preferences.entries(), seeds);
    EXPECT_EQ(storedPreferences(), seeds);
    EXPECT_EQ(takeEvents(), Events { "write" });
}

TEST_F(PreferenceStore, SeedsBooleansAndIntegersAsSuch)
{
    auto preferences = loadPreferences();
    seedOnFirstRun(preferences);
    const auto stored = *storedPreferences();
    EXPECT_TRUE(std::holds_alternative<bool>(stored.at("preferColorPicker").storage()));
    EXPECT_TRUE(std::holds_alternative<std::int64_t>(stored.at("colorPickerType").storage()));
}

TEST_F(PreferenceStore, SeedsNothingWhereThereIsAColor)
{
    for (const PropertyValue& color :
        { PropertyValue("#123456"), PropertyValue(""), PropertyValue(0), PropertyValue(PropertyList {}) }) {
        NSMutableDictionary preferences(PropertyList { { "buttonColor", color } });
        seedOnFirstRun(preferences);
        EXPECT_EQ(preferences.entries(), (PropertyList { { "buttonColor", color } }));
    }
    EXPECT_EQ(takeEvents(), Events {});
    EXPECT_FALSE(std::filesystem::exists(preferenceFile()));
}

TEST_F(PreferenceStore, SeedingReplacesTheFourKeysAndKeepsTheOthers)
{
    NSMutableDictionary preferences(PropertyList { { "buttonText", "Mine" }, { "colorPickerType", 2 },
        { "preferColorPicker", false }, { "enabled", true } });
    seedOnFirstRun(preferences);

    auto expected = seeds;
    expected.insert_or_assign("enabled", true);
    EXPECT_EQ(storedPreferences(), expected);
}

TEST_F(PreferenceStore, PostsOneNotification)
{
    postPreferencesChanged();
    EXPECT_EQ(takeEvents(), Events { "notification" });
}

TEST_F(PreferenceStore, SeesTheToggleOnlyWhenBothFilesAreThere)
{
    EXPECT_FALSE(companionToggleIsPresent());

    const auto library = installation.root() / "Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";
    writeTestFile(library, "");
    EXPECT_FALSE(companionToggleIsPresent());

    writeTestFile(installation.root() / "Library/Switches/VekoraFS.bundle/VekoraFS", "");
    EXPECT_TRUE(companionToggleIsPresent());

    std::filesystem::remove(library);
    EXPECT_FALSE(companionToggleIsPresent());
}

TEST_F(PreferenceStore, HandsOverToTheToggleInsteadOfPosting)
{
    installToggleFiles();
    registerToggleClass();
    handOverToToggleOrPost(FSSwitchState::On);
    handOverToToggleOrPost(FSSwitchState::Off);
    EXPECT_EQ(takeEvents(), (Events { "toggle on", "toggle off" }));
}

TEST_F(PreferenceStore, PostsWithoutTheToggleWhateverClassIsThere)
{
    registerToggleClass();
    handOverToToggleOrPost(FSSwitchState::On);
    EXPECT_EQ(takeEvents(), Events { "notification" });
}

TEST_F(PreferenceStore, DoesNothingWithTheTogglesFilesButNotItsClass)
{
    installToggleFiles();
    handOverToToggleOrPost(FSSwitchState::On);
    EXPECT_EQ(takeEvents(), Events {});
}

TEST_F(PreferenceStore, DoesNothingWhenTheTogglesClassHasNoPanel)
{
    class Empty final : public NSObject { };
    installToggleFiles();
    const auto registration = registerClass<Empty>("FSSwitchPanel");
    handOverToToggleOrPost(FSSwitchState::On);
    EXPECT_EQ(takeEvents(), Events {});
}

}
