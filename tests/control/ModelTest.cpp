#include "ModelTestTools.h"

#include "automation/ByName.h"
#include "model/ValueKind.h"
#include "model/ValueRules.h"

#include <gtest/gtest.h>

namespace ormisk {
namespace {

constexpr auto kInvalidKey = static_cast<HRESULT>(0x80040003);
constexpr auto kKeyPresent = static_cast<HRESULT>(0x80040005);
constexpr auto kNamePresent = static_cast<HRESULT>(0x80040006);
constexpr auto kInvalidValue = static_cast<HRESULT>(0x8004000A);
constexpr auto kDuplicate = static_cast<HRESULT>(0x800A01C9);
constexpr auto kBadPosition = static_cast<HRESULT>(0x800A0009);
constexpr auto kBadKey = static_cast<HRESULT>(0x800A0005);
_variant_t Short(short number) { return _variant_t(number, VT_I2); }

std::wstring TextShown(CProperty* property) {
    std::wstring text = L"old";
    property->FormatText(text);
    return text;
}

class Model : public testing::Test {
protected:
    ModelFixture model;
    RecordingOwner& owner = model.owner;
    CProperties& properties = *model.properties.Get();
};

// Properties

TEST_F(Model, ColoursFollowTheOwnerUntilAPropertyHasItsOwnAndAreBlackWithoutOne) {
    const auto property = model.Add(L"a");
    owner.backColor = 0x333333;
    OLE_COLOR color = 0;
    property->get_BackColor(&color);
    EXPECT_EQ(color, 0x333333u);
    property->put_BackColor(5);
    EXPECT_EQ(property->ResolvedBackColor(), 5u);
    property->put_BackColor(0xFFFFFFFF);
    properties.ReleaseOwner();
    EXPECT_EQ(property->ResolvedBackColor(), 0u);
    EXPECT_EQ(property->ResolvedForeColor(), 0u);
}

TEST_F(Model, EveryAttributeReportsItsWordOnceAndNothingForTheValueThatItHas) {
    const auto p = model.Add(L"a");
    const auto picture = MakePicture(true);
    owner.Heard();
    const auto put = [&](const wchar_t* name, _variant_t value) {
        const WORD flags = HoldsObject(value) ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
        InvokeByName(p.Get(), name, flags, &value);
    };
    for (int round = 0; round < 2; ++round) {
        for (const wchar_t* name : {L"Bold", L"Italic", L"BackColor", L"ForeColor"})
            put(name, 1L);
        put(L"Picture", Object(picture.Get()));
        for (const wchar_t* name :
             {L"Name", L"Appearance", L"Help", L"ReadOnly", L"Format", L"CustomDraw", L"HelpFile", L"HelpContext"})
            put(name, 1L);
        put(L"Visible", false);
        for (const wchar_t* name : {L"PictureMaskColor", L"Unicode", L"Value", L"Tag", L"EditorType", L"EditorKey"})
            put(name, 1L);
        put(L"AutoUpdateSource", false);
        const wchar_t* expected = round == 0 ? L"Bold, Italic, BackColor, ForeColor, Picture, Name, Appearance, Help, "
                                               L"ReadOnly, Format, CustomDraw, HelpFile, HelpContext, Visible, "
                                               L"PictureMaskColor, Unicode, Value"
                                             : L"";
        EXPECT_EQ(owner.Heard(), expected);
    }
    for (const wchar_t* name : {L"b", L"B"}) {
        p->put_Name(_bstr_t(name));
        EXPECT_EQ(owner.Heard(), L"Name") << "texts are compared exactly";
    }
}

TEST_F(Model, EqualPlainValuesAreNoChangeButObjectsAlwaysReport) {
    const auto property = model.Add(L"a", _variant_t(1L));
    owner.Heard();
    property->LetValue(_variant_t(1L));
    property->LetValue(_variant_t(L"1"));
    EXPECT_EQ(owner.Heard(), L"") << "1 and \"1\" compare equal";
    const auto font = MakeFont();
    property->LetValue(Object(font.Get()));
    property->SetValue(Object(font.Get()));
    EXPECT_EQ(owner.Heard(), L"Value, Value");
    EXPECT_TRUE(SameObject(ObjectOf(property->Value()), font.Get()));
    property->LetValue(_variant_t(7L));
    EXPECT_EQ(owner.Heard(), L"Value");
    EXPECT_EQ(V_I4(&property->Value()), 7);
}

TEST_F(Model, NullIsDroppedOverAValueAndReplacesNothingButNull) {
    const auto five = model.Add(L"a", _variant_t(5L));
    const auto null = model.Add(L"b", Null());
    owner.Heard();
    five->LetValue(Null());
    EXPECT_EQ(V_I4(&five->Value()), 5);
    EXPECT_EQ(owner.Heard(), L"");
    null->LetValue(Null());
    null->LetValue(_variant_t(1L));
    EXPECT_EQ(owner.Heard(), L"Value, Value");
    EXPECT_EQ(V_I4(&null->Value()), 1);
}

TEST_F(Model, SettingAPlainValueAsAnObjectStoresIt) {
    const auto property = model.Add(L"a", _variant_t(5L));
    owner.Heard();
    EXPECT_EQ(property->putref_Value(_variant_t(5L)), S_OK);
    EXPECT_EQ(V_I4(&property->Value()), 5);
    EXPECT_EQ(owner.Heard(), L"Value") << "the old value is given up first, so nothing compares equal";
}

TEST_F(Model, ValuesAreCopiesThatKeepEveryCharacter) {
    std::wstring text(1 << 20, L'x');
    text[5] = L'\0';
    BSTR shared = NewBstr(text);
    const auto property = model.Add(L"a", Reference(VT_BSTR, &shared));
    SysFreeString(shared);
    _variant_t value;
    ASSERT_EQ(property->get_Value(&value), S_OK);
    EXPECT_TRUE(FromBstr(V_BSTR(&value)) == text);
    EXPECT_TRUE(TextShown(property.Get()) == text);

    const _variant_t array = Array();
    property->LetValue(array);
    EXPECT_EQ(V_VT(&property->Value()), VT_ARRAY | VT_I4);
    EXPECT_NE(V_ARRAY(&property->Value()), V_ARRAY(&array));
}

// Source objects

class ModelSource : public Model {
protected:
    struct Call {
        std::wstring member;
        WORD flags;
        VARTYPE type;
        bool operator==(const Call&) const = default;
    };
    ModelSource() {
        source->call = [this](const std::wstring& member, WORD flags, VARIANT* argument, VARIANT* result) {
            calls.push_back({member, flags, argument ? V_VT(argument) : VARTYPE{VT_EMPTY}});
            return answer(flags, argument, result);
        };
        property = properties.AddProperty(nullptr, {.name = L"Width", .source = source.Get()});
        owner.Heard();
    }
    // Accepts what it is given and keeps it.
    HRESULT Keep(WORD flags, VARIANT* argument, VARIANT* result) {
        if (flags == DISPATCH_PROPERTYGET)
            return VariantCopy(result, &kept);
        return VariantCopyInd(&kept, argument);
    }

    ComPtr<ScriptedObject> source = MakeObject<ScriptedObject>();
    std::function<HRESULT(WORD, VARIANT*, VARIANT*)> answer = [this](WORD flags, VARIANT* argument, VARIANT* result) {
        return Keep(flags, argument, result);
    };
    _variant_t kept;
    std::vector<Call> calls;
    ComPtr<CProperty> property;
};

TEST_F(ModelSource, APlainValueIsWrittenByTheFirstNameAndReadBack) {
    property->SetName(L"Breadth");
    answer = [this](WORD flags, VARIANT* argument, VARIANT* result) {
        if (flags == DISPATCH_PROPERTYGET) {
            *result = _variant_t(99L).Detach();
            return S_OK;
        }
        return Keep(flags, argument, result);
    };
    property->LetValue(_variant_t(5L));
    const std::vector<Call> expected{{L"Width", DISPATCH_PROPERTYPUT, VT_I4},
                                     {L"Width", DISPATCH_PROPERTYGET, VT_EMPTY}};
    EXPECT_EQ(calls, expected);
    EXPECT_EQ(V_I4(&property->Value()), 99) << "the source's own idea of the value wins";
    EXPECT_EQ(owner.Heard(), L"Name, Value");
}

TEST_F(ModelSource, ASourceThatSetsItsRowFromWithinComesToNoEnd) {
    _variant_t array; // equal to no other
    V_ARRAY(&array) = SafeArrayCreateVector(VT_I4, 0, 3);
    V_VT(&array) = VT_ARRAY | VT_I4;
    answer = [&](WORD flags, VARIANT* argument, VARIANT* result) {
        if (flags == DISPATCH_PROPERTYPUT && calls.size() < 1000)
            property->LetValue(array);
        return Keep(flags, argument, result);
    };
    property->LetValue(array);
    EXPECT_GT(calls.size(), 2U) << "the first one is written again";
    EXPECT_LT(calls.size(), 100U);
}

TEST_F(ModelSource, ARefusedValueIsTriedOnceMoreAsATypedReference) {
    answer = [this](WORD flags, VARIANT* argument, VARIANT* result) {
        const bool plain = argument && !(V_VT(argument) & VT_BYREF);
        return plain ? DISP_E_TYPEMISMATCH : Keep(flags, argument, result);
    };
    const std::pair<_variant_t, VARTYPE> cases[] = {{_variant_t(5L), VT_I4},
                                                    {Short(6), VT_I2},
                                                    {_variant_t(L"x"), VT_BSTR},
                                                    {_variant_t(true), VT_BOOL},
                                                    {_variant_t(2.5), VT_R8},
                                                    {_variant_t(BYTE{7}), VT_UI1},
                                                    {_variant_t(1.5f), VT_R4},
                                                    {_variant_t(CY{.int64 = 12345}), VT_CY},
                                                    {_variant_t(9.0, VT_DATE), VT_VARIANT}};
    for (const auto& [value, type] : cases) {
        calls.clear();
        property->LetValue(value);
        ASSERT_EQ(calls.size(), 3u) << type;
        EXPECT_EQ(calls[1].type, type | VT_BYREF);
        EXPECT_EQ(CompareValues(property->Value(), value), Comparison::Equal) << type;
    }
}

TEST_F(ModelSource, ASourceThatFailsAltogetherLeavesTheNewValueAndTheHostUntroubled) {
    answer = [](WORD, VARIANT*, VARIANT*) { return E_FAIL; };
    EXPECT_EQ(property->put_Value(_variant_t(5L)), S_OK);
    EXPECT_EQ(V_I4(&property->Value()), 5);
    const auto font = MakeFont();
    EXPECT_EQ(property->putref_Value(Object(font.Get())), S_OK);
    EXPECT_TRUE(SameObject(ObjectOf(property->Value()), font.Get()));
    EXPECT_EQ(owner.Heard(), L"Value, Value");
}

TEST_F(ModelSource, AnObjectIsSetUnderThePresentNameAndTheSameOneIsNotWrittenAgain) {
    property->SetName(L"Breadth");
    const auto font = MakeFont();
    property->SetValue(Object(font.Get()));
    const std::vector<Call> expected{{L"Breadth", DISPATCH_PROPERTYPUTREF, VT_BYREF | VT_VARIANT},
                                     {L"Breadth", DISPATCH_PROPERTYGET, VT_EMPTY}};
    EXPECT_EQ(calls, expected);
    property->SetValue(Object(font.Get()));
    EXPECT_EQ(calls.size(), 2u);
    EXPECT_EQ(owner.Heard(), L"Name, Value, Value");
}

TEST_F(ModelSource, NothingIsWrittenWithoutAutoUpdateOrWithoutAChange) {
    property->LetValue(_variant_t());
    property->put_AutoUpdateSource(VARIANT_FALSE);
    property->LetValue(_variant_t(5L));
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(SameObject(property->SourceObject().Get(), source->Identity()));
    property->SetSourceObject(nullptr);
    EXPECT_TRUE(property->SourceObject()) << "Nothing leaves the old object in place";
}

TEST_F(ModelSource, ASourceThatClearsThePropertiesInTheMiddleOfAWriteDoesNoHarm) {
    answer = [this](WORD, VARIANT*, VARIANT*) {
        properties.RemoveAll();
        property = nullptr;
        return S_OK;
    };
    CProperty* borrowed = property.Get();
    borrowed->LetValue(_variant_t(5L));
    EXPECT_EQ(owner.Heard(), L"cleared, cleared, Value");
}

TEST_F(ModelSource, AMemberIsReadTwice) {
    kept = 3L;
    const _variant_t read = InvokeProperty(source.Get(), L"Width", DISPATCH_PROPERTYGET);
    EXPECT_EQ(V_I4(&read), 3);
    EXPECT_EQ(calls.size(), 2u);
    answer = [](WORD, VARIANT*, VARIANT*) { return E_FAIL; };
    EXPECT_EQ(FailureOf([&] { InvokeProperty(source.Get(), L"Width", DISPATCH_PROPERTYPUT, _variant_t(1L)); }).number,
              E_FAIL);
}

// Editors and texts

TEST_F(Model, ABooleanEditorIsAListOfTwoWithLabelsOfItsOwn) {
    const auto property = model.Add(L"a", _variant_t(true), L"", L"", omBooleanEditor);
    property->ListItems().AddItem(L"by hand", _variant_t(1L));
    omEditorType type{};
    ASSERT_EQ(property->get_EditorType(&type), S_OK);
    EXPECT_EQ(type, omBooleanEditor);
    CListItems& items = property->ListItems();
    ASSERT_EQ(items.CountOf(), 2);
    EXPECT_EQ(items.At(1)->Text(), L"True");
    EXPECT_EQ(V_BOOL(&items.At(1)->Value()), VARIANT_TRUE);
    EXPECT_EQ(items.At(2)->Text(), L"False");
    property->SetEditorParam(_bstr_t(L"False"), _bstr_t(L"No"));
    property->EditorType();
    EXPECT_EQ(items.At(2)->Text(), L"No");
    EXPECT_EQ(property->EditorKind(), omBooleanEditor);
    property->SetEditorParam(_bstr_t(L"True"), _bstr_t(L"NO"));
    EXPECT_EQ(property->get_EditorType(&type), kDuplicate) << "two rows with one text";
}

TEST_F(Model, TheTextOfAValueGoesThroughItsFormatAndEditor) {
    const auto shown = [&](const _variant_t& value, omEditorType editor, const wchar_t* format = L"") {
        const auto property = model.Add(L"p", value, L"", L"", editor);
        property->put_Format(_bstr_t(format));
        std::wstring text = TextShown(property.Get());
        properties.RemoveAll();
        return text;
    };
    EXPECT_EQ(shown(_variant_t(), omTextEditor), L"");
    EXPECT_EQ(shown(kMissing, omTextEditor), L"");
    EXPECT_EQ(shown(_variant_t(L"plain"), omTextEditor), L"plain");
    EXPECT_EQ(shown(_variant_t(L"plain"), omTextEditor, L">"), L"PLAIN");
    EXPECT_EQ(shown(_variant_t(5L), omNumberEditor, L"000"), L"005");
    EXPECT_EQ(shown(_variant_t(5L), omNumberEditor), L"5");
    EXPECT_EQ(shown(_variant_t(), omPictureEditor), L"(none)");
    EXPECT_EQ(shown(_variant_t(), omColorEditor), L"");
    EXPECT_EQ(shown(_variant_t(255L), omColorEditor), L"&H000000FF&");
    EXPECT_EQ(shown(_variant_t(static_cast<long>(0x8000000F)), omColorEditor), L"&H8000000F&");
    EXPECT_EQ(shown(Short(-1), omColorEditor), L"&H0000FFFF&") << "a small number has digits of its own size";
    EXPECT_EQ(shown(_variant_t(255L), omColorEditor, L"0"), L"255");
    EXPECT_EQ(shown(_variant_t(L"unlisted"), omListEditor), L"unlisted");
    EXPECT_EQ(shown(_variant_t(false), omBooleanEditor), L"False");
}

TEST_F(Model, PromptsAndLabelsComeFromParameters) {
    const auto property = model.Add(L"p", _variant_t(), L"", L"", omPictureEditor);
    property->SetEditorParam(_bstr_t(L"NoPicturePrompt"), _bstr_t(L"leer"));
    property->SetEditorParam(_bstr_t(L"(Picture)"), _bstr_t(L"Bild"));
    EXPECT_EQ(TextShown(property.Get()), L"leer");
    property->SetValue(kNothing);
    EXPECT_EQ(TextShown(property.Get()), L"leer");
    property->SetValue(Object(MakePicture(false).Get()));
    EXPECT_EQ(TextShown(property.Get()), L"leer") << "a picture object without an image";
    property->SetValue(Object(MakePicture(true).Get()));
    EXPECT_EQ(TextShown(property.Get()), L"Bild");
    property->RemoveEditorParam(_bstr_t(L"(Picture)"));
    EXPECT_EQ(TextShown(property.Get()), L"(Picture)");

    const auto no = model.Add(L"b", _variant_t(false), L"", L"", omBooleanEditor);
    no->SetEditorParam(_bstr_t(L"False"), _bstr_t(L"No"));
    EXPECT_EQ(TextShown(no.Get()), L"No");
}

TEST_F(Model, TheLastMatchingListEntryGivesTheText) {
    const auto property = model.Add(L"p", _variant_t(2L), L"", L"", omListEditor);
    CListItems& items = property->ListItems();
    items.AddItem(L"one", _variant_t(1L));
    items.AddItem(L"two", _variant_t(2L));
    items.AddItem(L"zwei", _variant_t(L"2"));
    EXPECT_EQ(TextShown(property.Get()), L"zwei");
    const auto font = MakeFont();
    property->SetValue(Object(font.Get()));
    EXPECT_EQ(TextShown(property.Get()), L"") << "an object that no entry holds";
    items.At(1)->put_Value(Object(font.Get()));
    EXPECT_EQ(TextShown(property.Get()), L"one");
}

TEST_F(Model, AnObjectShowsItsDefaultValueAndNothingWhenItHasNone) {
    const auto object = MakeObject<ScriptedObject>();
    object->call = [](const std::wstring& member, WORD, VARIANT*, VARIANT* result) {
        *result = _variant_t(member.c_str()).Detach();
        return S_OK;
    };
    const auto property = model.Add(L"p", Object(object.Get()));
    EXPECT_EQ(TextShown(property.Get()), L"(default)");
    object->call = [](const std::wstring&, WORD, VARIANT*, VARIANT*) { return E_FAIL; };
    EXPECT_EQ(TextShown(property.Get()), L"");
    property->SetValue(kNothing);
    EXPECT_EQ(TextShown(property.Get()), L"");
}

TEST_F(Model, ANullValueHasNoText) {
    const auto property = model.Add(L"p", Null());
    _bstr_t text;
    EXPECT_EQ(property->get_FormattedText(text.GetAddress()), static_cast<HRESULT>(0x800A005E));
    EXPECT_EQ(property->put_Value(_variant_t(1L)), S_OK);
    EXPECT_EQ(property->get_FormattedText(text.GetAddress()), S_OK);
}

TEST_F(Model, EachEditorTakesTheValuesThatItCanEdit) {
    const auto font = Object(MakeFont().Get());
    const auto picture = Object(MakePicture(true).Get());
    const _variant_t nothing = kNothing;
    const _variant_t date(36526.0, VT_DATE), text(L"abc"), number(L"12"), whole(255L), half(2.5);
    struct {
        omEditorType editor;
        std::vector<_variant_t> valid, invalid;
    } const cases[] = {{omNumberEditor, {number, half, _variant_t(true)}, {text, date, nothing}},
                       {omBooleanEditor, {_variant_t(L"True"), whole, half}, {text, nothing}},
                       {omFontEditor, {font, nothing}, {picture, text, whole}},
                       {omDateEditor, {date, _variant_t(L"1/2/2003")}, {whole, text, nothing}},
                       {omFileEditor, {text, whole}, {font, nothing}},
                       {omDirectoryEditor, {text}, {nothing}},
                       {omColorEditor, {whole, _variant_t(L" -5 "), _variant_t(L"")}, {half, text, font}},
                       {omPictureEditor, {picture, nothing}, {font, text}},
                       {omTextEditor, {text, font, date}, {}},
                       {omListEditor, {nothing}, {}}};
    for (const auto& [editor, valid, invalid] : cases) {
        for (const _variant_t& value : valid)
            EXPECT_TRUE(IsValueValidForEditor(value, editor)) << editor << " of " << V_VT(&value);
        for (const _variant_t& value : invalid)
            EXPECT_FALSE(IsValueValidForEditor(value, editor)) << editor << " of " << V_VT(&value);
        for (const _variant_t& none : {_variant_t(), Null(), kMissing})
            EXPECT_TRUE(IsValueValidForEditor(none, editor)) << editor;
    }
}

// Lists

TEST(ModelList, TextsDifferUnlessEmptyAndAnEntryKeepsItsKeyUnderANewText) {
    const auto items = MakeObject<CListItems>();
    ComPtr<_CListItem> item;
    const auto add = [&](const wchar_t* text) {
        return items->Add(_bstr_t(text), _variant_t(1L), item.ReleaseAndGetAddressOf());
    };
    EXPECT_EQ(add(L"Red"), S_OK);
    item->put_Text(_bstr_t(L"Blue"));
    EXPECT_EQ(add(L"RED"), kDuplicate);
    EXPECT_FALSE(item);
    for (const wchar_t* text : {L"blue", L"", L""})
        EXPECT_EQ(add(text), S_OK);
    EXPECT_EQ(items->Remove(1), S_OK);
    EXPECT_EQ(items->At(1)->Text(), L"blue");
    EXPECT_EQ(add(L"Red"), S_OK);
    EXPECT_EQ(items->Remove(9), kBadPosition);
    EXPECT_EQ(items->get_Item(0, item.ReleaseAndGetAddressOf()), kBadPosition);
}

TEST(ModelList, AnObjectIsRefusedByAddAndTakenByTheEntry) {
    const auto items = MakeObject<CListItems>();
    const auto font = MakeFont();
    ComPtr<_CListItem> item;
    EXPECT_EQ(items->Add(_bstr_t(L"a"), Object(font.Get()), item.GetAddressOf()), static_cast<HRESULT>(0x800A01A8));
    EXPECT_EQ(items->CountOf(), 0);
    ASSERT_EQ(items->Add(_bstr_t(L"a"), _variant_t(1L), item.GetAddressOf()), S_OK);
    EXPECT_EQ(item->put_Value(Object(font.Get())), S_OK);
    _variant_t value;
    item->get_Value(&value);
    EXPECT_TRUE(SameObject(ObjectOf(value), font.Get()));
}

// Collection

TEST_F(Model, AddRefusesWithItsOwnNumberAndLeavesTheCollectionAsItWas) {
    model.Add(L"A", _variant_t(1L), L"Cat", L"key");
    struct {
        const wchar_t *name, *category, *key;
        _variant_t value;
        omEditorType editor;
        HRESULT number;
        const wchar_t* text;
    } const cases[] = {
        {L"B", L"", L"", _variant_t(L"abc"), omNumberEditor, kInvalidValue, L"Invalid value for specified editor."},
        {L"B", L"", L" 12 ", {}, omTextEditor, kInvalidKey, L"Invalid key specified."},
        {L"B", L"", L"KEY ", {}, omTextEditor, kKeyPresent, L"Property with this key is already present."},
        {L"a",
         L"CAT",
         L"",
         {},
         omTextEditor,
         kNamePresent,
         L"Property with this name is already present in specified category."}};
    owner.Heard();
    for (const auto& entry : cases) {
        const AutomationError error =
            FailureOf([&] { model.Add(entry.name, entry.value, entry.category, entry.key, entry.editor); });
        EXPECT_EQ(error.number, entry.number);
        EXPECT_EQ(error.description, entry.text);
        EXPECT_EQ(error.source, L"CProperties.Add");
        EXPECT_EQ(properties.CountOf(), 1);
    }
    EXPECT_EQ(owner.Heard(), L"");
    EXPECT_TRUE(model.Add(L"A", {}, L"Other", L"x12"));
    const std::wstring cut(L"12\0a", 4);
    const auto row = model.Add(L"A", {}, L"", cut);
    EXPECT_EQ(properties.FindItem(ToVariant(cut)), row.Get());
}

TEST_F(Model, APropertyIsFoundByPositionHostKeyAndInternalKeyInAnyCase) {
    model.Add(L"A", {}, L"Cat", L"first");
    const auto second = model.Add(L"B", {}, L"Cat");
    EXPECT_EQ(properties.FindItem(_variant_t(L"FIRST"))->Name(), L"A");
    EXPECT_EQ(properties.FindItem(_variant_t(L"cat_b")), second.Get());
    EXPECT_EQ(properties.FindItem(Short(2)), second.Get());
    EXPECT_EQ(properties.FindItem(_variant_t(1.6)), second.Get());
    EXPECT_EQ(properties.FindItem(_variant_t(L"2")), second.Get()) << "numeric text is a position";
    second->SetName(L"C");
    EXPECT_EQ(properties.FindItem(_variant_t(L"Cat_B")), second.Get()) << "renaming does not file anew";
    EXPECT_EQ(FailureOf([&] { properties.FindItem(_variant_t(L"Cat_C")); }).number, kBadKey);
    EXPECT_EQ(FailureOf([&] { properties.FindItem(Null()); }).number, kBadKey);
    EXPECT_EQ(FailureOf([&] { properties.FindItem(_variant_t(3L)); }).number, kBadPosition);
    EXPECT_EQ(FailureOf([&] { properties.FindItem(_variant_t(1e300)); }).number, kBadPosition);
    EXPECT_EQ(FailureOf([&] { model.Add(L"B", {}, L"Cat"); }).number, kNamePresent);
}

TEST_F(Model, AnEmptyCollectionGivesNothingWhateverIsAskedFor) {
    for (const _variant_t& index : {_variant_t(1L), _variant_t(L"x"), Null(), _variant_t()}) {
        ComPtr<_CProperty> property;
        EXPECT_EQ(properties.get_Item(index, property.GetAddressOf()), S_OK);
        EXPECT_FALSE(property);
        EXPECT_EQ(properties.Remove(index), S_OK);
    }
}

TEST_F(Model, RemovalNumbersAnewAndFreesTheKeys) {
    const auto first = model.Add(L"A", {}, L"", L"k");
    model.Add(L"B");
    model.Add(L"C");
    owner.Heard();
    EXPECT_EQ(properties.Remove(_variant_t(1L)), S_OK);
    EXPECT_EQ(owner.Heard(), L"deleted A");
    EXPECT_EQ(properties.FindItem(_variant_t(2L))->Name(), L"C");
    EXPECT_EQ(properties.FindItem(_variant_t(2L))->Index(), 2);
    EXPECT_FALSE(first->IsFiled());
    EXPECT_TRUE(model.Add(L"A", {}, L"", L"k"));
    EXPECT_EQ(properties.Remove(_variant_t(L"nobody")), kBadKey);
    owner.Heard();
    _variant_t result(5L);
    EXPECT_EQ(properties.Clear(&result), S_OK);
    EXPECT_EQ(V_VT(&result), VT_EMPTY);
    EXPECT_EQ(owner.Heard(), L"cleared") << "no property is reported by itself";
    EXPECT_TRUE(model.Add(L"A", {}, L"", L"k"));
}

TEST_F(Model, ASecondChildOfTheSameNameIsDroppedSilently) {
    const auto parent = model.Add(L"P", {}, L"Cat");
    const auto child = model.AddChild(parent.Get(), L"x", L"Cat");
    EXPECT_EQ(child->InternalKey(), L"Cat_P_x");
    owner.Heard();
    const _variant_t value(1L);
    EXPECT_FALSE(
        properties.AddProperty(parent.Get(), {.name = L"X", .value = &value, .category = L"Cat", .key = L"k"}));
    EXPECT_EQ(owner.Heard(), L"");
    EXPECT_EQ(properties.CountOf(), 2);
    EXPECT_TRUE(model.Add(L"other", {}, L"", L"k")) << "the key of the dropped child is free";
    // What the test for duplicates looks for is not where a child is filed, but anything else may be.
    model.Add(L"Cat_P_y", {}, L"Cat");
    EXPECT_EQ(FailureOf([&] { model.AddChild(parent.Get(), L"y", L"Cat"); }).number, kNamePresent);
}

TEST_F(Model, ListenersOfTheCollectionHearOfItWhateverTheOwnerDoes) {
    std::wstring heard;
    const auto listener = MakeObject<Listener>(properties);
    listener->call = [&](const std::wstring& event, WORD, VARIANT* arguments, VARIANT*) {
        // The parent stands behind the property, so in front of it in the list.
        const bool child = event == L"2" && V_DISPATCH(&arguments[0]);
        heard += event + (child ? L" child, " : L", ");
        return E_FAIL;
    };
    owner.onAdded = [](CProperty&) { Raise(ErrorCode::InvalidAction); };
    const auto parent = model.Add(L"A");
    model.AddChild(parent.Get(), L"b");
    properties.Remove(_variant_t(2L));
    _variant_t result;
    properties.Clear(&result);
    EXPECT_EQ(heard, L"2, 2 child, 3, 4, ");
}

} // namespace
} // namespace ormisk
