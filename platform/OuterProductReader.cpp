#include "OuterProductReader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace platform {

namespace {

constexpr auto scale = 255 * levelUnits; // Levels of a component of 1.

int shiftOf(int channel)
{
    return 16 - 8 * channel;
}

}

OuterProductReader::OuterProductReader(
    const OuterProduct& product, const GradientRecording& recording, PixelRect part)
    : _product(product)
    , _recording(recording)
    , _paint(gradientRowsPainter())
    , _part(part)
    // The operations behind a level round fewer than 32 times for each gradient on top, and 32 times besides.
    , _margin(2 * scale * 16 * static_cast<double>(product.shadeCount() + 1)
          * std::numeric_limits<double>::epsilon())
    , _memory(emptyMemory())
{
    for (const auto& segment : product.segments())
        addBlocks(segment);
    const auto& blocks = _memory.blocks;
    _memory.offsets.resize(_memory.slopes.size() * GradientRows::most);
    _memory.starts.resize(blocks.size());
    _memory.doubts.resize(blocks.size() * GradientRows::most * 2);
    _rows.blocks = blocks.data();
    _rows.blockCount = blocks.size();
    _rows.slopes = _memory.slopes.data();
    _rows.slopeCount = _memory.slopes.size();
    _rows.offsets = _memory.offsets.data();
    _rows.starts = _memory.starts.data();
    _rows.doubts = _memory.doubts.data();
}

OuterProductReader::Memory& OuterProductReader::emptyMemory()
{
    static thread_local Memory memory;
    memory.blocks.clear();
    memory.slopes.clear();
    return memory;
}

void OuterProductReader::addBlocks(const OuterProduct::Segment& segment)
{
    const auto end = std::min(segment.end, _part.right());
    for (auto x = std::max(segment.first, _part.x); x < end; x += GradientBlock::longest) {
        GradientBlock block {};
        block.x = x - _part.x;
        block.count = std::min(end - x, GradientBlock::longest);
        block.room = _part.right() - x;
        for (unsigned c = 0; c < 3; ++c) {
            block.values[c] = (segment.values[c] + segment.slopes[c] * (x - segment.first)) * scale;
            if (!segment.varies[c])
                continue;
            block.slopes[c] = segment.slopes[c] * scale;
            block.linear |= 1U << c;
            block.tables[c] = tableOf(block.slopes[c]);
        }
        _memory.blocks.push_back(block);
    }
}

unsigned OuterProductReader::tableOf(double slope)
{
    const auto fine = slope * (1 << slopeBits);
    const auto index = std::find(_memory.slopes.begin(), _memory.slopes.end(), fine) - _memory.slopes.begin();
    if (index == static_cast<std::ptrdiff_t>(_memory.slopes.size()))
        _memory.slopes.push_back(fine);
    return static_cast<unsigned>(index);
}

void OuterProductReader::read(std::uint32_t* target, std::ptrdiff_t stride)
{
    constexpr auto most = static_cast<int>(GradientRows::most);
    static_assert(most == OuterProduct::rowCount);
    if (_product.shadeCount() > 0) {
        for (int y = _part.y; y < _part.bottom(); y += most, target += most * stride)
            paintRows(y, std::min(most, _part.bottom() - y), target, stride);
        return;
    }
    paintRows(_part.y, 1, target, stride);
    const auto* first = target;
    for (int y = _part.y + 1; y < _part.bottom(); ++y) {
        target += stride;
        std::memcpy(target, first, static_cast<std::size_t>(_part.width) * sizeof *target);
    }
}

void OuterProductReader::paintRows(int y, int count, std::uint32_t* target, std::ptrdiff_t stride)
{
    const auto found = _product.findRows(y);
    for (int c = 0; c < 3; ++c) {
        for (int i = 0; i < OuterProduct::rowCount; ++i)
            _rows.addends[c][i] = found.addends[c][i] * scale + (levelUnits / 2 + levelBias);
    }
    std::copy_n(found.factors, OuterProduct::rowCount, _rows.factors);
    for (int i = 0; i < count; ++i)
        _rows.targets[i] = target + i * stride;
    // Worth it while these rows and the next fit the nearest cache together.
    const auto ahead = _part.width <= 400 ? stride * OuterProduct::rowCount : 0;
    _rows.toNextTargets = static_cast<std::uintptr_t>(ahead) * sizeof *target;
    _rows.rowCount = static_cast<std::size_t>(count);
    const auto doubts = _paint(_rows);
    for (std::size_t i = 0; i < doubts; ++i)
        settle(_memory.doubts[i], y + static_cast<int>(_memory.doubts[i].row));
}

void OuterProductReader::settle(const GradientDoubt& doubt, int y)
{
    const auto& block = _memory.blocks[doubt.block];
    auto* target = _rows.targets[doubt.row] + block.x;
    const auto settlePixel = [&](int c, int x) {
        const auto level = _rows.factors[doubt.row] * (block.values[c] + block.slopes[c] * x)
            + _rows.addends[c][doubt.row] - levelBias;
        const auto byte = settledByte(level, c, _part.x + block.x + x, y);
        target[x] = (target[x] & ~(255U << shiftOf(c))) | byte << shiftOf(c);
        return byte;
    };
    for (int c = 0; c < 3; ++c) {
        if (block.linear >> c & 1U) {
            for (auto pixels = doubt.pixels; pixels; pixels &= pixels - 1)
                settlePixel(c, std::countr_zero(pixels));
            continue;
        }
        const auto suggested = *target >> shiftOf(c) & 255U;
        const auto change = settlePixel(c, 0) - suggested; // All ones, which carry like -1, or 0 or 1.
        for (int x = 1; x < block.count; ++x)
            target[x] += change << shiftOf(c);
    }
}

std::uint32_t OuterProductReader::settledByte(double level, int channel, int x, int y)
{
    const auto byte = static_cast<int>(level / levelUnits);
    const auto fraction = level - byte * levelUnits;
    if (fraction > _margin && fraction < levelUnits - _margin)
        return static_cast<std::uint32_t>(byte);
    if (!_exact)
        _exact.emplace(_recording);
    return _exact->pixel(x, y) >> shiftOf(channel) & 255U;
}

}
