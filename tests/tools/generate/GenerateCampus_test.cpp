#include "tools/generate/GenerateCampus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/support/StoreDump.h"
#include "tests/support/TestStore.h"
#include "tools/network/StoreError.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo::tools {
namespace {

using test::Engine;
using test::TestStore;

/// Two sites with a backbone, and at least one row in every table.
CampusPlan smallPlan(std::uint64_t seed = 1) {
  CampusPlan plan;
  plan.nodes = 60;
  plan.interfaces = 1000;
  plan.sites = 2;
  plan.seed = seed;
  plan.userVariableShare = 0.1;
  return plan;
}

CampusPlan ringPlan(NetworkShape shape, int nodes) {
  CampusPlan plan;
  plan.shape = shape;
  plan.nodes = nodes;
  return plan;
}

long long countOf(const CampusCounts& counts, const std::string& kind) {
  for (const auto& [name, number] : counts.objects) {
    if (name == kind) return number;
  }
  ADD_FAILURE() << "no such kind: " << kind;
  return -1;
}

class GenerateTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    reset();
  }
  void TearDown() override {
    connection_.reset();
    store_.reset();
  }

  void reset() {
    connection_.reset();
    store_.reset();
    store_.emplace(GetParam());
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, store_->engine().store());
    connection_.emplace(messages, &source);
    ASSERT_TRUE(connection_->IsValid());
  }

  CampusCounts generate(const CampusPlan& plan, bool isMerging = false) {
    return generateCampus(*connection_, plan, {}, isMerging);
  }
  std::string dump() {
    std::string result;
    for (int table = 0; table < TableCount; ++table) {
      std::vector<std::string> columns;
      for (const ColumnDef& column : kTables[table].columns) columns.emplace_back(column.name);
      result += test::dumpTable(*connection_, kTables[table].name, columns);
    }
    return result;
  }
  int number(const std::string& sql) { return std::stoi(store_->value(sql).value_or("-1")); }
  /// The rows of the table whose column leads to no row of the other.
  int danglers(const std::string& table, const std::string& column, const std::string& other,
               const std::string& otherColumn = "ObjId") {
    return number("select count(*) from " + table + " where " + column + " is not null and " +
                  column + " not in (select " + otherColumn + " from " + other + ")");
  }

  std::optional<TestStore> store_;
  std::optional<TvDbil::DbConnection_t> connection_;
};

TEST_P(GenerateTest, TheSameSeedGivesTheSameRows) {
  generate(smallPlan());
  const std::string first = dump();
  reset();
  generate(smallPlan());
  EXPECT_TRUE(dump() == first);
}

TEST_P(GenerateTest, ProgressGrowsWhileItIsWritten) {
  std::vector<double> parts;
  generateCampus(*connection_, smallPlan(), [&](double part) { parts.push_back(part); });
  EXPECT_GT(parts.size(), 10u);
  EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
  EXPECT_GE(parts.front(), 0);
  EXPECT_GT(parts.back(), 0.8) << "the last nodes are followed by the indices";
  EXPECT_LE(parts.back(), 1);
}

TEST_P(GenerateTest, AnotherSeedGivesOtherRows) {
  const CampusCounts first = generate(smallPlan(1));
  const std::string rows = dump();
  reset();
  const CampusCounts second = generate(smallPlan(2));
  EXPECT_FALSE(dump() == rows);
  EXPECT_EQ(countOf(first, "links"), countOf(second, "links"));
}

TEST_P(GenerateTest, EveryTableIsFilledAndTheCountsAreThoseOfTheStore) {
  const CampusCounts counts = generate(smallPlan());
  long long all = 0;
  for (const auto& [table, rows] : counts.rows) {
    EXPECT_GT(rows, 0) << table;
    EXPECT_EQ(store_->count(table), rows) << table;
    all += rows;
  }
  EXPECT_EQ(counts.added, all);
  EXPECT_EQ(store_->count("state"), 1);
  EXPECT_EQ(store_->count("nwnode"), 60);
  EXPECT_EQ(store_->count("nwinterface"), 1000);
  EXPECT_EQ(countOf(counts, "nodes"), 60);
  EXPECT_EQ(countOf(counts, "interfaces"), 1000);
  EXPECT_EQ(countOf(counts, "links"), store_->count("NWInterfaceAsc"));
  EXPECT_EQ(countOf(counts, "HSRP groups"), store_->count("nwhsrp"));
  EXPECT_EQ(countOf(counts, "subnets"),
            number("select count(*) from nwentity where EntityType = 7"));
}

TEST_P(GenerateTest, EveryReferenceHolds) {
  generate(smallPlan());
  for (const char* kind : {"nwnode", "nwinterface", "nwvlan", "nwhsrp", "nwifc"}) {
    EXPECT_EQ(danglers(kind, "ObjId", "nwentity"), 0) << kind;
  }
  EXPECT_EQ(danglers("nwinterface", "NodeObjID", "nwnode"), 0);
  EXPECT_EQ(danglers("address", "NodeObjId", "nwnode"), 0);
  EXPECT_EQ(danglers("address", "ObjId", "nwentity"), 0);
  EXPECT_EQ(danglers("address", "SubnetObjId", "nwentity"), 0);
  EXPECT_EQ(danglers("containment", "ContainerObjID", "nwentity"), 0);
  EXPECT_EQ(danglers("containment", "ContainedObjID", "nwinterface"), 0);
  EXPECT_EQ(danglers("containment", "ContainedNodeObjId", "nwnode"), 0);
  for (const char* side : {"left", "right"}) {
    const std::string name = side;
    EXPECT_EQ(danglers("NWInterfaceAsc", name + "objid", "nwinterface"), 0);
    EXPECT_EQ(danglers("NWInterfaceAsc", name + "ifnodeobjid", "nwnode"), 0);
    EXPECT_EQ(danglers("nwifcasc", name + "IFContainerObjID", "nwifc"), 0);
    EXPECT_EQ(danglers("addressmapping", name + "AddressId", "address", "AddressId"), 0);
    EXPECT_EQ(number("select count(*) from NWInterfaceAsc a, nwinterface b where a." + name +
                     "objid = b.ObjId and a." + name + "ifnodeobjid <> b.NodeObjID"),
              0);
  }
  EXPECT_EQ(danglers("hsrpaddress", "AddressID", "address", "AddressId"), 0);
  EXPECT_EQ(danglers("hsrpaddress", "AddressIfObjID", "nwinterface"), 0);
  EXPECT_EQ(danglers("hsrpaddress", "ObjID", "nwhsrp"), 0);
  EXPECT_EQ(danglers("nwifcctm", "ContainerObjId", "nwifc"), 0);
  EXPECT_EQ(danglers("nwifcctm", "InterfaceObjId", "nwinterface"), 0);
  EXPECT_EQ(danglers("userdefvar", "ObjID", "nwentity"), 0);
}

TEST_P(GenerateTest, FlagsSayWhatIsThere) {
  generate(smallPlan());
  const std::string linked =
      " in (select leftobjid from NWInterfaceAsc union select rightobjid from NWInterfaceAsc)";
  EXPECT_EQ(
      number("select count(*) from nwinterface where isL2Connected = 1 and ObjId not" + linked), 0);
  EXPECT_EQ(number("select count(*) from nwinterface where isL2Connected = 0 and ObjId" + linked),
            0);
  EXPECT_EQ(number("select count(*) from nwentity where hasDynamicProperty <> "
                   "case when ObjId in (select ObjID from userdefvar) then 1 else 0 end"),
            0);
  EXPECT_EQ(number("select count(*) from nwinterface where hasAddress <> "
                   "case when ObjId in (select ObjId from address) then 1 else 0 end"),
            0);
  EXPECT_EQ(number("select count(*) from nwinterface where coalesce(isHSRP, 0) <> "
                   "case when ObjId in (select AddressIfObjID from hsrpaddress) then 1 else 0 end"),
            0);
}

TEST_P(GenerateTest, NoAddressNoHardwareAddressNorLegacyIdentifierIsGivenTwice) {
  generate(smallPlan());
  for (const auto& [table, column] : {std::pair("nwinterface", "PhysicalAddress"),
                                      {"nwentity", "QRMObjId"},
                                      {"address", "PubV4Address"},
                                      {"address", "AddressQRMId"}}) {
    EXPECT_EQ(number(std::string("select count(") + column + ") - count(distinct " + column +
                     ") from " + table),
              0)
        << table << " " << column;
  }
  // Addresses of a wire are its own alone.
  EXPECT_EQ(number("select count(V6Address) - count(distinct V6Address) from address where "
                   "isSubnet = 0 and V6ScopeType = 3"),
            0);
}

TEST_P(GenerateTest, EveryAddressLiesInItsSubnet) {
  generate(smallPlan());
  std::map<std::string, IpPrefix> subnets;
  for (const std::string& name : {std::string("4"), std::string("6")}) {
    std::istringstream lines(test::dumpTable(*connection_,
                                             "nwentity where EntityType = 7 and IPLevel = " + name,
                                             {"ObjId", "EntityName"}));
    for (std::string line; std::getline(lines, line);) {
      const std::size_t bar = line.rfind('|');
      subnets[line.substr(bar - 36, 36)] = *IpPrefix::parse(line.substr(bar + 1));
    }
  }
  std::istringstream lines(test::dumpTable(*connection_, "address where SubnetObjId is not null",
                                           {"SubnetObjId", "coalesce(V4Address, V6Address)"}));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    const std::size_t bar = line.rfind('|');
    const std::string subnet = line.substr(bar - 36, 36);
    const std::string address = line.substr(bar + 1);
    ASSERT_TRUE(subnets.contains(subnet)) << line;
    EXPECT_TRUE(subnets[subnet].contains(*IpAddress::parse(address))) << line;
  }
  EXPECT_GT(count, 60);
}

TEST_P(GenerateTest, HsrpGroupsHaveOneActiveMemberUnlessBrokenOnesAreAskedFor) {
  const std::string notOne =
      "select count(*) from nwhsrp where (select count(*) from hsrpaddress a where "
      "a.ObjID = nwhsrp.ObjId and a.state = 6) <> 1";
  generate(smallPlan());
  EXPECT_EQ(number(notOne), 0);
  reset();
  CampusPlan plan = smallPlan();
  plan.brokenGroupShare = 1;
  generate(plan);
  EXPECT_EQ(number(notOne), store_->count("nwhsrp"));
}

TEST_P(GenerateTest, TrackListsNameInterfacesOfTheSameNode) {
  generate(smallPlan());
  std::istringstream lines(
      test::dumpTable(*connection_, "hsrpaddress", {"AddressIfObjID", "TrackInterfaceList"}));
  int tracked = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t bar = line.rfind('|');
    const std::string owner = line.substr(bar - 36, 36);
    const ZNHSRPAddressInfo info(1, ObjID(), ObjID(), 100, ZNHSRPAddressInfo::Active,
                                 line.substr(bar + 1), 100);
    for (const TrackInterfaceInfo& track : info.getTrackInterfaceInfoList()) {
      EXPECT_EQ(number("select count(*) from nwinterface a, nwinterface b where a.ObjId = '" +
                       owner + "' and b.ObjId = '" + track.ifObjID.getStrValue() +
                       "' and a.NodeObjID = b.NodeObjID"),
                1);
      EXPECT_EQ(track.ifPriority, 10);
      ++tracked;
    }
  }
  EXPECT_EQ(tracked, 2 * store_->count("hsrpaddress"));
}

TEST_P(GenerateTest, UserVariablesHaveEveryTypeAndCanBeSwitchedOff) {
  generate(smallPlan());
  for (const int type : {0, 1, 2, 3, 5, 6}) {
    EXPECT_GT(number("select count(*) from userdefvar where VarValType = " + std::to_string(type)),
              0)
        << type;
  }
  EXPECT_EQ(number("select count(*) from userdefvar where VarValType = 5 and "
                   "(IntVal is null or FloatVal is null)"),
            0);
  reset();
  CampusPlan plan = smallPlan();
  plan.userVariableShare = 0;
  generate(plan);
  EXPECT_EQ(number("select count(*) from userdefvar where VarName <> 'VlanId'"), 0);
  EXPECT_EQ(store_->count("userdefvar"), store_->count("nwvlan"));
}

TEST_P(GenerateTest, AStoreThatHasTopologyIsRefusedAndStaysAsItIs) {
  generate(smallPlan(1));
  const std::string before = dump();
  EXPECT_THROW(generate(smallPlan(2)), StoreNotEmpty);
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_TRUE(dump() == before);
}

TEST_P(GenerateTest, MergingTheSameAgainChangesNothing) {
  generate(smallPlan());
  const std::string before = dump();
  const CampusCounts again = generate(smallPlan(), true);
  EXPECT_EQ(again.added + again.changed, 0);
  EXPECT_TRUE(dump() == before);
}

TEST_P(GenerateTest, AZoneComesInBesideWhatIsThere) {
  generate(smallPlan());
  CampusPlan plan = smallPlan();
  plan.zone = "lab";
  const CampusCounts counts = generate(plan, true);
  EXPECT_EQ(counts.changed + counts.unchanged, 0);
  EXPECT_EQ(store_->count("nwnode"), 120);
  EXPECT_EQ(number("select count(*) from nwnode where ZoneNumber = 'lab'"), 60);
}

TEST_P(GenerateTest, CountingTellsWhatWritingWrites) {
  const CampusCounts counted = countCampus(smallPlan());
  const CampusCounts written = generate(smallPlan());
  EXPECT_EQ(counted.objects, written.objects);
  EXPECT_EQ(counted.rows, written.rows);
}

TEST_P(GenerateTest, RingsInSeveralPartsAreClosed) {
  for (const NetworkShape shape : {NetworkShape::SwitchRing, NetworkShape::RouterRing}) {
    reset();
    const CampusCounts counts = generate(ringPlan(shape, 2100));
    EXPECT_EQ(store_->count("nwnode"), 2100);
    EXPECT_EQ(store_->count("nwinterface"), 8400);
    EXPECT_EQ(countOf(counts, "links"), 2100);
    EXPECT_EQ(number("select count(*) from nwinterface where isL2Connected = 1"), 4200);
    EXPECT_EQ(number("select count(*) from (select NodeObjId from ("
                     "select leftifnodeobjid as NodeObjId from NWInterfaceAsc union all "
                     "select rightifnodeobjid as NodeObjId from NWInterfaceAsc) e "
                     "group by NodeObjId having count(*) = 2) n"),
              2100);
    EXPECT_EQ(danglers("NWInterfaceAsc", "leftobjid", "nwinterface"), 0);
    EXPECT_EQ(danglers("NWInterfaceAsc", "rightobjid", "nwinterface"), 0);
    EXPECT_EQ(danglers("address", "SubnetObjId", "nwentity"), 0);
  }
}

/// The library on a generated store.
class GeneratedNetworkTest : public GenerateTest {
 protected:
  void SetUp() override {
    GenerateTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    generate(smallPlan());
    ZNTopoAPIDefaultFactory factory;
    factory.initZNTopoAPI(ZNTopoConfig());
    api_ = factory.getRDInstance(status_, ActiveDB);
    ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  }
  void TearDown() override {
    api_ = ZNRefPtr<ZNTopoAPI>();
    GenerateTest::TearDown();
  }

  ZNRefPtr<ZNTopoAPI> api_;
  ZNTopoAPIStatus status_;
};

TEST_P(GeneratedNetworkTest, TheLibraryReadsEveryNodeAndInterface) {
  std::set<ObjID> notFound;
  const auto nodes = api_->getNodesByObjIDList({}, notFound, status_, false, false, true,
                                               ZNEntity::AllProtocol, -1);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  EXPECT_EQ(nodes->size(), 60u);
  std::size_t interfaces = 0, variables = 0;
  for (const auto& node : *nodes) {
    interfaces += node->getInterfaceList().size();
    variables += node->getUserVars().size();
  }
  EXPECT_EQ(interfaces, 1000u);
  EXPECT_EQ(static_cast<int>(variables),
            number("select count(*) from userdefvar a, nwnode b where a.ObjID = b.ObjId"));
  EXPECT_GT(variables, 0u);
}

TEST_P(GeneratedNetworkTest, NamesAndAddressesFindTheirNode) {
  for (const char* name : {"backbone-1", "site01-edge-1", "site02-core-2", "site01-dist-1"}) {
    const auto node = api_->getNodeByName(name, status_, -1);
    ASSERT_TRUE(status_.isOK()) << name << status_.getAuxMsg();
    EXPECT_EQ(node->getName(), name);
    const std::string address = node->getIPv4MgmtAddress().getPublicAddress();
    EXPECT_EQ(api_->getNodeByName(address, status_, -1)->getName(), name) << address;
  }
}

TEST_P(GeneratedNetworkTest, NeighboursOfACoreAreItsDistributionTheOtherCoreAndTheEdges) {
  const auto links = api_->getNodeNeighbors("site01-core-1", status_, 1, 1000);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  // Its own, and those among its neighbours: the other core's, the edges' and the ring's.
  const int dists = number("select count(*) from nwnode where EntityName like 'site01-dist-%'");
  const int ring = dists == 2 ? 1 : dists;
  EXPECT_EQ(static_cast<int>(links->size()), 2 * dists + ring + 1 + 4 + 1);
}

TEST_P(GeneratedNetworkTest, FramesCrossASiteWithoutARouterAndTheCampusWithOne) {
  const std::string host = "select min(n.EntityName) from nwnode n where n.EntityName like '";
  const std::string here = *store_->value(host + "site01-host-%'");
  const std::string there = *store_->value(host + "site02-host-%'");
  const std::string last =
      *store_->value("select max(EntityName) from nwnode where EntityName like 'site01-host-%'");
  const auto within = api_->getL2PathBetweenNodes(here, last, 20, status_, ZNAddress::IPv4, false);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  EXPECT_GE(within->size(), 4u);
  api_->getL2PathBetweenNodes(here, there, 20, status_, ZNAddress::IPv4, false);
  EXPECT_EQ(status_.getStatus(), ZN_API_NO_PATH);
  const auto across = api_->getL2PathBetweenNodes(here, there, 20, status_, ZNAddress::IPv4, true);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  EXPECT_GE(across->size(), 16u);
}

TEST_P(GeneratedNetworkTest, SwitchesKnowTheirVlansAndContainers) {
  const auto access = api_->getNodeByName("site01-access-1", status_, -1);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  // Management, servers, voice, and one for data.
  EXPECT_EQ(access->getVlanInfoList().size(), 4u);
  // The uplinks are in one container, both of them.
  ASSERT_EQ(access->getAllIfcInfo().size(), 1u);
  EXPECT_EQ(access->getAllIfcInfo().front().getAllIfcIFInfos().size(), 2u);
  const auto core = api_->getNodeByName("site01-core-1", status_, -1);
  EXPECT_EQ(static_cast<int>(core->getVlanInfoList().size()),
            number("select count(*) from nwentity where EntityType = 4 and EntityName like "
                   "'site01-%'"));
  // The trunk, and the way out.
  EXPECT_EQ(core->getAllIfcInfo().size(), 2u);
}

TEST_P(GeneratedNetworkTest, NamesAndMonitoringHangOnIPv6Addresses) {
  const std::string address =
      *store_->value("select min(AddressId) from address where AddressQRMId is not null");
  const auto names = api_->resolveIPv6ToDNS(ObjID(address), status_);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  ASSERT_EQ(names->size(), 1u);
  EXPECT_THAT(names->front(), testing::EndsWith(".campus.example"));
  const auto monitored = api_->getMonitoredIPv6AddressByQRMObjID(
      ObjID(*store_->value("select AddressQRMId from address where AddressId = '" + address + "'")),
      status_);
  ASSERT_TRUE(status_.isOK()) << status_.getAuxMsg();
  EXPECT_EQ(monitored->getAddressID(), ObjID(address));
  EXPECT_NE(monitored->getIPv6NetToMediaState(), 0);
}

ZNTOPO_ON_ENGINES(GenerateTest, test::kMainEngines);
ZNTOPO_ON_ENGINES(GeneratedNetworkTest, test::kMainEngines);

TEST(CampusPlanTest, SizesAreMetExactly) {
  for (const auto& [nodes, interfaces, sites] : {std::tuple(8, 100, 1),
                                                 {13, 500, 1},
                                                 {18, 400, 2},
                                                 {100, 230, 1},
                                                 {777, 9999, 3},
                                                 {1001, 20'000, 7}}) {
    CampusPlan plan;
    plan.nodes = nodes;
    plan.interfaces = interfaces;
    plan.sites = sites;
    const CampusCounts counts = countCampus(plan);
    EXPECT_EQ(countOf(counts, "nodes"), nodes);
    EXPECT_EQ(countOf(counts, "interfaces"), interfaces);
  }
}

TEST(CampusPlanTest, WhatCannotBeMetIsRefusedWithWhatWould) {
  const auto refusal = [](const CampusPlan& plan) -> std::string {
    try {
      countCampus(plan);
    } catch (const PlanError& error) {
      return error.what();
    }
    return "";
  };
  CampusPlan plan;
  plan.nodes = 7;
  EXPECT_EQ(refusal(plan), "A campus has at least 8 nodes.");
  plan.nodes = 100;
  plan.sites = 20;
  EXPECT_EQ(refusal(plan), "20 sites have at least 165 nodes.");
  plan.sites = 1;
  plan.interfaces = 100;
  const std::string tooFew = refusal(plan);
  EXPECT_THAT(tooFew, testing::StartsWith("The links and addresses of this campus need at least "));
  plan.interfaces = std::stoi(tooFew.substr(tooFew.find_first_of("0123456789")));
  EXPECT_EQ(countOf(countCampus(plan), "interfaces"), *plan.interfaces);
  plan.interfaces.reset();
  plan.userVariableShare = 1.5;
  EXPECT_EQ(refusal(plan), "A share is a number from 0 to 1.");
  EXPECT_EQ(refusal(ringPlan(NetworkShape::SwitchRing, 2)),
            "This ring has from 3 to 10000000 nodes.");
}

TEST(CampusPlanTest, ProgressGrowsFromNothingToNearlyAll) {
  double last = -1;
  countCampus(smallPlan(), [&](double part) {
    EXPECT_GE(part, last);
    EXPECT_LE(part, 1);
    last = part;
  });
  EXPECT_GT(last, 0.9);
}

}  // namespace
}  // namespace zntopo::tools
