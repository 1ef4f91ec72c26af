#include "platform/NSBundle.h"
#include "SettingsScreen.h"

#include <cstring>
#include <elf.h>
#include <fstream>
#include <set>

using namespace platform;

namespace {

constexpr const char* path = "/Library/PreferenceBundles/Build.bundle";

/// A bundle that is built again and again.
class BundleReloadTest : public SettingsScreen {
protected:
    /// As an installation does it: another file in the old one's place.
    void install(const std::string& module)
    {
        if (!std::filesystem::exists(root.path() / (path + 1) / "Info.plist"))
            writeFile(std::string(path) + "/Info.plist",
                "<plist version=\"1.0\"><dict>" + text("CFBundleExecutable", "Build")
                    + text("NSPrincipalClass", "BuildPage") + "</dict></plist>");
        std::filesystem::remove(root.path() / (path + 1) / "Build");
        writeFile(std::string(path) + "/Build", module);
    }

    std::shared_ptr<NSBundle> load()
    {
        std::string error;
        auto bundle = NSBundle::loadBundleAtPath(path, error);
        EXPECT_TRUE(bundle) << error;
        return bundle;
    }
    std::string errorOfLoading()
    {
        std::string error;
        EXPECT_EQ(NSBundle::loadBundleAtPath(path, error), nullptr);
        return error;
    }
    static Ref<PSListController> makePage(const NSBundle& bundle)
    {
        return bundle.principalClass()->make<PSListController>(CGSize { 320, 480 });
    }
    static std::string titleOfPage(const NSBundle& bundle) { return makePage(bundle)->title(); }

    const std::string build1 = readTestFile(BUILD_1_MODULE);
    const std::string build2 = readTestFile(BUILD_2_MODULE);
};

}

TEST_F(BundleReloadTest, TakesNothingOfTheBuildBefore)
{
    install(build1);
    auto bundle = load();
    EXPECT_EQ(titleOfPage(*bundle), "Build 1");
    EXPECT_TRUE(NSClassFromString("OnlyInBuild1"));
    bundle.reset();
    install(build2);
    bundle = load();
    EXPECT_EQ(titleOfPage(*bundle), "Build 2");
    EXPECT_FALSE(NSClassFromString("OnlyInBuild1"));
    bundle.reset();
    install(build1);
    EXPECT_EQ(titleOfPage(*load()), "Build 1");
}

TEST_F(BundleReloadTest, LeavesNoFileBehind)
{
    install(build1);
    const auto bundle = load();
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(root.path() / (path + 1)))
        names.insert(entry.path().filename());
    EXPECT_EQ(names, (std::set<std::string> { "Build", "Info.plist" }));
}

TEST_F(BundleReloadTest, KnowsWhetherAnotherBuildIsThere)
{
    install(build1);
    const auto bundle = load();
    EXPECT_TRUE(bundle->isUpToDate());
    writeFile(std::string(path) + "/Rows.plist", "");
    EXPECT_TRUE(bundle->isUpToDate());
    install(build1);
    EXPECT_FALSE(bundle->isUpToDate());
}

TEST_F(BundleReloadTest, KnowsWhenTheInfoHasChanged)
{
    install(build1);
    const auto bundle = load();
    writeFile(std::string(path) + "/Info.plist", "<plist version=\"1.0\"><dict></dict></plist>");
    EXPECT_FALSE(bundle->isUpToDate());
}

TEST_F(BundleReloadTest, KeepsTheCodeOfObjectsThatAreAlive)
{
    install(build1);
    auto bundle = load();
    auto page = makePage(*bundle);
    EXPECT_EQ(bundle->classesOfLiveObjects(), std::vector<std::string> { "BuildPage" });
    bundle.reset();
    EXPECT_FALSE(NSClassFromString("BuildPage"));
    install(build2);
    bundle = load();
    EXPECT_TRUE(bundle->classesOfLiveObjects().empty());
    EXPECT_EQ(titleOfPage(*bundle), "Build 2");
    page->setTitle("Still there");
    EXPECT_EQ(page->specifiers().size(), 0u); // By the old build's table of functions.
    EXPECT_EQ(page->title(), "Still there");
    page.reset();
}

TEST_F(BundleReloadTest, LetsGoOfFormerBuilds)
{
    const auto mapped = [&] {
        int count = 0;
        std::ifstream maps("/proc/self/maps");
        for (std::string line; std::getline(maps, line);)
            count += line.find("/.Build.") != std::string::npos && line.find(" r-xp ") != std::string::npos;
        return count;
    };
    for (int round = 0; round < 6; ++round) {
        install(round % 2 ? build1 : build2);
        EXPECT_TRUE(load());
        EXPECT_EQ(mapped(), 0);
        const auto bundle = load();
        EXPECT_EQ(mapped(), 1);
    }
    auto bundle = load();
    auto page = makePage(*bundle);
    bundle.reset();
    EXPECT_EQ(mapped(), 1) << "for the page";
    page.reset();
    install(build1);
    load().reset();
    EXPECT_EQ(mapped(), 0);
}

TEST_F(BundleReloadTest, KnowsWhereItsCodeLies)
{
    install(build1);
    const auto bundle = load();
    const auto page = makePage(*bundle);
    std::uintptr_t functions = 0;
    std::memcpy(&functions, static_cast<const void*>(page.get()), sizeof functions);
    EXPECT_LE(bundle->codeRange().begin, functions);
    EXPECT_GT(bundle->codeRange().end, functions);
    EXPECT_EQ(bundle->modulePath(), (root.path() / (path + 1) / "Build").string());
}

TEST_F(BundleReloadTest, NeverLoadsAPartOfAFile)
{
    constexpr std::size_t parts = 40;
    for (std::size_t part = 0; part < parts; ++part) {
        const auto size = build1.size() * part / parts;
        install(build1.substr(0, size));
        const auto error = errorOfLoading();
        EXPECT_NE(error.find("Build.bundle/Build is not a loadable module (it "), std::string::npos) << error;
    }
    install(build1.substr(0, build1.size() - 1));
    EXPECT_NE(errorOfLoading().find("(it ends after " + std::to_string(build1.size() - 1) + " bytes"),
        std::string::npos)
        << errorOfLoading();
    install(build1);
    EXPECT_EQ(titleOfPage(*load()), "Build 1");
}

TEST_F(BundleReloadTest, NeverLoadsWhatHasItsFullSizeButNotItsContent)
{
    // What a linker that maps its output leaves until it is ready.
    for (const auto written : { std::size_t { 0 }, sizeof(Elf64_Ehdr), std::size_t { 2048 } }) {
        install(build1.substr(0, written) + std::string(build1.size() - written, '\0'));
        const auto error = errorOfLoading();
        EXPECT_NE(error.find("Build.bundle/Build is not a loadable module (it "), std::string::npos) << error;
    }
}

TEST_F(BundleReloadTest, SaysWhenAModuleIsForAnotherProcessor)
{
    auto foreign = build1;
    constexpr auto machine = offsetof(Elf64_Ehdr, e_machine);
    foreign[machine] = static_cast<char>(foreign[machine] ^ 0x55);
    install(foreign);
    EXPECT_NE(errorOfLoading().find("was built for another kind of processor"), std::string::npos);
}
