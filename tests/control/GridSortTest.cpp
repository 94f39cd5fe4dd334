// Sorting by the host's settings, by header clicks and with the host as judge.

#include "GridContainer.h"

namespace ormisk::test {
namespace {

// The visible names from top to bottom.
std::wstring Names(GridContainer& host) {
    std::wstring names = host.Rows();
    std::erase_if(names, [](wchar_t c) { return c == L' ' || c == L'*'; });
    host.Select(nullptr);
    host.Heard();
    return names;
}

void Add(GridContainer& host, const wchar_t* names) {
    for (; *names; ++names)
        host.Add(std::wstring(1, *names));
    host.Heard();
}

// A real click on the name or the value header.
void ClickHeader(GridContainer& host, bool name) {
    host.RealClick(host.HeaderStrip(), name ? host.Divider() / 2 : host.Divider() + 40, host.HeaderHeight() / 2);
}

TEST_F(GridTest, SettingsSortAtAnotherMomentThanTheyShould) {
    GridContainer host;
    Add(host, L"baC");
    host->put_SortOrder(omDescending);
    EXPECT_EQ(Names(host), L"baC");
    host->put_Sorted(VARIANT_TRUE);
    EXPECT_EQ(Names(host), L"baC");
    host->put_SortOrder(omAscending);
    Add(host, L"D");
    EXPECT_EQ(Names(host), L"CDab");
    host->put_SortOrder(omDescending);
    EXPECT_EQ(Names(host), L"CDab") << "the order waits for the next reason to sort";
    host->put_Sorted(VARIANT_TRUE); // the same value once more
    EXPECT_EQ(Names(host), L"baDC");
    host.Item(L"_C")->put_Name(_bstr_t(L"z"));
    EXPECT_EQ(Names(host), L"baDz");
    Add(host, L"y");
    EXPECT_EQ(Names(host), L"zybaD") << "the addition takes the renamed row along";
    host->put_Sorted(VARIANT_FALSE);
    Add(host, L"x");
    EXPECT_EQ(Names(host), L"zybaDx");
    // The other view kept the order of addition meanwhile.
    host->put_ActiveView(omCatagorized);
    EXPECT_EQ(Names(host), L"bazDyx");
}

TEST_F(GridTest, DesignTimeSortsOrKeepsNoSetting) {
    GridContainer host({.userMode = false});
    Add(host, L"ba");
    host->put_Sorted(VARIANT_TRUE);
    EXPECT_EQ(Read(host, &OrmiskGrid::get_Sorted), VARIANT_TRUE);
    host.SetAmbient(L"UserMode", true);
    EXPECT_EQ(Names(host), L"ba");
}

TEST_F(GridTest, HeaderClicksSortInTheWrongOrderOrKeepTheSelection) {
    GridContainer host;
    Add(host, L"bca");
    host->put_SortOnHeaderClick(VARIANT_FALSE);
    ClickHeader(host, true);
    EXPECT_EQ(Names(host), L"bca");
    host->put_SortOnHeaderClick(VARIANT_TRUE);
    host.Select(host.Item(L"_b").Get());
    host.TypeIntoEditor(L"typed");
    host.Heard();
    ClickHeader(host, true);
    EXPECT_EQ(host.Heard(), L"ValidateValue b typed False; PropertyValueChanged b; SelChanged Nothing");
    EXPECT_EQ(Names(host), L"abc") << "a first click keeps the order";
    ClickHeader(host, false);
    EXPECT_EQ(Names(host), L"cba");
    ClickHeader(host, true);
    EXPECT_EQ(Names(host), L"abc");
    EXPECT_EQ(Read(host, &OrmiskGrid::get_SortOrder), omAscending);
}

TEST_F(GridTest, TheHostDecidesNothingOrHearsOfOtherPairs) {
    GridContainer host;
    for (const auto& [name, category] : {std::pair{L"b", L"Y"}, {L"a", L"Y"}, {L"c", L"X"}})
        host.Add(name, L"", category);
    host->put_ActiveView(omCatagorized);
    host->put_CustomSort(VARIANT_TRUE);
    host.Heard();
    host->put_Sorted(VARIANT_TRUE);
    EXPECT_EQ(host.Heard(), L"PropertyCompare b a False True; PropertyCompare a b False False; "
                            L"CategoryCompare Y X False True; CategoryCompare X Y False False")
        << "subtrees are gone through on the first pass only";
}

TEST_F(GridTest, AMeddlingComparisonLosesRowsOrHangs) {
    GridContainer host;
    host->put_CustomSort(VARIANT_TRUE);
    const auto sortWith = [&](const std::function<void(const EventCall&)>& handler) {
        host.Clear();
        Add(host, L"dcba");
        int calls = 0;
        host.events.on[L"PropertyCompare"] = [&](const EventCall& call) {
            if (++calls == 2)
                handler(call);
        };
        host->put_Sorted(VARIANT_TRUE);
        EXPECT_GE(calls, 2);
        host.events.on.clear();
        if (!host.grid)
            return std::wstring();
        host->put_Sorted(VARIANT_FALSE);
        return Names(host);
    };
    EXPECT_EQ(sortWith([&](const EventCall&) { Add(host, L"e"); }), L"abcde");
    EXPECT_EQ(sortWith([&](const EventCall&) { host.Remove(L"_d"); }), L"abc");
    EXPECT_EQ(sortWith([&](const EventCall&) { host.Clear(); }), L"");
    EXPECT_EQ(sortWith([&](const EventCall&) { host->put_ActiveView(omCatagorized); }), L"dcba");
    host->put_ActiveView(omAlphabetic);
    EXPECT_EQ(Names(host), L"abcd") << "the tree that was being sorted was";
    EXPECT_EQ(sortWith([&](const EventCall&) { host->put_Sorted(VARIANT_TRUE); }), L"abcd");
    sortWith([&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; });
    EXPECT_EQ(host.Count(), 4);
    int calls = 0;
    host.events.on[L"PropertyCompare"] = [&](const EventCall& call) {
        ++calls;
        call.Set(3, true); // and so on for ever
        host->put_CustomSort(VARIANT_FALSE);
    };
    host->put_Sorted(VARIANT_TRUE);
    EXPECT_EQ(calls, 1) << "asked by a control that asks no more";
    host->put_CustomSort(VARIANT_TRUE);
    // A click ends as ever: nobody hears that its sort failed.
    host.Select(host.Item(L"_a").Get());
    host.events.on[L"PropertyCompare"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    ClickHeader(host, true);
    host.events.on.clear();
    EXPECT_EQ(host.Selected(), L"");
    EXPECT_EQ(Read(host, &OrmiskGrid::get_Sorted), VARIANT_TRUE);
    sortWith([&](const EventCall&) { host.LetGo(); });
}

} // namespace
} // namespace ormisk::test
