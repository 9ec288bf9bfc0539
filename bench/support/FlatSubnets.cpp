#include "bench/support/FlatSubnets.h"

#include <algorithm>

#include "bench/support/PlainRead.h"

namespace zntopo::bench {

namespace {

constexpr Column kIDColumns[] = {textColumn("ObjId", 37)};
constexpr Column kMemberColumns[] = {textColumn("NodeObjID", 37), textColumn("SubnetObjId", 37),
                                     intColumn("AddressType")};

constexpr char kSubnets[] = "select ObjId from nwentity where EntityType = 7 order by ObjId";
constexpr char kNodes[] = "select ObjId from nwnode order by ObjId";
constexpr char kStartNodes[] = "select ObjId from nwnode where IPLevel = 6 order by ObjId";
constexpr char kMembers[] =
    "select i.NodeObjID, a.SubnetObjId, a.AddressType from address a, nwinterface i "
    "where a.ObjId = i.ObjId and a.SubnetObjId is not null and a.SubnetObjId <> a.ObjId";
constexpr int kIPv6 = 2;

std::vector<std::string> readIDs(TvDbil::DbConnection_t& connection, const char* sql) {
  std::vector<std::string> ids;
  for (auto& row : readPlain<kIDColumns>(connection, sql)) ids.push_back(std::move(row.texts[0]));
  return ids;
}

bool mark(std::vector<int>& marks, int number, int walk) {
  int& mark = marks[static_cast<std::size_t>(number)];
  if (mark == walk) return false;
  mark = walk;
  return true;
}

}  // namespace

FlatSubnets::Lists::Lists(const std::vector<std::vector<int>>& lists) {
  for (const std::vector<int>& list : lists) {
    first.push_back(entries.size());
    entries.insert(entries.end(), list.begin(), list.end());
  }
  first.push_back(entries.size());
  entries.push_back(0);  // begin() of the number behind the last one may be taken
}

FlatSubnets::Memberships FlatSubnets::readMemberships(TvDbil::DbConnection_t& connection) {
  Memberships result;
  result.subnets = readIDs(connection, kSubnets);
  const std::vector<std::string> nodes = readIDs(connection, kNodes);
  for (const auto& ids : {result.subnets, nodes}) {
    int number = 0;
    for (const std::string& id : ids) result.numbers.emplace(id, number++);
  }
  result.nodesOfSubnets.resize(result.subnets.size());
  result.subnetsOfNodes.resize(nodes.size());
  for (const auto& row : readPlain<kMemberColumns>(connection, kMembers)) {
    const int node = result.numbers.at(row.texts[0]);
    const int subnet = result.numbers.at(row.texts[1]);
    result.nodesOfSubnets[static_cast<std::size_t>(subnet)].push_back(node);
    if (row.numbers[0] != kIPv6) continue;
    result.subnetsOfNodes[static_cast<std::size_t>(node)].push_back(subnet);
  }
  return result;
}

FlatSubnets::FlatSubnets(TvDbil::DbConnection_t& connection)
    : FlatSubnets(connection, readMemberships(connection)) {}

FlatSubnets::FlatSubnets(TvDbil::DbConnection_t& connection, const Memberships& memberships)
    : numbers_(memberships.numbers),
      subnets_(memberships.subnets),
      startNodes_(readIDs(connection, kStartNodes)),
      subnetsOf_(memberships.subnetsOfNodes),
      nodesOn_(memberships.nodesOfSubnets),
      nodeMarks_(memberships.subnetsOfNodes.size()),
      subnetMarks_(memberships.nodesOfSubnets.size()) {}

std::vector<int> FlatSubnets::within(const std::string& node, int hops) {
  ++walk_;
  std::vector<int> found;
  ring_.assign(1, numbers_.at(node));
  mark(nodeMarks_, ring_.front(), walk_);
  for (int hop = 0; hop < hops && !ring_.empty(); ++hop) {
    nextRing_.clear();
    for (const int here : ring_) {
      for (const int* subnet = subnetsOf_.begin(here); subnet != subnetsOf_.end(here); ++subnet) {
        if (!mark(subnetMarks_, *subnet, walk_)) continue;
        found.push_back(*subnet);
        for (const int* next = nodesOn_.begin(*subnet); next != nodesOn_.end(*subnet); ++next) {
          if (mark(nodeMarks_, *next, walk_)) nextRing_.push_back(*next);
        }
      }
    }
    ring_.swap(nextRing_);
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace zntopo::bench
