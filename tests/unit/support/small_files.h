// Small image files of every kind, and importing them.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "app/import.h"
#include "tests/unit/support/image_bytes.h"
#include "tests/unit/support/scratch_folder.h"

namespace pixora::test {

inline std::string Noise(std::size_t bytes, unsigned seed) {
    std::mt19937 random(seed);
    std::string noise(bytes, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    return noise;
}

/// Files of every kind: whole, cut short, and with valid bits that only late samples show.
inline std::vector<std::string> SmallFiles() {
    std::vector<std::string> files;
    for (const int height : {5, -5}) {
        const std::uint16_t depths[] = {8, 24, 32};
        for (const std::uint16_t bits : depths)
            files.push_back(BmpFile{.width = 7,
                                    .height = height,
                                    .bits = bits,
                                    .data_offset = 54 + 1024,
                                    .before_data = Noise(1024, 1),
                                    .pixels = Noise(7 * 5 * 4 + 20, 2)}
                                .Make());
        files.push_back(BmpFile{
            .width = 3, .height = height, .pixels = std::string(static_cast<std::size_t>(12 * 5), '\7')}
                            .Make());
    }
    for (const int photometric : {1, 2})
        for (const int bits : {8, 12, 16})
            files.push_back(TiffFile{.width = 9,
                                     .height = 7,
                                     .photometric = photometric,
                                     .bits = bits,
                                     .pixels = Noise(9 * 7 * 6, 3)}
                                .Make());
    std::string late(std::size_t{2} * 300 * 300, '\0');
    late[2 * 150 * 300] = 64;  // 10 valid bits: the sixth bit differs
    files.push_back(TiffFile{.width = 300, .height = 300, .bits = 16, .pixels = late}.Make());
    late[late.size() - 2] = 1;  // 16 of them
    files.push_back(TiffFile{.width = 300, .height = 300, .bits = 16, .pixels = late}.Make());
    files.push_back(TiffFile{.width = 3, .bits = 16, .pixels = Words({0x1234, 0x1234})}.Make());
    const std::size_t whole = files.size();
    for (std::size_t i = 0; i < whole; ++i) files.push_back(files[i].substr(0, files[i].size() - 17));
    return files;
}

/// Imports a file, its copies into the folder; 12 valid bits unless they are to be found.
inline ImportResult ImportInto(const ScratchFolder& folder, const std::filesystem::path& path,
                               const wchar_t* auto_bit) {
    return ImportImage({.source = path,
                        .data_folder = folder.Path(),
                        .display_size = L"1.00",
                        .valid_bits = L"12",
                        .auto_bit = auto_bit,
                        .before_long_import = {}});
}

}  // namespace pixora::test
