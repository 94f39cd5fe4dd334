#pragma once

#include "automation/DispatchObject.h"

#include <ormisk.h>

namespace ormisk {

// The editor contract as a class: every operation is empty, nothing is kept.
class CEditor final : public DispatchObject<_CEditor, ::CEditor> {
public:
    STDMETHODIMP get_ScaleMode(long* pValue) override;
    STDMETHODIMP get_Value(VARIANT* pValue) override;
    STDMETHODIMP put_Value(VARIANT newValue) override;
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) override;
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) override;
    STDMETHODIMP get_hwnd(long* pValue) override;
    STDMETHODIMP put_hFont(long newValue) override;
    STDMETHODIMP Reset(_CProperty* aProperty, _CEditorListener* anEditorListener) override;
    STDMETHODIMP Commit() override;
    STDMETHODIMP Cancel() override;
    STDMETHODIMP Move(float nLeft, float nTop, float nWidth, float nHeight) override;
    STDMETHODIMP init(long hParentWnd) override;
};

} // namespace ormisk
