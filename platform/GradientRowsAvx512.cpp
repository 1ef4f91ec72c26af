#include "GradientRows.h"

#if defined(__x86_64__)

#if defined(__GNUC__) && !defined(__clang__)
// GCC 12 suspects its own intrinsics (bug 105593).
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif
#include <immintrin.h>

// Only the functions marked so are compiled for AVX-512; they call nothing that other files might share.
#define AVX512 __attribute__((target("avx512f,avx512bw,avx512vl")))
#define AVX512_INLINE __attribute__((target("avx512f,avx512bw,avx512vl"), always_inline)) inline

namespace platform {

namespace {

constexpr int lanes = 16;
constexpr auto most = GradientRows::most; // Rows, as many as a register has double-precision numbers.

AVX512_INLINE void fillOffsets(const GradientRows& rows, std::size_t slope)
{
    const auto counting = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const auto half = _mm512_set1_epi32(1 << (slopeBits - 1));
    auto* offsets = rows.offsets + slope * most;
    // A slope that is out of range belongs to blocks of one pixel, which have no use for it.
    alignas(32) std::int32_t steps[most];
    _mm256_store_si256(reinterpret_cast<__m256i*>(steps),
        _mm512_cvtpd_epi32(_mm512_mul_pd(_mm512_load_pd(rows.factors), _mm512_set1_pd(rows.slopes[slope]))));
    for (std::size_t r = 0; r < rows.rowCount; ++r) {
        const auto step = _mm512_set1_epi32(steps[r]);
        const auto next = _mm512_slli_epi32(step, 4);
        auto offset = _mm512_add_epi32(_mm512_mullo_epi32(step, counting), half);
        for (int x = 0; x < GradientBlock::longest; x += lanes) {
            _mm512_store_si512(offsets[r].levels + x, _mm512_srai_epi32(offset, slopeBits));
            offset = _mm512_add_epi32(offset, next);
        }
    }
}

// Which levels have a fraction in doubt.
AVX512_INLINE __mmask16 doubtsIn(__m512i levels)
{
    return _mm512_cmplt_epu32_mask(
        _mm512_and_si512(levels, _mm512_set1_epi32(0xFFFF)), _mm512_set1_epi32(static_cast<int>(levelDoubt)));
}

AVX512_INLINE __m256i startLevels(const GradientRows& rows, const GradientBlock& block, int channel)
{
    const auto products = _mm512_mul_pd(_mm512_load_pd(rows.factors), _mm512_set1_pd(block.values[channel]));
    return _mm512_cvtpd_epi32(_mm512_add_pd(products, _mm512_load_pd(rows.addends[channel])));
}

AVX512_INLINE void findStarts(
    const GradientRows& rows, const GradientBlock& block, GradientRows::Starts& starts)
{
    const auto red = startLevels(rows, block, 0);
    const auto green = startLevels(rows, block, 1);
    const auto blue = startLevels(rows, block, 2);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[0]), red);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[1]), green);
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.levels[2]), blue);
    // The byte value of a level is its third byte.
    const auto thirdByte = _mm256_set1_epi32(0xFF0000);
    auto pixels
        = _mm256_or_si256(_mm256_and_si256(red, thirdByte), _mm256_set1_epi32(static_cast<int>(0xFF000000U)));
    pixels = _mm256_or_si256(pixels, _mm256_srli_epi32(_mm256_and_si256(green, thirdByte), 8));
    pixels = _mm256_or_si256(pixels, _mm256_srli_epi32(_mm256_and_si256(blue, thirdByte), 16));
    _mm256_store_si256(reinterpret_cast<__m256i*>(starts.pixels), pixels);

    const auto all = _mm256_set1_epi32(-1);
    const auto least = _mm256_min_epu16(block.linear & 1U ? all : red,
        _mm256_min_epu16(block.linear & 2U ? all : green, block.linear & 4U ? all : blue));
    starts.doubtfulRows = doubtsIn(_mm512_inserti64x4(_mm512_set1_epi32(-1), least, 0));
}

// The first `count` of sixteen pixels.
constexpr __mmask16 firstPixels(int count)
{
    return static_cast<__mmask16>((1U << count) - 1);
}

AVX512 __attribute__((noinline)) std::uint64_t doubtfulPixels(
    const GradientRows& rows, const GradientBlock& block, const GradientRows::Starts& starts, std::size_t r)
{
    std::uint64_t pixels = 0;
    for (unsigned channel = 0; channel < 3; ++channel) {
        if (!(block.linear >> channel & 1U))
            continue;
        const auto start = _mm512_set1_epi32(starts.levels[channel][r]);
        const auto* offsets = rows.offsetsOf(block.tables[channel])[r].levels;
        for (int x = 0; x < block.count; x += lanes) {
            const auto counting = firstPixels(block.count - x < lanes ? block.count - x : lanes);
            const auto doubts = doubtsIn(_mm512_add_epi32(start, _mm512_load_si512(offsets + x))) & counting;
            pixels |= static_cast<std::uint64_t>(doubts) << x;
        }
    }
    return pixels;
}

struct Range {
    std::size_t first;
    std::size_t end;
};

// A block in some rows; `vectors` is how many times sixteen pixels it needs. Returns the new count of doubts.
template <unsigned linear, int vectors>
AVX512 std::size_t paintBlock(const GradientRows& rows, std::size_t index, Range range, std::size_t doubts)
{
    const auto& block = rows.blocks[index];
    const auto& starts = rows.starts[index];

    // Each lane's third byte, wherever in the pixel it is asked for.
    const auto thirdBytes = _mm512_set4_epi32(0x0E0E0E0E, 0x0A0A0A0A, 0x06060606, 0x02020202);
    constexpr __mmask64 masks[3] { 0x4444444444444444, 0x2222222222222222, 0x1111111111111111 };
    const auto bounds = _mm512_set1_epi32(static_cast<int>(levelDoubt));
    const auto last = firstPixels(block.count - (vectors - 1) * lanes);
    const GradientRows::Offsets* tables[3];
    for (unsigned channel = 0; channel < 3; ++channel)
        tables[channel] = rows.offsetsOf(block.tables[channel]);
    const auto left = block.x;
    const auto toNext = rows.toNextTargets;

    for (auto r = range.first; r < range.end; ++r) {
        auto* target = rows.targets[r] + left;
        const auto constant = _mm512_set1_epi32(static_cast<int>(starts.pixels[r]));
        __m512i pixels[vectors];
        for (auto& sixteen : pixels)
            sixteen = constant;
        auto least = _mm512_set1_epi32(-1);
        for (unsigned channel = 0; channel < 3; ++channel) {
            if (!(linear >> channel & 1U))
                continue;
            const auto start = _mm512_set1_epi32(starts.levels[channel][r]);
            for (int i = 0; i < vectors; ++i) {
                const auto levels
                    = _mm512_add_epi32(start, _mm512_load_si512(tables[channel][r].levels + i * lanes));
                pixels[i] = _mm512_mask_shuffle_epi8(pixels[i], masks[channel], levels, thirdBytes);
                least = _mm512_min_epu16(least, levels);
            }
        }
        if (toNext) {
            const auto next = reinterpret_cast<std::uintptr_t>(target) + toNext;
            for (unsigned i = 0; i < vectors; ++i)
                __builtin_prefetch(reinterpret_cast<const void*>(next + i * sizeof(__m512i)));
        }
        for (int i = 0; i < vectors - 1; ++i)
            _mm512_storeu_si512(target + i * lanes, pixels[i]);
        _mm512_mask_storeu_epi32(target + (vectors - 1) * lanes, last, pixels[vectors - 1]);
        // Of each lane's halves only the lower one, the fraction, can be below its bound.
        if (__builtin_expect(_mm512_cmplt_epu16_mask(least, bounds) != 0, false))
            rows.doubts[doubts++] = { r, index, doubtfulPixels(rows, block, starts, r) };
    }
    return doubts;
}

template <unsigned linear>
AVX512 std::size_t paintBlock(const GradientRows& rows, std::size_t index, Range range, std::size_t doubts)
{
    switch ((rows.blocks[index].count - 1) / lanes) {
    case 0:
        return paintBlock<linear, 1>(rows, index, range, doubts);
    case 1:
        return paintBlock<linear, 2>(rows, index, range, doubts);
    case 2:
        return paintBlock<linear, 3>(rows, index, range, doubts);
    default:
        return paintBlock<linear, 4>(rows, index, range, doubts);
    }
}

AVX512 std::size_t paintRows(const GradientRows& rows)
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

GradientRowsPainter avx512GradientRowsPainter()
{
    const auto isSupported = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw")
        && __builtin_cpu_supports("avx512vl");
    return isSupported ? paintRows : nullptr;
}

}

#else

namespace platform {

GradientRowsPainter avx512GradientRowsPainter()
{
    return nullptr;
}

}

#endif
