#include "AtlContainer.h"

#include <utility>

namespace ormisk::test {
namespace {

using CreateControl = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);

HMODULE Atl() {
    static const HMODULE module = [] {
        const HMODULE atl = LoadLibraryW(L"atl.dll");
        const FARPROC init = atl ? GetProcAddress(atl, "AtlAxWinInit") : nullptr;
        if (init)
            reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(init))();
        return atl;
    }();
    return module;
}

BOOL CALLBACK FindEdit(HWND window, LPARAM found) {
    wchar_t name[100] = L"";
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (!IsWindowVisible(window) || _wcsicmp(name, L"Edit") != 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

} // namespace

AtlContainer::AtlContainer(int width, int height) {
    const auto create =
        reinterpret_cast<CreateControl>(reinterpret_cast<void*>(GetProcAddress(Atl(), "AtlAxCreateControlEx")));
    m_Window = CreateWindowExW(0, L"AtlAxWin", L"", WS_POPUP | WS_VISIBLE, 10, 10, width, height, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    ComPtr<IUnknown> control;
    EXPECT_EQ(create(kProgId, m_Window, nullptr, &m_Container, &control, IID_NULL, nullptr), S_OK);
    grid = LateBound(control.Get());
    properties = grid.Object(L"Properties");
    PumpMessages();
}

AtlContainer::~AtlContainer() {
    Release();
    Destroy();
}

HWND AtlContainer::GridWindow() const {
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(static_cast<long>(grid.Get(L"hwnd"))));
}

HWND AtlContainer::Tree() const {
    RECT client;
    GetClientRect(m_Window, &client);
    HWND tree = m_Window;
    for (HWND child = m_Window; child;) {
        tree = child;
        POINT middle = {client.right / 2, client.bottom / 2};
        MapWindowPoints(m_Window, tree, &middle, 1);
        child = ChildWindowFromPointEx(tree, middle, CWP_SKIPINVISIBLE);
        if (child == tree)
            child = nullptr;
    }
    return tree;
}

void AtlContainer::MakePlain() const {
    grid.Put(L"ShowTabs", false);
    grid.Put(L"ShowDescription", false);
    grid.Put(L"Headers", 0L);
    grid.Put(L"Appearance", 0L);
    grid.Put(L"Grid", 0L);
    PumpMessages();
}

void AtlContainer::AddRow(const wchar_t* name, const _variant_t& value, const wchar_t* category) const {
    properties.Call(L"Add", {name, value, category});
}

void AtlContainer::Destroy() {
    const HWND window = std::exchange(m_Window, nullptr);
    if (IsWindow(window))
        DestroyWindow(window);
    m_Container.Reset();
}

void AtlContainer::Release() {
    properties.Release();
    grid.Release();
}

HWND VisibleEdit(HWND window) {
    HWND found = nullptr;
    EnumChildWindows(window, FindEdit, reinterpret_cast<LPARAM>(&found));
    return found;
}

void UseEverything(const LateBound& grid) {
    for (const wchar_t* name : {L"ActiveView", L"BackColor", L"Font", L"Picture", L"Properties", L"SelectedProperty",
                                L"Version", L"hwnd", L"Recordset", L"ColumnDividerPosition", L"DescriptionPaneHeight",
                                L"Indentation", L"LockRefresh", L"Enabled", L"Headers"})
        grid.Try(name, DISPATCH_PROPERTYGET);
    const std::pair<const wchar_t*, _variant_t> settings[] = {{L"ActiveView", 1L},
                                                              {L"LockRefresh", true},
                                                              {L"LockRefresh", false},
                                                              {L"Headers", 1L},
                                                              {L"ShowTabs", false},
                                                              {L"Appearance", 0L},
                                                              {L"ColumnDividerPosition", -1},
                                                              {L"DescriptionPaneHeight", 0},
                                                              {L"BackColor", 0x123456},
                                                              {L"BorderStyle", 1L},
                                                              {L"Enabled", false},
                                                              {L"Unicode", true},
                                                              {L"Indentation", 5},
                                                              {L"NameCaption", L"N"},
                                                              {L"RecordsetToolbar", 1L},
                                                              {L"ReadOnly", true}};
    for (const auto& [name, value] : settings)
        grid.Try(name, DISPATCH_PROPERTYPUT, {value});
    grid.Try(L"Refresh", DISPATCH_METHOD);
    grid.Try(L"ExpandCategory", DISPATCH_METHOD, {L"Cat", false});
    grid.Try(L"SetEditorParam", DISPATCH_METHOD, {2L, L"MaxLength", L"5"});
    grid.Try(L"UnRegisterEditor", DISPATCH_METHOD, {L"none"});
    const Outcome properties = grid.Try(L"Properties", DISPATCH_PROPERTYGET);
    if (properties.Succeeded() && V_VT(&properties.value) == VT_DISPATCH && V_DISPATCH(&properties.value)) {
        const LateBound rows(V_DISPATCH(&properties.value));
        const Outcome added = rows.Try(L"Add", DISPATCH_METHOD, {L"Late", L"value", L"Cat"});
        if (V_VT(&added.value) == VT_DISPATCH && V_DISPATCH(&added.value)) {
            grid.Try(L"SelectedProperty", DISPATCH_PROPERTYPUTREF, {added.value});
            grid.Try(L"StartPropertyEdit", DISPATCH_METHOD, {added.value});
        }
        rows.Try(L"Remove", DISPATCH_METHOD, {1L});
        rows.Try(L"Clear", DISPATCH_METHOD);
    }
    PumpMessages();
}

void GridInContainer::SetUp() {
    ASSERT_GE(OleInitialize(nullptr), S_OK);
    // The system keeps windows and drawing handles of its own from their first use on.
    for (int i = 0; i < 2; ++i) {
        AtlContainer warm;
        warm.AddRow(L"Warm", L"value", L"Cat|Sub");
        warm.grid.Put(L"ActiveView", 1L);
        warm.grid.PutRef(L"SelectedProperty", warm.properties.Object(L"Item", {1L}));
        warm.properties.Object(L"Item", {1L}).Put(L"Bold", true);
        SendMessageW(warm.Tree(), WM_LBUTTONDOWN, 1, MAKELPARAM(50, 50));
        SendMessageW(warm.Tree(), WM_LBUTTONUP, 0, MAKELPARAM(50, 50));
        PumpMessages();
        UseEverything(warm.grid);
    }
    CountAnew();
}

void GridInContainer::CountAnew() {
    PumpMessages();
    m_Windows = LiveWindows();
    m_Handles = LiveGdiHandles();
}

void GridInContainer::TearDown() {
    PumpMessages();
    EXPECT_TRUE(Server::IsIdle()) << "objects leaked";
    EXPECT_EQ(LiveWindows(), m_Windows) << "windows leaked";
    EXPECT_EQ(LiveGdiHandles(), m_Handles) << "drawing handles leaked";
    OleUninitialize();
}

} // namespace ormisk::test
