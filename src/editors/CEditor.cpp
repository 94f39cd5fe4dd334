#include "editors/CEditor.h"

#include "automation/Give.h"
#include "platform/Rounding.h"

namespace ormisk {
namespace {

template <class F> HRESULT Call(_CEditor* editor, F&& body) {
    const ComPtr<_CEditor> held(editor); // whatever is called may let it go
    return Guarded(__uuidof(_CEditor), std::forward<F>(body));
}

template <class Handle> Handle FromLong(long handle) { return static_cast<Handle>(LongToHandle(handle)); }

int Whole(float length) { return RoundToLong(static_cast<double>(length)); }

} // namespace

STDMETHODIMP CEditor::get_ScaleMode(long* pValue) {
    return Call(this, [&] { Give(pValue, Scale()); });
}

STDMETHODIMP CEditor::get_Value(VARIANT* pValue) {
    return Call(this, [&] {
        CheckPointer(pValue);
        *pValue = Value().Detach();
    });
}

STDMETHODIMP CEditor::put_Value(VARIANT newValue) {
    return Call(this, [&] { SetValue(newValue); });
}

STDMETHODIMP CEditor::get_Visible(VARIANT_BOOL* pValue) {
    return Call(this, [&] { Give(pValue, IsVisible()); });
}

STDMETHODIMP CEditor::put_Visible(VARIANT_BOOL newValue) {
    return Call(this, [&] { SetVisible(newValue != VARIANT_FALSE); });
}

STDMETHODIMP CEditor::get_hwnd(long* pValue) {
    return Call(this, [&] { Give(pValue, HandleToLong(Window())); });
}

STDMETHODIMP CEditor::put_hFont(long newValue) {
    return Call(this, [&] { SetFont(FromLong<HFONT>(newValue)); });
}

STDMETHODIMP CEditor::Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) {
    return Call(this, [&] { ResetTo(aProperty, anEditorListener); });
}

STDMETHODIMP CEditor::Commit() {
    return Call(this, [&] { CommitEdit(); });
}

STDMETHODIMP CEditor::Cancel() {
    return Call(this, [&] { CancelEdit(); });
}

STDMETHODIMP CEditor::Move(float nLeft, float nTop, float nWidth, float nHeight) {
    return Call(this, [&] { Place(Whole(nLeft), Whole(nTop), Whole(nWidth), Whole(nHeight)); });
}

STDMETHODIMP CEditor::init(long hParentWnd) {
    return Call(this, [&] { Create(FromLong<HWND>(hParentWnd)); });
}

} // namespace ormisk
