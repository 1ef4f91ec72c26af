#include "FileCalls.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

FileCalls& FileCalls::current()
{
    static FileCalls calls {
        .openAt = [](int folder, const char* name, int flags,
                      mode_t mode) { return ::openat(folder, name, flags, mode); },
        .status = ::fstat,
        .statusAt = ::fstatat,
        .readLinkAt = ::readlinkat,
        .read = ::read,
        .write = ::write,
        .changeMode = ::fchmod,
        .lock = ::flock,
        .sync = ::fsync,
        .rename = ::renameat2,
        .linkAt = ::linkat,
        .linkSymbolically = ::symlinkat,
        .unlinkAt = ::unlinkat,
        .close = ::close,
    };
    return calls;
}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    std::swap(_number, other._number);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (_number < 0)
        return;
    const int reason = errno; // Closing is tidying up; what is being reported came before it.
    FileCalls::current().close(_number);
    errno = reason;
}

FileDescriptor openIn(const FileDescriptor& folder, const char* name, int flags, mode_t mode)
{
    return FileDescriptor(uninterrupted(
        FileCalls::current().openAt, folder.number(), name, flags | O_NOFOLLOW | O_CLOEXEC, mode));
}

bool statusOf(const FileDescriptor& file, struct stat& status)
{
    return uninterrupted(FileCalls::current().status, file.number(), &status) == 0;
}

bool statusIn(const FileDescriptor& folder, const char* name, struct stat& status)
{
    return uninterrupted(FileCalls::current().statusAt, folder.number(), name, &status, AT_SYMLINK_NOFOLLOW)
        == 0;
}

bool isNamedIn(const FileDescriptor& folder, const FileDescriptor& file, const std::string& name)
{
    struct stat own { };
    struct stat named { };
    return statusOf(file, own) && statusIn(folder, name.c_str(), named) && own.st_dev == named.st_dev
        && own.st_ino == named.st_ino;
}

bool removeIn(const FileDescriptor& folder, const std::string& name)
{
    return uninterrupted(FileCalls::current().unlinkAt, folder.number(), name.c_str(), 0) == 0;
}

bool lock(const FileDescriptor& file)
{
    return uninterrupted(FileCalls::current().lock, file.number(), LOCK_EX | LOCK_NB) == 0;
}

bool synchronise(const FileDescriptor& file)
{
    return uninterrupted(FileCalls::current().sync, file.number()) == 0;
}

}
