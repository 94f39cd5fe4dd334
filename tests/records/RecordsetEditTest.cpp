#include "Tools.h"

using namespace ormisk;
using namespace ormisk::records;
using namespace ormisk::records::test;

namespace {

class RecordsetEditTest : public testing::Test {
protected:
    RecordsetEditTest() {
        database.Do(L"create table things (id integer primary key, word varchar(20) not null unique, number integer, "
                    L"size double, day date, moment timestamp, flag bit, data blob, story text, price decimal(10,2), "
                    L"clock time, ratio real)");
        database.Do(L"insert into things (id, word) values (1, 'one'), (2, 'two')");
        rs.Open(database, L"things");
    }
    // What a field gives back after its value was written and read anew.
    _variant_t RoundTrip(const wchar_t* field, const _variant_t& value) {
        rs.SetValue(field, value);
        EXPECT_EQ(rs.Do(L"Update"), S_OK);
        EXPECT_EQ(rs.Do(L"Requery"), S_OK);
        return rs.Value(field);
    }
    Database database;
    Script rs;
};

} // namespace

TEST_F(RecordsetEditTest, ValuesOfEachTypeComeBack) {
    const _variant_t date(45000.0, VT_DATE);
    const _variant_t moment(45000.5, VT_DATE);
    EXPECT_EQ(TextOf(RoundTrip(L"word", L"\u4e16\u754c \u00e4'\"")), L"\u4e16\u754c \u00e4'\"");
    EXPECT_EQ(static_cast<long>(RoundTrip(L"number", L"-17")), -17);
    EXPECT_EQ(static_cast<double>(RoundTrip(L"size", 2.25)), 2.25);
    EXPECT_EQ(CompareValues(RoundTrip(L"day", date), date), Comparison::Equal) << TextOf(rs.Value(L"day"));
    EXPECT_EQ(CompareValues(RoundTrip(L"moment", moment), moment), Comparison::Equal) << TextOf(rs.Value(L"moment"));
    EXPECT_EQ(V_VT(&RoundTrip(L"flag", true).GetVARIANT()), VT_BOOL);
    EXPECT_TRUE(static_cast<bool>(rs.Value(L"flag")));
    const std::wstring story(50000, L'\u0416');
    EXPECT_TRUE(TextOf(RoundTrip(L"story", ToVariant(story))) == story);
    EXPECT_TRUE(BytesOf(RoundTrip(L"data", FromBytes(std::string("a\0b", 3)))) == std::string("a\0b", 3));
    EXPECT_EQ(CompareValues(RoundTrip(L"clock", moment), _variant_t(0.5, VT_DATE)), Comparison::Equal);
    EXPECT_EQ(static_cast<double>(RoundTrip(L"ratio", 1e300)), 1e300) << "also where the column tells of less";
    _variant_t variable(31L);
    _variant_t reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &variable;
    EXPECT_EQ(static_cast<long>(RoundTrip(L"number", reference)), 31);
    EXPECT_EQ(TextOf(RoundTrip(L"price", L"12.5")), L"12.5");
    EXPECT_TRUE(IsNull(RoundTrip(L"number", NullValue())));
    EXPECT_TRUE(IsNull(RoundTrip(L"day", NullValue())));
    EXPECT_EQ(database.Ask(L"select day is null from things where id = 1"), L"1");
}

TEST_F(RecordsetEditTest, AnEditIsSeenUndoneAndWritten) {
    rs.SetValue(L"number", 5L);
    EXPECT_EQ(rs.Number(L"EditMode"), adEditInProgress);
    EXPECT_EQ(rs.Text(L"number"), L"5");
    EXPECT_TRUE(IsNull(InvokeByName(rs.Field(L"number").Get(), L"OriginalValue", DISPATCH_PROPERTYGET)));
    EXPECT_EQ(rs.Do(L"Close"), Number(Failure::IllegalOperation));
    EXPECT_EQ(rs.Do(L"Requery"), Number(Failure::IllegalOperation));
    EXPECT_EQ(rs.Do(L"CancelUpdate"), S_OK);
    EXPECT_TRUE(IsNull(rs.Value(L"number")));
    rs.SetValue(L"number", 6L);
    EXPECT_EQ(rs.Do(L"MoveNext"), S_OK) << "a move writes first";
    EXPECT_EQ(database.Ask(L"select number from things where id = 1"), L"6");
    EXPECT_EQ(rs.TrySetValue(L"number", L"many"), Number(Failure::DataConversion));
    EXPECT_EQ(rs.TrySetValue(L"number", 1e300), Number(Failure::DataConversion));
    EXPECT_EQ(rs.TrySetValue(L"number", FromBytes("ab")), Number(Failure::DataConversion));
    EXPECT_EQ(rs.Number(L"EditMode"), adEditNone);
    EXPECT_EQ(rs.Do(L"Close"), S_OK);
}

TEST_F(RecordsetEditTest, ARefusedUpdateLeavesBufferAndRecord) {
    rs.SetValue(L"word", L"two");
    const AutomationError error = ErrorOf([&] { InvokeByName(rs.Get(), L"Update", DISPATCH_METHOD); });
    EXPECT_NE(error.description.find(L"UNIQUE"), std::wstring::npos) << error.description << error.number;
    EXPECT_TRUE(FAILED(rs.Do(L"MoveNext")));
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), 1);
    EXPECT_EQ(rs.Text(L"word"), L"two");
    EXPECT_EQ(rs.Number(L"EditMode"), adEditInProgress);
    EXPECT_EQ(database.Ask(L"select word from things where id = 1"), L"one");
    EXPECT_EQ(rs.Do(L"CancelUpdate"), S_OK);
    rs.SetValue(L"word", NullValue());
    EXPECT_TRUE(FAILED(rs.Do(L"Update")));
    EXPECT_EQ(rs.Do(L"CancelUpdate"), S_OK);
    EXPECT_EQ(rs.Text(L"word"), L"one");
}

TEST_F(RecordsetEditTest, ARecordIsAddedAndGivenUp) {
    rs.Do(L"MoveLast");
    EXPECT_EQ(rs.Do(L"AddNew"), S_OK);
    EXPECT_EQ(rs.Number(L"EditMode"), adEditAdd);
    EXPECT_TRUE(IsNull(rs.Value(L"word")));
    EXPECT_TRUE(FAILED(rs.Do(L"Update"))) << "a word is needed";
    EXPECT_EQ(rs.Number(L"EditMode"), adEditAdd);
    EXPECT_EQ(rs.Do(L"CancelUpdate"), S_OK);
    EXPECT_EQ(rs.Text(L"word"), L"two");
    EXPECT_EQ(rs->AddNew(_variant_t(L"word"), _variant_t(L"three")), S_OK);
    EXPECT_EQ(rs.Number(L"RecordCount"), 3);
    EXPECT_EQ(rs.Number(L"AbsolutePosition"), 3);
    EXPECT_EQ(rs.Text(L"id"), L"3");
    rs.SetValue(L"id", 7L);
    EXPECT_EQ(rs.Do(L"Update"), S_OK) << "the key itself";
    EXPECT_EQ(rs.Text(L"word"), L"three");
    EXPECT_EQ(rs.Do(L"Delete"), S_OK);
    EXPECT_EQ(database.Ask(L"select count(*) from things"), L"2");
    EXPECT_EQ(rs.Do(L"MovePrevious"), S_OK);
    EXPECT_EQ(rs.Text(L"word"), L"two");
}

TEST_F(RecordsetEditTest, ABatchIsWrittenAsAWholeOrNotAtAll) {
    Script batch;
    batch.Open(database, L"things", adLockBatchOptimistic);
    EXPECT_EQ(batch.Number(L"LockType"), adLockBatchOptimistic);
    VARIANT_BOOL can = VARIANT_FALSE;
    EXPECT_EQ(batch->Supports(adUpdateBatch, &can), S_OK);
    EXPECT_EQ(can, VARIANT_TRUE);
    EXPECT_EQ(batch.Do(L"AddNew"), Number(Failure::FeatureNotAvailable));
    batch.SetValue(L"number", 1L);
    EXPECT_EQ(batch.Do(L"MoveNext"), S_OK);
    batch.SetValue(L"word", L"one");
    EXPECT_EQ(batch.Do(L"MoveFirst"), S_OK);
    EXPECT_EQ(batch.Text(L"number"), L"1");
    EXPECT_EQ(database.Ask(L"select number is null from things where id = 1"), L"1");
    EXPECT_TRUE(FAILED(batch.Do(L"UpdateBatch"))) << "two of a word";
    EXPECT_EQ(database.Ask(L"select number is null from things where id = 1"), L"1");
    batch.SetValue(L"word", L"uno");
    EXPECT_EQ(batch.Do(L"UpdateBatch"), S_OK);
    EXPECT_EQ(database.Ask(L"select number || word from things where id = 1"), L"1uno");
    EXPECT_EQ(database.Ask(L"select word from things where id = 2"), L"one");
    batch.SetValue(L"number", 2L);
    EXPECT_EQ(batch.Do(L"Update"), S_OK);
    EXPECT_EQ(batch.Do(L"CancelBatch"), S_OK);
    EXPECT_EQ(batch.Text(L"number"), L"1");
}

TEST_F(RecordsetEditTest, AFileThatCannotBeWrittenSaysSo) {
    Script reader;
    Check(
        reader->Open(_variant_t(L"things"), ToVariant(database.ConnectReadOnly()), adOpenKeyset, adLockOptimistic, -1));
    reader.SetValue(L"number", 1L);
    const AutomationError error = ErrorOf([&] { InvokeByName(reader.Get(), L"Update", DISPATCH_METHOD); });
    EXPECT_NE(error.description.find(L"readonly"), std::wstring::npos) << error.description;
    EXPECT_EQ(reader.Text(L"number"), L"1");
    EXPECT_EQ(reader.Do(L"CancelUpdate"), S_OK);
    EXPECT_TRUE(IsNull(reader.Value(L"number")));
}

TEST_F(RecordsetEditTest, AFileThatIsLockedSaysSo) {
    Script waiting;
    Check(waiting->Open(_variant_t(L"things"), ToVariant(database.Connect(L"Timeout=50;")), adOpenKeyset,
                        adLockOptimistic, -1));
    waiting.SetValue(L"number", 1L);
    const records::Connection other(database.Connect());
    Statement(other, L"begin immediate").Execute();
    const AutomationError error = ErrorOf([&] { InvokeByName(waiting.Get(), L"Update", DISPATCH_METHOD); });
    EXPECT_NE(error.description.find(L"locked"), std::wstring::npos) << error.description;
    EXPECT_EQ(waiting.Number(L"EditMode"), adEditInProgress);
    Statement(other, L"rollback").Execute();
    EXPECT_EQ(waiting.Do(L"Update"), S_OK) << "tried again";
    EXPECT_EQ(database.Ask(L"select number from things where id = 1"), L"1");
}

TEST_F(RecordsetEditTest, FieldsTellWhatTheyAre) {
    const auto ask = [&](const wchar_t* field, const wchar_t* property) {
        return static_cast<long>(InvokeByName(rs.Field(field).Get(), property, DISPATCH_PROPERTYGET));
    };
    EXPECT_EQ(ask(L"id", L"Attributes") & (adFldKeyColumn | adFldUpdatable), adFldKeyColumn | adFldUpdatable);
    EXPECT_EQ(ask(L"word", L"Attributes") & adFldIsNullable, 0);
    EXPECT_NE(ask(L"number", L"Attributes") & adFldIsNullable, 0);
    EXPECT_EQ(ask(L"number", L"Type"), adInteger);
    EXPECT_TRUE(ask(L"word", L"Type") == adVarWChar || ask(L"word", L"Type") == adVarChar);
    EXPECT_EQ(ask(L"word", L"DefinedSize"), 20);
    EXPECT_EQ(ask(L"word", L"ActualSize"), 6);
    EXPECT_EQ(ask(L"size", L"Type"), adDouble);
    EXPECT_EQ(ask(L"day", L"Type"), adDBDate);
    EXPECT_EQ(ask(L"moment", L"Type"), adDBTimeStamp);
    EXPECT_EQ(ask(L"flag", L"Type"), adBoolean);
    EXPECT_TRUE(ask(L"data", L"Type") == adLongVarBinary || ask(L"data", L"Type") == adBinary);
    EXPECT_TRUE(ask(L"story", L"Type") == adLongVarWChar || ask(L"story", L"Type") == adLongVarChar);
}
