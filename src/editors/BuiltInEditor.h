#pragma once

#include "editors/CEditor.h"
#include "platform/FontDescription.h"

namespace ormisk {

class ChildWindowListener;
class DialogHost;
class OrmiskListBox;
class OrmiskSwatch;
class TextBox;

// Whom the button of a custom dialog row tells that it was pressed.
class CCusDialogListener {
public:
    virtual bool RaiseCustomDialogEvent() = 0; // false after a failure, which was reported

protected:
    ~CCusDialogListener() = default;
};

// What built-in editors borrow of the control: windows, and for those with windows of their own whoever hears their
// keys and stands behind their dialogs. All of it outlives the registry's Clear.
struct EditorTools {
    TextBox* TextEditor = nullptr;
    OrmiskListBox* ListEditor = nullptr;
    OrmiskSwatch* ColorEditor = nullptr;
    ChildWindowListener* Keys = nullptr;
    DialogHost* Dialogs = nullptr;
    CCusDialogListener* CustomDialog = nullptr;
};

// An editor of the library's own: it stands over the cell in one window, in pixels, and reports to the listener of the
// last Reset. Without its window every operation does nothing. Further operations are what the control asks of it
// beside the contract; EditorRegistry::BuiltIn finds them for an editor.
class BuiltInEditor : public CEditor {
public:
    // Lends the editor what it needs of the control; nothing when the control takes it back.
    void Attach(const EditorTools& tools);
    // Copies the font into the editor's window. False: this editor, in a row of this type, takes a handle instead.
    virtual bool TakeFont(omEditorType /*type*/, const FontDescription& /*font*/) { return false; }
    // The font of the control, for rows that get none of their own.
    virtual void TakeControlFont(const FontDescription& /*font*/) {}
    // The editor has just been given the focus on the user's demand: by Alt+Down or F4 (drop down) or a double click.
    virtual void Activate(bool /*dropDown*/) {}
    // A key typed on the row is about to be replayed in the editor.
    virtual void BeginTyping() {}
    // The user picked a value in the editor's window: commits it. Raises what a commit raises.
    virtual void Picked() { Notify(&_CEditorListener::NotifyCommit); }
    // A key pressed in the editor's window; 0 goes no further. Raises what a commit raises.
    virtual void KeyPress(int& /*keyAscii*/) {}
    // Whether the user changed the text since the last load.
    virtual bool IsModified() const { return false; }
    // Whether the user may have changed what it was loaded with.
    virtual bool IsTouched() const { return true; }
    // What it has dropped down, which is no child of it; null when there is none.
    virtual HWND DropDownWindow() const { return nullptr; }
    virtual void CloseUp() {}
    // Where TAB brings the focus.
    virtual HWND TabStop() const { return Window(); }
    // The user has changed what its window shows, as the window told its parent.
    virtual void Changed() {}
    // The row has gone, or the host has: objects of the host's are not kept.
    virtual void LetObjectsGo() {}
    // How often the user has been at work in its windows: the same value, given anew, is another one.
    unsigned Picks() const { return m_Picks; }
    // Of the control; windows of the control's own know it already.
    virtual void SetEnabled(bool /*enabled*/) {}
    // Whether its value is this object.
    virtual bool Holds(const IUnknown* /*object*/) const { return false; }
    // Its window is there for the mouse and for what it drops down: after a commit the rows have the focus again.
    virtual bool LeavesFocus() const { return false; }

protected:
    virtual void Borrow(const EditorTools& /*tools*/) {}
    // Takes what the row sets. Whatever is asked of the property may call the host, and another row be here then.
    virtual void ReadRow(_CProperty* property) = 0;

    ScaleMode Scale() const override { return ScaleMode::Pixel; }
    // Its own flag, whatever its parent's.
    bool IsVisible() const override { return Window() && GetWindowLongPtrW(Window(), GWL_STYLE) & WS_VISIBLE; }
    void SetVisible(bool visible) override { ShowWindow(Window(), visible ? SW_SHOWNA : SW_HIDE); }
    void ResetTo(_CProperty* property, _CEditorListener* listener) override;
    void CommitEdit() override { Notify(&_CEditorListener::NotifyCommit); }
    void CancelEdit() override { Notify(&_CEditorListener::NotifyCancel); }

    bool Reports() const { return Window() && m_Listener; }
    // Raises what the control's side of it raises.
    void Notify(HRESULT (STDMETHODCALLTYPE _CEditorListener::*notify)(_CEditor*));
    void NotePick() { ++m_Picks; }
    void FocusRows() const;
    // A parameter of the row, "" when it is not set; raises what the property raises.
    static std::wstring Param(_CProperty* property, const wchar_t* name);

private:
    unsigned m_Picks = 0;
    _CEditorListener* m_Listener = nullptr; // not counted: the control holds it
};

} // namespace ormisk
