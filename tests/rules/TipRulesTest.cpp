#include "grid/TipRules.h"

#include <gtest/gtest.h>

namespace ormisk {
namespace {

TEST(TipRules, ATextThatJustFitsIsCutOffOrTheOtherWayRound) {
    EXPECT_TRUE(FitsInCell(95, 0, 100));
    EXPECT_FALSE(FitsInCell(96, 0, 100));
    EXPECT_TRUE(FitsInCell(75, 20, 100));
    EXPECT_FALSE(FitsInCell(76, 20, 100));
}

TEST(TipRules, AHelpFileGoesToAnotherViewer) {
    EXPECT_EQ(HelpViewerFor(L"C:\\Help\\grid.ChM"), HelpViewer::Html);
    EXPECT_EQ(HelpViewerFor(L"grid.HLP"), HelpViewer::Classic);
    for (const wchar_t* file : {L"", L"hm", L"grid.txt", L"grid.chm.bak", L"grid.htm"})
        EXPECT_EQ(HelpViewerFor(file), HelpViewer::None);
    EXPECT_EQ(HelpFileName(std::wstring(L"  a b.chm \0junk", 15)), L"a b.chm");
    EXPECT_EQ(HelpFileName(L"   "), L"");
    EXPECT_EQ(HelpFileName({}), L"");
}

} // namespace
} // namespace ormisk
