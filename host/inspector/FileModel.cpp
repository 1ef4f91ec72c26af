#include "FileModel.h"

#include "host/observe/Changes.h"
#include "host/ToolTip.h"
#include "host/ValueText.h"
#include "Marks.h"

#include <QFont>

#include <algorithm>
#include <array>
#include <set>

namespace host {

using namespace platform;

namespace {

QString qString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr std::size_t longestLine = 1000; // Characters; more than any screen shows.

/// Text in one line of a table, with something to be seen for each character.
QString inOneLine(QString text)
{
    constexpr QChar returnArrow(0x21B5);
    constexpr QChar replacement(0xFFFD);
    for (auto& character : text) {
        if (character == QLatin1Char('\n') || character == QLatin1Char('\r')
            || character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
            character = returnArrow;
        else if (character.category() == QChar::Other_Control && character != QLatin1Char('\t'))
            character = replacement;
    }
    return text;
}

QString lineOf(const PropertyValue& value)
{
    // Nobody waits for the rest of a long one to be written out.
    if (const auto* const text = value.string())
        return inOneLine(qString(std::string_view(*text).substr(0, longestLine)));
    if (const auto* const data = std::get_if<PropertyData>(&value.storage());
        data && data->size() > longestLine)
        return qString(
            textFromValue(PropertyData(data->begin(), data->begin() + std::ptrdiff_t { longestLine })));
    return inOneLine(qString(textFromValue(value)).left(longestLine));
}

}

FileModel::FileModel(PropertyList entries, QObject* parent)
    : QAbstractTableModel(parent)
{
    restart(std::move(entries));
}

void FileModel::restart(PropertyList entries)
{
    beginResetModel();
    _entries = std::move(entries);
    _rows.clear();
    for (const auto& [key, value] : _entries)
        _rows.push_back({ .key = key, .value = value });
    endResetModel();
}

std::vector<FileModel::Row> FileModel::rowsFor(const PropertyList& present) const
{
    const auto changed = changedKeys(_entries, present);
    std::set<std::string> keys(changed.begin(), changed.end());
    for (const auto& [key, value] : present)
        keys.insert(key);
    std::vector<Row> rows;
    for (const auto& key : keys) {
        const auto before = _entries.find(key);
        const auto now = present.find(key);
        Row row { .key = key };
        if (now != present.end())
            row.value = now->second;
        if (std::binary_search(changed.begin(), changed.end(), key)) {
            if (before != _entries.end())
                row.before = before->second;
            row.mark = !row.value ? Mark::Removed : row.before ? Mark::Changed : Mark::Added;
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

void FileModel::setEntries(PropertyList entries)
{
    if (changedKeys(_entries, entries).empty())
        return;
    auto rows = rowsFor(entries);
    _entries = std::move(entries);
    // Both lists are in the order of their keys.
    int index = 0;
    for (auto& row : rows) {
        while (index < rowCount() && _rows[static_cast<std::size_t>(index)].key < row.key) {
            beginRemoveRows({}, index, index);
            _rows.erase(_rows.begin() + index);
            endRemoveRows();
        }
        if (index == rowCount() || _rows[static_cast<std::size_t>(index)].key != row.key) {
            beginInsertRows({}, index, index);
            _rows.insert(_rows.begin() + index, std::move(row));
            endInsertRows();
        } else if (auto& known = _rows[static_cast<std::size_t>(index)]; !(known == row)) {
            known = std::move(row);
            emit dataChanged(this->index(index, 0), this->index(index, ColumnCount - 1));
        }
        ++index;
    }
    if (index < rowCount()) {
        beginRemoveRows({}, index, rowCount() - 1);
        _rows.erase(_rows.begin() + index, _rows.end());
        endRemoveRows();
    }
}

std::string FileModel::key(int row) const
{
    return _rows.at(static_cast<std::size_t>(row)).key;
}

FileModel::Mark FileModel::mark(int row) const
{
    return _rows.at(static_cast<std::size_t>(row)).mark;
}

std::optional<PropertyValue> FileModel::value(int row) const
{
    return _rows.at(static_cast<std::size_t>(row)).value;
}

int FileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int FileModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString FileModel::text(const Row& row, int column) const
{
    const auto& shown = row.value ? row.value : row.before;
    switch (column) {
    case KeyColumn:
        return inOneLine(qString(row.key).left(longestLine));
    case TypeColumn:
        return shown ? qString(typeName(*shown)) : QString();
    case ValueColumn:
        return shown ? lineOf(*shown) : QString();
    default:
        break;
    }
    switch (row.mark) {
    case Mark::Added:
        return QStringLiteral("added");
    case Mark::Removed:
        return QStringLiteral("removed");
    case Mark::Changed:
        return QStringLiteral("was ") + lineOf(*row.before);
    case Mark::None:
        break;
    }
    return {};
}

QVariant FileModel::data(const QModelIndex& index, int role) const
{
    const auto& row = _rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        return toolTipFor(text(row, index.column()));
    case Qt::EditRole:
        return row.value ? qString(textFromValue(*row.value)) : QString();
    case Qt::BackgroundRole:
        return row.mark == Mark::Added  ? QVariant(addedTint())
            : row.mark == Mark::Changed ? QVariant(changedTint())
            : row.mark == Mark::Removed ? QVariant(removedTint())
                                        : QVariant();
    case Qt::FontRole:
        if (row.mark == Mark::Removed && index.column() != ChangeColumn) {
            QFont font;
            font.setStrikeOut(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant FileModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array titles { "Key", "Type", "Value", "Last change" };
    if (orientation == Qt::Vertical || role != Qt::DisplayRole)
        return {};
    return QString::fromLatin1(titles.at(static_cast<std::size_t>(section)));
}

Qt::ItemFlags FileModel::flags(const QModelIndex& index) const
{
    const bool canBeEdited = index.column() == ValueColumn && mark(index.row()) != Mark::Removed;
    return QAbstractTableModel::flags(index) | (canBeEdited ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool FileModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable) || !_editor)
        return false;
    return _editor(key(index.row()), value.toString());
}

}
