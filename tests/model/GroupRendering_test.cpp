#include "tests/model/ModelFixture.h"
#include "zntopo/model/ContainmentAss.h"
#include "zntopo/model/RelatedToAss.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

namespace zntopo::test {
namespace {

/// An entity of a kind, as the groups have it.
ZNEntity entity(EntityType type) {
  EntityParts parts;
  parts.type = type;
  return parts.entity();
}

class GroupRenderingTest : public ModelTest {};

// ---- associations ----

constexpr const char* kHall =
    "\n------AssEndPoint-----------\nObjID:h1\nType:InterfaceContainer\nName:hall"
    "\n-------------------------";
constexpr const char* kNoEnd =
    "\n------AssEndPoint-----------\nObjID:NULL\nType:Unknown\nName:\n-------------------------";

TEST_F(GroupRenderingTest, AnEndOfAnAssociationIsAnObject) {
  EXPECT_EQ(AssEndPoint("hall", ObjID("h1"), E_IfC).toString(), kHall);
  EXPECT_EQ(AssEndPoint().toString(), kNoEnd);
}

TEST_F(GroupRenderingTest, AContainmentHasItsContents) {
  const AssEndPoint hall("hall", ObjID("h1"), E_IfC);
  EXPECT_EQ(ContainmentAss(hall, {hall, AssEndPoint()}).toString(),
            std::string("\n------Containment-----------\nContainer:") + kHall +
                "\nContainedList:\n=========================" + kHall + kNoEnd +
                "\n-------------------------");
  EXPECT_EQ(ContainmentAss().toString(),
            std::string("\n------Containment-----------\nContainer:") + kNoEnd +
                "\nContainedList:\n=========================\n-------------------------");
}

TEST_F(GroupRenderingTest, ARelationTellsTheLowBitsOfItsSpeed) {
  RelatedToAss relation(AssEndPoint("hall", ObjID("h1"), E_IfC), AssEndPoint(), 4294967297ULL, 2, 3,
                        true);
  const auto text = [](const char* speed, const char* duplex) {
    return std::string("\n------RelatedTo-----------\nLeft:") + kHall + "\nRight:" + kNoEnd +
           "\nSpeed:" + speed + "\nDuplex:" + duplex +
           "\nProtocol:2\nRelType:3\n-------------------------";
  };
  EXPECT_EQ(relation.toString(), text("1", "true"));
  relation.setSpeed(4294967295ULL);
  relation.setDuplexMode(false);
  EXPECT_EQ(relation.toString(), text("-1", "false"));
}

// ---- subnets ----

TEST_F(GroupRenderingTest, ASubnetHasItsEndPointsBetweenLines) {
  const ZNSubnet subnet(entity(E_Subnet), {SubnetEndPoint("n", "i", "a")});
  EXPECT_EQ(subnet.toString(),
            "\n++++++++++++++++ ZNSubnet ++++++++++++++" + entity(E_Subnet).toString() +
                "\nSubnetEndPoint:\n======================================="
                "\n0)(NodeID:n, IFID:i, AddressID:a) (NodeName:, IFName:, Address:)"
                "\n=======================================\n---------------- ZNSubnet "
                "--------------");
  EXPECT_EQ(subnet.toXML(), entity(E_Subnet).toXML());
}

// ---- VLANs ----

TEST_F(GroupRenderingTest, AVlanHasItsNodesAndTheirInterfaces) {
  const ZNVlanInfo info("v", "n", "core<1",
                        {ZNVlanIFInfo("i1", "1", "2"), ZNVlanIFInfo("i2", "", "")});
  const std::string infoText =
      "\n+++++++++++++ZNVlanInfo +++++++++++++\nVlanObjID:v\nNodeObjID:n\nNodeName:core<1"
      "\nInterface Vlan Information:\n(IFID:i1, PortNo:1, BoardNo:2)\n"
      "(IFID:i2, PortNo:, BoardNo:)\n\n-------------ZNVlanInfo ---------------";
  EXPECT_EQ(info.toString(), infoText);
  const std::string infoXml =
      "<VlanInfo>\n" + attribute("VlanObjID", "objID", "v") + attribute("NodeObjID", "objID", "n") +
      attribute("NodeName", "str", "core&lt;1") +
      "<VlanIFInfos>\n<IFInfo IFObjID=\"i1\" PortNo=\"1\" BoardNo=\"2\" />\n<IFInfo IFObjID=\"i2\" "
      "PortNo=\"\" BoardNo=\"\" />\n</VlanIFInfos>\n</VlanInfo>\n";
  EXPECT_EQ(info.toXML(), infoXml);
  const ZNVlan vlan(entity(E_Vlan), {info, info});
  EXPECT_EQ(vlan.toString(), "\n+++++++++++++++++ ZNVlan ++++++++++++++++" +
                                 entity(E_Vlan).toString() + infoText + infoText +
                                 "\n----------------- ZNVlan ----------------\n");
  EXPECT_EQ(vlan.toXML(),
            "<ZNVlan>\n" + entity(E_Vlan).toXML() + infoXml + infoXml + "</ZNVlan>\n");
  EXPECT_EQ(vlan.toShortString(), "");
}

// ---- HSRP groups ----

TEST_F(GroupRenderingTest, AnHsrpGroupHasItsMembersAndBeginsWithoutALineFeed) {
  const ZNHSRPAddressInfo plain(7, "i1", "a1", 100, ZNHSRPAddressInfo::Active, "", 90);
  const ZNHSRPAddressInfo tracking(7, "i2", "a2", 50, ZNHSRPAddressInfo::StandBy, "[t1,5][t2,6]",
                                   80);
  const std::string plainText =
      "\nAddressObjID:a1\nIFObjID:i1\nHSRPState:Active\nHSRPNumber:7\nHSRPPriority:100"
      "\nHSRPStateCertainty:90";
  EXPECT_EQ(plain.toString(), plainText);
  const std::string trackingText =
      "\nAddressObjID:a2\nIFObjID:i2\nHSRPState:StandBy\nHSRPNumber:7\nHSRPPriority:50"
      "\nHSRPStateCertainty:80\n---------- Track Interface Info ----------\nIF ObjID = t1"
      "\nIF Priority = 5\nIF ObjID = t2\nIF Priority = 6"
      "\n------------------------------------------\n";
  EXPECT_EQ(tracking.toString(), trackingText);
  const ZNHSRP group(entity(E_HSRP), {plain, tracking});
  EXPECT_EQ(group.toString(), "++++++++++++ HSRP ++++++++++++++++++ \n" +
                                  entity(E_HSRP).toString() +
                                  "\nHSRPGroupNumber: 7"
                                  "\n============= HSRP Address =============== \n"
                                  "\n---------------" +
                                  plainText + "\n---------------" + trackingText +
                                  "\n------------- HSRP --------------\n");
  EXPECT_EQ(group.toShortString(), "");
}

TEST_F(GroupRenderingTest, TheXmlOfAnHsrpGroupHasItsMembers) {
  const ZNHSRPAddressInfo member(7, "i1", "a1", 100, ZNHSRPAddressInfo::Unavailable, "[t1,5]", 90);
  const std::string memberXml = "<HSRPAddress>\n" + attribute("AddressObjID", "objID", "a1") +
                                attribute("IFObjID", "objID", "i1") +
                                attribute("HSRPState", "str", "Unknown") +
                                attribute("HSRPPriority", "int", "100") +
                                attribute("HSRPCertainty", "int", "90") + "</HSRPAddress>\n";
  EXPECT_EQ(member.toXML(), memberXml);
  EXPECT_EQ(ZNHSRP(entity(E_HSRP), {member}).toXML(),
            "<HSRP>\n" + entity(E_HSRP).toXML() + attribute("GroupNumber", "int", "7") +
                "<HSRPAddressList>\n" + memberXml + "</HSRPAddressList>\n</HSRP>\n");
  EXPECT_EQ(ZNHSRP(entity(E_HSRP)).toXML(), "<HSRP>\n" + entity(E_HSRP).toXML() +
                                                attribute("GroupNumber", "int", "0") +
                                                "<HSRPAddressList>\n</HSRPAddressList>\n</HSRP>\n");
}

// ---- containers ----

TEST_F(GroupRenderingTest, AContainerHasItsPartsAndItsAssociations) {
  const ZNIfcIFInfo member(ObjID("c"), ObjID("i"), 1, 2, 3);
  const std::string memberText =
      "\n\n               +++++++++++++++++ ZNIfcIFInfo ++++++++++++++++\n"
      "\n               InterfaceObjId:i\n               ContainerObjId:c"
      "\n               IfcType:1\n               ContainmentType:2"
      "\n               SequenceNumber:3"
      "\n               ----------------- ZNIfcIFInfo ----------------\n";
  EXPECT_EQ(member.toString(), memberText);
  const ZNIfcInfo part("n", {member, member});
  const std::string partText =
      "\n\n          +++++++++++++ZNIfcInfo +++++++++++++\n              ObjID:n"
      "\n\n               +++++++++++++++ZNIfcIFInfoListBegins+++++++++++++++++:\n" +
      memberText + "\n" + memberText +
      "\n\n               ---------------ZNIfcIFInfoListEnds-----------------:\n"
      "\n\n          -------------ZNIfcInfo ---------------";
  EXPECT_EQ(part.toString(), partText);
  const ZNRefPtr<ZNIfcAssocInfo> association(
      new ZNIfcAssocInfo(ObjID("c"), ObjID("d"), 4, 5, 6, 7, 8, "why", "more"));
  const std::string associationText =
      "\n\n          +++++++++++++++++ ZNIfcAssocInfo ++++++++++++++++"
      "\n          LeftIfCObjId: c\n          LeftIfcType: 5\n          RightIfCObjId: d"
      "\n          RightIfcType: 6\n          RelationType: 4\n          AssociationStatus: 7"
      "\n          AssociationChangeTime: 8\n          AssociationDescription: why"
      "\n          AssociationExtraInfo: more"
      "\n          ----------------- ZNIfcAssocInfo ----------------";
  EXPECT_EQ(association->toString(), associationText);
  const ZNIfc container(entity(E_IfC), {part, part},
                        {association, ZNRefPtr<ZNIfcAssocInfo>(), association}, 1, 2, true, false);
  EXPECT_EQ(container.toString(),
            "\n+++++++++++++++++ ZNIfc ++++++++++++++++" + entity(E_IfC).toString() +
                "\n     +++++++++++++++++ ZNIfcInfoListBegins ++++++++++++++++" + partText +
                partText +
                "\n     ----------------- ZNIfcInfoListEnds ----------------\n    "
                "\n     +++++++++++++++++ ZNIfcAssocInfoListBegins ++++++++++++++++" +
                associationText + associationText +
                "\n     ----------------- ZNIfcAssocInfoListEnds ----------------"
                "\n----------------- ZNIfc ----------------\n");
}

TEST_F(GroupRenderingTest, TheXmlOfAContainerIsItsBannerAlone) {
  EXPECT_EQ(ZNIfc(entity(E_IfC), {ZNIfcInfo("n", {})}).toXML(),
            "\n+++++++++++++++++ ZNIfc ++++++++++++++++");
  EXPECT_EQ(ZNIfc(entity(E_IfC)).toShortString(), "");
}

}  // namespace
}  // namespace zntopo::test
