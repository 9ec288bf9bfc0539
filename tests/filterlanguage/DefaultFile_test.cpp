#include <map>

#include "tests/filterlanguage/GeneratedNetwork.h"
#include "tests/filterlanguage/LanguageTest.h"
#include "tests/filterlanguage/MarkdownPage.h"
#include "tests/filterlanguage/XmlTree.h"

/// @file
/// What each of the default filters selects, beside a statement that says the same in other words.

namespace zntopo::test {
namespace {

class DefaultFileTest : public LanguageTest {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store_.emplace(GetParam(), generatedNetwork());
    TvXplMsg::MessageList_t messages;
    ASSERT_EQ(filters_.ParseDefaultFile(messages), ZN_API_SUCCESS)
        << messages.Format(TvXplMsg::fRecurse_k);
  }
};

ZNTOPO_ON_ENGINES(DefaultFileTest, kMainEngines);

const std::string kNodes = "select n.ObjId from nwnode n where ";
const std::string kPorts = "select i.ObjId from nwinterface i where ";
const std::string kPlaces =
    "select a.AddressId from address a where (a.isSubnet is null or a.isSubnet = 0) and ";
const std::string kAddressesOf = "(select count(*) from address a where a.NodeObjId = n.ObjId and ";
const std::string kRouter = "(coalesce(n.isIPV4Router, 0) = 1 or coalesce(n.isIPV6Router, 0) = 1)";
const std::string kSilent = "n.SNMPState > 0 and n.SNMPState < 4";
const std::string kHasV4 = "(" + kAddressesOf +
                           "a.AddressType = 1 and a.PubV4Address is not null) > 0 or "
                           "n.PubV4ManagementAdd is not null)";
const std::string kHasV6 = kAddressesOf + "a.AddressType = 2) > 0";
const std::string kDownPort = "i.IfAdminState = 1 and (i.IfOperStatus = 2 or i.IfOperStatus = 7)";

const std::string kPrivate =
    "(substr(a.PubV4Address, 1, 3) = '10.' or substr(a.PubV4Address, 1, 8) = '192.168.' or "
    "(a.PubV4Address like '172.__.%' and substr(a.PubV4Address, 5, 2) between '16' and '31'))";

const std::map<std::string, std::string>& expectations() {
  static const auto* const all = new std::map<std::string, std::string>{
      {"Routers", kNodes + kRouter},
      {"Switches", kNodes + "n.isLanSwitch = 1"},
      {"Layer3Switches", kNodes + "n.isLanSwitch = 1 and " + kRouter},
      {"Hosts", kNodes + "coalesce(n.isLanSwitch, 0) = 0 and not " + kRouter},
      {"HSRPRouters",
       "select distinct i.NodeObjID from nwinterface i, hsrpaddress h, nwentity e where "
       "h.AddressIfObjID = i.ObjId and h.ObjID = e.ObjId and e.EntityType = 11"},
      {"OSPFOrBGPRouters", kNodes + "coalesce(n.isOSPF, 0) + coalesce(n.isBGP, 0) > 0"},
      {"WirelessNodes", kNodes + "n.isWireless = 1"},
      {"IPv6OnlyNodes", kNodes + kHasV6 + " and not " + kHasV4},
      {"DualStackNodes", kNodes + kHasV6 + " and " + kHasV4},
      {"UnreachableNodes", kNodes + "n.SNMPState = 2"},
      {"SilentNodes", kNodes + kSilent},
      {"TroubledNodes", kNodes + "n.Status between 5 and 6"},
      {"SilentRouters", kNodes + kSilent + " and " + kRouter},
      {"NodesWithDownInterfaces",
       "select distinct i.NodeObjID from nwinterface i where " + kDownPort},
      {"NodesNotAnsweringPing",
       "select distinct a.NodeObjId from address a where coalesce(a.isSubnet, 0) = 0 and "
       "a.PingState between 1 and 3"},
      {"NodesWithoutSNMP", kNodes + "coalesce(n.isSNMPSupported, 0) = 0"},
      {"UnmanageableNodes", kNodes + "coalesce(n.isManageable, 0) = 0"},
      {"NodesWithoutLocation", kNodes + "n.isManageable = 1 and coalesce(n.sysLocation, '') = ''"},
      {"UnlinkedNodes", kNodes + "not exists (select 1 from NWInterfaceAsc l where n.ObjId in "
                                 "(l.leftifnodeobjid, l.rightifnodeobjid))"},
      {"NewNodes", kNodes + "n.CreateTimeUTC > 1900"},
      {"DownInterfaces", kPorts + kDownPort},
      {"DisabledInterfaces", kPorts + "i.IfAdminState = 2"},
      {"Uplinks", kPorts + "i.isL2Connected > 0"},
      {"DownUplinks", kPorts + "i.isL2Connected > 0 and " + kDownPort},
      {"HSRPInterfaces",
       "select distinct h.AddressIfObjID from hsrpaddress h where h.state = 6 and h.AddressIfObjID "
       "is not null"},
      {"FreeAccessPorts", kPorts + "i.isAccessPort = 1 and coalesce(i.isL2Connected, 0) = 0 and "
                                   "(i.IfOperStatus = 2 or i.IfOperStatus between 6 and 7)"},
      {"MeshInterfaces",
       "select distinct c.ContainedObjID from containment c where c.ContainerType = 10"},
      {"InterfacesInNoVLAN", kPorts +
                                 "i.isAccessPort = 1 and (select count(*) from containment c "
                                 "where c.ContainedObjID = i.ObjId and c.ContainerType = 4) = 0"},
      {"SilentAddresses", kPlaces + "a.PingState >= 1"},
      {"UnreachableAddresses", kPlaces + "a.PingState = 2"},
      {"GlobalIPv6Addresses", kPlaces + "a.V6Address is not null and a.V6ScopeType = 3"},
      {"RouterAddresses",
       kPlaces + "exists (select 1 from nwnode n where n.ObjId = a.NodeObjId and " + kRouter + ")"},
      {"PrivateIPv4Ranges", "select a.AddressId from address a where " + kPrivate},
      {"PrivateIPv4Addresses", kPlaces + kPrivate},
  };
  return *all;
}

TEST_P(DefaultFileTest, EachFilterSelectsWhatItSays) {
  std::size_t filters = 0;
  for (const auto& [name, description] : filters_.getFilterNameDesc()) {
    SCOPED_TRACE(name);
    const auto expected = expectations().find(name);
    ASSERT_NE(expected, expectations().end()) << "nothing says what it selects";
    const Ids ids = rows(expected->second);
    EXPECT_EQ(selected(name), ids);
    EXPECT_FALSE(ids.empty()) << "the network has nothing to select";
    ++filters;
  }
  EXPECT_EQ(filters, expectations().size());
}

TEST_P(DefaultFileTest, NoFilterSelectsAllObjectsOfItsKind) {
  const std::map<EntityType, std::size_t> all = {
      {E_Node, rows("select ObjId from nwnode").size()},
      {E_Interface, rows("select ObjId from nwinterface").size()},
      {E_Address, rows("select AddressId from address").size()}};
  for (const auto& [name, description] : filters_.getFilterNameDesc()) {
    EntityType type = E_Unknown;
    ASSERT_EQ(filters_.getFilterObjType(name, type), 0);
    EXPECT_LT(selected(name).size(), all.at(type)) << name;
  }
}

TEST(DefaultFile, IsValidInTheIntermediateForm) {
  const FilterConfiguration config{"etc", languageFolder()};
  intermediate(contentOf(languageFile("TopoFilters.xml")));
}

TEST(DefaultFile, TellsWhatEachFilterIsFor) {
  XmlTree root = readXml(contentOf(languageFile("TopoFilters.xml")));
  EXPECT_GE(root.children.size(), 20U);
  for (const XmlTree& filter : root.children) {
    EXPECT_FALSE(filter.attribute("description").empty()) << filter.attribute("name");
  }
}

TEST(DefaultFile, IsListedInTheGuide) {
  std::vector<std::vector<std::string>> expected;
  for (const XmlTree& filter : readXml(contentOf(languageFile("TopoFilters.xml"))).children) {
    const char* const kind = filter.name.starts_with("node")        ? "nodes"
                             : filter.name.starts_with("interface") ? "interfaces"
                                                                    : "addresses";
    expected.push_back({filter.attribute("name"), kind, filter.attribute("description")});
  }
  EXPECT_EQ(MarkdownPage(inSourceTree("docs/filters.md")).table("## The default filters"),
            expected);
}

}  // namespace
}  // namespace zntopo::test
