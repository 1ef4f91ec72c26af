#include "Journal.h"

namespace platform {

Journal& Journal::shared()
{
    static Journal journal;
    return journal;
}

int Journal::listen(Listener listener)
{
    _listeners.emplace_back(_next, std::move(listener));
    return _next++;
}

void Journal::stop(int listener)
{
    std::erase_if(_listeners, [&](const auto& registered) { return registered.first == listener; });
}

bool Journal::isHeard() const
{
    return !_listeners.empty();
}

void Journal::record(const JournalEntry& entry) const
{
    for (std::size_t index = 0; index < _listeners.size(); ++index)
        _listeners[index].second(entry);
}

}
