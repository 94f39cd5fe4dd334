#pragma once

#include "win/Geometry.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ormisk {

// Two forms of text meet in the control. Plain text is ordinary text. In Unicode mode hosts hand in byte-expanded text:
// each character stands for one byte of the UTF-16 text that is meant, widened under the system code page.

// How many real characters a byte-expanded text of this length stands for.
std::size_t RealCharacterCount(std::size_t expandedLength);

// The bytes of a text in memory, low byte first.
std::string BytesOfText(std::wstring_view text);

// The inverse: writes RealCharacterCount(bytes.size()) characters to `out`. A missing last byte counts as 0.
void TextOfBytes(std::string_view bytes, wchar_t* out);

// The byte-expanded form of a plain text, for literals of our own that are shown in Unicode mode.
std::wstring ExpandText(std::wstring_view plain);

// The text that a byte-expanded one stands for.
std::wstring NarrowText(std::wstring_view expanded);

// Where a text of this size starts on systems that cannot align wide text themselves: always centred vertically,
// horizontally as the drawing format says.
Point WideTextOrigin(const Rect& bounds, Size text, unsigned format);

} // namespace ormisk
