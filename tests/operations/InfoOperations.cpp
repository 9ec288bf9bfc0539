// The statistics of the store, what discovery did to its objects, and the forms of objects, which
// load what is not there.

#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

template <typename Object, typename Write>
Answer textOf(const ZNRefPtr<Object>& object, const Write& write) {
  if (object.isNull()) return {ZN_API_OBJ_NOT_EXIST, {}};
  return {ZN_API_SUCCESS, {write(*object)}};
}

/// The state row, sixteen counters and the map.
constexpr Cost kInfo = kStatement * 18;
constexpr Cost kInterfaces = kStatement + kAddresses;

constexpr Operation kOperations[] = {
    {"getTopologyInfo",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const ZNTopologyInfo info = desk.api.getTopologyInfo(status);
       return Answer{status.getStatus(), {info.toString()}};
     },
     kOne, Growth::None, [](const Size&) { return kInfo; }, [](const Size&) { return kInfo; },
     [](const Size&) { return kInfo; }},
    {"getAuditTrail",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       return many(status, *desk.api.getAuditTrail(0, 0, ZNAuditAction::TypeDontCare,
                                                   ZNAuditTrail::ObjectTypeDontCare, status));
     },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"ZNNode::toString without interfaces",
     [](const Desk& desk) {
       return textOf(leafOf(desk), [](const ZNNode& node) { return node.toString(false); });
     },
     kOne, Growth::None, [](const Size& size) { return kState + leafNodes(size); }, kNothing,
     [](const Size& size) { return leafNodes(size); }, Whole::States},
    {"ZNNode::toXML",
     [](const Desk& desk) {
       return textOf(leafOf(desk), [](const ZNNode& node) { return node.toXML(); });
     },
     kOne, Growth::None, [](const Size& size) { return kState + leafNodes(size); }, kNothing,
     [](const Size& size) { return leafNodes(size); }, Whole::States},
    {"ZNInterface::toShortString",
     [](const Desk& desk) {
       return textOf(interfaceOf(desk),
                     [](const ZNInterface& interface) { return interface.toShortString(); });
     },
     kOne, Growth::None, [](const Size&) { return kState + kInterfaces; }, kNothing,
     [](const Size&) { return kInterfaces + kAddresses; }, Whole::States},
};

}  // namespace

std::span<const Operation> infoOperations() { return kOperations; }

}  // namespace zntopo::test
