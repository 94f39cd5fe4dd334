#include "editors/FileDialog.h"

#include "editors/DialogRules.h"
#include "win/Module.h"

#include <commdlg.h>
#include <ole2.h>
#include <shlobj.h>

#include <memory>

namespace ormisk {
namespace {

const wchar_t* OrNone(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

int CALLBACK OnBrowse(HWND dialog, UINT message, LPARAM, LPARAM path) {
    if (message == BFFM_INITIALIZED)
        SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, path);
    return 0;
}

} // namespace

bool AskForFile(HWND owner, const PathDialog& dialog, std::wstring& path) {
    const std::wstring filter = DialogFilter(dialog.Filter);
    std::wstring buffer = FileBuffer(path);
    OPENFILENAMEW file{};
    file.lStructSize = sizeof file;
    file.hwndOwner = owner;
    file.hInstance = ThisModule();
    file.lpstrFilter = filter.c_str();
    file.nFilterIndex = 1;
    file.lpstrFile = buffer.data();
    file.nMaxFile = static_cast<DWORD>(buffer.size()) - 1;
    file.lpstrInitialDir = OrNone(dialog.InitialDir);
    file.lpstrTitle = OrNone(dialog.Caption);
    file.lpstrDefExt = OrNone(dialog.DefaultExt);
    file.Flags = FileDialogFlags(dialog.Flags);
    bool chosen = GetOpenFileNameW(&file) != FALSE;
    // A name that can be none keeps the dialog shut.
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        buffer = FileBuffer({});
        file.lpstrFile = buffer.data();
        chosen = GetOpenFileNameW(&file) != FALSE;
    }
    if (chosen)
        path = CutAtZero(buffer);
    return chosen;
}

bool AskForFolder(HWND owner, const PathDialog& dialog, std::wstring& path) {
    struct Ole {
        HRESULT Begun = OleInitialize(nullptr);
        ~Ole() {
            if (SUCCEEDED(Begun))
                OleUninitialize();
        }
    } const ole;
    BROWSEINFOW folder{};
    folder.hwndOwner = owner;
    folder.lpszTitle = dialog.Caption.c_str();
    folder.ulFlags = dialog.Flags;
    folder.lpfn = OnBrowse;
    folder.lParam = reinterpret_cast<LPARAM>(path.c_str());
    const std::unique_ptr<ITEMIDLIST_ABSOLUTE, decltype(&CoTaskMemFree)> chosen(SHBrowseForFolderW(&folder),
                                                                                CoTaskMemFree);
    wchar_t name[MAX_PATH] = L"";
    if (!chosen || !SHGetPathFromIDListW(chosen.get(), name))
        return false;
    path = name;
    return true;
}

} // namespace ormisk
