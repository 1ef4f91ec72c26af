#include "BundleWatcher.h"

#include "FolderState.h"

#include <filesystem>

namespace host {

namespace fs = std::filesystem;

namespace {

/// Everything in the folder, itself, and the folders around it up to one that is sure to be there: a change
/// is seen only in a folder that is watched before it happens.
QStringList pathsToWatch(const fs::path& folder)
{
    QStringList paths;
    std::error_code error;
    const auto add = [&](const fs::path& path) { paths.append(QString::fromStdString(path.string())); };
    if (fs::is_directory(folder, error)) {
        add(folder);
        auto entries = fs::recursive_directory_iterator(folder, error);
        for (const fs::recursive_directory_iterator end; !error && entries != end; entries.increment(error)) {
            std::error_code none; // What a link that leads nowhere is to become, its folder tells.
            if (entries->exists(none))
                add(entries->path());
        }
    }
    auto around = folder.parent_path();
    while (!fs::is_directory(around, error) && around.has_relative_path())
        around = around.parent_path();
    add(around);
    return paths;
}

}

BundleWatcher::BundleWatcher(std::string folder, std::string state, std::function<void()> changed)
    : _folder(std::move(folder))
    , _taken(std::move(state))
    , _seen(_taken)
    , _changed(std::move(changed))
{
    while (_folder.size() > 1 && _folder.back() == '/')
        _folder.pop_back();
    _quiet.setSingleShot(true);
    _quiet.setInterval(quietTime);
    QObject::connect(&_quiet, &QTimer::timeout, &_quiet, [this] { cameToRest(); });
    for (const auto signal : { &QFileSystemWatcher::directoryChanged, &QFileSystemWatcher::fileChanged })
        QObject::connect(&_watcher, signal, &_quiet, [this] { look(); });
    watchEverything();
    look();
}

void BundleWatcher::watchEverything()
{
    // A path may stand for another file by now, so all are watched afresh; a folder that came while they were
    // is found by looking again.
    QStringList paths;
    for (auto now = pathsToWatch(_folder); now != paths; now = pathsToWatch(_folder)) {
        paths = now;
        const auto before = _watcher.files() + _watcher.directories();
        if (!before.isEmpty())
            _watcher.removePaths(before);
        _watcher.addPaths(paths);
    }
}

void BundleWatcher::look()
{
    // The folder around may be a busy one, whose other changes are nothing to wait for.
    if (auto state = stateOfFolder(_folder); state != _seen) {
        _seen = std::move(state);
        _patience = mostPatience;
        watchEverything();
        _quiet.start();
    } else if (!_watcher.directories().contains(QString::fromStdString(_folder))) {
        watchEverything();
    }
}

void BundleWatcher::cameToRest()
{
    watchEverything();
    if (auto state = stateOfFolder(_folder); state != _seen) {
        _seen = std::move(state);
        _quiet.start();
    } else if (_seen != _taken && !isComplete(_folder) && _patience-- > 0) {
        _quiet.start();
    } else if (_seen != _taken) {
        _taken = _seen;
        _changed();
    }
}

}
