#pragma once

#include "platform/TextBox.h"
#include "win/Geometry.h"

#include <memory>

namespace ormisk {

class DialogFieldListener : public ChildWindowListener {
public:
    virtual void OnButton() = 0;

protected:
    ~DialogFieldListener() = default;
};

// A caption, or a box with a text that can be read and copied, and a "..." button at its right end. The mouse passes
// through a caption, but not through its button.
class DialogField final : public ChildWindow {
public:
    enum class Content { Caption, Box };
    // Makes the windows, hidden. The listener is borrowed and hears the keys of them all. Raises the system's error.
    void Create(HWND parent, DialogFieldListener* listener, Content content);

    void SetText(const std::wstring& text);
    bool BoxHasFocus() const { return m_Box.hWnd() && GetFocus() == m_Box.hWnd(); }
    HWND KeyWindow() const { return m_Box.hWnd() ? m_Box.hWnd() : hWnd(); }
    void FocusBox() { m_Box.SetFocus(); }
    // The box and the button in the field.
    void Arrange(const Rect& box, const Rect& button);

    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;
    void SetColors(Color back, Color fore);
    void SetFontHandle(HFONT font) override;
    void SetLeftMargin(int pixels) { m_Box.SetLeftMargin(pixels); }

private:
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnButtonMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnFocusChanged(bool gained) override;
    void DrawFocus() const;

    TextBox m_Box;
    HWND m_Button = nullptr;
    DialogFieldListener* m_FieldListener = nullptr;
};

} // namespace ormisk
