#include "bench/support/IdentifierNetwork.h"

#include <algorithm>
#include <set>

#include "bench/support/LinkRows.h"

namespace zntopo::bench {

IdentifierNetwork::IdentifierNetwork(TvDbil::DbConnection_t& connection) {
  for (const auto& row : readLinks(connection)) {
    const PlainID leftInterface = plainID(row.texts[Link_LeftInterface]);
    const PlainID rightInterface = plainID(row.texts[Link_RightInterface]);
    const PlainID left = plainID(row.texts[Link_LeftNode]);
    const PlainID right = plainID(row.texts[Link_RightNode]);
    nodes_[left].push_back({leftInterface, rightInterface, left, right});
    nodes_[right].push_back({rightInterface, leftInterface, right, left});
  }
}

std::vector<PlainID> IdentifierNetwork::path(const PlainID& from, const PlainID& to,
                                             int maxDepth) const {
  std::map<PlainID, const Link*> reached = {{from, nullptr}};
  std::vector<PlainID> ring = {from};
  for (int depth = 0; depth < maxDepth && !ring.empty(); ++depth) {
    std::vector<PlainID> newRing;
    for (const PlainID& node : ring) {
      for (const Link& link : nodes_.at(node)) {
        if (!reached.emplace(link.farNode, &link).second) continue;
        newRing.push_back(link.farNode);
        if (link.farNode != to) continue;
        std::vector<PlainID> interfaces;
        for (PlainID at = to; at != from; at = reached.at(at)->nearNode) {
          interfaces.push_back(reached.at(at)->farInterface);
          interfaces.push_back(reached.at(at)->nearInterface);
        }
        std::reverse(interfaces.begin(), interfaces.end());
        return interfaces;
      }
    }
    ring = std::move(newRing);
  }
  return {};
}

std::vector<std::pair<PlainID, PlainID>> IdentifierNetwork::neighbors(const PlainID& from,
                                                                      int hops) const {
  std::set<PlainID> reached = {from};
  std::vector<PlainID> ring = {from};
  for (int depth = 0; depth < hops && !ring.empty(); ++depth) {
    std::vector<PlainID> newRing;
    for (const PlainID& node : ring) {
      for (const Link& link : nodes_.at(node)) {
        if (reached.insert(link.farNode).second) newRing.push_back(link.farNode);
      }
    }
    ring = std::move(newRing);
  }
  std::vector<std::pair<PlainID, PlainID>> links;
  for (const PlainID& node : reached) {
    for (const Link& link : nodes_.at(node)) {
      if (link.nearInterface < link.farInterface && reached.contains(link.farNode)) {
        links.emplace_back(link.nearInterface, link.farInterface);
      }
    }
  }
  return links;
}

}  // namespace zntopo::bench
