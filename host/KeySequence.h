#pragma once

#include <string>
#include <vector>

namespace ormisk {

// One key to press and release while its modifiers are held. It is named by its virtual key number, or by the character
// that it types where that depends on the keyboard.
struct KeyStroke {
    static constexpr int kShift = 1;
    static constexpr int kControl = 2;
    static constexpr int kAlt = 4;

    int modifiers = 0;
    int virtualKey = 0;    // 0 when a character is meant
    wchar_t character = 0; // 0 when a key is meant

    bool operator==(const KeyStroke&) const = default;
};

// Reads a text of keys: + Shift, ^ Ctrl and % Alt hold for the next key or for a group in parentheses, ~ is Enter,
// {NAME} is a key by its name, {NAME 3} is pressed three times, {+} is the character itself; anything else types
// itself. Throws std::invalid_argument, saying what is wrong and where.
std::vector<KeyStroke> ParseKeys(const std::wstring& text);

} // namespace ormisk
