#pragma once

#include "FileCalls.h"

#include <optional>
#include <string>

namespace platform {

/// The hidden files that the saves of one file make beside it, for as long as a save takes. They follow one
/// rule: whoever moves or removes one holds the lock on the very file that bears the name. A lock that nobody
/// holds therefore tells that its process was killed.
class HiddenFiles {
public:
    /// Locked for as long as it is open.
    struct HiddenFile {
        FileDescriptor file;
        std::string name;
    };

    /// For the saves of the file of this name. Both must outlive this.
    HiddenFiles(const FileDescriptor& folder, const std::string& name)
        : _folder(folder)
        , _name(name)
    {
    }

    /// A new and empty one, of this mode as far as the process's mask lets it. Takes away what killed
    /// processes have left. Nothing, with the reason in `errno`, when there cannot be one.
    std::optional<HiddenFile> make(mode_t) const;

    /// Gives the file that is saved a second, hidden name. The caller holds its lock. Nothing where that
    /// cannot be done.
    std::optional<std::string> linkOldFile() const;

    /// Takes away a hidden file whose process is gone. False when somebody is at work on it, or it is none.
    bool removeOrphan(const std::string& hiddenName) const;

private:
    std::string slotName(int slot) const;
    bool makeIn(int slot, mode_t, std::optional<HiddenFile>&) const;
    bool lockAsMade(const HiddenFile&) const;

    const FileDescriptor& _folder;
    const std::string& _name;
};

}
