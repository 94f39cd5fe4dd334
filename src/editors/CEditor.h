#pragma once

#include "automation/DispatchObject.h"
#include "automation/Give.h"
#include "platform/Rounding.h"
#include "platform/Scale.h"

#include <algorithm>
#include <ormisk.h>

namespace ormisk {

// The editor contract as a class: every operation is empty, nothing is kept. The library's own editors override the
// operations in C++ terms, which may raise; the editor is held during each.
class CEditor : public DispatchObject<_CEditor, ::CEditor> {
public:
    STDMETHODIMP get_ScaleMode(long* pValue) final { return Answer(pValue, &CEditor::Scale); }
    STDMETHODIMP get_Value(VARIANT* pValue) final { return Answer(pValue, &CEditor::Value); }
    STDMETHODIMP put_Value(VARIANT newValue) final { return Call(&CEditor::SetValue, newValue); }
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) final { return Answer(pValue, &CEditor::IsVisible); }
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) final {
        return Call(&CEditor::SetVisible, newValue != VARIANT_FALSE);
    }
    STDMETHODIMP get_hwnd(long* pValue) final { return Answer(pValue, &CEditor::WindowNumber); }
    STDMETHODIMP put_hFont(long newValue) final { return Call(&CEditor::SetFont, FromLong<HFONT>(newValue)); }
    STDMETHODIMP Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) final {
        return Call(&CEditor::ResetTo, aProperty, anEditorListener);
    }
    STDMETHODIMP Commit() final { return Call(&CEditor::CommitEdit); }
    STDMETHODIMP Cancel() final { return Call(&CEditor::CancelEdit); }
    STDMETHODIMP Move(float nLeft, float nTop, float nWidth, float nHeight) final {
        return Call(&CEditor::Place, Whole(nLeft), Whole(nTop), Whole(nWidth), Whole(nHeight));
    }
    STDMETHODIMP init(long hParentWnd) final { return Call(&CEditor::Create, FromLong<HWND>(hParentWnd)); }

protected:
    virtual ScaleMode Scale() const { return ScaleMode::User; }
    virtual _variant_t Value() const { return {}; }
    virtual void SetValue(const VARIANT& /*value*/) {}
    virtual bool IsVisible() const { return false; }
    virtual void SetVisible(bool /*visible*/) {}
    virtual HWND Window() const { return nullptr; }
    virtual void SetFont(HFONT /*font*/) {} // stays the caller's
    virtual void ResetTo(_CProperty* /*property*/, _CEditorListener* /*listener*/) {}
    virtual void CommitEdit() {}
    virtual void CancelEdit() {}
    virtual void Place(int /*left*/, int /*top*/, int /*width*/, int /*height*/) {}
    virtual void Create(HWND /*parent*/) {}

private:
    template <class... Params, class... Args> HRESULT Call(void (CEditor::*operation)(Params...), const Args&... args) {
        const ComPtr<_CEditor> held(this); // whatever is called may let it go
        return Guarded(__uuidof(_CEditor), [&] { (this->*operation)(args...); });
    }
    template <class Out, class T> HRESULT Answer(Out* out, T (CEditor::*read)() const) {
        return Guarded(__uuidof(_CEditor), [&] { Give(out, (this->*read)()); });
    }
    long WindowNumber() const { return HandleToLong(Window()); }
    template <class Handle> static Handle FromLong(long handle) { return static_cast<Handle>(LongToHandle(handle)); }
    static int Whole(float length) { return RoundToLong(std::clamp(static_cast<double>(length), -1e9, 1e9)); }
};

} // namespace ormisk
