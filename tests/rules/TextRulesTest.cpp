#include "editors/TextRules.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace ormisk;

namespace {

constexpr NumberLimits kAnyNumber{.AllowFloatingPoint = true, .AllowNegative = true};

bool Refused(const Verdict& verdict, const wchar_t* message) { return !verdict.Valid && verdict.Message == message; }

KeyVerdict KeyIn(int key, std::wstring_view text, std::size_t start, std::size_t length,
                 const NumberLimits& limits = kAnyNumber) {
    return DecideKey(key, {text, start, length, true}, &limits);
}

} // namespace

TEST(TextRules, LengthLimitsCountNoOuterBlanksAndAreInclusive) {
    const TextLimits limits{.MinLength = 3, .MaxLength = 5};
    EXPECT_TRUE(Refused(ValidateText(L"  ab   ", limits), L"Entered text is too small in length"));
    EXPECT_TRUE(ValidateText(L"  abc ", limits).Valid);
    EXPECT_TRUE(ValidateText(L"a   b     ", limits).Valid);
    EXPECT_TRUE(Refused(ValidateText(L"abcdef", limits), L""));
    EXPECT_TRUE(ValidateText(L"abcdef", TextLimits{}).Valid) << "a limit of 0 is none";
    EXPECT_TRUE(ValidateText(L"", TextLimits{}).Valid);
}

TEST(TextRules, LowerLimitIsInclusiveAndUpperExclusive) {
    const NumberLimits limits{.AllowFloatingPoint = true,
                              .AllowNegative = true,
                              .MinCheck = true,
                              .MaxCheck = true,
                              .MinValue = 0,
                              .MaxValue = 10};
    EXPECT_TRUE(ValidateText(L"0", limits).Valid);
    EXPECT_TRUE(ValidateText(L"9.99", limits).Valid);
    EXPECT_TRUE(Refused(ValidateText(L"10", limits), L"Entered value is greater than 10"));
    EXPECT_TRUE(Refused(ValidateText(L"-0.5", limits), L"Entered value is less than 0"));

    NumberLimits unchecked = limits;
    unchecked.MinCheck = unchecked.MaxCheck = false;
    EXPECT_TRUE(ValidateText(L"-1000", unchecked).Valid);
}

TEST(TextRules, LimitsCompareBySevenDigitsOfPrecisionAndHoldForNumbersBeyondASingle) {
    const NumberLimits limits{
        .AllowNegative = true, .MinCheck = true, .MaxCheck = true, .MinValue = -1, .MaxValue = 16777217.0F};
    EXPECT_FALSE(ValidateText(L"16777216", limits).Valid) << "a Single does not tell the two apart";
    EXPECT_TRUE(ValidateText(L"16777215", limits).Valid);
    EXPECT_FALSE(ValidateText(L"1" + std::wstring(60, L'0'), limits).Valid);
    EXPECT_FALSE(ValidateText(L"-1" + std::wstring(60, L'0'), limits).Valid);
    EXPECT_TRUE(ValidateText(L"1" + std::wstring(60, L'0'), kAnyNumber).Valid);
}

TEST(TextRules, ATextWithoutANumberCountsAsZero) {
    NumberLimits limits;
    EXPECT_TRUE(ValidateText(L"", limits).Valid);
    EXPECT_TRUE(ValidateText(L"none", limits).Valid);
    limits.MinCheck = true;
    limits.MinValue = 1;
    EXPECT_TRUE(Refused(ValidateText(L"", limits), L"Entered value is less than 1"));
    limits.MinValue = 12;
    EXPECT_TRUE(ValidateText(L"12 pieces", limits).Valid) << "the leading number counts";
}

TEST(TextRules, PointsAndMinusSignsAreRefusedWhereTheyCannotStand) {
    EXPECT_TRUE(Refused(ValidateText(L"1.5", NumberLimits{}), L""));
    EXPECT_TRUE(Refused(ValidateText(L"1.2.3", kAnyNumber), L""));
    EXPECT_TRUE(ValidateText(L"-1.5", kAnyNumber).Valid);
    EXPECT_TRUE(Refused(ValidateText(L"1-5", kAnyNumber), L""));
    EXPECT_TRUE(ValidateText(L"-5-5", kAnyNumber).Valid) << "only the first minus sign is looked at";
    EXPECT_TRUE(Refused(ValidateText(L"-5", NumberLimits{}), L"Negative value is not permitted"));
    EXPECT_TRUE(Refused(ValidateText(L"5-", NumberLimits{}), L"Negative value is not permitted"));
}

TEST(TextRules, LimitsAreShownAsAutomationShowsASingle) {
    EXPECT_EQ(SingleText(10), L"10");
    EXPECT_EQ(SingleText(0.5F), L"0.5");
    EXPECT_EQ(SingleText(0.5F, L','), L"0,5");
    EXPECT_EQ(SingleText(0.1F), L"0.1");
    EXPECT_EQ(SingleText(-1.25F), L"-1.25");
    EXPECT_EQ(SingleText(-0.0F), L"0");
    EXPECT_EQ(SingleText(1234567), L"1234567");
    EXPECT_EQ(SingleText(12345678), L"1.234568E+07");
    EXPECT_EQ(SingleText(1E20F), L"1E+20");
    EXPECT_EQ(SingleText(1E-20F), L"1E-20");
}

TEST(TextRules, WholeNumbersRoundTiesToEvenAndRefuseWhatDoesNotFit) {
    EXPECT_EQ(ToLong(2.5), 2);
    EXPECT_EQ(ToLong(3.5), 4);
    EXPECT_EQ(ToLong(-2.5), -2);
    EXPECT_EQ(ToLong(2147483647.4), 2147483647);
    EXPECT_EQ(ToLong(2147483648.0), std::nullopt);
    EXPECT_EQ(ToLong(-2147483649.0), std::nullopt);
    EXPECT_EQ(ToLong(std::nan("")), std::nullopt);
    EXPECT_EQ(ToSingle(1E300), std::nullopt);
    EXPECT_EQ(ToSingle(-2.5), -2.5F);
}

TEST(TextRules, NumberRowsTakeDigitsAndBackspaceAndTextRowsAnyKey) {
    for (const wchar_t key : {L'0', L'5', L'9', L'\b'})
        EXPECT_EQ(KeyIn(key, L"", 0, 0, NumberLimits{}), KeyVerdict::Pass) << static_cast<int>(key);
    for (const wchar_t key : {L'a', L'e', L' ', L'/', L':', L'+', L',', L'\t', L'\x16', L'\x7F', L'\xB2', L'\x0665'}) {
        EXPECT_EQ(KeyIn(key, L"", 0, 0), KeyVerdict::Swallow) << static_cast<int>(key);
        EXPECT_EQ(DecideKey(key, {}, nullptr), KeyVerdict::Pass) << static_cast<int>(key);
    }
    for (const wchar_t key : {L'.', L'-'}) {
        EXPECT_EQ(DecideKey(key, {L"1.-", 2, 0, true}, nullptr), KeyVerdict::Pass) << static_cast<int>(key);
        EXPECT_EQ(KeyIn(key, L"", 0, 0, NumberLimits{}), KeyVerdict::Swallow) << static_cast<int>(key);
    }
}

TEST(TextRules, ASecondPointIsTypedOnlyOverTheFirst) {
    EXPECT_EQ(KeyIn(L'.', L"12", 1, 0), KeyVerdict::Pass);
    EXPECT_EQ(KeyIn(L'.', L"1.2", 3, 0), KeyVerdict::Swallow);
    EXPECT_EQ(KeyIn(L'.', L"1.2", 0, 1), KeyVerdict::Swallow);
    EXPECT_EQ(KeyIn(L'.', L"1.2", 1, 1), KeyVerdict::Pass);
    EXPECT_EQ(KeyIn(L'.', L"1.2", 0, 3), KeyVerdict::Pass);
    EXPECT_EQ(KeyIn(L'.', L"1.2", 9, 1), KeyVerdict::Swallow) << "a selection beyond the text selects nothing";
}

TEST(TextRules, AMinusSignIsTypedOnlyInFrontAndOnce) {
    EXPECT_EQ(KeyIn(L'-', L"5", 0, 0), KeyVerdict::Pass);
    EXPECT_EQ(KeyIn(L'-', L"5", 1, 0), KeyVerdict::Swallow);
    EXPECT_EQ(KeyIn(L'-', L"-5", 0, 0), KeyVerdict::Swallow);
    EXPECT_EQ(KeyIn(L'-', L"-5", 0, 2), KeyVerdict::Pass) << "it replaces what is selected";
}
