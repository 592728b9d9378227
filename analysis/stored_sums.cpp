#include "analysis/stored_sums.h"

#include "analysis/stored_sums_x86.h"

namespace pixora {
namespace {

std::uint16_t FirstWord(std::span<const std::byte> bytes) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) |
                                      std::to_integer<unsigned>(bytes[1]) << 8);
}

// The sums of (x - c) / 2^shift for samples x whose low bits are c. All divisions come out even.
SampleSums WithoutLowBits(const SampleSums& sums, int shift) {
    if (sums.count == 0) return sums;
    const std::uint64_t low = sums.min & ((1u << shift) - 1u);
    const std::uint64_t values = sums.values - low * sums.count;
    const std::uint64_t squares = sums.squares - 2 * low * values - low * low * sums.count;
    return {sums.count, values >> shift, squares >> 2 * shift, static_cast<std::uint16_t>(sums.min >> shift),
            static_cast<std::uint16_t>(sums.max >> shift)};
}

}  // namespace

void StoredSums::Add(const StoredPixels& pixels) {
    if (pixels.bytes.empty()) return;
    if (!first_ && StoresSamples(pixels.layout)) first_ = FirstWord(pixels.bytes);
    x86::WordBits bits{first_.value_or(0), differing_};
    const std::size_t done = x86::AddStored(pixels, channels_, bits);
    differing_ = bits.differing;
    AddDecoded(pixels.Part(done, pixels.bytes.size() - done));
}

void StoredSums::AddDecoded(const StoredPixels& pixels) {
    static_cast<void>(ForEachDecoded(pixels, decoded_, [&](std::span<const std::uint16_t> samples) {
        if (first_)
            for (const std::uint16_t sample : samples)
                differing_ |= static_cast<std::uint16_t>(sample ^ *first_);
        if (pixels.Channels() == 1)
            AddSamples(samples, channels_[0]);
        else
            AddTriples(samples, channels_);
        return true;
    }));
}

void StoredSums::AddZeros(std::uint64_t pixels) {
    for (SampleSums& channel : channels_) channel.Add(0, pixels);
}

std::uint16_t StoredSums::DifferingBits(bool zeros_follow) const {
    return zeros_follow ? differing_ | first_.value_or(0) : differing_;
}

void StoredSums::DropLowBits(int shift) {
    for (SampleSums& channel : channels_) channel = WithoutLowBits(channel, shift);
}

}  // namespace pixora
