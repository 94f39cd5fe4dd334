#include "../host/FormFile.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>
#include <stdexcept>

namespace ormisk {

bool operator==(const FormSetting& a, const FormSetting& b) { return a.name == b.name && a.value == b.value; }
bool operator==(const FormControl& a, const FormControl& b) {
    return a.name == b.name && a.members == b.members && a.own == b.own;
}

namespace {

using Controls = std::vector<FormControl>;
using Lines = std::vector<int>;
using Settings = std::vector<FormSetting>;

constexpr wchar_t kFirst[] = L"Ormisk form 1\n";

FormPicture SomeBytes(std::size_t count) {
    FormPicture bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 64);
    return bytes;
}

Lines TroubleLines(const FormContent& content) {
    Lines lines;
    for (const FormTrouble& trouble : content.troubles)
        lines.push_back(trouble.line);
    return lines;
}

// The one setting of a form that has this value in its line; none when the line was passed over.
Settings ReadOne(const std::wstring& value) {
    const FormContent content = ReadForm(kFirst + (L"G.Object.X = " + value));
    EXPECT_EQ(content.controls.empty(), !content.troubles.empty());
    return content.controls.empty() ? Settings{} : content.controls.front().own;
}

Controls RichForm() {
    const FormFont heavy{L"Segoe \"UI\"", 82500, 650, true, true, true, 238};
    return {{L"Grid",
             {{L"Class", L"Ormisk.OrmiskGrid"}, {L"Fills", true}, {L"ToolTipText", L"a\tb\r\nc\\ \"q\" 'z"}},
             {{L"Font", FormFont{L"Tahoma", 80000}},
              {L"Picture", SomeBytes(300)},
              {L"Separator", L""},
              {L"Lowest", INT_MIN},
              {L"System", static_cast<std::int32_t>(0x8000000F)},
              {L"Indent", 15.0},
              {L"Tiny", -1.5e-300},
              {L"None", FormNothing{}}}},
            {L"my second = 2",
             {{L"Class", L"{00000000-0000-0000-C000-000000000046}"}, {L"Left", -20}, {L"Visible", false}},
             {{L"odd.name", heavy}, {L"1st", FormFont{L"", 97501, FormFont::kBold}}, {L"\\", 0}}},
            {L"Third", {}, {{L"Bare", FormPicture{}}, {L"Letters", L"\x01\x7f\u00e9\u20ac\xFEFF\xFFFD\xD800"}}}};
}

TEST(FormFile, WhatIsWrittenIsReadAgain) {
    const std::wstring text = WriteForm(RichForm());
    const FormContent content = ReadForm(text);
    EXPECT_EQ(content.controls, RichForm());
    EXPECT_EQ(TroubleLines(content), Lines{});
    for (std::size_t bytes = 0; bytes < 160; ++bytes)
        EXPECT_EQ(ReadForm(WriteForm({{L"G", {}, {{L"P", SomeBytes(bytes)}}}})).controls[0].own[0].value,
                  FormValue(SomeBytes(bytes)))
            << bytes;
    EXPECT_EQ(ReadForm(WriteForm({})).controls, Controls{});
}

TEST(FormFile, APersonReadsWhatIsWritten) {
    const std::wstring text = WriteForm(RichForm());
    for (const wchar_t* line :
         {L"Grid.Class = \"Ormisk.OrmiskGrid\"\n", L"Grid.Object.Font = font \"Tahoma\", 8\n",
          L"Grid.Object.System = &H8000000F\n", L"Grid.Object.Picture = picture 300 bytes\n| AAcO",
          L"\"my second = 2\".Visible = False\n", L"Grid.Object.Indent = 15.0\n",
          L"Third.Object.Bare = picture 0 bytes\n",
          L"Object.\"odd.name\" = font \"Segoe \\\"UI\\\"\", 8.25, weight 650, italic, underline, "})
        EXPECT_NE(text.find(line), std::wstring::npos) << line;
    EXPECT_EQ(DecimalOf(0.1F), 0.1);
    EXPECT_EQ(static_cast<float>(DecimalOf(16777217.4F)), 16777217.4F);
}

TEST(FormFile, APersonMayWriteItInOtherWays) {
    const Controls expected = {
        {L"Grid", {{L"Left", 10}, {L"Tag", L"'x'"}}, {{L"Color", 255}, {L"P", FormPicture{1, 2, 3, 4}}}},
        {L"B", {{L"Left", 1}}, {}}};
    const std::wstring text = L"Ormisk form 7 ' a later one\n"
                              L"GRID.OBJECT.Color=&HFF& ' red\n"
                              L"\n"
                              L"\t' Grid.Left = 5\n"
                              L"  \"B\" . Left=1\n"
                              L"grid.Left =\t10 \n"
                              L"Grid.Object.P = picture\n"
                              L"|AQ\n"
                              L"\n"
                              L"  | ID B A = =\n"
                              L"' between\n"
                              L"Grid.Tag = \"'x'\"'";
    Controls read = ReadForm(text).controls;
    ASSERT_FALSE(read.empty());
    EXPECT_EQ(read[0].name, L"GRID");
    read[0].name = L"Grid";
    EXPECT_EQ(read, expected);
    for (const wchar_t* end : {L"\r\n", L"\r"}) {
        std::wstring other = L"\xFEFF" + text;
        for (std::size_t at = 0; (at = other.find(L'\n', at)) != std::wstring::npos; at += std::wstring(end).size())
            other.replace(at, 1, end);
        const FormContent content = ReadForm(other);
        ASSERT_EQ(content.controls.size(), 2U);
        EXPECT_EQ(content.controls[0].own, expected[0].own);
        EXPECT_EQ(content.controls[1], expected[1]);
        EXPECT_EQ(TroubleLines(content), Lines{});
    }
    EXPECT_EQ(ReadOne(L"font \"A\", 9.5, CHARSET 2, italic, weight 400, bold")[0].value,
              FormValue(FormFont{L"A", 95000, FormFont::kBold, true, false, false, 2}));
    EXPECT_EQ(ReadOne(L"4294967295")[0].value, FormValue(4294967295.0));
    EXPECT_EQ(ReadOne(L"nothing")[0].value, FormValue(FormNothing{}));
}

TEST(FormFile, ADamagedLineIsToldAndTheOthersCount) {
    const FormContent content = ReadForm(L"Ormisk form 1\n"
                                         L"Grid.Left = 1\n"
                                         L"Grid.Left = 2\n"
                                         L"Grid Top = 3\n"
                                         L"Grid.Object.A = picture 4 bytes\n"
                                         L"| AQIDB\xFFFD==\n"
                                         L"Grid.Object.B = picture 4 bytes\n"
                                         L"| AQID\n"
                                         L"x\n"
                                         L"| BA==\n"
                                         L"| BA==\n"
                                         L"Grid.Object.Left = 4\n"
                                         L"Grid.Object = 5\n"
                                         L".Top = 6");
    EXPECT_EQ(content.controls, (Controls{{L"Grid", {{L"Left", 1}}, {{L"Left", 4}}}}));
    EXPECT_EQ(TroubleLines(content), (Lines{3, 4, 5, 6, 7, 9, 10, 13, 14}));
    for (const wchar_t* wrong : {L"",
                                 L"' 5",
                                 L"red",
                                 L"5 6",
                                 L"5x",
                                 L"--5",
                                 L"1e999",
                                 L"-inf",
                                 L"&HG",
                                 L"&H",
                                 L"&H123456789",
                                 L"\"",
                                 L"\"a\\\"",
                                 L"\"\\q\"",
                                 L"\"\\u12\"",
                                 L"\"\\u12G4\"",
                                 L"\"a\" b",
                                 L"font",
                                 L"font 8",
                                 L"font \"A\"",
                                 L"font \"A\", 0",
                                 L"font \"A\", 1e9",
                                 L"font \"A\", 8, red",
                                 L"font \"A\", 8,",
                                 L"font \"A\", 8, weight",
                                 L"font \"A\", 8, charset 256",
                                 L"picture 5",
                                 L"picture -1 bytes",
                                 L"picture 1 bytes",
                                 L"picture x",
                                 L"True\xFFFD"})
        EXPECT_EQ(ReadOne(wrong), Settings{}) << wrong;
}

TEST(FormFile, AnotherFileIsRefused) {
    for (const wchar_t* text :
         {L"", L"\n", L"Ormisk form", L"Ormisk form \n", L"Ormisk form 0", L"Ormisk form -1", L"Ormisk form 1x",
          L"Ormisk form 99999999999", L"\nOrmisk form 1", L"' Ormisk form 1", L"Option Explicit\nOrmisk form 1\n"})
        EXPECT_THROW(ReadForm(text), std::invalid_argument) << text;
}

// A written form by lines. Those of a picture belong together: damage to one is damage to all.
struct Piece {
    std::wstring text;
    bool touched = false;
};

std::vector<Piece> PiecesOf(const std::wstring& text) {
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find(L'\n', at) + 1;
        const std::wstring line = text.substr(at, end - at);
        if (line[0] == L'|')
            pieces.back().text += line;
        else
            pieces.push_back({line});
        at = end;
    }
    return pieces;
}

class Damage {
public:
    explicit Damage(unsigned seed) : m_Random(seed) {}

    void Do(std::vector<Piece>& pieces) {
        const std::size_t at = 1 + Below(pieces.size() - 1);
        std::wstring& text = pieces[at].text;
        const std::wstring other = pieces[1 + Below(pieces.size() - 1)].text;
        const std::size_t sign = Below(text.size());
        switch (Below(6)) {
        case 0: // a sign is another one
            text[sign] = AnySign();
            break;
        case 1: // some are gone
            text.erase(sign, 1 + Below(8));
            break;
        case 2: // some came in
            for (std::size_t n = Below(8); n > 0; --n)
                text.insert(sign, 1, AnySign());
            break;
        case 3: // a part of another line came in
            text.insert(sign, other.substr(Below(other.size())));
            break;
        case 4: // the line is gone
            text = L"\n";
            break;
        default: // two lines were exchanged, which does no harm
            std::swap(pieces[at], pieces[1 + Below(pieces.size() - 1)]);
            return;
        }
        pieces[at].touched = true;
        // Without its end it is one with the next line.
        if (at + 1 < pieces.size() && (text.empty() || text.back() != L'\n')) {
            text += pieces[at + 1].text;
            pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at) + 1);
        }
    }

private:
    std::size_t Below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_Random); }
    wchar_t AnySign() {
        constexpr std::wstring_view kSigns = L"\n\r\t\0 .=\"'|\\&,-AZaz019\x7f\u00e9\xFFFD\xFEFF";
        return kSigns[Below(kSigns.size())];
    }

    std::mt19937 m_Random;
};

bool Holds(const FormContent& content, const FormContent& wanted) {
    const FormControl& one = wanted.controls.front();
    for (const FormControl& control : content.controls) {
        if (!IsSameName(control.name, one.name))
            continue;
        const bool own = !one.own.empty();
        const FormSetting& expected = own ? one.own.front() : one.members.front();
        const FormSetting* const found = FindSetting(own ? control.own : control.members, expected.name);
        return found && *found == expected;
    }
    return false;
}

TEST(FormFile, DamageToALineCostsNoOther) {
    const std::vector<Piece> sound = PiecesOf(WriteForm(RichForm()));
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        std::vector<Piece> pieces = sound;
        Damage damage(seed);
        for (unsigned n = 0; n <= seed % 3; ++n)
            damage.Do(pieces);
        std::wstring text;
        for (const Piece& piece : pieces)
            text += piece.text;
        const FormContent content = ReadForm(text);
        for (const Piece& piece : pieces) {
            const FormContent alone = piece.touched ? FormContent() : ReadForm(kFirst + piece.text);
            if (!alone.controls.empty())
                EXPECT_TRUE(Holds(content, alone)) << seed << ": " << piece.text << "\nin\n" << text;
        }
    }
}

} // namespace
} // namespace ormisk
