#include "CommandRules.h"
#include "OptionRules.h"

namespace host {

namespace {

constexpr std::size_t column = 24; // Where explanations begin.

void addLine(std::string& text, std::string what, std::string_view help)
{
    what.insert(0, "  ");
    what.resize(std::max(what.size() + 1, column), ' ');
    text += what + std::string(help) + '\n';
}

std::string withWord(std::string_view name, std::string_view word)
{
    return std::string(name) + (word.empty() ? "" : " ") + std::string(word);
}

void addOptions(std::string& text, unsigned places)
{
    text += "\nOptions\n";
    for (const auto& rule : optionRules()) {
        if (rule.where & places)
            addLine(text, withWord(rule.name, rule.value), rule.help);
    }
}

void addExamples(std::string& text, const CommandRule* only)
{
    std::string lines;
    for (const auto& example : usageExamples()) {
        if (!only || example.command == only->name)
            lines += "  vekora-host " + std::string(example.line) + "\n      " + std::string(example.help)
                + '\n';
    }
    if (!lines.empty())
        text += "\nExamples\n" + lines;
}

}

std::string helpText(std::string_view topic)
{
    const auto* const only = topic.empty() ? nullptr : commandNamed(topic);
    std::string text = "Usage: vekora-host ";
    if (only) {
        text += withWord(only->name, "[OPTION]...") + ' ' + std::string(only->operand);
        text.erase(text.find_last_not_of(' ') + 1);
        text += "\n\nWhat it does: " + std::string(only->help) + ".\n";
    } else {
        text += "[COMMAND] [OPTION]...\n\nShows panes of settings on the desktop as the phone "
                "does.\n\nCommands\n";
        for (const auto& rule : commandRules())
            addLine(text, rule.name.empty() ? "(none)" : withWord(rule.name, rule.operand), rule.help);
    }
    addOptions(text, only ? only->place : OptionRule::Everywhere);
    addExamples(text, only);
    return text;
}

}
