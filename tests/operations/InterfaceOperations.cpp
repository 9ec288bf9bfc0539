#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

std::string down(int leafNumber) { return downID(Part::Leaf, leafNumber); }
std::string up(int leafNumber) { return upID(Part::Leaf, leafNumber); }

/// The hub's interfaces to its leaves: each owns an address.
std::set<ObjID> downIDs(const Size& size) {
  std::set<ObjID> ids;
  for (int i = 1; i <= size.leaves; ++i) ids.insert(ObjID(down(i)));
  return ids;
}

constexpr Cost kInterfaces = kStatement + kAddresses;

// An interface of the hub's, with its address; by a name or an address it is looked up first.
constexpr Formula kInterfaceCold = [](const Size&) { return kState + kInterfaces; };
constexpr Formula kInterface = [](const Size&) { return kInterfaces; };
constexpr Formula kFoundInterfaceCold = [](const Size&) {
  return kState + kStatement + kInterfaces;
};
constexpr Formula kFoundInterface = [](const Size&) { return kStatement + kInterfaces; };

constexpr Operation kOperations[] = {
    {"getInterfaceByObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfaceByObjID(ObjID(down(1)), status);
       });
     },
     kOne, Growth::None, kInterfaceCold, kNothing, kInterface},
    {"getInterfaceByObjID with user variables",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfaceByObjID(ObjID(up(1)), status);
       });
     },
     kOne, Growth::None, [](const Size& size) { return kState + kStatement + variables(size); },
     kNothing, [](const Size& size) { return kStatement + variables(size); }},
    {"getInterfacesByObjIDList",
     [](const Desk& desk) {
       std::set<ObjID> notFound;
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfacesByObjIDList(downIDs(desk.size), notFound, status, false,
                                                  false);
       });
     },
     kLeaves, Growth::Batches,
     [](const Size& size) { return kState + kInterfaces * batches(size.leaves); }, kNothing,
     [](const Size& size) { return kInterfaces * batches(size.leaves); }},
    {"getInterfacesByObjIDList by legacy identifiers",
     [](const Desk& desk) {
       std::set<ObjID> ids;
       for (int i = 1; i <= desk.size.leaves; ++i) ids.insert(ObjID(std::to_string(2000 + i)));
       std::set<ObjID> notFound;
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfacesByObjIDList(ids, notFound, status, true, false);
       });
     },
     kLeaves, Growth::Batches,
     [](const Size& size) { return kState + kInterfaces * batches(size.leaves); }, kNothing,
     [](const Size& size) { return kInterfaces * batches(size.leaves); }},
    {"getInterfacesByObjIDList of all connected interfaces",
     [](const Desk& desk) {
       std::set<ObjID> notFound;
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfacesByObjIDList({}, notFound, status, false, true);
       });
     },
     [](const Size& size) { return size.connectedInterfaces(); }, Growth::Exceptional,
     [](const Size& size) { return kState + kInterfaces + allVariables(size); },
     [](const Size& size) { return kInterfaces + allVariables(size); },
     [](const Size& size) { return kInterfaces + allVariables(size); }},
    {"getInterfacesByNodeObjIDList",
     [](const Desk& desk) {
       return many([&](ZNTopoAPIStatus& status) {
         return desk.impl.getInterfacesByNodeObjIDList(listOf(leafIDs(desk.size)), status);
       });
     },
     // A link and an access interface each, and the one with the IPv6 address.
     [](const Size& size) { return 2 * size.leaves + 1; }, Growth::Exceptional,
     [](const Size& size) { return kState + kInterfaces + allVariables(size); },
     [](const Size& size) { return kInterfaces + allVariables(size); },
     [](const Size& size) { return kInterfaces + allVariables(size); }},
    {"getInterfaceIDsByNodeObjIDList",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.impl.getInterfaceIDsByNodeObjIDList(listOf(leafIDs(desk.size)), status);
       });
     },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getInterfaceByIfName",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfaceByIfName(down(1), nodeID(Part::Hub), status);
       });
     },
     kOne, Growth::None, kFoundInterfaceCold, kOneStatement, kFoundInterface},
    {"getInterfaceByIPV4",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getInterfaceByIPV4(hubAddress(1), status, -1);
       });
     },
     kOne, Growth::None, kFoundInterfaceCold, kOneStatement, kFoundInterface},
    // It is looked for among the nodes first, and the cache does not remember what is none.
    {"getEntityByObjID of an interface",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getEntityByObjID(ObjID(down(1)), status);
       });
     },
     kOne, Growth::None, kFoundInterfaceCold, kOneStatement, kFoundInterface},
    {"getMeshID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const ObjID mesh = desk.impl.getMeshID(ObjID(down(1)), status);
       return Answer{status.getStatus(),
                     mesh.isNull() ? std::vector<std::string>() : std::vector<std::string>{mesh}};
     },
     kNone, Growth::None, kOneStatement, kOneStatement, kOneStatement},
};

}  // namespace

std::span<const Operation> interfaceOperations() { return kOperations; }

}  // namespace zntopo::test
