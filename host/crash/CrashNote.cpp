#include "CrashNote.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

using namespace platform;

namespace {

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

QJsonObject jsonFrom(const PhoneOptions& options)
{
    return {
        { "width", options.size.width },
        { "height", options.size.height },
        { "scale", options.scale },
        { "locale", text(options.locale) },
        { "timeZone", text(options.timeZone) },
        { "now", options.now ? QJsonValue(text(*options.now)) : QJsonValue() },
        { "direction", static_cast<int>(options.direction) },
        { "toggle", options.toggle },
        { "statusBar", options.statusBar },
    };
}

PhoneOptions optionsFrom(const QJsonObject& json, PhoneOptions options)
{
    options.size = { json["width"].toDouble(), json["height"].toDouble() };
    options.scale = json["scale"].toInt(options.scale);
    options.locale = json["locale"].toString().toStdString();
    options.timeZone = json["timeZone"].toString().toStdString();
    options.now = json["now"].isString() ? std::optional(json["now"].toString().toStdString()) : std::nullopt;
    options.direction = static_cast<TextDirection>(json["direction"].toInt());
    options.toggle = json["toggle"].toBool();
    options.statusBar = json["statusBar"].toBool();
    return options;
}

QJsonObject jsonFrom(const PagePath::Page& page)
{
    QJsonArray offsets;
    for (const auto& offset : page.offsets)
        offsets.append(QJsonArray { offset.x, offset.y });
    return {
        { "identifier", text(page.openedBy.identifier) },
        { "class", text(page.openedBy.className) },
        { "section", static_cast<qint64>(page.openedBy.place.section) },
        { "row", static_cast<qint64>(page.openedBy.place.row) },
        { "offsets", offsets },
    };
}

PagePath::Page pageFrom(const QJsonObject& json)
{
    PagePath::Page page;
    page.openedBy.identifier = json["identifier"].toString().toStdString();
    page.openedBy.className = json["class"].toString().toStdString();
    page.openedBy.place
        = { static_cast<long>(json["section"].toInteger()), static_cast<long>(json["row"].toInteger()) };
    for (const auto& offset : json["offsets"].toArray())
        page.offsets.push_back({ offset.toArray()[0].toDouble(), offset.toArray()[1].toDouble() });
    return page;
}

}

std::string textFromCrashNote(const CrashNote& note)
{
    QJsonArray pages;
    for (const auto& page : note.pages.pages)
        pages.append(jsonFrom(page));
    const QJsonObject json {
        { "options", jsonFrom(note.options) },
        { "pages", pages },
        { "geometry", QString::fromLatin1(note.geometry.toBase64()) },
        { "folder", text(note.folderState) },
    };
    return QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
}

std::optional<CrashNote> crashNoteFromText(std::string_view utf8, const PhoneOptions& given)
{
    const auto document
        = QJsonDocument::fromJson(QByteArray(utf8.data(), static_cast<qsizetype>(utf8.size())));
    if (!document.isObject())
        return std::nullopt;
    const auto json = document.object();
    CrashNote note;
    note.options = optionsFrom(json["options"].toObject(), given);
    for (const auto& page : json["pages"].toArray())
        note.pages.pages.push_back(pageFrom(page.toObject()));
    note.geometry = QByteArray::fromBase64(json["geometry"].toString().toLatin1());
    note.folderState = json["folder"].toString().toStdString();
    return note;
}

}
