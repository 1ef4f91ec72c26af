#include "FilePage.h"

#include "host/Line.h"
#include "host/Phone.h"
#include "host/PreferenceFile.h"
#include "host/ValueText.h"
#include "PageParts.h"
#include "platform/Journal.h"
#include "platform/qt/DeviceFiles.h"
#include "ValueDelegate.h"
#include "WrappingLayout.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

namespace host {

using namespace platform;

namespace {

QTableView* makeTable(QAbstractItemModel* model, QWidget* parent)
{
    auto* const table = makePlainTable(model, parent);
    table->setAccessibleName(QStringLiteral("Preference file"));
    table->setItemDelegateForColumn(FileModel::ValueColumn, new ValueDelegate(table));
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    auto* const header = table->horizontalHeader();
    header->setSectionResizeMode(FileModel::ValueColumn, QHeaderView::Stretch);
    const auto letters = [&](int count) { return table->fontMetrics().averageCharWidth() * count; };
    header->resizeSection(FileModel::KeyColumn, letters(22));
    header->resizeSection(FileModel::TypeColumn, letters(12));
    header->resizeSection(FileModel::ChangeColumn, letters(22));
    return table;
}

}

FilePage::FilePage(Phone& phone, QWidget* parent)
    : QWidget(parent)
    , _phone(phone)
    , _path(preferenceFile())
    , _watch(_path, [this](const PreferenceState& state) { show(state); })
    , _model(new FileModel(_watch.state().entries, this))
    , _table(makeTable(_model, this))
    , _pathLine(new Line(this))
    , _state(new Line(this, Qt::ElideRight))
    , _message(makeMessage(this))
    , _opener([](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); })
{
    _model->setEditor([this](const auto& key, const auto& text) { return edit(key, text); });
    _state->setObjectName(QStringLiteral("state"));
    _pathLine->setText(QString::fromStdString(_watch.devicePath()));
    _pathLine->setObjectName(QStringLiteral("path"));

    auto* const column = new QVBoxLayout(this);
    column->addWidget(_pathLine);
    column->addWidget(_state);
    column->addWidget(_table, 1);
    column->addWidget(_message);
    column->addWidget(makeAddition());
    column->addWidget(makeButtons());
    column->addWidget(makeQuestion());

    auto* const deletion = new QShortcut(QKeySequence::Delete, _table);
    deletion->setContext(Qt::WidgetShortcut);
    connect(deletion, &QShortcut::activated, this, &FilePage::removeSelected);
    connect(_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FilePage::enableButtons);
    show(_watch.state());
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Display && preferenceFile() != _path)
            followPath();
    });
}

FilePage::~FilePage()
{
    Journal::shared().stop(_listener);
}

void FilePage::followPath()
{
    _path = preferenceFile();
    _watch.setDevicePath(_path);
    _pathLine->setText(QString::fromStdString(_watch.devicePath()));
    _model->restart(_watch.state().entries);
    ask(false); // What was asked was asked of the other file.
    tell({});
    show(_watch.state());
}

QWidget* FilePage::makeAddition()
{
    auto* const addition = new QWidget(this);
    auto* const row = new WrappingLayout(addition);
    _newKey = new QLineEdit(addition);
    _newKey->setObjectName(QStringLiteral("newKey"));
    _newKey->setPlaceholderText(QStringLiteral("New key"));
    _newKey->setAccessibleName(QStringLiteral("New key"));
    _newType = new QComboBox(addition);
    _newType->setAccessibleName(QStringLiteral("Kind of the new value"));
    _newType->setObjectName(QStringLiteral("newType"));
    for (const auto name : typeNames())
        _newType->addItem(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    _newType->setCurrentText(QStringLiteral("string"));
    _newValue = new QLineEdit(addition);
    _newValue->setObjectName(QStringLiteral("newValue"));
    _newValue->setPlaceholderText(QStringLiteral("Value"));
    _newValue->setAccessibleName(QStringLiteral("New value"));
    row->addWidget(_newKey);
    row->addWidget(_newType);
    row->addWidget(_newValue);
    addButton(*row, "add", "Add", "Stores the new key", this, &FilePage::add);
    connect(_newKey, &QLineEdit::returnPressed, this, &FilePage::add);
    connect(_newValue, &QLineEdit::returnPressed, this, &FilePage::add);
    return addition;
}

QWidget* FilePage::makeButtons()
{
    _buttons = new QWidget(this);
    auto* const row = new WrappingLayout(_buttons);
    _delete = addButton(
        *row, "delete", "Delete Key", "Deletes the selected key", this, &FilePage::removeSelected);
    addButton(*row, "reset", "Reset…", "Deletes the whole file", this, [this] { ask(true); });
    addButton(*row, "open", "Open in Editor", "Opens the file with your program for such files", this,
        &FilePage::openInEditor);
    row->addStretch();
    addButton(*row, "reload", "Reload Page",
        "Lets the shown page appear again, as if one came back to it: then it reads the file", this,
        &FilePage::reloadPage);
    return _buttons;
}

QWidget* FilePage::makeQuestion()
{
    _question = new QWidget(this);
    auto* const row = new WrappingLayout(_question);
    row->addWidget(new QLabel(QStringLiteral("Delete the whole file?"), _question));
    row->addStretch();
    addButton(*row, "confirm", "Delete File", "This cannot be undone", this, &FilePage::reset);
    addButton(*row, "keep", "Keep It", "Leaves the file as it is", this, [this] { ask(false); });
    _question->hide();
    return _question;
}

void FilePage::show(const PreferenceState& state)
{
    _state->setText(QString::fromStdString(state.description()));
    _model->setEntries(state.entries);
    enableButtons();
}

void FilePage::tell(const std::string& sentence)
{
    _message->setText(QString::fromStdString(sentence));
    _message->setVisible(!sentence.empty());
}

void FilePage::enableButtons()
{
    const auto current = _table->selectionModel()->selectedRows();
    _delete->setEnabled(
        !current.isEmpty() && _model->mark(current.front().row()) != FileModel::Mark::Removed);
}

bool FilePage::edit(const std::string& key, const QString& text)
{
    // Its type is that of the file's value now, which may have changed since the editor was opened.
    const auto& entries = _watch.state().entries;
    const auto known = entries.find(key);
    if (known == entries.end()) {
        tell("The key " + quotedInSentence(key) + " has gone meanwhile.");
        return false;
    }
    auto value = valueFromText(typeName(known->second), text.toStdString());
    if (const auto* const sentence = std::get_if<std::string>(&value)) {
        tell(*sentence);
        return false;
    }
    const auto failure = _phone.storePreference(key, std::get<PropertyValue>(value));
    tell(failure);
    return failure.empty();
}

void FilePage::add()
{
    const auto key = _newKey->text().toStdString();
    if (key.empty())
        return tell("A new key needs a name.");
    if (_watch.state().entries.contains(key))
        return tell("There is a key " + quotedInSentence(key) + " already.");
    if (std::holds_alternative<std::string>(valueFromText("string", key)))
        return tell("A key has no control characters but tabs and line ends.");
    auto value = valueFromText(_newType->currentText().toStdString(), _newValue->text().toStdString());
    if (const auto* const sentence = std::get_if<std::string>(&value))
        return tell(*sentence);
    const auto failure = _phone.storePreference(key, std::get<PropertyValue>(value));
    tell(failure);
    if (!failure.empty())
        return;
    _newKey->clear();
    _newValue->clear();
}

void FilePage::removeSelected()
{
    const auto rows = _table->selectionModel()->selectedRows();
    if (rows.isEmpty() || _model->mark(rows.front().row()) == FileModel::Mark::Removed)
        return;
    tell(_phone.storePreference(_model->key(rows.front().row()), std::nullopt));
}

void FilePage::ask(bool isAsking)
{
    // Asked in place, so that the window's keys go on working and the phone can be used meanwhile.
    _buttons->setVisible(!isAsking);
    _question->setVisible(isAsking);
}

void FilePage::reset()
{
    ask(false);
    tell(_phone.deletePreferences());
    _watch.look();
}

void FilePage::openInEditor()
{
    const auto path = hostPath(_watch.devicePath());
    if (!path)
        return tell("There is no file to open.");
    tell(_opener(QString::fromStdString(*path)) ? "" : "No program could open " + *path + ".");
}

void FilePage::reloadPage()
{
    _phone.showPageAgain();
}

}
