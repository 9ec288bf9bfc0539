// The walk over subnets on random IPv6 networks agrees with a plain one, hop by hop.

#include <random>

#include "tests/connectivity/V6Network.h"

namespace zntopo::test {
namespace {

/// A network by numbers of nodes and subnets. Some have no row.
struct Graph {
  struct Subnet {
    int scope;
    int level;
    bool hasRow;
  };
  struct Node {
    int level;
    bool hasRow;
    std::set<int> subnets;
  };

  std::vector<Node> nodes;
  std::vector<Subnet> subnets;

  static std::string nodeID(int node) { return uuid(node, 'a'); }
  static std::string subnetID(int subnet) { return uuid(subnet, 'b'); }

  bool passes(int number, const ZNTopoFilter& filter) const {
    const Subnet& subnet = subnets[number];
    if (!subnet.hasRow) return false;
    if (!filter.isFieldIgnored(ZNTopoFilter::F_IPLevel) && subnet.level != filter.getIPLevel()) {
      return false;
    }
    return filter.isFieldIgnored(ZNTopoFilter::F_V6ScopeType) ||
           subnet.scope == filter.getV6ScopeType();
  }

  /// One hop: the subnets of the nodes, and then the nodes on these.
  void hop(std::set<int>& reachedNodes, std::set<int>& reachedSubnets,
           const ZNTopoFilter& filter) const {
    for (const int node : reachedNodes) {
      for (const int subnet : nodes[node].subnets) {
        if (passes(subnet, filter)) reachedSubnets.insert(subnet);
      }
    }
    for (std::size_t node = 0; node < nodes.size(); ++node) {
      for (const int subnet : nodes[node].subnets) {
        if (nodes[node].hasRow && reachedSubnets.contains(subnet)) {
          reachedNodes.insert(static_cast<int>(node));
        }
      }
    }
  }
};

Graph randomGraph(unsigned seed, int nodes, int subnets, int attachments) {
  std::mt19937 random(seed);
  const auto below = [&](int limit) { return static_cast<int>(random() % limit); };
  Graph graph;
  for (int i = 0; i < nodes; ++i) graph.nodes.push_back({below(5) ? 6 : 4, below(8) != 0, {}});
  for (int i = 0; i < subnets; ++i) {
    graph.subnets.push_back({below(3) ? 3 : 1 + below(2), below(5) ? 6 : 4, below(8) != 0});
  }
  for (int i = 0; i < attachments; ++i) graph.nodes[below(nodes)].subnets.insert(below(subnets));
  return graph;
}

void fill(TestStore& store, const Graph& graph) {
  V6Network network(store);
  int interfaces = 0;
  for (std::size_t i = 0; i < graph.subnets.size(); ++i) {
    const Graph::Subnet& subnet = graph.subnets[i];
    const std::string id = Graph::subnetID(static_cast<int>(i));
    if (!subnet.hasRow) continue;
    store.addEntity(id, "net", 7, {{"IPLevel", subnet.level}, {"hasAddress", 1}});
    network.address(uuid(static_cast<int>(i), 'c'), id, id,
                    {{"isSubnet", 1}, {"V6ScopeType", subnet.scope}});
  }
  for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
    const Graph::Node& node = graph.nodes[i];
    const std::string id = Graph::nodeID(static_cast<int>(i));
    if (node.hasRow) network.node(id, node.level);
    std::string interface;
    for (const int subnet : node.subnets) {
      // Every other one shares the interface of the one before.
      if (interface.empty() || interfaces % 2 == 0) {
        interface = uuid(interfaces, 'd');
        store.addInterface(interface, id, "if", {{"hasAddress", 1}});
      }
      network.address(uuid(interfaces++, 'e'), interface, Graph::subnetID(subnet));
    }
  }
}

class RandomSubnetsTest : public V6ConnectivityTest {
 protected:
  static constexpr int kNodes = 16;
  static constexpr int kSubnets = 14;
  static constexpr int kAttachments = 30;

  void fillWith(unsigned seed) {
    for (const char* table : {"address", "nwinterface", "nwnode", "nwentity"}) {
      store->execute(std::string("delete from ") + table);
    }
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    ZNTopoAPI_Impl::cache()->clear(true);
    graph = randomGraph(seed, kNodes, kSubnets, kAttachments);
    fill(*store, graph);
  }

  /// Returns how many hops brought something new.
  int checkFrom(int start, const ZNTopoFilter& filter) {
    std::set<int> reachedNodes = {start};
    std::set<int> reached;
    int growing = 0;
    for (int hops = 1; hops <= 5; ++hops) {
      SCOPED_TRACE("from " + std::to_string(start) + " within " + std::to_string(hops));
      const std::size_t before = reached.size();
      graph.hop(reachedNodes, reached, filter);
      growing += reached.size() > before;
      std::list<std::string> expected;
      for (const int subnet : reached) expected.push_back(Graph::subnetID(subnet));
      EXPECT_THAT(subnets(Graph::nodeID(start), hops, filter), testing::ElementsAreArray(expected));
      EXPECT_TRUE(status.isOK());
    }
    return growing;
  }

  Graph graph;
};
ZNTOPO_ON_ENGINES(RandomSubnetsTest, kMainEngines);

TEST_P(RandomSubnetsTest, EveryHopGivesTheSubnetsOfAPlainWalk) {
  ZNTopoFilter both = ofScope(InetAddressIPv6::Global);
  both.setIPLevel(ZNEntity::IPv6);
  const ZNTopoFilter filters[] = {anySubnet(), ofScope(InetAddressIPv6::Global),
                                  ofLevel(ZNEntity::IPv6), both};
  int farthest = 0;
  for (const unsigned seed : {1u, 2u}) {
    SCOPED_TRACE(seed);
    fillWith(seed);
    for (const ZNTopoFilter& filter : filters) {
      for (int start = 0; start < kNodes; start += 5) {
        if (!graph.nodes[start].hasRow || graph.nodes[start].level != 6) continue;
        farthest = std::max(farthest, checkFrom(start, filter));
      }
    }
  }
  // The networks are such that later hops matter.
  EXPECT_GE(farthest, 3);
}

}  // namespace
}  // namespace zntopo::test
