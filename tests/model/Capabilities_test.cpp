#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/model/ModelFixture.h"

namespace zntopo::test {

namespace {

using testing::ElementsAre;

std::vector<std::string> namesOf(const std::vector<ZNCapability>& capabilities) {
  std::vector<std::string> names;
  for (const ZNCapability& capability : capabilities) {
    names.push_back(capability.getCapabilityName());
  }
  return names;
}

ZNNode nodeWith(unsigned long mask) {
  NodeProperty property;
  property.capabilitySet = ZNNodeCapabilitySet(mask);
  return ZNNode(entityOf(ObjID("n"), E_Node), property);
}

ZNInterface interfaceWith(unsigned long mask) {
  IFProperty property;
  property.capaSet = ZNInterfaceCapabilitySet(mask);
  return ZNInterface(entityOf(ObjID("i"), E_Interface), property);
}

struct NodeRow {
  unsigned long mask;
  bool (ZNNode::*accessor)() const;
  const char* name;
  bool byName = true;
};

const NodeRow kNodeRows[] = {
    {0x1, &ZNNode::isSwitch, "isLanSwitch"},
    {0x2, &ZNNode::isIPv4Router, "isIPv4Router"},
    {0x4, &ZNNode::isIPv6Router, "isIPv6Router"},
    {0x8, &ZNNode::isATM, "isATM"},
    {0x10, &ZNNode::isHSRP, "isHSRP"},
    {0x20, &ZNNode::isFrameRelay, "isFrameRelay"},
    {0x40, &ZNNode::isCDP, "isCDP"},
    {0x80, &ZNNode::isBGP, "isBGP"},
    {0x100, &ZNNode::isOSPF, "isOSPF"},
    {0x200, &ZNNode::isSTP, "isSTP"},
    {0x400, &ZNNode::isVRRP, "isVRRP"},
    {0x800, &ZNNode::isWireless, "isBGP", false},
    {0x1000, &ZNNode::isSonet, "isSonet"},
    {0x2000, &ZNNode::isRMON, "isRMON"},
    {0x4000, &ZNNode::isRMON2, "isRMON2"},
    {0x8000, &ZNNode::isDS1, "isDS1"},
    {0x10000, &ZNNode::isDS3, "isDS3"},
    {0x20000, &ZNNode::isMPLS, "isMPLS"},
    {0x40000, &ZNNode::isMultiHome, "isMultiHome"},
    {0x80000, &ZNNode::isManageable, "isManageable"},
    {0x200000, &ZNNode::isSnmpSupported, "isSnmpSupported"},
};

struct InterfaceRow {
  unsigned long mask;
  bool (ZNInterface::*accessor)() const;  // null where there is none
  const char* name;                       // null where there is none
};

const InterfaceRow kInterfaceRows[] = {
    {0x1, &ZNInterface::isAccessPort, "isAccessPort"},
    {0x2, &ZNInterface::isConnectedByL2Link, "isL2Connected"},
    {0x8, &ZNInterface::isATM, nullptr},
    {0x8, &ZNInterface::isATMEnabled, nullptr},
    {0x10, &ZNInterface::isHSRP, "isHSRP"},
    {0x10, &ZNInterface::isInHSRP, "isHSRP"},
    {0x20, &ZNInterface::isFrameRelay, "isFrameRelay"},
    {0x40, &ZNInterface::isCDP, "isCDP"},
    {0x80, &ZNInterface::isBGP, "isBGP"},
    {0x100, &ZNInterface::isOSPF, "isOSPF"},
    {0x200, &ZNInterface::isSTP, "isSTP"},
    {0x400, &ZNInterface::isVRRP, "isVRRP"},
    {0x800, &ZNInterface::isWireless, "isWireless"},
    {0x1000, &ZNInterface::isSONET, "isSonet"},
    {0x2000, nullptr, "isRMON"},
    {0x4000, nullptr, "isRMON2"},
    {0x8000, &ZNInterface::isDS1, "isDS1"},
    {0x10000, &ZNInterface::isDS3, "isDS3"},
    {0x20000, &ZNInterface::isMPLS, "isMPLS"},
    {0x100000, &ZNInterface::isMeshInterface, "isMeshInterface"},
};

}  // namespace

TEST(NodeCapabilitiesTest, EachBitHasItsAccessorAndItsName) {
  for (const NodeRow& row : kNodeRows) {
    const ZNNode with = nodeWith(row.mask);
    const ZNNode without = nodeWith(0);
    EXPECT_TRUE((with.*row.accessor)()) << row.name;
    EXPECT_FALSE((without.*row.accessor)()) << row.name;
    EXPECT_THAT(namesOf(with.getCapabilityListVal()), ElementsAre(row.name));
    EXPECT_EQ(row.name, with.getNodeCapabilitySet().toCapabilityStr(0));
    EXPECT_EQ(row.byName, with.hasCapability(row.name)) << row.mask;
    if (!row.byName) continue;
    EXPECT_EQ(
        row.mask,
        ZNNodeCapabilitySet(std::vector<ZNCapability>{ZNCapability(row.name)}).getCapabilityMask());
  }
}

TEST(NodeCapabilitiesTest, TheListIsInAscendingOrderOfTheBits) {
  std::vector<std::string> names;
  unsigned long all = 0;
  for (const NodeRow& row : kNodeRows) {
    names.emplace_back(row.name);
    all |= row.mask;
  }
  EXPECT_EQ(names, namesOf(ZNNodeCapabilitySet(all).toCapabilityList()));
}

TEST(NodeCapabilitiesTest, WirelessByMaskIsNotWirelessByName) {
  const ZNNode node = nodeWith(0x800);
  EXPECT_FALSE(node.hasCapability("isWireless"));
  EXPECT_TRUE(node.isWireless());
  EXPECT_THAT(namesOf(node.getCapabilityListVal()), ElementsAre("isBGP"));
}

TEST(NodeCapabilitiesTest, WirelessByNameIsTheBitOfBGP) {
  EXPECT_TRUE(ZNNodeCapabilitySet(0x80UL).isCapabilitySet("isWireless"));
  EXPECT_EQ(0x80UL, ZNNodeCapabilitySet(std::vector<ZNCapability>{ZNCapability("isWireless")})
                        .getCapabilityMask());
}

TEST(NodeCapabilitiesTest, RouterByNameIsTheIPv4Router) {
  const ZNNodeCapabilitySet set(std::vector<ZNCapability>{ZNCapability("isRouter")});
  EXPECT_EQ(0x2UL, set.getCapabilityMask());
  EXPECT_TRUE(set.isCapabilitySet("isRouter"));
  EXPECT_THAT(namesOf(set.toCapabilityList()), ElementsAre("isIPv4Router"));
}

TEST(NodeCapabilitiesTest, AnUnknownNameTestsFalseAndSetsNothing) {
  EXPECT_FALSE(ZNNodeCapabilitySet(0xFFFFFFFFUL).isCapabilitySet("isNothing"));
  EXPECT_FALSE(ZNNodeCapabilitySet(0xFFFFFFFFUL).isCapabilitySet("islanswitch"));
  EXPECT_EQ(0UL, ZNNodeCapabilitySet(std::vector<ZNCapability>{ZNCapability("isNothing")})
                     .getCapabilityMask());
}

TEST(NodeCapabilitiesTest, AMaskTestsForAnyOfItsBits) {
  EXPECT_TRUE(ZNNodeCapabilitySet(0x2UL).isCapabilitySet(0x6UL));
  EXPECT_FALSE(ZNNodeCapabilitySet(0x2UL).isCapabilitySet(0x4UL));
}

TEST(NodeCapabilitiesTest, AnEmptySetHasNoFirstName) {
  EXPECT_EQ("", ZNNodeCapabilitySet().toCapabilityStr(0x1UL));
  EXPECT_EQ("", ZNNodeCapabilitySet().toString());
}

TEST(NodeCapabilitiesTest, TheTextHasABlankBehindEachName) {
  EXPECT_EQ("isLanSwitch isIPv4Router ", ZNNodeCapabilitySet(0x3UL).toString());
}

TEST(NodeCapabilitiesTest, AnIPv6RouterIsManageableRouterAndRelay) {
  const ZNNode node = nodeWith(0x4);
  EXPECT_TRUE(node.isManageable());
  EXPECT_TRUE(node.isRouter());
  EXPECT_TRUE(node.isRelay());
  EXPECT_FALSE(node.isSwitch());
}

TEST(NodeCapabilitiesTest, DerivedTestsFollowTheirBits) {
  EXPECT_TRUE(nodeWith(0x1).isRelay());
  EXPECT_FALSE(nodeWith(0x1).isRouter());
  EXPECT_TRUE(nodeWith(0x2).isRouter());
  EXPECT_FALSE(nodeWith(0x2).isManageable());
}

TEST(NodeCapabilitiesTest, TheSetOfNamesHasNoDoubles) {
  const ZNNode node = nodeWith(0x880);
  EXPECT_EQ(2U, node.getCapabilityListVal().size());
  EXPECT_EQ(std::set<std::string>{"isBGP"}, node.getCapabilities());
}

TEST(InterfaceCapabilitiesTest, EachBitHasItsAccessorAndItsName) {
  for (const InterfaceRow& row : kInterfaceRows) {
    const ZNInterface with = interfaceWith(row.mask);
    const ZNInterface without = interfaceWith(0);
    if (row.accessor) {
      EXPECT_TRUE((with.*row.accessor)()) << row.mask;
      EXPECT_FALSE((without.*row.accessor)()) << row.mask;
    }
    const ZNInterfaceCapabilitySet& set = with.getIFProperty().capaSet;
    if (!row.name) {
      EXPECT_TRUE(set.toCapabilityList().empty());
      continue;
    }
    EXPECT_TRUE(set.isCapabilitySet(row.name));
    EXPECT_EQ(row.name, set.toCapabilityStr(0));
    EXPECT_EQ(row.mask, ZNInterfaceCapabilitySet(std::vector<ZNCapability>{ZNCapability(row.name)})
                            .getCapabilityMask());
  }
}

TEST(InterfaceCapabilitiesTest, TheListHasAnOrderOfItsOwnAndHSRPTwice) {
  EXPECT_THAT(namesOf(ZNInterfaceCapabilitySet(0xFFFFFFFFUL).toCapabilityList()),
              ElementsAre("isAccessPort", "isHSRP", "isL2Connected", "isHSRP", "isMPLS", "isVRRP",
                          "isRMON", "isRMON2", "isDS1", "isDS3", "isSonet", "isCDP", "isSTP",
                          "isFrameRelay", "isBGP", "isOSPF", "isWireless", "isMeshInterface"));
}

TEST(InterfaceCapabilitiesTest, AnHSRPInterfaceHasItsNameTwiceInTheText) {
  const ZNInterfaceCapabilitySet set(0x10UL);
  EXPECT_EQ(2U, set.toCapabilityList().size());
  EXPECT_EQ("isHSRP isHSRP ", set.toString());
}

TEST(InterfaceCapabilitiesTest, TheFirstNameFollowsAnOrderOfItsOwn) {
  const std::pair<unsigned long, const char*> order[] = {{0x10, "isHSRP"},
                                                         {0x2, "isL2Connected"},
                                                         {0x1, "isAccessPort"},
                                                         {0x20000, "isMPLS"},
                                                         {0x400, "isVRRP"},
                                                         {0x2000, "isRMON"},
                                                         {0x4000, "isRMON2"},
                                                         {0x8000, "isDS1"},
                                                         {0x10000, "isDS3"},
                                                         {0x1000, "isSonet"},
                                                         {0x40, "isCDP"},
                                                         {0x200, "isSTP"},
                                                         {0x20, "isFrameRelay"},
                                                         {0x80, "isBGP"},
                                                         {0x100, "isOSPF"},
                                                         {0x800, "isWireless"},
                                                         {0x100000, "isMeshInterface"}};
  unsigned long left = 0;
  for (const auto& row : order) left |= row.first;
  for (const auto& [mask, name] : order) {
    EXPECT_EQ(name, ZNInterfaceCapabilitySet(left).toCapabilityStr(0x1UL));
    left &= ~mask;
  }
  EXPECT_EQ("UNKNOWN", ZNInterfaceCapabilitySet(left).toCapabilityStr(0x10UL));
}

TEST(InterfaceCapabilitiesTest, AnEmptySetIsUnknown) {
  EXPECT_EQ("UNKNOWN", ZNInterfaceCapabilitySet().toCapabilityStr(0));
  EXPECT_EQ("UNKNOWN", ZNInterfaceCapabilitySet(0x8UL).toCapabilityStr(0));
}

TEST(CapabilityTest, ACapabilityIsItsName) {
  ZNCapability capability("isATM");
  EXPECT_EQ("isATM", capability.toString());
  EXPECT_EQ(4, capability.getCapabilityAsVarValType());
  EXPECT_TRUE(ZNCapability::hasCapabilityName(capability, "isATM"));
  EXPECT_FALSE(ZNCapability::hasCapabilityName(capability, "isBGP"));
  EXPECT_TRUE(capability < ZNCapability("isBGP"));
  capability.setCapabilityName("isCDP");
  EXPECT_EQ("isCDP", capability.getCapabilityName());
}

}  // namespace zntopo::test
