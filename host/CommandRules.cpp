#include "CommandRules.h"

#include "OptionRules.h"

#include <algorithm>

namespace host {

namespace {

using Mode = Options::Mode;
using Operand = CommandRule::Operand;

std::string takeScript(Options& options, const std::string& word)
{
    options.script = word;
    return {};
}

std::string takeBundle(Options& options, const std::string& word)
{
    options.bundleAsGiven = word;
    return word.empty() ? "lint takes a bundle's folder, not an empty word." : "";
}

std::string takeSheet(Options& options, const std::string& word)
{
    options.sheet.file = word;
    return word.empty() ? "sheet takes a file, not an empty word." : "";
}

std::string takeTopic(Options& options, const std::string& word)
{
    options.topic = word;
    return commandNamed(word) && !word.empty() ? ""
                                               : "There is no command \"" + word + "\"; --help lists them.";
}

constexpr CommandRule rules[] = {
    { "", Mode::Window, OptionRule::InWindow, "open the window" },
    { "drive", Mode::Drive, OptionRule::InDrive, "let a script drive the pane, without a display",
        "[SCRIPT|-]", "script", Operand::Allowed, takeScript },
    { "gallery", Mode::Gallery, OptionRule::InWindow, "show every picker and gradient view in the window" },
    { "help", Mode::Help, OptionRule::InHelp, "print help, or all about one command", "[COMMAND]", "command",
        Operand::Allowed, takeTopic },
    { "lint", Mode::Lint, OptionRule::InLint, "check a bundle: its Info.plist, rows, classes and images",
        "BUNDLE", "bundle", Operand::Needed, takeBundle },
    { "observe", Mode::Observe, OptionRule::InObserve, "print each change of the preferences" },
    { "sheet", Mode::Sheet, OptionRule::InSheet, "render every page on many phones into one HTML file",
        "OUT.html", "file", Operand::Needed, takeSheet },
};

constexpr UsageExample examples[] = {
    { "", "--size 320x568 --locale de_DE", "a small phone that speaks German" },
    { "", "--bundle Hello.bundle", "a pane of your own" },
    { "drive", "drive --root /tmp/phone script.txt", "what a script taps and types" },
    { "lint", "lint Hello.bundle", "what is wrong with a bundle, row by row" },
    { "sheet", "sheet new.html --against old.html", "every page on many phones, and what changed" },
    { "observe", "observe", "beside a window: what is stored and told" },
};

}

std::span<const CommandRule> commandRules()
{
    return rules;
}

const CommandRule* commandNamed(std::string_view name)
{
    const auto* found = std::find_if(
        std::begin(rules), std::end(rules), [&](const CommandRule& rule) { return rule.name == name; });
    return found == std::end(rules) ? nullptr : found;
}

std::span<const UsageExample> usageExamples()
{
    return examples;
}

}
