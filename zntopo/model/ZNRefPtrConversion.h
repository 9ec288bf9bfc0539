#pragma once

#include <list>
#include <memory>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

class ZNEntity;
class ZNNode;
class ZNInterface;
class ZNSubnet;
class ZNVlan;
class ZNIfc;
class ZNHSRP;
class ZNAddress;
class InetAddressIPv4;
class InetAddressIPv6;
class InetAddressDNS;
class MonitoredInetAddressIPv6;

/// Converts handles between the static types of one object; count and mutex are shared. A null
/// handle gives a null handle, and so does narrowing to a type that the object does not have.
class ZNTOPO_EXPORT ZNRefPtrConversion {
 public:
  static ZNRefPtr<ZNEntity> ZNInterface2ZNEntity(const ZNRefPtr<ZNInterface>& handle);
  static ZNRefPtr<ZNEntity> ZNIfc2ZNEntity(const ZNRefPtr<ZNIfc>& handle);
  static ZNRefPtr<ZNEntity> ZNVlan2ZNEntity(const ZNRefPtr<ZNVlan>& handle);
  static ZNRefPtr<ZNEntity> ZNNode2ZNEntity(const ZNRefPtr<ZNNode>& handle);
  static ZNRefPtr<ZNEntity> ZNSubnet2ZNEntity(const ZNRefPtr<ZNSubnet>& handle);
  static ZNRefPtr<ZNEntity> ZNHSRP2ZNEntity(const ZNRefPtr<ZNHSRP>& handle);
  static ZNRefPtr<ZNAddress> MonitoredIPv62Address(
      const ZNRefPtr<MonitoredInetAddressIPv6>& handle);
  static ZNRefPtr<ZNAddress> IPv42Address(const ZNRefPtr<InetAddressIPv4>& handle);

  static ZNRefPtr<ZNInterface> ZNEntity2ZNInterface(const ZNRefPtr<ZNEntity>& handle);
  static ZNRefPtr<ZNNode> ZNEntity2ZNNode(const ZNRefPtr<ZNEntity>& handle);
  static ZNRefPtr<ZNVlan> ZNEntity2ZNVlan(const ZNRefPtr<ZNEntity>& handle);
  static ZNRefPtr<ZNSubnet> ZNEntity2ZNSubnet(const ZNRefPtr<ZNEntity>& handle);
  static ZNRefPtr<ZNHSRP> ZNEntity2ZNHSRP(const ZNRefPtr<ZNEntity>& handle);
  static ZNRefPtr<MonitoredInetAddressIPv6> Address2MonitoredIPv6(
      const ZNRefPtr<ZNAddress>& handle);
  static ZNRefPtr<InetAddressIPv6> Address2IPv6(const ZNRefPtr<ZNAddress>& handle);
  static ZNRefPtr<InetAddressIPv4> Address2IPv4(const ZNRefPtr<ZNAddress>& handle);
  static ZNRefPtr<InetAddressDNS> Address2DNS(const ZNRefPtr<ZNAddress>& handle);

  /// Converts each element in order.
  static std::unique_ptr<std::list<ZNRefPtr<MonitoredInetAddressIPv6>>>
  AddressList2MonitoredIPv6List(std::unique_ptr<std::list<ZNRefPtr<ZNAddress>>> addresses);
  /// The same for the vector that an entity's getAddressesByType() gives.
  static std::unique_ptr<std::list<ZNRefPtr<MonitoredInetAddressIPv6>>>
  AddressList2MonitoredIPv6List(std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> addresses);
};

}  // namespace zntopo
