#pragma once

#include <QStyledItemDelegate>

namespace host {

/// Edits the values of a FileModel: a boolean by choosing, all else as a line of text. A text that Return
/// does not store stays, to be put right.
class ValueDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override;
    void setEditorData(QWidget* editor, const QModelIndex&) const override;
    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override;
    bool eventFilter(QObject*, QEvent*) override;

private:
    mutable bool _isTaken = true; ///< What was last handed to the model.
};

}
