#include "GradientRows.h"

namespace platform {

namespace {

constexpr std::uint32_t opaque = 0xFF000000U;

GradientInstructions limit = GradientInstructions::Avx512;

constexpr int shiftOf(unsigned channel)
{
    return 16 - 8 * static_cast<int>(channel);
}

constexpr bool isLinear(unsigned channel, unsigned linear)
{
    return (linear >> channel & 1U) != 0;
}

bool isDoubtful(std::uint32_t level)
{
    return (level & 0xFFFFU) < levelDoubt;
}

// Beyond the last pixel that counts the numbers may wrap round.
void fillOffsets(GradientRows::Offsets& offsets, double slope)
{
    constexpr auto half = 1U << (slopeBits - 1);
    const auto step = static_cast<std::uint32_t>(static_cast<std::int64_t>(slope + (slope < 0 ? -0.5 : 0.5)));
    for (int x = 0; x < GradientBlock::longest; ++x)
        offsets.levels[x]
            = static_cast<std::int32_t>(step * static_cast<std::uint32_t>(x) + half) >> slopeBits;
}

void findStarts(const GradientRows& rows, const GradientBlock& block, GradientRows::Starts& starts)
{
    starts.doubtfulRows = 0;
    for (std::size_t r = 0; r < rows.rowCount; ++r) {
        starts.pixels[r] = opaque;
        for (unsigned channel = 0; channel < 3; ++channel) {
            const auto level = static_cast<std::int32_t>(
                rows.factors[r] * block.values[channel] + rows.addends[channel][r] + 0.5);
            starts.levels[channel][r] = level;
            starts.pixels[r] |= static_cast<std::uint32_t>(level) >> 16U << shiftOf(channel);
            if (!isLinear(channel, block.linear) && isDoubtful(static_cast<std::uint32_t>(level)))
                starts.doubtfulRows |= 1U << r;
        }
    }
}

// Whether any pixel is in doubt.
template <unsigned linear>
bool paintBlock(
    const GradientRows& rows, const GradientBlock& block, const GradientRows::Starts& starts, std::size_t r)
{
    auto constant = starts.pixels[r];
    unsigned doubts = 0;
    std::uint32_t levels[3];
    const std::int32_t* offsets[3] {};
    for (unsigned channel = 0; channel < 3; ++channel) {
        levels[channel] = static_cast<std::uint32_t>(starts.levels[channel][r]);
        if (!isLinear(channel, linear))
            continue;
        constant &= ~(255U << shiftOf(channel));
        offsets[channel] = rows.offsetsOf(block.tables[channel])[r].levels;
    }
    auto* target = rows.targets[r] + block.x;
    const auto count = block.count;
    for (int x = 0; x < count; ++x) {
        auto pixel = constant;
        for (unsigned channel = 0; channel < 3; ++channel) {
            if (!isLinear(channel, linear))
                continue;
            const auto level = levels[channel] + static_cast<std::uint32_t>(offsets[channel][x]);
            pixel |= (level >> 16U & 255U) << shiftOf(channel);
            doubts |= static_cast<unsigned>(isDoubtful(level));
        }
        target[x] = pixel;
    }
    return doubts != 0;
}

std::uint64_t doubtfulPixels(
    const GradientRows& rows, const GradientBlock& block, const GradientRows::Starts& starts, std::size_t r)
{
    std::uint64_t pixels = 0;
    for (unsigned channel = 0; channel < 3; ++channel) {
        if (!isLinear(channel, block.linear))
            continue;
        const auto start = static_cast<std::uint32_t>(starts.levels[channel][r]);
        const auto* offsets = rows.offsetsOf(block.tables[channel])[r].levels;
        for (int x = 0; x < block.count; ++x)
            pixels |= std::uint64_t(isDoubtful(start + static_cast<std::uint32_t>(offsets[x]))) << x;
    }
    return pixels;
}

}

std::size_t paintGradientRowsPortably(const GradientRows& rows)
{
    static constexpr decltype(&paintBlock<0>) painters[] { paintBlock<0>, paintBlock<1>, paintBlock<2>,
        paintBlock<3>, paintBlock<4>, paintBlock<5>, paintBlock<6>, paintBlock<7> };

    for (std::size_t i = 0; i < rows.slopeCount; ++i) {
        for (std::size_t r = 0; r < rows.rowCount; ++r)
            fillOffsets(rows.offsets[i * GradientRows::most + r], rows.factors[r] * rows.slopes[i]);
    }
    std::size_t doubts = 0;
    for (std::size_t i = 0; i < rows.blockCount; ++i) {
        const auto& block = rows.blocks[i];
        auto& starts = rows.starts[i];
        findStarts(rows, block, starts);
        for (std::size_t r = 0; r < rows.rowCount; ++r) {
            if (painters[block.linear](rows, block, starts, r))
                rows.doubts[doubts++] = { r, i, doubtfulPixels(rows, block, starts, r) };
            if (starts.doubtfulRows >> r & 1U)
                rows.doubts[doubts++] = { r, i, 0 };
        }
    }
    return doubts;
}

GradientRowsPainter gradientRowsPainter()
{
    static const auto avx512 = avx512GradientRowsPainter();
    static const auto avx2 = avx2GradientRowsPainter();
    if (avx512 && limit >= GradientInstructions::Avx512)
        return avx512;
    if (avx2 && limit >= GradientInstructions::Avx2)
        return avx2;
    return paintGradientRowsPortably;
}

void limitGradientInstructions(GradientInstructions instructions)
{
    limit = instructions;
}

}
