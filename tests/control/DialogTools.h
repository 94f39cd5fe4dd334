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

using Deeds = std::vector<std::pair<const char*, void (*)(GridContainer&)>>;

// The ways to the editor of the first row, and those of its kind.
inline Deeds AndOpenings(Deeds all) {
    const Deeds openings = {
        {"F4", [](GridContainer& host) { host.RealKeys({VK_F4}); }},
        {"ALT+DOWN", [](GridContainer& host) { host.RealKeys({VK_DOWN}, VK_MENU); }},
        {"a double click on the name",
         [](GridContainer& host) { host.RealClick(host.Tree(), 30, host.RowTop(0) + 6, 2); }},
        {"a call",
         [](GridContainer& host) { EXPECT_EQ(host->StartPropertyEdit(host.Item(1L).Get()), S_OK), host.Pump(); }},
    };
    all.insert(all.end(), openings.begin(), openings.end());
    return all;
}

// What can happen under what an editor has opened, and under those of its kind.
inline Deeds AndDeeds(Deeds all) {
    const Deeds deeds = {
        {"clear", [](GridContainer& host) { host.Clear(); }},
        {"remove the row", [](GridContainer& host) { host.Remove(1L); }},
        {"select the next", [](GridContainer& host) { host.Select(host.Item(2L).Get()); }},
        {"hide the row", [](GridContainer& host) { host.Item(1L)->put_Visible(VARIANT_FALSE); }},
        {"the other view", [](GridContainer& host) { host->put_ActiveView(omCatagorized); }},
        {"another size", [](GridContainer& host) { host.Resize({200, 150}); }},
        {"load an object",
         [](GridContainer& host) {
             VARIANT_BOOL loaded = VARIANT_FALSE;
             host->LoadObjectProperties(MakeFont().Get(), VARIANT_TRUE, VARIANT_TRUE, &loaded);
         }},
        {"hide the control", [](GridContainer& host) { ShowWindow(host.Window(), SW_HIDE); }},
        {"let the control go", [](GridContainer& host) { host.LetGo(); }},
        {"destroy the form", [](GridContainer& host) { DestroyWindow(host.window); }},
    };
    all.insert(all.end(), deeds.begin(), deeds.end());
    return all;
}

inline _variant_t ValueOf(_CProperty* property) { return Read(property, &_CProperty::get_Value); }

inline std::wstring FontOf(_CProperty* property) {
    const _variant_t value = ValueOf(property);
    const ComPtr<IFont> font = Query<IFont>(ObjectOf(value));
    return font ? Read(font, &IFont::get_Name) + L" " + std::to_wstring(Read(font, &IFont::get_Size).int64 / 100)
                : std::wstring();
}

} // namespace ormisk::test
