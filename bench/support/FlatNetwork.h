#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::bench {

/// An identifier as a value of 16 bytes.
using PlainID = std::array<std::uint64_t, 2>;

PlainID plainID(const std::string& text);

/// The layer-2 links of a store as arrays, and a breadth-first walk over them: the floor of the
/// walks. Nodes and interfaces are numbers here; names are looked up in a hash table.
class FlatNetwork {
 public:
  /// One end of a link, seen from its node.
  struct Link {
    int farNode;
    int nearInterface;
    int farInterface;
  };

  /// Throws std::runtime_error.
  explicit FlatNetwork(TvDbil::DbConnection_t& connection);

  int nodeCount() const { return static_cast<int>(nodes_.size()); }
  const std::string& nodeID(int node) const { return nodes_[static_cast<std::size_t>(node)]; }
  /// The number of a node by its identifier or by its management address; throws without one.
  int find(const std::string& name) const { return byName_.at(name); }
  /// The links of the node that a number stands for.
  const Link* begin(int node) const { return &links_[first_[static_cast<std::size_t>(node)]]; }
  const Link* end(int node) const { return begin(node + 1); }
  const std::string& interfaceID(int number) const {
    return interfaces_[static_cast<std::size_t>(number)];
  }

  /// The interfaces on a shortest path, two for each link; empty without a path.
  std::vector<int> path(const std::string& from, const std::string& to, int maxDepth);
  /// The links between the nodes that are at most so many hops away, each once, as pairs of
  /// interfaces.
  std::vector<std::pair<int, int>> neighbors(const std::string& from, int hops);

 private:
  int interfaceNumber(const std::string& id, std::unordered_map<std::string, int>& numbers);
  bool visit(int node) {
    int& mark = marks_[static_cast<std::size_t>(node)];
    if (mark == walk_) return false;
    mark = walk_;
    return true;
  }

  std::vector<std::string> nodes_;
  std::vector<std::string> interfaces_;
  std::unordered_map<std::string, int> byName_;
  std::vector<std::size_t> first_;
  std::vector<Link> links_;

  // Working storage, kept from walk to walk.
  int walk_ = 0;
  std::vector<int> marks_;
  std::vector<int> queue_;
  std::vector<const Link*> via_;
  std::vector<int> parent_;
};

}  // namespace zntopo::bench
