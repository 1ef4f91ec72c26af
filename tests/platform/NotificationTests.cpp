#include "platform/CFNotificationCenter.h"
#include "platform/Journal.h"
#include "platform/qt/NotifyCenter.h"
#include "platform/Runtime.h"
#include "PrivateBus.h"

#include <gtest/gtest.h>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

using namespace platform;

namespace {

constexpr std::chrono::seconds longestWait { 60 }; // Only a failure waits that long.

void post(std::string_view name)
{
    CFNotificationCenterPostNotification(
        CFNotificationCenterGetDarwinNotifyCenter(), name, nullptr, nullptr, true);
}

/// Everything a listener hears.
class Ear {
public:
    /// Waits for that many names; fewer when they do not come.
    const std::vector<std::string>& waitFor(std::size_t count)
    {
        QTimer::singleShot(longestWait, &_loop, &QEventLoop::quit);
        _wanted = count;
        if (_names.size() < count)
            _loop.exec();
        return _names;
    }

    bool isListening() const { return _listener.isListening(); }

private:
    void hear(const std::string& name)
    {
        _names.push_back(name);
        if (_names.size() >= _wanted)
            _loop.quit();
    }

    QEventLoop _loop;
    std::size_t _wanted = 0;
    std::vector<std::string> _names;
    NotificationListener _listener { [this](const std::string& name) { hear(name); } };
};

/// A bus that takes connections and never says a word.
class SilentBus {
public:
    SilentBus()
    {
        const auto path = _folder.path() / "bus";
        sockaddr_un address { .sun_family = AF_UNIX, .sun_path = {} };
        path.string().copy(address.sun_path, sizeof address.sun_path - 1);
        ::bind(_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::listen(_socket, 8);
        _before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray::fromStdString("unix:path=" + path.string()));
    }
    ~SilentBus()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", _before);
        ::close(_socket); // Which ends every conversation.
    }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

private:
    TemporaryFolder _folder;
    int _socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    QByteArray _before;
};

/// There is no bus but those that a test starts itself.
class Notifications : public testing::Test {
protected:
    Notifications() { qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); }
};

TEST_F(Notifications, ReachEveryListenerByName)
{
    const PrivateBus bus;
    Ear one;
    Ear other;
    ASSERT_TRUE(one.isListening());
    ASSERT_TRUE(other.isListening());
    post("net.morvane.vekora/preferences");
    post("another");
    const std::vector<std::string> expected { "net.morvane.vekora/preferences", "another" };
    EXPECT_EQ(one.waitFor(2), expected);
    EXPECT_EQ(other.waitFor(2), expected);
}

TEST_F(Notifications, AreAllDeliveredInOrder)
{
    const PrivateBus bus;
    Ear ear;
    std::vector<std::string> expected;
    for (int index = 0; index < 500; ++index) {
        expected.push_back("name " + std::to_string(index));
        post(expected.back());
    }
    EXPECT_EQ(ear.waitFor(expected.size()), expected);
}

TEST_F(Notifications, AreOrdinarySignalsOnTheBus)
{
    const PrivateBus bus;
    const TemporaryFolder folder;
    const auto log = folder.path() / "monitor.log";
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t monitor = ::fork();
    if (monitor == 0) {
        ::dup2(ready[1], 1);
        ::execlp("dbus-monitor", "dbus-monitor", "--address", bus.address().c_str(),
            "path='/net/morvane/NotifyCenter',interface='net.morvane.NotifyCenter',member='Posted'",
            static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(ready[1]);
    std::string text;
    const auto readUntil = [&](std::string_view wanted) {
        char character = 0;
        while (text.find(wanted) == text.npos && ::read(ready[0], &character, 1) == 1)
            text += character;
        return text.find(wanted) != text.npos;
    };
    // It says so when it has become a monitor.
    EXPECT_TRUE(readUntil("NameLost") || readUntil("NameAcquired"));
    post("net.morvane.vekora/preferences");
    EXPECT_TRUE(readUntil("string \"net.morvane.vekora/preferences\"")) << text;
    ::close(ready[0]);
    ::kill(monitor, SIGKILL);
    ::waitpid(monitor, nullptr, 0);
}

TEST_F(Notifications, AreDeliveredByAProcessThatEndsAtOnce)
{
    const PrivateBus bus;
    Ear ear;
    const pid_t poster = ::fork();
    if (poster == 0) {
        ::execl(VEKORA_POST_AND_EXIT, VEKORA_POST_AND_EXIT, "last words", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = -1;
    ::waitpid(poster, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(ear.waitFor(1), std::vector<std::string> { "last words" });
}

TEST_F(Notifications, FindABusThatComesLater)
{
    post("nobody hears this");
    flushNotifications();
    EXPECT_FALSE(sessionBusIsAvailable());
    const PrivateBus bus;
    EXPECT_TRUE(sessionBusIsAvailable());
    Ear ear;
    post("now");
    EXPECT_EQ(ear.waitFor(1), std::vector<std::string> { "now" });
}

TEST_F(Notifications, FindTheNextBusWhenOneIsGone)
{
    {
        const PrivateBus bus;
        post("on the first");
        flushNotifications();
    }
    const PrivateBus bus;
    Ear ear;
    // The first question may be what shows that the old bus is gone.
    EXPECT_TRUE(sessionBusIsAvailable() || sessionBusIsAvailable());
    post("on the second");
    EXPECT_EQ(ear.waitFor(1), std::vector<std::string> { "on the second" });
}

TEST_F(Notifications, AreNothingWithoutABus)
{
    post("nobody hears this");
    flushNotifications();
    EXPECT_FALSE(sessionBusIsAvailable());
    const Ear ear;
    EXPECT_FALSE(ear.isListening());
}

TEST_F(Notifications, WithoutANameAreIgnored)
{
    std::vector<std::string> names;
    const auto listener
        = Journal::shared().listen([&](const JournalEntry& entry) { names.push_back(entry.name); });
    post("");
    post("a name");
    Journal::shared().stop(listener);
    EXPECT_EQ(names, std::vector<std::string> { "a name" });
}

TEST_F(Notifications, AreRecordedEachTimeWithABusOrWithout)
{
    std::vector<JournalEntry::Kind> kinds;
    const auto listener
        = Journal::shared().listen([&](const JournalEntry& entry) { kinds.push_back(entry.kind); });
    post("one");
    post("one");
    Journal::shared().stop(listener);
    EXPECT_EQ(kinds, (std::vector { JournalEntry::Kind::Notification, JournalEntry::Kind::Notification }));
}

TEST_F(Notifications, AreRecordedWithWhatTheCentreIgnores)
{
    std::vector<std::string> details;
    const auto listener
        = Journal::shared().listen([&](const JournalEntry& entry) { details.push_back(entry.detail); });
    auto& center = CFNotificationCenterGetDarwinNotifyCenter();
    const NSObject object;
    const PropertyList userInfo;
    CFNotificationCenterPostNotification(center, "name", nullptr, nullptr, true);
    CFNotificationCenterPostNotification(center, "name", nullptr, nullptr, false);
    CFNotificationCenterPostNotification(center, "name", &object, nullptr, false);
    CFNotificationCenterPostNotification(center, "name", &object, &userInfo, true);
    Journal::shared().stop(listener);
    EXPECT_EQ(details,
        (std::vector<std::string> { "immediately", "", "object", "object, user info, immediately" }));
}

TEST_F(Notifications, NeverWaitForABusThatHangs)
{
    flushNotifications();
    const SilentBus bus;
    const QDeadlineTimer deadline(std::chrono::seconds(20)); // The bus's own patience is 25.
    for (int index = 0; index < 100; ++index)
        post("into the void");
    flushNotifications(std::chrono::milliseconds(50));
    EXPECT_FALSE(deadline.hasExpired());
}

}
