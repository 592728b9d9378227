// TIFF files of either byte order through the whole import. The signature is put in place by the first byte,
// so that no run is spent on looking for it.
#include <algorithm>
#include <array>
#include <vector>

#include "fuzz/import_bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::array<std::uint8_t, 4> kLittle{'I', 'I', 42, 0}, kBig{'M', 'M', 0, 42};
    std::vector<std::uint8_t> bytes(data, data + size);
    if (size >= kLittle.size()) {
        const auto& signature = data[0] == 'M' ? kBig : kLittle;
        std::copy(signature.begin(), signature.end(), bytes.begin());
    }
    pixora::fuzz::ImportBytes(bytes);
    return 0;
}
