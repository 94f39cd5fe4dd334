#include "model/FormatBound.h"

#include <gtest/gtest.h>

#include <string>

namespace ormisk {

TEST(FormatBound, FormatsOfEverydayFitWithNumbersOfManyDigits) {
    for (const wchar_t* format : {L"0.00", L"$#,##0.00;($#,##0.00)", L"Currency", L"dddd, d mmmm yyyy hh:nn:ss AM/PM"})
        EXPECT_TRUE(FitsFormatting(format, 40)) << std::wstring(format).size();
}

TEST(FormatBound, WhatCouldRunOverDoesNotFit) {
    EXPECT_TRUE(FitsFormatting(L"0.00", 240));
    EXPECT_FALSE(FitsFormatting(L"0.00", 250));
    EXPECT_FALSE(FitsFormatting(L"#,##0", 190)) << "190 digits take 63 marks";
    EXPECT_FALSE(FitsFormatting(L"Standard", 190)) << "so does a name";
    EXPECT_FALSE(FitsFormatting(std::wstring(30, L'd'), 10)) << "five long dates";
    for (const wchar_t* format : {L"c", L"dd C", L"\"a\"c", L"\\\"c\"", L"\"0\"c", L"0;c", L"c0"})
        EXPECT_FALSE(FitsFormatting(format, 5)) << std::wstring(format).size();
    for (const wchar_t* format : {L"\"cc\"0", L"0 \\cm", L"0.00 cm", L"0 CHF;-0 CHF", L"Scientific"})
        EXPECT_TRUE(FitsFormatting(format, 5)) << std::wstring(format).size();
    EXPECT_FALSE(FitsFormatting(std::wstring(300, L'-'), 0));
    EXPECT_FALSE(FitsFormatting(L">", static_cast<std::size_t>(-1)));
}

TEST(FormatBound, OnlyAPlainPowerOfTenHidesDigits) {
    for (const wchar_t* format :
         {L"0", L"#", L"FIXED", L"Percent", L"%", L"0.0;0.0E+00", L"\"E+\"0", L"\\E+0", L"$E+0", L"E+0x"}) {
        EXPECT_TRUE(ShowsAllDigits(format)) << std::wstring(format).size();
    }
    for (const wchar_t* format : {L"0.00E+00", L"#e-0", L"Scientific", L"Yes/No", L">", L"@"})
        EXPECT_FALSE(ShowsAllDigits(format)) << std::wstring(format).size();
}

} // namespace ormisk
