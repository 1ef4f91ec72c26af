#include "PropertyListFormat.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <plist/plist.h>
#include <QByteArray>
#include <QUtf8StringView>

namespace platform {

namespace {

/// What stands before the root dictionary: declaration, document type and the opening tag, as the library
/// writes them.
const std::string& prologue()
{
    static const std::string text = [] {
        const plist_t empty = plist_new_dict();
        char* xml = nullptr;
        std::uint32_t length = 0;
        plist_to_xml(empty, &xml, &length);
        plist_free(empty);
        const std::string whole(xml ? xml : "", xml ? length : 0);
        plist_to_xml_free(xml);
        return whole.substr(0, whole.find("<dict"));
    }();
    return text;
}

class XmlWriter {
public:
    std::optional<std::string> run(const PropertyList& root);

private:
    bool write(const PropertyValue&, int depth);
    bool write(bool, int depth);
    bool write(std::int64_t, int depth);
    bool write(double, int depth);
    bool write(const std::string&, int depth);
    bool write(const NSDate&, int depth);
    bool write(const PropertyData&, int depth);
    bool write(const PropertyArray&, int depth);
    bool write(const PropertyList&, int depth);

    void line(int depth, std::string_view text);
    bool element(int depth, std::string_view tag, std::string_view text);
    bool appendEscaped(std::string_view text);

    std::string _xml;
};

/// Whether XML 1.0 can hold the text.
bool isXmlText(std::string_view text)
{
    const auto isControl = [](unsigned char character) {
        return character < 0x20 && character != '\t' && character != '\n' && character != '\r';
    };
    return std::none_of(text.begin(), text.end(), isControl)
        && QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8()
        && text.find("\xEF\xBF\xBE") == text.npos && text.find("\xEF\xBF\xBF") == text.npos;
}

void XmlWriter::line(int depth, std::string_view text)
{
    _xml.append(static_cast<std::size_t>(depth), '\t').append(text) += '\n';
}

bool XmlWriter::appendEscaped(std::string_view text)
{
    if (!isXmlText(text))
        return false;
    for (const char character : text) {
        switch (character) {
        case '&':
            _xml += "&amp;";
            break;
        case '<':
            _xml += "&lt;";
            break;
        case '>':
            _xml += "&gt;";
            break;
        case '\r':
            _xml += "&#13;"; // Plainly written it would be read as a line feed.
            break;
        default:
            _xml += character;
        }
    }
    return true;
}

bool XmlWriter::element(int depth, std::string_view tag, std::string_view text)
{
    _xml.append(static_cast<std::size_t>(depth), '\t').append("<").append(tag) += '>';
    const bool succeeded = appendEscaped(text);
    _xml.append("</").append(tag).append(">\n");
    return succeeded;
}

bool XmlWriter::write(const PropertyValue& value, int depth)
{
    return std::visit([&](const auto& content) { return write(content, depth); }, value.storage());
}

bool XmlWriter::write(bool value, int depth)
{
    line(depth, value ? "<true/>" : "<false/>");
    return true;
}

bool XmlWriter::write(std::int64_t value, int depth)
{
    return element(depth, "integer", std::to_string(value));
}

bool XmlWriter::write(double value, int depth)
{
    if (std::isnan(value))
        return element(depth, "real", "nan");
    if (std::isinf(value))
        return element(depth, "real", value > 0 ? "+infinity" : "-infinity");
    char text[32]; // The shortest text that is read back as this very number has at most 24 characters.
    const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
    return element(depth, "real", std::string_view(text, static_cast<std::size_t>(end - text)));
}

bool XmlWriter::write(const std::string& text, int depth)
{
    return element(depth, "string", text);
}

bool XmlWriter::write(const NSDate& date, int depth)
{
    namespace chrono = std::chrono;
    constexpr auto first = chrono::sys_days(chrono::year(0) / 1 / 1);
    constexpr auto last = chrono::sys_days(chrono::year(10000) / 1 / 1);
    const double seconds = NSDate(std::floor(date.timeIntervalSinceReferenceDate())).timeIntervalSince1970();
    constexpr auto count
        = [](auto day) { return static_cast<double>(chrono::seconds(day.time_since_epoch()).count()); };
    if (!(seconds >= count(first) && seconds < count(last)))
        return false;
    const chrono::sys_seconds instant { chrono::seconds(static_cast<std::int64_t>(seconds)) };
    const auto midnight = chrono::floor<chrono::days>(instant);
    const chrono::year_month_day day(midnight);
    const chrono::hh_mm_ss time(instant - midnight);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(day.year()),
        static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
    return element(depth, "date", text);
}

bool XmlWriter::write(const PropertyData& data, int depth)
{
    // Lines end at column 76 where a tab counts as eight, and never are much shorter than that allows.
    const auto width = static_cast<std::size_t>(76 - 8 * std::min(depth, 8));
    const auto base64 = QByteArray::fromRawData(
        reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()))
                            .toBase64()
                            .toStdString();
    line(depth, "<data>");
    for (std::size_t start = 0; start < base64.size(); start += width)
        line(depth, std::string_view(base64).substr(start, width));
    line(depth, "</data>");
    return true;
}

bool XmlWriter::write(const PropertyArray& array, int depth)
{
    if (depth >= deepestNesting)
        return false;
    if (array.empty()) {
        line(depth, "<array/>");
        return true;
    }
    line(depth, "<array>");
    for (const auto& value : array) {
        if (!write(value, depth + 1))
            return false;
    }
    line(depth, "</array>");
    return true;
}

bool XmlWriter::write(const PropertyList& entries, int depth)
{
    if (depth >= deepestNesting)
        return false;
    if (entries.empty()) {
        line(depth, "<dict/>");
        return true;
    }
    line(depth, "<dict>");
    for (const auto& [key, value] : entries) {
        if (!element(depth + 1, "key", key) || !write(value, depth + 1))
            return false;
    }
    line(depth, "</dict>");
    return true;
}

std::optional<std::string> XmlWriter::run(const PropertyList& root)
{
    _xml = prologue();
    if (!write(root, 0))
        return std::nullopt;
    _xml += "</plist>\n";
    return std::move(_xml);
}

}

std::optional<std::string> xmlFromPropertyList(const PropertyList& root)
{
    return XmlWriter().run(root);
}

}
