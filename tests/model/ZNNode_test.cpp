#include "zntopo/model/ZNNode.h"

#include "tests/model/ModelFixture.h"
#include "zntopo/model/ZNIfcInfo.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ZNNode nodeOf(TopoDBType dbType = ActiveDB, const NodeProperty& property = NodeProperty()) {
  return ZNNode(entityOf(ObjID("node"), E_Node, dbType), property);
}

ZNRefPtr<ZNConnData> link(const ObjID& srcIF, const ObjID& destIF, const ObjID& srcNode,
                          const ObjID& destNode) {
  return new ZNConnData(srcIF, destIF, srcNode, destNode, srcNode == ObjID("node"));
}

using ZNNodeTest = ModelTest;

}  // namespace

TEST_F(ZNNodeTest, ConstructorsMakeItANodeUnlessAPropertyIsGiven) {
  const ZNEntity entity = entityOf(ObjID("node"), E_Card);
  EXPECT_EQ(E_Node, ZNNode(entity).getEntityType());
  EXPECT_EQ(E_Node, ZNNode(entity, ZNNode::InterfaceList()).getEntityType());
  EXPECT_EQ(E_Card, ZNNode(entity, NodeProperty()).getEntityType());
}

TEST_F(ZNNodeTest, ThePropertiesHaveTheirDefaults) {
  const NodeProperty property;
  EXPECT_EQ(0UL, property.capabilitySet.getCapabilityMask());
  EXPECT_EQ("", property.entityOid);
  EXPECT_EQ(-1, property.L2DomainID);
  EXPECT_TRUE(property.V4MgmtAddress.isNull());
  EXPECT_EQ(RESPONDING, property.mySnmpState);
  EXPECT_EQ("", property.sysContact);
  EXPECT_EQ("", property.sysLocation);
}

TEST_F(ZNNodeTest, InterfacesGivenAtConstructionAreNotTheLoadedList) {
  const ZNNode node(entityOf(ObjID("node"), E_Node), {interfaceOf(ObjID("i1"))});
  gateway().addInterfaceOfNode(ObjID("node"), interfaceOf(ObjID("i2")));
  EXPECT_THAT(node.getInterfaceIDList(), ElementsAre(ObjID("i1"), ObjID("i2")));
}

TEST_F(ZNNodeTest, TheIdentifiersAreLoadedOnceThroughTheObjectsOwnTableSet) {
  const ZNNode node = nodeOf(WorkingDB);
  gateway().addInterfaceOfNode(ObjID("node"), interfaceOf(ObjID("i1")));
  EXPECT_THAT(node.getInterfaceIDList(), ElementsAre(ObjID("i1")));
  EXPECT_EQ(1U, node.getInterfaceIDSet().size());
  EXPECT_THAT(gateway().calls(), ElementsAre("getInterfacesByNodeObjIDList(1, [node])"));
}

TEST_F(ZNNodeTest, AFailedLoadIsTriedAgain) {
  const ZNNode node = nodeOf();
  gateway().addInterfaceOfNode(ObjID("node"), interfaceOf(ObjID("i1")));
  gateway().failWith("getInterfacesByNodeObjIDList", ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(node.getInterfaceIDList(), IsEmpty());
  gateway().succeed("getInterfacesByNodeObjIDList");
  EXPECT_THAT(node.getInterfaceIDList(), ElementsAre(ObjID("i1")));
}

TEST_F(ZNNodeTest, ASetOfIdentifiersMarksTheListLoadedAndAppends) {
  ZNNode node = nodeOf();
  node.addInterfaceID(ObjID("i0"));
  node.setInterfaceIDSet({ObjID("i1"), ObjID("i2")});
  node.setInterfaceIDSet({ObjID("i3")});
  EXPECT_THAT(node.getInterfaceIDList(),
              ElementsAre(ObjID("i0"), ObjID("i1"), ObjID("i2"), ObjID("i3")));
  EXPECT_TRUE(gateway().calls().empty());
}

TEST_F(ZNNodeTest, TheFirstLoadGivesTheObjectsItRead) {
  const ZNNode node = nodeOf(WorkingDB);
  gateway().addInterfaceOfNode(ObjID("node"), interfaceOf(ObjID("i1")));
  EXPECT_THAT(idsOf(*node.getInterfacesList()), ElementsAre("i1"));
  EXPECT_THAT(gateway().calls(), ElementsAre("getInterfacesByNodeObjIDList(1, [node])"));
}

TEST_F(ZNNodeTest, ALoadedListIsFetchedByIdentifiersInTheActiveTables) {
  ZNNode node = nodeOf(WorkingDB);
  node.setInterfaceIDSet({ObjID("i1"), ObjID("i2")});
  gateway().addInterface(interfaceOf(ObjID("i1")));
  gateway().addInterface(interfaceOf(ObjID("i2")));
  EXPECT_THAT(idsOf(node.getInterfaceList()), ElementsAre("i1", "i2"));
  EXPECT_THAT(gateway().calls(), ElementsAre("getInterfacesByObjIDList([i1 i2])"));
}

TEST_F(ZNNodeTest, AFailedFetchGivesAnEmptyListAndNoError) {
  ZNNode node = nodeOf();
  node.setInterfaceIDSet({ObjID("i1")});
  gateway().addInterface(interfaceOf(ObjID("i1")));
  gateway().failWith("getInterfacesByObjIDList", ZN_API_SQL_EXEC_ERROR);
  EXPECT_TRUE(node.getInterfaceList().empty());
}

TEST_F(ZNNodeTest, TheOwnSideOfEachLinkIsAmongTheConnectedInterfaces) {
  ZNNode node = nodeOf();
  for (const char* id : {"mine1", "mine2", "theirs"}) gateway().addInterface(interfaceOf(id));
  node.setConnDataList({link("mine1", "theirs", "node", "other"),
                        link("theirs", "mine2", "other", "node"),
                        link("mine1", "theirs", "node", "other")});
  EXPECT_THAT(idsOf(*node.getL2LinkConnectedInterfacesList()), ElementsAre("mine1", "mine2"));
}

TEST_F(ZNNodeTest, AnInterfaceIsFoundByItsFirstAddressOfAType) {
  ZNNode node = nodeOf();
  const auto first = interfaceOf(ObjID("i1"));
  const auto second = interfaceOf(ObjID("i2"));
  first->setAddresses(
      {ipv4(ObjID("a1"), "10.0.0.1", ObjID("if")), ipv4(ObjID("a2"), "10.0.0.2", ObjID("if"))});
  second->setAddresses({ipv4(ObjID("a3"), "10.0.0.3", ObjID("if"))});
  for (const auto& address :
       {ipv4(ObjID("a1"), "10.0.0.1", ObjID("if")), ipv4(ObjID("a2"), "10.0.0.2", ObjID("if")),
        ipv4(ObjID("a3"), "10.0.0.3", ObjID("if"))}) {
    gateway().addAddress(address);
  }
  gateway().addInterface(first);
  gateway().addInterface(second);
  node.setInterfaceIDSet({ObjID("i1"), ObjID("i2")});
  EXPECT_EQ(ObjID("i1"), node.getInterfaceByAddressValue("10.0.0.1", ZNAddress::IPv4)->getObjID());
  EXPECT_EQ(ObjID("i2"), node.getInterfaceByAddressValue("10.0.0.3", ZNAddress::IPv4)->getObjID());
  // The second address of its type on an interface is never compared.
  EXPECT_TRUE(node.getInterfaceByAddressValue("10.0.0.2", ZNAddress::IPv4).isNull());
  EXPECT_TRUE(node.getInterfaceByAddressValue("10.0.0.1", ZNAddress::IPv6).isNull());
}

TEST_F(ZNNodeTest, ContainerSummariesAreAskedForOnEveryCall) {
  const ZNNode node = nodeOf();
  gateway().answerIfcInfos(ObjID("node"), 0, {ZNIfcInfo(ObjID("c1"), {})});
  gateway().answerIfcInfos(ObjID("node"), 3, {ZNIfcInfo(ObjID("c3"), {})});
  EXPECT_EQ(ObjID("c1"), node.getAllIfcInfo().front().getIfcInfoObjID());
  EXPECT_EQ(ObjID("c3"), node.getIfcInfoByType(3).front().getIfcInfoObjID());
  EXPECT_EQ(ObjID("c3"), node.getIfcInfoList().front().getIfcInfoObjID());
  EXPECT_THAT(gateway().calls(), ElementsAre("getIfcInfosByObjIDList([node], 0)",
                                             "getIfcInfosByObjIDList([node], 3)"));
}

TEST_F(ZNNodeTest, ContainerSummariesStayWhenTheStoreHasNoneOrFails) {
  ZNNode node = nodeOf();
  node.setIfcInfoList({ZNIfcInfo(ObjID("kept"), {})});
  EXPECT_EQ(ObjID("kept"), node.getAllIfcInfo().front().getIfcInfoObjID());
  gateway().failWith("getIfcInfosByObjIDList", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(ObjID("kept"), node.getIfcInfoByType(5).front().getIfcInfoObjID());
}

TEST_F(ZNNodeTest, ANodeWithoutAManagementAddressShowsAnEmptyOne) {
  const ZNNode node = nodeOf();
  EXPECT_EQ("", node.getIPv4ManagementAddress());
  EXPECT_EQ("", node.getIPv4MgmtAddress().getAddressAsString());
}

TEST_F(ZNNodeTest, AManagementAddressWithANumberIsNotAskedFor) {
  NodeProperty property;
  property.V4MgmtAddress = ZNRefPtr<InetAddressIPv4>(
      new InetAddressIPv4("10.0.0.9", false, ObjID(12), ObjID("if"), ActiveDB));
  const ZNNode node = nodeOf(ActiveDB, property);
  EXPECT_EQ("10.0.0.9", node.getIPv4MgmtAddress().getAddressAsString());
  EXPECT_TRUE(gateway().calls().empty());
}

TEST_F(ZNNodeTest, AManagementAddressWithoutANumberIsReadByItsTextAndDomain) {
  NodeProperty property;
  property.V4MgmtAddress =
      ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4("10.0.0.9", "192.0.2.9", 7U, ActiveDB));
  const ZNNode node = nodeOf(ActiveDB, property);
  gateway().answerAddressByIP("10.0.0.9", ipv4(ObjID(12), "10.0.0.9", ObjID("if")));
  const InetAddressIPv4& before = node.getNodeProperty().V4MgmtAddress.get().operator*();
  const InetAddressIPv4& address = node.getIPv4MgmtAddress();
  EXPECT_EQ(ObjID(12), address.getAddressID());
  EXPECT_EQ("192.0.2.9", before.getPublicAddress());  // what was handed out lives on
  node.getIPv4MgmtAddress();
  EXPECT_THAT(gateway().calls(), ElementsAre("getAddressByIP(10.0.0.9, 7)"));
}

TEST_F(ZNNodeTest, AManagementAddressThatIsNotResolvedStays) {
  NodeProperty property;
  property.V4MgmtAddress =
      ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4("10.0.0.9", "10.0.0.9", 0U, ActiveDB));
  const ZNNode node = nodeOf(ActiveDB, property);
  gateway().failWith("getAddressByIP", ZN_API_NOT_INITED);
  EXPECT_EQ("10.0.0.9", node.getIPv4MgmtAddress().getAddressAsString());
  gateway().succeed("getAddressByIP");
  EXPECT_EQ("10.0.0.9", node.getIPv4MgmtAddress().getAddressAsString());  // nothing found
  EXPECT_EQ(2, gateway().callCount("getAddressByIP"));
}

TEST_F(ZNNodeTest, SnmpStatesHaveNumbers) {
  for (int state = 0; state <= 4; ++state) {
    EXPECT_EQ(state, getSnmpStateFromInt(state));
    EXPECT_EQ(state, getSnmpStateAsInt(SnmpState(state)));
  }
  EXPECT_EQ(17, getSnmpStateFromInt(17));
  EXPECT_EQ(0, getSnmpStateAsInt(SnmpState(17)));
}

TEST_F(ZNNodeTest, ACopyHasTheNodesOwnFields) {
  NodeProperty property;
  property.sysContact = "noc";
  ZNNode node = nodeOf(WorkingDB, property);
  node.setInterfaceIDSet({ObjID("i1")});
  node.setConnDataList({link("i1", "i2", "node", "other")});
  node.addVlanInfo(ZNVlanInfo());
  const ZNNode copy(node);
  EXPECT_EQ("noc", copy.getSysContact());
  EXPECT_THAT(copy.getInterfaceIDList(), ElementsAre(ObjID("i1")));
  EXPECT_EQ(1U, copy.getConnDataList().size());
  EXPECT_EQ(1U, copy.getVlanInfoList().size());
  EXPECT_TRUE(gateway().calls().empty());  // and knows that its list is loaded
}

}  // namespace zntopo::test
