#pragma once

#include "platform/SplitterGeometry.h"

#include <windows.h>

namespace ormisk {

class CSplitter;

enum class MousePointer : int { Default = 0, SizeNS = 7, SizeWE = 9 };

// The window whose area is split; told in its own units, which are those of its scale mode.
class SplitterContainer {
public:
    virtual HWND hWnd() const = 0;
    virtual float ScaleWidth() const = 0;
    virtual float ScaleHeight() const = 0;
    virtual float PixelsToUnitsX(float pixels) const = 0;
    virtual float PixelsToUnitsY(float pixels) const = 0;
    virtual float UnitsToPixelsX(float units) const = 0;
    virtual float UnitsToPixelsY(float units) const = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;

protected:
    ~SplitterContainer() = default;
};

// One side of a splitter, in the units of the container. A negative size is the pane's to take as none.
class SplitterPane {
public:
    virtual void SetBounds(float left, float top, float width, float height) = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual float Width() const = 0;
    virtual float Height() const = 0;

protected:
    ~SplitterPane() = default;
};

class SplitterListener {
public:
    // After the panes were arranged. The listener may move the bar again.
    virtual void LocationChanged(CSplitter& splitter) = 0;
    // A double click on a vertical bar.
    virtual void SplitterDblClick(CSplitter& splitter) = 0;

protected:
    ~SplitterListener() = default;
};

enum class HiddenPane : int { None = 0, Left = 1, Right = 2, Top = 3, Bottom = 4 };

// A movable divider between two panes in a container. It has no window: the bar is the strip that the panes leave free,
// and the owner passes the container's mouse and resize messages on. Container, panes and listener are not owned and
// may be absent. Locations and sizes are in units of the container.
class CSplitter {
public:
    explicit CSplitter(SplitterListener* listener = nullptr) : m_Listener(listener) {}
    CSplitter(const CSplitter&) = delete;
    CSplitter& operator=(const CSplitter&) = delete;
    ~CSplitter(); // a drag under way ends

    void init(SplitterContainer* container, SplitterPane* firstPane, SplitterPane* secondPane,
              SplitterOrientation orientation);

    bool Locked() const { return m_Locked; }
    void Locked(bool locked); // a locked bar cannot be dragged
    SplitterOrientation Orientation() const { return m_Orientation; }
    void Orientation(SplitterOrientation orientation);
    float SplitterbarSize() const { return m_BarSize; }
    // Whole units, but for a bar that is less than one: it keeps its size. Arranges nothing by itself.
    void SplitterbarSize(float size);
    float SplitterLocation() const { return m_Location; }
    void SplitterLocation(float location); // kept one pixel inside; always arranges the panes
    // The container's units changed: the bar stays where it is, told in the new ones, of which an old one has `factor`.
    void Rescale(float factor, float barSize);

    void ContainerDblClick();
    void ContainerMouseDown(int button, int shift, float x, float y);
    void ContainerMouseMove(int button, int shift, float x, float y);
    void ContainerMouseUp(int button, int shift, float x, float y);
    void ContainerCaptureLost(); // a drag under way ends, and the bar stays
    void ContainerResize();
    void HidePane(HiddenPane pane);

    bool Dragging() const { return m_Dragging; }

private:
    bool Horizontal() const { return m_Orientation == SplitterOrientation::Horizontal; }
    bool FirstHidden() const { return m_HiddenPane == HiddenPane::Left || m_HiddenPane == HiddenPane::Top; }
    bool SecondHidden() const { return m_HiddenPane == HiddenPane::Right || m_HiddenPane == HiddenPane::Bottom; }
    float Extent() const;
    float MinimumExtent() const;
    void UpdateMousePointer();
    void ArrangePanes();
    void ShowOnly(SplitterPane* hidden, SplitterPane* shown);
    void FollowMouse(float x, float y);
    void BeginCapture();
    void EndCapture();
    void EndDrag();
    void DrawRubberBand() const;

    SplitterListener* m_Listener;
    SplitterContainer* m_Container = nullptr;
    SplitterPane* m_FirstPane = nullptr;
    SplitterPane* m_SecondPane = nullptr;
    HiddenPane m_HiddenPane = HiddenPane::None;
    float m_Location = 0;
    float m_PrevLocation = 0;
    bool m_Locked = false;
    bool m_Dragging = false;
    float m_BarSize = 0;
    float m_DragLocation = 0;
    float m_DragMouse = 0;
    SplitterOrientation m_Orientation = SplitterOrientation::Vertical;
};

} // namespace ormisk
