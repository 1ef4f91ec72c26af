#include "platform/NSBundle.h"
#include "SettingsScreen.h"

using namespace platform;

namespace {

class BundleTest : public SettingsScreen {
protected:
    static constexpr const char* path = "/Library/PreferenceBundles/Loaded.bundle";

    void writeInfo(const std::string& keys)
    {
        writeFile(
            std::string(path) + "/Info.plist", "<plist version=\"1.0\"><dict>" + keys + "</dict></plist>");
    }
    void writeInfo()
    {
        writeInfo(text("CFBundleExecutable", "Loaded") + text("NSPrincipalClass", "ModuleTestPage"));
    }
    /// Copies a module that the build has made.
    void installModule(const std::string& file)
    {
        writeFile(std::string(path) + "/Loaded", readTestFile(file));
    }

    std::string errorOfLoading(const std::string& at = path)
    {
        std::string error;
        EXPECT_EQ(NSBundle::loadBundleAtPath(at, error), nullptr);
        return error;
    }
};

}

TEST_F(BundleTest, LoadsThePrincipalClassWithItsResources)
{
    writeInfo();
    installModule(TEST_PAGE_MODULE);
    writeFile(std::string(path) + "/Rows.plist",
        "<plist version=\"1.0\"><dict><key>items</key><array>" + item("PSSwitchCell", "From the bundle")
            + "</array></dict></plist>");
    std::string error;
    auto bundle = NSBundle::loadBundleAtPath(path, error);
    ASSERT_TRUE(bundle) << error;
    EXPECT_EQ(error, "");
    EXPECT_EQ(bundle->path(), path);
    EXPECT_EQ(bundle->infoDictionary().at("CFBundleExecutable"), PropertyValue("Loaded"));
    ASSERT_TRUE(bundle->principalClass());
    EXPECT_EQ(bundle->principalClass()->bundlePath(), path);
    auto page = bundle->principalClass()->make<PSListController>(navigation->contentSize());
    ASSERT_TRUE(page);
    show(page);
    EXPECT_EQ(cell(0, 0)->textLabel().text(), "From the bundle");
    // Pages go before the module that holds their code.
    navigation.reset();
}

TEST_F(BundleTest, LoadsOnceForEachFolder)
{
    writeInfo();
    installModule(TEST_PAGE_MODULE);
    std::string error;
    const auto bundle = NSBundle::loadBundleAtPath(path, error);
    ASSERT_TRUE(bundle) << error;
    std::filesystem::create_directory_symlink(path, root.path() / "link");
    EXPECT_EQ(NSBundle::loadBundleAtPath(std::string(path) + "/", error), bundle);
    EXPECT_EQ(NSBundle::loadBundleAtPath("/link", error), bundle);
}

TEST_F(BundleTest, TakesItsClassesBackWithTheLastHolder)
{
    writeInfo();
    installModule(TEST_PAGE_MODULE);
    std::string error;
    auto bundle = NSBundle::loadBundleAtPath(path, error);
    ASSERT_TRUE(bundle) << error;
    EXPECT_TRUE(NSClassFromString("ModuleTestPage"));
    bundle = nullptr;
    EXPECT_FALSE(NSClassFromString("ModuleTestPage"));
    bundle = NSBundle::loadBundleAtPath(path, error);
    ASSERT_TRUE(bundle) << error;
    EXPECT_TRUE(NSClassFromString("ModuleTestPage"));
}

TEST_F(BundleTest, SaysThatThereIsNoSuchFile)
{
    EXPECT_EQ(errorOfLoading(), "There is no such file as /Library/PreferenceBundles/Loaded.bundle.");
    EXPECT_EQ(errorOfLoading("/../../../../nowhere"), "There is no such file as /../../../../nowhere.");
    writeInfo();
    EXPECT_EQ(errorOfLoading(), "There is no such file as /Library/PreferenceBundles/Loaded.bundle/Loaded.");
}

TEST_F(BundleTest, SaysWhatIsWrongWithTheInfo)
{
    installModule(TEST_PAGE_MODULE);
    EXPECT_EQ(errorOfLoading(), "There is no Info.plist in /Library/PreferenceBundles/Loaded.bundle.");
    writeFile(std::string(path) + "/Info.plist", "<plist");
    EXPECT_EQ(errorOfLoading(),
        "/Library/PreferenceBundles/Loaded.bundle/Info.plist cannot be read as a property list.");
    writeInfo(text("NSPrincipalClass", "ModuleTestPage"));
    EXPECT_EQ(
        errorOfLoading(), "/Library/PreferenceBundles/Loaded.bundle/Info.plist has no CFBundleExecutable.");
    writeInfo(text("CFBundleExecutable", "Loaded") + "<key>NSPrincipalClass</key><integer>1</integer>");
    EXPECT_EQ(
        errorOfLoading(), "/Library/PreferenceBundles/Loaded.bundle/Info.plist has no NSPrincipalClass.");
}

TEST_F(BundleTest, SaysWhichPrincipalClassIsMissing)
{
    writeInfo(text("CFBundleExecutable", "Loaded") + text("NSPrincipalClass", "SomeOtherPage"));
    installModule(TEST_PAGE_MODULE);
    EXPECT_EQ(errorOfLoading(),
        "There is no such principal class as SomeOtherPage in "
        "/Library/PreferenceBundles/Loaded.bundle/Loaded.");
    EXPECT_FALSE(NSClassFromString("ModuleTestPage"));
    // A class of the layer is none of the bundle's.
    writeInfo(text("CFBundleExecutable", "Loaded") + text("NSPrincipalClass", "PSListController"));
    EXPECT_NE(errorOfLoading().find("no such principal class as PSListController"), std::string::npos);
}

TEST_F(BundleTest, NamesAnUnresolvedSymbol)
{
    writeInfo();
    installModule(UNRESOLVED_SYMBOL_MODULE);
    EXPECT_EQ(errorOfLoading(),
        "/Library/PreferenceBundles/Loaded.bundle/Loaded has the unresolved symbol "
        "vekora_tests::functionThatIsNowhere(int).");
}

TEST_F(BundleTest, RefusesWhatIsNoModule)
{
    writeInfo();
    for (const char* content : { "", "#!/bin/sh\nexit 0\n",
             "\x7F"
             "ELF" }) {
        writeFile(std::string(path) + "/Loaded", content);
        const auto error = errorOfLoading();
        EXPECT_NE(error.find("/Library/PreferenceBundles/Loaded.bundle/Loaded is not a loadable module ("),
            std::string::npos)
            << error;
        EXPECT_EQ(error.find(root.path().string()), std::string::npos) << error;
    }
}

TEST_F(BundleTest, LoadsNothingFromOutsideTheRoot)
{
    writeInfo();
    std::filesystem::create_symlink(TEST_PAGE_MODULE, root.path() / (path + 1) / "Loaded");
    EXPECT_EQ(errorOfLoading(), "There is no such file as /Library/PreferenceBundles/Loaded.bundle/Loaded.");
    writeInfo(text("CFBundleExecutable", "../../../../../../../../../.." TEST_PAGE_MODULE)
        + text("NSPrincipalClass", "ModuleTestPage"));
    EXPECT_NE(errorOfLoading().find("There is no such file as "), std::string::npos);
}

TEST_F(BundleTest, SucceedsOnceTheReasonIsGone)
{
    writeInfo();
    writeFile(std::string(path) + "/Loaded", "");
    EXPECT_NE(errorOfLoading(), "");
    installModule(TEST_PAGE_MODULE);
    std::string error;
    EXPECT_TRUE(NSBundle::loadBundleAtPath(path, error)) << error;
}

TEST_F(BundleTest, LoadsPlugInsForTheirClasses)
{
    const std::string library = "/usr/lib/libtest.dylib";
    EXPECT_FALSE(loadPlugIn(library));
    writeFile(library, "nothing of use");
    EXPECT_FALSE(loadPlugIn(library));
    writeFile(library, readTestFile(TEST_PAGE_MODULE));
    EXPECT_TRUE(loadPlugIn(library));
    ASSERT_TRUE(NSClassFromString("ModuleTestPage"));
    EXPECT_EQ(NSClassFromString("ModuleTestPage")->bundlePath(), "");
    // Gone from the device, gone from the process.
    std::filesystem::remove(root.path() / library.substr(1));
    EXPECT_FALSE(loadPlugIn(library));
    EXPECT_FALSE(NSClassFromString("ModuleTestPage"));
}
