#include "model/NumberText.h"

#include <charconv>
#include <limits>

namespace ormisk {

namespace {

bool IsDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

// Whether a number out of range is too small rather than too large.
bool IsTiny(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return number[exponent + 1] == '-';
    return number[number.find_first_not_of('0')] == '.';
}

} // namespace

std::wstring_view TrimBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

bool IsIntegerText(std::wstring_view text) {
    text = TrimBlanks(text);
    if (!text.empty() && text.front() == L'-')
        text.remove_prefix(1);
    for (const wchar_t character : text)
        if (!IsDigit(character))
            return false;
    return true;
}

double NumberFromText(std::wstring_view text) {
    text = TrimBlanks(text);
    const bool negative = !text.empty() && text.front() == L'-';
    if (negative || (!text.empty() && text.front() == L'+'))
        text.remove_prefix(1);
    // Only what a number is made of, so that no word ("inf") is read as one.
    std::string digits;
    for (const wchar_t character : text) {
        const bool fits = IsDigit(character) || character == L'.' ||
                          (!digits.empty() && std::wstring_view(L"eE+-").find(character) != std::wstring_view::npos);
        if (!fits)
            break;
        digits.push_back(static_cast<char>(character));
    }
    double number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec == std::errc::result_out_of_range) {
        const bool tiny = IsTiny(std::string_view(digits.data(), static_cast<std::size_t>(read.ptr - digits.data())));
        number = tiny ? 0 : std::numeric_limits<double>::max();
    }
    return negative ? -number : number;
}

std::wstring ColorHexText(std::uint32_t color) {
    std::wstring text = L"&H00000000&";
    for (std::size_t i = 9; i >= 2; --i) {
        text[i] = L"0123456789ABCDEF"[color & 15];
        color >>= 4;
    }
    return text;
}

} // namespace ormisk
