#include "tools/export/Rfc8345Writer.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/tools/export/ReadStored.h"
#include "tests/tools/import/Rfc8345Text.h"

namespace zntopo::tools {
namespace {

std::string textOf(const NetworkModel& model, NetworkReport& report) {
  std::ostringstream out;
  writeRfc8345(model, out, report);
  return out.str();
}

std::string textOf(const NetworkModel& model) {
  NetworkReport report;
  return textOf(model, report);
}

NodeModel nodeOf(const std::string& id, const std::string& name, std::size_t interfaces) {
  NodeModel node;
  node.id = node.key = id;
  node.name = name;
  for (std::size_t i = 0; i < interfaces; ++i) {
    InterfaceModel interface;
    interface.id = interface.key = id + "-" + std::to_string(i);
    interface.name = "e" + std::to_string(i);
    node.interfaces.push_back(interface);
  }
  return node;
}

TEST(Rfc8345WriterTest, AnEmptyNetworkIsADocumentToo) {
  const auto json = nlohmann::json::parse(textOf({}));
  EXPECT_EQ(json["ietf-network:networks"]["network"].size(), 1u);
  EXPECT_TRUE(test::Rfc8345Read(textOf({})).model.nodes.empty());
}

TEST(Rfc8345WriterTest, NodesAndInterfacesOfOneNameStayApart) {
  NetworkModel model;
  model.nodes = {nodeOf("a", "twin", 1), nodeOf("b", "twin", 2)};
  model.nodes[1].interfaces[1].name = "e0";
  model.addLink({0, 0}, {1, 1});
  const test::Rfc8345Read read(textOf(model));
  ASSERT_EQ(read.model.nodes.size(), 2u);
  for (Index i = 0; i < 2; ++i) {
    EXPECT_EQ(read.model.nodes[i].name, "twin");
    EXPECT_EQ(read.model.nodes[i].id, model.nodes[i].id);
  }
  EXPECT_EQ(read.model.nodes[1].interfaces[1].name, "e0");
  ASSERT_EQ(read.model.links.size(), 1u);
  EXPECT_EQ(read.model.at(read.model.links[0].right).id, "b-1");
}

TEST(Rfc8345WriterTest, VlansOfOneNumberStandInNetworksOfTheirOwn) {
  NetworkModel model;
  model.nodes = {nodeOf("a", "sw", 2)};
  for (const char* id : {"first", "second", "third"}) {
    VlanModel vlan;
    vlan.id = vlan.key = vlan.name = id;
    vlan.number = 10;
    model.vlans.push_back(vlan);
  }
  model.nodes[0].interfaces[0].vlans = {0, 1};
  model.nodes[0].interfaces[1].vlans = {2};
  const std::string text = textOf(model);
  EXPECT_EQ(nlohmann::json::parse(text)["ietf-network:networks"]["network"].size(), 3u);
  const test::Rfc8345Read read(text);
  ASSERT_EQ(read.model.vlans.size(), 3u);
  ASSERT_EQ(read.model.nodes.size(), 1u);
  ASSERT_EQ(read.model.nodes[0].interfaces.size(), 2u);
  std::set<std::string> first, second;
  for (const Index i : read.model.nodes[0].interfaces[0].vlans)
    first.insert(read.model.vlans[i].id);
  for (const Index i : read.model.nodes[0].interfaces[1].vlans)
    second.insert(read.model.vlans[i].id);
  EXPECT_EQ(first, (std::set<std::string>{"first", "second"}));
  EXPECT_EQ(second, (std::set<std::string>{"third"}));
}

TEST(Rfc8345WriterTest, AVlanWithoutANumberIsCounted) {
  NetworkModel model;
  model.nodes = {nodeOf("a", "sw", 1)};
  model.vlans.emplace_back().name = "nameless";
  NetworkReport report;
  test::Rfc8345Read read(textOf(model, report));
  EXPECT_TRUE(read.model.vlans.empty());
  ASSERT_EQ(report.notes().size(), 1u);
  EXPECT_EQ(report.notes()[0].firstWhere, "nameless");
}

TEST(Rfc8345WriterTest, NumbersThatJsonMayChangeAreTexts) {
  NetworkModel model;
  model.nodes = {nodeOf("a", "n", 0)};
  model.nodes[0].variables = {{"float", 0.1F}, {"huge", 3.4e38F}, {"long", 2147483647LL}};
  const std::string text = textOf(model);
  EXPECT_THAT(text, testing::HasSubstr(R"("float-value":"0.1")"));
  const test::Rfc8345Read read(text);
  EXPECT_EQ(std::get<float>(read.model.nodes[0].variables[0].value), 0.1F);
  EXPECT_EQ(std::get<float>(read.model.nodes[0].variables[1].value), 3.4e38F);
  EXPECT_EQ(std::get<long long>(read.model.nodes[0].variables[2].value), 2147483647LL);
}

TEST(Rfc8345WriterTest, HostileNamesAreReadBackWithoutWhatNamesMayNotHave) {
  const StoredNetwork network = test::hostileNetwork();
  const test::Rfc8345Read read(textOf(network.model));
  ASSERT_EQ(read.model.nodes.size(), network.model.nodes.size());
  EXPECT_EQ(read.model.links.size(), network.model.links.size());
  for (Index i = 0; i < read.model.nodes.size(); ++i) {
    const std::string& name = network.model.nodes[i].name;
    const bool isFit = nameFault(name).empty();
    if (isFit) {
      EXPECT_EQ(read.model.nodes[i].name, name);
    }
    EXPECT_EQ(nameFault(read.model.nodes[i].name), "") << i;
    EXPECT_EQ(read.model.nodes[i].id, network.model.nodes[i].id);
  }
}

}  // namespace
}  // namespace zntopo::tools
