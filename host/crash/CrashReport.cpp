#include "CrashReport.h"

#include "CrashText.h"

#include <charconv>
#include <cstdlib>
#include <sstream>
#include <unistd.h>

namespace host {

namespace {

constexpr int hexadecimal = 16;

std::uint64_t numberIn(std::string_view text)
{
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal);
    return number;
}

/// As "7f00-7f80 r-xp 00001000 08:01 1234   /path".
std::optional<CrashReport::Mapping> mappingIn(const std::string& line)
{
    std::istringstream words(line);
    std::string range;
    std::string mode;
    std::string offset;
    std::string device;
    std::string number;
    std::string file;
    if (!(words >> range >> mode >> offset >> device >> number))
        return std::nullopt;
    std::getline(words >> std::ws, file);
    const auto dash = range.find('-');
    if (dash == std::string::npos)
        return std::nullopt;
    return CrashReport::Mapping { numberIn(range.substr(0, dash)), numberIn(range.substr(dash + 1)),
        numberIn(offset), file };
}

std::string readAll(int file)
{
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    return text;
}

}

CrashReport crashReportFromText(std::string_view text)
{
    CrashReport report;
    bool inMaps = false;
    while (!text.empty()) {
        if (text.starts_with(crashtext::note)) {
            report.note = text.substr(std::string_view(crashtext::note).size());
            break;
        }
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto take = [&](const char* key, const auto& use) {
            if (line.starts_with(key)) {
                inMaps = false;
                use(line.substr(std::string_view(key).size()));
            }
        };
        if (line == std::string_view("maps")) {
            inMaps = true;
            continue;
        }
        take(crashtext::after, [&](auto value) {
            report.after = value == "start" ? AfterCrash::StartAgain : AfterCrash::SayAndEnd;
        });
        take(crashtext::signal, [&](auto value) { report.signal = static_cast<int>(numberIn(value)); });
        take(crashtext::code, [&](auto value) { report.code = static_cast<int>(numberIn(value)); });
        take(crashtext::address, [&](auto value) { report.address = numberIn(value); });
        take(crashtext::stackEnd, [&](auto value) { report.isStackEnd = numberIn(value) != 0; });
        take(crashtext::action, [&](auto value) { report.action = value; });
        take(crashtext::exception, [&](auto value) { report.exception = value; });
        take(crashtext::what, [&](auto value) { report.what = value; });
        take(crashtext::status, [&](auto value) {
            if (const auto status = numberIn(value))
                report.exitStatus = static_cast<int>(status - 1);
        });
        take(crashtext::frame, [&](auto value) { report.frames.push_back(numberIn(value)); });
        if (inMaps) {
            if (auto mapping = mappingIn(std::string(line)))
                report.mappings.push_back(std::move(*mapping));
        }
    }
    return report;
}

std::optional<CrashReport> takeCrashReport()
{
    const char* const variable = std::getenv(crashtext::variable);
    if (!variable)
        return std::nullopt;
    const int file = std::atoi(variable);
    ::unsetenv(crashtext::variable);
    if (file <= STDERR_FILENO)
        return std::nullopt;
    const auto text = readAll(file);
    ::close(file);
    return crashReportFromText(text);
}

}
