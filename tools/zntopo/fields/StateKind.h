#pragma once

#include <optional>
#include <span>
#include <string>

#include "tools/zntopo/fields/NumberNames.h"
#include "zntopo/model/IfStatus.h"
#include "zntopo/model/ObjectStatus.h"
#include "zntopo/model/PingState.h"
#include "zntopo/model/TopologyAttributeType.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

/// @file
/// The states of objects that change while a network lives: as users, the store and events know
/// them.

namespace zntopo::tools {

inline constexpr NumberName<int> kStatusNames[] = {
    {"no_status", ObjectStatus::NoStatus},    {"normal", ObjectStatus::Normal},
    {"unknown", ObjectStatus::Unknown},       {"warning", ObjectStatus::Warning},
    {"marginal", ObjectStatus::Marginal},     {"major", ObjectStatus::Major},
    {"critical", ObjectStatus::Critical},     {"unmanaged", ObjectStatus::Unmanaged},
    {"restricted", ObjectStatus::Restricted}, {"testing", ObjectStatus::Testing},
    {"disabled", ObjectStatus::Disabled}};

/// How nodes answer SNMP, and addresses pings.
inline constexpr NumberName<int> kAnswerNames[] = {{"responding", Ping_Responding},
                                                   {"not_responding", Ping_NotResponding},
                                                   {"unreachable", Ping_Unreachable},
                                                   {"agent_down", Ping_AgentDown},
                                                   {"disabled", Ping_Disabled}};

inline constexpr NumberName<int> kAdminNames[] = {
    {"up", IfAdminStatus::Up}, {"down", IfAdminStatus::Down}, {"testing", IfAdminStatus::Testing}};

inline constexpr NumberName<int> kOperNames[] = {{"up", IfOperStatus::up},
                                                 {"down", IfOperStatus::down},
                                                 {"testing", IfOperStatus::testing},
                                                 {"unknown", IfOperStatus::unknown},
                                                 {"dormant", IfOperStatus::dormant},
                                                 {"not_present", IfOperStatus::notPresent},
                                                 {"lower_layer_down", lowerLayerDown}};

inline constexpr NumberName<int> kHsrpStateNames[] = {
    {"Initial", ZNHSRPAddressInfo::Initial},     {"Learn", ZNHSRPAddressInfo::Learn},
    {"Listen", ZNHSRPAddressInfo::Listen},       {"Speak", ZNHSRPAddressInfo::Speak},
    {"StandBy", ZNHSRPAddressInfo::StandBy},     {"Active", ZNHSRPAddressInfo::Active},
    {"MiscState", ZNHSRPAddressInfo::MiscState}, {"NoResponse", ZNHSRPAddressInfo::NoResponse}};

/// One state of one kind of objects.
struct StateKind {
  /// What changes and events call it.
  const char* key;
  /// Where the store has it.
  const char* table;
  const char* column;
  /// The names of its numbers; none for one that is a number to users, too.
  std::span<const NumberName<int>> names = {};

  /// A number as users read it: a number without a name is itself.
  Json value(int number) const;
};

inline constexpr StateKind kNodeStatus = {"status", "nwnode", "Status", kStatusNames};
inline constexpr StateKind kNodeV6Status = {"ipv6_status", "nwnode", "V6CompoundStatus",
                                            kStatusNames};
inline constexpr StateKind kSnmpState = {"snmp_state", "nwnode", "SNMPState", kAnswerNames};
inline constexpr StateKind kAdminStatus = {"admin_status", "nwinterface", "IfAdminState",
                                           kAdminNames};
inline constexpr StateKind kOperStatus = {"oper_status", "nwinterface", "IfOperStatus", kOperNames};
inline constexpr StateKind kPingState = {"ping_state", "address", "PingState", kAnswerNames};
inline constexpr StateKind kHsrpState = {"state", "hsrpaddress", "state", kHsrpStateNames};
inline constexpr StateKind kHsrpPriority = {"priority", "hsrpaddress", "HSRPPriority"};
inline constexpr StateKind kHsrpCertainty = {"certainty", "hsrpaddress", "HSRPStateCertainty"};
inline constexpr StateKind kAssociationState = {"state", "nwifcasc", "State"};

/// The state of which an attribute change tells; nullptr for a number that is none.
const StateKind* stateOfAttribute(TopologyAttributeType attribute);

/// A field of a list or a view that shows a state.
template <const StateKind& kind, auto get, typename Object>
Json stateOf(const Object& object) {
  return kind.value(static_cast<int>(std::invoke(get, object)));
}

}  // namespace zntopo::tools
