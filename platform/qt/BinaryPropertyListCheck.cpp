#include "PropertyListFormat.h"

#include <algorithm>
#include <unordered_map>

namespace platform {

namespace {

constexpr std::string_view header = "bplist00";
constexpr std::size_t trailerSize = 32;

/// What an object becomes when it is written out with everything in it.
struct Extent {
    std::uint64_t objects = 1;
    std::uint64_t bytes = 0; ///< Of texts and data.
    int nesting = 0; ///< 1 for a container of plain values.
};

class Check {
public:
    explicit Check(std::string_view file)
        : _file(file)
    {
    }

    bool run();

private:
    using Number = std::uint64_t;

    bool readTrailer();
    std::optional<Extent> measure(Number object, int depth);
    std::optional<Extent> measureContainer(
        Number object, std::string_view references, Number keys, int depth);
    std::optional<std::string_view> body(Number offset, Number elementSize, Number elements) const;

    Number number(std::size_t offset, std::size_t size) const;
    std::optional<Number> offsetOf(Number object) const;
    bool isText(Number object) const;

    std::string_view _file;
    std::size_t _offsetSize = 0;
    std::size_t _referenceSize = 0;
    Number _objectCount = 0;
    Number _root = 0;
    Number _offsetTable = 0;
    Number _mostBytes = 0;
    std::unordered_map<Number, std::optional<Extent>> _containers; ///< Nothing while being measured.
};

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c > 0 && c < 0x80; });
}

/// Without zeros and without halves of characters.
bool isUtf16(std::string_view text)
{
    bool expectsSecondHalf = false;
    for (std::size_t index = 0; index < text.size(); index += 2) {
        const auto unit
            = static_cast<unsigned char>(text[index]) << 8 | static_cast<unsigned char>(text[index + 1]);
        const bool isSecondHalf = (unit & 0xFC00) == 0xDC00;
        if (unit == 0 || isSecondHalf != expectsSecondHalf)
            return false;
        expectsSecondHalf = (unit & 0xFC00) == 0xD800;
    }
    return !expectsSecondHalf;
}

Check::Number Check::number(std::size_t offset, std::size_t size) const
{
    Number value = 0;
    for (const unsigned char byte : _file.substr(offset, size))
        value = value << 8 | byte;
    return value;
}

bool Check::readTrailer()
{
    if (!_file.starts_with(header) || _file.size() < header.size() + trailerSize)
        return false;
    const auto trailer = _file.size() - trailerSize;
    _offsetSize = number(trailer + 6, 1);
    _referenceSize = number(trailer + 7, 1);
    _objectCount = number(trailer + 8, 8);
    _root = number(trailer + 16, 8);
    _offsetTable = number(trailer + 24, 8);
    if (_offsetSize < 1 || _offsetSize > 8 || _referenceSize < 1 || _referenceSize > 8)
        return false;
    // The table lies between the objects and the trailer and fills that room, so that a cut file shows.
    return _offsetTable > header.size() && _offsetTable <= trailer
        && _objectCount == (trailer - _offsetTable) / _offsetSize
        && _objectCount * _offsetSize == trailer - _offsetTable;
}

std::optional<Check::Number> Check::offsetOf(Number object) const
{
    if (object >= _objectCount)
        return std::nullopt;
    const auto offset = number(_offsetTable + object * _offsetSize, _offsetSize);
    if (offset < header.size() || offset >= _offsetTable)
        return std::nullopt;
    return offset;
}

bool Check::isText(Number object) const
{
    const auto offset = offsetOf(object);
    const auto kind = offset ? number(*offset, 1) >> 4 : 0;
    return kind == 5 || kind == 6;
}

/// The bytes of so many elements from an offset on, which must end before the table.
std::optional<std::string_view> Check::body(Number offset, Number elementSize, Number elements) const
{
    if (offset > _offsetTable || elements > (_offsetTable - offset) / elementSize)
        return std::nullopt;
    return _file.substr(offset, elements * elementSize);
}

std::optional<Extent> Check::measure(Number object, int depth)
{
    const auto start = offsetOf(object);
    if (!start)
        return std::nullopt;
    const auto kind = number(*start, 1) >> 4;
    const auto low = number(*start, 1) & 15;
    auto offset = *start + 1;
    const auto plain = [&](bool isSound) { return isSound ? std::optional(Extent {}) : std::nullopt; };

    if (kind == 0)
        return plain(low == 8 || low == 9);
    if (kind == 1) {
        // The widest integers are unsigned ones of 64 bits.
        return plain(low <= 4 && body(offset, 1, Number { 1 } << low) && (low < 4 || number(offset, 8) == 0));
    }
    if (kind == 2)
        return plain((low == 2 || low == 3) && body(offset, 1, Number { 1 } << low));
    if (kind == 3)
        return plain(low == 3 && body(offset, 1, 8));
    if (kind == 8)
        return plain(low < 8 && body(offset, 1, low + 1));

    auto count = low;
    if (low == 15) {
        const auto marker = body(offset, 1, 1) ? number(offset, 1) : 0;
        const auto size = Number { 1 } << (marker & 15);
        if (marker >> 4 != 1 || size > 8 || !body(offset + 1, 1, size))
            return std::nullopt;
        count = number(offset + 1, size);
        offset += 1 + size;
    }
    const bool isDictionary = kind == 13;
    if (kind == 10 || isDictionary) {
        if (count > _file.size())
            return std::nullopt;
        const auto references = body(offset, _referenceSize, isDictionary ? count * 2 : count);
        return references ? measureContainer(object, *references, isDictionary ? count : 0, depth)
                          : std::nullopt;
    }
    const auto text = body(offset, kind == 6 ? 2 : 1, count);
    const bool isSound
        = text && (kind == 4 || (kind == 5 && isAscii(*text)) || (kind == 6 && isUtf16(*text)));
    return isSound ? std::optional(Extent { .bytes = text->size() }) : std::nullopt;
}

std::optional<Extent> Check::measureContainer(
    Number object, std::string_view references, Number keys, int depth)
{
    const auto [known, isNew] = _containers.try_emplace(object);
    if (!isNew) {
        // Either it contains itself, or it stands in several places.
        const bool fits = known->second && depth + known->second->nesting - 1 <= deepestNesting;
        return fits ? known->second : std::nullopt;
    }
    if (depth > deepestNesting)
        return std::nullopt;

    Extent extent { .nesting = 1 };
    const auto start = static_cast<std::size_t>(references.data() - _file.data());
    for (std::size_t at = 0; at < references.size(); at += _referenceSize) {
        const auto element = number(start + at, _referenceSize);
        if (at < keys * _referenceSize && !isText(element))
            return std::nullopt;
        const auto inner = measure(element, depth + 1);
        if (!inner)
            return std::nullopt;
        extent.objects += inner->objects;
        extent.bytes += inner->bytes;
        extent.nesting = std::max(extent.nesting, inner->nesting + 1);
        // A container of its own takes a byte of the file for each thing in it; beyond that, things repeat.
        if (extent.objects > _file.size() || extent.bytes > _mostBytes)
            return std::nullopt;
    }
    return _containers[object] = extent;
}

bool Check::run()
{
    // Texts do repeat: the keys of like dictionaries are kept once.
    _mostBytes = (64U << 20) + 16 * _file.size();
    return readTrailer() && measure(_root, 1);
}

}

bool binaryPropertyListIsSound(std::string_view file)
{
    return Check(file).run();
}

}
