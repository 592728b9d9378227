#include "base/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>

#include "base/utf8.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

// The C runtime of Windows counts the bytes of one call in 32 bits.
constexpr std::size_t kLargestCall = std::size_t{1} << 26;

constexpr int kClosed = -1;

#ifdef _WIN32
// Positions are the caller's, so that reading or writing on is one call and going to another place none.
int Open(const fs::path& path, int flags) {
    return _wopen(path.c_str(), flags | _O_BINARY, _S_IREAD | _S_IWRITE);
}
int CloseNumber(int number) {
    return _close(number);
}
std::int64_t LengthOf(int number) {
    return _filelengthi64(number);
}
std::int64_t ReadAt(int number, std::int64_t position, std::span<std::byte> target) {
    if (_lseeki64(number, position, SEEK_SET) < 0) return -1;
    return _read(number, target.data(), static_cast<unsigned>(target.size()));
}
std::int64_t WriteAt(int number, std::int64_t position, std::span<const std::byte> source) {
    if (_lseeki64(number, position, SEEK_SET) < 0) return -1;
    return _write(number, source.data(), static_cast<unsigned>(source.size()));
}
#else
int Open(const fs::path& path, int flags) {
    constexpr mode_t kReadAndWrite = 0666;
    return open(path.c_str(), flags | O_CLOEXEC, kReadAndWrite);
}
int CloseNumber(int number) {
    return close(number);
}
std::int64_t LengthOf(int number) {
    struct stat facts {};
    return fstat(number, &facts) == 0 ? facts.st_size : 0;
}
std::int64_t ReadAt(int number, std::int64_t position, std::span<std::byte> target) {
    return pread(number, target.data(), target.size(), position);
}
std::int64_t WriteAt(int number, std::int64_t position, std::span<const std::byte> source) {
    return pwrite(number, source.data(), source.size(), position);
}
#endif

bool IsFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

// A pipe would keep whoever opens it waiting, and a device may do anything.
bool IsNoFile(const fs::path& path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    return fs::exists(status) && !fs::is_regular_file(status);
}

// An existing file without write permission must stay as it is, although renaming over it would often work.
bool IsWriteProtected(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (error || !fs::exists(status)) return false;
    return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

// As many as systems follow in one name.
constexpr int kMostLinks = 40;

// The file that a replacement of `path` has to replace: behind links, which stay. Nothing where something
// else than a file stands, a device or a pipe, which is not the program's to take away.
std::optional<fs::path> ReplacedFile(fs::path path) {
    if (IsNoFile(path)) return std::nullopt;
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        const fs::path next = fs::read_symlink(path, error);
        if (error || links == kMostLinks) return std::nullopt;
        path = path.parent_path() / next;
    }
    return path;
}

// Where the ending of a temporary name goes.
enum class Ending { after_name, in_place_of_end };
constexpr Ending kEndings[] = {Ending::after_name, Ending::in_place_of_end};

fs::path TemporaryName(const fs::path& target, Ending place, int number) {
    const fs::path ending(".tmp" + std::to_string(number));
    fs::path::string_type name = target.filename().native();
    if (place == Ending::in_place_of_end)
        name.resize(name.size() - std::min(name.size(), ending.native().size()));
    return target.parent_path() / (name + ending.native());
}

// On Windows a file that is open elsewhere cannot be replaced, and virus scanners and indexers open every new
// file for a moment.
#ifdef _WIN32
constexpr std::chrono::milliseconds kLongestPause{32};
#else
constexpr std::chrono::milliseconds kLongestPause{0};
#endif

}  // namespace

std::optional<File> File::OpenForReading(const fs::path& path) {
    if (IsNoFile(path)) return std::nullopt;
    const int number = Open(path, O_RDONLY);
    if (number < 0) return std::nullopt;
    return File(number);
}

std::optional<File> File::Create(const fs::path& path) {
    const int number = Open(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (number < 0) return std::nullopt;
    return File(number);
}

std::optional<File> File::CreateNew(const fs::path& path, bool& taken) {
    // Taken is a name also by a link to nowhere.
    const int number = Open(path, O_WRONLY | O_CREAT | O_EXCL);
    taken = number < 0 && errno == EEXIST;
    if (number < 0) return std::nullopt;
    return File(number);
}

File::File(File&& other) noexcept
    : number_(std::exchange(other.number_, kClosed)), position_(other.position_) {}

File& File::operator=(File&& other) noexcept {
    std::swap(number_, other.number_);
    std::swap(position_, other.position_);
    return *this;
}

File::~File() {
    if (number_ != kClosed) CloseNumber(number_);
}

std::uint64_t File::Size() const {
    const std::int64_t size = LengthOf(number_);
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}

bool File::Seek(std::uint64_t offset) {
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return false;
    position_ = offset;
    return true;
}

std::size_t File::Read(std::span<std::byte> target) {
    std::size_t done = 0;
    while (done < target.size()) {
        const auto wanted = target.subspan(done, std::min(target.size() - done, kLargestCall));
        const std::int64_t got = ReadAt(number_, static_cast<std::int64_t>(position_), wanted);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
        position_ += static_cast<std::uint64_t>(got);
    }
    return done;
}

bool File::ReadExactly(std::uint64_t offset, std::span<std::byte> target) {
    return Seek(offset) && Read(target) == target.size();
}

File::Units File::ReadUnits(std::span<std::byte> target, std::size_t unit) {
    const std::size_t bytes = Read(target);
    const std::size_t whole = std::min((bytes + unit - 1) / unit * unit, target.size());
    for (std::size_t i = bytes; i < whole; ++i) target[i] = std::byte{};
    return {bytes, whole};
}

bool File::Write(std::span<const std::byte> source) {
    while (!source.empty()) {
        const auto next = source.first(std::min(source.size(), kLargestCall));
        const std::int64_t written = WriteAt(number_, static_cast<std::int64_t>(position_), next);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        source = source.subspan(static_cast<std::size_t>(written));
        position_ += static_cast<std::uint64_t>(written);
    }
    return true;
}

bool File::ExtendTo(std::uint64_t size) {
    if (Size() >= size) return true;
    const std::byte zero{};
    return Seek(size - 1) && Write(std::span(&zero, 1));
}

bool File::Close() {
    const int number = std::exchange(number_, kClosed);
    return number != kClosed && CloseNumber(number) == 0;
}

AtomicFile::AtomicFile(fs::path target, fs::path temporary, File file)
    : target_(std::move(target)), temporary_(std::move(temporary)), file_(std::move(file)) {}

AtomicFile::AtomicFile(AtomicFile&& other) noexcept
    : target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, fs::path())),
      file_(std::move(other.file_)) {}

AtomicFile& AtomicFile::operator=(AtomicFile&& other) noexcept {
    std::swap(target_, other.target_);
    std::swap(temporary_, other.temporary_);
    std::swap(file_, other.file_);
    return *this;
}

AtomicFile::~AtomicFile() {
    if (temporary_.empty()) return;
    static_cast<void>(file_.Close());
    DeleteQuietly(temporary_);
}

std::optional<AtomicFile> AtomicFile::Create(const fs::path& target) {
    std::optional<fs::path> replaced = ReplacedFile(target);
    if (!replaced || IsWriteProtected(*replaced)) return std::nullopt;
    // A name as long as names can be leaves no room for an ending after it.
    for (const Ending place : kEndings) {
        bool taken = true;
        for (int number = 0; taken; ++number) {
            fs::path temporary = TemporaryName(*replaced, place, number);
            if (std::optional<File> file = File::CreateNew(temporary, taken)) {
                TakeOverRights(*replaced, temporary);
                return AtomicFile(*std::move(replaced), std::move(temporary), *std::move(file));
            }
        }
    }
    return std::nullopt;
}

bool AtomicFile::Commit() {
    if (!file_.Close() || !RenameOver(target_, temporary_)) return false;
    temporary_.clear();
    return true;
}

void TakeOverRights([[maybe_unused]] const fs::path& from, [[maybe_unused]] const fs::path& to) {
#ifndef _WIN32
    struct stat old {};
    if (stat(from.c_str(), &old) != 0) return;
    // Only some users may give a file away; it stays their own otherwise.
    [[maybe_unused]] const int given = chown(to.c_str(), old.st_uid, old.st_gid);
    std::error_code ignored;
    fs::permissions(to, static_cast<fs::perms>(old.st_mode) & fs::perms::all, ignored);
#endif
}

void DeleteInterruptedReplacements(const fs::path& target) {
    std::error_code ignored;
    for (const Ending place : kEndings)
        for (int number = 0;; ++number) {
            const fs::path name = TemporaryName(target, place, number);
            if (!fs::exists(name, ignored)) break;
            DeleteQuietly(name);
        }
}

bool RenameOver(const fs::path& target, const fs::path& replacement) {
    for (std::chrono::milliseconds pause{1};; pause *= 2) {
        std::error_code error;
        fs::rename(replacement, target, error);
        if (!error || pause > kLongestPause) return !error;
        std::this_thread::sleep_for(pause);
    }
}

bool WriteWholeFile(const fs::path& path, std::string_view bytes) {
    return WriteWholeFile(path, [&](File& file) { return file.Write(std::as_bytes(std::span(bytes))); });
}

bool WriteWholeFile(const fs::path& path, const std::function<bool(File&)>& fill) {
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    return file && fill(file->Out()) && file->Commit();
}

void DeleteQuietly(const fs::path& path) {
    std::error_code ignored;
    if (IsFolder(path)) return;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::remove(path, ignored);
}

std::wstring WideText(const fs::path& path) {
#ifdef _WIN32
    return path.native();
#else
    return WideFromUtf8(path.native());
#endif
}

}  // namespace pixora
