#include "zntopo/model/ZNInterface.h"

#include <cstring>

#include "tests/model/ModelFixture.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A label as getInterfaceName() gives it.
std::string padded(std::string label) {
  label.resize(33);
  return label;
}

std::string nameOf(const std::string& alias, const std::string& name,
                   const std::string& description) {
  IFProperty property;
  property.ifAlias = alias;
  property.ifName = name;
  std::strcpy(property.vendorCardNumber, "1");
  std::strcpy(property.vendorPortNumber, "2");
  return ZNInterface(entityOf(ObjID("i"), E_Interface, ActiveDB, description), property)
      .getInterfaceName();
}

ZNRefPtr<ZNConnData> link(const char* srcIF, const char* destIF) {
  return new ZNConnData(srcIF, destIF, "node", "other", true);
}

/// Puts a node with these links behind the gateway.
void addNodeWith(FakeTopologyGateway& gateway, const ZNNode::ConnDataVector& links) {
  ZNRefPtr<ZNNode> node(new ZNNode(entityOf(ObjID("node"), E_Node)));
  node->setConnDataList(links);
  gateway.addNode(node);
}

using ZNInterfaceTest = ModelTest;

}  // namespace

TEST_F(ZNInterfaceTest, EachConstructorMakesItAnInterface) {
  const ZNEntity entity = entityOf(ObjID("i"), E_Card);
  const ZNInterface::ConnDataVector links{link("i", "j")};
  EXPECT_EQ(E_Interface, ZNInterface(entity).getEntityType());
  EXPECT_EQ(E_Interface, ZNInterface(entity, links).getEntityType());
  EXPECT_EQ(E_Interface, ZNInterface(entity, IFProperty()).getEntityType());
  const ZNInterface full(entity, links, IFProperty(), {ipv4(ObjID("a"), "10.0.0.1", ObjID("if"))});
  EXPECT_EQ(E_Interface, full.getEntityType());
  EXPECT_EQ(1U, full.getConnData().size());
  EXPECT_EQ(1U, full.getAddressList().size());
}

TEST_F(ZNInterfaceTest, PropertiesHaveTheirDefaultsAndGoBackToThem) {
  IFProperty property;
  property.ifName = "x";
  property.ifAlias = "y";
  property.vpi = 3;
  property.L2DomainID = 9;
  property.ifOperStatus = down;
  property.ifAdminStatus = Testing;
  std::strcpy(property.portNumber, "123");
  property.reset();
  EXPECT_EQ("-", property.ifName);
  EXPECT_EQ("-", property.ifAlias);
  EXPECT_EQ("", property.physicalAddress);
  EXPECT_EQ(0, property.vpi);
  EXPECT_EQ(-1, property.L2DomainID);
  EXPECT_EQ(up, property.ifOperStatus);
  EXPECT_EQ(Up, property.ifAdminStatus);
  EXPECT_EQ(std::string(4, '\0'), std::string(property.portNumber, 4));
}

TEST_F(ZNInterfaceTest, GettersReadTheirProperties) {
  IFProperty property;
  std::strcpy(property.portNumber, "123");
  std::strcpy(property.vendorPortNumber, "45");
  std::strcpy(property.vendorCardNumber, "6");
  property.vpi = 7;
  property.vci = 8;
  property.ifType = 6;
  property.ifIndex = 9;
  property.physicalAddress = "00:11:22:33:44:55";
  property.ifSpeed = 1000;
  const ZNInterface interface(entityOf(ObjID("i"), E_Interface), property);
  EXPECT_EQ("123", interface.getAuxPortNum());
  EXPECT_EQ("45", interface.getPortNum());
  EXPECT_EQ("6", interface.getCardLoc());
  EXPECT_EQ(7, interface.getVPI());
  EXPECT_EQ(8, interface.getVCI());
  EXPECT_EQ(6, interface.getIfType());
  EXPECT_EQ(9, interface.getIfIndex());
  EXPECT_EQ("00:11:22:33:44:55", interface.getPhysAddr());
  EXPECT_EQ(1000, interface.getIfSpeed());
}

TEST_F(ZNInterfaceTest, APathOrChannelMakesItAValidATMInterface) {
  IFProperty property;
  EXPECT_FALSE(ZNInterface(entityOf(ObjID("i"), E_Interface), property).isValidATMInterface());
  property.vci = 1;
  EXPECT_TRUE(ZNInterface(entityOf(ObjID("i"), E_Interface), property).isValidATMInterface());
  property.vci = 0;
  property.vpi = 1;
  EXPECT_TRUE(ZNInterface(entityOf(ObjID("i"), E_Interface), property).isValidATMInterface());
}

TEST_F(ZNInterfaceTest, TheNameIsTheFirstUsableLabel) {
  EXPECT_EQ(padded("alias"), nameOf("alias", "name", "description"));
  EXPECT_EQ(padded("name"), nameOf("-", "name", "description"));
  EXPECT_EQ(padded("description"), nameOf("-", "-", "description"));
}

TEST_F(ZNInterfaceTest, WithoutALabelTheNameIsCardAndPort) {
  EXPECT_EQ(padded("1/2"), nameOf("-", "-", "-"));
}

TEST_F(ZNInterfaceTest, TheNameHasThirtyThreeCharacters) {
  const std::string name = nameOf(std::string(40, 'x'), "-", "-");
  EXPECT_EQ(std::string(33, 'x'), name);
  EXPECT_EQ(33U, nameOf("a", "-", "-").size());
}

TEST_F(ZNInterfaceTest, ItsConnectionsAreThoseOfItsNodeThatItIsPartOf) {
  addNodeWith(gateway(), {link("i", "j"), link("k", "l"), link("j", "i")});
  const auto interface = interfaceOf(ObjID("i"));
  EXPECT_TRUE(interface->isConnDataListEmptyNoNodeAccess());
  EXPECT_TRUE(gateway().calls().empty());
  EXPECT_EQ(2U, interface->getConnData().size());
  EXPECT_FALSE(interface->isConnDataListEmptyNoNodeAccess());
  interface->getConnData();
  EXPECT_THAT(gateway().calls(), ElementsAre("getNodeByObjID(0, node)"));
}

TEST_F(ZNInterfaceTest, WithoutConnectionsTheNodeIsAskedForOnEveryCall) {
  addNodeWith(gateway(), {});
  const auto interface = interfaceOf(ObjID("i"));
  EXPECT_THAT(interface->getConnData(), IsEmpty());
  EXPECT_THAT(interface->getConnData(), IsEmpty());
  EXPECT_EQ(2, gateway().callCount("getNodeByObjID"));
}

TEST_F(ZNInterfaceTest, WithoutItsNodeItHasNoConnections) {
  gateway().failWith("getNodeByObjID", ZN_API_INVALID_ID);
  EXPECT_THAT(interfaceOf(ObjID("i"))->getConnData(), IsEmpty());
}

TEST_F(ZNInterfaceTest, ConnectionsCanBeAdded) {
  const auto interface = interfaceOf(ObjID("i"));
  ZNRefPtr<ZNConnData> data = link("i", "j");
  interface->addConnData(data);
  EXPECT_EQ(1U, interface->getConnData().size());
  EXPECT_TRUE(gateway().calls().empty());
}

TEST_F(ZNInterfaceTest, ThePeerIsTheOtherEndOfTheFirstConnection) {
  for (const char* id : {"j", "k"}) gateway().addInterface(interfaceOf(id));
  const ZNInterface source(entityOf(ObjID("i"), E_Interface), {link("i", "j"), link("k", "i")});
  EXPECT_EQ(ObjID("j"), source.getConnectedL2Interface()->getObjID());
  EXPECT_THAT(idsOf(*source.getConnectedL2Interfaces()), ElementsAre("j", "k"));
}

TEST_F(ZNInterfaceTest, WithoutConnectionsThereIsNoPeer) {
  addNodeWith(gateway(), {});
  const auto interface = interfaceOf(ObjID("i"));
  EXPECT_TRUE(interface->getConnectedL2Interface().isNull());
  EXPECT_TRUE(interface->getConnectedL2Interfaces()->empty());
}

TEST_F(ZNInterfaceTest, GroupsAreAskedForAsAnInterfaceAndKeptWhenThereAreAny) {
  IFProperty property;
  property.capaSet = ZNInterfaceCapabilitySet(0x10UL);
  const auto interface = interfaceOf(ObjID("i"), ObjID("node"), property);
  EXPECT_THAT(interface->getHSRPObjIDs(), IsEmpty());
  gateway().failWith("getHSRPObjIDsByIFAddressObjID", ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(interface->getHSRPObjIDs(), IsEmpty());
  gateway().succeed("getHSRPObjIDsByIFAddressObjID");
  gateway().answerHSRPObjIDs(ObjID("i"), {ObjID("g")});
  EXPECT_THAT(interface->getHSRPObjIDs(), ElementsAre(ObjID("g")));
  interface->getHSRPObjIDs();
  EXPECT_EQ(3, gateway().callCount("getHSRPObjIDsByIFAddressObjID"));
  EXPECT_EQ("getHSRPObjIDsByIFAddressObjID(0, i, 1)", gateway().calls().front());
}

TEST_F(ZNInterfaceTest, OutsideHSRPNobodyIsAskedForGroups) {
  EXPECT_THAT(interfaceOf(ObjID("i"))->getHSRPObjIDs(), IsEmpty());
  EXPECT_TRUE(gateway().calls().empty());
}

}  // namespace zntopo::test
