#include "driver/Drive.h"
#include "Installation.h"
#include "lint/Lint.h"
#include "observe/Observe.h"
#include "Options.h"
#include "Window.h"

#include <cstdio>
#include <exception>

namespace {

/// Of the options, the script, or whatever a run needs to begin.
constexpr int cannotBegin = 2;

int run(int argc, char** argv, const host::Options& options)
{
    using Mode = host::Options::Mode;
    switch (options.mode) {
    case Mode::Drive:
        return host::runDrive(options);
    case Mode::Observe:
        return host::runObserve(options);
    case Mode::Lint:
        return host::runLint(options);
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
    auto phone = options.phone;
    if (options.mode == Mode::Gallery)
        phone.bundle = host::InstallationSources::ofThisBuild().gallery;
    return host::runWindow(argc, argv, phone,
        options.scaleIsGiven ? host::Scale::AsGiven : host::Scale::OfTheScreen, options.record);
}

int fail(const char* sentence)
{
    std::fprintf(stderr, "%s\n", sentence);
    return cannotBegin;
}

}

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + (argc > 0), argv + argc);
    const auto options = host::parseOptions(words);
    if (const auto* sentence = std::get_if<std::string>(&options))
        return fail(sentence->c_str());
    try {
        return run(argc, argv, std::get<host::Options>(options));
    } catch (const std::exception& exception) {
        return fail(exception.what());
    }
}
