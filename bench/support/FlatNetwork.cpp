#include "bench/support/FlatNetwork.h"

#include <algorithm>

#include "bench/support/LinkRows.h"
#include "zntopo/core/ObjID.h"

namespace zntopo::bench {

PlainID plainID(const std::string& text) {
  PlainID id{};
  int digits = 0;
  for (const char c : text) {
    if (c == '-') continue;
    const unsigned digit = static_cast<unsigned>(c <= '9' ? c - '0' : c - 'a' + 10);
    id[digits < 16 ? 0 : 1] |= std::uint64_t{digit} << (60 - 4 * (digits % 16));
    ++digits;
  }
  return id;
}

FlatNetwork::FlatNetwork(TvDbil::DbConnection_t& connection) {
  for (const auto& row : readNodeNames(connection)) {
    const int number = nodeCount();
    nodes_.push_back(row.texts[NodeName_ID]);
    byName_.emplace(row.texts[NodeName_ID], number);
    byName_.emplace(row.texts[NodeName_Address], number);
  }
  const auto rows = readLinks(connection);
  std::unordered_map<std::string, int> numbers;
  std::vector<std::vector<Link>> lists(nodes_.size());
  for (const auto& row : rows) {
    const int left = find(row.texts[Link_LeftNode]);
    const int right = find(row.texts[Link_RightNode]);
    const int leftInterface = interfaceNumber(row.texts[Link_LeftInterface], numbers);
    const int rightInterface = interfaceNumber(row.texts[Link_RightInterface], numbers);
    lists[static_cast<std::size_t>(left)].push_back({right, leftInterface, rightInterface});
    lists[static_cast<std::size_t>(right)].push_back({left, rightInterface, leftInterface});
  }
  for (const std::vector<Link>& list : lists) {
    first_.push_back(links_.size());
    links_.insert(links_.end(), list.begin(), list.end());
  }
  first_.push_back(links_.size());
  links_.push_back({});  // begin() of the number behind the last one may be taken
  marks_.assign(nodes_.size(), 0);
  queue_.reserve(nodes_.size());
  via_.resize(nodes_.size());
  parent_.resize(nodes_.size());
}

int FlatNetwork::interfaceNumber(const std::string& id,
                                 std::unordered_map<std::string, int>& numbers) {
  const auto [entry, isNew] = numbers.emplace(id, static_cast<int>(interfaces_.size()));
  if (isNew) interfaces_.push_back(id);
  return entry->second;
}

std::vector<int> FlatNetwork::path(const std::string& from, const std::string& to, int maxDepth) {
  const int start = find(from);
  const int target = find(to);
  ++walk_;
  queue_.assign(1, start);
  visit(start);
  std::size_t next = 0;
  for (int depth = 0; depth < maxDepth && next < queue_.size(); ++depth) {
    for (const std::size_t ringEnd = queue_.size(); next < ringEnd; ++next) {
      const int node = queue_[next];
      for (const Link* link = begin(node); link != end(node); ++link) {
        if (!visit(link->farNode)) continue;
        via_[static_cast<std::size_t>(link->farNode)] = link;
        parent_[static_cast<std::size_t>(link->farNode)] = node;
        queue_.push_back(link->farNode);
        if (link->farNode != target) continue;
        std::vector<int> interfaces;
        for (int at = target; at != start; at = parent_[static_cast<std::size_t>(at)]) {
          interfaces.push_back(via_[static_cast<std::size_t>(at)]->farInterface);
          interfaces.push_back(via_[static_cast<std::size_t>(at)]->nearInterface);
        }
        std::reverse(interfaces.begin(), interfaces.end());
        return interfaces;
      }
    }
  }
  return {};
}

std::vector<std::pair<int, int>> FlatNetwork::neighbors(const std::string& from, int hops) {
  ++walk_;
  queue_.assign(1, find(from));
  visit(queue_.front());
  std::size_t next = 0;
  for (int depth = 0; depth < hops && next < queue_.size(); ++depth) {
    for (const std::size_t ringEnd = queue_.size(); next < ringEnd; ++next) {
      const int node = queue_[next];
      for (const Link* link = begin(node); link != end(node); ++link) {
        if (visit(link->farNode)) queue_.push_back(link->farNode);
      }
    }
  }
  std::vector<std::pair<int, int>> links;
  for (const int node : queue_) {
    for (const Link* link = begin(node); link != end(node); ++link) {
      // Each link from the interface with the lower number.
      if (marks_[static_cast<std::size_t>(link->farNode)] == walk_ &&
          link->nearInterface < link->farInterface) {
        links.emplace_back(link->nearInterface, link->farInterface);
      }
    }
  }
  return links;
}

}  // namespace zntopo::bench
