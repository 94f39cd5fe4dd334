#pragma once

#include "automation/ComPtr.h"
#include "automation/Error.h"
#include "platform/FontDescription.h"

#include <comutil.h>
#include <ormisk.h>

namespace ormisk {

class OrmiskListBox;
class TextBox;

// Calls an editor of any maker. Holds a counted reference; each failure of the editor is raised as the AutomationError
// that it described, and so is the want of an editor.
class EditorProxy {
public:
    explicit EditorProxy(_CEditor* editor) : m_Editor(editor) {}

    void Init(HWND parent);
    void SetFont(HFONT font); // stays the caller's
    void Reset(_CProperty* property, _CEditorListener* listener);
    _variant_t Value() const;
    void SetValue(const VARIANT& value);
    bool Visible() const;
    void SetVisible(bool visible);
    HWND Hwnd() const;
    long ScaleMode() const;
    void Move(float left, float top, float width, float height); // in units of ScaleMode
    void Commit();
    void Cancel();

private:
    template <class Call> void Run(Call&& call) const;

    ComPtr<_CEditor> m_Editor;
};

// The windows of the control that built-in editors borrow; they outlive the registry's Clear.
struct EditorWindows {
    TextBox* TextEditor = nullptr;
    OrmiskListBox* ListEditor = nullptr;
};

// What the control asks of its own editors beside the contract. EditorRegistry::BuiltIn finds it for an editor.
class BuiltInEditor {
public:
    // Lends the editor its windows; empty ones when the control takes them back.
    virtual void Attach(const EditorWindows& windows) = 0;
    // Copies the font into the editor's window. False: this editor, in a row of this type, takes a handle instead.
    virtual bool TakeFont(omEditorType type, const FontDescription& font) = 0;
    // The editor has just been given the focus on the user's demand: by Alt+Down or F4 (drop down) or a double click.
    virtual void Activate(bool dropDown) = 0;
    // A key typed on the row is about to be replayed in the editor.
    virtual void BeginTyping() = 0;
    // A key pressed in the editor's window; 0 goes no further. Raises what a commit raises.
    virtual void KeyPress(int& keyAscii) = 0;
    // Whether the user changed the text since the last load.
    virtual bool IsModified() const = 0;

protected:
    ~BuiltInEditor() = default;
};

} // namespace ormisk
