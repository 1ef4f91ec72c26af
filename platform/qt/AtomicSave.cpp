#include "AtomicSave.h"

#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

namespace {

// As many processes can save one file at once, each with a hidden file of its own.
constexpr int slotCount = 16;
constexpr int mostAttempts = 16;

/// One save. Hidden files follow one rule: whoever moves or removes one holds the lock on the very file that
/// bears the name. A lock that nobody holds therefore tells that its process was killed.
class Replacement {
public:
    Replacement(const DevicePlace& place, std::string_view contents)
        : _name(place.name)
        , _contents(contents)
        , _folder(openIn(place.folder, ".", O_RDONLY | O_DIRECTORY))
    {
    }
    ~Replacement() { removeTemporary(); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    bool run()
    {
        return _folder && lookAtOldFile() && makeTemporary() && takeOverMode() && writeContents()
            && synchronise(_temporary) && publish();
    }

private:
    bool lookAtOldFile();
    std::string slotName(int slot) const;
    bool makeTemporary();
    bool makeTemporary(int slot);
    bool lockTemporary();
    bool removeOrphan(const std::string& name) const;
    bool takeOverMode();
    bool writeContents();

    bool publish();
    bool publishByExchange();
    bool publishByRename();
    bool holdOldFile();
    void undoExchange();
    void undoRename();
    void removeTemporary();

    bool move(const std::string& from, const std::string& to, unsigned flags = 0) const;
    bool remove(const std::string& name) const;
    bool isNamed(const FileDescriptor&, const std::string& name) const;
    static bool lock(const FileDescriptor&);
    static bool synchronise(const FileDescriptor&);

    const std::string& _name;
    std::string_view _contents;
    FileDescriptor _folder;
    struct stat _oldStatus { };
    bool _hasOldFile = false;
    std::string _oldTarget; ///< Where the replaced link led.
    FileDescriptor _oldFile; ///< Locked, while its name may be the hidden one.
    FileDescriptor _temporary; ///< Locked.
    std::string _temporaryName; ///< Empty when there is none to remove.
};

bool Replacement::lookAtOldFile()
{
    if (!statusIn(_folder, _name.c_str(), _oldStatus))
        return errno == ENOENT;
    _hasOldFile = true;
    if (S_ISDIR(_oldStatus.st_mode)) {
        errno = EISDIR;
        return false;
    }
    if (!S_ISLNK(_oldStatus.st_mode))
        return true;
    char target[PATH_MAX];
    const auto length = uninterrupted(FileCalls::current().readLinkAt, _folder.number(), _name.c_str(),
        static_cast<char*>(target), sizeof target);
    if (length < 0)
        return false;
    _oldTarget.assign(target, static_cast<std::size_t>(length));
    return true;
}

std::string Replacement::slotName(int slot) const
{
    const auto ending = "." + std::to_string(slot) + ".saving";
    return "." + _name.substr(0, NAME_MAX - 1 - ending.size()) + ending;
}

bool Replacement::makeTemporary()
{
    // All the slots are looked at each time, so that no killed process's file outlives the next save.
    for (int slot = 0; slot < slotCount; ++slot) {
        if (_temporary)
            removeOrphan(slotName(slot));
        else if (!makeTemporary(slot))
            return false;
    }
    if (!_temporary)
        errno = EBUSY;
    return bool(_temporary);
}

/// False for what cannot be mended; a slot in use is none of that.
bool Replacement::makeTemporary(int slot)
{
    const auto name = slotName(slot);
    // Never more open than the old file, not even for a moment.
    const mode_t mode = S_ISREG(_oldStatus.st_mode) ? _oldStatus.st_mode & 0777 : 0666;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        _temporary = openIn(_folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL, mode);
        if (!_temporary) {
            if (errno != EEXIST)
                return false;
            if (!removeOrphan(name))
                return true;
            continue;
        }
        _temporaryName = name;
        if (lockTemporary())
            return true;
        if (errno != EWOULDBLOCK) {
            removeTemporary();
            _temporary = {};
            return false;
        }
        // Another process saw the file before its lock and is about to take it away.
        _temporaryName.clear();
        _temporary = {};
    }
    return true;
}

bool Replacement::lockTemporary()
{
    if (!lock(_temporary))
        return false;
    if (isNamed(_temporary, _temporaryName))
        return true;
    errno = EWOULDBLOCK;
    return false;
}

/// Takes away a hidden file whose process is gone. False when there is none or somebody is at work on it.
bool Replacement::removeOrphan(const std::string& name) const
{
    struct stat status { };
    if (!statusIn(_folder, name.c_str(), status))
        return errno == ENOENT;
    if (!S_ISREG(status.st_mode))
        return false;
    const auto file = openIn(_folder, name.c_str(), O_RDONLY | O_NONBLOCK);
    if (!file)
        return errno == ENOENT;
    return lock(file) && (!isNamed(file, name) || remove(name));
}

bool Replacement::takeOverMode()
{
    if (!S_ISREG(_oldStatus.st_mode))
        return true;
    return uninterrupted(FileCalls::current().changeMode, _temporary.number(), _oldStatus.st_mode & 07777)
        == 0;
}

bool Replacement::writeContents()
{
    for (auto rest = _contents; !rest.empty();) {
        const auto count
            = uninterrupted(FileCalls::current().write, _temporary.number(), rest.data(), rest.size());
        if (count <= 0) {
            errno = count == 0 ? EIO : errno;
            return false;
        }
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool Replacement::publish()
{
    return holdOldFile() ? publishByExchange() : publishByRename();
}

/// Locks the old file, so that nobody takes it for an orphan while it bears the hidden name.
bool Replacement::holdOldFile()
{
    if (!S_ISREG(_oldStatus.st_mode))
        return false;
    _oldFile = openIn(_folder, _name.c_str(), O_RDONLY | O_NONBLOCK);
    return _oldFile && lock(_oldFile) && isNamed(_oldFile, _name);
}

bool Replacement::publishByExchange()
{
    if (!move(_temporaryName, _name, RENAME_EXCHANGE)) {
        // Not known to this file system or forbidden to this process; or the old file has just gone.
        const bool mayRename
            = errno == EINVAL || errno == ENOSYS || errno == EPERM || errno == ENOENT || errno == EOPNOTSUPP;
        return mayRename && publishByRename();
    }
    if (!synchronise(_folder)) {
        const int reason = errno;
        undoExchange();
        errno = reason;
        return false;
    }
    // The new file is safe. Should the old one not go now, the next save takes it away.
    if (isNamed(_oldFile, _temporaryName) && remove(_temporaryName)) {
        _temporaryName.clear();
        return true;
    }
    _oldFile = {};
    removeOrphan(std::exchange(_temporaryName, {}));
    return true;
}

/// Whoever has saved since then keeps the last word.
void Replacement::undoExchange()
{
    if (isNamed(_temporary, _name) && isNamed(_oldFile, _temporaryName)
        && !move(_temporaryName, _name, RENAME_EXCHANGE) && move(_temporaryName, _name))
        _temporaryName.clear();
}

bool Replacement::publishByRename()
{
    if (!move(_temporaryName, _name))
        return false;
    if (synchronise(_folder)) {
        _temporaryName.clear();
        return true;
    }
    const int reason = errno;
    undoRename();
    errno = reason;
    return false;
}

void Replacement::undoRename()
{
    const bool isOurs = isNamed(_temporary, _name);
    if (isOurs && !_hasOldFile)
        remove(_name);
    const auto hidden = std::exchange(_temporaryName, {});
    if (isOurs && !_oldTarget.empty()
        && uninterrupted(
               FileCalls::current().linkSymbolically, _oldTarget.c_str(), _folder.number(), hidden.c_str())
            == 0
        && !move(hidden, _name))
        remove(hidden);
}

void Replacement::removeTemporary()
{
    if (_temporaryName.empty())
        return;
    const int reason = errno;
    if (isNamed(_temporary, _temporaryName) || (_oldFile && isNamed(_oldFile, _temporaryName)))
        remove(_temporaryName);
    _temporaryName.clear();
    errno = reason;
}

bool Replacement::move(const std::string& from, const std::string& to, unsigned flags) const
{
    return uninterrupted(FileCalls::current().rename, _folder.number(), from.c_str(), _folder.number(),
               to.c_str(), flags)
        == 0;
}

bool Replacement::remove(const std::string& name) const
{
    return uninterrupted(FileCalls::current().unlinkAt, _folder.number(), name.c_str(), 0) == 0;
}

bool Replacement::isNamed(const FileDescriptor& file, const std::string& name) const
{
    struct stat own { };
    struct stat named { };
    return statusOf(file, own) && statusIn(_folder, name.c_str(), named) && own.st_dev == named.st_dev
        && own.st_ino == named.st_ino;
}

bool Replacement::lock(const FileDescriptor& file)
{
    return uninterrupted(FileCalls::current().lock, file.number(), LOCK_EX | LOCK_NB) == 0;
}

bool Replacement::synchronise(const FileDescriptor& file)
{
    return uninterrupted(FileCalls::current().sync, file.number()) == 0;
}

}

bool replaceFile(const DevicePlace& place, std::string_view contents)
{
    if (place.name == ".") {
        errno = EISDIR;
        return false;
    }
    return Replacement(place, contents).run();
}

}
