// The updates of the store: what each writes, and what it tells when a step fails.

#include <set>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/StoreUpdates.h"
#include "zntopo/api/detail/UpdateSql.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

class UpdateTest : public ApiTest {
 protected:
  void addObject(const std::string& id) {
    for (const TopoDBType set : {ActiveDB, WorkingDB}) addUpdated(*store, id, set);
  }

  ZNTopoAPIStatus associate(ZNTopoAPI_Impl& api, const std::string& left) {
    return api.setNWIfcAssocInfoState(ObjID(left), ObjID("right"), 3, 4);
  }

  std::string associationOf(const std::string& left, const std::string& column) {
    return store
        ->value("select " + column +
                " from nwifcasc where LeftIFContainerObjID = " + Value(left).literal())
        .value_or("NULL");
  }

  OpenImpl& implOf(TopoDBType set) { return set == WorkingDB ? working : impl; }
};
ZNTOPO_ON_ENGINES(UpdateTest, kEngines);

// ---- what is written ----------------------------------------------------------------------------

TEST_P(UpdateTest, EachWritesItsColumnInTheTableOfItsSetAndInNoOtherRow) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    int number = 0;
    for (const StoreUpdate& update : storeUpdates()) {
      if (!update.isCommon()) continue;
      SCOPED_TRACE(update.name() + " in set " + std::to_string(set));
      const std::string id = "object" + std::to_string(++number) + "." + std::to_string(set);
      addObject(id);
      addObject("other" + id);
      const ZNTopoAPIStatus answer = update.run(implOf(set), ObjID(id));
      EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
      EXPECT_EQ(answer.getAuxMsg(), "");
      EXPECT_EQ(update.written(*store, id, set), std::to_string(update.value));
      EXPECT_EQ(update.written(*store, id, set == ActiveDB ? WorkingDB : ActiveDB), "NULL");
      EXPECT_EQ(update.written(*store, "other" + id, set), "NULL");
    }
  }
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()));
}

TEST_P(UpdateTest, AnUpdateWritesOneTable) {
  addObject("x");
  EXPECT_TRUE(impl.setEntityStatus(ObjID("x"), 6, 99, ZNEntity::Overall, E_Node).isOK());
  EXPECT_EQ(store->value("select Status from nwnode"), "6");
  EXPECT_EQ(store->value("select Status from nwentity"), std::nullopt);
}

TEST_P(UpdateTest, AnIdentifierWithNoRowIsASuccess) {
  addObject("x");
  for (const StoreUpdate& update : storeUpdates()) {
    const ZNTopoAPIStatus answer = update.run(impl, ObjID("nobody"));
    EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << update.name() << answer.getAuxMsg();
    EXPECT_EQ(update.written(*store, "x", ActiveDB), "NULL") << update.name();
  }
}

TEST_P(UpdateTest, TheStatusOfAVlanIsWrittenToTheTableOfAllEntities) {
  addObject("x");
  EXPECT_TRUE(impl.setEntityStatus(ObjID("x"), 4, 99, ZNEntity::Overall, E_Vlan).isOK());
  EXPECT_EQ(store->value("select Status from nwentity"), "4");
  EXPECT_EQ(store->value("select StatusChangeTimeUTC from nwentity"), "99");
}

TEST_P(UpdateTest, TheSixthStatusOfANodeIsItsSnmpState) {
  addObject("x");
  EXPECT_TRUE(impl.setNWNodeStatus(ObjID("x"), NOT_RESPONDING, 6).isOK());
  EXPECT_EQ(store->value("select SNMPState from nwnode"), "1");
  EXPECT_EQ(store->value("select Status from nwnode"), std::nullopt);
}

TEST_P(UpdateTest, AnHSRPAddressChangesInEveryGroupThatItServesIn) {
  for (const char* group : {"g1", "g2"}) {
    store->insert("hsrpaddress", {{"ObjID", group}, {"AddressID", "x"}, {"AddressIfObjID", group}});
  }
  const ZNHSRPAddressInfo info(1, ObjID("g1"), ObjID("x"), 110, ZNHSRPAddressInfo::Active, "", 70);
  EXPECT_TRUE(impl.setHSRPAddressInfo(info).isOK());
  EXPECT_EQ(store->value("select count(*) from hsrpaddress where state = 6 and HSRPPriority = 110"
                         " and HSRPStateCertainty = 70"),
            "2");
}

// ---- the association of containers --------------------------------------------------------------

TEST_P(UpdateTest, AnAssociationIsWrittenToTheActiveTableFromAnInstanceForTheWorkingSetToo) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    const std::string id = "x" + std::to_string(set);
    addObject(id);
    const ZNTopoAPIStatus answer = associate(implOf(set), id);
    EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
    EXPECT_EQ(associationOf(id, "State"), "4");
  }
  EXPECT_EQ(store->value("select count(*) from nwifcasc_update where State is not null"), "0");
}

TEST_P(UpdateTest, AnAssociationIsTheOneOfItsEndsAndItsKind) {
  addObject("x");
  const auto set = [&](const char* left, const char* right, int kind) {
    EXPECT_TRUE(impl.setNWIfcAssocInfoState(ObjID(left), ObjID(right), kind, 4).isOK());
    return associationOf("x", "State");
  };
  EXPECT_EQ(set("right", "x", 3), "NULL");
  EXPECT_EQ(set("x", "x", 3), "NULL");
  EXPECT_EQ(set("x", "right", 2), "NULL");
  EXPECT_EQ(set("x", "right", 3), "4");
}

TEST_P(UpdateTest, AnAssociationTakesTheTimeOfItsChange) {
  addObject("x");
  const long before = static_cast<long>(time(nullptr));
  EXPECT_TRUE(associate(impl, "x").isOK());
  const long written = std::stol(associationOf("x", "StateChangeTime"));
  EXPECT_GE(written, before);
  EXPECT_LE(written, static_cast<long>(time(nullptr)));
}

TEST_P(UpdateTest, AnAssociationIsWrittenWhileTheTopologyIsNotReady) {
  addObject("x");
  store->execute("update state set TopologyReady = 0");
  EXPECT_TRUE(associate(impl, "x").isOK());
  EXPECT_EQ(associationOf("x", "State"), "4");
}

// ---- identifiers with quotes --------------------------------------------------------------------

TEST_P(UpdateTest, AQuoteInAnIdentifierBreaksTheStatementButNotThatOfAnAssociation) {
  addObject("it's");
  for (const StoreUpdate& update : storeUpdates()) {
    SCOPED_TRACE(update.name());
    const ZNTopoAPIStatus answer = update.run(impl, ObjID("it's"));
    const std::string written = update.written(*store, "it's", ActiveDB);
    if (update.isCommon()) {
      EXPECT_TRUE(answer.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
                  answer.getStatus() == ZN_API_SQL_EXEC_ERROR)
          << answer.getStatus();
      EXPECT_EQ(written, "NULL");
    } else {
      EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
      EXPECT_EQ(written, std::to_string(update.value));
    }
  }
}

TEST_P(UpdateTest, ASecondStatementInAnIdentifierIsRefusedAndNotRun) {
  addObject("x");
  for (const char* smuggled :
       {"x'; delete from nwnode; --", "x'; update nwnode set SNMPState = 7 where 'a' = 'a",
        "x';\ndrop table nwnode; select '"}) {
    for (const StoreUpdate& update : storeUpdates()) {
      SCOPED_TRACE(update.name() + " of " + smuggled);
      const ZNTopoAPIStatus answer = update.run(impl, ObjID(smuggled));
      if (update.isCommon()) {
        EXPECT_EQ(answer.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
        EXPECT_THAT(answer.getAuxMsg(), HasSubstr("more than one statement"));
      } else {
        EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS) << answer.getAuxMsg();
      }
      EXPECT_EQ(update.written(*store, "x", ActiveDB), "NULL");
      EXPECT_EQ(store->count("nwnode"), 1);
    }
  }
  EXPECT_EQ(store->value("select SNMPState from nwnode"), std::nullopt);
}

// ---- failures -----------------------------------------------------------------------------------

TEST_P(UpdateTest, AKindOfStateThatIsNotKnownIsRefusedByTheStore) {
  addObject("x");
  const ZNTopoAPIStatus answers[] = {
      impl.setNWInterfaceState(ObjID("x"), 1, 2), impl.setNWInterfaceState(ObjID("x"), 1, -1),
      impl.setNWNodeStatus(ObjID("x"), 1, 7), impl.setNWNodeStatus(ObjID("x"), 1, -1),
      impl.setEntityStatus(ObjID("x"), 1, 2, static_cast<ZNEntity::EntityStatusType>(6), E_Node)};
  for (const ZNTopoAPIStatus& answer : answers) {
    EXPECT_TRUE(answer.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
                answer.getStatus() == ZN_API_SQL_EXEC_ERROR)
        << answer.getStatus();
    EXPECT_THAT(answer.getAuxMsg(), StartsWith("Problem "));
  }
}

TEST_P(UpdateTest, NothingIsWrittenUnlessTheTopologyIsReady) {
  addObject("x");
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  for (const StoreUpdate& update : storeUpdates()) {
    if (!update.isCommon()) continue;
    const ZNTopoAPIStatus answer = update.run(impl, ObjID("x"));
    EXPECT_EQ(answer.getStatus(), ZN_API_DB_NOT_READY) << update.name();
    EXPECT_EQ(answer.getAuxMsg(), "Topology DB is not ready\n") << update.name();
  }
  EXPECT_THAT(spy.statements(), IsEmpty());
  EXPECT_TRUE(working.setAddressState(ObjID("x"), 1).isOK()) << "the working set is always ready";
  EXPECT_THAT(spy.statements(), SizeIs(1));
}

TEST_P(UpdateTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  for (const StoreUpdate& update : storeUpdates()) {
    const CapturedLog log(MC_CRITICAL);
    const ZNTopoAPIStatus answer = update.run(working, ObjID("x"));
    EXPECT_EQ(answer.getStatus(), ZN_API_DB_CONNECTION_FAILURE) << update.name();
    EXPECT_EQ(answer.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n") << update.name();
    EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n")) << update.name();
  }
}

TEST_P(UpdateTest, AFailedStepHasItsStatusTheNameOfTheMemberAndThePlatformsWords) {
  const std::tuple<StatementSpy::Step, ZNTopoStatus, std::string> steps[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR, "Problem binding SQL Command in "},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command in "}};
  for (const StoreUpdate& update : storeUpdates()) {
    if (!update.isCommon()) continue;
    for (const auto& [step, code, text] : steps) {
      StatementSpy spy;
      spy.fail(step, "update ");
      const ZNTopoAPIStatus answer = update.run(impl, ObjID("x"));
      EXPECT_EQ(answer.getStatus(), code) << update.name();
      EXPECT_THAT(answer.getAuxMsg(), StartsWith(text + update.member + "()\n"));
      EXPECT_THAT(answer.getAuxMsg(), HasSubstr(StatementSpy::kMessage));
    }
  }
}

TEST_P(UpdateTest, AFailedStepOfAnAssociationHasItsStatusAndItsLine) {
  const std::string sql = detail::ifcAssociationUpdate();
  const std::tuple<StatementSpy::Step, ZNTopoStatus, std::string, std::string> steps[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
       "Unable to bind SQL Statement: " + sql, " BindSql Failed"},
      {StatementSpy::BindParm, ZN_API_SQL_BIND_PARM_ERROR, "Problem in BindParm values for " + sql,
       " BindParm Failed"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR,
       "Problem Executing SQL Command in setNWIfcAssocInfoState()", " Exec Failed"}};
  for (const auto& [step, code, text, line] : steps) {
    const CapturedLog log(MC_MAJOR);
    StatementSpy spy;
    spy.fail(step, "update nwifcasc");
    const ZNTopoAPIStatus answer = associate(impl, "x");
    EXPECT_EQ(answer.getStatus(), code);
    EXPECT_THAT(answer.getAuxMsg(), StartsWith(text + "\n"));
    EXPECT_THAT(answer.getAuxMsg(), HasSubstr(StatementSpy::kMessage));
    EXPECT_THAT(log.lines().front(), MatchesRegex(line + ":../ZNTopoAPI_Update:[0-9]+\n"));
  }
}

TEST_P(UpdateTest, EveryParameterIsTriedTheLastOneFirstBeforeOneThatFailsCounts) {
  const CapturedLog log(MC_INFO);
  StatementSpy spy;
  spy.fail(StatementSpy::BindParm, "update nwifcasc", TvDbil::DBIL_ERROR, 4);
  EXPECT_EQ(associate(impl, "x").getStatus(), ZN_API_SQL_BIND_PARM_ERROR);
  EXPECT_THAT(log.lines(), Contains(" DbilBp1 is :0 DbilBp2 is :0 DbilBp3 is :0 DbilBp4 is :3 "
                                    "DbilBp5 is :3\n"));
  EXPECT_THAT(log.lines(), testing::Not(Contains(HasSubstr("DbilEx"))));
}

TEST_P(UpdateTest, AFailedUpdateLeavesItsConnectionForTheNextOne) {
  addObject("x");
  EXPECT_FALSE(impl.setNWNodeStatus(ObjID("x"), 1, 7).isOK());
  EXPECT_TRUE(impl.setNWNodeStatus(ObjID("x"), 1, 6).isOK());
  EXPECT_EQ(store->value("select SNMPState from nwnode"), "1");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0U);
}

// ---- the log ------------------------------------------------------------------------------------

class UpdateLogTest : public UpdateTest {};
ZNTOPO_ON_ENGINES(UpdateLogTest, kSqlite);

TEST_P(UpdateLogTest, EachTellsItsStatementAndSomeTheirTableSet) {
  const std::set<std::string> withSet = {"setHSRPAddressInfo", "setL2DomainIdOfNode",
                                         "setL2DomainIdOfInterface"};
  for (const StoreUpdate& update : storeUpdates()) {
    if (!update.isCommon()) continue;
    const StatementSpy spy;
    const CapturedLog log(MC_INFO);
    update.run(working, ObjID("x"));
    const std::vector<std::string> lines = log.lines();
    const std::string statement = "SQL: " + spy.statements().back() + "\n";
    const auto told = std::find(lines.begin(), lines.end(), statement);
    ASSERT_NE(told, lines.end()) << update.name();
    EXPECT_EQ(*(told + 1), "ODBCConn::ODBCConn()\n") << "it is told without a connection";
    const bool tellsSet = told != lines.begin() && *(told - 1) == "TopoDBType : 1\n";
    EXPECT_EQ(tellsSet, withSet.count(update.member) == 1) << update.name();
  }
}

TEST_P(UpdateLogTest, EachIsAScopeOfItsName) {
  for (const StoreUpdate& update : storeUpdates()) {
    const CapturedLog log(MC_VERBOSE);
    update.run(working, ObjID("x"));
    EXPECT_THAT(log.text(), HasSubstr(update.member)) << update.name();
  }
}

TEST_P(UpdateLogTest, AnAssociationTellsItsValues) {
  addObject("x");
  const CapturedLog log(MC_TRACE_L1);
  EXPECT_TRUE(associate(impl, "x").isOK());
  std::vector<std::string> told;
  for (const std::string& line : log.lines()) {
    if (line.front() == ' ') told.push_back(line);
  }
  EXPECT_THAT(
      told, ElementsAre(" The BindSql Stmt is :" + detail::ifcAssociationUpdate() + "\n",
                        " 1.LeftIfcObjId is:x\n", " 2.RightIfcObjId is:right\n",
                        " 3.AssocType is:3\n", " 4.state is:4\n",
                        " 5.state change Time is:" + associationOf("x", "StateChangeTime") + "\n",
                        " DbilBp1 is :0 DbilBp2 is :0 DbilBp3 is :0 DbilBp4 is :0 DbilBp5 is :0\n",
                        " DbilEx is :0 \n"));
}

TEST_P(UpdateLogTest, AFailedAssociationTellsItsCodeBeforeTheFailure) {
  const CapturedLog log(MC_INFO);
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "update nwifcasc");
  associate(impl, "x");
  const std::vector<std::string> lines = log.lines();
  const auto code = std::find(lines.begin(), lines.end(), " DbilEx is :3 \n");
  ASSERT_NE(code, lines.end());
  EXPECT_THAT(*(code + 1), StartsWith(" Exec Failed:../ZNTopoAPI_Update:"));
}

}  // namespace
}  // namespace zntopo::test
