#include "model/KeyFold.h"

namespace ormisk {

namespace {

// The unaccented letters, nearly all that keys are made of, need no table.
wchar_t Fold(wchar_t character) {
    if (static_cast<std::uint32_t>(character) < 0x80)
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + 32) : character;
    return FoldKeyChar(character);
}

} // namespace

FoldedKey::FoldedKey(std::wstring_view key) : text(key), hash(2166136261u) {
    for (const wchar_t character : key)
        hash = (hash ^ static_cast<std::uint32_t>(Fold(character))) * 16777619u;
}

bool SameKey(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && Fold(a[i]) != Fold(b[i]))
            return false;
    return true;
}

} // namespace ormisk
