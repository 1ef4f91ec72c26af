#include "GradientRows.h"

#if defined(__x86_64__)

#include <immintrin.h>

// Only the functions marked so are compiled for AVX2; they call nothing that other files might share.
#define AVX2 __attribute__((target("avx2")))
#define AVX2_INLINE __attribute__((target("avx2"), always_inline)) inline

namespace platform {

namespace {

constexpr int lanes = 8;
constexpr auto most = GradientRows::most;
static_assert(most == 8);
constexpr auto opaque = static_cast<int>(0xFF000000U);

// Byte shuffles. The byte value of a level is the third of its four bytes.
constexpr unsigned none = 0x80;
constexpr unsigned thirdByte = 2;
constexpr unsigned topByte = 3;

constexpr int pattern(unsigned blue, unsigned green, unsigned red, unsigned alpha)
{
    return static_cast<int>(blue | green << 8U | red << 16U | alpha << 24U);
}

// From eight levels of one channel to its place in eight pixels, and from their spare top bytes to another
// place of the pixel: 0 blue, 1 green, 2 red, 3 alpha, or none.
AVX2_INLINE __m256i toPixels(unsigned channel, unsigned topPlace)
{
    unsigned sources[4] { none, none, none, none };
    sources[2 - channel] = thirdByte;
    if (topPlace != none)
        sources[topPlace] = topByte;
    const auto lane = pattern(sources[0], sources[1], sources[2], sources[3]);
    const auto next = 0x04040404;
    return _mm256_setr_epi32(lane, lane + next, lane + 2 * next, lane + 3 * next, lane, lane + next,
        lane + 2 * next, lane + 3 * next);
}

// Which levels have a fraction in doubt.
AVX2_INLINE __m256i doubtsIn(__m256i levels)
{
    const auto fractions = _mm256_and_si256(levels, _mm256_set1_epi32(0xFFFF));
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(levelDoubt)), fractions);
}

// Four rows' numbers from `row` on, rounded to whole ones: factor · value + addend, without addends factor ·
// value.
AVX2_INLINE __m128i fourRows(const GradientRows& rows, std::size_t row, double value, const double* addends)
{
    auto numbers = _mm256_mul_pd(_mm256_load_pd(rows.factors + row), _mm256_set1_pd(value));
    if (addends)
        numbers = _mm256_add_pd(numbers, _mm256_load_pd(addends + row));
    return _mm256_cvtpd_epi32(numbers);
}

AVX2_INLINE __m256i eightRows(const GradientRows& rows, double value, const double* addends)
{
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(fourRows(rows, 0, value, addends)), fourRows(rows, 4, value, addends), 1);
}

AVX2_INLINE void fillOffsets(const GradientRows& rows, std::size_t slope)
{
    const auto half = _mm256_set1_epi32(1 << (slopeBits - 1));
    auto* offsets = rows.offsets + slope * most;
    // A slope that is out of range belongs to blocks of one pixel, which have no use for it.
    alignas(32) std::int32_t steps[most];
    _mm256_store_si256(reinterpret_cast<__m256i*>(steps), eightRows(rows, rows.slopes[slope], nullptr));
    for (std::size_t r = 0; r < rows.rowCount; ++r) {
        const auto step = _mm256_set1_epi32(steps[r]);
        const auto next = _mm256_slli_epi32(step, 3);
        auto offset
            = _mm256_add_epi32(_mm256_mullo_epi32(step, _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7)), half);
        for (int x = 0; x < GradientBlock::longest; x += lanes) {
            _mm256_store_si256(
                reinterpret_cast<__m256i*>(offsets[r].levels + x), _mm256_srai_epi32(offset, slopeBits));
            offset = _mm256_add_epi32(offset, next);
        }
    }
}

AVX2_INLINE void findStarts(
    const GradientRows& rows, const GradientBlock& block, GradientRows::Starts& starts)
{
    const auto red = eightRows(rows, block.values[0], rows.addends[0]);
    const auto green = eightRows(rows, block.values[1], rows.addends[1]);
    const auto blue = eightRows(rows, block.values[2], rows.addends[2]);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[0]), red);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[1]), green);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[2]), blue);
    const auto mask = _mm256_set1_epi32(0xFF0000);
    auto pixels = _mm256_or_si256(_mm256_and_si256(red, mask), _mm256_set1_epi32(opaque));
    pixels = _mm256_or_si256(pixels, _mm256_srli_epi32(_mm256_and_si256(green, mask), 8));
    pixels = _mm256_or_si256(pixels, _mm256_srli_epi32(_mm256_and_si256(blue, mask), 16));
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.pixels), pixels);

    const auto all = _mm256_set1_epi32(-1);
    const auto least = _mm256_min_epu16(block.linear & 1U ? all : red,
        _mm256_min_epu16(block.linear & 2U ? all : green, block.linear & 4U ? all : blue));
    starts.doubtfulRows = static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(doubtsIn(least))));
}

AVX2 __attribute__((noinline)) std::uint64_t doubtfulPixels(
    const GradientRows& rows, const GradientBlock& block, const GradientRows::Starts& starts, std::size_t r)
{
    std::uint64_t pixels = 0;
    for (unsigned channel = 0; channel < 3; ++channel) {
        if (!(block.linear >> channel & 1U))
            continue;
        const auto start = _mm256_set1_epi32(starts.levels[channel][r]);
        const auto* offsets = rows.offsetsOf(block.tables[channel])[r].levels;
        for (int x = 0; x < block.count; x += lanes) {
            const auto doubts = doubtsIn(
                _mm256_add_epi32(start, _mm256_load_si256(reinterpret_cast<const __m256i*>(offsets + x))));
            pixels |= static_cast<std::uint64_t>(_mm256_movemask_ps(_mm256_castsi256_ps(doubts))) << x;
        }
    }
    return block.count < GradientBlock::longest ? pixels & ((std::uint64_t(1) << block.count) - 1) : pixels;
}

// What the lanes of each channel's levels hold besides: with two linear channels the constant bytes travel in
// the spare top bytes, alpha in the first's and the third channel in the second's. Otherwise nothing, and the
// constant bytes are a pixel of their own.
template <unsigned linear> struct Channels {
    static constexpr unsigned count = (linear & 1U) + (linear >> 1U & 1U) + (linear >> 2U & 1U);
    static constexpr unsigned first = linear & 1U ? 0 : linear & 2U ? 1 : 2;
    static constexpr unsigned last = linear & 4U ? 2 : linear & 2U ? 1 : 0;
    static constexpr unsigned numbers[3] { first, count == 3 ? 1U : last, last };
    static constexpr unsigned other = 3 - first - last; ///< With two linear channels: the third.
    static constexpr unsigned otherPlace = count == 2 ? 2 - other : 0;

    static constexpr unsigned topPlace(unsigned index)
    {
        return count != 2 ? none : index == 0 ? 3 : otherPlace;
    }
};

struct Range {
    std::size_t first;
    std::size_t end;
};

// A block in some rows. Returns the new count of doubts.
template <unsigned linear>
AVX2 std::size_t paintBlock(const GradientRows& rows, std::size_t index, Range range, std::size_t doubts)
{
    using Linear = Channels<linear>;
    const auto& block = rows.blocks[index];
    const auto& starts = rows.starts[index];

    __m256i shuffles[3];
    const GradientRows::Offsets* tables[3];
    for (unsigned i = 0; i < Linear::count; ++i) {
        tables[i] = rows.offsetsOf(block.tables[Linear::numbers[i]]);
        shuffles[i] = toPixels(Linear::numbers[i], Linear::topPlace(i));
    }
    constexpr auto constantBytes = static_cast<std::uint32_t>(opaque) | (linear & 1U ? 0 : 0xFF0000U)
        | (linear & 2U ? 0 : 0xFF00U) | (linear & 4U ? 0 : 0xFFU);
    const auto whole
        = block.count < block.room - block.room % lanes ? block.count : block.room - block.room % lanes;
    const auto rest = _mm256_cmpgt_epi32(
        _mm256_set1_epi32(block.count - whole), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));

    const auto left = block.x;

    const auto bounds = _mm256_set1_epi32(static_cast<int>(levelDoubt));
    for (auto r = range.first; r < range.end; ++r) {
        auto* target = rows.targets[r] + left;
        const auto pixel = starts.pixels[r];
        auto least = _mm256_set1_epi32(-1);
        __m256i bases[3];
        const std::int32_t* offsets[3];
        for (unsigned i = 0; i < Linear::count; ++i) {
            bases[i] = _mm256_set1_epi32(starts.levels[Linear::numbers[i]][r]);
            offsets[i] = tables[i][r].levels;
        }
        auto constant = _mm256_set1_epi32(static_cast<int>(pixel & constantBytes));
        if constexpr (Linear::count == 2) {
            bases[0] = _mm256_or_si256(bases[0], _mm256_set1_epi32(opaque));
            bases[1] = _mm256_or_si256(
                bases[1], _mm256_set1_epi32(static_cast<int>(pixel >> (8 * Linear::otherPlace) << 24U)));
        }
        const auto eightPixels = [&](int x) __attribute__((target("avx2"), always_inline))
        {
            auto pixels = constant;
            for (unsigned i = 0; i < Linear::count; ++i) {
                const auto levels = _mm256_add_epi32(
                    bases[i], _mm256_load_si256(reinterpret_cast<const __m256i*>(offsets[i] + x)));
                const auto bytes = _mm256_shuffle_epi8(levels, shuffles[i]);
                pixels = Linear::count == 2 && i == 0 ? bytes : _mm256_or_si256(pixels, bytes);
                least = _mm256_min_epu16(least, levels);
            }
            return pixels;
        };
        int x = 0;
        for (; x < whole; x += lanes)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + x), eightPixels(x));
        if (x < block.count)
            _mm256_maskstore_epi32(reinterpret_cast<int*>(target + x), rest, eightPixels(x));
        // Of each lane's halves only the lower one, the fraction, can be below its bound.
        const auto inDoubt = _mm256_subs_epu16(bounds, least);
        if (__builtin_expect(!_mm256_testz_si256(inDoubt, inDoubt), false))
            rows.doubts[doubts++] = { r, index, doubtfulPixels(rows, block, starts, r) };
    }
    return doubts;
}

AVX2 std::size_t paintRows(const GradientRows& rows)
{
    using BlockPainter = std::size_t (*)(const GradientRows&, std::size_t, Range, std::size_t);
    static constexpr BlockPainter painters[] { paintBlock<0>, paintBlock<1>, paintBlock<2>, paintBlock<3>,
        paintBlock<4>, paintBlock<5>, paintBlock<6>, paintBlock<7> };

    for (std::size_t i = 0; i < rows.slopeCount; ++i)
        fillOffsets(rows, i);
    for (std::size_t i = 0; i < rows.blockCount; ++i)
        findStarts(rows, rows.blocks[i], rows.starts[i]);

    std::size_t doubts = 0;
    const auto together = rows.together();
    for (std::size_t r = 0; r < rows.rowCount; r += together) {
        for (std::size_t i = 0; i < rows.blockCount; ++i)
            doubts = painters[rows.blocks[i].linear](rows, i, { r, r + together }, doubts);
    }
    for (std::size_t i = 0; i < rows.blockCount; ++i) {
        for (std::size_t r = 0; rows.starts[i].doubtfulRows >> r && r < rows.rowCount; ++r) {
            if (rows.starts[i].doubtfulRows >> r & 1U)
                rows.doubts[doubts++] = { r, i, 0 };
        }
    }
    return doubts;
}

}

GradientRowsPainter avx2GradientRowsPainter()
{
    return __builtin_cpu_supports("avx2") ? paintRows : nullptr;
}

}

#else

namespace platform {

GradientRowsPainter avx2GradientRowsPainter()
{
    return nullptr;
}

}

#endif
