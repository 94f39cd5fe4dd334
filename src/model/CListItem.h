#pragma once

#include "automation/DispatchObject.h"
#include "automation/Value.h"
#include "model/KeyFold.h"
#include "model/ObjectHolder.h"

#include <ormisk.h>

namespace ormisk {

// An entry of a list of values: a value and the text shown for it.
class CListItem : public DispatchObject<_CListItem, ::CListItem>, public ObjectHolder {
public:
    CListItem(std::wstring text, const VARIANT& value, const Ref<OwnerLink>& link);

    const std::wstring& Text() const { return m_Text; }
    const VARIANT& Value() const { return m_Value; }
    // The text at the time of adding, under which the list files the entry.
    FoldedKey FiledKey() const { return FoldedKey(m_Key ? *m_Key : m_Text); }

    void LetObjectsGo() override;
    IUnknown* Identity() override { return DispatchObject::Identity(); }

    // An object is kept by reference.
    STDMETHODIMP get_Value(VARIANT* value) override;
    STDMETHODIMP put_Value(VARIANT value) override;
    STDMETHODIMP get_Text(BSTR* text) override;
    STDMETHODIMP put_Text(BSTR text) override;

private:
    void FinalRelease() override { Unlist(); }

    std::wstring m_Text;
    std::unique_ptr<const std::wstring> m_Key; // only once the text is another
    _variant_t m_Value;
};

} // namespace ormisk
