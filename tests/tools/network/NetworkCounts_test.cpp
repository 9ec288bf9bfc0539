#include "tools/network/NetworkCounts.h"

#include <gtest/gtest.h>

namespace zntopo::tools {
namespace {

/// Two linked nodes with an address, a subnet and a VLAN; the second node has a key of its own.
NetworkModel pairOf(const std::string& second) {
  NetworkModel model;
  for (const std::string& key : {std::string("a"), second}) {
    InterfaceModel interface;
    interface.key = key + "/1";
    interface.addresses.push_back({*IpAddress::parse("10.0.0.1"), 24, true, {}});
    NodeModel node;
    node.key = key;
    node.interfaces.push_back(interface);
    model.nodes.push_back(node);
  }
  model.vlanOf("v", "v", 1);
  model.addLink({0, 0}, {1, 0});
  model.assignSubnets();
  return model;
}

TEST(NetworkCountsTest, EachKindIsCounted) {
  const NetworkCounts counts = countNetworks({pairOf("b")});
  EXPECT_EQ(counts.nodes, 2u);
  EXPECT_EQ(counts.interfaces, 2u);
  EXPECT_EQ(counts.addresses, 2u);
  EXPECT_EQ(counts.subnets, 1u);
  EXPECT_EQ(counts.vlans, 1u);
  EXPECT_EQ(counts.links, 1u);
}

TEST(NetworkCountsTest, WhatStandsInTwoNetworksIsOne) {
  const NetworkCounts counts = countNetworks({pairOf("b"), pairOf("b"), pairOf("c")});
  EXPECT_EQ(counts.nodes, 3u);
  EXPECT_EQ(counts.interfaces, 3u);
  EXPECT_EQ(counts.addresses, 3u);
  EXPECT_EQ(counts.subnets, 1u);
  EXPECT_EQ(counts.vlans, 1u);
  EXPECT_EQ(counts.links, 2u);
}

TEST(NetworkCountsTest, GroupsAreCountedByTheirKeysAndAssociationsByTheirEnds) {
  NetworkModel model = pairOf("b");
  model.meshes.emplace_back().key = "m";
  for (const char* key : {"g", "h", "g"}) model.hsrpGroups.emplace_back().key = key;
  for (const char* key : {"c", "d"}) model.containers.emplace_back().key = key;
  for (const int relation : {1, 2, 1}) {
    AssociationModel& one = model.associations.emplace_back();
    one.right = 1;
    one.relation = relation;
  }
  const NetworkCounts counts = countNetworks({model, model});
  EXPECT_EQ(counts.meshes, 1u);
  EXPECT_EQ(counts.hsrpGroups, 2u);
  EXPECT_EQ(counts.containers, 2u);
  EXPECT_EQ(counts.associations, 2u);
}

}  // namespace
}  // namespace zntopo::tools
