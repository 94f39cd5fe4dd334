#pragma once

#include <windows.h>

#include <string>

namespace ormisk {

// The top-level window of the host. Its client area belongs to the control alone.
class HostWindow {
public:
    // What the window tells of.
    class Listener {
    public:
        virtual void OnSized() = 0;
        virtual void OnActivated(bool active) = 0;
        virtual void OnFocused() = 0; // the window itself was given the focus
        virtual void OnClosing() = 0; // the user closes it; it stays until it is destroyed

    protected:
        ~Listener() = default;
    };

    // Makes the window, hidden, with a client area of that size in pixels. The listener outlives it.
    HostWindow(const std::wstring& title, int width, int height, Listener& listener);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Handle() const { return m_Handle; }
    void Show();
    void ResizeClient(int width, int height);
    RECT ClientRect() const;
    RECT ScreenRect() const; // of the client area

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam);

    Listener& m_Listener;
    HWND m_Handle = nullptr;
};

} // namespace ormisk
