#pragma once

#include <csignal>
#include <exception>

namespace host {

/// Somebody asked the process to end.
class Interrupted final : public std::exception {
public:
    const char* what() const noexcept override { return "Interrupted."; }
};

/// While it lives, what asks the process to end (Ctrl-C, SIGTERM, a terminal that closes) waits, so that what
/// was begun can be taken back first. It arrives, and ends the process as usual, when this goes. Signals that
/// are ignored stay ignored. For a process with one thread; those that it starts wait as well.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Can be read as soon as one waits: for poll(), not to be read from.
    int file() const { return _file; }
    /// Throws `Interrupted` when one waits.
    void check() const;

private:
    sigset_t _before {};
    int _file = -1;
};

}
