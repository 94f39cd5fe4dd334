#pragma once

#include "ControlHost.h"
#include "MouseShield.h"

#include "automation/Value.h"
#include "grid/OrmiskGrid.h"

#include <set>

namespace ormisk::test {

// What a getter gives: an object is held, a text is copied.
template <class Pointer, class Interface, class T>
auto Read(const Pointer& object, HRESULT (STDMETHODCALLTYPE Interface::*getter)(T*)) {
    T value{};
    EXPECT_EQ((std::to_address(object)->*getter)(&value), S_OK);
    if constexpr (std::is_same_v<T, BSTR>)
        return FromBstr(_bstr_t(value, false));
    else if constexpr (std::is_same_v<T, VARIANT>)
        return _variant_t(value, false);
    else if constexpr (std::is_pointer_v<T>)
        return Adopt(value);
    else
        return value;
}
inline std::wstring PropertyName(_CProperty* property) { return Read(property, &_CProperty::get_Name); }

// An event as a handler sees it: by-reference arguments can be written.
class EventCall {
public:
    EventCall(std::wstring name, const DISPPARAMS& parameters) : m_Name(std::move(name)), m_Parameters(parameters) {}
    const std::wstring& Name() const { return m_Name; }
    UINT Count() const { return m_Parameters.cArgs; }
    VARIANT& operator[](UINT index) const { return m_Parameters.rgvarg[m_Parameters.cArgs - 1 - index]; }
    void Set(UINT index, bool flag) const { *V_BOOLREF(&(*this)[index]) = flag ? VARIANT_TRUE : VARIANT_FALSE; }
    // The name and the arguments: properties by name, contexts left out.
    std::wstring Text() const;

private:
    std::wstring m_Name;
    const DISPPARAMS& m_Parameters;
};

// A sink of the grid's events. It writes them down, but for the quiet ones, and lets a test handle each.
class EventRecorder : public HostObject {
public:
    EventRecorder() : HostObject(__uuidof(__OrmiskGrid)) {}
    std::map<std::wstring, std::function<void(const EventCall&)>> on;
    std::set<std::wstring> quiet{L"KeyDown",   L"KeyPress", L"KeyUp",       L"MouseDown",
                                 L"MouseMove", L"MouseUp",  L"PropertyDraw"};
    HRESULT answer = S_OK; // of the next handled event
    bool messageBoxes = false;

    // What was heard since the last call.
    std::wstring Heard();

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* exception,
                        UINT*) override;

private:
    std::vector<std::wstring> m_Log;
};

// What a window paints into a context of the caller's, on a ground that no test uses.
class Picture {
public:
    static constexpr COLORREF kUntouched = RGB(255, 0, 255);
    explicit Picture(HWND window);
    // Draws something else of the same size.
    Picture(SIZE size, const std::function<void(HDC)>& draw);
    COLORREF At(long x, long y) const;
    SIZE Size() const { return m_Size; }
    // Pixels of a colour in a rectangle.
    long Count(COLORREF color, RECT area) const;
    bool operator==(const Picture& other) const { return m_Pixels == other.m_Pixels; }

private:
    SIZE m_Size{};
    std::vector<std::uint32_t> m_Pixels;
};

// A container with the grid in place: ambient properties, events, change notices, the mouse and the keys of a user.
class GridContainer : public Host {
public:
    struct Setup {
        bool userMode = true;
        std::wstring scaleUnits = L"Pixel";
        SIZE size{300, 300};
        bool activate = true;
    };
    GridContainer() : GridContainer(Setup{}) {}
    explicit GridContainer(const Setup& setup);
    ~GridContainer();

    ComPtr<OrmiskGrid> grid;
    EventRecorder events;
    std::vector<DISPID> notices; // of changed properties
    std::wstring Heard() { return events.Heard(); }
    OrmiskGrid* operator->() const { return grid.Get(); }

    void SetAmbient(const wchar_t* name, const _variant_t& value);
    void Resize(SIZE size);
    // Lets the control go as a closing host does; the window stays.
    void LetGo();
    // Ends the events and gives the host's last reference away; null when it has none.
    ComPtr<OrmiskGrid> Disconnect();

    ComPtr<_CProperties> Properties() const;
    ComPtr<_CProperty> Add(const std::wstring& name, const _variant_t& value = L"", const std::wstring& category = L"",
                           omEditorType editor = omTextEditor, const wchar_t* editorKey = L"");
    ComPtr<_CProperty> Item(const _variant_t& indexOrKey) const;
    long Count() const { return Read(Properties(), &_CProperties::get_Count); }
    void Remove(const _variant_t& indexOrKey) const { EXPECT_EQ(Properties()->Remove(indexOrKey), S_OK); }
    void Clear() const {
        _variant_t result;
        EXPECT_EQ(Properties()->Clear(&result), S_OK);
    }
    void Expand(const wchar_t* path, bool open = true) const {
        EXPECT_EQ(grid->ExpandCategory(_bstr_t(path), open ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
    }
    void Select(_CProperty* property) const { EXPECT_EQ(grid->putref_SelectedProperty(property), S_OK); }
    std::wstring Selected() const; // its name, "" for none
    // The names on screen from top to bottom, as the keyboard selects them; * for a category.
    std::wstring Rows();

    // Windows; null when the grid has none.
    HWND Window() const;
    HWND Tree() const;
    HWND HeaderStrip() const;
    HWND ScrollBarWindow() const;
    HWND EditBox() const;
    HWND TabStrip() const { return GetParent(Tree()); }
    HWND DescriptionPane() const;
    std::wstring EditText() const; // "" while no editor is on screen

    // Geometry of the rows, in pixels of the tree window.
    long HeaderHeight() const;
    long RowHeight() const;
    long RowTop(long row) const { return HeaderHeight() + row * RowHeight(); }
    long Divider() const;
    RECT NameCell(long row) const;
    RECT ValueCell(long row) const;

    Picture Paint() const { return Picture(Tree()); }

    // A key or a click told to the window itself; the mouse stands where the click is.
    void Press(WPARAM key) const { SendMessageW(Tree(), WM_KEYDOWN, key, 1); }
    void TypeIntoEditor(const std::wstring& text) const; // replaces what is there
    void Enter() const { SendMessageW(EditBox(), WM_CHAR, L'\r', 1); }
    void ClickTree(long x, long y) const;
    void ClickRow(long row) const { ClickTree(Divider() - 3, RowTop(row) + RowHeight() / 2); }

    // Real input, worked off; keys are offered to the control first, as hosts do.
    void MouseTo(HWND target, long x, long y);
    void RealClick(HWND target, long x, long y, int count = 1);
    void PlainClick(HWND target, long x, long y, bool right = false); // without a right click beside it before
    void RealDrag(HWND target, POINT from, POINT to);
    void RealWheel(int amount) const;
    void RealKeys(std::initializer_list<WORD> keys, WORD modifier = 0);
    void Pump() const;

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    STDMETHODIMP OnChanged(DISPID id) override { return notices.push_back(id), S_OK; }

private:
    void ComeToFront() const;
    void SendMouse(DWORD flags, DWORD time = 0, DWORD data = 0) const;

    MouseShield m_MouseShield;
    DWORD m_EventCookie = 0;
    DWORD m_NoticeCookie = 0;
};

// The number in hexadecimal digits, source and text of a failed call.
std::wstring FailureOfCall(HRESULT hr);
std::wstring ValueText(_CProperty* property);
HWND PaneAt(HWND parent, long index); // its children from left to right, counted from 0
// Presses a key, or with KEYEVENTF_KEYUP lets it go, as a keyboard does.
void SendKey(WORD key, DWORD flags);

// Tests with a grid.
class GridTest : public LeakTest {
protected:
    void WarmUp() override;
};

} // namespace ormisk::test
