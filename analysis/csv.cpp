#include "analysis/csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "analysis/channel.h"
#include "base/number_text.h"

namespace pixora {
namespace {

/// A kind of number and what stands for one that is too large for its field.
struct Field {
    std::uint32_t largest;
    std::string_view beyond;
};
constexpr Field kPlace{99'999, "-----"};  // of locations, levels and values
constexpr Field kCount{99'999'999, "--------"};
constexpr std::size_t kLongestField = 8;
constexpr wchar_t kSeparator = L'\\';

/// The channels that a file holds, by their places in the pixel, in the order of its columns. Deliberate: a
/// selector that a colour image does not have gives no column, though the views would show blue.
ChannelPlaces ColumnsOf(bool colour, int channel) {
    if (colour && !IsColourChannel(channel)) return {};
    return PlacesOf(colour, channel);
}

constexpr std::array<std::string_view, 3> kChannelNotes = {" (B)", " (G)", " (R)"};  // by place

/// The first line of a file. Deliberate: the only column of a grey image may have a word of its own.
std::string Header(std::string_view first, std::string_view word, std::string_view grey_word, bool colour,
                   const ChannelPlaces& columns) {
    std::string header(first);
    for (const std::size_t place : columns.Places()) {
        header += ',';
        header += colour ? word : grey_word;
        if (colour) header += kChannelNotes[place];
    }
    return header + "\r\n";
}

/// Puts the lines of a file together without looking at its memory more than once.
class Lines {
public:
    Lines(std::string header, std::size_t rows, std::size_t columns) : text_(std::move(header)) {
        const std::size_t begin = text_.size();
        text_.resize(begin + rows * ((columns + 1) * (kLongestField + 1) + 1));
        at_ = text_.data() + begin;
    }
    void Put(std::uint32_t value, const Field& field) {
        if (value > field.largest) {
            at_ = std::copy(field.beyond.begin(), field.beyond.end(), at_);
        } else {
            at_ = std::to_chars(at_, at_ + kLongestField, value).ptr;
        }
    }
    void NextField() { *at_++ = ','; }
    void EndLine() {
        *at_++ = '\r';
        *at_++ = '\n';
    }
    [[nodiscard]] std::string Take() {
        text_.resize(static_cast<std::size_t>(at_ - text_.data()));
        return std::move(text_);
    }

private:
    std::string text_;
    char* at_;
};

/// Deliberate: unlike that of a saved region, a name that only begins with a point loses all of it.
std::wstring_view WithoutExtension(std::wstring_view name) {
    return name.substr(0, name.rfind(L'.'));
}

std::wstring ProposedName(std::wstring_view folder, std::wstring_view image_name, std::wstring_view what,
                          bool colour, int channel) {
    std::wstring name(folder);
    if (!name.empty() && !name.ends_with(kSeparator)) name += kSeparator;
    name += WithoutExtension(image_name);
    name += what;
    if (colour && IsColourChannel(channel))
        name.append(L"(").append(ChannelCaption(channel, colour)).append(L")");
    return name + L".csv";
}

}  // namespace

std::string HistogramCsv(const HistogramCounts& counts, bool colour, int channel, std::uint32_t bits) {
    const ChannelPlaces columns = ColumnsOf(colour, channel);
    const std::size_t rows = BinCount(bits);
    Lines lines(Header("Value", "Freq", "Freq.", colour, columns), rows, columns.count);
    for (std::size_t level = 0; level < rows; ++level) {
        lines.Put(static_cast<std::uint32_t>(level), kPlace);
        for (const std::size_t place : columns.Places()) {
            lines.NextField();
            lines.Put(level < counts[place].size() ? counts[place][level] : 0, kCount);
        }
        lines.EndLine();
    }
    return lines.Take();
}

std::string ProfileCsv(const LineProfile& profile, bool colour, int channel) {
    const ChannelPlaces columns = ColumnsOf(colour, channel);
    const auto rows = static_cast<std::size_t>(std::max(profile.count, 0));
    // Deliberate: the first word's spelling is the product's.
    Lines lines(Header("Loacation", "Value", "Value", colour, columns), rows, columns.count);
    for (std::size_t row = 0; row < rows; ++row) {
        lines.Put(static_cast<std::uint32_t>(profile.first) + static_cast<std::uint32_t>(row), kPlace);
        for (const std::size_t place : columns.Places()) {
            lines.NextField();
            lines.Put(row < profile.values[place].size() ? profile.values[place][row] : 0u, kPlace);
        }
        lines.EndLine();
    }
    return lines.Take();
}

std::wstring HistogramCsvName(std::wstring_view folder, std::wstring_view image_name, bool colour,
                              int channel) {
    return ProposedName(folder, image_name, L"_HIS", colour, channel);
}

std::wstring ProfileCsvName(std::wstring_view folder, std::wstring_view image_name, ProfileKind kind,
                            int line, bool colour, int channel) {
    const std::wstring what = (kind == ProfileKind::horizontal ? L"_H" : L"_V") + FormatWhole(line);
    return ProposedName(folder, image_name, what, colour, channel);
}

std::wstring CsvFolderOf(std::wstring_view path) {
    const std::size_t separator = path.rfind(kSeparator);
    return std::wstring(path.substr(0, separator == std::wstring_view::npos ? 0 : separator + 1));
}

}  // namespace pixora
