#include "AtomicSaveTest.h"
#include "platform/NSMutableDictionary.h"

#include <sys/file.h>
#include <unistd.h>

using namespace platform;
using namespace platform::tests;

TEST_F(AtomicSave, ReplacesAFileALinkOrNothing)
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        SCOPED_TRACE(testing::Message() << before);
        prepare(before);
        EXPECT_TRUE(save(newList));
        expectSaved(before);
    }
}

TEST_F(AtomicSave, LeavesWhatALinkLedToAsItWas)
{
    prepare(Before::Link);
    const auto before = readTestFile(target());
    ASSERT_TRUE(save(newList));
    EXPECT_EQ(readTestFile(target()), before);
}

TEST_F(AtomicSave, SyncsTheContentsBeforeAndTheFolderAfterTheNameChanges)
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        prepare(before);
        std::vector<std::string> steps;
        {
            const CallHooks hooks([&](std::string_view call, int) {
                if (call == "write" || call.starts_with("sync") || call == "rename")
                    steps.emplace_back(call);
                return 0;
            });
            ASSERT_TRUE(save(newList));
        }
        EXPECT_EQ(steps, (std::vector<std::string> { "write", "sync", "rename", "sync folder" }));
    }
}

TEST_F(AtomicSave, KeepsAnOldFilesMode)
{
    prepare(Before::File);
    for (const mode_t kept : { 0600U, 0644U, 0666U, 0604U, 0444U, 0755U, 0640U }) {
        ASSERT_EQ(::chmod(file().c_str(), kept), 0);
        ASSERT_TRUE(save(newList));
        EXPECT_EQ(mode(), kept);
    }
}

TEST_F(AtomicSave, IsNeverMoreOpenThanTheOldFile)
{
    prepare(Before::File);
    ASSERT_EQ(::chmod(file().c_str(), 0600), 0);
    mode_t widest = 0;
    {
        const CallHooks hooks([&](std::string_view, int) {
            for (const auto& entry : std::filesystem::directory_iterator(preferences())) {
                struct stat status { };
                ::lstat(entry.path().c_str(), &status);
                widest |= status.st_mode & 07777;
            }
            return 0;
        });
        ASSERT_TRUE(save(newList));
    }
    EXPECT_EQ(widest, 0600U);
}

TEST_F(AtomicSave, GivesANewFileTheUsualMode)
{
    const mode_t before = ::umask(0);
    for (const mode_t mask : { 0U, 022U, 027U, 077U }) {
        ::umask(mask);
        prepare(Before::Nothing);
        EXPECT_TRUE(save(newList));
        EXPECT_EQ(mode(), 0666 & ~mask);
        // A link has no mode worth keeping.
        prepare(Before::Link);
        EXPECT_TRUE(save(newList));
        EXPECT_EQ(mode(), 0666 & ~mask);
    }
    ::umask(before);
}

TEST_F(AtomicSave, TakesAwayWhatAKilledProcessLeft)
{
    prepare(Before::File);
    for (const char* slot : { ".test.plist.0.saving", ".test.plist.1.saving", ".test.plist.15.saving" })
        writeTestFile(preferences() / slot, "half of a li");
    writeTestFile(preferences() / ".other.plist.0.saving", "not ours");
    EXPECT_TRUE(save(newList));
    EXPECT_EQ(load(), newList);
    EXPECT_EQ(names(), (std::set<std::string> { "test.plist", ".other.plist.0.saving" }));
}

TEST_F(AtomicSave, LeavesAnotherProcesssWorkAlone)
{
    prepare(Before::File);
    const auto slot = preferences() / ".test.plist.0.saving";
    writeTestFile(slot, "at work");
    const int other = ::open(slot.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_TRUE(save(newList));
    EXPECT_EQ(readTestFile(slot), "at work");
    ::close(other);
    EXPECT_TRUE(save(newList));
    expectSaved(Before::File);
}

TEST_F(AtomicSave, DoesNotTakeALinkOrFolderForAnOrphan)
{
    prepare(Before::File);
    writeTestFile(outside() / "secret", "outside");
    std::filesystem::create_symlink(outside() / "secret", preferences() / ".test.plist.0.saving");
    std::filesystem::create_directory(preferences() / ".test.plist.1.saving");
    EXPECT_TRUE(save(newList));
    EXPECT_EQ(load(), newList);
    EXPECT_EQ(readTestFile(outside() / "secret"), "outside");
}

TEST_F(AtomicSave, GivesUpWhenEverySlotIsTaken)
{
    prepare(Before::File);
    for (int slot = 0; slot < 16; ++slot)
        std::filesystem::create_directory(
            preferences() / (".test.plist." + std::to_string(slot) + ".saving"));
    EXPECT_FALSE(save(newList));
    EXPECT_EQ(load(), oldList);
}

TEST_F(AtomicSave, WaitsForNobodyWhoHoldsTheFile)
{
    prepare(Before::File);
    const int other = ::open(file().c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_TRUE(save(newList));
    expectSaved(Before::File);
    ::close(other);
}

TEST_F(AtomicSave, TakesTheLongestNames)
{
    const std::string name(255, 'n');
    const auto longest = "/var/mobile/" + name;
    EXPECT_TRUE(NSMutableDictionary(newList).writeToFileAtomically(longest, true));
    EXPECT_TRUE(NSMutableDictionary(newList).writeToFileAtomically(longest, true));
    EXPECT_FALSE(NSMutableDictionary(newList).writeToFileAtomically(longest + "n", true));
}
