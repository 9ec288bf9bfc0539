#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

/// The groups of a kind: each leaf has one of its own.
std::set<ObjID> groupIDs(const Size& size, std::string (*idOf)(int)) {
  std::set<ObjID> ids;
  for (int i = 1; i <= size.leaves; ++i) ids.insert(ObjID(idOf(i)));
  return ids;
}

/// Containers outlive a cleared cache and have a size of their own: each run begins without any,
/// so that it costs the same in all states of the cache.
void forgetContainers(const Desk& desk) {
  for (const ObjID& id : groupIDs(desk.size, containerID)) desk.impl.getTopoCache()->removeIfc(id);
}

template <typename Ask>
Answer asked(const Ask& ask, const Desk& desk, std::string (*idOf)(int), bool all) {
  std::set<ObjID> notFound;
  return many([&](ZNTopoAPIStatus& status) {
    return ask(all ? std::set<ObjID>() : groupIDs(desk.size, idOf), notFound, status, all);
  });
}

Answer askVlans(const Desk& desk, bool all) {
  return asked(
      [&](const auto& ids, auto& notFound, auto& status, bool everything) {
        return desk.api.getVlansByObjIDList(ids, notFound, status, everything, -1);
      },
      desk, vlanID, all);
}
Answer askHSRPs(const Desk& desk, bool all) {
  return asked(
      [&](const auto& ids, auto& notFound, auto& status, bool everything) {
        return desk.api.getHSRPsByObjIDList(ids, notFound, status, everything, -1);
      },
      desk, hsrpID, all);
}
Answer askContainers(const Desk& desk, bool all) {
  forgetContainers(desk);
  return asked(
      [&](const auto& ids, auto& notFound, auto& status, bool everything) {
        return desk.api.getIfcsByObjIDList(ids, notFound, status, everything, -1);
      },
      desk, containerID, all);
}
Answer askSubnets(const Desk& desk, bool all) {
  return asked(
      [&](const auto& ids, auto& /*notFound*/, auto& status, bool everything) {
        return desk.api.getSubnetsByObjIDList(ids, status, false, everything, ZNEntity::AllProtocol,
                                              -1);
      },
      desk, subnetID, all);
}

// The entities, and what they hold.
constexpr Cost kTwo = kStatement * 2;
// The VLAN loader asks for the engine's vendor in a holder of its own, and takes batches.
constexpr Cost kVlanMembers{1, 2};
constexpr Cost kVlan = kStatement + kVlanMembers;
constexpr Cost vlans(const Size& size) { return kStatement + kVlanMembers * batches(size.leaves); }
// All at once: the entities, the members, the variables.
constexpr Cost kAllVlans = kStatement * 3;
// Two statements for each container, and the members in batches or all at once.
constexpr Cost containers(int number) { return kStatement * (1 + 2 * number); }
constexpr Cost allContainers(const Size& size) { return containers(size.leaves) + kStatement; }

constexpr Formula kTwoCold = [](const Size&) { return kState + kTwo; };
constexpr Formula kTwoAlways = [](const Size&) { return kTwo; };

constexpr Operation kOperations[] = {
    {"getSubnetByObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getSubnetByObjID(ObjID(subnetID(1)), status);
       });
     },
     kOne, Growth::None, kTwoCold, kTwoAlways, kTwoAlways},
    {"getSubnetByQRMObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getSubnetByQRMObjID(ObjID(3001), status);
       });
     },
     kOne, Growth::None, kTwoCold, kTwoAlways, kTwoAlways},
    {"getSubnetsByObjIDList", [](const Desk& desk) { return askSubnets(desk, false); }, kLeaves,
     Growth::None, kTwoCold, kTwoAlways, kTwoAlways},
    {"getSubnetsByObjIDList of all subnets",
     [](const Desk& desk) { return askSubnets(desk, true); }, kLeaves, Growth::None, kTwoCold,
     kTwoAlways, kTwoAlways},
    {"getVlanByObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getVlanByObjID(ObjID(vlanID(1)), status);
       });
     },
     kOne, Growth::None, [](const Size&) { return kState + kVlan; }, kNothing,
     [](const Size&) { return kVlan; }},
    {"getVlansByObjIDList", [](const Desk& desk) { return askVlans(desk, false); }, kLeaves,
     Growth::Batches, [](const Size& size) { return kState + vlans(size); }, kNothing,
     [](const Size& size) { return vlans(size); }},
    {"getVlansByObjIDList of all VLANs", [](const Desk& desk) { return askVlans(desk, true); },
     kLeaves, Growth::None, [](const Size&) { return kState + kAllVlans; }, kNothing,
     [](const Size&) { return kAllVlans; }, Whole::Part},
    // It is looked for among the nodes, interfaces, HSRP groups and subnets first.
    {"getEntityByObjID of a VLAN",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getEntityByObjID(ObjID(vlanID(1)), status);
       });
     },
     kOne, Growth::None, [](const Size&) { return kState + kStatement * 4 + kVlan; },
     [](const Size&) { return kStatement * 4; },
     [](const Size&) { return kStatement * 4 + kVlan; }},
    {"getHSRPsByObjIDList", [](const Desk& desk) { return askHSRPs(desk, false); }, kLeaves,
     Growth::None, kTwoCold, kNothing, kTwoAlways},
    {"getHSRPsByObjIDList of all groups", [](const Desk& desk) { return askHSRPs(desk, true); },
     kLeaves, Growth::None, kTwoCold, kNothing, kTwoAlways, Whole::Part},
    {"getHSRPObjIDsByIFAddressObjID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto ids = desk.api.getHSRPObjIDsByIFAddressObjID(ObjID(accessID(Part::Leaf, 1)),
                                                               ZNTopoAPI::HSRP_Interface, status);
       return sorted(status, {ids->begin(), ids->end()});
     },
     kOne, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getIfcByObjID",
     [](const Desk& desk) {
       forgetContainers(desk);
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getIfcByObjID(ObjID(containerID(1)), status);
       });
     },
     kOne, Growth::None, [](const Size&) { return kState + containers(1) + kStatement; },
     [](const Size&) { return containers(1) + kStatement; },
     [](const Size&) { return containers(1) + kStatement; }},
    {"getIfcsByObjIDList", [](const Desk& desk) { return askContainers(desk, false); }, kLeaves,
     Growth::Exceptional,
     [](const Size& size) {
       return kState + containers(size.leaves) + kStatement * batches(size.leaves);
     },
     [](const Size& size) { return containers(size.leaves) + kStatement * batches(size.leaves); },
     [](const Size& size) { return containers(size.leaves) + kStatement * batches(size.leaves); }},
    {"getIfcsByObjIDList of all containers",
     [](const Desk& desk) { return askContainers(desk, true); }, kLeaves, Growth::Exceptional,
     [](const Size& size) { return kState + allContainers(size); }, allContainers, allContainers,
     Whole::Part},
    {"getIfcsByType",
     [](const Desk& desk) {
       forgetContainers(desk);
       return many([&](ZNTopoAPIStatus& status) { return desk.api.getIfcsByType(5, status, -1); });
     },
     kLeaves, Growth::Exceptional, [](const Size& size) { return kState + allContainers(size); },
     allContainers, allContainers, Whole::Part},
};

}  // namespace

std::span<const Operation> groupOperations() { return kOperations; }

}  // namespace zntopo::test
