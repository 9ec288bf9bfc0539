#include "tests/model/ModelFixture.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/PhysicalAddress.h"
#include "zntopo/model/PingStatus.h"

namespace zntopo::test {

namespace {

const ObjID kAddress("a");
const ObjID kOwner("e");
const ObjID kSubnet("s");

void expectV4(const InetAddressIPv4& address, int prefix, const std::string& publicAddress) {
  EXPECT_EQ(ZNAddress::IPv4, address.getAddressType());
  EXPECT_EQ(prefix, address.getPrefixLength());
  EXPECT_EQ(publicAddress, address.getPublicAddress());
  EXPECT_EQ(publicAddress, address.getCommunicationAddress());
}

}  // namespace

using IPv4AddressTest = ModelTest;

TEST_F(IPv4AddressTest, TheConstructorWithoutArgumentsIsEmpty) {
  const InetAddressIPv4 address;
  expectV4(address, 0, "");
  EXPECT_EQ("", address.getAddressAsString());
  EXPECT_TRUE(address.getAddressID().isNull());
}

TEST_F(IPv4AddressTest, WithoutAPublicAddressTheAddressServesAsOne) {
  expectV4(InetAddressIPv4("10.0.0.1", ActiveDB), 0, "10.0.0.1");
  expectV4(InetAddressIPv4("10.0.0.1", true, ActiveDB), 0, "10.0.0.1");
  expectV4(InetAddressIPv4("10.0.0.1", true, kAddress, kOwner, ActiveDB), 0, "10.0.0.1");
  expectV4(InetAddressIPv4("10.0.0.1", true, kAddress, kOwner, kSubnet, ActiveDB), 0, "10.0.0.1");
  expectV4(InetAddressIPv4("10.0.0.1", true, 7U, "255.255.0.0", ActiveDB), 16, "10.0.0.1");
}

TEST_F(IPv4AddressTest, APublicAddressIsKeptBesideThePrivateOne) {
  expectV4(InetAddressIPv4("10.0.0.1", false, kAddress, kOwner, kSubnet, 7U, "192.0.2.1", ActiveDB),
           0, "192.0.2.1");
  expectV4(InetAddressIPv4("10.0.0.1", false, kAddress, kOwner, kSubnet, 7U, "255.255.255.0",
                           "192.0.2.1", ActiveDB),
           24, "192.0.2.1");
  expectV4(InetAddressIPv4("10.0.0.1", "192.0.2.1", 7U, ActiveDB), 0, "192.0.2.1");
  expectV4(InetAddressIPv4("10.0.0.1", "192.0.2.1", 7U, "255.0.0.0", ActiveDB), 8, "192.0.2.1");
}

TEST_F(IPv4AddressTest, TheWidestConstructorTakesAll) {
  const InetAddressIPv4 address("10.0.0.1", true, kAddress, kOwner, kSubnet, 7U, "255.255.255.0",
                                Ping_AgentDown, 99, "192.0.2.1", WorkingDB);
  expectV4(address, 24, "192.0.2.1");
  EXPECT_EQ("10.0.0.1", address.getAddressAsString());
  EXPECT_EQ(kAddress, address.getAddressID());
  EXPECT_EQ(kOwner, address.getAssEntityID());
  EXPECT_EQ(kSubnet, address.getSubnetObjID());
  EXPECT_EQ(7U, address.getRouteDistinguisher());
  EXPECT_TRUE(address.isSubnetAddress());
  EXPECT_EQ(Ping_AgentDown, address.getPingState());
  EXPECT_EQ(99, address.getPingStateUpdTime());
  EXPECT_EQ(WorkingDB, address.getDBType());
}

TEST_F(IPv4AddressTest, WhatIsGivenWithoutIdentifiersHasNone) {
  const InetAddressIPv4 address("10.0.0.1", "192.0.2.1", 7U, "255.0.0.0", ActiveDB);
  EXPECT_TRUE(address.getAddressID().isNull());
  EXPECT_TRUE(address.getAssEntityID().isNull());
  EXPECT_FALSE(address.isSubnetAddress());
  EXPECT_EQ(Ping_Responding, address.getPingState());
  EXPECT_EQ(0, address.getPingStateUpdTime());
}

TEST_F(IPv4AddressTest, ItsBitStringIsItsDottedText) {
  EXPECT_EQ("10.0.0.1", InetAddressIPv4("10.0.0.1", ActiveDB).getAddressAsBitString());
}

TEST_F(IPv4AddressTest, ItIsAnInternetAddressThatNobodyMonitors) {
  const InetAddressIPv4 address("10.0.0.1", ActiveDB);
  EXPECT_TRUE(address.isInetAddress());
  EXPECT_FALSE(address.isMonitored());
  EXPECT_EQ(1, address.getAddressTypeAsShort());
}

TEST_F(IPv4AddressTest, ACopyHasAllButTheMutex) {
  const InetAddressIPv4 address("10.0.0.1", true, kAddress, kOwner, kSubnet, 7U, "255.255.255.0",
                                Ping_Disabled, 99, "192.0.2.1", WorkingDB);
  const InetAddressIPv4 copy(address);
  expectV4(copy, 24, "192.0.2.1");
  EXPECT_EQ(kSubnet, copy.getSubnetObjID());
  EXPECT_EQ(Ping_Disabled, copy.getPingState());
  EXPECT_EQ(WorkingDB, copy.getDBType());
}

using IPv6AddressTest = ModelTest;

TEST_F(IPv6AddressTest, TheConstructorWithoutArgumentsIsGlobalInTheActiveTables) {
  const InetAddressIPv6 address;
  EXPECT_EQ(InetAddressIPv6::Global, address.getScopeType());
  EXPECT_EQ(0, address.getPrefixLength());
  EXPECT_EQ(ActiveDB, address.getDBType());
  EXPECT_EQ(ZNAddress::IPv6, address.getAddressType());
}

TEST_F(IPv6AddressTest, TheWidestConstructorTakesAll) {
  const InetAddressIPv6 address("2001:db8::1", InetAddressIPv6::SiteLocal, 64, true, kAddress,
                                kOwner, kSubnet, 9UL, WorkingDB);
  EXPECT_EQ("2001:db8::1", address.getAddressAsString());
  EXPECT_EQ(InetAddressIPv6::SiteLocal, address.getScopeType());
  EXPECT_EQ(64, address.getPrefixLength());
  EXPECT_TRUE(address.isSubnetAddress());
  EXPECT_EQ(kAddress, address.getAddressID());
  EXPECT_EQ(kOwner, address.getAssEntityID());
  EXPECT_EQ(kSubnet, address.getSubnetObjID());
  EXPECT_EQ(9U, address.getRouteDistinguisher());
}

TEST_F(IPv6AddressTest, ABitStringIsCutToALengthAboveZeroOnly) {
  const InetAddressIPv6 address("FE80::1", InetAddressIPv6::LinkLocal, 64, ActiveDB);
  const std::string all = address.getAddressAsBitString(0);
  EXPECT_EQ(128U, all.size());
  EXPECT_EQ("1111111010000000", all.substr(0, 16));
  EXPECT_EQ(all.substr(0, 64), address.getAddressAsBitString(64));
  EXPECT_EQ(all, address.getAddressAsBitString(-5));
  EXPECT_EQ(all, address.getAddressAsBitString(500));
}

TEST_F(IPv6AddressTest, ScopesHaveTextsAndNumbers) {
  const std::pair<InetAddressIPv6::ScopeType, const char*> scopes[] = {
      {InetAddressIPv6::Unknown, "Unknown"},
      {InetAddressIPv6::LinkLocal, "LinkLocal"},
      {InetAddressIPv6::SiteLocal, "SiteLocal"},
      {InetAddressIPv6::Global, "Global"}};
  for (const auto& [scope, text] : scopes) {
    EXPECT_EQ(text, InetAddressIPv6::ScopeTypeToString(scope));
    EXPECT_EQ(scope, InetAddressIPv6::ShortToScopeType(InetAddressIPv6::ScopeTypeToShort(scope)));
  }
  EXPECT_EQ("", InetAddressIPv6::ScopeTypeToString(InetAddressIPv6::ScopeType(4)));
  EXPECT_EQ(InetAddressIPv6::Unknown, InetAddressIPv6::ShortToScopeType(4));
  EXPECT_EQ(InetAddressIPv6::Unknown, InetAddressIPv6::ShortToScopeType(-1));
}

TEST(OtherAddressTest, ADnsNameIsItsText) {
  const InetAddressDNS address("host.example.com", false, kAddress, kOwner, 5UL, WorkingDB);
  EXPECT_EQ(ZNAddress::DNS, address.getAddressType());
  EXPECT_EQ("host.example.com", address.getAddressAsString());
  EXPECT_EQ(kOwner, address.getAssEntityID());
  EXPECT_EQ(5U, address.getRouteDistinguisher());
  EXPECT_TRUE(InetAddressDNS("subnet.example.com", true, ActiveDB).isSubnetAddress());
  EXPECT_EQ("", InetAddressDNS().getAddressAsString());
}

TEST(OtherAddressTest, APhysicalAddressIsOfTheActiveTablesAndNoInternetAddress) {
  const PhysicalAddress address("00:11:22:33:44:55", kAddress, kOwner);
  EXPECT_EQ(ZNAddress::Physical, address.getAddressType());
  EXPECT_EQ("00:11:22:33:44:55", address.getAddressAsString());
  EXPECT_EQ(ActiveDB, address.getDBType());
  EXPECT_FALSE(address.isInetAddress());
  EXPECT_FALSE(address.isInHSRP());
  EXPECT_TRUE(address.getHSRPObjIDs().empty());
}

TEST(PingStatusTest, TimesStartAtZero) {
  EXPECT_EQ(ObjectStatus::Normal, PingStatus().getStatus().getStatus());
  const PingStatus critical(static_cast<short>(6));
  EXPECT_EQ(ObjectStatus::Critical, critical.getStatus().getStatus());
  EXPECT_EQ(0, critical.getLastPingTime());
  EXPECT_EQ(0, critical.getLastStatusUpdateTime());
  const PingStatus full(ObjectStatus(ObjectStatus::Major), 11, 12);
  EXPECT_EQ(11, full.getLastPingTime());
  EXPECT_EQ(12, full.getLastStatusUpdateTime());
}

using MonitoredTest = ModelTest;

TEST_F(MonitoredTest, WhatIsNotGivenIsUnknown) {
  const InetAddressIPv6 plain("2001:db8::1", InetAddressIPv6::Global, 64, ActiveDB);
  const MonitoredInetAddressIPv6 address(plain);
  EXPECT_TRUE(address.isMonitored());
  EXPECT_EQ("2001:db8::1", address.getAddressAsString());
  EXPECT_EQ(MonitoredInetAddressIPv6::Unknown, address.getIPv6NetToMediaState());
  EXPECT_EQ(MonitoredInetAddressIPv6::UnknownIPv6AddrStatus, address.getIPv6AddrStatus());
  EXPECT_EQ(MonitoredInetAddressIPv6::UnknownIPv6AddrType, address.getIPv6AddrType());
  EXPECT_TRUE(address.getQRMObjID().isNull());
}

TEST_F(MonitoredTest, TheFullConstructorTakesAll) {
  const MonitoredInetAddressIPv6 address(
      InetAddressIPv6("2001:db8::1", InetAddressIPv6::Global, 64, ActiveDB),
      MonitoredInetAddressIPv6::Probe, MonitoredInetAddressIPv6::Deprecated,
      MonitoredInetAddressIPv6::Stateful, PingStatus(ObjectStatus(ObjectStatus::Major), 1, 2),
      ObjID(42));
  EXPECT_EQ(MonitoredInetAddressIPv6::Probe, address.getIPv6NetToMediaState());
  EXPECT_EQ(MonitoredInetAddressIPv6::Deprecated, address.getIPv6AddrStatus());
  EXPECT_EQ(MonitoredInetAddressIPv6::Stateful, address.getIPv6AddrType());
  EXPECT_EQ(ObjectStatus::Major, address.getPingStatus().getStatus().getStatus());
  EXPECT_EQ(ObjID(42), address.getQRMObjID());
}

TEST_F(MonitoredTest, SettersMarkTheirFieldsAndWriteNothing) {
  MonitoredInetAddressIPv6 address;
  EXPECT_FALSE(address.isStatusModified());
  EXPECT_FALSE(address.isQRMObjIDModified());
  address.setPingStatus(PingStatus(ObjectStatus(ObjectStatus::Critical), 1, 2));
  EXPECT_TRUE(address.isStatusModified());
  EXPECT_FALSE(address.isQRMObjIDModified());
  address.setQRMObjID(ObjID(7));
  EXPECT_TRUE(address.isQRMObjIDModified());
  EXPECT_EQ(ObjID(7), address.getQRMObjID());
  address.initFieldVector();
  EXPECT_FALSE(address.isStatusModified());
  EXPECT_FALSE(address.isQRMObjIDModified());
  EXPECT_TRUE(gateway().calls().empty());
}

TEST_F(MonitoredTest, NumbersOutsideTheListsAreTheUnknownValues) {
  using M = MonitoredInetAddressIPv6;
  for (short value = 1; value <= 4; ++value) {
    EXPECT_EQ(value, M::ShortToIPv6AddrStatus(value));
  }
  for (short value = 1; value <= 3; ++value) EXPECT_EQ(value, M::ShortToIPv6AddrType(value));
  for (short value = 1; value <= 6; ++value) {
    EXPECT_EQ(value, M::ShortToIPv6NetToMediaState(value));
  }
  for (const short value : {short{0}, short{7}, short{-1}, short{300}}) {
    EXPECT_EQ(M::UnknownIPv6AddrStatus, M::ShortToIPv6AddrStatus(value));
    EXPECT_EQ(M::UnknownIPv6AddrType, M::ShortToIPv6AddrType(value));
    EXPECT_EQ(M::Unknown, M::ShortToIPv6NetToMediaState(value));
  }
}

TEST_F(MonitoredTest, EnumeratorsHaveTheirNamesAsTexts) {
  using M = MonitoredInetAddressIPv6;
  EXPECT_EQ("Preferred", M::IPv6AddrStatusToString(M::Preferred));
  EXPECT_EQ("Deprecated", M::IPv6AddrStatusToString(M::Deprecated));
  EXPECT_EQ("Inaccessible", M::IPv6AddrStatusToString(M::Inaccessible));
  EXPECT_EQ("UnknownIPv6AddrStatus", M::IPv6AddrStatusToString(M::UnknownIPv6AddrStatus));
  EXPECT_EQ("", M::IPv6AddrStatusToString(M::IPv6AddrStatus(5)));
  EXPECT_EQ("Stateless", M::IPv6AddrTypeToString(M::Stateless));
  EXPECT_EQ("Stateful", M::IPv6AddrTypeToString(M::Stateful));
  EXPECT_EQ("UnknownIPv6AddrType", M::IPv6AddrTypeToString(M::UnknownIPv6AddrType));
  EXPECT_EQ("", M::IPv6AddrTypeToString(M::IPv6AddrType(0)));
  EXPECT_EQ("Reachable", M::IPv6NetToMediaStateToString(M::Reachable));
  EXPECT_EQ("Stale", M::IPv6NetToMediaStateToString(M::Stale));
  EXPECT_EQ("Delay", M::IPv6NetToMediaStateToString(M::Delay));
  EXPECT_EQ("Probe", M::IPv6NetToMediaStateToString(M::Probe));
  EXPECT_EQ("Invalid", M::IPv6NetToMediaStateToString(M::Invalid));
  EXPECT_EQ("Unknown", M::IPv6NetToMediaStateToString(M::Unknown));
  EXPECT_EQ("", M::IPv6NetToMediaStateToString(M::IPv6NetToMediaState(7)));
}

}  // namespace zntopo::test
