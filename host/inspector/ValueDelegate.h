#pragma once

#include <QStyledItemDelegate>

namespace host {

/// Edits the values of a FileModel: a boolean by choosing, all else as a line of text.
class ValueDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override;
    void setEditorData(QWidget* editor, const QModelIndex&) const override;
    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override;
};

}
