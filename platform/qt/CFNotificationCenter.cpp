#include "../CFNotificationCenter.h"

#include "../Journal.h"
#include "NotifyCenter.h"
#include "SessionBus.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <QDBusMessage>
#include <thread>

namespace platform {

namespace {

constexpr std::chrono::milliseconds longestRoundTrip { 1000 };

/// Carries posts to the bus on a thread of its own, since connecting waits for the bus and a bus may hang.
class Poster {
public:
    /// Never destroyed, so that its thread never outlives it.
    static Poster& shared()
    {
        static auto* const poster = std::make_unique<Poster>().release();
        return *poster;
    }

    void post(std::string_view name);
    void flush(std::chrono::milliseconds atMost);
    bool connect(std::chrono::milliseconds atMost);

private:
    using Lock = std::unique_lock<std::mutex>;

    void startThread();
    bool waitForRound(Lock&, std::chrono::milliseconds atMost);
    void run();
    static QDBusConnection bus()
    {
        return connectToSessionBus(QStringLiteral("net.morvane.NotifyCenter.post"));
    }
    static bool send(const std::deque<std::string>& names);

    std::mutex _mutex;
    std::condition_variable _workIsThere;
    std::condition_variable _roundIsDone;
    std::deque<std::string> _names; ///< Posted and not yet taken by the thread.
    unsigned _roundsWanted = 0; ///< How often somebody asked to wait for the bus's answer.
    unsigned _roundsDone = 0;
    bool _isConnected = false; ///< After the last round.
    bool _hasThread = false;
};

void Poster::startThread()
{
    if (std::exchange(_hasThread, true))
        return;
    std::thread([this] { run(); }).detach();
}

void Poster::post(std::string_view name)
{
    const Lock lock(_mutex);
    _names.emplace_back(name);
    startThread();
    _workIsThere.notify_one();
}

bool Poster::waitForRound(Lock& lock, std::chrono::milliseconds atMost)
{
    const auto wanted = ++_roundsWanted;
    _workIsThere.notify_one();
    return _roundIsDone.wait_for(lock, atMost, [&] { return _roundsDone >= wanted; });
}

void Poster::flush(std::chrono::milliseconds atMost)
{
    Lock lock(_mutex);
    if (_hasThread)
        waitForRound(lock, atMost);
}

bool Poster::connect(std::chrono::milliseconds atMost)
{
    Lock lock(_mutex);
    startThread();
    return waitForRound(lock, atMost) && _isConnected;
}

bool Poster::send(const std::deque<std::string>& names)
{
    const auto connection = bus();
    if (!connection.isConnected())
        return false;
    for (const auto& name : names) {
        auto signal = QDBusMessage::createSignal(notifyPath, notifyInterface, notifySignal);
        signal << QString::fromStdString(name);
        connection.send(signal);
    }
    return true;
}

void Poster::run()
{
    for (Lock lock(_mutex);;) {
        _workIsThere.wait(lock, [this] { return !_names.empty() || _roundsDone != _roundsWanted; });
        const auto names = std::exchange(_names, {});
        const auto rounds = _roundsWanted;
        const bool answerIsWanted = rounds != _roundsDone;
        lock.unlock();
        bool isConnected = send(names);
        if (answerIsWanted && isConnected)
            isConnected = makeRoundTrip(bus(), longestRoundTrip);
        lock.lock();
        _isConnected = isConnected;
        if (answerIsWanted) {
            _roundsDone = rounds;
            _roundIsDone.notify_all();
        }
    }
}

}

namespace {

std::string describe(bool hasObject, bool hasUserInfo, bool immediately)
{
    std::string text;
    for (const auto& [isThere, word] : { std::pair(hasObject, "object"), std::pair(hasUserInfo, "user info"),
             std::pair(immediately, "immediately") }) {
        if (isThere)
            text += (text.empty() ? "" : ", ") + std::string(word);
    }
    return text;
}

}

class CFNotificationCenter { };

CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter()
{
    static CFNotificationCenter center;
    return center;
}

void CFNotificationCenterPostNotification(CFNotificationCenter&, std::string_view name,
    const NSObject* object, const PropertyList* userInfo, bool deliverImmediately)
{
    if (name.empty())
        return;
    if (const auto& journal = Journal::shared(); journal.isHeard()) {
        journal.record({
            .kind = JournalEntry::Kind::Notification,
            .name = std::string(name),
            .detail = describe(object, userInfo, deliverImmediately),
        });
    }
    Poster::shared().post(name);
}

bool sessionBusIsAvailable()
{
    return Poster::shared().connect(longestRoundTrip);
}

void flushNotifications(std::chrono::milliseconds atMost)
{
    Poster::shared().flush(atMost);
}

}
