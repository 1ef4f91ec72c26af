#include "Observe.h"

#include "Changes.h"
#include "host/Instant.h"
#include "host/PreferenceFile.h"
#include "platform/Device.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/NotifyCenter.h"

#include <csignal>
#include <cstdio>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <stdexcept>
#include <sys/signalfd.h>
#include <unistd.h>

namespace host {

using namespace platform;

namespace {

PropertyList readPreferences()
{
    const auto file = NSMutableDictionary::dictionaryWithContentsOfFile(preferenceFile());
    return file ? file->entries() : PropertyList {};
}

/// Ends the event loop, and with it the process in order, when somebody interrupts or terminates it.
class Interruption {
public:
    /// Before any other thread is there, as those inherit what is blocked.
    Interruption()
    {
        sigset_t ending;
        sigemptyset(&ending);
        sigaddset(&ending, SIGINT);
        sigaddset(&ending, SIGTERM);
        sigprocmask(SIG_BLOCK, &ending, nullptr);
        _file = ::signalfd(-1, &ending, SFD_CLOEXEC);
    }
    ~Interruption() { ::close(_file); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    int file() const { return _file; }

private:
    int _file = -1;
};

}

int runObserve(const Options& options)
{
    const Interruption interruption;
    char name[] = "vekora";
    char* arguments[] = { name, nullptr };
    int count = 1;
    QCoreApplication application(count, arguments);
    QSocketNotifier interrupted(interruption.file(), QSocketNotifier::Read);
    QObject::connect(
        &interrupted, &QSocketNotifier::activated, &application, [] { QCoreApplication::exit(0); });

    Device::current().root = options.phone.root;
    setPreferenceDomain(options.phone.defaults);
    auto known = readPreferences();
    const NotificationListener listener([&](const std::string& posted) {
        auto present = readPreferences();
        const auto time = textFromInstant(NSDate::date(), options.phone.timeZone);
        std::fputs(observationLine(time, posted, known, present).c_str(), stdout);
        std::fflush(stdout);
        known = std::move(present);
    });
    if (!listener.isListening())
        throw std::runtime_error("There is no session bus to listen on.");
    std::fprintf(stderr, "Listening. The preferences are %s%s; Ctrl-C ends it.\n", options.phone.root.c_str(),
        preferenceFile().c_str());
    return QCoreApplication::exec();
}

}
