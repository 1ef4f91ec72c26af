#pragma once

#include "LazyUpdate.h"
#include "TimelineEntry.h"

#include <QAbstractTableModel>

#include <deque>
#include <set>

namespace host {

/// What happened in the phone since the model was made, as far as it passes the filter: the last `limit`
/// entries, of which a hundredth may be missing. Recording costs little; views are told when nothing has
/// happened for a moment, or once a second, and only while the model is live.
class TimelineModel final : public QAbstractTableModel {
public:
    enum Column { TimeColumn, KindColumn, NameColumn, DetailColumn, ColumnCount };
    using Kind = platform::JournalEntry::Kind;
    static constexpr std::size_t usualLimit = 100000;

    explicit TimelineModel(QObject* parent = nullptr, std::size_t limit = usualLimit);
    ~TimelineModel() override;

    void clear();
    void setPaused(bool); ///< What happens while it is paused is not recorded.
    /// Whether views are told. They are brought up to date when it becomes so.
    void setLive(bool);
    /// Tells the views now.
    void flush();

    /// Entries of these kinds whose kind, name or detail has the text in it, in small or capital letters.
    void setFilter(std::set<Kind> kinds, const QString& text);

    const TimelineEntry& entry(int row) const;
    /// The first row that happened then or later; the number of rows when there is none.
    int rowSince(std::chrono::nanoseconds sinceStart) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex&, int role) const override;
    QVariant headerData(int section, Qt::Orientation, int role) const override;

private:
    using Number = std::uint64_t; ///< Of an entry, counted from the first that ever was.

    void take(const platform::JournalEntry&);
    void add(TimelineEntry);
    void dropOldest();
    bool passes(const TimelineEntry&) const;
    const TimelineEntry& numbered(Number number) const { return _entries[number - _first]; }

    std::size_t _limit;
    std::deque<TimelineEntry> _entries;
    Number _first = 0; ///< Of the first entry that is left.
    Number _next = 0; ///< The first that the views have not been told of.
    std::deque<Number> _shown;
    Number _pass = 0; ///< One after the entry of the present display pass; 0 for none.
    std::set<Kind> _kinds;
    QString _text;
    bool _isPaused = false;
    bool _isLive = false;
    LazyUpdate _flush;
    int _listener;
};

}
