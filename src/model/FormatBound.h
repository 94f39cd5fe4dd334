#pragma once

#include <cstddef>
#include <string_view>

namespace ormisk {

// The system's formatting writes into a buffer that it does not guard. These tell before a call what may come of it.

// Whether a format shows a number digit by digit, however large it is: not as a power of ten, a word or a text.
bool ShowsAllDigits(std::wstring_view format);

// Whether what a format makes of a value with so many characters, or digits before its point, is sure to fit.
bool FitsFormatting(std::wstring_view format, std::size_t length);

} // namespace ormisk
