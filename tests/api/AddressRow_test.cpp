#include "zntopo/api/detail/AddressRow.h"

#include "tests/support/ApiFixture.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::test {
namespace {

using testing::IsEmpty;

class AddressRowTest : public ApiTest {
 protected:
  /// A row with what a case of a constructor needs.
  void addRow(const Values& values) {
    Values row = {{"AddressId", "ad"}};
    for (const auto& [name, value] : values) row.insert_or_assign(name, value);
    store->insert("address", row);
  }
  /// The one address of the store as the big select gives it; null if it gives none.
  ZNRefPtr<ZNAddress> read() {
    const auto found = impl.getAddressesByWhereClause("", "", status);
    EXPECT_TRUE(status.isOK());
    return found->empty() ? ZNRefPtr<ZNAddress>() : found->front();
  }
  ZNRefPtr<InetAddressIPv4> readIPv4() { return ZNRefPtrConversion::Address2IPv4(read()); }
  ZNRefPtr<InetAddressDNS> readDNS() { return ZNRefPtrConversion::Address2DNS(read()); }
  ZNRefPtr<MonitoredInetAddressIPv6> readIPv6() {
    return ZNRefPtrConversion::Address2MonitoredIPv6(read());
  }
};

TEST_P(AddressRowTest, EachColumnOfAnIPv4AddressReachesItsField) {
  addRow({{"AddressType", 1},
          {"ObjId", "if"},
          {"isSubnet", 0},
          {"SubnetObjId", "net"},
          {"V4Address", "192.168.1.1"},
          {"PubV4Address", "10.0.0.1"},
          {"PrefixLength", 24},
          {"RouteDistinguisher", 7},
          {"PingState", 2},
          {"LastPingStateUpdTimeUTC", 99}});
  const auto address = readIPv4();
  ASSERT_FALSE(address.isNull());
  EXPECT_EQ(address->getAddressType(), ZNAddress::IPv4);
  EXPECT_EQ(address->getAddressID(), ObjID("ad"));
  EXPECT_EQ(address->getAssEntityID(), ObjID("if"));
  EXPECT_EQ(address->getSubnetObjID(), ObjID("net"));
  EXPECT_FALSE(address->isSubnetAddress());
  EXPECT_EQ(address->getAddressAsString(), "192.168.1.1");
  EXPECT_EQ(address->getPublicAddress(), "10.0.0.1");
  EXPECT_EQ(address->getPrefixLength(), 24);
  EXPECT_EQ(address->getRouteDistinguisher(), 7u);
  EXPECT_EQ(address->getPingState(), Ping_Unreachable);
  EXPECT_EQ(address->getPingStateUpdTime(), 99);
  EXPECT_EQ(address->getDBType(), ActiveDB);
}

TEST_P(AddressRowTest, AnIPv4AddressNeedsItsTextAlone) {
  addRow({{"AddressType", 1}, {"V4Address", "192.168.1.1"}});
  const auto address = readIPv4();
  ASSERT_FALSE(address.isNull());
  EXPECT_TRUE(address->getAssEntityID().isNull());
  EXPECT_TRUE(address->getSubnetObjID().isNull());
  EXPECT_FALSE(address->isSubnetAddress());
  EXPECT_EQ(address->getPublicAddress(), "");
  EXPECT_EQ(address->getPrefixLength(), 0);
  EXPECT_EQ(address->getRouteDistinguisher(), 0u);
  EXPECT_EQ(address->getPingState(), Ping_Responding);
  EXPECT_EQ(address->getPingStateUpdTime(), 0);
}

TEST_P(AddressRowTest, AnIPv4RowWithoutItsTextIsDroppedWithAGoodStatus) {
  addRow({{"AddressType", 1}, {"PubV4Address", "10.0.0.1"}});
  EXPECT_TRUE(read().isNull());
}

TEST_P(AddressRowTest, AnIPv4PrefixBeyondThirtyTwoIsAnEmptyMask) {
  addRow({{"AddressType", 1}, {"V4Address", "192.168.1.1"}, {"PrefixLength", 33}});
  EXPECT_EQ(readIPv4()->getPrefixLength(), 0);
}

TEST_P(AddressRowTest, AFullIPv6RowKeepsAllOfIt) {
  addRow({{"AddressType", 2},
          {"ObjId", "if"},
          {"isSubnet", 1},
          {"SubnetObjId", "net"},
          {"V6Address", "fe80::1"},
          {"V6ScopeType", 1},
          {"PrefixLength", 64},
          {"RouteDistinguisher", 7},
          {"AddressQRMId", "4711"},
          {"PingStatus", 5},
          {"V6AddressType", 2},
          {"V6AddressNtmState", 1},
          {"V6AddressStatus", 2},
          {"LastPingTimeUTC", 11},
          {"LastPingStateUpdTimeUTC", 12}});
  const auto address = readIPv6();
  ASSERT_FALSE(address.isNull());
  EXPECT_TRUE(address->isMonitored());
  EXPECT_EQ(address->getAddressType(), ZNAddress::IPv6);
  EXPECT_EQ(address->getAddressID(), ObjID("ad"));
  EXPECT_EQ(address->getAssEntityID(), ObjID("if"));
  EXPECT_EQ(address->getSubnetObjID(), ObjID("net"));
  EXPECT_TRUE(address->isSubnetAddress());
  EXPECT_EQ(address->getAddressAsString(), "fe80::1");
  EXPECT_EQ(address->getScopeType(), InetAddressIPv6::LinkLocal);
  EXPECT_EQ(address->getPrefixLength(), 64);
  EXPECT_EQ(address->getRouteDistinguisher(), 7u);
  EXPECT_EQ(address->getQRMObjID(), ObjID(4711));
  EXPECT_EQ(address->getPingStatus().getStatus().getStatus(), ObjectStatus::Major);
  EXPECT_EQ(address->getPingStatus().getLastPingTime(), 11);
  EXPECT_EQ(address->getPingStatus().getLastStatusUpdateTime(), 12);
  EXPECT_EQ(address->getIPv6AddrType(), MonitoredInetAddressIPv6::Stateful);
  EXPECT_EQ(address->getIPv6NetToMediaState(), MonitoredInetAddressIPv6::Reachable);
  EXPECT_EQ(address->getIPv6AddrStatus(), MonitoredInetAddressIPv6::Deprecated);
}

TEST_P(AddressRowTest, AnIPv6RowWithoutMonitoringDataTakesTheUnknownValues) {
  addRow({{"AddressType", 2}, {"V6Address", "fe80::1"}, {"V6ScopeType", 1}, {"PrefixLength", 64}});
  const auto address = readIPv6();
  ASSERT_FALSE(address.isNull());
  EXPECT_EQ(address->getQRMObjID(), ObjID("0"));
  EXPECT_EQ(address->getPingStatus().getStatus().getStatus(), ObjectStatus::NoStatus);
  EXPECT_EQ(address->getPingStatus().getLastPingTime(), 0);
  EXPECT_EQ(address->getPingStatus().getLastStatusUpdateTime(), 0);
  EXPECT_EQ(address->getIPv6AddrType(), MonitoredInetAddressIPv6::UnknownIPv6AddrType);
  EXPECT_EQ(address->getIPv6NetToMediaState(), MonitoredInetAddressIPv6::Unknown);
  EXPECT_EQ(address->getIPv6AddrStatus(), MonitoredInetAddressIPv6::UnknownIPv6AddrStatus);
}

/// Which columns a row has decides on what is kept of them.
struct IPv6Case {
  const char* absent;
  bool keepsValue;
  bool keepsIDs;
  bool keepsSubnetFlag;
  unsigned rd;
};

TEST_P(AddressRowTest, TheAbsentColumnsOfAnIPv6RowDecideOnWhatIsKept) {
  const IPv6Case cases[] = {
      {"DNSName", true, true, true, 7},             // all that matters is there
      {"RouteDistinguisher", true, true, true, 0},  // case 2
      {"SubnetObjId", true, false, true, 0},        // case 3, and the next as well
      {"ObjId", true, false, true, 0},
      {"V6Address", false, false, false, 0},  // case 4, and the next two as well
      {"V6ScopeType", false, false, false, 0},
      {"PrefixLength", false, false, false, 0},
      {"isSubnet", true, false, false, 0},  // case 5
  };
  for (const IPv6Case& expected : cases) {
    store->execute("delete from address");
    ZNTopoAPI_Impl::cache()->clear(true);
    Values row = {{"AddressType", 2},     {"ObjId", "if"},          {"isSubnet", 1},
                  {"SubnetObjId", "net"}, {"V6Address", "fe80::1"}, {"V6ScopeType", 1},
                  {"PrefixLength", 64},   {"RouteDistinguisher", 7}};
    row.insert_or_assign(expected.absent, nullptr);
    addRow(row);
    const auto address = readIPv6();
    ASSERT_FALSE(address.isNull()) << expected.absent;
    EXPECT_EQ(address->getAddressAsString(), expected.keepsValue ? "fe80::1" : "")
        << expected.absent;
    EXPECT_EQ(address->getScopeType(),
              expected.keepsValue ? InetAddressIPv6::LinkLocal : InetAddressIPv6::Global)
        << expected.absent;
    EXPECT_EQ(address->getPrefixLength(), expected.keepsValue ? 64 : 0) << expected.absent;
    EXPECT_EQ(address->getAddressID().isNull(), !expected.keepsIDs) << expected.absent;
    EXPECT_EQ(address->getAssEntityID().isNull(), !expected.keepsIDs) << expected.absent;
    EXPECT_EQ(address->getSubnetObjID().isNull(), !expected.keepsIDs) << expected.absent;
    EXPECT_EQ(address->isSubnetAddress(), expected.keepsSubnetFlag) << expected.absent;
    EXPECT_EQ(address->getRouteDistinguisher(), expected.rd) << expected.absent;
  }
}

TEST_P(AddressRowTest, AnIPv6RowWithoutItsTextIsAMonitoredAddressAroundADefaultOne) {
  addRow({{"AddressType", 2}, {"ObjId", "if"}, {"V6ScopeType", 1}, {"PrefixLength", 64}});
  const auto address = readIPv6();
  ASSERT_FALSE(address.isNull());
  EXPECT_EQ(address->getAddressAsString(), "");
  EXPECT_EQ(address->getScopeType(), InetAddressIPv6::Global);
}

TEST_P(AddressRowTest, AFullDnsRowKeepsAllOfIt) {
  addRow({{"AddressType", 16},
          {"ObjId", "if"},
          {"isSubnet", 0},
          {"DNSName", "www.example.net"},
          {"RouteDistinguisher", 7}});
  const auto address = readDNS();
  ASSERT_FALSE(address.isNull());
  EXPECT_EQ(address->getAddressType(), ZNAddress::DNS);
  EXPECT_EQ(address->getAddressAsString(), "www.example.net");
  EXPECT_EQ(address->getAddressID(), ObjID("ad"));
  EXPECT_EQ(address->getAssEntityID(), ObjID("if"));
  EXPECT_EQ(address->getRouteDistinguisher(), 7u);
}

TEST_P(AddressRowTest, TheAbsentColumnsOfADnsRowDecideOnWhatIsKept) {
  struct {
    const char* absent;
    bool isBuilt;
    bool keepsIDs;
  } const cases[] = {{"RouteDistinguisher", true, true},
                     {"ObjId", true, false},
                     {"isSubnet", false, false},
                     {"DNSName", false, false}};
  for (const auto& expected : cases) {
    store->execute("delete from address");
    ZNTopoAPI_Impl::cache()->clear(true);
    Values row = {{"AddressType", 16},
                  {"ObjId", "if"},
                  {"isSubnet", 1},
                  {"DNSName", "www.example.net"},
                  {"RouteDistinguisher", 7}};
    row.insert_or_assign(expected.absent, nullptr);
    addRow(row);
    const auto address = readDNS();
    ASSERT_EQ(address.isNull(), !expected.isBuilt) << expected.absent;
    if (address.isNull()) continue;
    EXPECT_EQ(address->getAddressID().isNull(), !expected.keepsIDs) << expected.absent;
    EXPECT_TRUE(address->isSubnetAddress()) << expected.absent;
    EXPECT_EQ(address->getRouteDistinguisher(), 0u) << expected.absent;
  }
}

TEST_P(AddressRowTest, OtherTypesMakeNoAddress) {
  for (const Value& type : {Value(3), Value(0), Value(99), Value(nullptr)}) {
    store->execute("delete from address");
    addRow({{"AddressType", type}, {"V4Address", "10.0.0.1"}, {"V6Address", "::1"}});
    EXPECT_TRUE(read().isNull());
  }
}

TEST_P(AddressRowTest, AnAddressKnowsTheTableSetThatItCameFrom) {
  store->addAddress("ad", "if", "n1", "10.0.0.1", {}, WorkingDB);
  EXPECT_TRUE(read().isNull());
  const auto found = working.getAddressesByWhereClause("", "", status);
  ASSERT_EQ(found->size(), 1u);
  EXPECT_EQ(found->front()->getDBType(), WorkingDB);
}

TEST_P(AddressRowTest, AnAddressWithoutAnIdentifierIsDeliveredAndNotCached) {
  store->insert("address", {{"AddressId", ""}, {"AddressType", 1}, {"V4Address", "10.0.0.1"}});
  const auto first = read();
  ASSERT_FALSE(first.isNull());
  EXPECT_TRUE(first->getAddressID().isNull());
  EXPECT_FALSE(read() == first);
}

ZNTOPO_ON_ENGINES(AddressRowTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
