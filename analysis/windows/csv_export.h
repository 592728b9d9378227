// The dialogs of a CSV export.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "analysis/windows/analysis_view.h"

namespace pixora {

/// The folder that an export of a view starts in; proposed names begin with it.
[[nodiscard]] std::wstring CsvStartFolder(const ViewContext& context);

/// Asks where to, with `proposed` as the first answer (its folder included), writes `bytes` there, remembers
/// the folder and tells the user. A cancelled dialog and a file that cannot be written end it silently.
/// @param view  the window of the view; it is disabled meanwhile and must not be used afterwards without
///              looking whether it still exists.
void ExportCsv(HWND view, const ViewContext& context, const std::wstring& proposed, std::string_view bytes);

}  // namespace pixora
