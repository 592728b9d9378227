#include "image/tiff_header.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/bytes.h"

namespace pixora {
namespace {

constexpr std::size_t kEntryBytes = 12;
constexpr std::uint64_t kInlineBytes = 4;
// Value arrays of so many bytes and more are not fetched; their field keeps its default.
constexpr std::uint64_t kFetchLimit = 8193;
// No field takes more than four values of four bytes from its entry.
constexpr std::size_t kUsedValueBytes = 16;

// Read at once from the start of the file and of the directory; the rest of most headers is among them.
constexpr std::size_t kWindowBytes = 2048;

constexpr std::uint16_t kBitsPerSample = 258;
constexpr std::uint16_t kStripOffsets = 273;

// A field that takes the first value of its entry, or a fraction.
template <typename T>
struct Field {
    std::uint16_t tag;
    T TiffInfo::*member;
};
using Fraction = std::array<std::uint32_t, 2>;
constexpr std::array kLongFields = {
    Field<std::uint32_t>{256, &TiffInfo::width},
    Field<std::uint32_t>{257, &TiffInfo::height},
    Field<std::uint32_t>{kStripOffsets, &TiffInfo::first_strip_offset},
    Field<std::uint32_t>{278, &TiffInfo::rows_per_strip},
    Field<std::uint32_t>{279, &TiffInfo::strip_byte_count},
};
constexpr std::array kShortFields = {
    Field<std::uint16_t>{259, &TiffInfo::compression},
    Field<std::uint16_t>{262, &TiffInfo::photometric},
    Field<std::uint16_t>{296, &TiffInfo::resolution_unit},
    Field<std::uint16_t>{320, &TiffInfo::colour_map},
};
constexpr std::array kFractionFields = {
    Field<Fraction>{282, &TiffInfo::x_resolution},
    Field<Fraction>{283, &TiffInfo::y_resolution},
};

// The member that the tag fills, or nothing.
template <typename T, std::size_t kCount>
T TiffInfo::*MemberOf(const std::array<Field<T>, kCount>& fields, std::uint16_t tag) {
    const auto found = std::ranges::find(fields, tag, &Field<T>::tag);
    return found == fields.end() ? nullptr : found->member;
}

bool IsKept(std::uint16_t tag) {
    return tag == kBitsPerSample || MemberOf(kLongFields, tag) || MemberOf(kShortFields, tag) ||
           MemberOf(kFractionFields, tag);
}

// Bytes of one value of types 1 to 12; other types have no values.
std::size_t TypeBytes(std::uint16_t type) {
    constexpr std::size_t kBytes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    return type < std::size(kBytes) ? kBytes[type] : 0;
}

std::uint16_t Narrow16(std::uint32_t value) {
    return static_cast<std::uint16_t>(std::min<std::uint32_t>(value, 0xFFFF));
}

// The values of one directory entry, as far as any field uses them.
struct EntryValues {
    std::span<const std::byte> bytes{};
    std::size_t value_bytes = 0;
    bool big_endian = false;

    [[nodiscard]] std::size_t Count() const { return value_bytes ? bytes.size() / value_bytes : 0; }
    [[nodiscard]] std::uint32_t U32(std::size_t offset) const {
        return big_endian ? Big32(bytes, offset) : Little32(bytes, offset);
    }
    // Value `index`, or of a fraction its numerator.
    [[nodiscard]] std::uint32_t Value(std::size_t index) const {
        const std::size_t offset = index * value_bytes;
        if (value_bytes == 1) return std::to_integer<std::uint32_t>(bytes[offset]);
        if (value_bytes == 2) return big_endian ? Big16(bytes, offset) : Little16(bytes, offset);
        return U32(offset);
    }
};

void StoreBits(const EntryValues& values, std::uint64_t all_bytes, TiffInfo& info) {
    if (all_bytes <= kInlineBytes) {
        info.bits = {0, 0, 0, Narrow16(values.Value(0))};
        return;
    }
    const std::size_t count = std::min<std::size_t>(values.Count(), 4);
    info.bits = {0, 0, 0, 0};
    for (std::size_t i = 0; i < count; ++i) info.bits[i] = Narrow16(values.Value(i));
}

void Store(std::uint16_t tag, const EntryValues& values, std::uint64_t all_bytes, TiffInfo& info) {
    if (values.Count() == 0) return;
    if (tag == kBitsPerSample) StoreBits(values, all_bytes, info);
    if (const auto member = MemberOf(kLongFields, tag)) info.*member = values.Value(0);
    if (const auto member = MemberOf(kShortFields, tag)) info.*member = Narrow16(values.Value(0));
    const auto member = MemberOf(kFractionFields, tag);
    if (member && values.bytes.size() >= sizeof(Fraction)) info.*member = {values.U32(0), values.U32(4)};
}

// A file, some bytes of which are at hand.
class Window {
public:
    explicit Window(File& file) : file_(file) {}

    // Reads from `offset` what is to be at hand.
    void MoveTo(std::uint64_t offset) {
        begin_ = offset;
        held_ = file_.Seek(offset) ? file_.Read(bytes_) : 0;
    }
    // @return the bytes that the file held, fewer than asked for only at its end.
    [[nodiscard]] std::size_t Read(std::uint64_t offset, std::span<std::byte> target) {
        if (offset < begin_ || offset - begin_ > held_ || target.size() > held_ - (offset - begin_))
            return file_.Seek(offset) ? file_.Read(target) : 0;
        std::ranges::copy(std::span(bytes_).subspan(static_cast<std::size_t>(offset - begin_), target.size()),
                          target.begin());
        return target.size();
    }

private:
    File& file_;
    std::uint64_t begin_ = 0;
    std::size_t held_ = 0;
    std::array<std::byte, kWindowBytes> bytes_;
};

class HeaderReader {
public:
    explicit HeaderReader(File& file) : window_(file), size_(file.Size()) {}

    TiffHeader Read() {
        TiffHeader header;
        std::array<std::byte, 8> start{};
        window_.MoveTo(0);
        const std::size_t got = window_.Read(0, start);
        if (got < 4) return header;
        header.kind = KindOf(start);
        if (header.kind == ImageFileKind::unknown) return header;
        big_endian_ = header.kind == ImageFileKind::tiff_big;
        header.complete = got == start.size() && ReadDirectory(U32(start, 4), header.info);
        return header;
    }

private:
    static ImageFileKind KindOf(std::span<const std::byte> start) {
        const auto both = [&](char c) { return start[0] == std::byte(c) && start[1] == std::byte(c); };
        if (both('I') && Little16(start, 2) == 42) return ImageFileKind::tiff_little;
        if (both('M') && Big16(start, 2) == 42) return ImageFileKind::tiff_big;
        return ImageFileKind::unknown;
    }

    [[nodiscard]] std::uint16_t U16(std::span<const std::byte> bytes, std::size_t offset) const {
        return big_endian_ ? Big16(bytes, offset) : Little16(bytes, offset);
    }
    [[nodiscard]] std::uint32_t U32(std::span<const std::byte> bytes, std::size_t offset) const {
        return big_endian_ ? Big32(bytes, offset) : Little32(bytes, offset);
    }

    bool ReadDirectory(std::uint64_t offset, TiffInfo& info) {
        std::array<std::byte, 2> count_bytes{};
        if (offset + kEntryBytes > kWindowBytes) window_.MoveTo(offset);
        if (window_.Read(offset, count_bytes) < count_bytes.size()) return false;
        std::vector<std::byte> entries(U16(count_bytes, 0) * kEntryBytes);
        const std::size_t got = window_.Read(offset + count_bytes.size(), entries);
        bool complete = got == entries.size();
        for (std::size_t at = 0; at + kEntryBytes <= got; at += kEntryBytes)
            complete = ReadEntry(std::span(entries).subspan(at, kEntryBytes), info) && complete;
        return complete;
    }

    // @return false when the entry's values lie outside the file.
    bool ReadEntry(std::span<const std::byte> entry, TiffInfo& info) {
        const std::uint16_t tag = U16(entry, 0);
        if (!IsKept(tag)) return true;
        const std::uint32_t count = U32(entry, 4);
        EntryValues values{.value_bytes = TypeBytes(U16(entry, 2)), .big_endian = big_endian_};
        const std::uint64_t all_bytes = std::uint64_t{count} * values.value_bytes;
        if (tag == kStripOffsets) {
            info.strip_count = Narrow16(count);
            info.strips_too_many = all_bytes >= kFetchLimit;
        }
        if (all_bytes <= kInlineBytes) {
            values.bytes = entry.subspan(8, static_cast<std::size_t>(all_bytes));
            Store(tag, values, all_bytes, info);
            return true;
        }
        // Deliberate: the first strip offset of a file with very many strips stays 0, so that its pixels are
        // read from the start of the file.
        if (all_bytes >= kFetchLimit) return true;
        const std::uint64_t offset = U32(entry, 8);
        std::array<std::byte, kUsedValueBytes> fetched{};
        const auto used = std::span(fetched).first(
            static_cast<std::size_t>(std::min<std::uint64_t>(all_bytes, kUsedValueBytes)));
        if (offset + all_bytes > size_ || window_.Read(offset, used) < used.size()) return false;
        values.bytes = used;
        Store(tag, values, all_bytes, info);
        return true;
    }

    Window window_;
    std::uint64_t size_;
    bool big_endian_ = false;
};

}  // namespace

TiffHeader ReadTiffHeader(File& file) {
    return HeaderReader(file).Read();
}

}  // namespace pixora
