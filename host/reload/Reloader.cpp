#include "Reloader.h"

#include "FolderState.h"

#include <QEvent>
#include <QShortcut>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace host {

namespace {

void say(const std::optional<std::string>& error)
{
    if (error)
        std::fprintf(stderr, "%s\n", error->c_str());
}

}

Reloader::Reloader(Phone& phone)
    : _phone(phone)
{
    // The button belongs to a page, which must have returned from its action before it goes.
    _phone.setTryAgain([this] { QTimer::singleShot(0, this, [this] { reload(); }); });
}

Reloader::~Reloader()
{
    _phone.setTryAgain({});
}

void Reloader::open()
{
    _state = stateOfFolder(_phone.bundleFolder());
    say(_phone.openBundle());
}

void Reloader::watch(QWidget& window)
{
    window.installEventFilter(this);
}

bool Reloader::eventFilter(QObject* object, QEvent* event)
{
    if (auto* const window = qobject_cast<QWidget*>(object); window && event->type() == QEvent::Paint) {
        window->removeEventFilter(this);
        QTimer::singleShot(0, window, [this, window] { begin(*window); });
    }
    return QObject::eventFilter(object, event);
}

void Reloader::begin(QWidget& window)
{
    _watcher = std::make_unique<BundleWatcher>(_phone.bundleFolder(), _state, [this] { reload(); });
    auto* const again = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_R), &window);
    connect(again, &QShortcut::activated, this, [this] { reload(); });
}

void Reloader::reload()
{
    _state = stateOfFolder(_phone.bundleFolder());
    if (_watcher)
        _watcher->take(_state);
    say(_phone.reloadBundle());
}

}
