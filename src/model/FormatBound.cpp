#include "model/FormatBound.h"

#include <algorithm>
#include <iterator>

namespace ormisk {

namespace {

constexpr std::size_t kBuffer = 250; // of 256, with room for a sign and the end

wchar_t Lower(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

// "c" is a whole date and time, six "d" are a long date, "AMPM" is two words of the locale, "e" is an exponent.
std::size_t LengthOf(wchar_t character) {
    switch (Lower(character)) {
    case L'c':
        return 40;
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

bool SameName(std::wstring_view format, std::wstring_view name) { return std::ranges::equal(format, name, {}, Lower); }

// A quoted letter, or one of several sections, tells nothing of the number.
bool IsPowerOfTen(std::wstring_view format) {
    static constexpr std::wstring_view kExponents[] = {L"E+", L"E-", L"e+", L"e-"};
    return format.find_first_of(L"\"\\;") == std::wstring_view::npos &&
           std::ranges::any_of(kExponents, [&](std::wstring_view exponent) {
               return format.find(exponent) != std::wstring_view::npos;
           });
}

} // namespace

std::size_t FormatLength(std::wstring_view format) {
    std::size_t length = 0;
    for (const wchar_t character : format) {
        length += LengthOf(character);
    }
    return length;
}

bool ShowsAllDigits(std::wstring_view format) {
    static constexpr std::wstring_view kNames[] = {L"currency", L"fixed", L"standard", L"percent"};
    if (std::ranges::any_of(kNames, [&](std::wstring_view name) { return SameName(format, name); })) {
        return true;
    }
    return format.find_first_of(L"0#.,%") != std::wstring_view::npos && !IsPowerOfTen(format);
}

bool FitsFormatting(std::wstring_view format, std::size_t length) {
    // Between groups of three digits come marks of up to three characters.
    const bool grouped =
        format.find_first_of(L"0#") == std::wstring_view::npos || format.find(L',') != std::wstring_view::npos;
    return format.size() < kBuffer && length < kBuffer && FormatLength(format) + (grouped ? 2 : 1) * length <= kBuffer;
}

} // namespace ormisk
