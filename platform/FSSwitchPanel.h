#pragma once

#include "Runtime.h"

namespace platform {

enum class FSSwitchState { Indeterminate = -1, Off = 0, On = 1 };

/// The panel of an outside toggle framework, which may or may not be there. A plug-in registers a class of
/// this name, derived from this one; look it up with `NSClassFromString("FSSwitchPanel")` and send it
/// "sharedPanel".
class FSSwitchPanel : public NSObject {
public:
    /// One-way: nothing comes back, and an unknown identifier is ignored.
    virtual void setStateForSwitchIdentifier(long state, std::string identifier) = 0;
    virtual long stateForSwitchIdentifier(std::string identifier) = 0;
};

}
