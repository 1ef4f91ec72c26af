#include "host/Installation.h"

#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace host {

namespace {

struct InstallationTest : testing::Test {
    TemporaryFolder folder;
    fs::path root = folder.path() / "phone";

    InstallationSources sources() const
    {
        const auto build = folder.path() / "build";
        writeTestFile(build / "Vekora.bundle/Info.plist", "info");
        writeTestFile(build / "Vekora.bundle/de.lproj/Vekora.strings", "strings");
        writeTestFile(build / "entry/Vekora.plist", "entry");
        writeTestFile(build / "toggle.so", "module");
        return {
            .bundle = build / "Vekora.bundle",
            .loaderEntry = build / "entry/Vekora.plist",
            .toggle = build / "toggle.so",
        };
    }

    static ino_t inode(const fs::path& path)
    {
        struct stat status = {};
        EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
        return status.st_ino;
    }

    /// Names of every file below the root that nobody installed.
    std::vector<std::string> temporaryFiles() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            if (entry.path().filename().string().front() == '.')
                names.push_back(entry.path().string());
        }
        return names;
    }
};

}

TEST_F(InstallationTest, MakesWhatADeviceAlwaysHas)
{
    const Installation installation(root);

    EXPECT_EQ(installation.root(), root);
    EXPECT_TRUE(fs::is_directory(root / "private/var/mobile/Library/Preferences"));
    EXPECT_TRUE(fs::is_directory(root / "Library/MobileSubstrate/DynamicLibraries"));
    EXPECT_TRUE(fs::is_directory(root / "Library/PreferenceBundles"));
    EXPECT_TRUE(fs::is_directory(root / "Library/PreferenceLoader/Preferences"));
    EXPECT_TRUE(fs::is_directory(root / "Library/Switches"));
    EXPECT_EQ(fs::read_symlink(root / "var"), "private/var");
    EXPECT_TRUE(fs::equivalent(root / "var/mobile", root / "private/var/mobile"));
}

TEST_F(InstallationTest, KeepsWhatARootHolds)
{
    writeTestFile(root / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist", "mine");
    writeTestFile(root / "var/mine", "mine");

    const Installation installation(root);

    EXPECT_EQ(readTestFile(root / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist"), "mine");
    EXPECT_FALSE(fs::is_symlink(root / "var"));
    EXPECT_EQ(readTestFile(root / "var/mine"), "mine");
}

TEST_F(InstallationTest, TakesARootThroughALink)
{
    fs::create_directory(folder.path() / "real");
    fs::create_directory_symlink("real", root);

    const Installation installation(root);

    EXPECT_EQ(installation.root(), folder.path() / "real");
    EXPECT_TRUE(fs::is_directory(folder.path() / "real/Library/PreferenceBundles"));
}

TEST_F(InstallationTest, SaysWhyARootCannotBeMade)
{
    writeTestFile(root, "a file");
    try {
        const Installation installation(root);
        FAIL() << "a file is no root";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()), "There is no folder " + root.string() + ".");
    }
}

TEST_F(InstallationTest, SaysWhyAFolderCannotBeMade)
{
    writeTestFile(root / "Library", "a file");
    try {
        const Installation installation(root);
        FAIL() << "a file is in the way";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(
            std::string(error.what()), (root / "Library").string() + " cannot be made: Not a directory.");
    }
}

TEST_F(InstallationTest, FollowsNoLinkOutOfTheRoot)
{
    fs::create_directories(folder.path() / "elsewhere/MobileSubstrate");
    fs::create_directories(root);
    fs::create_directory_symlink(folder.path() / "elsewhere", root / "Library");

    EXPECT_THROW(Installation { root }, std::runtime_error);

    EXPECT_FALSE(fs::exists(folder.path() / "elsewhere/MobileSubstrate/DynamicLibraries"));
    EXPECT_FALSE(fs::exists(folder.path() / "elsewhere/PreferenceBundles"));
}

TEST_F(InstallationTest, InstallsThePane)
{
    const Installation installation(root);

    EXPECT_EQ(installation.installPane(sources()), "/Library/PreferenceBundles/Vekora.bundle");

    const auto bundle = root / "Library/PreferenceBundles/Vekora.bundle";
    EXPECT_EQ(readTestFile(bundle / "Info.plist"), "info");
    EXPECT_EQ(readTestFile(bundle / "de.lproj/Vekora.strings"), "strings");
    EXPECT_EQ(readTestFile(root / "Library/PreferenceLoader/Preferences/Vekora.plist"), "entry");
    EXPECT_TRUE(temporaryFiles().empty());
}

TEST_F(InstallationTest, WritesNothingWhenNothingHasChanged)
{
    const auto from = sources();
    const Installation installation(root);
    installation.installPane(from);
    installation.installToggle(from);
    const auto info = root / "Library/PreferenceBundles/Vekora.bundle/Info.plist";
    const auto module = root / "Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";
    const auto infoBefore = inode(info);
    const auto moduleBefore = inode(module);

    const Installation again(root);
    again.installPane(from);
    again.installToggle(from);

    EXPECT_EQ(inode(info), infoBefore);
    EXPECT_EQ(inode(module), moduleBefore);
}

TEST_F(InstallationTest, ReplacesWhatHasChangedAsOneStep)
{
    const auto from = sources();
    const Installation installation(root);
    installation.installPane(from);
    const auto installed = root / "Library/PreferenceBundles/Vekora.bundle/Info.plist";
    // Whoever has the old file open, or loaded, keeps it whole.
    std::ifstream old(installed);
    writeTestFile(from.bundle / "Info.plist", "newer info");

    installation.installPane(from);

    EXPECT_EQ(readTestFile(installed), "newer info");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(old), {}), "info");
    EXPECT_TRUE(temporaryFiles().empty());
}

TEST_F(InstallationTest, RepairsAnInstalledFile)
{
    const auto from = sources();
    const Installation installation(root);
    installation.installPane(from);
    const auto installed = root / "Library/PreferenceBundles/Vekora.bundle/Info.plist";
    writeTestFile(installed, "broken");

    installation.installPane(from);

    EXPECT_EQ(readTestFile(installed), "info");
}

TEST_F(InstallationTest, KeepsTheModeOfAFile)
{
    const auto from = sources();
    fs::permissions(from.bundle / "Info.plist", fs::perms(0755));

    Installation(root).installPane(from);

    const auto installed = root / "Library/PreferenceBundles/Vekora.bundle/Info.plist";
    EXPECT_EQ(fs::status(installed).permissions(), fs::perms(0755));
}

TEST_F(InstallationTest, SaysWhichBundleIsMissing)
{
    const Installation installation(root);
    const auto missing = folder.path() / "Other.bundle";
    try {
        installation.installBundle(missing);
        FAIL() << "nothing is there";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()), "There is no folder " + missing.string() + ".");
    }
    EXPECT_FALSE(fs::exists(root / "Library/PreferenceBundles/Other.bundle"));
}

TEST_F(InstallationTest, InstallsAnyOtherBundle)
{
    const Installation installation(root);
    writeTestFile(folder.path() / "Other.bundle/Info.plist", "other");
    writeTestFile(folder.path() / "Plain/Info.plist", "plain");

    EXPECT_EQ(installation.installBundle(folder.path() / "Other.bundle/"),
        "/Library/PreferenceBundles/Other.bundle");
    EXPECT_EQ(installation.installBundle(folder.path() / "Plain"), "/Library/PreferenceBundles/Plain.bundle");

    EXPECT_EQ(readTestFile(root / "Library/PreferenceBundles/Other.bundle/Info.plist"), "other");
    EXPECT_EQ(readTestFile(root / "Library/PreferenceBundles/Plain.bundle/Info.plist"), "plain");
}

TEST_F(InstallationTest, RemovesWhatABundleHasNoMore)
{
    const auto from = sources();
    const Installation installation(root);
    installation.installPane(from);
    writeTestFile(from.bundle / "fr.lproj/Vekora.strings", "strings");
    fs::remove_all(from.bundle / "de.lproj");
    fs::remove(from.bundle / "Info.plist");

    installation.installPane(from);

    const auto installed = root / "Library/PreferenceBundles/Vekora.bundle";
    EXPECT_FALSE(fs::exists(installed / "Info.plist"));
    EXPECT_FALSE(fs::exists(installed / "de.lproj"));
    EXPECT_EQ(readTestFile(installed / "fr.lproj/Vekora.strings"), "strings");
}

TEST_F(InstallationTest, CopiesWhatABundlesLinksLeadTo)
{
    const Installation installation(root);
    writeTestFile(folder.path() / "shared.png", "picture");
    fs::create_directories(folder.path() / "Other.bundle");
    fs::create_symlink("../shared.png", folder.path() / "Other.bundle/icon.png");

    installation.installBundle(folder.path() / "Other.bundle");

    const auto installed = root / "Library/PreferenceBundles/Other.bundle/icon.png";
    EXPECT_FALSE(fs::is_symlink(installed));
    EXPECT_EQ(readTestFile(installed), "picture");
}

TEST_F(InstallationTest, LeavesOutLinksThatLeadNowhereOrRound)
{
    const Installation installation(root);
    const auto bundle = folder.path() / "Other.bundle";
    writeTestFile(bundle / "Info.plist", "other");
    fs::create_symlink("nowhere", bundle / "a.plist");
    fs::create_symlink("c.plist", bundle / "b.plist");
    fs::create_symlink("b.plist", bundle / "c.plist");
    fs::create_directory_symlink(".", bundle / "d");

    installation.installBundle(bundle);

    const auto entries = fs::directory_iterator(root / "Library/PreferenceBundles/Other.bundle");
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "Info.plist alone";
}

TEST_F(InstallationTest, LetsFilesAndFoldersTakeEachOthersPlaces)
{
    const Installation installation(root);
    const auto bundle = folder.path() / "Other.bundle";
    writeTestFile(bundle / "one", "a file");
    writeTestFile(bundle / "two/inside", "a file");
    installation.installBundle(bundle);
    fs::remove_all(bundle);
    writeTestFile(bundle / "one/inside", "now a folder");
    writeTestFile(bundle / "two", "now a file");

    installation.installBundle(bundle);

    const auto installed = root / "Library/PreferenceBundles/Other.bundle";
    EXPECT_EQ(readTestFile(installed / "one/inside"), "now a folder");
    EXPECT_EQ(readTestFile(installed / "two"), "now a file");
}

TEST_F(InstallationTest, LeavesABundleThatIsAlreadyInItsPlace)
{
    const Installation installation(root);
    const auto bundle = root / "Library/PreferenceBundles/Other.bundle";
    writeTestFile(bundle / "Info.plist", "other");
    const auto before = inode(bundle / "Info.plist");

    EXPECT_EQ(installation.installBundle(bundle), "/Library/PreferenceBundles/Other.bundle");

    EXPECT_EQ(inode(bundle / "Info.plist"), before);
}

TEST_F(InstallationTest, InstallsAndRemovesTheToggle)
{
    const Installation installation(root);
    const auto library = root / "Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";
    const auto bundleSwitch = root / "Library/Switches/VekoraFS.bundle/VekoraFS";

    installation.installToggle(sources());
    EXPECT_EQ(readTestFile(library), "module");
    EXPECT_TRUE(fs::is_regular_file(bundleSwitch));

    installation.removeToggle();
    EXPECT_FALSE(fs::exists(library));
    EXPECT_FALSE(fs::exists(bundleSwitch));

    EXPECT_NO_THROW(installation.removeToggle());
}

TEST_F(InstallationTest, InstallsAndRemovesTheStatusBarLibrary)
{
    const Installation installation(root);
    const auto library = root / "Library/MobileSubstrate/DynamicLibraries/libstatusbar.dylib";

    installation.installStatusBarLibrary();
    EXPECT_TRUE(fs::is_regular_file(library));
    EXPECT_NO_THROW(installation.installStatusBarLibrary());

    installation.removeStatusBarLibrary();
    EXPECT_FALSE(fs::exists(library));
    EXPECT_NO_THROW(installation.removeStatusBarLibrary());
}

TEST_F(InstallationTest, LeavesNoTemporaryFileWhenItFails)
{
    const auto from = sources();
    const Installation installation(root);
    // A folder is where the file belongs, so the last step cannot be done.
    const auto inTheWay = root / "Library/PreferenceLoader/Preferences/Vekora.plist/inside";
    fs::create_directories(inTheWay);

    EXPECT_THROW(installation.installPane(from), std::runtime_error);

    EXPECT_TRUE(temporaryFiles().empty());
    EXPECT_TRUE(fs::is_directory(inTheWay));
}

}
