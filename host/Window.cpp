#include "Window.h"

#include "crash/CrashHandler.h"
#include "crash/CrashNote.h"
#include "crash/WorkLimit.h"
#include "MainWindow.h"
#include "OnDisplay.h"
#include "Pictures.h"
#include "platform/qt/NotifyCenter.h"
#include "record/Recorder.h"
#include "record/ScriptText.h"
#include "reload/Reloader.h"
#include "WithoutDisplay.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

constexpr int recordingIsNotWhole = 1;
constexpr int cannotBegin = 2;
constexpr const char* pictureFolder = "pictures"; // Below the folder that the program is started in.

void noteMissingBus()
{
    if (!sessionBusIsAvailable())
        std::fputs(
            "There is no session bus: notifications are shown here, but nobody else hears them.\n", stderr);
}

int fail(const std::exception& exception)
{
    std::fprintf(stderr, "%s\n", exception.what());
    return cannotBegin;
}

/// Before anything is opened: it may be refused, and the root is as the replay will find it. Null for none.
std::unique_ptr<RecordFile> makeRecord(
    bool onScreen, const std::string& recording, const PhoneOptions& options)
{
    if (recording.empty())
        return nullptr;
    if (!onScreen)
        throw std::runtime_error("There is no display, so there is no window to record.");
    return std::make_unique<RecordFile>(recording, recordingHeader(options, recording));
}

int writePictures(Phone& phone)
try {
    const auto folder = std::filesystem::current_path() / pictureFolder;
    const auto files = writePicturesOfEveryPage(phone, folder);
    std::printf("There is no display. A picture of every page is in %s:\n", folder.c_str());
    for (const auto& file : files)
        std::printf("  %s\n", file.filename().c_str());
    return 0;
} catch (const std::runtime_error& error) {
    return fail(error);
}

}

int runWindow(int argc, char** argv, PhoneOptions options, Scale scale, const std::string& recording,
    const std::optional<CrashReport>& crash)
{
    const auto onScreen = hasDisplay();
    const auto application
        = onScreen ? applicationOnDisplay(argc, argv, cannotBegin) : applicationWithoutDisplay(options.root);
    // Only now, as the toolkit aborts where it cannot begin. A crash right after a crash would be one without
    // end.
    handleCrashes(argv, onScreen && !crash ? AfterCrash::StartAgain : AfterCrash::SayAndEnd);
    QApplication::setApplicationDisplayName(QStringLiteral("Settings"));
    QApplication::setDesktopFileName(QStringLiteral("vekora-host"));

    if (onScreen && scale == Scale::OfTheScreen)
        options.scale = std::clamp(static_cast<int>(std::lround(application->devicePixelRatio())), 1, 3);
    const auto note = crash ? crashNoteFromText(crash->note, options) : std::nullopt;
    std::unique_ptr<RecordFile> record;
    std::unique_ptr<Phone> phone;
    try {
        // A recording that ends in a crash leads to it, and is kept as it is.
        if (!crash)
            record = makeRecord(onScreen, recording, options);
        phone = std::make_unique<Phone>(note ? note->options : options);
    } catch (const std::runtime_error& error) {
        return fail(error);
    }
    // A window is used by somebody who waits; pictures may take their time.
    std::optional<WorkLimit> limit;
    if (onScreen)
        limit.emplace();
    Reloader reloader(*phone);
    if (crash)
        reloader.openAfter(*crash, note);
    else
        reloader.open();
    if (!onScreen)
        return writePictures(*phone);

    std::unique_ptr<Recorder> recorder;
    MainWindow window(*phone);
    if (record)
        recorder = std::make_unique<Recorder>(*phone, *record);
    window.setWindowTitle(QStringLiteral("Vekora"));
    if (note)
        window.restoreGeometry(note->geometry);
    reloader.watch(window);
    window.show();
    QTimer::singleShot(0, &window, noteMissingBus);
    const auto status = QApplication::exec();
    if (recorder && !recorder->finish())
        return recordingIsNotWhole;
    return status;
}

}
