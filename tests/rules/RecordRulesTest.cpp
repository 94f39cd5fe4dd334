#include "records/FieldTypes.h"
#include "records/RecordPosition.h"
#include "records/SqlText.h"
#include "records/SqlTokens.h"

#include <gtest/gtest.h>

#include <climits>
#include <cwchar>

using namespace ormisk::records;
using Refusal = RecordPosition::Refusal;

namespace {

using Names = std::vector<std::wstring>;

constexpr wchar_t kQuote[] = L"\"";

std::optional<TableQuery> Parsed(std::wstring_view text) { return ParseSelect(text); }

} // namespace

TEST(RecordPosition, WithoutRecordsIsAtBothEndsAndGoesNowhere) {
    RecordPosition position(0);
    EXPECT_TRUE(position.AtStart());
    EXPECT_TRUE(position.AtEnd());
    EXPECT_EQ(position.Absolute(), -2);
    EXPECT_EQ(position.First(), Refusal::NoRecord);
    EXPECT_EQ(position.Last(), Refusal::NoRecord);
    EXPECT_EQ(position.By(0), Refusal::NoRecord);
    EXPECT_EQ(position.By(1), Refusal::NoRecord);
    EXPECT_EQ(position.By(-1), Refusal::NoRecord);
    EXPECT_EQ(position.To(1), Refusal::BadPosition);
}

TEST(RecordPosition, OneStepOverAnEndIsTakenAndASecondRefused) {
    RecordPosition position(2);
    EXPECT_EQ(position.By(-1), Refusal::None);
    EXPECT_TRUE(position.AtStart());
    EXPECT_FALSE(position.AtEnd());
    EXPECT_EQ(position.Absolute(), -2);
    EXPECT_EQ(position.By(-1), Refusal::NoRecord);
    EXPECT_EQ(position.By(0), Refusal::NoRecord);
    EXPECT_EQ(position.By(2), Refusal::None);
    EXPECT_EQ(position.Absolute(), 2);
    EXPECT_EQ(position.By(1), Refusal::None);
    EXPECT_TRUE(position.AtEnd());
    EXPECT_EQ(position.Absolute(), -3);
    EXPECT_EQ(position.By(1), Refusal::NoRecord);
    EXPECT_EQ(position.By(-1), Refusal::None);
    EXPECT_EQ(position.Absolute(), 2);
}

TEST(RecordPosition, FarStepsEndAtTheEnds) {
    RecordPosition position(5);
    EXPECT_EQ(position.By(LONG_MAX), Refusal::None);
    EXPECT_EQ(position.Absolute(), -3);
    EXPECT_EQ(position.By(LONG_MIN), Refusal::None);
    EXPECT_EQ(position.Absolute(), -2);
    EXPECT_EQ(position.By(LONG_MAX), Refusal::None);
    EXPECT_EQ(position.Absolute(), -3);
}

TEST(RecordPosition, ARefusedMoveChangesNothing) {
    RecordPosition position(3);
    EXPECT_EQ(position.To(2), Refusal::None);
    EXPECT_EQ(position.To(0), Refusal::BadPosition);
    EXPECT_EQ(position.To(4), Refusal::BadPosition);
    EXPECT_EQ(position.By(1, 4), Refusal::BadPosition);
    EXPECT_EQ(position.Absolute(), 2);
    EXPECT_EQ(position.By(-1, 3), Refusal::None);
    EXPECT_EQ(position.Absolute(), 2);
    EXPECT_EQ(position.By(0, 1), Refusal::None);
    EXPECT_EQ(position.Absolute(), 1);
}

TEST(RecordPosition, ADeletedRecordIsLeftToEitherSide) {
    RecordPosition position(3);
    position.To(2);
    position.Remove();
    EXPECT_TRUE(position.OnDeleted());
    EXPECT_FALSE(position.OnRecord());
    EXPECT_FALSE(position.AtStart());
    EXPECT_FALSE(position.AtEnd());
    EXPECT_EQ(position.Absolute(), -1);
    EXPECT_EQ(position.By(0), Refusal::NoRecord);
    RecordPosition back = position;
    EXPECT_EQ(position.By(1), Refusal::None);
    EXPECT_EQ(position.Absolute(), 2) << "what was the third";
    EXPECT_EQ(back.By(-1), Refusal::None);
    EXPECT_EQ(back.Absolute(), 1);
}

TEST(RecordPosition, TheLastRecordDeletedLeavesTheEnds) {
    RecordPosition position(1);
    position.Remove();
    EXPECT_TRUE(position.OnDeleted());
    RecordPosition back = position;
    EXPECT_EQ(position.By(1), Refusal::None);
    EXPECT_TRUE(position.AtStart());
    EXPECT_TRUE(position.AtEnd());
    EXPECT_EQ(back.By(-1), Refusal::None);
    EXPECT_TRUE(back.AtEnd());
    back.Append();
    EXPECT_EQ(back.Absolute(), 1);
}

TEST(SqlText, QuotesInsideANameAreDoubled) {
    EXPECT_EQ(QuoteName(L"a\"\"b", kQuote), L"\"a\"\"\"\"b\"");
    EXPECT_EQ(QuoteName(L"order", kQuote), L"\"order\"");
    EXPECT_EQ(QuoteName(L"a b", L"`"), L"`a b`");
    EXPECT_EQ(QuoteName(L"", kQuote), L"\"\"");
    EXPECT_EQ(QuoteName(L"a b", L" "), L"a b") << "a database without quotes";
    EXPECT_EQ(QuoteName(L"a", L""), L"a");
}

TEST(SqlText, ANameOfATableIsTakenAsItIs) {
    EXPECT_EQ(QueryOfTable(L"my table").table, Names{L"my table"});
    EXPECT_EQ(QueryOfTable(L"a\"b").table, Names{L"a\"b"});
    EXPECT_EQ(QueryOfTable(L"select").table, Names{L"select"});
    EXPECT_EQ(QueryOfTable(L"\"a\"\"b\"").table, Names{L"a\"b"});
    EXPECT_EQ(QueryOfTable(L"[my table]").table, Names{L"my table"});
    EXPECT_EQ(QueryOfTable(L"\"main\".\"t\"").table, (Names{L"main", L"t"}));
    EXPECT_EQ(QueryOfTable(L"\"t\" x").table, Names{L"\"t\" x"});
}

TEST(SqlText, ACommandBeginsWithItsWord) {
    EXPECT_TRUE(IsCommand(L" select * from t"));
    EXPECT_TRUE(IsCommand(L"-- all\nSELECT\n1"));
    EXPECT_TRUE(IsCommand(L"create table t (a)"));
    EXPECT_FALSE(IsCommand(L"select"));
    EXPECT_FALSE(IsCommand(L"selection"));
    EXPECT_FALSE(IsCommand(L"\"select\" x"));
    EXPECT_FALSE(IsCommand(L""));
}

TEST(SqlText, SelectOfOneTableIsTakenApart) {
    const auto all = Parsed(L"select * from t");
    ASSERT_TRUE(all);
    EXPECT_EQ(all->table, Names{L"t"});
    EXPECT_TRUE(all->columns.empty());
    const auto some =
        Parsed(L"SELECT a, \"b \"\"c\"\"\", t.[from], `x``y` FROM main . \"or der\" AS t WHERE a > '; GROUP' ;");
    ASSERT_TRUE(some);
    EXPECT_EQ(some->columns, (Names{L"a", L"b \"c\"", L"from", L"x`y"}));
    EXPECT_EQ(some->table, (Names{L"main", L"or der"}));
    EXPECT_EQ(some->alias, L"t");
    EXPECT_EQ(some->conditions, L"WHERE a > '; GROUP'");
    const auto ordered = Parsed(L"select * from t /* , u */ order by \"group\" desc -- end");
    ASSERT_TRUE(ordered);
    EXPECT_EQ(ordered->conditions, L"order by \"group\" desc");
}

TEST(SqlText, OtherSelectsHaveRowsWithoutKeys) {
    for (const wchar_t* text : {L"select count(*) from t",
                                L"select a + 1 from t",
                                L"select a as b from t",
                                L"select a b from t",
                                L"select distinct a from t",
                                L"select * from t, u",
                                L"select * from t join u on 1",
                                L"select * from t x, u",
                                L"select * from (select 1)",
                                L"select 1",
                                L"select a from t group by a",
                                L"select * from t where 1 union select 2",
                                L"select * from t; delete from t",
                                L"select a from",
                                L"select from t",
                                L"select * from t where 1; delete from t",
                                L"insert into t values (1)",
                                L"",
                                L"select 'a' from t",
                                L"select null from t",
                                L"select t.* from t"})
        EXPECT_FALSE(Parsed(text)) << std::string(text, text + std::wcslen(text));
}

TEST(SqlText, WhatNobodyClosesEndsWithTheStatement) {
    EXPECT_EQ(NextToken(L"\"abc", 0).text, L"abc");
    EXPECT_EQ(NextToken(L"\"abc", 0).end, 4u);
    EXPECT_EQ(NextToken(L"'", 0).end, 1u);
    EXPECT_EQ(NextToken(L"/* x", 0).kind, SqlToken::Kind::End);
    EXPECT_EQ(NextToken(L"--", 0).kind, SqlToken::Kind::End);
    EXPECT_EQ(NextToken(L"\u00e4\u4e16x+", 0).text, L"\u00e4\u4e16x");
}

TEST(SqlText, CommandsByKey) {
    TableQuery query = QueryOfTable(L"my \"t\"");
    const std::wstring table = L"\"my \"\"t\"\"\"";
    const Names key = {L"id", L"a b"};
    EXPECT_EQ(SelectAll(query, kQuote), L"SELECT * FROM " + table);
    EXPECT_EQ(SelectKeys(query, key, kQuote), L"SELECT \"id\", \"a b\" FROM " + table + L" ORDER BY \"id\", \"a b\"");
    EXPECT_EQ(SelectRow(query, key, kQuote), L"SELECT * FROM " + table + L" WHERE \"id\" = ? AND \"a b\" = ?");
    EXPECT_EQ(SelectNone(query, kQuote), L"SELECT * FROM " + table + L" WHERE 1 = 0");
    EXPECT_EQ(UpdateRow(query, {L"x", L"set"}, {L"id"}, kQuote),
              L"UPDATE " + table + L" SET \"x\" = ?, \"set\" = ? WHERE \"id\" = ?");
    EXPECT_EQ(InsertRow(query, {L"x", L"y"}, kQuote), L"INSERT INTO " + table + L" (\"x\", \"y\") VALUES (?, ?)");
    EXPECT_EQ(InsertRow(query, {}, kQuote), L"INSERT INTO " + table + L" DEFAULT VALUES");
    EXPECT_EQ(SelectIdentity(L"unheard of"), L"");
    EXPECT_EQ(DeleteRow(query, {L"id"}, kQuote), L"DELETE FROM " + table + L" WHERE \"id\" = ?");
}

TEST(SqlText, ConditionsAndAliasBelongToTheKeysOnly) {
    const auto query = Parsed(L"select a from s.t x where x.a > 1 order by x.b");
    ASSERT_TRUE(query);
    EXPECT_EQ(SelectKeys(*query, {L"id"}, kQuote), L"SELECT \"id\" FROM \"s\".\"t\" \"x\" where x.a > 1 order by x.b");
    const auto limited = Parsed(L"select a from t where a > 1 limit 3");
    ASSERT_TRUE(limited);
    EXPECT_EQ(SelectKeys(*limited, {L"id"}, kQuote), L"SELECT \"id\" FROM \"t\" where a > 1 limit 3");
    EXPECT_EQ(SelectRow(*query, {L"id"}, kQuote), L"SELECT \"a\" FROM \"s\".\"t\" WHERE \"id\" = ?");
}

TEST(FieldTypes, SizesAreNoBytesOrATypeThatNobodyKnowsHasNoText) {
    EXPECT_EQ(TypeOfSql(-9).type, 202);
    EXPECT_EQ(TypeOfSql(11).type, 135) << "the older number of a moment";
    EXPECT_EQ(TypeOfSql(12345).transfer, Transfer::Text) << "a type of the driver's own";
    EXPECT_EQ(DefinedSizeOf(TypeOfSql(4), 10), 4);
    EXPECT_EQ(DefinedSizeOf(TypeOfSql(8), 15), 8);
    EXPECT_EQ(DefinedSizeOf(TypeOfSql(12), 30), 30);
    EXPECT_EQ(DefinedSizeOf(TypeOfSql(-10), 0), 0x7FFFFFFF);
    EXPECT_EQ(DefinedSizeOf(TypeOfSql(-10), 0xFFFFFFFFu), 0x7FFFFFFF);
}
