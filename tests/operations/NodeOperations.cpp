#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

Answer byName(const Desk& desk, const std::string& name, int rd = -1) {
  return one([&](ZNTopoAPIStatus& status) { return desk.api.getNodeByName(name, status, rd); });
}

constexpr Formula kStateAndNode = [](const Size&) { return kState + kNodes; };
constexpr Formula kNode = [](const Size&) { return kNodes; };

// A name is looked up, warm or cold; then its one node is read.
constexpr Formula kNameCold = [](const Size& size) {
  return kState + kStatement + leafNodes(size);
};
constexpr Formula kNameUncached = [](const Size& size) { return kStatement + leafNodes(size); };

constexpr Formula kLoaderBatches = [](const Size& size) {
  return kStatement * batches(size.leaves);
};

constexpr Operation kOperations[] = {
    {"getNodeByObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodeByObjID(ObjID(nodeID(Part::Hub)), status);
       });
     },
     kOne, Growth::None, kStateAndNode, kNothing, kNode},
    {"getNodeByQRMObjID",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodeByQRMObjID(ObjID(1000), status);
       });
     },
     kOne, Growth::None, kStateAndNode, kNothing, kNode},
    {"getNodeByName of an identifier",
     [](const Desk& desk) { return byName(desk, nodeID(Part::Hub)); }, kOne, Growth::None,
     kStateAndNode, kNothing, kNode},
    {"getNodeByName of a name", [](const Desk& desk) { return byName(desk, nodeName(Part::Leaf)); },
     kOne, Growth::None, kNameCold, kOneStatement, kNameUncached},
    {"getNodeByName of the beginning of a name",
     [](const Desk& desk) { return byName(desk, "leaf-0001"); }, kOne, Growth::None, kNameCold,
     kOneStatement, kNameUncached},
    {"getNodeByName of a public address",
     [](const Desk& desk) { return byName(desk, leafAddress(1)); }, kOne, Growth::None, kNameCold,
     kOneStatement, kNameUncached},
    {"getNodeByName of a private address",
     [](const Desk& desk) { return byName(desk, leafAddress(1), 0); }, kOne, Growth::None,
     kNameCold, kOneStatement, kNameUncached},
    {"getNodeByName of an IPv6 address", [](const Desk& desk) { return byName(desk, kV6Address); },
     kOne, Growth::None, kNameCold, kOneStatement, kNameUncached},
    {"getNodesByObjIDList",
     [](const Desk& desk) {
       std::set<ObjID> notFound;
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodesByObjIDList(leafIDs(desk.size), notFound, status, false, false,
                                             false, ZNEntity::AllProtocol, -1);
       });
     },
     kLeaves, Growth::Batches,
     [](const Size& size) { return kState + leafNodes(size) * batches(size.leaves); }, kNothing,
     [](const Size& size) { return leafNodes(size) * batches(size.leaves); }, Whole::Part},
    {"getNodesByObjIDList of all nodes",
     [](const Desk& desk) {
       std::set<ObjID> notFound;
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodesByObjIDList({}, notFound, status, false, false, true,
                                             ZNEntity::AllProtocol, -1);
       });
     },
     [](const Size& size) { return size.nodes(); }, Growth::Exceptional,
     [](const Size& size) { return kState + kAllNodes + allVariables(size); },
     [](const Size& size) { return kAllNodes + allVariables(size); },
     [](const Size& size) { return kAllNodes + allVariables(size); }},
    {"getEntityByObjID of a node",
     [](const Desk& desk) {
       return one([&](ZNTopoAPIStatus& status) {
         return desk.api.getEntityByObjID(ObjID(nodeID(Part::Hub)), status);
       });
     },
     kOne, Growth::None, kStateAndNode, kNothing, kNode},
    {"getTopologyState",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto state = desk.api.getTopologyState(status).getTopoState();
       return Answer{status.getStatus(), {std::to_string(state)}};
     },
     kOne, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getUserDefVarsByObjIDList",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.impl.getUserDefVarsByObjIDList(listOf(leafIDs(desk.size)), status);
       });
     },
     [](const Size& size) { return size.variables ? size.leaves : 0; }, Growth::Exceptional,
     [](const Size& size) { return kState + kStatement * batches(size.leaves); }, kLoaderBatches,
     kLoaderBatches},
    {"getConnDatasByNodeObjIDList",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.impl.getConnDatasByNodeObjIDList(listOf(leafIDs(desk.size)), status, false);
       });
     },
     kLeaves, Growth::Batches, kLoaderBatches, kLoaderBatches, kLoaderBatches},
    {"getVlanInfosByObjIDList",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.impl.getVlanInfosByObjIDList(listOf(leafIDs(desk.size)), status, true, false);
       });
     },
     kLeaves, Growth::Batches,
     [](const Size& size) {
       return Cost{1, 2} * batches(size.leaves);
     },
     [](const Size& size) {
       return Cost{1, 2} * batches(size.leaves);
     },
     [](const Size& size) {
       return Cost{1, 2} * batches(size.leaves);
     }},
    {"getVlanInfosByObjIDList of all VLANs",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.impl.getVlanInfosByObjIDList({}, status, false, true);
       });
     },
     kOne, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getIfcInfosByObjIDList",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.api.getIfcInfosByObjIDList(leafIDs(desk.size), status, true, false, 0);
       });
     },
     kLeaves, Growth::Batches, kLoaderBatches, kLoaderBatches, kLoaderBatches},
    {"getIfcInfosByObjIDList of all containers",
     [](const Desk& desk) {
       return keysOf([&](ZNTopoAPIStatus& status) {
         return desk.api.getIfcInfosByObjIDList({}, status, false, true, 5);
       });
     },
     kOne, Growth::None, kOneStatement, kOneStatement, kOneStatement},
};

}  // namespace

std::span<const Operation> nodeOperations() { return kOperations; }

}  // namespace zntopo::test
