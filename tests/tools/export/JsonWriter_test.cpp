#include "tools/export/JsonWriter.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "tests/tools/export/ReadStored.h"

namespace zntopo::tools {
namespace {

using nlohmann::json;

json jsonOf(const StoredNetwork& network) {
  std::ostringstream out;
  writeNetworkJson(network, out);
  return json::parse(out.str());
}

class JsonWriterTest : public test::StoredNetworkTest {
 protected:
  json sample() {
    write(test::networkOf(test::samplePath()));
    return jsonOf(read());
  }
};

const json& named(const json& list, const std::string& name) {
  for (const json& one : list) {
    if (one["name"] == name) return one;
  }
  throw std::runtime_error("there is no " + name);
}

TEST_P(JsonWriterTest, TheSampleNetworkIsThereAsAWhole) {
  const json network = sample();
  EXPECT_EQ(network["version"], 1);
  EXPECT_EQ(network["nodes"].size(), 24u);
  EXPECT_EQ(network["links"].size(), 30u);
  EXPECT_EQ(network["subnets"].size(), 23u);
  EXPECT_EQ(network["vlans"].size(), 5u);
  EXPECT_EQ(network["hsrp_groups"].size(), 5u);
  const json& border = named(network["nodes"], "border-1");
  EXPECT_EQ(border["kind"], "router");
  EXPECT_EQ(border["status"], "normal");
  EXPECT_EQ(border["properties"]["softwareVersion"], "17.9.4");
  const json& port = named(border["interfaces"], "Gi0/0/1");
  EXPECT_EQ(port["speed"], 1000000000);
  EXPECT_EQ(port["oper_state"], "up");
}

TEST_P(JsonWriterTest, ReferencesLeadToObjectsOfTheFile) {
  const json network = sample();
  std::set<std::string> interfaces, groups;
  for (const json& node : network["nodes"]) {
    for (const json& one : node["interfaces"]) interfaces.insert(one["id"]);
  }
  for (const char* list : {"subnets", "vlans"}) {
    for (const json& one : network[list]) groups.insert(one["id"]);
  }
  for (const json& link : network["links"]) {
    EXPECT_TRUE(interfaces.contains(link["source"]["interface"]));
    EXPECT_TRUE(interfaces.contains(link["target"]["interface"]));
  }
  std::size_t count = 0;
  for (const json& node : network["nodes"]) {
    for (const json& one : node["interfaces"]) {
      for (const json& vlan : one["vlans"]) EXPECT_TRUE(groups.contains(vlan));
      for (const json& address : one["addresses"]) {
        if (address["subnet"].is_null()) continue;
        EXPECT_TRUE(groups.contains(address["subnet"]));
        ++count;
      }
    }
  }
  EXPECT_GT(count, 50u);
}

/// The names of members at any depth, those apart whose names are data.
void collect(const json& value, std::set<std::string>& names) {
  for (const auto& [name, inner] : value.items()) {
    if (value.is_object()) names.insert(name);
    if (name != "user_variables" && name != "properties" && inner.is_structured()) {
      collect(inner, names);
    }
  }
}

TEST_P(JsonWriterTest, TheDocumentationHasEveryMember) {
  std::set<std::string> names, documented;
  collect(sample(), names);
  const std::string page = test::contentOf(test::inSourceTree("docs/export.md"));
  static const std::regex member("`([a-z0-9_]+)`");
  for (std::sregex_iterator at(page.begin(), page.end(), member), end; at != end; ++at) {
    documented.insert((*at)[1]);
  }
  for (const std::string& name : names) EXPECT_TRUE(documented.contains(name)) << name;
}

ZNTOPO_ON_ENGINES(JsonWriterTest, test::kMainEngines);

TEST(JsonWriterTest, HostileNamesStandAsTheyAreButForBytesThatAreNoUtf8) {
  const StoredNetwork network = test::hostileNetwork();
  const json after = jsonOf(network);
  ASSERT_EQ(after["nodes"].size(), network.model.nodes.size());
  for (std::size_t i = 0; i < after["nodes"].size(); ++i) {
    const std::string name = after["nodes"][i]["name"];
    if (network.model.nodes[i].name[0] == '\xff') {
      EXPECT_EQ(name, "\xef\xbf\xbd\xef\xbf\xbd not utf-8");
    } else {
      EXPECT_EQ(name, network.model.nodes[i].name);
    }
  }
}

TEST(JsonWriterTest, AnEmptyNetworkHasEmptyLists) {
  const json network = jsonOf({});
  EXPECT_TRUE(network["nodes"].empty() && network["nodes"].is_array());
}

}  // namespace
}  // namespace zntopo::tools
