#include "ValueDelegate.h"

#include "FileModel.h"

#include <QComboBox>
#include <QLineEdit>

namespace host {

QWidget* ValueDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const auto type = index.siblingAtColumn(FileModel::TypeColumn).data().toString();
    if (type != QLatin1String("boolean")) {
        auto* const line = new QLineEdit(parent);
        line->setAccessibleName(QStringLiteral("Value"));
        return line;
    }
    auto* const choice = new QComboBox(parent);
    choice->setAccessibleName(QStringLiteral("Value"));
    choice->addItems({ QStringLiteral("true"), QStringLiteral("false") });
    // A choice is the whole edit.
    auto* const self = const_cast<ValueDelegate*>(this);
    connect(choice, &QComboBox::activated, self, [self, choice] {
        emit self->commitData(choice);
        emit self->closeEditor(choice);
    });
    return choice;
}

void ValueDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto text = index.data(Qt::EditRole).toString();
    if (auto* const choice = dynamic_cast<QComboBox*>(editor))
        choice->setCurrentText(text);
    else if (auto* const line = dynamic_cast<QLineEdit*>(editor); line && !line->isModified())
        line->setText(text); // What somebody is typing stays when the file changes meanwhile.
}

void ValueDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    if (const auto* const choice = dynamic_cast<QComboBox*>(editor))
        model->setData(index, choice->currentText(), Qt::EditRole);
    else if (const auto* const line = dynamic_cast<QLineEdit*>(editor); line && line->isModified())
        model->setData(index, line->text(), Qt::EditRole);
}

}
