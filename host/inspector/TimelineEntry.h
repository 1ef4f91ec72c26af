#pragma once

#include "platform/Journal.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <QString>
#include <span>
#include <string_view>

namespace host {

/// Something that happened, and when. What one display pass painted is one entry.
struct TimelineEntry {
    platform::JournalEntry what; ///< Of paints, the kind alone.
    std::chrono::nanoseconds sinceStart; ///< Of the program, by the real clock that never goes back.
    std::chrono::system_clock::time_point wallTime; ///< By the real clock, whatever the device's says.
    std::map<std::string, int> paints {}; ///< How often views of each class were painted.

    static TimelineEntry ofNow(const platform::JournalEntry&);

    QString milliseconds() const; ///< Since the start, as "1234.5".
    QString time() const; ///< In UTC, as "2014-01-05T09:17:42.600Z".
    QString kind() const; ///< The word of `timelineKinds`.
    QString name() const;
    QString detail() const;
    bool isFailure() const { return !what.succeeded; }

    /// Fields between tabs: those above, in that order. Blanks stand for tabs and ends of lines in them.
    QString tsv() const;
    /// One object, with "ms", "time", "kind", "name" and "detail", and further "x" and "y" of a touch,
    /// "views" of a repaint (a count a class), "ok" of a write, and "state" of a toggle.
    QByteArray json() const;
};

struct TimelineKind {
    platform::JournalEntry::Kind kind;
    const char* word; ///< In the table and in saved files.
    const char* title; ///< Of all of them.
};

std::span<const TimelineKind> timelineKinds();

}
