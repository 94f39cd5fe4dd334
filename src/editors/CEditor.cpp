#include "editors/CEditor.h"

namespace ormisk {
namespace {

// An empty body still answers its caller.
template <class T> HRESULT Answer(T* result, T value) {
    if (!result)
        return E_POINTER;
    *result = value;
    return S_OK;
}

} // namespace

STDMETHODIMP CEditor::get_ScaleMode(long* pValue) { return Answer(pValue, 0L); }
STDMETHODIMP CEditor::get_Value(VARIANT* pValue) { return Answer(pValue, VARIANT{}); }
STDMETHODIMP CEditor::put_Value(VARIANT) { return S_OK; }
STDMETHODIMP CEditor::get_Visible(VARIANT_BOOL* pValue) { return Answer<VARIANT_BOOL>(pValue, VARIANT_FALSE); }
STDMETHODIMP CEditor::put_Visible(VARIANT_BOOL) { return S_OK; }
STDMETHODIMP CEditor::get_hwnd(long* pValue) { return Answer(pValue, 0L); }
STDMETHODIMP CEditor::put_hFont(long) { return S_OK; }
STDMETHODIMP CEditor::Reset(_CProperty*, _CEditorListener*) { return S_OK; }
STDMETHODIMP CEditor::Commit() { return S_OK; }
STDMETHODIMP CEditor::Cancel() { return S_OK; }
STDMETHODIMP CEditor::Move(float, float, float, float) { return S_OK; }
STDMETHODIMP CEditor::init(long) { return S_OK; }

} // namespace ormisk
