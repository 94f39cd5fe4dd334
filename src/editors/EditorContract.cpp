#include "editors/EditorContract.h"

#include <oleauto.h>

namespace ormisk {

// An editor that describes no error of its own must not be taken to mean an older one.
template <class Call> void EditorProxy::Run(Call&& call) const {
    CheckPointer(m_Editor.Get());
    SetErrorInfo(0, nullptr);
    Check(call(m_Editor.Get()));
}

void EditorProxy::Init(HWND parent) {
    Run([&](_CEditor* editor) { return editor->init(HandleToLong(parent)); });
}

void EditorProxy::SetFont(HFONT font) {
    Run([&](_CEditor* editor) { return editor->put_hFont(HandleToLong(font)); });
}

void EditorProxy::Reset(_CProperty* property, _CEditorListener* listener) {
    Run([&](_CEditor* editor) { return editor->Reset(property, listener); });
}

_variant_t EditorProxy::Value() const {
    _variant_t value;
    Run([&](_CEditor* editor) { return editor->get_Value(&value); });
    return value;
}

void EditorProxy::SetValue(const VARIANT& value) {
    Run([&](_CEditor* editor) { return editor->put_Value(value); });
}

bool EditorProxy::Visible() const {
    VARIANT_BOOL visible = VARIANT_FALSE;
    Run([&](_CEditor* editor) { return editor->get_Visible(&visible); });
    return visible != VARIANT_FALSE;
}

void EditorProxy::SetVisible(bool visible) {
    Run([&](_CEditor* editor) { return editor->put_Visible(visible ? VARIANT_TRUE : VARIANT_FALSE); });
}

HWND EditorProxy::Hwnd() const {
    long window = 0;
    Run([&](_CEditor* editor) { return editor->get_hwnd(&window); });
    return static_cast<HWND>(LongToHandle(window));
}

long EditorProxy::ScaleMode() const {
    long mode = 0;
    Run([&](_CEditor* editor) { return editor->get_ScaleMode(&mode); });
    return mode;
}

void EditorProxy::Move(float left, float top, float width, float height) {
    Run([&](_CEditor* editor) { return editor->Move(left, top, width, height); });
}

void EditorProxy::Commit() {
    Run([](_CEditor* editor) { return editor->Commit(); });
}

void EditorProxy::Cancel() {
    Run([](_CEditor* editor) { return editor->Cancel(); });
}

} // namespace ormisk
