// Names of files as they are typed, and the files behind them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixora::cli {

/// The file that a typed name means. Names are UTF-8 on Windows, and plain bytes elsewhere.
[[nodiscard]] std::filesystem::path PathOf(std::string_view typed);

/// True when both names mean one file: the same existing file, or the same place in a folder.
[[nodiscard]] bool SameFile(std::string_view first, std::string_view second);

/// Whether `name` fits a pattern in which `*` stands for any characters and `?` for any single one. Letters
/// of ASCII are equal in both cases.
[[nodiscard]] bool Matches(std::wstring_view name, std::wstring_view pattern);

/// The names with `*` and `?` in their last part replaced by the files that fit, sorted, which shells of
/// Windows leave to the programs. A name that fits nothing stays.
[[nodiscard]] std::vector<std::string> Expanded(const std::vector<std::string>& names);

/// A file that is made under another name in the same folder and gets its own when it is complete. What is
/// left of it goes with this object otherwise. Links and rights of the old file stay, as with AtomicFile.
class PendingFile {
public:
    /// @return nothing when `target` is write-protected, a folder or anything else that is no file, or its
    /// folder does not exist.
    [[nodiscard]] static std::optional<PendingFile> For(const std::filesystem::path& target);
    PendingFile(PendingFile&& other) noexcept;
    PendingFile& operator=(PendingFile&& other) noexcept;
    ~PendingFile();

    /// Where to write.
    [[nodiscard]] const std::filesystem::path& Name() const { return name_; }
    /// @return false, with the target as it was, when that failed.
    [[nodiscard]] bool Commit();

private:
    PendingFile(std::filesystem::path target, std::filesystem::path name);
    std::filesystem::path target_, name_;
};

}  // namespace pixora::cli
