#include "DriverCommands.h"

#include "host/Instant.h"
#include "host/PreferenceFile.h"
#include "Json.h"
#include "platform/Device.h"
#include "platform/NSMutableDictionary.h"
#include "ScriptParser.h"

namespace host {

using namespace platform;

namespace {

/// Seconds; some three hundred years.
constexpr double longestWait = 1e10;

QJsonObject prefs(Driver&, Words)
{
    const auto file = NSMutableDictionary::dictionaryWithContentsOfFile(preferenceFile());
    return { { "prefs", file ? QJsonValue(jsonFromDictionary(file->entries())) : QJsonValue() } };
}

QJsonObject jsonFromEntry(const JournalEntry& entry)
{
    const auto name = jsonFromText(entry.name);
    switch (entry.kind) {
    case JournalEntry::Kind::Write:
        return { { "kind", "write" }, { "path", name }, { "ok", entry.succeeded } };
    case JournalEntry::Kind::Toggle:
        return { { "kind", "toggle" }, { "id", name }, { "state", static_cast<qint64>(entry.state) } };
    default:
        return { { "kind", "notification" }, { "name", name } };
    }
}

QJsonObject posted(Driver& driver, Words)
{
    QJsonArray entries;
    for (const auto& entry : driver.takePosted())
        entries.append(jsonFromEntry(entry));
    return { { "posted", entries } };
}

QJsonObject paints(Driver& driver, Words)
{
    QJsonObject counts;
    for (const auto& [className, count] : driver.takePaints())
        counts.insert(QString::fromStdString(className), count);
    return { { "paints", counts } };
}

QJsonObject clock(Driver& driver, Words words)
{
    double seconds = 0;
    if (!words[0].starts_with('+') || !readNumber(words[0], seconds) || seconds > longestWait)
        throw CommandFailure("clock takes +SECONDS, not " + quoted(words[0]) + ".");
    if (!driver.phone().moveClock(seconds))
        throw CommandFailure("The clock is the real one and can't be moved; --now makes it stand.");
    return { { "now", jsonFromTextOrNull(textFromInstant(*Device::current().standingClock)) } };
}

QJsonObject settle(Driver&, Words)
{
    return {}; // As every command, it is answered when the phone has settled.
}

constexpr DriverCommand commands[] = {
    { "prefs", 0, 0, "", prefs },
    { "posted", 0, 0, "", posted },
    { "paints", 0, 0, "", paints },
    { "clock", 1, 1, "+SECONDS", clock },
    { "settle", 0, 0, "", settle },
};

}

std::span<const DriverCommand> fileCommands()
{
    return commands;
}

}
