#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

/// The notify centre on the desktop's session bus: path /net/morvane/NotifyCenter, interface
/// net.morvane.NotifyCenter, signal Posted(name). Posting itself is CFNotificationCenter.h.
namespace platform {

/// Waits for the answer, but no longer than a bus that is there takes. Before it, or the first post, there is
/// no connection.
bool sessionBusIsAvailable();

/// Waits until the bus has everything that was posted, or the time is over. Whoever posts calls it before the
/// process ends. Without posts or without a bus it returns at once.
void flushNotifications(std::chrono::milliseconds atMost = std::chrono::seconds(2));

/// Hears what any process posts, from the moment it is made. Calls come from the event loop of the thread
/// that made it.
class NotificationListener {
public:
    using Callback = std::function<void(const std::string& name)>;

    explicit NotificationListener(Callback);
    ~NotificationListener();
    NotificationListener(const NotificationListener&) = delete;
    NotificationListener& operator=(const NotificationListener&) = delete;

    /// False without a bus.
    bool isListening() const;

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};

}
