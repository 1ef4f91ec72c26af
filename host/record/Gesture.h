#pragma once

#include "Actor.h"
#include "platform/Journal.h"
#include "platform/UIEvent.h"
#include "platform/UIScrollView.h"
#include "TextChange.h"

#include <memory>
#include <string>
#include <vector>

namespace host {

/// One touch from its beginning to its end, and how a script says it: by name where a tap by that name does
/// the same, else step by step.
class Gesture {
public:
    /// Each before the step is delivered, on a phone that is settled.
    Gesture(Phone&, const platform::UITouch&);
    void goesOn(const platform::UITouch&);
    /// When it was.
    void wentOn();

    /// While a step is being delivered.
    void sets(const platform::JournalEntry&);
    /// Of the views, which go.
    void letGo();
    /// Something else was written among the steps, so they cannot be summed up.
    void interrupt() { _interrupted = true; }
    bool wasInterrupted() const { return _interrupted; }

    bool isOver() const { return _over; }
    /// It only scrolls: where to is said instead of the steps.
    bool isScrolling() const { return _scrolling; }
    /// The scroller that takes it; null when something else may.
    const std::shared_ptr<platform::UIScrollView>& panned() const { return _panned; }

    /// As lines: every step so far, and the last alone.
    const std::string& steps() const { return _steps; }
    const std::string& lastStep() const { return _lastStep; }
    /// What the whole of it comes to, once it is over: lines, or nothing for what had no effect.
    std::string summary() const;

private:
    bool straysNowhere() const;
    bool isTap() const;
    std::string asDrag() const;

    Phone& _phone;
    Actor _actor;
    std::string _name; ///< The command by name; empty without one.
    std::shared_ptr<platform::UIView> _keptAlive;
    std::shared_ptr<platform::UIScrollView> _panned;
    bool _glided = false; ///< The content was gliding when it was touched.
    bool _isSecond = false; ///< Of a double tap on a field.
    bool _switchWasOn = false;
    bool _wasFirstResponder = false;
    FieldState _fieldAfterPress;

    platform::CGPoint _start;
    std::vector<platform::CGPoint> _moves;
    platform::CGPoint _end;
    std::string _steps;
    std::string _lastStep;
    platform::UITouchPhase _phase = platform::UITouchPhase::Began;
    bool _endedInside = true;
    bool _movesAct = false;
    bool _interrupted = false;
    bool _scrolling = false;
    bool _over = false;
};

}
