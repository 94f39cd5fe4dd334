#include "grid/ChromeLayout.h"

#include "platform/Rounding.h"

#include <algorithm>
#include <numeric>

namespace ormisk {

TabStrip::TabStrip(UnitScale scale, Size client, Size caption, bool unicode) : m_Scale(scale) {
    const long widest = unicode ? RoundToLong(caption.cx * 2.5) : caption.cx;
    m_Width = RoundToLong(RoundToLong(scale.ToUnits(widest, Axis::X)) * 1.4 + scale.ToUnits(10, Axis::X) + 3.0);
    m_Height = RoundToLong(RoundToLong(scale.ToUnits(caption.cy, Axis::Y)) * 1.5);
    const double room = scale.ToUnits(client.cx, Axis::X);
    if (room < 2 * m_Width)
        m_Width = RoundToLong(room / 2.0 - scale.ToUnits(1, Axis::X));
}

Point TabStrip::At(double x, double y) const {
    return {RoundToLong(m_Scale.ToPixels(static_cast<float>(x), Axis::X)),
            RoundToLong(m_Scale.ToPixels(static_cast<float>(y), Axis::Y))};
}

Rect TabStrip::Tab(int index) const {
    const Point end = At((index + 1) * m_Width, m_Height);
    return {At(index * m_Width, 0).x, 0, end.x, end.y};
}

TabStrip::Face TabStrip::TabFace(int index, bool behind) const {
    const double px = m_Scale.ToUnits(1, Axis::X);
    const double py = m_Scale.ToUnits(1, Axis::Y);
    const double start = index * m_Width;
    const double left = RoundToLong(start + (behind && index == 0 ? 3 * px : 0));
    const double top = RoundToLong(behind ? 3 * py : 0);
    const double right = start + m_Width;
    const double shoulder = top + 2 * py;
    const Point corner = At(left, top);
    const Point end = At(right, m_Height);
    return {{{{Shade::Lighter, At(start, m_Height), At(left, m_Height)},
              {Shade::Lighter, At(left, m_Height), At(left, shoulder)},
              {Shade::Lighter, At(left, shoulder), At(left + 2 * px, top)},
              {Shade::Lighter, At(left + 2 * px, top), At(right - 2 * px, top)},
              {Shade::Darker, At(right - 2 * px, top), At(right, shoulder)},
              {Shade::Darker, At(right, shoulder), end},
              {Shade::Dark, At(right - px, shoulder), At(right - px, m_Height)}}},
            {corner.x + 5, corner.y + 3, end.x - 5, end.y - 1}};
}

std::array<ShadedLine, 7> TabStrip::Page(Size client, int front) const {
    const double px = m_Scale.ToUnits(1, Axis::X);
    const double py = m_Scale.ToUnits(1, Axis::Y);
    const double w = m_Scale.ToUnits(client.cx, Axis::X);
    const double h = m_Scale.ToUnits(client.cy, Axis::Y);
    const double top = m_Height;
    return {{{Shade::Lighter, At(0, top), At(0, h)},
             {Shade::Lighter, At(0, top), At(front * m_Width, top)},
             {Shade::Lighter, At((front + 1) * m_Width, top), At(w - px, top)},
             {Shade::Darker, At(0, h - py), At(w - px, h - py)},
             {Shade::Darker, At(w - px, top), At(w - px, h)}, // with the corner
             {Shade::Dark, At(px, h - 2 * py), At(w - px, h - 2 * py)},
             {Shade::Dark, At(w - 2 * px, top), At(w - 2 * px, h - 2 * py)}}};
}

Rect HeaderCaption(Size client) {
    const long left = RoundToLong(client.cx / 4.0);
    return {left, 0, left + RoundToLong(client.cx / 2.0), client.cy};
}

Point SortArrowPlace(Size client) {
    const long x = RoundToLong(client.cx - client.cx / 4.0);
    const bool touches = x + kSortArrowSize > client.cx - 2;
    return {touches ? x - kSortArrowSize : x, RoundToLong((client.cy - kSortArrowSize) / 2.0)};
}

Rect HelpCaption(Size client, long rowHeight) { return {2, 2, client.cx - 2, 2 + rowHeight}; }

Rect HelpText(Size client, long rowHeight) {
    const Rect caption = HelpCaption(client, rowHeight);
    return {caption.left, caption.bottom + 2, caption.right, caption.bottom + client.cy};
}

long DescriptionHeight(long textHeight, long rowHeight) { return textHeight + rowHeight + 4 + 4; }

ToolbarPlaces LayoutToolbar(Size text, long total, Size container, bool framed) {
    constexpr long kAir = 4;
    const long height = text.cy + 2;
    const long margin = framed ? 4 : 0; // the frame of the page, and as much air
    const long bottom = container.cy - margin;
    ToolbarPlaces places{{margin, bottom - height - 2 * kAir, container.cx - margin, bottom}, {}};
    // The number is eight letters wide.
    std::array<long, 6> widths{height, height, text.cx / 2 * 8, total, height, height};
    for (const std::size_t part : {3, 2, 0, 5})
        if (std::accumulate(widths.begin(), widths.end(), 2 * kAir) > places.strip.Width())
            widths[part] = 0;
    long x = kAir;
    for (std::size_t i = 0; i < places.parts.size(); ++i) {
        places.parts[i] = {x, kAir, x + widths[i], kAir + height};
        x += widths[i];
    }
    return places;
}

ToolbarArrow LayoutArrow(Size button, bool toLeft, bool withBar) {
    const long depth = std::max(std::min(button.cx, button.cy) / 4, 1L);
    const long bar = depth + (withBar ? 2 : 0); // from the apex
    const long start = (button.cx - bar - 1) / 2;
    const long middle = (button.cy - 1) / 2;
    const auto point = [&](long along, long across) {
        return Point{toLeft ? start + along : start + bar - along, middle + across};
    };
    return {{point(0, 0), point(depth, -depth), point(depth, depth)}, {point(bar, -depth), point(bar, depth + 1)}};
}

} // namespace ormisk
