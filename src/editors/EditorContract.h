#pragma once

#include "automation/ComPtr.h"
#include "automation/Error.h"

#include <comutil.h>
#include <ormisk.h>

namespace ormisk {

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

} // namespace ormisk
