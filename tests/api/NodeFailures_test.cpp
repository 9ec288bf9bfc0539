// What each store access of node retrieval tells when one of its steps fails.

#include <functional>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/NodeSql.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::StartsWith;

constexpr const char* kNoConnection = "ODBCConn - DB Connection Creation Failed\n";

/// A store access, and what it tells of a column that can't be bound.
struct Access {
  const char* name;
  /// A text in its statement.
  const char* mark;
  const char* columnText;
  /// The size of its result.
  std::function<std::size_t(OpenImpl&, ZNTopoAPIStatus&)> run;
  /// What stands in the result before a row is read.
  std::size_t prepared = 0;
};

std::vector<Access> accesses() {
  const std::list<ObjID> ids = {ObjID(uuid(1))};
  return {
      {"getNodesByWhere", " NODE ", "Problem binding values for Entity",
       [](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getNodesByWhere("", detail::nodeTables(impl.tables()), status, true)->size();
       }},
      {"getUserDefVarsByObjIDList", "userdefvar", "Problem binding values for UserDefVar",
       [ids](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getUserDefVarsByObjIDList_Int(ids, status, E_Unknown)->size();
       }},
      {"getConnDatasByNodeObjIDList", "NWInterfaceAsc",
       "Problem binding values for Layer 2 connectivity",
       [ids](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getConnDatasByNodeObjIDList_Int(ids, status, false)->size();
       },
       1},
      {"getVlanInfosByObjIDList", "containment", "Problem binding values for VlanInfo",
       [ids](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getVlanInfosByObjIDList_Int(ids, status, true, false)->size();
       }},
      {"getIfcInfosByObjIDList", "nwifcctm", "Problem binding values for IfcInfo",
       [ids](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getIfcInfosByObjIDList_Int(ids, status, true, false, 0)->size();
       }},
      {"getObjIDListFromSQL", "select ObjId", "Problem binding values for getObjIDListFromSQL()",
       [](OpenImpl& impl, ZNTopoAPIStatus& status) {
         return impl.getObjIDListFromSQL("select ObjId from nwnode", status)->size();
       }},
  };
}

class NodeFailuresTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (store) store->addNode(uuid(1), "edge");
  }
  /// What the platform says of the step, as the status holds it.
  static std::string platformText() {
    TvXplMsg::MessageList_t messages;
    messages.Add(TvXplMsg::CreateError_t(StatementSpy::kMessage));
    return messages.Format(TvXplMsg::fRecurse_k) + "\n";
  }
};
ZNTOPO_ON_ENGINES(NodeFailuresTest, kMainEngines);

TEST_P(NodeFailuresTest, AStatementThatIsNotPreparedIsToldWithItself) {
  for (const Access& access : accesses()) {
    StatementSpy spy;
    spy.fail(StatementSpy::BindSql, access.mark);
    EXPECT_EQ(access.run(impl, status), 0u) << access.name;
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR) << access.name;
    EXPECT_EQ(status.getAuxMsg(),
              "Unable to bind SQL Statement: " + spy.statements().back() + "\n" + platformText());
  }
}

TEST_P(NodeFailuresTest, AColumnThatIsNotBoundIsToldWithTheNameOfTheAccess) {
  for (const Access& access : accesses()) {
    StatementSpy spy;
    spy.fail(StatementSpy::BindColumn, access.mark);
    EXPECT_EQ(access.run(impl, status), access.prepared) << access.name;
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_COLUMN_ERROR) << access.name;
    EXPECT_EQ(status.getAuxMsg(), access.columnText + std::string("\n") + platformText());
  }
}

TEST_P(NodeFailuresTest, EveryColumnCounts) {
  const std::pair<const char*, int> columns[] = {{" NODE ", 44},        {"userdefvar", 6},
                                                 {"NWInterfaceAsc", 4}, {"containment", 6},
                                                 {"nwifcctm", 6},       {"select ObjId", 1}};
  const std::vector<Access> all = accesses();
  for (std::size_t i = 0; i < all.size(); ++i) {
    StatementSpy spy;
    // The last column is the one that fails, and there is none behind it.
    spy.fail(StatementSpy::BindColumn, columns[i].first, TvDbil::DBIL_ERROR, columns[i].second);
    all[i].run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_COLUMN_ERROR) << all[i].name;
    spy.succeed();
    spy.fail(StatementSpy::BindColumn, columns[i].first, TvDbil::DBIL_ERROR, columns[i].second + 1);
    all[i].run(impl, status);
    EXPECT_TRUE(status.isOK()) << all[i].name;
  }
}

TEST_P(NodeFailuresTest, InformationOnAColumnOrAnExecutionIsAFailure) {
  for (const Access& access : accesses()) {
    StatementSpy spy;
    spy.answer(StatementSpy::BindColumn, access.mark, TvDbil::DBIL_SUCCESS_WITH_INFO);
    access.run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_COLUMN_ERROR) << access.name;
    spy.succeed();
    spy.answer(StatementSpy::Exec, access.mark, TvDbil::DBIL_SUCCESS_WITH_INFO);
    access.run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << access.name;
  }
}

TEST_P(NodeFailuresTest, AnExecutionThatFailsIsTold) {
  for (const Access& access : accesses()) {
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, access.mark);
    EXPECT_EQ(access.run(impl, status), access.prepared) << access.name;
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << access.name;
    EXPECT_EQ(status.getAuxMsg(), "Problem Executing SQL Command\n" + platformText());
  }
}

TEST_P(NodeFailuresTest, AFetchThatFailsIsNoFailure) {
  for (const Access& access : accesses()) {
    StatementSpy spy;
    spy.fail(StatementSpy::Fetch, access.mark);
    EXPECT_EQ(access.run(impl, status), access.prepared) << access.name;
    EXPECT_TRUE(status.isOK()) << access.name;
    EXPECT_EQ(status.getAuxMsg(), "");
  }
}

TEST_P(NodeFailuresTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  for (const Access& access : accesses()) {
    const CapturedLog log(MC_CRITICAL);
    EXPECT_EQ(access.run(impl, status), 0u) << access.name;
    EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE) << access.name;
    EXPECT_EQ(status.getAuxMsg(), kNoConnection);
    EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n"));
  }
}

TEST_P(NodeFailuresTest, ATableThatIsGoneIsToldAtPreparationOrExecution) {
  store->execute("drop table userdefvar");
  EXPECT_EQ(impl.getUserDefVarsByObjIDList({ObjID(uuid(1))}, status)->size(), 0u);
  EXPECT_TRUE(status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
              status.getStatus() == ZN_API_SQL_EXEC_ERROR)
      << status.getStatus();
}

TEST_P(NodeFailuresTest, AListOfIdentifiersLogsItsFailures) {
  const std::pair<StatementSpy::Step, std::string> lines[] = {
      {StatementSpy::BindSql, "Failed to bind SQL Statement \n"},
      {StatementSpy::BindColumn, "Problem binding values for"},
      {StatementSpy::Exec, "Problem executing SQL Command: select ObjId from nwnode\n"}};
  for (const auto& [step, line] : lines) {
    StatementSpy spy;
    spy.fail(step, "select ObjId");
    const CapturedLog log(MC_MAJOR);
    impl.getObjIDListFromSQL("select ObjId from nwnode", status);
    EXPECT_THAT(log.lines(), Contains(StartsWith(line)));
  }
}

TEST_P(NodeFailuresTest, ALookUpByNameThatFailsKeepsTheStatusOfItsStatement) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "select objID");
  EXPECT_TRUE(impl.getNodeByName("edge", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  spy.succeed();
  spy.fail(StatementSpy::Exec, " NODE ");
  EXPECT_TRUE(impl.getNodeByName("edge", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(status.getAuxMsg(), "Problem Executing SQL Command\n" + platformText());
}

TEST_P(NodeFailuresTest, ABatchOfALoaderThatFailsStopsItAndTheEarlierOnesStay) {
  std::list<ObjID> ids;
  for (int i = 1; i <= 120; ++i) ids.emplace_back(uuid(i));
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, uuid(51));
  EXPECT_EQ(impl.getConnDatasByNodeObjIDList(ids, status, false)->size(), 50u);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(spy.statements().size(), 2u);
}

TEST_P(NodeFailuresTest, ALongListOfMessagesIsCut) {
  TvXplMsg::MessageList_t messages;
  for (int i = 0; i < 100; ++i) {
    messages.Add(TvXplMsg::CreateError_t("a message of some length, number " + std::to_string(i)));
  }
  status.reset();
  impl.addErrorListMessage(messages, status);
  EXPECT_EQ(status.getAuxMsg().size(), 3000u);  // 2999 and the end of the line
  EXPECT_EQ(status.getAuxMsg(), messages.Format(TvXplMsg::fRecurse_k).substr(0, 2999) + "\n");
}

}  // namespace
}  // namespace zntopo::test
