#include "AtlContainer.h"

#include <utility>

namespace ormisk::test {
namespace {

constexpr wchar_t kProgId[] = L"Ormisk.OrmiskGrid";

// A function of a library that stays loaded.
template <class Function> Function* Import(const std::wstring& library, const char* name) {
    const HMODULE module = LoadLibraryW(library.c_str());
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(module ? GetProcAddress(module, name) : nullptr));
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

BOOL CALLBACK FindEdit(HWND window, LPARAM found) {
    wchar_t name[100] = L"";
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (!IsWindowVisible(window) || _wcsicmp(name, L"Edit") != 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

} // namespace

void PumpMessages() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

ComPtr<IUnknown> CreateAlone() {
    CLSID id = {};
    ComPtr<IUnknown> control;
    EXPECT_EQ(CLSIDFromProgID(kProgId, &id), S_OK);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)), S_OK);
    return control;
}

AtlContainer::AtlContainer() {
    using Create = HRESULT WINAPI(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);
    m_Window = CreateWindowExW(0, L"AtlAxWin", L"", WS_POPUP | WS_VISIBLE, 10, 10, 300, 300, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    ComPtr<IUnknown> control;
    EXPECT_EQ(Import<Create>(L"atl.dll", "AtlAxCreateControlEx")(kProgId, m_Window, nullptr, &m_Container, &control,
                                                                 IID_NULL, nullptr),
              S_OK);
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
    for (HWND tree = m_Window;;) {
        POINT middle = {client.right / 2, client.bottom / 2};
        MapWindowPoints(m_Window, tree, &middle, 1);
        const HWND child = ChildWindowFromPointEx(tree, middle, CWP_SKIPINVISIBLE);
        if (!child || child == tree)
            return tree;
        tree = child;
    }
}

void AtlContainer::FillForEdit() const {
    grid.Put(L"ActiveView", 1L);
    properties.Call(L"Add", {L"A", L"one", L"Cat"});
    properties.Call(L"Add", {L"B", L"two", L"Cat"});
    grid.Call(L"StartPropertyEdit", {_variant_t(properties.Object(L"Item", {1L}).Dispatch())});
    PumpMessages();
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
    for (const wchar_t* name : {L"ActiveView", L"Font", L"Picture", L"SelectedProperty", L"Version", L"hwnd",
                                L"Recordset", L"ColumnDividerPosition", L"DescriptionPaneHeight", L"Indentation"})
        grid.Try(name, DISPATCH_PROPERTYGET);
    const std::pair<const wchar_t*, _variant_t> settings[] = {{L"ActiveView", 1L},
                                                              {L"LockRefresh", true},
                                                              {L"LockRefresh", false},
                                                              {L"Headers", 1L},
                                                              {L"ShowTabs", false},
                                                              {L"Appearance", 0L},
                                                              {L"ColumnDividerPosition", -1},
                                                              {L"BackColor", 0x123456},
                                                              {L"BorderStyle", 1L},
                                                              {L"DescriptionPaneHeight", 0},
                                                              {L"Enabled", false},
                                                              {L"Unicode", true},
                                                              {L"NameCaption", L"N"},
                                                              {L"Indentation", 5},
                                                              {L"RecordsetToolbar", 1L},
                                                              {L"ReadOnly", true}};
    for (const auto& [name, value] : settings)
        grid.Try(name, DISPATCH_PROPERTYPUT, {value});
    grid.Try(L"Refresh", DISPATCH_METHOD);
    grid.Try(L"ExpandCategory", DISPATCH_METHOD, {L"Cat", false});
    grid.Try(L"SetEditorParam", DISPATCH_METHOD, {2L, L"MaxLength", L"5"});
    grid.Try(L"UnRegisterEditor", DISPATCH_METHOD, {L"none"});
    _variant_t rows;
    grid.Try(L"Properties", DISPATCH_PROPERTYGET, {}, &rows);
    if (V_VT(&rows) == VT_DISPATCH) {
        const LateBound all(V_DISPATCH(&rows));
        _variant_t added;
        all.Try(L"Add", DISPATCH_METHOD, {L"Late", L"value", L"Cat"}, &added);
        grid.Try(L"SelectedProperty", DISPATCH_PROPERTYPUTREF, {added});
        grid.Try(L"StartPropertyEdit", DISPATCH_METHOD, {added});
        all.Try(L"Remove", DISPATCH_METHOD, {1L});
        all.Try(L"Clear", DISPATCH_METHOD);
    }
    PumpMessages();
}

void GridInContainer::SetUp() {
    ASSERT_GE(OleInitialize(nullptr), S_OK);
    // The system keeps windows and drawing handles of its own from their first use on.
    for (int i = 0; i < 2; ++i) {
        AtlContainer warm;
        AtlContainer beside;
        beside.FillForEdit();
        warm.FillForEdit();
        warm.properties.Object(L"Item", {1L}).Put(L"Bold", true);
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
    EXPECT_EQ(ServerImport("DllCanUnloadNow")(), S_OK) << "objects leaked";
    EXPECT_EQ(LiveWindows(), m_Windows) << "windows leaked";
    EXPECT_EQ(LiveGdiHandles(), m_Handles) << "drawing handles leaked";
    OleUninitialize();
}

} // namespace ormisk::test
