#include "host/crash/CrashReport.h"
#include "host/crash/CrashStory.h"
#include "PaneFolder.h"
#include "tests/host/Conversation.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <set>
#include <sys/file.h>
#include <unistd.h>

// Crashes of a bundle in the program that drives it by script; those in a window are reload-story.py's.

namespace {

/// A module whose table of symbols lies nowhere, which nobody sees before it is used.
std::string withoutSymbols(std::string module)
{
    ElfW(Ehdr) header {};
    std::memcpy(&header, module.data(), sizeof header);
    for (int index = 0; index < header.e_phnum; ++index) {
        ElfW(Phdr) segment {};
        std::memcpy(&segment, &module.at(header.e_phoff + index * sizeof segment), sizeof segment);
        if (segment.p_type != PT_DYNAMIC)
            continue;
        for (auto place = segment.p_offset;; place += sizeof(ElfW(Dyn))) {
            ElfW(Dyn) entry {};
            std::memcpy(&entry, &module.at(place), sizeof entry);
            if (entry.d_tag == DT_NULL)
                break;
            if (entry.d_tag == DT_SYMTAB)
                entry.d_un.d_ptr = ~ElfW(Addr) {} / 4;
            std::memcpy(&module.at(place), &entry, sizeof entry);
        }
    }
    return module;
}

class Crash : public testing::Test {
protected:
    HostRun drive(const QByteArray& script)
    {
        return runHost(
            { "drive", "--root", QString::fromStdString((folder.path() / "root").string()), "--locale",
                "en_US", "--timezone", "UTC", "--bundle", QString::fromStdString(pane.path().string()) },
            script);
    }
    /// The last line that was printed on standard error.
    static std::string lastError(const HostRun& run)
    {
        const auto lines = run.errors.trimmed().split('\n');
        return lines.back().toStdString();
    }

    /// The bundle's folder below the root.
    std::filesystem::path installed() const
    {
        return folder.path() / "root/Library/PreferenceBundles/Pane.bundle";
    }
    std::set<std::string> hiddenFiles() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(installed())) {
            if (entry.path().filename().string().starts_with('.'))
                names.insert(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder folder;
    PaneFolder pane { folder.path() / "Pane.bundle" };
};

}

TEST_F(Crash, InAnActionEndsWithOneSentenceThatSaysWhere)
{
    pane.build("good1");
    const std::pair<const char*, const char*> harms[] = {
        { "readNothing", "used memory at 0x0, where there is none (SIGSEGV)" },
        { "callNothing", "called a function at 0x0, where there is none (SIGSEGV)" },
        { "divideByZero", "divided an integer by zero (SIGFPE)" },
        { "beImpossible", "came to an instruction that cannot be carried out (SIGILL)" },
        { "giveUp", "gave up (SIGABRT)" },
        { "readBeyondAFile", "met a bus error (SIGBUS)" },
        { "complainOddly", "threw int, which nobody caught" },
        { "leave", "ended the program (exit status 7)" },
    };
    for (const auto& [harm, reason] : harms) {
        const auto run = drive("tap More\ntap " + QByteArray(harm) + "\npage\n");
        EXPECT_EQ(run.status, 2) << harm;
        EXPECT_EQ(run.answers().size(), 1) << "the answers so far";
        EXPECT_EQ(lastError(run),
            std::string("Pane.bundle crashed: it ") + reason + ", while performing " + harm
                + ", in pane::Wrongdoer::" + harm + "(), called by pane::PaneMorePage::" + harm + "().");
    }
}

TEST_F(Crash, IsToldWholeWhateverIsInTheSelector)
{
    pane.build("good1");
    const auto run = drive("tap More\ntap forge\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lastError(run),
        "Pane.bundle crashed: it used memory at 0x0, where there is none (SIGSEGV), while performing "
        "readNothing frame 1 note all is well  , in pane::Wrongdoer::readNothing(), called by "
        "pane::PaneMorePage::readNothing().");
}

TEST_F(Crash, OfAFullStackIsToldAsOne)
{
    pane.build("good1");
    const auto run = drive("tap More\ntap neverReturn\n");
    EXPECT_EQ(run.status, 2);
    const auto error = lastError(run);
    EXPECT_TRUE(error.starts_with("Pane.bundle crashed: it called functions without end until the stack was "
                                  "full (SIGSEGV), in pane::Wrongdoer::neverReturn(int), "))
        << error;
}

TEST_F(Crash, OutsideOfAnActionSaysDuringWhat)
{
    const std::tuple<const char*, const char*, const char*> builds[] = {
        { "crash_on_loading", "while it was loaded", "the initialisers of Pane.cpp" },
        { "crash_on_opening", "while its first page was opened",
            "pane::PanePage::PanePage(platform::CGSize)" },
        { "crash_while_painting", "while it was painted", "pane::PaneView::drawRect(platform::CGRect)" },
    };
    for (const auto& [build, deed, caller] : builds) {
        pane.build(build);
        const auto run = drive("page\n");
        EXPECT_EQ(run.status, 2) << build;
        EXPECT_EQ(run.answers().size(), 0);
        EXPECT_EQ(lastError(run),
            std::string("Pane.bundle crashed: it used memory at 0x0, where there is none (SIGSEGV), ") + deed
                + ", in pane::Wrongdoer::readNothing(), called by " + caller + ".");
    }
}

TEST_F(Crash, InAThreadOfTheBundlesIsTheBundlesToo)
{
    pane.build("crash_in_thread");
    const auto run = drive("page\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lastError(run),
        "Pane.bundle crashed: it used memory at 0x0, where there is none (SIGSEGV), in "
        "pane::Wrongdoer::readNothing().");
}

TEST_F(Crash, OfTheSystemsLoaderIsTheModulesFault)
{
    pane.build("good1");
    pane.linkBytes(withoutSymbols(PaneFolder::bytesOf("good1")));
    const auto run = drive("page\n");
    EXPECT_EQ(run.status, 2);
    const auto error = lastError(run);
    EXPECT_TRUE(error.starts_with("Pane.bundle crashed: it used memory at ")) << error;
    EXPECT_TRUE(error.ends_with(", while it was loaded.")) << error;
}

TEST_F(Crash, WhileItIsLoadedLeavesNoFilesBehindTheNextLoading)
{
    pane.build("crash_on_loading");
    for (int run = 0; run < 3; ++run) {
        EXPECT_EQ(drive("page\n").status, 2);
        EXPECT_LE(hiddenFiles().size(), 1U) << "what the last crash has left";
    }
    pane.build("good1");
    EXPECT_EQ(drive("page\n").status, 0);
    EXPECT_EQ(hiddenFiles().size(), 0U);
}

TEST_F(Crash, WhileItIsLoadedTakesNoFileFromAnotherProcess)
{
    pane.build("good1");
    ASSERT_EQ(drive("page\n").status, 0);
    const std::string names[] = { ".Pane.abc123", ".Pane.abc1234", ".Other.abc123" };
    for (const auto& name : names)
        writeTestFile(installed() / name, "somebody's");
    const int file = ::open((installed() / names[0]).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(file, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(drive("page\n").status, 0);
    EXPECT_EQ(hiddenFiles(), (std::set<std::string> { names[0], names[1], names[2] })) << "it is in use";
    ::close(file);
    EXPECT_EQ(drive("page\n").status, 0);
    EXPECT_EQ(hiddenFiles(), (std::set<std::string> { names[1], names[2] })) << "those are not its own";
}

TEST_F(Crash, AnExceptionWhileItOpensIsToldToo)
{
    pane.build("throws_on_opening");
    const auto run = drive("page\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lastError(run), "The bundle threw an exception while it was opened: the cupboard is bare.");
}

TEST_F(Crash, IsNotADisplayThatCannotBeReached)
{
    const auto root = QString::fromStdString((folder.path() / "root").string());
    const auto run = runHost({ "--root", root }, {}, { "DISPLAY=:99999", "QT_QPA_PLATFORM=xcb" });
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
        "No window can be opened: the display cannot be reached (DISPLAY=:99999, QT_QPA_PLATFORM=xcb).\n");
}

TEST_F(Crash, IsNotWhatAnotherProcessSends)
{
    pane.build("good1");
    HostProcess host({ "drive", "--root", QString::fromStdString((folder.path() / "root").string()),
        "--bundle", QString::fromStdString(pane.path().string()) });
    host.write("page\n");
    ASSERT_FALSE(host.readLine().isEmpty());
    host.send(SIGABRT);
    EXPECT_EQ(host.waitForEnd(), -1) << "it died of the signal";
    EXPECT_FALSE(host.readErrors().contains("crashed"));
}

TEST(CrashReport, IsReadAsItIsWritten)
{
    const auto report = host::crashReportFromText("after start\nsignal b\naddress 10\ncode 1\nstack end 0\n"
                                                  "action tapped:\nexception \nwhat \n"
                                                  "maps\n"
                                                  "1000-2000 r-xp 00000400 08:01 77   /lib/a b.so\n"
                                                  "3000-4000 rw-p 00000000 00:00 0 \n"
                                                  "frame 1234\nframe 2\n"
                                                  "note\n{\"any\":\n\"thing\"}");
    EXPECT_EQ(report.after, host::AfterCrash::StartAgain);
    EXPECT_EQ(report.signal, SIGSEGV);
    EXPECT_EQ(report.address, 0x10U);
    EXPECT_EQ(report.code, 1);
    EXPECT_FALSE(report.isStackEnd);
    EXPECT_EQ(report.action, "tapped:");
    EXPECT_EQ(report.exception, "");
    ASSERT_EQ(report.mappings.size(), 2U);
    EXPECT_EQ(report.mappings[0].begin, 0x1000U);
    EXPECT_EQ(report.mappings[0].end, 0x2000U);
    EXPECT_EQ(report.mappings[0].offset, 0x400U);
    EXPECT_EQ(report.mappings[0].file, "/lib/a b.so");
    EXPECT_EQ(report.frames, (std::vector<std::uintptr_t> { 0x1234, 2 }));
    EXPECT_EQ(report.note, "{\"any\":\n\"thing\"}");
}

TEST(CrashReport, TakesAnyTextForWhatItIsWorth)
{
    for (const char* text : { "", "\n\n", "signal", "signal zz\n", "maps\nmaps\n-\nx-y z\n", "frame \nnote",
             "note\n", "after never\n" }) {
        const auto report = host::crashReportFromText(text);
        EXPECT_EQ(report.after, host::AfterCrash::SayAndEnd);
        EXPECT_NE(host::tellCrash(report, "/nowhere", "Pane.bundle").sentence(), "");
    }
}

TEST(CrashReport, KnowsAnExitFromNone)
{
    EXPECT_EQ(host::crashReportFromText("status 0\nnote\n").exitStatus, std::nullopt);
    EXPECT_EQ(host::crashReportFromText("status 1\nnote\n").exitStatus, 0);
    EXPECT_EQ(host::crashReportFromText("status 100\nnote\n").exitStatus, 255);
}

TEST(CrashStory, BlamesTheHostWhereNoFunctionOfABundleWasCalled)
{
    host::CrashReport report;
    report.signal = SIGSEGV;
    report.address = 8;
    const auto story = host::tellCrash(report, "/nowhere", "Pane.bundle");
    EXPECT_FALSE(story.isBundles);
    EXPECT_EQ(
        story.sentence(), "Settings itself crashed: it used memory at 0x8, where there is none (SIGSEGV).");
}
