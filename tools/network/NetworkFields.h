#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include "tools/network/FieldWords.h"
#include "tools/network/NetworkModel.h"

/// @file
/// The fields of a network's objects under the names that data/yang/zntopo-topology.yang gives
/// them: one table an object, for whoever reads or writes them by name.

namespace zntopo::tools {

/// A member of an object and its name.
template <typename Object>
struct Field {
  const char* name;
  std::variant<std::string Object::*, int Object::*, std::optional<int> Object::*, bool Object::*>
      member;
  /// Of texts, in bytes; 0 for no limit.
  std::size_t width = 0;
  /// Of numbers that have names; any other number is still a value.
  std::span<const NumberName<>> names = {};
  /// Of numbers.
  int low = std::numeric_limits<int>::min();
  int high = std::numeric_limits<int>::max();
};

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
