#include "host/CommandRules.h"
#include "host/OptionRules.h"
#include "Manual.h"

#include <algorithm>

namespace host {

namespace {

/// What a shell may offer for a value or a word.
enum class Offer { Nothing, Folders, Files, Commands, Words };

struct WordsOfValue {
    std::string_view option;
    std::string_view words;
};

/// Values of which there are few, or some that are usual.
constexpr WordsOfValue usualWords[] = {
    { "--direction", "locale ltr rtl" },
    { "--locale", "ar_EG de_DE en_GB en_US fr_FR ja_JP" },
    { "--scale", "1 2 3" },
    { "--size", "320x568 375x667 414x736" },
};

std::string_view wordsOf(std::string_view option)
{
    const auto* found = std::find_if(std::begin(usualWords), std::end(usualWords),
        [&](const auto& usual) { return usual.option == option; });
    return found == std::end(usualWords) ? std::string_view() : found->words;
}

/// By how help calls it.
Offer offerFor(std::string_view value)
{
    if (value.empty())
        return Offer::Nothing;
    if (value == "[COMMAND]")
        return Offer::Commands;
    if (value.find("DIR") != std::string_view::npos || value.find("BUNDLE") != std::string_view::npos)
        return Offer::Folders;
    const bool isFile = value.find("FILE") != std::string_view::npos
        || value.find("SCRIPT") != std::string_view::npos || value.find("HTML") != std::string_view::npos
        || value.find("html") != std::string_view::npos;
    return isFile ? Offer::Files : Offer::Nothing;
}

Offer offerFor(const OptionRule& rule)
{
    return wordsOf(rule.name).empty() ? offerFor(rule.value) : Offer::Words;
}

std::string commandNames()
{
    std::string names;
    for (const auto& command : commandRules())
        names += (names.empty() || command.name.empty() ? "" : " ") + std::string(command.name);
    return names;
}

std::string optionsAt(unsigned place)
{
    std::string names;
    for (const auto& rule : optionRules()) {
        if (rule.where & place)
            names += (names.empty() ? "" : " ") + std::string(rule.name);
    }
    return names;
}

/// Inside single quotes, where each shell has its own way to write one.
std::string quotedFor(std::string_view text, std::string_view quote)
{
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string(quote) : std::string(1, c);
    return result + '\'';
}

std::string bashReply(Offer offer, std::string_view words)
{
    switch (offer) {
    case Offer::Folders:
        return "compgen -d -- \"$word\"";
    case Offer::Files:
        return "compgen -f -- \"$word\"";
    case Offer::Commands:
        return "compgen -W '" + commandNames() + "' -- \"$word\"";
    case Offer::Words:
        return "compgen -W '" + std::string(words) + "' -- \"$word\"";
    case Offer::Nothing:
        break;
    }
    return ":";
}

}

std::string bashCompletion()
{
    std::string values, operands, options;
    for (const auto& rule : optionRules()) {
        if (!rule.value.empty())
            values += "        " + std::string(rule.name) + ") replies=$("
                + bashReply(offerFor(rule), wordsOf(rule.name)) + ") ;;\n";
    }
    for (const auto& command : commandRules()) {
        const auto name = command.name.empty() ? "''" : std::string(command.name);
        options += "            " + name + ") replies=$(compgen -W '" + optionsAt(command.place)
            + "' -- \"$word\") ;;\n";
        if (!command.name.empty() && !command.operand.empty())
            operands += "            " + name + ") replies=$(" + bashReply(offerFor(command.operand), {})
                + ") ;;\n";
    }
    return "# Completion of vekora-host for bash. Made from the program's own tables of commands and "
           "options.\n"
           "_vekora_host()\n"
           "{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command='' "
           "replies=''\n"
           "    # A value after \"=\", which bash makes a word of its own.\n"
           "    if [[ $word == = ]]; then\n"
           "        word=''\n"
           "    elif [[ $before == = ]]; then\n"
           "        before=${COMP_WORDS[COMP_CWORD-2]}\n"
           "    fi\n"
           "    case ${COMP_WORDS[1]} in\n"
           "        "
        +
        [] {
            auto names = commandNames();
            for (std::size_t place = 0; (place = names.find(' ', place)) != std::string::npos;)
                names.replace(place, 1, "|");
            return names;
        }()
        + ") [[ $COMP_CWORD -gt 1 ]] && command=${COMP_WORDS[1]} ;;\n"
          "    esac\n"
          "    case $before in\n"
        + values
        + "        *)\n"
          "        if [[ $word == -* ]]; then\n"
          "            case $command in\n"
        + options
        + "            esac\n"
          "        elif [[ $COMP_CWORD -eq 1 ]]; then\n"
          "            replies=$(compgen -W '"
        + commandNames()
        + "' -- \"$word\")\n"
          "        else\n"
          "            case $command in\n"
        + operands
        + "            esac\n"
          "        fi ;;\n"
          "    esac\n"
          "    mapfile -t COMPREPLY < <([[ -n $replies ]] && printf '%s\\n' \"$replies\")\n"
          "}\n"
          "complete -o filenames -F _vekora_host vekora-host\n";
}

std::string zshCompletion()
{
    const auto action = [](Offer offer, std::string_view words) -> std::string {
        switch (offer) {
        case Offer::Folders:
            return "_files -/";
        case Offer::Files:
            return "_files";
        case Offer::Commands:
            return "(" + commandNames() + ")";
        case Offer::Words:
            return "(" + std::string(words) + ")";
        case Offer::Nothing:
            break;
        }
        return " ";
    };
    // A colon or a bracket would end the explanation.
    const auto plain = [](std::string_view text) {
        std::string result;
        for (const char c : text)
            result
                += c == ':' || c == '[' || c == ']' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        return result;
    };
    std::string text
        = "#compdef vekora-host\n"
          "# Completion of vekora-host for zsh. Made from the program's own tables of commands and options.\n"
          "local -a commands=(\n";
    for (const auto& command : commandRules()) {
        if (!command.name.empty())
            text += "    " + quotedFor(std::string(command.name) + ':' + plain(command.help), "'\\''") + '\n';
    }
    text += ")\nif (( CURRENT == 2 )) && [[ $words[2] != -* ]]; then\n"
            "    _describe command commands\n    return\nfi\ncase $words[2] in\n";
    const auto arguments = [&](const CommandRule& command) {
        std::string lines = "    _arguments";
        for (const auto& rule : optionRules()) {
            if (!(rule.where & command.place))
                continue;
            auto line
                = std::string(rule.name) + (rule.value.empty() ? "" : "=") + '[' + plain(rule.help) + ']';
            if (!rule.value.empty())
                line += ':' + plain(rule.value) + ':' + action(offerFor(rule), wordsOf(rule.name));
            lines += " \\\n        " + quotedFor(line, "'\\''");
        }
        if (!command.operand.empty())
            lines += " \\\n        "
                + quotedFor(
                    "1:" + std::string(command.operandName) + ':' + action(offerFor(command.operand), {}),
                    "'\\''");
        return lines + " ;;\n";
    };
    for (const auto& command : commandRules()) {
        if (!command.name.empty())
            text += std::string(command.name) + ")\n    (( CURRENT-- )); shift words\n" + arguments(command);
    }
    return text + "*)\n" + arguments(*commandNamed({})) + "esac\n";
}

std::string fishCompletion()
{
    const auto quoted = [](std::string_view text) { return quotedFor(text, "\\'"); };
    const auto words = [&](Offer offer, std::string_view usual) -> std::string {
        switch (offer) {
        case Offer::Folders:
            return " -xa '(__fish_complete_directories)'";
        case Offer::Files:
            return " -rF";
        case Offer::Commands:
            return " -xa " + quoted(commandNames());
        case Offer::Words:
            return " -xa " + quoted(usual);
        case Offer::Nothing:
            break;
        }
        return " -x";
    };
    std::string text = "# Completion of vekora-host for fish. Made from the program's own tables of commands "
                       "and options.\n"
                       "complete -c vekora-host -f\n";
    for (const auto& command : commandRules()) {
        const auto name = std::string(command.name);
        const auto when = name.empty() ? "not __fish_seen_subcommand_from " + commandNames()
                                       : "__fish_seen_subcommand_from " + name;
        if (!name.empty())
            text += "complete -c vekora-host -n '__fish_is_nth_token 1' -a " + name + " -d "
                + quoted(command.help) + '\n';
        for (const auto& rule : optionRules()) {
            if (rule.where & command.place)
                text += "complete -c vekora-host -n " + quoted(when) + " -l "
                    + std::string(rule.name.substr(2))
                    + (rule.value.empty() ? std::string() : words(offerFor(rule), wordsOf(rule.name)))
                    + " -d " + quoted(rule.help) + '\n';
        }
        if (!command.operand.empty())
            text
                += "complete -c vekora-host -n " + quoted(when) + words(offerFor(command.operand), {}) + '\n';
    }
    return text;
}

}
