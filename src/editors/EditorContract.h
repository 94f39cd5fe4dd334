#pragma once

#include "automation/ComPtr.h"
#include "automation/Error.h"

#include <comutil.h>
#include <oleauto.h>
#include <ormisk.h>

namespace ormisk {

// Calls an editor of any maker. Holds a counted reference; each failure of the editor is raised as the AutomationError
// that it described, and so is the want of an editor.
class EditorProxy {
public:
    explicit EditorProxy(_CEditor* editor) : m_Editor(editor) {}

    void Init(HWND parent) { Run(&_CEditor::init, HandleToLong(parent)); }
    void SetFont(HFONT font) { Run(&_CEditor::put_hFont, HandleToLong(font)); } // stays the caller's
    void Reset(_CProperty* property, _CEditorListener* listener) { Run(&_CEditor::Reset, property, listener); }
    _variant_t Value() const {
        _variant_t value;
        Run(&_CEditor::get_Value, &value);
        return value;
    }
    void SetValue(const VARIANT& value) { Run(&_CEditor::put_Value, value); }
    bool Visible() const { return Read(&_CEditor::get_Visible) != VARIANT_FALSE; }
    void SetVisible(bool visible) { Run(&_CEditor::put_Visible, visible ? VARIANT_TRUE : VARIANT_FALSE); }
    HWND Hwnd() const { return static_cast<HWND>(LongToHandle(Read(&_CEditor::get_hwnd))); }
    long ScaleMode() const { return Read(&_CEditor::get_ScaleMode); }
    // In units of ScaleMode.
    void Move(float left, float top, float width, float height) { Run(&_CEditor::Move, left, top, width, height); }
    void Commit() { Run(&_CEditor::Commit); }
    void Cancel() { Run(&_CEditor::Cancel); }

private:
    template <class... Params, class... Args>
    void Run(HRESULT (STDMETHODCALLTYPE _CEditor::*method)(Params...), const Args&... args) const {
        CheckPointer(m_Editor.Get());
        SetErrorInfo(0, nullptr); // an editor that describes no error of its own must not be taken to mean an older one
        Check((m_Editor.Get()->*method)(args...));
    }
    template <class T> T Read(HRESULT (STDMETHODCALLTYPE _CEditor::*method)(T*)) const {
        T value{};
        Run(method, &value);
        return value;
    }

    ComPtr<_CEditor> m_Editor;
};

} // namespace ormisk
