#include "model/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ormisk;

TEST(NumberText, TrimTakesBlanksOnlyAndOnlyAtTheEnds) {
    EXPECT_EQ(TrimBlanks(L"  a b "), L"a b");
    EXPECT_EQ(TrimBlanks(L"\ta\n"), L"\ta\n");
    EXPECT_EQ(TrimBlanks(L"   "), L"");
    EXPECT_EQ(TrimBlanks(L""), L"");
}

TEST(NumberText, IntegerTextAllowsNothingButDigitsAndALeadingMinus) {
    for (const wchar_t* text : {L"", L"-", L"   ", L"0", L" 255 ", L"-1", L"00000000000000000000000012"})
        EXPECT_TRUE(IsIntegerText(text)) << std::wstring(text).size();
    for (const wchar_t* text : {L"+1", L"1-", L"--1", L"1.5", L"1 2", L"- 1", L"&HFF", L"1\t", L"\u0661"})
        EXPECT_FALSE(IsIntegerText(text)) << std::wstring(text).size();
}

TEST(NumberText, ReadsTheLeadingNumberWithAPointWhateverTheLocale) {
    EXPECT_EQ(NumberFromText(L"12 apples"), 12);
    EXPECT_EQ(NumberFromText(L"12apples"), 12);
    EXPECT_EQ(NumberFromText(L"  -1.5 "), -1.5);
    EXPECT_EQ(NumberFromText(L"+.5"), 0.5);
    EXPECT_EQ(NumberFromText(L"1.5.7"), 1.5);
    EXPECT_EQ(NumberFromText(L"1,5"), 1);
    EXPECT_EQ(NumberFromText(L"2e3"), 2000);
    EXPECT_EQ(NumberFromText(L"2e"), 2);
}

TEST(NumberText, WhatBeginsWithNoNumberIsZero) {
    for (const wchar_t* text : {L"", L"abc", L"-", L".", L"inf", L"nan", L"e5", L"--1", L"- 1", L"\u0661"})
        EXPECT_EQ(NumberFromText(text), 0) << std::wstring(text).size();
}

TEST(NumberText, NumbersBeyondTheRangeStayNumbers) {
    EXPECT_EQ(NumberFromText(L"1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(NumberFromText(L"-" + std::wstring(1000, L'9')), -std::numeric_limits<double>::max());
    EXPECT_EQ(NumberFromText(L"1e-999"), 0);
    EXPECT_EQ(NumberFromText(L"0." + std::wstring(1000, L'0') + L"1"), 0);
}
