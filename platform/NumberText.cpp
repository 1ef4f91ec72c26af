#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace platform {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr long largestExponent = 1'000'000'000; // Beyond every number, and far from overflowing.

std::size_t countDigits(std::string_view text)
{
    return std::min(text.find_first_not_of(digits), text.size());
}

long saturatedExponent(std::string_view exponent)
{
    long value = 0;
    for (const char digit : exponent)
        value = std::min(largestExponent, value * 10 + (digit - '0'));
    return value;
}

/// The decimal exponent of the leading digit that is not zero: 0 for 1 to 9, -1 for 0.1.
long magnitude(std::string_view whole, std::string_view fraction, long exponent)
{
    if (const auto first = whole.find_first_not_of('0'); first != whole.npos)
        return exponent + static_cast<long>(whole.size() - first) - 1;
    const auto first = fraction.find_first_not_of('0');
    return exponent - static_cast<long>(std::min(first, fraction.size())) - 1;
}

}

std::size_t leadingWhiteSpace(std::string_view text)
{
    return std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
}

template <typename Real> std::optional<NumberText<Real>> scanNumber(std::string_view text)
{
    auto position = leadingWhiteSpace(text);
    bool negative = false;
    if (position < text.size() && (text[position] == '+' || text[position] == '-'))
        negative = text[position++] == '-';

    const auto start = position;
    const auto whole = text.substr(position, countDigits(text.substr(position)));
    position += whole.size();
    std::string_view fraction;
    if (position < text.size() && text[position] == '.') {
        fraction = text.substr(position + 1, countDigits(text.substr(position + 1)));
        // A point alone belongs to a number only after a digit.
        if (!whole.empty() || !fraction.empty())
            position += 1 + fraction.size();
    }
    if (whole.empty() && fraction.empty())
        return std::nullopt;

    long exponent = 0;
    if (position < text.size() && (text[position] == 'e' || text[position] == 'E')) {
        auto after = position + 1;
        bool fallsBelowOne = false;
        if (after < text.size() && (text[after] == '+' || text[after] == '-'))
            fallsBelowOne = text[after++] == '-';
        const auto count = countDigits(text.substr(after));
        if (count == 0)
            return std::nullopt;
        exponent = saturatedExponent(text.substr(after, count)) * (fallsBelowOne ? -1 : 1);
        position = after + count;
    }

    Real value = 0;
    const auto read = std::from_chars(text.data() + start, text.data() + position, value);
    if (read.ec == std::errc::result_out_of_range)
        value = magnitude(whole, fraction, exponent) > 0 ? std::numeric_limits<Real>::infinity() : Real(0);
    return NumberText<Real> { negative ? -value : value, position };
}

template std::optional<NumberText<float>> scanNumber(std::string_view);
template std::optional<NumberText<double>> scanNumber(std::string_view);

}
