#include "CrashStory.h"

#include "platform/Demangle.h"
#include "SymbolFile.h"
#include "WorkLimit.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string_view>
#include <utility>

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostPlaces = 8;

/// One function that was being called.
struct Frame {
    std::string function; ///< Empty when nobody knows.
    std::string file; ///< Its library, without the folder; empty for no code at all.
    std::string bundle; ///< The bundle's name; empty for others.
};

/// Libraries whose functions say nothing of who is to blame, by the beginning of their names.
constexpr const char* systemLibraries[] = { "ld-linux", "libc.so", "libgcc_s", "libstdc++", "libm.so",
    "libpthread", "libasan", "libubsan", "libclang_rt", "libglib" };
constexpr const char* toolkit = "libQt";
/// Functions that only hand on a call.
constexpr const char* mediators[] = { "std::", "platform::detail::", "QtPrivate::", "decltype", "__gnu",
    "__cxx", "operator", "host::(anonymous namespace)::terminated", "host::(anonymous namespace)::ending",
    "auto ", "platform::Argument platform::detail::" };

/// What was going on, by the function that it went on in.
struct Deed {
    const char* function;
    const char* phrase;
};
constexpr Deed deeds[] = {
    { "platform::NSBundle::loadBundleAtPath", "while it was loaded" },
    { "platform::PSSpecifier::perform(", "while performing " },
    { "platform::UIControl::sendActionsForControlEvents", "while performing " },
    { "platform::UIWindow::displayTree", "while it was painted" },
    { "platform::UIView::layoutTree", "while it was laid out" },
    { "platform::UINavigationController::pushViewController", "while a page was opened" },
    { "host::Phone::showFirstPage", "while its first page was opened" },
    { "platform::UIWindow::touch", "during a touch" },
};

/// Compilers write out what nobody writes.
constexpr std::pair<std::string_view, std::string_view> shorterNames[] = {
    { "[abi:cxx11]", "" },
    { "std::__cxx11::", "std::" },
    { "std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string" },
    { "std::basic_string_view<char, std::char_traits<char> >", "std::string_view" },
    { "std::variant<std::monostate, platform::PropertyValue, platform::NSObject*>", "platform::Argument" },
    { "_GLOBAL__sub_I_", "the initialisers of " },
};

template <typename Table> bool beginsWithOneOf(const std::string& text, const Table& table)
{
    return std::any_of(std::begin(table), std::end(table),
        [&](const char* beginning) { return text.starts_with(beginning); });
}

std::string readable(const std::string& symbol)
{
    auto result = platform::demangled(symbol);
    for (const auto& [written, meant] : shorterNames) {
        for (auto at = result.find(written); at != std::string::npos; at = result.find(written, at))
            result.replace(at, written.size(), meant);
    }
    return result;
}

std::string hexadecimal(std::uintptr_t number)
{
    char text[32];
    std::snprintf(text, sizeof text, "0x%zx", static_cast<std::size_t>(number));
    return text;
}

/// A module that was loaded by way of a copy, or replaced meanwhile, under its usual name.
fs::path plainPath(std::string file)
{
    static constexpr std::string_view deleted = " (deleted)";
    if (file.ends_with(deleted))
        file.resize(file.size() - deleted.size());
    fs::path path(file);
    const auto name = path.filename().string();
    constexpr std::size_t ending = 7; // ".XXXXXX"
    if (name.starts_with('.') && name.size() > ending + 1)
        path.replace_filename(name.substr(1, name.size() - 1 - ending));
    return path;
}

/// The innermost folder of that kind around a file below the root, else the file's own name.
std::string bundleAround(const fs::path& file, const fs::path& root)
{
    const auto inside = file.lexically_relative(root);
    if (root.empty() || inside.empty() || *inside.begin() == "..")
        return {};
    std::string name = file.filename().string();
    for (const auto& part : inside.parent_path()) {
        if (part.extension() == ".bundle")
            name = part.string();
    }
    return name;
}

class Resolver {
public:
    Resolver(const CrashReport& report, const std::string& root)
        : _report(report)
    {
        std::error_code error;
        _root = root.empty() ? fs::path() : fs::canonical(root, error);
    }

    Frame frameAt(std::uintptr_t address)
    {
        for (const auto& mapping : _report.mappings) {
            if (address < mapping.begin || address >= mapping.end || !mapping.file.starts_with('/'))
                continue;
            const auto path = plainPath(mapping.file);
            const auto found = _files.try_emplace(path.string(), path.string()).first;
            return { readable(found->second.functionAt(address - mapping.begin + mapping.offset)),
                path.filename().string(), bundleAround(path, _root) };
        }
        return {};
    }

private:
    const CrashReport& _report;
    fs::path _root;
    std::map<std::string, SymbolFile> _files;
};

bool saysNothing(const Frame& frame)
{
    return frame.file.empty()
        || (frame.bundle.empty()
            && (beginsWithOneOf(frame.file, systemLibraries) || frame.file.starts_with(toolkit)))
        || beginsWithOneOf(frame.function, mediators);
}

std::string withoutArguments(const std::string& function)
{
    static constexpr std::string_view unnamed = "(anonymous namespace)";
    auto at = function.find('(');
    while (at != std::string::npos && function.compare(at, unnamed.size(), unnamed) == 0)
        at = function.find('(', at + 1);
    return function.substr(0, at);
}

std::string nameOf(const Frame& frame)
{
    if (frame.function.empty())
        return "a function without a name (" + frame.file + ")";
    return frame.bundle.empty() ? withoutArguments(frame.function) + " (" + frame.file + ")" : frame.function;
}

std::string whatHappened(const CrashReport& report)
{
    const auto at = hexadecimal(report.address);
    switch (report.signal) {
    case SIGSEGV:
        if (report.isStackEnd)
            return "called functions without end until the stack was full (SIGSEGV)";
        if (!report.frames.empty() && report.frames.front() == report.address)
            return "called a function at " + at + ", where there is none (SIGSEGV)";
        return report.code == SI_KERNEL ? "used memory at an impossible address (SIGSEGV)"
                                        : "used memory at " + at + ", where there is none (SIGSEGV)";
    case SIGBUS:
        return report.code == BUS_ADRERR ? "used memory at " + at + " whose file has become shorter (SIGBUS)"
                                         : "met a bus error (SIGBUS)";
    case SIGFPE:
        return report.code == FPE_INTDIV ? "divided an integer by zero (SIGFPE)"
                                         : "met an arithmetic error (SIGFPE)";
    case SIGILL:
        return "came to an instruction that cannot be carried out (SIGILL)";
    case SIGXCPU:
        return "worked for " + std::to_string(WorkLimit::mostSeconds) + " seconds without coming to an end";
    case SIGABRT:
        if (report.exitStatus)
            return "ended the program (exit status " + std::to_string(*report.exitStatus) + ")";
        if (report.exception.empty())
            return "gave up (SIGABRT)";
        return "threw " + readable(report.exception) + (report.what.empty() ? "" : " (“" + report.what + "”)")
            + ", which nobody caught";
    default:
        return "came to an end";
    }
}

std::string duringWhat(const CrashReport& report, const std::vector<Frame>& frames)
{
    for (const auto& frame : frames) {
        for (const auto& deed : deeds) {
            if (!frame.function.starts_with(deed.function))
                continue;
            const std::string phrase = deed.phrase;
            if (!phrase.ends_with(' '))
                return ", " + phrase;
            return report.action.empty() ? "" : ", " + phrase + report.action;
        }
    }
    return {};
}

std::vector<Frame>::const_iterator firstOfBundle(const std::vector<Frame>& frames)
{
    return std::find_if(
        frames.begin(), frames.end(), [](const auto& frame) { return !frame.bundle.empty(); });
}

void takePlaces(CrashStory& story, const std::vector<Frame>& frames)
{
    auto& places = story.places;
    constexpr std::size_t mostMain = 3;
    for (std::size_t index = 0; index < frames.size() && places.size() < mostPlaces;) {
        const auto& frame = frames[index];
        // Where the toolkit hands something to the host, the story began.
        if (frame.file.starts_with(toolkit) && !places.empty())
            break;
        std::size_t times = 1;
        while (index + times < frames.size() && frames[index + times].function == frame.function
            && frames[index + times].file == frame.file)
            ++times;
        index += times;
        if (saysNothing(frame))
            continue;
        places.push_back((places.empty() ? "in " : "called by ") + nameOf(frame)
            + (times > 1 ? ", " + std::to_string(times) + " times over" : ""));
        if (places.size() <= mostMain && (!story.isBundles || !frame.bundle.empty()))
            story.mainPlaces = places.size();
    }
    // A thread may have begun with what says little, which is more than nothing.
    const auto own = firstOfBundle(frames);
    if (places.empty() && own != frames.end()) {
        places.push_back("in " + nameOf(*own));
        story.mainPlaces = 1;
    }
}

bool isLoading(const Frame& frame)
{
    return frame.function.starts_with("platform::ModuleFile::load");
}

}

CrashStory tellCrash(const CrashReport& report, const std::string& root, const std::string& bundle)
{
    Resolver resolver(report, root);
    std::vector<Frame> frames;
    for (const auto address : report.frames)
        frames.push_back(resolver.frameAt(address));

    CrashStory story;
    const auto own = firstOfBundle(frames);
    const bool isKnown = own != frames.end();
    story.isBundles = isKnown || std::any_of(frames.begin(), frames.end(), isLoading);
    story.isEndless = report.signal == SIGXCPU;
    story.who = isKnown ? own->bundle : story.isBundles ? bundle : "Settings";
    story.reason = whatHappened(report) + duringWhat(report, frames);
    takePlaces(story, frames);
    return story;
}

std::string CrashStory::heading() const
{
    return who + (isBundles ? "" : " itself") + (isEndless ? " was stopped" : " crashed");
}

std::string CrashStory::sentence() const
{
    std::string text = heading() + ": it " + reason;
    for (std::size_t index = 0; index < mainPlaces; ++index)
        text += ", " + places[index];
    return text + ".";
}

}
