#include "TimelineModel.h"

#include "host/ToolTip.h"

#include <QColor>

#include <algorithm>
#include <array>

namespace host {

using namespace platform;

TimelineModel::TimelineModel(QObject* parent, std::size_t limit)
    : QAbstractTableModel(parent)
    , _limit(limit)
    , _flush([this] { flush(); })
{
    for (const auto& known : timelineKinds())
        _kinds.insert(known.kind);
    _listener = Journal::shared().listen([this](const JournalEntry& entry) { take(entry); });
}

TimelineModel::~TimelineModel()
{
    Journal::shared().stop(_listener);
}

void TimelineModel::take(const JournalEntry& what)
{
    if (what.kind == Kind::Display)
        _pass = 0;
    if (what.kind == Kind::Display || _isPaused)
        return;
    if (what.kind != Kind::Paint)
        return add(TimelineEntry::ofNow(what));
    if (_pass <= _next || _pass <= _first) {
        add(TimelineEntry::ofNow({ Kind::Paint, {} }));
        _pass = _first + _entries.size();
    }
    ++_entries[_pass - 1 - _first].paints[what.name];
}

void TimelineModel::add(TimelineEntry entry)
{
    _entries.push_back(std::move(entry));
    // Else nobody would drop any while the event loop does not run, or the panel is hidden.
    if (_entries.size() > 2 * _limit)
        flush();
    if (_isLive)
        _flush.request();
}

void TimelineModel::dropOldest()
{
    if (_entries.size() <= _limit)
        return;
    // Some more than must be, so that not every further entry moves all of them.
    const auto count = _entries.size() - _limit + _limit / 100;
    const auto gone = std::lower_bound(_shown.begin(), _shown.end(), _first + count);
    const bool isSeen = gone != _shown.begin();
    // Whoever hears of it beforehand may still ask for what the rows hold.
    if (isSeen)
        beginRemoveRows({}, 0, static_cast<int>(gone - _shown.begin()) - 1);
    _shown.erase(_shown.begin(), gone);
    _entries.erase(_entries.begin(), _entries.begin() + static_cast<std::ptrdiff_t>(count));
    _first += count;
    _next = std::max(_next, _first);
    if (isSeen)
        endRemoveRows();
}

void TimelineModel::flush()
{
    _flush.cancel();
    dropOldest();
    std::deque<Number> more;
    const auto end = _first + _entries.size();
    for (; _next < end; ++_next) {
        if (passes(numbered(_next)))
            more.push_back(_next);
    }
    if (more.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(more.size()) - 1);
    _shown.insert(_shown.end(), more.begin(), more.end());
    endInsertRows();
}

void TimelineModel::clear()
{
    beginResetModel();
    _first += _entries.size();
    _next = _first;
    _pass = 0;
    _entries.clear();
    _shown.clear();
    endResetModel();
}

void TimelineModel::setPaused(bool isPaused)
{
    _isPaused = isPaused;
}

void TimelineModel::setLive(bool isLive)
{
    _isLive = isLive;
    if (isLive)
        flush();
    else
        _flush.cancel();
}

void TimelineModel::setFilter(std::set<Kind> kinds, const QString& text)
{
    beginResetModel();
    _kinds = std::move(kinds);
    _text = text;
    _shown.clear();
    for (auto number = _first; number < _next; ++number) {
        if (passes(numbered(number)))
            _shown.push_back(number);
    }
    endResetModel();
}

bool TimelineModel::passes(const TimelineEntry& entry) const
{
    if (!_kinds.contains(entry.what.kind))
        return false;
    const auto has = [&](const QString& field) { return field.contains(_text, Qt::CaseInsensitive); };
    return _text.isEmpty() || has(entry.name()) || has(entry.detail()) || has(entry.kind());
}

const TimelineEntry& TimelineModel::entry(int row) const
{
    return numbered(_shown.at(static_cast<std::size_t>(row)));
}

int TimelineModel::rowSince(std::chrono::nanoseconds sinceStart) const
{
    const auto row = std::partition_point(_shown.begin(), _shown.end(),
        [&](Number number) { return numbered(number).sinceStart < sinceStart; });
    return static_cast<int>(row - _shown.begin());
}

int TimelineModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_shown.size());
}

int TimelineModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TimelineModel::data(const QModelIndex& index, int role) const
{
    using Text = QString (TimelineEntry::*)() const;
    static constexpr std::array<Text, ColumnCount> texts { &TimelineEntry::milliseconds, &TimelineEntry::kind,
        &TimelineEntry::name, &TimelineEntry::detail };
    const auto& entry = this->entry(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return (entry.*texts.at(static_cast<std::size_t>(index.column())))();
    case Qt::ToolTipRole:
        return index.column() == TimeColumn
            ? entry.time()
            : toolTipFor((entry.*texts.at(static_cast<std::size_t>(index.column())))());
    case Qt::TextAlignmentRole:
        return index.column() == TimeColumn ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ForegroundRole:
        return entry.isFailure() ? QVariant(QColor(Qt::red)) : QVariant();
    default:
        return {};
    }
}

QVariant TimelineModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array titles { "ms", "Kind", "Name", "Detail" };
    if (orientation == Qt::Vertical || role != Qt::DisplayRole)
        return {};
    return QString::fromLatin1(titles.at(static_cast<std::size_t>(section)));
}

}
