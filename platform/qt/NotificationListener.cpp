#include "NotifyCenter.h"
#include "SessionBus.h"

#include <atomic>
#include <QObject>

namespace platform {

/// Where a listener's signals arrive.
class NotificationRelay final : public QObject {
    Q_OBJECT

public:
    explicit NotificationRelay(NotificationListener::Callback callback)
        : _callback(std::move(callback))
    {
    }

public Q_SLOTS:
    void posted(const QString& name) { _callback(name.toStdString()); }

private:
    NotificationListener::Callback _callback;
};

struct NotificationListener::Impl {
    explicit Impl(Callback callback)
        : relay(std::move(callback))
    {
    }

    // Each listener has a connection, and so hears its own process too.
    static QString newConnectionName()
    {
        static std::atomic<unsigned> count = 0;
        return QStringLiteral("net.morvane.NotifyCenter.listen%1").arg(++count);
    }

    QString connectionName = newConnectionName();
    bool isListening = false;
    NotificationRelay relay;
};

NotificationListener::NotificationListener(Callback callback)
    : _impl(std::make_unique<Impl>(std::move(callback)))
{
    constexpr std::chrono::milliseconds longestWait { 5000 };
    auto bus = connectToSessionBus(_impl->connectionName);
    _impl->isListening = bus.isConnected()
        && bus.connect(
            QString(), notifyPath, notifyInterface, notifySignal, &_impl->relay, SLOT(posted(QString)))
        // The bus takes the subscription without an answer of its own.
        && makeRoundTrip(bus, longestWait);
}

NotificationListener::~NotificationListener()
{
    QDBusConnection::disconnectFromBus(_impl->connectionName);
}

bool NotificationListener::isListening() const
{
    return _impl->isListening;
}

}

#include "NotificationListener.moc"
