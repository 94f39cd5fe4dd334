#include "../host/KeySequence.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ormisk {
namespace {

using Strokes = std::vector<KeyStroke>;
constexpr int kShift = KeyStroke::kShift;
constexpr int kControl = KeyStroke::kControl;
constexpr int kAlt = KeyStroke::kAlt;

TEST(KeySequence, TextNamesAndTildeBecomeStrokesInOrder) {
    EXPECT_EQ(ParseKeys(L""), Strokes{});
    EXPECT_EQ(ParseKeys(L"a {enter}~"), (Strokes{{0, 0, L'a'}, {0, 0, L' '}, {0, 0x0D, 0}, {0, 0x0D, 0}}));
    EXPECT_EQ(ParseKeys(L"{F1}{F12}{F24}{Add}"), (Strokes{{0, 0x70, 0}, {0, 0x7B, 0}, {0, 0x87, 0}, {0, 0x6B, 0}}));
}

TEST(KeySequence, ModifiersHoldForOneKeyOrForTheirWholeGroup) {
    EXPECT_EQ(ParseKeys(L"+ab"), (Strokes{{kShift, 0, L'a'}, {0, 0, L'b'}}));
    EXPECT_EQ(ParseKeys(L"^+{F4}%{DOWN}"), (Strokes{{kControl | kShift, 0x73, 0}, {kAlt, 0x28, 0}}));
    EXPECT_EQ(ParseKeys(L"+(a^(b)c)d"),
              (Strokes{{kShift, 0, L'a'}, {kShift | kControl, 0, L'b'}, {kShift, 0, L'c'}, {0, 0, L'd'}}));
    EXPECT_EQ(ParseKeys(L"+()a"), (Strokes{{0, 0, L'a'}}));
}

TEST(KeySequence, BracesRepeatKeysAndQuoteTheCharactersThatMeanSomething) {
    EXPECT_EQ(ParseKeys(L"{DOWN 3}"), Strokes(3, KeyStroke{0, 0x28, 0}));
    EXPECT_EQ(ParseKeys(L"%{x 2}"), Strokes(2, KeyStroke{kAlt, 0, L'x'}));
    EXPECT_EQ(
        ParseKeys(L"{}}{{}{+}{~}{)}{} 2}"),
        (Strokes{{0, 0, L'}'}, {0, 0, L'{'}, {0, 0, L'+'}, {0, 0, L'~'}, {0, 0, L')'}, {0, 0, L'}'}, {0, 0, L'}'}}));
}

TEST(KeySequence, WrongTextIsRefusedInsteadOfBeingTyped) {
    for (const wchar_t* wrong :
         {L"{", L"{}", L"{ENTER", L"{NOKEY}", L"{F0}", L"{F01}", L"{F25}", L"{DOWN 0}", L"{DOWN x}",
          L"{DOWN 99999999999999999999}", L"{DOWN }", L"}", L")", L"a)", L"(a", L"+(a", L"+", L"a^%", L"+)"})
        EXPECT_THROW(ParseKeys(wrong), std::invalid_argument) << wrong;
}

} // namespace
} // namespace ormisk
