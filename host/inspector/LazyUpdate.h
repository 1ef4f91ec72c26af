#pragma once

#include <chrono>
#include <functional>
#include <QTimer>

namespace host {

/// Brings something that is shown up to date when what it shows has come to rest, and once a second while it
/// does not: so what changes all the time, as in a drag, costs the drag next to nothing. No timer runs while
/// nothing was requested.
class LazyUpdate {
public:
    static constexpr std::chrono::milliseconds rest { 100 }; ///< Without a request.
    static constexpr std::chrono::milliseconds mostDelay { 1000 };

    explicit LazyUpdate(std::function<void()> update);

    void request();
    void cancel() { _timer.stop(); }
    bool isPending() const { return _timer.isActive(); }

private:
    using Clock = std::chrono::steady_clock;

    void look();

    std::function<void()> _update;
    QTimer _timer;
    Clock::time_point _first, _last; ///< Requests since the last update.
};

}
