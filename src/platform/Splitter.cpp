#include "platform/Splitter.h"

#include "platform/Rounding.h"
#include "win/Gdi.h"
#include "win/Rects.h"

#include <memory>

namespace ormisk {

namespace {

constexpr int kLeftButton = 1;

} // namespace

CSplitter::~CSplitter() {
    if (m_Dragging)
        EndCapture();
}

void CSplitter::init(SplitterContainer* container, SplitterPane* firstPane, SplitterPane* secondPane,
                     SplitterOrientation orientation) {
    m_FirstPane = firstPane;
    m_SecondPane = secondPane;
    m_Container = container;
    if (!m_Container)
        return;
    // The orientation is still the old one here, a vertical bar at first: so the metric comes from the other direction.
    const float bar = Horizontal() ? m_Container->PixelsToUnitsY(static_cast<float>(GetSystemMetrics(SM_CXFRAME)))
                                   : m_Container->PixelsToUnitsX(static_cast<float>(GetSystemMetrics(SM_CYFRAME)));
    SplitterbarSize(bar);
    m_Location = InitialSplitterLocation(m_Container->ScaleWidth(), m_Container->ScaleHeight(), m_BarSize, orientation);
    Orientation(orientation);
}

void CSplitter::Locked(bool locked) {
    m_Locked = locked;
    UpdateMousePointer();
}

void CSplitter::Orientation(SplitterOrientation orientation) {
    if (orientation != m_Orientation) {
        const float oldExtent = Extent();
        m_Orientation = orientation;
        SplitterLocation(TurnedSplitterLocation(m_Location, oldExtent, Extent()));
    }
    UpdateMousePointer();
}

void CSplitter::SplitterLocation(float location) {
    if (m_Container) {
        const float clamped = ClampedSplitterLocation(location, Extent(), m_BarSize, MinimumExtent());
        if (clamped != m_Location)
            m_PrevLocation = m_Location;
        m_Location = clamped;
    }
    ArrangePanes();
}

void CSplitter::SplitterbarSize(float size) {
    const short whole = RoundToShort(static_cast<double>(size));
    m_BarSize = whole != 0 ? static_cast<float>(whole) : size;
}

void CSplitter::Rescale(float factor, float barSize) {
    m_Location *= factor;
    m_PrevLocation *= factor;
    SplitterbarSize(barSize);
    SplitterLocation(m_Location);
}

void CSplitter::ContainerDblClick() {
    if (!Horizontal()) {
        if (m_Listener)
            m_Listener->SplitterDblClick(*this);
    } else if (!m_Locked) {
        SplitterLocation(m_PrevLocation);
    }
}

void CSplitter::ContainerMouseDown(int button, int, float x, float y) {
    if (button != kLeftButton || m_Dragging || m_Locked || !m_Container)
        return;
    BeginCapture();
    m_DragLocation = m_Location;
    m_DragMouse = Horizontal() ? y : x;
    DrawRubberBand();
}

void CSplitter::ContainerMouseMove(int, int, float x, float y) {
    if (!m_Dragging)
        return;
    DrawRubberBand();
    FollowMouse(x, y);
    DrawRubberBand();
}

void CSplitter::ContainerMouseUp(int, int, float x, float y) {
    if (!m_Dragging)
        return;
    DrawRubberBand();
    FollowMouse(x, y);
    // At the end, also when a listener raises.
    const std::unique_ptr<CSplitter, void (*)(CSplitter*)> release(this, [](CSplitter* bar) { bar->EndCapture(); });
    SplitterLocation(m_DragLocation);
}

void CSplitter::ContainerCaptureLost() {
    if (!m_Dragging)
        return;
    DrawRubberBand();
    EndDrag();
}

void CSplitter::ContainerResize() {
    // Without room for both panes there is nothing to see: they keep their sizes, and with them their proportion, until
    // there is room again.
    if (!m_Container || Extent() < m_BarSize + 2 * MinimumExtent())
        return;
    const auto extentOf = [this](const SplitterPane* pane) {
        if (!pane)
            return 0.0f;
        return Horizontal() ? pane->Height() : pane->Width();
    };
    // A pane that is alone fills the container; the other one's extent is from another time.
    const float first = FirstHidden() ? 0.0f : extentOf(m_FirstPane);
    const float second = SecondHidden() ? 0.0f : extentOf(m_SecondPane);
    const float bar = m_HiddenPane == HiddenPane::None ? m_BarSize : 0.0f;
    SplitterLocation(ProportionalSplitterLocation(m_Location, Extent(), first, second, bar));
}

void CSplitter::HidePane(HiddenPane pane) {
    if (pane == m_HiddenPane)
        return;
    m_HiddenPane = pane;
    ArrangePanes();
}

// The container's size along the bar's movement.
float CSplitter::Extent() const {
    if (!m_Container)
        return 0;
    return Horizontal() ? m_Container->ScaleHeight() : m_Container->ScaleWidth();
}

// The least that a pane keeps: one pixel.
float CSplitter::MinimumExtent() const {
    return Horizontal() ? m_Container->PixelsToUnitsY(1) : m_Container->PixelsToUnitsX(1);
}

void CSplitter::UpdateMousePointer() {
    if (!m_Container)
        return;
    if (m_Locked)
        m_Container->SetMousePointer(MousePointer::Default);
    else
        m_Container->SetMousePointer(Horizontal() ? MousePointer::SizeNS : MousePointer::SizeWE);
}

void CSplitter::ArrangePanes() {
    if (!m_Container)
        return;
    if (FirstHidden())
        return ShowOnly(m_FirstPane, m_SecondPane);
    if (SecondHidden())
        return ShowOnly(m_SecondPane, m_FirstPane);
    const auto panes = [this] {
        return ArrangedPanes(m_Container->ScaleWidth(), m_Container->ScaleHeight(), m_Location, m_BarSize,
                             m_Orientation);
    };
    const auto place = [](SplitterPane* pane, const UnitRect& bounds) {
        if (!pane)
            return;
        pane->SetBounds(bounds.Left, bounds.Top, bounds.Width, bounds.Height);
        pane->SetVisible(true);
    };
    place(m_FirstPane, panes().First);
    if (m_HiddenPane != HiddenPane::None)
        return; // hidden by what the first pane's new size led to, which may have moved the bar too
    place(m_SecondPane, panes().Second);
    if (m_Listener)
        m_Listener->LocationChanged(*this);
}

void CSplitter::ShowOnly(SplitterPane* hidden, SplitterPane* shown) {
    if (hidden)
        hidden->SetVisible(false);
    if (!shown)
        return;
    shown->SetBounds(0, 0, m_Container->ScaleWidth(), m_Container->ScaleHeight());
    shown->SetVisible(true);
}

void CSplitter::FollowMouse(float x, float y) {
    const float mouse = Horizontal() ? y : x;
    m_DragLocation -= m_DragMouse - mouse;
    m_DragMouse = mouse;
}

void CSplitter::BeginCapture() {
    SetCapture(m_Container->hWnd());
    m_Dragging = true;
    RECT client = ToRect(ClientRect(m_Container->hWnd()));
    MapWindowPoints(m_Container->hWnd(), nullptr, reinterpret_cast<POINT*>(&client), 2);
    ClipCursor(&client);
}

void CSplitter::EndCapture() {
    EndDrag(); // first: the mouse that is let go here is not lost
    ReleaseCapture();
}

void CSplitter::EndDrag() {
    m_Dragging = false;
    const RECT desktop = ToRect(WindowRect(GetDesktopWindow()));
    ClipCursor(&desktop);
}

// Inverts the bar's strip on the screen: drawn twice, it is gone.
void CSplitter::DrawRubberBand() const {
    const HWND window = m_Container->hWnd();
    RECT band{};
    if (const WindowDC container(window); container)
        GetClipBox(container.Get(), &band);
    if (Horizontal()) {
        band.top = RoundToLong(m_Container->UnitsToPixelsY(m_DragLocation));
        band.bottom = band.top + GetSystemMetrics(SM_CYFRAME);
    } else {
        band.left = RoundToLong(m_Container->UnitsToPixelsX(m_DragLocation));
        band.right = band.left + GetSystemMetrics(SM_CXFRAME);
    }
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&band), 2);
    if (const WindowDC screen(nullptr); screen) {
        const int mode = SetROP2(screen.Get(), R2_XORPEN);
        Rectangle(screen.Get(), band.left, band.top, band.right, band.bottom);
        SetROP2(screen.Get(), mode);
    }
}

} // namespace ormisk
