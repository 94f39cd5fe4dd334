#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// What a text or number row accepts, apart from any window.
namespace ormisk {

struct TextLimits {
    std::int32_t MinLength = 0;
    std::int32_t MaxLength = 0; // 0: no limit
};

struct NumberLimits {
    bool AllowFloatingPoint = false;
    bool AllowNegative = false;
    bool MinCheck = false;
    bool MaxCheck = false;
    float MinValue = 0; // inclusive
    float MaxValue = 0; // exclusive
};

struct Verdict {
    bool Valid = true;
    std::wstring Message; // why not; empty when there is nothing to say about it
};

// Blanks at both ends do not count. A message shows a limit with the given decimal point.
Verdict ValidateText(std::wstring_view text, const TextLimits& limits);
Verdict ValidateText(std::wstring_view text, const NumberLimits& limits, wchar_t decimalPoint = L'.');

// Seven significant digits, as automation joins a Single to a text: 10, 0.5, 1E+20.
std::wstring SingleText(float value, wchar_t decimalPoint = L'.');

// To the nearest whole number, ties to the even one; none when it does not fit.
std::optional<std::int32_t> ToLong(double value);
// None when it does not fit.
std::optional<float> ToSingle(double value);

// What becomes of a key pressed in the box.
enum class KeyVerdict { Pass, Swallow, Commit, Cancel };

struct BoxState {
    std::wstring_view Text;
    std::size_t SelStart = 0;
    std::size_t SelLength = 0;
    bool Modified = false;
};

// ENTER and ESC in either mode; the rest for text rows, which take any key, or for number rows when they have limits.
KeyVerdict DecideKey(int keyAscii, const BoxState& box, const NumberLimits* numberMode);

} // namespace ormisk
