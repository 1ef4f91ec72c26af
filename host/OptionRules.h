#pragma once

#include "Options.h"

#include <string_view>

namespace host {

/// One option of the command line: where it counts, and what its value does.
struct OptionRule {
    enum Where : unsigned {
        InWindow = 1,
        InDrive = 2,
        InObserve = 4,
        InHelp = 8,
        InLint = 16,
        InSheet = 32,
        WithPhone = InWindow | InDrive,
        WithRoot = WithPhone | InObserve,
        Everywhere = ~0U,
    };

    std::string_view name;
    std::string_view value; ///< How the help calls it; empty for an option without one.
    unsigned where;
    /// Takes the value, and answers with one sentence that says what is wrong with it, or with nothing.
    std::string (*take)(Options&, const std::string& value);
    std::string_view help;
};

std::span<const OptionRule> optionRules();

}
