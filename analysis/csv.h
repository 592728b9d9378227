// CSV files of histograms and profiles: their bytes and the names that are proposed for them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "analysis/line_profile.h"
#include "analysis/measurement.h"
#include "base/file.h"

namespace pixora {

/// Writes a histogram: a header, then one line a level.
/// @param colour   of the image; a grey one has its counts in counts[0] and any selector counts as 0.
/// @param channel  the selector; one out of range on a colour image gives the levels alone.
/// @param bits     the depth that measurements work with; sets the number of lines.
/// @return false when not all of it could be written.
[[nodiscard]] bool WriteHistogramCsv(File& file, const HistogramCounts& counts, bool colour, int channel,
                                     std::uint32_t bits);
/// Writes a profile: a header, then one line a position. @return false when not all of it could be written.
[[nodiscard]] bool WriteProfileCsv(File& file, const LineProfile& profile, bool colour, int channel);

/// The same bytes, for a time when the counts and the samples may be others.
[[nodiscard]] std::string HistogramCsv(const HistogramCounts& counts, bool colour, int channel,
                                       std::uint32_t bits);
[[nodiscard]] std::string ProfileCsv(const LineProfile& profile, bool colour, int channel);

/// What is proposed for a histogram: `folder`, with or without a backslash at its end, the image's name
/// without its extension, "_HIS", the channel and ".csv", for example L"C:\\data\\a_HIS(RGB).csv".
[[nodiscard]] std::wstring HistogramCsvName(std::wstring_view folder, std::wstring_view image_name,
                                            bool colour, int channel);
/// As above with "_H" or "_V" and the number of the line: L"C:\\data\\a_H120(RGB).csv".
[[nodiscard]] std::wstring ProfileCsvName(std::wstring_view folder, std::wstring_view image_name,
                                          ProfileKind kind, int line, bool colour, int channel);

/// The folder that the next export starts in: `path` up to and including its last backslash.
[[nodiscard]] std::wstring CsvFolderOf(std::wstring_view path);

}  // namespace pixora
