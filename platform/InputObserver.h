#pragma once

#include <string_view>

namespace platform {

class UITextField;
class UITouch;

/// Is told of what reaches a window from outside (touches, keys, texts), before it takes effect and when it
/// has: for a host that records it. What one input sets off lies between its beginning and its end, further
/// inputs among it.
class InputObserver {
public:
    virtual ~InputObserver() = default;

    virtual void inputBegins() = 0;
    virtual void inputEnds() = 0;

    // Between the two:
    /// Is about to be delivered to its view.
    virtual void touchArrives(const UITouch&) = 0;
    /// "Return" or "Escape" answers the alert that is shown.
    virtual void keyArrives(std::string_view name) = 0;
    /// A key ends the editing of a text.
    virtual void editingEnds() = 0;
    /// Text, caret or selection of the field that is being edited are about to change, and have changed.
    /// Nobody else has been told yet.
    virtual void textWillChange(UITextField&) = 0;
    virtual void textChanged(UITextField&) = 0;
};

/// An input, as long as it lives. The observer may be null.
class InputSpan {
public:
    explicit InputSpan(InputObserver* observer)
        : _observer(observer)
    {
        if (_observer)
            _observer->inputBegins();
    }
    ~InputSpan()
    {
        if (_observer)
            _observer->inputEnds();
    }
    InputSpan(const InputSpan&) = delete;
    InputSpan& operator=(const InputSpan&) = delete;

    InputObserver* operator->() const { return _observer; }
    explicit operator bool() const { return _observer; }

private:
    InputObserver* _observer;
};

}
