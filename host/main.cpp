#include "crash/CrashStory.h"
#include "driver/Drive.h"
#include "Installation.h"
#include "lint/Lint.h"
#include "observe/Observe.h"
#include "Options.h"
#include "sheet/Sheet.h"
#include "Window.h"

#include <cstdio>
#include <exception>

namespace {

/// Of the options, the script, or whatever a run needs to begin.
constexpr int cannotBegin = 2;

int fail(const char* sentence)
{
    std::fprintf(stderr, "%s\n", sentence);
    return cannotBegin;
}

int run(char** argv, const host::Options& options)
try {
    using Mode = host::Options::Mode;
    switch (options.mode) {
    case Mode::Drive:
        host::handleCrashes(argv, host::AfterCrash::SayAndEnd);
        return host::runDrive(options);
    case Mode::Observe:
        return host::runObserve(options);
    case Mode::Lint:
        return host::runLint(options);
    case Mode::Sheet:
        host::handleCrashes(argv, host::AfterCrash::SayAndEnd);
        return host::runSheet(options);
    case Mode::Help:
        std::fputs(host::helpText(options.topic).c_str(), stdout);
        return 0;
    case Mode::Version:
        std::puts("vekora " VEKORA_VERSION);
        return 0;
    case Mode::Gallery:
    case Mode::Window:
        break;
    }
    return 0;
} catch (const std::exception& exception) {
    return fail(exception.what());
}

bool hasWindow(const host::Options& options)
{
    return options.mode == host::Options::Mode::Window || options.mode == host::Options::Mode::Gallery;
}

// Outside of any try: of an exception that a bundle throws, the place is known only while nobody catches it.
int runWindow(
    int argc, char** argv, const host::Options& options, const std::optional<host::CrashReport>& crash)
{
    auto phone = options.phone;
    if (options.mode == host::Options::Mode::Gallery)
        phone.bundle = host::InstallationSources::ofThisBuild().gallery;
    return host::runWindow(argc, argv, phone,
        options.scaleIsGiven ? host::Scale::AsGiven : host::Scale::OfTheScreen, options.record, crash);
}

/// Of a program that does not go on after a crash.
std::optional<int> statusAfter(const host::CrashReport& crash, const host::Options& options)
{
    const auto bundle = host::nameOfInstalled(options.phone.bundle.empty() ? "Vekora" : options.phone.bundle);
    // A process with a root of its own has noted it.
    const auto& root = crash.note.starts_with('/') ? crash.note : options.phone.root;
    const auto story = host::tellCrash(crash, root, bundle);
    // The toolkit ends the program where the display has gone.
    if (crash.exitStatus && !story.isBundles)
        return crash.exitStatus;
    if (crash.after == host::AfterCrash::StartAgain)
        return std::nullopt;
    return fail(story.sentence().c_str());
}

}

int main(int argc, char** argv)
{
    const auto crash = host::takeCrashReport();
    const std::vector<std::string> words(argv + (argc > 0), argv + argc);
    const auto parsed = host::parseOptions(words);
    if (const auto* sentence = std::get_if<std::string>(&parsed))
        return fail(sentence->c_str());
    const auto& options = std::get<host::Options>(parsed);
    if (crash) {
        if (const auto status = statusAfter(*crash, options))
            return *status;
    }
    const auto status = hasWindow(options) ? runWindow(argc, argv, options, crash) : run(argv, options);
    host::expectExit();
    return status;
}
