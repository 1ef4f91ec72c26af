#include "PreferenceWatch.h"

#include "platform/Journal.h"
#include "platform/qt/DeviceFiles.h"

namespace host {

using namespace platform;

PreferenceWatch::PreferenceWatch(std::string devicePath, Listener listener)
    : _devicePath(reportedPath(devicePath))
    , _listener(std::move(listener))
{
    _look.setSingleShot(true);
    _look.callOnTimeout([this] {
        watchFiles();
        look();
    });
    const auto lookSoon = [this] { _look.start(0); };
    QObject::connect(&_watcher, &QFileSystemWatcher::fileChanged, &_look, lookSoon);
    QObject::connect(&_watcher, &QFileSystemWatcher::directoryChanged, &_look, lookSoon);
    _journal = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Write && entry.name == _devicePath)
            look();
    });
    watchFiles();
    _state = PreferenceState::ofFile(_devicePath);
}

PreferenceWatch::~PreferenceWatch()
{
    Journal::shared().stop(_journal);
}

void PreferenceWatch::setDevicePath(std::string_view devicePath)
{
    _devicePath = reportedPath(devicePath);
    watchFiles();
    _state = PreferenceState::ofFile(_devicePath);
}

QStringList PreferenceWatch::pathsToWatch() const
{
    QStringList paths;
    const auto add = [&](std::string_view name) {
        if (const auto path = hostPath(name))
            paths += QString::fromStdString(*path);
    };
    for (std::size_t slash = 0; slash != std::string::npos; slash = _devicePath.find('/', slash + 1))
        add(std::string_view(_devicePath).substr(0, slash + 1));
    add(_devicePath);
    return paths;
}

void PreferenceWatch::watchFiles()
{
    // What took another's place goes by the same name but must be watched anew; what came while it was is
    // found by looking again.
    QStringList paths;
    for (auto now = pathsToWatch(); now != paths; now = pathsToWatch()) {
        paths = now;
        if (const auto old = _watcher.files() + _watcher.directories(); !old.isEmpty())
            _watcher.removePaths(old);
        if (!paths.isEmpty())
            _watcher.addPaths(paths);
    }
}

void PreferenceWatch::look()
{
    auto state = PreferenceState::ofFile(_devicePath);
    if (state == _state)
        return;
    _state = std::move(state);
    _listener(_state);
}

}
