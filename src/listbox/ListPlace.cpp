#include "listbox/ListPlace.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr long kMostRows = 12;

} // namespace

Rect PlaceList(const Rect& control, const Rect& work, const ListWish& wish) {
    const long frame = 2 * wish.frame;
    const long above = control.top - work.top;
    const long below = work.bottom - control.bottom;
    const long wanted = std::clamp(wish.entries, 1L, kMostRows);
    const bool up = wanted * wish.rowHeight + frame > below && above > below;
    const long fitting = ((up ? above : below) - frame) / wish.rowHeight;
    const long rows = std::clamp(fitting, 1L, wanted);
    const long height = rows * wish.rowHeight + frame;

    const long bar = rows < wish.entries ? wish.scrollBar : 0;
    const long most = std::max(work.Width() / 2, control.Width());
    const long width = std::clamp(wish.textWidth + bar + frame, control.Width(), most);
    const long left = std::max(std::min(control.left, work.right - width), work.left);
    const long top = up ? control.top - height : control.bottom;
    return {left, top, left + width, top + height};
}

} // namespace ormisk
