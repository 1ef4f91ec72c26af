#include "NSScanner.h"

#include <optional>

namespace platform {

namespace {

std::optional<std::uint32_t> hexDigit(const std::string& text, std::size_t index)
{
    const char digit = index < text.size() ? text[index] : '\0';
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return std::nullopt;
}

}

NSScanner::NSScanner(std::string_view text)
    : _text(text)
{
}

bool NSScanner::scanHexInt(std::uint32_t& value)
{
    auto position = _text.find_first_not_of(_skipped, _location);
    if (position == _text.npos || !hexDigit(_text, position))
        return false;
    // Without a digit after it, the "0" of "0x" is the number and the "x" is not part of it.
    const bool hasPrefix = _text[position] == '0' && position + 1 < _text.size()
        && (_text[position + 1] == 'x' || _text[position + 1] == 'X') && hexDigit(_text, position + 2);
    if (hasPrefix)
        position += 2;

    constexpr std::uint32_t largest = 0xFFFFFFFF;
    std::uint32_t result = 0;
    bool overflows = false;
    for (; const auto digit = hexDigit(_text, position); ++position) {
        overflows = overflows || result > largest >> 4;
        result = (result << 4) | *digit;
    }
    value = overflows ? largest : result;
    _location = position;
    return true;
}

}
