#include "tests/platform/tvdbil/EngineFixture.h"

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)

class StatementTest : public EngineFixture {
 protected:
  void SetUp() override {
    EngineFixture::SetUp();
    if (connection_ != nullptr) {
      mustExecute(
          {"create table t (id int primary key, name varchar(60) check (length(name) < 50))",
           "insert into t values (1, 'one')", "insert into t values (2, 'two')"});
    }
  }

  /// The code of the first step that fails, be it the preparation or the execution.
  DbilReturnCode failureOf(const std::string& sql) { return execute(sql); }
};

TEST_P(StatementTest, TwoStatementsInATextAreRefusedAndNeitherIsDone) {
  for (const char* sql : {"insert into t values (3, 'x'); delete from t where id = 1",
                          "select id from t; delete from t", "delete from t; -- \n select 1",
                          "; delete from t; select 1"}) {
    DbStatement_t statement(messages_, connection_.get());
    EXPECT_EQ(statement.BindSql(messages_, sql), DBIL_ERROR) << sql;
    EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR) << "nothing is prepared";
  }
  EXPECT_THAT(told(), testing::HasSubstr("more than one statement"));
  EXPECT_EQ(ask("select count(*) from t"), "2");
}

TEST_P(StatementTest, ANameThatClosesItsQuoteCannotAddAStatement) {
  EXPECT_EQ(execute("select id from t where name = 'x'; delete from t where name like '%'"),
            DBIL_ERROR);
  EXPECT_EQ(ask("select count(*) from t"), "2");
}

TEST_P(StatementTest, SemicolonsInQuotesAndCommentsAndAtTheEndAreNoSeparators) {
  EXPECT_EQ(ask("select 'a;b' /* ; */ -- ; \n ;  "), "a;b");
  EXPECT_EQ(ask("select \"x;y\" from (select 'it''s; ok' as \"x;y\") z; /* end; */ -- end;"),
            "it's; ok");
}

TEST_P(StatementTest, ATextWithoutAStatementIsRefused) {
  for (const char* sql : {"", "   ", ";", "-- nothing", "/* nothing */ ;"}) {
    EXPECT_EQ(failureOf(sql), DBIL_ERROR) << '"' << sql << '"';
  }
  DbStatement_t statement(messages_, connection_.get());
  EXPECT_EQ(statement.BindSql(messages_, nullptr), DBIL_ERROR);
}

TEST_P(StatementTest, ATextThatIsNotUtf8IsRefused) {
  DbStatement_t statement(messages_, connection_.get());
  EXPECT_EQ(statement.BindSql(messages_, "select 'Z\xFCrich'"), DBIL_ERROR);
  ASSERT_EQ(statement.BindSql(messages_, "select id from t where name = ?"), DBIL_SUCCESS);
  char name[] = "Z\xFCrich";
  ASSERT_EQ(statement.BindParm(messages_, 1, name, false), DBIL_SUCCESS);
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR);
}

TEST_P(StatementTest, ASyntaxErrorShowsAtPreparationOrAtExecution) {
  EXPECT_EQ(failureOf("selec 1"), DBIL_PERMISSION_SYNTAX);
  EXPECT_THAT(told(), testing::HasSubstr("selec"));
}

TEST_P(StatementTest, AMissingTableShowsAtPreparationOrAtExecution) {
  EXPECT_EQ(failureOf("select a from missing"), DBIL_PERMISSION_SYNTAX);
  EXPECT_THAT(told(), testing::HasSubstr("missing"));
}

TEST_P(StatementTest, AMissingColumnShowsAtPreparationOrAtExecution) {
  EXPECT_EQ(failureOf("select missing from t"), DBIL_PERMISSION_SYNTAX);
}

TEST_P(StatementTest, AFailureTellsTheDriversTextItsCodeAndTheStatement) {
  failureOf("insert into t values (1, 'again')");
  EXPECT_THAT(told(), testing::HasSubstr("insert into t values (1, 'again')"));
  EXPECT_THAT(told(), testing::AnyOf(testing::HasSubstr("SQLSTATE 23505"),
                                     testing::HasSubstr("UNIQUE constraint failed: t.id")));
  EXPECT_THAT(told(),
              testing::AnyOf(testing::HasSubstr("SQLSTATE"), testing::HasSubstr("SQLite 1555")));
}

TEST_P(StatementTest, AKeyThatIsThereAlreadyViolatesAConstraint) {
  EXPECT_EQ(failureOf("insert into t values (1, 'again')"), DBIL_CONSTRAINT_VIOLATION);
}

TEST_P(StatementTest, AValueThatACheckRefusesViolatesAConstraint) {
  EXPECT_EQ(failureOf("insert into t values (9, '" + std::string(55, 'x') + "')"),
            DBIL_CONSTRAINT_VIOLATION);
}

TEST_P(StatementTest, AForeignKeyIsKept) {
  mustExecute({"create table c (t int references t (id))"});
  EXPECT_EQ(failureOf("insert into c values (77)"), DBIL_CONSTRAINT_VIOLATION);
}

TEST_P(StatementTest, AnUpdateOfNoRowsSucceeds) {
  EXPECT_EQ(execute("update t set name = 'x' where id = 99"), DBIL_SUCCESS) << told();
  EXPECT_EQ(execute("delete from t where id = 99"), DBIL_SUCCESS) << told();
}

TEST_P(StatementTest, AFailedStatementLeavesTheConnectionUsable) {
  EXPECT_NE(failureOf("selec 1"), DBIL_SUCCESS);
  EXPECT_EQ(ask("select name from t where id = 2"), "two");
}

TEST_P(StatementTest, ParametersAreReadByEachExecution) {
  DbStatement_t statement(messages_, connection_.get());
  int id = 10;
  char name[50] = "ten";
  ASSERT_EQ(statement.BindSql(messages_, "insert into t values (?, ?)"), DBIL_SUCCESS) << told();
  ASSERT_EQ(statement.BindParm(messages_, 1, &id, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 2, name, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  id = 11;
  strcpy(name, "Z\xC3\xBCrich's; \"quoted\" \xF0\x9F\x98\x80 \\");
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(ask("select name from t where id = 10"), "ten");
  EXPECT_EQ(ask("select name from t where id = 11"), name);
}

TEST_P(StatementTest, ANullParameterIsNull) {
  DbStatement_t statement(messages_, connection_.get());
  ASSERT_EQ(statement.BindSql(messages_, "update t set name = ? where id = ?"), DBIL_SUCCESS);
  const int id = 1;
  ASSERT_EQ(statement.BindParm(messages_, 1, static_cast<char*>(nullptr), true), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 2, &id, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(ask("select name from t where id = 1"), "NULL");
}

TEST_P(StatementTest, ANullIntParameterMatchesNothing) {
  DbStatement_t statement(messages_, connection_.get());
  const int ignored = 1;
  ASSERT_EQ(statement.BindSql(messages_, "delete from t where id = ?"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 1, &ignored, true), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(ask("select count(*) from t"), "2");
}

TEST_P(StatementTest, AnEmptyTextParameterIsNotNull) {
  DbStatement_t statement(messages_, connection_.get());
  char empty[] = "";
  ASSERT_EQ(statement.BindSql(messages_, "update t set name = ? where id = 1"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 1, empty, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(ask("select name from t where id = 1"), "");
}

TEST_P(StatementTest, AParameterThatIsNotBoundIsRefusedAtExecution) {
  DbStatement_t statement(messages_, connection_.get());
  const int id = 3;
  ASSERT_EQ(statement.BindSql(messages_, "insert into t values (?, ?)"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 1, &id, false), DBIL_SUCCESS);
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR);
  EXPECT_THAT(told(), testing::HasSubstr("Parameter 2 is not bound"));
  EXPECT_EQ(ask("select count(*) from t"), "2");
}

TEST_P(StatementTest, AMarkThatAnUnescapedQuoteLetsInIsRefusedAtExecution) {
  EXPECT_EQ(failureOf("select id from t where name = 'x' or name = ? or name = 'y'"), DBIL_ERROR);
  EXPECT_EQ(ask("select 'no mark: ?'"), "no mark: ?");
}

TEST_P(StatementTest, AParameterBeyondTheMarksIsRefusedAtExecution) {
  DbStatement_t statement(messages_, connection_.get());
  const int id = 1;
  ASSERT_EQ(statement.BindSql(messages_, "select name from t where id = ?"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 1, &id, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 2, &id, false), DBIL_SUCCESS);
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR);
}

TEST_P(StatementTest, WhatIsNoParameterIsRefusedWhenItIsBound) {
  DbStatement_t statement(messages_, connection_.get());
  const int id = 1;
  EXPECT_EQ(statement.BindParm(messages_, 1, &id, false), DBIL_ERROR) << "nothing is prepared yet";
  ASSERT_EQ(statement.BindSql(messages_, "select name from t where id = ?"), DBIL_SUCCESS);
  EXPECT_EQ(statement.BindParm(messages_, 0, &id, false), DBIL_OUT_OF_RANGE);
  EXPECT_EQ(statement.BindParm(messages_, 1, static_cast<int*>(nullptr), false), DBIL_ERROR);
}

TEST_P(StatementTest, AStatementIsExecutedAgainBeforeItsRowsAreAllFetched) {
  DbStatement_t statement(messages_, connection_.get());
  int found = 0;
  int indicator = 0;
  int least = 1;
  ASSERT_EQ(statement.BindSql(messages_, "select id from t where id >= ? order by id"),
            DBIL_SUCCESS);
  ASSERT_EQ(statement.BindColumn(messages_, 1, &found, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindParm(messages_, 1, &least, false), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
  ASSERT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
  EXPECT_EQ(found, 1);
  least = 2;
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  ASSERT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
  EXPECT_EQ(found, 2);
  EXPECT_EQ(statement.Fetch(messages_), DBIL_NO_DATA);
}

TEST_P(StatementTest, AStatementTakesAnotherTextAndForgetsItsBindings) {
  DbStatement_t statement(messages_, connection_.get());
  int number = 0;
  int indicator = 0;
  ASSERT_EQ(statement.BindSql(messages_, "select id, name, 3 from t"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindColumn(messages_, 3, &number, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindSql(messages_, "select 7"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindColumn(messages_, 1, &number, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  ASSERT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
  EXPECT_EQ(number, 7);
}

TEST_P(StatementTest, StatementsOfOneConnectionAreFetchedInTurns) {
  DbStatement_t one(messages_, connection_.get());
  DbStatement_t two(messages_, connection_.get());
  int first = 0;
  int second = 0;
  int indicator = 0;
  ASSERT_EQ(one.BindSql(messages_, "select id from t order by id"), DBIL_SUCCESS);
  ASSERT_EQ(two.BindSql(messages_, "select id from t order by id desc"), DBIL_SUCCESS);
  ASSERT_EQ(one.BindColumn(messages_, 1, &first, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(two.BindColumn(messages_, 1, &second, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(one.Exec(messages_), DBIL_SUCCESS);
  ASSERT_EQ(two.Exec(messages_), DBIL_SUCCESS);
  for (int row = 1; row <= 2; ++row) {
    ASSERT_EQ(one.Fetch(messages_), DBIL_SUCCESS) << told();
    ASSERT_EQ(two.Fetch(messages_), DBIL_SUCCESS) << told();
    EXPECT_EQ(first, row);
    EXPECT_EQ(second, 3 - row);
  }
}

TEST_P(StatementTest, AConnectionByValueBehavesTheSame) {
  DbStatement_t statement(messages_, *connection_);
  int number = 0;
  int indicator = 0;
  ASSERT_EQ(statement.BindSql(messages_, "select id from t where name = 'two'"), DBIL_SUCCESS);
  ASSERT_EQ(statement.BindColumn(messages_, 1, &number, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
  ASSERT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
  EXPECT_EQ(number, 2);
}

TEST_P(StatementTest, AStatementOutlivesTheConnectionThatItWasMadeFrom) {
  DbStatement_t statement(messages_, connection_.get());
  connection_.reset();
  ASSERT_EQ(statement.BindSql(messages_, "select id from t"), DBIL_SUCCESS);
  EXPECT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
  EXPECT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
}

TEST_P(StatementTest, AnIdentifierListWithoutMembersIsAnErrorOnOneEngineOnly) {
  const DbilReturnCode code = failureOf("select id from t where id in ()");
  EXPECT_EQ(code, engine_->isPostgres() ? DBIL_PERMISSION_SYNTAX : DBIL_SUCCESS);
}

ZNTOPO_ON_ENGINES(StatementTest, kEngines);

TEST(StatementWithoutConnectionTest, EveryOperationSaysThatTheHandleIsInvalid) {
  MessageList_t messages;
  const DbSource_t source(messages, "/no/such/folder/topology.db");
  DbConnection_t connection(messages, &source);
  ASSERT_FALSE(connection.IsValid());
  int number = 0;
  float real = 0;
  char text[5] = "";
  int indicator = 0;
  for (DbConnection_t* handle : {&connection, static_cast<DbConnection_t*>(nullptr)}) {
    DbStatement_t statement(messages, handle);
    EXPECT_EQ(statement.BindSql(messages, "select 1"), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.BindColumn(messages, 1, &number, &indicator), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.BindColumn(messages, 1, &real, &indicator), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.BindColumn(messages, 1, text, &indicator, 5), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.BindParm(messages, 1, &number, false), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.BindParm(messages, 1, text, false), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.Exec(messages), DBIL_INVALID_HANDLE);
    EXPECT_EQ(statement.Fetch(messages), DBIL_INVALID_HANDLE);
  }
}

}  // namespace
}  // namespace zntopo::test
