#pragma once

#include "SheetMessage.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <sys/types.h>
#include <vector>

namespace host {

/// A process that renders. It is ended when this goes, wherever it is then.
class SheetProcess {
public:
    using Tell = std::function<void(const SheetMessage&)>;
    using Clock = std::chrono::steady_clock;

    /// Has the work done in a process of its own, which must have told `End` or `Failure` when it ends. What
    /// it prints goes into the file. The calling process must have one thread. Throws std::runtime_error with
    /// one sentence.
    SheetProcess(const std::function<void(const Tell&)>& work, std::filesystem::path printed);
    ~SheetProcess();
    SheetProcess(const SheetProcess&) = delete;
    SheetProcess& operator=(const SheetProcess&) = delete;

    /// Can be read when there is something to hear; −1 when it has ended.
    int pipe() const { return _pipe; }
    /// Reads what is there, and hands out what is whole of it.
    void listen(const std::function<void(SheetMessage)>& take);
    Clock::time_point lastHeard() const { return _lastHeard; }
    /// Of one that has ended: what was wrong with it, as a clause; empty when nothing was.
    std::string ending();
    /// Lines that it has printed, without those that `ending` tells.
    std::vector<std::string> printed() const;

private:
    pid_t _process = -1;
    int _pipe = -1;
    std::filesystem::path _printed;
    QByteArray _heard;
    Clock::time_point _lastHeard = Clock::now();
    bool _hasSaidAll = false;
    std::string _crash; ///< The sentence about it that it printed.
};

}
