#pragma once

#include "Options.h"

#include <string_view>

namespace host {

/// One command of the command line: the word that asks for it, what follows it, and what help says of it.
struct CommandRule {
    std::string_view name; ///< Empty for the window, which no word asks for.
    Options::Mode mode;
    unsigned place; ///< Its bit of `OptionRule::where`.
    std::string_view help;

    /// The one word that may follow, apart from options: how help and sentences call it. Empty for none.
    std::string_view operand = {};
    std::string_view operandName = {};
    enum class Operand { None, Allowed, Needed } takes = Operand::None;
    /// Takes the word, and answers with one sentence that says what is wrong with it, or with nothing.
    std::string (*take)(Options&, const std::string& word) = nullptr;
};

std::span<const CommandRule> commandRules();

/// Null when there is none; the empty name is the window's.
const CommandRule* commandNamed(std::string_view name);

/// A line to try, and what it does.
struct UsageExample {
    std::string_view command; ///< The command's name that it is an example of.
    std::string_view line;
    std::string_view help;
};

std::span<const UsageExample> usageExamples();

}
