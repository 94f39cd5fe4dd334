#include "platform/About.h"

#include "automation/Error.h"
#include "platform/Gdi.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace ormisk {

namespace {

constexpr WORD kProductId = 100;
constexpr WORD kVersionId = 101;
// Dialog units.
constexpr short kWidth = 190, kHeight = 92, kHeaderHeight = 58, kMargin = 12, kButtonWidth = 50, kButtonHeight = 14;

// A dialog described in memory, in the format of a dialog resource.
class DialogTemplate {
public:
    DialogTemplate(std::wstring_view title, DWORD style, WORD items) {
        AddLong(style);
        AddLong(0);
        m_Words.push_back(items);
        AddPlace(0, 0, kWidth, kHeight);
        m_Words.insert(m_Words.end(), {0, 0}); // no menu, the standard class
        AddText(title);
        m_Words.push_back(9);
        AddText(L"MS Shell Dlg");
    }

    void AddItem(WORD windowClass, WORD id, DWORD style, short x, short y, short width, short height,
                 std::wstring_view text) {
        if (m_Words.size() % 2)
            m_Words.push_back(0);
        AddLong(style | WS_CHILD | WS_VISIBLE);
        AddLong(0);
        AddPlace(x, y, width, height);
        m_Words.insert(m_Words.end(), {id, 0xFFFF, windowClass});
        AddText(text);
        m_Words.push_back(0); // no creation data
    }

    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_Words.data()); }

private:
    void AddLong(DWORD value) { m_Words.insert(m_Words.end(), {LOWORD(value), HIWORD(value)}); }
    void AddPlace(short x, short y, short width, short height) {
        for (short value : {x, y, width, height})
            m_Words.push_back(static_cast<WORD>(value));
    }
    void AddText(std::wstring_view text) {
        m_Words.insert(m_Words.end(), text.begin(), text.end());
        m_Words.push_back(0);
    }

    std::vector<WORD> m_Words;
};

// What the window needs while it is up.
struct AboutState {
    HWND Owner;
    UniqueFont ProductFont;
};

// Over the middle of the owner, inside the work area of its screen.
void Centre(HWND dialog, HWND owner) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : dialog, MONITOR_DEFAULTTONEAREST), &screen);
    const RECT& work = screen.rcWork;
    RECT around = work, own{};
    if (owner)
        GetWindowRect(owner, &around);
    GetWindowRect(dialog, &own);
    const long width = own.right - own.left, height = own.bottom - own.top;
    const long x = (around.left + around.right - width) / 2;
    const long y = (around.top + around.bottom - height) / 2;
    SetWindowPos(dialog, nullptr, std::max(work.left, std::min(x, work.right - width)),
                 std::max(work.top, std::min(y, work.bottom - height)), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void Initialise(HWND dialog, AboutState& state) {
    LOGFONTW font{};
    const auto dialogFont = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    if (GetObjectW(dialogFont, sizeof font, &font)) {
        font.lfHeight = MulDiv(font.lfHeight, 8, 5);
        font.lfWeight = FW_BOLD;
        state.ProductFont = UniqueFont(CreateFontIndirectW(&font));
        SendDlgItemMessageW(dialog, kProductId, WM_SETFONT, reinterpret_cast<WPARAM>(state.ProductFont.Get()), FALSE);
    }
    Centre(dialog, state.Owner);
}

// A light field above, the button's field below.
void Erase(HWND dialog, HDC dc) {
    RECT client{}, header{0, 0, kWidth, kHeaderHeight};
    GetClientRect(dialog, &client);
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

DialogTemplate AboutTemplate(const std::wstring& product, const std::wstring& version) {
    constexpr WORD kButton = 0x0080, kStatic = 0x0082;
    constexpr short kTextWidth = kWidth - 2 * kMargin;
    DialogTemplate window(L"About " + product,
                          WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_FIXEDSYS, 3);
    window.AddItem(kButton, IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, kWidth - kMargin - kButtonWidth,
                   (kHeaderHeight + kHeight - kButtonHeight) / 2, kButtonWidth, kButtonHeight, L"OK");
    window.AddItem(kStatic, kProductId, SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kMargin, 12, kTextWidth, 18, product);
    window.AddItem(kStatic, kVersionId, SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kMargin, 34, kTextWidth, 10,
                   L"Version " + version);
    return window;
}

HINSTANCE OwnModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OwnModule), &module);
    return module;
}

} // namespace

void ShowAboutWindow(HWND owner, const std::wstring& product, const std::wstring& version) {
    AboutState state{owner ? GetAncestor(owner, GA_ROOT) : nullptr, {}};
    const DialogTemplate window = AboutTemplate(product, version);
    const HWND focus = GetFocus();
    const INT_PTR closedBy =
        DialogBoxIndirectParamW(OwnModule(), window.Get(), state.Owner, AboutProc, reinterpret_cast<LPARAM>(&state));
    if (closedBy == -1)
        Check(HRESULT_FROM_WIN32(GetLastError()));
    if (IsWindow(focus))
        SetFocus(focus);
}

} // namespace ormisk
