#include "image/unpack_x86.h"

#include "base/cpu_x86.h"

#if PIXORA_X86

#include <immintrin.h>

#include <algorithm>
#include <array>

namespace pixora::x86 {
namespace {

constexpr std::size_t kHalf = 8;                 // samples in half a register
constexpr std::size_t kHalves = 6;               // three registers are whole pixels of every layout
constexpr std::size_t kRound = kHalves * kHalf;  // samples

// Where sample `i` of a round is stored: its low byte, and its high byte unless that is always zero.
struct Place {
    int low, high;
};
using PlaceOf = Place (*)(int i);

// The sample of a red, green and blue pixel that goes to place `i` of the same in blue, green and red.
constexpr int Turned(int i) {
    return i + 2 - 2 * (i % 3);
}
// Twelve bits begin in one byte and end in the next one; which four bits are too many is left to Unpacked().
constexpr Place Packed(int i) {
    const int first = i / 2 * 3 + i % 2;
    return {first + 1, first};
}

constexpr Place Mono12Place(int i) {
    return Packed(i);
}
constexpr Place Rgb12Place(int i) {
    return Packed(Turned(i));
}
constexpr Place Rgb8Place(int i) {
    return {Turned(i), -1};
}
constexpr Place Bgrx8Place(int i) {
    return {i / 3 * 4 + i % 3, -1};
}

constexpr int kRegisterBytes = 16;  // of a half

// The stored bytes from `from` on that go into half a register, and to where; `any` when there are some.
struct Window {
    int from = 0;
    bool any = false;
    std::array<char, 16> control{};
};

// Two windows of 16 bytes hold all that goes into one half.
struct Half {
    Window first, second;
};

// Takes those of `wanted` that lie within 16 bytes from the first one on, and erases them there.
constexpr Window TakeWindow(std::array<int, 16>& wanted, int round_bytes) {
    Window window;
    int first = round_bytes;
    for (const int byte : wanted)
        if (byte >= 0) first = std::min(first, byte);
    window.any = first < round_bytes;
    window.from = std::min(first, round_bytes - kRegisterBytes);  // stays within the round
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const int at = wanted[i] - window.from;
        const bool taken = wanted[i] >= 0 && at < kRegisterBytes;
        window.control[i] = static_cast<char>(taken ? at : -128);
        if (taken) wanted[i] = -1;
    }
    return window;
}

constexpr std::array<Half, kHalves> Plan(PlaceOf place_of, int round_bytes) {
    std::array<Half, kHalves> plan{};
    for (std::size_t half = 0; half < kHalves; ++half) {
        std::array<int, 16> wanted{};
        for (std::size_t i = 0; i < kHalf; ++i) {
            const Place place = place_of(static_cast<int>(half * kHalf + i));
            wanted[2 * i] = place.low;
            wanted[2 * i + 1] = place.high;
        }
        plan[half].first = TakeWindow(wanted, round_bytes);
        plan[half].second = TakeWindow(wanted, round_bytes);
    }
    return plan;
}

PIXORA_AVX2 inline __m256i Pair(const void* low, const void* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(static_cast<const __m128i*>(low))),
                                   _mm_loadu_si128(static_cast<const __m128i*>(high)), 1);
}

PIXORA_AVX2 inline __m256i Gather(const std::byte* round, const Window& low, const Window& high) {
    return _mm256_shuffle_epi8(Pair(round + low.from, round + high.from),
                               Pair(low.control.data(), high.control.data()));
}

// Drops the four bits that belong to the neighbour: of even samples the lower, of odd ones the upper ones.
PIXORA_AVX2 inline __m256i Unpacked(__m256i words) {
    return _mm256_blend_epi16(_mm256_srli_epi16(words, 4), _mm256_and_si256(words, _mm256_set1_epi16(0xFFF)),
                              0b10101010);
}

template <PlaceOf kPlaceOf, std::size_t kRoundBytes, bool kPacked>
PIXORA_AVX2 std::size_t UnpackRounds(const std::byte* stored, std::size_t bytes, std::uint16_t* samples) {
    static constexpr std::array<Half, kHalves> kPlan = Plan(kPlaceOf, int{kRoundBytes});
    std::size_t done = 0;
    for (; done + kRoundBytes <= bytes; done += kRoundBytes, samples += kRound) {
#pragma GCC unroll 3
        for (std::size_t half = 0; half < kHalves; half += 2) {
            const Half &low = kPlan[half], &high = kPlan[half + 1];
            __m256i words = Gather(stored + done, low.first, high.first);
            if (low.second.any || high.second.any)
                words = _mm256_or_si256(words, Gather(stored + done, low.second, high.second));
            if (kPacked) words = Unpacked(words);
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(samples + half * kHalf), words);
        }
    }
    return done;
}

PIXORA_AVX2 std::size_t Widen(const std::byte* stored, std::size_t bytes, std::uint16_t* samples) {
    std::size_t done = 0;
    for (; done + 16 <= bytes; done += 16) {
        const __m128i narrow = _mm_loadu_si128(reinterpret_cast<const __m128i*>(stored + done));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(samples + done), _mm256_cvtepu8_epi16(narrow));
    }
    return done;
}

}  // namespace

std::size_t Unpack(PixelLayout layout, std::span<const std::byte> stored, std::span<std::uint16_t> samples) {
    if (!HasAvx2()) return 0;
    switch (layout) {
        case PixelLayout::mono8:
            return Widen(stored.data(), stored.size(), samples.data());
        case PixelLayout::mono12:
            return UnpackRounds<Mono12Place, 72, true>(stored.data(), stored.size(), samples.data());
        case PixelLayout::rgb12:
            return UnpackRounds<Rgb12Place, 72, true>(stored.data(), stored.size(), samples.data());
        case PixelLayout::rgb8:
            return UnpackRounds<Rgb8Place, 48, false>(stored.data(), stored.size(), samples.data());
        case PixelLayout::bgrx8:
            return UnpackRounds<Bgrx8Place, 64, false>(stored.data(), stored.size(), samples.data());
        case PixelLayout::mono10:
        case PixelLayout::mono14:
        case PixelLayout::mono16:
        case PixelLayout::rgb16:
        case PixelLayout::bgr8:
        case PixelLayout::bgr16:
            break;
    }
    return 0;
}

}  // namespace pixora::x86

#else

namespace pixora::x86 {

std::size_t Unpack(PixelLayout, std::span<const std::byte>, std::span<std::uint16_t>) {
    return 0;
}

}  // namespace pixora::x86

#endif
