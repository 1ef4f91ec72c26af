#pragma once

#include "FileCalls.h"

#include <cstdint>
#include <string>
#include <sys/stat.h>

namespace platform {

/// Which state of a file was met: another build of it has another one, as has a file that was replaced by its
/// twin.
struct FileState {
    dev_t device = 0;
    ino_t number = 0;
    off_t size = -1; ///< −1 for no file.
    std::int64_t changed = 0; ///< Nanoseconds.

    bool operator==(const FileState&) const = default;
};
/// Follows links. Of a missing file, the state of no file.
FileState stateOfFile(const std::string& path);

/// A loadable module as it lies on this machine, looked at before the system's loader sees it: what is cut
/// off or only half written would bring down the process that maps it.
class ModuleFile {
public:
    explicit ModuleFile(const std::string& path);

    /// Whether it begins as a module does, whole or not.
    bool isModule() const;
    /// Empty, or with nothing but zeros where its beginning is to be.
    bool isUnwritten() const;

    /// Why the loader must not see it, as the end of a sentence that begins "it "; empty for a whole module
    /// of this kind of processor.
    std::string problem() const;

    /// Loads it. Null on failure, and `dlerror` tells why.
    ///
    /// A second build of a module must not meet the first: the loader takes the same path for the same
    /// module, and variables that the compiler marked as unique in the process (those of inline functions and
    /// templates) for the first build's, which it then never lets go. So such a module is loaded by way of a
    /// copy beside it, which is gone again when it has been loaded, and in which these are ordinary. A copy
    /// that was left because the module crashed while it was loaded goes before the next one is made.
    void* load() const;

private:
    struct Part {
        std::uint64_t offset = 0;
        std::uint64_t size = 0;
    };

    bool read(void*, Part) const;
    bool isWhole(Part) const;
    /// The table of names that the loader looks at; empty without one.
    Part symbols() const;
    std::string whole() const;

    std::string _path;
    FileDescriptor _file;
    std::uint64_t _size = 0;
};

}
