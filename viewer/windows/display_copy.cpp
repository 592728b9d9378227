#include "viewer/windows/display_copy.h"

#include <objidl.h>

#include <gdiplus.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <mutex>
#include <span>

#include "base/file.h"
#include "image/bmp_layout.h"
#include "image/bmp_reader.h"
#include "platform/bitmap24.h"
#include "viewer/picture_rows.h"

namespace pixora {
namespace {

namespace flat = Gdiplus::DllExports;

/// Keeps the system's image decoder running. It starts with the first user and stops with the last, in the
/// whole process.
class DecoderUse {
public:
    DecoderUse() {
        const std::scoped_lock guard(lock);
        if (!started) {
            const Gdiplus::GdiplusStartupInput input;
            started = Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
        }
        ++users;
    }
    ~DecoderUse() {
        const std::scoped_lock guard(lock);
        if (--users > 0 || !started) return;
        Gdiplus::GdiplusShutdown(token);
        started = false;
    }
    DecoderUse(const DecoderUse&) = delete;
    DecoderUse& operator=(const DecoderUse&) = delete;

private:
    static inline std::mutex lock;
    static inline int users = 0;
    static inline bool started = false;
    static inline ULONG_PTR token = 0;
};

struct Disposer {
    void operator()(Gdiplus::GpBitmap* bitmap) const noexcept { flat::GdipDisposeImage(bitmap); }
};
using DecodedImage = std::unique_ptr<Gdiplus::GpBitmap, Disposer>;

/// Copies all rows of a decoded image, whichever way up the decoder keeps them.
bool CopyRows(Gdiplus::GpBitmap* image, UINT width, UINT height, std::span<std::byte> rows) {
    const Gdiplus::Rect all(0, 0, static_cast<INT>(width), static_cast<INT>(height));
    Gdiplus::BitmapData data{};
    if (flat::GdipBitmapLockBits(image, &all, Gdiplus::ImageLockModeRead, PixelFormat24bppRGB, &data) !=
        Gdiplus::Ok)
        return false;
    const auto* top = static_cast<const std::byte*>(data.Scan0);
    const auto stride = static_cast<std::size_t>(Bmp24Stride(width));
    for (std::size_t row = 0; row < height; ++row)
        std::memcpy(&rows[(height - 1 - row) * stride], top + static_cast<std::ptrdiff_t>(row) * data.Stride,
                    std::size_t{3} * width);
    return flat::GdipBitmapUnlockBits(image, &data) == Gdiplus::Ok;
}

std::optional<Bitmap24> MakePicture(UINT width, UINT height) {
    if (width == 0 || height == 0 || !FitsBitmap(width, height)) return std::nullopt;
    return MakeBitmap24(static_cast<LONG>(width), static_cast<LONG>(height));
}

std::optional<UniqueBitmap> Decode(const std::filesystem::path& path) {
    const DecoderUse use;
    Gdiplus::GpBitmap* decoded = nullptr;
    if (flat::GdipCreateBitmapFromFile(path.c_str(), &decoded) != Gdiplus::Ok) return std::nullopt;
    const DecodedImage image(decoded);
    UINT width = 0, height = 0;
    if (flat::GdipGetImageWidth(decoded, &width) != Gdiplus::Ok ||
        flat::GdipGetImageHeight(decoded, &height) != Gdiplus::Ok)
        return std::nullopt;
    std::optional<Bitmap24> picture = MakePicture(width, height);
    if (!picture || !CopyRows(decoded, width, height, picture->rows)) return std::nullopt;
    return std::move(picture->bitmap);
}

/// For copies that end early.
std::optional<UniqueBitmap> ReadRows(File& file, const BmpHeader& header) {
    std::optional<Bitmap24> picture = MakePicture(header.width, header.height);
    if (!picture || !ReadPictureRows(file, header, picture->rows)) return std::nullopt;
    return std::move(picture->bitmap);
}

}  // namespace

std::optional<UniqueBitmap> LoadDisplayCopy(const std::filesystem::path& display_copy) {
    std::optional<File> file = File::OpenForReading(display_copy);
    const std::optional<BmpHeader> header = file ? ReadBmpHeader(*file) : std::nullopt;
    if (!header || !FitsBitmap(header->width, header->height)) return std::nullopt;
    if (IsOrdinaryPicture(*file, *header))
        if (std::optional<UniqueBitmap> picture = Decode(display_copy)) return picture;
    return ReadRows(*file, *header);
}

}  // namespace pixora
