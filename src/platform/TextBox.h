#pragma once

#include "platform/ChildWindow.h"

#include <string>

namespace ormisk {

// A single-line edit window without border. It draws all of its text at each repaint, so of a very long text the window
// holds what can show until the user goes to work on it; whoever asks for the text gets all of it. Positions count
// UTF-16 code units.
class TextBox final : public ChildWindow {
public:
    // Makes the window, hidden. Raises the system's error.
    void Create(HWND parent, ChildWindowListener* listener);

    // A text set from code may exceed MaxLength; it ends at its first zero character.
    std::wstring Text() const;
    void SetText(const std::wstring& text);
    unsigned TextsSet() const { return m_TextsSet; } // so far: tells whether someone has set another one since
    bool IsModified() const;                         // by the user, since the flag was cleared
    void SetModified(bool modified);
    void PassMouse() { m_PassesMouse = true; } // to the window below it
    void SetReadOnly(bool readOnly);           // the text can be read and copied
    void SetMaxLength(long length);            // for what the user types and pastes; 0: no limit

    long SelStart() const;
    long SelLength() const;
    void Select(long start, long length);
    void SelectAll(); // the very long text stays as it is

    void SetLeftMargin(int pixels); // whatever the font
    void SetFontHandle(HFONT font) override;

private:
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFocusChanged(bool gained) override;
    LRESULT OnSetText(const wchar_t* text);
    LRESULT OnGetText(wchar_t* buffer, std::size_t size) const;
    bool HoldsBeginning() const { return !m_Whole.empty(); }
    void ShowWhole();
    void ShowBeginning();

    std::wstring m_Whole; // the text of which the window holds the beginning; empty when it holds all
    unsigned m_TextsSet = 0;
    int m_LeftMargin = 0;
    bool m_PassesMouse = false;
};

} // namespace ormisk
