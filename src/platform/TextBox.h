#pragma once

#include "platform/Color.h"
#include "platform/ResourceMgr.h"
#include "win/Gdi.h"

#include <memory>
#include <string>
#include <windows.h>

namespace ormisk {

// Hears the keys and the focus of a text box. A handler may destroy the box. A failure in a handler ends there, and the
// message goes on as the handler left it.
class TextBoxListener {
public:
    // `shift`: 1 SHIFT, 2 CTRL, 4 ALT. A key set to 0 goes no further; another number replaces it.
    virtual void OnKeyDown(int& keyCode, int shift) = 0;
    virtual void OnKeyPress(int& keyAscii) = 0; // UTF-16 code units, control characters too
    virtual void OnKeyUp(int& keyCode, int shift) = 0;
    virtual void OnGotFocus() = 0;
    virtual void OnLostFocus() = 0;

protected:
    ~TextBoxListener() = default;
};

// A single-line edit window without border. It draws all of its text at each repaint, so of a very long text the window
// holds what can show until the user goes to work on it; whoever asks for the text gets all of it. Without its window
// (not created, or destroyed with its parent) every operation does nothing and reads as empty. Positions count UTF-16
// code units; pixels throughout.
class TextBox {
public:
    TextBox();
    TextBox(const TextBox&) = delete;
    TextBox& operator=(const TextBox&) = delete;
    ~TextBox(); // destroys the window; the listener hears nothing of it

    // Makes the window, hidden. The listener is borrowed, and may be null. Raises the system's error.
    void Create(HWND parent, TextBoxListener* listener);
    HWND Hwnd() const { return m_Window; }
    HWND Parent() const;

    // A text set from code may exceed MaxLength; it ends at its first zero character.
    std::wstring Text() const;
    void SetText(const std::wstring& text);
    unsigned TextsSet() const { return m_TextsSet; } // so far: tells whether someone has set another one since
    bool IsModified() const;                         // by the user, since the flag was cleared
    void SetModified(bool modified);
    void SetMaxLength(long length); // for what the user types and pastes; 0: no limit

    long SelStart() const;
    long SelLength() const;
    void Select(long start, long length);
    void SelectAll(); // the very long text stays as it is

    // OLE colours. The parent answers WM_CTLCOLOREDIT of this window with the result of OnCtlColor.
    void SetBackColor(Color color);
    void SetForeColor(Color color);
    HBRUSH OnCtlColor(HDC dc); // null for want of a brush
    void SetFont(const FontDescription& font);
    void SetLeftMargin(int pixels);

    // A disabled box takes no keys, but keeps the focus; its text is gray.
    void SetEnabled(bool enabled);
    bool IsVisible() const; // its own flag, whatever its parent's
    void SetVisible(bool visible);
    void Move(int left, int top, int width, int height); // the z-order stays
    void SetFocus();

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR box);
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnKey(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnDialogCode(HWND window, WPARAM wParam, LPARAM lParam);
    LRESULT OnSetText(HWND window, const wchar_t* text);
    LRESULT OnGetText(wchar_t* buffer, std::size_t size) const;
    template <class Call> bool Tell(Call&& call);
    bool HoldsBeginning() const { return !m_Whole.empty(); }
    void ShowWhole();
    void ShowBeginning();
    void Repaint();

    HWND m_Window = nullptr;
    std::wstring m_Whole; // the text of which the window holds the beginning; empty when it holds all
    TextBoxListener* m_Listener = nullptr;
    unsigned m_TextsSet = 0;
    std::shared_ptr<char> m_Life; // a callback that destroys the box is seen by a weak reference to it
    bool m_Enabled = true;
    Color m_BackColor;
    Color m_ForeColor;
    CBrush m_Background;
    CFont m_Font;
};

} // namespace ormisk
