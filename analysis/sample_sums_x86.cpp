#include "analysis/sample_sums_x86.h"

#include "base/cpu_x86.h"

#if PIXORA_X86

#include <immintrin.h>

#include <algorithm>

namespace pixora::x86 {
namespace {

constexpr std::size_t kWords = 16;  // samples in a register
// After so many registers of samples the 32-bit sums could overflow.
constexpr std::size_t kRegistersAtOnce = 16384;
constexpr std::uint64_t kMiddle = 32768;

PIXORA_AVX2 inline __m256i Load(const std::uint16_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

// Sums of samples less 32768, which is what fits the processor's signed products.
struct Lanes {
    __m256i min, max;
    __m256i values;     // eight of 32 bits
    __m256i even, odd;  // squares, four of 64 bits each
};

PIXORA_AVX2 inline Lanes NewLanes() {
    const __m256i zero = _mm256_setzero_si256();
    return {_mm256_set1_epi16(32767), _mm256_set1_epi16(-32768), zero, zero, zero};
}

PIXORA_AVX2 inline void AddRegister(Lanes& lanes, __m256i samples) {
    const __m256i centred = _mm256_xor_si256(samples, _mm256_set1_epi16(-32768));
    lanes.min = _mm256_min_epi16(lanes.min, centred);
    lanes.max = _mm256_max_epi16(lanes.max, centred);
    lanes.values = _mm256_add_epi32(lanes.values, _mm256_madd_epi16(centred, _mm256_set1_epi16(1)));
    const __m256i squares = _mm256_madd_epi16(centred, centred);  // two at a time, up to 2^31: no sign
    const __m256i low_half = _mm256_set1_epi64x(0xFFFFFFFF);
    lanes.even = _mm256_add_epi64(lanes.even, _mm256_and_si256(squares, low_half));
    lanes.odd = _mm256_add_epi64(lanes.odd, _mm256_srli_epi64(squares, 32));
}

template <typename T>
PIXORA_AVX2 inline std::array<T, 32 / sizeof(T)> Spread(__m256i lanes) {
    std::array<T, 32 / sizeof(T)> values;
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(values.data()), lanes);
    return values;
}

PIXORA_AVX2 void Take(const Lanes& lanes, std::uint64_t count, SampleSums& sums) {
    std::int64_t values = 0;
    for (const std::int32_t value : Spread<std::int32_t>(lanes.values)) values += value;
    std::uint64_t squares = 0;
    for (const std::uint64_t value : Spread<std::uint64_t>(lanes.even)) squares += value;
    for (const std::uint64_t value : Spread<std::uint64_t>(lanes.odd)) squares += value;
    const auto centred = static_cast<std::uint64_t>(values);  // modulo 2^64, as all that follows
    const auto back = [](std::int16_t value) { return static_cast<std::uint16_t>(value + 32768); };
    sums.count += count;
    sums.values += centred + kMiddle * count;
    sums.squares += squares + 2 * kMiddle * centred + kMiddle * kMiddle * count;
    sums.min = std::min(sums.min, back(std::ranges::min(Spread<std::int16_t>(lanes.min))));
    sums.max = std::max(sums.max, back(std::ranges::max(Spread<std::int16_t>(lanes.max))));
}

PIXORA_AVX2 std::size_t Add(const std::uint16_t* samples, std::size_t count, SampleSums& sums) {
    const std::size_t registers = std::min(count / kWords, kRegistersAtOnce);
    if (registers == 0) return 0;
    Lanes lanes = NewLanes();
    for (std::size_t i = 0; i < registers; ++i) AddRegister(lanes, Load(samples + kWords * i));
    Take(lanes, kWords * registers, sums);
    return kWords * registers;
}

// Eight samples from each of two places.
PIXORA_AVX2 inline __m256i LoadTwice(const std::uint16_t* from, const std::uint16_t* other) {
    return _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(other)), 1);
}

// Sixteen pixels at a time. Of eight of them, in three groups of eight samples a, b and c, a channel has
// every third sample, and each at another place of its group; so the groups can be laid over one another. The
// order of the samples does not matter.
PIXORA_AVX2 std::size_t Add3(const std::uint16_t* triples, std::size_t count,
                             std::array<SampleSums, 3>& sums) {
    constexpr int kFirst = 0b01001001, kSecond = 0b10010010, kThird = 0b00100100;  // every third place
    constexpr std::size_t kTriples = 3 * kWords;
    const std::size_t rounds = std::min(count / kTriples, kRegistersAtOnce);
    if (rounds == 0) return 0;
    Lanes first = NewLanes(), second = NewLanes(), third = NewLanes();
    for (std::size_t i = 0; i < rounds; ++i) {
        const std::uint16_t* at = triples + kTriples * i;
        const __m256i a = LoadTwice(at, at + 24), b = LoadTwice(at + 8, at + 32),
                      c = LoadTwice(at + 16, at + 40);
        AddRegister(first, _mm256_blend_epi16(_mm256_blend_epi16(a, b, kSecond), c, kThird));
        AddRegister(second, _mm256_blend_epi16(_mm256_blend_epi16(a, b, kThird), c, kFirst));
        AddRegister(third, _mm256_blend_epi16(_mm256_blend_epi16(a, b, kFirst), c, kSecond));
    }
    Take(first, kWords * rounds, sums[0]);
    Take(second, kWords * rounds, sums[1]);
    Take(third, kWords * rounds, sums[2]);
    return kTriples * rounds;
}

}  // namespace

std::size_t AddSamples(std::span<const std::uint16_t> samples, SampleSums& sums) {
    std::size_t done = 0;
    while (HasAvx2() && samples.size() - done >= kWords)
        done += Add(samples.data() + done, samples.size() - done, sums);
    return done;
}

std::size_t AddTriples(std::span<const std::uint16_t> triples, std::array<SampleSums, 3>& sums) {
    std::size_t done = 0;
    while (HasAvx2() && triples.size() - done >= 3 * kWords)
        done += Add3(triples.data() + done, triples.size() - done, sums);
    return done;
}

}  // namespace pixora::x86

#else

namespace pixora::x86 {

std::size_t AddSamples(std::span<const std::uint16_t>, SampleSums&) {
    return 0;
}
std::size_t AddTriples(std::span<const std::uint16_t>, std::array<SampleSums, 3>&) {
    return 0;
}

}  // namespace pixora::x86

#endif
