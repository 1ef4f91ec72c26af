#include "host/reload/FolderState.h"
#include "host/reload/Reloader.h"
#include "PaneFolder.h"
#include "tests/host/PhoneFixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QWidget>

using host::BundleWatcher;

namespace {

/// A window after a crash, with or without a note of what was before.
class AfterACrash : public PhoneTest {
protected:
    AfterACrash()
    {
        pane.build("good1");
        auto chosen = options();
        chosen.bundle = pane.path().string();
        open(chosen);
    }

    host::CrashNote noteOf(std::string folderState) const
    {
        host::CrashNote note;
        note.options = phone->options();
        note.folderState = std::move(folderState);
        return note;
    }
    void show(const std::optional<host::CrashNote>& note)
    {
        reloader.emplace(*phone);
        testing::internal::CaptureStderr();
        reloader->openAfter({}, note);
        EXPECT_NE(testing::internal::GetCapturedStderr(), "");
        reloader->watch(window);
        window.show();
        expect([&] { return reloader->isWatching(); });
    }
    static void expect(const std::function<bool()>& condition)
    {
        QDeadlineTimer deadline(std::chrono::seconds(60));
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
        EXPECT_TRUE(condition());
    }
    /// Whatever the window's own watcher had to tell is told once others that began later have told theirs.
    void letOthersTell() const
    {
        for (int other = 0; other < 2; ++other) {
            bool hasTold = false;
            const BundleWatcher watcher(pane.path().string(), "another", [&] { hasTold = true; });
            expect([&] { return hasTold; });
        }
    }
    bool errorIsShown() const
    {
        return dynamic_cast<host::ErrorPage*>(phone->navigation().topViewController()) != nullptr;
    }

    PaneFolder pane { folder.path() / "Pane.bundle" };
    QWidget window;
    std::optional<host::Reloader> reloader;
};

}

TEST_F(AfterACrash, LeavesTheSameBuildAlone)
{
    show(noteOf(host::stateOfFolder(pane.path())));
    letOthersTell();
    EXPECT_TRUE(errorIsShown());
}

TEST_F(AfterACrash, LeavesTheBuildAloneWithoutANoteOfIt)
{
    show(std::nullopt);
    letOthersTell();
    EXPECT_TRUE(errorIsShown());
    pane.link("good2");
    expect([&] { return !errorIsShown(); });
}

TEST_F(AfterACrash, TakesABuildThatCameMeanwhile)
{
    show(noteOf("another build"));
    expect([&] { return !errorIsShown(); });
}
