#include "platform/StoredSetting.h"

#include "automation/Value.h"

namespace ormisk {

_variant_t ToStored(long value) { return value; }
_variant_t ToStored(Color value) { return static_cast<long>(value); }
_variant_t ToStored(bool value) { return value; }
_variant_t ToStored(float value) { return value; }
_variant_t ToStored(const std::wstring& value) { return ToVariant(value); }
_variant_t ToStored(const FontDescription& value) {
    return static_cast<IDispatch*>(value.Name.empty() ? nullptr : MakeFont(value).Get());
}
_variant_t ToStored(const Microsoft::WRL::ComPtr<IPictureDisp>& value) { return static_cast<IDispatch*>(value.Get()); }

// A colour may have been written without a sign.
void FromStored(const _variant_t& value, long& setting) {
    _variant_t number;
    const HRESULT hr = ConvertValue(value, VT_I4, number);
    std::uint32_t bits = 0;
    if (SUCCEEDED(hr))
        setting = V_I4(&number);
    else if (SUCCEEDED(ReadColor(value, bits)))
        setting = static_cast<long>(bits);
    else
        CheckSystem(hr);
}

void FromStored(const _variant_t& value, Color& setting) { CheckSystem(ReadColor(value, setting)); }

void FromStored(const _variant_t& value, bool& setting) {
    _variant_t flag;
    CheckSystem(ConvertValue(value, VT_BOOL, flag));
    setting = V_BOOL(&flag) != VARIANT_FALSE;
}

void FromStored(const _variant_t& value, float& setting) {
    _variant_t number;
    CheckSystem(ConvertValue(value, VT_R4, number));
    setting = V_R4(&number);
}

void FromStored(const _variant_t& value, std::wstring& setting) { setting = TextOf(value); }

void FromStored(const _variant_t& value, FontDescription& setting) {
    if (!HoldsObject(value))
        CheckSystem(DISP_E_TYPEMISMATCH);
    IUnknown* const font = ObjectOf(value);
    if (!font)
        return;
    if (!Query<IFont>(font) && !Query<IFontDisp>(font))
        CheckSystem(DISP_E_TYPEMISMATCH);
    setting = DescribeFont(font);
}

void FromStored(const _variant_t& value, Microsoft::WRL::ComPtr<IPictureDisp>& setting) {
    const auto picture = Query<IPictureDisp>(ObjectOf(value));
    if (!HoldsObject(value) || (ObjectOf(value) && !picture))
        CheckSystem(DISP_E_TYPEMISMATCH);
    setting = picture;
}

} // namespace ormisk
