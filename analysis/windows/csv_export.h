// The dialogs of a CSV export.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "analysis/windows/analysis_view.h"

namespace pixora {

/// The folder that an export of a view starts in, as the settings file has it now; proposed names begin with
/// it.
[[nodiscard]] std::wstring CsvStartFolder(const ViewContext& context);

/// What the dialog of an export proposes.
struct CsvProposal {
    const std::wstring& folder;
    const std::wstring& name;  ///< with that folder before it
};

/// Asks where to, writes `bytes` there, remembers the folder and tells the user. A cancelled dialog and a
/// file that cannot be written end it silently.
/// @param view  the window of the view; it is disabled meanwhile and must not be used afterwards without
///              looking whether it still exists.
void ExportCsv(HWND view, const ViewContext& context, const CsvProposal& proposal, std::string_view bytes);

}  // namespace pixora
