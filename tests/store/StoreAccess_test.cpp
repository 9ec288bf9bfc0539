#include "zntopo/store/StoreAccess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/CapturedLog.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

enum NodeColumn { kId, kName, kLevel, kNodeColumns };
constexpr Column kNode[] = {textColumn("ObjId", 37), textColumn("EntityName", 8),
                            intColumn("IPLevel")};
static_assert(std::size(kNode) == kNodeColumns);
constexpr AccessTexts kTexts{.column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding nodes"}};
const std::string kSql = "select ObjId, EntityName, IPLevel from nwnode order by ObjId";

/// A text column without room: it can't be bound.
constexpr Column kUnbindable[] = {textColumn("ObjId", 37), textColumn("EntityName", 0)};

class StoreAccessTest : public StoreTest {
 protected:
  void addNode(const std::string& id, const Value& name, const Value& level) {
    store_->insert("nwnode", {{"ObjId", id}, {"EntityName", name}, {"IPLevel", level}});
  }

  /// The identifiers of the rows that a statement delivers.
  std::vector<std::string> read(const AccessTexts& texts = kTexts) {
    std::vector<std::string> ids;
    EXPECT_TRUE(runQuery(kSql, kNode, texts, status_, [&](const Row& row) {
      ids.emplace_back(row.text(kId));
      return true;
    }));
    return ids;
  }

  bool runIgnoringRows(const std::string& sql, ColumnList columns, const AccessTexts& texts) {
    return runQuery(sql, columns, texts, status_, [](const Row&) { return true; });
  }

  ZNTopoAPIStatus status_;
};

ZNTOPO_ON_ENGINES(StoreAccessTest, kEngines);

TEST_P(StoreAccessTest, ARowHasItsValuesByTheEnumerationOfItsColumns) {
  addNode("n1", "core", 4);
  int rows = 0;
  EXPECT_TRUE(runQuery(kSql, kNode, kTexts, status_, [&](const Row& row) {
    ++rows;
    EXPECT_STREQ(row.text(kId), "n1");
    EXPECT_STREQ(row.text(kName), "core");
    EXPECT_EQ(row.integer(kLevel), 4);
    EXPECT_TRUE(row.isPresent(kId));
    EXPECT_TRUE(row.isPresent(kName));
    EXPECT_TRUE(row.isPresent(kLevel));
    EXPECT_EQ(row.indicator(kName), 4);
    EXPECT_EQ(row.indicator(kLevel), 4);
    return true;
  }));
  EXPECT_EQ(rows, 1);
  EXPECT_TRUE(status_.isOK());
}

TEST_P(StoreAccessTest, ANullIsAbsentAndReadsAsNothing) {
  addNode("n1", "core", 4);
  addNode("n2", nullptr, nullptr);
  std::vector<std::string> names;
  runQuery(kSql, kNode, kTexts, status_, [&](const Row& row) {
    names.emplace_back(row.text(kName));
    if (row.text(kId) == std::string("n1")) return true;
    EXPECT_FALSE(row.isPresent(kName));
    EXPECT_FALSE(row.isPresent(kLevel));
    EXPECT_LT(row.indicator(kName), 0);
    EXPECT_EQ(row.integer(kLevel), 0);
    return true;
  });
  EXPECT_THAT(names, ElementsAre("core", ""));
}

TEST_P(StoreAccessTest, AnEmptyTextIsAbsentButNotNull) {
  addNode("n1", "", 0);
  runQuery(kSql, kNode, kTexts, status_, [&](const Row& row) {
    EXPECT_FALSE(row.isPresent(kName));
    EXPECT_EQ(row.indicator(kName), 0);
    EXPECT_TRUE(row.isPresent(kLevel)) << "the number 0 is a value";
    return true;
  });
}

TEST_P(StoreAccessTest, AFloatIsRead) {
  store_->insert("userdefvar", {{"ObjID", "o"}, {"VarName", "v"}, {"FloatVal", 1.5}});
  static constexpr Column kFloat[] = {floatColumn("FloatVal")};
  int rows = 0;
  runQuery("select FloatVal from userdefvar", kFloat, kTexts, status_, [&](const Row& row) {
    EXPECT_FLOAT_EQ(row.real(0), 1.5F);
    EXPECT_TRUE(row.isPresent(0));
    ++rows;
    return true;
  });
  EXPECT_EQ(rows, 1);
}

TEST_P(StoreAccessTest, ALongTextIsCutToItsBufferAndCountsAsARow) {
  addNode("n1", "a name beyond its buffer", 4);
  addNode("n2", "short", 4);
  std::vector<std::string> names;
  runQuery(kSql, kNode, kTexts, status_, [&](const Row& row) {
    names.emplace_back(row.text(kName));
    if (names.size() == 1) {
      EXPECT_EQ(row.indicator(kName), 24);
    }
    return true;
  });
  EXPECT_THAT(names, ElementsAre("a name ", "short"));
}

TEST_P(StoreAccessTest, ARowWithInfoEndsTheReadingWhereTheStatementSaysSo) {
  addNode("n1", "short", 4);
  addNode("n2", "a name beyond its buffer", 4);
  addNode("n3", "short", 4);
  AccessTexts strict = kTexts;
  strict.infoIsRow = false;
  EXPECT_THAT(read(strict), ElementsAre("n1"));
  EXPECT_TRUE(status_.isOK());
  EXPECT_THAT(read(), ElementsAre("n1", "n2", "n3"));
}

TEST_P(StoreAccessTest, OnlyTheFirstRowIsFetchedWhereTheStatementSaysSo) {
  addNode("n1", "a", 4);
  addNode("n2", "b", 4);
  AccessTexts once = kTexts;
  once.fetchesOnce = true;
  EXPECT_THAT(read(once), ElementsAre("n1"));
}

TEST_P(StoreAccessTest, TheHandlerCanEndTheReading) {
  for (const char* id : {"n1", "n2", "n3"}) addNode(id, "a", 4);
  StoreAccess access(status_, kTexts);
  int rows = 0;
  EXPECT_TRUE(access.run(kSql, kNode, [&](const Row&) { return ++rows < 2; }));
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(access.lastCode(), TvDbil::DBIL_SUCCESS);
}

TEST_P(StoreAccessTest, TheEndOfTheRowsIsTold) {
  StoreAccess access(status_, kTexts);
  EXPECT_TRUE(access.run(kSql, kNode, [](const Row&) { return true; }));
  EXPECT_EQ(access.lastCode(), TvDbil::DBIL_NO_DATA);
}

TEST_P(StoreAccessTest, AStatementThatDoesNotPrepareIsToldWithItsText) {
  EXPECT_FALSE(runIgnoringRows("select ObjId from", kNode, kTexts));
  EXPECT_THAT(status_.getStatus(),
              testing::AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
  if (status_.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR) {
    EXPECT_THAT(status_.getAuxMsg(),
                StartsWith("Unable to bind SQL Statement: select ObjId from\n"));
  }
  EXPECT_FALSE(status_.getAuxMsg().empty());
}

TEST_P(StoreAccessTest, ATextOfTwoStatementsDoesNotPrepare) {
  EXPECT_FALSE(runIgnoringRows("select ObjId from nwnode; delete from nwnode", kNode, kTexts));
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
  EXPECT_THAT(status_.getAuxMsg(), StartsWith("Unable to bind SQL Statement: "
                                              "select ObjId from nwnode; delete from nwnode\n"
                                              "The text holds more than one statement"));
}

TEST_P(StoreAccessTest, AColumnThatCannotBeBoundIsToldWithTheTextOfTheStatement) {
  EXPECT_FALSE(runIgnoringRows("select ObjId, EntityName from nwnode", kUnbindable, kTexts));
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_BIND_COLUMN_ERROR);
  EXPECT_THAT(status_.getAuxMsg(), StartsWith("Problem binding nodes\nA column is bound to"));
}

TEST_P(StoreAccessTest, AColumnFailureCanCarryTheSqlAndAnotherStatus) {
  AccessTexts texts;
  texts.column = {ZN_API_ADDR_QUERY_FAILURE, "Problem binding values:", true};
  EXPECT_FALSE(runIgnoringRows("select ObjId, EntityName from nwnode", kUnbindable, texts));
  EXPECT_EQ(status_.getStatus(), ZN_API_ADDR_QUERY_FAILURE);
  EXPECT_THAT(status_.getAuxMsg(),
              StartsWith("Problem binding values:select ObjId, EntityName from nwnode\n"));
}

TEST_P(StoreAccessTest, AColumnCanHaveAFailureOfItsOwn) {
  static constexpr AccessFailure kOwn = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem with the second",
                                         false, ErrorList::Dropped};
  static constexpr Column kColumns[] = {textColumn("ObjId", 37),
                                        {"EntityName", ColumnKind::Text, 0, &kOwn}};
  EXPECT_FALSE(runIgnoringRows("select ObjId, EntityName from nwnode", kColumns, kTexts));
  EXPECT_EQ(status_.getAuxMsg(), "Problem with the second\n");
}

TEST_P(StoreAccessTest, AFailedExecutionIsTold) {
  addNode("n1", "a", 4);
  EXPECT_FALSE(runIgnoringRows("insert into nwnode (ObjId) values ('n1')", {}, kTexts));
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(status_.getAuxMsg(), StartsWith("Problem Executing SQL Command\n"));
  EXPECT_GT(status_.getAuxMsg().size(), std::string("Problem Executing SQL Command\n\n").size())
      << "the engine's own words follow";
}

TEST_P(StoreAccessTest, AFailureCanGoWithoutTextAndWithoutTheEnginesWords) {
  AccessTexts texts;
  texts.exec = {ZN_API_SQL_EXEC_ERROR, nullptr, false, ErrorList::Dropped};
  addNode("n1", "a", 4);
  EXPECT_FALSE(runIgnoringRows("insert into nwnode (ObjId) values ('n1')", {}, texts));
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(status_.getAuxMsg(), "");
}

TEST_P(StoreAccessTest, TheEnginesWordsCanGoToStandardError) {
  AccessTexts texts;
  texts.statement = {ZN_API_SQL_BIND_STATEMENT_ERROR, "not readable!", false,
                     ErrorList::ToStandardError};
  testing::internal::CaptureStderr();
  EXPECT_FALSE(runIgnoringRows("select 1; select 2", kNode, texts));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), StartsWith("Errors: The text holds more"));
  EXPECT_EQ(status_.getAuxMsg(), "not readable!\n");
}

TEST_P(StoreAccessTest, AWriteWithParametersIsExecuted) {
  addNode("it's", "a", 4);
  const int level = 6;
  StoreAccess access(status_);
  EXPECT_TRUE(access.execute("update nwnode set IPLevel = ?, Description = ? where ObjId = ?",
                             {{&level}, {}, {nullptr, "it's"}}));
  EXPECT_TRUE(status_.isOK()) << status_.getAuxMsg();
  TvXplMsg::MessageList_t messages;
  EXPECT_EQ(access.holder().CommitTransaction(messages), TvDbil::DBIL_SUCCESS);
  EXPECT_EQ(store_->value("select IPLevel from nwnode"), "6");
}

TEST_P(StoreAccessTest, AParameterThatIsNotBoundFailsTheExecution) {
  StoreAccess access(status_);
  EXPECT_FALSE(access.execute("update nwnode set IPLevel = ?"));
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_P(StoreAccessTest, AnUpdateOfNoRowsIsASuccess) {
  StoreAccess access(status_);
  EXPECT_TRUE(access.execute("update nwnode set IPLevel = 4 where ObjId = 'nobody'"));
  EXPECT_TRUE(status_.isOK());
}

TEST_P(StoreAccessTest, AnAccessHoldsItsConnectionWhileOthersGoOn) {
  for (const char* id : {"n1", "n2"}) addNode(id, "a", 4);
  StoreAccess outer(status_, kTexts);
  ASSERT_TRUE(outer.run(kSql, kNode, [](const Row&) { return false; }));
  EXPECT_THAT(read(), ElementsAre("n1", "n2"));
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 2);
  int rows = 0;
  EXPECT_TRUE(outer.run(kSql, kNode, [&](const Row&) { return ++rows > 0; }));
  EXPECT_EQ(rows, 2);
}

TEST_P(StoreAccessTest, AnAccessWorksOnTheHolderThatItIsGiven) {
  ODBCConn holder;
  {
    StoreAccess writing(holder, status_);
    EXPECT_TRUE(writing.execute("insert into nwnode (ObjId) values ('n1')"));
  }
  EXPECT_TRUE(holder.InTransaction());
  StoreAccess reading(holder, status_, kTexts);
  int rows = 0;
  EXPECT_TRUE(reading.run(kSql, kNode, [&](const Row&) { return ++rows > 0; }));
  EXPECT_EQ(rows, 1);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
}

class StoreAccessSqliteTest : public testing::Test {
 protected:
  TestStore store_;
  ZNTopoAPIStatus status_;
};

TEST_F(StoreAccessSqliteTest, AnAccessCommitsAtItsEnd) {
  { StoreAccess(status_).execute("insert into nwnode (ObjId) values ('n1')"); }
  EXPECT_EQ(store_.count("nwnode"), 1);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0U);
}

TEST_F(StoreAccessSqliteTest, WithoutAConnectionTheHoldersStatusIsTheCallers) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  status_ = ZNTopoAPIStatus(ZN_API_ILLEGAL_INPUT, "before");
  const CapturedLog log(MC_CRITICAL);
  StoreAccess access(status_, kTexts);
  EXPECT_FALSE(access.isConnected());
  EXPECT_EQ(status_.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_EQ(status_.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n");
  EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n"));
  EXPECT_FALSE(access.run(kSql, kNode, [](const Row&) { return true; }));
  EXPECT_FALSE(access.execute("delete from nwnode"));
  EXPECT_EQ(status_.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n");
}

TEST_F(StoreAccessSqliteTest, WithoutAConnectionAnotherLineCanBeLogged) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  const CapturedLog log(MC_CRITICAL);
  AccessTexts texts;
  texts.noConnection = {"Failed to get an ODBC connection \n", MC_CRITICAL};
  const StoreAccess access(status_, texts);
  EXPECT_THAT(log.lines(), Contains("Failed to get an ODBC connection \n"));
  EXPECT_THAT(log.lines(), testing::Not(Contains("Fail to get a connection \n")));
}

TEST_F(StoreAccessSqliteTest, TheLinesAroundTheExecutionAreLoggedInOrder) {
  AccessTexts texts;
  texts.preparing = {"SQL : %s \n"};
  texts.executing = {"Executing SQL: %s\n"};
  texts.executed = {"Execution complete \n"};
  StoreAccess access(status_, texts);
  const CapturedLog log(MC_INFO);
  EXPECT_TRUE(access.run("select ObjId from nwnode", {}, [](const Row&) { return true; }));
  EXPECT_THAT(log.lines(),
              ElementsAre("SQL : select ObjId from nwnode \n",
                          "Executing SQL: select ObjId from nwnode\n", "Execution complete \n"));
}

TEST_F(StoreAccessSqliteTest, AFailureLogsItsLinesBeforeItsStatus) {
  AccessTexts texts;
  texts.statement.log = {"Failed with %d \n", MC_MAJOR};
  texts.statement.secondLog = {"SQL was %s\n", MC_MAJOR};
  StoreAccess access(status_, texts);
  const CapturedLog log(MC_MAJOR);
  EXPECT_FALSE(access.run("select 1; select 2", {}, [](const Row&) { return true; }));
  const std::vector<std::string> lines = log.lines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[0], "Failed with 3 \n");
  EXPECT_EQ(lines[1], "SQL was select 1; select 2\n");
}

TEST(AddErrorListMessageTest, TheListBecomesAnAuxiliaryTextAndALineOfTheLog) {
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t("first"));
  messages.Add(TvXplMsg::CreateError_t("second"));
  ZNTopoAPIStatus status(ZN_API_SQL_EXEC_ERROR, "before\n");
  const CapturedLog log(MC_CRITICAL);
  addErrorListMessage(messages, status);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(status.getAuxMsg(), "before\n" + messages.Format(TvXplMsg::fRecurse_k) + "\n");
  EXPECT_THAT(log.lines(), Contains("first\n")) << "the list's first line, on a line of its own";
}

TEST(AddErrorListMessageTest, ALongListIsCutToItsBuffer) {
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t(std::string(5000, 'x')));
  ZNTopoAPIStatus status;
  addErrorListMessage(messages, status);
  EXPECT_EQ(status.getAuxMsg(), std::string(2999, 'x') + "\n");
}

TEST(AddErrorListMessageTest, AListOfExactlyTheBuffersLengthIsWhole) {
  TvXplMsg::MessageList_t messages;
  // The rendering ends its line itself.
  messages.Add(TvXplMsg::CreateError_t(std::string(2998, 'x')));
  ZNTopoAPIStatus status;
  addErrorListMessage(messages, status);
  EXPECT_EQ(status.getAuxMsg(), std::string(2998, 'x') + "\n\n");
}

TEST(AddErrorListMessageTest, AnEmptyListAddsAnEmptyLine) {
  ZNTopoAPIStatus status;
  addErrorListMessage({}, status);
  EXPECT_EQ(status.getAuxMsg(), "\n");
}

}  // namespace
}  // namespace zntopo::test
