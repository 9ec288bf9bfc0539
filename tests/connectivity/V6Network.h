#pragma once

#include <string>

#include "tests/connectivity/Network.h"
#include "tests/support/AttributeFilters.h"

/// @file
/// IPv6 networks in a store for the tests of subnet connectivity.

namespace zntopo::test {

/// A filter that ignores all fields.
inline ZNTopoFilter anySubnet() { return {}; }

/// Fills a store. The interface of a node on a subnet is called "node/subnet", its address
/// "node/subnet/address".
class V6Network {
 public:
  explicit V6Network(TestStore& store) : store_(store) {}

  void node(const std::string& id, int level = ZNEntity::IPv6) {
    store_.addNode(id, nameOf(id), {{"IPLevel", level}});
  }
  /// A subnet with an address row of its own, which tells its scope.
  void subnet(const std::string& id, int scope = InetAddressIPv6::Global,
              int level = ZNEntity::IPv6) {
    store_.addEntity(id, id, 7, {{"IPLevel", level}, {"hasAddress", 1}});
    address(id + "/own", id, id, {{"isSubnet", 1}, {"V6ScopeType", scope}});
  }
  /// Puts a node on a subnet.
  void attach(const std::string& node, const std::string& subnet, const Values& more = {}) {
    const std::string interface = node + "/" + subnet;
    store_.addInterface(interface, node, interface, {{"hasAddress", 1}});
    address(interface + "/address", interface, subnet, more);
  }
  /// Nodes, each with a subnet between it and the next one: "a", "a-b", "b", ...
  void chain(const std::vector<std::string>& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      node(nodes[i]);
      if (i == 0) continue;
      const std::string between = nodes[i - 1] + "-" + nodes[i];
      subnet(between);
      attach(nodes[i - 1], between);
      attach(nodes[i], between);
    }
  }
  /// An IPv6 address of an owner.
  void address(const std::string& id, const std::string& owner, const Value& subnet,
               const Values& more = {}) {
    Values row = {{"AddressType", 2},           {"IPLevel", 6},         {"V4Address", nullptr},
                  {"V6ScopeType", 3},           {"PrefixLength", 64},   {"PubV4Address", nullptr},
                  {"V6Address", "2001:db8::1"}, {"SubnetObjId", subnet}};
    for (const auto& [name, value] : more) row.insert_or_assign(name, value);
    store_.addAddress(id, owner, owner, "", row);
  }

 private:
  TestStore& store_;
};

/// A ready store for IPv6 nodes that are read anew each time.
class V6ConnectivityTest : public ConnectivityTest {
 protected:
  void SetUp() override {
    ConnectivityTest::SetUp();
    if (store) v6.emplace(*store);
  }

  std::vector<std::string> subnets(const std::string& node, int hops,
                                   const ZNTopoFilter& filter = anySubnet()) {
    const auto found = api.getNSubnetConnectivity(hops, ObjID(node), filter, status);
    std::vector<std::string> ids;
    for (const ObjID& id : *found) ids.push_back(id.getStrValue());
    return ids;
  }

  std::optional<V6Network> v6;
};

}  // namespace zntopo::test
