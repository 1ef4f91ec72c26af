#include "EnvironmentRules.h"

#include "Instant.h"
#include "PhoneValues.h"
#include "platform/Device.h"

#include <cmath>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

std::string wordForSwitch(bool isOn)
{
    return isOn ? "on" : "off";
}

bool readSwitch(const std::string& word, bool& isOn)
{
    isOn = word == "on";
    return isOn || word == "off";
}

std::string toggleWord(const Phone& phone)
{
    return wordForSwitch(phone.toggleIsInstalled());
}

bool changeToggle(Phone& phone, const std::string& word)
{
    bool isOn = false;
    if (!readSwitch(word, isOn))
        return false;
    phone.setToggleInstalled(isOn);
    return true;
}

std::string statusBarWord(const Phone& phone)
{
    return wordForSwitch(phone.statusBarLibraryIsInstalled());
}

bool changeStatusBar(Phone& phone, const std::string& word)
{
    bool isOn = false;
    if (!readSwitch(word, isOn))
        return false;
    phone.setStatusBarLibraryInstalled(isOn);
    return true;
}

std::string localeWord(const Phone&)
{
    return Device::current().locale;
}

/// The word as the command line reads it, for all that both know.
template <typename Change> bool changeValue(std::string_view name, const std::string& word, Change change)
{
    PhoneOptions options;
    if (!phoneValueNamed(name)->take(options, word))
        return false;
    change(options);
    return true;
}

bool changeLocale(Phone& phone, const std::string& word)
{
    return changeValue("locale", word, [&](const auto& options) { phone.setLocale(options.locale); });
}

std::string timeZoneWord(const Phone&)
{
    return Device::current().timeZone;
}

bool changeTimeZone(Phone& phone, const std::string& word)
{
    return changeValue("timezone", word, [&](const auto& options) { phone.setTimeZone(options.timeZone); });
}

std::string nowWord(const Phone&)
{
    const auto& device = Device::current();
    return device.standingClock ? textFromInstant(*device.standingClock, device.timeZone) : "real";
}

bool changeNow(Phone& phone, const std::string& word)
{
    if (word == "real") {
        phone.setRunningClock();
        return true;
    }
    const auto instant = instantFromText(word, Device::current().timeZone);
    if (instant)
        phone.setStandingClock(*instant);
    return instant.has_value();
}

std::string sizeWord(const Phone&)
{
    const auto size = Device::current().screenSize;
    return std::to_string(std::lround(size.width)) + "x" + std::to_string(std::lround(size.height));
}

bool changeSize(Phone& phone, const std::string& word)
{
    return changeValue("size", word, [&](const auto& options) {
        phone.setScreen(options.size, static_cast<int>(Device::current().scale));
    });
}

std::string scaleWord(const Phone&)
{
    return std::to_string(std::lround(Device::current().scale));
}

bool changeScale(Phone& phone, const std::string& word)
{
    return changeValue("scale", word, [&](const auto& options) { phone.setScale(options.scale); });
}

std::string directionWord(const Phone& phone)
{
    return std::string(wordFor(phone.direction()));
}

bool changeDirection(Phone& phone, const std::string& word)
{
    return changeValue(
        "direction", word, [&](const auto& options) { phone.setDirection(options.direction); });
}

constexpr EnvironmentRule rules[] = {
    { "toggle", "on or off", toggleWord, changeToggle },
    { "statusbar", "on or off", statusBarWord, changeStatusBar },
    { "locale", {}, localeWord, changeLocale },
    { "timezone", {}, timeZoneWord, changeTimeZone },
    { "now", "real or an instant in ISO 8601, as 2014-01-05T10:17:42.6+01:00", nowWord, changeNow },
    { "size", {}, sizeWord, changeSize },
    { "scale", {}, scaleWord, changeScale },
    { "direction", {}, directionWord, changeDirection },
};

std::string_view taken(const EnvironmentRule& rule)
{
    const auto* const value = phoneValueNamed(rule.name);
    return rule.takes.empty() && value ? value->takes : rule.takes;
}

std::string namesOfAll()
{
    std::string names;
    for (const auto& rule : rules) {
        if (!names.empty())
            names += &rule == std::end(rules) - 1 ? " or " : ", ";
        names += rule.name;
    }
    return names;
}

}

std::span<const EnvironmentRule> environmentRules()
{
    return rules;
}

std::vector<std::string> environmentInWords(const Phone& phone)
{
    std::vector<std::string> words;
    for (const auto& rule : rules)
        words.push_back(rule.word(phone));
    return words;
}

std::string changeEnvironment(Phone& phone, std::string_view name, const std::string& word)
{
    for (const auto& rule : rules) {
        if (rule.name != name)
            continue;
        try {
            if (rule.change(phone, word))
                return {};
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return std::string(name) + " takes " + std::string(taken(rule)) + ", not \"" + word + "\".";
    }
    return "The environment has " + namesOfAll() + ", not \"" + std::string(name) + "\".";
}

}
