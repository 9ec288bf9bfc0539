#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "tools/network/NetworkModel.h"

/// @file
/// The fields of a network's objects under the names that data/yang/zntopo-topology.yang gives
/// them: one table an object, for whoever reads or writes them by name.

namespace zntopo::tools {

/// A number and its name.
struct NumberName {
  int number;
  const char* name;
};

/// What a number is called; nothing if it has no name.
constexpr std::optional<std::string_view> nameOf(std::span<const NumberName> names, int number) {
  for (const NumberName& one : names) {
    if (one.number == number) return one.name;
  }
  return std::nullopt;
}

/// The number of a name; nothing if it is none of them.
constexpr std::optional<int> numberOf(std::span<const NumberName> names, std::string_view name) {
  for (const NumberName& one : names) {
    if (name == one.name) return one.number;
  }
  return std::nullopt;
}

/// A member of an object and its name.
template <typename Object>
struct Field {
  const char* name;
  std::variant<std::string Object::*, int Object::*, std::optional<int> Object::*, bool Object::*>
      member;
  /// Of texts, in bytes; 0 for no limit.
  std::size_t width = 0;
  /// Of numbers that have names; any other number is still a value.
  std::span<const NumberName> names = {};
  /// Of numbers.
  int low = std::numeric_limits<int>::min();
  int high = std::numeric_limits<int>::max();
};

namespace names {

inline constexpr NumberName kStatus[] = {{0, "no-status"}, {1, "normal"},     {2, "unknown"},
                                         {3, "warning"},   {4, "marginal"},   {5, "major"},
                                         {6, "critical"},  {10, "unmanaged"}, {11, "restricted"},
                                         {12, "testing"},  {13, "disabled"}};
inline constexpr NumberName kSnmpState[] = {{0, "responding"},
                                            {1, "not-responding"},
                                            {2, "unreachable"},
                                            {3, "agent-down"},
                                            {4, "disabled"}};
inline constexpr NumberName kAdminState[] = {{1, "up"}, {2, "down"}, {3, "testing"}};
inline constexpr NumberName kOperState[] = {
    {1, "up"},      {2, "down"},        {3, "testing"},         {4, "unknown"},
    {5, "dormant"}, {6, "not-present"}, {7, "lower-layer-down"}};
inline constexpr NumberName kNetToMedia[] = {{1, "reachable"}, {2, "stale"},   {3, "delay"},
                                             {4, "probe"},     {5, "invalid"}, {6, "unknown"}};
inline constexpr NumberName kPreference[] = {
    {1, "preferred"}, {2, "deprecated"}, {3, "inaccessible"}, {4, "unknown"}};
inline constexpr NumberName kOrigin[] = {{1, "stateless"}, {2, "stateful"}, {3, "unknown"}};
inline constexpr NumberName kHsrpState[] = {{1, "initial"}, {2, "learn"},       {3, "listen"},
                                            {4, "speak"},   {5, "standby"},     {6, "active"},
                                            {7, "misc"},    {8, "unavailable"}, {9, "no-response"}};
inline constexpr NumberName kObjectType[] = {{1, "node"},
                                             {2, "interface"},
                                             {4, "vlan"},
                                             {7, "subnet"},
                                             {10, "mesh"},
                                             {11, "hsrp-group"},
                                             {12, "interface-container"},
                                             {25, "address"}};
inline constexpr NumberName kAuditAction[] = {
    {1, "object-deletion"},      {2, "object-creation"},    {3, "association-creation"},
    {4, "association-deletion"}, {5, "association-change"}, {6, "attribute-change"}};
inline constexpr NumberName kAuditDetail[] = {{0, "not-applicable"},
                                              {1, "layer-2-connection"},
                                              {2, "vlan-containment"},
                                              {3, "container-containment"},
                                              {4, "node-interface-containment"},
                                              {5, "interface-address-association"},
                                              {6, "subnet-address-association"},
                                              {101, "hsrp-address-change"},
                                              {102, "hsrp-address-add-or-delete"}};
/// The bits of NodeFeature.
inline constexpr NumberName kFeature[] = {{SpeaksOspf, "ospf"},    {SpeaksBgp, "bgp"},
                                          {SpeaksCdp, "cdp"},      {SpeaksStp, "stp"},
                                          {SpeaksSnmp, "snmp"},    {IsMultiHomed, "multi-homed"},
                                          {IsWireless, "wireless"}};

}  // namespace names

namespace fields {

/// In bytes.
inline constexpr std::size_t kZoneWidth = 64;
/// In bytes; what a reader takes for an identifier has no more.
inline constexpr std::size_t kIdentifierWidth = 36;

/// Of objects of all kinds, beside their names and user variables.
inline constexpr Field<EntityModel> kEntity[] = {
    {.name = "identifier", .member = &EntityModel::id},
    {.name = "zone", .member = &EntityModel::zone, .width = kZoneWidth},
    {.name = "description", .member = &EntityModel::description},
    {.name = "legacy-id", .member = &EntityModel::legacyId, .width = 36}};

inline constexpr Field<StatusModel> kStatus[] = {
    {.name = "overall", .member = &StatusModel::overall, .names = names::kStatus},
    {.name = "ipv6", .member = &StatusModel::v6, .names = names::kStatus},
    {.name = "change-time", .member = &StatusModel::changeTime}};

inline constexpr Field<NodeModel> kNode[] = {
    {.name = "router", .member = &NodeModel::isRouter},
    {.name = "system-oid", .member = &NodeModel::systemOid, .width = 64},
    {.name = "contact", .member = &NodeModel::contact, .width = 128},
    {.name = "location", .member = &NodeModel::location, .width = 128},
    {.name = "snmp-state", .member = &NodeModel::snmpState, .names = names::kSnmpState},
    {.name = "layer-2-domain", .member = &NodeModel::layer2Domain}};

inline constexpr Field<InterfaceModel> kInterface[] = {
    {.name = "made-up-name", .member = &InterfaceModel::isNameMade},
    {.name = "alias", .member = &InterfaceModel::alias, .width = 255},
    {.name = "physical-address", .member = &InterfaceModel::physicalAddress, .width = 256},
    {.name = "if-index", .member = &InterfaceModel::index},
    {.name = "if-type", .member = &InterfaceModel::type},
    {.name = "speed", .member = &InterfaceModel::speed},
    {.name = "admin-state", .member = &InterfaceModel::adminState, .names = names::kAdminState},
    {.name = "oper-state", .member = &InterfaceModel::operState, .names = names::kOperState},
    {.name = "access-port", .member = &InterfaceModel::isAccessPort},
    {.name = "linked-elsewhere", .member = &InterfaceModel::isLinkedElsewhere}};

inline constexpr Field<AddressModel> kAddress[] = {
    {.name = "identifier", .member = &AddressModel::id}};
/// Of IPv6 addresses.
inline constexpr Field<AddressModel> kV6Address[] = {
    {.name = "dns-name", .member = &AddressModel::dnsName, .width = 256},
    {.name = "dns-identifier", .member = &AddressModel::dnsId}};

inline constexpr Field<MonitoringModel> kMonitoring[] = {
    {.name = "legacy-id", .member = &MonitoringModel::legacyId, .width = 36},
    {.name = "ping-status", .member = &MonitoringModel::status, .names = names::kStatus},
    {.name = "net-to-media", .member = &MonitoringModel::netToMedia, .names = names::kNetToMedia},
    {.name = "preference", .member = &MonitoringModel::preference, .names = names::kPreference},
    {.name = "origin", .member = &MonitoringModel::origin, .names = names::kOrigin},
    {.name = "last-time", .member = &MonitoringModel::lastTime}};

inline constexpr Field<SubnetModel> kSubnet[] = {
    {.name = "address-identifier", .member = &SubnetModel::addressId}};
/// Of subnets without a prefix.
inline constexpr Field<SubnetModel> kBareSubnet[] = {
    {.name = "is-ipv6", .member = &SubnetModel::isV6}};

inline constexpr Field<HsrpGroupModel> kHsrpGroup[] = {
    {.name = "number", .member = &HsrpGroupModel::number}};

inline constexpr Field<HsrpMemberModel> kHsrpMember[] = {
    {.name = "state", .member = &HsrpMemberModel::state, .names = names::kHsrpState},
    {.name = "priority", .member = &HsrpMemberModel::priority, .low = 0, .high = 64000},
    {.name = "certainty", .member = &HsrpMemberModel::certainty, .low = 0, .high = 100}};

inline constexpr Field<HsrpTrackModel> kHsrpTrack[] = {
    {.name = "decrement", .member = &HsrpTrackModel::decrement, .low = 0, .high = 64000}};

inline constexpr Field<ContainerModel> kContainer[] = {
    {.name = "type", .member = &ContainerModel::type},
    {.name = "application", .member = &ContainerModel::application},
    {.name = "ordered", .member = &ContainerModel::isOrdered}};

inline constexpr Field<ContainerMemberModel> kContainerMember[] = {
    {.name = "containment", .member = &ContainerMemberModel::containment},
    {.name = "sequence", .member = &ContainerMemberModel::sequence}};

inline constexpr Field<AssociationModel> kAssociation[] = {
    {.name = "relation", .member = &AssociationModel::relation},
    {.name = "state", .member = &AssociationModel::state},
    {.name = "state-change-time", .member = &AssociationModel::stateChangeTime},
    {.name = "description", .member = &AssociationModel::description, .width = 259},
    {.name = "extra-info", .member = &AssociationModel::extraInfo, .width = 259}};

inline constexpr Field<AuditModel> kAudit[] = {
    {.name = "object-identifier", .member = &AuditModel::objectId},
    {.name = "object-type", .member = &AuditModel::objectType, .names = names::kObjectType},
    {.name = "time", .member = &AuditModel::time},
    {.name = "action", .member = &AuditModel::action, .names = names::kAuditAction},
    {.name = "detail", .member = &AuditModel::detail, .names = names::kAuditDetail},
    {.name = "info", .member = &AuditModel::info, .width = 254}};

/// The name of a user variable's value tells its type: in the order of the variant.
inline constexpr const char* kVariableValue[] = {"short-value",  "long-value",  "long-long-value",
                                                 "string-value", "float-value", "boolean-value"};
static_assert(std::size(kVariableValue) == std::variant_size_v<decltype(UserVariableModel::value)>);

/// In bytes.
inline constexpr std::size_t kVariableNameWidth = 128;
inline constexpr std::size_t kVariableTextWidth = 2000;
/// The name of a container.
inline constexpr std::size_t kContainerNameWidth = 129;
/// So many tracked interfaces have room in one member's column.
inline constexpr std::size_t kMaxTracks = 40;

}  // namespace fields
}  // namespace zntopo::tools
