#include "TimelinePage.h"

#include "host/Line.h"
#include "PageParts.h"
#include "PlainDelegate.h"
#include "TimelineModel.h"
#include "WrappingLayout.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr auto tsvTitles = "ms\ttime\tkind\tname\tdetail\n";

QTableView* makeTable(QAbstractItemModel* model, QWidget* parent)
{
    auto* const table = makePlainTable(model, parent);
    table->setItemDelegate(new PlainDelegate(table));
    table->setAccessibleName(QStringLiteral("Timeline"));
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    auto* const header = table->horizontalHeader();
    const auto letters = [&](int count) { return table->fontMetrics().averageCharWidth() * count; };
    header->resizeSection(TimelineModel::TimeColumn, letters(8));
    header->resizeSection(TimelineModel::KindColumn, letters(10));
    header->resizeSection(TimelineModel::NameColumn, letters(26));
    header->setStretchLastSection(true);
    return table;
}

}

TimelinePage::TimelinePage(Phone&, QWidget* parent)
    : QWidget(parent)
    , _model(new TimelineModel(this))
    , _table(makeTable(_model, this))
    , _message(new Line(this))
    , _asker([this] {
        return QFileDialog::getSaveFileName(this, QStringLiteral("Save the Timeline"),
            QStringLiteral("timeline.tsv"),
            QStringLiteral("Values between tabs (*.tsv);;JSON, an object a line (*.jsonl)"));
    })
{
    auto* const column = new QVBoxLayout(this);
    column->addWidget(makeFilter());
    column->addWidget(_table, 1);
    column->addWidget(_message);
    column->addWidget(makeButtons());
    _message->setObjectName(QStringLiteral("message"));

    auto* const copying = new QShortcut(QKeySequence::Copy, _table);
    copying->setContext(Qt::WidgetShortcut);
    connect(copying, &QShortcut::activated, this, &TimelinePage::copy);
    connect(_model, &QAbstractItemModel::rowsAboutToBeInserted, this, &TimelinePage::rememberPlace);
    connect(_model, &QAbstractItemModel::modelAboutToBeReset, this, &TimelinePage::rememberPlace);
    connect(_model, &QAbstractItemModel::rowsInserted, this, &TimelinePage::follow);
    connect(_model, &QAbstractItemModel::modelReset, this, [this] {
        follow();
        if (!_isAtEnd)
            _table->scrollTo(_model->index(_model->rowSince(_firstInSight), 0), QTableView::PositionAtTop);
    });
    tellCount();
}

QWidget* TimelinePage::makeFilter()
{
    auto* const filters = new QWidget(this);
    auto* const row = new WrappingLayout(filters);
    row->setSpacing(2);
    for (const auto& kind : timelineKinds()) {
        auto* const button = new QToolButton(filters);
        button->setText(QString::fromLatin1(kind.title));
        button->setObjectName(QString::fromLatin1(kind.word));
        button->setCheckable(true);
        button->setChecked(true);
        row->addWidget(button);
        _kinds += button;
        connect(button, &QToolButton::toggled, this, &TimelinePage::filter);
    }
    _text = new QLineEdit(filters);
    _text->setObjectName(QStringLiteral("text"));
    _text->setPlaceholderText(QStringLiteral("Filter"));
    _text->setAccessibleName(QStringLiteral("Filter"));
    _text->setClearButtonEnabled(true);
    row->addWidget(_text);
    connect(_text, &QLineEdit::textChanged, this, &TimelinePage::filter);
    return filters;
}

QWidget* TimelinePage::makeButtons()
{
    auto* const buttons = new QWidget(this);
    auto* const row = new WrappingLayout(buttons);
    auto* const pause = addButton(*row, "pause", "Pause", "Records nothing while it is pressed", this,
        [this](bool isPaused) { _model->setPaused(isPaused); });
    pause->setCheckable(true);
    addButton(*row, "clear", "Clear", "Forgets what happened so far", this, [this] { _model->clear(); });
    row->addStretch();
    addButton(*row, "copy", "Copy", "Copies the selected rows, or all that are shown (Ctrl+C)", this,
        &TimelinePage::copy);
    addButton(*row, "save", "Save…",
        "Saves the rows that are shown: with tabs between values, or as JSON when the name ends in .jsonl",
        this, &TimelinePage::save);
    return buttons;
}

void TimelinePage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    _model->setLive(true);
}

void TimelinePage::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    _model->setLive(false);
}

void TimelinePage::rememberPlace()
{
    const auto* const bar = _table->verticalScrollBar();
    _isAtEnd = bar->value() == bar->maximum();
    if (const auto row = _table->rowAt(0); row >= 0)
        _firstInSight = _model->entry(row).sinceStart;
}

void TimelinePage::follow()
{
    if (_isAtEnd)
        _table->scrollToBottom();
    tellCount();
}

void TimelinePage::filter()
{
    std::set<TimelineModel::Kind> kinds;
    for (qsizetype index = 0; index < _kinds.size(); ++index) {
        if (_kinds.at(index)->isChecked())
            kinds.insert(timelineKinds()[static_cast<std::size_t>(index)].kind);
    }
    _model->setFilter(std::move(kinds), _text->text());
}

void TimelinePage::tellCount()
{
    const auto count = _model->rowCount();
    _message->setText(count == 0 ? QStringLiteral("Nothing so far")
            : count == 1         ? QStringLiteral("1 entry")
                                 : QStringLiteral("%1 entries").arg(count));
}

QByteArray TimelinePage::tsv(bool selectedOnly) const
{
    QByteArray text;
    if (!selectedOnly) {
        for (int row = 0; row < _model->rowCount(); ++row)
            text += _model->entry(row).tsv().toUtf8() + '\n';
        return text;
    }
    auto rows = _table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const auto& row : rows)
        text += _model->entry(row.row()).tsv().toUtf8() + '\n';
    return text;
}

void TimelinePage::copy() const
{
    const auto selectedOnly = _table->selectionModel()->hasSelection();
    QGuiApplication::clipboard()->setText(QString::fromUtf8(tsv(selectedOnly)));
}

void TimelinePage::save()
{
    const auto path = _asker();
    if (path.isEmpty())
        return;
    QByteArray text;
    if (path.endsWith(QLatin1String(".jsonl"), Qt::CaseInsensitive)) {
        for (int row = 0; row < _model->rowCount(); ++row)
            text += _model->entry(row).json() + '\n';
    } else {
        text = tsvTitles + tsv(false);
    }
    QSaveFile file(path);
    const bool isSaved = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    _message->setText(isSaved ? QStringLiteral("Saved %1.").arg(path)
                              : QStringLiteral("Could not save %1 (%2).").arg(path, file.errorString()));
}

}
