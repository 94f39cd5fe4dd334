// Controls that are never sited, sited twice, or ended in an odd order; foreign objects; several sinks.

#include "GridContainer.h"

#include "automation/ByName.h"

namespace ormisk::test {
namespace {

// What works without a window.
void UseWindowless(OrmiskGrid& grid) {
    EXPECT_EQ(grid.put_ActiveView(omCatagorized), S_OK);
    EXPECT_EQ(grid.put_ColumnDividerPosition(10), S_OK);
    EXPECT_EQ(grid.put_ColumnDividerPosition(-1), S_OK);
    EXPECT_EQ(grid.put_DescriptionPaneHeight(0), S_OK);
    EXPECT_EQ(grid.put_LockRefresh(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.put_LockRefresh(VARIANT_FALSE), S_OK);
    EXPECT_EQ(grid.put_Indentation(3), S_OK);
    EXPECT_EQ(grid.put_Grid(omGridSolid), S_OK);
    EXPECT_EQ(grid.put_ShowTabs(VARIANT_FALSE), S_OK);
    EXPECT_EQ(grid.put_CategoryBackColor(1), S_OK);
    EXPECT_EQ(grid.put_CategorySeparator(_bstr_t(L"/")), S_OK);
    EXPECT_EQ(grid.Refresh(), S_OK);
    EXPECT_EQ(grid.ExpandCategory(_bstr_t(L"X"), VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.UnRegisterEditor(_bstr_t(L"none")), S_OK);
    EXPECT_EQ(grid.OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_EQ(Read(&grid, &OrmiskGrid::get_hwnd), 0);
}

// An addition that a collection without its control takes and forgets.
void ExpectNothingAdded(_CProperties* properties) {
    ComPtr<_CProperty> none;
    omEditorType editor = omTextEditor;
    _variant_t value(L"v");
    EXPECT_EQ(
        properties->Add(_bstr_t(L"C"), &value, nullptr, nullptr, nullptr, VARIANT_TRUE, &editor, none.GetAddressOf()),
        S_OK);
    EXPECT_EQ(none.Get(), nullptr);
}

TEST_F(GridTest, AControlWithoutASiteCrashesOrForgetsWhatItWasTold) {
    const auto grid = MakeObject<OrmiskGrid>();
    EXPECT_EQ(grid->InitNew(), S_OK);
    EXPECT_EQ(grid->put_NameCaption(_bstr_t(L"Before")), S_OK);
    UseWindowless(*grid.Get());
    EXPECT_EQ(grid->putref_SelectedProperty(nullptr), S_OK);
    ExpectNothingAdded(Read(grid, &OrmiskGrid::get_Properties).Get());
    EXPECT_EQ(Read(grid, &OrmiskGrid::get_NameCaption), L"Before");
    SIZEL extent{};
    EXPECT_EQ(grid->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
}

TEST_F(GridTest, AControlDisabledBeforeItHasAWindowComesUpEnabled) {
    Host site;
    const auto grid = MakeObject<OrmiskGrid>();
    EXPECT_EQ(grid->put_Enabled(VARIANT_FALSE), S_OK);
    EXPECT_EQ(grid->SetClientSite(&site), S_OK);
    HWND window = nullptr;
    EXPECT_EQ(grid->GetWindow(&window), S_OK);
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_EQ(grid->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(grid->SetClientSite(nullptr), S_OK);
}

TEST_F(GridTest, ASecondSiteLosesRowsSelectionOrTheEditor) {
    GridContainer host;
    host.Add(L"A", L"1");
    const auto b = host.Add(L"B", L"2");
    host.Select(b.Get());
    host.TypeIntoEditor(L"two");
    Host other;
    EXPECT_EQ(host->SetClientSite(&other), S_OK);
    EXPECT_EQ(host->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &other, 0, other.window, nullptr), S_OK);
    EXPECT_EQ(GetParent(host.Window()), other.window);
    EXPECT_EQ(host.Selected(), L"B");
    EXPECT_EQ(host.Count(), 2);
    host.Press(VK_UP);
    EXPECT_EQ(ValueText(b.Get()), L"two");
    EXPECT_EQ(host.EditText(), L"1");
    EXPECT_EQ(host->SetClientSite(&other), S_OK) << "the same one again";
    EXPECT_EQ(host->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(host.Selected(), L"A");
    EXPECT_EQ(other.references, 1);
}

TEST_F(GridTest, ADestroyedWindowLeavesAControlThatCrashes) {
    for (const bool parent : {false, true}) {
        SCOPED_TRACE(parent);
        GridContainer host;
        const auto a = host.Add(L"A", L"1", L"X");
        host.Select(a.Get());
        host.TypeIntoEditor(L"late");
        host.Heard();
        const auto properties = host.Properties();
        DestroyWindow(parent ? host.window : host.Window());
        EXPECT_EQ(host.Heard(), L"") << "an end commits nothing";
        EXPECT_EQ(Read(properties, &_CProperties::get_Count), 0);
        // What is left answers, without a window or with a clear error.
        EXPECT_EQ(a->put_Value(_variant_t(L"kept")), S_OK);
        EXPECT_EQ(a->put_Visible(VARIANT_FALSE), S_OK);
        EXPECT_EQ(a->put_Name(_bstr_t(L"other")), S_OK);
        EXPECT_EQ(ValueText(a.Get()), L"kept");
        EXPECT_EQ(Read(host, &OrmiskGrid::get_SelectedProperty).Get(), nullptr);
        EXPECT_TRUE(FAILED(host->putref_SelectedProperty(a.Get())));
        EXPECT_TRUE(FAILED(host->StartPropertyEdit(a.Get())));
        UseWindowless(*host.grid.Get());
    }
}

TEST_F(GridTest, WhatAHostKeepsOutlivesTheControlBadly) {
    ComPtr<_CProperty> row, removed;
    ComPtr<_CProperties> properties;
    ComPtr<IFontDisp> font;
    {
        GridContainer host;
        row = host.Add(L"A", L"1", L"X");
        removed = host.Add(L"B", L"2", L"X");
        host.Remove(L"X_B");
        properties = host.Properties();
        font = Read(host, &OrmiskGrid::get_Font);
        host.Select(row.Get());
    }
    for (const auto& kept : {row, removed}) {
        EXPECT_EQ(kept->put_Value(_variant_t(L"new")), S_OK);
        EXPECT_EQ(ValueText(kept.Get()), L"new");
        EXPECT_EQ(kept->put_BackColor(3), S_OK);
        _bstr_t text;
        EXPECT_EQ(kept->GetEditorParam(_bstr_t(L"MinLength"), text.GetAddress()), S_OK);
        Read(kept, &_CProperty::get_ForeColor);
    }
    EXPECT_EQ(Read(properties, &_CProperties::get_Count), 0);
    ExpectNothingAdded(properties.Get());
    EXPECT_EQ(Query<IFont>(font)->put_Size(CY{.int64 = 200000}), S_OK);
}

TEST_F(GridTest, AForeignPropertyIsTakenForAnOwnOne) {
    GridContainer host, other;
    const auto own = host.Add(L"A", L"1", L"X");
    const auto alien = other.Add(L"A", L"1", L"X");
    host.Select(own.Get());
    host.Heard();
    const std::wstring title = kLibraryTitle;
    const std::wstring refusal = L"8004000D|" + title + L"|Alien property object.";
    EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(alien.Get())), refusal);
    EXPECT_EQ(FailureOfCall(host->StartPropertyEdit(alien.Get())), refusal);
    EXPECT_EQ(FailureOfCall(host->StartPropertyEdit(nullptr)),
              L"80040010|" + title + L"|Invalid property object specified.");
    // A key of one control says nothing to another, and neither does a removed property.
    host.Remove(1L);
    EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(own.Get())), refusal);
    host.Add(L"A", L"1", L"X");
    EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(own.Get())), refusal);
    EXPECT_EQ(host.Selected(), L"");
    // Late bound, with an object that is no property at all.
    for (_variant_t argument : {Object(MakeFont().Get()), _variant_t(L"A"), _variant_t(0L)})
        EXPECT_EQ(
            FailureOf([&] { InvokeByName(host.grid.Get(), L"StartPropertyEdit", DISPATCH_METHOD, &argument); }).number,
            DISP_E_TYPEMISMATCH);
    EXPECT_EQ(host.Heard(), L"PropertyDeleted A; PropertyAdded A");
}

TEST_F(GridTest, ADesignedControlTakesMessagesOrARunningOneDoesNot) {
    for (const bool running : {true, false}) {
        SCOPED_TRACE(running);
        GridContainer host({.userMode = running});
        for (int i = 0; i < 40; ++i)
            host.Add(std::to_wstring(i));
        SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -360), 0);
        EXPECT_EQ(GetScrollPos(host.ScrollBarWindow(), SB_CTL), running ? 3 : 0);
    }
}

TEST_F(GridTest, AnOpenEditorDoesNotFollowAFontOrAHiddenPane) {
    GridContainer host;
    host.Add(L"A", L"1");
    host.Add(L"B", L"2");
    host.Select(host.Item(2L).Get());
    const auto bottom = [&] { return PlaceInParent(host.EditBox()).bottom; };
    EXPECT_EQ(bottom(), host.RowTop(2) - 1);
    Query<IFont>(Read(host, &OrmiskGrid::get_Font))->put_Size(CY{.int64 = 200000});
    EXPECT_EQ(host.EditText(), L"2");
    EXPECT_EQ(bottom(), host.RowTop(2) - 1);
    host->put_Headers(omHeadersNone);
    EXPECT_EQ(bottom(), 2 * host.RowHeight() - 1);
    host->put_ShowTabs(VARIANT_FALSE);
    host->put_ShowDescription(VARIANT_FALSE);
    EXPECT_EQ(bottom(), 2 * host.RowHeight() - 1);
    host.TypeIntoEditor(L"two");
    host.Enter();
    EXPECT_EQ(ValueText(host.Item(2L).Get()), L"two");
}

TEST_F(GridTest, SeveralControlsShareWhatIsTheirOwn) {
    GridContainer first;
    auto second = std::make_unique<GridContainer>();
    const auto a = first.Add(L"A", L"1");
    const auto b = second->Add(L"B", L"2");
    first.Select(a.Get());
    second->Select(b.Get());
    second->grid->put_HighlightBackColor(RGB(255, 0, 0));
    EXPECT_EQ(first.EditText(), L"1");
    second.reset();
    EXPECT_EQ(first.EditText(), L"1");
    EXPECT_EQ(first.Paint().At(first.Divider() - 3, first.RowTop(0) + 3), GetSysColor(COLOR_HIGHLIGHT));
    first.TypeIntoEditor(L"one");
    first.Heard();
    first.Enter();
    EXPECT_EQ(first.Heard(), L"ValidateValue A one False; PropertyValueChanged A");
}

} // namespace
} // namespace ormisk::test
