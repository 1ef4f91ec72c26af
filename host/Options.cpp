#include "Options.h"

#include "OptionRules.h"
#include "platform/qt/Region.h"

#include <cstdlib>

namespace host {

namespace {

using Mode = Options::Mode;

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

struct SubCommand {
    std::string_view name;
    Mode mode;
};

constexpr SubCommand subCommands[] = {
    { "drive", Mode::Drive },
    { "gallery", Mode::Gallery },
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
    return mode == Mode::Drive  ? OptionRule::InDrive
        : mode == Mode::Observe ? OptionRule::InObserve
                                : OptionRule::InWindow;
}

std::string nameOf(Mode mode)
{
    for (const auto& command : subCommands) {
        if (command.mode == mode)
            return std::string(command.name);
    }
    return "the window";
}

const OptionRule* ruleNamed(std::string_view name)
{
    for (const auto& rule : optionRules()) {
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
        const OptionRule* rule = ruleNamed(name);
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
        const auto opensWindow = _command == Mode::Window || _command == Mode::Gallery;
        if (opensWindow && isSubCommand(word))
            _error = word + " must be the first word.";
        else if (opensWindow)
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
                       "vekora gallery [options]            show every picker and gradient view\n"
                       "\n";
    constexpr std::size_t column = 20;
    for (const auto& rule : optionRules()) {
        auto line = "  " + std::string(rule.name) + (rule.value.empty() ? "" : " ") + std::string(rule.value);
        line.resize(std::max(line.size() + 1, column), ' ');
        text += line + std::string(rule.help) + '\n';
    }
    return text;
}

}
