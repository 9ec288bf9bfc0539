#include <climits>
#include <cstring>

#include "tests/platform/tvdbil/EngineFixture.h"

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)

class FetchTest : public EngineFixture {
 protected:
  void SetUp() override {
    EngineFixture::SetUp();
    if (connection_ == nullptr || !connection_->IsValid()) return;
    statement_ = std::make_unique<DbStatement_t>(messages_, connection_.get());
    std::memset(text_, '#', sizeof text_);
  }
  void TearDown() override { statement_.reset(); }

  void prepare(const char* sql) {
    ASSERT_EQ(statement_->BindSql(messages_, sql), DBIL_SUCCESS) << told();
  }
  void bindText(int size = sizeof text_) {
    ASSERT_EQ(statement_->BindColumn(messages_, 1, text_, &indicator_, size), DBIL_SUCCESS);
  }
  void bindInt() {
    ASSERT_EQ(statement_->BindColumn(messages_, 1, &number_, &indicator_), DBIL_SUCCESS);
  }
  void bindFloat() {
    ASSERT_EQ(statement_->BindColumn(messages_, 1, &real_, &indicator_), DBIL_SUCCESS);
  }
  DbilReturnCode run() {
    EXPECT_EQ(statement_->Exec(messages_), DBIL_SUCCESS) << told();
    return statement_->Fetch(messages_);
  }

  std::unique_ptr<DbStatement_t> statement_;
  char text_[40];
  int number_ = 4711;
  float real_ = 47.11f;
  int indicator_ = 99;
};

TEST_P(FetchTest, ATextComesWithItsLengthAndATerminator) {
  prepare("select 'Bern'");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS) << told();
  EXPECT_STREQ(text_, "Bern");
  EXPECT_EQ(indicator_, 4);
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_NO_DATA);
}

TEST_P(FetchTest, NullLeavesAZeroedTextAndANegativeIndicator) {
  prepare("select cast(null as varchar(10))");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(std::string(text_, sizeof text_), std::string(sizeof text_, '\0'));
  EXPECT_EQ(indicator_, -1);
}

TEST_P(FetchTest, NullLeavesAZeroedIntAndANegativeIndicator) {
  prepare("select cast(null as int)");
  bindInt();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, 0);
  EXPECT_EQ(indicator_, -1);
}

TEST_P(FetchTest, NullLeavesAZeroedFloatAndANegativeIndicator) {
  prepare("select cast(null as real)");
  bindFloat();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(real_, 0.0f);
  EXPECT_EQ(indicator_, -1);
}

TEST_P(FetchTest, AnEmptyTextHasTheIndicatorZero) {
  prepare("select ''");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "");
  EXPECT_EQ(indicator_, 0);
}

TEST_P(FetchTest, ATextTooLongIsCutAndTerminatedAndItsFullLengthTold) {
  prepare("select 'abcdefghij'");
  bindText(5);
  ASSERT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_STREQ(text_, "abcd");
  EXPECT_EQ(indicator_, 10);
  EXPECT_EQ(text_[5], '#') << "nothing is written behind the buffer";
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_NO_DATA);
}

TEST_P(FetchTest, ATextThatJustFitsIsNotCut) {
  prepare("select 'abcd'");
  bindText(5);
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "abcd");
  EXPECT_EQ(indicator_, 4);
}

TEST_P(FetchTest, ATextAsLongAsTheBufferLosesOneByte) {
  prepare("select 'abcde'");
  bindText(5);
  ASSERT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_STREQ(text_, "abcd");
  EXPECT_EQ(indicator_, 5);
}

TEST_P(FetchTest, ABufferOfOneByteHoldsTheTerminatorOnly) {
  prepare("select 'abcde'");
  bindText(1);
  ASSERT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(text_[0], '\0');
  EXPECT_EQ(text_[1], '#');
  EXPECT_EQ(indicator_, 5);
}

TEST_P(FetchTest, LengthsAreThoseOfUtf8InBytes) {
  prepare("select 'Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80'");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80");
  EXPECT_EQ(indicator_, 16);
}

TEST_P(FetchTest, ALongTextIsReadWhole) {
  mustExecute({"create table long_text (a varchar(2000))"});
  const std::string value = std::string(1990, 'x') + "end";
  ASSERT_EQ(execute("insert into long_text values ('" + value + "')"), DBIL_SUCCESS) << told();
  prepare("select a from long_text");
  char wide[2001];
  ASSERT_EQ(statement_->BindColumn(messages_, 1, wide, &indicator_, sizeof wide), DBIL_SUCCESS);
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(wide, value);
  EXPECT_EQ(indicator_, 1993);
}

TEST_P(FetchTest, AnIntComesWithTheLengthOfAnInt) {
  prepare("select -2147483647");
  bindInt();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, -2147483647);
  EXPECT_EQ(indicator_, 4);
}

TEST_P(FetchTest, AnIntColumnIsFetchedAsText) {
  mustExecute({"create table ints (a int)", "insert into ints values (-1234)"});
  prepare("select a from ints");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS) << told();
  EXPECT_STREQ(text_, "-1234");
  EXPECT_EQ(indicator_, 5);
}

TEST_P(FetchTest, ACountIsFetchedAsAnInt) {
  mustExecute({"create table ints (a int)", "insert into ints values (1), (2), (3)"});
  prepare("select count(*) from ints");
  bindInt();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, 3);
  EXPECT_EQ(indicator_, 4);
}

TEST_P(FetchTest, ATextColumnOfDigitsIsFetchedAsAnInt) {
  mustExecute({"create table texts (a varchar(20))", "insert into texts values ('42')"});
  prepare("select a from texts");
  bindInt();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, 42);
}

TEST_P(FetchTest, ATextWithoutANumberIsZeroWithInfo) {
  prepare("select 'Bern'");
  bindInt();
  EXPECT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, 0);
}

TEST_P(FetchTest, AnIntBeyondThirtyTwoBitsIsTheNearestWithInfo) {
  prepare("select 12345678901");
  bindInt();
  EXPECT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, INT_MAX);
  prepare("select -12345678901");
  bindInt();
  EXPECT_EQ(run(), DBIL_SUCCESS_WITH_INFO);
  EXPECT_EQ(number_, INT_MIN);
}

TEST_P(FetchTest, AFloatColumnIsFetchedAsAFloat) {
  mustExecute({"create table reals (a real)", "insert into reals values (3.25)"});
  prepare("select a from reals");
  bindFloat();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_FLOAT_EQ(real_, 3.25f);
  EXPECT_EQ(indicator_, 4);
}

TEST_P(FetchTest, AFloatColumnIsFetchedAsAnIntAndAnIntColumnAsAFloat) {
  mustExecute({"create table reals (a real, b int)", "insert into reals values (-3.75, 7)"});
  prepare("select a, b from reals");
  bindInt();
  ASSERT_EQ(statement_->BindColumn(messages_, 2, &real_, nullptr), DBIL_SUCCESS);
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, -3);
  EXPECT_FLOAT_EQ(real_, 7.0f);
}

TEST_P(FetchTest, RowsComeOneByOneIntoTheSameVariables) {
  prepare("select 1 union all select 2 union all select 3");
  bindInt();
  ASSERT_EQ(statement_->Exec(messages_), DBIL_SUCCESS);
  for (int row = 1; row <= 3; ++row) {
    ASSERT_EQ(statement_->Fetch(messages_), DBIL_SUCCESS);
    EXPECT_EQ(number_, row);
  }
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_NO_DATA);
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_NO_DATA) << "the end stays the end";
}

TEST_P(FetchTest, ANullBetweenValuesTouchesItsOwnRowOnly) {
  mustExecute({"create table gaps (n int, a varchar(20))",
               "insert into gaps values (1, 'one'), (2, null), (3, 'three')"});
  prepare("select a from gaps order by n");
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "one");
  ASSERT_EQ(statement_->Fetch(messages_), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "");
  EXPECT_EQ(indicator_, -1);
  ASSERT_EQ(statement_->Fetch(messages_), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "three");
  EXPECT_EQ(indicator_, 5);
}

TEST_P(FetchTest, AQueryWithoutRowsEndsAtOnceAndLeavesTheVariables) {
  prepare("select 1 where 1 = 2");
  bindInt();
  EXPECT_EQ(run(), DBIL_NO_DATA);
  EXPECT_EQ(number_, 4711);
  EXPECT_EQ(indicator_, 99);
}

TEST_P(FetchTest, ColumnsMayBeBoundInPartAndInAnyOrder) {
  prepare("select 1, 'skipped', 'three', 4");
  int last = 0;
  ASSERT_EQ(statement_->BindColumn(messages_, 4, &last, &indicator_), DBIL_SUCCESS);
  ASSERT_EQ(statement_->BindColumn(messages_, 3, text_, nullptr, sizeof text_), DBIL_SUCCESS);
  ASSERT_EQ(statement_->BindColumn(messages_, 1, &number_, nullptr), DBIL_SUCCESS);
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_EQ(number_, 1);
  EXPECT_STREQ(text_, "three");
  EXPECT_EQ(last, 4);
}

TEST_P(FetchTest, AColumnMayBeBoundAnewBetweenTwoExecutions) {
  prepare("select 42");
  bindInt();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  bindText();
  ASSERT_EQ(run(), DBIL_SUCCESS);
  EXPECT_STREQ(text_, "42");
}

TEST_P(FetchTest, AColumnBeyondTheResultIsRefusedAtExecution) {
  prepare("select 1");
  ASSERT_EQ(statement_->BindColumn(messages_, 2, &number_, &indicator_), DBIL_SUCCESS);
  EXPECT_EQ(statement_->Exec(messages_), DBIL_ERROR);
  EXPECT_THAT(told(), testing::HasSubstr("Column 2 is bound, but the result has 1"));
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_ERROR);
}

TEST_P(FetchTest, AChangeWithABoundColumnIsRefusedAndNotDone) {
  mustExecute({"create table ints (a int)"});
  prepare("insert into ints values (1)");
  bindInt();
  EXPECT_EQ(statement_->Exec(messages_), DBIL_ERROR);
  EXPECT_EQ(ask("select count(*) from ints"), "0");
}

TEST_P(FetchTest, WhatCannotBeBoundIsRefusedWhenItIsBound) {
  EXPECT_EQ(statement_->BindColumn(messages_, 1, &number_, &indicator_), DBIL_ERROR)
      << "nothing is prepared yet";
  prepare("select 1");
  EXPECT_EQ(statement_->BindColumn(messages_, 0, &number_, &indicator_), DBIL_OUT_OF_RANGE);
  EXPECT_EQ(statement_->BindColumn(messages_, 1, static_cast<int*>(nullptr), &indicator_),
            DBIL_ERROR);
  EXPECT_EQ(statement_->BindColumn(messages_, 1, text_, &indicator_, 0), DBIL_OUT_OF_RANGE);
}

TEST_P(FetchTest, ThereIsNothingToFetchBeforeAnExecution) {
  prepare("select 1");
  bindInt();
  EXPECT_EQ(statement_->Fetch(messages_), DBIL_ERROR);
}

TEST_P(FetchTest, ThereIsNothingToFetchFromAChange) {
  mustExecute({"create table ints (a int)"});
  prepare("insert into ints values (1)");
  EXPECT_EQ(run(), DBIL_NO_DATA);
}

TEST_P(FetchTest, LikeTellsCasesApart) {
  EXPECT_EQ(ask("select 1 where 'Router' like 'router%'"), "none");
  EXPECT_EQ(ask("select 1 where 'Router' like 'Router%'"), "1");
}

ZNTOPO_ON_ENGINES(FetchTest, kEngines);

}  // namespace
}  // namespace zntopo::test
