#pragma once

#include <ctime>
#include <optional>
#include <QObject>

namespace host {

/// Ends work that comes to no end: what a thread does in one round of its event loop may cost it so much of
/// the processor's time, else it is a crash (CrashHandler.h). However busy the machine is, and while a
/// debugger holds the process, that time stands still; so it does while the thread waits.
class WorkLimit final {
public:
    static constexpr int mostSeconds = 10; ///< Of the processor's time.

    /// Of the thread that makes it and has an event loop, whose first round begins now. Where the system has
    /// no such clock there is no limit.
    WorkLimit();
    ~WorkLimit();
    WorkLimit(const WorkLimit&) = delete;
    WorkLimit& operator=(const WorkLimit&) = delete;

private:
    void beginRound() const;

    std::optional<timer_t> _timer;
    QObject _rounds; ///< Listens to the loop.
};

}
