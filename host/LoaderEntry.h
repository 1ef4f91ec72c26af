#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// An add-on's entry in the list of settings: which bundle to open, and under which title.
struct LoaderEntry {
    std::string bundlePath; ///< The device's.
    std::string label;
};

/// Reads /Library/PreferenceLoader/Preferences/NAME.plist and looks for its bundle at the path that it names,
/// else below /Library, else below /System/Library. Nothing when there is no such entry, or no such bundle.
std::optional<LoaderEntry> loaderEntryNamed(std::string_view name);

}
