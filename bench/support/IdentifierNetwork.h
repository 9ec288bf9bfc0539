#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/support/FlatNetwork.h"

namespace zntopo::bench {

/// The same links under identifiers of 16 bytes, in ordered containers: what a walk costs that
/// is asked with identifiers and answers with identifiers, before anything is logged, locked or
/// counted. It tells how much of the library's distance from the floor is its data's shape.
class IdentifierNetwork {
 public:
  struct Link {
    PlainID nearInterface;
    PlainID farInterface;
    PlainID nearNode;
    PlainID farNode;
  };

  /// Throws std::runtime_error.
  explicit IdentifierNetwork(TvDbil::DbConnection_t& connection);

  /// As FlatNetwork does.
  std::vector<PlainID> path(const PlainID& from, const PlainID& to, int maxDepth) const;
  std::vector<std::pair<PlainID, PlainID>> neighbors(const PlainID& from, int hops) const;

 private:
  std::map<PlainID, std::vector<Link>> nodes_;
};

}  // namespace zntopo::bench
