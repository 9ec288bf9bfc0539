#include <ctime>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GroupsTest : public ModelTest {
 protected:
  static ZNEntity entity(EntityType type = E_Card) {
    EntityParts parts;
    parts.type = type;
    return parts.entity();
  }
};

using ZNSubnetTest = GroupsTest;
using ZNVlanTest = GroupsTest;
using ZNIfcTest = GroupsTest;
using ZNIfcAssocInfoTest = GroupsTest;

SubnetEndPoint endPoint(const char* node, const char* interface, const char* address) {
  return SubnetEndPoint(ObjID(node), ObjID(interface), ObjID(address));
}

TEST_F(ZNSubnetTest, AnEndPointTakesNodeInterfaceAndAddressInThisOrder) {
  const SubnetEndPoint point = endPoint("n", "i", "a");
  EXPECT_EQ(ObjID("n"), point.getNodeObjID());
  EXPECT_EQ(ObjID("i"), point.getIFObjID());
  EXPECT_EQ(ObjID("a"), point.getAddressID());
  EXPECT_TRUE(SubnetEndPoint().getNodeObjID().isNull());
  EXPECT_TRUE(SubnetEndPoint().getIFObjID().isNull());
  EXPECT_TRUE(SubnetEndPoint().getAddressID().isNull());
}

TEST_F(ZNSubnetTest, AnEndPointPrintsIdentifiersAndTheNamesBehindThem) {
  EntityParts parts;
  parts.id = ObjID("n");
  parts.name = "core-1";
  gateway().addNode(new ZNNode(parts.entity()));
  parts.id = ObjID("i");
  parts.name = "eth0";
  gateway().addInterface(new ZNInterface(parts.entity()));
  gateway().addAddress(ipv4("a", "10.0.0.1"));
  EXPECT_EQ("(NodeID:n, IFID:i, AddressID:a) (NodeName:core-1, IFName:eth0, Address:10.0.0.1)",
            endPoint("n", "i", "a").toString(WorkingDB));
  EXPECT_THAT(gateway().calls(), ElementsAre("getNodeByObjID(1, n)", "getInterfaceByObjID(1, i)",
                                             "getAddressByObjID(1, a)"));
}

TEST_F(ZNSubnetTest, AnEndPointPrintsEmptyNamesForWhatCanNotBeRead) {
  EXPECT_EQ("(NodeID:n, IFID:NULL, AddressID:a) (NodeName:, IFName:, Address:)",
            endPoint("n", "", "a").toString(ActiveDB));
}

TEST_F(ZNSubnetTest, EndPointsPrintNumberedFromZeroWithTheNamesOfTheSubnetsTableSet) {
  const ZNSubnet subnet(entity(), {endPoint("n1", "i1", "a1"), endPoint("n2", "i2", "a2")});
  EXPECT_THAT(
      subnet.toString(),
      testing::HasSubstr("\nSubnetEndPoint:\n======================================="
                         "\n0)(NodeID:n1, IFID:i1, AddressID:a1) (NodeName:, IFName:, Address:)"
                         "\n1)(NodeID:n2, IFID:i2, AddressID:a2) (NodeName:, IFName:, Address:)"
                         "\n======================================="));
  EXPECT_THAT(gateway().calls(),
              testing::IsSupersetOf({"getNodeByObjID(1, n1)", "getNodeByObjID(1, n2)"}));
  EXPECT_THAT(ZNSubnet(entity()).toString(),
              testing::HasSubstr("\nSubnetEndPoint:\n======================================="
                                 "\n======================================="));
}

TEST_F(ZNSubnetTest, ASubnetIsOfItsOwnKindAndWithoutEndPoints) {
  const ZNSubnet subnet(entity(E_Node));
  EXPECT_EQ(E_Subnet, subnet.getEntityType());
  EXPECT_EQ("core-1", subnet.getName());
  EXPECT_THAT(subnet.getContainedAddressIDs(), IsEmpty());
  EXPECT_THAT(subnet.getContainedNodeObjIDs(), IsEmpty());
  EXPECT_EQ("", subnet.toShortString());
}

TEST_F(ZNSubnetTest, ContainedIdentifiersKeepOrderAndDuplicates) {
  ZNSubnet subnet(entity(), {endPoint("n1", "i1", "a1"), endPoint("n2", "i2", "a2"),
                             endPoint("n1", "i3", "a3")});
  EXPECT_EQ(E_Subnet, subnet.getEntityType());
  EXPECT_THAT(subnet.getContainedAddressIDs(), ElementsAre(ObjID("a1"), ObjID("a2"), ObjID("a3")));
  EXPECT_THAT(subnet.getContainedNodeObjIDs(), ElementsAre(ObjID("n1"), ObjID("n2"), ObjID("n1")));
  subnet.setSubnetEndPointList({endPoint("n9", "i9", "a9")});
  EXPECT_EQ(1u, subnet.getSubnetEndPointList().size());
  EXPECT_THAT(subnet.getContainedNodeObjIDs(), ElementsAre(ObjID("n9")));
}

TEST_F(ZNSubnetTest, TheScopeIsThatOfTheFirstIPv6Address) {
  gateway().addAddress(ipv4("a1", "10.0.0.1"));
  gateway().addAddress(ipv6("b1", "fe80::1", InetAddressIPv6::LinkLocal));
  gateway().addAddress(ipv6("b2", "2001:db8::1", InetAddressIPv6::Global));
  ZNSubnet subnet(entity());
  subnet.setAddresses({ipv4("a1", ""), ipv4("b1", ""), ipv4("b2", "")});
  EXPECT_EQ(InetAddressIPv6::LinkLocal, subnet.getSubnetScopeType());
}

TEST_F(ZNSubnetTest, WithoutAnIPv6AddressTheScopeIsUnknown) {
  ZNSubnet subnet(entity());
  EXPECT_EQ(InetAddressIPv6::Unknown, subnet.getSubnetScopeType());
  gateway().addAddress(ipv4("a1", "10.0.0.1"));
  gateway().addAddress(ipv6("b1", "fe80::1", InetAddressIPv6::LinkLocal));
  subnet.setAddresses({ipv4("a1", "10.0.0.1")});
  EXPECT_EQ(InetAddressIPv6::Unknown, subnet.getSubnetScopeType());
  subnet.setAddresses({ipv4("b1", "")});
  gateway().failWith("getAddrsByObjIDs", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(InetAddressIPv6::Unknown, subnet.getSubnetScopeType());
}

TEST_F(ZNVlanTest, ItsNumberIsTheVariableVlanId) {
  const std::pair<VarValue, ObjID> values[] = {
      {VarValue(12), ObjID(12)},         {VarValue("12"), ObjID(12)},
      {VarValue("blue"), ObjID("blue")}, {VarValue(static_cast<short>(12)), ObjID()},
      {VarValue(12LL), ObjID()},         {VarValue(), ObjID()},
  };
  for (const auto& [value, id] : values) {
    SCOPED_TRACE(value.toString());
    ZNEntity source = entity();
    source.setUserVars({UserDefVar("VlanId", value)});
    EXPECT_EQ(id, ZNVlan(source).getVlanID());
    EXPECT_EQ(id, ZNVlan(source, {ZNVlanInfo()}).getVlanID());
  }
  EXPECT_TRUE(ZNVlan(entity()).getVlanID().isNull());
  EXPECT_TRUE(ZNVlan().getVlanID().isNull());
}

TEST_F(ZNVlanTest, AVlanKeepsItsEntitysKindAndItsNumberDoesNotFollowTheVariables) {
  ZNVlan vlan(entity(E_Card));
  EXPECT_EQ(E_Card, vlan.getEntityType());
  vlan.setUserVars({UserDefVar("VlanId", VarValue(12))});
  EXPECT_TRUE(vlan.getVlanID().isNull());
}

TEST_F(ZNVlanTest, InfosAreReadAsTheyWereSet) {
  ZNVlanInfo info(ObjID("v"), ObjID("n"), "core-1", {ZNVlanIFInfo(ObjID("i1"), "7", "2")});
  info.addIFInfo(ZNVlanIFInfo(ObjID("i2"), "8", "3"));
  ZNVlan vlan(entity(), {info});
  vlan.addVlanInfo(ZNVlanInfo());
  ASSERT_EQ(2u, vlan.getVlanInfoList().size());
  const ZNVlanInfo& first = vlan.getVlanInfoList().front();
  EXPECT_EQ(ObjID("v"), first.getVlanObjID());
  EXPECT_EQ(ObjID("n"), first.getNodeObjID());
  EXPECT_EQ("core-1", first.getNodeName());
  ASSERT_EQ(2u, first.getVlanIFInfoList().size());
  EXPECT_EQ(ObjID("i1"), first.getVlanIFInfoList().front().getIFObjID());
  EXPECT_EQ("7", first.getVlanIFInfoList().front().getPortNumber());
  EXPECT_EQ("2", first.getVlanIFInfoList().front().getBoardNumber());
  EXPECT_TRUE(vlan.getVlanInfoList().back().getVlanIFInfoList().empty());
  vlan.setVlanInfoList({});
  EXPECT_TRUE(vlan.getVlanInfoList().empty());
}

ZNIfcIFInfo member(const char* interface, int sequence) {
  return ZNIfcIFInfo(ObjID("c"), ObjID(interface), 5, 6, sequence);
}

TEST_F(ZNIfcTest, AMemberByIdentifiersHasNoNames) {
  const ZNIfcIFInfo info = member("i", 7);
  EXPECT_EQ(ObjID("c"), info.getIfcObjId());
  EXPECT_EQ(ObjID("i"), info.getInterfaceObjId());
  EXPECT_EQ(5, info.getIfcType());
  EXPECT_EQ(6, info.getContainmentType());
  EXPECT_EQ(7, info.getSeqNum());
  EXPECT_EQ("", info.getIfcName());
  EXPECT_EQ("", info.getIFName());
  EXPECT_EQ("", info.getNodeName());
  EXPECT_EQ(0, info.getIpLevel());
}

TEST_F(ZNIfcTest, AMemberByNamesHasNullIdentifiersAndComparesBySequenceNumber) {
  const ZNIfcIFInfo info("cont", "eth0", "core-1", 5, 6, 7, 4);
  EXPECT_TRUE(info.getIfcObjId().isNull());
  EXPECT_TRUE(info.getInterfaceObjId().isNull());
  EXPECT_EQ("cont", info.getIfcName());
  EXPECT_EQ("eth0", info.getIFName());
  EXPECT_EQ("core-1", info.getNodeName());
  EXPECT_EQ(5, info.getIfcType());
  EXPECT_EQ(6, info.getContainmentType());
  EXPECT_EQ(7, info.getSeqNum());
  EXPECT_EQ(4, info.getIpLevel());
  EXPECT_TRUE(member("z", 6) < info);
  EXPECT_FALSE(info < member("a", 7));
  EXPECT_FALSE(member("a", 7) < info);
}

TEST_F(ZNIfcTest, AContainerOfAnEntityKeepsItsKindAndHasEmptyLists) {
  const ZNIfc container(entity(E_Card));
  EXPECT_EQ(E_Card, container.getEntityType());
  EXPECT_THAT(container.getAllIfcInfos(), IsEmpty());
  EXPECT_THAT(container.getAllIfcAssocInfos(), IsEmpty());
  EXPECT_EQ(0, container.getIfcType());
  EXPECT_EQ(0, container.getAppsId());
  EXPECT_FALSE(container.isOrdered());
  EXPECT_FALSE(container.willCleanUpIfEmpty());
  ASSERT_NE(nullptr, container.getAllIfcIFInfosByOrder());
  EXPECT_THAT(*container.getAllIfcIFInfosByOrder(), IsEmpty());
}

TEST_F(ZNIfcTest, TheWideConstructorsAndTheSettersSetEachField) {
  const ZNRefPtr<ZNIfcAssocInfo> relation(new ZNIfcAssocInfo(ObjID("other"), 3));
  const ZNIfc withoutRelations(entity(), {ZNIfcInfo()}, 1, 2, true, true);
  EXPECT_THAT(withoutRelations.getAllIfcAssocInfos(), IsEmpty());
  ZNIfc container(entity(), {ZNIfcInfo()}, {relation}, 1, 2, true, true);
  for (const ZNIfc* const each :
       std::initializer_list<const ZNIfc*>{&withoutRelations, &container}) {
    EXPECT_EQ(1u, each->getAllIfcInfos().size());
    EXPECT_EQ(1, each->getIfcType());
    EXPECT_EQ(2, each->getAppsId());
    EXPECT_TRUE(each->isOrdered());
    EXPECT_TRUE(each->willCleanUpIfEmpty());
  }
  EXPECT_EQ(relation.getObjectPointer(),
            container.getAllIfcAssocInfos().front().getObjectPointer());
  container.setIfcType(3);
  container.setAppsId(4);
  container.setOrder(false);
  container.setCleanUpIfEmpty(false);
  container.setIfcInfoList({});
  container.addIfcInfo(ZNIfcInfo(ObjID("n"), {}));
  container.setIfcAssocInfoList({});
  container.addIfcAssocInfo(relation);
  EXPECT_EQ(3, container.getIfcType());
  EXPECT_EQ(4, container.getAppsId());
  EXPECT_FALSE(container.isOrdered());
  EXPECT_FALSE(container.willCleanUpIfEmpty());
  EXPECT_EQ(ObjID("n"), container.getAllIfcInfos().front().getIfcInfoObjID());
  EXPECT_EQ(1u, container.getAllIfcAssocInfos().size());
}

TEST_F(ZNIfcTest, MembersOfAllNodesComeBySequenceNumberEvenIfNotOrdered) {
  ZNIfcInfo first(ObjID("n1"), {member("i3", 3)});
  first.addIfcIFInfo(member("i1", 1));
  const ZNIfc container(entity(), {first, ZNIfcInfo(ObjID("n2"), {member("i2", 2)})});
  std::vector<int> order;
  const auto members = container.getAllIfcIFInfosByOrder();
  for (const ZNIfcIFInfo& info : *members) order.push_back(info.getSeqNum());
  EXPECT_THAT(order, ElementsAre(1, 2, 3));
  expectLogged(MC_TRACE_L2, "Entering ZNIfc::getIfcInfosByOrder() \n",
               [&] { container.getAllIfcIFInfosByOrder(); });
}

TEST_F(ZNIfcTest, TheInfoOfANodeIsFoundByItsIdentifier) {
  const ZNIfc container(entity(), {ZNIfcInfo(ObjID("n1"), {member("i1", 1)}),
                                   ZNIfcInfo(ObjID("n2"), {member("i2", 2)})});
  EXPECT_EQ(&container.getAllIfcInfos().back(), &container.getIfcInfoByNodeObjID(ObjID("n2")));
  expectLogged(MC_TRACE_L2,
               "Entering ZNIfc::getIfcInfoByObjID() \nExiting ZNIfc::getIfcInfoByObjID() \n",
               [&] { container.getIfcInfoByNodeObjID(ObjID("n1")); });
}

TEST_F(ZNIfcTest, TheInfoOfAnUnknownNodeIsEmptyAndOutlivesTheContainer) {
  const ZNIfcInfo* unknown = nullptr;
  {
    const ZNIfc container(entity(), {ZNIfcInfo(ObjID("n1"), {member("i1", 1)})});
    unknown = &container.getIfcInfoByNodeObjID(ObjID(5));
  }
  EXPECT_TRUE(unknown->getIfcInfoObjID().isNull());
  EXPECT_THAT(unknown->getAllIfcIFInfos(), IsEmpty());
}

TEST_F(ZNIfcTest, AStatusIsSetAtTheCurrentTimeInTheObjectsOwnTableSet) {
  ZNIfc container(entity(E_IfC));
  const std::time_t before = std::time(nullptr);
  EXPECT_TRUE(container.setStatus(6, true).isOK());
  EXPECT_EQ(ObjectStatus::Critical, container.getOverallStatus().getStatus());
  EXPECT_GE(container.getStatusChangeTime(), before);
  EXPECT_EQ("setEntityStatus(1, entity, 6, " + std::to_string(container.getStatusChangeTime()) +
                ", 5, 12)",
            gateway().calls().at(1));
  EXPECT_TRUE(container.setStatus(7, false).isOK());
  EXPECT_EQ(ObjectStatus::NoStatus, container.getOverallStatus().getStatus());
  gateway().topoMode = 1;
  EXPECT_EQ(ZN_API_DB_NOT_READY, container.setStatus(6, true).getStatus());
}

ZNIfcAssocInfo relationByIds() {
  return ZNIfcAssocInfo(ObjID("left"), ObjID("right"), 3, 4, 5, 6, 700, "uplink", "extra");
}

TEST_F(ZNIfcAssocInfoTest, EachConstructorSetsItsFieldsAndLeavesTheOthersEmpty) {
  const ZNIfcAssocInfo brief(ObjID("right"), 3);
  EXPECT_TRUE(brief.getLeftIfcId().isNull());
  EXPECT_EQ(ObjID("right"), brief.getRightIfcId());
  EXPECT_EQ(3, brief.getIfcRelationType());
  EXPECT_EQ(0, brief.getAssocState());

  const ZNIfcAssocInfo byIds = relationByIds();
  EXPECT_EQ(ObjID("left"), byIds.getLeftIfcId());
  EXPECT_EQ(ObjID("right"), byIds.getRightIfcId());
  EXPECT_EQ("", byIds.getLeftIfcName());
  EXPECT_EQ("", byIds.getRightIfcName());
  EXPECT_EQ(0, byIds.getIpLevel());

  const ZNIfcAssocInfo byNames("l", "r", 3, 4, 5, 6, 700, "uplink", "extra", 4);
  EXPECT_TRUE(byNames.getLeftIfcId().isNull());
  EXPECT_TRUE(byNames.getRightIfcId().isNull());
  EXPECT_EQ("l", byNames.getLeftIfcName());
  EXPECT_EQ("r", byNames.getRightIfcName());
  EXPECT_EQ(4, byNames.getIpLevel());

  for (const ZNIfcAssocInfo* const wide : {&byIds, &byNames}) {
    EXPECT_EQ(3, wide->getIfcRelationType());
    EXPECT_EQ(4, wide->getLeftIfcType());
    EXPECT_EQ(5, wide->getRightIfcType());
    EXPECT_EQ(6, wide->getAssocState());
    EXPECT_EQ(700, wide->getAssocStateTime());
    EXPECT_EQ("uplink", wide->getAssocDescription());
    EXPECT_EQ("extra", wide->getAssocExtraInfo());
  }
}

TEST_F(ZNIfcAssocInfoTest, AnUpdateInMemoryChangesTheStateAloneAndSendsNothing) {
  ZNIfcAssocInfo relation = relationByIds();
  gateway().topoMode = 1;
  EXPECT_TRUE(relation.updateState(8, false).isOK());
  EXPECT_EQ(8, relation.getAssocState());
  EXPECT_EQ(700, relation.getAssocStateTime());
  EXPECT_THAT(gateway().calls(), IsEmpty());
}

TEST_F(ZNIfcAssocInfoTest, AnUpdateWritesTheStoreAndPublishesAttributeSeven) {
  ZNIfcAssocInfo relation = relationByIds();
  EXPECT_TRUE(relation.updateState(8, true).isOK());
  EXPECT_THAT(gateway().calls(),
              ElementsAre("setNWIfcAssocInfoState(left, right, 3, 8)", "ensureNotificationClient()",
                          "sendAttributeNotification(12, left, 7, 8, right, 3)"));
}

TEST_F(ZNIfcAssocInfoTest, EachFailureIsReportedAndTheStateStaysChanged) {
  const std::pair<const char*, std::size_t> failures[] = {{"setNWIfcAssocInfoState", 1},
                                                          {"ensureNotificationClient", 2},
                                                          {"sendAttributeNotification", 3}};
  for (const auto& [operation, calls] : failures) {
    SCOPED_TRACE(operation);
    gateway().reset();
    gateway().failWith(operation, ZN_API_SQL_EXEC_ERROR, "aux");
    ZNIfcAssocInfo relation = relationByIds();
    const ZNTopoAPIStatus status = relation.updateState(8, true);
    EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, status.getStatus());
    EXPECT_EQ("aux", status.getAuxMsg());
    EXPECT_EQ(8, relation.getAssocState());
    EXPECT_EQ(calls, gateway().calls().size());
  }
}

TEST_F(ZNIfcAssocInfoTest, AContainerThatSharesTheRelationSeesTheNewState) {
  const ZNRefPtr<ZNIfcAssocInfo> relation(new ZNIfcAssocInfo(relationByIds()));
  ZNIfc container(entity());
  container.addIfcAssocInfo(relation);
  relation->updateState(8, false);
  EXPECT_EQ(8, container.getAllIfcAssocInfos().front()->getAssocState());
}

}  // namespace
}  // namespace zntopo::test
