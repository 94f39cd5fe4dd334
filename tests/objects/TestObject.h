#pragma once

#include "automation/ClassFactory.h"
#include "automation/Value.h"
#include "sources/MemberCategory.h"
#include "testobject.h"

#include <map>

namespace ormisk::test {

// The object to be inspected. It holds a value for each of its members, and some members have a temper.
class TestObject final : public IDispatch, public ICategorizeProperties {
public:
    // What it says of its type, by its property Shape.
    enum Shape { Dual, PureDispatch, NoTypeInformation, InterfaceSide, ClassOfIt, FailingCalls };

    TestObject();
    TestObject(const TestObject&) = delete;
    TestObject& operator=(const TestObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return m_References.Add(); }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 1, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override;
    STDMETHODIMP MapPropertyToCategory(DISPID id, PROPCAT* category) override;
    STDMETHODIMP GetCategoryName(PROPCAT category, LCID locale, BSTR* name) override;

private:
    ~TestObject() = default;
    HRESULT Get(DISPID id, VARIANT* result);
    HRESULT Put(DISPID id, const VARIANT& given);
    void CallBack(DISPID id);
    long ShapeNow() const;

    ReferenceCount m_References;
    ComPtr<ITypeInfo> m_Members;
    std::map<DISPID, _variant_t> m_Values;
    long m_Calls = 0;
};

} // namespace ormisk::test
