#include "host/Installation.h"
#include "tests/support/TemporaryFolder.h"

#include "platform/Device.h"
#include "platform/NSBundle.h"
#include "platform/PSListController.h"

#include <gtest/gtest.h>

// The bundle as the Settings application meets it: nothing of the pane is linked into this program.

namespace platform {

namespace {

struct Bundle : testing::Test {
    Bundle()
    {
        Device::current().root = installation.root();
        path = installation.installPane(host::InstallationSources::ofThisBuild());
    }

    TemporaryFolder folder;
    host::Installation installation { folder.path() / "phone" };
    std::string path;
    std::string error;
};

}

TEST_F(Bundle, IsLoadedAndDrivenByNameAlone)
{
    ASSERT_FALSE(NSClassFromString("VekoraListController"));
    {
        const auto bundle = NSBundle::loadBundleAtPath(path, error);
        ASSERT_TRUE(bundle) << error;
        ASSERT_EQ(bundle->principalClass(), NSClassFromString("VekoraListController"));

        const auto page = bundle->principalClass()->make<PSListController>(CGSize { 375, 603 });
        ASSERT_TRUE(page);
        EXPECT_GT(page->specifiers().size(), 4U);
        page->performSelector("vekoraNow");
        const auto& status = *page->specifiers()[page->specifiers().size() - 4];
        EXPECT_TRUE(status.name().starts_with("Vekoraed Until: ")) << status.name();
        EXPECT_TRUE(status.isEnabled());
        page->performSelector("clearVekora");
        EXPECT_EQ(status.name(), "Alarms Enabled");
    }
}

TEST_F(Bundle, HoldsEveryClassThatIsReachedByName)
{
    const auto bundle = NSBundle::loadBundleAtPath(path, error);
    ASSERT_TRUE(bundle) << error;
    for (const char* name : { "VekoraListController", "VekoraColorSelectorController", "VKColorCell" })
        EXPECT_TRUE(NSClassFromString(name)) << name;
}

}
