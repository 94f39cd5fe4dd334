// Recordsets that fail or answer nonsense anywhere, and hosts that turn on the grid in the middle of it.

#include "InspectTools.h"
#include "RecordsetTools.h"

namespace ormisk::test {
namespace {

// What users and hosts do with records, one after the other.
void Exercise(GridContainer& host, RecordsetDouble& records) {
    const auto step = [&](const std::function<void()>& act) {
        if (host.Window())
            IgnoringFailures(act);
    };
    step([&] {
        const ComPtr<OrmiskGrid> grid = host.grid; // the caller's
        VARIANT_BOOL result = VARIANT_FALSE;
        grid->LoadRecordset(&records, VARIANT_TRUE, &result);
    });
    if (!host.Window())
        return;
    const HWND number = RecordBar(host).number, next = RecordBar(host).next;
    step([&] { records.Host(L"MoveNext"); });
    step([&] {
        if (const auto age = host.Item(L"Age"))
            host->putref_SelectedProperty(age.Get());
        host.TypeIntoEditor(L"77");
    });
    step([&] { SendMessageW(next, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3)); });
    step([&] { SendMessageW(next, WM_LBUTTONUP, 0, MAKELPARAM(3, 3)); });
    step([&] { SendMessageW(number, EM_SETSEL, 0, -1), SendMessageW(number, WM_CHAR, L'2', 1); });
    step([&] { SendMessageW(number, WM_CHAR, L'\r', 1); });
    step([&] { host.TypeIntoEditor(L"78"), host.Enter(); });
    step([&] {
        if (const auto name = host.Item(L"Name"))
            name->put_Value(_variant_t(L"Eve"));
    });
    step([&] { records.HostRequeries(); });
    step([&] { host.Press(VK_RIGHT); });
}

// Whatever was before, the grid and the recordset do what they should once nothing is in the way.
void ExpectSound(GridContainer& host, const ComPtr<RecordsetDouble>& records) {
    records->records = {{L"Ann", 30L}, {L"Bob", 40L}, {L"Cid", 50L}};
    records->state = 1;
    if (records->IsEditing())
        records->Host(L"CancelUpdate");
    EXPECT_LE(records->Sinks(), 1U);
    Load(host.grid.Get(), nullptr);
    EXPECT_EQ(records->Sinks(), 0U);
    EXPECT_EQ(host.Count(), 0);
    records->Host(L"MoveFirst");
    LoadRecords(host, records.Get());
    records->Host(L"MoveNext");
    EXPECT_EQ(Values(host), L"Name=Bob Age=40");
    EXPECT_EQ(RecordBar(host).Text(), L"FP[2] of 3 NL");
    Edit(host, L"Age", L"41");
    EXPECT_EQ(records->records[1][1], _variant_t(41L));
    EXPECT_FALSE(records->IsEditing());
    records->Host(L"MoveFirst");
    EXPECT_EQ(Values(host), L"Name=Ann Age=30");
}

TEST_F(RecordsetTest, AMemberThatFailsAnywhereCrashesLeaksOrLeavesAHalfDoneMove) {
    bool once = false;
    GridContainer host;
    for (const auto& member : RecordsetDouble::AllMembers())
        for (const int nth : {0, 1, 4}) {
            SCOPED_TRACE(testing::Message() << member << ", call " << nth);
            const auto people = People();
            people->describesFailures = nth % 2 == 0;
            people->Fail(member, nth);
            Exercise(host, *people.Get());
            once |= people->HasFailed();
            people->FailNothing();
            ExpectSound(host, people);
        }
    EXPECT_TRUE(once);
}

TEST_F(RecordsetTest, NonsenseForAnAnswerCrashesOrLeavesAHalfDoneMove) {
    const _variant_t nonsense[] = {_variant_t(),    kNothing,          _variant_t(L"text"),
                                   _variant_t(-7L), _variant_t(1e300), Array()};
    GridContainer host;
    for (const auto& member : RecordsetDouble::AllMembers()) {
        if (member.ends_with(L"=") || member.starts_with(L"Move") || member.ends_with(L"Update"))
            continue; // these answer nothing
        for (const _variant_t& answer : nonsense) {
            SCOPED_TRACE(testing::Message() << member << ", type " << V_VT(&answer));
            const auto people = People();
            people->answers[member] = answer;
            Exercise(host, *people.Get());
            people->answers.clear();
            ExpectSound(host, people);
        }
    }
}

struct Meddling {
    const char* name;
    bool ends; // the control, or its window
    void (*act)(GridContainer& host, RecordsetDouble& records);
};

const Meddling kMeddlings[] = {
    {"clears the rows", false, [](GridContainer& host, RecordsetDouble&) { host.Clear(); }},
    {"removes a row", false,
     [](GridContainer& host, RecordsetDouble&) {
         _variant_t first(1L);
         host.Properties()->Remove(first);
     }},
    {"loads another recordset", false,
     [](GridContainer& host, RecordsetDouble&) { LoadRecords(host, People().Get()); }},
    {"loads nothing", false, [](GridContainer& host, RecordsetDouble&) { Load(host.grid.Get(), nullptr); }},
    {"loads nothing and the recordset again", false,
     [](GridContainer& host, RecordsetDouble& records) {
         Load(host.grid.Get(), nullptr);
         VARIANT_BOOL result = VARIANT_FALSE;
         host->LoadRecordset(&records, VARIANT_TRUE, &result);
     }},
    {"moves", false,
     [](GridContainer&, RecordsetDouble& records) { IgnoringFailures([&] { records.Host(L"MoveLast"); }); }},
    {"closes the recordset", false, [](GridContainer&, RecordsetDouble& records) { records.HostCloses(); }},
    {"loses the records", false, [](GridContainer&, RecordsetDouble& records) { records.records.clear(); }},
    {"selects the other row", false,
     [](GridContainer& host, RecordsetDouble&) {
         const bool name = host.Selected() == L"Name";
         host.grid->putref_SelectedProperty(host.Item(name ? L"Age" : L"Name").Get());
     }},
    {"hides the toolbar and switches the view", false,
     [](GridContainer& host, RecordsetDouble&) {
         host->put_RecordsetToolbar(omHide);
         host->put_ActiveView(omCatagorized);
         host->put_RecordsetToolbar(omAutomatic);
     }},
    {"closes the control", false, [](GridContainer& host, RecordsetDouble&) { host.grid->Close(OLECLOSE_NOSAVE); }},
    {"unsites", true, [](GridContainer& host, RecordsetDouble&) { host.grid->SetClientSite(nullptr); }},
    {"destroys the control's window", true,
     [](GridContainer& host, RecordsetDouble&) { DestroyWindow(host.Window()); }},
    {"lets the control go", true, [](GridContainer& host, RecordsetDouble&) { host.LetGo(); }},
};

// When the n-th event of a name, or the n-th call of a member, comes, the host does its deed. False when it never came.
bool Meddle(GridContainer& host, const Meddling& meddling, const std::wstring& event, int nth) {
    const auto people = People();
    if (event == L"DisplayError") { // of the edit, and then of the click
        people->Fail(L"Update", 1);
        people->Fail(L"MoveNext", 2);
    }
    const auto meddle = [&] {
        if (nth > 0 && --nth == 0 && host.Window())
            meddling.act(host, *people.Get());
    };
    if (event.empty())
        people->onCall = [&](const std::wstring&) { meddle(); };
    else
        host.events.on[event] = [&](const EventCall&) { meddle(); };
    Exercise(host, *people.Get());
    people->FailNothing();
    people->onCall = nullptr;
    host.events.on.clear();
    if (!meddling.ends) {
        EXPECT_TRUE(host.Window());
        EXPECT_EQ(host->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &host, 0, host.window, nullptr), S_OK);
        host->put_ActiveView(omAlphabetic);
        ExpectSound(host, people);
    }
    return nth <= 0;
}

class RecordsetMeddler : public RecordsetTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(RecordsetMeddler, CrashesLeaksOrLeavesAHalfDoneMove) {
    for (const Meddling& meddling : kMeddlings) {
        bool came = true;
        int nth = 1;
        std::optional<GridContainer> host;
        // Each occurrence, the later ones in steps.
        for (; came; nth += 1 + nth / 2) {
            SCOPED_TRACE(testing::Message() << "a host that " << meddling.name << " at " << nth);
            if (!host)
                host.emplace();
            came = Meddle(*host, meddling, GetParam(), nth);
            if (meddling.ends)
                host.reset();
        }
        host.reset();
        ExpectNothingLeft();
        EXPECT_GT(nth, 2) << "it did not come";
    }
}

INSTANTIATE_TEST_SUITE_P(InTheMiddleOf, RecordsetMeddler,
                         testing::Values(L"", L"PropertyAdded", L"PropertyValueChanged", L"ValidateValue",
                                         L"SelChanged", L"DisplayError", L"KeyPress", L"MouseUp"),
                         [](const auto& event) {
                             const std::wstring name = *event.param ? event.param : L"ACall";
                             return std::string(name.begin(), name.end());
                         });

// One that always does the same in the handler of what it brings about.
TEST_F(RecordsetTest, AHandlerThatAlwaysLoadsComesToNoEnd) {
    GridContainer host;
    const auto first = People(), second = People();
    int loads = 0;
    host.events.on[L"PropertyAdded"] = [&](const EventCall&) {
        ++loads;
        LoadRecords(host, loads % 2 ? second.Get() : first.Get());
    };
    LoadRecords(host, first.Get());
    host.events.on.clear();
    EXPECT_LT(loads, 20);
    ExpectSound(host, LoadedRecordset(host) == first ? first : second);
}

TEST_F(RecordsetTest, ARecordsetKeptByTheHostKeepsTheControlAlive) {
    const auto people = People();
    {
        GridContainer host;
        LoadRecords(host, people.Get());
        TypeInto(host, L"Age", L"77");
    }
    EXPECT_EQ(people->Sinks(), 0U);
    people->Host(L"MoveNext");
    EXPECT_EQ(people->records[0][1], _variant_t(30L)) << "an end commits nothing";
}

} // namespace
} // namespace ormisk::test
