#include "Tools.h"

#include <functional>

using namespace ormisk;
using namespace ormisk::records;
using namespace ormisk::records::test;

namespace {

using Words = std::vector<std::string>;

// Writes down each event: its number, its reason where it has one, and its status unless all is well.
class Sink final : public ormisk::Unknown<IDispatch> {
public:
    explicit Sink(Words& events) : m_Events(events) {}
    DISPID cancels = 0;
    DISPID acts = 0;
    std::function<void()> act; // within that event

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool source = iid == __uuidof(::RecordsetEvents) || iid == kFormerEvents;
        return Unknown::QueryInterface(source ? __uuidof(IDispatch) : iid, object);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*, UINT*) override {
        static const char* const kNames[] = {"WillField",     "Field",    "WillRecord",   "Record", "WillRecordset",
                                             "RecordsetDone", "WillMove", "MoveComplete", "End"};
        // Arguments are given from the last to the first: recordset, status, and before it an error or what it tells.
        EXPECT_EQ(V_VT(&given->rgvarg[0]), VT_DISPATCH);
        EXPECT_EQ(V_VT(&given->rgvarg[1]), VT_BYREF | VT_I4);
        std::string text = kNames[id - 9];
        const VARIANT& first = given->rgvarg[given->cArgs - 1];
        if (id != 9 && id != 10 && id != 17)
            text += " " + std::to_string(V_I4(&first));
        if (*V_I4REF(&given->rgvarg[1]) != adStatusOK)
            text += " failed";
        if (id == cancels)
            *V_I4REF(&given->rgvarg[1]) = adStatusCancel;
        m_Events.push_back(text);
        if (id == acts)
            act();
        return S_OK;
    }

private:
    Words& m_Events;
};

class RecordsetEventsTest : public testing::TestWithParam<bool> {
protected:
    RecordsetEventsTest() : sink(Adopt(new Sink(events))) {
        database.Do(L"create table t (id integer primary key, a text not null)");
        database.Do(L"insert into t values (1, 'x'), (2, 'y')");
        ComPtr<IConnectionPoint> point;
        Check(rs->FindConnectionPoint(GetParam() ? kFormerEvents : __uuidof(::RecordsetEvents), point.GetAddressOf()));
        DWORD cookie = 0;
        Check(point->Advise(sink.Get(), &cookie));
        rs.Open(database, L"t");
    }
    Words Taken() { return std::exchange(events, {}); }

    Words events;
    ComPtr<Sink> sink;
    Database database;
    Script rs;
};

} // namespace

TEST_P(RecordsetEventsTest, MovesAreToldWithTheirReasons) {
    EXPECT_EQ(Taken(), (Words{"WillMove 10", "MoveComplete 10"}));
    rs.Do(L"MoveNext");
    EXPECT_EQ(Taken(), (Words{"WillMove 13", "MoveComplete 13"}));
    rs.Do(L"MoveNext");
    EXPECT_EQ(Taken(), (Words{"WillMove 13", "End", "MoveComplete 13"}));
    rs.Do(L"MoveNext");
    EXPECT_EQ(Taken(), (Words{"WillMove 13", "MoveComplete 13 failed"}));
    rs.Do(L"MoveFirst");
    rs.Do(L"MoveLast");
    rs.Do(L"MovePrevious");
    EXPECT_EQ(Taken(), (Words{"WillMove 12", "MoveComplete 12", "WillMove 15", "MoveComplete 15", "WillMove 14",
                              "MoveComplete 14"}));
    rs.Do(L"Requery");
    EXPECT_EQ(Taken(), (Words{"WillRecordset 7", "WillMove 7", "MoveComplete 7", "RecordsetDone 7"}));
    rs.Do(L"Close");
    EXPECT_EQ(Taken(), (Words{"WillRecordset 9", "RecordsetDone 9"}));
}

TEST_P(RecordsetEventsTest, ChangesAreToldWithTheirReasons) {
    Taken();
    rs.SetValue(L"a", L"z");
    EXPECT_EQ(Taken(), (Words{"WillRecord 11", "WillField", "Field", "Record 11"}));
    rs.SetValue(L"a", L"w");
    EXPECT_EQ(Taken(), (Words{"WillField", "Field"}));
    rs.Do(L"MoveNext");
    EXPECT_EQ(Taken(), (Words{"WillRecord 3", "Record 3", "WillMove 13", "MoveComplete 13"}));
    rs.SetValue(L"a", NullValue());
    Taken();
    EXPECT_TRUE(FAILED(rs.Do(L"Update")));
    EXPECT_EQ(Taken(), (Words{"WillRecord 3", "Record 3 failed"}));
    rs.Do(L"CancelUpdate");
    EXPECT_EQ(Taken(), (Words{"WillRecord 4", "Record 4"}));
    rs.Do(L"AddNew");
    rs.Do(L"CancelUpdate");
    EXPECT_EQ(Taken(), (Words{"WillMove 1", "WillRecord 1", "Record 1", "MoveComplete 1", "WillMove 5", "WillRecord 5",
                              "Record 5", "MoveComplete 5"}));
    rs.Do(L"Delete");
    EXPECT_EQ(Taken(), (Words{"WillRecord 2", "Record 2"}));
}

TEST_P(RecordsetEventsTest, AHandlerCancels) {
    Taken();
    sink->cancels = 15;
    EXPECT_EQ(rs.Do(L"MoveNext"), Number(Failure::OperationCancelled));
    EXPECT_EQ(Taken(), (Words{"WillMove 13", "MoveComplete 13 failed"}));
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), 1);
    sink->cancels = 9;
    EXPECT_EQ(rs.TrySetValue(L"a", L"z"), Number(Failure::OperationCancelled));
    EXPECT_EQ(rs.Text(L"a"), L"x");
    EXPECT_EQ(rs.Number(L"EditMode"), adEditNone);
    sink->cancels = 11;
    EXPECT_EQ(rs.Do(L"Delete"), Number(Failure::OperationCancelled));
    EXPECT_EQ(database.Ask(L"select count(*) from t"), L"2");
}

TEST_P(RecordsetEventsTest, AHandlerThatMovesDoesNotTurnAnOperationToAnotherRecord) {
    sink->acts = 11;
    sink->act = [&] {
        sink->acts = 0;
        rs.Do(L"MoveNext");
    };
    EXPECT_EQ(rs.Do(L"Delete"), Number(Failure::IllegalOperation));
    EXPECT_EQ(database.Ask(L"select count(*) from t"), L"2");
    rs.Do(L"MoveFirst");
    sink->acts = 9;
    sink->act = [&] {
        sink->acts = 0;
        rs.Do(L"MoveNext");
    };
    EXPECT_EQ(rs.TrySetValue(L"a", L"z"), Number(Failure::IllegalOperation));
    EXPECT_EQ(rs.Text(L"a"), L"y");
    EXPECT_EQ(rs.Number(L"EditMode"), adEditNone);
}

TEST_P(RecordsetEventsTest, AnEditMadeWithinAMoveIsOfTheRecordThatIsLeft) {
    sink->acts = 15;
    sink->act = [&] { rs.SetValue(L"a", L"left"); };
    EXPECT_EQ(rs.Do(L"MoveNext"), S_OK);
    EXPECT_EQ(rs.Text(L"a"), L"y");
    EXPECT_EQ(database.Ask(L"select a from t where id = 1"), L"left");
}

TEST_P(RecordsetEventsTest, AHandlerClosesAtAnyTime) {
    for (const DISPID event : {9, 10, 11, 12, 15, 16}) {
        sink->acts = event;
        sink->act = [&] {
            rs.Do(L"CancelUpdate");
            rs.Do(L"Close");
        };
        rs.TrySetValue(L"a", L"z");
        if (rs.Number(L"State") == adStateOpen)
            rs.Do(L"MoveNext");
        EXPECT_EQ(rs.Number(L"State"), adStateClosed) << event;
        EXPECT_EQ(ErrorOf([&] { rs.Number(L"RecordCount"); }).number, Number(Failure::ObjectClosed));
        sink->acts = 0;
        rs.Open(database, L"t");
    }
    sink->acts = 13; // within its own event, without an end
    EXPECT_EQ(rs.Do(L"Close"), S_OK);
    EXPECT_EQ(rs.Number(L"State"), adStateClosed);
}

TEST_P(RecordsetEventsTest, AHandlerLetsTheRecordsetGo) {
    const ComPtr<IDispatch> field = rs.Field(L"a");
    sink->acts = 9;
    sink->act = [&] { rs = Script(); };
    _variant_t value(L"z");
    EXPECT_EQ(ErrorOf([&] { InvokeByName(field.Get(), L"Value", DISPATCH_PROPERTYPUT, &value); }).number, S_OK);
    EXPECT_EQ(TextOf(InvokeByName(field.Get(), L"Value", DISPATCH_PROPERTYGET)), L"z") << "a field holds its recordset";
}

INSTANTIATE_TEST_SUITE_P(BothIdentifiers, RecordsetEventsTest, testing::Bool());
