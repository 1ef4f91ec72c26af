#include "AtomicSaveTest.h"

#include <utility>

using namespace platform;
using namespace platform::tests;

namespace {

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

TEST_F(AtomicSave, SurvivesAFailureOfAnyCallWithoutTheExchangeOfNames)
{
    const LesserFileSystem system;
    failEachCallInTurn();
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
