#include "Gesture.h"

#include "platform/qt/TextEditor.h"
#include "platform/UISwitch.h"
#include "platform/UIWindow.h"
#include "ScriptText.h"

#include <algorithm>
#include <cmath>

namespace host {

using namespace platform;

namespace {

template <typename View> std::shared_ptr<View> keep(View* view)
{
    return view ? std::dynamic_pointer_cast<View>(view->weak_from_this().lock()) : nullptr;
}

bool isOn(const Actor& actor)
{
    const auto* toggle = dynamic_cast<const UISwitch*>(actor.view);
    return toggle && toggle->isOn();
}

bool isEnabled(const Actor& actor)
{
    const auto* control = dynamic_cast<const UIControl*>(actor.view);
    return !control || control->isEnabled();
}

/// An action with two arguments is handed the event, and may look where the finger is.
bool mayLookAtTheTouch(const UIView* view)
{
    const auto* control = dynamic_cast<const UIControl*>(view);
    const auto actions = control ? control->allActions() : std::vector<std::string> {};
    return std::any_of(actions.begin(), actions.end(),
        [](const auto& action) { return std::count(action.begin(), action.end(), ':') > 1; });
}

/// With the reach that a control has once it is touched.
bool isInReach(const UIView& view, CGPoint inWindow)
{
    return CGRectContainsPoint(CGRectInset(view.bounds(), -controlTrackingMargin, -controlTrackingMargin),
        view.convertPointFromView(inWindow, nullptr));
}

}

Gesture::Gesture(Phone& phone, const UITouch& touch)
    : _phone(phone)
    , _start(touch.locationInView(nullptr))
    , _end(_start)
{
    _actor = Actor::at(phone.window(), _start);
    _keptAlive = keep(_actor.view);
    _name = mayLookAtTheTouch(_actor.view) ? std::string() : nameOf(phone, _actor);
    _panned = keep(pannedBy(touch.view()));
    _glided = _panned && _panned->isDecelerating();
    _switchWasOn = isOn(_actor);
    if (auto* field = dynamic_cast<UITextField*>(touch.view())) {
        _wasFirstResponder = field->isFirstResponder();
        _isSecond = field->editor().continuesPress(touch.locationInView(field).x, touch.timestamp());
    }
    _lastStep = scriptLine(_isSecond ? "again" : "press", _start);
    _steps = _lastStep;
}

void Gesture::goesOn(const UITouch& touch)
{
    _phase = touch.phase();
    const auto point = touch.locationInView(nullptr);
    if (_phase == UITouchPhase::Moved) {
        _moves.push_back(point);
        _lastStep = scriptLine("move", point);
    } else {
        _over = true;
        _end = point;
        _endedInside = _actor.view && isInReach(*_actor.view, point);
        _lastStep = scriptLine("release", point);
        if (_actor.kind == Actor::Kind::Segment)
            _endedInside = Actor::at(_phone.window(), point) == _actor;
    }
    _steps += _lastStep;
}

void Gesture::wentOn()
{
    if (_phase == UITouchPhase::Began) {
        if (auto* field = dynamic_cast<UITextField*>(_actor.view))
            _fieldAfterPress = FieldState::of(*field);
    }
    if (_panned && !_interrupted && _panned->isDragging())
        _scrolling = true;
}

void Gesture::letGo()
{
    _actor = {};
    _keptAlive.reset();
    _panned.reset();
}

void Gesture::sets(const JournalEntry& entry)
{
    if (entry.kind != JournalEntry::Kind::Action)
        return;
    _movesAct = _movesAct || _phase == UITouchPhase::Moved;
}

bool Gesture::straysNowhere() const
{
    const auto isNear
        = [&](CGPoint point) { return std::hypot(point.x - _start.x, point.y - _start.y) <= panThreshold; };
    return isNear(_end) && std::all_of(_moves.begin(), _moves.end(), isNear);
}

/// Whether a tap on the actor, wherever it is tapped, does what was done.
bool Gesture::isTap() const
{
    if (_movesAct)
        return false;
    switch (_actor.kind) {
    case Actor::Kind::None:
        return false;
    case Actor::Kind::Row:
        return straysNowhere();
    case Actor::Kind::Button:
    case Actor::Kind::Segment:
        return _endedInside;
    case Actor::Kind::Switch:
        return _endedInside && (!isEnabled(_actor) || isOn(_actor) != _switchWasOn);
    case Actor::Kind::Field: {
        auto& field = static_cast<UITextField&>(*_actor.view);
        if (!field.isEnabled())
            return true;
        return _endedInside && !_wasFirstResponder && !_isSecond && field.isFirstResponder()
            && FieldState::of(field) == _fieldAfterPress;
    }
    }
    return false;
}

/// The same in one line, when the moves lie where a drag by command has them, to the bit.
std::string Gesture::asDrag() const
{
    if (_isSecond || _moves.empty() || _moves.back() != _end)
        return {};
    const auto steps = _moves.size();
    for (std::size_t step = 1; step < steps; ++step) {
        const double part = static_cast<double>(step) / static_cast<double>(steps);
        const CGPoint even { _start.x + (_end.x - _start.x) * part, _start.y + (_end.y - _start.y) * part };
        if (_moves[step - 1] != even)
            return {};
    }
    auto line = scriptLine("drag", _start);
    line.pop_back();
    return line + ' ' + scriptNumber(_end.x) + ' ' + scriptNumber(_end.y) + ' ' + std::to_string(steps)
        + '\n';
}

std::string Gesture::summary() const
{
    if (_scrolling)
        return {};
    // A finger that stops gliding content, or strays without scrolling, means nothing else by it.
    if (_panned && (_glided || !straysNowhere()))
        return {};
    if (!_name.empty() && isTap())
        return _name;
    if (_panned || (_moves.empty() && _end == _start && !_isSecond))
        return scriptLine("tap", _start);
    const auto drag = asDrag();
    return drag.empty() ? _steps : drag;
}

}
