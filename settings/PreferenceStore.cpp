#include "PreferenceStore.h"

#include "platform/CFNotificationCenter.h"
#include "platform/NSFileManager.h"

namespace vekora {

using namespace platform;

namespace {

constexpr std::string_view changeNotification = "net.morvane.vekora/preferences";
constexpr std::string_view toggleLibrary = "/Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";
constexpr std::string_view toggleSwitch = "/Library/Switches/VekoraFS.bundle/VekoraFS";
constexpr std::string_view switchIdentifier = "net.morvane.vekorafs";

}

std::optional<NSMutableDictionary> mainPreferences;
std::optional<NSMutableDictionary> colorPagePreferences;
Ref<PSSpecifier> statusSpecifier;

NSMutableDictionary loadPreferences()
{
    return NSMutableDictionary::dictionaryWithContentsOfFile(preferencesPath)
        .value_or(NSMutableDictionary {});
}

void writePreferences(const NSMutableDictionary& preferences)
{
    static_cast<void>(preferences.writeToFileAtomically(preferencesPath, true));
}

void seedOnFirstRun(NSMutableDictionary& preferences)
{
    if (preferences.objectForKey("buttonColor"))
        return;
    preferences.setObjectForKey("#FF0000", "buttonColor");
    preferences.setObjectForKey("Vekora", "buttonText");
    preferences.setObjectForKey(true, "preferColorPicker");
    preferences.setObjectForKey(0, "colorPickerType");
    writePreferences(preferences);
}

void postPreferencesChanged()
{
    CFNotificationCenterPostNotification(
        CFNotificationCenterGetDarwinNotifyCenter(), changeNotification, nullptr, nullptr, true);
}

bool companionToggleIsPresent()
{
    const auto& files = NSFileManager::defaultManager();
    return files.fileExistsAtPath(toggleLibrary) && files.fileExistsAtPath(toggleSwitch);
}

void setCompanionToggle(FSSwitchState state)
{
    const auto* panelClass = NSClassFromString("FSSwitchPanel");
    if (!panelClass)
        return;
    const auto sharedPanel = panelClass->performSelector("sharedPanel");
    if (auto* const* panel = std::get_if<NSObject*>(&sharedPanel); panel && *panel) {
        (*panel)->performSelector("setState:forSwitchIdentifier:",
            { PropertyValue(static_cast<int>(state)), PropertyValue(switchIdentifier) });
    }
}

void handOverToToggleOrPost(FSSwitchState state)
{
    if (companionToggleIsPresent())
        setCompanionToggle(state);
    else
        postPreferencesChanged();
}

}
