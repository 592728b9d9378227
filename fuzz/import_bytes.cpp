#include "fuzz/import_bytes.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

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

void CheckAccepted(const ImageBuffer& image) {
    Require(fs::is_regular_file(image.display_copy), "an accepted image has its display copy");
    Require(image.width > 0 && image.height > 0, "an accepted image has a size");
    const auto buffer = ReadSampleBuffer(image);
    Require(buffer.has_value(), "the samples of an accepted image can be read");
    const std::uint16_t largest = MaxSampleValue(EffectiveBits(image));
    for (const std::uint16_t sample : buffer->samples.All())
        Require(sample <= largest, "no sample passes its depth");
    fs::remove(image.display_copy);
    if (!image.data_copy.empty()) fs::remove(image.data_copy);
}

}  // namespace

void ImportBytes(std::span<const std::uint8_t> bytes) {
    static const WorkFolder folder;
    std::ofstream(folder.Source(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    const ImportResult result = ImportImage(RequestFor(bytes, folder));
    if (result.image)
        CheckAccepted(*result.image);
    else
        Require(!result.message.line2.empty(), "a refusal says why");
    Require(fs::is_empty(folder.Data()), "nothing is left of an import");
}

}  // namespace pixora::fuzz
