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
// part in, lower bits first.
constexpr Permutation kPacked12 = [] {
    Permutation from{};
    for (std::size_t word = 0; word < from.size() / 2; ++word) {
        const std::size_t first = word / 2 * 3 + word % 2;
        from[2 * word] = static_cast<std::uint8_t>(first + 1);
        from[2 * word + 1] = static_cast<std::uint8_t>(first);
    }
    return from;
}();
// How many bits too many stand below the sample then. Those above it are cut off afterwards.
constexpr std::array<std::uint16_t, 2> kShifts12{4, 0};

// Every third word of a register, from the first, second or third one on.
constexpr std::array<__mmask32, 3> kThirds{0x49249249, 0x92492492, 0x24924924};

// What three quarters of a register are filled from.
constexpr std::size_t kShortBytes = kRegisterBytes / 4 * 3;

// What stands in the file, made to a register of samples; a step is how many bytes of the file that takes.
struct AsStored {
    static constexpr std::size_t kStep = kRegisterBytes;
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const { return Load(at); }
};

template <std::size_t kBytes, const Permutation& kFrom>
struct Permuted {
    static constexpr std::size_t kStep = kBytes;
    __m512i from;
    PIXORA_AVX512 inline Permuted() : from(Load(kFrom.data())) {}
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const {
        return _mm512_permutexvar_epi8(from, Load(at));
    }
};
using Triples = Permuted<kShortBytes, kTriplesByChannel>;
using Quads = Permuted<kRegisterBytes, kQuadsByChannel>;

struct Packed12 {
    static constexpr std::size_t kStep = kShortBytes;
    Permuted<kStep, kPacked12> words;
    PIXORA_AVX512 inline __m512i operator()(const std::byte* at) const {
        const __m512i shifts = _mm512_set1_epi32(kShifts12[0] | kShifts12[1] << 16);
        return _mm512_and_si512(_mm512_srlv_epi16(words(at), shifts), _mm512_set1_epi16(0xFFF));
    }
};

// Loops over rounds are functions of their own, which keep the sums in registers.
#define PIXORA_ROUNDS PIXORA_AVX512 __attribute__((noinline))

// A register for each of two sums in turn, since an addition takes longer than it keeps the processor busy.
template <typename Lanes, typename Samples>
PIXORA_ROUNDS void AddPairs(const std::byte* at, std::size_t rounds, std::array<Lanes, 2>& lanes) {
    const Samples samples;
    Lanes one = lanes[0], other = lanes[1];
    for (std::size_t i = 0; i < rounds; ++i, at += 2 * Samples::kStep) {
        one.Add(samples(at));
        other.Add(samples(at + Samples::kStep));
    }
    one.Settle();
    other.Settle();
    lanes = {one, other};
}

PIXORA_AVX512 inline __m512i Merged(__m512i a, __m512i b, __m512i c, std::size_t from_b, std::size_t from_c) {
    return _mm512_mask_mov_epi16(_mm512_mask_mov_epi16(a, kThirds[from_b], b), kThirds[from_c], c);
}

// Colour samples of words. In three registers each channel has every third sample, in each register at other
// places; so they can be laid over one another. The order of the samples does not matter.
template <typename Lanes, typename Samples>
PIXORA_ROUNDS void AddThirds(const std::byte* at, std::size_t rounds, std::array<Lanes, 3>& lanes) {
    constexpr std::size_t kStep = Samples::kStep;
    const Samples samples;
    Lanes first = lanes[0], second = lanes[1], third = lanes[2];
    for (std::size_t i = 0; i < rounds; ++i, at += 3 * kStep) {
        const __m512i a = samples(at), b = samples(at + kStep), c = samples(at + 2 * kStep);
        first.Add(Merged(a, b, c, 1, 2));
        second.Add(Merged(a, b, c, 2, 0));
        third.Add(Merged(a, b, c, 0, 1));
    }
    first.Settle();
    second.Settle();
    third.Settle();
    lanes = {first, second, third};
}

// Whole rounds of what is there, and settles the sums as often as needed. @return bytes done.
template <typename Lanes, typename Samples, std::size_t kCount>
PIXORA_AVX512 std::size_t AddRounds(std::span<const std::byte> bytes, std::array<Lanes, kCount>& lanes) {
    constexpr std::size_t kRoundBytes = kCount * Samples::kStep;
    // A register is loaded whole, also where a step is shorter.
    const std::size_t beyond = kRegisterBytes - Samples::kStep;
    const std::size_t rounds =
        bytes.size() < beyond ? 0 : std::min((bytes.size() - beyond) / kRoundBytes, kMostRounds);
    for (std::size_t done = 0; done < rounds;) {
        const std::size_t now = std::min(rounds - done, Lanes::kRoundsAtOnce);
        const std::byte* const at = bytes.data() + done * kRoundBytes;
        if constexpr (kCount == 2)
            AddPairs<Lanes, Samples>(at, now, lanes);
        else
            AddThirds<Lanes, Samples>(at, now, lanes);
        done += now;
    }
    return rounds * kRoundBytes;
}

template <typename Lanes, typename Samples>
PIXORA_AVX512 std::size_t AddAlike(std::span<const std::byte> bytes, QuarterSums& sums, WordBits& bits) {
    std::array<Lanes, 2> lanes{Lanes(bits), Lanes(bits)};
    const std::size_t done = AddRounds<Lanes, Samples>(bytes, lanes);
    const std::size_t rounds = done / (lanes.size() * Samples::kStep);
    for (const Lanes& sum : lanes)
        if (rounds > 0) sum.Take(rounds * Lanes::kQuarterSamples, sums, bits);
    return done;
}

template <typename Lanes, typename Samples>
PIXORA_AVX512 std::size_t AddColours(std::span<const std::byte> bytes, std::array<QuarterSums, 3>& sums,
                                     WordBits& bits) {
    std::array<Lanes, 3> lanes{Lanes(bits), Lanes(bits), Lanes(bits)};
    const std::size_t done = AddRounds<Lanes, Samples>(bytes, lanes);
    const std::size_t rounds = done / (lanes.size() * Samples::kStep);
    for (std::size_t i = 0; i < lanes.size() && rounds > 0; ++i)
        lanes[i].Take(rounds * Lanes::kQuarterSamples, sums[i], bits);
    return done;
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

PIXORA_ROUNDS void AddLookedUp(const std::byte* at, std::size_t rounds, const Palette& palette,
                               std::array<ByteLanes, 3>& lanes) {
    const LookUp blue(palette.levels[0]), green(palette.levels[1]), red(palette.levels[2]);
    ByteLanes first = lanes[0], second = lanes[1], third = lanes[2];
    for (std::size_t i = 0; i < rounds; ++i, at += kRegisterBytes) {
        const __m512i indices = Load(at);
        first.Add(blue(indices));
        second.Add(green(indices));
        third.Add(red(indices));
    }
    lanes = {first, second, third};
}

PIXORA_AVX512 std::size_t AddIndices(std::span<const std::byte> bytes, const Palette& palette,
                                     std::array<QuarterSums, 3>& sums) {
    const std::size_t rounds = std::min(bytes.size() / kRegisterBytes, kMostRounds);
    if (rounds == 0) return 0;
    WordBits none;
    std::array<ByteLanes, 3> lanes{ByteLanes(none), ByteLanes(none), ByteLanes(none)};
    AddLookedUp(bytes.data(), rounds, palette, lanes);
    for (std::size_t i = 0; i < lanes.size(); ++i) lanes[i].Take(rounds * kQuarterBytes, sums[i], none);
    return rounds * kRegisterBytes;
}

// Sums by channel in the order of the file.
using ChannelSums = std::array<SampleSums, 3>;

void AddAll(const QuarterSums& quarters, SampleSums& sums) {
    for (const SampleSums& quarter : quarters) sums.Add(quarter);
}

std::size_t AddGrey(const StoredPixels& pixels, SampleSums& sums, WordBits& bits) {
    QuarterSums quarters;
    std::size_t done = 0;
    if (pixels.layout == PixelLayout::mono8)
        done = AddAlike<ByteLanes, AsStored>(pixels.bytes, quarters, bits);
    if (pixels.layout == PixelLayout::mono12)
        done = AddAlike<SmallWordLanes, Packed12>(pixels.bytes, quarters, bits);
    if (pixels.layout == PixelLayout::mono16)
        done = AddAlike<WordLanes, AsStored>(pixels.bytes, quarters, bits);
    AddAll(quarters, sums);
    return done;
}

// Colour bytes, of which a register's quarters are the channels.
std::size_t AddColourBytes(const StoredPixels& pixels, ChannelSums& sums, WordBits& bits) {
    QuarterSums quarters;
    const std::size_t done = pixels.layout == PixelLayout::bgrx8
                                 ? AddAlike<ByteLanes, Quads>(pixels.bytes, quarters, bits)
                                 : AddAlike<ByteLanes, Triples>(pixels.bytes, quarters, bits);
    for (std::size_t channel = 0; channel < sums.size(); ++channel) sums[channel].Add(quarters[channel]);
    return done;
}

// Words, and bytes that are looked up: every register has one channel.
std::size_t AddColourRegisters(const StoredPixels& pixels, ChannelSums& sums, WordBits& bits) {
    std::array<QuarterSums, 3> channels;
    const std::size_t done = pixels.palette ? AddIndices(pixels.bytes, *pixels.palette, channels)
                             : pixels.layout == PixelLayout::rgb12
                                 ? AddColours<SmallWordLanes, Packed12>(pixels.bytes, channels, bits)
                                 : AddColours<WordLanes, AsStored>(pixels.bytes, channels, bits);
    for (std::size_t channel = 0; channel < sums.size(); ++channel) AddAll(channels[channel], sums[channel]);
    return done;
}

// Adds whole rounds from the front.
std::size_t AddFront(const StoredPixels& pixels, ChannelSums& sums, WordBits& bits) {
    switch (pixels.layout) {
        case PixelLayout::mono8:
        case PixelLayout::mono10:
        case PixelLayout::mono12:
        case PixelLayout::mono14:
        case PixelLayout::mono16:
            return pixels.palette ? AddColourRegisters(pixels, sums, bits) : AddGrey(pixels, sums[0], bits);
        case PixelLayout::rgb8:
        case PixelLayout::bgr8:
        case PixelLayout::bgrx8:
            return AddColourBytes(pixels, sums, bits);
        case PixelLayout::rgb12:
        case PixelLayout::rgb16:
        case PixelLayout::bgr16:
            return AddColourRegisters(pixels, sums, bits);
    }
    return 0;
}

}  // namespace

std::size_t AddStored(const StoredPixels& pixels, std::array<SampleSums, 3>& sums, WordBits& bits) {
    if (!HasAvx512()) return 0;
    StoredPixels left = pixels;
    ChannelSums channels;
    while (const std::size_t done = AddFront(left, channels, bits)) left.bytes = left.bytes.subspan(done);
    const bool red_first = IsRedFirst(pixels.layout);
    for (std::size_t i = 0; i < pixels.Channels(); ++i) sums[red_first ? 2 - i : i].Add(channels[i]);
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
