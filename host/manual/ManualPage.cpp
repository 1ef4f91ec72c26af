#include "host/CommandRules.h"
#include "host/OptionRules.h"
#include "Manual.h"

namespace host {

namespace {

/// As roff takes it literally: hyphens that stay hyphens, and no control lines.
std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else if (c == '\'')
            result += "\\(aq";
        else
            result += c;
    }
    return result.starts_with('.') ? "\\&" + result : result;
}

std::string bold(std::string_view text)
{
    return "\\fB" + escaped(text) + "\\fR";
}

std::string withValue(std::string_view name, std::string_view value)
{
    return bold(name) + (value.empty() ? "" : " \\fI" + escaped(value) + "\\fR");
}

/// A sentence: with a capital, and a full stop.
std::string sentence(std::string_view help)
{
    auto text = escaped(help);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text + ".\n";
}

/// The commands that take an option, unless all do that take any of their own.
std::string takers(const OptionRule& rule)
{
    if (rule.where == OptionRule::Everywhere)
        return {};
    std::string names;
    for (const auto& command : commandRules()) {
        if (rule.where & command.place)
            names += (names.empty() ? "" : ", ")
                + (command.name.empty() ? std::string("the window") : bold(command.name));
    }
    return "Taken by " + names + ".\n";
}

std::string commands()
{
    std::string text;
    for (const auto& rule : commandRules())
        text += ".TP\n" + (rule.name.empty() ? "(no command)" : withValue(rule.name, rule.operand)) + "\n"
            + sentence(rule.help);
    return text;
}

std::string options()
{
    std::string text;
    for (const auto& rule : optionRules())
        text += ".TP\n" + withValue(rule.name, rule.value) + "\n" + sentence(rule.help) + takers(rule);
    return text;
}

std::string examples()
{
    std::string text;
    for (const auto& example : usageExamples())
        text += ".TP\n" + bold("vekora-host " + std::string(example.line)) + "\n" + sentence(example.help);
    return text;
}

}

std::string manualPage()
{
    return ".TH VEKORA\\-HOST 1 \"\" \"vekora-host " VEKORA_VERSION "\" \"User Commands\"\n"
           ".SH NAME\n"
           "vekora\\-host \\- shows, drives and checks panes of settings on the desktop\n"
           ".SH SYNOPSIS\n"
           ".B vekora\\-host\n"
           "[\\fICOMMAND\\fR] [\\fIOPTION\\fR]...\n"
           ".SH DESCRIPTION\n"
           "A Settings application for the desktop that runs a phone's preference bundles: real ones, loaded "
           "at run\n"
           "time, with a real preference file, real change notifications on the session bus and real "
           "touches.\n"
           "Without a command it opens a window. The device's file system is a folder.\n"
           ".PP\n"
           "A value follows its option as the next word or after \\(lq=\\(rq. Of an option given twice the "
           "last counts.\n"
           ".SH COMMANDS\n"
        + commands() + ".SH OPTIONS\n" + options() + ".SH EXAMPLES\n" + examples()
        + ".SH EXIT STATUS\n"
          ".TP\n.B 0\nEverything went well.\n"
          ".TP\n.B 1\nA command of a script failed, or a check found something.\n"
          ".TP\n.B 2\nIt could not begin, or the bundle crashed below a script: one sentence on standard "
          "error "
          "says why.\n"
          ".SH FILES\n"
          ".TP\n.I ~/.local/share/vekora\n"
          "The device's file system unless\n.B \\-\\-root\nnames another folder; below\n.B $XDG_DATA_HOME\n"
          "where that is set.\n";
}

}
