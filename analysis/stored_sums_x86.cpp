#include "analysis/stored_sums_x86.h"

#include "analysis/sum_lanes_x86.h"

#if PIXORA_X86

#include <algorithm>
#include <span>

namespace pixora::x86 {
namespace {

// From which byte of what is loaded each byte of a register comes.
using Permutation = std::array<std::uint8_t, kRegisterBytes>;

// Sixteen pixels of one byte a channel.
constexpr Permutation BytesByChannel(std::size_t pixel_bytes) {
    Permutation from{};
    for (std::size_t i = 0; i < from.size(); ++i)
        from[i] =
            static_cast<std::uint8_t>(i % kQuarterBytes * pixel_bytes + i / kQuarterBytes % pixel_bytes);
    return from;
}
constexpr Permutation kTriplesByChannel = BytesByChannel(3), kQuadsByChannel = BytesByChannel(4);

// Two samples of twelve bits in three bytes: for each word of a register the two bytes that its sample has a
// part in, lower bits first; and how many bits too many stand below it then. Those above it are cut off
// afterwards.
struct Packing {
    Permutation from{};
    std::array<std::uint16_t, kRegisterBytes / 2> shifts{};
};
constexpr Packing kPacked12 = [] {
    Packing packing;
    for (std::size_t word = 0; word < packing.shifts.size(); ++word) {
        const std::size_t first = word / 2 * 3 + word % 2;
        packing.from[2 * word] = static_cast<std::uint8_t>(first + 1);
        packing.from[2 * word + 1] = static_cast<std::uint8_t>(first);
        packing.shifts[word] = word % 2 == 0 ? 4 : 0;
    }
    return packing;
}();

// Every third word of a register, from the first, second or third one on.
constexpr std::array<__mmask32, 3> kThirds{0x49249249, 0x92492492, 0x24924924};

// Three quarters of a register.
constexpr std::size_t kShortBytes = kRegisterBytes / 4 * 3;
PIXORA_AVX512 inline __m512i LoadShort(const std::byte* from) {
    return _mm512_maskz_loadu_epi8((__mmask64{1} << kShortBytes) - 1, from);
}

// What stands in the file, made to a register of samples; a step is how many bytes of the file that takes.
struct AsStored {
    static constexpr std::size_t kStep = kRegisterBytes;
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const { return Load(at); }
};

struct Quads {
    static constexpr std::size_t kStep = kRegisterBytes;
    __m512i from;
    PIXORA_AVX512 inline Quads() : from(Load(kQuadsByChannel.data())) {}
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const {
        return _mm512_permutexvar_epi8(from, Load(at));
    }
};

struct Triples {
    static constexpr std::size_t kStep = kShortBytes;
    __m512i from;
    PIXORA_AVX512 inline Triples() : from(Load(kTriplesByChannel.data())) {}
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const {
        return _mm512_permutexvar_epi8(from, LoadShort(at));
    }
};

struct Packed12 {
    static constexpr std::size_t kStep = kShortBytes;
    __m512i from, shifts;
    PIXORA_AVX512 inline Packed12()
        : from(Load(kPacked12.from.data())), shifts(Load(kPacked12.shifts.data())) {}
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const {
        const __m512i words = _mm512_permutexvar_epi8(from, LoadShort(at));
        return _mm512_and_si512(_mm512_srlv_epi16(words, shifts), _mm512_set1_epi16(0xFFF));
    }
};

// Registers of bytes or of grey words; two sums in turn, since an addition takes longer than it keeps the
// processor busy.
template <typename Lanes, typename Samples>
PIXORA_AVX512 std::size_t AddAlike(std::span<const std::byte> bytes, QuarterSums& sums, WordBits& bits) {
    constexpr std::size_t kStep = Samples::kStep;
    const Samples samples;
    const std::byte* at = bytes.data();
    const std::size_t rounds = std::min(bytes.size() / (2 * kStep), kMostRounds);
    if (rounds == 0) return 0;
    Lanes one(bits), other(bits);
    for (std::size_t left = rounds; left > 0;) {
        const std::size_t now = std::min(left, Lanes::kRoundsAtOnce);
        for (std::size_t i = 0; i < now; ++i, at += 2 * kStep) {
            one.Add(samples(at));
            other.Add(samples(at + kStep));
        }
        one.Settle();
        other.Settle();
        left -= now;
    }
    one.Take(rounds * Lanes::kQuarterSamples, sums, bits);
    other.Take(rounds * Lanes::kQuarterSamples, sums, bits);
    return 2 * kStep * rounds;
}

PIXORA_AVX512 inline __m512i Merged(__m512i a, __m512i b, __m512i c, std::size_t from_b, std::size_t from_c) {
    return _mm512_mask_mov_epi16(_mm512_mask_mov_epi16(a, kThirds[from_b], b), kThirds[from_c], c);
}

// Colour samples of words. In three registers each channel has every third sample, in each register at other
// places; so they can be laid over one another. The order of the samples does not matter.
template <typename Lanes, typename Samples>
PIXORA_AVX512 std::size_t AddThirds(std::span<const std::byte> bytes, std::array<QuarterSums, 3>& sums,
                                    WordBits& bits) {
    constexpr std::size_t kStep = Samples::kStep;
    const Samples samples;
    const std::byte* at = bytes.data();
    const std::size_t rounds = std::min(bytes.size() / (3 * kStep), kMostRounds);
    if (rounds == 0) return 0;
    Lanes first(bits), second(bits), third(bits);
    for (std::size_t left = rounds; left > 0;) {
        const std::size_t now = std::min(left, Lanes::kRoundsAtOnce);
        for (std::size_t i = 0; i < now; ++i, at += 3 * kStep) {
            const __m512i a = samples(at), b = samples(at + kStep), c = samples(at + 2 * kStep);
            first.Add(Merged(a, b, c, 1, 2));
            second.Add(Merged(a, b, c, 2, 0));
            third.Add(Merged(a, b, c, 0, 1));
        }
        first.Settle();
        second.Settle();
        third.Settle();
        left -= now;
    }
    first.Take(rounds * Lanes::kQuarterSamples, sums[0], bits);
    second.Take(rounds * Lanes::kQuarterSamples, sums[1], bits);
    third.Take(rounds * Lanes::kQuarterSamples, sums[2], bits);
    return 3 * rounds * kStep;
}

// Bytes that stand for colours. A table of 256 bytes is four registers, of which the processor looks up two
// at a time.
struct LookUp {
    __m512i table[4];
    PIXORA_AVX512 inline explicit LookUp(const std::array<std::uint8_t, 256>& levels) {
        for (std::size_t i = 0; i < 4; ++i) table[i] = Load(levels.data() + i * kRegisterBytes);
    }
    PIXORA_AVX512 inline __m512i operator()(__m512i indices) const {
        const __m512i low = _mm512_permutex2var_epi8(table[0], indices, table[1]),
                      high = _mm512_permutex2var_epi8(table[2], indices, table[3]);
        return _mm512_mask_mov_epi8(low, _mm512_movepi8_mask(indices), high);
    }
};

PIXORA_AVX512 std::size_t AddIndices(std::span<const std::byte> bytes, const Palette& palette,
                                     std::array<QuarterSums, 3>& sums) {
    const std::size_t rounds = std::min(bytes.size() / kRegisterBytes, kMostRounds);
    if (rounds == 0) return 0;
    const LookUp blue(palette.levels[0]), green(palette.levels[1]), red(palette.levels[2]);
    WordBits none;
    ByteLanes first(none), second(none), third(none);
    for (std::size_t i = 0; i < rounds; ++i) {
        const __m512i indices = Load(bytes.data() + i * kRegisterBytes);
        first.Add(blue(indices));
        second.Add(green(indices));
        third.Add(red(indices));
    }
    first.Take(rounds * kQuarterBytes, sums[0], none);
    second.Take(rounds * kQuarterBytes, sums[1], none);
    third.Take(rounds * kQuarterBytes, sums[2], none);
    return rounds * kRegisterBytes;
}

// Sums by channel in the order of the file.
using ChannelSums = std::array<SampleSums, 3>;

void AddAll(const QuarterSums& quarters, SampleSums& sums) {
    for (const SampleSums& quarter : quarters) sums.Add(quarter);
}

// Adds what fits in whole rounds.
std::size_t AddRounds(const StoredPixels& pixels, ChannelSums& sums, WordBits& bits) {
    QuarterSums quarters;
    std::array<QuarterSums, 3> thirds;
    std::size_t done = 0;
    switch (pixels.layout) {
        case PixelLayout::mono8:
            if (pixels.palette) {
                done = AddIndices(pixels.bytes, *pixels.palette, thirds);
                break;
            }
            done = AddAlike<ByteLanes, AsStored>(pixels.bytes, thirds[0], bits);
            break;
        case PixelLayout::mono16:
            done = AddAlike<WordLanes, AsStored>(pixels.bytes, thirds[0], bits);
            break;
        case PixelLayout::mono12:
            done = AddAlike<SmallWordLanes, Packed12>(pixels.bytes, thirds[0], bits);
            break;
        case PixelLayout::rgb12:
            done = AddThirds<SmallWordLanes, Packed12>(pixels.bytes, thirds, bits);
            break;
        case PixelLayout::rgb16:
        case PixelLayout::bgr16:
            done = AddThirds<WordLanes, AsStored>(pixels.bytes, thirds, bits);
            break;
        case PixelLayout::rgb8:
        case PixelLayout::bgr8:
            done = AddAlike<ByteLanes, Triples>(pixels.bytes, quarters, bits);
            break;
        case PixelLayout::bgrx8:
            done = AddAlike<ByteLanes, Quads>(pixels.bytes, quarters, bits);
            break;
        case PixelLayout::mono10:
        case PixelLayout::mono14:
            break;
    }
    for (std::size_t channel = 0; channel < pixels.Channels(); ++channel) {
        sums[channel].Add(quarters[channel]);
        AddAll(thirds[channel], sums[channel]);
    }
    return done;
}

}  // namespace

std::size_t AddStored(const StoredPixels& pixels, std::array<SampleSums, 3>& sums, WordBits& bits) {
    if (!HasAvx512()) return 0;
    StoredPixels left = pixels;
    ChannelSums channels;
    while (const std::size_t done = AddRounds(left, channels, bits)) left.bytes = left.bytes.subspan(done);
    const bool red_first = IsRedFirst(pixels.layout);
    for (std::size_t i = 0; i < channels.size(); ++i) sums[red_first ? 2 - i : i].Add(channels[i]);
    return pixels.bytes.size() - left.bytes.size();
}

}  // namespace pixora::x86

#else

namespace pixora::x86 {

std::size_t AddStored(const StoredPixels&, std::array<SampleSums, 3>&, WordBits&) {
    return 0;
}

}  // namespace pixora::x86

#endif
