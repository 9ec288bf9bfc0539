#include "zntopo/model/detail/Addresses.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/model/TopologyGateway.h"

namespace zntopo::detail {

std::vector<ZNRefPtr<ZNAddress>> readAddresses(const std::list<ObjID>& ids) {
  ZNTopoAPIStatus status;
  const auto addresses = topologyGateway().getAddrsByObjIDs(ids, status);
  if (!status.isOK()) {
    MCLog::log(MC_MAJOR, "getAddrsByObjIDList error in status: \n\t%s\n\t%s\n",
               status.getStatusMsg().c_str(), status.getAuxMsg().c_str());
  }
  return addresses ? *addresses : std::vector<ZNRefPtr<ZNAddress>>();
}

std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> addressesOfType(
    const std::vector<ZNRefPtr<ZNAddress>>& addresses, ZNAddress::AddressType type) {
  auto matching = std::make_unique<std::vector<ZNRefPtr<ZNAddress>>>();
  for (const ZNRefPtr<ZNAddress>& address : addresses) {
    if (!address.isNull() && address->getAddressType() == type) matching->push_back(address);
  }
  return matching;
}

}  // namespace zntopo::detail
