// The way of a change in the model to rows, selection and events.

#include "GridContainer.h"

namespace ormisk::test {
namespace {

TEST_F(GridTest, AddingTellsBeforeTheRowsStandOrFailsWithItsHandler) {
    GridContainer host;
    host.events.on[L"PropertyAdded"] = [&](const EventCall& call) {
        // Collection, rows and category are all there by now.
        const auto property = Query<_CProperty>(V_DISPATCH(&call[0]));
        EXPECT_EQ(Read(property, &_CProperty::get_Index), host.Count());
        host.Select(property.Get());
        EXPECT_EQ(host.Selected(), PropertyName(property.Get()));
    };
    host.Add(L"A", 1L, L"X|Y");
    EXPECT_EQ(host.Heard(), L"PropertyAdded A; SelChanged A");
    host.Add(L"B", L"two");
    EXPECT_EQ(host.Heard(), L"PropertyAdded B; SelChanged B");
    EXPECT_EQ(Read(host.Item(L"_B"), &_CProperty::get_Category), L"Misc");
    // What a handler raises does not reach the one who adds.
    host.events.on[L"PropertyAdded"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    host.Add(L"C");
    EXPECT_EQ(host.Rows(), L"A B C");
}

TEST_F(GridTest, RemovingLeavesEmptyCategoriesOrTakesSharedOnes) {
    GridContainer host;
    host.Add(L"A", L"", L"X|Y");
    host.Add(L"B", L"", L"X|Y");
    host.Add(L"C", L"", L"Z");
    host->put_ActiveView(omCatagorized);
    for (const wchar_t* path : {L"X|Y", L"Z"})
        host.Expand(path);
    EXPECT_EQ(host.Rows(), L"* * A B * C");
    host.Remove(L"X|Y_A");
    EXPECT_EQ(host.Heard(), L"PropertyDeleted A");
    EXPECT_EQ(host.Rows(), L"* * B * C");
    host.Remove(1L);
    EXPECT_EQ(host.Rows(), L"* C");
    // The only rows of the selected property go: nothing stays selected, and no SelChanged tells of it.
    host.Select(host.Item(1L).Get());
    host.Heard();
    host.Remove(1L);
    EXPECT_EQ(host.Heard(), L"PropertyDeleted C");
    EXPECT_EQ(host.Selected(), L"");
    EXPECT_EQ(host.EditText(), L"");
    EXPECT_EQ(host.Count(), 0);
}

TEST_F(GridTest, ACategoryThatReadsLikeAPropertysKeyTakesItsRowsOrLosesIt) {
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"a", L"Cat"}, {L"b", L"Cat_a"}, {L"c", L"CAT_A"}, {L"d", L"Cat_A|b"}, {L"b|e", L"Cat_a_b"}};
    for (const bool backward : {false, true}) {
        GridContainer host;
        host->put_ActiveView(omCatagorized);
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            const auto& [name, category] = rows[backward ? std::size(rows) - 1 - i : i];
            host.Add(name, L"", category);
        }
        EXPECT_EQ(host.Rows(), backward ? L"* b|e * * d c b * a" : L"* a * b c * d * b|e");
        host.Remove(L"Cat_a");
        EXPECT_EQ(host.Count(), 4);
        EXPECT_EQ(host.Rows(), backward ? L"* b|e * * d c b" : L"* b c * d * b|e");
        for (const wchar_t* key : {L"Cat_a_b", L"cat_a_c", L"cat_a|b_d"})
            host.Remove(key);
        EXPECT_EQ(host.Rows(), L"* b|e") << "categories without rows stay";
        host.Add(L"a", L"", L"Cat");
        host.Expand(L"Cat_a", false);
        host.Expand(L"Cat_a_b", false);
        EXPECT_EQ(host.Rows(), L"* * a");
    }
}

TEST_F(GridTest, ClearingTellsTheHostOrKeepsEditorAndSelection) {
    GridContainer host;
    const auto kept = host.Add(L"A", L"text");
    host.Add(L"B", L"", L"X");
    host.Select(kept.Get());
    EXPECT_EQ(host.EditText(), L"text");
    host.Heard();
    for (int round = 0; round < 2; ++round) {
        host.Clear();
        EXPECT_EQ(host.Heard() + host.EditText() + host.Selected(), L"");
    }
    // What the host kept has no row any more; its value is told all the same.
    EXPECT_EQ(kept->put_Visible(VARIANT_FALSE), S_OK);
    EXPECT_EQ(kept->put_Value(_variant_t(L"late")), S_OK);
    EXPECT_EQ(host.Heard(), L"PropertyValueChanged A");
    kept->put_Visible(VARIANT_TRUE);
    EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(kept.Get())),
              L"8004000D|" + std::wstring(kLibraryTitle) + L"|Alien property object.");
    host.Add(L"A", L"again");
    EXPECT_EQ(host.Rows(), L"A");
}

TEST_F(GridTest, AValueOfTheHostIsValidatedOrToldMoreThanOnceOrLeavesTheEditorBehind) {
    GridContainer host;
    const auto row = host.Add(L"A", L"old");
    host.Select(row.Get());
    host.Heard();
    host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) {
        EXPECT_EQ(ValueText(row.Get()), L"new");
        EXPECT_EQ(host.EditText(), L"new") << "the editor is loaded before the host is told";
    };
    EXPECT_EQ(row->put_Value(_variant_t(L"new")), S_OK);
    EXPECT_EQ(host.Heard(), L"PropertyValueChanged A");
    EXPECT_EQ(row->put_Value(_variant_t(L"new")), S_OK);
    EXPECT_EQ(host.Heard(), L"");
    // A handler that raises is reported, and the setter succeeds.
    host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    EXPECT_EQ(row->put_Value(_variant_t(L"third")), S_OK);
    EXPECT_EQ(host.Heard(), L"PropertyValueChanged A; DisplayError The handler raised. -2146827288 True");
    EXPECT_EQ(ValueText(row.Get()), L"third");
    host->FreezeEvents(TRUE);
    row->put_Value(_variant_t(L"4"));
    EXPECT_EQ(host.Heard(), L"");
    host->FreezeEvents(FALSE);
}

TEST_F(GridTest, ANewNameBreaksTheKeyOrReachesOneViewOnly) {
    GridContainer host;
    const auto row = host.Add(L"A", L"v", L"X");
    host->put_Grid(omGridNone);
    const auto nameIsEmpty = [&] {
        host.Expand(L"X");
        const RECT cell = host.NameCell(Read(host, &OrmiskGrid::get_ActiveView) == omAlphabetic ? 0 : 1);
        const Picture picture = host.Paint();
        const Rect whole = FromRect(cell);
        return picture.Count(picture.At(cell.right - 2, cell.top + 1), cell) == whole.Width() * whole.Height();
    };
    EXPECT_FALSE(nameIsEmpty());
    EXPECT_EQ(row->put_Name(_bstr_t(L"  ")), S_OK);
    EXPECT_TRUE(nameIsEmpty());
    host->put_ActiveView(omCatagorized);
    EXPECT_TRUE(nameIsEmpty());
    EXPECT_EQ(host.Item(L"X_A").Get(), row.Get());
}

TEST_F(GridTest, ACollapsedCategoryKeepsItsSelectedRowOrTellsInTheWrongOrder) {
    GridContainer host;
    host.Add(L"A", L"1", L"X|Y");
    const auto b = host.Add(L"B", L"2", L"X|Y");
    for (const wchar_t* path : {L"X|Y", L"X"})
        host.Expand(path, false);
    host->put_ActiveView(omCatagorized);
    EXPECT_EQ(host.Heard(), L"PropertyAdded A; PropertyAdded B; ActiveViewChanged");
    host.Select(b.Get()); // opens what is above it
    EXPECT_EQ(host.Heard(), L"CategoryExpanding X False; CategoryExpanding Y False; SelChanged B");
    host.TypeIntoEditor(L"two");
    host.Expand(L"X", false);
    EXPECT_EQ(host.Heard(),
              L"CategoryCollapsing X False; ValidateValue B two False; PropertyValueChanged B; SelChanged Nothing");
    EXPECT_EQ(host.Selected(), L"");
    EXPECT_EQ(host.EditText(), L"");
    EXPECT_EQ(host.Paint().At(host.Divider() - 3, host.RowTop(0) + 3), GetSysColor(COLOR_HIGHLIGHT))
        << "the category is selected now";

    // Refused: the rows stay. Only the exact True refuses.
    host.events.on[L"CategoryExpanding"] = [](const EventCall& call) { call.Set(1, true); };
    host.Press(VK_RIGHT);
    host.Press(VK_END);
    EXPECT_EQ(host.Heard(), L"CategoryExpanding X False") << "there is nothing below";
    host.events.on[L"CategoryExpanding"] = [](const EventCall& call) { *V_BOOLREF(&call[1]) = 1; };
    host.Press(VK_RIGHT);
    host.Press(VK_END);
    EXPECT_EQ(host.Heard(), L"CategoryExpanding X False; SelChanged B") << "Y stood open within X";
}

TEST_F(GridTest, ExpandingAPathFiresInTheWrongViewOrMakesCategories) {
    GridContainer host;
    host.Add(L"A", L"", L"X|Y");
    host.Heard();
    for (const wchar_t* closed : {L"X|Y", L"X"})
        host.Expand(closed, false);
    host.Expand(L" X | nowhere | Y"); // opens X on its way
    host.Expand(L"nowhere");
    host.Expand(L"  ");
    host->ExpandCategory(nullptr, VARIANT_TRUE);
    EXPECT_EQ(host.Heard(), L"") << "the tree is not on screen";
    host->put_ActiveView(omCatagorized);
    EXPECT_EQ(host.Rows(), L"* *");
    host.Expand(L"x||y");
    EXPECT_EQ(host.Heard(), L"CategoryExpanding Y False") << "X is open";
    EXPECT_EQ(host.Rows(), L"* * A");
    host.Expand(L"X|Y", false); // closes the last one only
    EXPECT_EQ(host.Rows(), L"* *");
    host.events.on[L"CategoryExpanding"] = [](const EventCall& call) { call.Set(1, true); };
    host.Expand(L"X|Y");
    EXPECT_EQ(host.Heard(), L"CategoryExpanding Y False; CategoryExpanding Y False")
        << "asked on the way and at the end of it";
    EXPECT_EQ(host.Rows(), L"* *");
    host->put_DefaultCategory(_bstr_t(L""));
    host.Add(L"Root");
    EXPECT_EQ(host.Rows(), L"* * Root") << "no category at all";
}

TEST_F(GridTest, SwitchingTheViewLosesTheSelectionOrTellsBeforeIt) {
    GridContainer host;
    const auto a = host.Add(L"A", L"1", L"X");
    const auto b = host.Add(L"B", L"2", L"Y");
    host.Expand(L"X", false);
    host.Select(b.Get());
    host.TypeIntoEditor(L"two");
    host.Heard();
    EXPECT_EQ(host->put_ActiveView(omCatagorized), S_OK);
    EXPECT_EQ(host.Heard(), L"ValidateValue B two False; PropertyValueChanged B; ActiveViewChanged");
    EXPECT_EQ(host.Selected(), L"B");
    EXPECT_EQ(host.EditText(), L"two");
    EXPECT_EQ(host->put_ActiveView(omCatagorized), S_OK);
    EXPECT_EQ(host.Heard(), L"");
    host->put_ActiveView(omAlphabetic);
    EXPECT_EQ(host.Selected(), L"B");
    host.Select(a.Get());
    host.Heard();
    host->put_ActiveView(omCatagorized); // X is closed
    EXPECT_EQ(host.Heard(), L"SelChanged Nothing; ActiveViewChanged");
    host.Press(VK_HOME); // a category row
    host->put_ActiveView(omAlphabetic);
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged");
    EXPECT_EQ(host.Selected(), L"");
    // Other numbers are the categorized view.
    EXPECT_EQ(host->put_ActiveView(static_cast<omActiveView>(7)), S_OK);
    EXPECT_EQ(host.Rows(), L"* * B");
}

TEST_F(GridTest, AHiddenPropertyKeepsARow) {
    GridContainer host;
    const auto a = host.Add(L"A", L"1", L"X");
    host.Add(L"B", L"2", L"X");
    const auto c = host.Add(L"C", L"3", L"X");
    EXPECT_EQ(a->put_Visible(VARIANT_FALSE), S_OK);
    EXPECT_EQ(host.Rows(), L"B C");
    c->put_Visible(VARIANT_FALSE);
    EXPECT_EQ(host.Rows(), L"B");
    host->put_ActiveView(omCatagorized);
    host.Expand(L"X");
    EXPECT_EQ(host.Rows(), L"* B");
    a->put_Visible(VARIANT_TRUE);
    c->put_Visible(VARIANT_TRUE);
    EXPECT_EQ(host.Rows(), L"* A B C");
    host->put_ActiveView(omAlphabetic);
    EXPECT_EQ(host.Rows(), L"A B C");
}

TEST_F(GridTest, ALockedGridPaintsOrForgetsWhatHappenedMeanwhile) {
    GridContainer host;
    host->put_Grid(omHorzSolid);
    host->put_LineColor(RGB(255, 0, 0));
    host.Add(L"First");
    host.Pump();
    const HWND tree = host.Tree();
    const auto isDirty = [&] {
        RECT update;
        return GetUpdateRect(tree, &update, FALSE) != FALSE;
    };
    EXPECT_FALSE(isDirty());
    host->put_LockRefresh(VARIANT_TRUE);
    host.Heard();
    for (int i = 0; i < 30; ++i)
        host.Add(L"Row" + std::to_wstring(i));
    EXPECT_FALSE(isDirty());
    EXPECT_NE(host.Heard(), L"") << "additions are told under the lock too";
    host.Remove(2L);
    host->Refresh();
    host->put_PropertyForeColor(RGB(0, 0, 255));
    EXPECT_FALSE(isDirty());
    EXPECT_FALSE(GetWindowLongPtrW(host.ScrollBarWindow(), GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(host.Paint().At(host.Divider() - 2, host.RowTop(2) - 1), RGB(255, 0, 0)) << "a forced paint is right";
    host->put_LockRefresh(VARIANT_FALSE);
    EXPECT_TRUE(isDirty());
    EXPECT_TRUE(GetWindowLongPtrW(host.ScrollBarWindow(), GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(host.Count(), 30);
}

TEST_F(GridTest, OddAndHugeTextsBreakNamesValuesOrCategories) {
    GridContainer host;
    host->put_ActiveView(omCatagorized);
    const std::wstring huge(1 << 20, L'm');
    const std::wstring zero = std::wstring(L"a") + L'\0' + L"b";
    const std::wstring odd = L"\x4E2D\xD83D\xDE00 &&|";
    for (const auto& text : {huge, zero, odd}) {
        const auto row = host.Add(text, ToVariant(text), L"Odd");
        ASSERT_NE(row.Get(), nullptr);
        EXPECT_TRUE(PropertyName(row.Get()) == text);
        EXPECT_TRUE(ValueText(row.Get()) == text);
        host.Select(row.Get());
        EXPECT_FALSE(host.EditText().empty());
        host.Paint();
        // Unchanged in the editor: the value stays whole, though the box shows less of it.
        host.Heard();
        host.Select(nullptr);
        EXPECT_TRUE(ValueText(row.Get()) == text) << text.size();
    }
    host.Add(L"Deep", L"", huge + L"|" + huge);
    std::wstring path = L"0";
    for (int i = 1; i < 300; ++i)
        path += L"|" + std::to_wstring(i);
    const auto deep = host.Add(L"Deepest", L"", path);
    host.Select(deep.Get());
    EXPECT_EQ(host.Selected(), L"Deepest");
    host.Paint();
    EXPECT_EQ(host->put_ColumnDividerPosition(-1.0F), S_OK);
}

TEST_F(GridTest, DeepCategoriesNeedAsMuchStackOrMemoryAsLevels) {
    constexpr long kDepth = 16000;
    GridContainer host;
    std::wstring path = L"Top";
    for (long i = 1; i < kDepth; ++i)
        path += L"|c";
    host->put_CustomSort(VARIANT_TRUE);
    host->put_Sorted(VARIANT_TRUE);
    host->put_ActiveView(omCatagorized);
    const auto row = host.Add(L"row", L"text", path);
    host.Add(L"beside", L"", L"Top");
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged; PropertyAdded row; PropertyAdded beside");
    host.Expand(L"Top|c", false);
    host.Expand(L"Top", false);
    host.Heard();
    host.events.on[L"SelChanged"] = [&](const EventCall&) { EXPECT_EQ(host.EditText(), L"") << "not told yet"; };
    host.Select(row.Get()); // opens what is above it
    EXPECT_EQ(host.Heard(), L"CategoryExpanding Top False; CategoryExpanding c False; SelChanged row");
    host.Paint();
    EXPECT_EQ(host.EditText(), L"text");
    host.Remove((path + L"_row").c_str());
    EXPECT_EQ(host.Selected(), L"");
    EXPECT_EQ(host.Rows(), L"* beside");
    host.Add(L"row", L"", path);
}

TEST_F(GridTest, ARowAddedWhileItsNamesakeGoesIsMissingInTheViews) {
    GridContainer host;
    host.Add(L"row", L"", L"X");
    auto* properties = static_cast<CProperties*>(host.Properties().Get());
    properties->AddProperty(properties->FindItem(_variant_t(1L)), {.name = L"child"});
    host.events.on[L"PropertyDeleted"] = [&](const EventCall& call) {
        if (PropertyName(Query<_CProperty>(V_DISPATCH(&call[0])).Get()) == L"child")
            host.Add(L"row", L"again", L"X");
    };
    host.Remove(L"X_row");
    EXPECT_EQ(ValueText(host.Item(1L).Get()), L"again");
    EXPECT_EQ(host.Rows(), L"row");
    host->put_ActiveView(omCatagorized);
    EXPECT_EQ(host.Rows(), L"* row");
}

TEST_F(GridTest, DeeplyNestedRowsNeedAsMuchStackAsLevels) {
    constexpr long kDepth = 3000;
    GridContainer host;
    host.Add(L"row", L"", L"X");
    auto* properties = static_cast<CProperties*>(host.Properties().Get());
    ComPtr<CProperty> nested = properties->FindItem(_variant_t(1L));
    host.events.quiet.insert({L"PropertyAdded", L"PropertyDeleted"});
    for (long i = 1; i < kDepth; ++i)
        nested = properties->AddProperty(nested.Get(), {.name = L"x"});
    ASSERT_EQ(host.Count(), kDepth);
    host.Select(nested.Get());
    EXPECT_EQ(host.Selected(), L"x");
    host.Item(1L)->put_Visible(VARIANT_FALSE);
    EXPECT_EQ(host.Selected(), L"");
    long told = 0;
    host.events.on[L"PropertyDeleted"] = [&](const EventCall& call) {
        EXPECT_EQ(PropertyName(Query<_CProperty>(V_DISPATCH(&call[0])).Get()), ++told == kDepth ? L"row" : L"x");
    };
    host.Remove(L"X_row");
    EXPECT_EQ(told, kDepth);
    EXPECT_EQ(host.Count(), 0);
}

} // namespace
} // namespace ormisk::test
