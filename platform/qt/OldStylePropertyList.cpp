#include "OldStylePropertyList.h"

#include "../NumberText.h"
#include "PropertyListFormat.h"

#include <charconv>
#include <QString>
#include <QUtf8StringView>

namespace platform {

namespace {

using Parsed = std::optional<PropertyValue>;

constexpr std::string_view digitsOfHex = "0123456789abcdefABCDEF";
constexpr std::string_view digitsOfOctal = "01234567";
constexpr std::string_view bareCharacters
    = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$/:.-";

class OldStyleReader {
public:
    explicit OldStyleReader(std::string_view text)
        : _rest(text)
    {
    }

    Parsed run();

private:
    Parsed value(int depth);
    Parsed array(int depth);
    Parsed dictionary(int depth);
    Parsed data();
    std::optional<PropertyList> entries(int depth);
    std::optional<std::string> text();
    std::optional<std::string> quotedText(char quote);
    std::optional<char16_t> escape();
    std::optional<char16_t> number(std::string_view digits, std::size_t most, int base);

    bool skipBlanks();
    bool take(char wanted);
    std::string_view takeAll(std::string_view characters, std::size_t most = std::string_view::npos);

    std::string_view _rest;
};

/// White space and comments; false for a comment without an end.
bool OldStyleReader::skipBlanks()
{
    for (;;) {
        _rest.remove_prefix(leadingWhiteSpace(_rest));
        if (_rest.starts_with("//")) {
            _rest.remove_prefix(std::min(_rest.find_first_of("\n\r"), _rest.size()));
        } else if (_rest.starts_with("/*")) {
            const auto end = _rest.find("*/", 2);
            if (end == std::string_view::npos)
                return false;
            _rest.remove_prefix(end + 2);
        } else {
            return true;
        }
    }
}

/// After blanks.
bool OldStyleReader::take(char wanted)
{
    if (!skipBlanks() || !_rest.starts_with(wanted))
        return false;
    _rest.remove_prefix(1);
    return true;
}

std::string_view OldStyleReader::takeAll(std::string_view characters, std::size_t most)
{
    const auto length = std::min({ _rest.find_first_not_of(characters), _rest.size(), most });
    const auto taken = _rest.substr(0, length);
    _rest.remove_prefix(length);
    return taken;
}

std::optional<char16_t> OldStyleReader::number(std::string_view digits, std::size_t most, int base)
{
    const auto text = takeAll(digits, most);
    std::uint16_t value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value, base).ec != std::errc())
        return std::nullopt;
    return value;
}

/// What follows a backslash.
std::optional<char16_t> OldStyleReader::escape()
{
    if (_rest.empty())
        return std::nullopt;
    if (digitsOfOctal.find(_rest.front()) != std::string_view::npos) {
        // Past ASCII they would mean a character set of their own.
        const auto code = number(digitsOfOctal, 3, 8);
        return code && *code < 0x80 ? code : std::nullopt;
    }
    const char letter = _rest.front();
    _rest.remove_prefix(1);
    if (letter == 'U')
        return number(digitsOfHex, 4, 16);
    constexpr std::string_view letters = "abfnrtv";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v";
    const auto index = letters.find(letter);
    return static_cast<unsigned char>(index == std::string_view::npos ? letter : meanings[index]);
}

/// From behind the opening quote.
std::optional<std::string> OldStyleReader::quotedText(char quote)
{
    const char ends[] { quote, '\\' };
    QString result;
    for (;;) {
        const auto end = _rest.find_first_of(std::string_view(ends, 2));
        if (end == std::string_view::npos)
            return std::nullopt;
        result += QString::fromUtf8(_rest.data(), static_cast<qsizetype>(end));
        const bool isOver = _rest[end] == quote;
        _rest.remove_prefix(end + 1);
        if (isOver)
            break;
        // A character beyond ASCII is none of the escapes; it and its further bytes are taken as they are.
        if (!_rest.empty() && static_cast<unsigned char>(_rest.front()) >= 0x80)
            continue;
        const auto unit = escape();
        if (!unit)
            return std::nullopt;
        result += QChar(*unit);
    }
    // Half of a pair of units is no character.
    return result.isValidUtf16() ? std::optional(result.toStdString()) : std::nullopt;
}

std::optional<std::string> OldStyleReader::text()
{
    for (const char quote : { '"', '\'' }) {
        if (take(quote))
            return quotedText(quote);
    }
    const auto bare = takeAll(bareCharacters);
    return bare.empty() ? std::nullopt : std::optional<std::string>(bare);
}

/// From behind the opening bracket.
Parsed OldStyleReader::data()
{
    const auto end = _rest.find('>');
    if (end == std::string_view::npos)
        return std::nullopt;
    std::string digits(_rest.substr(0, end));
    _rest.remove_prefix(end + 1);
    std::erase_if(digits, [](char character) { return leadingWhiteSpace({ &character, 1 }) == 1; });
    if (digits.size() % 2 != 0 || digits.find_first_not_of(digitsOfHex) != std::string::npos)
        return std::nullopt;
    PropertyData result;
    for (std::size_t index = 0; index < digits.size(); index += 2) {
        std::uint8_t byte = 0;
        std::from_chars(&digits[index], &digits[index] + 2, byte, 16);
        result.push_back(byte);
    }
    return result;
}

/// From behind the opening bracket. A comma may stand behind the last value too.
Parsed OldStyleReader::array(int depth)
{
    PropertyArray result;
    while (!take(')')) {
        auto element = value(depth + 1);
        if (!element)
            return std::nullopt;
        result.push_back(std::move(*element));
        if (!take(',')) {
            if (!take(')'))
                return std::nullopt;
            break;
        }
    }
    return result;
}

/// From behind the opening brace.
Parsed OldStyleReader::dictionary(int depth)
{
    auto result = entries(depth);
    if (!result || !take('}'))
        return std::nullopt;
    return std::move(*result);
}

/// As many as there are: up to a closing brace or the end.
std::optional<PropertyList> OldStyleReader::entries(int depth)
{
    PropertyList result;
    while (skipBlanks() && !_rest.empty() && _rest.front() != '}') {
        auto key = text();
        if (!key)
            return std::nullopt;
        auto entry = take('=') ? value(depth + 1) : Parsed(*key);
        if (!entry || !take(';'))
            return std::nullopt;
        result.insert_or_assign(std::move(*key), std::move(*entry));
    }
    return result;
}

Parsed OldStyleReader::value(int depth)
{
    if (!skipBlanks() || _rest.empty())
        return std::nullopt;
    if (take('<'))
        return data();
    const bool isArray = take('(');
    if (isArray || take('{')) {
        if (depth > deepestNesting)
            return std::nullopt;
        return isArray ? array(depth) : dictionary(depth);
    }
    return text();
}

Parsed OldStyleReader::run()
{
    if (!skipBlanks())
        return std::nullopt;
    const bool hasBraces = take('{');
    auto result = entries(1);
    if (!result || (hasBraces && !take('}')) || !skipBlanks() || !_rest.empty())
        return std::nullopt;
    return std::move(*result);
}

}

std::optional<PropertyValue> parseOldStylePropertyList(std::string_view file)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!QUtf8StringView(file.data(), static_cast<qsizetype>(file.size())).isValidUtf8())
        return std::nullopt;
    if (file.starts_with(byteOrderMark))
        file.remove_prefix(byteOrderMark.size());
    return OldStyleReader(file).run();
}

}
