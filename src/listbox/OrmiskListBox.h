#pragma once

#include "listbox/TypeAhead.h"
#include "platform/Color.h"
#include "platform/ResourceMgr.h"
#include "platform/Scale.h"
#include "win/Gdi.h"
#include "win/Geometry.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <comutil.h>

namespace ormisk {

// Hears the choices and the keys of a list. A handler may destroy the list. A failure in a handler ends there.
class ListBoxListener {
public:
    virtual void OnItemChosen() = 0; // by the user, also when it was chosen before
    virtual void OnListClosed(bool cancelled) = 0;
    // `shift`: 1 SHIFT, 2 CTRL, 4 ALT. A key set to 0 goes no further; another number replaces it.
    virtual void OnKeyDown(int& keyCode, int shift) = 0;
    virtual void OnKeyPress(int& keyAscii) = 0; // UTF-16 code units, control characters too
    virtual void OnKeyUp(int& keyCode, int shift) = 0;
    virtual void OnGotFocus() = 0;

protected:
    ~ListBoxListener() = default;
};

// A drop-down list without border, made to fit a cell of a table: entries with a text for the eye and a value of any
// type. In the closed control keys and the wheel choose at once; in the open list they only move, and ENTER, F4 or a
// click choose, while ESC and the loss of the focus leave all as it was. Changes by code are not told. Without its
// window (not created, or destroyed with its parent) every operation does nothing and reads as empty.
class OrmiskListBox {
public:
    OrmiskListBox();
    OrmiskListBox(const OrmiskListBox&) = delete;
    OrmiskListBox& operator=(const OrmiskListBox&) = delete;
    ~OrmiskListBox(); // destroys the window; the listener hears nothing of it

    // Makes the window, hidden. The listener is borrowed, and may be null. Raises the system's error.
    void Create(HWND parent, ListBoxListener* listener);
    HWND hWnd() const { return m_Window; }
    HWND Parent() const;
    static constexpr ScaleMode Scale() { return ScaleMode::Pixel; }
    // The parent passes on what it is told of its child windows; true when that was about this one.
    bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    void Clear();
    // At the end without a position, or with one that is not there. The chosen entry stays chosen.
    void AddItem(const std::wstring& text, const VARIANT& value, long index = -1);
    long ListCount() const { return static_cast<long>(m_Items.size()); }
    // "" and Empty for a wrong position. Good until the entries change.
    const std::wstring& ItemText(long index) const;
    const _variant_t& ItemValue(long index) const;
    ULONG CountOf(const IUnknown* object) const; // among the values
    long ListIndex() const { return m_Index; }   // -1 for none; what the keys move to in the open list does not count
    void SetListIndex(long index);               // -1 chooses none; a wrong position changes nothing

    // OLE colours, of the closed control and of its list.
    void SetBackColor(Color color);
    void SetForeColor(Color color);
    void SetFont(const FontDescription& font);

    bool IsVisible() const; // its own flag, whatever its parent's
    void SetVisible(bool visible);
    // Pixels. An open list does not follow: it closes.
    void Move(int left, int top, int width, int height);
    // A disabled control closes its list and takes no keys, but keeps the focus; its text is gray.
    void SetEnabled(bool enabled);
    void ShowList(bool show); // closing dismisses
    bool IsListOpen() const { return m_Open; }

private:
    struct Item {
        std::wstring Text;
        _variant_t Value;
    };
    // How the open list is about to end.
    enum class Ending { Unknown, Chosen, Dismissed };

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    WNDPROC Subclass(HWND window);
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnListMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnChar(WPARAM wParam);
    LRESULT OnWheel(WPARAM wParam, LPARAM lParam);
    LRESULT Default(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    template <class Call> bool Tell(Call&& call);
    void OnNotice(WORD code);
    void Settle();
    void CloseList(Ending ending);
    void Highlight(long index);
    const Item& ItemAt(long index) const;
    bool IsPosition(long index) const { return index >= 0 && index < ListCount(); }

    void Paint(HDC dc);
    void PaintText(HDC dc, const RECT& area, const std::wstring& text, bool highlighted);
    void PaintItem(const DRAWITEMSTRUCT& item);
    Rect ListPlace();
    void SetHeight(int height);
    void Repaint();

    HWND m_Window = nullptr;
    HWND m_List = nullptr;          // the system's, a window of its own over all others
    WNDPROC m_WindowProc = nullptr; // of the system, as is the list's
    WNDPROC m_ListProc = nullptr;
    ListBoxListener* m_Listener = nullptr;
    std::shared_ptr<char> m_Life; // a callback that destroys the box is seen by a weak reference to it
    std::vector<Item> m_Items;
    long m_Index = -1; // while the list is open, the system's selection is only where the user looks
    long m_Turned = 0; // of the wheel, less than a notch
    bool m_Enabled = true;
    bool m_Open = false;
    bool m_ClosedUp = false; // and nobody has been told
    Ending m_Ending = Ending::Unknown;
    long m_Picked = -1;
    int m_Depth = 0; // of calls into the system: nothing is told from within one
    TypeAhead m_TypeAhead;
    Rect m_ListPlace;
    Point m_Cursor; // where the open list last saw it
    Color m_BackColor;
    Color m_ForeColor;
    CBrush m_Background;
    CFont m_Font;
};

} // namespace ormisk
