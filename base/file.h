// Files as byte streams, read and written in large blocks.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/block_memory.h"
#include "base/stop.h"

namespace pixora {

/// An open binary file; closed with its owner. Not buffered: callers pass whole blocks.
class File {
public:
    /// @return nothing when the file cannot be opened, or names a folder, a pipe or a device.
    [[nodiscard]] static std::optional<File> OpenForReading(const std::filesystem::path& path);
    /// Creates or empties the file. @return nothing when that fails.
    [[nodiscard]] static std::optional<File> Create(const std::filesystem::path& path);
    /// Creates the file under a name that nothing has, not even another program at the same moment.
    /// @return nothing when that fails; `taken` tells whether the name was the reason.
    [[nodiscard]] static std::optional<File> CreateNew(const std::filesystem::path& path, bool& taken);

    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    ~File();

    /// Length in bytes, 0 when it cannot be told.
    [[nodiscard]] std::uint64_t Size() const;
    /// Moves to `offset` bytes from the start; beyond the end is allowed. @return false when no file is so
    /// long.
    [[nodiscard]] bool Seek(std::uint64_t offset);
    /// Reads from the current position. @return the bytes read, fewer than asked only at the end or on error.
    [[nodiscard]] std::size_t Read(std::span<std::byte> target);
    /// Reads exactly `target.size()` bytes from `offset`. @return false when the file does not hold them.
    [[nodiscard]] bool ReadExactly(std::uint64_t offset, std::span<std::byte> target);
    struct Units {
        std::size_t bytes;  ///< that the file held
        std::size_t whole;  ///< the same, rounded up to whole units
    };
    /// Reads from the current position, `target.size()` being a whole number of units of `unit` bytes. What
    /// the file lacks of the last unit that it holds a part of is zero in `target`.
    [[nodiscard]] Units ReadUnits(std::span<std::byte> target, std::size_t unit);
    /// Writes all of `source`. @return false when any of it could not be written.
    [[nodiscard]] bool Write(std::span<const std::byte> source);
    /// Makes the file at least `size` bytes long; what is added reads as zero and need not take space on the
    /// disk.
    [[nodiscard]] bool ExtendTo(std::uint64_t size);
    /// Closes; the file must not be used afterwards. @return false when data was lost.
    [[nodiscard]] bool Close();

private:
    explicit File(int number) : number_(number) {}
    int number_;  // the system's, or kClosed
    std::uint64_t position_ = 0;
};

/// Reads up to `total` bytes, a whole number of units of `unit` bytes, from where the file stands, block by
/// block. Calls `consume(got, whole)` for each: the bytes that the file held, and the same with what is
/// missing of a last unit as zeros. It says whether to go on; a file that ends early just ends the reading.
/// @return false when `consume` did, or a stop was requested.
template <typename Consume>
[[nodiscard]] bool ForEachBlock(File& file, std::uint64_t total, std::size_t unit, Consume consume) {
    const std::uint64_t largest = std::max<std::size_t>(1, kBlockBytes / unit) * unit;
    const auto size = static_cast<std::size_t>(std::min(largest, total));
    BlockMemory memory(size);
    const std::span block = memory.All();
    for (std::uint64_t done = 0; done < total;) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(size, total - done));
        if (StopRequested()) return false;
        const auto [got, whole] = file.ReadUnits(block.first(wanted), unit);
        if (got == 0) break;
        if (!consume(std::span<const std::byte>(block.first(got)),
                     std::span<const std::byte>(block.first(whole))))
            return false;
        done += got;
        if (got < wanted) break;
    }
    return true;
}

/// A file that appears under its name only when it is complete: written to a temporary name in the same
/// folder and renamed over the target by Commit(); removed again by the destructor otherwise. The file behind
/// a link is replaced, and the link stays; who may read and write a file stays too.
class AtomicFile {
public:
    /// @return nothing when the target is write-protected, a folder or anything else that is no file, or the
    /// temporary file cannot be made.
    [[nodiscard]] static std::optional<AtomicFile> Create(const std::filesystem::path& target);
    AtomicFile(AtomicFile&& other) noexcept;
    AtomicFile& operator=(AtomicFile&& other) noexcept;
    ~AtomicFile();

    /// The file under its temporary name, to write to.
    [[nodiscard]] File& Out() { return file_; }
    /// The file that is replaced: the one behind the link when a link was named.
    [[nodiscard]] const std::filesystem::path& Target() const { return target_; }
    /// Closes and puts the file under its name, as RenameOver() does. @return false when that failed; the
    /// target is then unchanged.
    [[nodiscard]] bool Commit();

private:
    AtomicFile(std::filesystem::path target, std::filesystem::path temporary, File file);
    std::filesystem::path target_, temporary_;
    File file_;
};

/// Puts `replacement`, a file of the same folder, under the name `target`. Where another program holds the
/// target open it is tried for a moment. @return false, with both as they were, when that failed.
[[nodiscard]] bool RenameOver(const std::filesystem::path& target, const std::filesystem::path& replacement);

/// Gives the file `to` the owner and the rights of `from`, as far as the user may do that. Without effect on
/// Windows, where the folder decides, and when there is no `from`.
void TakeOverRights(const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes what replacements of `target` left beside it because the program or the machine stopped in the
/// middle of them. Only for folders that hold no files of the user's.
void DeleteInterruptedReplacements(const std::filesystem::path& target);

/// Replaces the file by `bytes`, whole or not at all.
[[nodiscard]] bool WriteWholeFile(const std::filesystem::path& path, std::string_view bytes);
/// The same with what `fill` writes, which says whether it could.
[[nodiscard]] bool WriteWholeFile(const std::filesystem::path& path, const std::function<bool(File&)>& fill);
/// Deletes the file if it exists, write-protected or not; never fails loudly.
void DeleteQuietly(const std::filesystem::path& path);

/// The text of `path` as a user reads it.
[[nodiscard]] std::wstring WideText(const std::filesystem::path& path);

}  // namespace pixora
