#pragma once

#include <chrono>
#include <QDBusConnection>
#include <QString>

/// What posting and listening share. Everything here blocks.
namespace platform {

inline const QString notifyPath = QStringLiteral("/net/morvane/NotifyCenter");
inline const QString notifyInterface = QStringLiteral("net.morvane.NotifyCenter");
inline const QString notifySignal = QStringLiteral("Posted");

/// A connection to the session bus under a name of our own, new unless the name has one that still stands. No
/// bus is started for it.
QDBusConnection connectToSessionBus(const QString& name);

/// Asks the bus and waits for the answer: by then it has all that was sent before. False without an answer.
bool makeRoundTrip(const QDBusConnection&, std::chrono::milliseconds atMost);

}
