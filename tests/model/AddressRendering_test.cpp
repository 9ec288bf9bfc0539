#include <cstdlib>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/PhysicalAddress.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// An address of any type.
class AnyAddress : public ZNAddress {
 public:
  AnyAddress(int type, int ping)
      : ZNAddress(static_cast<AddressType>(type), "a", "o", static_cast<PingState>(ping), 0,
                  ActiveDB) {}
};

class AddressRenderingTest : public ModelTest {
 protected:
  void SetUp() override { unsetenv("TOPODUMP_DETAIL"); }
  void TearDown() override { unsetenv("TOPODUMP_DETAIL"); }

  /// An address on an interface that serves in HSRP groups.
  static ZNRefPtr<ZNAddress> inGroups(const std::list<ObjID>& groups) {
    IFProperty property;
    property.capaSet = ZNInterfaceCapabilitySet(InterfaceCapability::HSRP);
    gateway().addInterface(interfaceOf("owner", "node", property));
    gateway().answerHSRPObjIDs("a", groups);
    return ipv4("a", "10.0.0.1");
  }
};

TEST_F(AddressRenderingTest, TypesHaveTheirNamesAndNumbersBeyondThemNone) {
  const std::pair<int, const char*> types[] = {
      {ZNAddress::Unknown, ""},      {ZNAddress::IPv4, "IPv4"},
      {ZNAddress::IPv6, "IPv6"},     {ZNAddress::Physical, "Physical"},
      {ZNAddress::IDName, "IDName"}, {ZNAddress::FDN, "FDN"},
      {ZNAddress::DNS, "DNS"},       {99, ""}};
  for (const auto& [type, name] : types) {
    EXPECT_EQ(AnyAddress(type, 0).toString(),
              "\nAddressID:a\nAssociatedEntityID:o\nAddressType:" + std::string(name) +
                  "\nPing State:Ping Responding");
  }
}

std::string addressXml(int type, int pingState) {
  return attribute("AddrID", "objID", "a") + attribute("AscEntObjID", "objID", "o") +
         attribute("AddrType", "int", std::to_string(type)) +
         attribute("PingState", "int", std::to_string(pingState));
}

TEST_F(AddressRenderingTest, PingStatesHaveTheirNames) {
  const std::pair<int, const char*> states[] = {{0, "Ping Responding"},  {1, "Ping Not Responding"},
                                                {2, "Ping Unreachable"}, {3, "Ping Agent Down"},
                                                {4, "Ping Disabled"},    {9, ""}};
  for (const auto& [state, name] : states) {
    EXPECT_EQ(
        AnyAddress(5, state).toString(),
        "\nAddressID:a\nAssociatedEntityID:o\nAddressType:FDN\nPing State:" + std::string(name));
    EXPECT_EQ(AnyAddress(5, state).toXML(), addressXml(5, state));
  }
}

TEST_F(AddressRenderingTest, AnIPv4AddressTellsBothAddressesInBothForms) {
  const InetAddressIPv4 address("10.0.0.1", true, ObjID("a"), ObjID("o"), ObjID("s"), 7,
                                "255.255.255.0", "192.0.2.1", ActiveDB);
  EXPECT_EQ(address.toString(),
            "\n+++++++++++++++InetAddressIPv4+++++++++++++++\nAddressID:a\nAssociatedEntityID:o"
            "\nAddressType:IPv4\nPing State:Ping Responding\nOADId:7\nSubnetObjID:s"
            "\nisSubnetAddress:true\nIPV4:10.0.0.1\nPublic Address:192.0.2.1\nPrefixLength:24"
            "\n---------------InetAddressIPv4---------------");
  EXPECT_EQ(address.toXML(),
            "<IPv4Address>\n" + attribute("AddrID", "objID", "a") +
                attribute("AscEntObjID", "objID", "o") + attribute("AddrType", "int", "1") +
                attribute("PingState", "int", "0") + attribute("SubnetObjID", "objID", "s") +
                attribute("OADId", "int", "7") + attribute("isSubnetAddr", "int", "1") +
                attribute("PrivateAddr", "str", "10.0.0.1") +
                attribute("PublicAddr", "str", "192.0.2.1") +
                attribute("PrefixLength", "int", "24") + "</IPv4Address>\n");
}

TEST_F(AddressRenderingTest, ARouteDistinguisherIsANumberWithASign) {
  const InetAddressIPv4 address("10.0.0.1", "10.0.0.1", 4294967295U, ActiveDB);
  EXPECT_THAT(address.toString(), HasSubstr("\nOADId:-1\n"));
  EXPECT_THAT(address.toXML(), HasSubstr("name=\"OADId\" type=\"int\" value=\"-1\""));
}

std::string inetXml(int type) {
  return addressXml(type, 0) + attribute("SubnetObjID", "objID", "NULL") +
         attribute("OADId", "int", "3") + attribute("isSubnetAddr", "int", "0");
}

TEST_F(AddressRenderingTest, AnIPv6AddressHasNoAddressInXml) {
  const InetAddressIPv6 address("fe80::1", InetAddressIPv6::LinkLocal, 64, false, ObjID("a"),
                                ObjID("o"), ObjID(), 3, ActiveDB);
  EXPECT_EQ(address.toString(),
            "\nAddressID:a\nAssociatedEntityID:o\nAddressType:IPv6\nPing State:Ping Responding"
            "\nOADId:3\nSubnetObjID:NULL\nisSubnetAddress:false\nScopeType:LinkLocal"
            "\nAddress:fe80::1\nPrefixLength:64\n");
  EXPECT_EQ(address.toXML(), inetXml(2));
}

TEST_F(AddressRenderingTest, ADnsNameIsNotInXml) {
  const InetAddressDNS address("core-1.example", false, ObjID("a"), ObjID("o"), 3, ActiveDB);
  EXPECT_EQ(address.toString(),
            "\n+++++++++++++++InetAddressDNS+++++++++++++++\nAddressID:a\nAssociatedEntityID:o"
            "\nAddressType:DNS\nPing State:Ping Responding\nOADId:3\nSubnetObjID:NULL"
            "\nisSubnetAddress:false\nDNSName:core-1.example"
            "\n---------------InetAddressDNS---------------");
  EXPECT_EQ(address.toXML(), inetXml(16));
}

TEST_F(AddressRenderingTest, APhysicalAddressIsNoInternetAddress) {
  const PhysicalAddress address("00:11:22:33:44:55", ObjID("a"), ObjID("o"));
  EXPECT_EQ(address.toString(),
            "\n++++++++++++++++PhysicalAddress++++++++++++\nAddressID:a\nAssociatedEntityID:o"
            "\nAddressType:Physical\nPing State:Ping Responding\nPhysicalAddress:00:11:22:33:44:55"
            "\n---------------PhysicalAddress-------------");
  EXPECT_THAT(address.toXML(), HasSubstr("name=\"AddrType\" type=\"int\" value=\"3\""));
  EXPECT_THAT(address.toXML(), Not(HasSubstr("SubnetObjID")));
}

TEST_F(AddressRenderingTest, AMonitoredAddressTellsWhatIsWatched) {
  const InetAddressIPv6 plain("fe80::1", InetAddressIPv6::Global, 64, false, ObjID("a"), ObjID("o"),
                              ObjID(), 3, ActiveDB);
  const MonitoredInetAddressIPv6 address(
      plain, MonitoredInetAddressIPv6::Stale, MonitoredInetAddressIPv6::Deprecated,
      MonitoredInetAddressIPv6::Stateful, PingStatus(ObjectStatus::Critical, 11, 12), ObjID(5));
  EXPECT_EQ(address.toString(),
            "\n+++++++++++++MonitoredInetAddressIPv6++++++++++++++" + plain.toString() +
                "QRMObjId:5\nIPv6AddrState:Deprecated\nIPv6NetToMediaState:Stale"
                "\nIPv6AddrType:Stateful\nStatus:Critical\nLastPingTime:11"
                "\nLastStatusUpdateTime:12"
                "\n-------------MonitoredInetAddressIPv6------------");
  EXPECT_EQ(address.toXML(), inetXml(2));
}

TEST_F(AddressRenderingTest, OnlyWithTheVariableAnAddressTellsItsHsrpGroups) {
  const ZNRefPtr<ZNAddress> address = inGroups({"g1", "g2"});
  EXPECT_THAT(address->toString(), Not(HasSubstr("HSRP")));
  EXPECT_EQ(gateway().calls().size(), 0U);
  setEnv("TOPODUMP_DETAIL", "");
  EXPECT_THAT(address->toString(),
              HasSubstr("\nisSubnetAddress:false\nHSRP Object ObjID = [g1,g2]\nIPV4:10.0.0.1"));
}

TEST_F(AddressRenderingTest, AnAddressOutsideOfGroupsHasNoHsrpLine) {
  setEnv("TOPODUMP_DETAIL", "1");
  gateway().addInterface(interfaceOf("owner"));
  EXPECT_THAT(ipv4("a", "10.0.0.1")->toString(), Not(HasSubstr("HSRP")));
}

TEST_F(AddressRenderingTest, WithoutGroupsTheBracketTakesThePlaceOfTheOpeningOne) {
  setEnv("TOPODUMP_DETAIL", "1");
  EXPECT_THAT(inGroups({})->toString(), HasSubstr("\nHSRP Object ObjID = ]\nIPV4:"));
}

}  // namespace
}  // namespace zntopo::test
