#include "Options.h"

#include "CommandRules.h"
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
        takeCommand();
        bool optionsMayFollow = true;
        while (_place < _words.size() && _error.empty()) {
            const auto& word = _words[_place++];
            if (optionsMayFollow && word == "--")
                optionsMayFollow = false;
            else if (optionsMayFollow && word.size() > 1 && word[0] == '-')
                takeOption(word);
            else
                takeOperand(word);
        }
        if (_error.empty() && _options.mode == _command->mode) {
            checkOperand();
            fillIn();
        } else if (_options.mode == Mode::Help) {
            _options.topic = _command->name; // "drive --help"
        }
        if (!_error.empty())
            return _error;
        return _options;
    }

private:
    void takeCommand()
    {
        if (const auto* command = _words.empty() ? nullptr : commandNamed(_words[0]);
            command && !_words[0].empty()) {
            _command = command;
            _place = 1;
        }
        _options.mode = _command->mode;
    }

    std::string nameOfCommand() const
    {
        return _command->name.empty() ? "the window" : std::string(_command->name);
    }

    void takeOption(const std::string& word)
    {
        const auto equals = word.find('=');
        const auto name = word.substr(0, equals);
        const OptionRule* rule = ruleNamed(name);
        if (!rule) {
            _error = "There is no option " + quoted(name) + "; --help lists them.";
        } else if (!(rule->where & _command->place)) {
            _error = name + " is no option of " + nameOfCommand() + ".";
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

    void takeOperand(const std::string& word)
    {
        const std::string name(_command->name);
        if (_command->place == OptionRule::InWindow && !word.empty() && commandNamed(word))
            _error = word + " must be the first word.";
        else if (_command->place == OptionRule::InWindow)
            _error = "There is no command " + quoted(word) + "; --help lists them.";
        else if (_command->takes == CommandRule::Operand::None)
            _error = name + " takes no further word than its options, but there is " + quoted(word) + ".";
        else if (_hasOperand)
            _error = name + " takes one " + std::string(_command->operandName) + ", but there is "
                + quoted(word) + " too.";
        else
            _error = _command->take(_options, word);
        _hasOperand = true;
    }

    void checkOperand()
    {
        if (_command->takes == CommandRule::Operand::Needed && !_hasOperand)
            _error = std::string(_command->name) + " needs a " + std::string(_command->operandName) + ".";
    }

    void fillIn()
    {
        auto& phone = _options.phone;
        if (phone.timeZone.empty())
            phone.timeZone = platform::systemTimeZone();
        if (phone.locale.empty() && _command->mode != Mode::Observe)
            phone.locale = platform::environmentLocale();
        if (phone.root.empty() && (_command->place & OptionRule::WithRoot))
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
    const CommandRule* _command = commandNamed({});
    bool _hasOperand = false;
    Options _options;
    std::string _error;
};

}

std::variant<Options, std::string> parseOptions(std::span<const std::string> words)
{
    return Parser(words).parse();
}

}
