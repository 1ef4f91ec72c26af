#include "FilePageTest.h"

#include "platform/Journal.h"
#include "platform/NSMutableDictionary.h"

#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QtTest/QTest>

using namespace platform;
using host::FileModel;

InspectorFilePage::InspectorFilePage()
{
    writePreferences("<key>buttonColor</key><string>#3366CC</string><key>enabled</key><true/>"
                     "<key>minutes</key><integer>60</integer>");
    open();
    page = openPage<host::FilePage>("file");
    table = page->findChild<QTableView*>();
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Notification)
            posted.push_back(entry.name);
    });
}

InspectorFilePage::~InspectorFilePage()
{
    Journal::shared().stop(_listener);
}

void InspectorFilePage::writePreferences(const std::string& entries)
{
    writeTestFile(preferences(), "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
}

PropertyList InspectorFilePage::stored() const
{
    const auto file = NSMutableDictionary::dictionaryWithContentsOfFile(
        "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist");
    return file ? file->entries() : PropertyList {};
}

QModelIndex InspectorFilePage::cell(const QString& key, FileModel::Column column) const
{
    const auto* const model = table->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, FileModel::KeyColumn).data().toString() == key)
            return model->index(row, column);
    }
    return {};
}

QString InspectorFilePage::value(const QString& key) const
{
    return cell(key, FileModel::ValueColumn).data().toString();
}

QString InspectorFilePage::change(const QString& key) const
{
    return cell(key, FileModel::ChangeColumn).data().toString();
}

bool InspectorFilePage::edit(const QString& key, const QString& text)
{
    return table->model()->setData(cell(key, FileModel::ValueColumn), text);
}

QLineEdit* InspectorFilePage::editByKeys(const QString& key)
{
    table->setFocus();
    table->setCurrentIndex(cell(key, FileModel::ValueColumn));
    QTest::keyClick(table, Qt::Key_F2);
    return table->viewport()->findChild<QLineEdit*>();
}

QString InspectorFilePage::shownTip(const QString& key) const
{
    const auto tip = cell(key, FileModel::ValueColumn).data(Qt::ToolTipRole).toString();
    auto text = Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
    return text.remove(QChar(0x200B)).remove(QChar(0x2026)); // Where a line may end, and the ellipsis.
}

QStringList InspectorFilePage::rows() const
{
    QStringList lines;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        QStringList words;
        for (const auto column : { FileModel::KeyColumn, FileModel::TypeColumn, FileModel::ValueColumn })
            words += table->model()->index(row, column).data().toString();
        lines += words.join(' ');
    }
    return lines;
}

QString InspectorFilePage::message() const
{
    const auto* const label = child<QLabel>("message");
    return label->isHidden() ? QString() : label->text();
}

void InspectorFilePage::add(const QString& key, const QString& type, const QString& text)
{
    child<QLineEdit>("newKey")->setText(key);
    child<QComboBox>("newType")->setCurrentText(type);
    child<QLineEdit>("newValue")->setText(text);
    press("add");
}

void InspectorFilePage::tap(CGPoint point)
{
    phone().window().touchBegan(point);
    phone().window().touchEnded(point);
    phone().settle();
}
