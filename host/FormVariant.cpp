#include "FormVariant.h"

#include "ComObject.h"
#include "Failure.h"

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
#include <shlwapi.h>

#include <cmath>

namespace ormisk {
namespace {

std::wstring TextOf(BSTR text) { return std::wstring(text ? text : L"", SysStringLen(text)); }

std::optional<FormFont> DescribeFont(IFont* font) {
    FormFont described;
    BSTR name = nullptr;
    CY size{};
    SHORT weight = 0;
    SHORT charset = 0;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    if (FAILED(font->get_Name(&name)))
        return std::nullopt;
    described.name = TextOf(name);
    SysFreeString(name);
    if (FAILED(font->get_Size(&size)) || FAILED(font->get_Weight(&weight)) || FAILED(font->get_Charset(&charset)) ||
        FAILED(font->get_Italic(&italic)) || FAILED(font->get_Underline(&underline)) ||
        FAILED(font->get_Strikethrough(&strikethrough)))
        return std::nullopt;
    described.size = size.int64;
    described.weight = weight;
    described.charset = charset;
    described.italic = italic != FALSE;
    described.underline = underline != FALSE;
    described.strikethrough = strikethrough != FALSE;
    return described;
}

// What a picture writes itself, with the bytes of its file in it where it came from one.
std::optional<FormPicture> BytesOf(IPicture* picture) {
    ComPtr<IPersistStream> persistent;
    ComPtr<IStream> stream;
    STATSTG status{};
    if (FAILED(picture->QueryInterface(IID_PPV_ARGS(&persistent))) ||
        FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) || FAILED(persistent->Save(stream.Get(), TRUE)) ||
        FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr)) || FAILED(stream->Stat(&status, STATFLAG_NONAME)))
        return std::nullopt;
    FormPicture bytes(static_cast<std::size_t>(status.cbSize.QuadPart));
    ULONG read = 0;
    if (FAILED(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read)) || read != bytes.size())
        return std::nullopt;
    return bytes;
}

std::optional<FormValue> OfObject(IUnknown* object) {
    if (!object)
        return FormNothing{};
    ComPtr<IFont> font;
    ComPtr<IPicture> picture;
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&font)))) {
        if (auto described = DescribeFont(font.Get()))
            return std::move(*described);
    } else if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&picture)))) {
        if (auto bytes = BytesOf(picture.Get()))
            return std::move(*bytes);
    }
    return std::nullopt;
}

// Any other plain value is kept as the text of it that is the same for every user.
std::optional<FormValue> AsText(const VARIANT& value) {
    _variant_t text;
    if (FAILED(VariantChangeTypeEx(&text, const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, VT_BSTR)))
        return std::nullopt;
    return TextOf(text.bstrVal);
}

struct ToVariant {
    _variant_t operator()(FormNothing) const { return _variant_t(static_cast<IDispatch*>(nullptr)); }
    _variant_t operator()(bool flag) const { return flag; }
    _variant_t operator()(std::int32_t number) const { return static_cast<long>(number); }
    _variant_t operator()(double number) const { return number; }
    _variant_t operator()(const std::wstring& text) const {
        _variant_t value;
        value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        if (!value.bstrVal)
            throw Failure{L"There is no memory"};
        value.vt = VT_BSTR;
        return value;
    }
    _variant_t operator()(const FormFont& font) const {
        std::wstring name = font.name;
        FONTDESC description{};
        description.cbSizeofstruct = sizeof description;
        description.lpstrName = name.data();
        description.cySize.int64 = font.size;
        description.sWeight = static_cast<SHORT>(font.weight);
        description.sCharset = static_cast<SHORT>(font.charset);
        description.fItalic = font.italic;
        description.fUnderline = font.underline;
        description.fStrikethrough = font.strikethrough;
        ComPtr<IDispatch> made;
        Check(OleCreateFontIndirect(&description, IID_IDispatch, reinterpret_cast<void**>(made.GetAddressOf())),
              L"The font cannot be made");
        return _variant_t(made.Get());
    }
    // The bytes of a file of pictures do as well.
    _variant_t operator()(const FormPicture& picture) const {
        ComPtr<IStream> stream;
        ComPtr<IDispatch> made;
        *stream.GetAddressOf() = SHCreateMemStream(picture.data(), static_cast<UINT>(picture.size()));
        Check(stream ? OleLoadPicture(stream.Get(), 0, FALSE, IID_PPV_ARGS(&made)) : E_OUTOFMEMORY,
              L"The picture cannot be made");
        return _variant_t(made.Get());
    }
};

} // namespace

std::optional<FormValue> ToFormValue(const VARIANT& value) {
    _variant_t plain;
    if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&value))))
        return std::nullopt;
    switch (plain.vt) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_INT:
        return static_cast<std::int32_t>(static_cast<long>(plain));
    case VT_UI4:
    case VT_UINT:
        return static_cast<std::int32_t>(plain.ulVal);
    case VT_R4:
        if (std::isfinite(plain.fltVal))
            return DecimalOf(plain.fltVal);
        return std::nullopt;
    case VT_R8:
        if (std::isfinite(plain.dblVal))
            return plain.dblVal;
        return std::nullopt;
    case VT_BOOL:
        return plain.boolVal != VARIANT_FALSE;
    case VT_BSTR:
        return TextOf(plain.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return OfObject(plain.punkVal);
    default:
        return AsText(plain);
    }
}

_variant_t FromFormValue(const FormValue& value) { return std::visit(ToVariant(), value); }

} // namespace ormisk
