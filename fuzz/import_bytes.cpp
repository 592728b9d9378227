#include "fuzz/import_bytes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "analysis/measurement.h"
#include "analysis/stored_counts.h"
#include "analysis/stored_sums.h"
#include "app/import.h"
#include "image/valid_bits.h"
#include "viewer/sample_buffer.h"

namespace pixora::fuzz {
namespace {

namespace fs = std::filesystem;

// Sample buffers up to this size; larger images are refused, so that a run stays short.
constexpr std::uint64_t kMemoryLimit = std::uint64_t{1} << 19;

// A folder for the whole process, in memory where the system has such a place.
class WorkFolder {
public:
    WorkFolder() {
        const fs::path shared = "/dev/shm";
        std::string name =
            (fs::is_directory(shared) ? shared : fs::temp_directory_path()) / "pixora_fuzz_XXXXXX";
        if (!mkdtemp(name.data())) std::abort();
        path_ = name;
        fs::create_directory(path_ / "data");
    }
    ~WorkFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    [[nodiscard]] fs::path Source() const { return path_ / "source"; }
    [[nodiscard]] fs::path Data() const { return path_ / "data"; }

private:
    fs::path path_;
};

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

// The settings vary with the input, so that every kind of scaling is met.
ImportRequest RequestFor(std::span<const std::uint8_t> bytes, const WorkFolder& folder) {
    constexpr std::wstring_view kValidBits[] = {L"8", L"10", L"12", L"14", L"16", L"nonsense"};
    const std::size_t pick = bytes.empty() ? 0 : bytes[bytes.size() / 2];
    return {.source = folder.Source(),
            .data_folder = folder.Data(),
            .display_size = L"0.500",
            .valid_bits = std::wstring(kValidBits[pick % std::size(kValidBits)]),
            .auto_bit = pick % 2 ? L"ON" : L"OFF",
            .before_long_import = {},
            .memory_limit = kMemoryLimit};
}

// Measures the whole image while it is read.
class MeasuringSink final : public SampleSink {
public:
    bool Begin(std::uint32_t width, std::uint32_t height, RowOrder) override {
        sums_ = {};
        counts_ = {};
        missing_ = std::uint64_t{width} * height;
        return true;
    }
    bool Take(std::span<const std::uint16_t> samples, std::size_t channels) override {
        return TakeStored(
            SamplesAsStored(samples.first(std::min(samples.size(), missing_ * channels)), channels));
    }
    [[nodiscard]] bool TakesStored() const override { return true; }
    bool TakeStored(const StoredPixels& pixels) override {
        Require(pixels.Pixels() <= missing_, "no pixel comes that the image does not have");
        missing_ -= pixels.Pixels();
        sums_.Add(pixels);
        counts_.Add(pixels);
        return true;
    }
    [[nodiscard]] int ScaleStored(bool zeros_follow) override {
        const std::uint16_t differing = sums_.DifferingBits(zeros_follow);
        Require(counts_.DifferingBits(zeros_follow) == differing, "counts and sums see the same bits");
        sums_.DropLowBits(16 - ValidBitsOf(differing));
        counts_.DropLowBits(16 - ValidBitsOf(differing));
        return ValidBitsOf(differing);
    }
    void Check(const Measurement& expected) {
        sums_.AddZeros(missing_);
        counts_.AddZeros(missing_);
        HistogramCounts counts;
        for (std::size_t place = 0; place < (expected.colour ? 3 : 1); ++place) {
            counts[place].assign(expected.counts[place].size(), 0);
            Require(StatisticsOf(sums_.Channels()[place]) == expected.statistics[place],
                    "statistics are those of the samples");
        }
        counts_.AddTo(counts);
        Require(counts == expected.counts, "histograms are those of the samples");
    }

private:
    StoredSums sums_;
    StoredCounts counts_;
    std::uint64_t missing_ = 0;
};

void CheckMeasured(const SourceRequest& source, const ImageBuffer& image, const SampleBuffer& buffer) {
    Measurement expected;
    Measure({buffer.width, buffer.height, image.colour != 0, EffectiveBits(image), buffer.samples.All()},
            WholeImage(buffer.width, buffer.height), expected);
    MeasuringSink sink;
    const ImportResult read = ReadImage(source, &sink);
    Require(read.image.has_value(), "what an import accepts can be read");
    Require(read.image->valid_bits == image.valid_bits, "both find the same valid bits");
    sink.Check(expected);
}

void CheckAccepted(const SourceRequest& source, const ImageBuffer& image) {
    Require(fs::is_regular_file(image.display_copy), "an accepted image has its display copy");
    Require(image.width > 0 && image.height > 0, "an accepted image has a size");
    const auto buffer = ReadSampleBuffer(image);
    Require(buffer.has_value(), "the samples of an accepted image can be read");
    const std::uint16_t largest = MaxSampleValue(EffectiveBits(image));
    for (const std::uint16_t sample : buffer->samples.All())
        Require(sample <= largest, "no sample passes its depth");
    // Histograms have so many bins that looking at all of them for every input would leave time for few
    // inputs.
    constexpr std::size_t kMeasuredOf = 4;
    if (fs::file_size(source.source) % kMeasuredOf == 0) CheckMeasured(source, image, *buffer);
    fs::remove(image.display_copy);
    if (!image.data_copy.empty()) fs::remove(image.data_copy);
}

}  // namespace

void ImportBytes(std::span<const std::uint8_t> bytes) {
    static const WorkFolder folder;
    std::ofstream(folder.Source(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    const ImportRequest request = RequestFor(bytes, folder);
    const ImportResult result = ImportImage(request);
    if (result.image)
        CheckAccepted({request.source, request.valid_bits, request.auto_bit}, *result.image);
    else
        Require(!result.message.line2.empty(), "a refusal says why");
    Require(fs::is_empty(folder.Data()), "nothing is left of an import");
}

}  // namespace pixora::fuzz
