#include "Interruption.h"

#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace host {

Interruption::Interruption()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : { SIGINT, SIGTERM, SIGHUP }) {
        struct sigaction action { };
        // One that is ignored and blocked would wait all the same.
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            ::sigaddset(&signals, signal);
    }
    _file = ::signalfd(-1, &signals, SFD_CLOEXEC);
    if (_file < 0)
        throw std::runtime_error(
            "Signals can't be waited for: " + std::generic_category().message(errno) + ".");
    ::pthread_sigmask(SIG_BLOCK, &signals, &_before);
}

Interruption::~Interruption()
{
    ::close(_file);
    ::pthread_sigmask(SIG_SETMASK, &_before, nullptr);
}

void Interruption::check() const
{
    pollfd waiting { _file, POLLIN, 0 };
    if (::poll(&waiting, 1, 0) > 0)
        throw Interrupted();
}

}
