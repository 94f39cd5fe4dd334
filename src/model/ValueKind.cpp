#include "model/ValueKind.h"

#include "automation/ByName.h"
#include "model/CProperty.h"
#include "model/NumberText.h"
#include "model/ValueRules.h"
#include "platform/FontDescription.h"

#include <shlwapi.h>

namespace ormisk {

namespace {

using Stored = std::optional<_variant_t>;

_variant_t ObjectValue(IDispatch* object) { return _variant_t(object); }

template <VARTYPE type> bool Converts(const VARIANT& value) {
    _variant_t copy;
    return SUCCEEDED(ConvertValue(value, type, copy));
}

template <class... Interfaces> bool IsNothingOr(const VARIANT& value) {
    return HoldsObject(value) && (!ObjectOf(value) || (Query<Interfaces>(ObjectOf(value)) || ...));
}

// Text and number rows.

Stored StoreTyped(const CProperty&, const VARIANT& edited, bool typed) { return typed ? Stored(edited) : std::nullopt; }

// Boolean rows: a list of two, whose labels are parameters.

void FillWithBooleans(CProperty& property) {
    const ComPtr<CListItems> items(&property.ListItems()); // the list tells the host of each entry
    items->RemoveAll();
    const std::wstring trueText = property.ParamOr(L"True", L"True");
    const std::wstring falseText = property.ParamOr(L"False", L"False");
    items->AddItem(trueText, _variant_t(true));
    items->AddItem(falseText, _variant_t(false));
}

void LabelBoolean(CProperty& property, std::size_t, std::wstring& text) {
    _variant_t boolean;
    CheckSystem(ConvertValue(property.Value(), VT_BOOL, boolean));
    std::wstring label = property.EditorParam(V_BOOL(&boolean) != VARIANT_FALSE ? L"True" : L"False");
    if (!label.empty())
        text = std::move(label);
}

// List rows: the last of the entries with a value gives its text.

std::wstring TextOfObjectEntry(CProperty& property, IUnknown* object) {
    std::wstring text;
    for (long i = 1; object && i <= property.ListItems().CountOf(); ++i) {
        const ComPtr<CListItem> item = property.ListItems().At(i);
        if (HoldsObject(item->Value()) && SameObject(ObjectOf(item->Value()), object))
            text = item->Text();
    }
    return text;
}

void TakeTextOfEntry(CProperty& property, std::size_t longest, std::wstring& text) {
    bool found = false;
    for (long i = 1; i <= property.ListItems().CountOf(); ++i) {
        const CListItem* item = property.ListItems().At(i);
        if (!HoldsObject(item->Value()) && CompareValues(item->Value(), property.Value()) == Comparison::Equal) {
            text = item->Text();
            found = true;
        }
    }
    if (!found)
        AssignText(property.Value(), longest, text);
}

// Font rows: a row never shares the editor's font.

Stored StoreCopyOfFont(const CProperty&, const VARIANT& edited, bool) {
    if (!HoldsObject(edited)) // of another editor: the row became one of fonts meanwhile
        Raise(ErrorCode::InvalidPropertyValue);
    const ComPtr<IFontDisp> copy = NewFont(L"Arial", 80000);
    ApplyFont(DescribeFont(ObjectOf(edited)), copy.Get());
    return ObjectValue(copy.Get());
}

// Date, file and directory rows.

bool IsDate(const VARIANT& value) {
    return V_VT(&value) == VT_DATE || (V_VT(&value) == VT_BSTR && Converts<VT_DATE>(value));
}

bool IsNoObject(const VARIANT& value) { return !HoldsObject(value); }

// Colour rows.

bool ReadsAsInteger(const VARIANT& value) {
    bool reads = false;
    return IgnoringFailures([&] { reads = IsIntegerText(TextOf(value)); }) && reads;
}

// The host may turn on the editor when an object is asked for its default value: not in the middle of a load.
_variant_t LoadPlain(CProperty& property) {
    _variant_t value;
    return SUCCEEDED(ResolveDefault(property.Value(), value)) ? value : _variant_t(property.Value());
}

// A number may be a text, or have no sign.
bool IsSameColor(CProperty& property, const VARIANT& edited) {
    const _variant_t present = property.Value();
    std::uint32_t before = 0;
    std::uint32_t now = 0;
    return V_VT(&present) != VT_NULL && SUCCEEDED(ReadColor(present, before)) && SUCCEEDED(ReadColor(edited, now)) &&
           before == now;
}

// The bits that a hexadecimal number shows: those of the value's own size for the small ones, else of a colour.
std::uint32_t BitsOf(const VARIANT& value) {
    if (V_VT(&value) == VT_I2 || V_VT(&value) == VT_BOOL)
        return static_cast<std::uint16_t>(V_I2(&value));
    std::uint32_t color = 0;
    CheckSystem(ReadColor(value, color));
    return color;
}

void ShowHexadecimal(CProperty& property, std::size_t, std::wstring& text) {
    if (property.Format().empty())
        text = ColorHexText(BitsOf(property.Value()));
}

// Picture rows: a prompt stands for the picture, in the editor too, where the user may put the name of a file instead.

// Above 0 when there is an image.
short PictureTypeOf(IUnknown* object) {
    short type = 0;
    if (const ComPtr<IPicture> picture = Query<IPicture>(object)) {
        Check(picture->get_Type(&type));
        return type;
    }
    _variant_t value = InvokeByName(Query<IDispatch>(object).Get(), L"Type", DISPATCH_PROPERTYGET);
    CheckSystem(ConvertValue(value, VT_I2, value));
    return V_I2(&value);
}

bool HasImage(IUnknown* picture) {
    short type = 0;
    IgnoringFailures([&] { type = PictureTypeOf(picture); });
    return type > 0;
}

std::wstring NoPicturePrompt(const CProperty& property) { return property.ParamOr(L"NoPicturePrompt", L"(none)"); }
std::wstring PicturePrompt(const CProperty& property) { return property.ParamOr(L"PicturePrompt", L"(Picture)"); }

std::wstring TextOfPicture(CProperty& property, IUnknown* object) {
    const bool shown = object && PictureTypeOf(object) > 0;
    return shown ? property.ParamOr(L"(Picture)", L"(Picture)") : NoPicturePrompt(property);
}

// A value that is no object becomes Nothing first.
_variant_t LoadPrompt(CProperty& property) {
    if (!HoldsObject(property.Value()))
        property.SetValue(ObjectValue(nullptr));
    const ComPtr<IUnknown> picture(ObjectOf(property.Value()));
    if (!picture)
        return ToVariant(property.ParamOr(L"EmptyPrompt", L"(none)"));
    short type = PICTYPE_UNINITIALIZED; // also of one that does not tell: it is not to be lost
    IgnoringFailures([&] { type = PictureTypeOf(picture.Get()); });
    return ToVariant(type != PICTYPE_NONE ? PicturePrompt(property) : NoPicturePrompt(property));
}

// What the row was loaded with.
bool IsPromptOfPicture(CProperty& property, const VARIANT& edited) {
    return HoldsObject(property.Value()) && !HoldsObject(edited) && TextOf(edited) == TextOf(LoadPrompt(property));
}

// Null when there is none to be had.
ComPtr<IPictureDisp> LoadPictureFile(const std::wstring& path) {
    // Not every system has the call that does both.
    ComPtr<IStream> file;
    ComPtr<IPictureDisp> picture;
    if (FAILED(SHCreateStreamOnFileW(path.c_str(), STGM_READ, file.GetAddressOf())) ||
        FAILED(
            OleLoadPicture(file.Get(), 0, FALSE, IID_IPictureDisp, reinterpret_cast<void**>(picture.GetAddressOf()))) ||
        !HasImage(picture.Get()))
        return nullptr;
    return picture;
}

Stored StorePicture(const CProperty& property, const VARIANT& edited, bool) {
    if (IsNumeric(edited))
        return {};
    const std::wstring text = TextOf(edited);
    if (text == NoPicturePrompt(property))
        return ObjectValue(nullptr);
    if (text == PicturePrompt(property))
        return {};
    return ObjectValue(LoadPictureFile(text).Get());
}

constexpr ValueKind kKinds[] = {
    {.type = omTextEditor, .store = StoreTyped},
    {.type = omNumberEditor, .accepts = IsNumeric, .store = StoreTyped},
    {.type = omBooleanEditor, .accepts = Converts<VT_BOOL>, .plainText = LabelBoolean, .fillList = FillWithBooleans},
    {.type = omFontEditor, .accepts = IsNothingOr<IFont, IFontDisp>, .store = StoreCopyOfFont},
    {.type = omDateEditor, .accepts = IsDate},
    {.type = omFileEditor, .accepts = IsNoObject},
    {.type = omDirectoryEditor, .accepts = IsNoObject},
    {.type = omListEditor, .objectText = TextOfObjectEntry, .plainText = TakeTextOfEntry},
    {.type = omColorEditor,
     .accepts = ReadsAsInteger,
     .plainText = ShowHexadecimal,
     .load = LoadPlain,
     .same = IsSameColor},
    {.type = omPictureEditor,
     .accepts = IsNothingOr<IPicture, IPictureDisp>,
     .emptyText = NoPicturePrompt,
     .objectText = TextOfPicture,
     .load = LoadPrompt,
     .same = IsPromptOfPicture,
     .store = StorePicture},
};
constexpr ValueKind kAnyValue;

} // namespace

const ValueKind& KindOf(omEditorType type) {
    for (const ValueKind& kind : kKinds)
        if (kind.type == type)
            return kind;
    return kAnyValue;
}

bool IsValueValidForEditor(const VARIANT& given, omEditorType type) {
    const ValueKind& kind = KindOf(type);
    if (!kind.accepts)
        return true;
    const _variant_t value = Plain(given);
    return V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL || IsMissing(value) || kind.accepts(value);
}

} // namespace ormisk
