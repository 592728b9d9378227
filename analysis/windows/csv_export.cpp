#include "analysis/windows/csv_export.h"

#include "analysis/csv_export.h"
#include "dialogs/windows/messages.h"
#include "platform/file_dialog.h"

namespace pixora {

std::wstring CsvStartFolder(const ViewContext& context) {
    return CsvStartFolder(context.settings_path, *context.settings);
}

void ExportCsv(HWND view, const ViewContext& context, const CsvProposal& proposal, std::string_view bytes) {
    FileDialogRequest request;
    request.owner = view;
    request.filter = kCsvFilter;
    request.initial_name = proposal.name;
    request.initial_folder = proposal.folder;
    request.default_extension = kCsvExtension;
    const std::optional<std::filesystem::path> chosen = AskForFileToSave(request);
    if (!chosen || !SaveCsv(*chosen, bytes, context.settings_path, *context.settings)) return;
    ShowInformation(view, CsvSavedMessage());
}

}  // namespace pixora
