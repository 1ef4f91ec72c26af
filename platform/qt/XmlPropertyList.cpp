#include "../NumberText.h"
#include "OldStylePropertyList.h"
#include "PropertyListFormat.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>
#include <QByteArray>
#include <QXmlStreamReader>

namespace platform {

namespace {

using Parsed = std::optional<PropertyValue>;

class XmlReader {
public:
    explicit XmlReader(std::string_view file)
        : _xml(QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size())))
    {
        _xml.setNamespaceProcessing(false);
    }

    Parsed run();

private:
    bool toNextElement();
    Parsed element(int depth);
    Parsed boolean(bool value);
    Parsed array(int depth);
    Parsed dictionary(int depth);
    std::string text() { return _xml.readElementText().toStdString(); }

    QXmlStreamReader _xml;
};

bool isBlank(std::string_view text)
{
    return leadingWhiteSpace(text) == text.size();
}

bool equalsIgnoringCase(std::string_view text, std::string_view word)
{
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
        [](char one, char other) { return (one >= 'A' && one <= 'Z' ? one - 'A' + 'a' : one) == other; });
}

/// Blanks, a sign, blanks, then decimal digits, or hexadecimal ones after "0x"; and nothing else.
Parsed integerFromText(std::string_view text)
{
    text.remove_prefix(leadingWhiteSpace(text));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    text.remove_prefix(leadingWhiteSpace(text));
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);

    std::uint64_t value = 0;
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, isHexadecimal ? 16 : 10);
    if (read.ec != std::errc() || read.ptr != end)
        return std::nullopt;
    constexpr auto largest = std::uint64_t { std::numeric_limits<std::int64_t>::max() };
    if (isNegative && value > largest + 1)
        return std::nullopt;
    if (isNegative)
        return static_cast<long long>(~value + 1);
    if (value > largest)
        return static_cast<double>(value);
    return static_cast<long long>(value);
}

Parsed realFromText(std::string_view text)
{
    const auto word = text.substr(leadingWhiteSpace(text));
    const auto unsignedWord = word.substr(word.starts_with('+') || word.starts_with('-') ? 1 : 0);
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    if (equalsIgnoringCase(word, "nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (equalsIgnoringCase(unsignedWord, "inf") || equalsIgnoringCase(unsignedWord, "infinity"))
        return word.starts_with('-') ? -infinity : infinity;
    const auto number = scanNumber<double>(text);
    if (!number || number->length != text.size())
        return std::nullopt;
    return number->value;
}

/// YYYY-MM-DDThh:mm:ssZ, a day that there is.
Parsed dateFromText(std::string_view text)
{
    constexpr std::string_view form = "0000-00-00T00:00:00Z";
    const auto fits = [](char character, char wanted) {
        return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
    };
    if (!std::equal(text.begin(), text.end(), form.begin(), form.end(), fits))
        return std::nullopt;
    const auto number = [&](std::size_t offset, std::size_t length) {
        int value = 0;
        std::from_chars(text.data() + offset, text.data() + offset + length, value);
        return value;
    };
    namespace chrono = std::chrono;
    const chrono::year_month_day day(chrono::year(number(0, 4)), chrono::month(number(5, 2)),
        chrono::day(static_cast<unsigned>(number(8, 2))));
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const chrono::seconds sinceUnixEpoch = chrono::sys_days(day).time_since_epoch() + chrono::hours(hour)
        + chrono::minutes(minute) + chrono::seconds(second);
    return NSDate::dateWithTimeIntervalSince1970(static_cast<double>(sinceUnixEpoch.count()));
}

Parsed dataFromText(std::string text)
{
    std::erase_if(text, [](char character) { return leadingWhiteSpace({ &character, 1 }) == 1; });
    const auto decoded = QByteArray::fromBase64Encoding(
        QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())),
        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return PropertyData((*decoded).begin(), (*decoded).end());
}

/// Stands on the start of the next element in the present one; false at the present one's end. Text between
/// elements is an error.
bool XmlReader::toNextElement()
{
    while (!_xml.atEnd()) {
        switch (_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
            return false;
        case QXmlStreamReader::Characters:
            if (!_xml.isWhitespace())
                _xml.raiseError();
            break;
        case QXmlStreamReader::EntityReference:
            _xml.raiseError();
            break;
        default:
            break;
        }
    }
    return false;
}

Parsed XmlReader::boolean(bool value)
{
    if (!isBlank(text()))
        return std::nullopt;
    return value;
}

Parsed XmlReader::array(int depth)
{
    PropertyArray result;
    while (toNextElement()) {
        auto value = element(depth + 1);
        if (!value)
            return std::nullopt;
        result.push_back(std::move(*value));
    }
    return result;
}

Parsed XmlReader::dictionary(int depth)
{
    PropertyList result;
    while (toNextElement()) {
        if (_xml.qualifiedName() != u"key")
            return std::nullopt;
        auto key = text();
        if (_xml.hasError() || !toNextElement())
            return std::nullopt;
        auto value = element(depth + 1);
        if (!value)
            return std::nullopt;
        result.insert_or_assign(std::move(key), std::move(*value));
    }
    return result;
}

/// From the start of an element to its end.
Parsed XmlReader::element(int depth)
{
    const auto name = _xml.qualifiedName();
    if (name == u"dict" || name == u"array") {
        if (depth > deepestNesting)
            return std::nullopt;
        return name == u"dict" ? dictionary(depth) : array(depth);
    }
    if (name == u"string")
        return text();
    if (name == u"true" || name == u"false")
        return boolean(name == u"true");
    if (name == u"integer")
        return integerFromText(text());
    if (name == u"real")
        return realFromText(text());
    if (name == u"date")
        return dateFromText(text());
    if (name == u"data")
        return dataFromText(text());
    return std::nullopt;
}

Parsed XmlReader::run()
{
    if (!toNextElement())
        return std::nullopt;
    const bool isWrapped = _xml.qualifiedName() == u"plist";
    if (isWrapped && !toNextElement())
        return std::nullopt;
    auto result = element(1);
    if (isWrapped && toNextElement())
        return std::nullopt; // A second root.
    while (!_xml.atEnd())
        _xml.readNext();
    return _xml.hasError() ? std::nullopt : std::move(result);
}

}

std::optional<PropertyValue> parseXmlPropertyList(std::string_view file)
{
    return XmlReader(file.substr(leadingWhiteSpace(file))).run();
}

std::optional<PropertyValue> parsePropertyList(std::string_view file)
{
    if (isBlank(file))
        return PropertyList {};
    if (file.starts_with("bplist"))
        return parseBinaryPropertyList(file);
    auto list = parseXmlPropertyList(file);
    return list ? std::move(list) : parseOldStylePropertyList(file);
}

}
