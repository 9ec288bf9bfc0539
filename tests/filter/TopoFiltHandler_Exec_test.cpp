// Filters on a store.

#include <thread>

#include "tests/filter/FilterFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/StatementSpy.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

using IDTexts = std::vector<std::string>;

/// Two nodes with an interface and an address each, and a node without.
class ExecFilterTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (!store_) return;
    store_->addNode("n1", "core");
    store_->addNode("n2", "edge");
    store_->addNode("n3", "bare");
    for (const std::string number : {"1", "2"}) {
      store_->addInterface("i" + number, "n" + number, "eth" + number,
                           {{"IfName", "eth" + number}});
      store_->addAddress("a" + number, "i" + number, "n" + number, "10.0.0." + number);
    }
  }

  IDTexts run(const std::string& name) {
    const auto ids = filters_.ExecFilter(list_, name, status_);
    return {ids->begin(), ids->end()};
  }
  /// Runs a filter that is not among the others.
  IDTexts run(const std::string& kind, const std::string& condition) {
    filters_.define("f", condition, kind);
    return run("f");
  }
  std::string told() const { return zntopo::test::textOf(list_); }
  bool isStatementFailure() const {
    return status_.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
           status_.getStatus() == ZN_API_SQL_EXEC_ERROR;
  }

  OpenHandler filters_;
  TvXplMsg::MessageList_t list_;
  /// Holds something of before, which a query has to reset.
  ZNTopoAPIStatus status_{ZN_API_NO_PATH, "of before\n"};
};
ZNTOPO_ON_ENGINES(ExecFilterTest, kEngines);

// ---- what filters select ----------------------------------------------------------------------

TEST_P(ExecFilterTest, AFilterMayUseItsOwnAliasWithoutAnyJoin) {
  EXPECT_THAT(run("Node", " NODE.entityname like '%e' "), UnorderedElementsAre("n1", "n2", "n3"));
  EXPECT_THAT(run("Node", " NODE.entityname = 'core' "), ElementsAre("n1"));
  EXPECT_THAT(run("Interface", " IF.ifname = 'eth2' "), ElementsAre("i2"));
  EXPECT_TRUE(status_.isOK());
  EXPECT_EQ(status_.getAuxMsg(), "");
  EXPECT_EQ(told(), "");
}

TEST_P(ExecFilterTest, NodesAreSelectedByTheirInterfacesAndAddresses) {
  EXPECT_THAT(run("Node", " IF.ifname = 'eth1' "), ElementsAre("n1"));
  EXPECT_THAT(run("Node", " ADDR.v4address = '10.0.0.2' "), ElementsAre("n2"));
  EXPECT_THAT(run("Node", " IF.ifname like 'eth%' and ADDR.v4address like '10.%' "),
              UnorderedElementsAre("n1", "n2"));
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, InterfacesAreSelectedByTheirNodesAndAddresses) {
  EXPECT_THAT(run("Interface", " NODE.entityname = 'core' "), ElementsAre("i1"));
  EXPECT_THAT(run("Interface", " ADDR.v4address = '10.0.0.2' "), ElementsAre("i2"));
  EXPECT_THAT(run("Interface", " NODE.entityname = 'core' and ADDR.v4address = '10.0.0.2' "),
              IsEmpty());
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, AddressesAreSelectedByTheirOwnersAndGivenAsThese) {
  EXPECT_THAT(run("Address", " IF.ifname = 'eth1' "), ElementsAre("i1"));
  EXPECT_THAT(run("Address", " NODE.entityname = 'edge' "), ElementsAre("i2"));
  EXPECT_THAT(run("Address", " NODE.entityname = 'edge' and IF.ifname = 'eth2' "),
              ElementsAre("i2"));
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, AddressesCanBeHadByTheirOwnIdentifiers) {
  filters_.define("f", " NODE.entityname = 'edge' and IF.ifname = 'eth2' ", "Address");
  EXPECT_THAT(*filters_.ExecAddressFilter(list_, "f", status_), ElementsAre(ObjID("a2")));
  EXPECT_TRUE(status_.isOK());
  filters_.define("nodes", " NODE.entityname = 'edge' ", "Node");
  EXPECT_THAT(*filters_.ExecAddressFilter(list_, "nodes", status_), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
  EXPECT_THAT(*filters_.ExecAddressFilter(list_, "none", status_), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

TEST_P(ExecFilterTest, AJoinGivesANodeOnceForEachOfItsInterfaces) {
  store_->addInterface("i3", "n1", "eth3", {{"IfName", "eth3"}});
  EXPECT_THAT(run("Node", " IF.ifname like 'eth%' "), UnorderedElementsAre("n1", "n1", "n2"));
}

TEST_P(ExecFilterTest, AConditionThatBeginsWithAnotherAliasGetsNoJoinAndFails) {
  EXPECT_THAT(run("Node", "IF.ifname = 'eth1'"), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
  EXPECT_THAT(run("Node", " IF.ifname = 'eth1'"), ElementsAre("n1"));
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, ALiteralWithAnAliasInItJoinsTheTable) {
  store_->execute("update nwnode set Description = 'see IF.x'");
  EXPECT_THAT(run("Node", " NODE.description = 'see IF.x' "), UnorderedElementsAre("n1", "n2"))
      << "the node without an interface is gone";
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, TheActiveTablesAreAskedWhateverStandsInTheOthers) {
  store_->addNode("w", "core", {}, WorkingDB);
  EXPECT_THAT(run("Node", " NODE.entityname = 'core' "), ElementsAre("n1"));
}

TEST_P(ExecFilterTest, AStoreThatIsNotReadyIsAskedAllTheSame) {
  store_->setReady();
  store_->execute("update state set TopologyReady = 0");
  EXPECT_THAT(run("Node", " NODE.entityname = 'core' "), ElementsAre("n1"));
}

TEST_P(ExecFilterTest, AnIdentifierThatIsNullIsLeftOutAndLogged) {
  store_->addAddress("a3", "i3", "n1", "10.0.0.3", {{"ObjId", nullptr}});
  const CapturedLog log(MC_INFO);
  EXPECT_THAT(run("Address", " ADDR.v4address like '10.%' "), UnorderedElementsAre("i1", "i2"));
  EXPECT_TRUE(status_.isOK());
  const auto lines = log.lines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(),
                       "Found Null data in retrieval of getNodeIDsByXmlFilter\n"),
            1);
}

// ---- failures ---------------------------------------------------------------------------------

TEST_P(ExecFilterTest, ANameThatIsNotKnownIsToldAndJoinsTheMapEmpty) {
  const StatementSpy spy;
  EXPECT_THAT(run("nobody's"), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
  const std::string text = " Filter 'nobody's' was NOT found in the filter definition!\n";
  EXPECT_EQ(status_.getAuxMsg(), text);
  EXPECT_EQ(told(), text);
  EXPECT_THAT(spy.statements(), IsEmpty());
  ASSERT_EQ(filters_.m_FiltMap.count("nobody's"), 1U);
  EXPECT_EQ(filters_.m_FiltMap["nobody's"].getName(), "");
  EXPECT_EQ(filters_.m_FiltMap["nobody's"].getObjType(), E_Unknown);
  // It stays unknown.
  EXPECT_THAT(run("nobody's"), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

TEST_P(ExecFilterTest, TheEmptyNameIsFoundAndItsStatementFails) {
  EXPECT_THAT(run(""), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
  EXPECT_THAT(status_.getAuxMsg(), StartsWith("Unable to bind SQL Statement: \n"));
}

TEST_P(ExecFilterTest, AnEmptyConditionFails) {
  for (const char* kind : {"Node", "Interface", "Address"}) {
    EXPECT_THAT(run(kind, ""), IsEmpty());
    EXPECT_TRUE(isStatementFailure()) << kind;
  }
}

TEST_P(ExecFilterTest, AFilterOfAnUnknownKindFailsWithItsBareCondition) {
  EXPECT_THAT(run("Vlan", " NODE.entityname = 'core' "), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
}

TEST_P(ExecFilterTest, AConditionOfSeveralStatementsIsRefusedAsAWhole) {
  EXPECT_THAT(run("Node", " NODE.entityname = 'x'; delete from nwnode; --"), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
  EXPECT_THAT(told(), HasSubstr("more than one statement"));
  EXPECT_EQ(store_->count("nwnode"), 3);
}

TEST_P(ExecFilterTest, FailedStepsTellTheirTextAndThePlatformsGoesIntoTheList) {
  const auto fails = [&](StatementSpy::Step step, ZNTopoStatus code, const std::string& text) {
    list_ = {};
    StatementSpy spy;
    spy.fail(step, "nwnode");
    EXPECT_THAT(run("Node", " NODE.entityname = 'core' "), IsEmpty());
    EXPECT_EQ(status_.getStatus(), code);
    EXPECT_EQ(status_.getAuxMsg(), text);
    EXPECT_THAT(told(), HasSubstr(StatementSpy::kMessage));
  };
  fails(StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
        "Unable to bind SQL Statement: select NODE.objid from nwnode NODE where  NODE.entityname = "
        "'core' \n");
  fails(StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
        "Problem binding values for getNodeIDsByXmlFilter\n");
  fails(StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n");
}

TEST_P(ExecFilterTest, AFetchThatFailsEndsTheRowsWithoutAnError) {
  StatementSpy spy;
  spy.fail(StatementSpy::Fetch, "nwnode", TvDbil::DBIL_ERROR, 2);
  EXPECT_EQ(run("Node", " NODE.entityname like '%e' ").size(), 1U);
  EXPECT_TRUE(status_.isOK());
}

TEST_P(ExecFilterTest, WithoutAConnectionAnInternalErrorStandsForTheHoldersStatus) {
  filters_.define("f", " NODE.entityname = 'core' ", "Node");
  setenv("TV_TOPO_STORE", "/nonexistent/zntopo/topology.db", 1);
  ZNDBTestAccess::forget();
  const CapturedLog log(MC_CRITICAL);  // nothing less is heard
  EXPECT_THAT(run("f"), IsEmpty());
  EXPECT_EQ(status_.getStatus(), ZN_API_INTERNAL_ERROR);
  EXPECT_TRUE(status_.getAuxMsg().ends_with("  Failed to get a connection.\n"));
  EXPECT_EQ(told(), "  Failed to get a connection.\n");
  EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n"));
}

// ---- log and trace ----------------------------------------------------------------------------

TEST_P(ExecFilterTest, TheExecutionIsLoggedBelowInfo) {
  {
    const CapturedLog log(MC_TRACE_L2);
    run("Node", " NODE.entityname = 'core' ");
    EXPECT_THAT(log.lines(), Contains("Executing .. \n"));
  }
  const CapturedLog log(MC_TRACE_L1);
  run("Node", " NODE.entityname = 'core' ");
  EXPECT_THAT(log.lines(), Not(Contains("Executing .. \n")));
}

TEST(ExecFilterTraceTest, TheStatementIsTracedAtLevelOne) {
  inFreshProcess([] {
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    setEnv("TV_TOPO_STORE", "/nonexistent/zntopo/topology.db");
    OpenHandler filters;
    filters.define("f", " NODE.x = 1", "Interface");
    TvXplMsg::MessageList_t list;
    ZNTopoAPIStatus status;
    filters.ExecFilter(list, "f", status);
    const auto lines = linesOf(scratch.read("trace"));
    EXPECT_THAT(lines,
                Contains(testing::ContainsRegex(
                    " 1 .*DEBUG: Ready to exec SQL: \\[select IF.objid from nwinterface IF , "
                    "nwnode NODE where NODE.objid = IF.nodeobjid AND  NODE.x = 1\\]$")));
  });
}

// ---- threads ----------------------------------------------------------------------------------

TEST_P(ExecFilterTest, ThreadsMayShareAHandlerThatNobodyParsesWith) {
  filters_.define("core", " NODE.entityname = 'core' ", "Node");
  filters_.define("far", " ADDR.v4address = '10.0.0.2' ", "Interface");
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([this, number] {
      for (int round = 0; round < 5; ++round) {
        TvXplMsg::MessageList_t list;
        ZNTopoAPIStatus status;
        const bool isCore = (number + round) % 2 == 0;
        const auto ids = filters_.ExecFilter(list, isCore ? "core" : "far", status);
        EXPECT_THAT(*ids, ElementsAre(ObjID(isCore ? "n1" : "i2")));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace zntopo::test
