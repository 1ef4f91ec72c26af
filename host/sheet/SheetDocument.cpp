#include "SheetDocument.h"

#include "SheetTemplate.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

namespace host {

namespace {

constexpr const char* dataBegin = "<script type=\"application/json\" id=\"sheet\">";
constexpr const char* picturesBegin = "<script type=\"application/json\" id=\"pictures\">{";
constexpr const char* scriptEnd = "</script>";
constexpr qint64 longestHead = 64LL * 1024; // Bytes, within which the data begin.

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

/// One a line; a parser of everything would take its time.
std::map<QByteArray, QByteArray> picturesFrom(const QByteArray& lines)
{
    const auto isPlain
        = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || std::strchr("+/=", c); };
    std::map<QByteArray, QByteArray> pictures;
    for (const auto& line : lines.split('\n')) {
        const auto parts = line.split('"');
        // They are written into another page as they are.
        if (parts.size() >= 5 && std::all_of(parts[1].begin(), parts[1].end(), isPlain)
            && std::all_of(parts[3].begin(), parts[3].end(), isPlain))
            pictures[parts[1]] = parts[3];
    }
    return pictures;
}

QByteArray between(const QByteArray& text, const char* begin, const char* end)
{
    const auto from = text.indexOf(begin);
    const auto start = from + static_cast<qsizetype>(std::strlen(begin));
    const auto to = from < 0 ? -1 : text.indexOf(end, start);
    return to < 0 ? QByteArray() : text.mid(start, to - start);
}

}

bool SheetDocument::writeTo(QIODevice& device) const
{
    // Of what is not written whole only the next attempt tells why.
    const auto write = [&](const QByteArray& bytes) {
        for (qsizetype written = 0; written < bytes.size();) {
            const auto count = device.write(bytes.constData() + written, bytes.size() - written);
            if (count <= 0)
                return false;
            written += count;
        }
        return true;
    };
    QJsonObject data { { "name", QString::fromStdString(name) }, { "entries", jsonFromEntries(entries) } };
    if (comparison)
        data.insert("comparison", jsonFrom(*comparison));
    auto head = QByteArray(sheetHead);
    head.replace("TITLE", QString::fromStdString(name).toHtmlEscaped().toUtf8());
    if (!write(head + dataBegin + harmless(data) + scriptEnd + '\n' + picturesBegin))
        return false;
    const char* separator = "\n\"";
    for (const auto& [id, png] : pictures) {
        if (!write(separator + id + "\":\"" + png + '"'))
            return false;
        separator = ",\n\"";
    }
    return write(QByteArray("\n}") + scriptEnd + '\n' + sheetScript);
}

SheetDocument SheetDocument::read(const std::string& file)
{
    const auto name = QString::fromStdString(file);
    QFile input(name);
    // A pipe or a device might never end.
    if (QFileInfo(name).exists() && !QFileInfo(name).isFile())
        throw std::runtime_error(file + " is no file.");
    if (!input.open(QIODevice::ReadOnly))
        throw std::runtime_error(
            "The sheet " + file + " can't be read: " + input.errorString().toStdString() + ".");
    if (!input.peek(longestHead).contains(dataBegin))
        throw std::runtime_error(file + " is no sheet.");
    const auto text = input.readAll();
    const auto data = QJsonDocument::fromJson(between(text, dataBegin, scriptEnd)).object();
    // The script may be another version's.
    if (!QByteArrayView(text).trimmed().endsWith("</html>") || !data.contains("entries"))
        throw std::runtime_error(file + " is no whole sheet.");
    SheetDocument sheet;
    sheet.name = data["name"].toString().toStdString();
    sheet.pictures = picturesFrom(between(text, picturesBegin, scriptEnd));
    for (const auto& fields : data["entries"].toArray()) {
        sheet.entries.push_back(entryFrom(fields.toArray()));
        if (!sheet.pictures.contains(sheet.entries.back().id))
            throw std::runtime_error(file + " lacks some of its pictures.");
    }
    return sheet;
}

}
