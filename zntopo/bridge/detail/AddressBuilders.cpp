#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/CachedBuild.h"
#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo::bridge {

namespace {

constexpr CachedKind<M_hasAddressID, M_addAddress> kAddress{"createAddress", "ADDRESS"};

/// What the Java classes of Internet addresses have in common.
struct CommonParts {
  CommonParts(JavaEnv& env, const InetAddress& address)
      : text(env.text(address.getAddressAsString())),
        isSubnet(address.isSubnetAddress()),
        id(createID(env, address.getAddressID())),
        entity(createID(env, address.getAssEntityID())),
        subnet(createID(env, address.getSubnetObjID())),
        distinguisher(address.getRouteDistinguisher()),
        pingState(createPingState(env, address.getPingState())) {}

  const LocalRef<jstring> text;
  const bool isSubnet;
  const LocalRef<> id;
  const LocalRef<> entity;
  const LocalRef<> subnet;
  const jlong distinguisher;
  const LocalRef<> pingState;
};

LocalRef<> createIPv4(JavaEnv& env, const InetAddressIPv4& address) {
  const CommonParts parts(env, address);
  const LocalRef<jstring> publicAddress = env.text(address.getPublicAddress());
  return env.make<T_InetAddressIPv4>(parts.text, parts.isSubnet, parts.id, parts.entity,
                                     parts.subnet, parts.distinguisher, publicAddress,
                                     parts.pingState, jint{address.getPrefixLength()});
}

LocalRef<> createDNS(JavaEnv& env, const InetAddressDNS& address) {
  const CommonParts parts(env, address);
  return env.make<T_InetAddressDNS>(parts.text, parts.isSubnet, parts.id, parts.entity,
                                    parts.distinguisher, parts.pingState);
}

LocalRef<> createScope(JavaEnv& env, InetAddressIPv6::ScopeType scope) {
  return env.make<T_IPv6ScopeType>(static_cast<jint>(scope));
}

LocalRef<> createIPv6(JavaEnv& env, const InetAddressIPv6& address) {
  const CommonParts parts(env, address);
  const LocalRef<> scope = createScope(env, address.getScopeType());
  return env.make<T_InetAddressIPv6>(parts.text, scope, jint{address.getPrefixLength()},
                                     parts.isSubnet, parts.id, parts.entity, parts.subnet,
                                     parts.distinguisher, parts.pingState);
}

LocalRef<> createMediaState(JavaEnv& env, MonitoredInetAddressIPv6::IPv6NetToMediaState state) {
  return env.make<T_IPv6NetToMediaState>(static_cast<jint>(state));
}

LocalRef<> createAddressStatus(JavaEnv& env, MonitoredInetAddressIPv6::IPv6AddrStatus status) {
  return env.make<T_IPv6AddrStatus>(static_cast<jint>(status));
}

LocalRef<> createIPv6AddressType(JavaEnv& env, MonitoredInetAddressIPv6::IPv6AddrType type) {
  return env.make<T_IPv6AddrType>(static_cast<jint>(type));
}

LocalRef<> createPingStatus(JavaEnv& env, const PingStatus& status) {
  return env.make<T_PingStatus>(createEntityStatus(env, status.getStatus()),
                                jlong{status.getLastPingTime()},
                                jlong{status.getLastStatusUpdateTime()});
}

LocalRef<> createMonitored(JavaEnv& env, const MonitoredInetAddressIPv6& address) {
  const LocalRef<> plain = createIPv6(env, address);
  const LocalRef<> mediaState = createMediaState(env, address.getIPv6NetToMediaState());
  const LocalRef<> type = createIPv6AddressType(env, address.getIPv6AddrType());
  const LocalRef<> status = createAddressStatus(env, address.getIPv6AddrStatus());
  const LocalRef<> pingStatus = createPingStatus(env, address.getPingStatus());
  const LocalRef<> legacyID = createID(env, address.getQRMObjID());
  // The Java class takes the values of the plain address, so there has to be one.
  if (!plain) return {};
  return env.make<T_MonitoredInetAddressIPv6>(plain, mediaState, type, status, pingStatus,
                                              legacyID);
}

/// By the address's type; one of another type has no Java class.
LocalRef<> buildAddress(JavaEnv& env, const ZNRefPtr<ZNAddress>& address) {
  switch (address->getAddressType()) {
    case ZNAddress::IPv4: {
      const ZNRefPtr<InetAddressIPv4> ipv4 = ZNRefPtrConversion::Address2IPv4(address);
      return ipv4.isNull() ? LocalRef<>() : createIPv4(env, *ipv4);
    }
    case ZNAddress::IPv6: {
      const auto monitored = ZNRefPtrConversion::Address2MonitoredIPv6(address);
      if (!monitored.isNull() && address->isMonitored()) return createMonitored(env, *monitored);
      const ZNRefPtr<InetAddressIPv6> ipv6 = ZNRefPtrConversion::Address2IPv6(address);
      return ipv6.isNull() ? LocalRef<>() : createIPv6(env, *ipv6);
    }
    case ZNAddress::DNS: {
      const ZNRefPtr<InetAddressDNS> dns = ZNRefPtrConversion::Address2DNS(address);
      return dns.isNull() ? LocalRef<>() : createDNS(env, *dns);
    }
    default:
      return {};
  }
}

}  // namespace

LocalRef<> createAddress(JavaEnv& env, ZNRefPtr<ZNAddress> address, jobject theJavaCache) {
  if (address.isNull()) return {};
  return buildOnce(
      env, kAddress, address->getAddressID(), theJavaCache,
      [&] { return address->getAddressAsString(); }, [&] { return buildAddress(env, address); });
}

}  // namespace zntopo::bridge
