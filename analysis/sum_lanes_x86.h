// Sums of registers of samples, for processors with wide ones (AVX-512).
#pragma once

#include "base/cpu_x86.h"

#if PIXORA_X86

// This compiler takes the values that its own header leaves open on purpose for mistakes.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>
#pragma GCC diagnostic pop
#else
#include <immintrin.h>
#endif

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "analysis/sample_sums.h"
#include "analysis/stored_sums_x86.h"

namespace pixora::x86 {

inline constexpr std::size_t kRegisterBytes = 64;
// A register is four quarters. Where the channels of pixels are put apart, each holds one of them, and the
// last one what does not count.
inline constexpr std::size_t kQuarters = 4;
inline constexpr std::size_t kQuarterBytes = kRegisterBytes / kQuarters;
// After so many registers a sum of 32 bits could overflow soon.
inline constexpr std::size_t kMostRounds = 8192;

PIXORA_AVX512 inline __m512i Load(const void* from) {
    return _mm512_loadu_si512(from);
}

template <typename T>
using Spread = std::array<T, kRegisterBytes / sizeof(T)>;

template <typename T>
PIXORA_AVX512 inline Spread<T> Values(__m512i lanes) {
    Spread<T> values;
    _mm512_storeu_si512(values.data(), lanes);
    return values;
}

template <typename T>
[[nodiscard]] std::span<const T> Quarter(const Spread<T>& values, std::size_t quarter) {
    constexpr std::size_t kCount = kQuarterBytes / sizeof(T);
    return std::span(values).subspan(quarter * kCount, kCount);
}

// Modulo 2^64, as all that is added up of numbers with a sign.
template <typename T>
std::uint64_t Total(const Spread<T>& values, std::size_t quarter) {
    std::uint64_t total = 0;
    for (const T value : Quarter(values, quarter)) total += static_cast<std::uint64_t>(value);
    return total;
}

template <typename T>
T Least(const Spread<T>& values, std::size_t quarter) {
    return std::ranges::min(Quarter(values, quarter));
}
template <typename T>
T Most(const Spread<T>& values, std::size_t quarter) {
    return std::ranges::max(Quarter(values, quarter));
}

using QuarterSums = std::array<SampleSums, kQuarters>;

// The sums of registers of samples. Each kind: Add() takes a register; Settle() is called after every
// kRoundsAtOnce of them, before a sum can overflow; Take() tells the sums for each quarter.

// Bytes. The second factor of the processor's products has a sign, so that squares are x (x - 128).
struct ByteLanes {
    static constexpr std::size_t kQuarterSamples = kQuarterBytes;
    static constexpr std::size_t kRoundsAtOnce = kMostRounds;
    __m512i min, max, values, products;

    PIXORA_AVX512 inline explicit ByteLanes(const WordBits&)
        : min(_mm512_set1_epi8(-1)), max(_mm512_setzero_si512()), values(max), products(max) {}
    PIXORA_AVX512 inline void Add(__m512i bytes) {
        min = _mm512_min_epu8(min, bytes);
        max = _mm512_max_epu8(max, bytes);
        values = _mm512_dpbusd_epi32(values, bytes, _mm512_set1_epi8(1));
        products = _mm512_dpbusd_epi32(products, bytes, _mm512_xor_si512(bytes, _mm512_set1_epi8(-128)));
    }
    PIXORA_AVX512 inline void Settle() {}
    PIXORA_AVX512 void Take(std::uint64_t count, QuarterSums& sums, WordBits&) const {
        const auto least = Values<std::uint8_t>(min), most = Values<std::uint8_t>(max);
        const auto totals = Values<std::int32_t>(values), squares = Values<std::int32_t>(products);
        for (std::size_t i = 0; i < kQuarters; ++i) {
            const std::uint64_t total = Total(totals, i);
            sums[i].Add({count, total, Total(squares, i) + 128 * total, Least(least, i), Most(most, i)});
        }
    }
};

// Words less 32768, which is what fits the processor's signed products.
struct WordLanes {
    static constexpr std::size_t kQuarterSamples = kQuarterBytes / 2;
    static constexpr std::size_t kRoundsAtOnce = 256;
    __m512i min, max, values;
    __m512i squares, top;     // modulo 2^32; and of their upper eight bits alone
    __m512i tops, even, odd;  // what came of the upper bits, and of the 24 lower ones, in 64 bits
    __m512i first, differing;

    PIXORA_AVX512 inline explicit WordLanes(const WordBits& bits)
        : min(_mm512_set1_epi16(32767)),
          max(_mm512_set1_epi16(-32768)),
          values(_mm512_setzero_si512()),
          squares(values),
          top(values),
          tops(values),
          even(values),
          odd(values),
          first(_mm512_set1_epi16(static_cast<short>(bits.first))),
          differing(values) {}
    PIXORA_AVX512 inline void Add(__m512i words) {
        constexpr int kOrDifference = 0xF6;  // a | (b ^ c)
        const __m512i centred = _mm512_xor_si512(words, _mm512_set1_epi16(-32768));
        min = _mm512_min_epi16(min, centred);
        max = _mm512_max_epi16(max, centred);
        values = _mm512_dpwssd_epi32(values, centred, _mm512_set1_epi16(1));
        const __m512i pairs = _mm512_madd_epi16(centred, centred);  // up to 2^31: no sign
        squares = _mm512_add_epi32(squares, pairs);
        top = _mm512_dpbusd_epi32(top, pairs, _mm512_set1_epi32(1 << 24));
        differing = _mm512_ternarylogic_epi32(differing, words, first, kOrDifference);
    }
    // The 24 lower bits of so many pairs add up to less than 2^32.
    PIXORA_AVX512 inline void Settle() {
        const __m512i lower = _mm512_sub_epi32(squares, _mm512_slli_epi32(top, 24));
        even = _mm512_add_epi64(even, _mm512_and_si512(lower, _mm512_set1_epi64(0xFFFFFFFF)));
        odd = _mm512_add_epi64(odd, _mm512_srli_epi64(lower, 32));
        tops = _mm512_add_epi32(tops, top);
        squares = top = _mm512_setzero_si512();
    }
    PIXORA_AVX512 void Take(std::uint64_t count, QuarterSums& sums, WordBits& bits) const {
        constexpr std::uint64_t kMiddle = 32768;
        const auto back = [](std::int16_t value) { return static_cast<std::uint16_t>(value + 32768); };
        const auto least = Values<std::int16_t>(min), most = Values<std::int16_t>(max);
        const auto totals = Values<std::int32_t>(values);
        const auto upper = Values<std::uint32_t>(tops);
        const auto lower = Values<std::uint64_t>(_mm512_add_epi64(even, odd));
        for (std::size_t i = 0; i < kQuarters; ++i) {
            const std::uint64_t total = Total(totals, i), square = (Total(upper, i) << 24) + Total(lower, i);
            sums[i].Add({count, total + kMiddle * count,
                         square + 2 * kMiddle * total + kMiddle * kMiddle * count, back(Least(least, i)),
                         back(Most(most, i))});
        }
        for (const std::uint16_t word : Values<std::uint16_t>(differing)) bits.differing |= word;
    }
};

// Words below 4096.
struct SmallWordLanes {
    static constexpr std::size_t kQuarterSamples = kQuarterBytes / 2;
    static constexpr std::size_t kRoundsAtOnce = 64;
    __m512i min, max, values;
    __m512i squares, even, odd;  // of 32 bits; and what they came to, of 64 bits

    PIXORA_AVX512 inline explicit SmallWordLanes(const WordBits&)
        : min(_mm512_set1_epi16(32767)),
          max(_mm512_setzero_si512()),
          values(max),
          squares(max),
          even(max),
          odd(max) {}
    PIXORA_AVX512 inline void Add(__m512i words) {
        min = _mm512_min_epi16(min, words);
        max = _mm512_max_epi16(max, words);
        values = _mm512_dpwssd_epi32(values, words, _mm512_set1_epi16(1));
        squares = _mm512_dpwssd_epi32(squares, words, words);
    }
    PIXORA_AVX512 inline void Settle() {
        even = _mm512_add_epi64(even, _mm512_and_si512(squares, _mm512_set1_epi64(0xFFFFFFFF)));
        odd = _mm512_add_epi64(odd, _mm512_srli_epi64(squares, 32));
        squares = _mm512_setzero_si512();
    }
    PIXORA_AVX512 void Take(std::uint64_t count, QuarterSums& sums, WordBits&) const {
        const auto least = Values<std::uint16_t>(min), most = Values<std::uint16_t>(max);
        const auto totals = Values<std::uint32_t>(values);
        const auto products = Values<std::uint64_t>(_mm512_add_epi64(even, odd));
        for (std::size_t i = 0; i < kQuarters; ++i)
            sums[i].Add({count, Total(totals, i), Total(products, i), Least(least, i), Most(most, i)});
    }
};

}  // namespace pixora::x86

#endif
