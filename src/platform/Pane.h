#pragma once

#include "platform/Geometry.h"
#include "platform/Scale.h"
#include "platform/Splitter.h"

#include <windows.h>

#include <ocidl.h>

namespace ormisk {

class Pane;

// A mouse event of a pane: buttons 1 left, 2 right, 4 middle; modifiers 1 Shift, 2 Ctrl, 4 Alt; pixels of the pane.
struct MouseEvent {
    int button = 0;
    int shift = 0;
    int x = 0;
    int y = 0;
};

// What a pane reports. A handler may do anything, also destroy the pane.
class PaneListener {
public:
    virtual void OnPaint(Pane &, HDC, const RECT & /*clip*/) {}
    virtual void OnMouseDown(Pane &, const MouseEvent &) {}
    virtual void OnMouseMove(Pane &, const MouseEvent &) {}
    virtual void OnMouseUp(Pane &, const MouseEvent &) {}
    virtual void OnClick(Pane &) {}
    virtual void OnDblClick(Pane &) {}
    virtual void OnKeyDown(Pane &, int & /*keyCode*/, int /*shift*/) {}
    virtual void OnKeyUp(Pane &, int & /*keyCode*/, int /*shift*/) {}
    virtual void OnKeyPress(Pane &, int & /*keyAscii*/) {}
    virtual void OnFocusChange(Pane &, bool /*gained*/) {}
    virtual void OnResize(Pane &) {}
    // A message of a child control (scroll bar, colour requests); true when it was answered in `result`.
    virtual bool OnChildMessage(Pane &, UINT, WPARAM, LPARAM, LRESULT & /*result*/) { return false; }

protected:
    ~PaneListener() = default;
};

// Modifier keys held down now: 1 Shift, 2 Ctrl, 4 Alt.
int ShiftState();

// A plain child window that its owner draws: the surface of which everything in the control is made. It has a scale of its
// own, in which its owner places what lies in it; it also serves as container and pane of a splitter. The window is owned.
class Pane final : public SplitterContainer, public SplitterPane {
public:
    Pane() = default;
    Pane(const Pane &) = delete;
    Pane &operator=(const Pane &) = delete;
    ~Pane() { Destroy(); }

    struct Options {
        bool takesFocus = false; // by click and by key
        bool erases = true;      // fill with the back colour before painting
    };
    // Makes the window, hidden and of no size. Raises when the system refuses it.
    void Create(HWND parent, PaneListener &listener, Options options);
    void Destroy();
    // The listener hears nothing more.
    void Mute() { m_Listener = nullptr; }

    HWND hWnd() const override { return m_hWnd; }
    bool IsAlive() const { return m_hWnd != nullptr; }

    // Units.
    void SetScale(ScaleMode mode) { m_Scale = mode; }
    ScaleMode Scale() const override { return m_Scale; }
    float ScaleWidth() const override;
    float ScaleHeight() const override;
    Size ClientSize() const; // pixels
    // Units of this pane for pixels, and pixels for units, unrounded.
    double UnitsX(double pixels) const;
    double UnitsY(double pixels) const;
    double PixelsX(double units) const;
    double PixelsY(double units) const;

    // Placing, in pixels of the parent or in units of the parent's scale.
    void MovePixels(const Rect &place);
    void SetBounds(float left, float top, float width, float height) override;
    float Width() const override;
    float Height() const override;
    void SetVisible(bool visible) override;
    bool IsVisible() const;
    void BringToTop();

    // Look.
    void SetBackColor(OLE_COLOR color);
    OLE_COLOR BackColor() const { return m_BackColor; }
    enum class Border { None, Line, Sunken };
    void SetBorder(Border border);
    void SetMousePointer(int pointer) override; // 0 default, 7 north-south, 9 east-west

    // Painting: invalidates the pane, or a part of it; Refresh paints at once.
    void Invalidate(bool erase = true);
    void Invalidate(const Rect &part, bool erase);
    void Refresh();
    // Draws the pane and nothing of its children.
    void Paint(HDC dc, const RECT &clip);

    void TakeFocus();
    bool HasFocus() const { return m_hWnd && GetFocus() == m_hWnd; }

private:
    static LRESULT CALLBACK WindowProc(HWND, UINT, WPARAM, LPARAM);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleKey(UINT message, WPARAM wParam, LRESULT &result);
    void PaintWindow();
    double ParentScaleOf(double value, bool horizontal) const;

    HWND m_hWnd = nullptr;
    PaneListener *m_Listener = nullptr;
    Options m_Options;
    ScaleMode m_Scale = ScaleMode::Pixels;
    OLE_COLOR m_BackColor = 0x8000000F;
    int m_MousePointer = 0;
    bool m_Pressed = false; // the left button went down here
};

} // namespace ormisk
