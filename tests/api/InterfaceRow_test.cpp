#include "zntopo/api/detail/InterfaceRow.h"

#include "tests/support/ApiFixture.h"

namespace zntopo::test {
namespace {

class InterfaceRowTest : public ApiTest {
 protected:
  /// The one interface of the store as the big select gives it; null if it gives none.
  ZNRefPtr<ZNInterface> read() {
    const auto found = impl.getInterfacesByWhereQuery("", status, 0, {});
    return found->empty() ? ZNRefPtr<ZNInterface>() : found->front();
  }
};

TEST_P(InterfaceRowTest, EachColumnReachesItsField) {
  store->addInterface("i1", "n1", "port one",
                      {{"IPLevel", 6},
                       {"QRMObjId", "4711"},
                       {"Description", "uplink"},
                       {"ZoneNumber", "zone 9"},
                       {"V6CompoundStatus", 3},
                       {"V6GlobalStatus", 4},
                       {"V6SiteStatus", 5},
                       {"StatusChangeTimeUTC", 101},
                       {"CreateTimeUTC", 102},
                       {"ChangeTimeUTC", 103},
                       {"PhysicalAddress", "a:b"},
                       {"VendorCard", "1"},
                       {"VendorPort", "22"},
                       {"IfIndex", 7},
                       {"IfName", "Gi0/1"},
                       {"IfType", 6},
                       {"Vpi", 8},
                       {"Vci", 9},
                       {"IfAlias", "to core"},
                       {"nodeName", "switch"},
                       {"Port", "333"},
                       {"Status", 6},
                       {"L2DomainId", 12},
                       {"IfOperStatus", 5},
                       {"IfAdminState", 3},
                       {"routeDistinguisher", 77},
                       {"IfSpeed", 1000},
                       {"AscChangeTime", 104}});
  const ZNRefPtr<ZNInterface> interface = read();
  ASSERT_FALSE(interface.isNull());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(interface->getObjID(), ObjID("i1"));
  EXPECT_EQ(interface->getName(), "port one");
  EXPECT_EQ(interface->getEntityType(), E_Interface);
  EXPECT_EQ(interface->getIPLevel(), ZNEntity::IPv6);
  EXPECT_EQ(interface->getQRMObjID(), ObjID("4711"));
  EXPECT_EQ(interface->getDescription(), "uplink");
  EXPECT_EQ(interface->getZoneNumber(), "zone 9");
  EXPECT_EQ(interface->getV6OverallStatus().getStatus(), ObjectStatus::Warning);
  EXPECT_EQ(interface->getV6GlobalStatus().getStatus(), ObjectStatus::Marginal);
  EXPECT_EQ(interface->getV6SiteStatus().getStatus(), ObjectStatus::Major);
  EXPECT_EQ(interface->getStatusChangeTime(), 101);
  EXPECT_EQ(interface->getCreateTime(), 102);
  EXPECT_EQ(interface->getChangeTime(), 103);
  EXPECT_EQ(interface->getPhysAddr(), "a:b");
  EXPECT_EQ(interface->getCardLoc(), "1");
  EXPECT_EQ(interface->getPortNum(), "22");
  EXPECT_EQ(interface->getAuxPortNum(), "333");
  EXPECT_EQ(interface->getIfIndex(), 7);
  EXPECT_EQ(interface->getIfName(), "Gi0/1");
  EXPECT_EQ(interface->getIfType(), 6);
  EXPECT_EQ(interface->getVPI(), 8);
  EXPECT_EQ(interface->getVCI(), 9);
  EXPECT_EQ(interface->getIfAlias(), "to core");
  EXPECT_EQ(interface->getL2DomainID(), 12);
  EXPECT_EQ(interface->getIfOperStatus(), dormant);
  EXPECT_EQ(interface->getIfAdminStatus(), Testing);
  EXPECT_EQ(interface->getRD(), 77);
  EXPECT_EQ(interface->getIfSpeed(), 1000);
  const AssEndPoint parent = interface->getContainmentParent();
  EXPECT_EQ(parent.getName(), "switch");
  EXPECT_EQ(parent.getObjID(), ObjID("n1"));
  EXPECT_EQ(parent.getType(), E_Node);
}

TEST_P(InterfaceRowTest, AnIPv4InterfaceTakesItsOverallStatusFromTheColumnStatus) {
  store->addInterface("i1", "n1", "port", {{"Status", 6}, {"V6CompoundStatus", 3}});
  EXPECT_EQ(read()->getOverallStatus().getStatus(), ObjectStatus::Critical);
}

TEST_P(InterfaceRowTest, WhatIsAbsentKeepsItsDefault) {
  store->addInterface("i1", "n1", "port",
                      {{"NodeObjID", nullptr},
                       {"IfName", nullptr},
                       {"VendorCard", nullptr},
                       {"VendorPort", nullptr}});
  const ZNRefPtr<ZNInterface> interface = read();
  ASSERT_FALSE(interface.isNull());
  EXPECT_TRUE(interface->getQRMObjID().isNull());
  EXPECT_EQ(interface->getDescription(), "");
  EXPECT_EQ(interface->getZoneNumber(), "");
  EXPECT_EQ(interface->getOverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(interface->getV6OverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(interface->getV6GlobalStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(interface->getV6SiteStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(interface->getStatusChangeTime(), 0);
  EXPECT_EQ(interface->getCreateTime(), 0);
  EXPECT_EQ(interface->getChangeTime(), 0);
  EXPECT_EQ(interface->getPhysAddr(), "");
  EXPECT_EQ(interface->getCardLoc(), "");
  EXPECT_EQ(interface->getPortNum(), "");
  EXPECT_EQ(interface->getAuxPortNum(), "");
  EXPECT_EQ(interface->getIfIndex(), 0);
  EXPECT_EQ(interface->getIfName(), "-");
  EXPECT_EQ(interface->getIfAlias(), "-");
  EXPECT_EQ(interface->getIfType(), 0);
  EXPECT_EQ(interface->getVPI(), 0);
  EXPECT_EQ(interface->getVCI(), 0);
  EXPECT_EQ(interface->getL2DomainID(), -1);
  EXPECT_EQ(interface->getIfOperStatus(), up);
  EXPECT_EQ(interface->getIfAdminStatus(), Up);
  EXPECT_EQ(interface->getRD(), 0);
  EXPECT_EQ(interface->getIfSpeed(), 0);
  EXPECT_EQ(interface->getIFProperty().capaSet.getCapabilityMask(), 0u);
  EXPECT_EQ(interface->getContainmentParent().getName(), "UNKNOWN");
  EXPECT_TRUE(interface->getContainmentParent().getObjID().isNull());
  EXPECT_EQ(interface->getContainmentParent().getType(), E_Node);
}

TEST_P(InterfaceRowTest, OneRowLeavesNothingToTheNext) {
  store->addInterface("i1", "n1", "a", {{"IfAlias", "alias"}, {"Port", "9"}, {"isBGP", 1}});
  store->addInterface("i2", "n1", "b");
  const auto found = impl.getInterfacesByWhereQuery(" order by a.ObjId", status, 0, {});
  ASSERT_EQ(found->size(), 2u);
  EXPECT_EQ(found->back()->getIfAlias(), "-");
  EXPECT_EQ(found->back()->getAuxPortNum(), "");
  EXPECT_FALSE(found->back()->isBGP());
}

TEST_P(InterfaceRowTest, EachCapabilityHasItsBitAndAnyNonZeroValueSetsIt) {
  const std::map<std::string, unsigned long> masks = {
      {"isAccessPort", 0x1},  {"isL2Connected", 0x2},
      {"isATM", 0x8},         {"isHSRP", 0x10},
      {"isFrameRelay", 0x20}, {"isCDP", 0x40},
      {"isBGP", 0x80},        {"isOSPF", 0x100},
      {"isSTP", 0x200},       {"isVRRP", 0x400},
      {"isWireless", 0x800},  {"isSONET", 0x1000},
      {"isDS1", 0x8000},      {"isDS3", 0x10000},
      {"isMPLS", 0x20000},    {"isMeshInterface", 0x100000}};
  for (const auto& [column, mask] : masks) {
    for (const int value : {1, -1}) {
      store->execute("delete from nwinterface");
      store->execute("delete from nwentity");
      store->addInterface("i1", "n1", "port", {{column, value}});
      ZNTopoAPI_Impl::cache()->clear(true);
      const ZNRefPtr<ZNInterface> interface = read();
      ASSERT_FALSE(interface.isNull());
      EXPECT_EQ(interface->getIFProperty().capaSet.getCapabilityMask(), mask) << column;
    }
  }
}

TEST_P(InterfaceRowTest, AnInterfaceKnowsTheTableSetThatItCameFrom) {
  store->addInterface("i1", "n1", "port", {}, WorkingDB);
  EXPECT_TRUE(impl.getInterfacesByWhereQuery("", status, 2, {})->empty());
  const auto found = working.getInterfacesByWhereQuery("", status, 2, {});
  ASSERT_EQ(found->size(), 1u);
  EXPECT_EQ(found->front()->getDBType(), WorkingDB);
}

ZNTOPO_ON_ENGINES(InterfaceRowTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
