// What of an edit reaches the record: writes, refused ones, Null, and moves with an edit open.

#include "RecordsetTools.h"

namespace ormisk::test {
namespace {

const std::wstring kRefusal = L"DisplayError Refused. -2147217873 True"; // of kRefused

ComPtr<RecordsetDouble> Single(const FieldShape& field) {
    return MakeObject<RecordsetDouble>(std::vector<FieldShape>{field}, Records{{Null()}});
}

TEST_F(RecordsetTest, AnEditIsNotWrittenOrUpdatedAsTheLockAndTheRowSay) {
    const struct {
        const char* name;
        long lock;
        long supported; // negative: what the lock gives
        bool automatic;
        const wchar_t* done;
    } cases[] = {
        {"optimistic", kOptimistic, -1, true, L"Age=31; Update"},
        {"pessimistic", kPessimistic, -1, true, L"Age=31"},
        {"batch", kBatchOptimistic, -1, true, L"Age=31"},
        {"read-only", kReadOnlyLock, -1, true, L""},
        {"supports batches only", kOptimistic, 0x10000, true, L"Age=31; Update"},
        {"supports half of an update", kOptimistic, 0x8000, true, L""},
        {"without automatic update", kOptimistic, -1, false, L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        GridContainer host;
        const auto people = People();
        people->lockType = each.lock;
        if (each.supported >= 0)
            people->supported = each.supported;
        LoadRecords(host, people.Get(), each.automatic);
        host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) {
            EXPECT_EQ(people->Done(), each.done) << "it is told when it is written";
        };
        host.Select(host.Item(L"Age").Get());
        host.Heard();
        host.TypeIntoEditor(L"31");
        host.Enter();
        EXPECT_EQ(host.Heard(), L"ValidateValue Age 31 False; PropertyValueChanged Age");
        EXPECT_EQ(Values(host), L"Name=Ann Age=31");
        EXPECT_EQ(people->Done(), L"");
        EXPECT_EQ(people->IsEditing(), std::wstring(each.done) == L"Age=31");
        // A value of the host's goes the same way.
        host.events.on.clear();
        host.Item(L"Name")->put_Value(_variant_t(L"Eve"));
        EXPECT_EQ(people->Done().find(L"Name=Eve") != std::wstring::npos, *each.done != L'\0');
    }
}

TEST_F(RecordsetTest, AnEditBesideTheRecordsIsWrittenOrReported) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    for (const wchar_t* method : {L"MoveFirst", L"MovePrevious", L"MoveLast", L"MoveNext"})
        people->Host(method);
    const auto age = host.Item(L"Age");
    const auto unwritten = [&](long value) {
        people->Done();
        host.Heard();
        EXPECT_EQ(age->put_Value(_variant_t(value)), S_OK);
        EXPECT_EQ(people->Done(), L"");
        EXPECT_EQ(host.Heard(), L"PropertyValueChanged Age");
    };
    unwritten(1); // beyond the last
    people->Host(L"MoveFirst");
    people->Host(L"MovePrevious");
    unwritten(2);
    people->HostCloses();
    unwritten(3);
    EXPECT_EQ(Values(host), L"Name=Ann Age=3");
}

TEST_F(RecordsetTest, ARefusedWriteStaysInTheRowOrPendingOrIsNotReported) {
    for (const wchar_t* member : {L"Field.Value=", L"Update"})
        for (const bool byHost : {false, true}) {
            SCOPED_TRACE(testing::Message() << member << (byHost ? " by the host" : " by the user"));
            GridContainer host;
            const auto people = People();
            LoadRecords(host, people.Get());
            host.Select(host.Item(L"Age").Get());
            host.Heard();
            people->Fail(member);
            if (byHost)
                EXPECT_EQ(host.Item(L"Age")->put_Value(_variant_t(31L)), S_OK);
            else
                Edit(host, L"Age", L"31");
            const std::wstring heard = host.Heard();
            EXPECT_NE(heard.find(kRefusal), std::wstring::npos) << heard;
            EXPECT_EQ(Values(host), L"Name=Ann Age=30");
            EXPECT_EQ(host.EditText(), L"30");
            EXPECT_FALSE(people->IsEditing());
            EXPECT_EQ(people->Current(L"Age"), L"30");
            people->FailNothing();
            people->Host(L"MoveNext");
            EXPECT_EQ(Values(host), L"Name=Bob Age=40");
            EXPECT_EQ(people->records[0][1], _variant_t(30L));
        }
}

TEST_F(RecordsetTest, WhatTheHostIsEditingIsUpdatedForItOrLostWhenAWriteIsRefused) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    people->HostPuts(L"Name", L"Zoe");
    people->HostPuts(L"Age", 35L);
    people->Done();
    Edit(host, L"Age", L"36");
    EXPECT_EQ(people->Done(), L"Age=36") << "its update is the host's";
    people->Fail(L"Field.Value=", 1);
    host.Heard();
    Edit(host, L"Age", L"31");
    EXPECT_NE(host.Heard().find(kRefusal), std::wstring::npos);
    EXPECT_TRUE(people->IsEditing());
    EXPECT_EQ(people->Current(L"Name") + L" " + people->Current(L"Age"), L"Zoe 36");
    EXPECT_EQ(ValueText(host.Item(L"Age").Get()), L"36") << "what the field holds";
    EXPECT_EQ(people->Done().find(L"CancelUpdate"), std::wstring::npos);
}

TEST_F(RecordsetTest, AVisitWritesIntoTheRecordOrIsRefused) {
    GridContainer host;
    const _variant_t noon(43876.5, VT_DATE);
    const auto records =
        MakeObject<RecordsetDouble>(std::vector<FieldShape>{{.name = L"When", .type = 7},
                                                            {.name = L"Price", .type = 6},
                                                            {.name = L"Loss", .type = 5},
                                                            {.name = L"Flag", .type = 11},
                                                            {.name = L"Note", .type = kTextField}},
                                    Records{{noon, 1.5, -2.5, Null(), Null()}, {Null(), 2.5, -1.0, true, L"x"}});
    LoadRecords(host, records.Get());
    records->Done();
    for (const wchar_t* name : {L"When", L"Price", L"Loss", L"Flag", L"Note", L"When"}) {
        SCOPED_TRACE(TextOf(_variant_t(name)).c_str());
        host.Select(host.Item(name).Get());
        SetFocus(host.Tree());
        host.Heard();
        records->Host(L"MoveNext");
        records->Host(L"MovePrevious");
        EXPECT_EQ(host.Heard().find(L"ValidateValue"), std::wstring::npos);
        EXPECT_EQ(records->Done(), L"MoveNext; MovePrevious");
    }
    host.Select(nullptr);
    EXPECT_EQ(host.Heard().find(L"DisplayError"), std::wstring::npos);
    EXPECT_EQ(records->records[0][0], noon);
}

TEST_F(RecordsetTest, AnEditorOutlivesWhatAHandlerMakesOfItsRowDuringAMove) {
    const std::function<void(_CProperty*)> changes[] = {
        [](_CProperty* row) { row->put_ReadOnly(VARIANT_TRUE); },
        [](_CProperty* row) { row->put_EditorType(omDateEditor); },
        [](_CProperty* row) { row->put_EditorType(omCustomEditor); },
    };
    for (const auto& change : changes) {
        GridContainer host;
        const auto people = People();
        LoadRecords(host, people.Get());
        host.Select(host.Item(L"Age").Get());
        ASSERT_EQ(host.EditText(), L"30");
        host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) { change(host.Item(L"Age").Get()); };
        people->Host(L"MoveNext");
        EXPECT_EQ(host.EditText(), L"") << "the text box is not the row's editor any more";
        EXPECT_EQ(people->records[1][1], _variant_t(40L));
    }
}

TEST_F(RecordsetTest, AValueThatAFieldCannotHoldStaysInTheRowOrAnotherDoesNot) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    host.Heard();
    for (const _variant_t& value : {_variant_t(L"many"), _variant_t(1e12)}) {
        host.Item(L"Age")->put_Value(value);
        EXPECT_EQ(Values(host), L"Name=Ann Age=30");
        EXPECT_NE(host.Heard().find(L"DisplayError"), std::wstring::npos);
    }
    host.Item(L"Name")->put_Value(_variant_t(L"A name of more than twenty letters"));
    EXPECT_EQ(Values(host), L"Name=Ann Age=30");
    EXPECT_FALSE(people->IsEditing());
    host.Heard();
    host.Item(L"Age")->put_Value(_variant_t(30.7));
    EXPECT_EQ(Values(host), L"Name=Ann Age=31") << "what was written, and not what the field made of it";
    EXPECT_EQ(host.Heard(), L"PropertyValueChanged Age");
}

TEST_F(RecordsetTest, NullCannotBeEditedWhereItIsAllowedOrCanWhereItIsNot) {
    for (const bool nullable : {true, false}) {
        SCOPED_TRACE(nullable);
        GridContainer host;
        const auto records =
            Single({.name = L"Age", .type = kIntegerField, .attributes = kUpdatable | (nullable ? kNullable : 0)});
        records->records.push_back({7L});
        LoadRecords(host, records.Get());
        ASSERT_EQ(host.Count(), 1);
        host.Heard();
        host.Select(host.Item(L"Age").Get());
        EXPECT_EQ(host.Heard().find(L"Invalid value for specified editor.") == std::wstring::npos, nullable);
        EXPECT_EQ(IsWindowVisible(host.EditBox()) != FALSE, nullable);
        host.Heard();
        records->Host(L"MoveNext");
        host.Select(nullptr);
        host.Select(host.Item(L"Age").Get());
        EXPECT_EQ(host.EditText(), L"7");
        host.TypeIntoEditor(L"8");
        host.Heard();
        // Back on Null with an editor that is open.
        records->Host(L"MovePrevious");
        EXPECT_EQ(host.Heard().find(L"DisplayError"), std::wstring::npos) << "nobody asked for an edit";
        EXPECT_EQ(IsWindowVisible(host.EditBox()) != FALSE, nullable);
        EXPECT_EQ(host.EditText(), L"");
        EXPECT_EQ(Values(host), L"Age=Null");
        EXPECT_EQ(records->records[1][0], _variant_t(8L));
        if (nullable) {
            host.Press(VK_RETURN);
            host.TypeIntoEditor(L"9");
            host.Enter();
            EXPECT_EQ(records->records[0][0], _variant_t(9L));
        }
    }
}

TEST_F(RecordsetTest, AnOpenEditReachesAnotherRecordThanTheOneItWasMadeOn) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    const RecordBar bar(host);
    const std::function<void()> moves[] = {[&] { people->Host(L"MoveNext"); }, [&] { bar.Click(host, bar.next); },
                                           [&] { people->HostPositions(2); },
                                           [&] { bar.TypeNumber(L"2"), bar.Confirm(); }};
    for (const bool refused : {false, true})
        for (const auto& move : moves) {
            people->HostPositions(1);
            const std::wstring before = people->Current(L"Age");
            TypeInto(host, L"Age", L"77");
            SetFocus(host.EditBox());
            host.Heard();
            host.events.on[L"ValidateValue"] = [&](const EventCall& call) { call.Set(2, refused); };
            move();
            host.events.on.clear();
            EXPECT_EQ(people->Position(), 2);
            EXPECT_TRUE(host.Heard().starts_with(L"ValidateValue Age 77 False")) << "asked before the move";
            EXPECT_EQ(TextOf(people->records[0][1]), refused ? before : L"77");
            EXPECT_EQ(TextOf(people->records[1][1]), L"40");
            EXPECT_EQ(Values(host), L"Name=Bob Age=40");
            EXPECT_EQ(host.EditText(), L"40") << "a fresh edit of the new record";
            people->Done();
            host.Heard();
            host.Enter();
            host.Select(nullptr);
            EXPECT_EQ(people->Done(), L"") << "and nothing of the former one";
            EXPECT_EQ(host.Heard(), L"SelChanged Nothing");
            people->records[0][1] = 30L;
        }
}

TEST_F(RecordsetTest, ARefusedWriteOnTheWayToAnotherRecordShowsThere) {
    GridContainer host;
    const auto people = People();
    LoadRecords(host, people.Get());
    TypeInto(host, L"Age", L"77");
    people->Fail(L"Update");
    host.Heard();
    people->Host(L"MoveNext");
    EXPECT_NE(host.Heard().find(kRefusal), std::wstring::npos);
    EXPECT_EQ(people->Position(), 2);
    EXPECT_EQ(people->records[0][1], _variant_t(30L));
    EXPECT_EQ(people->records[1][1], _variant_t(40L));
    EXPECT_EQ(host.EditText(), L"40");
    EXPECT_EQ(Values(host), L"Name=Bob Age=40");
}

} // namespace
} // namespace ormisk::test
