#include "platform/FontDescription.h"

#include "automation/ComPtr.h"
#include "automation/Error.h"

#include <comutil.h>

namespace ormisk {

namespace {

// Hosts may bring fonts of their own that answer by number only, so the members are reached that way.
_variant_t Get(IDispatch* font, DISPID member) {
    DISPPARAMS none{};
    _variant_t value;
    SetErrorInfo(0, nullptr); // an older failure is not this one
    Check(font->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr));
    return value;
}

void Put(IDispatch* font, DISPID member, _variant_t value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&value, &put, 1, 1};
    SetErrorInfo(0, nullptr);
    Check(font->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr,
                       nullptr));
}

} // namespace

ComPtr<IFontDisp> NewFont(std::wstring name, LONGLONG size) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = size;
    description.sWeight = FW_NORMAL;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

FontDescription DescribeFont(IUnknown* font) {
    FontDescription description;
    if (!font)
        return description;
    ComPtr<IDispatch> members;
    if (FAILED(font->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(members.GetAddressOf()))))
        Check(font->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(members.GetAddressOf())));
    IDispatch* const f = members.Get();
    const _bstr_t name(Get(f, DISPID_FONT_NAME));
    description.Name.assign(name.length() ? static_cast<const wchar_t*>(name) : L"", name.length());
    description.Size = Get(f, DISPID_FONT_SIZE);
    description.Bold = Get(f, DISPID_FONT_BOLD);
    description.Italic = Get(f, DISPID_FONT_ITALIC);
    description.Underline = Get(f, DISPID_FONT_UNDER);
    description.Strikethrough = Get(f, DISPID_FONT_STRIKE);
    description.Weight = Get(f, DISPID_FONT_WEIGHT);
    description.Charset = Get(f, DISPID_FONT_CHARSET);
    return description;
}

// Weight and Bold move each other: the weight goes first, and Bold is touched only where it does not follow from it.
void ApplyFont(const FontDescription& description, IFontDisp* font) {
    Put(font, DISPID_FONT_NAME, description.Name.c_str());
    Put(font, DISPID_FONT_SIZE, description.Size);
    Put(font, DISPID_FONT_WEIGHT, description.Weight);
    if (static_cast<bool>(Get(font, DISPID_FONT_BOLD)) != description.Bold)
        Put(font, DISPID_FONT_BOLD, description.Bold);
    Put(font, DISPID_FONT_ITALIC, description.Italic);
    Put(font, DISPID_FONT_UNDER, description.Underline);
    Put(font, DISPID_FONT_STRIKE, description.Strikethrough);
    Put(font, DISPID_FONT_CHARSET, description.Charset);
}

ComPtr<IFontDisp> MakeFont(const FontDescription& description) {
    const ComPtr<IFontDisp> font = NewFont(description.Name, 80000);
    ApplyFont(description, font.Get());
    return font;
}

} // namespace ormisk
