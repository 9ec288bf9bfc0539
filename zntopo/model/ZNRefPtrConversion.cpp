#include "zntopo/model/ZNRefPtrConversion.h"

#include <algorithm>

#include "zntopo/model/InetAddressDNS.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

namespace zntopo {

namespace {

/// The handle as one of another type, up or down the tree of classes.
template <typename To, typename From>
ZNRefPtr<To> convert(const ZNRefPtr<From>& handle) {
  return ZNRefPtr<To>(handle.getCounter(), handle.getMutex(),
                      dynamic_cast<To*>(handle.getObjectPointer()));
}

using MonitoredList = std::list<ZNRefPtr<MonitoredInetAddressIPv6>>;

/// Appends each address that it is called with, converted, to a list.
struct Address2V6ListConversion {
  void operator()(const ZNRefPtr<ZNAddress>& address) const {
    target.push_back(ZNRefPtrConversion::Address2MonitoredIPv6(address));
  }
  MonitoredList& target;
};

template <typename Addresses>
std::unique_ptr<MonitoredList> convertAll(const std::unique_ptr<Addresses>& addresses) {
  auto converted = std::make_unique<MonitoredList>();
  if (addresses) {
    std::for_each(addresses->begin(), addresses->end(), Address2V6ListConversion{*converted});
  }
  return converted;
}

}  // namespace

#define ZNTOPO_CONVERSION(name, From, To)                               \
  ZNRefPtr<To> ZNRefPtrConversion::name(const ZNRefPtr<From>& handle) { \
    return convert<To>(handle);                                         \
  }

ZNTOPO_CONVERSION(ZNInterface2ZNEntity, ZNInterface, ZNEntity)
ZNTOPO_CONVERSION(ZNIfc2ZNEntity, ZNIfc, ZNEntity)
ZNTOPO_CONVERSION(ZNVlan2ZNEntity, ZNVlan, ZNEntity)
ZNTOPO_CONVERSION(ZNNode2ZNEntity, ZNNode, ZNEntity)
ZNTOPO_CONVERSION(ZNSubnet2ZNEntity, ZNSubnet, ZNEntity)
ZNTOPO_CONVERSION(ZNHSRP2ZNEntity, ZNHSRP, ZNEntity)
ZNTOPO_CONVERSION(MonitoredIPv62Address, MonitoredInetAddressIPv6, ZNAddress)
ZNTOPO_CONVERSION(IPv42Address, InetAddressIPv4, ZNAddress)
ZNTOPO_CONVERSION(ZNEntity2ZNInterface, ZNEntity, ZNInterface)
ZNTOPO_CONVERSION(ZNEntity2ZNNode, ZNEntity, ZNNode)
ZNTOPO_CONVERSION(ZNEntity2ZNVlan, ZNEntity, ZNVlan)
ZNTOPO_CONVERSION(ZNEntity2ZNSubnet, ZNEntity, ZNSubnet)
ZNTOPO_CONVERSION(ZNEntity2ZNHSRP, ZNEntity, ZNHSRP)
ZNTOPO_CONVERSION(Address2MonitoredIPv6, ZNAddress, MonitoredInetAddressIPv6)
ZNTOPO_CONVERSION(Address2IPv6, ZNAddress, InetAddressIPv6)
ZNTOPO_CONVERSION(Address2IPv4, ZNAddress, InetAddressIPv4)
ZNTOPO_CONVERSION(Address2DNS, ZNAddress, InetAddressDNS)

#undef ZNTOPO_CONVERSION

std::unique_ptr<MonitoredList> ZNRefPtrConversion::AddressList2MonitoredIPv6List(
    std::unique_ptr<std::list<ZNRefPtr<ZNAddress>>> addresses) {
  return convertAll(addresses);
}

std::unique_ptr<MonitoredList> ZNRefPtrConversion::AddressList2MonitoredIPv6List(
    std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> addresses) {
  return convertAll(addresses);
}

}  // namespace zntopo
