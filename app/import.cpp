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
constexpr std::wstring_view kCorrupt = L"This file is invalid or corrupt.";
constexpr std::uint64_t kSampleBytesPerPixel = 6;

// Why an import cannot go on.
struct Refused {
    Message message;
    std::wstring reason;
    int code = static_cast<int>(ReadResult::invalid);
    bool data_copy_failed = false;
};

Refused Error(std::wstring_view line1, std::wstring_view line2) {
    return {{std::wstring(kErrorCaption), std::wstring(line1), std::wstring(line2), L""},
            std::wstring(line2)};
}

Refused FormatError(ReadResult result) {
    Refused refused = Error(L"File Format Error", RefusalText(result));
    refused.code = static_cast<int>(result);
    return refused;
}

Refused DepthError(std::uint32_t bits) {
    Refused refused = Error(L"This TIFF file is " + FormatWhole(bits) + L"-bit.",
                            L"Only 8, 12, and 16-bit formats are supported.");
    refused.reason = refused.message.line1 + L" " + refused.message.line2;
    refused.code = static_cast<int>(ReadResult::not_supported);
    return refused;
}

Refused FileError(const fs::path& source, std::wstring_view text, ReadResult code) {
    const std::wstring name = FileNameOf(WideText(source), fs::path::preferred_separator);
    return {FileErrorMessage(name, text), std::wstring(text), static_cast<int>(code)};
}

Refused MemoryError(const FileType& type, const fs::path& source) {
    const bool deep = type.kind != ImageFileKind::bmp && type.bits == 16;
    return deep ? FileError(source, kCorrupt, ReadResult::invalid) : FormatError(ReadResult::invalid);
}

ImportResult ResultOf(Refused refused) {
    return {.image = {},
            .message = std::move(refused.message),
            .reason = std::move(refused.reason),
            .code = refused.code,
            .data_copy_failed = refused.data_copy_failed};
}

// One import on its way: each step fills the record, or says why it cannot go on. What becomes of the pixels
// is up to whoever derives from it.
class Import {
public:
    explicit Import(const SourceRequest& request) : request_(request) {}
    virtual ~Import() = default;
    Import(const Import&) = delete;
    Import& operator=(const Import&) = delete;

    ImportResult Run() noexcept {
        std::optional<Refused> refused;
        try {
            if (request_.source.empty()) return {};
            refused = Begin();
            if (!refused) refused = ReadFacts();
            if (!refused) refused = TakePixels();
        } catch (const std::exception&) {  // no memory
            refused = NoMemory();
        }
        if (refused) {
            GiveUp();
            return ResultOf(*std::move(refused));
        }
        ImportResult result;
        result.image = std::move(record_);
        result.strips_too_many = type_.tiff.info.strips_too_many;
        return result;
    }

protected:
    /// Before the file is looked at.
    virtual std::optional<Refused> Begin() { return std::nullopt; }
    /// When all headers have been read; nothing may have been written yet.
    virtual std::optional<Refused> CheckSize() { return std::nullopt; }
    // Each takes the pixels of one kind of file, and notes what only they tell.
    virtual std::optional<Refused> TakeBmp() = 0;
    virtual std::optional<Refused> TakeTiff16(int given_bits) = 0;
    virtual std::optional<Refused> TakeTiff() = 0;
    /// After a refusal, at any time.
    virtual void GiveUp() {}

    [[nodiscard]] Refused OpenError(ReadResult code = ReadResult::invalid) const {
        return FileError(request_.source, kOpenFailed, code);
    }
    [[nodiscard]] Refused CorruptError(ReadResult code = ReadResult::invalid) const {
        return FileError(request_.source, kCorrupt, code);
    }
    [[nodiscard]] std::optional<Refused> Refusal(ReadResult result) const {
        if (result == ReadResult::accepted) return std::nullopt;
        return result == ReadResult::write_failed ? OpenError(result) : FormatError(result);
    }

    std::optional<Refused> NoteBmp(const BmpConversion& conversion) {
        record_.colour = conversion.colour;
        record_.bmp_bit_count = conversion.bit_count;
        return Refusal(conversion.result);
    }
    void NoteTiff16(int valid_bits) {
        record_.raw_data = 1;
        record_.data_kind = ImageFileKind::bin;
        record_.valid_bits = static_cast<std::uint32_t>(valid_bits);
    }

    const SourceRequest& request_;
    FileType type_;  // the source, once it has been looked at
    ImageBuffer record_;

private:
    // Memory may be so short that not even the words for it can be had.
    [[nodiscard]] Refused NoMemory() const noexcept {
        try {
            return MemoryError(type_, request_.source);
        } catch (const std::exception&) {
            return {};
        }
    }

    // Everything that the headers say, and the refusals that need no more.
    std::optional<Refused> ReadFacts() {
        type_ = DetectFileType(request_.source);
        if (!type_.file) return OpenError();
        if (!type_.Known())
            return FileError(request_.source, L"This is an unsupported or invalid image file.",
                             ReadResult::not_supported);
        record_.file_kind = type_.kind;
        record_.bits_per_sample = type_.bits;
        record_.source_path = WideText(request_.source);
        record_.file_name = FileNameOf(record_.source_path, fs::path::preferred_separator);
        std::uint32_t width = 0, height = 0;
        ReadSize(width, height);
        if (width > kMaxImageSide || height > kMaxImageSide) return FormatError(ReadResult::not_supported);
        record_.width = static_cast<std::uint16_t>(width);
        record_.height = static_cast<std::uint16_t>(height);
        return CheckSize();
    }

    void ReadSize(std::uint32_t& width, std::uint32_t& height) {
        if (type_.kind == ImageFileKind::bmp) {
            width = type_.bmp.width;
            height = type_.bmp.height;
            return;
        }
        const TiffInfo& info = type_.tiff.info;
        width = info.width;
        height = info.height;
        record_.colour = info.IsColour();
        record_.stored_bits = record_.colour ? info.ChannelBits() : info.SingleBits();
    }

    std::optional<Refused> TakePixels() {
        std::optional<Refused> refused = TakeByKind();
        record_.pixel_format = (record_.colour ? L"RGB" : L"Mono") + FormatWhole(record_.bits_per_sample);
        return refused;
    }

    std::optional<Refused> TakeByKind() {
        if (type_.kind == ImageFileKind::bmp) return TakeBmp();
        switch (type_.bits) {
            case 16:
                return TakeTiff16(request_.auto_bit == L"ON" ? 0 : ParseWhole(request_.valid_bits));
            case 8:
            case 12:
                record_.data_kind = record_.file_kind;
                record_.valid_bits = type_.bits;
                return TakeTiff();
            default:
                return DepthError(type_.bits);
        }
    }
};

// Writes the copies of an image under the names in its record.
class CopyingImport : public Import {
public:
    using Import::Import;

protected:
    std::optional<Refused> TakeBmp() override {
        return WithDisplayCopy(NoteBmp(ConvertBmp(type_, record_.display_copy)));
    }
    std::optional<Refused> TakeTiff16(int given_bits) override {
        const Tiff16Conversion conversion =
            ConvertTiff16(type_, record_.display_copy, record_.data_copy, given_bits);
        if (!conversion.data_written) {
            Refused refused =
                CorruptError(conversion.accepted ? ReadResult::write_failed : ReadResult::invalid);
            refused.data_copy_failed = conversion.accepted;
            return refused;
        }
        NoteTiff16(conversion.valid_bits);
        return WithDisplayCopy(
            Refusal(conversion.display_written ? ReadResult::accepted : ReadResult::write_failed));
    }
    std::optional<Refused> TakeTiff() override {
        return WithDisplayCopy(Refusal(ConvertTiff(type_, record_.display_copy, record_.data_copy)));
    }
    void GiveUp() override {
        if (!record_.display_copy.empty()) DeleteQuietly(record_.display_copy);
        if (!record_.data_copy.empty()) DeleteQuietly(record_.data_copy);
    }

private:
    std::optional<Refused> WithDisplayCopy(std::optional<Refused> refused) const {
        std::error_code ignored;
        if (refused || fs::is_regular_file(record_.display_copy, ignored)) return refused;
        return OpenError(ReadResult::write_failed);
    }
};

// The import of the main window: copies in a slot of the data folder.
class ViewerImport final : public CopyingImport {
public:
    ViewerImport(const SourceRequest& source, const ImportRequest& request)
        : CopyingImport(source), viewer_(request) {}

protected:
    std::optional<Refused> Begin() override {
        const std::optional<int> slot = FindFreeSlot(viewer_.data_folder);
        if (!slot) return Error(L"Too many images!", L"Close at least 1 image.");
        record_.slot = static_cast<std::uint8_t>(*slot);
        record_.display_copy = DisplayCopyPath(viewer_.data_folder, *slot);
        return std::nullopt;
    }

    std::optional<Refused> CheckSize() override {
        record_.display_size = StartRatio(viewer_.display_size);
        const std::optional<Message> limit =
            CheckDisplayLimit({record_.width, record_.height}, record_.display_size);
        if (limit) return Refused{*limit, limit->line2};
        if (Pixels() >= kLongImportPixels && viewer_.before_long_import) viewer_.before_long_import();
        return std::nullopt;
    }

    std::optional<Refused> TakeBmp() override {
        return FitsMemory() ? CopyingImport::TakeBmp() : FormatError(ReadResult::invalid);
    }
    std::optional<Refused> TakeTiff16(int given_bits) override {
        record_.data_copy = DataCopyPath(viewer_.data_folder, record_.slot, ".bin");
        return FitsMemory() ? CopyingImport::TakeTiff16(given_bits) : CorruptError();
    }
    std::optional<Refused> TakeTiff() override {
        record_.data_copy = DataCopyPath(viewer_.data_folder, record_.slot, ".tiff");
        return FitsMemory() ? CopyingImport::TakeTiff() : FormatError(ReadResult::invalid);
    }

private:
    [[nodiscard]] std::uint64_t Pixels() const { return std::uint64_t{record_.width} * record_.height; }
    [[nodiscard]] bool FitsMemory() const { return Pixels() * kSampleBytesPerPixel <= viewer_.memory_limit; }

    const ImportRequest& viewer_;
};

// Copies under names of the caller's; of the TIFFs only 16-bit ones have a data copy.
class NamedCopies final : public CopyingImport {
public:
    NamedCopies(const SourceRequest& request, const fs::path& display_copy, const fs::path& data_copy)
        : CopyingImport(request), data_copy_(data_copy) {
        record_.display_copy = display_copy;
    }

protected:
    std::optional<Refused> TakeTiff16(int given_bits) override {
        record_.data_copy = data_copy_;
        return CopyingImport::TakeTiff16(given_bits);
    }

private:
    const fs::path& data_copy_;
};

// Gives the samples away and writes nothing.
class SampleImport final : public Import {
public:
    SampleImport(const SourceRequest& request, SampleSink* sink) : Import(request), sink_(sink) {}

protected:
    std::optional<Refused> TakeBmp() override { return NoteBmp(ReadBmpSamples(type_, sink_)); }
    std::optional<Refused> TakeTiff16(int given_bits) override {
        const Tiff16Reading reading = ReadTiff16Samples(type_, given_bits, sink_);
        if (reading.result != ReadResult::accepted) return CorruptError(reading.result);
        NoteTiff16(reading.valid_bits);
        return std::nullopt;
    }
    std::optional<Refused> TakeTiff() override { return Refusal(ReadTiffSamples(type_, sink_)); }

private:
    SampleSink* sink_;
};

// Runs an import for which not even the beginning may find memory.
template <typename Operation>
ImportResult RunGuarded(const Operation& run) noexcept {
    try {
        return run();
    } catch (const std::exception&) {
        ImportResult refused;
        refused.code = static_cast<int>(ReadResult::invalid);
        return refused;
    }
}

}  // namespace

ImportResult ImportImage(const ImportRequest& request) noexcept {
    return RunGuarded([&] {
        const SourceRequest source{request.source, request.valid_bits, request.auto_bit};
        return ViewerImport(source, request).Run();
    });
}

ImportResult ReadImage(const SourceRequest& request, SampleSink* sink) noexcept {
    return RunGuarded([&] { return SampleImport(request, sink).Run(); });
}

ImportResult RefusedForMemory(const fs::path& source) {
    return ResultOf(MemoryError(DetectFileType(source), source));
}

ImportResult CopyImage(const SourceRequest& request, const fs::path& display_copy,
                       const fs::path& data_copy) noexcept {
    return RunGuarded([&] { return NamedCopies(request, display_copy, data_copy).Run(); });
}

}  // namespace pixora
