// The setters of objects: each changes its object, writes the store and sends an event.

#include <atomic>

#include "tests/operations/Costs.h"
#include "zntopo/model/ZNIfcAssocInfo.h"

namespace zntopo::test {
namespace {

/// One of two values, the other one than the last time: some setters write what is new alone.
/// Neither is what the network begins with, nor what other operations set.
template <typename Value>
Value other(Value first, Value second) {
  static std::atomic<unsigned> count{0};
  return count++ % 2 == 0 ? first : second;
}

ZNRefPtr<ZNHSRP> groupOf(const Desk& desk) {
  ZNTopoAPIStatus status;
  std::set<ObjID> notFound;
  const auto groups = desk.api.getHSRPsByObjIDList({ObjID(hsrpID(1))}, notFound, status, false, -1);
  return groups->front();
}

Answer setPriority(const Desk& desk) {
  const auto group = groupOf(desk);
  ZNHSRPAddressInfo member = group->getHSRPAddrInfoList().front();
  return done(group->setHSRPStateAndPriority(member, ZNHSRPAddressInfo::Active, 70, other(110, 120),
                                             true, ActiveDB));
}

/// All threads have the same one.
Answer setAssociation(const Desk& /*desk*/) {
  static auto& association =
      *new ZNIfcAssocInfo(ObjID(containerID(1)), ObjID(containerID(2)), 1, 5, 5, 1, 0, "", "");
  return done(association.updateState(4, true));
}

constexpr Cost kInterface = kStatement + kAddresses;
constexpr Cost kGroup = kStatement * 2;
constexpr Formula kTwoStatements = [](const Size&) { return kStatement * 2; };

constexpr Operation kOperations[] = {
    {"ZNNode::setOverallStatus",
     [](const Desk& desk) {
       const auto status = other(ObjectStatus::Warning, ObjectStatus::Marginal);
       return done(leafOf(desk)->setOverallStatus(status, 5000, true, ActiveDB));
     },
     kNone, Growth::None, [](const Size& size) { return kState + leafNodes(size) + kStatement; },
     kOneStatement, [](const Size& size) { return leafNodes(size) + kStatement; }},
    {"ZNNode::setSnmpState",
     [](const Desk& desk) { return done(leafOf(desk)->setSnmpState(AGENT_DOWN, true)); }, kNone,
     Growth::None, [](const Size& size) { return kState + leafNodes(size) + kStatement; },
     kOneStatement, [](const Size& size) { return leafNodes(size) + kStatement; }},
    {"ZNInterface::setIfOperStatus",
     [](const Desk& desk) {
       return done(interfaceOf(desk)->setIfOperStatus(other(notPresent, lowerLayerDown), true));
     },
     kNone, Growth::None, [](const Size&) { return kState + kInterface + kStatement; },
     kOneStatement, [](const Size&) { return kInterface + kStatement; }},
    {"ZNAddress::setPingState",
     [](const Desk& desk) { return done(addressOf(desk)->setPingState(Ping_Unreachable, true)); },
     kNone, Growth::None, [](const Size&) { return kState + kStatement * 2; }, kOneStatement,
     kTwoStatements},
    {"ZNHSRP::setHSRPStateAndPriority", setPriority, kNone, Growth::None,
     [](const Size&) { return kState + kGroup + kStatement; }, kOneStatement,
     [](const Size&) { return kGroup + kStatement; }},
    // It does not ask for readiness.
    {"ZNIfcAssocInfo::updateState", setAssociation, kNone, Growth::None, kOneStatement,
     kOneStatement, kOneStatement},
};

}  // namespace

std::span<const Operation> setterOperations() { return kOperations; }

}  // namespace zntopo::test
