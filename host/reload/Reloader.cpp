#include "Reloader.h"

#include "FolderState.h"
#include "host/crash/CrashHandler.h"
#include "host/crash/CrashStory.h"
#include "host/Installation.h"
#include "platform/Journal.h"

#include <QEvent>
#include <QShortcut>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace host {

using namespace platform;

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
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Action)
            setLastAction(entry.name);
        else if (entry.kind == JournalEntry::Kind::Touch && entry.name == "began")
            noteState();
    });
}

Reloader::~Reloader()
{
    Journal::shared().stop(_listener);
    _phone.setTryAgain({});
}

void Reloader::open()
{
    _state = stateOfFolder(_phone.bundleFolder());
    noteState();
    say(_phone.openBundle());
}

void Reloader::openAfter(const CrashReport& crash, const std::optional<CrashNote>& note)
{
    const auto story = tellCrash(crash, _phone.options().root, nameOfInstalled(_phone.bundleFolder()));
    // Where nothing is known of the state that crashed, the present one counts as that: it is not to be
    // loaded and to crash again and again.
    _state = note ? note->folderState : stateOfFolder(_phone.bundleFolder());
    say(story.sentence());
    _phone.showError({
        .heading = story.heading(),
        .reason = "It " + story.reason + ".",
        .places = story.places,
    });
    if (note)
        _phone.setPagePath(note->pages);
    noteState();
}

void Reloader::noteState() const
{
    setCrashNote(textFromCrashNote({ .options = _phone.options(),
        .pages = _phone.pagePath(),
        .geometry = _window ? _window->saveGeometry() : QByteArray(),
        .folderState = _state }));
}

void Reloader::watch(QWidget& window)
{
    _window = &window;
    window.installEventFilter(this);
}

bool Reloader::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        object->removeEventFilter(this);
        QTimer::singleShot(0, _window, [this] { begin(); });
    }
    return QObject::eventFilter(object, event);
}

void Reloader::begin()
{
    setAfterCrash(AfterCrash::StartAgain);
    _watcher = std::make_unique<BundleWatcher>(_phone.bundleFolder(), _state, [this] { reload(); });
    auto* const again = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_R), _window);
    connect(again, &QShortcut::activated, this, [this] { reload(); });
}

void Reloader::reload()
{
    _state = stateOfFolder(_phone.bundleFolder());
    if (_watcher)
        _watcher->take(_state);
    noteState();
    say(_phone.reloadBundle());
}

}
