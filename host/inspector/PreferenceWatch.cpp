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
    if (const auto old = _watcher.files() + _watcher.directories(); !old.isEmpty())
        _watcher.removePaths(old);
    _devicePath = reportedPath(devicePath);
    watchFiles();
    _state = PreferenceState::ofFile(_devicePath);
}

void PreferenceWatch::watchFiles()
{
    const auto folder = _devicePath.substr(0, _devicePath.rfind('/'));
    for (const auto& name : { folder, _devicePath }) {
        const auto path = QString::fromStdString(hostPath(name).value_or(std::string()));
        if (path.isEmpty())
            continue;
        // A file that took another's place goes by the same name but must be watched anew.
        if (name == _devicePath)
            _watcher.removePath(path);
        _watcher.addPath(path);
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
