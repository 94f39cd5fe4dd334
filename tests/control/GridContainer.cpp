#include "GridContainer.h"

#include "DialogTools.h"

#include "Eventually.h"

#include "automation/Error.h"
#include "automation/TypeLibrary.h"
#include "win/WindowText.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

namespace ormisk::test {

namespace {

constexpr DISPID kScaleUnits = 7001;
constexpr ULONGLONG kQuiet = 20;
constexpr ULONGLONG kPatience = 1000;

// As the library describes it.
std::wstring NameOfEvent(DISPID id) {
    static const ComPtr<ITypeInfo> events = TypeInfoOf(__uuidof(__OrmiskGrid));
    _bstr_t name;
    UINT found = 0;
    events->GetNames(id, name.GetAddress(), 1, &found);
    return FromBstr(name);
}

std::wstring TextOfArgument(const VARIANT& argument) {
    if (V_VT(&argument) == VT_DISPATCH) {
        const auto property = Query<_CProperty>(V_DISPATCH(&argument));
        return property ? PropertyName(property.Get()) : L"Nothing";
    }
    std::wstring text = L"?";
    IgnoringFailures([&] { text = TextOf(argument); });
    return text;
}

// The first child window of a class, at any depth, or with the parent given.
HWND FindChild(HWND root, const wchar_t* className, HWND parent = nullptr) {
    for (const HWND part : root ? PartsOf(root) : std::vector<HWND>())
        if (ClassOf(part) == className && (!parent || GetParent(part) == parent))
            return part;
    return nullptr;
}

} // namespace

HWND PaneAt(HWND parent, long index) {
    std::map<long, HWND> byLeft;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        byLeft[PlaceInParent(child).left] = child;
    for (const auto& [left, child] : byLeft)
        if (index-- == 0)
            return child;
    return nullptr;
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (key >= VK_PRIOR && key <= VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof input);
}

std::wstring EventCall::Text() const {
    std::wstring text = m_Name;
    for (UINT i = m_Name == L"PropertyDraw" ? 1 : 0; i < Count(); ++i)
        text += L" " + TextOfArgument((*this)[i]);
    return text;
}

std::wstring EventRecorder::Heard() {
    std::wstring all;
    for (const auto& line : std::exchange(m_Log, {}))
        all += (all.empty() ? L"" : L"; ") + line;
    return all;
}

HRESULT EventRecorder::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* exception,
                              UINT*) {
    const EventCall call(NameOfEvent(id), *parameters);
    if (!quiet.contains(call.Name()))
        m_Log.push_back(call.Text());
    if (id == 15 && !messageBoxes)
        call.Set(2, false);
    const auto handler = on.find(call.Name());
    if (handler == on.end())
        return S_OK;
    const auto act = handler->second;
    act(call);
    const HRESULT result = std::exchange(answer, S_OK);
    if (result == DISP_E_EXCEPTION && exception) {
        exception->scode = static_cast<SCODE>(0x800A03E8);
        exception->bstrSource = SysAllocString(L"Handler");
        exception->bstrDescription = SysAllocString(L"The handler raised.");
    }
    return result;
}

Picture::Picture(HWND window) {
    const Rect client = ClientRect(window);
    *this = Picture({client.right, client.bottom},
                    [&](HDC dc) { SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT); });
}

Picture::Picture(SIZE size, const std::function<void(HDC)>& draw) : m_Size(size) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const MemoryDC dc(nullptr);
    const Unique<HBITMAP> bitmap(CreateDIBSection(dc.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const SelectGuard selected(dc.Get(), bitmap.get());
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(dc.Get(), &all, Unique<HBRUSH>(CreateSolidBrush(kUntouched)).get());
    draw(dc.Get());
    GdiFlush();
    m_Pixels.resize(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    if (bits)
        std::memcpy(m_Pixels.data(), bits, m_Pixels.size() * sizeof m_Pixels[0]);
}

COLORREF Picture::At(long x, long y) const {
    if (x < 0 || y < 0 || x >= m_Size.cx || y >= m_Size.cy)
        return CLR_INVALID;
    const auto pixel =
        m_Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_Size.cx) + static_cast<std::size_t>(x)];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

long Picture::Count(COLORREF color, RECT area) const {
    long count = 0;
    for (long y = area.top; y < area.bottom; ++y)
        for (long x = area.left; x < area.right; ++x)
            count += At(x, y) == color;
    return count;
}

GridContainer::GridContainer(const Setup& setup) : grid(MakeObject<OrmiskGrid>()) {
    SetWindowPos(window, HWND_TOP, 0, 0, setup.size.cx + 40, setup.size.cy + 40, SWP_NOACTIVATE);
    position = {10, 10, 10 + setup.size.cx, 10 + setup.size.cy};
    ambient[DISPID_AMBIENT_USERMODE] = setup.userMode;
    ambient[kScaleUnits] = setup.scaleUnits.c_str();
    m_EventCookie = Connect(grid->Identity(), __uuidof(__OrmiskGrid), &events);
    m_NoticeCookie = Connect(grid->Identity(), IID_IPropertyNotifySink, static_cast<IPropertyNotifySink*>(this));
    EXPECT_EQ(grid->SetClientSite(this), S_OK);
    EXPECT_EQ(grid->InitNew(), S_OK);
    if (setup.activate)
        EXPECT_EQ(grid->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window, nullptr), S_OK);
    SetForegroundWindow(window);
}

GridContainer::~GridContainer() {
    LetGo();
    // Nothing of the control may hold on to its host.
    EXPECT_EQ(events.references, 1);
    EXPECT_EQ(references, 1);
}

void GridContainer::LetGo() {
    if (const ComPtr<OrmiskGrid> last = Disconnect()) {
        last->Close(OLECLOSE_NOSAVE);
        last->SetClientSite(nullptr);
    }
}

ComPtr<OrmiskGrid> GridContainer::Disconnect() {
    active = nullptr;
    ComPtr<OrmiskGrid> last = std::exchange(grid, nullptr);
    if (!last)
        return last;
    PointOf(last->Identity(), __uuidof(__OrmiskGrid))->Unadvise(m_EventCookie);
    PointOf(last->Identity(), IID_IPropertyNotifySink)->Unadvise(m_NoticeCookie);
    return last;
}

void GridContainer::SetAmbient(const wchar_t* name, const _variant_t& value) {
    const DISPID id = _wcsicmp(name, L"ScaleUnits") == 0 ? kScaleUnits
                      : _wcsicmp(name, L"Font") == 0     ? DISPID_AMBIENT_FONT
                                                         : DISPID_AMBIENT_USERMODE;
    ambient[id] = value;
    EXPECT_EQ(grid->OnAmbientPropertyChange(id), S_OK);
}

HRESULT GridContainer::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    *ids = _wcsicmp(names[0], L"ScaleUnits") == 0 ? kScaleUnits : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

void GridContainer::Resize(SIZE size) {
    position.right = position.left + size.cx;
    position.bottom = position.top + size.cy;
    EXPECT_EQ(grid->SetObjectRects(&position, &clip), S_OK);
}

ComPtr<_CProperties> GridContainer::Properties() const { return Read(grid, &OrmiskGrid::get_Properties); }

ComPtr<_CProperty> GridContainer::Add(const std::wstring& name, const _variant_t& value, const std::wstring& category,
                                      omEditorType editor, const wchar_t* editorKey) {
    _variant_t copy(value);
    ComPtr<_CProperty> property;
    EXPECT_EQ(Properties()->Add2(ToBstr(name), &copy, ToBstr(category), nullptr, nullptr, VARIANT_TRUE, &editor,
                                 _bstr_t(editorKey), property.GetAddressOf()),
              S_OK);
    return property;
}

ComPtr<_CProperty> GridContainer::Item(const _variant_t& indexOrKey) const {
    ComPtr<_CProperty> property;
    Properties()->get_Item(indexOrKey, property.GetAddressOf());
    return property;
}

std::wstring GridContainer::Selected() const {
    const auto property = Read(grid, &OrmiskGrid::get_SelectedProperty);
    return property ? PropertyName(property.Get()) : std::wstring();
}

std::wstring GridContainer::Rows() {
    std::wstring rows;
    Select(nullptr);
    Press(VK_DOWN); // the first key only selects the first row
    Press(VK_HOME);
    const auto highlighted = [&](long row) {
        return Paint().At(Divider() - 3, RowTop(row) + 3) == GetSysColor(COLOR_HIGHLIGHT);
    };
    for (long row = 0; row < 50 && highlighted(row); ++row, Press(VK_DOWN))
        rows += (row ? L" " : L"") + (Selected().empty() ? L"*" : Selected());
    Heard();
    return rows;
}

HWND GridContainer::Window() const {
    HWND result = nullptr;
    if (grid)
        grid->GetWindow(&result);
    return result;
}

HWND GridContainer::Tree() const {
    const HWND bar = ScrollBarWindow();
    return bar ? GetParent(bar) : nullptr;
}

HWND GridContainer::ScrollBarWindow() const { return FindChild(Window(), L"ScrollBar"); }

HWND GridContainer::EditBox() const { return FindChild(Window(), L"Edit", Tree()); }

HWND GridContainer::HeaderStrip() const { return FindChild(Tree(), L"OrmiskPane", Tree()); }

HWND GridContainer::DescriptionPane() const {
    const HWND background = GetParent(TabStrip());
    for (HWND child = ::GetWindow(background, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        if (child != TabStrip())
            return child;
    return nullptr;
}

std::wstring GridContainer::EditText() const {
    const HWND box = EditBox();
    if (!box || !(GetWindowLongPtrW(box, GWL_STYLE) & WS_VISIBLE))
        return {};
    return WindowText(box);
}

long GridContainer::HeaderHeight() const {
    return Read(grid, &OrmiskGrid::get_Headers) == omHeadersNone ? 0 : WindowRect(HeaderStrip()).Height();
}

// The text's height and four pixels, made even.
long GridContainer::RowHeight() const {
    const auto object = Read(grid, &OrmiskGrid::get_Font);
    HFONT font = nullptr;
    Query<IFont>(object)->get_hFont(&font);
    const WindowDC dc(nullptr);
    const SelectGuard selected(dc.Get(), font);
    SIZE text{};
    GetTextExtentPoint32W(dc.Get(), L"Ag", 2, &text);
    return text.cy + 4 + (text.cy & 1);
}

long GridContainer::Divider() const { return std::lround(Read(grid, &OrmiskGrid::get_ColumnDividerPosition)) + 1; }

RECT GridContainer::NameCell(long row) const { return {0, RowTop(row), Divider(), RowTop(row + 1)}; }

RECT GridContainer::ValueCell(long row) const {
    const bool bar = GetWindowLongPtrW(ScrollBarWindow(), GWL_STYLE) & WS_VISIBLE;
    const long right = ClientRect(Tree()).right - (bar ? GetSystemMetrics(SM_CXVSCROLL) : 0);
    return {Divider(), RowTop(row), right, RowTop(row + 1)};
}

void GridContainer::TypeIntoEditor(const std::wstring& text) const {
    SendMessageW(EditBox(), EM_SETSEL, 0, -1);
    for (const wchar_t character : text)
        SendMessageW(EditBox(), WM_CHAR, character, 1);
}

void GridContainer::ClickTree(long x, long y) const {
    const HWND tree = Tree();
    POINT point{x, y};
    ClientToScreen(tree, &point);
    // On a busy machine a move may be lost, or another one come late.
    EXPECT_TRUE(Eventually([&] {
        POINT now{};
        return SetCursorPos(point.x, point.y) && GetCursorPos(&now) && now.x == point.x && now.y == point.y;
    }));
    Pump();
    SendMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(tree, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

void GridContainer::SendMouse(DWORD flags, DWORD time, DWORD data) const {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.time = time;
    input.mi.mouseData = data;
    SendInput(1, &input, sizeof input);
    Pump();
}

// What has dropped down from it stays in front.
void GridContainer::ComeToFront() const {
    if (GetAncestor(GetForegroundWindow(), GA_ROOTOWNER) != window)
        SetForegroundWindow(window);
}

void GridContainer::MouseTo(HWND target, long x, long y) {
    POINT point{x, y};
    ClientToScreen(target, &point);
    ComeToFront();
    SetCursorPos(point.x, point.y);
    Pump();
}

void GridContainer::RealClick(HWND target, long x, long y, int count) {
    // Not the second half of an earlier double click.
    MouseTo(target, x + 40, y);
    SendMouse(MOUSEEVENTF_RIGHTDOWN);
    SendMouse(MOUSEEVENTF_RIGHTUP);
    MouseTo(target, x, y);
    // However long each takes, they belong together.
    const DWORD time = GetTickCount();
    for (; count > 0; --count) {
        SendMouse(MOUSEEVENTF_LEFTDOWN, time);
        SendMouse(MOUSEEVENTF_LEFTUP);
    }
}

void GridContainer::RealDrag(HWND target, POINT from, POINT to) {
    MouseTo(target, from.x, from.y);
    POINT start = from;
    POINT end = to;
    ClientToScreen(target, &start);
    ClientToScreen(target, &end);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SetCursorPos((start.x + end.x) / 2, (start.y + end.y) / 2);
    Pump();
    SetCursorPos(end.x, end.y);
    Pump();
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void GridContainer::PlainClick(HWND target, long x, long y, bool right) {
    MouseTo(target, x, y);
    SendMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    SendMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
}

void GridContainer::RealWheel(int amount) const { SendMouse(MOUSEEVENTF_WHEEL, 0, static_cast<DWORD>(amount)); }

void GridContainer::RealKeys(std::initializer_list<WORD> keys, WORD modifier) {
    ComeToFront();
    if (modifier)
        SendKey(modifier, 0);
    for (const WORD key : keys) {
        SendKey(key, 0);
        SendKey(key, KEYEVENTF_KEYUP);
        Pump();
    }
    if (modifier)
        SendKey(modifier, KEYEVENTF_KEYUP);
    Pump();
}

void GridContainer::Pump() const {
    const ULONGLONG end = GetTickCount64() + kPatience;
    ULONGLONG quietAt = GetTickCount64() + kQuiet;
    for (ULONGLONG now = 0; (now = GetTickCount64()) < std::min(quietAt, end);) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message != WM_TIMER && message.message != 0x118) // a caret's blinking
                quietAt = GetTickCount64() + kQuiet;
            const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
            const ComPtr<IOleInPlaceActiveObject> first = active;
            if (key && first && first->TranslateAccelerator(&message) == S_OK)
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

std::wstring FailureOfCall(HRESULT hr) {
    if (SUCCEEDED(hr))
        return L"no failure";
    const AutomationError error = TakeErrorInfo(hr);
    wchar_t number[9];
    std::swprintf(number, 9, L"%08lX", static_cast<unsigned long>(error.number));
    return std::wstring(number) + L"|" + error.source + L"|" + error.description;
}

std::wstring ValueText(_CProperty* property) { return TextOf(Read(property, &_CProperty::get_Value)); }

void GridTest::WarmUp() {
    static const bool warm = [] {
        EXPECT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
        for (const auto* cursor : {IDC_SIZENS, IDC_SIZEWE})
            LoadCursorW(nullptr, cursor);
        for (int i = 0; i < 2; ++i) {
            GridContainer container;
            container.Add(L"\x4E2D\xD83D\xDE00", L"\x4E2D\xD83D\xDE00", L"Category");
            container->put_ActiveView(omCatagorized);
            container->put_ActiveView(omAlphabetic);
            for (int row = 0; row < 40; ++row)
                container.Add(std::to_wstring(row));
            container.RealClick(container.Tree(), 30, container.RowTop(0) + 5);
            container.RealKeys({'A', VK_RETURN});
            container.Select(container.Item(41L).Get()); // scrolls
            container.Pump();
            const std::pair<omEditorType, _variant_t> kinds[] = {{omFontEditor, kNothing},
                                                                 {omDateEditor, L"1/1/2000"},
                                                                 {omFileEditor, L"C:\\windows\\win.ini"},
                                                                 {omDirectoryEditor, L"C:\\nowhere"},
                                                                 {omPictureEditor, kNothing}};
            for (const auto& [type, value] : kinds) {
                const InDialog dialog([] {}, type == omDirectoryEditor ? IDOK : IDCANCEL);
                container->StartPropertyEdit(container.Add(L"Kind " + std::to_wstring(type), value, L"", type).Get());
                container.Pump();
                container->putref_SelectedProperty(nullptr);
            }
            const auto choice = container.Add(L"Choice", 1L, L"", omListEditor);
            const auto items = Read(choice, &_CProperty::get_ListItems);
            for (long item = 1; item < 40; ++item) {
                ComPtr<_CListItem> added;
                items->Add(_bstr_t(item), _variant_t(item), added.GetAddressOf());
            }
            container->StartPropertyEdit(choice.Get());
            container.RealKeys({VK_DOWN, VK_F4, VK_ESCAPE});
            container->put_Enabled(VARIANT_FALSE);
            container.Pump();
            container.Paint();
        }
        return true;
    }();
    ASSERT_TRUE(warm);
}

} // namespace ormisk::test
