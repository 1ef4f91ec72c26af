#include "DeviceFixture.h"
#include "platform/NSFileManager.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/AtomicSave.h"

using namespace platform;

namespace {

class DeviceFiles : public DeviceTest {
protected:
    DeviceFiles()
    {
        writeTestFile(outside() / "secret", "outside");
        writeTestFile(root() / "inside", "inside");
        writeTestFile(root() / "folder/file", "in the folder");
    }

    static bool save(std::string_view path)
    {
        const auto place = findPlace(path, FinalLink::Keep);
        return place && replaceFile(*place, "saved");
    }
    void link(const std::filesystem::path& target, const std::string& name) const
    {
        std::filesystem::create_symlink(target, root() / name);
    }
};

TEST_F(DeviceFiles, AreFoundBelowTheRoot)
{
    EXPECT_EQ(contentsOfFile("/inside"), "inside");
    EXPECT_EQ(contentsOfFile("//folder//./file"), "in the folder");
    EXPECT_EQ(contentsOfFile("/folder/../inside"), "inside");
    EXPECT_EQ(contentsOfFile("folder/file"), "in the folder");
    EXPECT_EQ(contentsOfFile("/folder"), std::nullopt);
    EXPECT_EQ(contentsOfFile("/inside/"), std::nullopt);
    EXPECT_EQ(contentsOfFile("/inside/."), std::nullopt);
    EXPECT_EQ(contentsOfFile("/inside/.."), std::nullopt);
    EXPECT_EQ(contentsOfFile("/inside/x"), std::nullopt);
    EXPECT_EQ(contentsOfFile(std::string("/inside\0x", 9)), std::nullopt);
}

TEST_F(DeviceFiles, FollowLinksInsideTheRoot)
{
    link("/folder", "absolute");
    link("folder", "relative");
    link("../../../folder/file", "folder/up");
    link("/absolute/file", "chain");
    EXPECT_EQ(contentsOfFile("/absolute/file"), "in the folder");
    EXPECT_EQ(contentsOfFile("/relative/file"), "in the folder");
    EXPECT_EQ(contentsOfFile("/folder/up"), "in the folder");
    EXPECT_EQ(contentsOfFile("/chain"), "in the folder");
    EXPECT_EQ(contentsOfFile("/absolute/../inside"), "inside");
}

TEST_F(DeviceFiles, NeverLeaveTheRoot)
{
    link(outside() / "secret", "host path");
    link("../secret", "up");
    link("../../../../../../../../../../" + (outside() / "secret").string(), "far up");
    link(outside(), "host folder");
    link("..", "folder/parent");
    link("folder/parent/..", "two up");
    const char* const ways[] = { "/../secret", "/../../secret", "/folder/../../secret", "/host path", "/up",
        "/far up", "/host folder/secret", "/folder/parent/../secret", "/two up/secret", "/two up/../secret",
        "/folder/parent/folder/parent/../../secret" };
    for (const char* path : ways) {
        EXPECT_EQ(contentsOfFile(path), std::nullopt) << path;
        EXPECT_FALSE(fileExists(path)) << path;
        EXPECT_EQ(hostPath(path), std::nullopt) << path;
    }
    for (const char* path : ways) {
        (void)save(path);
        EXPECT_EQ(readTestFile(outside() / "secret"), "outside") << path;
    }
    for (const auto& entry : std::filesystem::directory_iterator(outside()))
        EXPECT_TRUE(entry.path() == root() || entry.path() == outside() / "secret") << entry;
}

TEST_F(DeviceFiles, GiveUpOnLinksThatLeadInCircles)
{
    link("circle", "circle");
    link("b", "a");
    link("a", "b");
    link("spiral/x", "spiral");
    for (const char* path : { "/circle", "/circle/x", "/a", "/b/x", "/spiral" }) {
        EXPECT_FALSE(findPlace(path, FinalLink::Follow)) << path;
        EXPECT_EQ(errno, ELOOP) << path;
    }
}

TEST_F(DeviceFiles, FollowFortyLinksAndNoMore)
{
    link("inside", "link 1");
    for (int number = 2; number <= 41; ++number)
        link("link " + std::to_string(number - 1), "link " + std::to_string(number));
    EXPECT_EQ(contentsOfFile("/link 40"), "inside");
    EXPECT_EQ(contentsOfFile("/link 41"), std::nullopt);
}

TEST_F(DeviceFiles, RefusePathsThatAreTooLong)
{
    std::string path;
    while (path.size() < 5000)
        path += "/folder/..";
    EXPECT_EQ(contentsOfFile(path + "/inside"), std::nullopt);
    EXPECT_EQ(errno, ENAMETOOLONG);
    EXPECT_EQ(contentsOfFile("/" + std::string(300, 'x')), std::nullopt);
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST_F(DeviceFiles, AreNoneWithoutARoot)
{
    Device::current().root.clear();
    EXPECT_FALSE(fileExists("/etc/passwd"));
    EXPECT_FALSE(fileExists("/"));
    EXPECT_FALSE(save("/x"));
    Device::current().root = (outside() / "missing").string();
    EXPECT_FALSE(fileExists("/"));
}

TEST_F(DeviceFiles, MayHaveARootThatIsALink)
{
    std::filesystem::create_symlink(root(), outside() / "link to root");
    Device::current().root = (outside() / "link to root").string();
    EXPECT_EQ(contentsOfFile("/inside"), "inside");
}

TEST_F(DeviceFiles, ExistAsFilesFoldersAndThroughLinks)
{
    const auto& manager = NSFileManager::defaultManager();
    link("folder/file", "link");
    link("nowhere", "dangling");
    for (const char* path : { "/", "/inside", "/folder", "/folder/", "/folder/file", "/link", "/var/mobile",
             "/private/var/mobile/", "/var/mobile/../..", "/folder/." })
        EXPECT_TRUE(manager.fileExistsAtPath(path)) << path;
    for (const char* path : { "", "/missing", "/dangling", "/inside/", "/link/", "/missing/..", "/inside/x" })
        EXPECT_FALSE(manager.fileExistsAtPath(path)) << path;
}

TEST_F(DeviceFiles, TellWhereTheyLie)
{
    link("/folder", "link");
    EXPECT_EQ(hostPath("/link/file"), (root() / "folder/file").string());
    EXPECT_EQ(hostPath("/link"), (root() / "folder").string());
    EXPECT_EQ(hostPath("/missing"), std::nullopt);
    EXPECT_EQ(findPlace("/", FinalLink::Keep)->devicePath, "/");
    EXPECT_EQ(findPlace("/link/new", FinalLink::Keep)->devicePath, "/folder/new");
    EXPECT_EQ(findPlace("/link", FinalLink::Keep)->devicePath, "/link");
    EXPECT_EQ(findPlace("/link/", FinalLink::Keep)->devicePath, "/folder");
    EXPECT_EQ(reportedPath("/var/mobile/x"), "/private/var/mobile/x");
    EXPECT_EQ(reportedPath("/var/missing/x"), "/private/var/missing/x");
    EXPECT_EQ(reportedPath("/other/x"), "/other/x");
}

TEST_F(DeviceFiles, AreNotMadeTogetherWithTheirFolders)
{
    EXPECT_FALSE(save("/missing/file"));
    EXPECT_FALSE(std::filesystem::exists(root() / "missing"));
    EXPECT_FALSE(save("/inside/file"));
    EXPECT_FALSE(save("/folder"));
    EXPECT_FALSE(save("/folder/"));
    EXPECT_FALSE(save("/"));
    EXPECT_FALSE(save("/folder/.."));
}

TEST_F(DeviceFiles, TakeNoMoreDescriptorsThanTheyGiveBack)
{
    const auto count = [] {
        return std::distance(
            std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
    };
    link("/folder", "link");
    const auto before = count();
    for (int round = 0; round < 100; ++round) {
        (void)contentsOfFile("/link/../link/./file");
        (void)contentsOfFile("/link/missing/x");
        (void)save("/folder/file");
        (void)save("/folder");
    }
    EXPECT_EQ(count(), before);
}

}
