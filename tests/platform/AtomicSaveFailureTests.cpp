#include "AtomicSaveTest.h"
#include "platform/qt/AtomicSave.h"

#include <cstring>
#include <unistd.h>
#include <utility>

using namespace platform;
using namespace platform::tests;

TEST_F(AtomicSave, SurvivesAFailureOfAnyCall)
{
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
