#include "app/import.h"
#include "app/main_rules.h"
#include "app/main_texts.h"
#include "app/viewer_start.h"
#include "app/windows/img_import.h"
#include "base/file.h"
#include "dialogs/windows/messages.h"
#include "dialogs/windows/passive_windows.h"
#include "dialogs/windows/placement_win.h"
#include "platform/file_dialog.h"
#include "platform/memory.h"
#include "platform/screen.h"
#include "resources/resource.h"

namespace pixora {

namespace {

constexpr COLORREF kEditModeFace = RGB(255, 224, 130);

/// Deletes the copies of an image that gets no viewer, however that comes: they would keep its slot taken.
class UnshownCopies {
public:
    explicit UnshownCopies(const ImageBuffer& image) noexcept : image_(&image) {}
    ~UnshownCopies() {
        if (!image_) return;
        DeleteQuietly(image_->display_copy);
        DeleteQuietly(image_->data_copy);
    }
    UnshownCopies(const UnshownCopies&) = delete;
    UnshownCopies& operator=(const UnshownCopies&) = delete;
    /// The image is shown: its viewer deletes them.
    void Keep() noexcept { image_ = nullptr; }

private:
    const ImageBuffer* image_;
};

}  // namespace

bool CImgImport::OpenImage(const std::filesystem::path& path) {
    std::optional<Message> failure;
    {
        const BusyCursor busy;
        CPleaseWait wait;
        ImportRequest request;
        request.source = path;
        request.data_folder = paths_.folder;
        request.display_size = settings_.IMG_SIZE;
        request.valid_bits = settings_.VALID_BITS;
        request.auto_bit = settings_.AUTO_BIT;
        request.before_long_import = [&] {
            wait.Show(Window());
            PaintNow(Window());
        };
        request.memory_limit = AvailableMemory();
        const ImportResult result = ImportImage(request);
        if (!result.image) {
            failure = result.message;
        } else if (!CreateViewer(*result.image)) {
            failure = FileErrorMessage(result.image->file_name, kOpenFailed);
        }
    }  // the box comes after the wait window and the busy cursor have gone
    if (!failure) path_box_.Opened(WideText(path));
    ShowPath();
    if (failure && *failure != Message{}) ShowErrorBox(Window(), *failure);
    return !failure;
}

bool CImgImport::CreateViewer(const ImageBuffer& image) {
    const ScreenPoint corner =
        PlaceViewer(ToScreen(WorkAreaOf(Window())), image.slot, CaptionHeight(Window()));
    ClearSlot(flags_, image.slot);
    UnshownCopies copies(image);  // outlives the viewer, which may have them open
    auto viewer = std::make_unique<CDisplay>(
        image, ViewerContext{&flags_, &settings_, paths_.settings_file, ToWin(corner), monitor_});
    if (!viewer->Open()) return false;
    viewers_.push_back(std::move(viewer));
    copies.Keep();
    flags_.created[image.slot] = true;
    return true;
}

void CImgImport::AskAndOpen() {
    if (path_box_.Editing()) return;
    FileDialogRequest request;
    request.owner = Window();
    request.filter = kOpenFilter;
    request.initial_name = OpenDialogName(settings_.PATH_OPEN);
    request.initial_folder = settings_.PATH_OPEN;  // should the name be refused
    choosing_file_ = true;
    EnableOpening();
    const auto chosen = AskForFileToOpen(request);
    choosing_file_ = false;
    EnableOpening();
    if (!chosen || stage_ != Stage::running || !OpenImage(*chosen)) return;
    StoreOpenFolder(paths_.settings_file, settings_, FolderOfOpened(WideText(*chosen)));
}

void CImgImport::Reload() {
    if (path_box_.Editing()) return;
    // A copy: opening replaces the text in the box.
    if (const std::wstring path = path_box_.FullPath(); !path.empty()) OpenImage(path);
}

void CImgImport::BeginPathEdit() {
    path_box_.BeginEdit();
    EnableOpening();
    ShowPath();
    SetFocus(Item(IDC_MAIN_PATH));
    SendDlgItemMessageW(Window(), IDC_MAIN_PATH, EM_SETSEL, 0, -1);
}

void CImgImport::EndPathEdit(bool by_enter) {
    const auto path = path_box_.EndEdit(Text(IDC_MAIN_PATH), by_enter);
    EnableOpening();
    ShowPath();
    if (path) OpenImage(*path);
}

void CImgImport::EnableOpening() {
    const bool editing = path_box_.Editing();
    SendDlgItemMessageW(Window(), IDC_MAIN_PATH, EM_SETREADONLY, !editing, 0);
    edit_.SetCaption(path_box_.ButtonText());
    edit_.SetBackColor(editing ? kEditModeFace : CColorButton::kPlainFace);
    browse_.Enable(!editing && !choosing_file_);
    reload_.Enable(!editing && !choosing_file_);
    edit_.Enable(!choosing_file_);
    EnableWindow(Item(IDC_MAIN_SIZE), !editing);
    InvalidateRect(Item(IDC_MAIN_PATH), nullptr, TRUE);
}

void CImgImport::ShowPath() {
    SetText(IDC_MAIN_PATH, path_box_.Text());
}

}  // namespace pixora
