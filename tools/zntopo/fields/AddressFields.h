#pragma once

#include <string>

#include "tools/zntopo/fields/Field.h"
#include "tools/zntopo/fields/LinkFields.h"
#include "tools/zntopo/fields/NumberNames.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/InetAddressIPv6.h"

namespace zntopo::tools {

/// The scopes of IPv6 addresses.
inline constexpr NumberName<InetAddressIPv6::ScopeType> kScopeNames[] = {
    {"link-local", InetAddressIPv6::LinkLocal},
    {"site-local", InetAddressIPv6::SiteLocal},
    {"global", InetAddressIPv6::Global}};

/// The kinds of addresses.
inline constexpr NumberName<ZNAddress::AddressType> kAddressTypes[] = {
    {"ipv4", ZNAddress::IPv4}, {"ipv6", ZNAddress::IPv6}, {"dns", ZNAddress::DNS}};

/// InetAddressIPv6::Unknown for what is no IPv6 address, a null handle included.
InetAddressIPv6::ScopeType scopeOf(const ZNRefPtr<ZNAddress>& address);
/// As "10.20.8.17/24"; empty for what is no IPv4 or IPv6 address, a null handle included.
std::string textWithLength(const ZNRefPtr<ZNAddress>& address);

/// An address with the names of what has it.
struct AddressDetails {
  ZNRefPtr<ZNAddress> object;
  LinkEnd end;
};

/// What a list of addresses tells of each.
std::span<const Field<AddressDetails>> addressFields();

}  // namespace zntopo::tools
