#include "tools/network/NetworkModel.h"

#include <gtest/gtest.h>

#include "tools/network/NameUuid.h"

namespace zntopo::tools {
namespace {

/// A network of nodes with one interface each.
NetworkModel network(std::size_t nodes) {
  NetworkModel model;
  for (std::size_t i = 0; i < nodes; ++i) {
    NodeModel node;
    node.key = "node" + std::to_string(i);
    InterfaceModel interface;
    interface.key = node.key + "/eth0";
    node.interfaces.push_back(interface);
    model.nodes.push_back(node);
  }
  return model;
}

void addAddress(NetworkModel& model, Index node, const std::string& text,
                std::optional<int> length) {
  model.nodes[node].interfaces[0].addresses.push_back(
      {*IpAddress::parse(text), length, length.has_value(), {}});
}

std::optional<Index> subnetOf(const NetworkModel& model, Index node, std::size_t address = 0) {
  return model.nodes[node].interfaces[0].addresses[address].subnet;
}

TEST(NetworkModelTest, ALinkIsKeptOnceWhicheverWayRound) {
  NetworkModel model = network(2);
  EXPECT_TRUE(model.addLink({0, 0}, {1, 0}));
  EXPECT_FALSE(model.addLink({1, 0}, {0, 0}));
  EXPECT_FALSE(model.addLink({0, 0}, {1, 0}));
  EXPECT_EQ(model.links.size(), 1u);
}

TEST(NetworkModelTest, AddressesOfOnePrefixShareItsSubnet) {
  NetworkModel model = network(3);
  addAddress(model, 0, "10.1.2.3", 24);
  addAddress(model, 1, "10.1.2.4", 24);
  addAddress(model, 2, "10.1.2.5", 25);
  model.assignSubnets();
  ASSERT_EQ(model.subnets.size(), 2u);
  EXPECT_EQ(subnetOf(model, 0), subnetOf(model, 1));
  EXPECT_EQ(model.subnets[*subnetOf(model, 0)].name, "10.1.2.0/24");
  EXPECT_EQ(model.subnets[*subnetOf(model, 2)].name, "10.1.2.0/25");
}

TEST(NetworkModelTest, IPv4HostsLoopbacksAndUnknownLengthsHaveNoSubnet) {
  NetworkModel model = network(1);
  addAddress(model, 0, "10.1.2.3", 32);
  addAddress(model, 0, "127.0.0.1", 8);
  addAddress(model, 0, "10.1.2.4", std::nullopt);
  model.assignSubnets();
  EXPECT_TRUE(model.subnets.empty());
}

TEST(NetworkModelTest, LinkLocalAddressesShareASubnetWithTheOtherEndOfTheirWireAlone) {
  NetworkModel model = network(4);
  for (Index node = 0; node < 4; ++node) addAddress(model, node, "fe80::1", std::nullopt);
  model.addLink({1, 0}, {0, 0});
  model.assignSubnets();
  EXPECT_EQ(subnetOf(model, 0), subnetOf(model, 1));
  EXPECT_NE(subnetOf(model, 0), subnetOf(model, 2));
  EXPECT_NE(subnetOf(model, 2), subnetOf(model, 3));
  EXPECT_EQ(model.nodes[0].interfaces[0].addresses[0].prefixLength, 64);
}

TEST(NetworkModelTest, EveryIPv6AddressHasASubnet) {
  NetworkModel model = network(2);
  addAddress(model, 0, "2001:db8::1", std::nullopt);
  addAddress(model, 0, "::1", 128);
  addAddress(model, 1, "::1", 128);
  model.assignSubnets();
  ASSERT_TRUE(subnetOf(model, 0));
  EXPECT_EQ(model.subnets[*subnetOf(model, 0)].name, "2001:db8::1/128");
  EXPECT_TRUE(subnetOf(model, 0, 1));
  EXPECT_NE(subnetOf(model, 0, 1), subnetOf(model, 1));
}

TEST(NetworkModelTest, AVlanTakesTheFirstNameThatIsThere) {
  NetworkModel model;
  EXPECT_EQ(model.vlanOf("a", "", 10), model.vlanOf("a", "office", 10));
  EXPECT_EQ(model.vlanOf("a", "other", 10), 0u);
  EXPECT_EQ(model.vlans[0].name, "office");
}

TEST(NameUuidTest, IdentifiersHangOnTheKeyAlone) {
  EXPECT_EQ(nameUuid("node\nnet\ncore-1"), nameUuid("node\nnet\ncore-1"));
  EXPECT_NE(nameUuid("node\nnet\ncore-1"), nameUuid("node\nnet\ncore-2"));
  // Stores that were filled before hold this one: the name space must not change.
  EXPECT_EQ(nameUuid("node\nnet\ncore-1"), "a0ef8ba2-dbe2-5134-9a2c-9535f5a77b20");
}

TEST(NameUuidTest, IdentifiersAreUuidsOfVersionFiveInLowerCase) {
  const std::string id = nameUuid("x");
  ASSERT_EQ(id.size(), 36u);
  EXPECT_EQ(id[14], '5');
  EXPECT_EQ(id.find_first_not_of("0123456789abcdef-"), std::string::npos);
}

}  // namespace
}  // namespace zntopo::tools
