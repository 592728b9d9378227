#include "tests/unit/support/image_bytes.h"

#include <initializer_list>

namespace pixora::test {
namespace {

class Writer {
public:
    explicit Writer(bool big_endian) : big_(big_endian) {}
    void U8(std::uint32_t value) { bytes.push_back(static_cast<char>(value & 0xFF)); }
    void U16(std::uint32_t value) {
        U8(big_ ? value >> 8 : value);
        U8(big_ ? value : value >> 8);
    }
    void U32(std::uint32_t value) {
        U16(big_ ? value >> 16 : value);
        U16(big_ ? value : value >> 16);
    }
    std::string bytes;

private:
    bool big_;
};

}  // namespace

std::string Bytes(const std::vector<int>& values) {
    std::string bytes;
    for (const int value : values) bytes.push_back(static_cast<char>(value));
    return bytes;
}

std::string Words(const std::vector<int>& values) {
    Writer writer(false);
    for (const int value : values) writer.U16(static_cast<std::uint32_t>(value));
    return writer.bytes;
}

std::string BmpFile::Make() const {
    Writer w(false);
    w.bytes = "BM";
    w.U32(0);
    w.U32(0);
    w.U32(data_offset);
    w.U32(40);
    w.U32(static_cast<std::uint32_t>(width));
    w.U32(static_cast<std::uint32_t>(height));
    w.U16(1);
    w.U16(bits);
    w.U32(compression);
    for (int field = 0; field < 5; ++field) w.U32(0);
    w.bytes += before_data;
    return w.bytes + pixels;
}

std::uint32_t TiffFile::DataOffset() const {
    const auto entries = static_cast<std::uint32_t>(5 + (with_bits ? 1 : 0) + more.size());
    return 8 + 2 + 12 * entries + 4 + 8;  // the last 8 bytes: the bits of three or four channels
}

std::string TiffFile::Make() const {
    Writer w(big_endian);
    w.bytes = big_endian ? "MM" : "II";
    w.U16(42);
    w.U32(8);
    const auto entry = [&](const TiffEntry& e) {
        w.U16(static_cast<std::uint32_t>(e.tag));
        w.U16(static_cast<std::uint32_t>(e.type));
        w.U32(e.count);
        // A short value stands in the first two of its four bytes.
        if (e.type == 3 && e.count == 1 && big_endian)
            w.U32(e.value << 16);
        else
            w.U32(e.value);
    };
    const std::uint32_t bits_offset = DataOffset() - 8;
    w.U16(static_cast<std::uint32_t>(5 + (with_bits ? 1 : 0) + more.size()));
    entry({256, 4, 1, width});
    entry({257, 4, 1, height});
    if (with_bits && photometric == 2) entry({258, 3, 3, bits_offset});
    if (with_bits && photometric != 2) entry({258, 3, 1, static_cast<std::uint32_t>(bits)});
    entry({259, 3, 1, static_cast<std::uint32_t>(compression)});
    entry({262, 3, 1, static_cast<std::uint32_t>(photometric)});
    entry({273, 4, 1, DataOffset()});
    for (const TiffEntry& e : more) entry(e);
    w.U32(0);
    for (int channel = 0; channel < 4; ++channel) w.U16(static_cast<std::uint32_t>(bits));
    return w.bytes + pixels;
}

}  // namespace pixora::test
