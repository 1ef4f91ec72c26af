#include "Options.h"

#include "driver/ScriptParser.h"
#include "Instant.h"
#include "platform/qt/Region.h"

#include <cstdlib>
#include <filesystem>

namespace host {

namespace {

using Mode = Options::Mode;

/// Points in a side of the window; more is taken for a slip of the finger.
constexpr long largestSide = 4096;

enum Where : unsigned { InWindow = 1, InDrive = 2, InObserve = 4, Everywhere = 7, WithPhone = 3 };

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

/// Each takes an option's value and answers with what is wrong with it, or with nothing.
using Taker = std::string (*)(Options&, const std::string& value);

std::string takeRoot(Options& options, const std::string& value)
{
    if (value.empty())
        return "--root takes a folder, not an empty word.";
    options.phone.root = std::filesystem::absolute(value).lexically_normal().string();
    return {};
}

std::string takeSize(Options& options, const std::string& value)
{
    const auto cross = value.find('x');
    long width = 0;
    long height = 0;
    if (cross == std::string::npos || !readCount(value.substr(0, cross), width)
        || !readCount(value.substr(cross + 1), height) || width < 1 || height < 1 || width > largestSide
        || height > largestSide)
        return "--size takes WIDTHxHEIGHT in whole points from 1 to " + std::to_string(largestSide)
            + ", as 375x667, not " + quoted(value) + ".";
    options.phone.size = { static_cast<double>(width), static_cast<double>(height) };
    return {};
}

std::string takeScale(Options& options, const std::string& value)
{
    if (value != "1" && value != "2" && value != "3")
        return "--scale takes 1, 2 or 3, not " + quoted(value) + ".";
    options.phone.scale = value[0] - '0';
    return {};
}

std::string takeLocale(Options& options, const std::string& value)
{
    options.phone.locale = platform::canonicalLocale(value);
    return options.phone.locale.empty()
        ? "--locale takes a known locale, as en_US or de_DE, not " + quoted(value) + "."
        : "";
}

std::string takeTimeZone(Options& options, const std::string& value)
{
    options.phone.timeZone = value;
    return platform::isKnownTimeZone(value)
        ? ""
        : "--timezone takes a known time zone, as Europe/Berlin or UTC, not " + quoted(value) + ".";
}

std::string takeNow(Options& options, const std::string& value)
{
    options.phone.now = value;
    // Whether it is an instant does not depend on the zone, which may be named later.
    return instantFromText(value, "UTC")
        ? ""
        : "--now takes an instant in ISO 8601, as 2014-01-05T10:17:42.6+01:00, not " + quoted(value) + ".";
}

std::string takeBundle(Options& options, const std::string& value)
{
    if (value.empty())
        return "--bundle takes a bundle's folder, not an empty word.";
    options.phone.bundle = std::filesystem::absolute(value).lexically_normal().string();
    return {};
}

std::string takeToggle(Options& options, const std::string&)
{
    options.phone.toggle = true;
    return {};
}

std::string takeStatusBar(Options& options, const std::string&)
{
    options.phone.statusBar = true;
    return {};
}

std::string takeKeepGoing(Options& options, const std::string&)
{
    options.keepGoing = true;
    return {};
}

std::string takeHelp(Options& options, const std::string&)
{
    options.mode = Mode::Help;
    return {};
}

std::string takeVersion(Options& options, const std::string&)
{
    options.mode = Mode::Version;
    return {};
}

struct Rule {
    std::string_view name;
    std::string_view value; ///< How the help calls it; empty for an option without one.
    unsigned where;
    Taker take;
    std::string_view help;
};

constexpr Rule rules[] = {
    { "--root", "DIR", Everywhere, takeRoot, "the folder that stands for the device's file system" },
    { "--size", "WxH", WithPhone, takeSize, "the window in points (375x667)" },
    { "--scale", "N", WithPhone, takeScale, "pixels a point: 1, 2 or 3 (2)" },
    { "--locale", "NAME", WithPhone, takeLocale, "as en_US or ar_EG (the environment's)" },
    { "--timezone", "NAME", Everywhere, takeTimeZone, "as Europe/Berlin (the system's)" },
    { "--now", "TIME", WithPhone, takeNow, "the clock stands still at this instant, ISO 8601" },
    { "--toggle", "", WithPhone, takeToggle, "with the stand-in companion toggle" },
    { "--statusbar", "", WithPhone, takeStatusBar, "with the status-bar library's file" },
    { "--bundle", "DIR", WithPhone, takeBundle, "another bundle's folder" },
    { "--keep-going", "", InDrive, takeKeepGoing, "go on after a command that failed" },
    { "--help", "", Everywhere, takeHelp, "print this" },
    { "--version", "", Everywhere, takeVersion, "print the version" },
};

struct SubCommand {
    std::string_view name;
    Mode mode;
};

constexpr SubCommand subCommands[] = {
    { "drive", Mode::Drive },
    { "observe", Mode::Observe },
};

bool isSubCommand(std::string_view word)
{
    for (const auto& command : subCommands) {
        if (command.name == word)
            return true;
    }
    return false;
}

unsigned placeOf(Mode mode)
{
    return mode == Mode::Drive ? InDrive : mode == Mode::Observe ? InObserve : InWindow;
}

std::string nameOf(Mode mode)
{
    for (const auto& command : subCommands) {
        if (command.mode == mode)
            return std::string(command.name);
    }
    return "the window";
}

const Rule* ruleNamed(std::string_view name)
{
    for (const auto& rule : rules) {
        if (rule.name == name)
            return &rule;
    }
    return nullptr;
}

class Parser {
public:
    explicit Parser(std::span<const std::string> words)
        : _words(words)
    {
    }

    std::variant<Options, std::string> parse()
    {
        takeSubCommand();
        bool optionsMayFollow = true;
        while (_place < _words.size() && _error.empty()) {
            const auto& word = _words[_place++];
            if (optionsMayFollow && word == "--")
                optionsMayFollow = false;
            else if (optionsMayFollow && word.size() > 1 && word[0] == '-')
                takeOption(word);
            else
                takeScript(word);
        }
        if (_error.empty() && _options.mode == _command)
            fillIn();
        if (!_error.empty())
            return _error;
        return _options;
    }

private:
    void takeSubCommand()
    {
        for (const auto& command : subCommands) {
            if (!_words.empty() && _words[0] == command.name) {
                _options.mode = command.mode;
                _place = 1;
            }
        }
        _command = _options.mode;
    }

    void takeOption(const std::string& word)
    {
        const auto equals = word.find('=');
        const auto name = word.substr(0, equals);
        const Rule* rule = ruleNamed(name);
        if (!rule) {
            _error = "There is no option " + quoted(name) + "; --help lists them.";
        } else if (!(rule->where & placeOf(_command))) {
            _error = name + " is no option of " + nameOf(_command) + ".";
        } else if (rule->value.empty()) {
            _error = equals == std::string::npos ? rule->take(_options, {}) : name + " takes no value.";
        } else if (equals != std::string::npos) {
            _error = rule->take(_options, word.substr(equals + 1));
        } else if (_place < _words.size()) {
            _error = rule->take(_options, _words[_place++]);
        } else {
            _error = name + " needs a value.";
        }
    }

    void takeScript(const std::string& word)
    {
        if (_command == Mode::Window && isSubCommand(word))
            _error = word + " must be the first word.";
        else if (_command == Mode::Window)
            _error = "There is no command " + quoted(word) + "; --help lists them.";
        else if (_command == Mode::Observe)
            _error = "observe takes no further word than its options, but there is " + quoted(word) + ".";
        else if (_hasScript)
            _error = "drive takes one script, but there is " + quoted(word) + " too.";
        else
            _options.script = word;
        _hasScript = true;
    }

    void fillIn()
    {
        auto& phone = _options.phone;
        if (phone.timeZone.empty())
            phone.timeZone = platform::systemTimeZone();
        if (phone.locale.empty() && _command != Mode::Observe)
            phone.locale = platform::environmentLocale();
        if (phone.root.empty())
            fillInRoot();
    }

    void fillInRoot()
    {
        const char* data = std::getenv("XDG_DATA_HOME");
        const char* home = std::getenv("HOME");
        if (data && data[0] == '/')
            _options.phone.root = std::string(data) + "/vekora";
        else if (home && home[0] == '/')
            _options.phone.root = std::string(home) + "/.local/share/vekora";
        else
            _error = "There is no home folder to keep the device's files in; name a folder with --root.";
    }

    std::span<const std::string> _words;
    std::size_t _place = 0;
    Mode _command = Mode::Window;
    bool _hasScript = false;
    Options _options;
    std::string _error;
};

}

std::variant<Options, std::string> parseOptions(std::span<const std::string> words)
{
    return Parser(words).parse();
}

std::string helpText()
{
    std::string text = "vekora [options]                    open the window\n"
                       "vekora drive [options] [SCRIPT|-]   let a script drive the pane (docs/driver.md)\n"
                       "vekora observe [options]            print each change of the preferences\n"
                       "\n";
    constexpr std::size_t column = 20;
    for (const auto& rule : rules) {
        auto line = "  " + std::string(rule.name) + (rule.value.empty() ? "" : " ") + std::string(rule.value);
        line.resize(std::max(line.size() + 1, column), ' ');
        text += line + std::string(rule.help) + '\n';
    }
    return text;
}

}
