#include "tools/zntopo/fields/AddressFields.h"

#include "tools/network/IpAddress.h"
#include "tools/zntopo/fields/EntityFields.h"
#include "tools/zntopo/fields/StateKind.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::tools {

namespace {

Json id(const AddressDetails& all) { return known(all.object->getAddressID().toString()); }

Json type(const AddressDetails& all) {
  return nameOrNull(kAddressTypes, all.object->getAddressType());
}

Json scope(const AddressDetails& all) { return nameOrNull(kScopeNames, scopeOf(all.object)); }

Json prefix(const AddressDetails& all) {
  const auto prefix = IpPrefix::parse(textWithLength(all.object));
  return prefix && prefix->length > 0 ? Json(prefix->text()) : Json();
}

/// The library reads it of IPv4 addresses alone.
Json pingState(const AddressDetails& all) {
  if (all.object->getAddressType() != ZNAddress::IPv4) return nullptr;
  return kPingState.value(all.object->getPingState());
}

Json subnetId(const AddressDetails& all) {
  const auto* const inet = dynamic_cast<const InetAddress*>(&*all.object);
  return inet ? known(inet->getSubnetObjID().toString()) : Json();
}

/// 0 tells no address space apart.
Json routeDistinguisher(const AddressDetails& all) {
  const auto* const inet = dynamic_cast<const InetAddress*>(&*all.object);
  return inet && inet->getRouteDistinguisher() != 0 ? Json(inet->getRouteDistinguisher()) : Json();
}

constexpr Field<AddressDetails> kOwnFields[] = {
    {.key = "address",
     .head = "ADDRESS",
     .value = knownOfObject<&ZNAddress::getAddressAsString, AddressDetails>},
    {.key = "id", .value = id},
    {.key = "type", .value = type},
    {.key = "prefix", .head = "PREFIX", .value = prefix},
    {.key = "scope", .head = "SCOPE", .value = scope, .isRare = true},
    {.key = "ping_state", .head = "PING", .value = pingState, .isRare = true},
    {.key = "route_distinguisher", .head = "RD", .value = routeDistinguisher, .isRare = true},
    {.key = "subnet_id", .value = subnetId},
};

constexpr auto kAddressFields =
    joined(kEndFields<&AddressDetails::end, AddressDetails>, std::to_array(kOwnFields));

}  // namespace

InetAddressIPv6::ScopeType scopeOf(const ZNRefPtr<ZNAddress>& address) {
  const auto v6 = ZNRefPtrConversion::Address2IPv6(address);
  return v6.isNull() ? InetAddressIPv6::Unknown : v6->getScopeType();
}

std::string textWithLength(const ZNRefPtr<ZNAddress>& address) {
  const auto text = [](const auto& inet) {
    return inet->getAddressAsString() + "/" + std::to_string(inet->getPrefixLength());
  };
  if (const auto v6 = ZNRefPtrConversion::Address2IPv6(address); !v6.isNull()) return text(v6);
  const auto v4 = ZNRefPtrConversion::Address2IPv4(address);
  return v4.isNull() ? "" : text(v4);
}

std::span<const Field<AddressDetails>> addressFields() { return kAddressFields; }

}  // namespace zntopo::tools
