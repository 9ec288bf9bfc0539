// Walks and paths over random networks agree with a plain breadth-first walk.

#include <map>
#include <random>

#include "tests/connectivity/Network.h"

namespace zntopo::test {
namespace {

/// A network by numbers of nodes. Node kGhost has no row.
struct Graph {
  static constexpr int kGhost = 99;

  struct Link {
    int left;
    int right;
    std::string leftInterface;
    std::string rightInterface;
  };

  int nodes = 0;
  std::set<int> routers;
  std::vector<Link> links;

  static std::string id(int node) { return uuid(node, 'a'); }
  static std::string ip(int node) { return "10.0.0." + std::to_string(node + 1); }
  static std::string home(int node) { return uuid(node, 'b'); }

  std::vector<int> neighbors(int node) const {
    std::vector<int> found;
    for (const Link& link : links) {
      if (link.left == node && link.right != kGhost) found.push_back(link.right);
      if (link.right == node && link.left != kGhost) found.push_back(link.left);
    }
    return found;
  }

  /// Links from a node to each that can be reached; routers are passed if they may be.
  std::map<int, int> distances(int from, bool toCrossRouter) const {
    std::map<int, int> distance = {{from, 0}};
    std::list<int> waiting = {from};
    for (; !waiting.empty(); waiting.pop_front()) {
      const int node = waiting.front();
      if (node != from && !toCrossRouter && routers.count(node)) continue;
      for (const int next : neighbors(node)) {
        if (distance.emplace(next, distance[node] + 1).second) waiting.push_back(next);
      }
    }
    return distance;
  }

  bool isConnected(int node) const {
    return std::any_of(links.begin(), links.end(),
                       [&](const Link& link) { return link.left == node || link.right == node; });
  }
};

Graph randomGraph(unsigned seed, int nodes, int links) {
  std::mt19937 random(seed);
  const auto below = [&](int limit) { return static_cast<int>(random() % limit); };
  Graph graph;
  graph.nodes = nodes;
  for (int i = 0; i < nodes; ++i) {
    if (below(4) == 0) graph.routers.insert(i);
  }
  for (int i = 0; i < links; ++i) {
    int left = below(nodes);
    int right = below(12) == 0 ? Graph::kGhost : below(nodes);
    if (left == right) continue;
    if (below(2) == 0) std::swap(left, right);
    graph.links.push_back({left, right, uuid(2 * i, 'c'), uuid(2 * i + 1, 'c')});
  }
  return graph;
}

void fill(TestStore& store, const Graph& graph) {
  for (int i = 0; i < graph.nodes; ++i) {
    store.addNode(Graph::id(i), nameOf("node" + std::to_string(i)),
                  {{"isIPV4Router", graph.routers.count(i) ? 1 : 0}});
    store.addInterface(Graph::home(i), Graph::id(i), "home", {{"hasAddress", 1}});
    store.addAddress(uuid(i, 'd'), Graph::home(i), Graph::id(i), Graph::ip(i));
  }
  for (const Graph::Link& link : graph.links) {
    store.addInterface(link.leftInterface, Graph::id(link.left), "if", {{"isL2Connected", 1}});
    store.addInterface(link.rightInterface, Graph::id(link.right), "if", {{"isL2Connected", 1}});
    store.addLink(link.leftInterface, link.rightInterface, Graph::id(link.left),
                  Graph::id(link.right));
  }
}

class RandomNetworksTest : public ConnectivityTest {
 protected:
  void fillWith(unsigned seed, int nodes = 9, int links = 12) {
    for (const char* table : {"nwinterfaceasc", "address", "nwinterface", "nwnode", "nwentity"}) {
      store->execute(std::string("delete from ") + table);
    }
    ZNTopoAPI_Impl::cache()->clear(true);
    graph = randomGraph(seed, nodes, links);
    fill(*store, graph);
  }

  /// Runs a body on networks, with a cache that keeps no node and with one that keeps all. What a
  /// search reads without a cache costs a server much, so there the networks are small.
  template <typename Body>
  void onEach(std::initializer_list<unsigned> seeds, const Body& body) {
    for (const unsigned seed : seeds) {
      for (const int cached : {0, 100}) {
        SCOPED_TRACE("network " + std::to_string(seed) + ", " + std::to_string(cached) + " cached");
        const bool isSmall = cached == 0 && store->isPostgres();
        isSmall ? fillWith(seed, 5, 6) : fillWith(seed);
        ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(cached);
        body();
      }
    }
  }

  /// The links of a path exist, and there are as many as the walk over the graph says.
  void expectPath(const std::list<ZNRefPtr<ZNInterface>>& path, int from, int to, int distance) {
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.front()->getParentObjID(), ObjID(Graph::id(from)));
    EXPECT_EQ(path.back()->getParentObjID(), ObjID(Graph::id(to)));
    int crossed = 0;
    for (auto here = path.begin(), next = std::next(here); next != path.end(); here = next++) {
      if ((*here)->getParentObjID() == (*next)->getParentObjID()) continue;
      ++crossed;
      EXPECT_TRUE(isLink((*here)->getObjID(), (*next)->getObjID()));
    }
    EXPECT_EQ(crossed, distance);
  }
  bool isLink(const ObjID& one, const ObjID& other) const {
    return std::any_of(graph.links.begin(), graph.links.end(), [&](const Graph::Link& link) {
      const ObjID left(link.leftInterface);
      const ObjID right(link.rightInterface);
      return (left == one && right == other) || (left == other && right == one);
    });
  }

  /// What a pair of nodes gives within a depth; 0 links for no path.
  void checkPair(int from, int to, const std::map<int, int>& distances, int depth, bool cross) {
    const auto found = distances.find(to);
    const bool isReachable = found != distances.end() && found->second <= depth;
    const auto byAddress =
        api.getL2Path(Graph::ip(from), Graph::ip(to), depth, status, ZNAddress::IPv4, cross);
    EXPECT_EQ(status.isOK(), isReachable);
    if (isReachable) {
      expectPath(*byAddress, from, to, found->second);
      EXPECT_EQ(byAddress->front()->getObjID(), ObjID(Graph::home(from)));
      EXPECT_EQ(byAddress->back()->getObjID(), ObjID(Graph::home(to)));
    } else {
      EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
      EXPECT_TRUE(byAddress->empty());
    }
    const auto byName = api.getL2PathBetweenNodes(nameOf("node" + std::to_string(from)),
                                                  nameOf("node" + std::to_string(to)), depth,
                                                  status, ZNAddress::IPv4, cross);
    const bool isConnected = graph.isConnected(from) && graph.isConnected(to);
    EXPECT_EQ(status.isOK(), isReachable && isConnected);
    if (isReachable && isConnected) {
      expectPath(*byName, from, to, found->second);
    } else {
      EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
    }
  }

  Graph graph;
};

TEST_P(RandomNetworksTest, PathsHaveTheLinksOfABreadthFirstWalk) {
  onEach({1, 2, 3}, [this] {
    for (int from = 0; from < graph.nodes; ++from) {
      for (const bool cross : {false, true}) {
        const auto distances = graph.distances(from, cross);
        for (int to = 0; to < graph.nodes; ++to) {
          SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to) +
                       (cross ? " across routers" : ""));
          checkPair(from, to, distances, (from + to) % 2 ? 100 : 2, cross);
        }
      }
    }
  });
}

TEST_P(RandomNetworksTest, NeighboursAreTheLinksWithinTheBreadthFirstRings) {
  for (const unsigned seed : {11u, 12u, 13u}) {
    SCOPED_TRACE(seed);
    fillWith(seed);
    for (int from = 0; from < graph.nodes; ++from) {
      const auto distances = graph.distances(from, true);
      for (const int hops : {1, 2, 3, 20}) {
        std::vector<std::string> expected;
        for (const Graph::Link& link : graph.links) {
          const auto left = distances.find(link.left);
          const auto right = distances.find(link.right);
          if (left == distances.end() || right == distances.end()) continue;
          if (left->second > hops || right->second > hops) continue;
          expected.push_back(link.leftInterface + "-" + link.rightInterface);
        }
        EXPECT_THAT(textsOf(*api.getNodeNeighbors(nameOf("node" + std::to_string(from)), status,
                                                  hops, 1000)),
                    testing::UnorderedElementsAreArray(expected))
            << from << " within " << hops;
        EXPECT_TRUE(status.isOK());
      }
    }
  }
}

ZNTOPO_ON_ENGINES(RandomNetworksTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
