#include "editors/DialogRules.h"
#include "editors/DateRules.h"

#include <gtest/gtest.h>

#include <vector>

using namespace ormisk;

namespace {

std::wstring Hash(double date) { return L"#" + std::to_wstring(static_cast<int>(date)); }

std::wstring Zeros(const std::wstring& text) {
    std::wstring shown;
    for (const wchar_t character : text)
        shown += character ? character : L'0';
    return shown;
}

} // namespace

TEST(DateRules, TheLowerLimitIsRefusedOrTheUpperOneTaken) {
    EXPECT_EQ(FaultOfDate({}, {.Min = 100, .Max = 200}, Hash), L"") << "no date";
    EXPECT_EQ(FaultOfDate(-1e6, {}, Hash), L"") << "no limits";
    // The day itself lies before a limit in the course of it; of limits that no date meets the lower one is told.
    EXPECT_EQ(FaultOfDate(100, {.Min = 100.5, .Max = 100.5}, Hash), L"Entered date is less than #100");
    EXPECT_EQ(FaultOfDate(300, {.Min = 400, .Max = 200}, Hash), L"Entered date is less than #400");
}

TEST(DialogRules, AParameterOfTheOtherDialogCountsOrALaterOneDoesNotWin) {
    const PathDialog file = DescribePathDialog(true, {});
    EXPECT_TRUE(file.File);
    EXPECT_EQ(file.Caption, L"Select a file");
    EXPECT_EQ(FileDialogFlags(file.Flags), 0x1000U);
    const PathDialog folder = DescribePathDialog(false, {});
    EXPECT_EQ(folder.Caption, L"Select a folder");
    EXPECT_EQ(folder.Flags, 65U);

    const PathParams all{.Filter = L"A|*.a",
                         .InitialDir = L"C:\\",
                         .DefaultExt = L"a",
                         .DialogCaption = L"  Own ",
                         .FileFlags = 8,
                         .FolderFlags = {}};
    EXPECT_EQ(DescribePathDialog(true, all).Flags, 8U);
    EXPECT_EQ(DescribePathDialog(true, all).Caption, L"  Own ") << "as it was given";
    EXPECT_EQ(DescribePathDialog(true, all).Filter, L"A|*.a");
    EXPECT_EQ(DescribePathDialog(false, all).Flags, 65U);
    EXPECT_EQ(DescribePathDialog(false, all).Filter, L"");
    PathParams flags = all;
    flags.FolderFlags = 1;
    EXPECT_EQ(DescribePathDialog(true, flags).Flags, 1U) << "of a file row, too";
    EXPECT_EQ(DescribePathDialog(false, flags).Flags, 1U);
    flags.DialogCaption = L" ";
    EXPECT_EQ(DescribePathDialog(false, flags).Caption, L" ");
    // A procedure or a template is asked for, but there is none.
    EXPECT_EQ(FileDialogFlags(0x1000 | 0x20 | 0x40 | 0x80), 0x1000U);
    EXPECT_EQ(FileDialogFlags(0x800), 0x800U);
}

TEST(DialogRules, AFilterHasNoEndOrANameNoRoom) {
    EXPECT_EQ(Zeros(DialogFilter(L"")), L"All Files (*.*)00");
    EXPECT_EQ(Zeros(DialogFilter(L"Text|*.txt")), L"Text0*.txt00");
    EXPECT_EQ(Zeros(DialogFilter(L"|")), L"000");
    EXPECT_EQ(FileBuffer(L"C:\\a").size(), kFileBuffer);
    EXPECT_EQ(CutAtZero(FileBuffer(L"C:\\a")), L"C:\\a");
    EXPECT_EQ(CutAtZero(FileBuffer(std::wstring(kFileBuffer - 2, L'x'))).size(), kFileBuffer - 2);
    EXPECT_EQ(CutAtZero(FileBuffer(std::wstring(kFileBuffer - 1, L'x'))), L"") << "no path";
    EXPECT_EQ(CutAtZero(std::wstring(L"ab\0c", 4)), L"ab");
}

TEST(DialogRules, SizesOfFontsAreNotThoseOfTheScreen) {
    EXPECT_EQ(DialogFontHeight(8.25, 96), -11);
    EXPECT_EQ(DialogFontHeight(8, 96), -10);
    EXPECT_EQ(DialogFontHeight(8.25, 144), -16);
    EXPECT_EQ(DialogFontHeight(12, 0), 0) << "no screen";
    EXPECT_EQ(DialogPointSize(8.25), 82);
    EXPECT_LT(DialogFontHeight(1e15, 96), -1000000);
}

TEST(DialogRules, ABoxOrAButtonLeavesItsCell) {
    const Rect cell{100, 40, 200, 60};
    EXPECT_EQ(PlaceCaption(cell, 17), (FieldPlaces{{102, 40, 200, 60}, {}, {81, 0, 98, 20}}));
    EXPECT_EQ(PlacePicture(cell, 17), (FieldPlaces{cell, {0, 2, 83, 20}, {83, 0, 100, 20}}));
    EXPECT_EQ(PlacePath(cell, 17), (FieldPlaces{cell, {2, 2, 81, 20}, {81, 0, 100, 20}})) << "a tenth wider";
    EXPECT_EQ(PlacePath({0, 0, 10, 20}, 17).Button, (Rect{0, 0, 10, 20})) << "narrower than its button";
    for (const Rect& small : {Rect{}, Rect{5, 5, 6, 6}, Rect{0, 0, 3, 1}})
        for (const FieldPlaces& places : {PlaceCaption(small, 17), PlacePicture(small, 17), PlacePath(small, 17)}) {
            EXPECT_GE(places.Box.Width(), 0);
            EXPECT_GE(places.Box.Height(), 0);
        }
}
