#pragma once

#include "editors/BuiltInEditor.h"

namespace ormisk {

// The editor of list rows, whose entries are the property's list items, and of Boolean rows, whose two entries it makes
// itself: one object for both. The text of an entry is for the eye, its value goes to the property. A choice is
// committed at once, and the contract's Commit does nothing.
class CListEditor final : public BuiltInEditor {
public:
    // A Boolean row keeps the font that the list has.
    bool TakeFont(omEditorType type, const FontDescription& font) override;
    void TakeControlFont(const FontDescription& font) override { TakeFont(omListEditor, font); }
    // Opens the list, or goes on to the next entry and commits it.
    void Activate(bool dropDown) override;
    void LetObjectsGo() override;
    void KeyPress(int& keyAscii) override; // ENTER and ESC end the edit; never cleared, raises nothing

private:
    void Borrow(const EditorTools& tools) override { m_ListBox = tools.ListEditor; }
    _variant_t Value() const override;
    // A value that no entry has becomes an entry of its own, the first one, until the next Reset.
    void SetValue(const VARIANT& value) override;
    void SetVisible(bool visible) override; // hiding lets the entries go
    HWND Window() const override;
    void ReadRow(_CProperty* property) override;
    void CommitEdit() override {}
    void Place(int left, int top, int width, int height) override;

    bool Serves(unsigned row) const { return m_ListBox && m_Row == row; }
    void FillWithItems(_CProperty* property, unsigned row);
    void AddBoolean(_CProperty* property, const wchar_t* label, bool value, unsigned row);
    long Find(const VARIANT& value) const;

    OrmiskListBox* m_ListBox = nullptr;
    unsigned m_Row = 0; // counts the rows: what calls the host may come back to another one, or to none
};

} // namespace ormisk
