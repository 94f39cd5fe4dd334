#pragma once

#include "platform/Color.h"
#include "platform/FontDescription.h"

#include <comdef.h>

namespace ormisk {

// Automation's form of each kind of setting, as a store keeps it.

_variant_t ToStored(long value);
_variant_t ToStored(Color value);
_variant_t ToStored(bool value);
_variant_t ToStored(float value);
_variant_t ToStored(const std::wstring& value);
_variant_t ToStored(const FontDescription& value); // Nothing without a name
_variant_t ToStored(const Microsoft::WRL::ComPtr<IPictureDisp>& value);

// Raise for a value that is none of their kind, and leave the setting as it is. Nothing is no font either, but leaves
// the one that is there without a word.
void FromStored(const _variant_t& value, long& setting);
void FromStored(const _variant_t& value, Color& setting);
void FromStored(const _variant_t& value, bool& setting);
void FromStored(const _variant_t& value, float& setting);
void FromStored(const _variant_t& value, std::wstring& setting);
void FromStored(const _variant_t& value, FontDescription& setting);
void FromStored(const _variant_t& value, Microsoft::WRL::ComPtr<IPictureDisp>& setting);

} // namespace ormisk
