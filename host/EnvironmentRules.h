#pragma once

#include "Phone.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// One thing of a phone's environment, changed by a word while its pages are shown: for the script driver and
/// the inspector.
struct EnvironmentRule {
    std::string_view name; ///< As "timezone".
    std::string_view takes; ///< As "on or off", for a sentence; empty for what `phoneValues` says.
    /// As `change` reads it.
    std::string (*word)(const Phone&);
    /// False for a word that is none such; nothing has changed then. Throws std::runtime_error with one
    /// sentence when the change itself fails.
    bool (*change)(Phone&, const std::string& word);
};

/// toggle, statusbar, locale, timezone, now, size, scale and direction.
std::span<const EnvironmentRule> environmentRules();

/// What all of it is now, in the rules' order.
std::vector<std::string> environmentInWords(const Phone&);

/// Changes what is called `name`. Answers with nothing, or with one sentence that says why not; then nothing
/// has changed.
std::string changeEnvironment(Phone&, std::string_view name, const std::string& word);

}
