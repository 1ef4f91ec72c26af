#include "OnDisplay.h"

#include "platform/qt/BusThread.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace host {

namespace {

/// What the toolkit says while it looks for the display: kept, as it is of interest only if it finds one.
QString sayings;
int failure = 0;

bool isSet(const char* name)
{
    const auto* const value = std::getenv(name);
    return value && *value;
}

std::string sentence()
{
    std::string settings;
    for (const char* name : { "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM" }) {
        if (isSet(name))
            settings += (settings.empty() ? "" : ", ") + std::string(name) + "=" + std::getenv(name);
    }
    return "No window can be opened: the display cannot be reached (" + settings + ").";
}

void listen(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", sentence().c_str());
        std::_Exit(failure); // Nothing has been begun that would have to be brought to an end.
    }
    sayings += qFormatLogMessage(type, context, text) + '\n';
}

}

bool hasDisplay()
{
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

std::unique_ptr<QApplication> applicationOnDisplay(int& argc, char** argv, int statusWithoutOne)
{
    failure = statusWithoutOne;
    platform::startBusThread();
    const auto usual = qInstallMessageHandler(listen);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    std::fputs(qPrintable(sayings), stderr);
    sayings.clear();
    return application;
}

}
