// Reading the samples of a TIFF without making copies of it.
#include "image/bits_guess.h"
#include "image/pixel_reader.h"
#include "image/sample_feed.h"
#include "image/tiff_reader.h"
#include "image/tiff_source.h"

namespace pixora {
namespace {

// A pass over a 16-bit file that gives the scaled samples to `sink`. It ends as soon as the guess of the
// valid bits proves wrong.
class ScaledPass {
public:
    ScaledPass(BitsGuess& guess, SampleSink& sink, std::size_t channels)
        : guess_(guess), sink_(sink), channels_(channels) {}

    // @return false when the sink ended the reading.
    [[nodiscard]] bool Run(PixelReader& pixels) {
        static_cast<void>(pixels.ForEachBlock(*this));
        if (!Ended() && seen_ < pixels.Samples()) guess_.AddMissing();
        return !stopped_;
    }

    [[nodiscard]] static bool See(std::span<const std::byte>) { return true; }
    void Take(std::span<std::uint16_t> samples) {
        if (Ended()) return;
        seen_ += samples.size();
        if (!guess_.Add(samples)) return;
        static_cast<void>(ScaleToValidBits(samples, guess_.Bits()));
        stopped_ = !sink_.Take(samples, channels_);
    }
    [[nodiscard]] bool Keep(std::span<const std::uint16_t>) const { return !Ended(); }

private:
    [[nodiscard]] bool Ended() const { return stopped_ || guess_.Failed(); }

    BitsGuess& guess_;
    SampleSink& sink_;
    std::size_t channels_;
    std::uint64_t seen_ = 0;
    bool stopped_ = false;
};

// The valid bits alone; pixels are read only as far as these can still change.
int FindBits(BitsGuess& guess, PixelReader& pixels) {
    std::uint64_t seen = 0;
    const auto look = [&](std::span<const std::byte> bytes) {
        const std::span words(reinterpret_cast<const std::uint16_t*>(bytes.data()), bytes.size() / 2);
        seen += words.size();
        guess.Add(words);
        return !guess.Settled();
    };
    if (!guess.Settled()) static_cast<void>(pixels.ForEachStored(look));
    if (seen < pixels.Samples()) guess.AddMissing();
    guess.Mend();
    return guess.Bits();
}

// The valid bits come out of the words as they stand in the file.
Tiff16Reading ReadStored16(SampleSink& sink, PixelLayout layout, PixelReader& pixels) {
    std::uint64_t seen = 0;
    const bool taken = pixels.ForEachStored([&](std::span<const std::byte> bytes) {
        seen += bytes.size() / sizeof(std::uint16_t);
        return sink.TakeStored({layout, bytes});
    });
    if (!taken) return {.result = ReadResult::write_failed};
    return {.valid_bits = sink.ScaleStored(seen < pixels.Samples())};
}

}  // namespace

ReadResult ReadTiffSamples(FileType& source, SampleSink* sink) {
    const ReadResult result = CheckTiff(source);
    if (result != ReadResult::accepted || !sink) return result;
    const TiffInfo& info = source.tiff.info;
    const PixelLayout layout = *LayoutOf(info);
    if (!sink->Begin(info.width, info.height, RowOrder::top_down)) return ReadResult::write_failed;
    PixelReader pixels(*source.file, info, layout);
    SampleFeed feed(*sink);
    const bool taken = pixels.ForEachStored([&](std::span<const std::byte> bytes) {
        return feed.Give({layout, bytes});
    });
    return taken ? ReadResult::accepted : ReadResult::write_failed;
}

Tiff16Reading ReadTiff16Samples(FileType& source, int valid_bits, SampleSink* sink) {
    const ReadResult result = CheckTiff16(source);
    if (result != ReadResult::accepted) return {.result = result};
    const TiffInfo& info = source.tiff.info;
    const PixelLayout layout = Layout16(info);
    PixelReader pixels(*source.file, info, layout);
    BitsGuess guess(valid_bits);
    if (!sink) return {.valid_bits = FindBits(guess, pixels)};
    do {
        guess.Mend();
        if (!sink->Begin(info.width, info.height, RowOrder::top_down))
            return {.result = ReadResult::write_failed};
        if (guess.Automatic() && sink->TakesStored()) return ReadStored16(*sink, layout, pixels);
        if (!ScaledPass(guess, *sink, ChannelsOf(layout)).Run(pixels))
            return {.result = ReadResult::write_failed};
    } while (guess.Failed());
    return {.valid_bits = guess.Bits()};
}

}  // namespace pixora
