#pragma once

#include "platform/FSSwitchPanel.h"
#include "platform/NSMutableDictionary.h"
#include "platform/PSSpecifier.h"

#include <optional>
#include <string_view>

/// The add-on's preference file as the pages know it: where it lies, their copies of it, and who is told of a
/// change.
namespace vekora {

/// The file of this domain; the colour cell builds its own path to it from the name. Change both together.
inline constexpr std::string_view preferencesDomain = "net.morvane.vekora";
inline constexpr std::string_view preferencesPath
    = "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist";

/// The main page's copy; nothing until the first page is made. Replaced as a whole, never merged.
extern std::optional<platform::NSMutableDictionary> mainPreferences;
/// The colour page's copy, loaded when such a page is made and only read afterwards.
extern std::optional<platform::NSMutableDictionary> colorPagePreferences;
/// The main page's row that says until when alarms are suppressed. Outlives its page, so its target may be
/// gone.
extern platform::Ref<platform::PSSpecifier> statusSpecifier;

/// What the file holds now; empty when it is missing or cannot be read as a dictionary.
[[nodiscard]] platform::NSMutableDictionary loadPreferences();

/// Replaces the file as one step. Whether it could is not looked at, as nobody could help it.
void writePreferences(const platform::NSMutableDictionary&);

/// Gives a file that has no "buttonColor" its first values, and writes it, without telling anybody.
void seedOnFirstRun(platform::NSMutableDictionary&);

/// Tells the add-on's running parts that the file has changed.
void postPreferencesChanged();

/// Whether the files of the toggle framework and of the add-on's own switch are installed. The framework's
/// class may be missing from this process all the same.
[[nodiscard]] bool companionToggleIsPresent();

/// On means that alarms are being suppressed. Does nothing without the framework's class.
void setCompanionToggle(platform::FSSwitchState);

/// The toggle tells the add-on by itself, so a change goes either to it or to the notification.
void handOverToToggleOrPost(platform::FSSwitchState);

}
