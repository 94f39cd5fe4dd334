#pragma once

#include "platform/Color.h"
#include "platform/Scale.h"
#include "platform/Splitter.h"
#include "win/Rects.h"

#include <unknwn.h>
#include <windows.h>

namespace ormisk {

class Pane;

enum class MouseStage { Down = 0, Move = 1, Up = 2 };

// A mouse event of a pane: buttons 1 left, 2 right, 4 middle; modifiers 1 Shift, 2 Ctrl, 4 Alt; pixels of the pane. For
// a move, `button` holds all buttons that are down.
struct MouseEvent {
    MouseStage stage = MouseStage::Down;
    int button = 0;
    int shift = 0;
    int x = 0;
    int y = 0;
};

// What a pane reports. A handler may do anything, also destroy the pane.
class PaneListener {
public:
    // What is held while one message is handled: whatever must outlive it, with the listener in it. Null holds nothing.
    virtual IUnknown* Keeper() { return nullptr; }
    // Every message, before the pane itself. True when it was answered in `result`: the pane then does nothing.
    virtual bool OnMessage(Pane&, UINT, WPARAM, LPARAM, LRESULT& /*result*/) { return false; }
    virtual void OnPaint(Pane&, HDC, const Rect& /*clip*/) {}
    virtual void OnMouse(Pane&, const MouseEvent&) {}
    // Another window, or the system, took the mouse while a button was down: it will not be told that it comes up.
    virtual void OnCaptureLost(Pane&) {}
    virtual void OnClick(Pane&) {}
    virtual void OnDblClick(Pane&) {}
    virtual void OnKeyDown(Pane&, int& /*keyCode*/, int /*shift*/) {} // code 0 keeps the key from the system
    virtual void OnKeyUp(Pane&, int& /*keyCode*/, int /*shift*/) {}
    virtual void OnKeyPress(Pane&, int& /*keyAscii*/) {}
    virtual void OnFocusChange(Pane&, bool /*gained*/) {}
    virtual void OnResize(Pane&) {}

protected:
    ~PaneListener() = default;
};

// A plain child window that its owner draws: the surface of which everything in the control is made. It has a scale,
// that of the pane around it too, in which it is placed; it serves as container and as pane of a splitter. The window
// is owned.
class Pane final : public SplitterContainer, public SplitterPane {
public:
    Pane() = default;
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;
    ~Pane() { Destroy(); }

    struct Options {
        bool takesFocus = false; // by click
        bool erases = true;      // fill with the back colour before painting
        bool visible = true;
        bool popup = false; // not in its parent: over all other windows, with its frame as owner
    };
    // Makes the window, of no size. Raises when the system refuses it.
    void Create(HWND parent, PaneListener& listener, Options options);
    void Destroy();

    HWND hWnd() const override { return m_hWnd; }
    bool IsAlive() const { return m_hWnd != nullptr; }

    void SetScale(ScaleMode mode) { m_Scale = mode; }
    ScaleMode Scale() const { return m_Scale; }
    UnitScale Units() const;
    Size ClientSize() const; // pixels
    float ScaleWidth() const override { return Units().ToUnits(ClientSize().cx, Axis::X); }
    float ScaleHeight() const override { return Units().ToUnits(ClientSize().cy, Axis::Y); }
    float PixelsToUnitsX(float pixels) const override { return Units().ToUnits(pixels, Axis::X); }
    float PixelsToUnitsY(float pixels) const override { return Units().ToUnits(pixels, Axis::Y); }
    float UnitsToPixelsX(float units) const override { return Units().ToPixels(units, Axis::X); }
    float UnitsToPixelsY(float units) const override { return Units().ToPixels(units, Axis::Y); }

    void SetBounds(float left, float top, float width, float height) override;
    void MovePixels(const Rect& place);
    float Width() const override { return Units().ToUnits(WindowRect(m_hWnd).Width(), Axis::X); }
    float Height() const override { return Units().ToUnits(WindowRect(m_hWnd).Height(), Axis::Y); }
    void SetVisible(bool visible) override;
    void BringToTop();

    void SetBackColor(Color color); // a system colour is resolved when it is painted
    Color BackColor() const { return m_BackColor; }
    enum class Border { None, Line, Sunken };
    void SetBorder(Border border);
    void SetMousePointer(MousePointer pointer) override { m_MousePointer = pointer; }

    void Invalidate(bool erase);
    void Invalidate(const Rect& part, bool erase);
    void Refresh(); // paints at once

    void TakeFocus();
    bool HasFocus() const { return m_hWnd && GetFocus() == m_hWnd; }

private:
    static LRESULT CALLBACK WindowProc(HWND, UINT, WPARAM, LPARAM);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleKey(UINT message, WPARAM wParam);
    bool HandlePainting(UINT message, WPARAM wParam);
    void ButtonDown(const MouseEvent& event, bool doubleClick);
    void ButtonUp(const MouseEvent& event);

    HWND m_hWnd = nullptr;
    PaneListener* m_Listener = nullptr;
    Options m_Options;
    ScaleMode m_Scale = ScaleMode::Pixel;
    Color m_BackColor = 0x8000000F;
    MousePointer m_MousePointer = MousePointer::Default;
    bool m_Pressed = false;   // the left button went down here and a click may follow
    bool m_Releasing = false; // the pane lets the mouse go by itself
};

} // namespace ormisk
