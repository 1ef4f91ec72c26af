#include "TimelineEntry.h"

#include "host/driver/Json.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QTimeZone>

namespace host {

using namespace platform;

namespace {

using Kind = JournalEntry::Kind;
using Clock = std::chrono::steady_clock;

const auto start = Clock::now();

constexpr TimelineKind kinds[] = {
    { Kind::Touch, "touch", "Touches" },
    { Kind::Action, "action", "Actions" },
    { Kind::Paint, "repaint", "Repaints" },
    { Kind::Write, "write", "Writes" },
    { Kind::Notification, "notification", "Notifications" },
    { Kind::Toggle, "toggle", "Toggle" },
};

QString qString(const std::string& text)
{
    return QString::fromStdString(text);
}

}

std::span<const TimelineKind> timelineKinds()
{
    return kinds;
}

TimelineEntry TimelineEntry::ofNow(const JournalEntry& what)
{
    return { what, Clock::now() - start, std::chrono::system_clock::now() };
}

QString TimelineEntry::milliseconds() const
{
    return QString::number(std::chrono::duration<double, std::milli>(sinceStart).count(), 'f', 1);
}

QString TimelineEntry::time() const
{
    const auto sinceEpoch
        = std::chrono::duration_cast<std::chrono::milliseconds>(wallTime.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch, Qt::UTC).toString(Qt::ISODateWithMs);
}

QString TimelineEntry::kind() const
{
    for (const auto& known : kinds) {
        if (known.kind == what.kind)
            return QString::fromLatin1(known.word);
    }
    return {};
}

QString TimelineEntry::name() const
{
    if (what.kind == Kind::Write)
        return qString(what.name).section(QLatin1Char('/'), -1);
    if (what.kind != Kind::Paint)
        return qString(what.name);
    QStringList classes;
    for (const auto& [className, count] : paints)
        classes
            += count == 1 ? qString(className) : QStringLiteral("%1 × %2").arg(count).arg(qString(className));
    return classes.join(QStringLiteral(", "));
}

QString TimelineEntry::detail() const
{
    switch (what.kind) {
    case Kind::Touch:
        return QStringLiteral("%1 at %2, %3").arg(qString(what.detail)).arg(what.place.x).arg(what.place.y);
    case Kind::Paint: {
        int views = 0;
        for (const auto& [className, count] : paints)
            views += count;
        return views == 1 ? QStringLiteral("1 view") : QStringLiteral("%1 views").arg(views);
    }
    case Kind::Write:
        return (what.succeeded ? QStringLiteral("written in %1") : QStringLiteral("failed in %1"))
            .arg(qString(what.name).section(QLatin1Char('/'), 0, -2));
    case Kind::Toggle:
        return what.state ? QStringLiteral("on") : QStringLiteral("off");
    default:
        return qString(what.detail);
    }
}

QString TimelineEntry::tsv() const
{
    auto fields = QStringList { milliseconds(), time(), kind(), name(), detail() };
    for (auto& field : fields) {
        for (auto& character : field) {
            if (character < QLatin1Char(' '))
                character = QLatin1Char(' ');
        }
    }
    return fields.join(QLatin1Char('\t'));
}

QByteArray TimelineEntry::json() const
{
    QJsonObject object {
        { "ms", milliseconds().toDouble() },
        { "time", time() },
        { "kind", kind() },
        { "name", what.kind == Kind::Write ? qString(what.name) : name() },
        { "detail", detail() },
    };
    if (what.kind == Kind::Touch) {
        object["x"] = what.place.x;
        object["y"] = what.place.y;
    } else if (what.kind == Kind::Paint) {
        QJsonObject views;
        for (const auto& [className, count] : paints)
            views.insert(qString(className), count);
        object["views"] = views;
    } else if (what.kind == Kind::Write) {
        object["ok"] = what.succeeded;
    } else if (what.kind == Kind::Toggle) {
        object["state"] = static_cast<qint64>(what.state);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

}
