// The record toolbar: its buttons, its number, its keys, and what a move leaves as it was on screen.

#include "RecordsetTools.h"

#include "InDialog.h"

namespace ormisk::test {
namespace {

TEST_F(RecordsetTest, AClickMovesElsewhereOrLeavesTheButtonDown) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    const auto click = [&](HWND button) {
        bar.Click(host, button);
        EXPECT_NE(Picture(button).At(0, 0), GetSysColor(COLOR_BTNSHADOW)) << "still pressed";
        return people->Done() + L" " + Values(host);
    };
    EXPECT_EQ(click(bar.next), L"MoveNext Name=Bob Age=40");
    EXPECT_EQ(click(bar.next), L"MoveNext Name=Cid Age=50");
    EXPECT_EQ(click(bar.first), L"MoveFirst Name=Ann Age=30");
    EXPECT_EQ(click(bar.first), L" Name=Ann Age=30") << "it is off";
    EXPECT_EQ(click(bar.last), L"MoveLast Name=Cid Age=50");
    EXPECT_EQ(click(bar.previous), L"MovePrevious Name=Bob Age=40");
    // The right button, and one that is let go elsewhere, do nothing.
    SendMessageW(bar.next, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    SendMessageW(bar.next, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    host.RealDrag(bar.next, {5, 5}, {5, 60});
    host.Pump();
    EXPECT_EQ(people->Done(), L"");
    // A disabled control takes no click.
    host->put_Enabled(VARIANT_FALSE);
    EXPECT_EQ(click(bar.next), L" Name=Bob Age=40");
    host->put_Enabled(VARIANT_TRUE);
    EXPECT_EQ(bar.Text(), L"FP[2] of 3 NL");
}

TEST_F(RecordsetTest, ARefusedClickIsNotReportedOrLosesTheRows) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    people->Host(L"MoveNext");
    const RecordBar bar(host);
    host.Heard();
    const std::pair<HWND, const wchar_t*> buttons[] = {{bar.first, L"MoveFirst"}, {bar.previous, L"MovePrevious"},
                                                       {bar.next, L"MoveNext"},   {bar.last, L"MoveLast"},
                                                       {bar.next, L"State"},      {bar.next, L"EOF"}};
    for (const auto& [button, member] : buttons) {
        people->Fail(member);
        SetFocus(host.window);
        bar.Click(host, button);
        EXPECT_EQ(host.Heard(), L"DisplayError Refused. -2147217873 True");
        EXPECT_EQ(GetFocus(), host.Tree());
        people->FailNothing();
    }
    EXPECT_EQ(bar.Text(), L"FP[2] of 3 NL");
    EXPECT_EQ(Values(host), L"Name=Bob Age=40");
    // Refused on the way, by what was edited before: the recordset tells of a move that failed.
    people->HostPuts(L"Age", 41L);
    people->Fail(L"Update");
    for (const HWND button : {bar.next, bar.last, bar.first, bar.previous}) {
        bar.Click(host, button);
        EXPECT_TRUE(host.Heard().ends_with(L"DisplayError Refused. -2147217873 True"));
        EXPECT_EQ(people->Position(), 2);
        EXPECT_TRUE(people->IsEditing());
        EXPECT_EQ(bar.Text(), L"FP[2] of 3 NL") << "every button leads somewhere";
    }
    people->FailNothing();
    // The text of the message of the control's own.
    host.events.messageBoxes = true;
    people->Fail(L"MoveNext");
    std::wstring message;
    {
        const InDialog dialog([&] {
            for (const HWND part : PartsOf(Dialog()))
                message += ClassOf(part) == L"Static" ? TextOfWindow(part) : L"";
        });
        bar.Click(host, bar.next);
    }
    EXPECT_NE(message.find(L"Refused."), std::wstring::npos) << message;
}

TEST_F(RecordsetTest, ControlWithAnArrowDoesNotMoveOrReportsItsFailure) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    host.Select(host.Item(L"Name").Get());
    SetFocus(host.Tree());
    host.Heard();
    const auto press = [&](WORD key, WORD modifier) {
        host.RealKeys({key}, modifier);
        return people->Done() + L" " + host.Selected();
    };
    EXPECT_EQ(press(VK_RIGHT, VK_CONTROL), L"MoveNext Name");
    EXPECT_EQ(host.EditText(), L"Bob");
    EXPECT_EQ(press(VK_RIGHT, 0), L" Age");
    EXPECT_EQ(press(VK_LEFT, VK_CONTROL), L"MovePrevious Age");
    EXPECT_EQ(press(VK_LEFT, 0), L" Name");
    host.Heard();
    press(VK_LEFT, VK_CONTROL);
    people->Done();
    EXPECT_EQ(press(VK_LEFT, VK_CONTROL), L" Name") << "there is nothing before the first";
    people->Fail(L"MoveNext");
    press(VK_RIGHT, VK_CONTROL);
    EXPECT_EQ(host.Heard(), L"");
    people->FailNothing();
    EXPECT_EQ(press(VK_RIGHT, VK_CONTROL), L"MoveNext Name");
    EXPECT_EQ(Values(host), L"Name=Ann Age=30");
}

TEST_F(RecordsetTest, TheNumberTakesLettersOrGoesToAnotherRecord) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    const auto enter = [&](const wchar_t* text) {
        people->Done();
        bar.TypeNumber(text);
        bar.Confirm();
        return people->Done() + L" " + bar.Text();
    };
    host.Heard();
    EXPECT_EQ(enter(L"2"), L"AbsolutePosition=2 FP[2] of 3 NL");
    EXPECT_EQ(Values(host), L"Name=Bob Age=40");
    EXPECT_EQ(enter(L"3"), L"AbsolutePosition=3 FP[3] of 3 --");
    EXPECT_EQ(enter(L"1"), L"AbsolutePosition=1 --[1] of 3 NL");
    EXPECT_EQ(enter(L"-a2.b"), L"AbsolutePosition=2 FP[2] of 3 NL");
    EXPECT_EQ(enter(L"002"), L" FP[002] of 3 NL") << "where it is already";
    // What the recordset refuses stays as it was typed, without a word.
    host.Heard();
    EXPECT_EQ(enter(L"7"), L"AbsolutePosition=7 FP[7] of 3 NL");
    EXPECT_EQ(enter(L"99999999999999999999"), L" FP[99999999999999999999] of 3 NL");
    EXPECT_EQ(enter(L"0"), L" FP[0] of 3 NL");
    EXPECT_EQ(enter(L""), L" FP[] of 3 NL");
    EXPECT_EQ(host.Heard(), L"");
    EXPECT_EQ(Values(host), L"Name=Bob Age=40");
    // So on the last record: nothing changes, the buttons neither.
    people->Host(L"MoveLast");
    EXPECT_EQ(enter(L"0"), L" FP[0] of 3 --");
    EXPECT_EQ(enter(L""), L" FP[] of 3 --");
    people->Fail(L"AbsolutePosition=");
    EXPECT_EQ(enter(L"1"), L" FP[1] of 3 --");
    EXPECT_EQ(host.Heard().find(L"DisplayError"), std::wstring::npos);
}

TEST_F(RecordsetTest, LeavingTheNumberDoesNotGoThereOrGoesTwice) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    long place = 2; // never twice the same, or it would be a double click
    const auto click = [&] {
        bar.Click(host, bar.number, place += 8);
        EXPECT_EQ(GetFocus(), bar.number);
    };
    click();
    host.RealKeys({VK_END, VK_BACK, '3'});
    EXPECT_EQ(people->Done(), L"");
    host.RealKeys({VK_TAB});
    EXPECT_NE(GetFocus(), bar.number);
    EXPECT_EQ(people->Done(), L"AbsolutePosition=3");
    EXPECT_EQ(Values(host), L"Name=Cid Age=50");
    // A click elsewhere leaves it, too.
    click();
    host.RealKeys({VK_END, VK_BACK, '2'});
    EXPECT_EQ(bar.Text(), L"FP[2] of 3 --");
    host.ClickRow(0);
    SetFocus(host.Tree());
    EXPECT_EQ(people->Done(), L"AbsolutePosition=2");
    click();
    host.RealKeys({VK_RETURN});
    SetFocus(host.Tree());
    EXPECT_EQ(people->Done(), L"") << "it is there already";
    // Left for good with the control.
    click();
    bar.TypeNumber(L"1");
    host.LetGo();
}

TEST_F(RecordsetTest, AnUnknownCountShowsATotalOrANumber) {
    GridContainer host;
    const auto people = People();
    people->countKnown = false;
    for (const bool raises : {false, true}) {
        people->positions = false;
        people->positionRaises = raises;
        LoadRecords(host, people.Get());
        const RecordBar bar(host);
        EXPECT_EQ(bar.Text(), L"FP[] 0NL");
        EXPECT_FALSE(IsWindowVisible(bar.total));
        people->Host(L"MoveNext");
        EXPECT_EQ(bar.Text(), L"FP[] 0NL");
        EXPECT_EQ(Values(host), L"Name=Bob Age=40");
        bar.TypeNumber(L"3");
        bar.Confirm();
        EXPECT_EQ(people->Position(), 2) << "there are no numbers";
        people->Host(L"MoveLast");
        people->Host(L"MoveNext");
        EXPECT_TRUE(bar.Text().ends_with(L"--"));
        // Counted in the end.
        people->countKnown = people->positions = true;
        people->Host(L"MoveFirst");
        EXPECT_EQ(bar.Text(), L"--[1] of 3 NL");
        EXPECT_TRUE(IsWindowVisible(bar.total));
        people->countKnown = false;
        _variant_t result;
        host->LoadObjectProperties(nullptr, VARIANT_TRUE, VARIANT_TRUE, &V_BOOL(&result));
    }
}

TEST_F(RecordsetTest, AForwardOnlyRecordsetGetsAButtonThatLeadsBack) {
    GridContainer host;
    const auto people = People();
    people->cursorType = kForwardOnly;
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    EXPECT_EQ(bar.Text(), L"--[1] of 3 N-");
    for (const wchar_t* shown : {L"--[2] of 3 N-", L"--[3] of 3 N-", L"--[3] of 3 --"}) {
        bar.Click(host, bar.next);
        EXPECT_EQ(bar.Text(), shown);
    }
    bar.TypeNumber(L"2");
    bar.Confirm();
    EXPECT_TRUE(bar.Text().starts_with(L"--["));
    EXPECT_TRUE(bar.Text().ends_with(L"-"));
    people->HostRequeries();
    EXPECT_TRUE(bar.Text().starts_with(L"--["));
}

TEST_F(RecordsetTest, TheToolbarShowsWhenItShouldNotOrCoversRows) {
    GridContainer host;
    const auto people = People();
    const HWND rows = host.Tree();
    const long whole = PlaceInParent(rows).bottom;
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    EXPECT_TRUE(bar.IsShown());
    EXPECT_LE(PlaceInParent(rows).bottom, PlaceInParent(bar.strip).top) << "it covers rows";
    host->put_RecordsetToolbar(omHide);
    EXPECT_FALSE(bar.IsShown());
    EXPECT_EQ(PlaceInParent(rows).bottom, whole);
    people->Host(L"MoveNext");
    host->put_RecordsetToolbar(omAutomatic);
    EXPECT_TRUE(bar.IsShown());
    EXPECT_EQ(bar.Text(), L"FP[2] of 3 NL") << "it goes on while it is hidden";
}

// Thirty rows in two categories, of which a move changes one.
ComPtr<RecordsetDouble> Wide() {
    std::vector<FieldShape> fields;
    Records records(3);
    for (int i = 0; i < 30; ++i) {
        fields.push_back({.name = L"Field" + std::to_wstring(i)});
        for (int record = 0; record < 3; ++record)
            records[record].emplace_back((i == 17 ? L"value " + std::to_wstring(record) : L"same").c_str());
    }
    return MakeObject<RecordsetDouble>(fields, records);
}

void Settle(const GridContainer& host) {
    host.Pump();
    RedrawWindow(host.Window(), nullptr, nullptr, RDW_VALIDATE | RDW_ALLCHILDREN);
}

TEST_F(RecordsetTest, AMoveScrollsSortsOpensClosesOrSelectsRows) {
    for (const omActiveView view : {omAlphabetic, omCatagorized})
        for (const bool locked : {false, true}) {
            GridContainer host;
            const auto records = Wide();
            LoadRecords(host, records.Get());
            host->put_ActiveView(view);
            host->put_Sorted(VARIANT_TRUE);
            host->put_SortOrder(omDescending);
            host.Add(L"Other", L"x", L"Closed");
            if (view == omCatagorized)
                host.Expand(L"Closed", false);
            host.Select(host.Item(L"Field13").Get());
            SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -480), 0);
            const auto look = [&] {
                return std::tuple(GetScrollPos(host.ScrollBarWindow(), SB_CTL), host.Selected(), host.EditText(),
                                  PlaceInParent(host.EditBox()).top, host.Count());
            };
            const auto before = look();
            EXPECT_GT(std::get<0>(before), 0);
            host->put_LockRefresh(locked ? VARIANT_TRUE : VARIANT_FALSE);
            host.Heard();
            const Picture picture = host.Paint();
            for (const wchar_t* method : {L"MoveNext", L"MoveLast", L"MovePrevious", L"MoveFirst"})
                records->Host(method);
            EXPECT_EQ(host.Heard().find(L"Sel"), std::wstring::npos);
            EXPECT_EQ(host.Heard().find(L"Category"), std::wstring::npos);
            EXPECT_EQ(look(), before);
            host->put_LockRefresh(VARIANT_FALSE);
            EXPECT_EQ(look(), before);
            EXPECT_TRUE(host.Paint() == picture);
            if (view != omCatagorized)
                continue;
            host.Expand(L"Misc", false);
            const Picture closed = host.Paint();
            records->Host(L"MoveNext");
            EXPECT_TRUE(host.Paint() == closed);
            EXPECT_EQ(ValueText(host.Item(L"Field17").Get()), L"value 1");
        }
}

TEST_F(RecordsetTest, AMoveRepaintsRowsThatAreTheSame) {
    GridContainer host({.size = {300, 700}});
    const auto records = Wide();
    LoadRecords(host, records.Get());
    Settle(host);
    const RecordBar bar(host);
    const HWND tree = host.Tree();
    RECT changed{};
    const auto move = [&](const wchar_t* method) {
        Settle(host);
        records->Host(method);
        return GetUpdateRect(tree, &changed, FALSE) ? changed.bottom - changed.top : 0;
    };
    EXPECT_GT(move(L"MoveNext"), 0);
    EXPECT_GE(changed.top, host.RowTop(17) - 1);
    EXPECT_LE(changed.bottom, host.RowTop(18) + 1);
    for (const HWND other : {host.HeaderStrip(), host.TabStrip(), host.DescriptionPane()})
        EXPECT_FALSE(GetUpdateRect(other, nullptr, FALSE));
    records->records[1][17] = records->records[2][17] = L"value 1";
    EXPECT_EQ(move(L"MoveNext"), 0);
    const Picture now = host.Paint();
    host->Refresh();
    EXPECT_TRUE(host.Paint() == now);
}

TEST_F(RecordsetTest, TheMouseOverAPartOfTheToolbarIsToldOfAnother) {
    GridContainer host;
    LoadRecords(host, People().Get());
    const RecordBar bar(host);
    host.events.quiet.erase(L"MouseUp");
    const std::pair<HWND, int> parts[] = {{bar.strip, 4}, {bar.total, 5}, {bar.first, 6},
                                          {bar.last, 7},  {bar.next, 8},  {bar.previous, 9}};
    for (const auto& [part, item] : parts) {
        host.Heard();
        SendMessageW(part, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
        SendMessageW(part, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
        const std::wstring heard = host.Heard();
        EXPECT_NE(heard.find(L"MouseUp"), std::wstring::npos);
        EXPECT_NE((heard + L";").find(L" " + std::to_wstring(item) + L";"), std::wstring::npos) << heard;
    }
}

} // namespace
} // namespace ormisk::test
