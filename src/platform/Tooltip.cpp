#include "platform/Tooltip.h"

#include "platform/TextForms.h"
#include "win/Checked.h"

#include <algorithm>
#include <cwchar>

namespace ormisk {

namespace {

constexpr wchar_t kNoText[] = L" "; // a tool without a text would be refused

std::wstring Trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos ? kNoText : text.substr(first, text.find_last_not_of(L' ') + 1 - first);
}

} // namespace

void CTooltip::Destroy() {
    if (hwnd())
        DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
}

void CTooltip::init(HWND hParent) {
    const INITCOMMONCONTROLSEX all{sizeof all, 0xFF};
    InitCommonControlsEx(&all);
    Destroy();
    m_hWndParent = hParent;
    m_hWnd = Checked(CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, TTS_NOANIMATE | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hParent, nullptr,
                                     GetModuleHandleW(nullptr), nullptr));
    // The mouse goes through to what lies below: not every system heeds TTF_TRANSPARENT in that.
    SetWindowLongPtrW(m_hWnd, GWL_EXSTYLE, GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE) | WS_EX_LAYERED | WS_EX_TRANSPARENT);
    SetLayeredWindowAttributes(m_hWnd, 0, 255, LWA_ALPHA);
    Activate(true);
    SetWindowPos(m_hWnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

LRESULT CTooltip::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return hwnd() ? SendMessageW(m_hWnd, message, wParam, lParam) : 0;
}

LRESULT CTooltip::SendTool(UINT message, WPARAM wParam, TTTOOLINFOW& tool) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(&tool));
}

LRESULT CTooltip::SendText(UINT message, const std::wstring& text, TTTOOLINFOW& tool) {
    std::wstring shown = m_Unicode ? NarrowText(text) : text;
    m_MaxTextLen = std::max(m_MaxTextLen, shown.size());
    tool.lpszText = shown.data();
    return SendTool(message, 0, tool);
}

bool CTooltip::BallonStyle() const { return hwnd() && (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & TTS_BALLOON) != 0; }

void CTooltip::BallonStyle(bool balloon) {
    if (!hwnd())
        return;
    const LONG_PTR style = GetWindowLongPtrW(m_hWnd, GWL_STYLE) & ~static_cast<LONG_PTR>(TTS_BALLOON);
    SetWindowLongPtrW(m_hWnd, GWL_STYLE, style | (balloon ? TTS_BALLOON : 0));
}

int CTooltip::ToolCount() const { return static_cast<int>(Send(TTM_GETTOOLCOUNT)); }

void CTooltip::Activate(bool bActive) const { Send(TTM_ACTIVATE, bActive); }

void CTooltip::Pop() const { Send(TTM_POP); }

void CTooltip::Relay(long x, long y) const {
    MSG message{};
    message.hwnd = m_hWndParent;
    message.message = WM_MOUSEMOVE;
    message.lParam = MAKELPARAM(x, y);
    Send(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

std::optional<TTTOOLINFOW> CTooltip::ToolAt(int index) const {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    if (index < 0 || !SendTool(TTM_ENUMTOOLSW, static_cast<WPARAM>(index), tool))
        return std::nullopt;
    return tool;
}

std::optional<TTTOOLINFOW> CTooltip::FindTool(UINT_PTR nId) const {
    for (int index = 0, count = ToolCount(); index < count; ++index)
        if (const auto tool = ToolAt(index); tool && tool->uId == nId)
            return tool;
    return std::nullopt;
}

UINT_PTR CTooltip::ToolId(int index) const {
    const auto tool = ToolAt(index);
    return tool ? tool->uId : 0;
}

bool CTooltip::AddTool(UINT_PTR nId, bool bSubclass, long x, long y, long cx, long cy, const std::wstring& sText) {
    if (FindTool(nId))
        return false;
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_SUBCLASS | TTF_TRANSPARENT | (bSubclass ? TTF_IDISHWND : 0U);
    tool.hwnd = m_hWndParent;
    tool.uId = nId;
    tool.rect = {x, y, x + cx, y + cy};
    return SendText(TTM_ADDTOOLW, Trimmed(sText), tool) != 0;
}

void CTooltip::DeleteTool(UINT_PTR nId) const {
    if (auto tool = FindTool(nId))
        SendTool(TTM_DELTOOLW, 0, *tool);
}

void CTooltip::SetNewToolRect(UINT_PTR nId, long x, long y, long cx, long cy) const {
    if (auto tool = FindTool(nId)) {
        tool->rect = {x, y, x + cx, y + cy};
        SendTool(TTM_NEWTOOLRECTW, 0, *tool);
    }
}

void CTooltip::AdjustRect(RECT& rect) const { Send(TTM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&rect)); }

void CTooltip::SetToolWindowPos(long x, long y) const {
    if (hwnd())
        SetWindowPos(m_hWnd, HWND_TOPMOST, x, y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void CTooltip::MaxTipWidth(long pixels) const { Send(TTM_SETMAXTIPWIDTH, 0, pixels); }

// Some systems leave the frame out.
Size CTooltip::TipSize(UINT_PTR nId) const {
    auto tool = FindTool(nId);
    const LRESULT size = tool ? SendTool(TTM_GETBUBBLESIZE, 0, *tool) : 0;
    RECT rect{0, 0, LOWORD(size), HIWORD(size)};
    AdjustWindowRectEx(&rect, static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)));
    return {rect.right - rect.left, rect.bottom - rect.top};
}

Color CTooltip::BackColor() const { return static_cast<Color>(Send(TTM_GETTIPBKCOLOR)); }

void CTooltip::BackColor(Color color) const { Send(TTM_SETTIPBKCOLOR, TranslateColor(color)); }

Color CTooltip::ForeColor() const { return static_cast<Color>(Send(TTM_GETTIPTEXTCOLOR)); }

void CTooltip::ForeColor(Color color) const { Send(TTM_SETTIPTEXTCOLOR, TranslateColor(color)); }

RECT CTooltip::Margins() const {
    RECT margins{};
    Send(TTM_GETMARGIN, 0, reinterpret_cast<LPARAM>(&margins));
    return margins;
}

void CTooltip::SetMargin(LONG RECT::* side, long pixels) const {
    RECT margins = Margins();
    margins.*side = pixels;
    Send(TTM_SETMARGIN, 0, reinterpret_cast<LPARAM>(&margins));
}

std::wstring CTooltip::Text(UINT_PTR nId) const {
    auto tool = FindTool(nId);
    if (!tool)
        return {};
    std::wstring room(m_MaxTextLen + 1, L'\0');
    tool->lpszText = room.data();
    SendTool(TTM_GETTEXTW, room.size(), *tool);
    room.resize(std::wcslen(room.data()));
    return m_Unicode ? ExpandText(room) : room;
}

void CTooltip::Text(UINT_PTR nId, const std::wstring& text) {
    if (auto tool = FindTool(nId))
        SendText(TTM_UPDATETIPTEXTW, text, *tool);
}

void CTooltip::hFont(HFONT font) const { Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

void CTooltip::Title(const std::wstring& title) {
    m_Title = title;
    ShowTitle();
}

void CTooltip::Icon(long icon) {
    m_Icon = icon;
    ShowTitle();
}

void CTooltip::ShowTitle() const {
    const std::wstring shown = m_Unicode ? NarrowText(m_Title) : m_Title;
    Send(TTM_SETTITLEW, static_cast<WPARAM>(m_Icon), reinterpret_cast<LPARAM>(shown.c_str()));
}

long CTooltip::Delay(WPARAM which) const { return static_cast<long>(Send(TTM_GETDELAYTIME, which)); }

void CTooltip::SetDelay(WPARAM which, long time) const { Send(TTM_SETDELAYTIME, which, time); }

} // namespace ormisk
