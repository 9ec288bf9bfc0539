#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "tests/support/CliSupport.h"
#include "tools/network/StoreStatement.h"

/// @file
/// Lists of nodes, subnets and addresses by attributes, held against statements on the store that
/// are written by hand.

namespace zntopo::test {
namespace {

using Json = nlohmann::json;
using Call = std::vector<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

class CliAttributesTest : public CliSampleTest {
 protected:
  static std::vector<std::string> nodes(Call options) {
    options.insert(options.begin(), "nodes");
    return each(answerOf(options)["nodes"], "name");
  }
  static std::vector<std::string> addresses(Call options) {
    options.insert(options.begin(), "addresses");
    return each(answerOf(options)["addresses"], "id");
  }

  /// Changes rows of the store.
  void change(const std::string& sql) const {
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, store());
    TvDbil::DbConnection_t connection(messages, &source);
    tools::executeText(connection, sql, "the store can't be changed");
  }
  void expectAddresses(const Call& options, const std::string& condition) const {
    EXPECT_THAT(addresses(options),
                UnorderedElementsAreArray(
                    stored("select AddressId from address where isSubnet = 0 and " + condition)))
        << testing::PrintToString(options);
  }
};
ZNTOPO_ON_ENGINES(CliAttributesTest, kMainEngines);

TEST_P(CliAttributesTest, NodesAreFoundByPatternsOfNamesAndDescriptions) {
  EXPECT_THAT(nodes({"--name", "core-?"}), ElementsAre("core-1", "core-2"));
  EXPECT_THAT(nodes({"--name", "harbor master pc"}), ElementsAre("harbor master pc"));
  EXPECT_THAT(nodes({"--name", "*office*"}),
              UnorderedElementsAreArray(
                  stored("select EntityName from nwnode where EntityName like '%office%' or "
                         "Description like '%office%'")));
  EXPECT_EQ(nodes({"--name", "*"}).size(), 24u);
  EXPECT_THAT(nodes({"--name", "CORE-?"}), IsEmpty());
  EXPECT_THAT(nodes({"--name", "core"}), IsEmpty());
}

TEST_P(CliAttributesTest, NodesAreFoundByCapabilitiesOfWhichTheyHaveOne) {
  EXPECT_THAT(nodes({"--capability", "isIPv4Router", "--capability", "ishsrp"}),
              UnorderedElementsAreArray(
                  stored("select EntityName from nwnode where isIPV4Router = 1 or isHSRP = 1")));
  EXPECT_THAT(nodes({"--capability", "isATM"}), IsEmpty());
}

TEST_P(CliAttributesTest, EachCapabilityOfTheHelpIsAColumn) {
  const std::string help = zntopoRun({"nodes", "--help"}).out;
  static const std::regex name("\\bis[A-Z]\\w+");
  const auto option = help.begin() + static_cast<std::ptrdiff_t>(help.find("--capability"));
  const auto end = help.begin() + static_cast<std::ptrdiff_t>(help.find("\n  --address"));
  std::set<std::string> names;
  for (std::sregex_iterator at(option, end, name), none; at != none; ++at) names.insert(at->str());
  EXPECT_EQ(names.size(), 21u) << help;
  for (const std::string& one : names) {
    EXPECT_EQ(zntopoRun({"nodes", "--capability", one}).status, 0) << one;
    EXPECT_NO_THROW(select("select count(*) from nwnode where " + one + " = 1", 1)) << one;
  }
}

TEST_P(CliAttributesTest, NodesAreFoundByAddressesOfBothVersionsHoweverWritten) {
  EXPECT_THAT(nodes({"--address", "10.20.8.17"}), ElementsAre("customs-printer"));
  EXPECT_THAT(nodes({"--address", "2001:DB8:20:8:0::11"}), ElementsAre("customs-printer"));
  // Several nodes share the address of a gateway.
  EXPECT_THAT(nodes({"--address", "10.20.8.1"}), ElementsAre("core-1", "core-2"));
  EXPECT_THAT(nodes({"--address", "10.99.99.99"}), IsEmpty());
  EXPECT_THAT(nodes({"--address", "2001:db8::99"}), IsEmpty());
}

TEST_P(CliAttributesTest, NodesAreFoundByTheAddressThatTheListOfNodesShows) {
  const Json list = answerOf({"nodes"})["nodes"];
  std::size_t found = 0;
  for (const Json& node : list) {
    if (node["management_address"].is_null()) continue;
    const std::string address = node["management_address"];
    EXPECT_THAT(nodes({"--address", address}), testing::Contains(node["name"].get<std::string>()));
    ++found;
  }
  EXPECT_GT(found, 5u);
  EXPECT_THAT(nodes({"--address", "10.20.1.11"}), ElementsAre("core-1"));
  change("update nwnode set PubV4ManagementAdd = '192.0.2.7' where EntityName = 'core-2'");
  EXPECT_THAT(nodes({"--address", "192.0.2.7"}), ElementsAre("core-2"));
}

TEST_P(CliAttributesTest, AnAddressInNoSubnetHasItsOwnerAndItsIdentifier) {
  const Json before = answerOf({"addresses", "customs-printer"})["addresses"][1];
  change("update address set SubnetObjId = null where V6Address = '2001:db8:20:8::11'");
  Json expected = before;
  expected["subnet_id"] = nullptr;
  ASSERT_NE(before, expected);
  EXPECT_EQ(answerOf({"addresses", "customs-printer"})["addresses"][1], expected);
  EXPECT_EQ(answerOf({"addresses", "--address", "2001:db8:20:8::11"})["addresses"],
            Json::array({expected}));
  EXPECT_THAT(nodes({"--address", "2001:db8:20:8::11"}), ElementsAre("customs-printer"));
  EXPECT_EQ(answerOf({"interfaces", "customs-printer"})["interfaces"][0]["addresses"],
            Json::array({"10.20.8.17", "2001:db8:20:8::11"}));
}

TEST_P(CliAttributesTest, SeveralConditionsOnNodesHoldTogether) {
  EXPECT_THAT(nodes({"--address", "10.20.8.1", "--name", "*-2"}), ElementsAre("core-2"));
  EXPECT_THAT(nodes({"--address", "10.20.8.1", "--ip-level", "6"}), IsEmpty());
  EXPECT_THAT(nodes({"--address", "10.20.8.1", "--capability", "isLanSwitch"}),
              ElementsAre("core-1", "core-2"));
  EXPECT_THAT(nodes({"--address", "10.20.8.1", "--capability", "isWireless"}), IsEmpty());
  EXPECT_THAT(nodes({"--name", "*badge*", "--ip-level", "6"}), ElementsAre("badge-reader-1"));
}

TEST_P(CliAttributesTest, NothingFoundIsAnEmptyListAndNoFailure) {
  const CliResult result = zntopoRun({"nodes", "--name", "nobody"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, testing::EndsWith("0 nodes\n"));
}

TEST_P(CliAttributesTest, SubnetsAreFoundByPatterns) {
  const Json found = answerOf({"subnets", "--name", "*offi?e*", "--ip-level", "6"})["subnets"];
  EXPECT_THAT(each(found, "name"),
              UnorderedElementsAreArray(
                  stored("select EntityName from nwentity where EntityType = 7 and IPLevel = 6 and "
                         "Description like '%offi_e%'")));
  EXPECT_THAT(answerOf({"subnets", "--name", "*guest*", "--scope", "link-local"})["subnets"],
              IsEmpty());
}

TEST_P(CliAttributesTest, AllAddressesOfInterfacesAreListedWithTheirOwners) {
  expectAddresses({}, "1 = 1");
  const Json list = answerOf({"addresses", "customs-printer"})["addresses"];
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0]["node"], "customs-printer");
  EXPECT_EQ(list[0]["interface"], "eth0");
  EXPECT_EQ(list[0]["address"], "10.20.8.17");
  EXPECT_EQ(list[0]["prefix"], "10.20.8.0/24");
  EXPECT_EQ(list[0]["type"], "ipv4");
  EXPECT_EQ(list[0]["scope"], nullptr);
  EXPECT_EQ(list[0]["ping_state"], "responding");
  EXPECT_EQ(list[1]["address"], "2001:db8:20:8::11");
  EXPECT_EQ(list[1]["prefix"], "2001:db8:20:8::/64");
  EXPECT_EQ(list[1]["scope"], "global");
  EXPECT_EQ(list[1]["ping_state"], nullptr);
}

TEST_P(CliAttributesTest, AddressesAreFoundByAttributes) {
  expectAddresses({"--type", "ipv6"}, "AddressType = 2");
  expectAddresses({"--type", "IPv6"}, "AddressType = 2");
  expectAddresses({"--type", "dns"}, "AddressType = 16");
  expectAddresses({"--ip-level", "4"}, "IPLevel = 4");
  expectAddresses({"--scope", "link-local"}, "V6ScopeType = 1");
  expectAddresses({"--prefix", "2001:db8:20:8::/64"}, "V6Address like '2001:db8:20:8::%'");
  expectAddresses({"--prefix", "10.20.8.0/24"}, "V4Address like '10.20.8.%'");
  expectAddresses({"--prefix", "10.20.0.0/18"},
                  "(V4Address like '10.20._.%' or V4Address like '10.20.1_.%' or V4Address like "
                  "'10.20.2_.%' or V4Address like '10.20.3_.%' or V4Address like '10.20.4_.%' or "
                  "V4Address like '10.20.5_.%' or V4Address like '10.20.60.%' or V4Address like "
                  "'10.20.61.%' or V4Address like '10.20.62.%' or V4Address like '10.20.63.%')");
  expectAddresses({"--prefix", "10.20.0.0/30"},
                  "V4Address in ('10.20.0.0', '10.20.0.1', '10.20.0.2', '10.20.0.3')");
  expectAddresses({"--prefix", "2001:db8:20::/45"},
                  "V6AddressBS like '001000000000000100001101101110000000000000100%'");
  expectAddresses({"--prefix", "0.0.0.0/0"}, "AddressType = 1");
  expectAddresses({"--prefix", "::/0"}, "AddressType = 2");
  expectAddresses({"--address", "2001:DB8:20:8::11"}, "V6Address = '2001:db8:20:8::11'");
  expectAddresses({"--address", "2001:db8:20:08:0::11"}, "V6Address = '2001:db8:20:8::11'");
  expectAddresses({"--address", "2001:DB8:*"}, "V6Address like '2001:db8:%'");
  expectAddresses({"--address", "10.20.?.1"}, "V4Address like '10.20._.1'");
  expectAddresses({"--address", "*11"}, "(V4Address like '%11' or V6Address like '%11')");
  expectAddresses({"--address", "*11", "--type", "ipv6"}, "V6Address like '%11'");
  expectAddresses({"--address", "*11", "--prefix", "10.20.0.0/16"}, "V4Address like '%11'");
  expectAddresses({"core-1", "--address", "*.1"},
                  "V4Address like '%.1' and ObjId in (select i.ObjId from nwinterface i, nwnode n "
                  "where i.NodeObjID = n.ObjId and n.EntityName = 'core-1')");
}

TEST_P(CliAttributesTest, WhatTheOptionsExcludeIsNotFound) {
  EXPECT_THAT(addresses({"--type", "ipv6", "--prefix", "10.20.8.0/24"}), IsEmpty());
  EXPECT_THAT(addresses({"--type", "dns", "--ip-level", "6", "--address", "10.*"}), IsEmpty());
  EXPECT_THAT(addresses({"--address", "10.20.8.1%"}), IsEmpty());
  EXPECT_EQ(failureOf({"addresses", "nobody"}), "ZN_API_OBJ_NOT_EXIST");
}

/// Names that would end a quoted text, or mean more than themselves in a pattern.
const std::vector<std::string> kHostileNames = {
    "o'brien",       "'",          "''",          "' or '1'='1", "'; drop table nwnode; --",
    "50%",           "500",        "a_b",         "axb",         "back\\slash",
    "back\\\\slash", "\\",         "\\'",         "x\\",         "\"quoted\"",
    "[brackets]",    "semi;colon", "caf\xc3\xa9", "cafe",        "#hash#",
    "?mark",         "-- dash",    "a b",         "!bang!",      "\xe6\xb8\xaf\xe5\x8f\xa3"};

TEST_P(CliAttributesTest, ANameThatIsHostileToStatementsFindsItselfAlone) {
  Json network = {{"network-id", "hostile"}, {"node", Json::array()}};
  for (const std::string& name : kHostileNames) network["node"].push_back({{"node-id", name}});
  const Json document = {{"ietf-network:networks", {{"network", Json::array({network})}}}};
  ASSERT_EQ(zntopoRun({"import", write("hostile.json", document.dump())}).status, 0);
  for (const std::string& name : kHostileNames) {
    if (name.find_first_of("*?") != std::string::npos) continue;
    EXPECT_THAT(nodes({"--name=" + name}), ElementsAre(name)) << name;
  }
  EXPECT_THAT(nodes({"--name", "caf?"}), testing::UnorderedElementsAre("cafe", "caf\xc3\xa9"));
  EXPECT_THAT(nodes({"--name", "??"}),
              testing::UnorderedElementsAre("''", "\\'", "x\\", "\xe6\xb8\xaf\xe5\x8f\xa3"));
  EXPECT_THAT(nodes({"--name", "?_?"}), ElementsAre("a_b"));
  EXPECT_THAT(nodes({"--name", "5*%"}), ElementsAre("50%"));
  EXPECT_THAT(nodes({"--name", "*\\*"}),
              testing::UnorderedElementsAre("back\\slash", "back\\\\slash", "\\", "\\'", "x\\"));
  EXPECT_EQ(nodes({"--name", "*"}).size(), 24u + kHostileNames.size());
}

using CliEmptyStoreTest = CliTest;
ZNTOPO_ON_ENGINES(CliEmptyStoreTest, kMainEngines);

TEST_P(CliEmptyStoreTest, AStoreThatIsNotReadyIsSaidToBeSo) {
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  for (const Call& call : std::vector<Call>{{"nodes", "--name", "x"},
                                            {"nodes", "--address", "10.20.8.17"},
                                            {"nodes", "--address", "2001:db8::1"},
                                            {"subnets", "--name", "x"},
                                            {"addresses"},
                                            {"addresses", "core-1"},
                                            {"addresses", "--prefix", "10.0.0.0/8"}}) {
    EXPECT_EQ(failureOf(call), "ZN_API_DB_NOT_READY") << testing::PrintToString(call);
  }
}

}  // namespace
}  // namespace zntopo::test
