#include "image/byte_set.h"

#include <algorithm>

#include "base/cpu_x86.h"

#if PIXORA_X86
#include <immintrin.h>
#endif

namespace pixora {
namespace {

#if PIXORA_X86

PIXORA_AVX2 __m256i LoadTwice(const std::uint8_t* sixteen) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(sixteen)));
}

// A byte shuffle looks up the lower four bits of a byte, and gives zero when its highest bit is set; so each
// half of the rows answers for its own values. A piece is looked at whole, so that the loop over it has no
// way out.
PIXORA_AVX2 std::size_t LookAtPieces(std::span<const std::byte> bytes, const std::uint8_t* rows,
                                     bool& found) {
    constexpr std::size_t kPiece = 4096;
    const __m256i low = LoadTwice(rows), high = LoadTwice(rows + 16);
    const __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    const __m256i half = _mm256_set1_epi8(-128), four_bits = _mm256_set1_epi8(15);
    std::size_t done = 0;
    while (!found && bytes.size() - done >= kPiece) {
        __m256i members = _mm256_setzero_si256();
        for (const std::size_t end = done + kPiece; done < end; done += sizeof members) {
            const __m256i values = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes.data() + done));
            const __m256i row = _mm256_or_si256(_mm256_shuffle_epi8(low, values),
                                                _mm256_shuffle_epi8(high, _mm256_xor_si256(values, half)));
            const __m256i upper = _mm256_and_si256(_mm256_srli_epi16(values, 4), four_bits);
            members = _mm256_or_si256(members, _mm256_and_si256(row, _mm256_shuffle_epi8(bits, upper)));
        }
        found = _mm256_testz_si256(members, members) == 0;
    }
    return done;
}

#endif

}  // namespace

std::size_t ByteSet::LookAtFront([[maybe_unused]] std::span<const std::byte> bytes,
                                 [[maybe_unused]] bool& found) const {
#if PIXORA_X86
    if (HasAvx2()) return LookAtPieces(bytes, rows_.data(), found);
#endif
    return 0;
}

bool ByteSet::HasAnyOf(std::span<const std::byte> bytes) const {
    if (IsEmpty()) return false;
    bool found = false;
    const std::size_t done = LookAtFront(bytes, found);
    return found || std::ranges::any_of(bytes.subspan(done), [&](std::byte byte) {
               return Has(std::to_integer<std::uint8_t>(byte));
           });
}

}  // namespace pixora
