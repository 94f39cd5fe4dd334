// What the rows look like, pixel by pixel.

#include "GridContainer.h"

#include "platform/Color.h"

namespace ormisk::test {
namespace {

constexpr COLORREF kRed = RGB(255, 0, 0), kGreen = RGB(0, 255, 0), kBlue = RGB(0, 0, 255), kGold = RGB(250, 200, 10);
constexpr OLE_COLOR kFollow = 0xFFFFFFFF;

bool Has(const Picture& picture, COLORREF color, const RECT& area) { return picture.Count(color, area) > 0; }

// The colour of a cell where neither text nor line nor border is.
COLORREF FillOf(const Picture& picture, const RECT& cell) { return picture.At(cell.right - 4, cell.top + 3); }

TEST_F(GridTest, RowsOrTheSelectionAreFilledWithAnotherColour) {
    GridContainer host;
    host->put_Grid(omGridNone);
    host->put_PropertyBackColor(kGold);
    host->put_HighlightBackColor(kBlue);
    host->put_HighlightForeColor(kGreen);
    const auto a = host.Add(L"AAA", L"111");
    const auto b = host.Add(L"BBB", L"222");
    b->put_ForeColor(kRed);
    {
        const Picture picture = host.Paint();
        EXPECT_EQ(FillOf(picture, host.NameCell(0)), kGold);
        EXPECT_EQ(FillOf(picture, host.ValueCell(1)), kGold);
        EXPECT_EQ(picture.At(20, picture.Size().cy - 2), kGold) << "the ground below the rows";
        EXPECT_TRUE(Has(picture, kRed, host.NameCell(1)));
        EXPECT_TRUE(Has(picture, kRed, host.ValueCell(1)));
        EXPECT_FALSE(Has(picture, kRed, host.NameCell(0)));
    }
    b->put_BackColor(kRed);
    EXPECT_EQ(FillOf(host.Paint(), host.ValueCell(1)), kRed);
    b->put_BackColor(kFollow);
    host.Select(b.Get()); // with an editor: its cell does not show through
    {
        const Picture picture = host.Paint();
        EXPECT_EQ(FillOf(picture, host.NameCell(1)), kBlue);
        EXPECT_EQ(FillOf(picture, host.ValueCell(1)), kGold);
        EXPECT_TRUE(Has(picture, kGreen, host.NameCell(1)));
        EXPECT_FALSE(Has(picture, kRed, host.NameCell(1)));
    }
    // Without an editor the whole row is highlighted, and a read-only row keeps its text colour.
    host->put_ReadOnlyPropertyColor(kRed);
    a->put_ReadOnly(VARIANT_TRUE);
    EXPECT_TRUE(Has(host.Paint(), kRed, host.NameCell(0)));
    host.Select(a.Get());
    {
        const Picture picture = host.Paint();
        EXPECT_EQ(FillOf(picture, host.ValueCell(0)), kBlue);
        EXPECT_TRUE(Has(picture, kRed, host.ValueCell(0)));
        EXPECT_FALSE(Has(picture, kGreen, host.ValueCell(0)));
    }
    host->put_ReadOnly(VARIANT_TRUE);
    EXPECT_TRUE(Has(host.Paint(), kRed, host.NameCell(1))) << "a read-only control";
}

TEST_F(GridTest, CategoryColoursFollowAnotherRuleForOldAndNewCategories) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host->put_Grid(omGridNone);
    host->put_CategoryAppearance(omFlat);
    host->put_PropertyBackColor(kGold);
    host.Add(L"A", L"", L"Old");
    EXPECT_EQ(FillOf(host.Paint(), host.NameCell(0)), GetSysColor(COLOR_3DFACE));
    host->put_CategoryBackColor(kRed);
    EXPECT_EQ(FillOf(host.Paint(), host.NameCell(0)), kRed);
    // The default colour makes old categories follow the rows, and new ones take it as it is.
    host->put_CategoryBackColor(0x8000000F);
    host.Add(L"B", L"", L"New");
    {
        const Picture picture = host.Paint();
        EXPECT_EQ(FillOf(picture, host.NameCell(0)), kGold);
        EXPECT_EQ(FillOf(picture, host.NameCell(2)), GetSysColor(COLOR_3DFACE));
    }
    host->put_CategoryForeColor(kBlue);
    EXPECT_TRUE(Has(host.Paint(), kBlue, {20, host.RowTop(0), host.Divider(), host.RowTop(1)}));
    // The relief of a category: light above, dark below, two pixels each.
    host->put_CategoryBackColor(RGB(160, 160, 160));
    host->put_CategoryAppearance(om3d);
    const Shades shades = ShadesOf(RGB(160, 160, 160));
    const Picture picture = host.Paint();
    for (const RECT& cell : {host.NameCell(0), host.ValueCell(0)}) {
        const long x = cell.left + 30, bottom = cell.bottom;
        EXPECT_EQ(picture.At(x, cell.top), shades.Lighter);
        EXPECT_EQ(picture.At(x, cell.top + 1), shades.Light);
        EXPECT_EQ(picture.At(x, bottom - 2), shades.Dark);
        EXPECT_EQ(picture.At(x, bottom - 1), shades.Darker);
        EXPECT_EQ(picture.At(cell.left, cell.top + 5), shades.Lighter);
    }
    EXPECT_EQ(FillOf(picture, host.NameCell(1)), kGold);
}

TEST_F(GridTest, GridLinesHaveAnotherPlaceStyleOrColour) {
    GridContainer host;
    host->put_LineColor(kRed);
    host->put_BackColor(kGreen);
    host.Add(L"A");
    host.Add(L"B");
    const struct {
        omGrid style;
        bool solid, horizontal, vertical;
    } styles[] = {{omGridNone, false, false, false},  {omGridSolid, true, true, true},
                  {omGridDotted, false, true, true},  {omHorzSolid, true, true, false},
                  {omHorzDotted, false, true, false}, {omVertSolid, true, false, true},
                  {omVertDotted, false, false, true}};
    for (const auto& style : styles) {
        SCOPED_TRACE(style.style);
        host->put_Grid(style.style);
        const Picture picture = host.Paint();
        // How much of a line is there: nothing, all, or every second pixel.
        const auto expectLine = [&](RECT line, bool drawn, const char* which) {
            const long length = (line.right - line.left) * (line.bottom - line.top);
            const long red = picture.Count(kRed, line), green = picture.Count(kGreen, line);
            EXPECT_EQ(red, !drawn ? 0 : style.solid ? length : length / 2) << which;
            if (drawn && !style.solid)
                EXPECT_EQ(green, length - length / 2) << which << ", between the dots";
        };
        const RECT name = host.NameCell(0), value = host.ValueCell(0);
        const bool any = style.style != omGridNone;
        expectLine({30, name.bottom - 1, 60, name.bottom}, style.horizontal, "below a name");
        expectLine({value.left + 30, name.bottom - 1, value.left + 60, name.bottom}, style.horizontal, "below a value");
        const long last = host.RowTop(2) - 1;
        expectLine({30, last, 60, last + 1}, any, "below the last row");
        expectLine({name.right - 1, name.top + 2, name.right, name.top + 12}, style.vertical, "right of the names");
    }
}

TEST_F(GridTest, AnExpanderIsMissingMisplacedOrShowsTheOtherState) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host->put_CategoryAppearance(omFlat);
    host->put_Grid(omGridNone);
    host->put_LineColor(kRed);
    host->put_CategoryForeColor(kBlue);
    host->put_CategoryBackColor(kGreen);
    host->put_Indentation(12);
    host.Add(L"\t", L"", L" X |Y");
    const long height = host.RowHeight();
    const long half = height / 2;
    const long glyph = half % 2 ? half - 1 : half;
    const auto expectBox = [&](long row, bool expanded) {
        const Picture picture = host.Paint();
        const long left = 12 * row + 2, top = host.RowTop(row) + (height - glyph) / 2;
        const long right = left + glyph + 1, bottom = top + glyph + 1;
        const long middleX = (left + right) / 2, middleY = (top + bottom) / 2;
        EXPECT_EQ(picture.At(left, top), kRed);
        EXPECT_EQ(picture.At(right - 1, bottom - 1), kRed);
        EXPECT_EQ(picture.At(right, middleY), kGreen) << "the box ends here";
        EXPECT_EQ(picture.At(left + 2, middleY), kBlue);
        EXPECT_EQ(picture.At(right - 3, middleY), kBlue);
        EXPECT_EQ(picture.At(middleX, top + 2), expanded ? kGreen : kBlue);
    };
    expectBox(0, true);
    expectBox(1, true);
    host->ExpandCategory(_bstr_t(L"X|Y"), VARIANT_FALSE);
    expectBox(1, false);
    for (const auto style : {omText, omTreelinesText}) {
        host->put_TreeStyle(style);
        EXPECT_NE(host.Paint().At(2, host.RowTop(0) + (height - glyph) / 2), kRed);
    }
    // A click into the box toggles, its edge belongs to the row.
    host->put_TreeStyle(omPlusMinusText);
    host.Heard();
    host.ClickTree(12 + 3, host.RowTop(1) + height / 2);
    EXPECT_EQ(host.Heard(), L"CategoryExpanding Y False");
    host.ClickTree(12 + 2, host.RowTop(1) + height / 2);
    EXPECT_EQ(host.Heard(), L"");
    EXPECT_EQ(FillOf(host.Paint(), host.NameCell(1)), GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(GridTest, TreeLinesJoinTheWrongRowsOrRunTooFar) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host->put_CategoryAppearance(omFlat);
    host->put_Grid(omGridNone);
    host->put_LineColor(kRed);
    for (const wchar_t* name : {L" A", L" B"})
        host.Add(name, L"", L" X")->put_ForeColor(kBlue);
    const long height = host.RowHeight();
    const long half = height / 2;
    const long glyph = half % 2 ? half - 1 : half;
    // Dots of a row's column in its upper and lower half.
    const auto dots = [&](const Picture& picture, long x, long row) {
        const long top = host.RowTop(row);
        return std::pair(picture.Count(kRed, {x, top, x + 1, top + half}),
                         picture.Count(kRed, {x, top + half + 1, x + 1, top + height}));
    };
    host->put_TreeStyle(omTreeLinesPlusMinusText);
    const long x = 12 + (glyph + 1) / 2;
    {
        const Picture picture = host.Paint();
        const auto first = dots(picture, x, 1), last = dots(picture, x, 2);
        EXPECT_NEAR(static_cast<double>(first.first), static_cast<double>(half) / 2, 1.0);
        EXPECT_NEAR(static_cast<double>(first.second), static_cast<double>(half) / 2, 1.0);
        EXPECT_NEAR(static_cast<double>(last.first), static_cast<double>(half) / 2, 1.0);
        EXPECT_EQ(last.second, 0) << "the line ends at the last child";
        const long middle = host.RowTop(1) + half;
        EXPECT_GT(picture.Count(kRed, {x + 1, middle, x + 6, middle + 1}), 0) << "the branch";
    }
    host->put_TreeStyle(omTreelinesText);
    {
        const long plain = glyph / 2;
        const Picture picture = host.Paint();
        EXPECT_EQ(picture.Count(kRed, host.NameCell(0)), 0) << "a root has no line in this style";
        EXPECT_GT(dots(picture, plain, 1).second, 0);
        EXPECT_EQ(dots(picture, plain, 2).second, 0);
    }
    for (const auto style : {omText, omPlusMinusText}) {
        host->put_TreeStyle(style);
        EXPECT_EQ(host.Paint().Count(kRed, {0, host.RowTop(1), host.Divider(), host.RowTop(3)}), 0);
    }
    host->put_TreeStyle(omTreeLinesPlusMinusText);
    host->put_ActiveView(omAlphabetic);
    EXPECT_EQ(host.Paint().Count(kRed, {0, host.RowTop(0), host.Divider(), host.RowTop(2)}), 0) << "a flat list";
}

TEST_F(GridTest, AColourSwatchHasAnotherPlaceOrColour) {
    GridContainer host;
    host->put_Grid(omGridNone);
    const auto row = host.Add(L"Colour", static_cast<long>(kRed), L"", omColorEditor);
    row->put_ForeColor(kBlue);
    const RECT cell = host.ValueCell(0);
    const long side = host.RowHeight() - 5;
    const Picture picture = host.Paint();
    EXPECT_EQ(picture.At(cell.left + 2, cell.top + 2), kBlue);
    EXPECT_EQ(picture.At(cell.left + 2 + side - 1, cell.top + 2 + side - 1), kBlue);
    EXPECT_EQ(picture.At(cell.left + 2 + side / 2, cell.top + 2 + side / 2), kRed);
    EXPECT_NE(picture.At(cell.left + 1, cell.top + 4), kBlue);
    EXPECT_FALSE(Has(picture, kBlue, {cell.left + 2 + side, cell.top + 2, cell.left + 4 + side, cell.bottom}))
        << "the text stands off";
    row->put_Value(_variant_t(static_cast<double>(0x80000000U | COLOR_HIGHLIGHT))); // as JScript has it
    EXPECT_EQ(host.Paint().At(cell.left + 2 + side / 2, cell.top + 2 + side / 2), GetSysColor(COLOR_HIGHLIGHT));
    // No colour is black, and nothing breaks.
    row->put_Value(_variant_t(L"no colour"));
    EXPECT_EQ(host.Paint().At(cell.left + 2 + side / 2, cell.top + 2 + side / 2), RGB(0, 0, 0));
}

TEST_F(GridTest, CustomDrawIsToldOutOfOrderOutsideItsCellOrIgnored) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    host->put_CategoryAppearance(omFlat);
    host->put_Grid(omHorzSolid);
    host->put_LineColor(kRed);
    const auto row = host.Add(L"Drawn", L"||||||||", L"C");
    row->put_ForeColor(kBlue);
    row->put_CustomDraw(VARIANT_TRUE);
    host.Add(L"Plain", L"x", L"C");
    host.events.quiet.erase(L"PropertyDraw");
    const RECT cell = host.ValueCell(1);
    const long cx = cell.right - cell.left - 1, cy = host.RowHeight() - 1;
    const std::wstring size = L"PropertyDraw Drawn " + std::to_wstring(cx) + L" " + std::to_wstring(cy) + L" ";
    host.Heard();
    host.Paint();
    EXPECT_EQ(host.Heard(), size + L"0 True; " + size + L"1 True; " + size + L"2 True");

    const auto fillAt = [&](long stage, bool decline) {
        host.events.on[L"PropertyDraw"] = [=](const EventCall& call) {
            if (V_I4(&call[4]) != stage)
                return;
            const HDC dc = reinterpret_cast<HDC>(static_cast<LONG_PTR>(V_I4(&call[0])));
            const RECT all{0, 0, V_I4(&call[2]) + 1, V_I4(&call[3]) + 1};
            const HBRUSH brush = CreateSolidBrush(kGreen);
            FillRect(dc, &all, brush);
            DeleteObject(brush);
            if (decline)
                call.Set(5, false);
        };
        return host.Paint();
    };
    EXPECT_FALSE(Has(fillAt(omPreErase, false), kGreen, cell)) << "erased over it";
    {
        const Picture picture = fillAt(omPreErase, true);
        EXPECT_EQ(FillOf(picture, cell), kGreen);
        EXPECT_TRUE(Has(picture, kBlue, cell)) << "the text is drawn all the same";
        EXPECT_EQ(picture.At(cell.left + 40, cell.bottom - 1), kRed) << "and so are lines";
        EXPECT_FALSE(Has(picture, kGreen, host.NameCell(1)));
        EXPECT_FALSE(Has(picture, kGreen, host.ValueCell(2)));
    }
    {
        const Picture picture = fillAt(omPostErase, true);
        EXPECT_EQ(FillOf(picture, cell), kGreen);
        EXPECT_TRUE(Has(picture, kBlue, cell));
    }
    EXPECT_EQ(fillAt(omPostDraw, true).Count(kGreen, {cell.left, cell.top, cell.right, cell.bottom}),
              (cell.right - cell.left) * (cell.bottom - cell.top));
    // A handler that fails ends the paint of this time only.
    host.events.on[L"PropertyDraw"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    host.Paint();
    host.events.on.clear();
    EXPECT_TRUE(Has(host.Paint(), kBlue, cell));
}

TEST_F(GridTest, CustomDrawIsToldOfACellThatNeedsNoPainting) {
    GridContainer host;
    const auto drawn = host.Add(L"Drawn", L"", L"C"), plain = host.Add(L"Plain");
    drawn->put_CustomDraw(VARIANT_TRUE);
    for (int i = 0; i < 40; ++i)
        host.Add(L"Row" + std::to_wstring(i));
    host.Pump();
    host.events.quiet = {L"PropertyValueChanged", L"SelChanged"};
    const auto told = [&](const auto& change) {
        host.Heard();
        change();
        host.Pump();
        return host.Heard().find(L"PropertyDraw Drawn") != std::wstring::npos;
    };
    EXPECT_TRUE(told([&] { drawn->put_Value(_variant_t(L"1")); }));
    EXPECT_FALSE(told([&] { plain->put_Value(_variant_t(L"1")); })) << "a change paints its own row";
    host->put_LockRefresh(VARIANT_TRUE);
    EXPECT_FALSE(told([&] { host->Refresh(); }));
    host->put_LockRefresh(VARIANT_FALSE);
    EXPECT_TRUE(told([&] { host->Refresh(); }));
    host.Select(host.Item(42L).Get());
    EXPECT_FALSE(told([&] { drawn->put_Value(_variant_t(L"2")); })) << "scrolled out of view";
    host.Select(plain.Get());
    host->put_ActiveView(omCatagorized);
    EXPECT_TRUE(told([&] { host->ExpandCategory(_bstr_t(L"C"), VARIANT_TRUE); }));
    host->ExpandCategory(_bstr_t(L"C"), VARIANT_FALSE);
    EXPECT_FALSE(told([&] { host->Refresh(); })) << "in a closed category";
}

// A bitmap of two colours, left and right.
ComPtr<IPictureDisp> MakePicture(int width, int height) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    for (const bool left : {true, false}) {
        const RECT half{left ? 0 : width / 2, 0, left ? width / 2 : width, height};
        const HBRUSH brush = CreateSolidBrush(left ? kRed : kBlue);
        FillRect(dc, &half, brush);
        DeleteObject(brush);
    }
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    ComPtr<IPictureDisp> picture;
    EXPECT_EQ(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                       reinterpret_cast<void**>(picture.GetAddressOf())),
              S_OK);
    return picture;
}

TEST_F(GridTest, ABackgroundPictureIsMisplacedOrCoveredByRows) {
    GridContainer host;
    host->put_Grid(omGridNone);
    host->put_PropertyBackColor(kGold);
    const auto row = host.Add(L" ", L" ");
    row->put_BackColor(kGreen);
    host->put_HighlightBackColor(kGreen);
    EXPECT_EQ(host->putref_Picture(MakePicture(20, 10).Get()), S_OK);
    RECT area{};
    GetClientRect(host.Tree(), &area);
    area.top = host.HeaderHeight();
    {
        const Picture picture = host.Paint();
        const long x = (area.right - 20) / 2, y = area.top + (area.bottom - area.top - 10) / 2;
        EXPECT_EQ(picture.At(x + 2, y + 2), kRed);
        EXPECT_EQ(picture.At(x + 17, y + 2), kBlue);
        EXPECT_EQ(picture.At(x - 3, y + 2), kGold);
        EXPECT_FALSE(Has(picture, kGreen, host.NameCell(0))) << "a row over a picture is clear";
    }
    host->put_PictureLayout(omPictureStretched);
    {
        const Picture picture = host.Paint();
        EXPECT_EQ(picture.At(area.right / 2 - 3, area.bottom - 2), kRed);
        EXPECT_EQ(picture.At(area.right / 2 + 3, area.top + 1), kBlue);
        EXPECT_EQ(picture.At(area.right - 1, area.bottom - 1), kBlue);
    }
    host->put_PictureLayout(omPictureTiled);
    {
        const Picture picture = host.Paint();
        for (const long y : {area.top + 1, area.bottom - 1}) {
            EXPECT_EQ(picture.At(45, y), kRed);
            EXPECT_EQ(picture.At(55, y), kBlue);
        }
        EXPECT_EQ(picture.At(area.right - 1, area.bottom - 1), (area.right - 1) % 20 < 10 ? kRed : kBlue);
    }
    host.Select(row.Get());
    EXPECT_EQ(FillOf(host.Paint(), host.NameCell(0)), kGreen) << "the selected row is filled";
    host->put_PictureLayout(static_cast<omPictureLayout>(9));
    EXPECT_EQ(host.Paint().At(area.right - 2, area.bottom - 2), Picture::kUntouched);
    EXPECT_EQ(host->putref_Picture(nullptr), S_OK);
    EXPECT_EQ(host.Paint().At(area.right - 2, area.bottom - 2), kGold);
}

TEST_F(GridTest, ARowPictureIsMisplacedOrNotTransparent) {
    GridContainer host;
    host->put_Grid(omGridNone);
    host->put_PropertyBackColor(kGold);
    const auto row = host.Add(L" ", L"");
    EXPECT_EQ(row->putref_Picture(MakePicture(10, 6).Get()), S_OK);
    EXPECT_EQ(row->put_PictureMaskColor(kBlue), S_OK);
    const long height = host.RowHeight();
    const long half = height / 2;
    const long x = 2 + (half % 2 ? half - 1 : half) + 1 + 2, y = host.RowTop(0) + (height - 6) / 2;
    const Picture picture = host.Paint();
    EXPECT_EQ(picture.At(x, y), kRed);
    EXPECT_EQ(picture.At(x + 4, y + 5), kRed);
    EXPECT_EQ(picture.At(x + 5, y), kGold) << "the mask colour lets the row through";
    EXPECT_EQ(picture.At(x - 1, y), kGold);
    EXPECT_EQ(picture.At(x, y - 1), kGold);
}

TEST_F(GridTest, ADrawingOfTheWholeControlInDesignModeIsEmpty) {
    GridContainer host({.userMode = false});
    host->put_Grid(omGridNone);
    host.Add(L"Row", L"v")->put_BackColor(kRed);
    host.Add(L"Other", L"v");
    EXPECT_EQ(FillOf(host.Paint(), host.NameCell(0)), kRed);
    POINT tree{};
    MapWindowPoints(host.Tree(), host.Window(), &tree, 1);
    const SIZE size{300, 300};
    const Picture whole(size, [&](HDC dc) {
        const RECTL bounds{0, 0, size.cx, size.cy};
        EXPECT_EQ(host->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0), S_OK);
    });
    RECT cell = host.NameCell(0);
    OffsetRect(&cell, tree.x, tree.y);
    EXPECT_EQ(FillOf(whole, cell), kRed);
    EXPECT_EQ(whole.At(2, 2), GetSysColor(COLOR_3DFACE));
    EXPECT_FALSE(Has(whole, Picture::kUntouched, {0, 0, size.cx, size.cy}));
}

} // namespace
} // namespace ormisk::test
