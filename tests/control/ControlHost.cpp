#include "ControlHost.h"

#include "win/Module.h"

#include <utility>

namespace ormisk::test {

void Box::OnFirstSited(HWND parkingWindow) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = ThisModule();
    type.lpszClassName = L"OrmiskTestBox";
    RegisterClassW(&type);
    parking = parkingWindow;
    window = CreateWindowExW(0, type.lpszClassName, L"", WS_CHILD, 0, 0, 0, 0, parking, nullptr, ThisModule(), this);
    AmbientText(DISPID_AMBIENT_SCALEUNITS);
}

void Box::OnInitNew() {
    news += window != nullptr; // defaults without a window do not count
}

void Box::OnDraw(HDC dc, const RECT& pixels) {
    const LONG middle = pixels.right / 2;
    const RECT left{0, 0, middle, pixels.bottom}, right{middle, 0, pixels.right, pixels.bottom};
    FillRect(dc, &left, Unique<HBRUSH>(CreateSolidBrush(RGB(255, 0, 0))).get());
    FillRect(dc, &right, Unique<HBRUSH>(CreateSolidBrush(RGB(0, 0, 255))).get());
}

LRESULT CALLBACK Box::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* box = reinterpret_cast<Box*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (box && message == WM_SETFOCUS) {
        box->UiActivate();
    } else if (box && message == WM_KILLFOCUS) {
        box->FocusLost();
    } else if (box && message == WM_NCDESTROY) {
        box->window = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

Host::Host() {
    window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
    SetFocus(window);
}

Host::~Host() {
    if (IsWindow(window))
        DestroyWindow(window);
}

HRESULT Host::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IOleClientSite))
        *object = static_cast<IOleClientSite*>(this);
    else if (iid == __uuidof(IOleInPlaceSite) || (iid == __uuidof(IOleInPlaceSiteEx) && extended))
        *object = static_cast<IOleInPlaceSiteEx*>(this);
    else if (iid == __uuidof(IOleControlSite))
        *object = static_cast<IOleControlSite*>(this);
    else if (iid == __uuidof(IPropertyNotifySink))
        *object = static_cast<IPropertyNotifySink*>(this);
    else if (iid == __uuidof(IAdviseSink))
        *object = static_cast<IAdviseSink*>(this);
    else if (iid == __uuidof(IDispatch))
        *object = static_cast<IDispatch*>(this);
    references += *object != nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

HRESULT Host::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place, LPRECT visible,
                               LPOLEINPLACEFRAMEINFO info) {
    *frame = this;
    AddRef();
    *document = nullptr;
    *place = position;
    *visible = clip;
    info->fMDIApp = FALSE;
    return Called("GetWindowContext");
}

HRESULT Host::TranslateAccelerator(MSG*, DWORD) {
    Called("TranslateAccelerator");
    return takesKeys ? S_OK : S_FALSE;
}

HRESULT Host::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    const ComPtr<IOleInPlaceActiveObject> old = std::exchange(active, object);
    return Called("SetActiveObject");
}

HRESULT Host::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) {
    if (onCall)
        Called("Ambient");
    const auto found = ambient.find(id);
    return found == ambient.end() ? DISP_E_MEMBERNOTFOUND : VariantCopy(result, &found->second);
}

HRESULT Host::Called(const std::string& name) {
    log.push_back(name);
    if (onCall) {
        const auto act = onCall;
        act(name);
    }
    return answer;
}

void LeakTest::SetUp() {
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    WarmUp();
    m_Objects = LiveObjects();
    m_Before = {};
}

void LeakTest::TearDown() {
    ExpectNothingLeft();
    SetErrorInfo(0, nullptr);
    OleUninitialize();
}

void LeakTest::ExpectNothingLeft() const {
    EXPECT_EQ(LiveObjects(), m_Objects) << "objects leaked";
    m_Before.ExpectNoMore();
}

} // namespace ormisk::test
