#include "KeySequence.h"

#include <cwctype>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace ormisk {
namespace {

struct NamedKey {
    std::wstring_view name;
    int virtualKey;
};

constexpr int kEnter = 0x0D;
constexpr int kF1 = 0x70;
constexpr int kFunctionKeys = 24;
constexpr long kMostRepeats = 10000;

constexpr NamedKey kNamedKeys[] = {
    {L"BACKSPACE", 0x08}, {L"BKSP", 0x08},       {L"BS", 0x08},       {L"TAB", 0x09},      {L"CLEAR", 0x0C},
    {L"ENTER", kEnter},   {L"PAUSE", 0x13},      {L"CAPSLOCK", 0x14}, {L"ESC", 0x1B},      {L"ESCAPE", 0x1B},
    {L"SPACE", 0x20},     {L"PGUP", 0x21},       {L"PGDN", 0x22},     {L"END", 0x23},      {L"HOME", 0x24},
    {L"LEFT", 0x25},      {L"UP", 0x26},         {L"RIGHT", 0x27},    {L"DOWN", 0x28},     {L"PRTSC", 0x2C},
    {L"INS", 0x2D},       {L"INSERT", 0x2D},     {L"DEL", 0x2E},      {L"DELETE", 0x2E},   {L"HELP", 0x2F},
    {L"APPS", 0x5D},      {L"ADD", 0x6B},        {L"MULTIPLY", 0x6A}, {L"SUBTRACT", 0x6D}, {L"DIVIDE", 0x6F},
    {L"BREAK", 0x03},     {L"SHIFT", 0x10},      {L"CTRL", 0x11},     {L"ALT", 0x12},      {L"NUMLOCK", 0x90},
    {L"DECIMAL", 0x6E},   {L"SCROLLLOCK", 0x91},
};

// The number that decimal digits make, 0 when it is not one from 1 to `most`.
long CountIn(std::wstring_view digits, long most) {
    long count = 0;
    for (wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9' || count > most)
            return 0;
        count = count * 10 + (digit - L'0');
    }
    return count <= most ? count : 0;
}

// The virtual key of a name, 0 for an unknown one.
int KeyNamed(const std::wstring& name) {
    std::wstring upper;
    for (wchar_t c : name)
        upper += static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
    for (const NamedKey& key : kNamedKeys)
        if (key.name == upper)
            return key.virtualKey;
    if (upper.size() < 2 || upper[0] != L'F' || upper[1] == L'0')
        return 0;
    const long number = CountIn(std::wstring_view(upper).substr(1), kFunctionKeys);
    return number ? kF1 + static_cast<int>(number) - 1 : 0;
}

class KeyReader {
public:
    explicit KeyReader(const std::wstring& text) : m_Text(text) {}

    std::vector<KeyStroke> Read() {
        ReadKeys(0, std::wstring::npos);
        return std::move(m_Strokes);
    }

private:
    [[noreturn]] static void Refuse(const std::string& what, std::size_t position) {
        throw std::invalid_argument(what + " at position " + std::to_string(position + 1) + " of the keys");
    }

    // Reads up to the end, or to the closing parenthesis of the group opened at `group`.
    void ReadKeys(int held, std::size_t group) {
        while (m_Next < m_Text.size()) {
            if (group != std::wstring::npos && m_Text[m_Next] == L')') {
                ++m_Next;
                return;
            }
            ReadOne(held);
        }
        if (group != std::wstring::npos)
            Refuse("Parenthesis without its end", group);
    }

    void ReadOne(int held) {
        const std::size_t start = m_Next;
        const int modifiers = held | ReadModifiers();
        if (m_Next == m_Text.size())
            Refuse("Modifier without a key", start);
        const wchar_t c = m_Text[m_Next];
        if (c == L'(') {
            const std::size_t group = m_Next++;
            ReadKeys(modifiers, group);
        } else if (c == L'{') {
            ReadBraces(modifiers);
        } else if (c == L')' || c == L'}') {
            Refuse("End of a group that was not begun", m_Next);
        } else {
            ++m_Next;
            m_Strokes.push_back(c == L'~' ? KeyStroke{modifiers, kEnter, 0} : KeyStroke{modifiers, 0, c});
        }
    }

    int ReadModifiers() {
        int modifiers = 0;
        for (; m_Next < m_Text.size(); ++m_Next) {
            const wchar_t c = m_Text[m_Next];
            if (c == L'+')
                modifiers |= KeyStroke::kShift;
            else if (c == L'^')
                modifiers |= KeyStroke::kControl;
            else if (c == L'%')
                modifiers |= KeyStroke::kAlt;
            else
                break;
        }
        return modifiers;
    }

    void ReadBraces(int modifiers) {
        const std::size_t start = m_Next;
        // The first character inside never ends the braces: {}} is the brace itself.
        const std::size_t end = start + 2 < m_Text.size() ? m_Text.find(L'}', start + 2) : std::wstring::npos;
        if (end == std::wstring::npos)
            Refuse("Brace without its end or without a key", start);
        std::wstring name = m_Text.substr(start + 1, end - start - 1);
        long repeats = 1;
        if (const std::size_t space = name.find(L' ', 1); space != std::wstring::npos) {
            repeats = CountIn(std::wstring_view(name).substr(space + 1), kMostRepeats);
            if (repeats == 0)
                Refuse("Bad number of repeats", start);
            name.resize(space);
        }
        KeyStroke stroke{modifiers, 0, 0};
        if (name.size() == 1)
            stroke.character = name[0];
        else if ((stroke.virtualKey = KeyNamed(name)) == 0)
            Refuse("Unknown key name", start);
        m_Strokes.insert(m_Strokes.end(), static_cast<std::size_t>(repeats), stroke);
        m_Next = end + 1;
    }

    const std::wstring& m_Text;
    std::size_t m_Next = 0;
    std::vector<KeyStroke> m_Strokes;
};

} // namespace

std::vector<KeyStroke> ParseKeys(const std::wstring& text) { return KeyReader(text).Read(); }

} // namespace ormisk
