#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include <functional>
#include <string>

namespace host {

/// Tells when a bundle's folder has changed and come to rest: files written in place or replaced, folders
/// inside it, the folder itself removed and made again, and whatever it lies in as well. Nothing runs while
/// nothing changes there.
class BundleWatcher final {
public:
    /// Milliseconds that nothing may change for, and how often a bundle that is not complete is given as much
    /// again.
    static constexpr int quietTime = 120;
    static constexpr int mostPatience = 5;

    /// `state` is that of the folder (`stateOfFolder`) when its bundle was loaded: what has changed since is
    /// told as well. `changed` is called from the event loop.
    BundleWatcher(std::string folder, std::string state, std::function<void()> changed);

    /// The folder's state has been taken in some other way.
    void take(std::string state) { _taken = std::move(state); }

private:
    void look();
    void watchEverything();
    void cameToRest();

    std::string _folder;
    std::string _taken; ///< When `changed` was last called.
    std::string _seen;
    int _patience = 0;
    std::function<void()> _changed;
    QFileSystemWatcher _watcher;
    QTimer _quiet;
};

}
