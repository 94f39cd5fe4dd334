#pragma once

#include "model/CProperty.h"

namespace ormisk {

// The arguments of an addition. The texts are borrowed for the call.
struct NewProperty {
    std::wstring_view name = {};
    const VARIANT* value = nullptr; // null or missing: none given
    std::wstring_view category = {};
    std::wstring_view key = {};
    IDispatch* source = nullptr;
    bool autoUpdate = true;
    omEditorType editorType = omTextEditor;
    std::wstring_view editorKey = {};
    bool readOnly = false;
};

// All properties of a control in the order in which they were added: decides whether one may exist, makes it and tells
// the owner. Positions count from 1.
class CProperties : public DispatchObject<_CProperties, ::CProperties, __CProperties> {
public:
    // Without an owner nothing is added.
    void Init(PropertyOwner* owner);
    // Cuts the way back to the owner, for the collection and for every property that it made, which let their objects
    // go.
    void ReleaseOwner();
    // All objects that the properties hold are let go, in values, tags and list entries as well.
    void LetObjectsGo();
    // How often the owner's control is among them.
    ULONG ControlReferences() const { return m_Owner ? m_Owner->ControlReferences() : 0; }

    // Raises InvalidEditorValue, InvalidKey, PropertyKeyPresent or PropertyNamePresent, with nothing changed. Null
    // without an owner, and for a second child of the same name under one parent.
    ComPtr<CProperty> AddProperty(CProperty* parent, const NewProperty& arguments);

    long CountOf() const { return m_Items.Count(); }
    CProperty* At(long position) const;                          // raises
    CProperty* ItemByInternalKey(const std::wstring& key) const; // null when there is none
    CProperty* ItemByKey(std::wstring_view key) const;           // given by the host; null when there is none
    CProperty* FindItem(const VARIANT& indexOrKey) const;        // null in an empty collection; raises
    void RemoveByInternalKey(const std::wstring& key);           // raises
    // The halves of a removal, for the owner that removes child rows in between: the property leaves the collection,
    // and the host hears of it.
    ComPtr<CProperty> TakeOut(const std::wstring& key); // raises
    void TellRemoved(CProperty& property);
    void RemoveAll();
    // The property of ours that any object is, by identity; null for a foreign or removed one, whatever it claims to
    // be.
    CProperty* Own(IUnknown* object) const;
    bool Owns(_CProperty* property) const { return Own(property) != nullptr; }

    STDMETHODIMP Add(BSTR name, VARIANT* value, BSTR category, BSTR* key, IDispatch** source, VARIANT_BOOL autoUpdate,
                     omEditorType* editorType, _CProperty** property) override;
    STDMETHODIMP get_Item(VARIANT indexOrKey, _CProperty** property) override;
    STDMETHODIMP get_Count(long* count) override;
    STDMETHODIMP get_NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Clear(VARIANT* result) override;
    STDMETHODIMP Remove(VARIANT indexOrKey) override;
    STDMETHODIMP Add2(BSTR name, VARIANT* value, BSTR category, BSTR* key, IDispatch** source, VARIANT_BOOL autoUpdate,
                      omEditorType* editorType, BSTR editorKey, _CProperty** property) override;
    // Add and Add2 read their arguments themselves: optional by-reference arguments may be left out.
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;

protected:
    ~CProperties() override;

private:
    PropertyOwner* Owner() const { return m_Owner ? m_Owner->Get() : nullptr; }
    void CheckArguments(CProperty* parent, const NewProperty& arguments, std::wstring_view key) const;
    void FireWith(DISPID id, CProperty& property);
    HRESULT InvokeAdd(LCID locale, const DISPPARAMS& parameters, bool withEditorKey, VARIANT* result,
                      UINT* badArgument);

    KeyedCollection<CProperty, ComPtr<CProperty>, &CProperty::FiledKey> m_Items;
    KeyTable<CProperty, &CProperty::HostKey> m_Keys;
    Ref<OwnerLink> m_Owner;
};

} // namespace ormisk
