#include "model/FormatBound.h"

#include <algorithm>
#include <initializer_list>

namespace ormisk {

namespace {

constexpr std::size_t kBuffer = 250; // of 256, with room for a sign and the end

wchar_t Lower(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

// Six "d" are a long date, "AMPM" is two words of the locale, "e" is an exponent.
std::size_t LengthOf(wchar_t character) {
    switch (Lower(character)) {
    case L'a':
        return 12;
    case L'd':
        return 10;
    case L'e':
        return 6;
    case L'm':
        return 5;
    case L't':
    case L'/':
    case L':':
    case L'.':
    case L',':
        return 4;
    case L'y':
        return 3;
    case L'h':
    case L'n':
    case L's':
    case L'w':
        return 2;
    default:
        return 1;
    }
}

bool IsAnyOf(std::wstring_view format, std::initializer_list<std::wstring_view> names) {
    return std::ranges::any_of(names,
                               [&](std::wstring_view name) { return std::ranges::equal(format, name, {}, Lower); });
}

// The most characters that a format makes by itself, in any locale.
std::size_t LengthOf(std::wstring_view format) {
    std::size_t length = 0;
    for (const wchar_t character : format)
        length += LengthOf(character);
    return length;
}

// A bare "c", the date and time of the locale: the system goes on reading behind the end of such a format. Behind the
// first digit of a section it is a letter.
bool HasGeneralDate(std::wstring_view format) {
    bool quoted = false;
    bool number = IsAnyOf(format, {L"currency", L"percent", L"scientific"});
    for (std::size_t i = 0; i < format.size(); ++i)
        if (format[i] == L'"')
            quoted = !quoted;
        else if (format[i] == L'\\' && !quoted)
            ++i;
        else if (!quoted && Lower(format[i]) == L'c' && !number)
            return true;
        else if (!quoted && (format[i] == L'0' || format[i] == L'#' || format[i] == L';'))
            number = format[i] != L';';
    return false;
}

// A digit, an exponent and its digits, and nothing that could make it mean something else.
bool IsPowerOfTen(std::wstring_view format) {
    const std::size_t exponent = format.find_first_of(L"Ee");
    return format.find_first_not_of(L"0#.,+-Ee") == std::wstring_view::npos && exponent != std::wstring_view::npos &&
           exponent > 0 && (format[exponent - 1] == L'0' || format[exponent - 1] == L'#') &&
           exponent + 1 < format.size() && (format[exponent + 1] == L'+' || format[exponent + 1] == L'-');
}

} // namespace

bool ShowsAllDigits(std::wstring_view format) {
    return IsAnyOf(format, {L"currency", L"fixed", L"standard", L"percent"}) ||
           (format.find_first_of(L"0#.,%") != std::wstring_view::npos && !IsPowerOfTen(format));
}

bool FitsFormatting(std::wstring_view format, std::size_t length) {
    if (format.size() >= kBuffer || length >= kBuffer || HasGeneralDate(format))
        return false;
    // Between groups of three digits come marks of up to three characters.
    const bool grouped =
        format.find_first_of(L"0#") == std::wstring_view::npos || format.find(L',') != std::wstring_view::npos;
    return LengthOf(format) + (grouped ? 2 : 1) * length <= kBuffer;
}

} // namespace ormisk
