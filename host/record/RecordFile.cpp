#include "RecordFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace {

std::string reason(int error)
{
    return error == EEXIST ? "it is there already, and a recording replaces nothing"
                           : std::generic_category().message(error);
}

}

RecordFile::RecordFile(std::string path, std::string_view header)
    : _path(std::move(path))
    , _file(::open(_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666))
{
    if (_file < 0)
        throw std::runtime_error("The recording " + _path + " can't be written: " + reason(errno) + ".");
    append(header);
}

RecordFile::~RecordFile()
{
    if (_file >= 0)
        ::close(_file);
}

bool RecordFile::writeAt(std::size_t place, std::string_view text)
{
    while (!text.empty()) {
        const auto count = ::pwrite(_file, text.data(), text.size(), static_cast<off_t>(place));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        place += static_cast<std::size_t>(count);
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void RecordFile::replaceFrom(std::size_t place, std::string_view text)
{
    if (_file < 0)
        return;
    std::string before(_size - place, '\0');
    const bool canBePutBack = ::pread(_file, before.data(), before.size(), static_cast<off_t>(place))
        == static_cast<ssize_t>(before.size());
    const auto size = place + text.size();
    if (!writeAt(place, text) || (size < _size && ::ftruncate(_file, static_cast<off_t>(size)) != 0)) {
        const auto error = errno;
        // Else it would end within a command.
        const auto isBack = canBePutBack && writeAt(place, before);
        static_cast<void>(::ftruncate(_file, static_cast<off_t>(isBack ? _size : place)));
        return fail(reason(error));
    }
    _size = size;
}

bool RecordFile::finish()
{
    if (_file < 0)
        return false;
    struct stat own { };
    struct stat named { };
    if (::fstat(_file, &own) == 0 && ::stat(_path.c_str(), &named) == 0 && own.st_dev == named.st_dev
        && own.st_ino == named.st_ino)
        return true;
    fail("the file is gone");
    return false;
}

void RecordFile::fail(const std::string& why)
{
    std::fprintf(stderr, "The recording %s ends here: %s.\n", _path.c_str(), why.c_str());
    ::close(_file);
    _file = -1;
}

}
