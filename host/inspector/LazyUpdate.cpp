#include "LazyUpdate.h"

#include <algorithm>

namespace host {

LazyUpdate::LazyUpdate(std::function<void()> update)
    : _update(std::move(update))
{
    _timer.setSingleShot(true);
    _timer.callOnTimeout([this] { look(); });
}

void LazyUpdate::request()
{
    _last = Clock::now();
    if (_timer.isActive())
        return; // It looks at the time when it is over, which is cheaper than to set it anew each time.
    _first = _last;
    _timer.start(rest);
}

void LazyUpdate::look()
{
    const auto due = std::min(_last + rest, _first + mostDelay);
    const auto now = Clock::now();
    if (now >= due)
        return _update();
    _timer.start(std::chrono::ceil<std::chrono::milliseconds>(due - now));
}

}
