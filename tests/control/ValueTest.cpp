// Values and calls of hosts: arguments converted, by reference and by name, or too many; colours in every form; objects
// that are their own default; texts that are too long or cannot be made.

#include "ModelTestTools.h"

#include "automation/ByName.h"
#include "model/ValueRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace ormisk {
namespace {

constexpr std::uint32_t kFace = 0x8000000F;

// A value of a type that has no constructor here.
template <class Number> _variant_t Raw(VARTYPE type, Number number) {
    _variant_t value;
    V_VT(&value) = type;
    std::memcpy(&V_I8(&value), &number, sizeof number);
    return value;
}

_variant_t Decimal(double number) {
    _variant_t value;
    VarDecFromR8(number, &V_DECIMAL(&value));
    V_VT(&value) = VT_DECIMAL;
    return value;
}

class Values : public testing::Test {
protected:
    // Calls a member as a script does. The arguments are in the order of the declaration, the named ones last.
    HRESULT Call(IDispatch* object, const wchar_t* member, WORD flags, std::vector<VARIANT> arguments,
                 std::vector<DISPID> named = {}) {
        wchar_t* name = const_cast<wchar_t*>(member);
        DISPID id = DISPID_UNKNOWN;
        Check(object->GetIDsOfNames(IID_NULL, &name, 1, 0x409, &id));
        const bool puts = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
        if (puts)
            named = {DISPID_PROPERTYPUT};
        std::reverse(arguments.begin(), arguments.end());
        std::reverse(named.begin(), named.end());
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
        result.Clear();
        EXCEPINFO exception{};
        const HRESULT hr =
            object->Invoke(id, IID_NULL, 0x409, flags, &parameters, puts ? nullptr : &result, &exception, &badArgument);
        return hr == DISP_E_EXCEPTION ? TakeException(exception).number : hr;
    }
    HRESULT Call(const wchar_t* member, WORD flags, std::vector<VARIANT> arguments) {
        return Call(row.Get(), member, flags, std::move(arguments));
    }
    HRESULT Add(std::vector<VARIANT> arguments, std::vector<DISPID> named = {}) {
        return Call(model.properties.Get(), L"Add", DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments),
                    std::move(named));
    }
    CProperty* Added() { return model.properties->Own(ObjectOf(result)); }
    HRESULT Let(const wchar_t* member, VARIANT value) { return Call(member, DISPATCH_PROPERTYPUT, {value}); }
    HRESULT TextFailure() {
        _bstr_t text;
        return row->get_FormattedText(text.GetAddress());
    }
    std::wstring Shown(const VARIANT& value, const wchar_t* format = L"", omEditorType editor = omTextEditor) {
        row->SetEditorType(editor);
        row->put_Format(_bstr_t(format));
        row->LetValue(value);
        std::wstring text;
        row->FormatText(text);
        return text;
    }

    ModelFixture model;
    ComPtr<CProperty> row = model.Add(L"row");
    _variant_t result;
    UINT badArgument = 99;
};

TEST_F(Values, ArgumentsAreConvertedAndReferencesFollowed) {
    _variant_t value(7L), editor(L"3"), key(L" k ");
    ASSERT_EQ(Add({_variant_t(5L), Reference(value), _variant_t(L"Cat"), Reference(key),
                   _variant_t(model.properties.Get()), _variant_t(0L), Reference(editor)}),
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

TEST_F(Values, TypedReferencesAreFollowedToo) {
    BSTR name = SysAllocString(L"A"), key = SysAllocString(L" k");
    IDispatch* object = model.properties.Get();
    long editor = omNumberEditor;
    EXPECT_EQ(Add({Reference(VT_BSTR, &name), kMissing, kMissing, Reference(VT_BSTR, &key),
                   Reference(VT_DISPATCH, &object), kMissing, Reference(VT_I4, &editor)}),
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

TEST_F(Values, ArgumentsGoByNameToo) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Add"), const_cast<LPOLESTR>(L"eEditorType"),
                        const_cast<LPOLESTR>(L"sKey")};
    DISPID ids[3]{};
    Check(model.properties->GetIDsOfNames(IID_NULL, names, 3, 0x409, ids));
    ASSERT_EQ(Add({_variant_t(L"A"), _variant_t(3L), _variant_t(L"k")}, {ids[1], ids[2]}), S_OK);
    EXPECT_EQ(Added()->Name(), L"A");
    EXPECT_EQ(Added()->EditorKind(), omNumberEditor);
    EXPECT_EQ(Added()->Key(), L"k");
}

TEST_F(Values, ABadCallNamesTheArgumentAndAddsNothing) {
    const _variant_t a(L"A"), object(kNothing);
    EXPECT_EQ(Add({}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(Add({kMissing, _variant_t(1L)}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(Add({a, a, a, a, object, a, a, a}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Add({a, kMissing, kMissing, kMissing, kMissing, kMissing, _variant_t(L"no number")}),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument, 0u) << "the last argument comes first in the list";
    EXPECT_EQ(Add({a, kMissing, kMissing, kMissing, _variant_t(5L)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Add({a, kMissing, object}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Add({a, a}, {77}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(Add({a, a}, {0}), DISP_E_PARAMNOTFOUND) << "the name is given twice";
    EXPECT_EQ(model.properties->CountOf(), 1);
}

TEST_F(Values, EarlyBoundCallersMayPassNullPointers) {
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

TEST_F(Values, AColourComesInEveryFormOfANumberOf32Bits) {
    const double face = kFace;
    const std::int64_t wide = kFace;
    const std::pair<std::uint32_t, std::vector<_variant_t>> taken[] = {
        {kFace,
         {_variant_t(static_cast<long>(kFace)), Raw(VT_INT, static_cast<int>(kFace)), Raw(VT_UI4, kFace),
          Raw(VT_UINT, kFace), Raw(VT_I8, wide), Raw(VT_UI8, wide), _variant_t(face), Decimal(face),
          _variant_t(CY{.int64 = wide * 10000}), _variant_t(L"2147483663"), _variant_t(L"&H8000000F&")}},
        {0xFFFFFFFF,
         {_variant_t(short{-1}), Raw(VT_I8, std::int64_t{-1}), _variant_t(-1.0F), _variant_t(4294967295.0),
          _variant_t(true)}},
        {255, {_variant_t(BYTE{255}), _variant_t(L"&hfF")}},
        {0xFFFFFFFE, {Raw(VT_I1, std::int8_t{-2})}},
        {65535, {Raw(VT_UI2, std::uint16_t{65535})}},
        {0x80000000, {_variant_t(-2147483648.0)}},
        {0x8000000D, {_variant_t(L"-2147483635")}},
        {7, {_variant_t(7.0, VT_DATE)}},
        {2, {_variant_t(2.5)}},
        {0, {_variant_t()}}};
    for (const auto& [expected, values] : taken)
        for (_variant_t value : values)
            for (const VARIANT& given : {static_cast<const VARIANT&>(value), Reference(value)}) {
                row->SetBackColor(0x123456);
                EXPECT_EQ(Let(L"BackColor", given), S_OK) << V_VT(&value);
                EXPECT_EQ(row->RawBackColor(), expected) << V_VT(&value);
            }
    const double none = std::numeric_limits<double>::quiet_NaN();
    const std::pair<HRESULT, std::vector<_variant_t>> refused[] = {
        {DISP_E_OVERFLOW,
         {_variant_t(4294967296.0), _variant_t(-2147483649.0), Raw(VT_I8, wide * 2), _variant_t(none),
          _variant_t(L"&H123456789")}},
        {DISP_E_TYPEMISMATCH, {_variant_t(L"red"), Null(), Array(), kNothing}}};
    row->SetForeColor(0x123456);
    for (const auto& [failure, values] : refused)
        for (const _variant_t& value : values) {
            EXPECT_EQ(Let(L"ForeColor", value), failure) << V_VT(&value);
            EXPECT_EQ(row->RawForeColor(), 0x123456U);
        }
    // What is handed out is a number that is taken back, and that scripts can compare.
    EXPECT_EQ(Let(L"PictureMaskColor", _variant_t(face)), S_OK);
    EXPECT_EQ(Call(L"PictureMaskColor", DISPATCH_PROPERTYGET, {}), S_OK);
    EXPECT_EQ(V_VT(&result), VT_I4);
    EXPECT_EQ(V_I4(&result), static_cast<long>(kFace));
    // The value of a colour row shows in all these forms as well.
    for (const _variant_t& value : {_variant_t(face), Raw(VT_I8, wide), Raw(VT_UI4, kFace), _variant_t(L"2147483663")})
        EXPECT_EQ(Shown(value, L"", omColorEditor), L"&H8000000F&") << V_VT(&value);
}

TEST_F(Values, AnObjectThatIsItsOwnDefaultHasNeitherTextNorNumber) {
    const auto first = MakeObject<CListItem>(L"first", _variant_t(), Ref<OwnerLink>());
    const auto second = MakeObject<CListItem>(L"second", _variant_t(5L), Ref<OwnerLink>());
    const _variant_t holder(static_cast<IDispatch*>(first.Get()));
    first->put_Value(_variant_t(static_cast<IDispatch*>(second.Get())));
    EXPECT_EQ(TextOf(holder), L"5") << "the default of a default";
    for (CListItem* next : {first.Get(), second.Get()}) { // itself, then by way of another
        first->put_Value(_variant_t(static_cast<IDispatch*>(next)));
        second->put_Value(holder);
        EXPECT_EQ(FailureOf([&] { TextOf(holder); }).number, kTypeMismatch);
        EXPECT_FALSE(IsNumeric(holder));
        EXPECT_EQ(Shown(holder), L"");
        EXPECT_EQ(Shown(holder, L"", omColorEditor), L"");
        for (const omEditorType editor : {omNumberEditor, omBooleanEditor, omColorEditor, omDateEditor})
            EXPECT_EQ(FailureOf([&] { model.Add(L"x", holder, L"", L"", editor); }).number,
                      static_cast<HRESULT>(0x8004000A));
        for (const wchar_t* member : {L"Name", L"Bold", L"BackColor", L"EditorType", L"HelpContext"})
            EXPECT_EQ(Let(member, holder), DISP_E_TYPEMISMATCH) << member;
        _variant_t argument(holder);
        for (const wchar_t* member : {L"Add", L"Item", L"Remove"})
            EXPECT_TRUE(FAILED(FailureOf([&] {
                                   InvokeByName(model.properties.Get(), member, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                                &argument);
                               }).number))
                << member;
        // The argument would be for the default member of the value, which has none for it either.
        row->SetValue(holder);
        EXPECT_EQ(Call(L"Value", DISPATCH_PROPERTYGET, {_variant_t(1L)}), DISP_E_NOTACOLLECTION);
    }
    EXPECT_EQ(model.properties->CountOf(), 1);
    first->put_Value(_variant_t());
}

TEST_F(Values, ATextThatCannotBeMadeFailsByTheNumberThatScriptsKnow) {
    const struct {
        _variant_t value;
        omEditorType editor;
        HRESULT number;
        const wchar_t* text;
    } cases[] = {{Array(), omTextEditor, kTypeMismatch, L"Type mismatch"},
                 {_variant_t(L"abc"), omBooleanEditor, kTypeMismatch, L"Type mismatch"},
                 {_variant_t(L"abc"), omColorEditor, kTypeMismatch, L"Type mismatch"},
                 {_variant_t(1e20), omColorEditor, kOverflow, L"Overflow"}};
    for (const auto& entry : cases) {
        const AutomationError error = FailureOf([&] { Shown(entry.value, L"", entry.editor); });
        EXPECT_EQ(error.number, entry.number);
        EXPECT_EQ(error.description, entry.text);
        EXPECT_EQ(TextFailure(), entry.number);
    }
}

TEST_F(Values, AFormatNeverGetsMoreThanTheSystemCanBear) {
    EXPECT_EQ(Shown(_variant_t(1e300), L"0.00"), L"1E+300");
    EXPECT_EQ(Shown(_variant_t(-1.7e308), L"#,##0.00;(#,##0.00)"), L"-1.7E+308");
    EXPECT_EQ(Shown(_variant_t(L"1e300"), L"0.00"), L"1e300") << "a text that reads as a number";
    const _variant_t infinity(std::numeric_limits<double>::infinity());
    EXPECT_EQ(Shown(infinity, L"0"), TextOf(infinity));
    EXPECT_EQ(Shown(_variant_t(5L), (std::wstring(400, L'-') + L"0").c_str()), L"5");
    const _variant_t date(2.0, VT_DATE);
    EXPECT_EQ(Shown(date, L"c"), TextOf(date));
    EXPECT_EQ(Shown(_variant_t(1e283), L"x$E+00"), L"1E+283");
    EXPECT_EQ(Shown(_variant_t(5L), L"0AM/PM"), L"5") << "a number is no time of day";
    // What can be formatted is.
    EXPECT_EQ(Shown(_variant_t(1e60), L"0.0"), L"1" + std::wstring(60, L'0') + L".0");
    EXPECT_EQ(Shown(_variant_t(1e300), L"0.00E+00"), L"1.00E+300");
    EXPECT_EQ(Shown(_variant_t(1e-300), L"0.00"), L"0.00");
    EXPECT_EQ(Shown(_variant_t(38000.5, VT_DATE), L"dddd, d mmmm yyyy hh:nn:ss"),
              L"Wednesday, 14 January 2004 12:00:00");
    // A long text has its case at least.
    const std::wstring letters(100'000, L'x'), capitals(100'000, L'X');
    EXPECT_EQ(Shown(ToVariant(letters), L">"), capitals);
    EXPECT_EQ(Shown(ToVariant(capitals), L"<"), letters);
    EXPECT_EQ(Shown(ToVariant(letters), L"0.00"), letters);
    std::wstring beginning;
    row->FormatText(beginning, 10);
    EXPECT_EQ(beginning, letters.substr(0, 10));
}

TEST_F(Values, ACallThatTheTypeLibraryDoesNotKnowIsRefusedBeforeItRuns) {
    const auto picture = MakePicture(false);
    _variant_t object = Object(picture.Get()), null(Null());
    const _variant_t other(static_cast<IDispatch*>(row.Get())), number(5L);
    constexpr WORD kLet = DISPATCH_PROPERTYPUT, kSet = DISPATCH_PROPERTYPUTREF, kGet = DISPATCH_PROPERTYGET;
    // Only by reference.
    EXPECT_EQ(Let(L"Picture", Reference(object)), S_OK);
    EXPECT_TRUE(SameObject(row->Picture(), picture.Get()));
    EXPECT_EQ(Let(L"Picture", number), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Let(L"Picture", other), DISP_E_TYPEMISMATCH) << "an object of another kind";
    EXPECT_EQ(Call(L"Picture", kLet | kSet, {other}), DISP_E_TYPEMISMATCH);
    EXPECT_TRUE(row->Picture());
    EXPECT_EQ(Let(L"Picture", Reference(null)), S_OK) << "null is no object";
    EXPECT_FALSE(row->Picture());
    // Only by value, or not at all.
    EXPECT_EQ(Call(L"Name", kSet, {object}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Call(L"Name", kLet | kSet, {_variant_t(L"n")}), S_OK);
    EXPECT_EQ(row->Name(), L"n");
    EXPECT_EQ(Let(L"Index", number), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Let(L"SetEditorParam", number), DISP_E_MEMBERNOTFOUND);
    // Both: the object itself, and the number that it would have for a default.
    for (const WORD flags : {kLet, kSet, static_cast<WORD>(kLet | kSet)}) {
        EXPECT_EQ(Call(L"Tag", flags, {other}), S_OK);
        EXPECT_EQ(Call(L"Tag", kGet, {}), S_OK);
        EXPECT_TRUE(SameObject(ObjectOf(result), row->Identity()));
        EXPECT_EQ(Let(L"Tag", number), S_OK);
    }
    // An argument too many, or for what takes none: Nothing, a text, an object's default member.
    EXPECT_EQ(Call(L"BackColor", kLet, {number, number}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(L"RemoveEditorParam", DISPATCH_METHOD, {_variant_t(L"a"), _variant_t(L"b")}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(L"Picture", kGet, {number}), DISP_E_NOTACOLLECTION);
    EXPECT_EQ(Call(L"Name", kGet, {number}), DISP_E_NOTACOLLECTION);
    row->ListItems().AddItem(L"entry", number);
    EXPECT_EQ(Call(L"ListItems", kGet, {_variant_t(1L)}), S_OK);
    EXPECT_TRUE(SameObject(ObjectOf(result), row->ListItems().At(1)->Identity()));
    EXPECT_EQ(Call(L"ListItems", kGet, {_variant_t(2L)}), static_cast<HRESULT>(0x800A0009));
}

} // namespace
} // namespace ormisk
