// The updates of the store, and those of the cache.

#include "tests/operations/Costs.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo::test {
namespace {

const ObjID& leaf() {
  static const ObjID theID(nodeID(Part::Leaf));
  return theID;
}
/// The hub's interface to the first leaf.
const ObjID& downlink() {
  static const ObjID theID(downID(Part::Leaf, 1));
  return theID;
}

Answer setDomain(const Desk& desk, bool ofNode) {
  int domain = 12;
  ZNNode node;
  node.setObjID(leaf());
  ZNInterface interface;
  interface.setObjID(downlink());
  return done(ofNode ? desk.impl.setL2DomainIdOfNode(node, domain)
                     : desk.impl.setL2DomainIdOfInterface(interface, domain));
}

Answer setCachedStatus(const Desk& desk, const ObjID& id, EntityType type) {
  ZNTopoAPIStatus status;
  desk.api.updateCacheObjectStatus(id, false, type, ObjectStatus::Critical, 0, ZNEntity::Overall,
                                   status, false);
  return done(status);
}

Answer setCachedAttribute(const Desk& desk, const ObjID& id, EntityType type,
                          TopologyAttributeType attribute) {
  ZNTopoAPIStatus status;
  desk.impl.updateCacheObjectAttribute(id, type, attribute, 1, ObjID(hubAddressID(1)), status);
  return done(status);
}

/// The VLANs, the groups, and what never comes from the cache: all nodes and all connected
/// interfaces.
constexpr Cost kPreloadedGroups = kStatement * 5;
constexpr Cost preloadedRest(const Size& size) {
  return kAllNodes + kStatement + kAddresses + allVariables(size) * 2;
}

constexpr Operation kOperations[] = {
    {"setHSRPAddressInfo",
     [](const Desk& desk) {
       return done(desk.impl.setHSRPAddressInfo(ZNHSRPAddressInfo(
           1, downlink(), ObjID(hubAddressID(1)), 110, ZNHSRPAddressInfo::Active, "", 70)));
     },
     kNone, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setNWInterfaceState",
     [](const Desk& desk) { return done(desk.impl.setNWInterfaceState(downlink(), 2, 1)); }, kNone,
     Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setAddressState",
     [](const Desk& desk) { return done(desk.impl.setAddressState(ObjID(hubAddressID(1)), 1)); },
     kNone, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setNWNodeStatus",
     [](const Desk& desk) { return done(desk.impl.setNWNodeStatus(leaf(), 1, 6)); }, kNone,
     Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setEntityStatus",
     [](const Desk& desk) {
       return done(desk.impl.setEntityStatus(leaf(), 6, 5000, ZNEntity::Overall, E_Node));
     },
     kNone, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setL2DomainIdOfNode", [](const Desk& desk) { return setDomain(desk, true); }, kNone,
     Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"setL2DomainIdOfInterface", [](const Desk& desk) { return setDomain(desk, false); }, kNone,
     Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    // It does not ask for readiness.
    {"setNWIfcAssocInfoState",
     [](const Desk& desk) {
       return done(
           desk.impl.setNWIfcAssocInfoState(ObjID(containerID(1)), ObjID(containerID(2)), 1, 4));
     },
     kNone, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"updateCacheObjectStatus",
     [](const Desk& desk) { return setCachedStatus(desk, leaf(), E_Node); }, kNone, Growth::None,
     kNothing, kNothing, kNothing},
    {"updateCacheObjectStatus of an HSRP group",
     [](const Desk& desk) { return setCachedStatus(desk, ObjID(hsrpID(1)), E_HSRP); }, kNone,
     Growth::None, kNothing, kNothing, kNothing},
    {"updateCacheObjectAttribute",
     [](const Desk& desk) {
       return setCachedAttribute(desk, downlink(), E_Interface, IfOper_Status);
     },
     kNone, Growth::None, kNothing, kNothing, kNothing},
    {"updateCacheObjectAttribute of an HSRP group",
     [](const Desk& desk) {
       return setCachedAttribute(desk, ObjID(hsrpID(1)), E_HSRP, HSRP_Priority);
     },
     kNone, Growth::None, kNothing, kNothing, kNothing},
    {"preLoadTopoCache",
     [](const Desk& desk) { return done(desk.api.preLoadTopoCache(true, true, true, true, true)); },
     kNone, Growth::Exceptional,
     [](const Size& size) { return kState + kPreloadedGroups + preloadedRest(size); },
     preloadedRest, [](const Size& size) { return kPreloadedGroups + preloadedRest(size); }},
};

}  // namespace

std::span<const Operation> updateOperations() { return kOperations; }

}  // namespace zntopo::test
