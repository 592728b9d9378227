// The least that a call of pixora-cli can cost, as a program of its own: nothing at all, reading files once,
// or reading one and writing as many bytes as its copies have.
//
//     pixora_plain_io                                nothing
//     pixora_plain_io FILE...                        reads each file once
//     pixora_plain_io -copy FILE [OUT BYTES]...      reads it once and writes so many bytes to each OUT
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace {

// The size of the product's own blocks.
alignas(4096) std::array<char, std::size_t{63} * 4096> block;

bool Read(const char* name) {
    const int file = open(name, O_RDONLY);
    if (file < 0) return false;
    while (read(file, block.data(), block.size()) > 0) {
    }
    return close(file) == 0;
}

bool Write(const char* name, std::string_view size) {
    std::size_t bytes = 0;
    std::from_chars(size.data(), size.data() + size.size(), bytes);
    const int file = open(name, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0) return false;
    while (bytes > 0) {
        const ssize_t written = write(file, block.data(), std::min(bytes, block.size()));
        if (written <= 0) return false;
        bytes -= static_cast<std::size_t>(written);
    }
    return close(file) == 0;
}

}  // namespace

int main(int count, char** arguments) {
    bool good = true;
    if (count > 2 && std::string_view(arguments[1]) == "-copy") {
        good = Read(arguments[2]);
        for (int i = 3; i + 1 < count; i += 2) good = Write(arguments[i], arguments[i + 1]) && good;
    } else {
        for (int i = 1; i < count; ++i) good = Read(arguments[i]) && good;
    }
    return good ? 0 : 1;
}
