#include "PropertyListFormat.h"

#include <bit>
#include <cstdlib>
#include <limits>
#include <memory>
#include <plist/plist.h>

namespace platform {

namespace {

template <auto Function> struct CallingDeleter {
    template <typename T> void operator()(T* pointer) const { Function(pointer); }
};
template <typename T, auto Function> using Owned = std::unique_ptr<T, CallingDeleter<Function>>;

std::optional<PropertyValue> valueOf(plist_t);

/// A plain value's marker and big-endian content as the format writes them, which says what the library's
/// accessors leave out.
struct Encoded {
    std::uint8_t marker = 0;
    std::uint64_t content = 0; ///< The first eight bytes.
};

Encoded encoded(plist_t node)
{
    constexpr std::size_t headerSize = 8;
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const Owned<char, plist_to_bin_free> owner(bytes);
    Encoded result;
    if (length <= headerSize + 1 + sizeof result.content)
        return result;
    result.marker = static_cast<std::uint8_t>(bytes[headerSize]);
    for (std::size_t index = 0; index < sizeof result.content; ++index)
        result.content = result.content << 8 | static_cast<std::uint8_t>(bytes[headerSize + 1 + index]);
    return result;
}

PropertyValue integer(plist_t node)
{
    constexpr std::uint8_t unsignedMarker = 0x14;
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    const auto value = static_cast<std::int64_t>(bits);
    if (value < 0 && encoded(node).marker == unsignedMarker)
        return static_cast<double>(bits);
    return static_cast<long long>(value);
}

std::optional<PropertyValue> array(plist_t node)
{
    plist_array_iter rawIterator = nullptr;
    plist_array_new_iter(node, &rawIterator);
    const Owned<void, std::free> iterator(rawIterator);
    PropertyArray result;
    result.reserve(plist_array_get_size(node));
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, rawIterator, &item);
        if (!item)
            return result;
        auto value = valueOf(item);
        if (!value)
            return std::nullopt;
        result.push_back(std::move(*value));
    }
}

std::optional<PropertyValue> dictionary(plist_t node)
{
    plist_dict_iter rawIterator = nullptr;
    plist_dict_new_iter(node, &rawIterator);
    const Owned<void, std::free> iterator(rawIterator);
    PropertyList result;
    for (;;) {
        char* rawKey = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, rawIterator, &rawKey, &item);
        const Owned<char, std::free> key(rawKey);
        if (!item)
            return result;
        auto value = valueOf(item);
        if (!value || !key)
            return std::nullopt;
        result.insert_or_assign(key.get(), std::move(*value));
    }
}

std::optional<PropertyValue> valueOf(plist_t node)
{
    std::uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT:
        return integer(node);
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_DATE:
        // The accessor for dates has 32 bits, which end in the year 2069.
        return NSDate(std::bit_cast<double>(encoded(node).content));
    case PLIST_STRING: {
        const char* text = plist_get_string_ptr(node, &length);
        return text ? std::string(text, length) : std::string();
    }
    case PLIST_DATA: {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(plist_get_data_ptr(node, &length));
        return PropertyData(bytes, bytes + (bytes ? length : 0));
    }
    case PLIST_UID: {
        std::uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return PropertyList { { "CF$UID", static_cast<long long>(value) } };
    }
    case PLIST_ARRAY:
        return array(node);
    case PLIST_DICT:
        return dictionary(node);
    default:
        return std::nullopt;
    }
}

}

std::optional<PropertyValue> parseBinaryPropertyList(std::string_view file)
{
    if (file.size() > std::numeric_limits<std::uint32_t>::max() || !binaryPropertyListIsSound(file))
        return std::nullopt;
    plist_t root = nullptr;
    plist_from_bin(file.data(), static_cast<std::uint32_t>(file.size()), &root);
    const Owned<void, plist_free> owner(root);
    return root ? valueOf(root) : std::nullopt;
}

}
