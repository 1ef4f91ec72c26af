#pragma once

#include "BundleWatcher.h"
#include "host/Phone.h"

#include <memory>
#include <QObject>

class QWidget;

namespace host {

/// Keeps a phone in a window at the bundle's latest build: loads it, again whenever it changes on disk or the
/// person asks for it, and shows an error page in its place while it can't be loaded.
class Reloader final : public QObject {
public:
    /// The phone must live longer.
    explicit Reloader(Phone&);
    ~Reloader() override;

    /// Opens the bundle for the first time. What goes wrong is said on standard error too, here and later.
    void open();
    /// Watches the bundle's folder, and Ctrl+R in the window, as soon as the window has shown its first
    /// picture: not before, as it takes some time.
    void watch(QWidget& window);
    void reload();

protected:
    bool eventFilter(QObject*, QEvent*) override;

private:
    void begin(QWidget& window);

    Phone& _phone;
    std::string _state; ///< Of the bundle's folder when it was loaded.
    std::unique_ptr<BundleWatcher> _watcher;
};

}
