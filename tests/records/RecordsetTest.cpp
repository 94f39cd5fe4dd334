#include "Tools.h"

using namespace ormisk;
using namespace ormisk::records;
using namespace ormisk::records::test;

namespace {

constexpr HRESULT kNoRecord = Number(Failure::NoCurrentRecord);

class RecordsetTest : public testing::Test {
protected:
    RecordsetTest() {
        database.Do(L"create table people (id integer primary key, name varchar(40), size double)");
        database.Do(L"insert into people values (3, 'Ada', 1.5), (5, 'Bob', null), (9, 'Cyd', -2)");
    }
    Database database;
    Script rs;
};

} // namespace

TEST_F(RecordsetTest, OpensOnTheFirstRecord) {
    EXPECT_EQ(rs.Number(L"State"), adStateClosed);
    rs.Open(database, L"people");
    EXPECT_EQ(rs.Number(L"State"), adStateOpen);
    EXPECT_EQ(rs.Number(L"RecordCount"), 3);
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), 1);
    EXPECT_FALSE(rs.Is(L"BOF") || rs.Is(L"EOF"));
    EXPECT_EQ(V_VT(&rs.Get(L"RecordCount").GetVARIANT()), VT_I4) << "as scripts know numbers";
    EXPECT_EQ(rs.Number(L"CursorType"), adOpenKeyset);
    EXPECT_EQ(rs.Number(L"LockType"), adLockOptimistic);
    EXPECT_EQ(rs.Text(L"name"), L"Ada");
    EXPECT_EQ(rs.Text(0L), L"3");
    EXPECT_EQ(rs.Number(L"EditMode"), adEditNone);
}

TEST_F(RecordsetTest, MovesToBothEndsAndNotBeyond) {
    rs.Open(database, L"people");
    EXPECT_EQ(rs.Do(L"MoveLast"), S_OK);
    EXPECT_EQ(rs.Text(L"name"), L"Cyd");
    EXPECT_EQ(rs.Do(L"MoveNext"), S_OK);
    EXPECT_TRUE(rs.Is(L"EOF"));
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), -3);
    EXPECT_EQ(ErrorOf([&] { rs.Value(L"name"); }).number, kNoRecord);
    EXPECT_EQ(rs.Do(L"MoveNext"), kNoRecord);
    rs.Put(L"AbsolutePosition", 2L);
    EXPECT_EQ(rs.Text(L"name"), L"Bob");
    EXPECT_EQ(ErrorOf([&] { rs.Put(L"AbsolutePosition", 4L); }).number, Number(Failure::InvalidArgument));
    EXPECT_EQ(rs->Move(-1, _variant_t(2L)), S_OK) << "from the last";
    EXPECT_EQ(rs.Text(L"name"), L"Bob");
}

TEST_F(RecordsetTest, BookmarksStayWithTheirRecords) {
    rs.Open(database, L"people");
    rs.Do(L"MoveLast");
    const _variant_t last = rs.Get(L"Bookmark");
    rs.Do(L"MoveFirst");
    const _variant_t first = rs.Get(L"Bookmark");
    EXPECT_EQ(rs.Do(L"Delete"), S_OK);
    EXPECT_EQ(rs.Number(L"EditMode"), adEditDelete);
    rs.Put(L"Bookmark", last);
    EXPECT_EQ(rs.Text(L"name"), L"Cyd");
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), 2);
    EXPECT_EQ(ErrorOf([&] { rs.Put(L"Bookmark", first); }).number, Number(Failure::InvalidArgument));
}

TEST_F(RecordsetTest, AnEmptyTableHasFieldsAndTakesARecord) {
    database.Do(L"delete from people");
    rs.Open(database, L"people");
    EXPECT_TRUE(rs.Is(L"BOF"));
    EXPECT_TRUE(rs.Is(L"EOF"));
    EXPECT_EQ(rs.Number(L"RecordCount"), 0);
    EXPECT_EQ(rs.Do(L"MoveFirst"), kNoRecord);
    EXPECT_EQ(TextOf(InvokeByName(rs.Field(1L).Get(), L"Name", DISPATCH_PROPERTYGET)), L"name");
    EXPECT_EQ(rs.Do(L"AddNew"), S_OK);
    rs.SetValue(L"name", L"Eve");
    EXPECT_EQ(rs.Do(L"Update"), S_OK);
    EXPECT_EQ(rs.Number(L"RecordCount"), 1);
    EXPECT_EQ(rs.Text(L"name"), L"Eve");
    EXPECT_EQ(rs.Text(L"id"), L"1") << "the number that the database gave";
}

TEST_F(RecordsetTest, WithoutAKeyItCanOnlyBeRead) {
    database.Do(L"create table plain (a integer, b text)");
    database.Do(L"insert into plain values (1, 'x'), (1, 'x')");
    for (const wchar_t* source : {L"plain", L"select count(*), max(name) from people"}) {
        Script script;
        script.Open(database, source);
        EXPECT_EQ(script.Number(L"CursorType"), adOpenStatic);
        EXPECT_EQ(script.Number(L"LockType"), adLockReadOnly);
        EXPECT_EQ(script.TrySetValue(0L, 2L), Number(Failure::FeatureNotAvailable));
        VARIANT_BOOL can = VARIANT_TRUE;
        EXPECT_EQ(script->Supports(adUpdate, &can), S_OK);
        EXPECT_EQ(can, VARIANT_FALSE);
    }
    rs.Open(database, L"plain");
    EXPECT_EQ(rs.Number(L"RecordCount"), 2);
}

TEST_F(RecordsetTest, KeysThatAreNullFindNoRow) {
    database.Do(L"create table codes (code varchar(5) primary key, a integer)");
    database.Do(L"insert into codes values (null, 1), (null, 2), ('x', 3)");
    rs.Open(database, L"codes");
    EXPECT_EQ(rs.Number(L"LockType"), adLockReadOnly);
    EXPECT_EQ(rs.Number(L"RecordCount"), 3);
    rs.Do(L"MoveNext");
    EXPECT_EQ(rs.Text(L"a"), L"2");
}

TEST_F(RecordsetTest, ForwardOnlyDoesNotGoBack) {
    const _variant_t connection = ToVariant(database.Connect());
    EXPECT_EQ(rs->Open(_variant_t(L"people"), connection, adOpenUnspecified, adLockOptimistic, -1), S_OK);
    EXPECT_EQ(rs.Number(L"CursorType"), adOpenForwardOnly);
    EXPECT_EQ(rs.Number(L"RecordCount"), -1);
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), -1);
    EXPECT_EQ(rs.Do(L"MoveFirst"), S_OK) << "it stands there";
    EXPECT_EQ(rs.Do(L"MoveNext"), S_OK);
    for (const wchar_t* back : {L"MovePrevious", L"MoveFirst", L"MoveLast"})
        EXPECT_EQ(rs.Do(back), Number(Failure::FeatureNotAvailable)) << back;
    EXPECT_EQ(ErrorOf([&] { rs.Get(L"Bookmark"); }).number, Number(Failure::FeatureNotAvailable));
    EXPECT_EQ(ErrorOf([&] { rs.Put(L"AbsolutePosition", 1L); }).number, Number(Failure::FeatureNotAvailable));
    VARIANT_BOOL can = VARIANT_TRUE;
    EXPECT_EQ(rs->Supports(adMovePrevious, &can), S_OK);
    EXPECT_EQ(can, VARIANT_FALSE);
    EXPECT_EQ(rs.Text(L"name"), L"Bob");
    rs.SetValue(L"name", L"Ben");
    EXPECT_EQ(rs.Do(L"MoveNext"), S_OK);
    EXPECT_EQ(database.Ask(L"select name from people where id = 5"), L"Ben");
}

TEST_F(RecordsetTest, CommandsAreDoneAndNamesLookedUpByTheDatabase) {
    rs.Open(database, L"update people set name = 'Zed' where id = 3");
    EXPECT_EQ(rs.Number(L"State"), adStateClosed) << "no rows";
    EXPECT_EQ(database.Ask(L"select name from people where id = 3"), L"Zed");
    EXPECT_NE(ErrorOf([&] { rs.Open(database, L"select nme from people"); }).description.find(L"nme"),
              std::wstring::npos);
    rs.Open(database, L"select rowid from people");
    EXPECT_EQ(rs.Text(0L), L"3");
}

TEST_F(RecordsetTest, AFieldIsKeptThroughCloseAndReopening) {
    rs.Open(database, L"people");
    const ComPtr<IDispatch> field = rs.Field(L"NAME");
    EXPECT_TRUE(SameObject(field.Get(), rs.Field(1L).Get()));
    const auto value = [&] { return InvokeByName(field.Get(), L"Value", DISPATCH_PROPERTYGET); };
    rs.Do(L"Close");
    EXPECT_EQ(ErrorOf(value).number, Number(Failure::ObjectClosed));
    rs.Open(database, L"select id from people");
    EXPECT_EQ(ErrorOf(value).number, Number(Failure::ItemNotFound));
    rs.Do(L"Close");
    rs.Open(database, L"people");
    EXPECT_EQ(TextOf(value()), L"Ada");
}

TEST_F(RecordsetTest, SelectsAndOddNames) {
    database.Do(L"create table \"or\"\"der by\" (\"a b\" integer, \"sel\"\"ect\" text, primary key (\"a b\"))");
    database.Do(L"insert into \"or\"\"der by\" values (1, 'one'), (2, 'two')");
    rs.Open(database, L"or\"der by");
    rs.SetValue(L"sel\"ect", L"uno");
    EXPECT_EQ(rs.Do(L"Update"), S_OK);
    EXPECT_EQ(database.Ask(L"select \"sel\"\"ect\" from \"or\"\"der by\" where \"a b\" = 1"), L"uno");
    Script script;
    script.Open(database, L"select name, size from people where id > 3 order by id desc");
    EXPECT_EQ(script.Number(L"RecordCount"), 2);
    EXPECT_EQ(script.Text(L"name"), L"Cyd");
    script.SetValue(L"size", 4L);
    EXPECT_EQ(script.Do(L"Update"), S_OK) << "the key is none of its fields";
    EXPECT_EQ(database.Ask(L"select size from people where id = 9"), L"4.0");
}

TEST_F(RecordsetTest, RequeryAndTwoRecordsetsOnOneFile) {
    Script other;
    rs.Open(database, L"people");
    other.Open(database, L"people");
    other.SetValue(L"name", L"Ann");
    EXPECT_EQ(other.Do(L"Update"), S_OK);
    EXPECT_EQ(rs.Text(L"name"), L"Ada") << "as it was read";
    EXPECT_EQ(TextOf(InvokeByName(rs.Field(L"name").Get(), L"UnderlyingValue", DISPATCH_PROPERTYGET)), L"Ann");
    rs.Do(L"MoveNext");
    rs.Do(L"MovePrevious");
    EXPECT_EQ(rs.Text(L"name"), L"Ann");
    other.Do(L"Delete");
    database.Do(L"insert into people values (11, 'Dan', 0)");
    database.Do(L"insert into people values (12, 'Eli', 0)");
    EXPECT_EQ(rs.Number(L"RecordCount"), 3) << "the keys are those of the opening";
    rs.SetValue(L"name", L"lost");
    EXPECT_EQ(FAILED(rs.Do(L"Update")), true) << "the row is gone";
    EXPECT_EQ(rs.Do(L"CancelUpdate"), S_OK);
    EXPECT_EQ(rs.Do(L"Requery"), S_OK);
    EXPECT_EQ(rs.Number(L"RecordCount"), 4);
    EXPECT_EQ(rs.Text(L"name"), L"Bob");
}

TEST_F(RecordsetTest, WhatCannotBeOpenedTellsWhy) {
    const AutomationError table = ErrorOf([&] { rs.Open(database, L"nowhere"); });
    EXPECT_NE(table.description.find(L"nowhere"), std::wstring::npos) << table.description;
    EXPECT_EQ(rs.Number(L"State"), adStateClosed);
    EXPECT_TRUE(
        FAILED(rs->Open(_variant_t(L"people"), _variant_t(L"Driver=None"), adOpenKeyset, adLockOptimistic, -1)));
    EXPECT_EQ(rs->Open(_variant_t(L"people"), Missing(), adOpenKeyset, adLockOptimistic, -1),
              Number(Failure::InvalidConnection));
    EXPECT_EQ(ErrorOf([&] { rs.Number(L"RecordCount"); }).number, Number(Failure::ObjectClosed));
    EXPECT_EQ(rs.Do(L"Close"), Number(Failure::ObjectClosed));
}

TEST_F(RecordsetTest, FieldsAreEnumeratedAndPutByTheirRecordset) {
    rs.Open(database, L"people");
    ComPtr<::Fields> fields;
    Check(rs->get_Fields(fields.GetAddressOf()));
    LONG count = 0;
    Check(fields->get_Count(&count));
    EXPECT_EQ(count, 3);
    ComPtr<IUnknown> unknown;
    Check(fields->_NewEnum(unknown.GetAddressOf()));
    const auto enumerator = Query<IEnumVARIANT>(unknown);
    _variant_t items[4];
    ULONG fetched = 0;
    EXPECT_EQ(enumerator->Next(4, items, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 3u);
    // rs("name") = "Zoe"
    VARIANT arguments[] = {_variant_t(L"Zoe").Detach(), _variant_t(L"name").Detach()};
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments, &put, 2, 1};
    EXPECT_EQ(rs->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                         nullptr, nullptr),
              S_OK);
    for (VARIANT& argument : arguments)
        VariantClear(&argument);
    EXPECT_EQ(rs.Text(L"name"), L"Zoe");
    EXPECT_EQ(ErrorOf([&] { rs.Value(L"none"); }).number, Number(Failure::ItemNotFound));
    EXPECT_EQ(ErrorOf([&] { rs.Value(3L); }).number, Number(Failure::ItemNotFound));
    EXPECT_EQ(ErrorOf([&] { rs.Value(-1L); }).number, Number(Failure::ItemNotFound));
}
