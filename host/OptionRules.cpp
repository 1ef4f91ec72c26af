#include "OptionRules.h"

#include "driver/ScriptParser.h"
#include "PhoneValues.h"

#include <algorithm>
#include <filesystem>

namespace host {

namespace {

using Mode = Options::Mode;

std::string takeRoot(Options& options, const std::string& value)
{
    if (value.empty())
        return "--root takes a folder, not an empty word.";
    options.phone.root = std::filesystem::absolute(value).lexically_normal().string();
    return {};
}

/// What is set up of the phone by one word.
std::string takeNamed(std::string_view name, Options& options, const std::string& word)
{
    return takePhoneValue(*phoneValueNamed(name), options.phone, word, "--" + std::string(name));
}

std::string takeSize(Options& options, const std::string& value)
{
    return takeNamed("size", options, value);
}

std::string takeScale(Options& options, const std::string& value)
{
    options.scaleIsGiven = true;
    return takeNamed("scale", options, value);
}

std::string takeLocale(Options& options, const std::string& value)
{
    return takeNamed("locale", options, value);
}

std::string takeTimeZone(Options& options, const std::string& value)
{
    return takeNamed("timezone", options, value);
}

std::string takeDirection(Options& options, const std::string& value)
{
    return takeNamed("direction", options, value);
}

std::string takeNow(Options& options, const std::string& value)
{
    return takeNamed("now", options, value);
}

std::string takeBundle(Options& options, const std::string& value)
{
    if (value.empty())
        return "--bundle takes a bundle's folder, not an empty word.";
    options.phone.bundle = std::filesystem::absolute(value).lexically_normal().string();
    return {};
}

std::string takeDefaults(Options& options, const std::string& value)
{
    if (value.empty() || value.find('/') != std::string::npos)
        return "--defaults takes a domain, as net.example.pane, not \"" + value + "\".";
    options.phone.defaults = value;
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

std::string takeRecord(Options& options, const std::string& value)
{
    options.record = value;
    return value.empty() ? "--record takes a file, not an empty word." : "";
}

/// Hands the words between commas to `takeOne`, which answers with a sentence or with nothing.
template <typename TakeOne> std::string takeList(const std::string& list, TakeOne takeOne)
{
    std::string error;
    for (std::size_t begin = 0; begin <= list.size() && error.empty();) {
        const auto end = std::min(list.find(',', begin), list.size());
        error = takeOne(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return error;
}

/// One value of the phone's, into a list of them; one that is there already counts once.
template <typename Value>
std::string takeListOf(std::string_view name, const std::string& option, Value PhoneOptions::*member,
    std::vector<Value>& values, const std::string& list)
{
    values.clear();
    return takeList(list, [&](const std::string& word) {
        PhoneOptions phone;
        auto error = takePhoneValue(*phoneValueNamed(name), phone, word, option);
        if (error.empty() && std::find(values.begin(), values.end(), phone.*member) == values.end())
            values.push_back(phone.*member);
        return error;
    });
}

std::string takePhones(Options& options, const std::string& value)
{
    return takeListOf("size", "--phones", &PhoneOptions::size, options.sheet.phones, value);
}

std::string takeScales(Options& options, const std::string& value)
{
    return takeListOf("scale", "--scales", &PhoneOptions::scale, options.sheet.scales, value);
}

std::string takeLocales(Options& options, const std::string& value)
{
    return takeListOf("locale", "--locales", &PhoneOptions::locale, options.sheet.locales, value);
}

std::string takeAgainst(Options& options, const std::string& value)
{
    options.sheet.against = value;
    return value.empty() ? "--against takes an earlier sheet, not an empty word." : "";
}

std::string takePatience(Options& options, const std::string& value)
{
    constexpr long longest = 3600;
    auto& patience = options.sheet.patience;
    return readCount(value, patience) && patience >= 1 && patience <= longest
        ? ""
        : "--patience takes whole seconds from 1 to " + std::to_string(longest) + ", not \"" + value + "\".";
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

constexpr OptionRule rules[] = {
    { "--root", "DIR", OptionRule::WithRoot, takeRoot,
        "the folder that stands for the device's file system" },
    { "--size", "WxH", OptionRule::WithPhone, takeSize, "the window in points (375x667)" },
    { "--scale", "N", OptionRule::WithPhone, takeScale,
        "pixels a point: 1, 2 or 3 (2; in a window, its screen's)" },
    { "--locale", "NAME", OptionRule::WithPhone, takeLocale, "as en_US or ar_EG (the environment's)" },
    { "--timezone", "NAME", OptionRule::WithRoot, takeTimeZone, "as Europe/Berlin (the system's)" },
    { "--direction", "WAY", OptionRule::WithPhone, takeDirection,
        "rows run ltr, rtl or as the locale says (locale)" },
    { "--now", "TIME", OptionRule::WithPhone, takeNow, "the clock stands still at this instant, ISO 8601" },
    { "--toggle", "", OptionRule::WithPhone, takeToggle, "with the stand-in companion toggle" },
    { "--statusbar", "", OptionRule::WithPhone, takeStatusBar, "with the status-bar library's file" },
    { "--bundle", "DIR", OptionRule::WithPhone | OptionRule::InSheet, takeBundle, "another bundle's folder" },
    { "--defaults", "DOMAIN", OptionRule::WithRoot, takeDefaults,
        "the preference file to show, as its rows name it (the bundle's)" },
    { "--keep-going", "", OptionRule::InDrive, takeKeepGoing, "go on after a command that failed" },
    { "--against", "FILE", OptionRule::InSheet, takeAgainst, "an earlier sheet, to show what changed" },
    { "--phones", "LIST", OptionRule::InSheet, takePhones, "sizes in points, as 320x480,375x667" },
    { "--scales", "LIST", OptionRule::InSheet, takeScales, "pixels a point, as 1,2,3" },
    { "--locales", "LIST", OptionRule::InSheet, takeLocales, "as en_US,ar_EG" },
    { "--patience", "SECONDS", OptionRule::InSheet, takePatience, "the longest that one page may take (60)" },
    { "--record", "FILE", OptionRule::InWindow, takeRecord,
        "write what is done in the window as a script for drive" },
    { "--help", "", OptionRule::Everywhere, takeHelp, "print help, or all about the command before it" },
    { "--version", "", OptionRule::Everywhere, takeVersion, "print the version" },
};

}

std::span<const OptionRule> optionRules()
{
    return rules;
}

}
