#include "bench/large_images.h"

#include <unistd.h>

#include <cstdlib>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "base/file.h"
#include "image/bmp_layout.h"
#include "image/image_writer.h"

namespace pixora::bench {
namespace {

namespace fs = std::filesystem;

class Folder {
public:
    Folder() {
        const char* wanted = std::getenv("PIXORA_BENCH_DIR");
        path_ = (wanted ? fs::path(wanted) : fs::temp_directory_path()) /
                ("pixora_bench_" + std::to_string(getpid()));
        fs::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    [[nodiscard]] const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

std::vector<std::byte> Noise(std::uint64_t count) {
    std::vector<std::byte> bytes(static_cast<std::size_t>(count));
    std::minstd_rand random(1);
    for (std::byte& byte : bytes) byte = static_cast<std::byte>(random() >> 8);
    return bytes;
}

// Words of which the upper 12 bits are valid: finding that takes a look at every sample, and all have to be
// divided.
std::vector<std::byte> Upper12Words(std::uint64_t count) {
    std::vector<std::byte> words = Noise(2 * count);
    for (std::size_t i = 0; i < words.size(); i += 2) words[i] &= std::byte{0xF0};
    return words;
}

std::vector<std::byte> GreyRows(Size size) {
    std::vector<std::byte> rows = Noise(Bmp24Stride(size.width) * size.height);
    for (std::size_t i = 0; i + 3 <= rows.size(); i += 3) rows[i + 1] = rows[i + 2] = rows[i];
    return rows;
}

void Make(Format format, Size size, const fs::path& path) {
    std::optional<File> file = File::Create(path);
    if (!file) throw std::runtime_error("no place for the images of the benchmark");
    bool written = false;
    if (format == Format::bmp24) {
        written = file->Write(Bmp24Header(size.width, size.height).Bytes()) && file->Write(GreyRows(size));
    } else {
        const bool colour = format == Format::tiff16_rgb;
        written = file->Write(TiffFileHeader({size.width, size.height, colour}, 16).Bytes()) &&
                  file->Write(Upper12Words(size.Pixels() * (colour ? 3 : 1)));
    }
    if (!written || !file->Close()) throw std::runtime_error("no room for the images of the benchmark");
}

}  // namespace

const fs::path& WorkFolder() {
    static const Folder folder;
    return folder.Path();
}

const fs::path& ImageFile(Format format, Size size) {
    static std::map<std::tuple<Format, std::uint32_t>, fs::path> made;
    fs::path& path = made[{format, size.width}];
    if (path.empty()) {
        path = WorkFolder() / ("image" + std::to_string(made.size()));
        Make(format, size, path);
    }
    return path;
}

}  // namespace pixora::bench
