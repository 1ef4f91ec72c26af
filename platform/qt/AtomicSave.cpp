#include "AtomicSave.h"

#include "HiddenFiles.h"

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

/// One save.
class Replacement {
public:
    Replacement(const DevicePlace& place, std::string_view contents)
        : _name(place.name)
        , _contents(contents)
        , _folder(openIn(place.folder, ".", O_RDONLY | O_DIRECTORY))
        , _hiddenFiles(_folder, place.name)
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
    bool makeTemporary();
    bool takeOverMode();
    bool writeContents();

    bool publish();
    bool publishByExchange();
    bool publishByRename();
    bool holdOldFile();
    void keepOldFile();
    void dropOldFile(const std::string& hiddenName);
    void undoExchange();
    void undoRename();
    void removeTemporary();

    bool move(const std::string& from, const std::string& to, unsigned flags = 0) const;
    bool remove(const std::string& name) const { return removeIn(_folder, name); }
    bool isNamed(const FileDescriptor& file, const std::string& name) const
    {
        return isNamedIn(_folder, file, name);
    }

    const std::string& _name;
    std::string_view _contents;
    FileDescriptor _folder;
    HiddenFiles _hiddenFiles;
    struct stat _oldStatus { };
    bool _hasOldFile = false;
    std::string _oldTarget; ///< Where the replaced link led.
    FileDescriptor _oldFile; ///< Locked, while it may bear a hidden name.
    FileDescriptor _temporary; ///< Locked.
    std::string _temporaryName; ///< Empty when there is none to remove.
    std::string _oldFileName; ///< Hidden; empty when the old file has no second name.
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

bool Replacement::makeTemporary()
{
    // Never more open than the old file, not even for a moment.
    auto made = _hiddenFiles.make(S_ISREG(_oldStatus.st_mode) ? _oldStatus.st_mode & 0777 : 0666);
    if (!made)
        return false;
    _temporary = std::move(made->file);
    _temporaryName = std::move(made->name);
    return true;
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
    if (_oldFile && lock(_oldFile) && isNamed(_oldFile, _name))
        return true;
    _oldFile = {};
    return false;
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
    dropOldFile(std::exchange(_temporaryName, {}));
    return true;
}

/// The new file is safe. Should the old one not go now, the next save takes it away.
void Replacement::dropOldFile(const std::string& hiddenName)
{
    if (isNamed(_oldFile, hiddenName) && remove(hiddenName))
        return;
    _oldFile = {};
    _hiddenFiles.removeOrphan(hiddenName);
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
    keepOldFile();
    const bool isMoved = move(_temporaryName, _name);
    const bool succeeded = isMoved && synchronise(_folder);
    const int reason = errno;
    if (succeeded)
        _temporaryName.clear();
    else if (isMoved)
        undoRename();
    if (!_oldFileName.empty())
        dropOldFile(_oldFileName);
    errno = reason;
    return succeeded;
}

/// By a second name, since the first is about to be the new file's.
void Replacement::keepOldFile()
{
    if (!_oldFile)
        return;
    _oldFileName = _hiddenFiles.linkOldFile().value_or(std::string());
    if (_oldFileName.empty() || isNamed(_oldFile, _oldFileName))
        return;
    // Somebody else's file has just taken the name.
    _oldFile = {};
    _hiddenFiles.removeOrphan(std::exchange(_oldFileName, {}));
}

void Replacement::undoRename()
{
    const bool isOurs = isNamed(_temporary, _name);
    if (isOurs && !_hasOldFile)
        remove(_name);
    if (isOurs && !_oldFileName.empty() && isNamed(_oldFile, _oldFileName) && move(_oldFileName, _name))
        _oldFileName.clear();
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
