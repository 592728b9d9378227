#include "image/pixels_x86.h"

#include "base/cpu_x86.h"

#if PIXORA_X86

#include <immintrin.h>

#include <algorithm>
#include <array>

namespace pixora::x86 {
namespace {

__m128i Load(const std::uint16_t* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

void Store(void* to, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(to), value);
}

// Shuffle control that moves 16-bit words: word i of the result is word `w_i` of the source, or 0 for a
// negative one.
PIXORA_SSSE3 __m128i Words(int w0, int w1, int w2, int w3, int w4, int w5, int w6, int w7) {
    const auto pair = [](int w) { return static_cast<short>(w < 0 ? 0x8080 : (2 * w) | (2 * w + 1) << 8); };
    return _mm_setr_epi16(pair(w0), pair(w1), pair(w2), pair(w3), pair(w4), pair(w5), pair(w6), pair(w7));
}

// Eight pixels are 24 words in three registers; a word goes at most two places, so into a neighbouring
// register.
PIXORA_SSSE3 std::size_t Swap(std::uint16_t* samples, std::size_t count) {
    const __m128i a_a = Words(2, 1, 0, 5, 4, 3, -1, 7), a_b = Words(-1, -1, -1, -1, -1, -1, 0, -1);
    const __m128i b_a = Words(6, -1, -1, -1, -1, -1, -1, -1), b_b = Words(-1, 3, 2, 1, 6, 5, 4, -1),
                  b_c = Words(-1, -1, -1, -1, -1, -1, -1, 1);
    const __m128i c_b = Words(-1, 7, -1, -1, -1, -1, -1, -1), c_c = Words(0, -1, 4, 3, 2, 7, 6, 5);
    std::size_t done = 0;
    for (; done + 24 <= count; done += 24) {
        const __m128i a = Load(samples + done), b = Load(samples + done + 8), c = Load(samples + done + 16);
        Store(samples + done, _mm_or_si128(_mm_shuffle_epi8(a, a_a), _mm_shuffle_epi8(b, a_b)));
        Store(samples + done + 8,
              _mm_or_si128(_mm_or_si128(_mm_shuffle_epi8(a, b_a), _mm_shuffle_epi8(b, b_b)),
                           _mm_shuffle_epi8(c, b_c)));
        Store(samples + done + 16, _mm_or_si128(_mm_shuffle_epi8(b, c_b), _mm_shuffle_epi8(c, c_c)));
    }
    return done;
}

// Eight bits of each of sixteen samples.
__m128i Narrow16(const std::uint16_t* samples, __m128i shift) {
    const __m128i low_byte = _mm_set1_epi16(0xFF);
    const __m128i low = _mm_and_si128(_mm_srl_epi16(Load(samples), shift), low_byte);
    const __m128i high = _mm_and_si128(_mm_srl_epi16(Load(samples + 8), shift), low_byte);
    return _mm_packus_epi16(low, high);
}

std::size_t Narrow(const std::uint16_t* samples, std::size_t count, int shift, std::byte* bytes) {
    const __m128i bits = _mm_cvtsi32_si128(shift);
    std::size_t done = 0;
    for (; done + 16 <= count; done += 16) Store(bytes + done, Narrow16(samples + done, bits));
    return done;
}

PIXORA_SSSE3 std::size_t NarrowThrice(const std::uint16_t* grey, std::size_t count, int shift,
                                      std::byte* triples) {
    const __m128i bits = _mm_cvtsi32_si128(shift);
    const __m128i first = _mm_setr_epi8(0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5),
                  second = _mm_setr_epi8(5, 5, 6, 6, 6, 7, 7, 7, 8, 8, 8, 9, 9, 9, 10, 10),
                  third = _mm_setr_epi8(10, 11, 11, 11, 12, 12, 12, 13, 13, 13, 14, 14, 14, 15, 15, 15);
    std::size_t done = 0;
    for (; done + 16 <= count; done += 16) {
        const __m128i bytes = Narrow16(grey + done, bits);
        std::byte* out = triples + 3 * done;
        Store(out, _mm_shuffle_epi8(bytes, first));
        Store(out + 16, _mm_shuffle_epi8(bytes, second));
        Store(out + 32, _mm_shuffle_epi8(bytes, third));
    }
    return done;
}

PIXORA_SSSE3 std::size_t Repeat(const std::uint16_t* grey, std::size_t count, std::uint16_t* triples) {
    const __m128i first = Words(0, 0, 0, 1, 1, 1, 2, 2), second = Words(2, 3, 3, 3, 4, 4, 4, 5),
                  third = Words(5, 5, 6, 6, 6, 7, 7, 7);
    std::size_t done = 0;
    for (; done + 8 <= count; done += 8) {
        const __m128i words = Load(grey + done);
        std::uint16_t* out = triples + 3 * done;
        Store(out, _mm_shuffle_epi8(words, first));
        Store(out + 8, _mm_shuffle_epi8(words, second));
        Store(out + 16, _mm_shuffle_epi8(words, third));
    }
    return done;
}

PIXORA_AVX2 __m256i LoadBytes(const std::byte* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

// Bytes that have their successor in their own pixel, when byte `first` is the last one of a pixel.
PIXORA_AVX2 __m256i WithSuccessor(int first) {
    alignas(32) std::array<std::int8_t, 32> mask{};
    for (int i = 0; i < 32; ++i) mask[static_cast<std::size_t>(i)] = i % 3 == first ? 0 : -1;
    return _mm256_load_si256(reinterpret_cast<const __m256i*>(mask.data()));
}

// In grey pixels each byte is equal to the next one, except from one pixel to another. A piece is looked at
// whole, so that the loop over it has no way out.
PIXORA_AVX2 std::size_t Find(const std::byte* triples, std::size_t count, bool& colour) {
    constexpr std::size_t kBytes = 32, kRound = 3 * kBytes, kPieceRounds = 16;
    const __m256i masks[] = {WithSuccessor(2), WithSuccessor(0), WithSuccessor(1)};
    std::size_t done = 0;
    while (!colour && done + kRound < count) {
        const std::size_t rounds = std::min((count - 1 - done) / kRound, kPieceRounds);
        __m256i differing = _mm256_setzero_si256();
        for (const std::size_t end = done + rounds * kRound; done < end; done += kRound)
            for (std::size_t part = 0; part < 3; ++part) {
                const std::byte* at = triples + done + kBytes * part;
                const __m256i changes = _mm256_xor_si256(LoadBytes(at), LoadBytes(at + 1));
                differing = _mm256_or_si256(differing, _mm256_and_si256(changes, masks[part]));
            }
        colour = _mm256_testz_si256(differing, differing) == 0;
    }
    return done;
}

}  // namespace

std::size_t FindColour(std::span<const std::byte> triples, bool& colour) {
    return HasAvx2() ? Find(triples.data(), triples.size(), colour) : 0;
}

std::size_t SwapRedAndBlue(std::span<std::uint16_t> samples) {
    return HasSsse3() ? Swap(samples.data(), samples.size()) : 0;
}

std::size_t NarrowSamples(std::span<const std::uint16_t> samples, int shift, std::span<std::byte> bytes) {
    return Narrow(samples.data(), samples.size(), shift, bytes.data());
}

std::size_t NarrowGrey(std::span<const std::uint16_t> grey, int shift, std::span<std::byte> triples) {
    return HasSsse3() ? NarrowThrice(grey.data(), grey.size(), shift, triples.data()) : 0;
}

std::size_t RepeatGrey(std::span<const std::uint16_t> grey, std::span<std::uint16_t> triples) {
    return HasSsse3() ? Repeat(grey.data(), grey.size(), triples.data()) : 0;
}

}  // namespace pixora::x86

#else

namespace pixora::x86 {

std::size_t SwapRedAndBlue(std::span<std::uint16_t>) {
    return 0;
}
std::size_t NarrowSamples(std::span<const std::uint16_t>, int, std::span<std::byte>) {
    return 0;
}
std::size_t NarrowGrey(std::span<const std::uint16_t>, int, std::span<std::byte>) {
    return 0;
}
std::size_t RepeatGrey(std::span<const std::uint16_t>, std::span<std::uint16_t>) {
    return 0;
}

std::size_t FindColour(std::span<const std::byte>, bool&) {
    return 0;
}

}  // namespace pixora::x86

#endif
