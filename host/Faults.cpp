#include "Faults.h"

#include "platform/qt/DeviceFiles.h"
#include "PreferenceFile.h"

#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace host {

using namespace platform;

namespace {

constexpr FaultWord words[] = {
    { "write", Fault::Write, "The next write fails" },
    { "vanish", Fault::Vanish, "The file vanishes" },
    { "readonly", Fault::ReadOnly, "File and folder become read-only" },
    { "half-written", Fault::HalfWritten, "Half a file is left" },
    { "off", Fault::Off, "Everything works again" },
};

[[noreturn]] void fail(const std::string& what)
{
    throw std::runtime_error("The preference file " + what + ": " + std::strerror(errno) + ".");
}

/// What another process would do, and so past the faults that are the phone's.
void removeFile()
{
    const auto place = findPlace(preferenceFile(), FinalLink::Keep);
    if (!place || ::unlinkat(place->folder.number(), place->name.c_str(), 0) != 0)
        fail("can't vanish");
}

void halveFile()
{
    const auto place = findPlace(preferenceFile(), FinalLink::Follow);
    const FileDescriptor file(place ? ::openat(place->folder.number(), place->name.c_str(),
                                  O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)
                                    : -1);
    struct stat status { };
    if (!file || ::fstat(file.number(), &status) != 0)
        fail("can't be halved");
    // Of less, nothing would be left, which is an empty dictionary and no half of a file.
    if (!S_ISREG(status.st_mode) || status.st_size < 2)
        throw std::runtime_error("The preference file can't be halved: there is too little in it.");
    if (::ftruncate(file.number(), status.st_size / 2) != 0)
        fail("can't be halved");
}

/// Whether this is the folder of the preference file.
bool isPreferenceFolder(int folder)
{
    const auto place = findPlace(preferenceFile(), FinalLink::Follow);
    struct stat own { };
    struct stat given { };
    return place && ::fstat(place->folder.number(), &own) == 0 && ::fstat(folder, &given) == 0
        && own.st_dev == given.st_dev && own.st_ino == given.st_ino;
}

FileCalls& systemCalls()
{
    static FileCalls calls;
    return calls;
}

}

std::span<const FaultWord> faultWords()
{
    return words;
}

/// Stand in for the system's calls while there is a fault.
struct Faults::Calls {
    static bool denies(int folder)
    {
        if (!current()._isReadOnly || !isPreferenceFolder(folder))
            return false;
        errno = EACCES;
        return true;
    }

    static int openAt(int folder, const char* name, int flags, mode_t mode)
    {
        const auto writes = (flags & (O_CREAT | O_WRONLY | O_RDWR | O_TRUNC)) != 0;
        return writes && denies(folder) ? -1 : systemCalls().openAt(folder, name, flags, mode);
    }
    static ssize_t write(int file, const void* bytes, std::size_t count)
    {
        if (!std::exchange(current()._nextWriteFails, false))
            return systemCalls().write(file, bytes, count);
        errno = ENOSPC;
        return -1;
    }
    static int rename(int folder, const char* from, int toFolder, const char* to, unsigned flags)
    {
        return denies(folder) || denies(toFolder) ? -1
                                                  : systemCalls().rename(folder, from, toFolder, to, flags);
    }
    static int linkAt(int folder, const char* name, int toFolder, const char* newName, int flags)
    {
        return denies(toFolder) ? -1 : systemCalls().linkAt(folder, name, toFolder, newName, flags);
    }
    static int linkSymbolically(const char* target, int folder, const char* name)
    {
        return denies(folder) ? -1 : systemCalls().linkSymbolically(target, folder, name);
    }
    static int unlinkAt(int folder, const char* name, int flags)
    {
        return denies(folder) ? -1 : systemCalls().unlinkAt(folder, name, flags);
    }
};

Faults& Faults::current()
{
    static Faults faults;
    return faults;
}

void Faults::make(Fault fault)
{
    makeHappen(fault);
    for (const auto& known : faultWords()) {
        if (known.fault == fault && _listener)
            _listener(known);
    }
}

void Faults::setListener(std::function<void(const FaultWord&)> listener)
{
    _listener = std::move(listener);
}

void Faults::makeHappen(Fault fault)
{
    switch (fault) {
    case Fault::Write:
        _nextWriteFails = true;
        return standBetween();
    case Fault::Vanish:
        return removeFile();
    case Fault::ReadOnly:
        _isReadOnly = true;
        return standBetween();
    case Fault::HalfWritten:
        return halveFile();
    case Fault::Off:
        _nextWriteFails = false;
        _isReadOnly = false;
        return stepAside();
    }
}

void Faults::standBetween()
{
    if (std::exchange(_standsBetween, true))
        return;
    auto& calls = FileCalls::current();
    systemCalls() = calls;
    calls.openAt = Calls::openAt;
    calls.write = Calls::write;
    calls.rename = Calls::rename;
    calls.linkAt = Calls::linkAt;
    calls.linkSymbolically = Calls::linkSymbolically;
    calls.unlinkAt = Calls::unlinkAt;
}

void Faults::stepAside()
{
    if (std::exchange(_standsBetween, false))
        FileCalls::current() = systemCalls();
}

}
