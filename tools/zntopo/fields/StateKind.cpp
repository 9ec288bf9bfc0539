#include "tools/zntopo/fields/StateKind.h"

namespace zntopo::tools {

namespace {

/// The state of an association of containers has no enumerator.
constexpr auto kOfAssociation = static_cast<TopologyAttributeType>(HSRP_Priority + 1);

constexpr struct {
  TopologyAttributeType attribute;
  const StateKind& kind;
} kAttributes[] = {{HSRP_State, kHsrpState},       {HSRP_Certainity, kHsrpCertainty},
                   {IfAdmin_Status, kAdminStatus}, {IfOper_Status, kOperStatus},
                   {Ping_State, kPingState},       {Snmp_State, kSnmpState},
                   {HSRP_Priority, kHsrpPriority}, {kOfAssociation, kAssociationState}};

}  // namespace

Json StateKind::value(int number) const { return nameOrNumber(names, number); }

const StateKind* stateOfAttribute(TopologyAttributeType attribute) {
  for (const auto& [known, kind] : kAttributes) {
    if (known == attribute) return &kind;
  }
  return nullptr;
}

}  // namespace zntopo::tools
