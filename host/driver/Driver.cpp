#include "DriverCommands.h"

#include "host/crash/CrashHandler.h"
#include "Json.h"
#include "platform/PSListController.h"
#include "ScriptParser.h"

#include <cmath>

namespace host {

using namespace platform;

namespace {

/// Far beyond any page, and far from where sums of coordinates lose their fractions.
constexpr double farthest = 1e6;

using Topic = std::span<const DriverCommand> (*)();
constexpr Topic topics[] = { alertCommands, environmentCommands, faultCommands, fileCommands, pictureCommands,
    preferenceCommands, rowCommands, textCommands, touchCommands, treeCommands };

const DriverCommand& commandNamed(std::string_view name)
{
    for (const auto topic : topics) {
        for (const auto& command : topic()) {
            if (command.name == name)
                return command;
        }
    }
    throw CommandFailure("There is no command " + quoted(name) + ".");
}

void checkNumberOfWords(const DriverCommand& command, Words words)
{
    if (words.size() >= command.fewest && words.size() <= command.most)
        return;
    const std::string name(command.name);
    if (command.most == 0)
        throw CommandFailure(name + " takes no further words.");
    throw CommandFailure(name + " takes " + std::string(command.usage) + ", not "
        + (words.empty() ? "nothing"
                         : std::to_string(words.size()) + (words.size() == 1 ? " word" : " words"))
        + ".");
}

}

Driver::Driver(Phone& phone)
    : _phone(phone)
{
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        using Kind = JournalEntry::Kind;
        if (entry.kind == Kind::Action)
            setLastAction(entry.name);
        else if (entry.kind == Kind::Paint)
            ++_paints[entry.name];
        else if (entry.kind == Kind::Write || entry.kind == Kind::Notification || entry.kind == Kind::Toggle)
            _posted.push_back(entry);
    });
}

Driver::~Driver()
{
    Journal::shared().stop(_listener);
}

std::optional<QJsonObject> Driver::carryOut(std::string_view line)
{
    const auto script = splitScriptLine(line);
    if (script.isPassedOver())
        return std::nullopt;
    const std::string name = script.words.empty() ? std::string() : script.words.front();
    if (!script.error.empty())
        return failure(name, script.error);
    try {
        auto result = answer(script.words);
        result.insert("do", jsonFromText(name));
        result.insert("ok", true);
        return result;
    } catch (const std::exception& exception) {
        _phone.settle();
        return failure(name, exception.what());
    }
}

QJsonObject Driver::failure(std::string_view command, std::string_view sentence)
{
    return { { "do", jsonFromText(command) }, { "ok", false }, { "error", jsonFromText(sentence) } };
}

QJsonObject Driver::answer(Words words)
{
    const auto& command = commandNamed(words.front());
    const auto rest = words.subspan(1);
    checkNumberOfWords(command, rest);
    auto result = command.carryOut(*this, rest);
    _phone.settle();
    return result;
}

PSListController& Driver::page()
{
    auto* page = dynamic_cast<PSListController*>(_phone.navigation().topViewController());
    if (!page)
        throw CommandFailure("The page that is shown has no rows.");
    return *page;
}

void Driver::press(CGPoint point, double timestamp)
{
    if (_fingerIsDown)
        throw CommandFailure("The finger is down already; release it first.");
    if (!CGRectContainsPoint(window().bounds(), point))
        throw CommandFailure("The point lies outside the window.");
    _fingerIsDown = true;
    window().touchBegan(point, timestamp);
    _phone.settle();
}

void Driver::move(CGPoint point)
{
    if (!_fingerIsDown)
        throw CommandFailure("The finger is not down; press first.");
    window().touchMoved(point);
    _phone.settle();
}

void Driver::release(CGPoint point)
{
    if (!_fingerIsDown)
        throw CommandFailure("The finger is not down; press first.");
    _fingerIsDown = false;
    window().touchEnded(point);
    _phone.settle();
}

void Driver::tap(CGPoint point)
{
    press(point);
    release(point);
}

std::vector<JournalEntry> Driver::takePosted()
{
    return std::exchange(_posted, {});
}

std::map<std::string, int> Driver::takePaints()
{
    return std::exchange(_paints, {});
}

double pointsFromWord(const std::string& word)
{
    double number = 0;
    if (!readNumber(word, number))
        throw CommandFailure(quoted(word) + " is not a number.");
    if (std::fabs(number) > farthest)
        throw CommandFailure(quoted(word) + " is too far away.");
    return number;
}

std::string quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

}
