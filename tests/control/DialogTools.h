#pragma once

#include "GridContainer.h"
#include "InDialog.h"

// Rows with a dialog, as a user meets them.
namespace ormisk::test {

// The field of a row with a dialog on screen, and what is in it; null when there is none.
inline HWND FieldOf(const GridContainer& host, const wchar_t* type = L"Static") {
    for (HWND child = GetWindow(host.Tree(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassOf(child) == type && IsWindowVisible(child))
            return child;
    return nullptr;
}
inline HWND ButtonOf(const GridContainer& host) { return FindWindowExW(FieldOf(host), nullptr, L"Button", nullptr); }
inline HWND BoxOf(const GridContainer& host) { return FindWindowExW(FieldOf(host), nullptr, L"Edit", nullptr); }
inline std::wstring FieldText(const GridContainer& host) {
    return TextOfWindow(BoxOf(host) ? BoxOf(host) : FieldOf(host));
}

// As a user comes to a row: the rows have the focus.
inline void GoTo(GridContainer& host, _CProperty* property) {
    SetForegroundWindow(host.window);
    SetFocus(host.Tree());
    host.Select(property);
    host.Heard();
}

// To another window of the program, and back: what has dropped down does not call the user back before.
inline void LeaveForAnotherWindow(GridContainer& host) {
    const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(other);
    SetActiveWindow(other);
    host.Pump();
    EXPECT_EQ(GetActiveWindow(), other);
    DestroyWindow(other);
}

inline _variant_t ValueOf(_CProperty* property) { return Read(property, &_CProperty::get_Value); }

inline std::wstring FontOf(_CProperty* property) {
    const _variant_t value = ValueOf(property);
    const ComPtr<IFont> font = Query<IFont>(ObjectOf(value));
    return font ? Read(font, &IFont::get_Name) + L" " + std::to_wstring(Read(font, &IFont::get_Size).int64 / 100)
                : std::wstring();
}

} // namespace ormisk::test
