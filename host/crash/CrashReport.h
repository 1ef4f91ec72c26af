#pragma once

#include "CrashHandler.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// A crash as the handler has written it down.
struct CrashReport {
    /// What lay at some addresses.
    struct Mapping {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        std::uint64_t offset = 0; ///< In the file, of `begin`.
        std::string file;
    };

    AfterCrash after = AfterCrash::SayAndEnd;
    int signal = 0;
    int code = 0; ///< The signal's, as the system defines them.
    std::uintptr_t address = 0; ///< That was used.
    bool isStackEnd = false;
    std::string action; ///< The selector of the last one; empty without one.
    std::string exception, what; ///< The type as the compiler writes it; empty unless one was thrown.
    std::optional<int> exitStatus; ///< Of a program that was ended in the midst of its work.
    std::vector<std::uintptr_t> frames; ///< The innermost first.
    std::vector<Mapping> mappings;
    std::string note; ///< See `setCrashNote`.
};

/// From the text that the handler writes; what is missing or makes no sense in it stays empty.
CrashReport crashReportFromText(std::string_view);

/// That of this process, which has been started anew after a crash; nothing at other times, and only once.
std::optional<CrashReport> takeCrashReport();

}
