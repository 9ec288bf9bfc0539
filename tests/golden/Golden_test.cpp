// The forms of a whole network, as they are kept in files.

#include <cstdlib>
#include <map>

#include "tests/support/ConnectedStore.h"
#include "tests/support/Golden.h"
#include "tests/support/Places.h"
#include "tools/import/NetworkFormat.h"
#include "tools/network/StoreWriter.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::test {
namespace {

/// What all rows tell as their time.
constexpr int kTime = 1700000000;

/// The objects of a network in the order of their identifiers' texts.
template <typename Objects>
auto byID(const Objects& objects) {
  std::map<std::string, typename Objects::value_type> ordered;
  for (const auto& object : objects) ordered[object->getObjID().getStrValue()] = object;
  return ordered;
}

template <typename Objects, typename Write>
std::string formOf(const Objects& objects, const Write& write) {
  std::string text;
  for (const auto& [id, object] : objects) text += write(*object);
  return text;
}

constexpr auto kText = [](const auto& object) { return object.toString(); };
constexpr auto kXml = [](const auto& object) { return object.toXML(); };

class GoldenTest : public ConnectedStoreTest {
 protected:
  void SetUp() override {
    ConnectedStoreTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    unsetenv("TOPODUMP_DETAIL");
    // Clearing leaves containers in the cache, and those of another test are not to be seen.
    ZNTopoConfig config;
    config.setIfcCacheSize(0);
    ZNTopoAPI::setTopoConfiguration(config);
    ZNTopoAPI_Impl::cache()->clear(true);
    ZNDBTestAccess::forget();
  }
  void TearDown() override {
    unsetenv("TOPODUMP_DETAIL");
    ZNDBTestAccess::forget();
    ConnectedStoreTest::TearDown();
  }

  void fill(const std::string& sample) {
    tools::NetworkReport report;
    const tools::InputFile file = tools::loadInputFile(inSourceTree("data/networks/" + sample));
    const tools::NetworkModel model = tools::networkFormat("", file).read(file, report, {});
    const tools::NetworkParts parts{.count = 1, .part = [&](std::size_t) { return model; }};
    tools::writeParts(*connection_, parts, "", kTime, false);
  }

  /// What XML has to escape, in every text of two nodes, an interface, an address and the groups;
  /// in front, where it is not escaped, and behind.
  void fillWithOddTexts() {
    constexpr const char* kOdd = "<a & \"b\"> 'c' &amp; <";
    const auto id = [](int number) {
      return "00000000-0000-4000-8000-00000000000" + std::to_string(number);
    };
    store_->setReady();
    const Values entity = {{"Description", kOdd}, {"ZoneNumber", kOdd}, {"hasDynamicProperty", 1}};
    const auto with = [&entity](Values more) {
      more.insert(entity.begin(), entity.end());
      return more;
    };
    store_->addNode(id(1), std::string("&") + kOdd,
                    with({{"SysOID", kOdd}, {"SysContact", kOdd}, {"SysLocation", kOdd}}));
    store_->addNode(id(2), "plain", {{"SysContact", "a<b"}});
    store_->addInterface(id(3), id(1), kOdd,
                         with({{"IfAlias", kOdd},
                               {"PhysicalAddress", kOdd},
                               {"VendorCard", "<1>"},
                               {"VendorPort", "&2"},
                               {"hasAddress", 1},
                               {"isL2Connected", 1}}));
    store_->addInterface(id(4), id(2), ">", {{"isL2Connected", 1}});
    store_->addLink(id(3), id(4), id(1), id(2));
    store_->addAddress(id(5), id(3), id(1), "<10 & \"1\">");
    for (const auto& [number, type] : {std::pair(6, 4), std::pair(7, 7), std::pair(8, 11)}) {
      store_->addEntity(id(number), kOdd, type, entity);
    }
    store_->insert("containment", {{"ContainerObjID", id(6)},
                                   {"ContainedObjID", id(3)},
                                   {"ContainerType", 4},
                                   {"ContainedType", 2},
                                   {"ContainedNodeObjId", id(1)}});
    store_->insert("hsrpaddress", {{"ObjID", id(8)},
                                   {"AddressID", id(5)},
                                   {"AddressIfObjID", id(3)},
                                   {"state", 6},
                                   {"HSRPNumber", 1}});
    store_->insert("nwifc", with({{"ObjId", id(9)}, {"EntityName", kOdd}, {"IFCType", 5}}));
    for (const int owner : {1, 3, 6, 7, 8, 9}) {
      store_->insert(
          "userdefvar",
          {{"ObjID", id(owner)}, {"VarName", kOdd}, {"VarValType", 3}, {"StrVal", kOdd}});
    }
  }

  auto nodes() {
    auto all = api.getNodesByObjIDList({}, notFound, status, false, false, true,
                                       ZNEntity::AllProtocol, -1);
    return byID(*all);
  }
  auto interfaces() {
    std::list<ZNRefPtr<ZNInterface>> all;
    for (const auto& [id, node] : nodes()) all.splice(all.end(), *node->getInterfacesList());
    return byID(all);
  }
  auto addresses() {
    std::map<std::string, ZNRefPtr<ZNAddress>> all;
    for (const auto type : {ZNAddress::IPv4, ZNAddress::IPv6, ZNAddress::DNS}) {
      const auto some = api.getAddrsByObjIDs({}, status, true, type);
      for (const auto& address : *some) all[address->getAddressID().getStrValue()] = address;
    }
    return all;
  }
  auto subnets() {
    return byID(*api.getSubnetsByObjIDList({}, status, false, true, ZNEntity::AllProtocol, -1));
  }
  auto vlans() { return byID(*api.getVlansByObjIDList({}, notFound, status, true, -1)); }
  auto containers() { return byID(*api.getIfcsByObjIDList({}, notFound, status, true, -1)); }
  auto hsrps() { return byID(*api.getHSRPsByObjIDList({}, notFound, status, true, -1)); }

  template <typename Write>
  std::string groups(const Write& write) {
    return formOf(subnets(), write) + formOf(vlans(), write) + formOf(containers(), write) +
           formOf(hsrps(), write);
  }

  /// Statements say no order, and one engine gives the items of lists in another than the others.
  void expectLists(const std::string& file, const std::string& text) {
    store_->isPostgres() ? expectGoldenLines(file, text) : expectGolden(file, text);
  }

  void expectNodes(const std::string& folder) {
    expectLists(folder + "/nodes.txt", formOf(nodes(), kText));
    expectLists(folder + "/nodes.xml.txt",
                formOf(nodes(), [](const ZNNode& node) { return node.toXML(true); }));
    const auto row = [](const auto& object) { return object.toShortString(); };
    expectGolden(folder + "/rows.txt", formOf(nodes(), row) + formOf(interfaces(), row));
    expectGolden(folder + "/info.txt", api.getTopologyInfo(status).toString());
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  }

  void expectGroupsAndAddresses(const std::string& folder) {
    expectGolden(folder + "/addresses.txt", formOf(addresses(), kText));
    expectGolden(folder + "/addresses.xml.txt", formOf(addresses(), kXml));
    expectLists(folder + "/groups.txt", groups(kText));
    expectLists(folder + "/groups.xml.txt", groups(kXml));
    EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  }

  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
};
ZNTOPO_ON_ENGINES(GoldenTest, kEngines);

TEST_P(GoldenTest, TheCampusHasTheFormsThatAreKept) {
  fill("harbor-campus.rfc8345.json");
  expectNodes("harbor-campus");
  expectGroupsAndAddresses("harbor-campus");
}

TEST_P(GoldenTest, TheRingHasTheFormsThatAreKept) {
  fill("skerry-ring.graphml");
  expectNodes("skerry-ring");
}

TEST_P(GoldenTest, TextsThatXmlHasToEscapeHaveTheFormsThatAreKept) {
  fillWithOddTexts();
  expectNodes("odd-texts");
  expectGroupsAndAddresses("odd-texts");
}

TEST_P(GoldenTest, WithTheVariableAddressesTellTheirHsrpGroups) {
  fill("harbor-campus.rfc8345.json");
  setEnv("TOPODUMP_DETAIL", "1");
  expectGolden("harbor-campus/addresses-detail.txt", formOf(addresses(), kText));
}

}  // namespace
}  // namespace zntopo::test
