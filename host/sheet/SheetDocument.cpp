#include "SheetDocument.h"

#include "SheetTemplate.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace host {

namespace {

constexpr const char* dataBegin = "<script type=\"application/json\" id=\"sheet\">";
constexpr const char* picturesBegin = "<script type=\"application/json\" id=\"pictures\">{";
constexpr const char* scriptEnd = "</script>";

QJsonArray jsonFrom(const SheetDocument::Entry& entry)
{
    return { QString::fromStdString(entry.state), entry.page, QString::fromStdString(entry.title),
        QString::fromStdString(entry.phone), entry.scale, QString::fromStdString(entry.locale),
        QString::fromLatin1(entry.id), entry.width, entry.height };
}

SheetDocument::Entry entryFrom(const QJsonArray& fields)
{
    SheetDocument::Entry entry;
    entry.state = fields.at(0).toString().toStdString();
    entry.page = fields.at(1).toInt();
    entry.title = fields.at(2).toString().toStdString();
    entry.phone = fields.at(3).toString().toStdString();
    entry.scale = fields.at(4).toInt();
    entry.locale = fields.at(5).toString().toStdString();
    entry.id = fields.at(6).toString().toLatin1();
    entry.width = fields.at(7).toInt();
    entry.height = fields.at(8).toInt();
    return entry;
}

template <typename Entries> QJsonArray jsonFromEntries(const Entries& entries)
{
    QJsonArray array;
    for (const auto& entry : entries)
        array.append(jsonFrom(entry));
    return array;
}

QJsonObject jsonFrom(const SheetDocument::Comparison& comparison)
{
    QJsonArray changed;
    for (const auto& change : comparison.changed)
        changed.append(QJsonArray {
            jsonFrom(change.before), jsonFrom(change.after), QString::fromLatin1(change.difference) });
    return {
        { "summary", QString::fromStdString(comparison.summary()) },
        { "changed", changed },
        { "added", jsonFromEntries(comparison.added) },
        { "gone", jsonFromEntries(comparison.gone) },
    };
}

/// JSON that may stand in a page: nothing in it ends the script.
QByteArray harmless(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).replace("<", "\\u003C");
}

QByteArray between(const QByteArray& text, const char* begin, const char* end)
{
    const auto from = text.indexOf(begin);
    const auto start = from + static_cast<qsizetype>(std::strlen(begin));
    const auto to = from < 0 ? -1 : text.indexOf(end, start);
    return to < 0 ? QByteArray() : text.mid(start, to - start);
}

}

QByteArray SheetDocument::html() const
{
    QJsonObject data { { "name", QString::fromStdString(name) }, { "entries", jsonFromEntries(entries) } };
    if (comparison)
        data.insert("comparison", jsonFrom(*comparison));
    auto page = QByteArray(sheetHead);
    page.replace("TITLE", QString::fromStdString(name).toHtmlEscaped().toUtf8());
    page += dataBegin + harmless(data) + scriptEnd + '\n' + picturesBegin;
    bool isFirst = true;
    for (const auto& [id, png] : pictures) {
        page += (isFirst ? "\n\"" : ",\n\"") + id + "\":\"" + png + '"';
        isFirst = false;
    }
    return page + "\n}" + scriptEnd + '\n' + sheetScript;
}

SheetDocument SheetDocument::read(const std::string& file)
{
    QFile input(QString::fromStdString(file));
    if (!input.open(QIODevice::ReadOnly))
        throw std::runtime_error(
            "The sheet " + file + " can't be read: " + input.errorString().toStdString() + ".");
    const auto text = input.readAll();
    const auto data = QJsonDocument::fromJson(between(text, dataBegin, scriptEnd)).object();
    if (!data.contains("entries"))
        throw std::runtime_error(file + " is no sheet.");
    SheetDocument sheet;
    sheet.name = data["name"].toString().toStdString();
    for (const auto& entry : data["entries"].toArray())
        sheet.entries.push_back(entryFrom(entry.toArray()));
    // One a line; a parser of everything would take its time.
    for (const auto& line : between(text, picturesBegin, scriptEnd).split('\n')) {
        const auto parts = line.split('"');
        if (parts.size() >= 5)
            sheet.pictures[parts[1]] = parts[3];
    }
    return sheet;
}

}
