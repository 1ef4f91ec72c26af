#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <string>
#include <utility>

namespace platform {

/// The system calls through which the device's files are reached, each as the system names and means it. A
/// test puts its own in their place and so lets any step of a save fail.
struct FileCalls {
    int (*openAt)(int folder, const char* name, int flags, mode_t);
    int (*status)(int file, struct stat*);
    int (*statusAt)(int folder, const char* name, struct stat*, int flags);
    ssize_t (*readLinkAt)(int folder, const char* name, char*, std::size_t);
    ssize_t (*read)(int file, void*, std::size_t);
    ssize_t (*write)(int file, const void*, std::size_t);
    int (*changeMode)(int file, mode_t);
    int (*lock)(int file, int operation);
    int (*sync)(int file);
    int (*rename)(int folder, const char* from, int toFolder, const char* to, unsigned flags);
    int (*linkAt)(int folder, const char* name, int toFolder, const char* newName, int flags);
    int (*linkSymbolically)(const char* target, int folder, const char* name);
    int (*unlinkAt)(int folder, const char* name, int flags);
    int (*close)(int file);

    static FileCalls& current();
};

/// Makes a call again for as long as signals interrupt it.
template <typename Call, typename... Arguments> auto uninterrupted(Call call, Arguments... arguments)
{
    auto result = call(arguments...);
    while (result == -1 && errno == EINTR)
        result = call(arguments...);
    return result;
}

/// An open file, closed at the end; or none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number)
        : _number(number)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : _number(std::exchange(other._number, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&&) noexcept;
    ~FileDescriptor();

    int number() const { return _number; }
    explicit operator bool() const { return _number >= 0; }

private:
    int _number = -1;
};

/// Opens a name in a folder, which is never a way through a link. `errno` tells why there is none.
FileDescriptor openIn(const FileDescriptor& folder, const char* name, int flags, mode_t = 0);

bool statusOf(const FileDescriptor&, struct stat&);
/// Of a link, its own.
bool statusIn(const FileDescriptor& folder, const char* name, struct stat&);

/// Whether the name in the folder is this open file's.
bool isNamedIn(const FileDescriptor& folder, const FileDescriptor&, const std::string& name);
bool removeIn(const FileDescriptor& folder, const std::string& name);

/// Never waits: false when somebody else holds the file's lock.
bool lock(const FileDescriptor&);
bool synchronise(const FileDescriptor&);

}
