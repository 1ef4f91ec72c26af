#include "CallHooks.h"
#include "DeviceFixture.h"
#include "platform/NSMutableDictionary.h"

#include <csignal>
#include <iostream>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

// A program of its own without threads, since it forks without starting anew.

using namespace platform;

namespace {

constexpr const char* path = "/var/mobile/Library/Preferences/test.plist";

/// The list that is saved as the n-th, whose parts follow from each other.
PropertyList listOf(long long number)
{
    const auto length = static_cast<std::size_t>(number * 7919 % 30000);
    return { { "number", number }, { "text", std::string(length, static_cast<char>('a' + number % 26)) } };
}

bool save(long long number)
{
    return NSMutableDictionary(listOf(number)).writeToFileAtomically(path, true);
}

/// The number of the list that the file holds; nothing when there is no whole list of ours.
std::optional<long long> savedNumber()
{
    const auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path);
    const auto* number = list ? list->objectForKey("number") : nullptr;
    const auto* integer = number ? std::get_if<std::int64_t>(&number->storage()) : nullptr;
    return integer && list->entries() == listOf(*integer) ? std::optional<long long>(*integer) : std::nullopt;
}

class SaveByProcesses : public DeviceTest {
protected:
    std::filesystem::path file() const { return preferences() / "test.plist"; }

    int hiddenFiles() const
    {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(preferences()))
            count += entry.path().filename() == "test.plist" ? 0 : 1;
        return count;
    }
};

/// Saves list after list until it is killed, and says so with a byte before each system call. What a sync
/// brings about shows only after a loss of power, so most runs do without that wait.
[[noreturn]] void saveUntilKilled(long long number, bool syncs, int progress)
{
    const CallHooks hooks([&](std::string_view, int) { return ::write(progress, ".", 1) == 1 ? 0 : EIO; });
    if (!syncs)
        FileCalls::current().sync = [](int) { return 0; };
    while (save(number))
        ++number;
    ::_exit(1);
}

void skipBytes(int file, std::size_t count)
{
    char buffer[4096];
    while (count > 0) {
        const auto got = ::read(file, buffer, std::min(count, sizeof buffer));
        if (got <= 0)
            return;
        count -= static_cast<std::size_t>(got);
    }
}

TEST_F(SaveByProcesses, LeaveAWholeFileWheneverTheyAreKilled)
{
    constexpr int kills = 2500;
    const char* given = std::getenv("VEKORA_SEED");
    const auto seed = given ? std::strtoull(given, nullptr, 10) : std::random_device {}();
    SCOPED_TRACE("VEKORA_SEED=" + std::to_string(seed));
    std::cout << "VEKORA_SEED=" << seed << "\n";
    std::mt19937_64 random(seed);

    long long number = 0;
    int orphans = 0;
    int progressed = 0;
    for (int kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        const bool hadFile = kill % 5 != 0;
        if (!hadFile)
            std::filesystem::remove(file());
        const bool syncs = kill % 50 == 0;
        int progress[2];
        ASSERT_EQ(::pipe(progress), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            saveUntilKilled(number + 1, syncs, progress[1]);
        ::close(progress[1]);
        // A save makes some eighty calls. Where in the next one the blow falls is left to the machine.
        skipBytes(progress[0], random() % 200);
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "a save failed";
        ::close(progress[0]);

        const auto saved = savedNumber();
        ASSERT_TRUE(saved || (!hadFile && !std::filesystem::exists(file())));
        ASSERT_GE(saved.value_or(number), number);
        progressed += saved.value_or(number) > number ? 1 : 0;
        ASSERT_LE(hiddenFiles(), 1);
        orphans += hiddenFiles();

        number = saved.value_or(number) + 1;
        const CallHooks noWait([](std::string_view, int) { return 0; });
        FileCalls::current().sync = [](int) { return 0; };
        ASSERT_TRUE(save(number));
        ASSERT_EQ(savedNumber(), number);
        ASSERT_EQ(hiddenFiles(), 0);
    }
    std::cout << kills << " kills, " << orphans << " of them in the midst of a save, " << progressed
              << " after one\n";
    // Else the blows did not fall where they could hurt.
    EXPECT_GT(orphans, kills / 20);
    EXPECT_GT(progressed, kills / 20);
}

TEST_F(SaveByProcesses, NeverBreakTheFileWhenTheyAreMany)
{
    constexpr int processes = 4;
    constexpr int saves = 250;
    ASSERT_TRUE(save(0));
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            FileCalls::current().sync = [](int) { return 0; };
            bool succeeded = true;
            for (int round = 0; round < saves; ++round)
                succeeded = save(process * saves + round + 1) && savedNumber() && succeeded;
            ::_exit(succeeded ? 0 : 1);
        }
        children.push_back(child);
    }
    std::size_t ended = 0;
    while (ended < children.size()) {
        ASSERT_TRUE(savedNumber());
        int status = 0;
        if (::waitpid(-1, &status, WNOHANG) > 0) {
            ++ended;
            EXPECT_EQ(status, 0) << "a save failed, or a half file was read";
        }
    }
    // The last word is the last save of one of them.
    EXPECT_EQ(savedNumber().value_or(0) % saves, 0);
    ASSERT_TRUE(save(9999));
    EXPECT_EQ(savedNumber(), 9999);
    EXPECT_EQ(hiddenFiles(), 0);
}

}
