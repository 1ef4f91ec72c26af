#include "AnswerOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace host {

AnswerOutput::AnswerOutput()
    : _output(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
    std::fflush(stdout);
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
}

AnswerOutput::~AnswerOutput()
{
    std::fflush(stdout);
    ::dup2(_output, STDOUT_FILENO);
    ::close(_output);
}

void AnswerOutput::write(std::string_view text) const
{
    while (!text.empty()) {
        const auto count = ::write(_output, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd waiting { _output, POLLOUT, 0 };
            ::poll(&waiting, 1, -1);
        } else if (errno != EINTR) {
            throw std::runtime_error(
                std::string("The answers can't be written: ") + std::strerror(errno) + ".");
        }
    }
}

}
