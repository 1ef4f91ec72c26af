#include "ValueDelegate.h"

#include "FileModel.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <limits>

namespace host {

QWidget* ValueDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const auto type = index.siblingAtColumn(FileModel::TypeColumn).data().toString();
    if (type != QLatin1String("boolean")) {
        auto* const line = new QLineEdit(parent);
        line->setAccessibleName(QStringLiteral("Value"));
        line->setMaxLength(std::numeric_limits<int>::max()); // Else it would cut a long one short.
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
        _isTaken = model->setData(index, line->text(), Qt::EditRole);
}

bool ValueDelegate::eventFilter(QObject* object, QEvent* event)
{
    auto* const line = qobject_cast<QLineEdit*>(object);
    const auto key = line && event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QStyledItemDelegate::eventFilter(object, event);
    _isTaken = true;
    emit commitData(line);
    if (_isTaken)
        emit closeEditor(line);
    return true;
}

}
