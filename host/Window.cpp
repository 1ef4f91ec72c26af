#include "Window.h"

#include "MainWindow.h"
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
#include <cstdlib>
#include <filesystem>

namespace host {

using namespace platform;

namespace {

constexpr const char* pictureFolder = "pictures"; // Below the folder that the program is started in.

bool hasDisplay()
{
    const auto isSet = [](const char* name) {
        const auto* const value = std::getenv(name);
        return value && *value;
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

void noteMissingBus()
{
    if (!sessionBusIsAvailable())
        std::fputs(
            "There is no session bus: notifications are shown here, but nobody else hears them.\n", stderr);
}

int writePictures(Phone& phone)
{
    const auto folder = std::filesystem::current_path() / pictureFolder;
    const auto files = writePicturesOfEveryPage(phone, folder);
    std::printf("There is no display. A picture of every page is in %s:\n", folder.c_str());
    for (const auto& file : files)
        std::printf("  %s\n", file.filename().c_str());
    return 0;
}

}

int runWindow(int argc, char** argv, PhoneOptions options, Scale scale, const std::string& recording)
{
    const auto onScreen = hasDisplay();
    if (!onScreen && !recording.empty())
        throw std::runtime_error("There is no display, so there is no window to record.");
    const auto application
        = onScreen ? std::make_unique<QApplication>(argc, argv) : applicationWithoutDisplay(options.root);
    QApplication::setApplicationDisplayName(QStringLiteral("Settings"));
    QApplication::setDesktopFileName(QStringLiteral("vekora-host"));

    if (onScreen && scale == Scale::OfTheScreen)
        options.scale = std::clamp(static_cast<int>(std::lround(application->devicePixelRatio())), 1, 3);
    // Before anything is opened: it may be refused, and the root is as the replay will find it.
    const auto record = recording.empty()
        ? nullptr
        : std::make_unique<RecordFile>(recording, recordingHeader(options, recording));
    Phone phone(options);
    Reloader reloader(phone);
    reloader.open();
    if (!onScreen)
        return writePictures(phone);

    std::unique_ptr<Recorder> recorder;
    MainWindow window(phone);
    if (record)
        recorder = std::make_unique<Recorder>(phone, *record);
    window.setWindowTitle(QStringLiteral("Vekora"));
    reloader.watch(window);
    window.show();
    QTimer::singleShot(0, &window, noteMissingBus);
    const auto status = QApplication::exec();
    if (recorder)
        recorder->finish();
    flushNotifications();
    return status;
}

}
