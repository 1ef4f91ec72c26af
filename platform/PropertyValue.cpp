#include "PropertyValue.h"

#include "NSString.h"
#include "Truncation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {

namespace {

template <typename... Handlers> struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers> Overloaded(Handlers...) -> Overloaded<Handlers...>;

float narrowed(double value)
{
    // Halfway between the largest float and the next power of two: from here on it rounds to an infinity.
    constexpr double tooLarge = 0x1.ffffffp127;
    if (std::abs(value) >= tooLarge)
        return static_cast<float>(std::copysign(std::numeric_limits<double>::infinity(), value));
    return static_cast<float>(value);
}

bool integerEqualsReal(std::int64_t integer, double real)
{
    // Through the integer, since a double does not hold every one of them.
    constexpr double pastLargest = 0x1p63;
    return real >= -pastLargest && real < pastLargest && std::trunc(real) == real
        && static_cast<std::int64_t>(real) == integer;
}

/// A boolean or an integer as an integer.
std::optional<std::int64_t> wholeNumber(const PropertyValue::Storage& storage)
{
    if (const auto* boolean = std::get_if<bool>(&storage))
        return *boolean ? 1 : 0;
    if (const auto* integer = std::get_if<std::int64_t>(&storage))
        return *integer;
    return std::nullopt;
}

bool numbersAreEqual(const PropertyValue::Storage& one, const PropertyValue::Storage& other)
{
    const auto integer = wholeNumber(one);
    const auto otherInteger = wholeNumber(other);
    if (integer && otherInteger)
        return *integer == *otherInteger;
    if (integer)
        return integerEqualsReal(*integer, std::get<double>(other));
    const auto real = std::get<double>(one);
    if (otherInteger)
        return integerEqualsReal(*otherInteger, real);
    const auto otherReal = std::get<double>(other);
    return real == otherReal || (std::isnan(real) && std::isnan(otherReal));
}

}

bool PropertyValue::boolValue() const
{
    return std::visit(Overloaded {
                          [](bool value) { return value; },
                          [](std::int64_t value) { return value != 0; },
                          [](double value) { return value != 0; },
                          [](const std::string& value) { return platform::boolValue(value); },
                          [](const auto&) { return false; },
                      },
        _storage);
}

std::int32_t PropertyValue::intValue() const
{
    return std::visit(Overloaded {
                          [](bool value) { return std::int32_t { value }; },
                          [](std::int64_t value) { return static_cast<std::int32_t>(value); },
                          [](double value) { return truncatedInteger(value); },
                          [](const std::string& value) { return platform::intValue(value); },
                          [](const auto&) { return std::int32_t { 0 }; },
                      },
        _storage);
}

float PropertyValue::floatValue() const
{
    return std::visit(Overloaded {
                          [](bool value) { return value ? 1.0F : 0.0F; },
                          [](std::int64_t value) { return static_cast<float>(value); },
                          [](double value) { return narrowed(value); },
                          [](const std::string& value) { return platform::floatValue(value); },
                          [](const auto&) { return 0.0F; },
                      },
        _storage);
}

double PropertyValue::doubleValue() const
{
    return std::visit(Overloaded {
                          [](bool value) { return value ? 1.0 : 0.0; },
                          [](std::int64_t value) { return static_cast<double>(value); },
                          [](double value) { return value; },
                          [](const std::string& value) { return platform::doubleValue(value); },
                          [](const auto&) { return 0.0; },
                      },
        _storage);
}

bool PropertyValue::isNumber() const
{
    return wholeNumber(_storage) || std::holds_alternative<double>(_storage);
}

bool PropertyValue::isEqual(const PropertyValue& other) const
{
    if (isNumber() && other.isNumber())
        return numbersAreEqual(_storage, other._storage);
    if (const auto* mine = array(), *theirs = other.array(); mine && theirs)
        return std::equal(mine->begin(), mine->end(), theirs->begin(), theirs->end(),
            [](const auto& a, const auto& b) { return a.isEqual(b); });
    if (const auto* mine = dictionary(), *theirs = other.dictionary(); mine && theirs)
        return std::equal(mine->begin(), mine->end(), theirs->begin(), theirs->end(),
            [](const auto& a, const auto& b) { return a.first == b.first && a.second.isEqual(b.second); });
    return _storage == other._storage;
}

}
