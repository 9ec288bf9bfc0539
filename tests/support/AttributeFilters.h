#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "zntopo/api/ZNTopoFilter.h"

/// @file
/// Attribute filters with one attribute.

namespace zntopo::test {

inline ZNTopoFilter named(const std::string& pattern) {
  ZNTopoFilter filter;
  filter.setRegexEntityName(pattern);
  return filter;
}

inline ZNTopoFilter ofLevel(ZNEntity::IPLevel level) {
  ZNTopoFilter filter;
  filter.setIPLevel(level);
  return filter;
}

inline ZNTopoFilter ofScope(InetAddressIPv6::ScopeType scope) {
  ZNTopoFilter filter;
  filter.setV6ScopeType(scope);
  return filter;
}

inline ZNTopoFilter ofKind(EntityType kind) {
  ZNTopoFilter filter;
  filter.setEntityType(kind);
  return filter;
}

inline ZNTopoFilter withAddress(const std::string& address,
                                ZNAddress::AddressType type = ZNAddress::IPv4) {
  ZNTopoFilter filter;
  filter.setAddressType(type);
  filter.setAddressStr(address);
  return filter;
}

inline std::vector<ZNCapability> capabilities(std::initializer_list<const char*> names) {
  return std::vector<ZNCapability>(names.begin(), names.end());
}

/// Of nodes that can one of these.
inline ZNTopoFilter ableTo(std::initializer_list<const char*> names) {
  ZNTopoFilter filter;
  filter.setOrCapabilityNames(capabilities(names));
  return filter;
}

}  // namespace zntopo::test
