#pragma once

#include "platform/PropertyValue.h"

#include <functional>
#include <optional>
#include <QAbstractTableModel>
#include <string>
#include <vector>

namespace host {

/// A dictionary's keys in their order, one a row, and what the last change did to each. A key that it removed
/// keeps its row until the next change.
class FileModel final : public QAbstractTableModel {
public:
    enum Column { KeyColumn, TypeColumn, ValueColumn, ChangeColumn, ColumnCount };
    enum class Mark { None, Added, Changed, Removed };

    /// Without a mark.
    explicit FileModel(platform::PropertyList entries, QObject* parent = nullptr);
    /// Begins anew with another dictionary, without a mark.
    void restart(platform::PropertyList entries);

    /// Takes over another state and marks what differs from the one before. Only rows that differ, or lose
    /// their mark, are told of.
    void setEntries(platform::PropertyList);

    std::string key(int row) const;
    Mark mark(int row) const;
    /// Nothing for a key that was removed.
    std::optional<platform::PropertyValue> value(int row) const;

    /// Called with the row's key and what was typed for it.
    using Editor = std::function<bool(const std::string& key, const QString& text)>;
    void setEditor(Editor editor) { _editor = std::move(editor); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex&, int role) const override;
    QVariant headerData(int section, Qt::Orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex&) const override;
    /// By the editor; false when the text was no value.
    bool setData(const QModelIndex&, const QVariant&, int role) override;

private:
    struct Row {
        std::string key;
        std::optional<platform::PropertyValue> value {}; ///< None when it was removed.
        std::optional<platform::PropertyValue> before {}; ///< Of a row that was changed or removed.
        Mark mark = Mark::None;

        bool operator==(const Row&) const = default;
    };

    std::vector<Row> rowsFor(const platform::PropertyList& present) const;
    QString text(const Row&, int column) const;

    platform::PropertyList _entries;
    std::vector<Row> _rows;
    Editor _editor;
};

}
