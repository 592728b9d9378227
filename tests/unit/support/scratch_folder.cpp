#include "tests/unit/support/scratch_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>

namespace pixora::test {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    static int count = 0;
    static const auto run = std::random_device{}();
    path_ = fs::temp_directory_path() / ("pixora_" + std::to_string(run) + "_" + std::to_string(++count));
    if (!fs::create_directories(path_)) throw std::runtime_error("no scratch folder");
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path_, ignored))
        fs::permissions(entry.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(path_, ignored);
}

fs::path ScratchFolder::Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path_ / name;
}

std::string ScratchFolder::Read(std::string_view name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    if (!file) return "(none)";
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string ScratchFolder::Names() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path_))
        names.insert(entry.path().filename().string());
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
    return all;
}

}  // namespace pixora::test
