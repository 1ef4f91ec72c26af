#include "IndexedPng.h"

#include <array>
#include <cstring>
#include <QtEndian>
#include <vector>

namespace host {

using platform::Bitmap;

namespace {

constexpr int compression = 1; // The quickest; pages are flat enough for it.
constexpr std::size_t mostColors = 256;

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
    /// The colour's number; nothing of use once there are too many.
    std::size_t numberOf(quint32 color)
    {
        // Neighbours are mostly alike.
        if (color == _last && !_colors.empty())
            return _lastNumber;
        if (_colors.size() > mostColors)
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
    static constexpr int slotBits = 11;
    std::array<quint16, std::size_t { 1 } << slotBits> _slots {}; ///< Numbers from 1; 0 for none.
    std::vector<quint32> _colors;
    quint32 _last = 0;
    std::size_t _lastNumber = 0;
};

/// Rows of numbers, each with its filter before it; empty when there are too many colours.
QByteArray numbered(const Bitmap& picture, Palette& palette)
{
    const auto width = static_cast<std::size_t>(picture.width);
    QByteArray rows(static_cast<qsizetype>(width + 1) * picture.height, '\0');
    auto* to = rows.data();
    const quint32* above = nullptr;
    for (int y = 0; y < picture.height; ++y, to += width + 1) {
        const auto* from
            = reinterpret_cast<const quint32*>(picture.pixels.get()) + static_cast<std::size_t>(y) * width;
        if (above && std::memcmp(above, from, width * sizeof *from) == 0) {
            to[0] = 2; // As above: all zeros.
            continue;
        }
        for (std::size_t x = 0; x < width; ++x)
            to[x + 1] = static_cast<char>(palette.numberOf(from[x]));
        if (palette.colors().size() > mostColors)
            return {};
        above = from;
    }
    return rows;
}

/// Rows of red, green and blue, as differences to the pixel on the left, which suits gradients.
QByteArray trueColors(const Bitmap& picture)
{
    const auto width = static_cast<std::size_t>(picture.width);
    QByteArray rows(static_cast<qsizetype>(width * 3 + 1) * picture.height, '\0');
    auto* to = rows.data();
    const quint32* above = nullptr;
    for (int y = 0; y < picture.height; ++y, to += width * 3 + 1) {
        const auto* from
            = reinterpret_cast<const quint32*>(picture.pixels.get()) + static_cast<std::size_t>(y) * width;
        if (above && std::memcmp(above, from, width * sizeof *from) == 0) {
            to[0] = 2;
            continue;
        }
        to[0] = 1;
        quint32 left = 0;
        for (std::size_t x = 0; x < width; ++x) {
            const auto color = from[x];
            to[x * 3 + 1] = static_cast<char>((color >> 16) - (left >> 16));
            to[x * 3 + 2] = static_cast<char>((color >> 8) - (left >> 8));
            to[x * 3 + 3] = static_cast<char>(color - left);
            left = color;
        }
        above = from;
    }
    return rows;
}

}

QByteArray indexedPng(const Bitmap& picture)
{
    Palette palette;
    auto rows = numbered(picture, palette);
    const bool isIndexed = !rows.isEmpty();
    if (!isIndexed)
        rows = trueColors(picture);

    QByteArray png("\x89PNG\r\n\x1A\n", 8);
    QByteArray header;
    appendNumber(header, static_cast<quint32>(picture.width));
    appendNumber(header, static_cast<quint32>(picture.height));
    header.append(char { 8 });
    header.append(isIndexed ? char { 3 } : char { 2 });
    header.append(3, '\0');
    appendChunk(png, "IHDR", header.constData(), header.size());
    if (isIndexed) {
        QByteArray colors;
        for (const auto color : palette.colors()) {
            colors.append(static_cast<char>(color >> 16));
            colors.append(static_cast<char>(color >> 8));
            colors.append(static_cast<char>(color));
        }
        appendChunk(png, "PLTE", colors.constData(), colors.size());
    }
    // Qt puts the length before what is a stream of PNG's own kind.
    const auto packed = qCompress(rows, compression);
    appendChunk(png, "IDAT", packed.constData() + 4, packed.size() - 4);
    appendChunk(png, "IEND", nullptr, 0);
    return png;
}

}
