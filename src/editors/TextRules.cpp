#include "editors/TextRules.h"

#include "model/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace ormisk {
namespace {

constexpr int kBackspace = 8;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr auto kNowhere = std::wstring_view::npos;

// A number beyond a Single is greater or less than every limit.
float SingleOrInfinity(double value) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    return ToSingle(value).value_or(value > 0 ? kInfinity : -kInfinity);
}

bool AcceptsPoints(std::wstring_view text, bool allowed) {
    const auto first = text.find(L'.');
    return first == kNowhere || (allowed && text.find(L'.', first + 1) == kNowhere);
}

KeyVerdict DecidePoint(const BoxState& box, bool allowed) {
    const auto selected = box.Text.substr(std::min(box.SelStart, box.Text.size()), box.SelLength);
    const bool second = selected.find(L'.') == kNowhere && box.Text.find(L'.') != kNowhere;
    return allowed && !second ? KeyVerdict::Pass : KeyVerdict::Swallow;
}

KeyVerdict DecideMinus(const BoxState& box, bool allowed) {
    const bool second = box.SelLength == 0 && box.Text.starts_with(L'-');
    return allowed && box.SelStart == 0 && !second ? KeyVerdict::Pass : KeyVerdict::Swallow;
}

} // namespace

Verdict ValidateText(std::wstring_view text, const TextLimits& limits) {
    const auto length = static_cast<std::int64_t>(TrimBlanks(text).size());
    if (length < limits.MinLength)
        return {false, L"Entered text is too small in length"};
    return {limits.MaxLength <= 0 || length <= limits.MaxLength, {}};
}

Verdict ValidateText(std::wstring_view text, const NumberLimits& limits, wchar_t decimalPoint) {
    const auto number = TrimBlanks(text);
    const auto minus = number.find(L'-');
    if (minus != kNowhere && !limits.AllowNegative)
        return {false, L"Negative value is not permitted"};
    if (!AcceptsPoints(number, limits.AllowFloatingPoint) || (minus != kNowhere && minus > 0))
        return {false, {}};

    const float value = SingleOrInfinity(NumberFromText(number));
    if (limits.MinCheck && value < limits.MinValue)
        return {false, L"Entered value is less than " + SingleText(limits.MinValue, decimalPoint)};
    if (limits.MaxCheck && value >= limits.MaxValue)
        return {false, L"Entered value is greater than " + SingleText(limits.MaxValue, decimalPoint)};
    return {};
}

std::wstring SingleText(float value, wchar_t decimalPoint) {
    if (value == 0)
        return L"0"; // a negative zero has no sign
    char digits[32];
    const auto end = std::to_chars(digits, std::end(digits), value, std::chars_format::general, 7).ptr;
    std::wstring text(digits, end);
    for (wchar_t& c : text)
        if (c == L'.')
            c = decimalPoint;
        else if (c == L'e')
            c = L'E';
    return text;
}

std::optional<std::int32_t> ToLong(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double whole = std::nearbyint(value);
    if (!(whole >= Limits::min() && whole <= Limits::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

std::optional<float> ToSingle(double value) {
    if (!(std::abs(value) <= std::numeric_limits<float>::max()))
        return std::nullopt;
    return static_cast<float>(value);
}

KeyVerdict DecideKey(int keyAscii, const BoxState& box, const NumberLimits* numberMode) {
    if (keyAscii == kEnter && box.Modified)
        return KeyVerdict::Commit;
    if (keyAscii == kEnter || keyAscii == kEscape)
        return KeyVerdict::Cancel;
    if (!numberMode || keyAscii == kBackspace || (keyAscii >= L'0' && keyAscii <= L'9'))
        return KeyVerdict::Pass;
    if (keyAscii == L'.')
        return DecidePoint(box, numberMode->AllowFloatingPoint);
    if (keyAscii == L'-')
        return DecideMinus(box, numberMode->AllowNegative);
    return KeyVerdict::Swallow;
}

} // namespace ormisk
