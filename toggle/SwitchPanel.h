#pragma once

#include "platform/FSSwitchPanel.h"

#include <optional>

namespace toggle {

/// A stand-in for the toggle framework, with the add-on's one switch. What the switch is set to is kept in a
/// file of the device, so that it outlives the process and every process on the device sees it.
class SwitchPanel final : public platform::FSSwitchPanel {
public:
    static SwitchPanel* sharedPanel();

    /// As the framework sends a state on, it is a yes or no: any state but off arrives as on.
    void setStateForSwitchIdentifier(long state, std::string identifier) override;
    /// Off for a switch that there is not.
    long stateForSwitchIdentifier(std::string identifier) override;

private:
    /// The last state, when the file could not be written.
    std::optional<bool> _unsaved;
};

}
