#pragma once

#include "automation/DispatchObject.h"
#include "editors/EditorContract.h"

namespace ormisk {

// The editor of list rows, whose entries are the property's list items, and of Boolean rows, whose two entries it makes
// itself: one object for both. The text of an entry is for the eye, its value goes to the property. A choice is
// committed at once.
class CListEditor final : public DispatchObject<_CEditor, ::CEditor>, public BuiltInEditor {
public:
    // The list is borrowed. Without one every operation does nothing.
    void ListEdit(OrmiskListBox* list) { m_ListBox = list; }
    std::wstring Text() const; // of the chosen entry
    void ListEditorChange();   // an entry was chosen; raises what the commit raises

    void Attach(const EditorWindows& windows) override;
    // A Boolean row keeps the font that the list has.
    bool TakeFont(omEditorType type, const FontDescription& font) override;
    // Opens the list, or goes on to the next entry and commits it.
    void Activate(bool dropDown) override;
    void BeginTyping() override {}
    void KeyPress(int& keyAscii) override; // ENTER and ESC end the edit; never cleared, raises nothing
    bool IsModified() const override { return false; }

    STDMETHODIMP get_ScaleMode(long* pValue) override;
    STDMETHODIMP get_Value(VARIANT* pValue) override;
    // A value that no entry has becomes an entry of its own, the first one, until the next Reset.
    STDMETHODIMP put_Value(VARIANT newValue) override;
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) override;
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) override; // hiding lets the entries go
    STDMETHODIMP get_hwnd(long* pValue) override;
    STDMETHODIMP put_hFont(long newValue) override; // ignored: the list has its font from TakeFont
    STDMETHODIMP Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) override;
    STDMETHODIMP Commit() override; // nothing: what was chosen was committed then
    STDMETHODIMP Cancel() override;
    STDMETHODIMP Move(float nLeft, float nTop, float nWidth, float nHeight) override;
    STDMETHODIMP init(long hParentWnd) override;

private:
    bool Serves(unsigned row) const { return m_ListBox && m_Row == row; }
    void FillFrom(_CProperty* property, unsigned row);
    void FillWithItems(_CProperty* property, unsigned row);
    void AddBoolean(_CProperty* property, const wchar_t* label, bool value, unsigned row);
    long Find(const VARIANT& value) const;
    void Notify(HRESULT (STDMETHODCALLTYPE _CEditorListener::*notify)(_CEditor*));

    _CEditorListener* m_Listener = nullptr; // not counted: the control holds it
    OrmiskListBox* m_ListBox = nullptr;
    unsigned m_Row = 0; // counts the rows: what calls the host may come back to another one, or to none
};

} // namespace ormisk
