#pragma once

#include "NSDate.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

class PropertyValue;

using PropertyData = std::vector<std::uint8_t>;
using PropertyArray = std::vector<PropertyValue>;
/// Keys are UTF-8 and kept in code-point order, the order in which a file holds them.
using PropertyList = std::map<std::string, PropertyValue, std::less<>>;

/// A value that a property list can hold. Booleans and integers are kept apart; the number readers take
/// either.
class PropertyValue {
public:
    using Storage = std::variant<bool, std::int64_t, double, std::string, NSDate, PropertyData, PropertyArray,
        PropertyList>;

    PropertyValue(bool value)
        : _storage(value)
    {
    }
    PropertyValue(int value)
        : _storage(std::int64_t { value })
    {
    }
    PropertyValue(long value)
        : _storage(std::int64_t { value })
    {
    }
    PropertyValue(long long value)
        : _storage(std::int64_t { value })
    {
    }
    PropertyValue(double value)
        : _storage(value)
    {
    }
    PropertyValue(const char* value)
        : _storage(std::string(value))
    {
    }
    PropertyValue(std::string_view value)
        : _storage(std::string(value))
    {
    }
    PropertyValue(std::string value)
        : _storage(std::move(value))
    {
    }
    PropertyValue(NSDate value)
        : _storage(value)
    {
    }
    PropertyValue(PropertyData value)
        : _storage(std::move(value))
    {
    }
    PropertyValue(PropertyArray value)
        : _storage(std::move(value))
    {
    }
    PropertyValue(PropertyList value)
        : _storage(std::move(value))
    {
    }

    /// The number readers answer for booleans, numbers and strings (read as NSString reads them, see
    /// NSString.h); any other kind is off or 0.
    bool boolValue() const;
    /// Reals are cut toward zero and pinned to 32 bits, NaN is 0; a wider integer keeps its low 32 bits.
    std::int32_t intValue() const;
    float floatValue() const;
    double doubleValue() const;

    /// Null for any other kind.
    const std::string* string() const { return std::get_if<std::string>(&_storage); }
    const NSDate* date() const { return std::get_if<NSDate>(&_storage); }
    const PropertyArray* array() const { return std::get_if<PropertyArray>(&_storage); }
    const PropertyList* dictionary() const { return std::get_if<PropertyList>(&_storage); }
    bool isNumber() const; ///< A boolean, an integer or a real.

    const Storage& storage() const { return _storage; }

    /// As the platform's objects compare: numbers by their value whatever their kind (1, 1.0 and true are
    /// equal), all else by kind and content.
    bool isEqual(const PropertyValue& other) const;

    /// Exact: the same kind and the same content.
    bool operator==(const PropertyValue&) const = default;

private:
    Storage _storage;
};

}
