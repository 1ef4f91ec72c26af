#include "host/Installation.h"
#include "tests/support/TemporaryFolder.h"

#include "platform/Device.h"
#include "platform/FSSwitchPanel.h"
#include "platform/Journal.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace platform {

namespace {

using States = std::vector<std::pair<std::string, long>>;

/// The plug-in, loaded from where it is installed and reached by name alone.
struct SwitchPanelTest : testing::Test {
    SwitchPanelTest()
    {
        Device::current().root = installation.root();
        installation.installToggle(host::InstallationSources::ofThisBuild());
        listener = Journal::shared().listen([this](const JournalEntry& entry) {
            if (entry.kind == JournalEntry::Kind::Toggle)
                states.emplace_back(entry.name, entry.state);
            else if (entry.kind == JournalEntry::Kind::Write)
                ++writes;
        });
        load();
    }

    ~SwitchPanelTest() override
    {
        unload();
        Journal::shared().stop(listener);
    }

    void load()
    {
        const auto path = installation.root() / "Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";
        module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_TRUE(module) << ::dlerror();
        const auto* panelClass = NSClassFromString("FSSwitchPanel");
        ASSERT_TRUE(panelClass);
        const auto shared = panelClass->performSelector("sharedPanel");
        ASSERT_TRUE(std::holds_alternative<NSObject*>(shared));
        panel = std::get<NSObject*>(shared);
        ASSERT_TRUE(panel);
    }

    void unload()
    {
        if (module)
            ::dlclose(module);
        module = nullptr;
        panel = nullptr;
    }

    void set(long state, const char* identifier = "net.morvane.vekorafs")
    {
        panel->performSelector(
            "setState:forSwitchIdentifier:", { PropertyValue(state), PropertyValue(identifier) });
    }

    long state(const char* identifier = "net.morvane.vekorafs")
    {
        const auto answer
            = panel->performSelector("stateForSwitchIdentifier:", { PropertyValue(identifier) });
        return std::holds_alternative<PropertyValue>(answer) ? std::get<PropertyValue>(answer).intValue()
                                                             : -2;
    }

    TemporaryFolder folder;
    host::Installation installation { folder.path() / "phone" };
    void* module = nullptr;
    NSObject* panel = nullptr;
    int listener = 0;
    States states;
    int writes = 0;
};

const std::string known = "net.morvane.vekorafs";

}

TEST_F(SwitchPanelTest, IsAPanelAndOffAtFirst)
{
    EXPECT_TRUE(dynamic_cast<FSSwitchPanel*>(panel));
    EXPECT_EQ(state(), 0);
}

TEST_F(SwitchPanelTest, KeepsAndReportsEachState)
{
    set(1);
    EXPECT_EQ(state(), 1);
    set(0);
    EXPECT_EQ(state(), 0);
    set(0);
    EXPECT_EQ(states, (States { { known, 1 }, { known, 0 }, { known, 0 } }));
}

TEST_F(SwitchPanelTest, TakesEveryStateButOffAsOn)
{
    set(-1);
    EXPECT_EQ(state(), 1);
    set(7);
    EXPECT_EQ(state(), 1);
    EXPECT_EQ(states, (States { { known, 1 }, { known, 1 } }));
}

TEST_F(SwitchPanelTest, IgnoresOtherSwitches)
{
    set(1, "net.morvane.other");
    EXPECT_EQ(states, States {});
    EXPECT_EQ(state("net.morvane.other"), 0);
    EXPECT_EQ(state(), 0);
}

TEST_F(SwitchPanelTest, KeepsTheStateAmongNobodysPreferences)
{
    set(1);
    EXPECT_EQ(writes, 0);
    EXPECT_TRUE(std::filesystem::is_empty(installation.root() / "private/var/mobile/Library/Preferences"));
}

TEST_F(SwitchPanelTest, KeepsTheStateWhenItIsLoadedAnew)
{
    set(1);
    unload();
    EXPECT_FALSE(NSClassFromString("FSSwitchPanel"));
    load();
    EXPECT_EQ(state(), 1);
}

TEST_F(SwitchPanelTest, ShowsWhatAnotherProcessHasSet)
{
    const auto file
        = installation.root() / "private/var/mobile/Library/Flipswitch/net.morvane.vekorafs.plist";
    set(1);
    const auto on = readTestFile(file);
    set(0);
    writeTestFile(file, on);
    EXPECT_EQ(state(), 1);
}

TEST_F(SwitchPanelTest, TakesAFileThatCannotBeReadAsOff)
{
    set(1);
    writeTestFile(
        installation.root() / "private/var/mobile/Library/Flipswitch/net.morvane.vekorafs.plist", "no list");
    EXPECT_EQ(state(), 0);
}

TEST_F(SwitchPanelTest, RemembersAStateThatCannotBeWritten)
{
    writeTestFile(installation.root() / "private/var/mobile/Library/Flipswitch", "in the way");
    set(1);
    EXPECT_EQ(state(), 1);
    set(0);
    EXPECT_EQ(state(), 0);
}

}
