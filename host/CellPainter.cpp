#include "CellPainter.h"

#include "Failure.h"

#include <olectl.h>

#include <memory>
#include <type_traits>

namespace ormisk {
namespace {

struct DeleteBrush {
    void operator()(HBRUSH brush) const { DeleteObject(brush); }
};

COLORREF Resolved(OLE_COLOR color) {
    COLORREF resolved = 0;
    Check(OleTranslateColor(color, nullptr, &resolved), L"A colour is not one");
    return resolved;
}

void NeedContext(HDC context) {
    if (GetObjectType(context) == 0)
        throw Failure{L"There is no such drawing context"};
}

} // namespace

void FillPart(HDC context, const RECT& part, OLE_COLOR color) {
    NeedContext(context);
    const std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteBrush> brush(CreateSolidBrush(Resolved(color)));
    FillRect(context, &part, brush.get());
}

void WritePart(HDC context, const RECT& part, const std::wstring& text, OLE_COLOR color) {
    NeedContext(context);
    const COLORREF oldColor = SetTextColor(context, Resolved(color));
    const int oldMode = SetBkMode(context, TRANSPARENT);
    RECT place = part;
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    SetBkMode(context, oldMode);
    SetTextColor(context, oldColor);
}

} // namespace ormisk
