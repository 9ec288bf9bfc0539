#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::bench {

/// The subnets of a store as arrays, and a walk over them hop by hop: the floor of subnet
/// connectivity. Nodes and subnets are numbers here, those of subnets in the order of their
/// identifiers; names are looked up in a hash table.
class FlatSubnets {
 public:
  /// Throws std::runtime_error.
  explicit FlatSubnets(TvDbil::DbConnection_t& connection);

  /// The identifiers of the nodes that are of IPv6 alone, in their order.
  const std::vector<std::string>& startNodes() const { return startNodes_; }
  /// The subnets within so many hops of a node, in order. Throws for an unknown node.
  std::vector<int> within(const std::string& node, int hops);
  const std::string& subnetID(int number) const {
    return subnets_[static_cast<std::size_t>(number)];
  }

 private:
  /// Lists of numbers, one behind the other.
  struct Lists {
    explicit Lists(const std::vector<std::vector<int>>& lists);
    const int* begin(int number) const { return &entries[first[static_cast<std::size_t>(number)]]; }
    const int* end(int number) const { return begin(number + 1); }

    std::vector<std::size_t> first;
    std::vector<int> entries;
  };

  /// What the rows of a store tell, before it is flat.
  struct Memberships {
    std::unordered_map<std::string, int> numbers;
    std::vector<std::string> subnets;
    std::vector<std::vector<int>> subnetsOfNodes;
    std::vector<std::vector<int>> nodesOfSubnets;
  };

  FlatSubnets(TvDbil::DbConnection_t& connection, const Memberships& memberships);
  static Memberships readMemberships(TvDbil::DbConnection_t& connection);

  std::unordered_map<std::string, int> numbers_;
  std::vector<std::string> subnets_;
  std::vector<std::string> startNodes_;
  /// By IPv6 addresses alone; what lies on a subnet counts whatever its address.
  Lists subnetsOf_;
  Lists nodesOn_;

  // Working storage, kept from walk to walk.
  int walk_ = 0;
  std::vector<int> nodeMarks_;
  std::vector<int> subnetMarks_;
  std::vector<int> ring_;
  std::vector<int> nextRing_;
};

}  // namespace zntopo::bench
