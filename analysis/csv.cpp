#include "analysis/csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <span>

#include "analysis/channel.h"
#include "analysis/csv_lines.h"
#include "base/number_text.h"

namespace pixora {
namespace {

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
    return header;
}

/// The numbers of one column from the second field on; what it lacks of the file's lines is zeros.
template <typename Value>
using Column = std::span<const Value>;

/// A file whose first field counts the lines from `first` on.
/// @return false when `take` did.
template <typename Value>
bool PutLines(const std::string& header, std::uint32_t first, std::size_t rows,
              std::span<const Column<Value>> columns, CsvField field, const CsvBlock::Take& take) {
    CsvBlock block(take);
    block.Keep(EndCsvLine(std::ranges::copy(header, block.Next()).out));
    CsvCounter number(first, kPlaceField);
    for (std::size_t row = 0; row < rows;) {
        const std::size_t room = block.Room();
        if (room == 0) return false;
        const std::size_t end = std::min(rows, row + room);
        char* at = block.Next();
        for (; row < end; ++row, number.Advance()) {
            at = number.Put(at);
            for (const Column<Value>& column : columns) {
                *at++ = ',';
                at = PutField(at, row < column.size() ? column[row] : 0u, field);
            }
            at = EndCsvLine(at);
        }
        block.Keep(at);
    }
    return block.HandOn();
}

/// The columns among `values` that stand at `places`.
template <typename Value>
std::vector<Column<Value>> Chosen(const std::array<std::vector<Value>, 3>& values,
                                  const ChannelPlaces& places) {
    std::vector<Column<Value>> columns;
    for (const std::size_t place : places.Places()) columns.emplace_back(values[place]);
    return columns;
}

bool PutHistogram(const HistogramCounts& counts, bool colour, int channel, std::uint32_t bits,
                  const CsvBlock::Take& take) {
    const ChannelPlaces places = ColumnsOf(colour, channel);
    return PutLines<std::uint32_t>(Header("Value", "Freq", "Freq.", colour, places), 0, BinCount(bits),
                                   Chosen(counts, places), kCountField, take);
}

std::size_t RowsOf(const LineProfile& profile) {
    return static_cast<std::size_t>(std::max(profile.count, 0));
}

bool PutProfile(const LineProfile& profile, bool colour, int channel, const CsvBlock::Take& take) {
    const ChannelPlaces places = ColumnsOf(colour, channel);
    // Deliberate: the first word's spelling is the product's.
    return PutLines<std::uint16_t>(Header("Loacation", "Value", "Value", colour, places),
                                   static_cast<std::uint32_t>(profile.first), RowsOf(profile),
                                   Chosen(profile.values, places), kPlaceField, take);
}

CsvBlock::Take Into(File& file) {
    return [&file](std::string_view text) { return file.Write(std::as_bytes(std::span(text))); };
}

/// All lines of a file as one text. What is set aside for the longest lines is not touched before it is
/// filled.
template <typename Put>
std::string InMemory(std::size_t rows, const Put& put) {
    std::string whole;
    whole.reserve((rows + 1) * CsvBlock::kLineBytes);
    static_cast<void>(put([&whole](std::string_view text) {
        whole += text;
        return true;
    }));
    return whole;
}

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

char* PutLargeField(char* at, std::uint32_t value, CsvField field) {
    if (value <= field.largest) return std::to_chars(at, at + kFieldBytes, value).ptr;
    return std::ranges::copy(field.beyond, at).out;
}

bool WriteHistogramCsv(File& file, const HistogramCounts& counts, bool colour, int channel,
                       std::uint32_t bits) {
    return PutHistogram(counts, colour, channel, bits, Into(file));
}

bool WriteProfileCsv(File& file, const LineProfile& profile, bool colour, int channel) {
    return PutProfile(profile, colour, channel, Into(file));
}

std::string HistogramCsv(const HistogramCounts& counts, bool colour, int channel, std::uint32_t bits) {
    return InMemory(BinCount(bits), [&](const CsvBlock::Take& take) {
        return PutHistogram(counts, colour, channel, bits, take);
    });
}

std::string ProfileCsv(const LineProfile& profile, bool colour, int channel) {
    return InMemory(RowsOf(profile),
                    [&](const CsvBlock::Take& take) { return PutProfile(profile, colour, channel, take); });
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
