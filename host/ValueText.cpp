#include "ValueText.h"

#include "driver/ScriptParser.h"
#include "Instant.h"
#include "platform/Device.h"
#include "platform/qt/PropertyListFormat.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <cmath>

namespace host {

using namespace platform;

namespace {

using Reading = std::variant<PropertyValue, std::string>;

// In the order of the storage's alternatives.
constexpr std::array<std::string_view, std::variant_size_v<PropertyValue::Storage>> names { "boolean",
    "integer", "real", "string", "date", "data", "array", "dictionary" };

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The elements of a value in one line: as the writer puts them, without the ends and indentation of lines,
/// which in texts and keys are content.
std::string elementsOf(const PropertyValue& value)
{
    const auto xml = xmlFromPropertyList({ { "", value } });
    if (!xml)
        return {};
    constexpr std::string_view before = "<key></key>";
    constexpr std::string_view after = "</dict>";
    const auto from = xml->find(before) + before.size();
    const auto elements = std::string_view(*xml).substr(from, xml->rfind(after) - from);
    std::string text;
    bool isInText = false;
    for (std::size_t index = 0; index < elements.size(); ++index) {
        const char character = elements[index];
        if (character == '<')
            isInText = elements.substr(index).starts_with("<string>")
                || elements.substr(index).starts_with("<key>");
        if (isInText || (character != '\n' && character != '\t'))
            text += character;
    }
    return text;
}

struct Writer {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const
    {
        std::array<char, 32> digits {};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return { digits.data(), end };
    }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const NSDate& value) const
    {
        return textFromInstant(value, Device::current().timeZone);
    }
    std::string operator()(const PropertyData& value) const
    {
        const auto bytes = QByteArray::fromRawData(
            reinterpret_cast<const char*>(value.data()), static_cast<qsizetype>(value.size()));
        return bytes.toHex(' ').toStdString();
    }
    std::string operator()(const PropertyArray& value) const { return elementsOf(value); }
    std::string operator()(const PropertyList& value) const { return elementsOf(value); }
};

Reading readBoolean(std::string_view text)
{
    for (const auto yes : { "true", "yes", "on", "1" }) {
        if (text == yes)
            return PropertyValue(true);
    }
    for (const auto no : { "false", "no", "off", "0" }) {
        if (text == no)
            return PropertyValue(false);
    }
    return "A boolean is true or false, not " + quotedInSentence(text) + ".";
}

Reading readInteger(std::string_view text)
{
    std::int64_t number = 0;
    const auto digits = text.starts_with('+') ? text.substr(1) : text;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range)
        return "An integer has 64 bits, which is too few for " + quotedInSentence(text) + ".";
    if (error != std::errc() || end != digits.data() + digits.size() || text.starts_with("+-"))
        return "An integer is a whole number, as 60 or -1, not " + quotedInSentence(text) + ".";
    return PropertyValue(number);
}

Reading readReal(std::string_view text)
{
    double number = 0;
    if (!readNumber(text, number))
        return "A real is a number, as 0.5 or 1e3, not " + quotedInSentence(text) + ".";
    return PropertyValue(number);
}

Reading readString(std::string_view text)
{
    PropertyValue value { text };
    if (!xmlFromPropertyList({ { "", value } }))
        return std::string("A string has no control characters but tabs and line ends.");
    return value;
}

Reading readDate(std::string_view text)
{
    const auto instant = instantFromText(text, Device::current().timeZone);
    if (!instant || !xmlFromPropertyList({ { "", *instant } }))
        return "A date is written in ISO 8601, as 2014-01-05T10:17:42+01:00, not " + quotedInSentence(text)
            + ".";
    return PropertyValue(*instant);
}

Reading readData(std::string_view text)
{
    PropertyData bytes;
    std::string pending;
    for (const char character : text) {
        if (character == ' ')
            continue;
        pending += character;
        unsigned number = 0;
        const auto* const end = pending.data() + pending.size();
        if (std::from_chars(pending.data(), end, number, 16).ptr != end) {
            pending = "?";
            break;
        }
        if (pending.size() == 2) {
            bytes.push_back(static_cast<std::uint8_t>(number));
            pending.clear();
        }
    }
    if (!pending.empty())
        return "Data is written as pairs of hexadecimal digits, as 0a ff, not " + quotedInSentence(text)
            + ".";
    return PropertyValue(std::move(bytes));
}

/// An array or a dictionary.
Reading readElements(std::string_view text, std::string_view type, bool (*isType)(const PropertyValue&))
{
    // Without a tag at the front it would be read as a list of the old style.
    const auto value = text.starts_with('<')
        ? parseXmlPropertyList("<plist version=\"1.0\">" + std::string(text) + "</plist>")
        : std::nullopt;
    if (value && isType(*value) && xmlFromPropertyList({ { "", *value } }))
        return *value;
    const auto example = type == "array" ? "<array><string>One</string><integer>2</integer></array>"
                                         : "<dict><key>one</key><true/></dict>";
    return "The " + std::string(type) + " is written in XML, as " + example + ", not "
        + quotedInSentence(text) + ".";
}

Reading readArray(std::string_view text)
{
    return readElements(text, "array", [](const PropertyValue& value) { return value.array() != nullptr; });
}

Reading readDictionary(std::string_view text)
{
    return readElements(
        text, "dictionary", [](const PropertyValue& value) { return value.dictionary() != nullptr; });
}

using Reader = Reading (*)(std::string_view);
constexpr std::array<Reader, names.size()> readers { readBoolean, readInteger, readReal, readString, readDate,
    readData, readArray, readDictionary };

}

std::string quotedInSentence(std::string_view text)
{
    constexpr std::size_t longest = 40; // Bytes; a sentence must stay one.
    if (text.size() <= longest)
        return '"' + std::string(text) + '"';
    auto end = longest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end; // Not inside a character.
    return '"' + std::string(text.substr(0, end)) + "…\"";
}

std::string_view typeName(const PropertyValue& value)
{
    return names.at(value.storage().index());
}

std::span<const std::string_view> typeNames()
{
    return names;
}

std::string textFromValue(const PropertyValue& value)
{
    return std::visit(Writer {}, value.storage());
}

std::variant<PropertyValue, std::string> valueFromText(std::string_view name, std::string_view text)
{
    for (std::size_t type = 0; type < names.size(); ++type) {
        if (names.at(type) == name)
            return readers.at(type)(readers.at(type) == readString ? text : trimmed(text));
    }
    return "There is no type " + quotedInSentence(name) + ".";
}

}
