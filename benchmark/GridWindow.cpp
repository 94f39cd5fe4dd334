#include "GridWindow.h"

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace ormisk::bench {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 600;

template <class Function> Function Entry(HMODULE module, const char* name) {
    const FARPROC found = GetProcAddress(module, name);
    Need(found ? S_OK : E_NOINTERFACE, name);
    return std::bit_cast<Function>(found);
}

HMODULE Loaded(const std::wstring& path, const char* what) {
    const HMODULE module = LoadLibraryW(path.c_str());
    Need(module ? S_OK : HRESULT_FROM_WIN32(GetLastError()), what);
    return module;
}

std::wstring OwnFolder() {
    wchar_t path[MAX_PATH];
    const std::wstring own(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    return own.substr(0, own.find_last_of(L"\\/") + 1);
}

} // namespace

void Need(HRESULT result, const char* what) {
    if (SUCCEEDED(result))
        return;
    std::fprintf(stderr, "ormisk-bench: %s: error %08lx\n", what, static_cast<unsigned long>(result));
    std::exit(1);
}

ComPtr<IClassFactory> ClassIn(const wchar_t* server, REFCLSID id) {
    const auto classObject = Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(Loaded(OwnFolder() + server, "a server"),
                                                                               "DllGetClassObject");
    ComPtr<IClassFactory> factory;
    Need(classObject(id, IID_PPV_ARGS(&factory)), "a class");
    return factory;
}

GridWindow::GridWindow() {
    m_Atl = Loaded(L"atl.dll", "the container");
    Entry<BOOL(WINAPI*)()>(m_Atl, "AtlAxWinInit")();
    m_Window = CreateWindowExW(0, L"AtlAxWin", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, kWidth, kHeight, nullptr,
                               nullptr, GetModuleHandleW(nullptr), nullptr);
    Need(m_Window ? S_OK : E_FAIL, "the window");

    const ComPtr<IClassFactory> factory = ClassIn(L"OrmiskGrid.ocx", CLSID_OrmiskGrid);
    Need(factory->CreateInstance(nullptr, IID_PPV_ARGS(&m_Grid)), "the control");
    ComPtr<IPersistStreamInit> state;
    Need(m_Grid.As(&state), "the state of the control");
    Need(state->InitNew(), "the state of the control");
    const auto attach = Entry<HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**)>(m_Atl, "AtlAxAttachControl");
    Need(attach(m_Grid.Get(), m_Window, &m_Container), "siting the control");
    Need(m_Grid->get_Properties(&m_Properties), "the properties");
    Arrange();
}

GridWindow::~GridWindow() {
    m_Properties.Reset();
    m_Container.Reset();
    DestroyWindow(m_Window);
    m_Grid.Reset();
    FreeLibrary(m_Atl);
}

void GridWindow::Arrange() {
    Need(m_Grid->put_ActiveView(omCatagorized), "ActiveView");
    ShowChrome(false);
    RECT client;
    GetClientRect(m_Window, &client);
    POINT middle = {client.right / 2, client.bottom / 2};
    m_Tree = m_Window;
    for (HWND child = m_Window; child;) {
        m_Tree = child;
        POINT inside = middle;
        MapWindowPoints(m_Window, m_Tree, &inside, 1);
        child = ChildWindowFromPointEx(m_Tree, inside, CWP_SKIPINVISIBLE);
        if (child == m_Tree)
            child = nullptr;
    }
    Settle();
}

void GridWindow::ShowChrome(bool show) const {
    Need(m_Grid->put_ShowTabs(show ? VARIANT_TRUE : VARIANT_FALSE), "ShowTabs");
    Need(m_Grid->put_ShowDescription(show ? VARIANT_TRUE : VARIANT_FALSE), "ShowDescription");
    Need(m_Grid->put_Headers(show ? omHeaders3d : omHeadersNone), "Headers");
}

void GridWindow::Paint() const {
    RedrawWindow(m_Window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

void GridWindow::Settle() const {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    Paint();
}

} // namespace ormisk::bench
