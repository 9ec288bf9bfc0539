#pragma once

/// @file
/// Kinds of entities and addresses, and an IP level, as the statements spell them.

namespace zntopo::detail {

inline constexpr const char* NODE_ENTITY_TYPE_STRING = "1";
inline constexpr const char* INTERFACE_ENTITY_TYPE_STRING = "2";
inline constexpr const char* VLAN_ENTITY_TYPE_STRING = "4";
inline constexpr const char* SUBNET_ENTITY_TYPE_STRING = "7";
inline constexpr const char* V4_ADDRESS_TYPE_STRING = "1";
inline constexpr const char* V4_IP_LEVEL_STRING = "4";

}  // namespace zntopo::detail
