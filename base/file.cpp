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

std::FILE* Open(const fs::path& path, bool write) {
#ifdef _WIN32
    std::FILE* file = _wfopen(path.c_str(), write ? L"wb" : L"rb");
#else
    std::FILE* file = std::fopen(path.c_str(), write ? "wb" : "rb");
#endif
    if (file) std::setvbuf(file, nullptr, _IONBF, 0);
    return file;
}

// Nothing, with errno EEXIST, when the name is taken, by a link to nowhere too.
std::FILE* OpenNew(const fs::path& path) {
#ifdef _WIN32
    const int number = _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
    std::FILE* file = number < 0 ? nullptr : _fdopen(number, "wb");
    if (number >= 0 && !file) _close(number);
#else
    constexpr mode_t kReadAndWrite = 0666;
    const int number = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadAndWrite);
    std::FILE* file = number < 0 ? nullptr : fdopen(number, "wb");
    if (number >= 0 && !file) close(number);
#endif
    if (file) std::setvbuf(file, nullptr, _IONBF, 0);
    return file;
}

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

bool SeekTo(std::FILE* file, std::int64_t offset, int origin) {
#ifdef _WIN32
    return _fseeki64(file, offset, origin) == 0;
#else
    return fseeko(file, static_cast<off_t>(offset), origin) == 0;
#endif
}

std::int64_t Tell(std::FILE* file) {
#ifdef _WIN32
    return _ftelli64(file);
#else
    return ftello(file);
#endif
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
    std::FILE* file = Open(path, false);
    if (!file) return std::nullopt;
    return File(file);
}

std::optional<File> File::Create(const fs::path& path) {
    std::FILE* file = Open(path, true);
    if (!file) return std::nullopt;
    return File(file);
}

std::optional<File> File::CreateNew(const fs::path& path, bool& taken) {
    std::FILE* file = OpenNew(path);
    taken = !file && errno == EEXIST;
    if (!file) return std::nullopt;
    return File(file);
}

std::uint64_t File::Size() const {
    const std::int64_t position = Tell(file_.get());
    if (position < 0 || !SeekTo(file_.get(), 0, SEEK_END)) return 0;
    const std::int64_t size = Tell(file_.get());
    if (!SeekTo(file_.get(), position, SEEK_SET)) return 0;
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}

bool File::Seek(std::uint64_t offset) {
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return false;
    return SeekTo(file_.get(), static_cast<std::int64_t>(offset), SEEK_SET);
}

std::size_t File::Read(std::span<std::byte> target) {
    std::size_t done = 0;
    while (done < target.size()) {
        const std::size_t wanted = std::min(target.size() - done, kLargestCall);
        const std::size_t got = std::fread(target.data() + done, 1, wanted, file_.get());
        done += got;
        if (got < wanted) break;
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
        const std::size_t count = std::min(source.size(), kLargestCall);
        if (std::fwrite(source.data(), 1, count, file_.get()) != count) return false;
        source = source.subspan(count);
    }
    return true;
}

bool File::ExtendTo(std::uint64_t size) {
    if (Size() >= size) return true;
    const std::byte zero{};
    return Seek(size - 1) && Write(std::span(&zero, 1));
}

bool File::Close() {
    std::FILE* file = file_.release();
    return file && std::fclose(file) == 0;
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
    std::optional<AtomicFile> file = AtomicFile::Create(path);
    return file && file->Out().Write(std::as_bytes(std::span(bytes))) && file->Commit();
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
