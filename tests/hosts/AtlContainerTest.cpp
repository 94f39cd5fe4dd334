// The control in a container that is not ours: the system's own, where it is created and used by names only.

#include "../control/HandleCount.h"
#include "../control/InDialog.h"

#include <bit>
#include <ole2.h>
#include <windows.h>
#include <wrl/client.h>

#include <comutil.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace ormisk::test {
namespace {

using Microsoft::WRL::ComPtr;

// An object of which nothing is known but the names of its members.
class LateBound {
public:
    LateBound() = default;
    explicit LateBound(IUnknown* object) { EXPECT_EQ(object->QueryInterface(IID_PPV_ARGS(&m_Object)), S_OK); }

    // Arguments in the order in which they are written. What the member returns goes to `value`.
    HRESULT Try(const wchar_t* member, WORD flags, std::vector<_variant_t> arguments = {},
                _variant_t* value = nullptr) const {
        DISPID id = DISPID_UNKNOWN;
        auto* name = const_cast<LPOLESTR>(member);
        const HRESULT known = m_Object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        EXPECT_EQ(known, S_OK) << member;
        if (FAILED(known))
            return known;
        std::reverse(arguments.begin(), arguments.end());
        DISPID put = DISPID_PROPERTYPUT;
        const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPPARAMS parameters = {arguments.data(), puts ? &put : nullptr, static_cast<UINT>(arguments.size()),
                                 puts ? 1u : 0u};
        return m_Object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, value, nullptr, nullptr);
    }

    // The same, of which success is expected.
    _variant_t Call(const wchar_t* member, std::vector<_variant_t> arguments = {}) const {
        _variant_t value;
        EXPECT_EQ(Try(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments), &value), S_OK) << member;
        return value;
    }
    LateBound Object(const wchar_t* member, std::vector<_variant_t> arguments = {}) const {
        const _variant_t value = Call(member, std::move(arguments));
        return LateBound(V_DISPATCH(&value));
    }
    void Put(const wchar_t* member, const _variant_t& value) const {
        EXPECT_EQ(Try(member, DISPATCH_PROPERTYPUT, {value}), S_OK) << member;
    }

    IDispatch* Dispatch() const { return m_Object.Get(); }
    void Release() { m_Object.Reset(); }

private:
    ComPtr<IDispatch> m_Object;
};

// A function of a library that stays loaded.
template <class Function> Function* Import(const std::wstring& library, const char* name) {
    const HMODULE module = LoadLibraryW(library.c_str());
    return std::bit_cast<Function*>(module ? GetProcAddress(module, name) : nullptr);
}

using ServerCall = HRESULT WINAPI();

// A function of OrmiskGrid.ocx from the folder of this program.
ServerCall* ServerImport(const char* name) {
    wchar_t path[MAX_PATH];
    const std::wstring own(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    return Import<ServerCall>(own.substr(0, own.find_last_of(L"\\/") + 1) + L"OrmiskGrid.ocx", name);
}

// The tests need the control registered; it stays so.
class Registered : public testing::Environment {
public:
    void SetUp() override {
        ASSERT_EQ(ServerImport("DllRegisterServer")(), S_OK);
        ASSERT_TRUE(Import<BOOL WINAPI()>(L"atl.dll", "AtlAxWinInit")());
    }
};

[[maybe_unused]] const testing::Environment* const kRegistered = testing::AddGlobalTestEnvironment(new Registered);

void PumpMessages() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// A window of the system's container with the grid in it.
class AtlContainer {
public:
    AtlContainer() {
        using Create = HRESULT WINAPI(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);
        const auto create = Import<Create>(L"atl.dll", "AtlAxCreateControlEx");
        m_Window = CreateWindowExW(0, L"AtlAxWin", L"", WS_POPUP | WS_VISIBLE, 10, 10, 300, 300, nullptr, nullptr,
                                   GetModuleHandleW(nullptr), nullptr);
        ComPtr<IUnknown> control;
        EXPECT_EQ(create(L"Ormisk.OrmiskGrid", m_Window, nullptr, &m_Container, &control, IID_NULL, nullptr), S_OK);
        grid = LateBound(control.Get());
        properties = grid.Object(L"Properties");
        PumpMessages();
    }
    ~AtlContainer() {
        Release();
        Destroy();
    }
    AtlContainer(const AtlContainer&) = delete;
    AtlContainer& operator=(const AtlContainer&) = delete;

    LateBound grid;
    LateBound properties;

    HWND Window() const { return m_Window; }
    HWND GridWindow() const {
        return reinterpret_cast<HWND>(static_cast<INT_PTR>(static_cast<long>(grid.Call(L"hwnd"))));
    }

    // Two rows in a category, and the editor of the first one open.
    void FillForEdit() const {
        grid.Put(L"ActiveView", 1L);
        properties.Call(L"Add", {L"A", L"one", L"Cat"});
        properties.Call(L"Add", {L"B", L"two", L"Cat"});
        grid.Call(L"StartPropertyEdit", {_variant_t(properties.Object(L"Item", {1L}).Dispatch())});
        PumpMessages();
    }

    static _variant_t ToName(long type) { return _variant_t((L"Type " + std::to_wstring(type)).c_str()); }

    // A row of an editor type, and its editor opened.
    LateBound Open(long type, const _variant_t& value) const {
        LateBound row =
            properties.Object(L"Add", {ToName(type), value, L"", L"", static_cast<IDispatch*>(nullptr), true, type});
        grid.Call(L"StartPropertyEdit", {_variant_t(row.Dispatch())});
        PumpMessages();
        return row;
    }

    // Reads and calls whatever a host might: each call succeeds or fails, and comes back.
    void UseEverything() const {
        for (const wchar_t* name : {L"ActiveView", L"Font", L"Picture", L"SelectedProperty", L"Version", L"hwnd",
                                    L"Recordset", L"ColumnDividerPosition", L"DescriptionPaneHeight", L"Indentation"})
            grid.Try(name, DISPATCH_PROPERTYGET);
        for (const long value : {1L, 0L})
            for (const wchar_t* name :
                 {L"ActiveView", L"LockRefresh", L"Headers", L"ShowTabs", L"Appearance", L"Unicode",
                  L"ColumnDividerPosition", L"BorderStyle", L"DescriptionPaneHeight", L"Enabled", L"NameCaption",
                  L"BackColor", L"Indentation", L"RecordsetToolbar", L"ReadOnly"})
                grid.Try(name, DISPATCH_PROPERTYPUT, {value});
        grid.Try(L"Refresh", DISPATCH_METHOD);
        grid.Try(L"ExpandCategory", DISPATCH_METHOD, {L"Cat", false});
        grid.Try(L"SetEditorParam", DISPATCH_METHOD, {2L, L"MaxLength", L"5"});
        grid.Try(L"UnRegisterEditor", DISPATCH_METHOD, {L"none"});
        _variant_t added;
        properties.Try(L"Add", DISPATCH_METHOD, {L"Late", L"value", L"Cat"}, &added);
        grid.Try(L"SelectedProperty", DISPATCH_PROPERTYPUTREF, {added});
        grid.Try(L"StartPropertyEdit", DISPATCH_METHOD, {added});
        properties.Try(L"Remove", DISPATCH_METHOD, {1L});
        properties.Try(L"Clear", DISPATCH_METHOD);
        PumpMessages();
    }

    // The container lets the control go; the test's own references stay.
    void Destroy() {
        const HWND window = std::exchange(m_Window, nullptr);
        if (IsWindow(window))
            DestroyWindow(window);
        m_Container.Reset();
    }

    // The test's own references go.
    void Release() {
        properties.Release();
        grid.Release();
    }

private:
    HWND m_Window = nullptr;
    ComPtr<IUnknown> m_Container;
};

// Rows whose editors open dialogs, and values that they take: a font, a file, a folder, a picture.
const std::pair<long, _variant_t> kDialogRows[] = {{5L, _variant_t(static_cast<IDispatch*>(nullptr))},
                                                   {7L, L"C:\\windows\\win.ini"},
                                                   {8L, L"C:\\windows"},
                                                   {11L, _variant_t(static_cast<IDispatch*>(nullptr))}};
constexpr long kDate = 6, kColor = 10;

// A test after which nothing may be left: no object of the server, no window, no drawing handle.
class GridInContainer : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_GE(OleInitialize(nullptr), S_OK);
        // The system keeps windows and drawing handles of its own from their first use on.
        for (int i = 0; i < 2; ++i) {
            AtlContainer warm;
            warm.Open(kColor, 255L);
            for (const auto& [type, value] : kDialogRows) {
                const InDialog dialog;
                warm.Open(type, value);
            }
            warm.FillForEdit();
            warm.UseEverything();
        }
        PumpMessages();
        m_Before = {};
    }
    void TearDown() override {
        PumpMessages();
        EXPECT_EQ(ServerImport("DllCanUnloadNow")(), S_OK) << "objects leaked";
        m_Before.ExpectNoMore();
        OleUninitialize();
    }

private:
    Inventory m_Before;
};

TEST_F(GridInContainer, RowsAreNotOnScreenOrDoNotFollowTheContainersSize) {
    AtlContainer host;
    for (const wchar_t* name : {L"ShowTabs", L"ShowDescription", L"Headers", L"Appearance", L"Grid"})
        host.grid.Put(name, 0L);
    host.properties.Object(L"Add", {L"Red"}).Put(L"BackColor", 0x0000FFL);
    PumpMessages();
    const HDC dc = GetDC(host.Window());
    UpdateWindow(host.Window());
    EXPECT_EQ(GetPixel(dc, 100, 5), RGB(255, 0, 0));
    ReleaseDC(host.Window(), dc);
    for (const SIZE size : {SIZE{400, 200}, SIZE{0, 0}, SIZE{30, 700}}) {
        SetWindowPos(host.Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        PumpMessages();
        RECT client;
        GetClientRect(host.GridWindow(), &client);
        EXPECT_EQ(client.right, size.cx);
        EXPECT_EQ(client.bottom, size.cy);
    }
}

// The palette of a colour row is no child of the container.
TEST_F(GridInContainer, APaletteStaysBehindItsContainer) {
    const auto palette = [] {
        HWND found = nullptr;
        while ((found = FindWindowExW(nullptr, found, L"OrmiskPane", nullptr)) && !IsWindowVisible(found)) {
        }
        return found;
    };
    AtlContainer host;
    host.Open(kColor, 255L);
    ASSERT_TRUE(palette());
    host.Destroy();
    EXPECT_FALSE(palette());
}

TEST_F(GridInContainer, ADialogOrACalendarIsLeftOfAContainerThatGoes) {
    for (const bool goes : {false, true})
        for (const auto& [type, value] : kDialogRows) {
            AtlContainer host;
            InDialog dialog(
                [&] {
                    if (const HWND box = NameBox(Dialog()))
                        SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"C:\\windows\\system.ini"));
                    if (goes)
                        host.Destroy();
                },
                IDOK);
            const LateBound row = host.Open(type, value);
            EXPECT_EQ(dialog.Seen(), 1) << type;
            EXPECT_FALSE(Dialog());
            if (!goes && type == 7)
                EXPECT_EQ(row.Call(L"Value"), _variant_t(L"C:\\windows\\system.ini"));
        }
    AtlContainer host;
    host.Open(kDate, _variant_t(43876.0, VT_DATE));
    const HWND calendar = FindWindowW(L"SysMonthCal32", nullptr);
    EXPECT_TRUE(calendar && IsWindowVisible(calendar));
    host.Destroy();
    EXPECT_FALSE(IsWindow(calendar));
}

TEST_F(GridInContainer, TheControlNeedsMoreThanItsContainerToLive) {
    AtlContainer host;
    host.FillForEdit();
    const HWND window = host.GridWindow();
    host.Release();
    PumpMessages();
    EXPECT_TRUE(IsWindowVisible(window));
    SendMessageW(window, WM_SETFOCUS, 0, 0);
    host.Destroy();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(GridInContainer, ADeactivatedOrClosedControlDoesNotAnswer) {
    AtlContainer host;
    host.FillForEdit();
    ComPtr<IOleObject> object;
    ComPtr<IOleInPlaceObject> place;
    ASSERT_EQ(host.grid.Dispatch()->QueryInterface(IID_PPV_ARGS(&object)), S_OK);
    ASSERT_EQ(object.As(&place), S_OK);
    EXPECT_EQ(place->UIDeactivate(), S_OK);
    EXPECT_EQ(place->InPlaceDeactivate(), S_OK);
    host.UseEverything();
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    host.UseEverything();
    object->SetClientSite(nullptr);
    host.UseEverything();
    object->Close(OLECLOSE_NOSAVE);
}

} // namespace
} // namespace ormisk::test
