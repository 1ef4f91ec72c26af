#include "SessionBus.h"

#include "BusThread.h"

#include <QDBusMessage>
#include <QFileInfo>

namespace platform {

namespace {

/// As the desktop announces it, else where a login session has its bus. The library's own way would go on to
/// start one.
QString sessionBusAddress()
{
    const auto announced = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!announced.isEmpty())
        return announced;
    const auto runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const auto socket = runtimeFolder + QStringLiteral("/bus");
    return runtimeFolder.isEmpty() || !QFileInfo::exists(socket) ? QString()
                                                                 : QStringLiteral("unix:path=") + socket;
}

}

QDBusConnection connectToSessionBus(const QString& name)
{
    startBusThread();
    QDBusConnection connection(name);
    if (connection.isConnected())
        return connection;
    QDBusConnection::disconnectFromBus(name);
    const auto address = sessionBusAddress();
    return address.isEmpty() ? QDBusConnection(name) : QDBusConnection::connectToBus(address, name);
}

bool makeRoundTrip(const QDBusConnection& connection, std::chrono::milliseconds atMost)
{
    const auto question = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("GetId"));
    return connection.call(question, QDBus::Block, static_cast<int>(atMost.count())).type()
        == QDBusMessage::ReplyMessage;
}

}
