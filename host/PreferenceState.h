#pragma once

#include "platform/PropertyValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// What a preference file holds at a moment.
struct PreferenceState {
    enum class Kind { Missing, Unreadable, Broken, Whole };

    Kind kind = Kind::Missing;
    platform::PropertyList entries {}; ///< Empty unless it is whole.
    std::string reason {}; ///< Of a file that is unreadable: what the system says.

    static PreferenceState ofFile(std::string_view devicePath);

    /// One sentence.
    std::string description() const;
    bool operator==(const PreferenceState&) const = default;
};

/// Changes one key of the file (nothing removes it) as the pane's pages do: the whole file is read anew, then
/// replaced as one step, and then `DOMAIN/preferences` is posted, DOMAIN being the file's name without its
/// extension. Empty when it succeeded; else one sentence, with the file as it was: a file that cannot be read
/// is never replaced.
std::string storePreference(
    std::string_view devicePath, const std::string& key, std::optional<platform::PropertyValue>);

/// Deletes the file and posts the same. Empty when there is no such file any more; else one sentence.
std::string deletePreferences(std::string_view devicePath);

}
