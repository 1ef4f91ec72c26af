#pragma once

#include "BundleWatcher.h"
#include "host/crash/CrashNote.h"
#include "host/crash/CrashReport.h"
#include "host/Phone.h"

#include <memory>
#include <QObject>

class QWidget;

namespace host {

/// Keeps a phone in a window at the bundle's latest build: loads it, again whenever it changes on disk or the
/// person asks for it, and shows an error page in its place while it can't be loaded. Should the process
/// crash, what is needed to come back is always noted.
class Reloader final : public QObject {
public:
    /// The phone must live longer.
    explicit Reloader(Phone&);
    ~Reloader() override;

    /// Opens the bundle for the first time. What goes wrong is said on standard error too, here and later.
    void open();
    /// Shows what crashed, in the former state of the process, and leaves the bundle alone until it has
    /// changed or the person asks for it. Without a note, as one that was too long, changes count from now.
    void openAfter(const CrashReport&, const std::optional<CrashNote>&);
    /// Watches the bundle's folder, and Ctrl+R in the window, as soon as the window has shown its first
    /// picture: not before, as it takes some time.
    void watch(QWidget& window);
    bool isWatching() const { return _watcher != nullptr; }
    void reload();

protected:
    bool eventFilter(QObject*, QEvent*) override;

private:
    void begin();
    void noteState() const;

    Phone& _phone;
    QWidget* _window = nullptr;
    int _listener = 0;
    std::string _state; ///< Of the bundle's folder when it was loaded.
    std::unique_ptr<BundleWatcher> _watcher;
};

}
