#pragma once

#include <cstddef>
#include <cstdint>

/// The innermost loops of the gradient painter: rows whose channels are piecewise linear, with versions for
/// processors that work on eight or sixteen pixels at once. All only suggest bytes, and say where one is in
/// doubt, so it makes no difference to a picture which of them runs.
namespace platform {

/// Levels are counted in 65536ths of a byte value.
constexpr double levelUnits = 65536;
/// How much too high a level is given, so that its bytes come from rounding down. On the way to a pixel a
/// level is rounded twice to a whole unit, and its step adds at most a quarter: it ends between an eighth of
/// a unit and less than three units too high. So its byte is right unless its fraction is below three units.
constexpr double levelBias = 1.375;
constexpr std::uint32_t levelDoubt = 3;
/// A slope has this much more precision than a level, so that its rounding does not add up to anything along
/// a block.
constexpr int slopeBits = 7;

/// A run of pixels along which each channel is constant or linear, in every row.
struct GradientBlock {
    static constexpr int longest = 64; ///< Pixels.

    double values[3]; ///< Red, green and blue of the first pixel, in levels.
    double slopes[3]; ///< A pixel, in levels.
    int x; ///< From the row's target.
    int count;
    int room; ///< Pixels that may be written to, rubbish beyond `count`.
    unsigned linear; ///< A bit for each channel that is not constant: 1 red, 2 green, 4 blue.
    unsigned tables[3]; ///< Of each linear channel: the number of its slope.
};

/// A block that holds a byte in doubt.
struct GradientDoubt {
    std::size_t row;
    std::size_t block;
    std::uint64_t pixels; ///< A bit for each pixel with a doubtful linear channel, lowest first.
};

/// A few rows, painted together. Each channel of a row is factor · value + addend, and every pixel opaque.
struct GradientRows {
    static constexpr std::size_t most = 8;

    /// How a linear channel changes in a row from the first pixel of a block to each of the others.
    struct alignas(64) Offsets {
        std::int32_t levels[GradientBlock::longest];
    };
    /// The first pixel of a block in each row.
    struct alignas(32) Starts {
        std::int32_t levels[3][most]; ///< Red, green and blue.
        std::uint32_t pixels[most]; ///< The pixels themselves: their constant channels stay along the block.
        unsigned doubtfulRows; ///< A bit for each row in which a constant channel is in doubt.
    };

    const GradientBlock* blocks;
    std::size_t blockCount;
    const double* slopes; ///< Those of all the blocks, times 2^slopeBits.
    std::size_t slopeCount;

    alignas(64) double factors[most]; ///< 0..1
    alignas(64) double addends[3][most]; ///< In levels, with the half that rounds and the bias.
    std::uint32_t* targets[most];
    /// From each target to the same place in the rows that are painted next, in bytes, to fetch it meanwhile;
    /// 0 not to. Nothing need be there.
    std::uintptr_t toNextTargets;
    std::size_t rowCount; ///< The other rows have any factors and addends.

    // Room to work in.
    Offsets* offsets; ///< `most` for each slope.
    Starts* starts; ///< One for each block.
    GradientDoubt* doubts; ///< Twice `most` for each block.

    /// How many rows each block is painted in at a time: in all where they are narrow, which saves setting it
    /// up anew for each; in one where they are wide, as memory likes it better.
    std::size_t together() const
    {
        const auto& last = blocks[blockCount - 1];
        return last.x + last.count < 800 ? rowCount : 1;
    }

    const Offsets* offsetsOf(unsigned table) const { return offsets + table * most; }
};

/// Paints the rows, and returns how many doubts there are: only the constant channels and the doubtful pixels
/// of their blocks may be wrong. A block may be in doubt twice, for its constant and for its linear channels.
using GradientRowsPainter = std::size_t (*)(const GradientRows&);

/// The quickest that this processor runs.
GradientRowsPainter gradientRowsPainter();

enum class GradientInstructions { Portable, Avx2, Avx512 };
/// For tests: makes do with less than the processor has.
void limitGradientInstructions(GradientInstructions);

std::size_t paintGradientRowsPortably(const GradientRows&);
/// These are null where the processor, or the compiler, has no such instructions.
GradientRowsPainter avx2GradientRowsPainter();
GradientRowsPainter avx512GradientRowsPainter();

}
