#include "OptionRules.h"

#include "driver/ScriptParser.h"
#include "Instant.h"
#include "platform/qt/Region.h"

#include <filesystem>

namespace host {

namespace {

using Mode = Options::Mode;

/// Points in a side of the window; more is taken for a slip of the finger.
constexpr long largestSide = 4096;

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

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
    options.scaleIsGiven = true;
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

constexpr OptionRule rules[] = {
    { "--root", "DIR", OptionRule::WithRoot, takeRoot,
        "the folder that stands for the device's file system" },
    { "--size", "WxH", OptionRule::WithPhone, takeSize, "the window in points (375x667)" },
    { "--scale", "N", OptionRule::WithPhone, takeScale,
        "pixels a point: 1, 2 or 3 (2; in a window, its screen's)" },
    { "--locale", "NAME", OptionRule::WithPhone, takeLocale, "as en_US or ar_EG (the environment's)" },
    { "--timezone", "NAME", OptionRule::WithRoot, takeTimeZone, "as Europe/Berlin (the system's)" },
    { "--now", "TIME", OptionRule::WithPhone, takeNow, "the clock stands still at this instant, ISO 8601" },
    { "--toggle", "", OptionRule::WithPhone, takeToggle, "with the stand-in companion toggle" },
    { "--statusbar", "", OptionRule::WithPhone, takeStatusBar, "with the status-bar library's file" },
    { "--bundle", "DIR", OptionRule::WithPhone, takeBundle, "another bundle's folder" },
    { "--keep-going", "", OptionRule::InDrive, takeKeepGoing, "go on after a command that failed" },
    { "--help", "", OptionRule::Everywhere, takeHelp, "print this, or all about the command before it" },
    { "--version", "", OptionRule::Everywhere, takeVersion, "print the version" },
};

}

std::span<const OptionRule> optionRules()
{
    return rules;
}

}
