#pragma once

#include "platform/Color.h"
#include "win/Geometry.h"

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

namespace ormisk {

// The system's tooltip window behind properties. Tools are areas of the parent window, known by a number. The window is
// owned; without it (not made, or gone with its parent) every operation does nothing and reads as empty. In Unicode
// mode texts are byte-expanded.
class CTooltip {
public:
    CTooltip() = default;
    CTooltip(const CTooltip&) = delete;
    CTooltip& operator=(const CTooltip&) = delete;
    ~CTooltip() { Destroy(); }

    // Makes the window, over all others and active. Raises the system's error.
    void init(HWND hParent);
    void Destroy();
    HWND hwnd() const { return IsWindow(m_hWnd) ? m_hWnd : nullptr; }

    bool BallonStyle() const;
    void BallonStyle(bool balloon);
    int ToolCount() const;
    void Activate(bool bActive) const;
    void Pop() const; // the tip on screen, if there is one, goes
    // The mouse is at a point of the parent: a tool that came under it only now hears of it.
    void Relay(long x, long y) const;
    void SetNewToolRect(UINT_PTR nId, long x, long y, long cx, long cy) const;
    // The window that has room for a text of this area.
    void AdjustRect(RECT& rect) const;
    void SetToolWindowPos(long x, long y) const; // on the screen
    // Longer lines are broken; without it lines end at their line breaks only.
    void MaxTipWidth(long pixels) const;
    // Room for the window that shows the text of the tool.
    Size TipSize(UINT_PTR nId) const;
    // False for a number that is taken, or when the system refuses. With `bSubclass` the number is that of a window.
    bool AddTool(UINT_PTR nId, bool bSubclass, long x, long y, long cx, long cy, const std::wstring& sText);
    void DeleteTool(UINT_PTR nId) const;
    UINT_PTR ToolId(int index) const; // 0 for none

    Color BackColor() const;
    void BackColor(Color color) const; // may be a system colour
    Color ForeColor() const;
    void ForeColor(Color color) const;
    long LeftMargin() const { return Margins().left; }
    void LeftMargin(long pixels) const { SetMargin(&RECT::left, pixels); }
    long TopMargin() const { return Margins().top; }
    void TopMargin(long pixels) const { SetMargin(&RECT::top, pixels); }
    long RightMargin() const { return Margins().right; }
    void RightMargin(long pixels) const { SetMargin(&RECT::right, pixels); }
    long BottomMargin() const { return Margins().bottom; }
    void BottomMargin(long pixels) const { SetMargin(&RECT::bottom, pixels); }
    std::wstring Text(UINT_PTR nId) const; // "" for an unknown tool
    void Text(UINT_PTR nId, const std::wstring& text);
    void hFont(HFONT font) const; // borrowed
    const std::wstring& Title() const { return m_Title; }
    void Title(const std::wstring& title);
    long Icon() const { return m_Icon; } // beside the title: 1 information, 2 warning, 3 error
    void Icon(long icon);
    // Milliseconds.
    long InitialDelay() const { return Delay(TTDT_INITIAL); }
    void InitialDelay(long time) const { SetDelay(TTDT_INITIAL, time); }
    long ReshowDelay() const { return Delay(TTDT_RESHOW); }
    void ReshowDelay(long time) const { SetDelay(TTDT_RESHOW, time); }
    long AutopopDelay() const { return Delay(TTDT_AUTOPOP); }
    void AutopopDelay(long time) const { SetDelay(TTDT_AUTOPOP, time); }
    bool Unicode() const { return m_Unicode; }
    void Unicode(bool unicode) { m_Unicode = unicode; }

private:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendTool(UINT message, WPARAM wParam, TTTOOLINFOW& tool) const;
    LRESULT SendText(UINT message, const std::wstring& text, TTTOOLINFOW& tool);
    std::optional<TTTOOLINFOW> ToolAt(int index) const;
    std::optional<TTTOOLINFOW> FindTool(UINT_PTR nId) const;
    RECT Margins() const;
    void SetMargin(LONG RECT::* side, long pixels) const;
    long Delay(WPARAM which) const;
    void SetDelay(WPARAM which, long time) const;
    void ShowTitle() const;

    HWND m_hWnd = nullptr;
    HWND m_hWndParent = nullptr;
    long m_Icon = 0;
    std::wstring m_Title;
    std::size_t m_MaxTextLen = 0; // of the texts so far: what a text read back needs room for
    bool m_Unicode = false;
};

} // namespace ormisk
