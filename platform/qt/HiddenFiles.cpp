#include "HiddenFiles.h"

#include <climits>
#include <fcntl.h>

namespace platform {

namespace {

// As many processes can save one file at once, each with a hidden file of its own.
constexpr int slotCount = 16;
constexpr int mostAttempts = 16;

}

std::string HiddenFiles::slotName(int slot) const
{
    const auto ending = "." + std::to_string(slot) + ".saving";
    return "." + _name.substr(0, NAME_MAX - 1 - ending.size()) + ending;
}

std::optional<HiddenFiles::HiddenFile> HiddenFiles::make(mode_t mode) const
{
    std::optional<HiddenFile> made;
    // All the slots are looked at each time, so that no killed process's file outlives the next save.
    for (int slot = 0; slot < slotCount; ++slot) {
        if (made)
            removeOrphan(slotName(slot));
        else if (!makeIn(slot, mode, made))
            return std::nullopt;
    }
    if (!made)
        errno = EBUSY;
    return made;
}

/// False for what cannot be mended; a slot in use is none of that.
bool HiddenFiles::makeIn(int slot, mode_t mode, std::optional<HiddenFile>& made) const
{
    const auto name = slotName(slot);
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        HiddenFile hidden { openIn(_folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL, mode), name };
        if (!hidden.file) {
            if (errno != EEXIST)
                return false;
            if (!removeOrphan(name))
                return true;
            continue;
        }
        if (lockAsMade(hidden)) {
            made = std::move(hidden);
            return true;
        }
        if (errno != EWOULDBLOCK) {
            const int reason = errno;
            if (isNamedIn(_folder, hidden.file, name))
                removeIn(_folder, name);
            errno = reason;
            return false;
        }
        // Another process saw the file before its lock and is about to take it away.
    }
    return true;
}

bool HiddenFiles::lockAsMade(const HiddenFile& hidden) const
{
    if (!lock(hidden.file))
        return false;
    if (isNamedIn(_folder, hidden.file, hidden.name))
        return true;
    errno = EWOULDBLOCK;
    return false;
}

std::optional<std::string> HiddenFiles::linkOldFile() const
{
    for (int slot = 0; slot < slotCount; ++slot) {
        auto hidden = slotName(slot);
        if (uninterrupted(FileCalls::current().linkAt, _folder.number(), _name.c_str(), _folder.number(),
                hidden.c_str(), 0)
            == 0)
            return hidden;
        if (errno != EEXIST)
            break;
    }
    return std::nullopt;
}

bool HiddenFiles::removeOrphan(const std::string& name) const
{
    struct stat status { };
    if (!statusIn(_folder, name.c_str(), status))
        return errno == ENOENT;
    if (!S_ISREG(status.st_mode))
        return false;
    const auto file = openIn(_folder, name.c_str(), O_RDONLY | O_NONBLOCK);
    if (!file)
        return errno == ENOENT;
    return lock(file) && (!isNamedIn(_folder, file, name) || removeIn(_folder, name));
}

}
