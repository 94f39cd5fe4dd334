// Where the open editor and the selection are after rows came, went or moved.

#include "InspectTools.h"

#include <algorithm>

namespace ormisk::test {
namespace {

// The top of the selected row, as it is painted.
long SelectedTop(const GridContainer& host) {
    const Picture picture = host.Paint();
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    for (long y = host.HeaderHeight(); y < picture.Size().cy; ++y)
        if (picture.At(host.Divider() - 3, y) == highlight)
            return y;
    return -1;
}

void ExpectEditorOverItsRow(const GridContainer& host, const std::string& deed) {
    RECT editor{};
    GetWindowRect(host.EditBox(), &editor);
    MapWindowPoints(nullptr, host.Tree(), reinterpret_cast<POINT*>(&editor), 2);
    const RECT cell = host.ValueCell(0);
    const long top = SelectedTop(host);
    EXPECT_NE(host.EditText(), L"") << deed;
    EXPECT_NEAR(editor.top, top + 2, 2) << deed;
    EXPECT_NEAR(editor.bottom, top + host.RowHeight() - 2, 2) << deed;
    EXPECT_NEAR(editor.left, cell.left + 2, 2) << deed;
    EXPECT_NEAR(editor.right, cell.right - 2, 2) << deed;
}

struct Deed {
    const char* name;
    std::function<void(GridContainer&)> act;
};

void Show(GridContainer& host, const wchar_t* key, bool visible) {
    EXPECT_EQ(host.Item(key)->put_Visible(visible ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
}

// All about rows in front of the selected one, in both views.
const Deed kDeeds[] = {
    {"hidden", [](auto& host) { Show(host, L"A_a1", false); }},
    {"hidden with its category empty", [](auto& host) { Show(host, L"Only_only", false); }},
    {"shown", [](auto& host) { Show(host, L"A_a1", true); }},
    {"removed", [](auto& host) { host.Remove(L"A_a2"); }},
    {"removed with its categories", [](auto& host) { host.Remove(L"Only_only"); }},
    {"closed",
     [](auto& host) {
         if (Read(host.grid.Get(), &OrmiskGrid::get_ActiveView) != omAlphabetic)
             host->ExpandCategory(_bstr_t(L"A"), VARIANT_FALSE);
     }},
    {"added", [](auto& host) { host.Add(L"a9", L"", L"A"); }},
    {"sorted in front", [](auto& host) { host->put_Sorted(VARIANT_TRUE), host.Add(L"B1", L"", L"0"); }},
    {"loaded", [](auto& host) { Load(host.grid.Get(), Inspected(1).Get(), 1, false); }},
    {"removed again",
     [](auto& host) {
         for (const wchar_t* key : {L"A_a1", L"A_a3", L"A_a9", L"0_B1"})
             host.Remove(key);
     }},
    {"many more",
     [](auto& host) {
         for (int i = 0; i < 60; ++i)
             host.Add(L"z" + std::to_wstring(i), L"", L"Z");
     }},
    {"less again",
     [](auto& host) {
         while (host.Count() > 8)
             host.Remove(host.Count());
     }},
};

TEST_F(InspectTest, TheOpenEditorCoversAnotherRowWhenRowsInFrontOfItComeOrGo) {
    for (const omActiveView view : {omAlphabetic, omCatagorized}) {
        for (const bool locked : {false, true}) {
            GridContainer host({.size = {300, 500}});
            for (const wchar_t* name : {L"a1", L"a2", L"a3"})
                host.Add(name, L"", L"A");
            host.Add(L"only", L"", L"Only");
            for (const wchar_t* name : {L"b1", L"b2", L"b3"})
                host.Add(name, L"text", L"B");
            host->put_ActiveView(view);
            host.Select(host.Item(L"B_b2").Get());
            for (const Deed& deed : kDeeds) {
                const std::string name =
                    (view == omAlphabetic ? "alphabetic, " : "categorized, ") + std::string(deed.name);
                if (locked)
                    host->put_LockRefresh(VARIANT_TRUE);
                deed.act(host);
                ExpectEditorOverItsRow(host, name + (locked ? ", under the lock" : ""));
                if (locked) {
                    host->put_LockRefresh(VARIANT_FALSE);
                    ExpectEditorOverItsRow(host, name + ", after the lock");
                }
            }
        }
    }
}

TEST_F(GridTest, TheOpenEditorCoversAnotherRowWhenAScrolledListShrinks) {
    for (const bool removed : {false, true}) {
        GridContainer host;
        for (int i = 0; i < 40; ++i)
            host.Add(L"r" + std::to_wstring(i), L"text");
        host.Select(host.Item(38L).Get());
        ExpectEditorOverItsRow(host, "scrolled");
        for (long i = 1; i <= 36; ++i) {
            if (removed)
                host.Remove(1L);
            else
                host.Item(i)->put_Visible(VARIANT_FALSE);
            if (i == 20)
                host->put_LockRefresh(VARIANT_TRUE); // settles the scroll bar when it goes
            if (i == 30)
                host->put_LockRefresh(VARIANT_FALSE);
            if (SelectedTop(host) >= 0)
                ExpectEditorOverItsRow(host, "row " + std::to_string(i));
        }
        host->Refresh();
        host->put_LockRefresh(VARIANT_FALSE);
        ExpectEditorOverItsRow(host, "at the end");
        EXPECT_FALSE(GetWindowLongPtrW(host.ScrollBarWindow(), GWL_STYLE) & WS_VISIBLE);
    }
}

TEST_F(GridTest, TheOpenEditorIsLostWhenAPathOpensInFrontOfItOrAHandlerRaisesOnTheWay) {
    GridContainer host;
    host.Add(L"a", L"", L"X|Y");
    const auto b = host.Add(L"b", L"text", L"Z");
    host->put_ActiveView(omCatagorized);
    host.Select(b.Get());
    const auto close = [&] {
        for (const wchar_t* path : {L"X|Y", L"X"})
            EXPECT_EQ(host->ExpandCategory(_bstr_t(path), VARIANT_FALSE), S_OK);
    };
    close();
    EXPECT_EQ(host->ExpandCategory(_bstr_t(L"X|Y"), VARIANT_TRUE), S_OK);
    ExpectEditorOverItsRow(host, "opened");
    close();
    ExpectEditorOverItsRow(host, "closed");
    host.events.on[L"CategoryExpanding"] = [&](const EventCall& call) {
        if (TextOf(call[0]) == L"Y")
            host.events.answer = DISP_E_EXCEPTION;
    };
    EXPECT_EQ(FailureOfCall(host->ExpandCategory(_bstr_t(L"X|Y"), VARIANT_TRUE)),
              L"800A03E8|Handler|The handler raised.");
    ExpectEditorOverItsRow(host, "half opened");
}

TEST_F(InspectTest, ARowBelowAHiddenOneKeepsSelectionOrEditor) {
    const Inspected outer(1), middle(1), inner(1);
    outer.Put(L"Child", middle.Get());
    middle.Put(L"Child", inner.Get());
    for (const omActiveView view : {omAlphabetic, omCatagorized}) {
        for (const wchar_t* hidden : {L"CHILD", L"CHILD_CHILD", L"CHILD_CHILD_ATEXT"}) {
            GridContainer host;
            Load(host.grid.Get(), outer.Get(), 3);
            host->put_ActiveView(view);
            const auto row = host.Item(L"CHILD_CHILD_ATEXT");
            host.Select(row.Get());
            host.TypeIntoEditor(L"typed");
            host.Heard();
            Show(host, hidden, false);
            EXPECT_EQ(host.Heard(), L"ValidateValue AText typed False; PropertyValueChanged AText; SelChanged Nothing");
            EXPECT_EQ(host.Selected(), L"");
            EXPECT_EQ(host.EditText(), L"");
            EXPECT_EQ(FailureOfCall(host->putref_SelectedProperty(row.Get())),
                      L"8004000F|" + std::wstring(kLibraryTitle) + L"|Invalid action for this property.");
            Show(host, hidden, true);
            EXPECT_EQ(host.Heard(), L"");
            host.Select(row.Get());
            EXPECT_EQ(host.EditText(), L"typed");
            row->put_Value(_variant_t(L"3"));
        }
    }
    for (const Inspected* object : {&outer, &middle})
        object->Put(L"Child", static_cast<IDispatch*>(nullptr));
}

TEST_F(GridTest, ARowThatAHandlerHidesIsSelectedOrTheOneThatItSelectsIsNot) {
    GridContainer host;
    const auto a = host.Add(L"a", L"1");
    const auto b = host.Add(L"b", L"2");
    const auto c = host.Add(L"c", L"3");
    host.Select(a.Get());
    host.TypeIntoEditor(L"x");
    host.events.on[L"ValidateValue"] = [&](const EventCall&) { b->put_Visible(VARIANT_FALSE); };
    host.Select(b.Get());
    EXPECT_EQ(host.Selected(), L"");
    EXPECT_EQ(host.EditText(), L"");
    host.Select(c.Get());
    host.TypeIntoEditor(L"y");
    host.events.on[L"ValidateValue"] = [&](const EventCall&) { host.Select(a.Get()); };
    c->put_Visible(VARIANT_FALSE);
    EXPECT_EQ(host.Selected(), L"a");
    EXPECT_EQ(host.EditText(), L"x");
}

} // namespace
} // namespace ormisk::test
