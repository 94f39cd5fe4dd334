#pragma once

#include "editors/BuiltInEditor.h"
#include "platform/DialogField.h"

namespace ormisk {

// An editor with windows of its own, made in the control's and destroyed when the control takes back what it lent.
// Their keys go to the control first, which may keep them from the editor. What fails here, the windows end.
class WindowEditor : public BuiltInEditor, protected DialogFieldListener {
public:
    void SetEnabled(bool enabled) override { m_Own.SetEnabled(enabled); }

protected:
    explicit WindowEditor(ChildWindow& own) : m_Own(own) {} // the one that stands over the cell; the editor's

    virtual void DestroyWindows() = 0;
    // Whether a key is one that the editor has no use for, and the rows have.
    virtual bool IsForRows(int /*key*/, int /*shift*/) const { return false; }
    // A key in the open editor; 0 goes no further.
    virtual void KeyDown(int& key, int shift) = 0;
    virtual void Character(int& /*keyAscii*/) {}

    HWND Window() const final { return m_Own.hWnd(); }
    void SetVisible(bool visible) override { m_Own.SetVisible(visible); }
    void SetFont(HFONT font) override { m_Own.SetFontHandle(font); }
    void Borrow(const EditorTools& tools) override;
    void ResetTo(_CProperty* property, _CEditorListener* listener) override;

    // Of the Reset that began the present row: whether it is still that row, and the editor open, after a call of
    // somebody else.
    unsigned Row() const { return m_Row; }
    bool Serves(unsigned row) const { return m_Row == row && IsVisible(); }
    // The same, and the control is not disabled.
    bool Takes(unsigned row) const { return Serves(row) && m_Own.IsEnabled(); }
    void CommitAndLeave();
    void CancelAndLeave();

    void OnGotFocus() override;
    void OnLostFocus() override;
    void OnButton() override {}

private:
    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;

    ChildWindow& m_Own;
    ChildWindowListener* m_Keys = nullptr; // borrowed
    unsigned m_Row = 0;
};

} // namespace ormisk
