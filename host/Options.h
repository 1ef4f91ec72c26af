#pragma once

#include "Phone.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace host {

/// What the command line asks for.
struct Options {
    enum class Mode { Window, Drive, Observe, Gallery, Lint, Sheet, Help, Version };

    Mode mode = Mode::Window;
    /// With `root`, `locale` and `timeZone` filled in; `now` is known to be an instant of `Instant.h`.
    PhoneOptions phone;
    bool scaleIsGiven = false; ///< Otherwise a window takes its screen's.
    std::string record; ///< Of a window: the script to write; empty for none.
    bool keepGoing = false; ///< Of `drive`: go on after a command that failed.
    std::string script = "-"; ///< Of `drive`: a file, or "-" for standard input.
    std::string bundleAsGiven; ///< Of `lint`: the bundle's folder, as findings name it.
    /// Of `sheet`; empty lists for the usual ones.
    struct SheetOptions {
        std::string file;
        std::string against; ///< An earlier sheet; empty for none.
        std::vector<platform::CGSize> phones;
        std::vector<int> scales;
        std::vector<std::string> locales;
        long patience = 60; ///< Seconds that a page may take.
    } sheet;
    std::string topic; ///< Of `help`: a command's name; empty for all of them.
};

/// The words after the program's name as options, or one sentence that says what is wrong with them. Numbers,
/// zones, locales and instants are checked; whether files are there is not. The last of an option that is
/// given twice counts.
std::variant<Options, std::string> parseOptions(std::span<const std::string> words);

/// What `--help` prints: of all commands, or all about one.
std::string helpText(std::string_view topic = {});

}
