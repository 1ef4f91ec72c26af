#include "Json.h"

#include "host/Instant.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QString>

namespace host {

using namespace platform;

namespace {

struct Converter {
    QJsonValue operator()(bool value) const { return value; }
    QJsonValue operator()(std::int64_t value) const { return static_cast<qint64>(value); }
    QJsonValue operator()(double value) const { return value; }
    QJsonValue operator()(const std::string& value) const { return jsonFromText(value); }
    QJsonValue operator()(NSDate value) const { return jsonFromTextOrNull(textFromInstant(value)); }
    QJsonValue operator()(const PropertyData& value) const
    {
        const auto bytes = QByteArray::fromRawData(
            reinterpret_cast<const char*>(value.data()), static_cast<qsizetype>(value.size()));
        return QString::fromLatin1(bytes.toBase64());
    }
    QJsonValue operator()(const PropertyArray& value) const
    {
        QJsonArray array;
        for (const auto& element : value)
            array.append(jsonFromValue(element));
        return array;
    }
    QJsonValue operator()(const PropertyList& value) const { return jsonFromDictionary(value); }
};

}

QJsonValue jsonFromText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QJsonValue jsonFromTextOrNull(std::string_view utf8)
{
    return utf8.empty() ? QJsonValue() : jsonFromText(utf8);
}

QJsonArray jsonFromPoint(CGPoint point)
{
    return { point.x, point.y };
}

QJsonArray jsonFromRect(CGRect rect)
{
    return { rect.x, rect.y, rect.width, rect.height };
}

QJsonValue jsonFromColor(const CGColor& color)
{
    return jsonFromText(hexDescription(color));
}

QJsonValue jsonFromColor(const std::optional<CGColor>& color)
{
    return color ? jsonFromColor(*color) : QJsonValue();
}

QJsonValue jsonFromValue(const PropertyValue& value)
{
    return std::visit(Converter {}, value.storage());
}

QJsonObject jsonFromDictionary(const PropertyList& dictionary)
{
    QJsonObject object;
    for (const auto& [key, value] : dictionary)
        object.insert(QString::fromStdString(key), jsonFromValue(value));
    return object;
}

std::string lineFromJson(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + '\n';
}

std::string textFromJson(const QJsonValue& value)
{
    // A document holds an array or an object alone; one element's text stands between the brackets.
    const auto text = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact).toStdString();
    return text.substr(1, text.size() - 2);
}

}
