// What each column of a node's row does to the node, and what stands for it where it is NULL.

#include "zntopo/api/detail/NodeRow.h"

#include "tests/support/ApiFixture.h"
#include "zntopo/api/detail/NodeSql.h"

namespace zntopo::test {
namespace {

class NodeRowTest : public ApiTest {
 protected:
  /// Reads the one node of the store, uncached.
  ZNRefPtr<ZNNode> read() {
    const auto nodes = impl.getNodesByWhere("", detail::nodeTables(impl.tables()), status, true);
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
    if (nodes->size() != 1) ADD_FAILURE() << nodes->size() << " nodes";
    return nodes->empty() ? ZNRefPtr<ZNNode>(new ZNNode()) : nodes->front();
  }

  ZNRefPtr<ZNNode> readWith(const Values& values) {
    store->execute("delete from nwnode");
    store->insert("nwnode", merged(values));
    return read();
  }

  static Values merged(Values values) {
    values.merge(Values{{"ObjId", uuid(1)}, {"EntityName", "edge"}, {"IPLevel", 4}});
    return values;
  }
};
ZNTOPO_ON_ENGINES(NodeRowTest, kMainEngines);

TEST_P(NodeRowTest, ABareRowGivesEachDefault) {
  const auto node = readWith({});
  EXPECT_EQ(node->getObjID(), ObjID(uuid(1)));
  EXPECT_EQ(node->getName(), "edge");
  EXPECT_EQ(node->getIPLevel(), ZNEntity::IPv4);
  EXPECT_EQ(node->getEntityType(), E_Node);
  EXPECT_EQ(node->getDBType(), ActiveDB);
  EXPECT_EQ(node->getQRMObjID(), ObjID(0));
  EXPECT_EQ(node->getDescription(), "");
  EXPECT_EQ(node->getZoneNumber(), "");
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(node->getV6OverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(node->getV6GlobalStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(node->getV6SiteStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(node->getStatusChangeTime(), 0);
  EXPECT_EQ(node->getCreateTime(), 0);
  EXPECT_EQ(node->getChangeTime(), 0);
  EXPECT_EQ(node->getNodeCapabilitySet().getCapabilityMask(), 0u);
  EXPECT_EQ(node->getEntityOid(), "");
  EXPECT_EQ(node->getL2DomainID(), -1);
  EXPECT_EQ(node->getSnmpState(), RESPONDING);
  EXPECT_EQ(node->getSysContact(), "");
  EXPECT_EQ(node->getSysLocation(), "");
  EXPECT_EQ(node->getRD(), 0);
  EXPECT_TRUE(node->getUserVars().empty());
  EXPECT_TRUE(node->getConnDataList().empty());
}

TEST_P(NodeRowTest, EachColumnReachesItsField) {
  const auto node = readWith({{"IPLevel", 6},
                              {"QRMObjId", "4711"},
                              {"Description", "the edge"},
                              {"ZoneNumber", "12"},
                              {"V6CompoundStatus", 3},
                              {"V6GlobalStatus", 4},
                              {"V6SiteStatus", 5},
                              {"Status", 6},
                              {"StatusChangeTimeUTC", 101},
                              {"CreateTimeUTC", 102},
                              {"ChangeTimeUTC", 103},
                              {"SysOID", ".1.3.6.1"},
                              {"L2DomainId", 7},
                              {"SNMPState", 2},
                              {"V4ManagementAddressRD", 9},
                              {"sysContact", "somebody"},
                              {"sysLocation", "somewhere"}});
  EXPECT_EQ(node->getIPLevel(), ZNEntity::IPv6);
  EXPECT_EQ(node->getQRMObjID(), ObjID(4711));
  EXPECT_EQ(node->getDescription(), "the edge");
  EXPECT_EQ(node->getZoneNumber(), "12");
  EXPECT_EQ(node->getV6OverallStatus().getStatus(), ObjectStatus::Warning);
  EXPECT_EQ(node->getV6GlobalStatus().getStatus(), ObjectStatus::Marginal);
  EXPECT_EQ(node->getV6SiteStatus().getStatus(), ObjectStatus::Major);
  EXPECT_EQ(node->getStatusChangeTime(), 101);
  EXPECT_EQ(node->getCreateTime(), 102);
  EXPECT_EQ(node->getChangeTime(), 103);
  EXPECT_EQ(node->getEntityOid(), ".1.3.6.1");
  EXPECT_EQ(node->getL2DomainID(), 7);
  EXPECT_EQ(node->getSnmpState(), UNREACHABLE);
  EXPECT_EQ(node->getRD(), 9);
  EXPECT_EQ(node->getSysContact(), "somebody");
  EXPECT_EQ(node->getSysLocation(), "somewhere");
  EXPECT_EQ(readWith({{"Status", 6}})->getOverallStatus().getStatus(), ObjectStatus::Critical);
}

TEST_P(NodeRowTest, AnyLevelButSixIsIPv4) {
  for (const int level : {0, 4, 5, 7, -1}) {
    EXPECT_EQ(readWith({{"IPLevel", level}})->getIPLevel(), ZNEntity::IPv4) << level;
  }
}

TEST_P(NodeRowTest, AnEmptyTextCountsAsAbsent) {
  EXPECT_EQ(readWith({{"QRMObjId", ""}})->getQRMObjID(), ObjID(0));
}

TEST_P(NodeRowTest, TextsOfTheFullWidthAreReadWhole) {
  const std::string name(255, 'n');
  const std::string description(2000, 'd');
  const std::string oid(64, '1');
  const std::string contact(128, 'c');
  const auto node = readWith({{"EntityName", name},
                              {"Description", description},
                              {"SysOID", oid},
                              {"sysContact", contact},
                              {"sysLocation", contact},
                              {"ZoneNumber", oid}});
  EXPECT_EQ(node->getName(), name);
  EXPECT_EQ(node->getDescription(), description);
  EXPECT_EQ(node->getEntityOid(), oid);
  EXPECT_EQ(node->getSysContact(), contact);
  EXPECT_EQ(node->getSysLocation(), contact);
  EXPECT_EQ(node->getZoneNumber(), oid);
}

TEST_P(NodeRowTest, EachCapabilityColumnSetsItsBit) {
  const std::pair<const char*, unsigned long> bits[] = {
      {"isLanSwitch", 0x1},     {"isIPV4Router", 0x2},     {"isIPV6Router", 0x4},
      {"isATM", 0x8},           {"isHSRP", 0x10},          {"isFrameRelay", 0x20},
      {"isCDP", 0x40},          {"isBGP", 0x80},           {"isOSPF", 0x100},
      {"isSTP", 0x200},         {"isVRRP", 0x400},         {"isWireless", 0x800},
      {"isSONET", 0x1000},      {"isRMON", 0x2000},        {"isRMON2", 0x4000},
      {"isDS1", 0x8000},        {"isDS3", 0x10000},        {"isMPLS", 0x20000},
      {"isMultiHome", 0x40000}, {"isManageable", 0x80000}, {"isSNMPSupported", 0x200000}};
  for (const auto& [column, mask] : bits) {
    for (const int value : {1, 2}) {
      EXPECT_EQ(readWith({{column, value}})->getNodeCapabilitySet().getCapabilityMask(), mask)
          << column;
    }
    EXPECT_EQ(readWith({{column, 0}})->getNodeCapabilitySet().getCapabilityMask(), 0u) << column;
  }
}

TEST_P(NodeRowTest, ANegativeValueSetsTheBitOfHsrpAlone) {
  Values values;
  for (const detail::CapabilityColumn& each : detail::kNodeCapabilityColumns) {
    values.insert_or_assign(detail::kNodeColumns[each.column].name, -1);
  }
  EXPECT_EQ(readWith(values)->getNodeCapabilitySet().getCapabilityMask(), 0x10u);
}

TEST_P(NodeRowTest, TheManagementAddressDependsOnWhatIsThere) {
  struct Case {
    Value address;
    Value publicAddress;
    const char* expected;
    const char* expectedPublic;
  };
  const Case cases[] = {{"10.0.0.1", "192.0.2.1", "10.0.0.1", "192.0.2.1"},
                        {"10.0.0.1", nullptr, "10.0.0.1", ""},
                        {nullptr, "192.0.2.1", "-", "-"},
                        {nullptr, nullptr, "-", "-"}};
  for (const Case& each : cases) {
    const auto node = readWith({{"V4ManagementAddress", each.address},
                                {"PubV4ManagementAdd", each.publicAddress},
                                {"V4ManagementAddressRD", 3}});
    const auto& address = node->getNodeProperty().V4MgmtAddress;
    ASSERT_FALSE(address.isNull());
    EXPECT_EQ(address->getAddressAsString(), each.expected);
    EXPECT_EQ(address->getPublicAddress(), each.expectedPublic);
    EXPECT_EQ(address->getRouteDistinguisher(), 3);
  }
}

TEST_P(NodeRowTest, TheContainmentParentIsUnknown) {
  const auto node = readWith({});
  EXPECT_EQ(node->getContainmentParent().getName(), "UNKNOWN");
  EXPECT_TRUE(node->getContainmentParent().getObjID().isNull());
}

TEST_P(NodeRowTest, ARowOfTheWorkingTablesBelongsToThem) {
  store->addNode(uuid(5), "next", {{"V4ManagementAddress", "10.0.0.1"}}, WorkingDB);
  const auto node = working.getNodeByObjID(ObjID(uuid(5)), status);
  ASSERT_FALSE(node.isNull());
  EXPECT_EQ(node->getDBType(), WorkingDB);
}

}  // namespace
}  // namespace zntopo::test
