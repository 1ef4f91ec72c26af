#include "Recorder.h"

#include "host/driver/Digest.h"
#include "host/driver/ViewSearch.h"
#include "host/EnvironmentRules.h"
#include "host/Faults.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "ScriptText.h"

namespace host {

using namespace platform;

namespace {

constexpr std::size_t longestTyped = 1000; // Bytes of one line.

}

Recorder::Recorder(Phone& phone, RecordFile& file)
    : _phone(phone)
    , _file(file)
    , _watch(phone)
{
    _phone.settle();
    static_cast<void>(_watch.look());
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (_gesture)
            _gesture->sets(entry);
    });
    if (phone.showsError())
        writeOfErrorPage();
    _environment = environmentInWords(phone);
    _whenPagesGo = phone.whenPagesGo([this] {
        _watch.forget();
        if (_gesture)
            _gesture->letGo();
    });
    _environmentListener = phone.listenToEnvironment([this] { writeEnvironment(); });
    Faults::current().setListener(
        [this](const FaultWord& fault) { write("fault " + std::string(fault.word) + '\n'); });
    _phone.setObserver(this);
}

Recorder::~Recorder()
{
    stop();
}

void Recorder::stop()
{
    _phone.setObserver(nullptr);
    Faults::current().setListener({});
    _phone.stopListening(_environmentListener);
    _phone.stopTellingWhenPagesGo(_whenPagesGo);
    Journal::shared().stop(_listener);
}

bool Recorder::finish()
{
    _phone.settle();
    stop();
    if (_phone.showsError())
        _file.append("# The window ended with an error page, which a replay does not come to.\n");
    const auto digest = digestOf(_phone.window());
    _file.append("# The window ended with preferences " + digest.preferences.value_or("none") + ",\n# tree "
        + digest.tree + ",\n# picture " + digest.picture + ".\ndigest\n");
    return _file.finish();
}

void Recorder::inputBegins()
{
    // As it lies before a command of the driver.
    if (_depth == 0) {
        _file.append(std::exchange(_releaseLater, {}));
        _phone.settle();
    }
    ++_depth;
}

void Recorder::inputEnds()
{
    if (_depth > 1) {
        --_depth;
        return;
    }
    const bool scrolledBefore = _gesture && _gesture->isScrolling();
    if (_gesture)
        _gesture->wentOn();
    if (_gesture && _gesture->isScrolling() && !scrolledBefore)
        _file.replaceFrom(_gestureBegin, "");
    _phone.settle();
    _depth = 0;
    if (!_gesture || !_gesture->isOver())
        return;
    const auto gesture = std::move(_gesture);
    if (!gesture->isScrolling() && !gesture->wasInterrupted())
        _file.replaceFrom(_gestureBegin, gesture->summary());
}

void Recorder::phoneSettled()
{
    for (const auto& change : _watch.look()) {
        // What an input leads to follows when it is replayed.
        const bool follows
            = _depth > 0 && !(_gesture && _gesture->isScrolling() && _gesture->panned() == change.scroller);
        if (follows)
            _scrolling = {};
        else
            writeScroll(change);
    }
}

void Recorder::touchArrives(const UITouch& touch)
{
    if (touch.phase() == UITouchPhase::Began) {
        _gesture = _phone.showsError() ? nullptr : std::make_unique<Gesture>(_phone, touch);
        _gestureBegin = _file.size();
    } else if (_gesture) {
        _gesture->goesOn(touch);
    }
    if (_gesture && touch.phase() == UITouchPhase::Cancelled) {
        const auto gesture = std::exchange(_gesture, nullptr);
        _releaseLater = gesture->isScrolling() ? std::string() : gesture->lastStep();
    } else if (_gesture && !_gesture->isScrolling())
        _file.append(_gesture->lastStep());
}

void Recorder::keyArrives(std::string_view name)
{
    writeForPage("key " + std::string(name) + '\n');
}

void Recorder::editingEnds()
{
    // In an alert the key would answer it.
    writeForPage(UIAlertView::topmost() ? "done\n" : "key Return\n");
}

void Recorder::textWillChange(UITextField& field)
{
    _fieldBefore = FieldState::of(field);
}

void Recorder::textChanged(UITextField& field)
{
    // What another input has an input method hand over follows when it is replayed.
    if (_depth > 1)
        return;
    const auto command = commandFor(_fieldBefore, FieldState::of(field), field.keyboardType());
    if (!command.line.empty())
        writeText(command, field);
}

void Recorder::write(std::string_view line)
{
    if (_gesture)
        _gesture->interrupt();
    _file.append(line);
}

void Recorder::writeText(const TextCommand& command, UITextField& field)
{
    const bool goesOn = isLast(_typing) && !command.typed.empty() && !_gesture && _typedInto == &field
        && _typedAt == rectInWindow(field) && _typed.size() + command.typed.size() <= longestTyped
        && _lengthBeforeTyping + QString::fromStdString(_typed + command.typed).size()
            <= UITextField::Editor::maximumLength;
    if (goesOn) {
        _typed += command.typed;
        _typing = replaceLast(_typing.begin, "type " + scriptWord(_typed) + '\n');
        return;
    }
    const auto begin = _file.size();
    write(command.line);
    if (command.typed.empty())
        return;
    _typing = { begin, _file.size() };
    _typed = command.typed;
    _lengthBeforeTyping = _fieldBefore.text.size();
    _typedInto = &field;
    _typedAt = rectInWindow(field);
}

void Recorder::writeScroll(const ScrollWatch::Change& change)
{
    if (_phone.showsError())
        return;
    const bool goesOn = isLast(_scrolling) && _scroller == change.scroller.get();
    if (!goesOn) {
        _scrolling = { _file.size(), _file.size() };
        _scroller = change.scroller.get();
        _scrolledFrom = change.from;
        if (_gesture && !_gesture->isScrolling())
            _gesture->interrupt();
    }
    const auto line = change.to.y == _scrolledFrom.y
        ? std::string()
        : scrollCommand(_phone, *change.scroller, _scrolledFrom, change.to);
    _scrolling = replaceLast(_scrolling.begin, line);
    // The views that were made on the way here are made again only by stopping here.
    if (change.madeViews)
        _scrolling = {};
}

Recorder::OpenLine Recorder::replaceLast(std::size_t begin, std::string_view text)
{
    _file.replaceFrom(begin, text);
    return { begin, _file.size() };
}

}
