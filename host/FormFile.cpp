#include "FormFile.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <utility>

namespace ormisk {
namespace {

constexpr std::wstring_view kFirstLine = L"Ormisk form ";
constexpr int kVersion = 1;
constexpr std::wstring_view kExplained = L"' One setting a line. A setting of Object that is left out is its default. "
                                         L"The order of the controls is that of TAB.\n"
                                         L"' Lines that begin with an apostrophe, like this one, are comments.\n";
constexpr std::wstring_view kOwn = L"Object";
constexpr wchar_t kMark = 0xFEFF;
constexpr wchar_t kReplaced = 0xFFFD; // what stands where the bytes of the file were no text
constexpr std::int64_t kSizeUnit = 10000;
constexpr std::size_t kPictureLine = 75; // bytes
constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// What is wrong with a line.
struct Wrong {
    std::wstring text;
};

wchar_t Lower(wchar_t sign) { return sign >= L'A' && sign <= L'Z' ? static_cast<wchar_t>(sign + (L'a' - L'A')) : sign; }
bool IsDigit(wchar_t sign) { return sign >= L'0' && sign <= L'9'; }
bool IsBlank(wchar_t sign) { return sign == L' ' || sign == L'\t'; }
bool IsLetter(wchar_t sign) { return (Lower(sign) >= L'a' && Lower(sign) <= L'z') || sign == L'_'; }
bool IsOfWord(wchar_t sign) { return IsLetter(sign) || IsDigit(sign); }
bool IsHighHalf(wchar_t sign) { return sign >= 0xD800 && sign < 0xDC00; }
bool IsLowHalf(wchar_t sign) { return sign >= 0xDC00 && sign < 0xE000; }

std::string Narrow(std::wstring_view ascii) {
    std::string text;
    for (const wchar_t sign : ascii)
        text.push_back(sign < 0x80 ? static_cast<char>(sign) : '?');
    return text;
}

std::wstring Widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

// The whole text as a number.
template <class T> std::optional<T> Parsed(const std::string& text, int base) {
    T number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::optional<double> ParsedDecimal(const std::string& text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// Bytes as text, four letters for three of them.

std::string Encoded(const std::uint8_t* bytes, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; i += 3) {
        const std::size_t here = std::min<std::size_t>(count - i, 3);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < here ? bytes[i + k] : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text.push_back(k <= here ? kDigits[bits >> (18 - 6 * k) & 63] : '=');
    }
    return text;
}

std::optional<FormPicture> Decoded(std::string_view text) {
    if (text.size() % 4 != 0)
        return std::nullopt;
    while (text.ends_with('='))
        text.remove_suffix(1);
    FormPicture bytes;
    std::uint32_t bits = 0;
    int known = 0;
    for (const char letter : text) {
        const std::size_t digit = kDigits.find(letter);
        if (digit == std::string_view::npos)
            return std::nullopt;
        bits = (bits << 6 | static_cast<std::uint32_t>(digit)) & 0xFFFF;
        known += 6;
        if (known >= 8) {
            known -= 8;
            bytes.push_back(static_cast<std::uint8_t>(bits >> known));
        }
    }
    return bytes;
}

// Writing.

std::wstring Quote(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t sign = text[i];
        const bool pair = IsHighHalf(sign) && i + 1 < text.size() && IsLowHalf(text[i + 1]);
        const bool half = (IsHighHalf(sign) && !pair) || (IsLowHalf(sign) && !(i > 0 && IsHighHalf(text[i - 1])));
        if (sign == L'"' || sign == L'\\') {
            quoted += {L'\\', sign};
        } else if (sign == L'\n') {
            quoted += L"\\n";
        } else if (sign == L'\r') {
            quoted += L"\\r";
        } else if (sign == L'\t') {
            quoted += L"\\t";
        } else if (sign < L' ' || (sign >= 0x7F && sign < 0xA0) || half || sign == kMark || sign == kReplaced) {
            char digits[9] = "0000";
            const auto code = static_cast<std::uint32_t>(sign) & 0xFFFF;
            for (int k = 0; k < 4; ++k)
                digits[k] = "0123456789ABCDEF"[code >> (12 - 4 * k) & 15];
            quoted += L"\\u" + Widened(digits);
        } else {
            quoted += sign;
        }
    }
    return quoted + L"\"";
}

std::wstring Name(const std::wstring& name) {
    const bool plain = !name.empty() && !IsDigit(name.front()) && std::all_of(name.begin(), name.end(), IsOfWord);
    return plain ? name : Quote(name);
}

std::wstring DecimalText(double number) {
    char text[40];
    const auto end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    const std::string_view written(text, static_cast<std::size_t>(end - text));
    const bool whole = written.find_first_of(".e") == std::string_view::npos;
    return Widened(written) + (whole ? L".0" : L"");
}

// Large ones are mostly colours.
std::wstring WholeText(std::int32_t number) {
    char text[16];
    const bool large = number > 0xFFFF || number < -0xFFFF;
    const auto end = large ? std::to_chars(std::begin(text), std::end(text), static_cast<std::uint32_t>(number), 16).ptr
                           : std::to_chars(std::begin(text), std::end(text), number).ptr;
    std::wstring digits = Widened(std::string_view(text, static_cast<std::size_t>(end - text)));
    if (!large)
        return digits;
    for (wchar_t& digit : digits)
        digit = digit >= L'a' ? static_cast<wchar_t>(digit - (L'a' - L'A')) : digit;
    return L"&H" + std::wstring(8 - digits.size(), L'0') + digits;
}

std::wstring FontText(const FormFont& font) {
    std::wstring text = L"font " + Quote(font.name) + L", " + std::to_wstring(font.size / kSizeUnit);
    if (const auto rest = font.size % kSizeUnit) {
        std::wstring digits = std::to_wstring(kSizeUnit + rest).substr(1);
        digits.erase(digits.find_last_not_of(L'0') + 1);
        text += L"." + digits;
    }
    if (font.weight == FormFont::kBold)
        text += L", bold";
    else if (font.weight != FormFont::kNormal)
        text += L", weight " + std::to_wstring(font.weight);
    text += font.italic ? L", italic" : L"";
    text += font.underline ? L", underline" : L"";
    text += font.strikethrough ? L", strikethrough" : L"";
    return font.charset ? text + L", charset " + std::to_wstring(font.charset) : text;
}

std::wstring PictureText(const FormPicture& picture) {
    std::wstring text = L"picture " + std::to_wstring(picture.size()) + L" bytes";
    for (std::size_t i = 0; i < picture.size(); i += kPictureLine)
        text += L"\n| " + Widened(Encoded(picture.data() + i, std::min(picture.size() - i, kPictureLine)));
    return text;
}

struct ValueText {
    std::wstring operator()(FormNothing) const { return L"Nothing"; }
    std::wstring operator()(bool flag) const { return flag ? L"True" : L"False"; }
    std::wstring operator()(std::int32_t number) const { return WholeText(number); }
    std::wstring operator()(double number) const { return DecimalText(number); }
    std::wstring operator()(const std::wstring& text) const { return Quote(text); }
    std::wstring operator()(const FormFont& font) const { return FontText(font); }
    std::wstring operator()(const FormPicture& picture) const { return PictureText(picture); }
};

// Reading.

// What is left of a line.
class LineReader {
public:
    explicit LineReader(std::wstring_view text) : m_Rest(text) { SkipBlanks(); }

    bool AtEnd() const { return m_Rest.empty() || m_Rest.front() == L'\''; }
    bool Begins(wchar_t sign) const { return !m_Rest.empty() && m_Rest.front() == sign; }
    bool BeginsNumber() const {
        return !m_Rest.empty() && (IsDigit(m_Rest.front()) || m_Rest.front() == L'-' || m_Rest.front() == L'&');
    }

    bool Take(wchar_t sign) {
        if (!Begins(sign))
            return false;
        m_Rest.remove_prefix(1);
        SkipBlanks();
        return true;
    }
    void Need(wchar_t sign) {
        if (!Take(sign))
            throw Wrong{std::wstring(L"there is no ") + sign + L" where one belongs"};
    }

    std::wstring Word() { return std::wstring(TakeWhile(IsOfWord)); }
    std::wstring Name() {
        if (Begins(L'"'))
            return Text();
        std::wstring name = Word();
        if (name.empty())
            throw Wrong{L"there is no name where one belongs"};
        return name;
    }
    std::string Digits() {
        return Narrow(TakeWhile([](wchar_t sign) {
            return IsOfWord(sign) || sign == L'-' || sign == L'+' || sign == L'.' || sign == L'&';
        }));
    }
    std::wstring Text();
    std::wstring_view Rest() const { return m_Rest; }

private:
    void SkipBlanks() {
        while (!m_Rest.empty() && IsBlank(m_Rest.front()))
            m_Rest.remove_prefix(1);
    }
    template <class Condition> std::wstring_view TakeWhile(Condition condition) {
        const auto end = std::find_if_not(m_Rest.begin(), m_Rest.end(), condition);
        const std::wstring_view taken = m_Rest.substr(0, static_cast<std::size_t>(end - m_Rest.begin()));
        m_Rest.remove_prefix(taken.size());
        SkipBlanks();
        return taken;
    }
    wchar_t Next() {
        if (m_Rest.empty())
            throw Wrong{L"a quote is not closed"};
        const wchar_t sign = m_Rest.front();
        m_Rest.remove_prefix(1);
        return sign;
    }
    wchar_t Escaped();

    std::wstring_view m_Rest;
};

wchar_t LineReader::Escaped() {
    switch (const wchar_t sign = Next()) {
    case L'"':
    case L'\\':
        return sign;
    case L'n':
        return L'\n';
    case L'r':
        return L'\r';
    case L't':
        return L'\t';
    case L'u': {
        const auto code = Parsed<std::uint32_t>(Narrow(m_Rest.substr(0, 4)), 16);
        if (!code || m_Rest.size() < 4)
            throw Wrong{L"\\u takes four digits"};
        m_Rest.remove_prefix(4);
        return static_cast<wchar_t>(*code);
    }
    default:
        throw Wrong{std::wstring(L"\\") + sign + L" stands for nothing; a backslash is \\\\"};
    }
}

std::wstring LineReader::Text() {
    std::wstring text;
    for (wchar_t sign = (Next(), Next()); sign != L'"'; sign = Next())
        text.push_back(sign == L'\\' ? Escaped() : sign);
    SkipBlanks();
    return text;
}

FormValue ReadNumber(LineReader& line) {
    const std::string digits = line.Digits();
    if (digits.starts_with("&H") || digits.starts_with("&h")) {
        const std::size_t length = digits.size() - 2 - (digits.ends_with('&') ? 1 : 0);
        if (const auto bits = Parsed<std::uint32_t>(digits.substr(2, length), 16))
            return static_cast<std::int32_t>(*bits);
    } else if (const auto whole = Parsed<std::int32_t>(digits, 10)) {
        return *whole;
    } else if (const auto decimal = ParsedDecimal(digits)) {
        return *decimal;
    }
    throw Wrong{Widened(digits) + L" is not a number"};
}

int ReadWhole(LineReader& line, int most) {
    const std::string digits = line.Digits();
    const auto number = Parsed<int>(digits, 10);
    if (!number || *number < 0 || *number > most)
        throw Wrong{L"there is no number from 0 to " + std::to_wstring(most) + L" where one belongs"};
    return *number;
}

FormFont ReadFont(LineReader& line) {
    constexpr double kLargest = 10000;
    FormFont font;
    font.name = line.Begins(L'"') ? line.Text() : throw Wrong{L"a font begins with its name in quotes"};
    line.Need(L',');
    const auto size = ParsedDecimal(line.Digits());
    if (!size || *size <= 0 || *size > kLargest)
        throw Wrong{L"the second of a font is its size"};
    font.size = std::llround(*size * kSizeUnit);
    while (line.Take(L',')) {
        const std::wstring word = line.Word();
        if (IsSameName(word, L"bold"))
            font.weight = FormFont::kBold;
        else if (IsSameName(word, L"italic"))
            font.italic = true;
        else if (IsSameName(word, L"underline"))
            font.underline = true;
        else if (IsSameName(word, L"strikethrough"))
            font.strikethrough = true;
        else if (IsSameName(word, L"weight"))
            font.weight = ReadWhole(line, 1000);
        else if (IsSameName(word, L"charset"))
            font.charset = ReadWhole(line, 255);
        else
            throw Wrong{L"a font knows nothing of " + (word.empty() ? std::wstring(L"this") : word)};
    }
    return font;
}

FormValue ReadValue(LineReader& line) {
    if (line.Begins(L'"'))
        return line.Text();
    if (line.BeginsNumber())
        return ReadNumber(line);
    const std::wstring word = line.Word();
    if (IsSameName(word, L"True") || IsSameName(word, L"False"))
        return IsSameName(word, L"True");
    if (IsSameName(word, L"Nothing"))
        return FormNothing{};
    if (IsSameName(word, L"font"))
        return ReadFont(line);
    if (IsSameName(word, L"picture"))
        return FormPicture{};
    throw Wrong{(word.empty() ? std::wstring(L"this") : word) + L" is no value; texts stand in quotes"};
}

class FormReader {
public:
    FormContent Read(std::wstring_view text);

private:
    struct Found {
        std::wstring control;
        bool own = false;
        FormSetting setting;
    };
    // A picture that is still being read, and how many bytes it is to have; any number with -1.
    struct Picture {
        Found found;
        int bytes = -1;
        std::string letters;

        bool IsWhole() const { return bytes >= 0 && letters.size() >= (static_cast<std::size_t>(bytes) + 2) / 3 * 4; }
    };

    void ReadLine(std::wstring_view text);
    void ReadSetting(LineReader& line);
    void ReadPictureLine(LineReader& line);
    void FinishPicture();
    void Add(Found found);
    void Tell(int line, std::wstring text) { m_Content.troubles.push_back({line, std::move(text)}); }

    FormContent m_Content;
    std::optional<Picture> m_Picture;
    int m_Line = 0;
    bool m_LostPicture = false; // its lines follow, but not its beginning
};

FormContent FormReader::Read(std::wstring_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(L"\r\n"), text.size());
        ++m_Line;
        if (m_Line > 1)
            ReadLine(text.substr(0, end));
        text.remove_prefix(end);
        if (!text.empty())
            text.remove_prefix(text.starts_with(L"\r\n") ? 2 : 1);
    }
    FinishPicture();
    return std::move(m_Content);
}

void FormReader::ReadLine(std::wstring_view text) {
    try {
        LineReader line(text);
        if (line.AtEnd())
            return;
        if (text.find(kReplaced) != std::wstring_view::npos)
            throw Wrong{L"the line is not written in UTF-8"};
        if (line.Begins(L'|')) {
            ReadPictureLine(line);
            return;
        }
        FinishPicture();
        m_LostPicture = false;
        ReadSetting(line);
    } catch (const Wrong& wrong) {
        FinishPicture();
        Tell(m_Line, wrong.text);
    }
}

void FormReader::ReadSetting(LineReader& line) {
    Found found;
    found.control = line.Name();
    line.Need(L'.');
    found.setting.name = line.Name();
    found.own = IsSameName(found.setting.name, kOwn);
    if (found.own) {
        line.Need(L'.');
        found.setting.name = line.Name();
    }
    line.Need(L'=');
    found.setting.value = ReadValue(line);
    found.setting.line = m_Line;
    const bool isPicture = std::holds_alternative<FormPicture>(found.setting.value);
    int bytes = -1;
    if (isPicture && line.BeginsNumber()) {
        bytes = ReadWhole(line, INT32_MAX);
        if (!IsSameName(line.Word(), L"bytes"))
            throw Wrong{L"the length of a picture is in bytes"};
    }
    if (!line.AtEnd())
        throw Wrong{L"there is something behind the value"};
    if (isPicture)
        m_Picture = Picture{std::move(found), bytes, {}};
    else
        Add(std::move(found));
}

void FormReader::ReadPictureLine(LineReader& line) {
    line.Take(L'|');
    if (m_Picture && m_Picture->IsWhole())
        FinishPicture();
    if (m_Picture) {
        for (const wchar_t letter : line.Rest())
            if (!IsBlank(letter))
                m_Picture->letters += Narrow({&letter, 1});
    } else if (!std::exchange(m_LostPicture, true)) {
        throw Wrong{L"the line belongs to no picture"};
    }
}

void FormReader::FinishPicture() {
    if (!m_Picture)
        return;
    Picture picture = *std::exchange(m_Picture, std::nullopt);
    auto bytes = Decoded(picture.letters);
    if (!bytes || (picture.bytes >= 0 && bytes->size() != static_cast<std::size_t>(picture.bytes))) {
        Tell(picture.found.setting.line, L"the picture is damaged");
        return;
    }
    picture.found.setting.value = std::move(*bytes);
    Add(std::move(picture.found));
}

void FormReader::Add(Found found) {
    auto& controls = m_Content.controls;
    auto control = std::find_if(controls.begin(), controls.end(),
                                [&](const FormControl& known) { return IsSameName(known.name, found.control); });
    if (control == controls.end())
        control = controls.insert(control, FormControl{found.control, {}, {}});
    std::vector<FormSetting>& settings = found.own ? control->own : control->members;
    if (FindSetting(settings, found.setting.name))
        Tell(found.setting.line, found.control + L" has its " + found.setting.name + L" from a line before");
    else
        settings.push_back(std::move(found.setting));
}

bool IsForm(std::wstring_view firstLine) {
    if (!firstLine.starts_with(kFirstLine))
        return false;
    LineReader rest(firstLine.substr(kFirstLine.size()));
    const auto version = Parsed<int>(rest.Digits(), 10);
    return version && *version >= kVersion && rest.AtEnd();
}

} // namespace

bool IsSameName(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return Lower(x) == Lower(y); });
}

const FormSetting* FindSetting(const std::vector<FormSetting>& settings, std::wstring_view name) {
    const auto found = std::find_if(settings.begin(), settings.end(),
                                    [&](const FormSetting& setting) { return IsSameName(setting.name, name); });
    return found == settings.end() ? nullptr : &*found;
}

std::wstring WriteForm(const std::vector<FormControl>& controls) {
    std::wstring text = std::wstring(kFirstLine) + std::to_wstring(kVersion) + L"\n" + std::wstring(kExplained);
    for (const FormControl& control : controls) {
        const std::wstring name = Name(control.name) + L".";
        text += L"\n";
        for (const FormSetting& member : control.members)
            text += name + Name(member.name) + L" = " + std::visit(ValueText(), member.value) + L"\n";
        for (const FormSetting& own : control.own)
            text +=
                name + std::wstring(kOwn) + L"." + Name(own.name) + L" = " + std::visit(ValueText(), own.value) + L"\n";
    }
    return text;
}

FormContent ReadForm(std::wstring_view text) {
    if (text.starts_with(kMark))
        text.remove_prefix(1);
    if (!IsForm(text.substr(0, text.find_first_of(L"\r\n"))))
        throw std::invalid_argument("is not a form file: its first line is not \"Ormisk form 1\"");
    return FormReader().Read(text);
}

double DecimalOf(float value) {
    char text[40];
    const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
    return ParsedDecimal(std::string(text, end)).value_or(value);
}

} // namespace ormisk
