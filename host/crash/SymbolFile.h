#pragma once

#include "host/ElfFile.h"

#include <cstdint>
#include <string>

namespace host {

/// The names of functions in a program's or library's file, those that a linker keeps for debuggers among
/// them.
class SymbolFile {
public:
    /// A file that cannot be read, or is none of this kind, has no functions.
    explicit SymbolFile(const std::string& path);

    /// The function that has the byte at this place of the file, as the compiler writes it; empty for none.
    std::string functionAt(std::uint64_t offsetInFile) const;

private:
    std::uint64_t addressOf(std::uint64_t offsetInFile) const;

    ElfFile _file;
};

}
