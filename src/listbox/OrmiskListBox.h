#pragma once

#include "listbox/TypeAhead.h"
#include "platform/ChildWindow.h"
#include "platform/Scale.h"
#include "win/Geometry.h"

#include <string>
#include <vector>

#include <comutil.h>

namespace ormisk {

// Hears the choices in a list, too.
class ListBoxListener : public ChildWindowListener {
public:
    virtual void OnItemChosen() = 0; // by the user, also when it was chosen before
    virtual void OnListClosed(bool cancelled) = 0;

protected:
    ~ListBoxListener() = default;
};

// A drop-down list without border, made to fit a cell of a table: entries with a text for the eye and a value of any
// type. In the closed control keys and the wheel choose at once; in the open list they only move, and ENTER, F4 or a
// click choose, while ESC and the loss of the focus leave all as it was. Changes by code are not told.
class OrmiskListBox final : public ChildWindow {
public:
    ~OrmiskListBox() { Destroy(); } // while the list can still answer what it asks its parent

    // Makes the window, hidden. Raises the system's error.
    void Create(HWND parent, ListBoxListener* listener);
    static constexpr ScaleMode Scale() { return ScaleMode::Pixel; }
    // The parent passes on what it is told of its child windows; true when that was about this one.
    bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    void Clear();
    // At the end without a position, or with one that is not there. The chosen entry stays chosen.
    void AddItem(const std::wstring& text, const VARIANT& value, long index = -1);
    long ListCount() const { return static_cast<long>(m_Items.size()); }
    // "" and Empty for a wrong position. Good until the entries change.
    const std::wstring& ItemText(long index) const { return ItemAt(index).Text; }
    const _variant_t& ItemValue(long index) const { return ItemAt(index).Value; }
    ULONG CountOf(const IUnknown* object) const; // among the values
    long ListIndex() const { return m_Index; }   // -1 for none; what the keys move to in the open list does not count
    void SetListIndex(long index);               // -1 chooses none; a wrong position changes nothing

    void SetFont(const FontDescription& font) override;
    void SetVisible(bool visible) override;
    void Move(int left, int top, int width, int height) override; // an open list does not follow: it closes
    void SetEnabled(bool enabled) override;                       // a disabled control closes its list
    void ShowList(bool show);                                     // closing dismisses
    bool IsListOpen() const { return m_Open; }

private:
    struct Item {
        std::wstring Text;
        _variant_t Value;
    };
    // How the open list is about to end.
    enum class Ending { Unknown, Chosen, Dismissed };

    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFocusChanged(bool gained) override;
    void OnSettled() override;
    LRESULT OnListMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam);
    void OnChar(wchar_t character);
    LRESULT OnWheel(WPARAM wParam, LPARAM lParam);
    void OnNotice(WORD code);
    void CloseList(Ending ending);
    void Highlight(long index);
    const Item& ItemAt(long index) const;
    bool IsPosition(long index) const { return index >= 0 && index < ListCount(); }

    void Paint(HDC dc);
    void PaintText(HDC dc, const RECT& area, const std::wstring& text, bool highlighted);
    void PaintItem(const DRAWITEMSTRUCT& item);
    Rect ListPlace();
    void SetHeight(int height);

    HWND m_List = nullptr; // the system's, a window of its own over all others
    std::vector<Item> m_Items;
    long m_Index = -1; // while the list is open, the system's selection is only where the user looks
    long m_Turned = 0; // of the wheel, less than a notch
    bool m_Open = false;
    bool m_ClosedUp = false; // and nobody has been told
    Ending m_Ending = Ending::Unknown;
    long m_Picked = -1;
    TypeAhead m_TypeAhead;
    Rect m_ListPlace;
    Point m_Cursor; // where the open list last saw it
};

} // namespace ormisk
