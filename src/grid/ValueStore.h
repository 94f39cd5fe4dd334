#pragma once

#include "automation/Value.h"

#include <ocidl.h>
#include <olectl.h>

namespace ormisk {

// Values as an edit compares and stores them.

// Whether an editor's value is what the property has: fonts by their description, pictures by their default members,
// other objects never.
bool ValuesEqual(const VARIANT& a, const VARIANT& b);

// A font object of its own with the description of another. Raises.
ComPtr<IFontDisp> CopyFont(IUnknown* font);

// The picture in a file; null when there is none to be had.
ComPtr<IPictureDisp> LoadPictureFile(const std::wstring& path);

} // namespace ormisk
