#include "analysis/stored_counts.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "base/pages.h"

namespace pixora {
namespace {

constexpr std::size_t kTableBins = 65536;
// From table to table: a little more, so that equal values of different tables do not meet in one place of
// the processor's caches.
constexpr std::size_t kTableStride = kTableBins + 336;
constexpr std::size_t kWordBytes = 2;

bool StoresBytes(PixelLayout layout) {
    return layout == PixelLayout::mono8 || layout == PixelLayout::rgb8 || layout == PixelLayout::bgr8 ||
           layout == PixelLayout::bgrx8;
}

// How many words are a whole number of pixels; two where each has only one sample, to be counted in turn.
std::size_t PeriodOf(PixelLayout layout) {
    if (ChannelsOf(layout) == 1) return StoresBytes(layout) ? 2 : 1;
    return layout == PixelLayout::bgrx8 ? 2 : 3;
}

inline std::size_t WordAt(const std::byte* words, std::size_t index) {
    std::uint16_t word = 0;
    std::memcpy(&word, words + kWordBytes * index, kWordBytes);
    return word;
}

// To raise a counter that was raised just before takes several times as long, and in pictures neighbours are
// alike; so four places far from one another take turns.
template <std::size_t kPeriod>
void CountWords(std::span<const std::byte> bytes, std::uint32_t* tables) {
    constexpr std::size_t kPlaces = 4;
    const std::byte* const words = bytes.data();
    const std::size_t count = bytes.size() / kWordBytes, apart = count / kPlaces / kPeriod * kPeriod;
    for (std::size_t i = 0; i < apart; i += kPeriod)
        for (std::size_t k = 0; k < kPeriod; ++k)
            for (std::size_t place = 0; place < kPlaces; ++place)
                ++tables[k * kTableStride + WordAt(words, place * apart + i + k)];
    for (std::size_t i = kPlaces * apart; i < count; ++i)
        ++tables[i % kPeriod * kTableStride + WordAt(words, i)];
}

void AddToBin(std::vector<std::uint32_t>& bins, std::size_t bin, std::uint32_t count) {
    bins[std::min(bin, bins.size() - 1)] += count;
}

}  // namespace

void StoredCounts::Add(const StoredPixels& pixels) {
    if (period_ == 0) Prepare(pixels);
    if (StoresBytes(layout_) || StoresSamples(layout_)) {
        AddWords(pixels.bytes);
        return;
    }
    static_cast<void>(ForEachDecoded(pixels, decoded_, [&](std::span<const std::uint16_t> samples) {
        AddWords(std::as_bytes(samples));
        return true;
    }));
}

void StoredCounts::Prepare(const StoredPixels& pixels) {
    layout_ = pixels.layout;
    if (pixels.palette) palette_ = *pixels.palette;
    auto tables = ZeroedArray<std::uint32_t>::Make(PeriodOf(layout_) * kTableStride);
    if (!tables) throw std::bad_alloc();
    tables_ = *std::move(tables);
    PreparePages(std::as_writable_bytes(tables_.All()));
    period_ = PeriodOf(layout_);
}

void StoredCounts::AddWords(std::span<const std::byte> bytes) {
    std::uint32_t* const tables = tables_.All().data();
    if (period_ == 1)
        CountWords<1>(bytes, tables);
    else if (period_ == 2)
        CountWords<2>(bytes, tables);
    else
        CountWords<3>(bytes, tables);
    if (bytes.size() % kWordBytes != 0)
        ++odd_[(bytes.size() - 1) % UnitOf(layout_).bytes][std::to_integer<std::size_t>(bytes.back())];
}

std::uint16_t StoredCounts::DifferingBits(bool zeros_follow) const {
    std::size_t in_some = 0, in_all = zeros_follow ? 0 : kTableBins - 1;
    for (std::size_t i = 0; i < period_; ++i)
        for (std::size_t word = 0; word < kTableBins; ++word) {
            if (Table(i)[word] == 0) continue;
            in_some |= word;
            in_all &= word;
        }
    return static_cast<std::uint16_t>(in_some & ~in_all);
}

void StoredCounts::AddTo(HistogramCounts& counts) const {
    for (std::vector<std::uint32_t>& bins : counts)
        if (!bins.empty()) bins[0] += static_cast<std::uint32_t>(zeros_);
    if (period_ == 0) return;
    if (StoresBytes(layout_))
        AddBytesTo(counts);
    else
        AddWordsTo(counts);
}

std::span<const std::uint32_t> StoredCounts::Table(std::size_t index) const {
    return tables_.All().subspan(index * kTableStride, kTableBins);
}

// Decoded samples are blue, green and red.
std::size_t StoredCounts::PlaceOf(std::size_t channel) const {
    const bool red_first = IsRedFirst(layout_) && (StoresBytes(layout_) || StoresSamples(layout_));
    return red_first ? 2 - channel : channel;
}

// What the words say of the bytes of one channel: of the first ones of words, their lower halves, and of the
// second ones.
StoredCounts::ByteCounts StoredCounts::CountsOf(std::size_t channel) const {
    ByteCounts counts = odd_[channel];
    const std::size_t pixel_bytes = UnitOf(layout_).bytes;
    for (std::size_t i = 0; i < period_; ++i) {
        const bool first = kWordBytes * i % pixel_bytes == channel;
        const bool second = (kWordBytes * i + 1) % pixel_bytes == channel;
        for (std::size_t row = 0; row < counts.size() && (first || second); ++row) {
            const auto bins = Table(i).subspan(row * counts.size(), counts.size());
            std::uint32_t all = 0;
            for (const std::uint32_t bin : bins) all += bin;
            if (second) counts[row] += all;
            if (first && all != 0)
                for (std::size_t byte = 0; byte < counts.size(); ++byte) counts[byte] += bins[byte];
        }
    }
    return counts;
}

void StoredCounts::AddBytesTo(HistogramCounts& counts) const {
    for (std::size_t channel = 0; channel < (palette_ ? 1 : ChannelsOf(layout_)); ++channel) {
        const ByteCounts bytes = CountsOf(channel);
        for (std::size_t byte = 0; byte < bytes.size(); ++byte)
            for (std::size_t place = 0; place < counts.size(); ++place) {
                if (counts[place].empty() || bytes[byte] == 0) continue;
                if (palette_)
                    AddToBin(counts[place], palette_->levels[place][byte], bytes[byte]);
                else if (place == PlaceOf(channel))
                    AddToBin(counts[place], byte, bytes[byte]);
            }
    }
}

void StoredCounts::AddWordsTo(HistogramCounts& counts) const {
    for (std::size_t channel = 0; channel < period_; ++channel) {
        std::vector<std::uint32_t>& bins = counts[PlaceOf(channel)];
        if (bins.empty()) continue;
        const auto table = Table(channel);
        for (std::size_t word = 0; word < kTableBins; ++word)
            if (table[word] != 0) AddToBin(bins, word >> shift_, table[word]);
    }
}

}  // namespace pixora
