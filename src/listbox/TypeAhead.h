#pragma once

#include "platform/AccessKey.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace ormisk {

// Finds entries of a list by the letters that are typed at it. Letters in quick succession make up the beginning of a
// text; the same letter again goes on to the next entry with it. Case does not count.
class TypeAhead {
public:
    using TextOfEntry = std::function<std::wstring_view(long)>;

    // The entry to go to from the `current` one, -1 for none, or nothing. `now` counts milliseconds.
    std::optional<long> Type(wchar_t character, std::uint64_t now, long current, long count, const TextOfEntry& text,
                             UpperCaser upper);

private:
    std::wstring m_Typed; // in upper case
    std::uint64_t m_Last = 0;
};

} // namespace ormisk
