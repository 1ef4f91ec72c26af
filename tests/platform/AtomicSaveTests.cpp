#include "CallHooks.h"
#include "DeviceFixture.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/AtomicSave.h"
#include "platform/qt/PropertyListFormat.h"

#include <cstring>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;

namespace {

constexpr const char* path = "/var/mobile/Library/Preferences/test.plist";
const PropertyList oldList { { "state", "old" } };
const PropertyList newList { { "state", "new" }, { "more", std::string(20000, 'x') } };

/// What stands under the name before a save.
enum class Before { Nothing, File, Link };

/// A file system that cannot exchange two names, while this lives, and may lack links too.
class LesserFileSystem {
public:
    explicit LesserFileSystem(int refusal = EINVAL)
        : _real(FileCalls::current())
    {
        error() = refusal;
        FileCalls::current().rename
            = [](int folder, const char* from, int toFolder, const char* to, unsigned flags) {
                  if (flags == 0)
                      return ::renameat(folder, from, toFolder, to);
                  errno = error();
                  return -1;
              };
    }
    ~LesserFileSystem() { FileCalls::current() = _real; }
    LesserFileSystem(const LesserFileSystem&) = delete;
    LesserFileSystem& operator=(const LesserFileSystem&) = delete;

    static void haveNoLinks()
    {
        FileCalls::current().linkAt = [](int, const char*, int, const char*, int) {
            errno = EPERM;
            return -1;
        };
    }

private:
    static int& error()
    {
        static int error;
        return error;
    }
    FileCalls _real;
};

class AtomicSave : public DeviceTest {
protected:
    std::filesystem::path file() const { return preferences() / "test.plist"; }
    std::filesystem::path target() const { return preferences() / "target.plist"; }

    void prepare(Before before)
    {
        for (const auto& entry : std::filesystem::directory_iterator(preferences()))
            std::filesystem::remove(entry);
        if (before == Before::Nothing)
            return;
        const auto xml = xmlFromPropertyList(oldList);
        ASSERT_TRUE(xml);
        writeTestFile(before == Before::Link ? target() : file(), *xml);
        if (before == Before::Link)
            std::filesystem::create_symlink("target.plist", file());
    }

    static bool save(const PropertyList& list)
    {
        return NSMutableDictionary(list).writeToFileAtomically(path, true);
    }

    static std::optional<PropertyList> load()
    {
        const auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path);
        return list ? std::optional(list->entries()) : std::nullopt;
    }

    std::set<std::string> names() const
    {
        std::set<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(preferences()))
            result.insert(entry.path().filename());
        return result;
    }

    void expectUntouched(Before before) const
    {
        const std::set<std::string> expected = before == Before::Nothing ? std::set<std::string> {}
            : before == Before::File ? std::set<std::string> { "test.plist" }
                                     : std::set<std::string> { "test.plist", "target.plist" };
        EXPECT_EQ(names(), expected);
        EXPECT_EQ(load(), before == Before::Nothing ? std::nullopt : std::optional(oldList));
        EXPECT_EQ(std::filesystem::is_symlink(file()), before == Before::Link);
    }

    void failEachCallInTurn();

    void expectSaved(Before before) const
    {
        const std::set<std::string> expected = before == Before::Link
            ? std::set<std::string> { "test.plist", "target.plist" }
            : std::set<std::string> { "test.plist" };
        EXPECT_EQ(names(), expected);
        EXPECT_EQ(load(), newList);
        EXPECT_FALSE(std::filesystem::is_symlink(file()));
    }

    mode_t mode() const
    {
        struct stat status { };
        ::lstat(file().c_str(), &status);
        return status.st_mode & 07777;
    }
};

std::ostream& operator<<(std::ostream& stream, Before before)
{
    return stream << (before == Before::Nothing ? "nothing" : before == Before::File ? "a file" : "a link");
}

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

// Every call of a save fails in turn, with every error; then the same once more with the next call.
void AtomicSave::failEachCallInTurn()
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        for (const int error : { EIO, ENOSPC, EACCES, EROFS }) {
            bool hasFailed = true;
            int failures = 0;
            for (int failing = 1; hasFailed; ++failing) {
                prepare(before);
                std::string failed;
                bool succeeded = false;
                {
                    int count = 0;
                    const CallHooks hooks([&](std::string_view call, int) {
                        if (++count != failing)
                            return 0;
                        failed = call;
                        return error;
                    });
                    succeeded = save(newList);
                    hasFailed = count >= failing;
                }
                SCOPED_TRACE(testing::Message() << before << ": call " << failing << ", " << failed
                                                << ", fails with " << std::strerror(error));
                failures += succeeded ? 0 : 1;
                if (succeeded)
                    expectSaved(before);
                else
                    expectUntouched(before);
                if (HasFailure())
                    return;
            }
            // Finding the folder alone takes a dozen calls.
            EXPECT_GT(failures, 20);
        }
    }
}

TEST_F(AtomicSave, SurvivesAFailureOfAnyCall)
{
    failEachCallInTurn();
}

TEST_F(AtomicSave, SurvivesAFailureOfAnyCallWithoutTheExchangeOfNames)
{
    const LesserFileSystem system;
    failEachCallInTurn();
}

TEST_F(AtomicSave, MakesInterruptedCallsAgain)
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        prepare(before);
        bool isSecond = false;
        int interruptions = 0;
        {
            const CallHooks hooks([&](std::string_view, int) {
                isSecond = !isSecond;
                interruptions += isSecond ? 1 : 0;
                return isSecond ? EINTR : 0;
            });
            EXPECT_TRUE(save(newList));
        }
        EXPECT_GT(interruptions, 20);
        expectSaved(before);
    }
}

// As when a disk is full, broken, or was remounted read-only: it does not get better by trying on.
TEST_F(AtomicSave, SurvivesAFailureThatLasts)
{
    for (const auto before : { Before::Nothing, Before::File, Before::Link }) {
        for (const std::string_view failing : { "create", "write", "sync", "sync folder", "rename" }) {
            for (const int error : { EIO, ENOSPC, EACCES, EROFS }) {
                SCOPED_TRACE(testing::Message() << before << ": " << failing << ", " << std::strerror(error));
                prepare(before);
                {
                    const CallHooks hooks(
                        [&](std::string_view call, int) { return call == failing ? error : 0; });
                    EXPECT_FALSE(save(newList));
                }
                expectUntouched(before);
            }
        }
    }
}

TEST_F(AtomicSave, TellsWhyItFailed)
{
    prepare(Before::File);
    const CallHooks hooks([](std::string_view call, int) { return call == "sync folder" ? EROFS : 0; });
    const auto place = findPlace(path, FinalLink::Keep);
    ASSERT_TRUE(place);
    EXPECT_FALSE(replaceFile(*place, "text"));
    EXPECT_EQ(errno, EROFS);
}

TEST_F(AtomicSave, FailsAfterHalfOfTheContents)
{
    prepare(Before::File);
    static int writes;
    writes = 0;
    {
        const CallHooks restore([](std::string_view, int) { return 0; });
        FileCalls::current().write = [](int file, const void* bytes, std::size_t count) {
            if (writes++ > 0) {
                errno = ENOSPC;
                return ssize_t { -1 };
            }
            return ::write(file, bytes, count / 2);
        };
        EXPECT_FALSE(save(newList));
    }
    EXPECT_EQ(writes, 2);
    expectUntouched(Before::File);
}

TEST_F(AtomicSave, GoesOnAfterShortWrites)
{
    prepare(Before::File);
    {
        const CallHooks restore([](std::string_view, int) { return 0; });
        FileCalls::current().write = [](int file, const void* bytes, std::size_t count) {
            return ::write(file, bytes, std::min<std::size_t>(count, 7));
        };
        EXPECT_TRUE(save(newList));
    }
    expectSaved(Before::File);
}

TEST_F(AtomicSave, DoesNotWriteOnForEverWhenNothingIsTaken)
{
    prepare(Before::File);
    {
        const CallHooks restore([](std::string_view, int) { return 0; });
        FileCalls::current().write = [](int, const void*, std::size_t) { return ssize_t { 0 }; };
        EXPECT_FALSE(save(newList));
    }
    expectUntouched(Before::File);
}

TEST_F(AtomicSave, DoesWithoutTheExchangeOfNames)
{
    for (const int error : { EINVAL, ENOSYS, EPERM, EOPNOTSUPP }) {
        for (const bool hasLinks : { true, false }) {
            prepare(Before::File);
            {
                const LesserFileSystem system(error);
                if (!hasLinks)
                    LesserFileSystem::haveNoLinks();
                EXPECT_TRUE(save(newList));
            }
            expectSaved(Before::File);
        }
    }
}

TEST_F(AtomicSave, KeepsTheOldFileWithoutTheExchangeOfNames)
{
    for (const std::string_view failing : { "create", "write", "sync", "sync folder", "rename" }) {
        SCOPED_TRACE(failing);
        prepare(Before::File);
        struct stat before { };
        ASSERT_EQ(::lstat(file().c_str(), &before), 0);
        {
            const LesserFileSystem system;
            const CallHooks hooks([&](std::string_view call, int) { return call == failing ? EIO : 0; });
            errno = 0;
            EXPECT_FALSE(save(newList));
        }
        expectUntouched(Before::File);
        struct stat after { };
        ASSERT_EQ(::lstat(file().c_str(), &after), 0);
        EXPECT_EQ(after.st_ino, before.st_ino);
        EXPECT_EQ(after.st_nlink, 1U);
    }
}

TEST_F(AtomicSave, KeepsTheNewFileWhereItCanDoNeither)
{
    prepare(Before::File);
    {
        const LesserFileSystem system;
        LesserFileSystem::haveNoLinks();
        const CallHooks hooks([](std::string_view call, int) { return call == "sync folder" ? EIO : 0; });
        EXPECT_FALSE(save(newList));
    }
    expectSaved(Before::File);
}

// Another's save comes between the look at the old file and its second name, or between the new name and the
// failing sync.
TEST_F(AtomicSave, LeavesANewerSaveWithoutTheExchangeOfNames)
{
    for (const std::string_view moment : { "linkAt", "sync folder" }) {
        SCOPED_TRACE(moment);
        prepare(Before::File);
        bool isNested = false;
        const PropertyList newest { { "state", "newest" } };
        bool succeeded = false;
        {
            const LesserFileSystem system;
            const CallHooks hooks([&](std::string_view call, int) {
                if (call != moment || std::exchange(isNested, true))
                    return 0;
                EXPECT_TRUE(save(newest));
                return moment == "linkAt" ? 0 : EIO;
            });
            succeeded = save(newList);
        }
        EXPECT_EQ(succeeded, moment == "linkAt");
        EXPECT_EQ(load(), succeeded ? newList : newest);
        EXPECT_EQ(names(), std::set<std::string> { "test.plist" });
    }
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

// Another process's save comes between this one's exchange and its failing sync of the folder.
TEST_F(AtomicSave, LeavesANewerSaveWhenItTakesItsOwnBack)
{
    prepare(Before::File);
    bool isNested = false;
    const PropertyList newest { { "state", "newest" } };
    {
        const CallHooks hooks([&](std::string_view call, int) {
            if (call != "sync folder" || std::exchange(isNested, true))
                return 0;
            EXPECT_TRUE(save(newest));
            return EIO;
        });
        EXPECT_FALSE(save(newList));
    }
    EXPECT_EQ(load(), newest);
    EXPECT_EQ(names(), std::set<std::string> { "test.plist" });
}

}
