#include "tools/network/StoreWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/support/ConnectedStore.h"
#include "tests/support/StoreDump.h"
#include "tools/network/StoreError.h"

namespace zntopo::tools {
namespace {

InterfaceModel interface(const std::string& key, const std::string& name) {
  InterfaceModel result;
  result.key = key;
  result.name = name;
  return result;
}

NodeModel node(const std::string& name, std::vector<InterfaceModel> interfaces) {
  NodeModel result;
  result.key = name;
  result.name = name;
  result.interfaces = std::move(interfaces);
  return result;
}

/// Two linked nodes with addresses of both kinds, and a VLAN.
NetworkModel smallNetwork() {
  NetworkModel model;
  model.nodes.push_back(node("A", {interface("A/1", "Gi1/0/1"), interface("A/2", "Gi1/0/2")}));
  model.nodes.push_back(node("B", {interface("B/1", "eth0")}));
  const Index vlan = model.vlanOf("v", "office", 10);
  model.nodes[0].interfaces[0].vlans = {vlan};
  model.nodes[0].interfaces[1].vlans = {vlan};
  model.nodes[1].managementAddress = IpAddress::parse("10.0.0.2");
  auto& addresses = model.nodes[1].interfaces[0].addresses;
  addresses.push_back({*IpAddress::parse("10.0.0.2"), 24, true, {}});
  addresses.push_back({*IpAddress::parse("2001:db8::2"), 64, true, {}});
  model.addLink({0, 0}, {1, 0});
  model.assignSubnets();
  return model;
}

class StoreWriterTest : public test::ConnectedStoreTest {
 protected:
  WriteCounts write(const std::vector<NetworkModel>& networks, const std::string& zone = "") {
    NetworkReport report;
    return writeNetworks(*connection_, networks, zone, report);
  }
  std::string dump(bool withTimes = true) { return test::dumpStore(*connection_, withTimes); }
};

TEST_P(StoreWriterTest, WritesWhatTheLibraryNeedsToFindThings) {
  write({smallNetwork()});
  EXPECT_EQ(store_->count("nwnode"), 2);
  EXPECT_EQ(store_->count("nwinterface"), 3);
  // Nodes, interfaces, the VLAN and the two subnets are entities.
  EXPECT_EQ(store_->count("nwentity"), 2 + 3 + 1 + 2);
  EXPECT_EQ(store_->count("NWInterfaceAsc"), 1);
  EXPECT_EQ(store_->count("nwvlan"), 1);
  EXPECT_EQ(value("select reltype from NWInterfaceAsc"), "1");
  EXPECT_EQ(value("select IfAlias from nwinterface where EntityName = 'eth0'"), "-");
  EXPECT_EQ(value("select Description from nwinterface where EntityName = 'eth0'"), "-");
  EXPECT_EQ(value("select VendorCard from nwinterface where EntityName = 'Gi1/0/2'"), "1/0");
  EXPECT_EQ(value("select VendorPort from nwinterface where EntityName = 'Gi1/0/2'"), "2");
  EXPECT_EQ(value("select isL2Connected from nwinterface where EntityName = 'Gi1/0/1'"), "1");
  EXPECT_EQ(value("select isL2Connected from nwinterface where EntityName = 'Gi1/0/2'"), "0");
  EXPECT_EQ(value("select hasAddress from nwinterface where EntityName = 'eth0'"), "1");
  EXPECT_EQ(value("select PubV4ManagementAdd from nwnode where EntityName = 'B'"), "10.0.0.2");
  EXPECT_EQ(value("select isLanSwitch from nwnode where EntityName = 'A'"), "1");
  EXPECT_EQ(value("select IPLevel from nwentity where EntityType = 4"), "4");
  EXPECT_EQ(value("select IntVal from userdefvar where VarName = 'VlanId'"), "10");
  EXPECT_EQ(value("select count(*) from containment where ContainerType = 4 and "
                  "ContainedNodeObjId is not null"),
            "2");
}

TEST_P(StoreWriterTest, AddressesHaveTheirOwnerAndTheirSubnet) {
  write({smallNetwork()});
  EXPECT_EQ(value("select PubV4Address from address where V4Address = '10.0.0.2'"), "10.0.0.2");
  EXPECT_EQ(value("select isSubnet from address where V6Address = '2001:db8::2'"), "0");
  EXPECT_EQ(value("select V6ScopeType from address where V6Address = '2001:db8::2'"), "3");
  EXPECT_EQ(value("select length(V6AddressBS) from address where V6Address = '2001:db8::2'"),
            "128");
  EXPECT_EQ(value("select count(*) from address a, nwinterface i, nwentity s where "
                  "a.isSubnet = 0 and a.ObjId = i.ObjId and a.NodeObjId = i.NodeObjID and "
                  "a.SubnetObjId = s.ObjId and s.EntityType = 7"),
            "2");
}

TEST_P(StoreWriterTest, ASubnetsOwnAddressIsNotFoundAsAHostsIs) {
  write({smallNetwork()});
  EXPECT_EQ(value("select count(*) from address where isSubnet = 1 and ObjId = SubnetObjId"), "2");
  EXPECT_EQ(value("select count(*) from address where isSubnet = 1 and "
                  "(PubV4Address is not null or RouteDistinguisher is not null)"),
            "0");
}

TEST_P(StoreWriterTest, WritingTheSameAgainChangesNothing) {
  const WriteCounts first = write({smallNetwork()});
  EXPECT_GT(first.added, 0);
  const std::string before = dump();
  const WriteCounts second = write({smallNetwork()});
  EXPECT_EQ(second.added, 0);
  EXPECT_EQ(second.changed, 0);
  EXPECT_EQ(second.unchanged, first.added);
  EXPECT_EQ(dump(), before);
}

TEST_P(StoreWriterTest, AChangeMovesTheTimeOfReadinessBeyondTheOldOne) {
  write({smallNetwork()});
  store_->execute("update state set TOPOLOGYREADYCHANGETIME = 2000000000");
  NetworkModel model = smallNetwork();
  model.nodes[0].description = "changed";
  const WriteCounts counts = write({model});
  EXPECT_EQ(counts.added, 0);
  EXPECT_EQ(counts.changed, 2);
  EXPECT_EQ(value("select TOPOLOGYREADYCHANGETIME from state"), "2000000001");
  EXPECT_EQ(store_->count("state"), 1);
}

TEST_P(StoreWriterTest, AStoreThatIsNotReadyBecomesReadyWithoutAChange) {
  write({smallNetwork()});
  for (const char* spoil : {"update state set TopologyReady = 0",
                            "update state set MeshState = null", "delete from state"}) {
    store_->execute(spoil);
    write({smallNetwork()});
    EXPECT_EQ(value("select TopologyReady + MeshState from state"), "2") << spoil;
  }
}

TEST_P(StoreWriterTest, ALinkToldTheOtherWayRoundIsTheSameRow) {
  write({smallNetwork()});
  NetworkModel turned = smallNetwork();
  std::swap(turned.links[0].left, turned.links[0].right);
  EXPECT_EQ(write({turned}).added, 0);
  EXPECT_EQ(store_->count("NWInterfaceAsc"), 1);
}

TEST_P(StoreWriterTest, WhatOtherImportsBroughtStays) {
  write({smallNetwork()});
  NetworkModel smaller = smallNetwork();
  smaller.links.clear();
  smaller.nodes[1].interfaces[0].addresses.clear();
  const WriteCounts counts = write({smaller});
  EXPECT_EQ(store_->count("NWInterfaceAsc"), 1);
  EXPECT_EQ(value("select isL2Connected from nwinterface where EntityName = 'eth0'"), "1");
  EXPECT_EQ(value("select hasAddress from nwinterface where EntityName = 'eth0'"), "1");
  EXPECT_EQ(counts.changed, 0);
}

TEST_P(StoreWriterTest, ColumnsThatOthersWriteStay) {
  write({smallNetwork()});
  store_->execute("update nwnode set SNMPState = 2, sysContact = 'ops' where EntityName = 'A'");
  NetworkModel model = smallNetwork();
  model.nodes[0].description = "changed";
  write({model});
  EXPECT_EQ(value("select SNMPState from nwnode where EntityName = 'A'"), "2");
  EXPECT_EQ(value("select sysContact from nwnode where EntityName = 'A'"), "ops");
  EXPECT_EQ(value("select Description from nwnode where EntityName = 'A'"), "changed");
}

TEST_P(StoreWriterTest, TextsWithQuotesGoInAsTheyAre) {
  NetworkModel model = smallNetwork();
  model.nodes[0].name = "O'Brien\"; drop table nwnode; -- ? \\ %_\xc3\xa4";
  write({model});
  EXPECT_EQ(value("select EntityName from nwnode where isLanSwitch = 1"), model.nodes[0].name);
  EXPECT_EQ(write({model}).changed, 0);
}

TEST_P(StoreWriterTest, AFailureLeavesTheStoreAsItWas) {
  write({smallNetwork()});
  const std::string before = dump();
  NetworkModel model = smallNetwork();
  model.nodes[0].description = "changed";
  model.nodes[1].name = std::string(300, 'x');  // wider than its column
  EXPECT_THROW(write({model}), StoreError);
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(dump(), before);
}

TEST_P(StoreWriterTest, ZonesKeepEqualNetworksApart) {
  write({smallNetwork()});
  write({smallNetwork()}, "lab");
  EXPECT_EQ(store_->count("nwnode"), 4);
  EXPECT_EQ(value("select count(*) from nwnode where ZoneNumber = 'lab'"), "2");
}

TEST_P(StoreWriterTest, AStoreWithoutTablesIsKnownAsSuch) {
  EXPECT_TRUE(hasSchema(*connection_));
  const test::TestEngine empty(GetParam());
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, empty.store());
  TvDbil::DbConnection_t connection(messages, &source);
  ASSERT_TRUE(connection.IsValid());
  EXPECT_FALSE(hasSchema(connection));
}

TEST_P(StoreWriterTest, AnotherWriterIsWaitedFor) {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store_->engine().store());
  TvDbil::DbConnection_t other(messages, &source);
  ASSERT_EQ(TvDbil::DBIL_SUCCESS, other.StartTransaction(messages));
  {
    TvDbil::DbStatement_t statement(messages, &other);
    ASSERT_EQ(TvDbil::DBIL_SUCCESS,
              statement.BindSql(messages, "update nwnode set Status = 1 where 1 = 0"));
    ASSERT_EQ(TvDbil::DBIL_SUCCESS, statement.Exec(messages));
  }
  // Whichever comes first, the import ends well: it waits for the commit, or finds it done.
  std::thread committer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    TvXplMsg::MessageList_t ignored;
    other.CommitTransaction(ignored);
  });
  NetworkReport report;
  EXPECT_NO_THROW(
      EXPECT_GT(writeNetworks(*connection_, {smallNetwork()}, "", report, {}).added, 0));
  committer.join();
}

ZNTOPO_ON_ENGINES(StoreWriterTest, test::kEngines);

}  // namespace
}  // namespace zntopo::tools
