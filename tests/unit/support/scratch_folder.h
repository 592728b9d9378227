// A folder of its own for one test, removed with everything in it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace pixora::test {

/// A text as the bytes that a file takes.
[[nodiscard]] inline std::span<const std::byte> BytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    /// Writes a file into the folder. @return its path.
    std::filesystem::path Write(std::string_view name, std::string_view bytes) const;
    /// The bytes of a file in the folder; "(none)" when there is no such file.
    [[nodiscard]] std::string Read(std::string_view name) const;
    /// The names in the folder, sorted, separated by blanks.
    [[nodiscard]] std::string Names() const;

private:
    std::filesystem::path path_;
};

}  // namespace pixora::test
