#include "grid/EditorPlace.h"

#include "editors/EditorContract.h"
#include "grid/Grid.h"
#include "platform/Rounding.h"
#include "win/Dpi.h"

namespace ormisk {

// Of no size while the row is not displayed: over another row the editor would mislead.
Rect EditorPlace::PlaceFor(const CNode& node) const {
    if (m_Grid.m_ActiveNodes->RowOf(&node) < 0)
        return {};
    return EditorRect(m_Grid.m_Panes.GeometryOf(node).value, m_Grid.m_State.grid != omGridNone);
}

void EditorPlace::Put(_CEditor* editor, const CNode& node) {
    EditorProxy proxy(editor);
    const Rect place = PlaceFor(node);
    m_Place = place;
    if (place == Rect()) {
        proxy.Move(0, 0, 0, 0);
        return;
    }
    const auto mode = static_cast<ScaleMode>(proxy.ScaleMode());
    const int dpi = DpiOf(m_Grid.m_Panes.TreeWnd());
    const auto scaled = [&](long pixels, Axis axis) {
        return RoundToLong(ConvertScale(static_cast<double>(pixels), ScaleMode::Pixel, mode, dpi, axis));
    };
    const long left = scaled(place.left, Axis::X);
    // Without grid lines the top stays in pixels, whatever the editor's scale.
    const long top = m_Grid.m_State.grid != omGridNone ? scaled(place.top, Axis::Y) : place.top;
    const long right = scaled(place.right, Axis::X);
    const long bottom = scaled(place.bottom, Axis::Y);
    proxy.Move(static_cast<float>(left), static_cast<float>(top), static_cast<float>(right - left),
               static_cast<float>(bottom - top));
}

bool EditorPlace::IsOffScreen(const Rect& place) const {
    const LayoutMetrics metrics = m_Grid.m_Panes.Metrics();
    return place.bottom <= metrics.headerHeight || place.top >= metrics.client.cy;
}

bool EditorPlace::IsLeft(const CNode& node) const {
    const Rect place = PlaceFor(node);
    const bool canWait = m_Grid.m_State.lockRefresh && IsOffScreen(place) && IsOffScreen(m_Place);
    return place != m_Place && !canWait;
}

} // namespace ormisk
