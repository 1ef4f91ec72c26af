#include "host/reload/BundleWatcher.h"
#include "host/reload/FolderState.h"
#include "PaneFolder.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QDeadlineTimer>

#include <functional>

using host::BundleWatcher;
using host::isComplete;
using host::stateOfFolder;

namespace {

class Watching : public testing::Test {
protected:
    void watch() { watch(stateOfFolder(pane.path())); }
    void watch(std::string state)
    {
        watcher.emplace(pane.path().string(), std::move(state), [this] {
            ++calls;
            wasComplete = isComplete(pane.path().string());
        });
    }
    /// Runs the event loop until it has been told so often in all.
    void expectCalls(int expected)
    {
        QDeadlineTimer deadline(std::chrono::seconds(60));
        while (calls < expected && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
        EXPECT_EQ(calls, expected);
    }
    /// What is told of a later change is told of this one too, had it been worth it.
    void expectNothingButTheNext()
    {
        const auto before = calls;
        pane.writeRows("The next change " + std::to_string(before));
        expectCalls(before + 1);
    }

    TemporaryFolder folder;
    PaneFolder pane { folder.path() / "build/tree/Pane.bundle" };
    std::optional<BundleWatcher> watcher;
    int calls = 0;
    bool wasComplete = false;
};

}

TEST_F(Watching, TellsOnceOfAFileWrittenInPlace)
{
    pane.build("good1");
    watch();
    for (const char* title : { "One", "Two", "Three, longer" })
        pane.writeRows(title);
    expectCalls(1);
    EXPECT_TRUE(wasComplete);
}

TEST_F(Watching, TellsOfAReplacedModuleAgainAndAgain)
{
    pane.build("good1");
    watch();
    int expected = 0;
    for (const char* build : { "good2", "good1", "good2" }) {
        pane.link(build);
        expectCalls(++expected);
    }
    // By renaming, as careful tools do it.
    writeTestFile(folder.path() / "new", PaneFolder::bytesOf("good1"));
    std::filesystem::rename(folder.path() / "new", pane.module());
    expectCalls(++expected);
    pane.writeRows("In place");
    expectCalls(++expected);
}

TEST_F(Watching, SeesFilesAndFoldersThatCome)
{
    pane.build("good1");
    watch();
    writeTestFile(pane.path() / "de.lproj/Pane.strings", "one");
    expectCalls(1);
    writeTestFile(pane.path() / "de.lproj/Pane.strings", "another");
    expectCalls(2);
    std::filesystem::remove_all(pane.path() / "de.lproj");
    expectCalls(3);
}

TEST_F(Watching, SeesAWholeTreeThatIsRemovedAndMadeAgain)
{
    pane.build("good1");
    watch();
    std::filesystem::remove_all(folder.path() / "build");
    expectCalls(1);
    EXPECT_FALSE(wasComplete);
    pane.build("good2");
    expectCalls(2);
    EXPECT_TRUE(wasComplete);
    pane.link("good1");
    expectCalls(3);
}

TEST_F(Watching, SeesAFolderThatIsMovedIntoPlace)
{
    pane.build("good1");
    watch();
    PaneFolder other(folder.path() / "other/Pane.bundle");
    other.build("good2");
    std::filesystem::rename(pane.path(), folder.path() / "old");
    std::filesystem::rename(other.path(), pane.path());
    expectCalls(1);
    pane.writeRows("Written where it was moved to");
    expectCalls(2);
}

TEST_F(Watching, WaitsForAFolderThatWasNeverThere)
{
    watch();
    pane.build("good1");
    expectCalls(1);
    EXPECT_TRUE(wasComplete);
}

TEST_F(Watching, TellsOfAChangeFromBeforeItBegan)
{
    pane.build("good1");
    const auto state = stateOfFolder(pane.path());
    pane.link("good2");
    watch(state);
    expectCalls(1);
}

TEST_F(Watching, SaysNothingOfLinksThatLeadNowhereOrRound)
{
    pane.build("good1");
    watch();
    testing::internal::CaptureStderr();
    std::filesystem::create_symlink("nowhere", pane.path() / "later.png");
    std::filesystem::create_symlink("round.png", pane.path() / "round.png");
    expectCalls(1);
    std::filesystem::remove(pane.path() / "later.png");
    writeTestFile(pane.path() / "later.png", "here it is");
    expectCalls(2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Watching, WaitsForALinkerThatIsNotReady)
{
    pane.build("good1");
    watch();
    const auto bytes = PaneFolder::bytesOf("good2");
    // Its output as it grows; each step is seen before the next is made.
    for (const auto part : { bytes.size() / 10, bytes.size() / 2 }) {
        pane.linkBytes(bytes.substr(0, part));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    pane.linkBytes(bytes);
    expectCalls(1);
    EXPECT_TRUE(wasComplete);
}

TEST_F(Watching, TellsInTheEndOfWhatStaysIncomplete)
{
    pane.build("good1");
    watch();
    pane.linkBytes(PaneFolder::bytesOf("good2").substr(0, 5000));
    expectCalls(1);
    EXPECT_FALSE(wasComplete);
}

TEST_F(Watching, MindsNeitherHiddenFilesNorNeighbours)
{
    pane.build("good1");
    watch();
    writeTestFile(pane.path() / ".Pane.swp", "an editor's");
    writeTestFile(pane.path().parent_path() / "Neighbour.bundle/Info.plist", "");
    std::filesystem::remove(pane.path() / ".Pane.swp");
    expectNothingButTheNext();
    EXPECT_EQ(calls, 1);
}

TEST_F(Watching, TellsNothingOfAStateThatWasTakenOtherwise)
{
    pane.build("good1");
    watch();
    pane.link("good2");
    watcher->take(stateOfFolder(pane.path()));
    expectNothingButTheNext();
    EXPECT_EQ(calls, 1);
}

TEST(FolderState, KnowsAFileByMoreThanItsSizeAndTime)
{
    const TemporaryFolder folder;
    const auto file = folder.path() / "file";
    writeTestFile(file, "one");
    const auto time = std::filesystem::last_write_time(file);
    const auto before = stateOfFolder(folder.path());
    writeTestFile(folder.path() / "other", "two");
    std::filesystem::rename(folder.path() / "other", file);
    std::filesystem::last_write_time(file, time);
    EXPECT_NE(stateOfFolder(folder.path()), before);
    EXPECT_EQ(stateOfFolder((folder.path() / "nowhere").string()), "");
}

TEST(FolderState, IsAsShortOfThousandsOfFilesAsOfOne)
{
    const TemporaryFolder folder;
    writeTestFile(folder.path() / "one", "");
    const auto ofOne = stateOfFolder(folder.path());
    constexpr int files = 2000;
    for (int file = 0; file < files; ++file)
        writeTestFile(folder.path() / ("a picture of some kind " + std::to_string(file)), "");
    const auto ofMany = stateOfFolder(folder.path());
    EXPECT_EQ(ofMany.size(), ofOne.size());
    EXPECT_EQ(stateOfFolder(folder.path()), ofMany);
    std::filesystem::remove(folder.path() / "a picture of some kind 1999");
    EXPECT_NE(stateOfFolder(folder.path()), ofMany);
}
