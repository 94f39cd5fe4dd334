// Date rows: the calendar, limits, the check box, and values that the picker cannot show.

#include "DialogTools.h"

#include <commctrl.h>

namespace ormisk::test {
namespace {

HWND Picker(const GridContainer& host) { return FieldOf(host, DATETIMEPICK_CLASSW); }

HWND Calendar(const GridContainer& host) {
    const auto calendar = reinterpret_cast<HWND>(SendMessageW(Picker(host), DTM_GETMONTHCAL, 0, 0));
    return calendar && IsWindowVisible(calendar) ? calendar : nullptr;
}

_variant_t Day(int year, int month, int day, int hour = 0) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    DATE date = 0;
    SystemTimeToVariantTime(&time, &date);
    return {date, VT_DATE};
}

// The day that the picker shows; "" for none.
std::wstring Shown(const GridContainer& host) {
    SYSTEMTIME day{};
    if (SendMessageW(Picker(host), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&day)) != GDT_VALID)
        return {};
    return std::to_wstring(day.wYear) + L"-" + std::to_wstring(day.wMonth) + L"-" + std::to_wstring(day.wDay);
}

// In its middle; the other button would open a menu.
void ClickCalendar(GridContainer& host) {
    const Rect size = ClientRect(Calendar(host));
    host.PlainClick(Calendar(host), size.Width() / 2, size.Height() / 2);
}

void Param(_CProperty* row, const wchar_t* name, const _variant_t& value) {
    EXPECT_EQ(row->SetEditorParam(_bstr_t(name), _bstr_t(value)), S_OK);
}

const Deeds kOpenings = AndOpenings({
    {"a click on the button",
     [](GridContainer& host) { host.RealClick(Picker(host), ClientRect(Picker(host)).right - 5, 6); }},
    {"F4 in the picker", [](GridContainer& host) { SetFocus(Picker(host)), host.RealKeys({VK_F4}); }},
});

TEST_F(GridTest, ACalendarDoesNotOpenOrLeavesTheFocusElsewhere) {
    GridContainer host;
    const auto row = host.Add(L"A", Day(2020, 2, 15), L"", omDateEditor);
    const auto next = host.Add(L"B");
    for (const auto& [name, open] : kOpenings) {
        SCOPED_TRACE(name);
        row->put_Value(Day(2020, 2, 15));
        GoTo(host, row.Get());
        open(host);
        ASSERT_TRUE(Calendar(host));
        host.RealKeys({VK_LEFT, VK_ESCAPE});
        EXPECT_FALSE(Calendar(host));
        EXPECT_EQ(GetFocus(), Picker(host));
        EXPECT_EQ(Shown(host), L"2020-2-15");
        // A day that was picked waits for ENTER, or for the row to be left.
        open(host);
        host.RealKeys({VK_DOWN, VK_RETURN});
        EXPECT_FALSE(Calendar(host));
        EXPECT_EQ(Shown(host), L"2020-2-22");
        EXPECT_EQ(host.Heard(), L"");
        host.RealKeys({VK_RETURN});
        EXPECT_EQ(ValueOf(row.Get()), Day(2020, 2, 22));
        EXPECT_EQ(host.Heard().substr(0, 16), L"ValidateValue A ");
        EXPECT_EQ(GetFocus(), host.Tree());
        // By mouse, a day in the middle of the month.
        open(host);
        ASSERT_TRUE(Calendar(host));
        ClickCalendar(host);
        EXPECT_FALSE(Calendar(host));
        EXPECT_NE(Shown(host), L"2020-2-22");
        EXPECT_EQ(Shown(host).substr(0, 7), L"2020-2-");
        host.Select(next.Get());
        EXPECT_NE(ValueOf(row.Get()), Day(2020, 2, 22));
        host.Heard();
    }
}

TEST_F(GridTest, ADateIsNotTypedOrStaysBehindItsParts) {
    GridContainer host;
    const auto row = host.Add(L"A", Day(2020, 2, 15), L"", omDateEditor);
    Param(row.Get(), L"DateFormat", L"  MM.dd.yyyy ");
    GoTo(host, row.Get());
    // The first digit comes from the row, to the first part; the last one belongs to a part that is not complete.
    host.RealKeys({'1', '1', VK_RIGHT, '7', VK_RETURN});
    EXPECT_EQ(ValueOf(row.Get()), Day(2020, 11, 7));
    EXPECT_EQ(GetFocus(), host.Tree());
    for (const int digits : {1, 2}) {
        host.RealKeys({'1'});
        if (digits == 2)
            host.RealKeys({'2'});
        host.RealKeys({VK_ESCAPE});
        EXPECT_EQ(Shown(host), L"2020-11-7") << "given up";
    }
    EXPECT_EQ(GetFocus(), host.Tree());
}

TEST_F(GridTest, ADateOutOfItsLimitsIsTakenOrLostInSilence) {
    GridContainer host;
    const auto row = host.Add(L"A", Day(2020, 2, 15), L"", omDateEditor);
    const auto next = host.Add(L"B");
    Param(row.Get(), L"EnableMinValueCheck", L"True");
    Param(row.Get(), L"MinValue", Day(2020, 2, 10));
    Param(row.Get(), L"EnableMaxValueCheck", L"True");
    Param(row.Get(), L"MaxValue", Day(2020, 2, 20));
    const std::pair<_variant_t, std::wstring> cases[] = {
        {Day(2020, 2, 9), L"Entered date is less than " + TextOf(Day(2020, 2, 10))},
        {Day(2020, 2, 10), L""},
        {Day(2020, 2, 19), L""},
        {Day(2020, 2, 20), L"Entered date is greater than " + TextOf(Day(2020, 2, 20))},
    };
    const auto show = [&](const _variant_t& date) {
        SYSTEMTIME day{};
        VariantTimeToSystemTime(V_DATE(&date), &day);
        SendMessageW(Picker(host), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    };
    for (const auto& [date, fault] : cases) {
        row->put_Value(Day(2020, 2, 15));
        GoTo(host, row.Get());
        SetFocus(Picker(host));
        show(date);
        host.RealKeys({VK_RETURN});
        EXPECT_EQ(ValueOf(row.Get()), fault.empty() ? date : Day(2020, 2, 15));
        EXPECT_EQ(GetFocus(), fault.empty() ? host.Tree() : Picker(host));
        const std::wstring heard = host.Heard();
        EXPECT_EQ(heard.find(L"DisplayError"), std::wstring::npos) << "ENTER on it is ignored";
        EXPECT_EQ(heard.empty(), !fault.empty());
        host.Select(next.Get());
        EXPECT_EQ(host.Heard(),
                  fault.empty() ? L"SelChanged B" : L"DisplayError " + fault + L" -2147221502 True; SelChanged B");
        EXPECT_EQ(ValueOf(row.Get()), fault.empty() ? date : Day(2020, 2, 15));
    }
    // What is no limit reaches whoever selects the row; a limit that is not enabled is not read.
    for (const wchar_t* text : {L"", L"soon"}) {
        Param(row.Get(), L"MinValue", text);
        EXPECT_TRUE(FAILED(host->putref_SelectedProperty(row.Get()))) << text;
        EXPECT_FALSE(Picker(host));
        GoTo(host, nullptr);
    }
    Param(row.Get(), L"EnableMinValueCheck", L"False");
    GoTo(host, row.Get());
    EXPECT_TRUE(Picker(host));
}

TEST_F(GridTest, TheCheckBoxOfARowStaysWithTheNextOrHasNoNoDate) {
    GridContainer host;
    const auto boxed = host.Add(L"A", Day(2020, 2, 15), L"", omDateEditor);
    const auto plain = host.Add(L"B", Day(2021, 3, 16), L"", omDateEditor);
    Param(boxed.Get(), L"CheckBox", L"True");
    const auto hasBox = [&] { return (GetWindowLongPtrW(Picker(host), GWL_STYLE) & DTS_SHOWNONE) != 0; };
    for (int round = 0; round < 2; ++round) {
        GoTo(host, boxed.Get());
        EXPECT_TRUE(hasBox());
        EXPECT_EQ(Shown(host), L"2020-2-15");
        EXPECT_NE(SendMessageW(Picker(host), WM_GETFONT, 0, 0), 0);
        GoTo(host, plain.Get());
        EXPECT_FALSE(hasBox());
        EXPECT_EQ(Shown(host), L"2021-3-16");
        EXPECT_EQ(PlaceInParent(Picker(host)).top, host.RowTop(1));
    }
    GoTo(host, boxed.Get());
    SYSTEMTIME unused{};
    SendMessageW(Picker(host), DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&unused));
    EXPECT_EQ(Shown(host), L"");
    host.Select(plain.Get());
    const _variant_t none = ValueOf(boxed.Get());
    EXPECT_EQ(V_VT(&none), VT_EMPTY);
    GoTo(host, boxed.Get());
    EXPECT_EQ(Shown(host), L"");
    host.Select(plain.Get());
    EXPECT_EQ(host.Heard(), L"SelChanged B");
}

TEST_F(GridTest, AVisitOfADateRowChangesWhatItCannotShow) {
    GridContainer host;
    const auto before = host.Add(L"Before", Day(2001, 1, 1), L"", omDateEditor);
    const auto row = host.Add(L"A", _variant_t(), L"", omDateEditor);
    const auto next = host.Add(L"B");
    for (const _variant_t& value : {_variant_t(), Day(1200, 1, 1), _variant_t(L"1/1/1201")}) {
        GoTo(host, before.Get());
        row->put_Value(_variant_t());
        row->put_Value(value);

        GoTo(host, row.Get());
        EXPECT_NE(Shown(host), L"2001-1-1") << "the day of another row";
        const std::wstring today = Shown(host);
        host.Select(next.Get());
        EXPECT_EQ(host.Heard(), L"SelChanged B");
        _variant_t after = ValueOf(row.Get());
        EXPECT_EQ(V_VT(&after), V_VT(&value));
        // Picked in the calendar, the day that is shown is a choice.
        GoTo(host, row.Get());
        host.RealKeys({VK_F4, VK_RETURN});
        host.Select(next.Get());
        after = ValueOf(row.Get());
        EXPECT_EQ(V_VT(&after), VT_DATE);
        row->put_Value(_variant_t());
        row->put_Value(value);
        // ENTER says that it shall be so.
        GoTo(host, row.Get());
        SetFocus(Picker(host));
        host.RealKeys({VK_RETURN});
        after = ValueOf(row.Get());
        EXPECT_EQ(V_VT(&after), VT_DATE);
        EXPECT_EQ(Shown(host), today);
        host.Heard();
    }
    // The time of a day does not survive, even a visit.
    row->put_Value(Day(2020, 2, 15, 13));
    GoTo(host, row.Get());
    host.Select(next.Get());
    EXPECT_EQ(ValueOf(row.Get()), Day(2020, 2, 15));
    // A text that is no date opens nothing.
    row->put_Value(_variant_t(L"soon"));
    host.Heard();
    host.Select(row.Get());
    EXPECT_EQ(host.Heard(), L"SelChanged A; DisplayError Invalid value for specified editor. -2147221494 True");
    EXPECT_FALSE(Picker(host));
}

TEST_F(GridTest, WhatHappensUnderACalendarLeavesItOpen) {
    const Deeds deeds = AndDeeds({
        {"rows above", [](GridContainer& host) { host->put_Headers(omHeadersNone); }},
        {"a click on the rows", [](GridContainer& host) { host.RealClick(host.Tree(), 30, host.RowTop(0) + 6); }},
        {"another window", LeaveForAnotherWindow},
    });
    for (const auto& [name, deed] : deeds) {
        SCOPED_TRACE(name);
        GridContainer host;
        const auto row = host.Add(L"A", Day(2020, 2, 15), L"", omDateEditor);
        const auto next = host.Add(L"B", Day(2021, 2, 15), L"", omDateEditor);
        GoTo(host, row.Get());
        host.RealKeys({VK_F4});
        const HWND calendar = Calendar(host);
        ASSERT_TRUE(calendar);
        deed(host);
        host.Pump();
        EXPECT_FALSE(IsWindow(calendar) && IsWindowVisible(calendar));
        EXPECT_EQ(ValueOf(next.Get()), Day(2021, 2, 15));
    }
}

} // namespace
} // namespace ormisk::test
