// How large the stored topology is.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/api/detail/StatisticSql.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

/// The statements in their order, with the ending of the table set.
std::vector<std::string> statements(const std::string& set = "") {
  const std::string count = "select count(*) from ";
  return {
      count + "nwnode" + set,
      count + "nwnode" + set + " where IPLevel = 4 ",
      count + "nwnode" + set + " where IPLevel = 6 ",
      count + "nwnode" + set + " where sysoid <> '-' ",
      count + "nwinterface" + set,
      count + "nwinterface" + set + " where IPLevel = 4 ",
      count + "nwinterface" + set + " where IPLevel = 6 ",
      count + "nwentity" + set + " where entitytype = 4",
      count + "nwentity" + set + " where entitytype = 7  and IPLevel = 6 ",
      count + "nwentity" + set + " where entitytype = 7 and IPLevel = 4 ",
      count + "nwentity" + set + " where entitytype = 11",
      count + "nwentity" + set + " where entitytype = 10",
      count + "address" + set + " where addresstype = 1",
      count + "address" + set + " where addresstype = 2",
      count + "address" + set + " where addresstype = 16",
      count + "NWInterfaceAsc" + set + " where reltype = 1",
      "select V4ManagementAddressRD, count(*) from nwnode" + set +
          " group by V4ManagementAddressRD  order by V4ManagementAddressRD ",
  };
}

class TopologyInfoTest : public ApiTest {
 protected:
  /// A store in which no two counters are the same, as far as they can differ.
  void fill(TopoDBType set = ActiveDB) {
    for (int i = 1; i <= 3; ++i) {
      store->addNode(uuid(i), "n" + std::to_string(i),
                     {{"IPLevel", i == 3 ? 6 : 4},
                      {"SysOID", i == 1 ? "1.3.6" : "-"},
                      {"V4ManagementAddressRD", i == 2 ? 7 : 0}},
                     set);
    }
    for (int i = 1; i <= 5; ++i) {
      store->addInterface(uuid(i, 'b'), uuid(1), "eth" + std::to_string(i),
                          {{"IPLevel", i == 5 ? 6 : 4}}, set);
    }
    store->addEntity(uuid(1, 'c'), "vlan", 4, {}, set);
    addEntities('d', 7, 6, 2, set);
    addEntities('e', 7, 4, 4, set);
    addEntities('f', 11, 4, 6, set);
    for (int i = 1; i <= 7; ++i) store->addEntity(uuid(50 + i, 'c'), "mesh", 10, {}, set);
    addAddresses(100, 1, 8, set);
    addAddresses(200, 2, 9, set);
    addAddresses(300, 16, 10, set);
    store->addLink(uuid(1, 'b'), uuid(2, 'b'), uuid(1), uuid(1), {}, set);
    store->addLink(uuid(2, 'b'), uuid(1, 'b'), uuid(1), uuid(1), {{"RelType", 2}}, set);
  }

  void addEntities(char kind, int type, int level, int count, TopoDBType set) {
    for (int i = 1; i <= count; ++i) {
      store->addEntity(uuid(i, kind), "e", type, {{"IPLevel", level}}, set);
    }
  }
  void addAddresses(int first, int type, int count, TopoDBType set) {
    for (int i = 0; i < count; ++i) {
      store->addAddress(uuid(first + i), uuid(1, 'b'), uuid(1), "10.0.0.1", {{"AddressType", type}},
                        set);
    }
  }

  static std::vector<int> countsOf(const ZNTopologyInfo& info) {
    return {info.getNumberOfNode(),          info.getNumberOfIPV4Node(),
            info.getNumberOfIPV6Node(),      info.getNumberOfV4SNMPNode(),
            info.getNumberOfInterface(),     info.getNumberOfIPV4Interface(),
            info.getNumberOfIPV6Interface(), info.getNumberOfVlan(),
            info.getNumberOfPrefixGroup(),   info.getNumberOfSubnet(),
            info.getNumberOfHSRP(),          info.getNumberOfMesh(),
            info.getNumberOfV4Address(),     info.getNumberOfV6Address(),
            info.getNumberOfDNSName(),       info.getNumberOfL2Link()};
  }
  static void expectNothing(const ZNTopologyInfo& info) {
    EXPECT_EQ(countsOf(info), std::vector<int>(16));
    EXPECT_THAT(info.getRDMap(), IsEmpty());
    EXPECT_EQ(info.getTopologyState().getTopoState(), ZNTopologyState::UNKNOWN);
  }
};
ZNTOPO_ON_ENGINES(TopologyInfoTest, kEngines);

TEST_P(TopologyInfoTest, EachCounterCountsItsRows) {
  for (const TopoDBType set : {ActiveDB, WorkingDB}) fill(set);
  for (OpenImpl* const one : {&impl, &working}) {
    const ZNTopologyInfo info = one->getTopologyInfo(status);
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    EXPECT_THAT(countsOf(info), ElementsAre(3, 2, 1, 1, 5, 4, 1, 1, 2, 4, 6, 7, 8, 9, 10, 1));
    EXPECT_THAT(info.getRDMap(), ElementsAre(Pair("0", 2), Pair("7", 1)));
    EXPECT_EQ(info.getTopologyState().getTopoState(), ZNTopologyState::READY);
  }
}

TEST_P(TopologyInfoTest, EighteenStatementsRunInTheirOrder) {
  for (OpenImpl* const one : {&impl, &working}) {
    const StatementSpy spy;
    one->getTopologyInfo(status);
    std::vector<std::string> seen = spy.allStatements();
    ASSERT_EQ(seen.size(), 18U);
    EXPECT_THAT(seen.front(), HasSubstr("from State"));
    seen.erase(seen.begin());
    EXPECT_THAT(seen, ElementsAreArray(statements(one == &impl ? "" : "_update")));
  }
}

TEST_P(TopologyInfoTest, ANodeWithoutARouteDistinguisherCountsUnderAnEmptyKey) {
  store->addNode(uuid(1), "n1", {{"V4ManagementAddressRD", nullptr}});
  store->addNode(uuid(2), "n2", {{"V4ManagementAddressRD", -3}});
  EXPECT_THAT(impl.getTopologyInfo(status).getRDMap(), ElementsAre(Pair("", 1), Pair("-3", 1)));
}

TEST_P(TopologyInfoTest, AStoreThatIsNotReadyCountsNothing) {
  fill();
  store->execute("update state set TopologyReady = 0");
  expectNothing(impl.getTopologyInfo(status));
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(status.getAuxMsg(),
            "Topology DataStore is in the state of : TOPOLOGY_INTERNAL_PROCESSING\n");
}

TEST_P(TopologyInfoTest, WithoutAStateNothingIsCounted) {
  fill();
  store->execute("delete from state");
  const StatementSpy spy;
  expectNothing(impl.getTopologyInfo(status));
  EXPECT_FALSE(status.isOK());
  EXPECT_EQ(spy.allStatements().size(), 1U);
}

TEST_P(TopologyInfoTest, TheFirstFailureEndsTheCounting) {
  fill();
  const std::vector<std::string> all = statements();
  for (std::size_t i = 0; i < all.size(); ++i) {
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, all[i]);
    // A text may be part of those behind it, and is of none before it.
    expectNothing(impl.getTopologyInfo(status));
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_EQ(spy.allStatements().size(), i + 2) << all[i];
  }
}

TEST_P(TopologyInfoTest, WithoutAConnectionNothingIsCounted) {
  breakConnections();
  expectNothing(impl.getTopologyInfo(status));
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

// ---- one number ----

TEST_P(TopologyInfoTest, AStatisticIsTheLastNumberThatIsNotNull) {
  EXPECT_EQ(impl.getStatistic("select count(*) from nwnode where 1 = 2", status), 0);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(impl.getStatistic("select TopologyReady from state where 1 = 2", status), 0);
  store->addNode(uuid(1), "n1", {{"V4ManagementAddressRD", 5}});
  store->addNode(uuid(2), "n2", {{"V4ManagementAddressRD", 6}});
  store->addNode(uuid(3), "n3", {{"V4ManagementAddressRD", nullptr}});
  EXPECT_EQ(
      impl.getStatistic("select V4ManagementAddressRD from nwnode order by EntityName", status), 6);
}

TEST_P(TopologyInfoTest, EachFailedStepOfAStatisticHasItsStatusTextAndLog) {
  const std::string sql = "select count(*) from nwnode";
  struct Step {
    StatementSpy::Step step;
    ZNTopoStatus code;
    std::string text;
    MCDebugLevel level;
    std::string line;
  };
  const Step steps[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
       "Unable to bind SQL Statement: " + sql + "\n", MC_MAJOR, "Failed to bind SQL Statement \n"},
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for getStatistis()\n", MC_CRITICAL, "Problem binding values for"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n", MC_CRITICAL,
       "Problem executing SQL Command: " + sql + "\n"},
  };
  for (const Step& one : steps) {
    StatementSpy spy;
    spy.fail(one.step, sql);
    expectAmongLogged(one.level, one.line, [&] { EXPECT_EQ(impl.getStatistic(sql, status), 0); });
    EXPECT_EQ(status.getStatus(), one.code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(one.text));
  }
}

TEST_P(TopologyInfoTest, AStatisticTellsItsStatementAndThatThereIsNoConnection) {
  const auto ask = [this] { impl.getStatistic("select count(*) from nwnode", status); };
  expectAmongLogged(MC_INFO, "SQL : select count(*) from nwnode \n", ask);
  breakConnections();
  expectAmongLogged(MC_CRITICAL, "Fail to get a connection \n", ask);
  EXPECT_EQ(impl.getStatistic("select count(*) from nwnode", status), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

// ---- a map ----

constexpr const char* kPairs =
    "select EntityName, V4ManagementAddressRD from nwnode order by ObjId";

TEST_P(TopologyInfoTest, AMapTakesTheRowsAndKeepsWhatWasInIt) {
  store->addNode(uuid(1), "n1", {{"V4ManagementAddressRD", 5}});
  store->addNode(uuid(2), "n2", {{"V4ManagementAddressRD", nullptr}});
  std::map<std::string, int> map = {{"n1", 9}, {"old", 1}};
  EXPECT_EQ(impl.get_String_Int_Map(kPairs, map, status), 3);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(map, ElementsAre(Pair("n1", 5), Pair("n2", 0), Pair("old", 1)));
}

TEST_P(TopologyInfoTest, EachFailedStepOfAMapHasItsStatusTextAndLog) {
  store->addNode(uuid(1), "n1");
  struct Step {
    StatementSpy::Step step;
    int from;
    ZNTopoStatus code;
    std::string text;
    MCDebugLevel level;
    std::string line;
  };
  const Step steps[] = {
      {StatementSpy::BindSql, 1, ZN_API_SQL_BIND_STATEMENT_ERROR,
       std::string("Unable to bind SQL Statement: ") + kPairs + "\n", MC_MAJOR,
       "Error binding SQL to DbStatement in get_String_Int_Map()"},
      {StatementSpy::BindColumn, 1, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding first column in get_String_Int_Map()\n", MC_CRITICAL,
       "Error binding first column in get_String_Int_Map()"},
      {StatementSpy::BindColumn, 2, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding second column in get_String_Int_Map()\n", MC_CRITICAL,
       "Error binding second column in get_String_Int_Map()"},
      {StatementSpy::Exec, 1, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n", MC_CRITICAL,
       std::string("Problem executing SQL Command: ") + kPairs + "\n" +
           "Error executing SQL in get_String_Int_Map()"},
  };
  for (const Step& one : steps) {
    StatementSpy spy;
    spy.fail(one.step, kPairs, TvDbil::DBIL_ERROR, one.from);
    std::map<std::string, int> map;
    expectAmongLogged(one.level, one.line,
                      [&] { EXPECT_EQ(impl.get_String_Int_Map(kPairs, map, status), 0); });
    EXPECT_EQ(status.getStatus(), one.code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(one.text));
  }
}

TEST_P(TopologyInfoTest, WithoutAConnectionAMapStaysAsItIs) {
  breakConnections();
  std::map<std::string, int> map = {{"old", 1}};
  expectAmongLogged(MC_CRITICAL, "Fail to get a connection \n",
                    [&] { EXPECT_EQ(impl.get_String_Int_Map(kPairs, map, status), 1); });
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(map, ElementsAre(Pair("old", 1)));
}

TEST_P(TopologyInfoTest, RowsOfAMapThatEndInAFailureAreToldToTheLogAlone) {
  store->addNode(uuid(1), "n1", {{"V4ManagementAddressRD", 5}});
  StatementSpy spy;
  spy.fail(StatementSpy::Fetch, kPairs, TvDbil::DBIL_ERROR, 2);
  std::map<std::string, int> map;
  expectAmongLogged(MC_CRITICAL,
                    std::string("Error fetching rows in get_String_Int_Map()") +
                        "Problem fetching SQL Command: " + kPairs + "\n",
                    [&] { EXPECT_EQ(impl.get_String_Int_Map(kPairs, map, status), 1); });
  EXPECT_TRUE(status.isOK());
}

// ---- the text ----

ZNTopologyInfo infoOf(int nodes, int interfaces, int vlans) {
  return {nodes, 0, 0, interfaces, 0, 0, 0, 0, vlans, 0, 0, 0, 0, 0, 0, 0, {}, ZNTopologyState()};
}

TEST(TopologyInfoTextTest, TheTextHasEachCounterInALine) {
  const ZNTopologyState ready(ZNTopologyState::READY, 0, {});
  const ZNTopologyInfo info(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,
                            {{"", 2}, {"0", 3}}, ready);
  EXPECT_EQ(info.toString(),
            "\n\n Topology State = READY\n"
            "Total number of Nodes:\t\t\t1\n"
            "Total number of Interfaces:\t\t4\n"
            "Total number of Vlans:\t\t\t9\n"
            "Total number of HSRP Groups:\t\t10\n"
            "Total number of Switch Meshes:\t\t11\n"
            "Total number of Topology Objects:\t39\n"
            "Total number of L2Links:\t\t\t12\n"
            "Number of IPV4 Nodes:\t\t\t2\n"
            "Number of IPV6 Nodes:\t\t\t3\n"
            "Number of IPV6 PrefixGroups:\t\t7\n"
            "Number of IPV4 Subnets:\t\t\t8\n"
            "Number of Nodes supporting V4SNMP :\t16\n"
            "Number of IPV4 Interfaces:\t\t5\n"
            "Number of IPV6 Interfaces:\t\t6\n"
            "Total number of IPV4 Addresses:\t\t13\n"
            "Total number of IPV6 Addresses:\t\t14\n"
            "Total number of Address Objects:\t\t27\n"
            "Overlapping Address Domain and node counts for each:\n"
            "\t has 2 nodes\n"
            "0\t has 3 nodes\n"
            "\n");
}

TEST(TopologyInfoTextTest, TheSumHasNodesInterfacesAndVlans) {
  EXPECT_THAT(infoOf(3, 5, 1).toString(), HasSubstr("\nTotal number of Topology Objects:\t9\n"));
}

TEST(TopologyInfoTextTest, AnEmptyInfoHasItsText) {
  EXPECT_THAT(ZNTopologyInfo().toString(),
              StartsWith("\n\n Topology State = UNKNOWN\nTotal number of Nodes:\t\t\t0\n"));
}

}  // namespace
}  // namespace zntopo::test
