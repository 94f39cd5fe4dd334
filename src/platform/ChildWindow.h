#pragma once

#include "automation/Error.h"
#include "platform/Color.h"
#include "platform/ResourceMgr.h"

#include <memory>
#include <utility>
#include <vector>
#include <windows.h>

namespace ormisk {

// Hears the keys and the focus of a child window. A handler may destroy the window. A failure in a handler ends there,
// and the message goes on as the handler left it.
class ChildWindowListener {
public:
    // `shift`: 1 SHIFT, 2 CTRL, 4 ALT. A key set to 0 goes no further; another number replaces it.
    virtual void OnKeyDown(int& keyCode, int shift) = 0;
    virtual void OnKeyPress(int& keyAscii) = 0; // UTF-16 code units, control characters too
    virtual void OnKeyUp(int& keyCode, int shift) = 0;
    virtual void OnGotFocus() = 0;
    virtual void OnLostFocus() {}

protected:
    ~ChildWindowListener() = default;
};

// A child window of one of the system's classes, which it owns. Without its window (not created, or destroyed with its
// parent) every operation does nothing and reads as empty. Pixels throughout.
class ChildWindow {
public:
    ChildWindow(const ChildWindow&) = delete;
    ChildWindow& operator=(const ChildWindow&) = delete;

    HWND hWnd() const { return m_hWnd; }
    HWND Parent() const { return m_hWnd ? GetParent(m_hWnd) : nullptr; }

    void Destroy();         // the listener hears nothing of it
    bool IsVisible() const; // its own flag, whatever its parent's
    virtual void SetVisible(bool visible);
    virtual void Move(int left, int top, int width, int height); // the z-order stays
    void SetFocus();
    // A disabled window takes no keys, but keeps the focus; its text is gray.
    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return m_Enabled; }

    // OLE colours. The parent answers the requests of this window for colours with the result of OnCtlColor.
    void SetBackColor(Color color);
    void SetForeColor(Color color);
    HBRUSH OnCtlColor(HDC dc); // null for want of a brush
    virtual void SetFont(const FontDescription& font);
    virtual void SetFontHandle(HFONT font); // stays the caller's

protected:
    ChildWindow() = default;
    ~ChildWindow() { Destroy(); }

    // Makes the window, hidden. The listener is borrowed, and may be null. Raises the system's error.
    void Create(const wchar_t* className, DWORD style, HWND parent, ChildWindowListener* listener);
    void Subclass(HWND window); // another window whose messages come to OnMessage

    // A message, of which the system's own part is done by Default. Here the keys and the focus are told.
    virtual LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual void OnFocusChanged(bool /*gained*/) {} // when the listener knows
    // After each message that did not come from within Default or Ask.
    virtual void OnSettled() {}

    LRESULT Default(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Calls the listener; false when the window is gone afterwards, and maybe the object.
    template <class Listener = ChildWindowListener, class Call> bool Tell(Call&& call) {
        if (!m_Listener)
            return true;
        const std::weak_ptr<char> life = m_Life;
        const HWND window = m_hWnd;
        IgnoringFailures([&] { call(static_cast<Listener&>(*m_Listener)); });
        return !life.expired() && m_hWnd == window;
    }
    bool TellKey(UINT message, WPARAM& key); // false also when the key goes no further
    void Repaint();
    // The colours as they are now, and a brush of the one behind; null for want of one.
    Color BackColor() const { return TranslateColor(m_BackColor); }
    Color ForeColor() const { return TranslateColor(m_ForeColor); }
    HBRUSH BackBrush();

    const std::shared_ptr<char> m_Life =
        std::make_shared<char>(); // tells callers of callbacks whether the object is gone
    bool m_Enabled = true;
    CFont m_Font;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    WNDPROC ProcedureBefore(HWND window) const;
    void Forget(HWND window);

    HWND m_hWnd = nullptr;
    std::vector<std::pair<HWND, WNDPROC>> m_Before; // the procedures of the windows subclassed
    ChildWindowListener* m_Listener = nullptr;
    int m_Depth = 0; // of calls into the system
    Color m_BackColor = 0x80000000U | COLOR_WINDOW;
    Color m_ForeColor = 0x80000000U | COLOR_WINDOWTEXT;
    CBrush m_Background;
};

} // namespace ormisk
