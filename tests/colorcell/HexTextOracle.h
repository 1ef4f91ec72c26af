#pragma once

#include <cstdint>
#include <string_view>

namespace vekora::tests {

/// Where a digit stands in the alphabet of hexadecimal; 16 for all else.
constexpr unsigned hexDigit(char character)
{
    constexpr std::string_view lower = "0123456789abcdef";
    constexpr std::string_view upper = "0123456789ABCDEF";
    const auto place = lower.find(character) != lower.npos ? lower.find(character) : upper.find(character);
    return place == lower.npos ? 16 : static_cast<unsigned>(place);
}

/// The colour RRGGBB that a text stands for, said another way than the pane says it: the digits are looked at
/// as text, and a number that is too long is never computed.
constexpr std::uint32_t colorOfHexText(std::string_view text)
{
    constexpr std::uint32_t white = 0xFFFFFF;

    const auto signs = text.find_first_not_of('#');
    if (signs == text.npos)
        return white;
    text.remove_prefix(signs);
    if (hexDigit(text[0]) == 16)
        return white;
    if (text[0] == '0' && text.size() >= 2 && (text[1] == 'x' || text[1] == 'X')) {
        // A prefix without digits is its own zero.
        text.remove_prefix(2);
        if (text.empty() || hexDigit(text[0]) == 16)
            return 0;
    }

    std::size_t length = 0;
    while (length < text.size() && hexDigit(text[length]) != 16)
        ++length;
    auto digits = text.substr(0, length);
    while (!digits.empty() && digits.front() == '0')
        digits.remove_prefix(1);
    if (digits.size() > 6)
        return white;

    std::uint32_t color = 0;
    for (std::uint32_t place = 1; !digits.empty(); place *= 16, digits.remove_suffix(1))
        color += hexDigit(digits.back()) * place;
    return color;
}

static_assert(colorOfHexText("#FF8800") == 0xFF8800);
static_assert(colorOfHexText("0xg") == 0);
static_assert(colorOfHexText(" 12") == 0xFFFFFF);
static_assert(colorOfHexText("1234567") == 0xFFFFFF);

}
