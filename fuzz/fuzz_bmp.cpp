// BMP files through the whole import. The signature is put in place, so that no run is spent on looking for
// it.
#include <vector>

#include "fuzz/import_bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> bytes(data, data + size);
    if (size >= 2) {
        bytes[0] = 'B';
        bytes[1] = 'M';
    }
    pixora::fuzz::ImportBytes(bytes);
    return 0;
}
