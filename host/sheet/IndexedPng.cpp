#include "IndexedPng.h"

#include <array>
#include <cstring>
#include <QtEndian>
#include <vector>

namespace host {

using platform::Bitmap;

namespace {

constexpr int compression = 6; // Beyond it pictures become slow rather than small.
constexpr std::size_t longestPalette = 256;
constexpr std::size_t mostFlatColors = 2048; // Of texts and their edges; gradients have more.

constexpr std::array<quint32, 256> crcTable()
{
    std::array<quint32, 256> table {};
    for (quint32 n = 0; n < table.size(); ++n) {
        quint32 c = n;
        for (int bit = 0; bit < 8; ++bit)
            c = c & 1 ? 0xEDB88320U ^ (c >> 1) : c >> 1;
        table[n] = c;
    }
    return table;
}

quint32 crcOf(const char* bytes, qsizetype count)
{
    static constexpr auto table = crcTable();
    quint32 crc = 0xFFFFFFFFU;
    for (qsizetype i = 0; i < count; ++i)
        crc = table[(crc ^ static_cast<unsigned char>(bytes[i])) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

void appendNumber(QByteArray& bytes, quint32 number)
{
    const auto bigEndian = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&bigEndian), sizeof bigEndian);
}

void appendChunk(QByteArray& png, const char* name, const char* data, qsizetype count)
{
    appendNumber(png, static_cast<quint32>(count));
    const auto begin = png.size();
    png.append(name, 4);
    png.append(data, count);
    appendNumber(png, crcOf(png.constData() + begin, png.size() - begin));
}

/// The colours of a picture, numbered as they first come.
class Palette {
public:
    /// The colour's number; nothing of use once there are more than `mostFlatColors`.
    std::size_t numberOf(quint32 color)
    {
        // Neighbours are mostly alike.
        if (color == _last && !_colors.empty())
            return _lastNumber;
        if (_colors.size() > mostFlatColors)
            return 0;
        std::size_t slot = (color * 0x9E3779B1U) >> (32 - slotBits);
        while (_slots[slot] && _colors[_slots[slot] - 1U] != color)
            slot = (slot + 1) % _slots.size();
        if (!_slots[slot]) {
            _colors.push_back(color);
            _slots[slot] = static_cast<quint16>(_colors.size());
        }
        _last = color;
        _lastNumber = _slots[slot] - 1U;
        return _lastNumber;
    }
    const std::vector<quint32>& colors() const { return _colors; }

private:
    static constexpr int slotBits = 13;
    std::array<quint16, std::size_t { 1 } << slotBits> _slots {}; ///< Numbers from 1; 0 for none.
    std::vector<quint32> _colors;
    quint32 _last = 0;
    std::size_t _lastNumber = 0;
};

const quint32* rowOf(const Bitmap& picture, int y)
{
    return reinterpret_cast<const quint32*>(picture.row(y));
}

bool isAsAbove(const Bitmap& picture, int y)
{
    return y > 0
        && std::memcmp(rowOf(picture, y - 1), rowOf(picture, y),
               static_cast<std::size_t>(picture.width) * sizeof(quint32))
        == 0;
}

/// All colours; of a picture with more than `mostFlatColors` the first of them.
Palette paletteOf(const Bitmap& picture)
{
    Palette palette;
    for (int y = 0; y < picture.height && palette.colors().size() <= mostFlatColors; ++y) {
        const auto* const row = rowOf(picture, y);
        for (int x = 0, width = isAsAbove(picture, y) ? 0 : picture.width; x < width; ++x)
            palette.numberOf(row[x]);
    }
    return palette;
}

enum Filter : char { None = 0, AsOnTheLeft = 1, AsAbove = 2 };

/// Rows of `size` bytes a pixel, each with its filter before it: what `take` makes of each row, or zeros
/// below another one that is the same.
template <typename Take>
QByteArray filteredRows(const Bitmap& picture, std::size_t size, Filter filter, const Take& take)
{
    const auto length = static_cast<std::size_t>(picture.width) * size + 1;
    QByteArray rows(static_cast<qsizetype>(length) * picture.height, '\0');
    auto* to = rows.data();
    for (int y = 0; y < picture.height; ++y, to += length) {
        const bool repeats = isAsAbove(picture, y);
        to[0] = repeats ? AsAbove : filter;
        if (!repeats)
            take(rowOf(picture, y), to + 1);
    }
    return rows;
}

QByteArray numbers(const Bitmap& picture, Palette& palette)
{
    return filteredRows(picture, 1, None, [&](const quint32* from, char* to) {
        for (int x = 0; x < picture.width; ++x)
            to[x] = static_cast<char>(palette.numberOf(from[x]));
    });
}

void writeColor(quint32 color, quint32 left, char* to)
{
    to[0] = static_cast<char>((color >> 16) - (left >> 16));
    to[1] = static_cast<char>((color >> 8) - (left >> 8));
    to[2] = static_cast<char>(color - left);
}

/// Texts repeat, so that they are best left as they are.
QByteArray flatColors(const Bitmap& picture)
{
    return filteredRows(picture, 3, None, [&](const quint32* from, char* to) {
        for (int x = 0; x < picture.width; ++x)
            writeColor(from[x], 0, to + static_cast<std::ptrdiff_t>(3) * x);
    });
}

/// What gradients have in common is how they go on.
QByteArray differences(const Bitmap& picture)
{
    return filteredRows(picture, 3, AsOnTheLeft, [&](const quint32* from, char* to) {
        for (int x = 0; x < picture.width; ++x)
            writeColor(from[x], x > 0 ? from[x - 1] : 0, to + static_cast<std::ptrdiff_t>(3) * x);
    });
}

}

QByteArray indexedPng(const Bitmap& picture)
{
    auto palette = paletteOf(picture);
    const auto colors = palette.colors().size();
    const bool isIndexed = colors <= longestPalette;
    const auto rows = isIndexed    ? numbers(picture, palette)
        : colors <= mostFlatColors ? flatColors(picture)
                                   : differences(picture);

    QByteArray png("\x89PNG\r\n\x1A\n", 8);
    QByteArray header;
    appendNumber(header, static_cast<quint32>(picture.width));
    appendNumber(header, static_cast<quint32>(picture.height));
    header.append(char { 8 });
    header.append(isIndexed ? char { 3 } : char { 2 });
    header.append(3, '\0');
    appendChunk(png, "IHDR", header.constData(), header.size());
    if (isIndexed) {
        QByteArray entries(static_cast<qsizetype>(3 * colors), '\0');
        for (std::size_t index = 0; index < colors; ++index)
            writeColor(palette.colors()[index], 0, entries.data() + 3 * index);
        appendChunk(png, "PLTE", entries.constData(), entries.size());
    }
    // Qt puts the length before what is a stream of PNG's own kind.
    const auto packed = qCompress(rows, compression);
    appendChunk(png, "IDAT", packed.constData() + 4, packed.size() - 4);
    appendChunk(png, "IEND", nullptr, 0);
    return png;
}

}
