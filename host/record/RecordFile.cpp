#include "RecordFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
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
    , _file(::open(_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666))
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

void RecordFile::replaceFrom(std::size_t place, std::string_view text)
{
    if (_file < 0)
        return;
    for (std::size_t written = 0; written < text.size();) {
        const auto count = ::pwrite(
            _file, text.data() + written, text.size() - written, static_cast<off_t>(place + written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return fail(errno);
        written += static_cast<std::size_t>(count);
    }
    const auto size = place + text.size();
    if (size < _size && ::ftruncate(_file, static_cast<off_t>(size)) != 0)
        return fail(errno);
    _size = size;
}

void RecordFile::fail(int error)
{
    std::fprintf(stderr, "The recording %s ends here: %s.\n", _path.c_str(), reason(error).c_str());
    ::close(_file);
    _file = -1;
}

}
