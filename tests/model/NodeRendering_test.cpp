#include "tests/model/ModelFixture.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/PhysicalAddress.h"
#include "zntopo/model/ZNUtilMesg.h"

namespace zntopo::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class NodeRenderingTest : public ModelTest {
 protected:
  static NodeProperty property() {
    NodeProperty property;
    property.capabilitySet = ZNNodeCapabilitySet(0x3UL);
    property.entityOid = "1.3.6.1";
    property.L2DomainID = 12;
    property.V4MgmtAddress = ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4(
        "10.0.0.1", false, ObjID(5), ObjID("i"), ObjID(), 7, "192.0.2.1", ActiveDB));
    property.mySnmpState = AGENT_DOWN;
    property.sysContact = "a&b";
    property.sysLocation = "hall";
    return property;
  }
  static ZNNode node(const NodeProperty& property = NodeRenderingTest::property()) {
    return ZNNode(EntityParts().entity(), property);
  }
  /// The text of the properties, with their ends of lines in front.
  static std::string properties() {
    return "\nSysOID:1.3.6.1\nL2DomainID:12\nMgmtAddress:" + property().V4MgmtAddress->toString() +
           "\nNodeRD:7\nSysContact:a&b\nSysLocation:hall\nSnmpState:3"
           "\nCapability: isLanSwitch isIPv4Router ";
  }
};

constexpr const char* kBanner = "\n+++++++++++++++++ ZNNode ++++++++++++++++";
constexpr const char* kEnd = "\n----------------- ZNNode ----------------\n";

TEST_F(NodeRenderingTest, TheTextOfANodeHasTheEntityAndItsProperties) {
  EXPECT_EQ(node().toString(false),
            kBanner + EntityParts().entity().toString() + properties() + kEnd);
}

TEST_F(NodeRenderingTest, EachListOfANodeIsASectionOfItsOwn) {
  ZNNode node = NodeRenderingTest::node();
  const ZNVlanInfo vlan("v", "entity", "core-1", {ZNVlanIFInfo("i", "1", "2")});
  node.setVlanInfoList({vlan, vlan});
  node.setConnDataList({new ZNConnData("i1", "i2", "n1", "n2", true), ZNRefPtr<ZNConnData>(),
                        new ZNConnData("i3", ObjID(), "n1", "n3", false)});
  const ZNIfcInfo container("c", {ZNIfcIFInfo(ObjID("c"), ObjID("i"), 1, 2, 3)});
  node.setIfcInfoList({container});
  const std::string head =
      kBanner + EntityParts().entity().toString() + properties() +
      "\n ============ Vlan Information ====================" + vlan.toString() + vlan.toString() +
      "\n ============ Layer 2 Information ===================="
      "\n ([SrcNodeObjID, SrcInterfaceObjID],[DestNodeObjID, "
      "DestInterfaceObjID] )\n([n1,i1],[n2,i2])\n([n1,i3],[n3,NULL])";
  const std::string tail =
      "\n ============ IfC Information ====================" + container.toString() + kEnd;
  EXPECT_EQ(node.toString(false), head + tail);
  EXPECT_EQ(node.toString(true),
            head + "\n ============ Interface Information ====================" + tail);
}

TEST_F(NodeRenderingTest, TheTextHasTheInterfacesAndTheXmlHasNot) {
  const ZNRefPtr<ZNInterface> first = interfaceOf("i1", "entity");
  const ZNRefPtr<ZNInterface> second = interfaceOf("i2", "entity");
  gateway().addInterfaceOfNode("entity", first);
  gateway().addInterfaceOfNode("entity", second);
  EXPECT_EQ(node().toString(), kBanner + EntityParts().entity().toString() + properties() +
                                   "\n ============ Interface Information ====================" +
                                   first->toString() + second->toString() + kEnd);
  EXPECT_THAT(node().toXML(), Not(HasSubstr("<ZNInterface>")));
  EXPECT_THAT(node().toXML(true), EndsWith(first->toXML() + second->toXML() + "</ZNNode>\n"));
  EXPECT_EQ(node().toXML(), node().toXML(false));
}

TEST_F(NodeRenderingTest, InterfacesThatCanNotBeReadLeaveTheirBannerAlone) {
  gateway().failWith("getInterfacesByNodeObjIDList", ZN_API_SQL_EXEC_ERROR);
  gateway().failWith("getInterfacesByObjIDList", ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(
      node().toString(),
      EndsWith(std::string("\n ============ Interface Information ====================") + kEnd));
}

TEST_F(NodeRenderingTest, TheXmlOfANodeHasTheEntityAndItsProperties) {
  ZNNode node = NodeRenderingTest::node();
  const std::string head =
      "<ZNNode>\n" + EntityParts().entity().toXML() + attribute("SysOID", "str", "1.3.6.1") +
      attribute("L2DomainID", "int", "12") +
      attribute("MgmtCommunicationAddress", "str", "192.0.2.1") +
      attribute("MgmtActualAddress", "str", "10.0.0.1") +
      attribute("MgmtAddressOADId", "int", "7") + attribute("SysContact", "str", "a&amp;b") +
      attribute("SysLocation", "str", "hall") + attribute("SnmpState", "int", "3") +
      "<Capabilities>\n<Capability name=\"isLanSwitch\" />\n<Capability name=\"isIPv4Router\" "
      "/>\n</Capabilities>\n";
  EXPECT_EQ(node.toXML(), head + "</ZNNode>\n");
  const ZNVlanInfo vlan("v", "entity", "core-1", {});
  node.setVlanInfoList({vlan});
  node.setConnDataList({new ZNConnData("i1", "i2", "n1", "n2", true)});
  EXPECT_EQ(node.toXML(), head + "<VlanInfos>\n" + vlan.toXML() +
                              "</VlanInfos>\n<L2Connections>\n<L2Connection srcNodeID=\"n1\" "
                              "srcIFID=\"i1\" destNodeID=\"n2\" destIFID=\"i2\"/>\n"
                              "</L2Connections>\n</ZNNode>\n");
}

TEST_F(NodeRenderingTest, ANodeWithoutAnythingHasItsForms) {
  EXPECT_THAT(ZNNode().toString(false),
              HasSubstr("\nSysOID:\nL2DomainID:-1\nMgmtAddress:" + InetAddressIPv4().toString() +
                        "\nNodeRD:0\nSysContact:\nSysLocation:\nSnmpState:0\nCapability: " + kEnd));
  EXPECT_THAT(ZNNode().toXML(), Not(HasSubstr("Capabilities")));
  EXPECT_EQ(ZNNode().toShortString(),
            "                                       Normal                                    -   "
            "             0         0    \n");
}

TEST_F(NodeRenderingTest, TheAddressThatIsReadForTheTextIsTheOneToldOfTheNode) {
  NodeProperty held = property();
  held.V4MgmtAddress =
      ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4("10.0.0.1", "10.0.0.1", 7, ActiveDB));
  gateway().answerAddressByIP(
      "10.0.0.1", new InetAddressIPv4("10.0.0.1", false, ObjID(5), ObjID("i"), ObjID(), 9,
                                      "192.0.2.9", ActiveDB));
  EXPECT_THAT(node(held).toString(false), HasSubstr("\nPublic Address:192.0.2.9"));
  EXPECT_THAT(node(held).toString(false), HasSubstr("\nNodeRD:9\n"));
  EXPECT_EQ(gateway().callCount("getAddressByIP"), 2);
}

TEST_F(NodeRenderingTest, TheTextFormTellsTheLogItsBeginAndItsEnd) {
  const ZNNode node = NodeRenderingTest::node();
  expectLogged(MC_TRACE_L2,
               "Entering ZNNode::toString() \nEntering ZNEntity::toString \n"
               "Exiting ZNEntity::toString \nExiting ZNNode::toString() \n",
               [&node] { node.toString(false); });
}

// ---- rows ----

TEST_F(NodeRenderingTest, ARowOfANodeHasItsTwoAddresses) {
  EXPECT_EQ(node().toShortString(),
            "  core-1                               Major     192.0.2.1                       "
            "10.0.0.1         7         4    \n");
}

TEST_F(NodeRenderingTest, APrivateAddressThatIsThePublicOneIsADash) {
  NodeProperty same = property();
  same.V4MgmtAddress =
      ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4("10.0.0.1", "10.0.0.1", 7, ActiveDB));
  EXPECT_EQ(node(same).toShortString(),
            "  core-1                               Major     10.0.0.1                        "
            "-                7         4    \n");
}

TEST_F(NodeRenderingTest, ARouteDistinguisherIsTakenWithASign) {
  NodeProperty high = property();
  high.V4MgmtAddress =
      ZNRefPtr<InetAddressIPv4>(new InetAddressIPv4("10.0.0.1", "10.0.0.1", 3000000000U, ActiveDB));
  EXPECT_THAT(node(high).toShortString(), EndsWith("-                -1294967296  4    \n"));
  EXPECT_THAT(node(high).toString(false), HasSubstr("\nNodeRD:-1294967296\n"));
  EXPECT_THAT(node(high).toXML(),
              HasSubstr("<Attr name=\"MgmtAddressOADId\" type=\"int\" value=\"-1294967296\" />"));
}

TEST_F(NodeRenderingTest, ARowTakesTheRoomThatItsTextsNeed) {
  EntityParts parts;
  parts.name = std::string(40, 'n');
  EXPECT_THAT(ZNNode(parts.entity(), property()).toShortString(),
              StartsWith("  " + parts.name + "  Major     192.0.2.1"));
}

TEST_F(NodeRenderingTest, TheHeaderStandsOverTheRows) {
  testing::internal::CaptureStdout();
  ZNUtilMesg::printTopoQueryNodeDisplayHeader();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "  Name                                 Status    CommAddr                        "
            "PrivateAddr      OADId     IPVer\n");
}

// ---- messages ----

TEST_F(NodeRenderingTest, TheMessagesOfTheToolGoToTheirStreams) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  ZNUtilMesg::printTopoQueryNotFoundMessage();
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "more");
  ZNUtilMesg::logTopoQueryErrorMessage(status);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "No topology objects found !! \n\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error in Topology data retrieval \nErrorMessage: No layer 2 path is found\n"
            "AuxMessage: more\n");
}

TEST_F(NodeRenderingTest, TheHelpIsTheUsageOfTheTool) {
  testing::internal::CaptureStdout();
  ZNUtilMesg::printTopoQueryHelp();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Usage: tvrz_topodump.tvpl [-node|-nodeif|-info|-lfilt]"
            " [ IP Address | NodeName ] [-filt <FileterName>] \n"
            "\t-node\t[<OADId> | -filt  <FilterName> ]\t\t\t\n"
            "\t-nodeif\t[<OADId> | -filt  <FilterName> ]\t\t\t\n"
            "\t-node\t <IP Address| NodeName> [<OADId>]\t\t\t\n"
            "\t-nodeif\t <IP Address| NodeName> [<OADId>]\t\t\t\n"
            "\t-if\t-filt  <FilterName> \t\t\t\n"
            "\t-info\n"
            "\t-lfilt\n");
}

// ---- interfaces ----

class InterfaceRenderingTest : public ModelTest {
 protected:
  static IFProperty property() {
    IFProperty property;
    property.portNumber[0] = '9';
    property.vendorPortNumber[0] = '3';
    property.vendorCardNumber[0] = '1';
    property.vpi = 4;
    property.vci = 5;
    property.ifOperStatus = lowerLayerDown;
    property.ifAdminStatus = Testing;
    property.ifType = 6;
    property.ifName = "Gi1/3";
    property.ifIndex = 7;
    property.physicalAddress = "00:11";
    property.ifAlias = "up<link";
    property.L2DomainID = 8;
    property.ifSpeed = 100;
    return property;
  }
  static ZNEntity entity(const std::string& name = "if name") {
    EntityParts parts;
    parts.type = E_Interface;
    parts.name = name;
    return parts.entity();
  }
  static ZNInterface interface(unsigned long capabilities = 0) {
    IFProperty property = InterfaceRenderingTest::property();
    property.capaSet = ZNInterfaceCapabilitySet(capabilities);
    return ZNInterface(entity(), property);
  }
  static std::string head() {
    return "\n+++++++++++++++++ ZNInterface ++++++++++++++" + entity().toString() +
           "\n==========Interface Property===============\nVPI:4\nVCI:5\nBoardNo:1\nPortNum:3"
           "\nAuxPortNum:9\nIfIndex:7\nIfName:Gi1/3\nIfAlias:up<link\nIfType:6"
           "\nPhysicalAddress:00:11\nL2DomainID:8\nIfOperStatus:7\nIfAdminStatus:3\nIfSpeed:100"
           "\nIF Capability : ";
  }
  /// The interface with addresses that the store knows.
  static ZNInterface with(const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
    ZNInterface made = interface();
    made.setAddresses(addresses);
    for (const ZNRefPtr<ZNAddress>& address : addresses) gateway().addAddress(address);
    return made;
  }
};

constexpr const char* kInterfaceEnd = "\n----------------- ZNInterface --------------";
constexpr const char* kInterfaceRow =
    "    up<link                            Major     -                               -            "
    " "
    "   9         4    \n";

TEST_F(InterfaceRenderingTest, TheTextOfAnInterfaceHasTheEntityAndItsProperties) {
  EXPECT_EQ(interface().toString(), head() + kInterfaceEnd);
  EXPECT_EQ(interface(InterfaceCapability::AccessPort | InterfaceCapability::MPLS).toString(),
            head() + "isAccessPort isMPLS " + kInterfaceEnd);
}

TEST_F(InterfaceRenderingTest, AnInterfaceOfHsrpGroupsTellsThemWithoutAVariable) {
  gateway().answerHSRPObjIDs("entity", {"g1", "g2"});
  EXPECT_EQ(interface(InterfaceCapability::HSRP).toString(),
            head() + "isHSRP isHSRP \nHSRP Object ObjID = [g1,g2]" + kInterfaceEnd);
}

TEST_F(InterfaceRenderingTest, GroupsThatCanNotBeReadLeaveTheBracket) {
  gateway().failWith("getHSRPObjIDsByIFAddressObjID", ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(interface(InterfaceCapability::HSRP).toString(),
            head() + "isHSRP isHSRP \nHSRP Object ObjID = ]" + kInterfaceEnd);
}

TEST_F(InterfaceRenderingTest, TheXmlOfAnInterfaceHasTheEntityAndItsProperties) {
  const std::string head =
      "<ZNInterface>\n" + entity().toXML() + attribute("VPI", "int", "4") +
      attribute("VCI", "int", "5") + attribute("BoardNo", "str", "1") +
      attribute("PortNo", "str", "3") + attribute("AuxPortNo", "str", "9") +
      attribute("IfIndex", "int", "7") + attribute("IfName", "str", "Gi1/3") +
      attribute("IfAlias", "str", "up&lt;link") + attribute("IfType", "int", "6") +
      attribute("PhyAddr", "str", "00:11") + attribute("L2DOMId", "int", "8") +
      attribute("IfOperStatus", "int", "7") + attribute("IfAdminStatus", "int", "3") +
      attribute("IfSpeed", "int", "100");
  EXPECT_EQ(interface().toXML(), head + "</ZNInterface>\n");
  EXPECT_EQ(interface(InterfaceCapability::MPLS).toXML(),
            head +
                "<Capabilities>\n<Capability name=\"isMPLS\" />\n</Capabilities>\n"
                "</ZNInterface>\n");
}

TEST_F(InterfaceRenderingTest, AnInterfaceWithTwoAddressesHasThreeRows) {
  const ZNRefPtr<ZNAddress> translated = new InetAddressIPv4(
      "10.0.0.2", false, ObjID("a2"), ObjID("entity"), ObjID(), 7, "192.0.2.2", ActiveDB);
  EXPECT_EQ(with({ipv4("a1", "10.0.0.1"), translated}).toShortString(),
            std::string(kInterfaceRow) +
                "        -                              Rspd      10.0.0.1                        "
                "-                0       \n"
                "        -                              Rspd      192.0.2.2                       "
                "10.0.0.2         7       \n");
  EXPECT_EQ(gateway().callCount("getAddrsByObjIDs"), 1);
}

TEST_F(InterfaceRenderingTest, AnInterfaceWithoutAddressesHasOneRow) {
  EXPECT_EQ(interface().toShortString(), kInterfaceRow);
}

TEST_F(InterfaceRenderingTest, AnIPv6AddressShowsTheStatusOfItsMonitoring) {
  const InetAddressIPv6 plain("fe80::1", InetAddressIPv6::LinkLocal, 64, false, ObjID("a1"),
                              ObjID("entity"), ObjID(), 3, ActiveDB);
  const ZNRefPtr<ZNAddress> monitored = new MonitoredInetAddressIPv6(
      plain, MonitoredInetAddressIPv6::Stale, MonitoredInetAddressIPv6::Deprecated,
      MonitoredInetAddressIPv6::Stateful, PingStatus(ObjectStatus::Critical, 11, 12), ObjID(5));
  EXPECT_EQ(with({monitored}).toShortString(),
            std::string(kInterfaceRow) +
                "        -                              Critical  fe80::1                         "
                "-                -       \n");
  EXPECT_THAT(with({ZNRefPtr<ZNAddress>(new InetAddressIPv6(plain))}).toShortString(),
              HasSubstr("\n        -                              Rspd      fe80::1  "));
}

TEST_F(InterfaceRenderingTest, ADnsNameHasNoRouteAndNoPrivateForm) {
  EXPECT_EQ(with({ZNRefPtr<ZNAddress>(new InetAddressDNS("core-1.example", false, ObjID("a1"),
                                                         ObjID("entity"), 3, ActiveDB))})
                .toShortString(),
            std::string(kInterfaceRow) +
                "        -                              Rspd      core-1.example                  "
                "-                -       \n");
}

TEST_F(InterfaceRenderingTest, PingStatesAreShortInRows) {
  const std::pair<PingState, const char*> states[] = {{Ping_Responding, "Rspd     "},
                                                      {Ping_NotResponding, "NotRspd  "},
                                                      {Ping_Unreachable, "Unreach  "},
                                                      {Ping_AgentDown, "AgentDown"},
                                                      {Ping_Disabled, "Disabled "}};
  for (const auto& [state, text] : states) {
    gateway().reset();
    const ZNRefPtr<ZNAddress> address = ipv4("a1", "10.0.0.1");
    address->setPingState(state, false);
    EXPECT_THAT(with({address}).toShortString(),
                HasSubstr("\n        -                              " + std::string(text) + " "));
  }
}

}  // namespace
}  // namespace zntopo::test
