#include "../host/Options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ormisk {
namespace {

using Words = std::vector<std::wstring>;

TEST(HostOptions, OptionsAreFoundOnBothSidesOfTheScript) {
    const Options options = ParseOptions({L"--size", L"640x480", L"/demo.d/Grid.VBS", L"--screenshot", L"out.png"});
    EXPECT_EQ(options.script, L"/demo.d/Grid.VBS");
    EXPECT_EQ(options.language, ScriptLanguage::VBScript);
    EXPECT_EQ(options.width, 640);
    EXPECT_EQ(options.height, 480);
    EXPECT_EQ(options.screenshot, L"out.png");
    EXPECT_EQ(options.scriptArguments, Words{});
    EXPECT_EQ(ParseOptions({L"a.js"}).language, ScriptLanguage::JScript);
}

TEST(HostOptions, OtherWordsReachTheScript) {
    EXPECT_EQ(ParseOptions({L"a.js", L"one", L"--", L"--size", L"--"}).scriptArguments,
              (Words{L"one", L"--size", L"--"}));
    EXPECT_EQ(ParseOptions({L"--", L"a.js", L"two"}).scriptArguments, Words{L"two"});
}

TEST(HostOptions, UnusableCommandLinesAreRefused) {
    const Words wrong[] = {{},
                           {L"--size", L"10x10"},
                           {L"a.vbs", L"--unknown"},
                           {L"a.vbs", L"--screenshot"},
                           {L"a.vbs", L"--size"},
                           {L"a.vbs", L"--size", L"10"},
                           {L"a.vbs", L"--size", L"x10"},
                           {L"a.vbs", L"--size", L"10x0"},
                           {L"a.vbs", L"--size", L"-5x10"},
                           {L"a.vbs", L"--size", L"10001x10"},
                           {L"a.vbs", L"--size", L"10x99999999999"},
                           {L"a.txt"},
                           {L"vbs"},
                           {L"dir.js/script"}};
    for (const Words& words : wrong)
        EXPECT_THROW(ParseOptions(words), std::invalid_argument) << words.size();
}

} // namespace
} // namespace ormisk
