#pragma once

#include "platform/InputObserver.h"

namespace host {

/// Is told of whatever a person does to a phone: what reaches its window, and what its host does on their
/// behalf. There is one at most; see `Phone::setObserver`.
class PhoneObserver : public platform::InputObserver {
public:
    // Each between `inputBegins` and `inputEnds`, before it takes effect.
    virtual void goingBack() = 0;
    virtual void endingEditing() = 0;
    virtual void makingPagesAnew() = 0;
    virtual void showingPageAgain() = 0;

    /// Layout and painting are finished.
    virtual void phoneSettled() = 0;
};

}
