#pragma once

#include <string>
#include <string_view>

namespace ormisk {

using UpperCaser = wchar_t (*)(wchar_t);

// The upper case of a letter of the unaccented alphabet.
wchar_t PlainUpper(wchar_t letter);

// The upper case of any letter, as the system has it.
wchar_t SystemUpper(wchar_t letter);

// The access key of a caption, upper-cased: the last character behind an odd run of "&". `position` is its index in the
// caption. Without a key the result is empty and the position -1.
std::wstring GetAccessKey(std::wstring_view caption, long& position, UpperCaser upper = PlainUpper);

} // namespace ormisk
