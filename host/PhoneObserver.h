#pragma once

#include "platform/InputObserver.h"
#include "platform/PropertyValue.h"

#include <optional>
#include <string>

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
    /// Nothing removes the key.
    virtual void storingPreference(const std::string& key, const std::optional<platform::PropertyValue>&) = 0;
    virtual void deletingPreferences() = 0;
    virtual void loadingBundleAnew() = 0;
    /// With the reason when it could not be, and an error page is shown.
    virtual void loadedBundleAnew(const std::optional<std::string>& failure) = 0;

    /// Layout and painting are finished.
    virtual void phoneSettled() = 0;
};

}
