#include "NSString.h"

#include "NumberText.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <locale.h>

namespace platform {

namespace {

/// Numbers in a format are written the same way everywhere, although the desktop sets the user's locale for
/// C.
class PlainLocale {
public:
    PlainLocale()
        : _previous(uselocale(plain()))
    {
    }
    ~PlainLocale() { uselocale(_previous); }
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

private:
    static locale_t plain()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t _previous;
};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

}

double doubleValue(std::string_view text)
{
    const auto number = scanNumber<double>(text);
    return number ? number->value : 0;
}

float floatValue(std::string_view text)
{
    const auto number = scanNumber<float>(text);
    return number ? number->value : 0;
}

std::int32_t intValue(std::string_view text)
{
    auto position = leadingWhiteSpace(text);
    bool negative = false;
    if (position < text.size() && (text[position] == '+' || text[position] == '-'))
        negative = text[position++] == '-';

    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t limit = negative ? -std::int64_t { Limits::min() } : std::int64_t { Limits::max() };
    std::int64_t value = 0;
    for (; position < text.size() && isDigit(text[position]); ++position)
        value = std::min(limit, value * 10 + (text[position] - '0'));
    return static_cast<std::int32_t>(negative ? -value : value);
}

bool boolValue(std::string_view text)
{
    auto position = leadingWhiteSpace(text);
    bool hasSign = false;
    if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
        hasSign = true;
        ++position;
    }
    position = text.find_first_not_of('0', position);
    if (position == text.npos)
        return false;
    const char first = text[position];
    return isDigit(first) || (!hasSign && std::string_view("YyTt").find(first) != std::string_view::npos);
}

std::string uppercaseString(std::string_view text)
{
    std::string result(text);
    for (auto& character : result) {
        if (character >= 'a' && character <= 'z')
            character = static_cast<char>(character - 'a' + 'A');
    }
    return result;
}

std::string stringByTrimmingCharactersInSet(std::string_view text, std::string_view characters)
{
    const auto first = text.find_first_not_of(characters);
    if (first == text.npos)
        return {};
    const auto last = text.find_last_not_of(characters);
    return std::string(text.substr(first, last - first + 1));
}

std::string stringWithFormat(const char* format, ...)
{
    const PlainLocale plain;
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string result;
    if (length > 0) {
        result.resize(static_cast<std::size_t>(length) + 1); // With the zero that C adds.
        std::vsnprintf(result.data(), result.size(), format, again);
        result.pop_back();
    }
    va_end(again);
    return result;
}

}
