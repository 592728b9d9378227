#include "cli/paths.h"

#include <algorithm>
#include <random>
#include <system_error>
#include <utility>

#include "base/file.h"
#include "base/utf8.h"

namespace pixora::cli {
namespace {

namespace fs = std::filesystem;

wchar_t Folded(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

// The files of the folder that a pattern names, spelled as the pattern spells the folder.
std::vector<std::string> Fitting(const std::string& typed) {
    const std::size_t cut = typed.find_last_of("/\\:");
    const std::string folder = cut == std::string::npos ? std::string() : typed.substr(0, cut + 1);
    const std::wstring pattern = WideFromUtf8(typed.substr(folder.size()));
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : PathOf(folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::wstring name = WideText(entry->path().filename());
        std::error_code ignored;
        if (Matches(name, pattern) && !entry->is_directory(ignored))
            names.push_back(folder + Utf8FromWide(name));
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace

fs::path PathOf(std::string_view typed) {
#ifdef _WIN32
    return WideFromUtf8(typed);
#else
    return typed;
#endif
}

bool SameFile(std::string_view first, std::string_view second) {
    std::error_code error;
    const fs::path a = PathOf(first), b = PathOf(second);
    if (fs::equivalent(a, b, error)) return true;
    const fs::path whole_a = fs::weakly_canonical(fs::absolute(a, error), error);
    return !error && whole_a == fs::weakly_canonical(fs::absolute(b, error), error) && !error;
}

bool Matches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t n = 0, p = 0;
    std::size_t star = std::wstring_view::npos, resume = 0;  // the last `*`, and where its text ends at least
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || Folded(pattern[p]) == Folded(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

std::vector<std::string> Expanded(const std::vector<std::string>& names) {
    std::vector<std::string> all;
    for (const std::string& name : names) {
        std::vector<std::string> fitting;
        if (name.find_first_of("*?") != std::string::npos) fitting = Fitting(name);
        if (fitting.empty()) fitting.push_back(name);
        std::ranges::move(fitting, std::back_inserter(all));
    }
    return all;
}

PendingFile::PendingFile(fs::path target, fs::path name)
    : target_(std::move(target)), name_(std::move(name)) {}

PendingFile::PendingFile(PendingFile&& other) noexcept
    : target_(std::move(other.target_)), name_(std::exchange(other.name_, fs::path())) {}

PendingFile& PendingFile::operator=(PendingFile&& other) noexcept {
    std::swap(target_, other.target_);
    std::swap(name_, other.name_);
    return *this;
}

PendingFile::~PendingFile() {
    if (!name_.empty()) DeleteQuietly(name_);
}

std::optional<PendingFile> PendingFile::For(const fs::path& target) {
    // Making it shows at once whether it can be made; what stands under the target's name stays untouched.
    const std::optional<AtomicFile> trial = AtomicFile::Create(target);
    if (!trial) return std::nullopt;
    const fs::path& replaced = trial->Target();
    // A name that no other program makes, not even another run of this one at the same moment.
    std::random_device random;
    std::error_code ignored;
    while (true) {
        fs::path name = replaced.parent_path() / (".pixora-" + std::to_string(random()) + ".part");
        if (!fs::exists(name, ignored)) return PendingFile(replaced, std::move(name));
    }
}

bool PendingFile::Commit() {
    TakeOverRights(target_, name_);
    if (!RenameOver(target_, name_)) return false;
    name_.clear();
    return true;
}

}  // namespace pixora::cli
