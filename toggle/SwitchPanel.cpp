#include "SwitchPanel.h"

#include "host/InstalledFile.h"

#include "platform/Device.h"
#include "platform/Journal.h"
#include "platform/NSMutableDictionary.h"

#include <stdexcept>

namespace toggle {

using namespace platform;

namespace {

constexpr std::string_view switchIdentifier = "net.morvane.vekorafs";
// Not among the preferences: the state is the framework's own, and no preference of the add-on.
constexpr std::string_view stateFolder = "private/var/mobile/Library/Flipswitch";
constexpr std::string_view stateFile = "private/var/mobile/Library/Flipswitch/net.morvane.vekorafs.plist";
constexpr std::string_view stateKey = "state";

const auto registration
    = registerClass<SwitchPanel>("FSSwitchPanel")
          .classMethod("sharedPanel", &SwitchPanel::sharedPanel)
          .method("setState:forSwitchIdentifier:", &SwitchPanel::setStateForSwitchIdentifier)
          .method("stateForSwitchIdentifier:", &SwitchPanel::stateForSwitchIdentifier);

std::string propertyListOf(bool state)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n\t<key>"
        + std::string(stateKey) + "</key>\n\t" + (state ? "<true/>" : "<false/>") + "\n</dict>\n</plist>\n";
}

bool savedState()
{
    const auto saved = NSMutableDictionary::dictionaryWithContentsOfFile("/" + std::string(stateFile));
    const auto* state = saved ? saved->objectForKey(stateKey) : nullptr;
    return state && state->boolValue();
}

}

SwitchPanel* SwitchPanel::sharedPanel()
{
    static SwitchPanel panel;
    return &panel;
}

void SwitchPanel::setStateForSwitchIdentifier(long state, std::string identifier)
{
    if (identifier != switchIdentifier)
        return;
    const auto isOn = state != static_cast<long>(FSSwitchState::Off);
    Journal::shared().record(
        { .kind = JournalEntry::Kind::Toggle, .name = identifier, .state = isOn ? 1 : 0 });
    try {
        // Not as the pane's own files are written: what the framework keeps is no news to anybody.
        host::makeFolder(Device::current().root, stateFolder);
        host::writeFile(propertyListOf(isOn), Device::current().root, stateFile);
        _unsaved.reset();
    } catch (const std::runtime_error&) {
        _unsaved = isOn;
    }
}

long SwitchPanel::stateForSwitchIdentifier(std::string identifier)
{
    if (identifier != switchIdentifier)
        return static_cast<long>(FSSwitchState::Off);
    return static_cast<long>(_unsaved.value_or(savedState()) ? FSSwitchState::On : FSSwitchState::Off);
}

}
