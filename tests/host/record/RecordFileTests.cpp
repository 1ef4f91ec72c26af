#include "host/record/RecordFile.h"

#include "host/record/ScriptText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

using host::RecordFile;

namespace {

class RecordFiles : public testing::Test {
protected:
    std::string contents() const { return readTestFile(file); }
    static std::string refusal(const std::filesystem::path& path)
    {
        try {
            const RecordFile refused(path.string(), "");
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return {};
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "recording.txt";
};

/// As a disk on which no file can be longer.
class FullDisk {
public:
    explicit FullDisk(rlim_t longest)
    {
        ::getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit { longest, _before.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _signal);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit _before {};
    void (*_signal)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

/// What it writes to standard error: caught by a pipe, as a file may be what there is no room for.
template <typename Act> std::string errorsOf(Act act)
{
    int ends[2];
    if (::pipe(ends) != 0)
        return "There is no pipe.";
    const int kept = ::dup(STDERR_FILENO);
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    act();
    ::dup2(kept, STDERR_FILENO);
    ::close(kept);
    std::string text(4096, '\0');
    const auto count = ::read(ends[0], text.data(), text.size());
    ::close(ends[0]);
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return text;
}

}

TEST_F(RecordFiles, ReplaceNothing)
{
    writeTestFile(file, "mine");
    EXPECT_EQ(refusal(file),
        "The recording " + file.string()
            + " can't be written: it is there already, and a recording replaces nothing.");
    EXPECT_EQ(contents(), "mine");
    EXPECT_NE(refusal(folder.path()), "");
    EXPECT_NE(refusal(folder.path() / "none" / "recording.txt"), "");
    EXPECT_NE(refusal(""), "");
}

TEST_F(RecordFiles, EndWithAWholeLineWhenTheDiskIsFull)
{
    RecordFile record(file.string(), "# Header.\n");
    record.append("tap \"One\"\n");
    const auto whole = contents();
    const auto errors = errorsOf([&] {
        const FullDisk disk(whole.size() + 4);
        record.append("tap \"Two\"\n");
    });
    EXPECT_EQ(errors, "The recording " + file.string() + " ends here: File too large.\n");
    EXPECT_EQ(contents(), whole);
    record.append("tap \"Three\"\n");
    EXPECT_EQ(contents(), whole) << "what follows a gap leads nowhere";
    EXPECT_FALSE(record.finish());
}

TEST_F(RecordFiles, KeepALineThatThereIsNoRoomToReplace)
{
    RecordFile record(file.string(), "# Header.\n");
    const auto begin = record.size();
    record.append("type \"one\"\n");
    const auto whole = contents();
    static_cast<void>(errorsOf([&] {
        const FullDisk disk(whole.size() + 2);
        record.replaceFrom(begin, "type \"one and two\"\n");
    }));
    EXPECT_EQ(contents(), whole);
}

TEST_F(RecordFiles, TellAtTheEndWhenTheFileIsGone)
{
    RecordFile record(file.string(), "# Header.\n");
    EXPECT_TRUE(record.finish());
    std::filesystem::remove(file);
    EXPECT_EQ(errorsOf([&] { EXPECT_FALSE(record.finish()); }),
        "The recording " + file.string() + " ends here: the file is gone.\n");
}

TEST_F(RecordFiles, BeginWithACommandLineForAShell)
{
    host::PhoneOptions options;
    options.root = "/odd 'root'";
    options.bundle = "new\nline\\'\xFF";
    options.locale = "en_US";
    options.timeZone = "UTC";
    const auto header = host::recordingHeader(options, "-file");
    EXPECT_NE(header.find("\n# ./run drive --root \"$(mktemp -d)\" --size 375x667 --scale 2 --locale en_US "
                          "--timezone UTC --bundle $'new\\012line\\134\\047\\377' ./-file\n"),
        std::string::npos)
        << header;
    options.bundle.clear();
    options.root = (folder.path() / "odd 'root'").string();
    const auto preferences = folder.path() / "odd 'root'/private/var/mobile/Library/Preferences";
    std::filesystem::create_directories(preferences);
    writeTestFile(preferences / "net.example.plist", "");
    EXPECT_NE(host::recordingHeader(options, "file")
                  .find(" --root '" + folder.path().string() + "/odd '\\''root'\\''' --size "),
        std::string::npos);
}
