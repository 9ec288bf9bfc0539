#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

constexpr int kDepth = 50;

std::string lastHop(const Size& size) { return nodeName(Part::Hop, size.hops); }

Answer neighbors(const Desk& desk, const std::string& name, int hops) {
  ZNTopoAPIStatus status;
  const auto connections = desk.api.getNodeNeighbors(name, status, hops, 100000);
  return sorted(status, textsOf(*connections));
}

/// The connections around nodes; between these alone without the hop.
Answer around(const Desk& desk, const std::set<ObjID>& nodes, bool includeHop) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto connections = desk.api.getConnectivity(nodes, notFound, status, includeHop, false);
  return sorted(status, textsOf(*connections));
}

std::set<ObjID> hubAndLeaves(const Size& size) {
  std::set<ObjID> ids = leafIDs(size);
  ids.insert(ObjID(nodeID(Part::Hub)));
  return ids;
}

Answer subnetsAroundGate(const Desk& desk, int hops) {
  ZNTopoAPIStatus status;
  const auto ids = desk.api.getNSubnetConnectivity(hops, ObjID(gateID()), ZNTopoFilter(), status);
  std::vector<std::string> texts;
  for (const ObjID& id : *ids) texts.push_back(id.getStrValue());
  return {status.getStatus(), std::move(texts)};
}

/// A path keeps its order.
template <typename Ask>
Answer inOrder(const Ask& ask) {
  const auto [status, path] = asked(ask);
  return {status.getStatus(), idsOf(*path)};
}

// A path enters and leaves each node between its ends.
constexpr auto kPathItems = [](const Size& size) { return 2 * (size.hops + 1); };
// And it has the two interfaces that own the addresses.
constexpr auto kAddressedPathItems = [](const Size& size) { return 2 * (size.hops + 1) + 2; };

/// From the first leaf to the end of the chain: the hub, the ring around it, and the chain as far
/// as the node before the last, whose link shows the end.
constexpr Cost searchCost(const Size& size) {
  return kNodes + leafNodes(size) * batches(size.leaves) + kNodes * (size.hops - 2);
}
/// The leaf and the end of the chain by their names.
constexpr Cost endsCost(const Size& size) { return kStatement * 2 + leafNodes(size) + kNodes; }
/// Without a cache the way back reads a node for each level of the search, the last one's end
/// among them, and the writing of the path one for each link.
constexpr Cost wayBackUncached(const Size& size) {
  return kNodes * (size.hops + 1) + variables(size) + kNodes * (size.hops + 1);
}
/// The two interfaces of each link, but for the very first; one of them owns an address.
constexpr Cost pathInterfacesUncached(const Size& size) {
  return kStatement * (2 * size.hops + 1) + kAddresses;
}
/// The first one, where the path does not begin with it; it has variables.
constexpr Cost firstInterfaceUncached(const Size& size) { return kStatement + variables(size); }
/// The interface with the address is found through all interfaces of its node.
constexpr Cost addressOwners(const Size& size) {
  return (kStatement + kAddresses) * 2 + variables(size);
}

/// A subnet and its end points: subnets are not kept, so each is read whenever it is met.
constexpr Cost kSubnet = kStatement * 2;
/// A node with its interfaces and their addresses, all read on their own.
constexpr Cost kNodeOnSubnets = kNodes + kStatement + kAddresses;
/// The gate lies on all subnets, and each of these leads to a host.
constexpr Cost oneSubnetHop(const Size& size) { return kNodeOnSubnets + kSubnet * size.leaves; }
constexpr Cost twoSubnetHops(const Size& size) {
  return oneSubnetHop(size) + (kSubnet + kNodeOnSubnets) * size.leaves;
}

constexpr Operation kOperations[] = {
    {"getNodeNeighbors of the hub, one hop",
     [](const Desk& desk) { return neighbors(desk, nodeName(Part::Hub), 1); },
     [](const Size& size) { return size.ring(); }, Growth::Batches,
     [](const Size& size) {
       return kState + kStatement + kNodes + leafNodes(size) * batches(size.ring());
     },
     kOneStatement,
     [](const Size& size) { return kStatement + kNodes + leafNodes(size) * batches(size.ring()); },
     Whole::Part},
    {"getNodeNeighbors of the end of the chain, up to the hub",
     [](const Desk& desk) { return neighbors(desk, lastHop(desk.size), desk.size.hops); },
     [](const Size& size) { return size.hops; }, Growth::Hops,
     [](const Size& size) { return kState + kStatement + kNodes * (size.hops + 1); }, kOneStatement,
     [](const Size& size) { return kStatement + kNodes * (size.hops + 1); }, Whole::Part},
    {"getL2Path",
     [](const Desk& desk) {
       return inOrder([&](ZNTopoAPIStatus& status) {
         return desk.api.getL2Path(leafAddress(1), kFarAddress, kDepth, status, ZNAddress::IPv4,
                                   false);
       });
     },
     kAddressedPathItems, Growth::Hops,
     // The ends' own interfaces come with the search for the addresses.
     [](const Size& size) {
       return kState + endsCost(size) + addressOwners(size) + searchCost(size) +
              kStatement * (2 * size.hops) + kAddresses;
     },
     [](const Size&) { return kStatement * 2; },
     [](const Size& size) {
       return endsCost(size) + addressOwners(size) + kAddresses * 2 + searchCost(size) +
              wayBackUncached(size) + firstInterfaceUncached(size) + pathInterfacesUncached(size);
     },
     Whole::OrNoPath},
    {"getL2PathBetweenNodes",
     [](const Desk& desk) {
       return inOrder([&](ZNTopoAPIStatus& status) {
         return desk.api.getL2PathBetweenNodes(nodeName(Part::Leaf), lastHop(desk.size), kDepth,
                                               status, ZNAddress::IPv4, false);
       });
     },
     kPathItems, Growth::Hops,
     [](const Size& size) {
       return kState + endsCost(size) + kStatement * 2 + variables(size) + searchCost(size) +
              kStatement * (2 * size.hops) + kAddresses;
     },
     [](const Size&) { return kStatement * 2; },
     [](const Size& size) {
       return endsCost(size) + kStatement * 2 + variables(size) + searchCost(size) +
              wayBackUncached(size) + pathInterfacesUncached(size);
     },
     Whole::OrNoPath},
    // Each pair of connected interfaces is tried with a search of its own.
    {"getL2PathBetweenNodes without a path",
     [](const Desk& desk) {
       return inOrder([&](ZNTopoAPIStatus& status) {
         return desk.api.getL2PathBetweenNodes(nodeName(Part::Hub), nodeName(Part::Isle), 1, status,
                                               ZNAddress::IPv4, false);
       });
     },
     kNone, Growth::Exceptional,
     [](const Size& size) {
       return kState + (kStatement + kNodes) * 2 +
              (kStatement + kAddresses) * batches(size.ring()) + kStatement +
              leafNodes(size) * batches(size.ring());
     },
     [](const Size&) { return kStatement * 2; },
     [](const Size& size) {
       return (kStatement + kNodes) * 2 + (kStatement + kAddresses) * batches(size.ring()) +
              kStatement + leafNodes(size) * batches(size.ring()) * size.ring();
     }},
    {"getConnectivity of the hub",
     [](const Desk& desk) { return around(desk, {ObjID(nodeID(Part::Hub))}, true); },
     [](const Size& size) { return size.ring(); }, Growth::Batches,
     [](const Size& size) { return kState + kNodes + leafNodes(size) * batches(size.ring()); },
     kNothing, [](const Size& size) { return kNodes + leafNodes(size) * batches(size.ring()); },
     Whole::Part},
    {"getConnectivity between the hub and its leaves",
     [](const Desk& desk) { return around(desk, hubAndLeaves(desk.size), false); }, kLeaves,
     Growth::Batches,
     [](const Size& size) { return kState + leafNodes(size) * batches(size.leaves + 1); }, kNothing,
     [](const Size& size) { return leafNodes(size) * batches(size.leaves + 1); }, Whole::Part},
    {"getNSubnetConnectivity", [](const Desk& desk) { return subnetsAroundGate(desk, 1); }, kLeaves,
     Growth::Exceptional, [](const Size& size) { return kState + oneSubnetHop(size); },
     [](const Size& size) { return kSubnet * size.leaves; },
     // Interfaces that are not kept don't keep their addresses either.
     [](const Size& size) { return oneSubnetHop(size) + kAddresses; }},
    {"getNSubnetConnectivity of two hops",
     [](const Desk& desk) { return subnetsAroundGate(desk, 2); }, kLeaves, Growth::Exceptional,
     [](const Size& size) { return kState + twoSubnetHops(size); },
     [](const Size& size) { return kSubnet * 2 * size.leaves; },
     [](const Size& size) { return twoSubnetHops(size) + kAddresses * (1 + size.leaves); }},
    {"convertPathInterfaceListToConnDataList",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const std::list<ZNRefPtr<ZNInterface>> path = {
           madeInterface(ObjID("a1"), ObjID("a")), madeInterface(ObjID("b1"), ObjID("b")),
           madeInterface(ObjID("b2"), ObjID("b")), madeInterface(ObjID("c1"), ObjID("c"))};
       const auto links = desk.api.convertPathInterfaceListToConnDataList(path, status);
       return Answer{status.getStatus(), std::vector<std::string>(links->size(), "link")};
     },
     [](const Size&) { return 2; }, Growth::None, kNothing, kNothing, kNothing},
};

}  // namespace

std::span<const Operation> connectivityOperations() { return kOperations; }

}  // namespace zntopo::test
