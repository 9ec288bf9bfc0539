#include <gmock/gmock.h>

#include "tests/support/CliSupport.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

using CliAnswersTest = CliSampleTest;

std::vector<std::string> nodesOf(const nlohmann::json& path) {
  std::vector<std::string> names;
  for (const auto& step : path["interfaces"]) {
    if (names.empty() || names.back() != step["node"]) names.push_back(step["node"]);
  }
  return names;
}

TEST_P(CliAnswersTest, StateTellsThatTheStoreIsReady) {
  const auto json = zntopoRun({"state", "--json"}).json();
  EXPECT_EQ(json["status"]["code"], 0);
  EXPECT_EQ(json["status"]["name"], "ZN_API_SUCCESS");
  EXPECT_EQ(json["state"], "READY");
  EXPECT_EQ(json["topology_ready"], 1);
  EXPECT_THAT(zntopoRun({"state"}).out, HasSubstr("READY"));
}

TEST_P(CliAnswersTest, NodesListsThemAllByName) {
  const auto json = zntopoRun({"nodes", "--json"}).json();
  ASSERT_EQ(json["nodes"].size(), 24u);
  EXPECT_EQ(json["nodes"][0]["name"], "access-1");
  EXPECT_EQ(json["nodes"][0]["id"].get<std::string>().size(), 36u);
  EXPECT_EQ(json["nodes"][0]["switch"], true);
  EXPECT_EQ(zntopoRun({"nodes", "--ip-level", "4", "--json"}).json()["nodes"].size(), 23u);
  EXPECT_EQ(zntopoRun({"nodes", "--ip-level", "6", "--json"}).json()["nodes"].size(), 1u);
  EXPECT_THAT(zntopoRun({"nodes"}).out, HasSubstr("harbor master pc"));
}

TEST_P(CliAnswersTest, ANodeIsFoundByNameBeginningAddressAndIdentifier) {
  const auto byName = zntopoRun({"node", "customs-printer", "--json"}).json();
  const std::string id = byName["node"]["id"];
  for (const char* text : {"customs", "10.20.8.17", "2001:DB8:20:8:0::11", "2001:db8:20:8::11"}) {
    EXPECT_EQ(zntopoRun({"node", text, "--json"}).json()["node"]["id"], id) << text;
  }
  EXPECT_EQ(zntopoRun({"node", id, "--json"}).json()["node"]["id"], id);
  EXPECT_THAT(zntopoRun({"node", "core-1"}).out, HasSubstr("Core switch, harbor office basement"));
  EXPECT_THAT(zntopoRun({"node", "core-1", "--json"}).json()["node"]["vlans"],
              UnorderedElementsAre("management", "quay", "office", "servers", "wireless"));
}

TEST_P(CliAnswersTest, AnExactNameWinsOverANameThatMerelyBeginsSo) {
  const std::string more = R"({"networks": {"network": [{"network-id": "n", "node": [
      {"node-id": "acc"}, {"node-id": "acc 1"}, {"node-id": "10.20.8.17"}]}]}})";
  ASSERT_EQ(zntopoRun({"import", write("more.json", more)}).status, 0);
  EXPECT_EQ(zntopoRun({"node", "acc", "--json"}).json()["node"]["name"], "acc");
  EXPECT_EQ(zntopoRun({"node", "acc ", "--json"}).json()["node"]["name"], "acc 1");
  // A name that looks like an address is still a name.
  EXPECT_EQ(zntopoRun({"node", "10.20.8.17", "--json"}).json()["node"]["name"], "10.20.8.17");
  const CliResult many = zntopoRun({"node", "acces", "--json"});
  EXPECT_EQ(many.status, 1);
  EXPECT_EQ(many.json()["status"]["name"], "ZN_API_NONUNIQUE_NAME");
  EXPECT_THAT(many.err, HasSubstr("  access-1\n"));
  EXPECT_EQ(zntopoRun({"node", "ACC", "--json"}).status, 1);
}

TEST_P(CliAnswersTest, WhatNobodyHasIsNotFound) {
  for (const char* text : {"nobody", "10.99.99.99", "2001:db8::99", "255.255.255.255",
                           "00000000-0000-0000-0000-000000000000"}) {
    const CliResult result = zntopoRun({"node", text, "--json"});
    EXPECT_EQ(result.status, 1) << text;
    EXPECT_EQ(result.json()["status"]["name"], "ZN_API_OBJ_NOT_EXIST") << text;
    EXPECT_TRUE(result.json()["node"].is_null()) << text;
  }
}

TEST_P(CliAnswersTest, AnErrorHasItsNumberMessageAndAuxiliaryText) {
  const CliResult result = zntopoRun({"node", "nobody"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("6 ZN_API_OBJ_NOT_EXIST: "));
  EXPECT_THAT(result.err, HasSubstr("ObjID for node [nobody] not found."));
}

TEST_P(CliAnswersTest, InterfacesHaveTheirAddresses) {
  const auto json = zntopoRun({"interfaces", "customs-printer", "--json"}).json();
  EXPECT_EQ(json["node"], "customs-printer");
  ASSERT_EQ(json["interfaces"].size(), 1u);
  const auto& interface = json["interfaces"][0];
  EXPECT_EQ(interface["name"], "eth0");
  EXPECT_EQ(interface["connected"], true);
  EXPECT_THAT(interface["addresses"], ElementsAre("10.20.8.17", "2001:db8:20:8::11"));
}

TEST_P(CliAnswersTest, NothingIsPaddedWithNuls) {
  for (const std::vector<std::string>& call : {std::vector<std::string>{"interfaces", "core-1"},
                                               {"neighbors", "core-1"},
                                               {"path", "crane-4-plc", "customs-printer"},
                                               {"interfaces", "core-1", "--json"}}) {
    EXPECT_EQ(zntopoRun(call).out.find('\0'), std::string::npos) << call[0];
  }
}

TEST_P(CliAnswersTest, NeighborsShowsEachLinkFromTheNearSide) {
  const auto json = zntopoRun({"neighbors", "crane-4-plc", "--json"}).json();
  ASSERT_EQ(json["connections"].size(), 1u);
  const auto& connection = json["connections"][0];
  EXPECT_EQ(connection["source_node"], "crane-4-plc");
  EXPECT_EQ(connection["source_interface"], "eth0");
  EXPECT_EQ(connection["dest_node"], "access-1");
  EXPECT_EQ(connection["dest_interface"], "Gi1/0/7");
  // Two parallel links, and what the neighbours have among them.
  EXPECT_EQ(
      zntopoRun({"neighbors", "core-1", "--hops", "1", "--json"}).json()["connections"].size(), 6u);
}

TEST_P(CliAnswersTest, NeighborsAtTheCeilingShowsWhatWasFoundAndFails) {
  const CliResult result = zntopoRun({"neighbors", "core-1", "--max-nodes", "2", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_INCOMPLETE_NEIGHBOR_INFO");
  EXPECT_EQ(result.json()["connections"].size(), 1u);
}

TEST_P(CliAnswersTest, APathBetweenAddressesGoesFromInterfaceToInterface) {
  const auto json = zntopoRun({"path", "10.20.3.44", "10.20.8.17", "--json"}).json();
  EXPECT_EQ(json["hops"], 5);
  EXPECT_THAT(nodesOf(json), ElementsAre("crane-4-plc", "access-1", "dist-quay", "dist-office",
                                         "access-7", "customs-printer"));
  EXPECT_EQ(json["interfaces"].size(), 10u);
  EXPECT_EQ(json["interfaces"][0]["interface"], "eth0");
  EXPECT_EQ(json["interfaces"][0]["interface_id"].get<std::string>().size(), 36u);
}

TEST_P(CliAnswersTest, APathMayBeAskedByNamesWithBlanks) {
  const auto json = zntopoRun({"path", "harbor master pc", "10.20.3.44", "--json"}).json();
  EXPECT_EQ(json["hops"], 5);
  EXPECT_EQ(json["interfaces"][0]["node"], "harbor master pc");
  EXPECT_THAT(zntopoRun({"path", "harbor master pc", "access-7"}).out, HasSubstr("1 hop\n"));
}

TEST_P(CliAnswersTest, IPv6AddressesMayBeAskedInAnyForm) {
  const auto json =
      zntopoRun({"path", "2001:DB8:20:3::50", "2001:db8:20:8:0:0:0:11", "--json"}).json();
  EXPECT_EQ(json["status"]["code"], 0);
  EXPECT_EQ(json["interfaces"][0]["node"], "tally-desk-1");
}

TEST_P(CliAnswersTest, RoutersAreCrossedOnlyOnDemand) {
  const CliResult kept = zntopoRun({"path", "crane-4-plc", "srv-nms", "--json"});
  EXPECT_EQ(kept.status, 1);
  EXPECT_EQ(kept.json()["status"]["name"], "ZN_API_NO_PATH");
  EXPECT_THAT(kept.err, HasSubstr("--cross-routers"));
  EXPECT_EQ(kept.json()["hops"], 0);
  EXPECT_TRUE(kept.json()["interfaces"].empty());
  const auto crossed =
      zntopoRun({"path", "crane-4-plc", "srv-nms", "--cross-routers", "--json"}).json();
  EXPECT_EQ(crossed["hops"], 5);
  EXPECT_THAT(nodesOf(crossed), ElementsAre("crane-4-plc", "access-1", "dist-quay", "core-1",
                                            "dist-server", "srv-nms"));
  EXPECT_EQ(zntopoRun({"path", "crane-4-plc", "core-1", "--json"}).json()["hops"], 3);
}

TEST_P(CliAnswersTest, TheHopsOfAPathAreLimited) {
  EXPECT_EQ(zntopoRun({"path", "crane-4-plc", "customs-printer", "--max-hops", "4"}).status, 1);
  EXPECT_EQ(zntopoRun({"path", "crane-4-plc", "customs-printer", "--max-hops", "5"}).status, 0);
}

TEST_P(CliAnswersTest, ASecondAddressOfAnInterfaceIsFoundThroughItsOwner) {
  const CliResult result = zntopoRun({"path", "10.20.8.102", "10.20.8.17", "--json"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.json()["hops"], 2);
  EXPECT_EQ(result.json()["interfaces"][0]["node"], "harbor master pc");
  EXPECT_THAT(result.json()["note"].get<std::string>(), HasSubstr("which own them"));
  EXPECT_THAT(result.err, HasSubstr("harbor master pc"));
}

TEST_P(CliAnswersTest, AnAddressOfTwoDevicesIsNotUnique) {
  const CliResult result = zntopoRun({"path", "10.20.8.1", "10.20.8.17", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_NONUNIQUE_NAME");
}

TEST_P(CliAnswersTest, APathFromANodeToItselfCrossesNothing) {
  const auto json = zntopoRun({"path", "10.20.8.17", "10.20.8.17", "--json"}).json();
  EXPECT_EQ(json["hops"], 0);
  EXPECT_EQ(json["interfaces"].size(), 2u);
  EXPECT_EQ(zntopoRun({"path", "customs-printer", "customs-printer"}).out,
            "NODE             IN  OUT\ncustoms-printer\n0 hops\n");
}

TEST_P(CliAnswersTest, WhatTheStoreDoesNotHaveIsNullInJson) {
  const std::string more = R"({"networks": {"network": [{"network-id": "n", "node": [
      {"node-id": "bare"}]}]}})";
  ASSERT_EQ(zntopoRun({"import", write("more.json", more)}).status, 0);
  EXPECT_TRUE(zntopoRun({"node", "bare", "--json"}).json()["node"]["management_address"].is_null());
  EXPECT_THAT(zntopoRun({"node", "bare"}).out, HasSubstr("management_address  -\n"));
  const auto interface =
      zntopoRun({"interfaces", "customs-printer", "--json"}).json()["interfaces"][0];
  EXPECT_EQ(interface["if_name"], "eth0");
  EXPECT_TRUE(interface["alias"].is_null());
  EXPECT_TRUE(interface["description"].is_null());
}

TEST_P(CliAnswersTest, NodesOfOneNameAreToldApartByTheirZone) {
  EXPECT_THAT(zntopoRun({"nodes"}).out, Not(HasSubstr("ZONE")));
  for (const char* zone : {"lab-a", "lab-b"}) {
    ASSERT_EQ(zntopoRun({"import", "--zone", zone, samplePath()}).status, 0);
  }
  const CliResult nodes = zntopoRun({"nodes"});
  EXPECT_THAT(nodes.out, HasSubstr("ZONE"));
  EXPECT_THAT(nodes.out, HasSubstr("lab-a"));
  EXPECT_THAT(nodes.out, HasSubstr("72 nodes\n"));
  const CliResult many = zntopoRun({"node", "core-1"});
  EXPECT_EQ(many.status, 1);
  EXPECT_THAT(many.err, HasSubstr("  core-1  (zone lab-a)\n"));
  EXPECT_THAT(many.err, HasSubstr("  core-1  (zone lab-b)\n"));
  EXPECT_THAT(many.err, HasSubstr("  core-1\n"));
}

TEST_P(CliAnswersTest, NothingThatDisturbsATerminalIsShown) {
  const std::string name =
      "a\xc2\x9b[31m\xe2\x80\xae"
      "b";
  const auto network = nlohmann::json{
      {"networks", {{"network", {{{"network-id", "n"}, {"node", {{{"node-id", name}}}}}}}}}};
  ASSERT_EQ(zntopoRun({"import", write("more.json", network.dump())}).status, 0);
  EXPECT_EQ(zntopoRun({"node", name, "--json"}).json()["node"]["name"], name);
  for (const std::vector<std::string>& call : {std::vector<std::string>{"nodes"},
                                               {"node", name},
                                               {"interfaces", name},
                                               {"path", name, "core-1"},
                                               {"neighbors", name},
                                               {"node", name + "x"},
                                               {"nodes", "--store", "/nonexistent/" + name}}) {
    const CliResult result = zntopoRun(call);
    EXPECT_THAT(result.out + result.err, Not(HasSubstr("\xc2\x9b"))) << call[0];
    EXPECT_THAT(result.out + result.err, Not(HasSubstr("\xe2\x80\xae"))) << call[0];
  }
  EXPECT_THAT(zntopoRun({"nodes"}).out, HasSubstr("a?[31m?b"));
}

TEST_P(CliAnswersTest, InterfacesThatCantBeReadAreAFailureWithItsReason) {
  executeOn(store(), "alter table nwinterface rename to gone");
  for (const char* command : {"node", "interfaces"}) {
    const CliResult result = zntopoRun({command, "core-1", "--json"});
    EXPECT_EQ(result.status, 1) << command;
    EXPECT_NE(result.json()["status"]["code"], 0) << command;
    EXPECT_THAT(result.err, HasSubstr("nwinterface")) << command;
  }
}

TEST_P(CliAnswersTest, AddressesThatCantBeReadAreAFailureWithItsReason) {
  executeOn(store(), "alter table address rename to gone");
  const CliResult result = zntopoRun({"interfaces", "core-1"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("address"));
}

TEST_P(CliAnswersTest, AListThatARowWithoutANameCutsShortIsAFailureThatNamesTheRow) {
  const std::string id = answerOf({"node", "core-1"})["node"]["id"];
  executeOn(store(), "update nwnode set EntityName = '' where ObjId = '" + id + "'");
  const CliResult nodes = zntopoRun({"nodes", "--json"});
  EXPECT_EQ(nodes.status, 1);
  EXPECT_EQ(nodes.json()["status"]["name"], "ZN_API_SQL_FETCH_ERROR");
  EXPECT_LT(nodes.json()["nodes"].size(), 24U);
  EXPECT_THAT(nodes.err, HasSubstr("The list is not complete"));
  EXPECT_THAT(nodes.err, HasSubstr("\n  " + id + "\n"));
  // What does not reach for the row is whole.
  EXPECT_EQ(zntopoRun({"nodes", "--name", "access-*"}).status, 0);
  executeOn(store(), "update nwinterface set EntityName = null where NodeName = 'access-1'");
  const CliResult interfaces = zntopoRun({"interfaces", "access-1"});
  EXPECT_EQ(interfaces.status, 1);
  EXPECT_THAT(interfaces.err, HasSubstr("a row of nwinterface without a name"));
  EXPECT_EQ(zntopoRun({"interfaces", "access-2"}).status, 0);
}

TEST_P(CliAnswersTest, LogLinesNeverMixWithAnswers) {
  const CliResult quiet = zntopoRun({"path", "crane-4-plc", "customs-printer", "--json"});
  const CliResult loud =
      zntopoRun({"path", "crane-4-plc", "customs-printer", "--json"}, {"MC_DLEVEL=0"});
  EXPECT_EQ(loud.status, 0);
  EXPECT_EQ(loud.out, quiet.out);
  EXPECT_THAT(loud.err, HasSubstr("getNodesByObjIDList"));
  EXPECT_EQ(quiet.err, "");
}

ZNTOPO_ON_ENGINES(CliAnswersTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
