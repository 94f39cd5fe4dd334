#include "platform/About.h"

#include "win/Checked.h"
#include "win/Handles.h"
#include "win/Module.h"
#include "win/Rects.h"

#include <algorithm>

namespace ormisk {

namespace {

// The dialog resource and its items.
constexpr WORD kDialog = 100, kProductId = 101, kVersionId = 102;
constexpr long kHeaderHeight = 58; // dialog units

// What the window needs while it is up.
struct AboutState {
    HWND Owner;
    const std::wstring& Product;
    const std::wstring& Version;
    Unique<HFONT> ProductFont;
};

// Over the middle of the owner, inside the work area of its screen.
void Centre(HWND dialog, HWND owner) {
    const Rect work = WorkArea(owner ? owner : dialog);
    const Rect around = owner ? WindowRect(owner) : work;
    const Rect own = WindowRect(dialog);
    const long x = (around.left + around.right - own.Width()) / 2;
    const long y = (around.top + around.bottom - own.Height()) / 2;
    SetWindowPos(dialog, nullptr, std::max(work.left, std::min(x, work.right - own.Width())),
                 std::max(work.top, std::min(y, work.bottom - own.Height())), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void Initialise(HWND dialog, AboutState& state) {
    SetWindowTextW(dialog, (L"About " + state.Product).c_str());
    SetDlgItemTextW(dialog, kProductId, state.Product.c_str());
    SetDlgItemTextW(dialog, kVersionId, (L"Version " + state.Version).c_str());
    LOGFONTW font{};
    const auto dialogFont = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    if (GetObjectW(dialogFont, sizeof font, &font)) {
        font.lfHeight = MulDiv(font.lfHeight, 8, 5);
        font.lfWeight = FW_BOLD;
        state.ProductFont.reset(CreateFontIndirectW(&font));
        SendDlgItemMessageW(dialog, kProductId, WM_SETFONT, reinterpret_cast<WPARAM>(state.ProductFont.get()), FALSE);
    }
    Centre(dialog, state.Owner);
}

// A light field above, the button's field below.
void Erase(HWND dialog, HDC dc) {
    const RECT client = ToRect(ClientRect(dialog));
    RECT header{0, 0, 0, kHeaderHeight};
    MapDialogRect(dialog, &header);
    header.right = client.right;
    FillRect(dc, &client, GetSysColorBrush(COLOR_3DFACE));
    FillRect(dc, &header, GetSysColorBrush(COLOR_WINDOW));
    DrawEdge(dc, &header, EDGE_ETCHED, BF_BOTTOM);
}

INT_PTR CALLBACK AboutProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        Initialise(dialog, *reinterpret_cast<AboutState*>(lParam));
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)
            return FALSE;
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    case WM_ERASEBKGND:
        Erase(dialog, reinterpret_cast<HDC>(wParam));
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_CTLCOLORSTATIC:
        SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    default:
        return FALSE;
    }
}

} // namespace

void ShowAboutWindow(HWND owner, const std::wstring& product, const std::wstring& version) {
    AboutState state{owner ? GetAncestor(owner, GA_ROOT) : nullptr, product, version, {}};
    if (DialogBoxParamW(ThisModule(), MAKEINTRESOURCEW(kDialog), state.Owner, AboutProc,
                        reinterpret_cast<LPARAM>(&state)) == -1)
        ThrowLastError();
}

} // namespace ormisk
