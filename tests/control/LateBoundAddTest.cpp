#include "ModelTestTools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ormisk {
namespace {

const _variant_t kMissing(static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR);

// Calls Add and Add2 as a script engine does.
class LateBoundAdd : public testing::Test {
protected:
    // Arguments in the order of the declaration.
    HRESULT Call(const wchar_t* member, std::vector<VARIANT> arguments, std::vector<DISPID> named = {}) {
        ComPtr<IDispatch> dispatch(model.properties.Get());
        DISPID id = 0;
        wchar_t* name = const_cast<wchar_t*>(member);
        Check(dispatch->GetIDsOfNames(IID_NULL, &name, 1, 0x409, &id));
        std::reverse(arguments.begin(), arguments.end());
        std::reverse(named.begin(), named.end());
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
        badArgument = 99;
        result.Clear();
        EXCEPINFO exception{};
        const HRESULT hr = dispatch->Invoke(id, IID_NULL, 0x409, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters,
                                            &result, &exception, &badArgument);
        error = hr == DISP_E_EXCEPTION ? TakeException(exception) : AutomationError{};
        return hr;
    }
    CProperty* Added() { return model.properties->Own(ObjectOf(result)); }
    std::vector<DISPID> Named(const std::vector<const wchar_t*>& names) {
        std::vector<wchar_t*> all{const_cast<wchar_t*>(L"Add")};
        for (const wchar_t* name : names)
            all.push_back(const_cast<wchar_t*>(name));
        std::vector<DISPID> ids(all.size());
        Check(model.properties->GetIDsOfNames(IID_NULL, all.data(), static_cast<UINT>(all.size()), 0x409, ids.data()));
        return {ids.begin() + 1, ids.end()};
    }

    ModelFixture model;
    _variant_t result;
    AutomationError error;
    UINT badArgument = 0;
};

TEST_F(LateBoundAdd, ArgumentsAreConvertedAndReferencesFollowed) {
    _variant_t value(7L), editor(L"3"), key(L" k ");
    VARIANT valueReference{}, editorReference{}, keyReference{};
    V_VT(&valueReference) = V_VT(&editorReference) = V_VT(&keyReference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&valueReference) = &value;
    V_VARIANTREF(&editorReference) = &editor;
    V_VARIANTREF(&keyReference) = &key;
    ASSERT_EQ(Call(L"Add", {_variant_t(5L), valueReference, _variant_t(L"Cat"), keyReference,
                            _variant_t(model.properties.Get()), _variant_t(0L), editorReference}),
              S_OK);
    CProperty* property = Added();
    ASSERT_TRUE(property);
    EXPECT_EQ(property->Name(), L"5");
    EXPECT_EQ(V_I4(&property->Value()), 7);
    EXPECT_EQ(property->Key(), L"k");
    EXPECT_EQ(property->EditorKind(), omNumberEditor);
    EXPECT_FALSE(property->AutoUpdateSource());
    EXPECT_TRUE(SameObject(property->SourceObject().Get(), model.properties->Identity()));
    EXPECT_STREQ(V_BSTR(&key), L"k") << "the key comes back as it was filed";
}

TEST_F(LateBoundAdd, TypedReferencesAreFollowedToo) {
    BSTR name = SysAllocString(L"A"), key = SysAllocString(L" k");
    IDispatch* object = model.properties.Get();
    long editor = omNumberEditor;
    VARIANT nameReference{}, keyReference{}, objectReference{}, editorReference{};
    V_VT(&nameReference) = V_VT(&keyReference) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&nameReference) = &name;
    V_BSTRREF(&keyReference) = &key;
    V_VT(&objectReference) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&objectReference) = &object;
    V_VT(&editorReference) = VT_BYREF | VT_I4;
    V_I4REF(&editorReference) = &editor;
    EXPECT_EQ(
        Call(L"Add", {nameReference, kMissing, kMissing, keyReference, objectReference, kMissing, editorReference}),
        S_OK);
    CProperty* property = Added();
    ASSERT_TRUE(property);
    EXPECT_EQ(property->Name(), L"A");
    EXPECT_EQ(property->EditorKind(), omNumberEditor);
    EXPECT_TRUE(SameObject(property->SourceObject().Get(), object));
    EXPECT_STREQ(key, L"k");
    SysFreeString(name);
    SysFreeString(key);
}

TEST_F(LateBoundAdd, ArgumentsGoByNameToo) {
    ASSERT_EQ(Call(L"Add", {_variant_t(L"A"), _variant_t(3L), _variant_t(L"k")}, Named({L"eEditorType", L"sKey"})),
              S_OK);
    EXPECT_EQ(Added()->Name(), L"A");
    EXPECT_EQ(Added()->EditorKind(), omNumberEditor);
    EXPECT_EQ(Added()->Key(), L"k");
}

TEST_F(LateBoundAdd, ABadCallNamesTheArgumentAndAddsNothing) {
    const _variant_t a(L"A"), object(static_cast<IDispatch*>(nullptr));
    EXPECT_EQ(Call(L"Add", {}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(Call(L"Add", {kMissing, _variant_t(1L)}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(Call(L"Add", {a, a, a, a, object, a, a, a}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(L"Add", {a, kMissing, kMissing, kMissing, kMissing, kMissing, _variant_t(L"no number")}),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument, 0u) << "the last argument comes first in the list";
    EXPECT_EQ(Call(L"Add", {a, kMissing, kMissing, kMissing, _variant_t(5L)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(L"Add", {a, kMissing, object}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(L"Add", {a, a}, {77}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(Call(L"Add", {a, a}, {0}), DISP_E_PARAMNOTFOUND) << "the name is given twice";
    EXPECT_EQ(model.properties->CountOf(), 0);
}

TEST_F(LateBoundAdd, EarlyBoundCallersMayPassNullPointers) {
    ComPtr<_CProperty> property;
    EXPECT_EQ(model.properties->Add(nullptr, nullptr, nullptr, nullptr, nullptr, VARIANT_TRUE, nullptr,
                                    property.GetAddressOf()),
              S_OK);
    CProperty* added = model.properties->Own(property.Get());
    ASSERT_TRUE(added);
    EXPECT_EQ(added->InternalKey(), L"_");
    EXPECT_EQ(V_VT(&added->Value()), VT_EMPTY);
    EXPECT_EQ(model.properties->Add(nullptr, nullptr, nullptr, nullptr, nullptr, VARIANT_TRUE, nullptr, nullptr),
              E_POINTER);
    BSTR key = SysAllocString(L" k ");
    EXPECT_EQ(model.properties->Add(_bstr_t(L"A"), nullptr, nullptr, &key, nullptr, VARIANT_TRUE, nullptr,
                                    property.ReleaseAndGetAddressOf()),
              S_OK);
    EXPECT_STREQ(key, L"k");
    SysFreeString(key);
}

} // namespace
} // namespace ormisk
