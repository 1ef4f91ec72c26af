#include "LineReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

constexpr std::size_t blockSize = 65536;

}

LineReader::LineReader(const std::string& file)
    : _name(file == "-" ? "Standard input" : "The script \"" + file + "\"")
{
    // Standard input is opened a second time, so that every reader closes its own.
    _file = file == "-" ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                        : ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    struct stat status { };
    if (_file < 0 || ::fstat(_file, &status) < 0)
        fail(errno);
    if (S_ISDIR(status.st_mode)) {
        ::close(_file);
        fail(EISDIR);
    }
}

LineReader::~LineReader()
{
    ::close(_file);
}

void LineReader::fail(int error) const
{
    throw std::runtime_error(_name + " can't be read: " + std::strerror(error) + ".");
}

bool LineReader::fill()
{
    _buffer.erase(0, _place);
    _place = 0;
    char block[blockSize];
    for (;;) {
        const auto count = ::read(_file, block, sizeof block);
        if (count >= 0) {
            _buffer.append(block, static_cast<std::size_t>(count));
            return count > 0;
        }
        if (errno == EAGAIN) {
            // Whoever shares the file with us has made it non-blocking.
            pollfd waiting { _file, POLLIN, 0 };
            ::poll(&waiting, 1, -1);
        } else if (errno != EINTR) {
            fail(errno);
        }
    }
}

LineReader::Result LineReader::next(std::string& line)
{
    line.clear();
    bool isTooLong = false;
    for (;;) {
        const auto end = std::min(_buffer.find('\n', _place), _buffer.size());
        const auto room = longestLine - line.size();
        isTooLong |= end - _place > room;
        line.append(_buffer, _place, std::min(end - _place, room));
        const bool isWhole = end < _buffer.size();
        _place = isWhole ? end + 1 : end;
        if (isWhole || !fill()) {
            if (!isWhole && line.empty())
                return Result::End;
            return isTooLong ? Result::TooLong : Result::Line;
        }
    }
}

}
