#pragma once

#include <cstdint>
#include <string_view>

namespace ormisk {

// Keys compare without regard to case, by the system's lower case of each character.

// The lower case of any character, as the system has it.
wchar_t FoldKeyChar(wchar_t character);

// A key with the hash of its folded text, so that it is folded once however many tables it is looked up in. The text is
// borrowed.
struct FoldedKey {
    FoldedKey() = default;
    explicit FoldedKey(std::wstring_view key);

    std::wstring_view text;
    std::uint32_t hash = 0;
};

bool SameKey(std::wstring_view a, std::wstring_view b);

inline bool operator==(const FoldedKey& a, const FoldedKey& b) { return SameKey(a.text, b.text); }

} // namespace ormisk
