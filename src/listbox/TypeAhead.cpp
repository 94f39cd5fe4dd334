#include "listbox/TypeAhead.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr std::uint64_t kPause = 1000; // ends a word

bool StartsWith(std::wstring_view text, std::wstring_view start, UpperCaser upper) {
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(),
                                                     [&](wchar_t typed, wchar_t own) { return typed == upper(own); });
}

} // namespace

std::optional<long> TypeAhead::Type(wchar_t character, std::uint64_t now, long current, long count,
                                    const TextOfEntry& text, UpperCaser upper) {
    if (now - m_Last > kPause)
        m_Typed.clear();
    m_Last = now;
    m_Typed += upper(character);

    // Each entry once, beginning with `first`.
    const auto find = [&](std::wstring_view start, long first) -> std::optional<long> {
        for (long i = 0; i < count; ++i) {
            const long entry = (first + i) % count;
            if (StartsWith(text(entry), start, upper))
                return entry;
        }
        return std::nullopt;
    };
    // A word that grows may stay where it is; a single letter moves on.
    if (m_Typed.size() > 1) {
        if (const auto found = find(m_Typed, std::max(current, 0L)))
            return found;
    }
    if (m_Typed.find_first_not_of(m_Typed.front()) != std::wstring::npos)
        return std::nullopt;
    return find(m_Typed.substr(0, 1), current + 1);
}

} // namespace ormisk
