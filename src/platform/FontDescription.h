#pragma once

#include <string>
#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

namespace ormisk {

// A font as plain values, apart from any font object.
struct FontDescription {
    std::wstring Name;
    double Size = 0; // points, fractions allowed
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
    short Weight = 0;
    short Charset = 0;

    bool operator==(const FontDescription&) const = default;
};

// A font object of the system, in normal weight; the size is in ten-thousandths of a point. Raises.
Microsoft::WRL::ComPtr<IFontDisp> NewFont(std::wstring name, LONGLONG size);

// The values of a font object of any maker. No object gives the default description; a failing member raises.
FontDescription DescribeFont(IUnknown* font);

// Gives a font object all eight values; raises what its members raise.
void ApplyFont(const FontDescription& description, IFontDisp* font);

// A font object of this description. Raises.
Microsoft::WRL::ComPtr<IFontDisp> MakeFont(const FontDescription& description);

} // namespace ormisk
