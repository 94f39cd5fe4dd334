// The control's own properties: checks, defaults, notices, units, ambient properties, access keys.

#include "GridContainer.h"

#include "automation/ByName.h"

#include <sstream>

namespace ormisk::test {
namespace {

using Grid = OrmiskGrid;

TEST_F(GridTest, ARefusedSettingLosesTheOldValueOrItsErrorText) {
    GridContainer host;
    host.notices.clear();
    const auto keeps = [&](HRESULT hr, const std::wstring& failure) {
        EXPECT_EQ(FailureOfCall(hr), failure);
        EXPECT_TRUE(host.notices.empty());
    };
    const std::wstring title = kLibraryTitle;
    keeps(host->put_AlphabeticTabCaption(_bstr_t(L"  ")), L"80040002|" + title + L"|Invalid property value.");
    keeps(host->put_CategorizedTabCaption(nullptr), L"80040002|" + title + L"|Invalid property value.");
    keeps(host->put_CategorySeparator(_bstr_t(L" ")),
          L"80040002|" + title + L"|CategorySeparator : Invalid property value.");
    keeps(host->put_Indentation(-1.0F), L"80040002|Indentation : |Invalid property value.");
    EXPECT_EQ(Read(host, &Grid::get_AlphabeticTabCaption), L"Alphabetic");
    EXPECT_EQ(Read(host, &Grid::get_CategorizedTabCaption), L"Categorized");
    EXPECT_EQ(Read(host, &Grid::get_CategorySeparator), L"|");
    EXPECT_EQ(Read(host, &Grid::get_Indentation), 10.0F);

    // What looks refused but is taken.
    EXPECT_EQ(host->put_Indentation(0.0F), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_Indentation), 0.0F);
    EXPECT_EQ(host->put_InspectionDepth(0), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_InspectionDepth), 1);
    EXPECT_EQ(host->put_AlphabeticTabCaption(_bstr_t(L"  A to Z ")), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_AlphabeticTabCaption), L"A to Z");
    EXPECT_EQ(host->put_DefaultCategory(_bstr_t(L"  ")), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_DefaultCategory), L"  ");
    EXPECT_EQ(host->get_Indentation(nullptr), E_POINTER);
}

TEST_F(GridTest, ANewControlHasOtherDefaults) {
    GridContainer host;
    const std::pair<std::wstring, std::wstring> defaults[] = {
        {L"ActiveView Appearance BorderStyle CategoryAppearance CategoryBold Grid Headers PictureLayout TreeStyle",
         L"0 1 0 1 True 2 2 0 1 "},
        {L"RecordsetToolbar SortOrder Indentation InspectionDepth", L"0 0 10 1 "},
        {L"Enabled ShowDescription ShowTabs ShowToolTip SortOnHeaderClick", L"True True True True True "},
        {L"Sorted CustomSort ReadOnly LockRefresh Unicode", L"False False False False False "},
        {L"NameCaption ValueCaption AlphabeticTabCaption CategorizedTabCaption DefaultCategory CategorySeparator",
         L"Property Value Alphabetic Categorized Misc | "},
        {L"Picture Recordset SelectedProperty", L"Nothing Nothing Nothing "}};
    for (const auto& [names, expected] : defaults) {
        std::wstring found;
        std::wistringstream list(names);
        for (std::wstring name; list >> name;) {
            const _variant_t value = InvokeByName(host.grid.Get(), name, DISPATCH_PROPERTYGET);
            found +=
                (HoldsObject(value) ? L"Nothing" + std::wstring(ObjectOf(value) ? 1 : 0, L'!') : TextOf(value)) + L" ";
        }
        EXPECT_EQ(found, expected);
    }
    const std::pair<OLE_COLOR, std::vector<HRESULT (STDMETHODCALLTYPE OrmiskGrid::*)(OLE_COLOR*)>> colors[] = {
        {COLOR_3DFACE, {&Grid::get_BackColor, &Grid::get_CategoryBackColor}},
        {COLOR_BTNTEXT, {&Grid::get_ForeColor, &Grid::get_CategoryForeColor, &Grid::get_PropertyForeColor}},
        {COLOR_HIGHLIGHT, {&Grid::get_HighlightBackColor}},
        {COLOR_HIGHLIGHTTEXT, {&Grid::get_HighlightForeColor}},
        {COLOR_WINDOW, {&Grid::get_PropertyBackColor}},
        {COLOR_3DSHADOW, {&Grid::get_LineColor}},
        {COLOR_GRAYTEXT, {&Grid::get_ReadOnlyPropertyColor}}};
    for (const auto& [index, getters] : colors)
        for (const auto& getter : getters)
            EXPECT_EQ(Read(host, getter), 0x80000000U | index) << index;
}

TEST_F(GridTest, AChangeIsToldTwiceOrNeverOrWithAnotherNumber) {
    GridContainer host;
    const auto noticeOf = [&](const auto& change) {
        host.notices.clear();
        EXPECT_EQ(change(), S_OK);
        return host.notices;
    };
    const auto id = [&](const wchar_t* name) {
        DISPID number = DISPID_UNKNOWN;
        auto* text = const_cast<wchar_t*>(name);
        host->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_NEUTRAL, &number);
        return number;
    };
    const auto one = [&](const wchar_t* name) { return std::vector<DISPID>{id(name)}; };
    const std::vector<DISPID> none;
    EXPECT_EQ(noticeOf([&] { return host->put_BackColor(0xFF); }), (std::vector<DISPID>{DISPID_BACKCOLOR}));
    EXPECT_EQ(noticeOf([&] { return host->put_BackColor(0xFF); }), none) << "the same value again";
    EXPECT_EQ(noticeOf([&] { return host->put_ActiveView(omCatagorized); }), one(L"ActiveView"));
    EXPECT_EQ(noticeOf([&] { return host->put_CategorySeparator(_bstr_t(L"/")); }), one(L"CategorySeparator"));
    EXPECT_EQ(noticeOf([&] { return host->put_Indentation(20); }), one(L"Indentation"));
    EXPECT_EQ(noticeOf([&] { return host->put_Indentation(20); }), one(L"Indentation")) << "told also when equal";
    EXPECT_EQ(noticeOf([&] { return host->put_Sorted(VARIANT_FALSE); }), one(L"Sorted")) << "told also when equal";
    EXPECT_EQ(noticeOf([&] { return host->put_ShowTabs(VARIANT_FALSE); }), one(L"ShowTabs"));
    EXPECT_EQ(noticeOf([&] { return host->put_ReadOnly(VARIANT_TRUE); }), one(L"ReadOnly"));
    for (const auto& silent : std::vector<std::function<HRESULT()>>{
             [&] { return host->put_LockRefresh(VARIANT_TRUE); }, [&] { return host->put_LockRefresh(VARIANT_FALSE); },
             [&] { return host->put_SortOnHeaderClick(VARIANT_FALSE); },
             [&] { return host->put_RecordsetToolbar(omShow); }, [&] { return host->put_InspectionDepth(3); }})
        EXPECT_EQ(noticeOf(silent), none);
    EXPECT_EQ(host->IsDirty(), S_OK);
}

TEST_F(GridTest, ASeparatorLeavesOldPathsOrMovesOldRows) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    const auto old = host.Add(L"A", L"", L"X|Y");
    EXPECT_EQ(host->put_CategorySeparator(_bstr_t(L" :: ")), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_CategorySeparator), L"::");
    EXPECT_EQ(Read(old, &_CProperty::get_Category), L"X::Y");
    // The new row lands beside the old one.
    host.Add(L"B", L"", L"X::Y");
    host.Expand(L"X::Y");
    EXPECT_EQ(host.Rows(), L"* * A B");
}

TEST_F(GridTest, UnitsOfTheHostDoNotReachPositionsIndentationOrMouse) {
    GridContainer host;
    const float dpi = 96.0F;
    // The margins beside the tabs are whole units, so with them the columns' width follows the unit.
    EXPECT_EQ(host->put_ShowTabs(VARIANT_FALSE), S_OK);
    EXPECT_EQ(host->put_ColumnDividerPosition(120.0F), S_OK);
    EXPECT_EQ(host->put_DescriptionPaneHeight(48.0F), S_OK);
    const long divider = host.Divider();
    const Rect before = WindowRect(host.DescriptionPane());
    const struct {
        const wchar_t* name;
        float perPixel;
    } units[] = {{L"Twip", 1440 / dpi},
                 {L"POINT", 72 / dpi},
                 {L"inch", 1 / dpi},
                 {L"Centimeter", 2.54F / dpi},
                 {L"Millimeter", 25.4F / dpi}};
    for (const auto& unit : units) {
        SCOPED_TRACE(&unit - units);
        host.SetAmbient(L"ScaleUnits", unit.name);
        EXPECT_NEAR(Read(host, &Grid::get_ColumnDividerPosition), 120 * unit.perPixel, unit.perPixel);
        EXPECT_NEAR(Read(host, &Grid::get_DescriptionPaneHeight), 48 * unit.perPixel, unit.perPixel);
        EXPECT_NEAR(Read(host, &Grid::get_Indentation), 10 * unit.perPixel, unit.perPixel / 2);
        EXPECT_EQ(host->put_Indentation(10 * unit.perPixel), S_OK);
    }
    host.SetAmbient(L"ScaleUnits", L"Furlong");
    EXPECT_EQ(host.Divider(), divider) << "an unknown unit is the pixel";
    EXPECT_NEAR(Read(host, &Grid::get_Indentation), 10.0F, 0.01F);
    EXPECT_EQ(WindowRect(host.DescriptionPane()).top, before.top) << "units move no pane";
}

TEST_F(GridTest, ADividerOrDescriptionPaneLandsOutsideTheControl) {
    GridContainer host;
    host.Add(L"A quite long name of a property", L"v");
    // Without a scroll bar the value header keeps one pixel beside the bar of one.
    EXPECT_EQ(host->put_ColumnDividerPosition(5000.0F), S_OK);
    const Rect strip = ClientRect(host.HeaderStrip());
    EXPECT_EQ(Read(host, &Grid::get_ColumnDividerPosition), static_cast<float>(strip.right - 2));
    EXPECT_EQ(host->put_ColumnDividerPosition(-1.0F), S_OK);
    const float fitted = Read(host, &Grid::get_ColumnDividerPosition);
    EXPECT_GT(fitted, 100.0F);
    EXPECT_LT(fitted, static_cast<float>(strip.right - 2));
    host.Add(L"A name that is a good deal longer than the one above", L"v");
    EXPECT_EQ(host->put_ColumnDividerPosition(-1.0F), S_OK);
    EXPECT_GT(Read(host, &Grid::get_ColumnDividerPosition), fitted);
    // With a scroll bar its width counts twice.
    for (int i = 0; i < 40; ++i)
        host.Add(L"Row" + std::to_wstring(i), L"v");
    EXPECT_EQ(host->put_ColumnDividerPosition(5000.0F), S_OK);
    const float limit = 300.0F - 2.0F * static_cast<float>(GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_NEAR(Read(host, &Grid::get_ColumnDividerPosition), limit, 1.0F);

    EXPECT_EQ(host->put_DescriptionPaneHeight(70.0F), S_OK);
    EXPECT_EQ(Read(host, &Grid::get_DescriptionPaneHeight), 70.0F);
    const auto first = host.Item(1L);
    host.Select(first.Get());
    EXPECT_EQ(host->put_DescriptionPaneHeight(0.0F), S_OK);
    const float bare = Read(host, &Grid::get_DescriptionPaneHeight);
    first->put_Help(_bstr_t(L"A help text that takes several lines in a pane as narrow as this one is, and then some "
                            L"more of it to be sure."));
    EXPECT_EQ(host->put_DescriptionPaneHeight(0.0F), S_OK);
    EXPECT_GT(Read(host, &Grid::get_DescriptionPaneHeight), bare + 10);
    EXPECT_EQ(host->put_ShowDescription(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(IsWindowVisible(host.DescriptionPane()));
    EXPECT_EQ(host->put_ShowDescription(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(IsWindowVisible(host.DescriptionPane()));
}

TEST_F(GridTest, AnAccessKeyOfATabReachesTheOtherViewOrNone) {
    GridContainer host;
    host->put_AlphabeticTabCaption(_bstr_t(L"A&&B"));
    host->put_CategorizedTabCaption(_bstr_t(L"A&&B &Cat"));
    CONTROLINFO info{};
    info.cb = sizeof info;
    EXPECT_EQ(host->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 1);
    MSG key{host.window, WM_SYSCHAR, L'c', 0, 0, {}};
    host.Heard();
    EXPECT_EQ(host->OnMnemonic(&key), S_OK);
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged");
    EXPECT_EQ(host->OnMnemonic(&key), S_OK);
    EXPECT_EQ(host.Heard(), L"") << "the view is on screen already";
    key.wParam = L'b';
    host->OnMnemonic(&key);
    EXPECT_EQ(Read(host, &Grid::get_ActiveView), omCatagorized) << "a literal ampersand is no key";
    host->put_AlphabeticTabCaption(_bstr_t(L"Alpha&betic"));
    EXPECT_EQ(host->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 2);
    host->put_ShowTabs(VARIANT_FALSE);
    host->OnMnemonic(&key);
    EXPECT_EQ(Read(host, &Grid::get_ActiveView), omCatagorized) << "the tabs are hidden";
    host->put_ShowTabs(VARIANT_TRUE);
    host->OnMnemonic(&key);
    EXPECT_EQ(Read(host, &Grid::get_ActiveView), omAlphabetic);
}

TEST_F(GridTest, AFontIsSharedWithTheHostOrLeavesTheRowsAsTheyWere) {
    GridContainer host;
    const auto sizeOf = [&] {
        CY size{};
        Query<IFont>(Read(host, &Grid::get_Font))->get_Size(&size);
        return size.int64 / 10000;
    };
    host.SetAmbient(L"Font", _variant_t(static_cast<IDispatch*>(MakeFont(L"Arial", 14).Get())));
    EXPECT_EQ(sizeOf(), 14) << "the ambient font counts until there is an own one";
    const long high = host.RowHeight();
    host.notices.clear();
    const auto own = MakeFont(L"Arial", 8);
    EXPECT_EQ(host->putref_Font(own.Get()), S_OK);
    EXPECT_EQ(host.notices, (std::vector<DISPID>{DISPID_FONT}));
    EXPECT_EQ(host->putref_Font(MakeFont(L"Arial", 8).Get()), S_OK);
    EXPECT_EQ(host.notices.size(), 1u) << "an equal font is no change";
    Query<IFont>(own)->put_Size(CY{.int64 = 200000});
    EXPECT_EQ(sizeOf(), 8) << "the control copies the font";
    host.SetAmbient(L"Font", _variant_t(static_cast<IDispatch*>(MakeFont(L"Arial", 18).Get())));
    EXPECT_EQ(sizeOf(), 8);
    EXPECT_EQ(host->putref_Font(nullptr), S_OK);
    EXPECT_EQ(sizeOf(), 8);

    // The rows follow: the second one begins right after the first.
    host->put_Grid(omGridNone);
    host.Add(L"A")->put_BackColor(RGB(255, 0, 0));
    host.Add(L"B")->put_BackColor(RGB(0, 0, 255));
    EXPECT_LT(host.RowHeight(), high);
    const Picture picture = host.Paint();
    EXPECT_EQ(picture.At(host.Divider() - 2, host.RowTop(1) - 1), RGB(255, 0, 0));
    EXPECT_EQ(picture.At(host.Divider() - 2, host.RowTop(1)), RGB(0, 0, 255));
    // A change through the font object of the control counts as well.
    host.notices.clear();
    Query<IFont>(Read(host, &Grid::get_Font))->put_Size(CY{.int64 = 140000});
    EXPECT_EQ(host.notices, (std::vector<DISPID>{DISPID_FONT}));
    EXPECT_EQ(host.RowHeight(), high);
    EXPECT_EQ(host.Paint().At(host.Divider() - 2, host.RowTop(1)), RGB(0, 0, 255));
}

} // namespace
} // namespace ormisk::test
