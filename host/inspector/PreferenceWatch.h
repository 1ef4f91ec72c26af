#pragma once

#include "host/PreferenceState.h"

#include <functional>
#include <QFileSystemWatcher>
#include <QTimer>

namespace host {

/// Follows a preference file: what the pane writes, at once, and what other processes do to it, when the
/// system tells. Nothing runs while the file is left alone.
class PreferenceWatch {
public:
    using Listener = std::function<void(const PreferenceState&)>;

    /// The listener hears of each state that differs from the one before.
    PreferenceWatch(std::string devicePath, Listener);
    ~PreferenceWatch();
    PreferenceWatch(const PreferenceWatch&) = delete;
    PreferenceWatch& operator=(const PreferenceWatch&) = delete;

    const std::string& devicePath() const { return _devicePath; }
    /// Follows another file from now on. Nobody is told.
    void setDevicePath(std::string_view);
    const PreferenceState& state() const { return _state; }
    /// Looks without being told.
    void look();

private:
    /// Of the file and the folders around it, up to the device's root, those that are there: one that comes
    /// or goes is seen only in the folder around it.
    QStringList pathsToWatch() const;
    void watchFiles();

    std::string _devicePath;
    Listener _listener;
    PreferenceState _state;
    QFileSystemWatcher _watcher;
    QTimer _look; ///< One change of a file makes several reports.
    int _journal;
};

}
