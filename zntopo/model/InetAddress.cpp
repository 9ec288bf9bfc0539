#include "zntopo/model/InetAddress.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/model/TopologyGateway.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/detail/LeafLock.h"

namespace zntopo {

InetAddress::InetAddress(const AddressType& type, TopoDBType dbType) : ZNAddress(type, dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, TopoDBType dbType)
    : ZNAddress(type, dbType), _isSubnetAddr(isSubnetAddr) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, 0, ObjID(), dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, RouteDistinguisher rd, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, rd, ObjID(), dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, RouteDistinguisher rd, const ObjID& aSubnetID,
                         TopoDBType dbType)
    : InetAddress(type, Ping_Responding, 0, isSubnetAddr, anAID, anAssEntID, rd, aSubnetID,
                  dbType) {}

InetAddress::InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
                         const ObjID& anAssEntID, const ObjID& aSubnetID, TopoDBType dbType)
    : InetAddress(type, isSubnetAddr, anAID, anAssEntID, 0, aSubnetID, dbType) {}

InetAddress::InetAddress(const AddressType& type, const PingState& aStat, long aPingStateUpdTime,
                         bool isSubnetAddr, const ObjID& anAID, const ObjID& anAssEntID,
                         RouteDistinguisher rd, const ObjID& aSubnetID, TopoDBType dbType)
    : ZNAddress(type, anAID, anAssEntID, aStat, aPingStateUpdTime, dbType),
      _routeDistinguisher(rd),
      _isSubnetAddr(isSubnetAddr),
      _subnetID(aSubnetID) {}

// The assignment copies all, the base's fields included, under its lock.
InetAddress::InetAddress(const InetAddress& other)  // NOLINT(bugprone-copy-constructor-init)
    : ZNAddress() {
  *this = other;
}

InetAddress& InetAddress::operator=(const InetAddress& other) {
  if (this == &other) return *this;
  // The list of groups and the flags that tell about it change together.
  detail::LeafLock lock(&other);
  ZNAddress::operator=(other);
  _routeDistinguisher = other._routeDistinguisher;
  _isSubnetAddr = other._isSubnetAddr;
  _subnetID = other._subnetID;
  myIsHSRP = other.myIsHSRP;
  myHSRPLoaded = other.myHSRPLoaded;
  return *this;
}

InetAddress::~InetAddress() = default;

bool InetAddress::isInHSRP() const {
  if (myHSRPLoaded || _isSubnetAddr) return myIsHSRP;
  if (_entID.isNull()) return false;
  TopologyGateway& gateway = topologyGateway();
  ZNTopoAPIStatus status;
  const ZNRefPtr<ZNInterface> owner = gateway.getInterfaceByObjID(ActiveDB, _entID, status);
  if (!status.isOK()) {
    MCLog::log(MC_CRITICAL, "Error in getInterfaceByObjID() from  Address::isInHSRP()\n");
    return false;
  }
  if (owner.isNull()) return false;
  const bool inHSRP = owner->isInHSRP();
  std::unique_ptr<std::list<ObjID>> groups;
  if (inHSRP) {
    status.reset();
    groups = gateway.getHSRPObjIDsByIFAddressObjID(ActiveDB, _aID, TopologyGateway::HSRP_Address,
                                                   status);
    if (!status.isOK()) {
      MCLog::log(MC_CRITICAL, "getHSRPObjIDsByIFAddressObjID() fail for Address : %s\n",
                 _aID.getStrValue().c_str());
    }
  }
  detail::LeafLock lock(this);
  if (myHSRPLoaded) return myIsHSRP;
  myIsHSRP = inHSRP;
  if (!status.isOK()) return inHSRP;
  if (groups) myHSRPObjIDList.publish(std::move(*groups));
  myHSRPLoaded = true;
  return inHSRP;
}

const std::list<ObjID>& InetAddress::getHSRPObjIDs() const {
  isInHSRP();
  return myHSRPObjIDList.get();
}

bool InetAddress::isInetAddress() const { return true; }
std::string InetAddress::toString() const { return ""; }
std::string InetAddress::toXML() const { return ""; }
RouteDistinguisher InetAddress::getRouteDistinguisher() const { return _routeDistinguisher; }

}  // namespace zntopo
