#include "app/import.h"

#include <exception>
#include <system_error>
#include <utility>

#include "app/main_texts.h"
#include "base/file.h"
#include "base/number_text.h"
#include "image/bmp_reader.h"
#include "image/file_type.h"
#include "image/tiff_reader.h"
#include "viewer/display_size.h"

namespace pixora {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kErrorCaption = L" : Error";
constexpr std::uint64_t kSampleBytesPerPixel = 6;

Message Error(std::wstring_view line1, std::wstring_view line2) {
    return {std::wstring(kErrorCaption), std::wstring(line1), std::wstring(line2), L""};
}

Message FormatError(ReadResult result) {
    return Error(L"File Format Error", RefusalText(result));
}

// One import on its way: each step fills the record, or says why it cannot go on.
class Import {
public:
    explicit Import(const ImportRequest& request) : request_(request) {}

    ImportResult Run() {
        if (request_.source.empty()) return {};
        std::optional<Message> refusal = TakeSlot();
        if (!refusal) refusal = ReadFacts();
        if (!refusal) refusal = WriteCopies();
        if (refusal) {
            RemoveCopies();
            return {std::nullopt, *std::move(refusal)};
        }
        return {std::move(record_), {}};
    }

    // What is left of an import that could not be finished.
    void RemoveCopies() const {
        if (!record_.display_copy.empty()) DeleteQuietly(record_.display_copy);
        if (!record_.data_copy.empty()) DeleteQuietly(record_.data_copy);
    }

    [[nodiscard]] Message FileError(std::wstring_view text) const {
        const std::wstring name = FileNameOf(WideText(request_.source), fs::path::preferred_separator);
        return FileErrorMessage(name, text);
    }
    [[nodiscard]] Message OpenError() const { return FileError(kOpenFailed); }

private:
    std::optional<Message> TakeSlot() {
        const std::optional<int> slot = FindFreeSlot(request_.data_folder);
        if (!slot) return Error(L"Too many images!", L"Close at least 1 image.");
        record_.slot = static_cast<std::uint8_t>(*slot);
        record_.display_copy = DisplayCopyPath(request_.data_folder, *slot);
        return std::nullopt;
    }

    // Everything that the headers say, and the refusals that need no more; nothing has been written yet.
    std::optional<Message> ReadFacts() {
        type_ = DetectFileType(request_.source);
        if (!type_.opened) return OpenError();
        if (!type_.Known()) return FileError(L"This is an unsupported or invalid image file.");
        record_.display_size = StartRatio(request_.display_size);
        record_.file_kind = type_.kind;
        record_.bits_per_sample = type_.bits;
        record_.source_path = WideText(request_.source);
        record_.file_name = FileNameOf(record_.source_path, fs::path::preferred_separator);
        ReadSize();
        if (width_ > kMaxImageSide || height_ > kMaxImageSide) return FormatError(ReadResult::not_supported);
        record_.width = static_cast<std::uint16_t>(width_);
        record_.height = static_cast<std::uint16_t>(height_);
        return CheckDisplayLimit({record_.width, record_.height}, record_.display_size);
    }

    void ReadSize() {
        if (IsBmp()) {
            const BmpHeader header = ReadBmpHeader(request_.source).value_or(BmpHeader{});
            width_ = header.width;
            height_ = header.height;
            return;
        }
        const TiffInfo& info = type_.tiff.info;
        width_ = info.width;
        height_ = info.height;
        record_.colour = info.IsColour();
        record_.stored_bits = record_.colour ? info.ChannelBits() : info.SingleBits();
    }

    std::optional<Message> WriteCopies() {
        const std::uint64_t pixels = std::uint64_t{width_} * height_;
        if (pixels >= kLongImportPixels && request_.before_long_import) request_.before_long_import();
        fits_memory_ = pixels * kSampleBytesPerPixel <= request_.memory_limit;
        std::optional<Message> refusal = IsBmp() ? WriteBmpCopy() : WriteTiffCopies();
        std::error_code ignored;
        if (!refusal && !fs::is_regular_file(record_.display_copy, ignored)) refusal = OpenError();
        record_.pixel_format = (record_.colour ? L"RGB" : L"Mono") + FormatWhole(record_.bits_per_sample);
        return refusal;
    }

    std::optional<Message> WriteBmpCopy() {
        if (!fits_memory_) return FormatError(ReadResult::invalid);
        const BmpConversion conversion = ConvertBmp(request_.source, record_.display_copy);
        record_.colour = conversion.colour;
        record_.bmp_bit_count = conversion.bit_count;
        return Refusal(conversion.result);
    }

    std::optional<Message> WriteTiffCopies() {
        switch (type_.bits) {
            case 16:
                return Write16BitCopies();
            case 8:
            case 12:
                return WriteByteCopy();
            default:
                return Error(L"This TIFF file is " + FormatWhole(type_.bits) + L"-bit.",
                             L"Only 8, 12, and 16-bit formats are supported.");
        }
    }

    std::optional<Message> Write16BitCopies() {
        record_.data_copy = DataCopyPath(request_.data_folder, record_.slot, ".bin");
        const int given_bits = request_.auto_bit == L"ON" ? 0 : ParseWhole(request_.valid_bits);
        const Tiff16Conversion conversion =
            fits_memory_ ? ConvertTiff16(request_.source, record_.display_copy, record_.data_copy, given_bits)
                         : Tiff16Conversion{};
        if (!conversion.data_written) return FileError(L"This file is invalid or corrupt.");
        record_.raw_data = 1;
        record_.data_kind = ImageFileKind::bin;
        record_.valid_bits = static_cast<std::uint32_t>(conversion.valid_bits);
        return conversion.display_written ? std::nullopt : std::optional(OpenError());
    }

    std::optional<Message> WriteByteCopy() {
        if (!fits_memory_) return FormatError(ReadResult::invalid);
        record_.data_copy = DataCopyPath(request_.data_folder, record_.slot, ".tiff");
        record_.data_kind = record_.file_kind;
        record_.valid_bits = type_.bits;
        return Refusal(ConvertTiff(request_.source, record_.display_copy, record_.data_copy));
    }

    [[nodiscard]] std::optional<Message> Refusal(ReadResult result) const {
        if (result == ReadResult::accepted) return std::nullopt;
        return result == ReadResult::write_failed ? OpenError() : FormatError(result);
    }

    [[nodiscard]] bool IsBmp() const { return type_.kind == ImageFileKind::bmp; }

    const ImportRequest& request_;
    ImageBuffer record_;
    FileType type_;
    std::uint32_t width_ = 0, height_ = 0;
    bool fits_memory_ = true;
};

}  // namespace

ImportResult ImportImage(const ImportRequest& request) noexcept {
    Import import(request);
    try {
        return import.Run();
    } catch (const std::exception&) {  // no memory
        import.RemoveCopies();
        return {std::nullopt, import.OpenError()};
    }
}

}  // namespace pixora
