#pragma once

#include "automation/DispatchObject.h"
#include "platform/Scale.h"

#include <ormisk.h>

namespace ormisk {

// The editor contract as a class: every operation is empty, nothing is kept. The library's own editors override the
// operations in C++ terms, which may raise; the editor is held during each.
class CEditor : public DispatchObject<_CEditor, ::CEditor> {
public:
    STDMETHODIMP get_ScaleMode(long* pValue) final;
    STDMETHODIMP get_Value(VARIANT* pValue) final;
    STDMETHODIMP put_Value(VARIANT newValue) final;
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) final;
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) final;
    STDMETHODIMP get_hwnd(long* pValue) final;
    STDMETHODIMP put_hFont(long newValue) final;
    STDMETHODIMP Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) final;
    STDMETHODIMP Commit() final;
    STDMETHODIMP Cancel() final;
    STDMETHODIMP Move(float nLeft, float nTop, float nWidth, float nHeight) final;
    STDMETHODIMP init(long hParentWnd) final;

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
};

} // namespace ormisk
