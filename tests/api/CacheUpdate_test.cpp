// The changes of cached objects in their place.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr int kNoType = -1;

/// A store of one object of each kind, all of them in the cache. The legacy identifiers are
/// numbers, the others are not.
class CacheUpdateTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    store->addNode("node", "node", {{"QRMObjId", "101"}, {"Status", 1}, {"SNMPState", 0}});
    store->addInterface("interface", "node", "eth0",
                        {{"QRMObjId", "102"}, {"IfAdminState", 1}, {"IfOperStatus", 1}});
    store->addAddress("address", "interface", "node", "192.0.2.1", {{"PingState", 0}});
    store->insert("address", {{"AddressId", "monitored"},
                              {"ObjId", "interface"},
                              {"SubnetObjId", "subnet"},
                              {"AddressType", 2},
                              {"IPLevel", 6},
                              {"isSubnet", 0},
                              {"V6Address", "2001:db8::1"},
                              {"V6ScopeType", 1},
                              {"PrefixLength", 64},
                              {"PingStatus", 1},
                              {"AddressQRMId", "104"}});
    store->addEntity("group", "group", E_HSRP);
    for (const char* id : {"address", "monitored"}) {
      store->insert("hsrpaddress", {{"ObjID", "group"},
                                    {"AddressID", id},
                                    {"AddressIfObjID", std::string("interface of ") + id},
                                    {"state", 5},
                                    {"HSRPPriority", 100},
                                    {"HSRPNumber", 1},
                                    {"HSRPStateCertainty", 50}});
    }
    load();
  }

  void load() {
    node = impl.getNodeByObjID("node", status);
    interface = impl.getInterfaceByObjID("interface", status);
    address = impl.getAddressByObjID("address", status);
    monitored = impl.getMonitoredIPv6AddressByObjID("monitored", status);
    groups = impl.getHSRPsByObjIDList({}, notFound, status, true, -1);
    group = groups->front();
    // A third member has the address of the first one, which no store would hold.
    auto members = group->getHSRPAddrInfoList();
    members.emplace_back(1, "another interface", "address", 100, ZNHSRPAddressInfo::StandBy, "",
                         50);
    group->setZNHSRPAddressInfoList(members);
    // Nothing else brings a subnet into the cache.
    subnet = new ZNSubnet();
    subnet->setObjID("subnet");
    subnet->setQRMObjID("103");
    impl.useSubnet(subnet);
    ASSERT_FALSE(node.isNull() || interface.isNull() || address.isNull() || monitored.isNull());
  }

  /// Without a time of its own.
  ZNTopoAPIStatus setStatus(const ObjID& id, int type, ObjectStatus::Status newStatus,
                            bool isQRMID = false, long time = 0,
                            ZNEntity::EntityStatusType kind = ZNEntity::Overall) {
    ZNTopoAPIStatus answer(ZN_API_NO_PATH, "of before\n");
    impl.updateCacheObjectStatus(id, type == E_Address, static_cast<EntityType>(type), newStatus,
                                 time, kind, answer, isQRMID);
    return answer;
  }

  ZNTopoAPIStatus setAttribute(const ObjID& id, int type, int attribute, int value,
                               const ObjID& addressID = ObjID()) {
    ZNTopoAPIStatus answer(ZN_API_NO_PATH, "of before\n");
    impl.updateCacheObjectAttribute(id, static_cast<EntityType>(type),
                                    static_cast<TopologyAttributeType>(attribute), value, addressID,
                                    answer);
    return answer;
  }

  static void expectOK(const ZNTopoAPIStatus& answer) {
    EXPECT_EQ(answer.getStatus(), ZN_API_SUCCESS);
    EXPECT_EQ(answer.getAuxMsg(), "");
  }

  static void expectUnsupported(const ZNTopoAPIStatus& answer, const std::string& text) {
    EXPECT_EQ(answer.getStatus(), ZN_API_NOT_SUPPORTED_OPERATION);
    EXPECT_EQ(answer.getAuxMsg(), text + "\n");
  }

  /// The members on an address, or on all others.
  std::vector<ZNHSRPAddressInfo> members(const ObjID& addressID, bool on = true) {
    std::vector<ZNHSRPAddressInfo> result;
    for (const ZNHSRPAddressInfo& member : group->getHSRPAddrInfoList()) {
      if ((member.getAddressID() == addressID) == on) result.push_back(member);
    }
    return result;
  }

  ZNRefPtr<ZNNode> node;
  ZNRefPtr<ZNInterface> interface;
  ZNRefPtr<ZNSubnet> subnet;
  ZNRefPtr<ZNAddress> address;
  ZNRefPtr<MonitoredInetAddressIPv6> monitored;
  ZNTopoAPI_Impl::OwnedHSRPList groups;
  ZNRefPtr<ZNHSRP> group;
};
ZNTOPO_ON_ENGINES(CacheUpdateTest, kSqlite);

// ---- statuses -----------------------------------------------------------------------------------

TEST_P(CacheUpdateTest, AStatusOfANodeInterfaceOrSubnetChangesByEitherIdentifier) {
  const std::tuple<const char*, const char*, EntityType, ZNEntity*> kinds[] = {
      {"node", "101", E_Node, &*node},
      {"interface", "102", E_Interface, &*interface},
      {"subnet", "103", E_Subnet, &*subnet}};
  for (const auto& [id, legacyID, type, object] : kinds) {
    SCOPED_TRACE(id);
    const StatementSpy spy;
    expectOK(setStatus(id, type, ObjectStatus::Major));
    EXPECT_EQ(object->getOverallStatus().getStatus(), ObjectStatus::Major);
    expectOK(setStatus(legacyID, type, ObjectStatus::Critical, true));
    EXPECT_EQ(object->getOverallStatus().getStatus(), ObjectStatus::Critical);
    EXPECT_TRUE(object->isStatusModified());
    EXPECT_THAT(spy.allStatements(), IsEmpty()) << "the store is not touched";
  }
}

TEST_P(CacheUpdateTest, AnIdentifierOfTheOtherKindFindsNothing) {
  expectOK(setStatus("node", E_Node, ObjectStatus::Major, true));
  expectOK(setStatus("101", E_Node, ObjectStatus::Major, false));
  expectOK(setStatus("interface", E_Node, ObjectStatus::Major, false));
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(interface->getOverallStatus().getStatus(), ObjectStatus::Normal);
}

TEST_P(CacheUpdateTest, TheKindOfStatusSaysWhichChanges) {
  setStatus("node", E_Node, ObjectStatus::Major, false, 10, ZNEntity::IPv6SiteLocal);
  EXPECT_EQ(node->getV6SiteStatus().getStatus(), ObjectStatus::Major);
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Normal);
  setStatus("node", E_Node, ObjectStatus::Warning, false, 10, ZNEntity::IPv6Global);
  setStatus("node", E_Node, ObjectStatus::Critical, false, 10, ZNEntity::IPv6Overall);
  setStatus("node", E_Node, ObjectStatus::Testing, false, 10, ZNEntity::IPv4Overall);
  EXPECT_EQ(node->getV6GlobalStatus().getStatus(), ObjectStatus::Warning);
  EXPECT_EQ(node->getV6OverallStatus().getStatus(), ObjectStatus::Critical);
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Testing);
}

TEST_P(CacheUpdateTest, AStatusOfLinkLocalAddressesChangesNothingAndIsLogged) {
  const CapturedLog log(MC_CRITICAL);
  expectOK(setStatus("node", E_Node, ObjectStatus::Major, false, 10, ZNEntity::IPv6LinkLocal));
  EXPECT_FALSE(node->isStatusModified());
  EXPECT_THAT(log.lines(),
              Contains("ZNEntity::setStatus() call with unimplemented EntityStatusType: 1\n"));
}

TEST_P(CacheUpdateTest, TheTimeOfAChangeIsKeptAndWithoutOneItIsNow) {
  expectOK(setStatus("node", E_Node, ObjectStatus::Major, false, 5000));
  EXPECT_EQ(node->getStatusChangeTime(), 5000);
  const long before = static_cast<long>(time(nullptr));
  expectOK(setStatus("node", E_Node, ObjectStatus::Critical, false, 0));
  EXPECT_GE(node->getStatusChangeTime(), before);
}

TEST_P(CacheUpdateTest, AStatusEqualToTheCachedOneChangesNothingNorTheTime) {
  setStatus("node", E_Node, ObjectStatus::Major, false, 5000);
  const CapturedLog log(MC_VERBOSE);
  expectOK(setStatus("node", E_Node, ObjectStatus::Major, false, 6000));
  EXPECT_EQ(node->getStatusChangeTime(), 5000);
  EXPECT_THAT(log.text(), Not(HasSubstr("Setting Entity")));
}

TEST_P(CacheUpdateTest, ANumberThatIsNoStatusIsNone) {
  impl.updateCacheObjectStatus("node", false, E_Node, 4711, 10, ZNEntity::Overall, status, false);
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::NoStatus);
}

TEST_P(CacheUpdateTest, AChangeIsLoggedWithTheIdentifierThatItCameWith) {
  const CapturedLog log(MC_TRACE_L2);
  setStatus("101", E_Node, ObjectStatus::Major, true);
  setStatus("104", E_Address, ObjectStatus::Major, true);
  EXPECT_THAT(log.lines(), Contains("Setting Entity QRM id = 101 to status = 5\n"));
  EXPECT_THAT(log.lines(), Contains("Setting Address QRM id = 104 to status = 5\n"));
}

TEST_P(CacheUpdateTest, AnObjectThatIsNotCachedIsNoError) {
  for (const EntityType type : {E_Node, E_Interface, E_Subnet}) {
    for (const bool isQRMID : {false, true}) {
      expectOK(setStatus("4711", type, ObjectStatus::Major, isQRMID));
    }
  }
  expectOK(setStatus("4711", E_HSRP, ObjectStatus::Major));
  expectOK(setStatus("4711", E_Address, ObjectStatus::Major, true));
}

TEST_P(CacheUpdateTest, AStatusOfAVlanIsNotSupported) {
  expectUnsupported(setStatus("vlan", E_Vlan, ObjectStatus::Major),
                    "Entity Type : Vlanis not valid for status update");
}

TEST_P(CacheUpdateTest, NorIsOneOfAnyOtherKind) {
  expectUnsupported(setStatus("c", E_IfC, ObjectStatus::Major, true),
                    "Entity Type : InterfaceContaineris not valid for status update");
  expectUnsupported(setStatus("u", E_Unknown, ObjectStatus::Major),
                    "Entity Type : Unknownis not valid for status update");
  expectUnsupported(setStatus("t", kNoType, ObjectStatus::Major),
                    "Entity Type : InvalidTypeis not valid for status update");
}

TEST_P(CacheUpdateTest, AnAddressThatIsSaidToBeNoneIsOfNoValidKind) {
  impl.updateCacheObjectStatus("address", false, E_Address, 1, 2, ZNEntity::Overall, status, false);
  expectUnsupported(status, "Entity Type : InvalidTypeis not valid for status update");
}

TEST_P(CacheUpdateTest, AStatusOfAnHSRPGroupRemovesItAndTheNextRequestForAllReadsTheStore) {
  EXPECT_TRUE(impl.getTopoCache()->isAllHSRPInCache());
  expectOK(setStatus("group", E_HSRP, ObjectStatus::Major));
  ZNRefPtr<ZNHSRP> found;
  EXPECT_FALSE(impl.getTopoCache()->inHSRPObjIDCache("group", found));
  EXPECT_FALSE(impl.getTopoCache()->isAllHSRPInCache());
  EXPECT_EQ(group->getOverallStatus().getStatus(), ObjectStatus::Normal);
  const StatementSpy spy;
  EXPECT_EQ(impl.getHSRPsByObjIDList({}, notFound, status, true, -1)->size(), 1U);
  EXPECT_THAT(spy.statements(), Not(IsEmpty()));
}

TEST_P(CacheUpdateTest, AnHSRPGroupHasNoLegacyIdentifier) {
  expectUnsupported(setStatus("group", E_HSRP, ObjectStatus::Major, true),
                    "QRMID is not valid for HSRP");
  EXPECT_TRUE(impl.getTopoCache()->isAllHSRPInCache());
}

TEST_P(CacheUpdateTest, AMonitoredAddressChangesByItsLegacyIdentifier) {
  expectOK(setStatus("104", E_Address, ObjectStatus::Major, true, 5000));
  EXPECT_EQ(monitored->getPingStatus().getStatus().getStatus(), ObjectStatus::Major);
  EXPECT_EQ(monitored->getPingStatus().getLastPingTime(), 0);
  EXPECT_EQ(monitored->getPingStatus().getLastStatusUpdateTime(), 5000);
  EXPECT_TRUE(monitored->isStatusModified());
  expectOK(setStatus("104", E_Address, ObjectStatus::Major, true, 6000));
  EXPECT_EQ(monitored->getPingStatus().getLastStatusUpdateTime(), 5000) << "the same status";
}

TEST_P(CacheUpdateTest, AnAddressHasNoStatusByItsTopologyIdentifier) {
  expectUnsupported(setStatus("monitored", E_Address, ObjectStatus::Major),
                    "Status update for address is only supported via QRMID");
}

TEST_P(CacheUpdateTest, TheKindOfAnAddressIsNotLookedAt) {
  impl.updateCacheObjectStatus("104", true, E_Vlan, ObjectStatus::Major, 5000, ZNEntity::Overall,
                               status, true);
  expectOK(status);
  EXPECT_EQ(monitored->getPingStatus().getStatus().getStatus(), ObjectStatus::Major);
}

// ---- attributes ---------------------------------------------------------------------------------

TEST_P(CacheUpdateTest, AnyAttributeOfANodeIsItsSnmpState) {
  expectOK(setAttribute("node", E_Node, Snmp_State, AGENT_DOWN));
  EXPECT_EQ(node->getSnmpState(), AGENT_DOWN);
  expectOK(setAttribute("node", E_Node, HSRP_State, UNREACHABLE));
  EXPECT_EQ(node->getSnmpState(), UNREACHABLE);
}

TEST_P(CacheUpdateTest, AnInterfaceHasTwoAttributes) {
  const StatementSpy spy;
  expectOK(setAttribute("interface", E_Interface, IfAdmin_Status, Down));
  EXPECT_EQ(interface->getIfAdminStatus(), Down);
  EXPECT_EQ(interface->getIfOperStatus(), up);
  expectOK(setAttribute("interface", E_Interface, IfOper_Status, lowerLayerDown));
  EXPECT_EQ(interface->getIfOperStatus(), lowerLayerDown);
  expectOK(setAttribute("interface", E_Interface, Snmp_State, 1));
  EXPECT_EQ(interface->getIfAdminStatus(), Down);
  EXPECT_EQ(interface->getIfOperStatus(), lowerLayerDown);
  EXPECT_THAT(spy.allStatements(), IsEmpty()) << "the store is not touched";
}

TEST_P(CacheUpdateTest, AnyAttributeOfAnAddressIsItsPingState) {
  expectOK(setAttribute("address", E_Address, Ping_State, Ping_Unreachable));
  EXPECT_EQ(address->getPingState(), Ping_Unreachable);
  expectOK(setAttribute("address", E_Address, HSRP_State, Ping_AgentDown));
  EXPECT_EQ(address->getPingState(), Ping_AgentDown);
}

TEST_P(CacheUpdateTest, TheMembersOfAGroupOnAnAddressChange) {
  expectOK(setAttribute("group", E_HSRP, HSRP_State, ZNHSRPAddressInfo::Active, "address"));
  expectOK(setAttribute("group", E_HSRP, HSRP_Certainity, 70, "address"));
  expectOK(setAttribute("group", E_HSRP, HSRP_Priority, 110, "address"));
  ASSERT_THAT(members("address"), SizeIs(2));
  for (const ZNHSRPAddressInfo& member : members("address")) {
    EXPECT_EQ(member.getHSRPState(), ZNHSRPAddressInfo::Active);
    EXPECT_EQ(member.getHSRPStateCertainty(), 70);
    EXPECT_EQ(member.getHSRPPriority(), 110);
  }
  const ZNHSRPAddressInfo other = members("address", false).at(0);
  EXPECT_EQ(other.getHSRPState(), ZNHSRPAddressInfo::StandBy);
  EXPECT_EQ(other.getHSRPStateCertainty(), 50);
  EXPECT_EQ(other.getHSRPPriority(), 100);
  EXPECT_EQ(group->getActiveAddressInfoList().size(), 2U);
}

TEST_P(CacheUpdateTest, AnyOtherAttributeOfAGroupChangesNothing) {
  expectOK(setAttribute("group", E_HSRP, Snmp_State, 1, "address"));
  expectOK(setAttribute("group", E_HSRP, HSRP_State, 6, "nobody"));
  expectOK(setAttribute("group", E_HSRP, HSRP_State, 6));
  EXPECT_THAT(group->getActiveAddressInfoList(), IsEmpty());
}

TEST_P(CacheUpdateTest, WhatAMembersSetterRefusesIsNotTold) {
  expectOK(setAttribute("group", E_HSRP, HSRP_Certainity, 101, "address"));
  EXPECT_EQ(members("address").at(0).getHSRPStateCertainty(), 50);
}

TEST_P(CacheUpdateTest, OtherKindsHaveNoAttributesAndNobodyIsToldSo) {
  for (const int type : {int{E_Vlan}, int{E_Subnet}, int{E_IfC}, int{E_Unknown}, kNoType}) {
    expectOK(setAttribute("node", type, Snmp_State, 1));
  }
  for (const EntityType type : {E_Node, E_Interface, E_HSRP, E_Address}) {
    expectOK(setAttribute("nobody", type, Snmp_State, 1, "address"));
  }
  EXPECT_EQ(node->getSnmpState(), RESPONDING);
}

// ---- the cache as a whole -----------------------------------------------------------------------

TEST_P(CacheUpdateTest, AClearedCacheHasNoTimeUntilTheNextQuery) {
  EXPECT_EQ(impl.getCacheTimeStamp(), 1000);
  impl.clearCache();
  EXPECT_EQ(impl.getCacheTimeStamp(), 0);
  EXPECT_TRUE(impl.validate(status));
  EXPECT_EQ(impl.getCacheTimeStamp(), 1000);
}

TEST_P(CacheUpdateTest, ARefreshOfAnObjectDoesNothing) {
  impl.refreshCacheObject("node", false, E_Node, ObjectStatus::Critical, 5000, status);
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Normal);
  EXPECT_EQ(status.getStatus(), ZN_API_SUCCESS);
  ZNTopoAPIStatus before(ZN_API_NO_PATH, "of before\n");
  impl.refreshCacheObject("node", false, E_Node, ObjectStatus::Critical, 5000, before);
  EXPECT_EQ(before.getStatus(), ZN_API_NO_PATH);
}

TEST_P(CacheUpdateTest, TheFacadeChangesTheSameObjects) {
  ZNTopoAPI().updateCacheObjectStatus("node", false, E_Node, ObjectStatus::Critical, 5000,
                                      ZNEntity::Overall, status, false);
  EXPECT_EQ(node->getOverallStatus().getStatus(), ObjectStatus::Critical);
}

}  // namespace
}  // namespace zntopo::test
