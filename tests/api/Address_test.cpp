#include "tests/support/ApiFixture.h"
#include "tests/support/ObjectTexts.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

template <typename Addresses>
std::vector<std::string> addressIDs(const Addresses& addresses) {
  std::vector<std::string> ids;
  for (const auto& address : addresses) ids.push_back(address->getAddressID().getStrValue());
  return ids;
}

std::vector<std::string> textsOf(const std::list<ObjID>& ids) { return {ids.begin(), ids.end()}; }

class AddressTest : public ApiTest {
 protected:
  void addIPv6(const std::string& id, const std::string& text, const Values& more = {}) {
    Values row = {{"AddressId", id},      {"AddressType", 2},  {"ObjId", "if"},
                  {"SubnetObjId", "net"}, {"isSubnet", 0},     {"V6Address", text},
                  {"V6ScopeType", 3},     {"PrefixLength", 64}};
    for (const auto& [name, value] : more) row.insert_or_assign(name, value);
    store->insert("address", row);
  }
  auto byIDs(const std::list<ObjID>& ids) {
    return impl.getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
  }
  void makeUnready() { store->execute("update state set TopologyReady = 0"); }
};

// ---- by identifier ----------------------------------------------------------------------------

TEST_P(AddressTest, AnAddressIsFoundByItsIdentifierAndCached) {
  store->addAddress("ad", "if", "n1", "10.0.0.1");
  const auto address = impl.getAddressByObjID("ad", status);
  ASSERT_FALSE(address.isNull());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  const StatementSpy spy;
  EXPECT_EQ(impl.getAddressByObjID("ad", status), address);
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(AddressTest, ANullIdentifierIsInvalid) {
  EXPECT_TRUE(impl.getAddressByObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Received a NULL Address ID as Input.\n");
}

TEST_P(AddressTest, AnUnknownIdentifierIsInvalid) {
  EXPECT_TRUE(impl.getAddressByObjID("nobody", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "nobody is not a valid Address ID\n");
}

TEST_P(AddressTest, AFailureOfTheListIsReturnedAsItStands) {
  makeUnready();
  EXPECT_TRUE(impl.getAddressByObjID("ad", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(AddressTest, CachedAddressesComeFirstAndThoseOfTheStoreBehind) {
  store->addAddress("a", "if", "n1", "10.0.0.1");
  store->addAddress("b", "if", "n1", "10.0.0.2");
  store->addAddress("c", "if", "n1", "10.0.0.3");
  impl.getAddressByObjID("c", status);
  const StatementSpy spy;
  const auto found = byIDs({"b", "c", "x", "a"});
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(addressIDs(*found)[0], "c");
  EXPECT_THAT(addressIDs(*found), testing::UnorderedElementsAre("c", "a", "b"));
  ASSERT_THAT(spy.statements(), SizeIs(1));
  EXPECT_TRUE(spy.statements()[0].ends_with(" where  AddressId in ('a','b','x')"));
}

TEST_P(AddressTest, TwoHundredIdentifiersMakeOneStatement) {
  std::list<ObjID> ids;
  for (int i = 0; i < 200; ++i) {
    ids.push_back(ObjID(uuid(i)));
    store->addAddress(uuid(i), "if", "n1", "10.0.0.1");
  }
  const StatementSpy spy;
  EXPECT_THAT(*byIDs(ids), SizeIs(200));
  EXPECT_THAT(spy.statements(), SizeIs(1));
}

TEST_P(AddressTest, AnEmptyListIsRefusedWithoutAText) {
  EXPECT_THAT(*byIDs({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(AddressTest, AllAddressesOfATypeNeedNoIdentifiers) {
  store->addAddress("a", "if", "n1", "10.0.0.1");
  addIPv6("b", "2001:db8::1");
  EXPECT_THAT(addressIDs(*impl.getAddrsByObjIDs({}, status, true, ZNAddress::IPv6)),
              ElementsAre("b"));
  EXPECT_THAT(addressIDs(*impl.getAddrsByObjIDs({"b"}, status, true, ZNAddress::IPv4)),
              ElementsAre("a"));
}

TEST_P(AddressTest, ACachedAddressIsDeliveredWhateverItsRowSaysNow) {
  store->addAddress("ad", "if", "n1", "10.0.0.1");
  const auto cached = impl.getAddressByObjID("ad", status);
  store->execute("update address set V4Address = NULL, AddressType = 99");
  const auto found =
      impl.getAddrsByObjIDs({}, status, true, static_cast<ZNAddress::AddressType>(99));
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_EQ(found->front(), cached);
}

TEST_P(AddressTest, AnIPv4RowWithoutItsTextIsLeftOutOfTheList) {
  store->addAddress("a", "if", "n1", "10.0.0.1", {{"V4Address", nullptr}});
  store->addAddress("b", "if", "n1", "10.0.0.2");
  EXPECT_THAT(addressIDs(*byIDs({"a", "b"})), ElementsAre("b"));
  EXPECT_TRUE(status.isOK());
}

// ---- by legacy identifier ---------------------------------------------------------------------

TEST_P(AddressTest, AMonitoredAddressIsFoundByItsLegacyIdentifierInStoreAndCache) {
  addIPv6("ad", "2001:db8::1", {{"AddressQRMId", "4711"}});
  const auto address = impl.getAddressByQRMObjID(ObjID(4711), status);
  ASSERT_FALSE(address.isNull());
  EXPECT_TRUE(status.isOK());
  const StatementSpy spy;
  EXPECT_EQ(impl.getAddressByQRMObjID(ObjID(4711), status), address);
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(AddressTest, AnUnknownLegacyIdentifierIsInvalid) {
  EXPECT_TRUE(impl.getAddressByQRMObjID(ObjID(4711), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "4711 is not a valid QRMObjID\n");
}

TEST_P(AddressTest, ANullLegacyIdentifierIsInvalidAfterTheReadinessOfTheStore) {
  EXPECT_TRUE(impl.getAddressByQRMObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Received a NULL Address ID as Input.\n");
  makeUnready();
  ZNTopoAPI_Impl::cache()->clear(true);
  impl.getAddressByQRMObjID(ObjID(), status);
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(AddressTest, MonitoredAddressesAreNarrowed) {
  addIPv6("ad", "2001:db8::1", {{"AddressQRMId", "4711"}});
  const auto byID = impl.getMonitoredIPv6AddressByObjID("ad", status);
  ASSERT_FALSE(byID.isNull());
  EXPECT_TRUE(status.isOK());
  const auto byQRMID = impl.getMonitoredIPv6AddressByQRMObjID(ObjID(4711), status);
  ASSERT_FALSE(byQRMID.isNull());
  EXPECT_EQ(byQRMID->getAddressID(), ObjID("ad"));
}

TEST_P(AddressTest, AnIPv4AddressIsNoMonitoredOne) {
  store->addAddress("ad", "if", "n1", "10.0.0.1", {{"AddressQRMId", "4711"}});
  EXPECT_TRUE(impl.getMonitoredIPv6AddressByObjID("ad", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "ad is not a monitored IPv6 Address\n");
  EXPECT_TRUE(impl.getMonitoredIPv6AddressByQRMObjID(ObjID(4711), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "4711 is not a monitored IPv6 QRM Object\n");
}

TEST_P(AddressTest, AMonitoredAddressThatIsNotFoundKeepsTheStatusOfItsLookUp) {
  EXPECT_TRUE(impl.getMonitoredIPv6AddressByObjID("ad", status).isNull());
  EXPECT_EQ(status.getAuxMsg(), "ad is not a valid Address ID\n");
  EXPECT_TRUE(impl.getMonitoredIPv6AddressByQRMObjID(ObjID(4711), status).isNull());
  EXPECT_EQ(status.getAuxMsg(), "4711 is not a valid QRMObjID\n");
}

// ---- by text ----------------------------------------------------------------------------------

TEST_P(AddressTest, AnIPv4AddressIsPublicWithoutARouteDistinguisherAndPrivateWithOne) {
  store->addAddress("a", "if", "n1", "192.168.0.1",
                    {{"PubV4Address", "10.0.0.1"}, {"RouteDistinguisher", 0}});
  store->addAddress("b", "if", "n1", "10.0.0.1",
                    {{"PubV4Address", "192.168.0.1"}, {"RouteDistinguisher", 0}});
  EXPECT_EQ(impl.getAddressByIP("10.0.0.1", status, -1)->getAddressID(), ObjID("a"));
  EXPECT_EQ(impl.getAddressByIP("10.0.0.1", status, -2)->getAddressID(), ObjID("a"));
  EXPECT_EQ(impl.getAddressByIP("10.0.0.1", status, 0)->getAddressID(), ObjID("b"));
  EXPECT_TRUE(impl.getAddressByIP("10.0.0.1", status, 1).isNull());
}

TEST_P(AddressTest, AnIPv6AddressIsFilteredByARouteDistinguisherOfZeroAndAbove) {
  addIPv6("a", "2001:db8::1", {{"RouteDistinguisher", 5}});
  EXPECT_FALSE(impl.getAddressByIP("2001:db8::1", status, -1).isNull());
  EXPECT_FALSE(impl.getAddressByIP("2001:db8::1", status, 5).isNull());
  EXPECT_TRUE(impl.getAddressByIP("2001:db8::1", status, 0).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_EQ(status.getAuxMsg(), "No object found with the given IP\n");
}

TEST_P(AddressTest, AnEmptyTextIsRefused) {
  EXPECT_TRUE(impl.getAddressByIP("", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_ILLEGAL_INPUT);
  EXPECT_EQ(status.getAuxMsg(), "Null IP \n");
}

TEST_P(AddressTest, AnAddressIsFoundByItsTextWhileTheStoreIsNotReady) {
  store->addAddress("ad", "if", "n1", "10.0.0.1");
  makeUnready();
  EXPECT_FALSE(impl.getAddressByIP("10.0.0.1", status, -1).isNull());
  EXPECT_TRUE(status.isOK());
}

// ---- by owner ---------------------------------------------------------------------------------

TEST_P(AddressTest, AddressesComeByTheirOwners) {
  store->addInterface("i1", "n1", "a");
  store->addInterface("i2", "n1", "b");
  store->addInterface("i3", "n2", "c");
  store->addAddress("a1", "i1", "n1", "10.0.0.1");
  store->addAddress("a2", "i1", "n1", "10.0.0.2");
  store->addAddress("a3", "i2", "n1", "10.0.0.3");
  store->addAddress("a4", "i3", "n2", "10.0.0.4");
  const auto keys = [](const auto& map) {
    std::vector<std::string> result;
    for (const auto& [id, addresses] : map) result.push_back(id.getStrValue());
    return result;
  };
  const auto byOwner = impl.getAddrsByAssociatedObjIDList({"i1", "i3"}, status, 0);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(keys(*byOwner), ElementsAre("i1", "i3"));
  EXPECT_THAT(addressIDs(*byOwner->at("i1")), testing::UnorderedElementsAre("a1", "a2"));
  EXPECT_THAT(keys(*impl.getAddrsByAssociatedObjIDList({"n1"}, status, 1)),
              ElementsAre("i1", "i2"));
  EXPECT_THAT(keys(*impl.getAddrsByAssociatedObjIDList({}, status, 2)),
              ElementsAre("i1", "i2", "i3"));
}

TEST_P(AddressTest, NoOwnersGiveNoAddressesUnlessAllAreAskedFor) {
  const StatementSpy spy;
  EXPECT_THAT(*impl.getAddrsByAssociatedObjIDList({}, status, 0), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(*impl.getAddrsByAssociatedObjIDList({}, status, 1), IsEmpty());
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(AddressTest, AddressesByOwnerNeedAReadyStore) {
  makeUnready();
  EXPECT_THAT(*impl.getAddrsByAssociatedObjIDList({"i1"}, status, 0), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(AddressTest, TheListOfOwnersIsNotDivided) {
  std::list<ObjID> owners;
  for (int i = 0; i < 120; ++i) owners.push_back(ObjID(uuid(i)));
  const StatementSpy spy;
  impl.getAddrsByAssociatedObjIDList(owners, status, 0);
  EXPECT_THAT(spy.statements(), SizeIs(1));
}

TEST_P(AddressTest, AnAddressWithoutAnOwnerIsNobodys) {
  store->addInterface("i1", "n1", "a");
  store->insert("address", {{"AddressId", "a1"},
                            {"ObjId", "i1"},
                            {"AddressType", 2},
                            {"V6ScopeType", 3},
                            {"PrefixLength", 64},
                            {"isSubnet", 0},
                            {"V6Address", "::1"}});
  // Without its subnet it is built without identifiers, its owner's included.
  EXPECT_THAT(*impl.getAddrsByAssociatedObjIDList({"i1"}, status, 0), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

// ---- identifiers and DNS names ----------------------------------------------------------------

TEST_P(AddressTest, AListOfIdentifiersLeavesOutNulls) {
  store->addAddress("a", "if", "n1", "10.0.0.1");
  store->addAddress("b", "if", "n1", "10.0.0.1", {{"ObjId", nullptr}});
  EXPECT_THAT(textsOf(*impl.getObjIDs("select ObjId from address", status)), ElementsAre("if"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(AddressTest, IPv6AddressesAndDnsNamesFindEachOther) {
  addIPv6("v6", "2001:db8::1");
  store->insert("address",
                {{"AddressId", "dns1"}, {"AddressType", 16}, {"DNSName", "www.example.net"}});
  store->insert("address", {{"AddressId", "dns2"}, {"AddressType", 16}, {"DNSName", nullptr}});
  store->insert("address",
                {{"AddressId", "dns3"}, {"AddressType", 16}, {"DNSName", "ftp.example.net"}});
  for (const char* name : {"dns1", "dns2"}) {
    store->insert("addressmapping",
                  {{"LeftAddressId", "v6"}, {"RightAddressId", name}, {"AddressMappingType", 1}});
  }
  store->insert("addressmapping",
                {{"LeftAddressId", "v6"}, {"RightAddressId", "dns3"}, {"AddressMappingType", 0}});
  EXPECT_THAT(*impl.resolveIPv6ToDNS("v6", status), ElementsAre("www.example.net"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(textsOf(*impl.getInetAddressIPv6IDsFromDNSExpression("www%", status)),
              ElementsAre("v6"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(*impl.getInetAddressIPv6IDsFromDNSExpression("ftp%", status), IsEmpty());
  EXPECT_THAT(*impl.getInetAddressIPv6IDsFromDNSExpression("WWW%", status), IsEmpty());
}

TEST_P(AddressTest, ANullIdentifierHasNoDnsNames) {
  EXPECT_THAT(*impl.resolveIPv6ToDNS(ObjID(), status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Received a NULL Object ID as Input.\n");
}

TEST_P(AddressTest, DnsNamesNeedAReadyStore) {
  makeUnready();
  EXPECT_THAT(*impl.resolveIPv6ToDNS("v6", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(*impl.getInetAddressIPv6IDsFromDNSExpression("www%", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

ZNTOPO_ON_ENGINES(AddressTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
