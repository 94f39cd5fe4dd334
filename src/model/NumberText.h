#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ormisk {

// Without the blanks (U+0020 only) at both ends.
std::wstring_view TrimBlanks(std::wstring_view text);

// Whether a text, blanks at the ends aside, is made of digits with at most a "-" in front. An empty text and a lone "-"
// are.
bool IsIntegerText(std::wstring_view text);

// The number that a text begins with, "." as decimal point whatever the locale; 0 without one. Blanks before it do not
// count. A number too large becomes the largest there is.
double NumberFromText(std::wstring_view text);

// "&H" and eight upper-case hex digits and "&".
std::wstring ColorHexText(std::uint32_t color);

} // namespace ormisk
