#pragma once

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTableView>

/// What the inspector's pages have in common.
namespace host {

/// Rows without a grid or numbers, selected as a whole.
inline QTableView* makePlainTable(QAbstractItemModel* model, QWidget* parent)
{
    auto* const table = new QTableView(parent);
    table->setModel(model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->setShowGrid(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

/// For a sentence that answers somebody, in as many lines as it takes; hidden until there is one.
inline QLabel* makeMessage(QWidget* parent)
{
    auto* const message = new QLabel(parent);
    message->setObjectName(QStringLiteral("message"));
    message->setTextFormat(Qt::PlainText); // It may quote anything.
    message->setWordWrap(true);
    message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    message->hide();
    return message;
}

/// At the row's end. The method is the receiver's, or a function object.
template <typename Receiver>
QPushButton* addButton(
    QLayout& row, const char* name, const char* title, const char* tip, Receiver* receiver, auto method)
{
    auto* const button = new QPushButton(QString::fromUtf8(title), receiver);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(QString::fromUtf8(tip));
    row.addWidget(button);
    QObject::connect(button, &QPushButton::clicked, receiver, method);
    return button;
}

}
